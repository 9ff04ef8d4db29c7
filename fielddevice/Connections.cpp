#include "Connections.h"

#include "Gates.h"

#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <chrono>

namespace FieldDevice {

namespace {

/// A slow device keeps its thread, so there are more of them than processors.
constexpr std::size_t Threads = 32;
constexpr std::size_t MaxBody = std::size_t{2} * 1024 * 1024;
constexpr std::size_t MaxTarget = 256;
constexpr int PollMs = 100;
constexpr int TimeOutMs = 5000;

/// A connection as the HTTP library reads it. Ends early when the program does.
class ConnectionStream : public httplib::Stream
{
public:
    ConnectionStream(int nSocket, const std::atomic<bool>& bStopping)
        : m_nSocket(nSocket)
        , m_bStopping(bStopping)
    {
    }
    ~ConnectionStream() override
    {
        shutdown(m_nSocket, SHUT_RDWR);
        close(m_nSocket);
    }
    ConnectionStream(const ConnectionStream&) = delete;
    ConnectionStream& operator=(const ConnectionStream&) = delete;

    bool is_readable() const override { return WaitFor(POLLIN); }
    bool is_writable() const override { return WaitFor(POLLOUT); }
    ssize_t read(char* pData, std::size_t nSize) override
    {
        return is_readable() ? recv(m_nSocket, pData, nSize, 0) : -1;
    }
    ssize_t write(const char* pData, std::size_t nSize) override
    {
        return is_writable() ? send(m_nSocket, pData, nSize, MSG_NOSIGNAL) : -1;
    }
    void get_remote_ip_and_port(std::string& /*ip*/, int& /*port*/) const override { }
    void get_local_ip_and_port(std::string& /*ip*/, int& /*port*/) const override { }
    socket_t socket() const override { return m_nSocket; }

private:
    bool WaitFor(short nEvents) const
    {
        for (int nWaited = 0; nWaited < TimeOutMs && !m_bStopping; nWaited += PollMs) {
            pollfd polled{m_nSocket, nEvents, 0};
            if (poll(&polled, 1, PollMs) > 0)
                return true;
        }
        return false;
    }

    const int m_nSocket;
    const std::atomic<bool>& m_bStopping;
};

/// Reads one request and writes the answer that the function gives.
class Exchange : public httplib::Server
{
public:
    using Answerer = std::function<Answer(const Query&)>;

    Exchange(const Answerer& answer, DigestGate& digest)
    {
        set_payload_max_length(MaxBody);
        // Before the patterns below: matching a long text takes a deep stack.
        set_pre_routing_handler([](const httplib::Request& request, httplib::Response& response) {
            const bool bTooLong = request.target.size() > MaxTarget;
            if (bTooLong)
                response.status = 414;
            return bTooLong ? HandlerResponse::Handled : HandlerResponse::Unhandled;
        });
        const auto handle = [&](const httplib::Request& request, httplib::Response& response) {
            const Answer given = answer(
                {request.method, request.target, request.body, request.get_header_value("Authorization")});
            response.status = given.nStatus;
            response.set_content(given.sBody, given.sContentType.c_str());
            for (const std::string& sChallenge :
                given.bChallenge ? digest.Challenges(given.bStale) : std::vector<std::string>())
                response.set_header("WWW-Authenticate", sChallenge);
        };
        Get(".*", handle);
        Post(".*", handle);
    }
    void Run(httplib::Stream& stream)
    {
        bool bClosed = false;
        process_request(stream, true, bClosed, nullptr);
    }
};

} // namespace

Connections::Connections(const Services& services)
    : m_services(services)
    , m_pool(Threads)
{
}

Connections::~Connections()
{
    {
        const std::lock_guard lock(m_mutex);
        m_bStopping = true;
    }
    m_stopping.notify_all();
    m_pool.shutdown();
}

void Connections::Serve(Device& device, int nSocket)
{
    m_pool.enqueue([this, &device, nSocket] { ServeNow(device, nSocket); });
}

void Connections::ServeNow(Device& device, int nSocket)
{
    ConnectionStream stream(nSocket, m_bStopping);
    Exchange([&](const Query& query) { return Wait(device, query); }, m_services.digest).Run(stream);
}

/// Answers when the device has been slow enough.
Answer Connections::Wait(Device& device, const Query& query)
{
    {
        std::unique_lock lock(m_mutex);
        m_stopping.wait_for(
            lock, std::chrono::milliseconds(device.State().slow_ms), [this] { return m_bStopping.load(); });
    }
    return device.Spec().protocol == ProtocolOnvif ? AnswerOnvif(m_services, device, query)
                                                   : AnswerPrivate(m_services, device, query);
}

} // namespace FieldDevice

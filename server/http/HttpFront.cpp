#include "HttpFront.h"

#include "Log.h"

#include <wire/Operations.h>

#include <dirent.h>
#include <httplib.h>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <set>
#include <thread>
#include <vector>

namespace Platform {

namespace {

constexpr std::size_t BodyLimit = std::size_t(4) * 1024 * 1024;
// A connection holds a thread while it is kept alive, an event stream for its whole life.
constexpr std::size_t RequestThreadLimit = 256;
constexpr int KeepAliveSeconds = 5;
constexpr std::chrono::milliseconds StopStep(5);
constexpr std::size_t KeepAliveCount = 100000;

/// Threads for connections: started when no thread is free, kept until the end.
class ElasticPool : public httplib::TaskQueue
{
public:
    explicit ElasticPool(std::size_t nLimit)
        : m_nLimit(nLimit)
    {
    }

    void enqueue(std::function<void()> work) override
    {
        const std::lock_guard lock(m_mutex);
        m_work.push_back(std::move(work));
        if (m_nIdle < m_work.size() && m_threads.size() < m_nLimit)
            m_threads.emplace_back([this] { Serve(); });
        m_changed.notify_one();
    }

    void shutdown() override
    {
        {
            const std::lock_guard lock(m_mutex);
            m_bEnding = true;
            m_changed.notify_all();
        }
        for (std::thread& thread : m_threads)
            thread.join();
    }

private:
    void Serve()
    {
        std::unique_lock lock(m_mutex);
        for (;;) {
            ++m_nIdle;
            m_changed.wait(lock, [this] { return !m_work.empty() || m_bEnding; });
            --m_nIdle;
            if (m_work.empty())
                return;
            const std::function<void()> work = std::move(m_work.front());
            m_work.pop_front();
            lock.unlock();
            work();
            lock.lock();
        }
    }

    const std::size_t m_nLimit;
    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::deque<std::function<void()>> m_work;
    std::vector<std::thread> m_threads;
    std::size_t m_nIdle = 0;
    bool m_bEnding = false;
};

bool IsLoopback(const std::string& sAddress)
{
    return sAddress.rfind("127.", 0) == 0 || sAddress == "::1" || sAddress.rfind("::ffff:127.", 0) == 0;
}

int PortOf(const sockaddr_storage& address)
{
    return ntohs(address.ss_family == AF_INET6 ? reinterpret_cast<const sockaddr_in6&>(address).sin6_port
                                               : reinterpret_cast<const sockaddr_in&>(address).sin_port);
}

/// Ends the connections that came to this port, but for those of the spared ports of their clients. The
/// library waits for idle connections until their keep-alive time is over and does not tell which ones it
/// has.
void ShutConnections(int nPort, const std::multiset<int>& sparedPorts)
{
    DIR* const pFolder = opendir("/proc/self/fd");
    if (!pFolder)
        return;
    while (const dirent* pEntry = readdir(pFolder)) {
        const int nDescriptor = std::atoi(pEntry->d_name);
        sockaddr_storage address{};
        sockaddr_storage peer{};
        socklen_t nSize = sizeof(address);
        socklen_t nPeerSize = sizeof(peer);
        if (getsockname(nDescriptor, reinterpret_cast<sockaddr*>(&address), &nSize) == 0
            && getpeername(nDescriptor, reinterpret_cast<sockaddr*>(&peer), &nPeerSize) == 0
            && (address.ss_family == AF_INET || address.ss_family == AF_INET6) && PortOf(address) == nPort
            && sparedPorts.count(PortOf(peer)) == 0)
            shutdown(nDescriptor, SHUT_RDWR);
    }
    closedir(pFolder);
}

RawRequest MakeRequest(const httplib::Request& request)
{
    RawRequest raw;
    if (request.path.size() > std::strlen(wire::OperationPrefix))
        raw.sOperation = request.path.substr(std::strlen(wire::OperationPrefix));
    raw.sProtocolVersion = request.get_header_value(wire::ProtocolVersionHeader);
    const std::string sAuthorization = request.get_header_value("Authorization");
    if (sAuthorization.rfind("Bearer ", 0) == 0)
        raw.sToken = sAuthorization.substr(std::strlen("Bearer "));
    raw.sClientAddress = request.remote_addr;
    raw.bLoopback = IsLoopback(request.remote_addr);
    raw.sBody = request.body;
    return raw;
}

void Answer(httplib::Response& response, RawResponse raw)
{
    response.status = raw.nStatus;
    response.body = std::move(raw.sBody);
    // With its character set named the library does not recognise the type and leaves the body uncompressed:
    // on a local network packing costs more than it spares.
    response.set_header("Content-Type", "application/json; charset=utf-8");
}

} // namespace

struct HttpFront::Private
{
    Private(const HttpOptions& httpOptions, const Dispatcher& operations, const FileRoutes& fileRoutes,
        EventHub& eventHub)
        : options(httpOptions)
        , dispatcher(operations)
        , files(fileRoutes)
        , hub(eventHub)
    {
    }

    void MakeServer();
    void Bind();
    void AddRoutes();
    void ServeOperation(const httplib::Request& request, httplib::Response& response);
    void ServeFile(const httplib::Request& request, httplib::Response& response);
    void OnAnswered(const httplib::Request& request);
    void ShutIdle();
    void ServeEvents(const httplib::Request& request, httplib::Response& response);
    bool PassEvents(
        const std::shared_ptr<EventQueue>& pQueue, const RawRequest& raw, httplib::DataSink& sink);

    HttpOptions options;
    const Dispatcher& dispatcher;
    const FileRoutes& files;
    EventHub& hub;
    std::unique_ptr<httplib::Server> pServer;
    std::thread thread;
    int nPort = 0;
    std::atomic<bool> bCut{false};
    std::atomic<bool> bEnded{false};
    std::mutex busyMutex;
    std::multiset<int> busyPorts; ///< the clients' ports of requests that are being worked on
};

void HttpFront::Private::MakeServer()
{
    if (options.sCertificate.isEmpty()) {
        pServer = std::make_unique<httplib::Server>();
    } else {
        pServer = std::make_unique<httplib::SSLServer>(
            options.sCertificate.toLocal8Bit().constData(), options.sKey.toLocal8Bit().constData());
        if (!pServer->is_valid())
            throw StartError(ExitCertificate,
                "The certificate " + options.sCertificate.toStdString() + " with the key "
                    + options.sKey.toStdString() + " cannot be read, or they do not belong together");
    }
    const std::size_t nThreads = RequestThreadLimit + static_cast<std::size_t>(options.nStreamLimit);
    pServer->new_task_queue = [nThreads] { return new ElasticPool(nThreads); };
    pServer->set_tcp_nodelay(true);
    pServer->set_keep_alive_timeout(KeepAliveSeconds);
    pServer->set_keep_alive_max_count(KeepAliveCount);
    pServer->set_payload_max_length(BodyLimit);
    // Without SO_REUSEPORT, which the library sets by default: a second server on the port has to fail.
    pServer->set_socket_options([](socket_t sock) {
        const int nYes = 1;
        setsockopt(sock, SOL_SOCKET, SO_REUSEADDR, &nYes, sizeof(nYes));
    });
}

void HttpFront::Private::Bind()
{
    if (options.nPort == 0)
        nPort = pServer->bind_to_any_port(options.sHost);
    else
        nPort = pServer->bind_to_port(options.sHost, options.nPort) ? options.nPort : -1;
    if (nPort < 0)
        throw StartError(ExitListen,
            "The address " + options.sHost + ':' + std::to_string(options.nPort)
                + " cannot be listened on: it is taken by another program, or not an address of this "
                  "machine");
}

void HttpFront::Private::AddRoutes()
{
    const auto serveFile = [this](const auto& request, auto& response) { ServeFile(request, response); };
    pServer->Get(
        QString(QLatin1String(FileRoutes::DownloadPrefix) + QLatin1String(".*")).toStdString(), serveFile);
    pServer->Post(
        QString(QLatin1String(FileRoutes::UploadPrefix) + QLatin1String(".*")).toStdString(), serveFile);
    pServer->Post("/.*", [this](const auto& request, auto& response) { ServeOperation(request, response); });
    pServer->Get(
        wire::EventPath, [this](const auto& request, auto& response) { ServeEvents(request, response); });
    pServer->set_logger(
        [this](const httplib::Request& request, const httplib::Response&) { OnAnswered(request); });
    pServer->set_error_handler([](const httplib::Request&, httplib::Response& response) {
        if (!response.body.empty())
            return;
        const int nCode = response.status == 413 ? UICommonMdl::ErrorTooLarge
            : response.status == 404             ? UICommonMdl::ErrorUnknownOperation
                                                 : UICommonMdl::ErrorMalformed;
        Answer(response, {response.status, Dispatcher::Failure(nCode).sBody});
    });
}

void HttpFront::Private::ServeOperation(const httplib::Request& request, httplib::Response& response)
{
    {
        const std::lock_guard lock(busyMutex);
        busyPorts.insert(request.remote_port);
    }
    RawRequest raw = MakeRequest(request);
    if (request.path.rfind(wire::OperationPrefix, 0) != 0)
        raw.sOperation.clear();
    Answer(response, dispatcher.Handle(raw));
    if (bCut) {
        response.body.clear();
        response.set_content_provider(1, "application/json", [](auto, auto, auto&) { return false; });
    }
}

void HttpFront::Private::ServeFile(const httplib::Request& request, httplib::Response& response)
{
    {
        const std::lock_guard lock(busyMutex);
        busyPorts.insert(request.remote_port);
    }
    const bool bDownload = request.method == "GET" || request.method == "HEAD";
    const std::string sPrefix = bDownload ? FileRoutes::DownloadPrefix : FileRoutes::UploadPrefix;
    FileRequest file{request.path.substr(sPrefix.size()), {}, MakeRequest(request)};
    for (const auto& [sKey, sValue] : request.params)
        file.mapQuery[sKey] = sValue;
    if (const auto it = file.mapQuery.find("token"); it != file.mapQuery.end())
        file.raw.sToken = it->second;
    FileResponse answer = bDownload ? files.HandleDownload(file) : files.HandleUpload(file);
    response.status = answer.nStatus;
    response.body = std::move(answer.sContent);
    response.set_header("Content-Type", answer.sType);
    if (!answer.sFileName.empty())
        response.set_header("Content-Disposition", "attachment; filename=\"" + answer.sFileName + '"');
}

// Called when the answer has been written.
void HttpFront::Private::OnAnswered(const httplib::Request& request)
{
    const std::lock_guard lock(busyMutex);
    if (const auto it = busyPorts.find(request.remote_port); it != busyPorts.end())
        busyPorts.erase(it);
}

void HttpFront::Private::ShutIdle()
{
    const std::lock_guard lock(busyMutex);
    ShutConnections(nPort, bCut ? std::multiset<int>() : busyPorts);
}

void HttpFront::Private::ServeEvents(const httplib::Request& request, httplib::Response& response)
{
    const RawRequest raw = MakeRequest(request);
    try {
        const Context context = dispatcher.Authenticate(raw);
        const auto pQueue = hub.Subscribe(context.sTokenHash, context.nAccountId);
        if (!pQueue)
            throw ServiceError(UICommonMdl::ErrorServerBusy);
        response.set_header("Cache-Control", "no-cache");
        response.set_chunked_content_provider(
            "text/event-stream",
            [this, pQueue, raw](
                std::size_t, httplib::DataSink& sink) { return PassEvents(pQueue, raw, sink); },
            [this, pQueue](bool) { hub.Unsubscribe(pQueue); });
    } catch (const ServiceError& error) {
        Answer(response, Dispatcher::Failure(error.Code(), error.Detail()));
    }
}

bool HttpFront::Private::PassEvents(
    const std::shared_ptr<EventQueue>& pQueue, const RawRequest& raw, httplib::DataSink& sink)
{
    const std::string sText = pQueue->Take(std::chrono::milliseconds(options.nHeartbeatMs));
    if (sText.empty()) {
        sink.done();
        return true;
    }
    if (sText.front() == ':') {
        // An open stream keeps its session; a session that is gone ends its stream.
        try {
            dispatcher.Authenticate(raw);
        } catch (const ServiceError& error) {
            if (error.Code() == UICommonMdl::ErrorNotSignedIn)
                hub.EndSession(pQueue->TokenHash());
        }
    }
    return sink.write(sText.data(), sText.size());
}

HttpFront::HttpFront(
    const HttpOptions& options, const Dispatcher& dispatcher, const FileRoutes& files, EventHub& hub)
    : m_pPrivate(std::make_unique<Private>(options, dispatcher, files, hub))
{
    m_pPrivate->MakeServer();
    m_pPrivate->AddRoutes();
    m_pPrivate->Bind();
}

HttpFront::~HttpFront()
{
    Stop();
}

void HttpFront::Start()
{
    m_pPrivate->thread = std::thread([this] {
        m_pPrivate->pServer->listen_after_bind();
        m_pPrivate->bEnded = true;
    });
    // A stop before the loop runs would be lost.
    while (!m_pPrivate->pServer->is_running())
        std::this_thread::yield();
}

void HttpFront::Stop()
{
    if (!m_pPrivate->thread.joinable())
        return;
    m_pPrivate->hub.End();
    m_pPrivate->pServer->stop();
    while (!m_pPrivate->bEnded) {
        m_pPrivate->ShutIdle();
        std::this_thread::sleep_for(StopStep);
    }
    m_pPrivate->thread.join();
}

void HttpFront::Cut()
{
    m_pPrivate->bCut = true;
}

std::string HttpFront::Url() const
{
    const std::string& sHost = m_pPrivate->options.sHost;
    const bool bIpv6 = sHost.find(':') != std::string::npos;
    return std::string(m_pPrivate->options.sCertificate.isEmpty() ? "http://" : "https://")
        + (bIpv6 ? '[' + sHost + ']' : sHost) + ':' + std::to_string(m_pPrivate->nPort);
}

} // namespace Platform

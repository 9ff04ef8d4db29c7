#include "TcpReachability.h"

#include <GroupLogical/GroupRecords.h>

#include <QByteArray>

#include <arpa/inet.h>
#include <netdb.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <condition_variable>
#include <cstring>
#include <deque>
#include <map>
#include <mutex>
#include <optional>
#include <thread>

namespace Platform {

namespace {

using SteadyClock = std::chrono::steady_clock;
constexpr int PollMs = 50;
constexpr int NameThreads = 2;

constexpr ProbeResult Online{GroupLogical::StateOnline, GroupLogical::ReasonNone};

ProbeResult Offline(GroupLogical::OfflineReason reason)
{
    return {GroupLogical::StateOffline, reason};
}

struct SocketAddress
{
    sockaddr_storage storage{};
    socklen_t nSize = 0;
};

std::optional<SocketAddress> NumericAddress(const std::string& sAddress)
{
    SocketAddress address;
    auto* const pIpv4 = reinterpret_cast<sockaddr_in*>(&address.storage);
    auto* const pIpv6 = reinterpret_cast<sockaddr_in6*>(&address.storage);
    if (inet_pton(AF_INET, sAddress.c_str(), &pIpv4->sin_addr) == 1) {
        pIpv4->sin_family = AF_INET;
        address.nSize = sizeof(sockaddr_in);
        return address;
    }
    if (inet_pton(AF_INET6, sAddress.c_str(), &pIpv6->sin6_addr) == 1) {
        pIpv6->sin6_family = AF_INET6;
        address.nSize = sizeof(sockaddr_in6);
        return address;
    }
    return std::nullopt;
}

void SetPort(SocketAddress& address, int nPort)
{
    const auto nNetworkPort = htons(static_cast<std::uint16_t>(nPort));
    if (address.storage.ss_family == AF_INET)
        reinterpret_cast<sockaddr_in*>(&address.storage)->sin_port = nNetworkPort;
    else
        reinterpret_cast<sockaddr_in6*>(&address.storage)->sin6_port = nNetworkPort;
}

GroupLogical::OfflineReason ReasonOf(int nError)
{
    switch (nError) {
    case ECONNREFUSED:
    case ECONNRESET:
        return GroupLogical::ReasonRefused;
    case ETIMEDOUT:
        return GroupLogical::ReasonTimeOut;
    default:
        return GroupLogical::ReasonUnreachable;
    }
}

/// A socket that closes itself.
class Socket
{
public:
    explicit Socket(int nDescriptor)
        : m_nDescriptor(nDescriptor)
    {
    }
    ~Socket()
    {
        if (m_nDescriptor >= 0)
            close(m_nDescriptor);
    }
    Socket(Socket&& other) noexcept
        : m_nDescriptor(std::exchange(other.m_nDescriptor, -1))
    {
    }
    Socket& operator=(Socket&& other) noexcept
    {
        std::swap(m_nDescriptor, other.m_nDescriptor);
        return *this;
    }
    Socket(const Socket&) = delete;
    Socket& operator=(const Socket&) = delete;
    int Descriptor() const { return m_nDescriptor; }

private:
    int m_nDescriptor;
};

struct Attempt
{
    Socket socket;
    const ProbeTarget* pTarget;
    SteadyClock::time_point deadline;
};

/// Connections under way.
class Attempts
{
public:
    Attempts(int nLimit, int nTimeoutMs, const Reachability::Found& found)
        : m_nLimit(static_cast<std::size_t>(nLimit))
        , m_timeout(nTimeoutMs)
        , m_found(found)
    {
    }

    bool IsFull() const { return m_attempts.size() >= m_nLimit; }
    bool IsEmpty() const { return m_attempts.empty(); }
    /// False when the process has no descriptor left: try again when a connection has ended.
    bool Begin(const ProbeTarget& target, SocketAddress address);
    void Wait(int nMs);

private:
    const std::size_t m_nLimit;
    const std::chrono::milliseconds m_timeout;
    const Reachability::Found& m_found;
    std::vector<Attempt> m_attempts;
};

bool Attempts::Begin(const ProbeTarget& target, SocketAddress address)
{
    Socket socket(::socket(address.storage.ss_family, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
    if (socket.Descriptor() < 0) {
        if (errno == EMFILE || errno == ENFILE)
            return false;
        m_found(target, Offline(GroupLogical::ReasonUnreachable));
        return true;
    }
    SetPort(address, target.nPort);
    if (connect(socket.Descriptor(), reinterpret_cast<sockaddr*>(&address.storage), address.nSize) == 0)
        m_found(target, Online);
    else if (errno == EINPROGRESS)
        m_attempts.push_back({std::move(socket), &target, SteadyClock::now() + m_timeout});
    else
        m_found(target, Offline(ReasonOf(errno)));
    return true;
}

void Attempts::Wait(int nMs)
{
    std::vector<pollfd> vecPolled;
    vecPolled.reserve(m_attempts.size());
    for (const Attempt& attempt : m_attempts)
        vecPolled.push_back({attempt.socket.Descriptor(), POLLOUT, 0});
    poll(vecPolled.data(), vecPolled.size(), nMs);
    const auto now = SteadyClock::now();
    std::vector<Attempt> vecLeft;
    for (std::size_t i = 0; i < vecPolled.size(); ++i) {
        Attempt& attempt = m_attempts[i];
        if (vecPolled[i].revents != 0) {
            int nError = 0;
            socklen_t nSize = sizeof(nError);
            getsockopt(attempt.socket.Descriptor(), SOL_SOCKET, SO_ERROR, &nError, &nSize);
            m_found(*attempt.pTarget, nError == 0 ? Online : Offline(ReasonOf(nError)));
        } else if (now >= attempt.deadline) {
            m_found(*attempt.pTarget, Offline(GroupLogical::ReasonTimeOut));
        } else {
            vecLeft.push_back(std::move(attempt));
        }
    }
    m_attempts = std::move(vecLeft);
}

} // namespace

/// Looks up host names. A lookup cannot be broken off, so its threads share this object and outlive the
/// prober that asked when the network hangs.
class TcpReachability::Names : public std::enable_shared_from_this<TcpReachability::Names>
{
public:
    using Answer = std::optional<SocketAddress>; ///< nullopt: unknown

    void Ask(const std::string& sName)
    {
        const std::lock_guard lock(m_mutex);
        m_mapAnswers.erase(sName);
        if (std::find(m_wanted.begin(), m_wanted.end(), sName) == m_wanted.end())
            m_wanted.push_back(sName);
        if (m_nThreads < NameThreads) {
            ++m_nThreads;
            std::thread([pSelf = shared_from_this()] { pSelf->Serve(); }).detach();
        }
    }

    /// nullopt while the answer is not there yet.
    std::optional<Answer> Find(const std::string& sName)
    {
        const std::lock_guard lock(m_mutex);
        const auto it = m_mapAnswers.find(sName);
        return it == m_mapAnswers.end() ? std::nullopt : std::optional<Answer>(it->second);
    }

    void GiveUp()
    {
        const std::lock_guard lock(m_mutex);
        m_wanted.clear();
    }

private:
    void Serve()
    {
        std::unique_lock lock(m_mutex);
        while (!m_wanted.empty()) {
            const std::string sName = m_wanted.front();
            m_wanted.pop_front();
            lock.unlock();
            Answer answer = LookUp(sName);
            lock.lock();
            m_mapAnswers[sName] = answer;
        }
        --m_nThreads;
    }

    static Answer LookUp(const std::string& sName)
    {
        addrinfo hints{};
        hints.ai_socktype = SOCK_STREAM;
        addrinfo* pFirst = nullptr;
        if (getaddrinfo(sName.c_str(), nullptr, &hints, &pFirst) != 0 || !pFirst)
            return std::nullopt;
        SocketAddress address;
        std::memcpy(&address.storage, pFirst->ai_addr, pFirst->ai_addrlen);
        address.nSize = pFirst->ai_addrlen;
        freeaddrinfo(pFirst);
        return address;
    }

    std::mutex m_mutex;
    std::deque<std::string> m_wanted;
    std::map<std::string, Answer> m_mapAnswers;
    int m_nThreads = 0;
};

TcpReachability::TcpReachability(int nConcurrency, int nTimeoutMs)
    : m_nConcurrency(std::max(1, nConcurrency))
    , m_nTimeoutMs(std::max(1, nTimeoutMs))
    , m_pNames(std::make_shared<Names>())
{
}

TcpReachability::~TcpReachability()
{
    m_pNames->GiveUp();
}

void TcpReachability::Check(
    const std::vector<ProbeTarget>& vecTargets, const Found& found, std::stop_token stop)
{
    Attempts attempts(m_nConcurrency, m_nTimeoutMs, found);
    std::deque<std::pair<const ProbeTarget*, SocketAddress>> ready;
    std::vector<const ProbeTarget*> vecNamed;
    for (const ProbeTarget& target : vecTargets) {
        if (target.sAddress.empty() || target.nPort <= 0) {
            found(target, Offline(GroupLogical::ReasonNoAddress));
        } else if (const auto optAddress = NumericAddress(target.sAddress)) {
            ready.emplace_back(&target, *optAddress);
        } else {
            m_pNames->Ask(target.sAddress);
            vecNamed.push_back(&target);
        }
    }
    const auto nameDeadline = SteadyClock::now() + std::chrono::milliseconds(m_nTimeoutMs);
    while ((!ready.empty() || !vecNamed.empty() || !attempts.IsEmpty()) && !stop.stop_requested()) {
        std::erase_if(vecNamed, [&](const ProbeTarget* pTarget) {
            const auto optAnswer = m_pNames->Find(pTarget->sAddress);
            if (optAnswer && *optAnswer)
                ready.emplace_back(pTarget, **optAnswer);
            else if (optAnswer || SteadyClock::now() >= nameDeadline)
                found(*pTarget, Offline(GroupLogical::ReasonAddressUnknown));
            else
                return false;
            return true;
        });
        while (!ready.empty() && !attempts.IsFull()
            && attempts.Begin(*ready.front().first, ready.front().second))
            ready.pop_front();
        attempts.Wait(PollMs);
    }
}

} // namespace Platform

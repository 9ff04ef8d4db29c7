#include "HttpGuard.h"

#include <fcntl.h>
#include <linux/tcp.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

namespace Platform {

namespace {

constexpr std::chrono::milliseconds Interval(25);

std::uint64_t ReceivedBytes(int nSocket)
{
    tcp_info info{};
    socklen_t nSize = sizeof(info);
    return getsockopt(nSocket, IPPROTO_TCP, TCP_INFO, &info, &nSize) == 0 ? info.tcpi_bytes_received : 0;
}

void Cut(int nSocket)
{
    // Closing it then resets the connection: a device that goes on sending is told so at once.
    const linger reset{1, 0};
    setsockopt(nSocket, SOL_SOCKET, SO_LINGER, &reset, sizeof(reset));
    shutdown(nSocket, SHUT_RDWR);
}

} // namespace

HttpGuard::HttpGuard(std::chrono::steady_clock::time_point deadline, std::uint64_t nMaxReceived)
    : m_deadline(deadline)
    , m_nMaxReceived(nMaxReceived)
    , m_thread([this](const std::stop_token& stop) { Watch(stop); })
{
}

HttpGuard::~HttpGuard()
{
    m_thread.request_stop();
    m_thread.join();
    if (m_nSocket >= 0)
        close(m_nSocket);
}

void HttpGuard::Take(int nSocket)
{
    const std::lock_guard lock(m_mutex);
    if (m_nSocket >= 0)
        close(m_nSocket);
    m_nSocket = fcntl(nSocket, F_DUPFD_CLOEXEC, 0);
}

bool HttpGuard::IsTooMuch() const
{
    const std::lock_guard lock(m_mutex);
    return m_bTooMuch;
}

void HttpGuard::Watch(const std::stop_token& stop)
{
    std::unique_lock lock(m_mutex);
    while (!stop.stop_requested()) {
        m_changed.wait_for(lock, stop, Interval, [] { return false; });
        if (m_nSocket < 0)
            continue;
        m_bTooMuch = m_bTooMuch || ReceivedBytes(m_nSocket) > m_nMaxReceived;
        if (m_bTooMuch || std::chrono::steady_clock::now() >= m_deadline)
            Cut(m_nSocket);
    }
}

} // namespace Platform

#include "EventLoop.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/epoll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace FieldDevice {

Listener::Listener(const Address& address)
    : m_nSocket(socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0))
{
    const int nYes = 1;
    setsockopt(m_nSocket, SOL_SOCKET, SO_REUSEADDR, &nYes, sizeof(nYes));
    sockaddr_in bound{};
    bound.sin_family = AF_INET;
    bound.sin_port = htons(static_cast<std::uint16_t>(address.nPort));
    inet_pton(AF_INET, address.sHost.c_str(), &bound.sin_addr);
    if (m_nSocket >= 0
        && (bind(m_nSocket, reinterpret_cast<sockaddr*>(&bound), sizeof(bound)) != 0
            || listen(m_nSocket, SOMAXCONN) != 0)) {
        close(m_nSocket);
        m_nSocket = -1;
    }
}

Listener::~Listener()
{
    if (m_nSocket >= 0)
        close(m_nSocket);
}

int Listener::Accept() const
{
    return accept4(m_nSocket, nullptr, nullptr, SOCK_CLOEXEC);
}

EventLoop::EventLoop()
    : m_nPoll(epoll_create1(EPOLL_CLOEXEC))
{
}

EventLoop::~EventLoop()
{
    close(m_nPoll);
}

void EventLoop::Watch(int nDescriptor, std::function<void()> readable)
{
    {
        const std::lock_guard lock(m_mutex);
        m_mapReadable[nDescriptor] = std::make_shared<std::function<void()>>(std::move(readable));
    }
    epoll_event event{};
    event.events = EPOLLIN;
    event.data.fd = nDescriptor;
    epoll_ctl(m_nPoll, EPOLL_CTL_ADD, nDescriptor, &event);
}

void EventLoop::Forget(int nDescriptor)
{
    epoll_ctl(m_nPoll, EPOLL_CTL_DEL, nDescriptor, nullptr);
    const std::lock_guard lock(m_mutex);
    m_mapReadable.erase(nDescriptor);
}

std::shared_ptr<std::function<void()>> EventLoop::Find(int nDescriptor)
{
    const std::lock_guard lock(m_mutex);
    const auto it = m_mapReadable.find(nDescriptor);
    return it == m_mapReadable.end() ? nullptr : it->second;
}

void EventLoop::Run()
{
    epoll_event events[64];
    while (!m_bStopped) {
        const int nReady = epoll_wait(m_nPoll, events, 64, -1);
        for (int i = 0; i < nReady && !m_bStopped; ++i) {
            if (const auto pReadable = Find(events[i].data.fd))
                (*pReadable)();
        }
    }
}

} // namespace FieldDevice

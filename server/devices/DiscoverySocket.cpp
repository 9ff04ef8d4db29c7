#include "DiscoverySocket.h"

#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstring>
#include <system_error>

namespace Platform {

namespace {

constexpr int ReceiveBuffer = 4 * 1024 * 1024;
constexpr std::size_t MaxDatagram = 65536;

/// The way goes along with the datagram: setting it on the socket would be a call more for each.
void AddWay(msghdr& message, cmsghdr* pControl, std::size_t nControlSize, const DiscoverySocket::Way& way)
{
    in_pktinfo info{};
    info.ipi_ifindex = way.nInterface;
    info.ipi_spec_dst.s_addr = htonl(way.nAddress);
    pControl->cmsg_level = IPPROTO_IP;
    pControl->cmsg_type = IP_PKTINFO;
    pControl->cmsg_len = CMSG_LEN(sizeof(info));
    std::memcpy(CMSG_DATA(pControl), &info, sizeof(info));
    message.msg_control = pControl;
    message.msg_controllen = nControlSize;
}

} // namespace

DiscoverySocket::DiscoverySocket()
    : m_nSocket(socket(AF_INET, SOCK_DGRAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0))
{
    if (m_nSocket < 0)
        throw std::system_error(errno, std::generic_category(), "no socket for discovery");
    // Above the system's limit only where the process may; the ordinary call gives the limit.
    if (setsockopt(m_nSocket, SOL_SOCKET, SO_RCVBUFFORCE, &ReceiveBuffer, sizeof(ReceiveBuffer)) != 0)
        setsockopt(m_nSocket, SOL_SOCKET, SO_RCVBUF, &ReceiveBuffer, sizeof(ReceiveBuffer));
}

DiscoverySocket::~DiscoverySocket()
{
    close(m_nSocket);
}

DiscoverySocket::Sent DiscoverySocket::Send(
    const std::string& sDatagram, std::uint32_t nAddress, int nPort, const Way* pWay)
{
    sockaddr_in target{};
    target.sin_family = AF_INET;
    target.sin_port = htons(static_cast<std::uint16_t>(nPort));
    target.sin_addr.s_addr = htonl(nAddress);
    iovec part{const_cast<char*>(sDatagram.data()), sDatagram.size()};
    msghdr message{};
    message.msg_name = &target;
    message.msg_namelen = sizeof(target);
    message.msg_iov = &part;
    message.msg_iovlen = 1;
    alignas(cmsghdr) std::array<char, CMSG_SPACE(sizeof(in_pktinfo))> control{};
    if (pWay)
        AddWay(message, reinterpret_cast<cmsghdr*>(control.data()), control.size(), *pWay);
    if (sendmsg(m_nSocket, &message, MSG_NOSIGNAL) >= 0)
        return Sent::Done;
    return errno == EAGAIN || errno == ENOBUFS || errno == EINTR ? Sent::Busy : Sent::Done;
}

void DiscoverySocket::Receive(int nLimit, const std::function<void(std::string_view, std::uint32_t)>& read)
{
    static thread_local std::array<char, MaxDatagram> s_buffer;
    for (int i = 0; i < nLimit; ++i) {
        sockaddr_in sender{};
        socklen_t nSenderSize = sizeof(sender);
        const ssize_t nSize = recvfrom(m_nSocket, s_buffer.data(), s_buffer.size(), 0,
            reinterpret_cast<sockaddr*>(&sender), &nSenderSize);
        if (nSize < 0 && (errno == EAGAIN || errno == EINTR))
            return;
        if (nSize > 0)
            read({s_buffer.data(), static_cast<std::size_t>(nSize)}, ntohl(sender.sin_addr.s_addr));
    }
}

} // namespace Platform

#include "Responder.h"

#include <arpa/inet.h>
#include <net/if.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <cstring>

namespace FieldDevice {

namespace {

constexpr std::size_t MaxDatagram = 65536;
constexpr std::uint32_t LoopbackNet = 127;

bool IsLoopback(std::uint32_t nAddress)
{
    return nAddress >> 24U == LoopbackNet;
}

/// Without sharing the port: another instance would take probes away.
int BoundPort(int nSocket, int nPort)
{
    sockaddr_in bound{};
    bound.sin_family = AF_INET;
    bound.sin_port = htons(static_cast<std::uint16_t>(nPort));
    socklen_t nSize = sizeof(bound);
    if (bind(nSocket, reinterpret_cast<sockaddr*>(&bound), nSize) != 0
        || getsockname(nSocket, reinterpret_cast<sockaddr*>(&bound), &nSize) != 0)
        return 0;
    return ntohs(bound.sin_port);
}

void JoinGroup(int nSocket, const char* szGroup)
{
    ip_mreqn group{};
    inet_pton(AF_INET, szGroup, &group.imr_multiaddr);
    group.imr_ifindex = static_cast<int>(if_nametoindex("lo"));
    setsockopt(nSocket, IPPROTO_IP, IP_ADD_MEMBERSHIP, &group, sizeof(group));
    const int nNo = 0;
    setsockopt(nSocket, IPPROTO_IP, IP_MULTICAST_ALL, &nNo, sizeof(nNo));
    const int nYes = 1;
    setsockopt(nSocket, IPPROTO_IP, IP_PKTINFO, &nYes, sizeof(nYes));
}

void Send(int nSocket, const std::string& sReply, sockaddr_in target, std::uint32_t nFrom)
{
    in_pktinfo info{};
    info.ipi_spec_dst.s_addr = htonl(nFrom);
    alignas(cmsghdr) std::array<char, CMSG_SPACE(sizeof(info))> control{};
    auto* const pControl = reinterpret_cast<cmsghdr*>(control.data());
    pControl->cmsg_level = IPPROTO_IP;
    pControl->cmsg_type = IP_PKTINFO;
    pControl->cmsg_len = CMSG_LEN(sizeof(info));
    std::memcpy(CMSG_DATA(pControl), &info, sizeof(info));
    iovec part{const_cast<char*>(sReply.data()), sReply.size()};
    msghdr message{};
    message.msg_name = &target;
    message.msg_namelen = sizeof(target);
    message.msg_iov = &part;
    message.msg_iovlen = 1;
    message.msg_control = control.data();
    message.msg_controllen = control.size();
    sendmsg(nSocket, &message, MSG_NOSIGNAL);
}

} // namespace

struct Responder::Probe
{
    std::string_view text;
    sockaddr_in sender{};
    std::uint32_t nTarget = 0; ///< where it was sent to, host byte order
};

Responder::Responder(
    EventLoop& loop, const Fleet& fleet, std::string sProtocol, int nPort, const char* szGroup, Reply reply)
    : m_loop(loop)
    , m_fleet(fleet)
    , m_sProtocol(std::move(sProtocol))
    , m_reply(std::move(reply))
    , m_nSocket(socket(AF_INET, SOCK_DGRAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0))
    , m_nPort(BoundPort(m_nSocket, nPort))
{
    JoinGroup(m_nSocket, szGroup);
    if (m_nPort != 0)
        m_loop.Watch(m_nSocket, [this] { AnswerAll(); });
}

Responder::~Responder()
{
    if (m_nPort != 0)
        m_loop.Forget(m_nSocket);
    close(m_nSocket);
}

bool Responder::Receive(Probe& probe) const
{
    static thread_local std::array<char, MaxDatagram> s_buffer;
    alignas(cmsghdr) std::array<char, 128> control{};
    iovec part{s_buffer.data(), s_buffer.size()};
    msghdr message{};
    message.msg_name = &probe.sender;
    message.msg_namelen = sizeof(probe.sender);
    message.msg_iov = &part;
    message.msg_iovlen = 1;
    message.msg_control = control.data();
    message.msg_controllen = control.size();
    const ssize_t nSize = recvmsg(m_nSocket, &message, 0);
    if (nSize < 0)
        return false;
    probe.text = {s_buffer.data(), static_cast<std::size_t>(nSize)};
    probe.nTarget = 0;
    for (cmsghdr* pPart = CMSG_FIRSTHDR(&message); pPart; pPart = CMSG_NXTHDR(&message, pPart)) {
        if (pPart->cmsg_level != IPPROTO_IP || pPart->cmsg_type != IP_PKTINFO)
            continue;
        in_pktinfo info{};
        std::memcpy(&info, CMSG_DATA(pPart), sizeof(info));
        probe.nTarget = ntohl(info.ipi_addr.s_addr);
    }
    return true;
}

void Responder::AnswerAll() const
{
    for (Probe probe; Receive(probe);) {
        // Simulated devices are there for this machine alone.
        if (IsLoopback(ntohl(probe.sender.sin_addr.s_addr)))
            AnswerProbe(probe);
    }
}

void Responder::AnswerProbe(const Probe& probe) const
{
    const bool bGroup = IN_MULTICAST(probe.nTarget);
    for (const auto& pDevice : m_fleet.Devices()) {
        if (pDevice->Spec().protocol != m_sProtocol)
            continue;
        const DeviceState state = pDevice->State();
        const auto optAddress = LoopbackNumber(state.address);
        if (!state.present || !optAddress || (!bGroup && *optAddress != probe.nTarget))
            continue;
        const std::string sReply = m_reply(pDevice->Spec(), state, probe.text);
        if (!sReply.empty())
            Send(m_nSocket, sReply, probe.sender, *optAddress);
    }
}

} // namespace FieldDevice

#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace Platform {

/// A non-blocking UDP socket for probes. One thread.
class DiscoverySocket
{
public:
    /// Where a datagram goes out.
    struct Way
    {
        int nInterface = 0; ///< its index
        std::uint32_t nAddress = 0; ///< the machine's own there, host byte order
    };

    enum class Sent
    {
        Done, ///< or lost for a reason that trying again does not change
        Busy ///< the buffers are full: later
    };

    /// Throws std::system_error.
    DiscoverySocket();
    ~DiscoverySocket();
    DiscoverySocket(const DiscoverySocket&) = delete;
    DiscoverySocket& operator=(const DiscoverySocket&) = delete;

    int Descriptor() const { return m_nSocket; }
    /// nAddress: IPv4, host byte order. pWay null: as routed.
    Sent Send(const std::string& sDatagram, std::uint32_t nAddress, int nPort, const Way* pWay = nullptr);
    /// Reads what has come, nLimit datagrams at most; the sender's address is in host byte order.
    void Receive(int nLimit, const std::function<void(std::string_view, std::uint32_t)>& read);

private:
    const int m_nSocket;
};

} // namespace Platform

#pragma once

#include "DeviceDriver.h"

#include <cstdint>
#include <functional>
#include <stop_token>
#include <string>
#include <vector>

namespace Platform {

/// Asks the network who is there, in the protocols of several drivers at once.
///
/// With a range every address of it is asked, and the multicast group of each driver; what answers from
/// outside the range is dropped. Without one only the groups are asked, on every network of the machine,
/// loopback included. Everything is sent several times over the first half of the time, for datagrams get
/// lost; a range that is too large for that is sent at the highest rate that networks bear, and half the time
/// is waited after it.
class DiscoverySweep
{
public:
    /// Called on the thread of Run.
    using Found = std::function<void(const RemoteConfigLogical::SearchDeviceInfo_t&)>;
    static constexpr int DefaultTimeoutMs = 3000;
    static constexpr int DefaultSendings = 3;
    static constexpr std::uint32_t MaxAddresses = 65536;

    explicit DiscoverySweep(int nTimeoutMs = DefaultTimeoutMs, int nSendings = DefaultSendings);

    /// Blocks until the time is over, at most 100 ms after a stop request. Tells each device (protocol,
    /// address, port) once. Both addresses empty: no range. Drivers that cannot find are left out. Throws
    /// std::invalid_argument when the range is none or too large, std::system_error when there are no
    /// sockets.
    void Run(const std::vector<DeviceDriver*>& vecDrivers, const std::string& sStartIp,
        const std::string& sEndIp, const Found& found, const std::stop_token& stop) const;

private:
    const int m_nTimeoutMs;
    const int m_nSendings;
};

} // namespace Platform

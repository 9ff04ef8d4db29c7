#pragma once

#include <string>
#include <string_view>
#include <vector>

/// Discovery of ONVIF devices (WS-Discovery). Free functions; any thread.
namespace Platform::WsDiscovery {

/// What one answer says of a device.
struct Match
{
    int nPort = 0;
    std::string sName;
    std::string sModel;
    std::string sMac; ///< "02:00:5e:10:00:01"; empty: unknown
};

/// A message that asks for video devices, with a number of its own.
std::string Probe();

/// The devices in a datagram of that sender (IPv4) that are ONVIF's; printers and computers answer probes
/// too.
std::vector<Match> ReadMatches(std::string_view datagram, const std::string& sFrom);

} // namespace Platform::WsDiscovery

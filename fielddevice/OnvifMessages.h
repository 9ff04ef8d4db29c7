#pragma once

#include "Protocol.h"

#include <server/devices/SoapXml.h>

#include <cstdint>
#include <string>

/// The answers of ONVIF devices. Free functions; any thread.
namespace FieldDevice::OnvifMessages {

inline constexpr const char* InterfaceToken = "eth0";

/// The answer to a call, with that XML in it.
Answer Reply(const pugi::xml_node& call, const std::string& sContent);
Answer Fault(const char* szCode, const char* szSubcode, const std::string& sReason);

std::string SystemTime(std::int64_t nTime, const std::string& sTimeZone);
std::string Information(const DeviceSpec& spec);
std::string Capabilities(const DeviceSpec& spec, const std::string& sDeviceUrl, const std::string& sMediaUrl);
std::string NetworkInterface(const DeviceSpec& spec, const DeviceState& state);
/// Two profiles a video source, as devices with a main and a sub stream have.
std::string Profiles(int nSources);

/// "255.255.255.0" for "24"; empty for no prefix length.
std::string MaskOf(const std::string& sPrefixLength);

} // namespace FieldDevice::OnvifMessages

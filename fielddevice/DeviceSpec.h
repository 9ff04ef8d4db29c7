#pragma once

#include <nlohmann/json.hpp>

#include <compare>
#include <cstdint>
#include <optional>
#include <string>

namespace FieldDevice {

struct Address
{
    std::string sHost; ///< IPv4, always in 127.0.0.0/8
    int nPort = 0;

    auto operator<=>(const Address&) const = default;
    std::string Text() const { return sHost + ':' + std::to_string(nPort); }
};

/// The number of an address in 127.0.0.0/8, host byte order; nullopt for any other text.
std::optional<std::uint32_t> LoopbackNumber(const std::string& sHost);

inline constexpr const char* ProtocolPrivate = "Private";
inline constexpr const char* ProtocolOnvif = "ONVIF";

struct ChannelSpec
{
    int video = 0;
    int alarm_inputs = 0;
    int alarm_outputs = 0;
    int access = 0;
    int decode = 0;
    int lifts = 0;
    int lift_floors = 0;
    int pos = 0;
};
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE_WITH_DEFAULT(
    ChannelSpec, video, alarm_inputs, alarm_outputs, access, decode, lifts, lift_floors, pos)

/// What a simulated device is when it leaves the factory: one entry of the list, fields as there.
struct DeviceSpec
{
    std::string address;
    int port = 0;
    std::string protocol = ProtocolPrivate;
    int category = 1;
    std::string name;
    std::string model = "Simulated Device";
    std::string manufacturer = "Simulation";
    std::string serial;
    std::string mac;
    std::string user = "admin";
    std::string password;
    bool initialized = true;
    bool time_zone_support = true;
    ChannelSpec channels;
    bool refuse_password = false; ///< refuses every change of the password
    int slow_ms = 0; ///< waits that long before every answer
    bool present = true; ///< false: as if it were unplugged
    bool http_digest = false; ///< ONVIF: signing in by HTTP digest instead of by tokens
    int clock_offset = 0; ///< ONVIF: what its clock is ahead, in seconds
};
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE_WITH_DEFAULT(DeviceSpec, address, port, protocol, category, name, model,
    manufacturer, serial, mac, user, password, initialized, time_zone_support, channels, refuse_password,
    slow_ms, present, http_digest, clock_offset)

} // namespace FieldDevice

#include "DeviceList.h"

#include "EventLoop.h"

#include <arpa/inet.h>

#include <fstream>
#include <stdexcept>

namespace FieldDevice {

namespace {

using nlohmann::json;
constexpr int DozenPort = 37777;
constexpr int HttpPort = 80;
constexpr int HttpPortOfUsers = 8080;
constexpr const char* DozenPassword = "Field-2024";

/// Where the protocol's own port needs rights that the user lacks, the usual other one.
int OnvifPort(const std::string& sHost)
{
    const Listener probe({sHost, HttpPort});
    return probe.IsOpen() ? HttpPort : HttpPortOfUsers;
}

void Check(const DeviceSpec& spec)
{
    if (!LoopbackNumber(spec.address) || spec.port < 1 || spec.port > 65535)
        throw std::runtime_error(Address{spec.address, spec.port}.Text() + " is not a loopback address");
    if (spec.protocol != ProtocolPrivate && spec.protocol != ProtocolOnvif)
        throw std::runtime_error(spec.protocol + " is not a protocol");
}

DeviceSpec Kind(int nCategory, const char* szModel, const char* szName, const ChannelSpec& channels)
{
    DeviceSpec spec;
    spec.category = nCategory;
    spec.model = szModel;
    spec.name = szName;
    spec.channels = channels;
    return spec;
}

} // namespace

std::optional<std::uint32_t> LoopbackNumber(const std::string& sHost)
{
    in_addr address{};
    if (inet_pton(AF_INET, sHost.c_str(), &address) != 1 || ntohl(address.s_addr) >> 24U != 127)
        return std::nullopt;
    return ntohl(address.s_addr);
}

DeviceList ReadDeviceList(const std::string& sPath)
{
    std::ifstream file(sPath);
    if (!file)
        throw std::runtime_error(sPath + " cannot be read");
    const json document = json::parse(file, nullptr, false);
    const auto itDevices = document.is_object() ? document.find("devices") : document.end();
    if (itDevices == document.end() || !itDevices->is_array())
        throw std::runtime_error(sPath + " is not a list of devices");
    DeviceList list;
    for (const json& entry : *itDevices) {
        const auto spec = entry.get<DeviceSpec>();
        Check(spec);
        if (entry.value("simulate", false))
            list.vecSimulated.push_back(spec);
        else if (entry.value("listen", false))
            list.vecListening.push_back({spec.address, spec.port});
    }
    return list;
}

std::vector<DeviceSpec> MakeDozen()
{
    std::vector<DeviceSpec> vecDevices{
        Kind(1, "NR-3216", "Recorder Hall", {.video = 16, .alarm_inputs = 4, .alarm_outputs = 2}),
        Kind(1, "VC-2140", "Camera Entrance", {.video = 1, .alarm_inputs = 1, .alarm_outputs = 1}),
        Kind(1, "VC-2160", "Camera Yard", {.video = 1}),
        Kind(2, "DX-9", "Decoder Control Room", {.decode = 9}),
        Kind(3, "AP-64", "Alarm Panel", {.alarm_inputs = 64, .alarm_outputs = 8}),
        Kind(5, "PR-310", "Plate Camera Gate", {.video = 1, .alarm_inputs = 2}),
        Kind(8, "AC-04D", "Door Controller", {.alarm_inputs = 4, .alarm_outputs = 4, .access = 4}),
        Kind(8, "LC-20", "Lift Controller", {.lifts = 2, .lift_floors = 20}),
        Kind(21, "VI-7", "Door Station", {.video = 1, .access = 1}),
        Kind(40, "PS-1", "Cash Desk", {.pos = 1}),
        Kind(16, "LD-2", "LED Display", {}),
        Kind(43, "RD-60", "Perimeter Radar", {.alarm_outputs = 2}),
    };
    for (std::size_t i = 0; i < vecDevices.size(); ++i) {
        DeviceSpec& spec = vecDevices[i];
        const std::string sNumber = std::to_string(i + 1);
        spec.address = "127.30.0." + sNumber;
        spec.port = DozenPort;
        spec.serial = "SIM" + std::to_string(240001 + i);
        spec.mac = "02:00:5e:1e:00:" + std::string(sNumber.size() == 1 ? "0" : "") + sNumber;
        spec.password = DozenPassword;
    }
    for (const std::size_t nOnvif : {1, 2}) {
        vecDevices[nOnvif].protocol = ProtocolOnvif;
        vecDevices[nOnvif].port = OnvifPort(vecDevices[nOnvif].address);
    }
    for (const std::size_t nNew : {3, 6})
        vecDevices[nNew].initialized = false;
    vecDevices[4].refuse_password = true;
    vecDevices[10].time_zone_support = false;
    return vecDevices;
}

} // namespace FieldDevice

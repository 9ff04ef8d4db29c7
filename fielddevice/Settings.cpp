#include "Settings.h"

#include <UICommonMdl/TextRule.h>

#include <arpa/inet.h>

#include <algorithm>
#include <bit>

namespace FieldDevice {

namespace {

constexpr std::size_t MaxName = 32;
constexpr std::size_t MaxPassword = 32;

bool IsPrintable(const std::string& sText)
{
    return std::all_of(sText.begin(), sText.end(), [](char c) { return c >= ' ' && c <= '~'; });
}

Refusal CheckPassword(const std::string& sPassword)
{
    if (sPassword.empty() || sPassword.size() > MaxPassword || !IsPrintable(sPassword))
        return "The password has to be 1 to 32 printable characters";
    return {};
}

bool IsMask(const std::string& sMask)
{
    in_addr mask{};
    if (inet_pton(AF_INET, sMask.c_str(), &mask) != 1 || mask.s_addr == 0)
        return false;
    const std::uint32_t nMask = ntohl(mask.s_addr);
    return std::countl_one(nMask) + std::countr_zero(nMask) >= 32;
}

} // namespace

Refusal Initialize(Fleet& fleet, Device& device, const std::string& sUser, const std::string& sPassword,
    const std::string& sContact)
{
    if (sUser.empty() || sUser.size() > MaxName || !IsPrintable(sUser))
        return "The user name has to be 1 to 32 printable characters";
    if (Refusal refusal = CheckPassword(sPassword); !refusal.empty())
        return refusal;
    fleet.Change(device, [&](DeviceState& state) {
        state.user = sUser;
        state.password = sPassword;
        state.contact = sContact;
        state.initialized = true;
    });
    return {};
}

Refusal SetPassword(Fleet& fleet, Device& device, const std::string& sPassword)
{
    if (device.State().refuse_password)
        return "The device does not change its password";
    if (Refusal refusal = CheckPassword(sPassword); !refusal.empty())
        return refusal;
    fleet.Change(device, [&](DeviceState& state) { state.password = sPassword; });
    return {};
}

Refusal CheckAddress(const std::string& sHost, const std::string& sMask, const std::string& sGateway)
{
    if (!LoopbackNumber(sHost))
        return "A simulated device stays on loopback addresses";
    if (!IsMask(sMask))
        return "The network mask is wrong";
    if (!sGateway.empty() && !UICommonMdl::IsIpv4(sGateway))
        return "The gateway is no address";
    return {};
}

Refusal MoveTo(Fleet& fleet, Device& device, const std::string& sHost, const std::string& sMask,
    const std::string& sGateway)
{
    if (Refusal refusal = CheckAddress(sHost, sMask, sGateway); !refusal.empty())
        return refusal;
    if (!fleet.Move(device, sHost, sMask))
        return "The address is in use";
    fleet.Change(device, [&](DeviceState& state) { state.gateway = sGateway; });
    return {};
}

} // namespace FieldDevice

#pragma once

#include "Fleet.h"

#include <string>

/// What devices take and what they refuse, whatever the protocol. Any thread.
namespace FieldDevice {

/// Why a setting was refused; empty: it was taken.
using Refusal = std::string;

Refusal Initialize(Fleet& fleet, Device& device, const std::string& sUser, const std::string& sPassword,
    const std::string& sContact);
Refusal SetPassword(Fleet& fleet, Device& device, const std::string& sPassword);
/// Checks an address without moving there.
Refusal CheckAddress(const std::string& sHost, const std::string& sMask, const std::string& sGateway);
Refusal MoveTo(Fleet& fleet, Device& device, const std::string& sHost, const std::string& sMask,
    const std::string& sGateway);

} // namespace FieldDevice

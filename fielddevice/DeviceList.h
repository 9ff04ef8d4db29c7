#pragma once

#include "DeviceSpec.h"

#include <string>
#include <vector>

namespace FieldDevice {

struct DeviceList
{
    std::vector<Address> vecListening; ///< only take connections
    std::vector<DeviceSpec> vecSimulated;
};

/// Throws std::runtime_error when the file cannot be read, or holds a device that is not on a loopback
/// address.
DeviceList ReadDeviceList(const std::string& sPath);

/// A dozen devices of different kinds on 127.30.0.1 to 127.30.0.12.
std::vector<DeviceSpec> MakeDozen();

} // namespace FieldDevice

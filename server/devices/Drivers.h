#pragma once

#include "DeviceDriver.h"

#include <memory>
#include <string>
#include <vector>

namespace Platform {

/// The drivers of a server, one an access protocol. Filled once; then any thread.
class Drivers
{
public:
    /// Empty; for tests that bring their own.
    Drivers() = default;
    /// Every protocol that the platform speaks. nTimeoutMs is for each call of a driver.
    static Drivers All(int nTimeoutMs);

    void Add(std::unique_ptr<DeviceDriver> pDriver);
    /// By the protocol's key in the dictionary; nullptr when no driver speaks it. Owned by this object.
    DeviceDriver* Find(const std::string& sProtocol) const;
    /// In the order in which they were added. Owned by this object.
    std::vector<DeviceDriver*> List() const;

private:
    std::vector<std::unique_ptr<DeviceDriver>> m_vecDrivers;
};

} // namespace Platform

#include "Drivers.h"

#include "FieldDeviceDriver.h"
#include "OnvifDriver.h"

#include <algorithm>

namespace Platform {

Drivers Drivers::All(int nTimeoutMs)
{
    Drivers drivers;
    drivers.Add(std::make_unique<FieldDeviceDriver>(nTimeoutMs));
    drivers.Add(std::make_unique<OnvifDriver>(nTimeoutMs));
    return drivers;
}

void Drivers::Add(std::unique_ptr<DeviceDriver> pDriver)
{
    m_vecDrivers.push_back(std::move(pDriver));
}

DeviceDriver* Drivers::Find(const std::string& sProtocol) const
{
    const auto it = std::find_if(m_vecDrivers.begin(), m_vecDrivers.end(),
        [&](const auto& pDriver) { return pDriver->Protocol() == sProtocol; });
    return it == m_vecDrivers.end() ? nullptr : it->get();
}

std::vector<DeviceDriver*> Drivers::List() const
{
    std::vector<DeviceDriver*> vecList;
    for (const auto& pDriver : m_vecDrivers)
        vecList.push_back(pDriver.get());
    return vecList;
}

} // namespace Platform

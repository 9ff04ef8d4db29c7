#pragma once

#include <nlohmann/json.hpp>

#include <memory>
#include <string>
#include <vector>

class QProcess;

namespace TestSupport {

/// The program of simulated field devices with devices of the test, on loopback addresses and discovery ports
/// of its own, until the end of the test.
class FieldDevices
{
public:
    /// nCount devices, of the platform's own protocol with the login "admin", password "Field-2024", changed
    /// by the entries of vecChanges (merged into the first ones). Throws std::runtime_error when the program
    /// does not start.
    explicit FieldDevices(int nCount, const std::vector<nlohmann::json>& vecChanges = {});
    ~FieldDevices();
    FieldDevices(const FieldDevices&) = delete;
    FieldDevices& operator=(const FieldDevices&) = delete;

    static constexpr int Port = 37777;
    static constexpr const char* Password = "Field-2024";

    /// Address of a device; addresses follow one another.
    std::string Address(int nDevice) const;
    int DiscoveryPort() const { return m_nDiscoveryPort; }
    int OnvifDiscoveryPort() const { return m_nOnvifPort; }

    /// What the device holds, its password included. sAddress empty: its first address.
    nlohmann::json State(int nDevice, const std::string& sAddress = {}) const;
    /// Changes how it behaves: "slow_ms", "refuse_password", "present", "time_zone_support".
    void Change(int nDevice, nlohmann::json change) const;

private:
    std::string m_sPrefix; ///< "127.41.7."
    int m_nDiscoveryPort = 0;
    int m_nOnvifPort = 0;
    int m_nControlPort = 0;
    std::unique_ptr<QProcess> m_pProcess;
};

} // namespace TestSupport

#pragma once

#include "DeviceDriver.h"

namespace Platform {

/// The protocol of the platform's own devices: one JSON datagram asks who is there, everything else is HTTP
/// with JSON on the device's port, signed in by digest authentication.
class FieldDeviceDriver : public DeviceDriver
{
public:
    static constexpr int DefaultTimeoutMs = 5000;
    static constexpr int DefaultDiscoveryPort = 37810;
    static constexpr const char* Group = "239.255.37.81";

    explicit FieldDeviceDriver(int nTimeoutMs = DefaultTimeoutMs, int nDiscoveryPort = DefaultDiscoveryPort);

    std::string Protocol() const override { return "Private"; }

    DeviceIdentity Identify(const DeviceAccess& access) override;
    ChannelCounts Channels(const DeviceAccess& access) override;
    void Initialize(const DeviceAccess& access, const std::string& sContact) override;
    void SetPassword(const DeviceAccess& access, const std::string& sNewPassword) override;
    void SetTimeZone(
        const DeviceAccess& access, const RemoteConfigLogical::TimeZoneSetting_t& setting) override;
    void SetAddress(const DeviceAccess& access, const NetworkSetting& setting) override;

    std::vector<PersonRefusal> PutPerson(const DeviceAccess& access, const DevicePerson& person) override;
    void RemovePerson(const DeviceAccess& access, const std::string& sPersonId) override;
    std::vector<AccessControlLogical::Person_t> Persons(
        const DeviceAccess& access, std::size_t nLimit) override;
    void StartFingerprint(const DeviceAccess& access) override;
    std::optional<std::string> ReadFingerprint(const DeviceAccess& access) override;

    int DiscoveryPort() const override { return m_nDiscoveryPort; }
    std::string DiscoveryGroup() const override { return Group; }
    std::string DiscoveryProbe() const override;
    /// A device tells its address; one that is not the sender's is a lie, or of another network.
    std::vector<RemoteConfigLogical::SearchDeviceInfo_t> ReadReply(
        std::string_view datagram, const std::string& sFrom) const override;

private:
    const int m_nTimeoutMs;
    const int m_nDiscoveryPort;
};

} // namespace Platform

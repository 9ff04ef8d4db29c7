#pragma once

#include "DeviceDriver.h"

namespace Platform {

/// ONVIF devices: WS-Discovery, and web services on the device's port. A device without a password counts as
/// one that lets its first user be created without signing in.
class OnvifDriver : public DeviceDriver
{
public:
    static constexpr int DefaultTimeoutMs = 5000;
    static constexpr int DefaultDiscoveryPort = 3702;
    static constexpr const char* Group = "239.255.255.250";

    explicit OnvifDriver(int nTimeoutMs = DefaultTimeoutMs, int nDiscoveryPort = DefaultDiscoveryPort);

    std::string Protocol() const override { return "ONVIF"; }

    DeviceIdentity Identify(const DeviceAccess& access) override;
    ChannelCounts Channels(const DeviceAccess& access) override;
    /// The contact is left out: ONVIF knows none.
    void Initialize(const DeviceAccess& access, const std::string& sContact) override;
    void SetPassword(const DeviceAccess& access, const std::string& sNewPassword) override;
    void SetTimeZone(
        const DeviceAccess& access, const RemoteConfigLogical::TimeZoneSetting_t& setting) override;
    /// A device that has to be restarted for it is.
    void SetAddress(const DeviceAccess& access, const NetworkSetting& setting) override;

    int DiscoveryPort() const override { return m_nDiscoveryPort; }
    std::string DiscoveryGroup() const override { return Group; }
    std::string DiscoveryProbe() const override;
    std::vector<RemoteConfigLogical::SearchDeviceInfo_t> ReadReply(
        std::string_view datagram, const std::string& sFrom) const override;

private:
    const int m_nTimeoutMs;
    const int m_nDiscoveryPort;
};

} // namespace Platform

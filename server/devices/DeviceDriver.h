#pragma once

#include <AccessControlLogical/PersonRecords.h>
#include <RemoteConfigLogical/RemoteConfigRecords.h>
#include <UICommonMdl/ErrorCodes.h>

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace Platform {

/// A device did not do what it was asked for.
class DeviceError : public std::runtime_error
{
public:
    /// nCode is one of UICommonMdl::ErrorDevice…; sDetail holds the device's own words, no secrets.
    explicit DeviceError(int nCode, const std::string& sDetail = {})
        : std::runtime_error(sDetail)
        , m_nCode(nCode)
    {
    }
    int Code() const { return m_nCode; }

private:
    int m_nCode;
};

/// How a device is reached and signed in to.
struct DeviceAccess
{
    std::string sAddress; ///< IPv4, IPv6 or host name
    int nPort = 0;
    std::string sUserName;
    std::string sPassword;
};

struct DeviceIdentity
{
    std::string sManufacturer;
    std::string sModel;
    std::string sSerialNumber;
    std::string sFirmware;
    std::string sMac; ///< "02:00:5e:10:00:01"; empty: unknown
    int nCategory = 0; ///< category code; 0: unknown
};

struct ChannelCounts
{
    int nVideo = 0;
    int nAlarmInputs = 0;
    int nAlarmOutputs = 0;
    int nAccess = 0;
    int nDecode = 0;
    int nLifts = 0;
    int nLiftFloors = 0;
    int nPos = 0;

    bool operator==(const ChannelCounts&) const = default;
};

struct NetworkSetting
{
    std::string sAddress; ///< IPv4
    std::string sMask; ///< "255.255.255.0"
    std::string sGateway; ///< IPv4; empty: none
};

/// A person as an access-control device keeps it: what opens doors there.
struct DevicePerson
{
    AccessControlLogical::Person_t person; ///< with fingerprint templates and unlock password
    std::string sPhoto; ///< JPEG in Base64; empty: none
};

/// A part of a person that a device did not take.
struct PersonRefusal
{
    int nCredential = AccessControlLogical::CredentialPerson; ///< CredentialKind
    int nCode = UICommonMdl::ErrorDeviceRefused;
    std::string sText; ///< the device's own words
};

/// Speaks one access protocol. Any thread, several at once; each call blocks until the device has answered or
/// the driver's time-out is over, and throws DeviceError.
class DeviceDriver
{
public:
    virtual ~DeviceDriver() = default;

    /// Key of the access protocol in the dictionary.
    virtual std::string Protocol() const = 0;

    virtual DeviceIdentity Identify(const DeviceAccess& access) = 0;
    virtual ChannelCounts Channels(const DeviceAccess& access) = 0;
    /// Gives a device without a password its first one, for the user name of the access. sContact is where
    /// its owner is told about a lost password; may be empty.
    virtual void Initialize(const DeviceAccess& access, const std::string& sContact) = 0;
    /// The access holds the present password.
    virtual void SetPassword(const DeviceAccess& access, const std::string& sNewPassword) = 0;
    virtual void SetTimeZone(
        const DeviceAccess& access, const RemoteConfigLogical::TimeZoneSetting_t& setting) = 0;
    virtual void SetAddress(const DeviceAccess& access, const NetworkSetting& setting) = 0;

    // Persons, of devices that open doors.

    /// Adds or replaces a person; answers what the device did not take of it.
    virtual std::vector<PersonRefusal> PutPerson(
        const DeviceAccess& /*access*/, const DevicePerson& /*person*/)
    {
        throw DeviceError(UICommonMdl::ErrorDeviceNotSupported);
    }
    /// A person that the device does not know is no error.
    virtual void RemovePerson(const DeviceAccess& /*access*/, const std::string& /*sPersonId*/)
    {
        throw DeviceError(UICommonMdl::ErrorDeviceNotSupported);
    }
    /// The persons that the device holds, at most nLimit; without templates and passwords.
    virtual std::vector<AccessControlLogical::Person_t> Persons(
        const DeviceAccess& /*access*/, std::size_t /*nLimit*/)
    {
        throw DeviceError(UICommonMdl::ErrorDeviceNotSupported);
    }
    /// Begins to wait for a finger on the device's reader.
    virtual void StartFingerprint(const DeviceAccess& /*access*/)
    {
        throw DeviceError(UICommonMdl::ErrorDeviceNotSupported);
    }
    /// The template in Base64 once a finger was there (empty when it could not be read); nullopt: not yet.
    virtual std::optional<std::string> ReadFingerprint(const DeviceAccess& /*access*/)
    {
        throw DeviceError(UICommonMdl::ErrorDeviceNotSupported);
    }

    // Discovery: one datagram asks, any number of them answer.

    /// UDP port that devices of this protocol listen on for probes; 0: they cannot be found.
    virtual int DiscoveryPort() const { return 0; }
    /// IPv4 group that probes of the whole local network go to; empty: none.
    virtual std::string DiscoveryGroup() const { return {}; }
    /// The probe. May be called for each sending.
    virtual std::string DiscoveryProbe() const { return {}; }
    /// What a datagram that came from that IPv4 address says; empty when it is no reply of such a device.
    /// Takes any bytes and never throws.
    virtual std::vector<RemoteConfigLogical::SearchDeviceInfo_t> ReadReply(
        std::string_view /*datagram*/, const std::string& /*sFrom*/) const
    {
        return {};
    }
};

} // namespace Platform

#pragma once

#include <UICommonMdl/TextRule.h>

#include <string>
#include <vector>

/// Records of the remote configuration. All texts are UTF-8.
namespace RemoteConfigLogical {

/// The reachability of one device, as the server found it.
struct DeviceState_t
{
    std::string sDeviceId;
    int nOnlineState = 0; ///< GroupLogical::OnlineState
    int nOfflineReason = 0; ///< GroupLogical::OfflineReason

    bool operator==(const DeviceState_t&) const = default;
};

/// One choice of a dictionary list.
struct DictionaryItem_t
{
    std::string sKey; ///< what records hold
    std::string sText; ///< what is shown
    int nCode = 0; ///< protocols: the number of the access protocol, 99 for ONVIF
    std::string sParent; ///< types: category code as decimal digits; series: key of the type. Empty: any

    bool operator==(const DictionaryItem_t&) const = default;
};

/// Number of the access protocol ONVIF.
inline constexpr int ProtocolOnvif = 99;

/// The lists that device forms choose from.
struct Dictionary_t
{
    std::vector<DictionaryItem_t> vecCategories; ///< keys: category codes as decimal digits
    std::vector<DictionaryItem_t> vecManufacturers;
    std::vector<DictionaryItem_t> vecProtocols;
    std::vector<DictionaryItem_t> vecDeviceTypes;
    std::vector<DictionaryItem_t> vecSeries;

    bool operator==(const Dictionary_t&) const = default;
};

/// A server of the platform that works with devices.
struct VideoServer_t
{
    std::string sServerId;
    std::string sName;

    bool operator==(const VideoServer_t&) const = default;
};

/// What the platform offers.
struct Features_t
{
    bool bCloudAccount = false; ///< an account service for P2P devices is configured
    std::string sCloudService; ///< its name or address, as shown
    std::string sTemplateUrl; ///< where the template of device sheets is downloaded, with a query
    std::string sIntercomTemplateUrl; ///< the same for sheets of intercom devices
    std::string sUploadUrl; ///< where device sheets are uploaded to, with a query

    bool operator==(const Features_t&) const = default;
};

/// Whether a found device has its first password.
enum InitState : int
{
    InitUnknown = -1,
    InitMissing = 0,
    InitDone = 1
};

/// A device that was found on the network.
struct SearchDeviceInfo_t
{
    std::string sIp; ///< IPv4
    int nPort = 0;
    std::string sModel;
    std::string sMac; ///< "02:00:5e:10:00:01"; empty: unknown
    int nInitState = InitUnknown; ///< InitState
    std::string sName;
    std::string sManufacturer;
    std::string sSerialNumber;
    std::string sProtocol; ///< key of the dictionary
    int nCategory = 0; ///< category code; 0: unknown
    std::string sDeviceId; ///< the managed device of that address and port; empty: there is none

    bool operator==(const SearchDeviceInfo_t&) const = default;
};
using SearchDeviceInfoVec = std::vector<SearchDeviceInfo_t>;

/// The first password of a device. Blanks and , ( ) are nothing that its login could hold.
inline constexpr UICommonMdl::TextRule FirstPassword{8, 16, " ,()", UICommonMdl::PrintableAscii};
/// A password that devices get in place of their old one.
inline constexpr UICommonMdl::TextRule NewPassword{1, 16, "", UICommonMdl::PrintableAscii};
/// Mail address to which a device sends what is needed after its password was forgotten; may be empty.
inline constexpr UICommonMdl::TextRule ResetContact{0, 64};

/// Gives a device its first password.
struct InitializeDevice_t
{
    std::string sIp;
    int nPort = 0;
    std::string sProtocol;
};

/// Gives a device another address in its network.
struct ModifyAddress_t
{
    std::string sIp; ///< where it is now
    int nPort = 0;
    std::string sProtocol;
    std::string sUserName;
    std::string sPassword;
    std::string sNewIp;
    std::string sMask;
    std::string sGateway; ///< may be empty
};

/// What became of one device of a batch.
struct ModifyDevicePasswordResultInfo_t
{
    std::string sDeviceId; ///< for devices that are not managed "address:port"
    std::string sDeviceName;
    int nErrorCode = 0; ///< UICommonMdl::ErrorCode; 0: done
    std::string sDetail; ///< the device's or the server's own words, may be empty

    bool operator==(const ModifyDevicePasswordResultInfo_t&) const = default;
};
using ModifyDevicePasswordResultInfoVec = std::vector<ModifyDevicePasswordResultInfo_t>;

/// An hour of a week of a month.
struct DstDate_t
{
    int nMonth = 1; ///< 1 to 12
    int nWeek = 1; ///< 1 to 4, 5: the last of the month
    int nWeekday = 7; ///< 1 Monday to 7 Sunday
    int nHour = 0; ///< 0 to 23, local time in force before the change

    bool operator==(const DstDate_t&) const = default;
};

struct TimeZoneSetting_t
{
    std::string sZone; ///< name in the IANA time zone database
    int nOffsetMinutes = 0; ///< standard time's, east of UTC
    bool bDst = false; ///< the zone has daylight saving of one hour between the two dates
    DstDate_t dstStart;
    DstDate_t dstEnd;

    bool operator==(const TimeZoneSetting_t&) const = default;
};

struct TimeZone_t
{
    std::string sText; ///< "(UTC+01:00) Europe/Berlin"
    TimeZoneSetting_t setting;

    bool operator==(const TimeZone_t&) const = default;
};

/// The platform's time zone and the ones to choose from, by offset and name.
struct PlatformTime_t
{
    TimeZoneSetting_t setting;
    std::vector<TimeZone_t> vecZones;

    bool operator==(const PlatformTime_t&) const = default;
};

/// Where the push of a time zone to a device stands.
enum TimeZoneState : int
{
    TimeZoneNormal = -1, ///< not asked for
    TimeZoneFailed = 0,
    TimeZoneDone = 1,
    TimeZoneSending = 2,
    TimeZoneNotSupported = 3
};

struct TimeZoneResult_t
{
    std::string sDeviceId;
    int nState = TimeZoneNormal; ///< TimeZoneState
    int nErrorCode = 0; ///< UICommonMdl::ErrorCode, why it failed

    bool operator==(const TimeZoneResult_t&) const = default;
};

inline constexpr UICommonMdl::TextRule CloudUserName{1, 50, "<>"};
inline constexpr UICommonMdl::TextRule CloudPassword{1, 50, "<>"};

/// A device of a cloud account.
struct P2PDevice_t
{
    std::string sSerialNumber;
    std::string sName;
    std::string sModel;
    int nCategory = 0; ///< category code; 0: unknown

    bool operator==(const P2PDevice_t&) const = default;
};

} // namespace RemoteConfigLogical

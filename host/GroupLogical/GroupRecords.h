#pragma once

#include <UICommonMdl/TextRule.h>

#include <cstdint>
#include <string>
#include <vector>

/// Records of organisations and devices. All texts are UTF-8. Plain data: copied freely between threads.
namespace GroupLogical {

/// Code of the root organisation; it exists always and cannot be renamed away, deleted or moved.
inline constexpr const char* RootOrganizationCode = "001";

inline constexpr UICommonMdl::TextRule OrganizationName{1, 50, "<>"};
inline constexpr UICommonMdl::TextRule OrganizationRemark{0, 255, "<>", "", UICommonMdl::TextLines::Several};

struct Organization_t
{
    std::string sCode; ///< key, given by the server
    std::string sParentCode; ///< empty for the root
    std::string sName; ///< OrganizationName; unique among its siblings
    std::string sRemark; ///< OrganizationRemark
    int nSort = 0; ///< place among its siblings, ascending; equal: by name
    std::int64_t nVersion = 0; ///< raised by each change; a save against an older one is refused

    bool operator==(const Organization_t&) const = default;
};

enum OnlineState : int
{
    StateAll = -1,
    StateOffline = 0,
    StateOnline = 1
};

/// Why a device is offline.
enum OfflineReason : int
{
    ReasonNone = 0,
    ReasonNotProbed = 1, ///< not tried yet
    ReasonRefused = 2, ///< the address answers, the port does not
    ReasonTimeOut = 3,
    ReasonUnreachable = 4, ///< no route
    ReasonAddressUnknown = 5, ///< the name could not be resolved
    ReasonNoAddress = 6, ///< the device has none
};

/// One row of the device list.
struct DeviceInfo_t
{
    std::string sDeviceId; ///< key, given by the server
    std::string sName;
    std::string sIp; ///< IPv4, IPv6 or host name
    int nPort = 0; ///< 0 to 65535
    int nCategory = 0; ///< category code
    std::string sModel;
    std::string sOrgCode;
    std::string sOrgName;
    int nOnlineState = StateOffline; ///< StateOffline or StateOnline
    int nOfflineReason = ReasonNone; ///< OfflineReason
    std::string sManufacturer;
    std::string sProtocol;
    std::int64_t nVersion = 0;

    bool operator==(const DeviceInfo_t&) const = default;
};

/// How a device is reached.
enum AddMode : int
{
    AddByIp = 1,
    AddBySegment = 2, ///< only when adding: one device for each address of a range
    AddByDomain = 3,
    AddByRegister = 4, ///< the device connects by itself and says its register ID
    AddByP2P = 5, ///< through the cloud service, by its serial number
};

/// Types of LED screens.
enum LedType : int
{
    LedFreeParking = 1402,
    LedGeneral = 1403,
    LedGuide = 1404,
    LedCharge = 1405,
};

inline constexpr UICommonMdl::TextRule DeviceName{1, 50, "/:*?\"<>|\\"};
inline constexpr UICommonMdl::TextRule DeviceDomain{1, 50, "<>"};
inline constexpr UICommonMdl::TextRule DeviceRegisterId{1, 50, "<>"};
inline constexpr UICommonMdl::TextRule DeviceSerialNumber{
    1, 49, "", "0123456789abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ._:-"};
inline constexpr UICommonMdl::TextRule DeviceUserName{1, 50, "<>"};
inline constexpr UICommonMdl::TextRule DevicePassword{1, 50, ",()"};
inline constexpr UICommonMdl::TextRule DeviceModel{0, 50, "<>"};
inline constexpr UICommonMdl::TextRule DeviceSipId{0, 29, "<>"};
inline constexpr UICommonMdl::TextRule DeviceSipPassword{0, 31, "<>"};
inline constexpr UICommonMdl::TextRule DeviceRemark{0, 255, "", "", UICommonMdl::TextLines::Several};
inline constexpr UICommonMdl::NumberRule DevicePort{1, 65535};
inline constexpr UICommonMdl::NumberRule DeviceCount{0, 1024}; ///< of channels, of inputs, of floors

/// A device as it is added, edited and shown in detail. Secrets are write-only: the server never sends them
/// back, and an empty one leaves the present one as it is when a device is modified.
struct DeviceAddInfo_t
{
    std::string sDeviceId; ///< empty when adding
    std::string sName; ///< DeviceName; unique, whatever its case. A segment's devices get " " and their
                       ///< address appended
    int nAddMode = AddByIp; ///< AddMode
    std::string sIp; ///< IPv4, IPv6 or host name; with its port unique. Empty where the mode has none
    std::string sIpStart; ///< of a segment, only when adding
    std::string sIpEnd; ///< of a segment, only when adding; its first three parts are those of sIpStart
    std::string sDomain; ///< mode AddByDomain: host name, DeviceDomain
    std::string sRegisterId; ///< mode AddByRegister: DeviceRegisterId, unique
    int nPort = 0; ///< DevicePort; 0 where the mode has none
    int nCategory = 0; ///< category code
    std::string sModel; ///< DeviceModel
    std::string sOrgCode;
    std::string sManufacturer; ///< key of the dictionary
    std::string sProtocol; ///< key of the dictionary
    std::string sDeviceType; ///< key of the dictionary, may be empty
    std::string sSeries; ///< key of the dictionary, may be empty
    std::string sServerId; ///< the server that works with the device; empty: the platform chooses
    int nLedType = 0; ///< LedType; 0 unless the category is LED device
    int nAccessDirection = 0; ///< 0 undefined, 1 direct, 2 pull, 3 push
    std::string sSerialNumber; ///< DeviceSerialNumber or empty; mode AddByP2P: unique among such devices
    std::string sUserName; ///< of the device's login: DeviceUserName
    std::string sPassword; ///< of the device's login: DevicePassword; write-only
    std::string sSipId; ///< DeviceSipId
    std::string sSipPassword; ///< DeviceSipPassword; write-only
    std::string sRemark; ///< DeviceRemark
    int nVideoChannels = 0; ///< DeviceCount, like all counts
    int nAlarmInputs = 0;
    int nAlarmOutputs = 0;
    int nAccessChannels = 0;
    int nDecodeChannels = 0;
    int nLifts = 0;
    int nLiftFloors = 0;
    int nPosChannels = 0;
    bool bCombine = false; ///< combined decoding
    std::int64_t nVersion = 0;

    bool operator==(const DeviceAddInfo_t&) const = default;
};

/// One row of an import file, as its texts stand there: the server converts and checks them, so that files of
/// every kind are judged alike. A column that the file does not have is empty.
struct ImportRow_t
{
    int nLine = 0; ///< line of the file, from 1
    std::string sName;
    std::string sConnect; ///< AddMode as decimal digits: 1, 3, 4 or 5; empty: 1
    std::string sAddress;
    std::string sDomain;
    std::string sPort;
    std::string sUserName;
    std::string sPassword;
    std::string sCategory; ///< code or name of the category; empty: encoder
    std::string sProtocol; ///< empty: the platform's own
    std::string sManufacturer;
    std::string sModel;
    std::string sSerialNumber;
    std::string sRegisterId;
    std::string sOrganization; ///< name or code; empty: the request's organisation

    bool operator==(const ImportRow_t&) const = default;
};

struct ImportRequest_t
{
    std::vector<ImportRow_t> vecRows; ///< 1 to 200,000
    std::string sOrgCode; ///< where devices go whose row names no organisation; empty: the root
    bool bAllOrNothing = false; ///< true: one bad row and nothing is imported
    std::string sSource; ///< kind of file, "xml", "p2p" or "discovery": the form of the failure list
};

/// One row that was not imported.
struct ImportFailure_t
{
    int nLine = 0;
    std::string sName;
    std::string sAddress;
    std::string sField; ///< heading of the field that breaks a rule, "Port"; empty: the row as a whole
    int nErrorCode = 0; ///< UICommonMdl::ErrorCode
    std::string sReason; ///< the server's own words, may be empty

    bool operator==(const ImportFailure_t&) const = default;
};

/// How far an import is. Nothing is in the list of devices before it has finished.
struct ImportState_t
{
    int nTotal = 0;
    int nDone = 0; ///< rows worked on
    int nSucceeded = 0; ///< final: rows that were imported
    int nFailed = 0;
    std::vector<ImportFailure_t> vecFailed; ///< the failures since the last report
    std::string
        sFailListUrl; ///< final: where the list of failed rows is downloaded, for an hour; empty: none
    std::string sFailListName; ///< proposal for its file name, "faillist_….xml"

    bool operator==(const ImportState_t&) const = default;
};

/// Sort fields of a device page; ties are broken by the device ID.
enum DeviceSortField : int
{
    SortByIp = 1,
    SortByName = 2
};

struct DevicePageRequest_t
{
    int nPage = 1; ///< from 1
    int nPageSize = 20; ///< 1 to 1000
    std::string sOrgCode; ///< with all organisations below it; empty: every organisation
    bool bAscending = true;
    int nSortField = SortByIp; ///< DeviceSortField
    int nOnlineState = StateAll; ///< OnlineState
    int nCategory = 0; ///< 0: all
    std::string sSearchText; ///< part of name or IP, percent-encoded UTF-8; empty: no search

    bool operator==(const DevicePageRequest_t&) const = default;
};

struct DevicePage_t
{
    std::vector<DeviceInfo_t> vecDevices;
    int nTotal = 0; ///< rows of all pages
    int nPage = 1; ///< the page that was returned: the last one when the request went beyond it

    bool operator==(const DevicePage_t&) const = default;
};

enum DeleteMode : int
{
    DeleteForced = 0, ///< also what other configuration refers to; those references go with it
    DeleteNormal = 1,
};

/// One item of a batch that failed.
struct FailedItem_t
{
    std::string sId;
    std::string sName;
    int nErrorCode = 0; ///< UICommonMdl::ErrorCode
    std::string sDetail; ///< the server's own words, may be empty

    bool operator==(const FailedItem_t&) const = default;
};

/// Kinds of configuration that can refer to a device.
enum ReferenceKind : int
{
    RefAdminPassword = 1,
    RefAntiPassback = 2,
    RefAttendancePoint = 3,
    RefDoorGroup = 4,
    RefEvent = 5,
    RefFirstCardUnlock = 6,
    RefInterDoorLock = 7,
    RefKeyboardCode = 8,
    RefMultiCardUnlock = 9,
    RefParkingLot = 10,
    RefPersonList = 11,
    RefRecordPlan = 12,
    RefRemoteVerification = 13,
    RefTvWall = 14,
    RefVideoBind = 15,
    RefAlarmScheme = 16,
};

struct DeviceReference_t
{
    std::string sDeviceId;
    int nKind = 0; ///< ReferenceKind
    std::string sName; ///< name of the configuration that refers to the device

    bool operator==(const DeviceReference_t&) const = default;
};

} // namespace GroupLogical

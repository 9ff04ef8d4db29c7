#pragma once

#include <cstdint>
#include <string>
#include <vector>

/// Records of organisations and devices. All texts are UTF-8. Plain data: copied freely between threads.
namespace GroupLogical {

/// Code of the root organisation; it exists always and cannot be renamed away, deleted or moved.
inline constexpr const char* RootOrganizationCode = "001";

struct Organization_t
{
    std::string sCode; ///< key, given by the server
    std::string sParentCode; ///< empty for the root
    std::string sName; ///< 1 to 50 characters, no "<" or ">"; unique among its siblings
    std::string sRemark; ///< up to 255 characters
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

/// A device as it is added, edited and shown in detail. Secrets are write-only: the server never sends them
/// back.
struct DeviceAddInfo_t
{
    std::string sDeviceId;
    std::string sName;
    std::string sIp;
    int nPort = 0;
    int nCategory = 0;
    std::string sModel;
    std::string sOrgCode;
    std::string sManufacturer;
    std::string sProtocol;
    int nAccessDirection = 0; ///< 0 undefined, 1 direct, 2 pull, 3 push
    std::string sSerialNumber;
    std::string sUserName;
    std::string sRemark;
    int nVideoChannels = 0; ///< 0 and up
    int nAlarmInputs = 0; ///< 0 and up
    int nAlarmOutputs = 0; ///< 0 and up
    std::int64_t nVersion = 0;

    bool operator==(const DeviceAddInfo_t&) const = default;
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

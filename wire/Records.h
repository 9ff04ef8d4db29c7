#pragma once

#include <wire/Codec.h>

#include <GroupLogical/GroupRecords.h>
#include <RemoteConfigLogical/RemoteConfigRecords.h>
#include <UserLogical/UserRecords.h>

// Records that pages see: declared in host/, coded here.

namespace GroupLogical {
WIRE_RECORD(Organization_t, sCode, sParentCode, sName, sRemark, nSort, nVersion)
WIRE_RECORD(DeviceInfo_t, sDeviceId, sName, sIp, nPort, nCategory, sModel, sOrgCode, sOrgName, nOnlineState,
    nOfflineReason, sManufacturer, sProtocol, nVersion)
WIRE_RECORD(DeviceAddInfo_t, sDeviceId, sName, sIp, nPort, nCategory, sModel, sOrgCode, sManufacturer,
    sProtocol, nAccessDirection, sSerialNumber, sUserName, sRemark, nVideoChannels, nAlarmInputs,
    nAlarmOutputs, nVersion)
WIRE_RECORD(DevicePageRequest_t, nPage, nPageSize, sOrgCode, bAscending, nSortField, nOnlineState, nCategory,
    sSearchText)
WIRE_RECORD(DevicePage_t, vecDevices, nTotal, nPage)
WIRE_RECORD(FailedItem_t, sId, sName, nErrorCode, sDetail)
WIRE_RECORD(DeviceReference_t, sDeviceId, nKind, sName)
} // namespace GroupLogical

namespace RemoteConfigLogical {
WIRE_RECORD(DeviceState_t, sDeviceId, nOnlineState, nOfflineReason)
WIRE_RECORD(DictionaryItem_t, sKey, sText)
WIRE_RECORD(Dictionary_t, vecCategories, vecManufacturers, vecProtocols)
} // namespace RemoteConfigLogical

namespace UserLogical {
WIRE_RECORD(MenuRight_t, sCode, sWidgetName, nEntryId)
} // namespace UserLogical

// Records that travel only.

namespace wire {

/// What every answer is wrapped in: {"code":0,"data":…} or {"code":21,"detail":"…"}.
inline constexpr const char* AnswerCode = "code";
inline constexpr const char* AnswerDetail = "detail";
inline constexpr const char* AnswerData = "data";

struct Nothing
{
};
inline void to_json(nlohmann::json& json, const Nothing&)
{
    json = nlohmann::json::object();
}
inline void from_json(const nlohmann::json&, Nothing&) { }

struct ServerState
{
    bool bSetupNeeded = false; ///< the built-in account has no password yet
    std::string sServerVersion;
};
WIRE_RECORD(ServerState, bSetupNeeded, sServerVersion)

struct SetupRequest
{
    std::string sPassword; ///< first password of the built-in account "system"
};
WIRE_RECORD(SetupRequest, sPassword)

struct SignInRequest
{
    std::string sUserName;
    std::string sPassword;
};
WIRE_RECORD(SignInRequest, sUserName, sPassword)

struct Session
{
    std::string sToken; ///< 256 random bits in hexadecimal; only in the answer to a sign-in
    std::string sUserName;
    std::vector<UserLogical::MenuRight_t> vecMenuRights;
    std::vector<std::string> vecRights; ///< all right codes of the user, of every level
    int nOrganizationLevelLimit = 0;
};
WIRE_RECORD(Session, sToken, sUserName, vecMenuRights, vecRights, nOrganizationLevelLimit)

struct Code
{
    std::string sCode;
};
WIRE_RECORD(Code, sCode)

struct DeviceId
{
    std::string sDeviceId;
};
WIRE_RECORD(DeviceId, sDeviceId)

struct Organizations
{
    std::vector<GroupLogical::Organization_t> vecOrganizations;
};
WIRE_RECORD(Organizations, vecOrganizations)

struct MoveOrganizationRequest
{
    std::string sCode;
    std::string sNewParentCode;
};
WIRE_RECORD(MoveOrganizationRequest, sCode, sNewParentCode)

struct DeleteDeviceRequest
{
    std::vector<std::string> vecDeviceIds; ///< at most 1000
    int nMode = GroupLogical::DeleteNormal;
};
WIRE_RECORD(DeleteDeviceRequest, vecDeviceIds, nMode)

struct MoveDeviceRequest
{
    std::vector<std::string> vecDeviceIds; ///< at most 1000
    std::string sOrgCode;
};
WIRE_RECORD(MoveDeviceRequest, vecDeviceIds, sOrgCode)

struct BatchAnswer
{
    std::vector<GroupLogical::FailedItem_t> vecFailed;
};
WIRE_RECORD(BatchAnswer, vecFailed)

struct DeviceReferences
{
    std::vector<GroupLogical::DeviceReference_t> vecReferences;
};
WIRE_RECORD(DeviceReferences, vecReferences)

struct DeviceTypes
{
    std::vector<int> vecTypes; ///< category codes, ascending
};
WIRE_RECORD(DeviceTypes, vecTypes)

/// Payload of the event DeviceStates.
struct DeviceStates
{
    std::vector<RemoteConfigLogical::DeviceState_t> vecStates;
};
WIRE_RECORD(DeviceStates, vecStates)

} // namespace wire

#pragma once

#include <wire/Codec.h>

#include <AccessControlLogical/PersonRecords.h>
#include <GroupLogical/GroupRecords.h>
#include <RemoteConfigLogical/RemoteConfigRecords.h>
#include <UserLogical/UserRecords.h>

// Records that pages see: declared in host/, coded here.

namespace GroupLogical {
WIRE_RECORD(Organization_t, sCode, sParentCode, sName, sRemark, nSort, nVersion)
WIRE_RECORD(DeviceInfo_t, sDeviceId, sName, sIp, nPort, nCategory, sModel, sOrgCode, sOrgName, nOnlineState,
    nOfflineReason, sManufacturer, sProtocol, nVersion)
WIRE_RECORD(DeviceAddInfo_t, sDeviceId, sName, nAddMode, sIp, sIpStart, sIpEnd, sDomain, sRegisterId, nPort,
    nCategory, sModel, sOrgCode, sManufacturer, sProtocol, sDeviceType, sSeries, sServerId, nLedType,
    nAccessDirection, sSerialNumber, sUserName, sPassword, sSipId, sSipPassword, sRemark, nVideoChannels,
    nAlarmInputs, nAlarmOutputs, nAccessChannels, nDecodeChannels, nLifts, nLiftFloors, nPosChannels,
    bCombine, nVersion)
WIRE_RECORD(ImportRow_t, nLine, sName, sConnect, sAddress, sDomain, sPort, sUserName, sPassword, sCategory,
    sProtocol, sManufacturer, sModel, sSerialNumber, sRegisterId, sOrganization)
WIRE_RECORD(ImportFailure_t, nLine, sName, sAddress, sField, nErrorCode, sReason)
WIRE_RECORD(ImportState_t, nTotal, nDone, nSucceeded, nFailed, vecFailed, sFailListUrl, sFailListName)
WIRE_RECORD(DevicePageRequest_t, nPage, nPageSize, sOrgCode, bAscending, nSortField, nOnlineState, nCategory,
    sSearchText)
WIRE_RECORD(DevicePage_t, vecDevices, nTotal, nPage)
WIRE_RECORD(FailedItem_t, sId, sName, nErrorCode, sDetail)
WIRE_RECORD(DeviceReference_t, sDeviceId, nKind, sName)
} // namespace GroupLogical

namespace RemoteConfigLogical {
WIRE_RECORD(DeviceState_t, sDeviceId, nOnlineState, nOfflineReason)
WIRE_RECORD(DictionaryItem_t, sKey, sText, nCode, sParent)
WIRE_RECORD(Dictionary_t, vecCategories, vecManufacturers, vecProtocols, vecDeviceTypes, vecSeries)
WIRE_RECORD(VideoServer_t, sServerId, sName)
WIRE_RECORD(Features_t, bCloudAccount, sCloudService, sTemplateUrl, sIntercomTemplateUrl, sUploadUrl)
WIRE_RECORD(SearchDeviceInfo_t, sIp, nPort, sModel, sMac, nInitState, sName, sManufacturer, sSerialNumber,
    sProtocol, nCategory, sDeviceId)
WIRE_RECORD(InitializeDevice_t, sIp, nPort, sProtocol)
WIRE_RECORD(ModifyAddress_t, sIp, nPort, sProtocol, sUserName, sPassword, sNewIp, sMask, sGateway)
WIRE_RECORD(ModifyDevicePasswordResultInfo_t, sDeviceId, sDeviceName, nErrorCode, sDetail)
WIRE_RECORD(DstDate_t, nMonth, nWeek, nWeekday, nHour)
WIRE_RECORD(TimeZoneSetting_t, sZone, nOffsetMinutes, bDst, dstStart, dstEnd)
WIRE_RECORD(TimeZone_t, sText, setting)
WIRE_RECORD(PlatformTime_t, setting, vecZones)
WIRE_RECORD(TimeZoneResult_t, sDeviceId, nState, nErrorCode)
WIRE_RECORD(P2PDevice_t, sSerialNumber, sName, sModel, nCategory)
} // namespace RemoteConfigLogical

namespace AccessControlLogical {
WIRE_RECORD(Department_t, sCode, sParentCode, sName, sRemark, nVersion)
WIRE_RECORD(Card_t, sCardNo, bMain, bDuress, bLocked)
WIRE_RECORD(Fingerprint_t, nId, sName, bDuress, sTemplate)
WIRE_RECORD(Person_t, sPersonId, sName, nGender, sGroupCode, sGroupName, sTelephone, sEmail, sRemark,
    sPhotoUrl, sPhotoData, nValidFrom, nValidTo, sNickname, sBirthday, sEntryDate, sCompany, sPosition,
    vecCards, vecFingerprints, bUnlockPassword, sUnlockPassword, nPersonType, nExtendTime, nCardTimes,
    bDeviceLogin, vecAccessGroups, vecLiftFloors, vecFaceGroups, sRoomNo, vecPlates, bAuthorizationError,
    nVersion)
WIRE_RECORD(PersonInfo_t, sPersonId, sName, nGender, nPersonType, sGroupCode, sGroupName, sTelephone,
    sPhotoUrl, nCards, nFingerprints, bUnlockPassword, sPlates, bAuthorizationError, nVersion)
WIRE_RECORD(PersonPageRequest_t, sGroupCode, bSubGroups, sSearchKey, nPage, nPageSize)
WIRE_RECORD(PersonPage_t, vecPersons, nTotal, nPage)
WIRE_RECORD(PersonFailure_t, sPersonId, sName, nErrorCode, sDetail)
WIRE_RECORD(PersonClash_t, nKind, sValue)
WIRE_RECORD(IssueCard_t, sPersonId, sCardNo)
WIRE_RECORD(Choice_t, sId, sName)
WIRE_RECORD(LiftFloor_t, sId, sDeviceName, sChannelName, sFloor)
WIRE_RECORD(PermissionChoices_t, vecAccessGroups, vecFaceGroups, vecLiftFloors)
WIRE_RECORD(ResidenceScenario_t, bEnabled, vecRooms)
WIRE_RECORD(AuthorizeException_t, sPersonId, sPersonName, nCredential, sDeviceId, sDeviceName, sChannelName,
    nErrorCode, sDetail, bRemoval)
WIRE_RECORD(PersonQrCode_t, sText, nValidTo)
WIRE_RECORD(AccessRecordRequest_t, sPersonId, nFrom, nTo, nPage, nPageSize)
WIRE_RECORD(AccessRecord_t, nTime, sDeviceName, sChannelName, nCredential, sCardNo, bEntry, bOpened)
} // namespace AccessControlLogical

namespace UserLogical {
WIRE_RECORD(MenuRight_t, sCode, sWidgetName, nEntryId)
WIRE_RECORD(User_t, sUserName, bMultiLogin, sPassword, bForceChange, bPasswordInterval, nPasswordDays,
    nPasswordChanged, bExpiry, nExpiry, nPtzLevel, sEmail, sRemark, bBindMac, vecMacAddresses, vecRoleIds,
    nUserType, sDomainUser, bOnline, nLockState, nVersion)
WIRE_RECORD(UserInfo_t, sUserName, vecRoleNames, bOnline, nUserType, nLockState)
WIRE_RECORD(UserPageRequest_t, sSearchText, nUserType, nOnline, nPage, nPageSize)
WIRE_RECORD(UserPage_t, vecUsers, nTotal, nPage)
WIRE_RECORD(UserFailure_t, sUserName, nErrorCode)
WIRE_RECORD(DomainUser_t, sUserName, sDomainUser)
WIRE_RECORD(RightNode_t, sCode, sName, nKind)
WIRE_RECORD(Role_t, sRoleId, sName, sRemark, bBuiltIn, vecMenuRights, vecFuncRights, nVersion)
WIRE_RECORD(
    DeviceRightNode_t, nKind, sId, nChannelKind, nChannel, sName, nState, bAuto, bHasChildren, vecRoleIds)
WIRE_RECORD(DeviceRightQuery_t, nKind, sId, vecRoleIds)
WIRE_RECORD(DeviceRightChange_t, nKind, sId, nChannelKind, nChannel, nRight, nAuto)
WIRE_RECORD(RoleEdit_t, role, sCopyFrom, vecChanges)
WIRE_RECORD(DeviceAccess_t, sUserName, vecRoleNames, bWhole)
WIRE_RECORD(
    AuditRequest_t, nFrom, nTo, sUserName, sClientAddress, sOperation, sObject, nBelowId, nPage, nPageSize)
WIRE_RECORD(AuditEntry_t, nId, nTime, sUserName, sClientAddress, sOperation, sObjectId, sBefore, sAfter)
WIRE_RECORD(AuditPage_t, vecEntries, nTotal, nPage)
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
inline void MergeJson(const nlohmann::json&, Nothing&, double) { }
inline void AppendJson(std::string& sJson, const Nothing&)
{
    sJson += "{}";
}

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
    std::string sNewPassword; ///< in its place from now on; empty: it stays
    std::vector<std::string> vecMacAddresses; ///< of the client's machine
};
WIRE_RECORD(SignInRequest, sUserName, sPassword, sNewPassword, vecMacAddresses)

struct Session
{
    std::string sToken; ///< 256 random bits in hexadecimal; only in the answer to a sign-in
    std::string sUserName;
    std::vector<UserLogical::MenuRight_t> vecMenuRights;
    std::vector<std::string> vecRights; ///< all right codes of the user, of every level
    int nOrganizationLevelLimit = 0;
    std::string sUserType; ///< "1": has every right, "2": may manage users, "3": neither
};
WIRE_RECORD(Session, sToken, sUserName, vecMenuRights, vecRights, nOrganizationLevelLimit, sUserType)

struct UserName
{
    std::string sUserName;
};
WIRE_RECORD(UserName, sUserName)

struct UserNames
{
    std::vector<std::string> vecUserNames; ///< at most 1000
};
WIRE_RECORD(UserNames, vecUserNames)

struct UserFailures
{
    std::vector<UserLogical::UserFailure_t> vecFailed;
};
WIRE_RECORD(UserFailures, vecFailed)

struct RoleId
{
    std::string sRoleId;
};
WIRE_RECORD(RoleId, sRoleId)

struct RoleIds
{
    std::vector<std::string> vecRoleIds; ///< at most 1000
};
WIRE_RECORD(RoleIds, vecRoleIds)

struct Roles
{
    std::vector<UserLogical::Role_t> vecRoles;
};
WIRE_RECORD(Roles, vecRoles)

struct RightNodes
{
    std::vector<UserLogical::RightNode_t> vecRights;
};
WIRE_RECORD(RightNodes, vecRights)

struct DeviceRightNodes
{
    std::vector<UserLogical::DeviceRightNode_t> vecNodes;
};
WIRE_RECORD(DeviceRightNodes, vecNodes)

struct DeviceAccesses
{
    std::vector<UserLogical::DeviceAccess_t> vecAccess;
};
WIRE_RECORD(DeviceAccesses, vecAccess)

struct SearchText
{
    std::string sSearchText;
};
WIRE_RECORD(SearchText, sSearchText)

struct DomainUsers
{
    std::vector<UserLogical::DomainUser_t> vecDomainUsers;
    bool bTruncated = false; ///< there are more
};
WIRE_RECORD(DomainUsers, vecDomainUsers, bTruncated)

struct AddDomainUsersRequest
{
    std::vector<std::string> vecUserNames; ///< at most 1000
    std::vector<std::string> vecRoleIds;
};
WIRE_RECORD(AddDomainUsersRequest, vecUserNames, vecRoleIds)

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

struct DeviceAddAnswer
{
    std::vector<std::string> vecAddedIds;
    std::vector<GroupLogical::FailedItem_t> vecFailed; ///< addresses of a segment that were refused
};
WIRE_RECORD(DeviceAddAnswer, vecAddedIds, vecFailed)

struct VideoServers
{
    std::vector<RemoteConfigLogical::VideoServer_t> vecServers;
};
WIRE_RECORD(VideoServers, vecServers)

/// Work that the server does beside its requests; its results are read with WaitJob.
struct Job
{
    std::string sJob;
};
WIRE_RECORD(Job, sJob)

struct WaitJobRequest
{
    std::string sJob;
    int nFrom = 0; ///< results before this one were read already
};
WIRE_RECORD(WaitJobRequest, sJob, nFrom)

/// Answered as soon as there is more than was read, or after a few seconds.
struct JobState
{
    int nTotal = 0;
    int nDone = 0;
    bool bFinished = false;
    int nErrorCode = 0; ///< finished: why the job as a whole failed
    std::string sErrorDetail;
    nlohmann::json items = nlohmann::json::array(); ///< results from nFrom on; their type is the job's
    nlohmann::json summary = nlohmann::json::object(); ///< finished: what is told once
};
WIRE_RECORD(JobState, nTotal, nDone, bFinished, nErrorCode, sErrorDetail, items, summary)

struct SearchRequest
{
    std::string sStartIp;
    std::string sEndIp;
};
WIRE_RECORD(SearchRequest, sStartIp, sEndIp)

struct InitializeRequest
{
    std::vector<RemoteConfigLogical::InitializeDevice_t> vecDevices;
    std::string sPassword;
    std::string sContact;
};
WIRE_RECORD(InitializeRequest, vecDevices, sPassword, sContact)

struct ModifyAddressRequest
{
    std::vector<RemoteConfigLogical::ModifyAddress_t> vecDevices;
};
WIRE_RECORD(ModifyAddressRequest, vecDevices)

struct ModifyPasswordRequest
{
    std::vector<std::string> vecDeviceIds; ///< at most 1000
    std::string sOldPassword;
    std::string sNewPassword;
};
WIRE_RECORD(ModifyPasswordRequest, vecDeviceIds, sOldPassword, sNewPassword)

struct SetTimeZoneRequest
{
    std::vector<std::string> vecDeviceIds; ///< at most 1000
    RemoteConfigLogical::TimeZoneSetting_t setting;
};
WIRE_RECORD(SetTimeZoneRequest, vecDeviceIds, setting)

struct CloudLogin
{
    std::string sUserName;
    std::string sPassword;
};
WIRE_RECORD(CloudLogin, sUserName, sPassword)

struct CloudDevices
{
    int nCloudCode = 0; ///< 0: the list was given
    std::vector<RemoteConfigLogical::P2PDevice_t> vecDevices;
};
WIRE_RECORD(CloudDevices, nCloudCode, vecDevices)

struct BeginImportRequest
{
    std::string sOrgCode;
    std::string sSource;
};
WIRE_RECORD(BeginImportRequest, sOrgCode, sSource)

struct ImportRowsRequest
{
    std::string sJob;
    std::vector<GroupLogical::ImportRow_t> vecRows; ///< at most 2000
};
WIRE_RECORD(ImportRowsRequest, sJob, vecRows)

struct RunImportRequest
{
    std::string sJob;
    bool bAllOrNothing = false;
    bool bOverwrite = false;
};
WIRE_RECORD(RunImportRequest, sJob, bAllOrNothing, bOverwrite)

/// The answer to an uploaded device sheet: an import that waits for RunImport.
struct UploadedSheet
{
    std::string sJob;
    int nRows = 0;
    int nExisting = 0; ///< rows of devices that exist already
    bool bIntercom = false; ///< a sheet of intercom devices
};
WIRE_RECORD(UploadedSheet, sJob, nRows, nExisting, bIntercom)

struct Departments
{
    std::vector<AccessControlLogical::Department_t> vecDepartments;
};
WIRE_RECORD(Departments, vecDepartments)

struct PersonId
{
    std::string sPersonId;
};
WIRE_RECORD(PersonId, sPersonId)

struct PersonIds
{
    std::vector<std::string> vecPersonIds; ///< at most AccessControlLogical::PersonBatchLimit
};
WIRE_RECORD(PersonIds, vecPersonIds)

struct DeleteAllPersonsRequest
{
    std::string sGroupCode;
    bool bSubGroups = false;
};
WIRE_RECORD(DeleteAllPersonsRequest, sGroupCode, bSubGroups)

struct MovePersonsRequest
{
    std::vector<std::string> vecPersonIds;
    std::string sGroupCode;
};
WIRE_RECORD(MovePersonsRequest, vecPersonIds, sGroupCode)

struct IssueCardsRequest
{
    std::vector<AccessControlLogical::IssueCard_t> vecCards;
    std::int64_t nValidFrom = 0;
    std::int64_t nValidTo = 0;
};
WIRE_RECORD(IssueCardsRequest, vecCards, nValidFrom, nValidTo)

struct AuthorizePersonsRequest
{
    std::vector<std::string> vecPersonIds;
    std::vector<std::string> vecAccessGroups;
    std::vector<std::string> vecFaceGroups;
};
WIRE_RECORD(AuthorizePersonsRequest, vecPersonIds, vecAccessGroups, vecFaceGroups)

struct PersonBatchAnswer
{
    std::vector<AccessControlLogical::PersonFailure_t> vecFailed;
};
WIRE_RECORD(PersonBatchAnswer, vecFailed)

struct AuthorizeExceptions
{
    std::vector<AccessControlLogical::AuthorizeException_t> vecExceptions;
};
WIRE_RECORD(AuthorizeExceptions, vecExceptions)

struct CapturedFingerprint
{
    std::string sTemplate; ///< Base64; empty: the device saw no finger
};
WIRE_RECORD(CapturedFingerprint, sTemplate)

struct DevicePersons
{
    std::vector<AccessControlLogical::Person_t> vecPersons;
};
WIRE_RECORD(DevicePersons, vecPersons)

struct RecordTotal
{
    int nTotal = 0;
};
WIRE_RECORD(RecordTotal, nTotal)

struct AccessRecords
{
    std::vector<AccessControlLogical::AccessRecord_t> vecRecords;
    int nTotal = 0;
};
WIRE_RECORD(AccessRecords, vecRecords, nTotal)

/// The detail of a failure ErrorPersonDuplicate: a line a clash.
std::string ClashText(const std::vector<AccessControlLogical::PersonClash_t>& vecClashes);
/// The clashes of such a detail; lines of another form are left out.
std::vector<AccessControlLogical::PersonClash_t> ClashesOf(const std::string& sText);

} // namespace wire

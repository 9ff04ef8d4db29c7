#pragma once

#include <wire/Operation.h>
#include <wire/Records.h>

/// Every operation of the server, one line each.
namespace wire {

using namespace GroupLogical;
using namespace AccessControlLogical;
using namespace UserLogical;
using RemoteConfigLogical::Dictionary_t;
using RemoteConfigLogical::Features_t;
using RemoteConfigLogical::PlatformTime_t;

// clang-format off
using GetServerState          = Operation<"server/state",            Access::Anybody,  "",          Nothing,                 ServerState>;
using SetUp                   = Operation<"server/set-up",           Access::Anybody,  "",          SetupRequest,            Nothing>;
using SignIn                  = Operation<"session/sign-in",         Access::Anybody,  "",          SignInRequest,           Session>;
using SignOut                 = Operation<"session/sign-out",        Access::SignedIn, "",          Nothing,                 Nothing>;
using GetSession              = Operation<"session/get",             Access::SignedIn, "",          Nothing,                 Session>;
using GetDictionary           = Operation<"dictionary/get",          Access::SignedIn, "",          Nothing,                 Dictionary_t>;

using QueryOrganizations      = Operation<"organization/query",      Access::ByRight,  "001001",    Nothing,                 Organizations>;
using AddOrganization         = Operation<"organization/add",        Access::ByRight,  "001001001", Organization_t,          Organization_t>;
using ModifyOrganization      = Operation<"organization/modify",     Access::ByRight,  "001001001", Organization_t,          Organization_t>;
using DeleteOrganization      = Operation<"organization/delete",     Access::ByRight,  "001001001", Code,                    Nothing>;
using MoveOrganization        = Operation<"organization/move",       Access::ByRight,  "001001001", MoveOrganizationRequest, Nothing>;

using QueryDevicePage         = Operation<"device/page",             Access::ByRight,  "001001",    DevicePageRequest_t,     DevicePage_t>;
using ExportDevice            = Operation<"device/export",           Access::ByRight,  "001001001 004002", DevicePageRequest_t,     DevicePage_t>;
using QueryDeviceDetail       = Operation<"device/detail",           Access::ByRight,  "001001",    DeviceId,                DeviceAddInfo_t>;
using QueryDeviceReferences   = Operation<"device/references",       Access::ByRight,  "001001",    DeviceId,                DeviceReferences>;
using DeleteDevice            = Operation<"device/delete",           Access::ByRight,  "001001001", DeleteDeviceRequest,     BatchAnswer>;
using MoveDevice              = Operation<"device/move",             Access::ByRight,  "001001001", MoveDeviceRequest,       BatchAnswer>;
using QueryDeviceTypes        = Operation<"device/types",            Access::ByRight,  "001001",    Nothing,                 DeviceTypes>;
using AddDevice               = Operation<"device/add",              Access::ByRight,  "001001001", DeviceAddInfo_t,         DeviceAddAnswer>;
using ModifyDevice            = Operation<"device/modify",           Access::ByRight,  "001001001", DeviceAddInfo_t,         DeviceAddInfo_t>;
using ModifyDevicePassword    = Operation<"device/password",         Access::ByRight,  "001001001", ModifyPasswordRequest,   Job>;
using SetDeviceTimeZone       = Operation<"device/time-zone",        Access::ByRight,  "001001001", SetTimeZoneRequest,      Job>;

using GetFeatures             = Operation<"features/get",            Access::SignedIn, "",          Nothing,                 Features_t>;
using QueryVideoServers       = Operation<"server/video-list",       Access::ByRight,  "001001",    Nothing,                 VideoServers>;
using GetTimeZone             = Operation<"time-zone/get",           Access::ByRight,  "001001",    Nothing,                 PlatformTime_t>;

using SearchOnlineDevice      = Operation<"discovery/search",        Access::ByRight,  "001001001", SearchRequest,           Job>;
using InitializeDevice        = Operation<"discovery/initialize",    Access::ByRight,  "001001001", InitializeRequest,       Job>;
using ModifyAddress           = Operation<"discovery/address",       Access::ByRight,  "001001001", ModifyAddressRequest,    Job>;

using BeginImport             = Operation<"import/begin",            Access::ByRight,  "001001001", BeginImportRequest,      Job>;
using AddImportRows           = Operation<"import/rows",             Access::ByRight,  "001001001", ImportRowsRequest,       Nothing>;
using RunImport               = Operation<"import/run",              Access::ByRight,  "001001001", RunImportRequest,        Nothing>;
using QueryCloudDevices       = Operation<"cloud/devices",           Access::ByRight,  "001001001", CloudLogin,              CloudDevices>;

using QueryDepartmentTree     = Operation<"person-group/query",      Access::ByRight,  "002003001", Nothing,                 Departments>;
using AddDepartment           = Operation<"person-group/add",        Access::ByRight,  "002003001", Department_t,            Department_t>;
using ModifyDepartment        = Operation<"person-group/modify",     Access::ByRight,  "002003001", Department_t,            Department_t>;
using DeleteDepartment        = Operation<"person-group/delete",     Access::ByRight,  "002003001", Code,                    Nothing>;

using QueryPersonList         = Operation<"person/page",             Access::ByRight,  "002003001", PersonPageRequest_t,     PersonPage_t>;
using QueryPersonDetail       = Operation<"person/detail",           Access::ByRight,  "002003001", PersonId,                Person_t>;
using AddPerson               = Operation<"person/add",              Access::ByRight,  "002003001", Person_t,                Person_t>;
using ModifyPerson            = Operation<"person/modify",           Access::ByRight,  "002003001", Person_t,                Person_t>;
using DeletePersons           = Operation<"person/delete",           Access::ByRight,  "002003001", PersonIds,               PersonBatchAnswer>;
using DeleteAllPersons        = Operation<"person/delete-all",       Access::ByRight,  "002003001", DeleteAllPersonsRequest, Nothing>;
using MovePersons             = Operation<"person/move",             Access::ByRight,  "002003001", MovePersonsRequest,      PersonBatchAnswer>;
using IssueCards              = Operation<"person/issue-cards",      Access::ByRight,  "002003001", IssueCardsRequest,       Nothing>;
using AuthorizePersons        = Operation<"person/authorize",        Access::ByRight,  "002003001", AuthorizePersonsRequest, PersonBatchAnswer>;
using ReissuePersonRight      = Operation<"person/reissue",          Access::ByRight,  "002003001", PersonId,                Job>;
using QueryAuthorizeException = Operation<"person/exceptions",       Access::ByRight,  "002003001", PersonId,                AuthorizeExceptions>;
using QueryPermissionChoices  = Operation<"person/choices",          Access::ByRight,  "002003001", Nothing,                 PermissionChoices_t>;
using QueryResidenceScenario  = Operation<"person/residence",        Access::ByRight,  "002003001", Nothing,                 ResidenceScenario_t>;
using QueryQrCode             = Operation<"person/qr-code",          Access::ByRight,  "002003001", PersonId,                PersonQrCode_t>;
using CaptureFingerprint      = Operation<"person/capture",          Access::ByRight,  "002003001", DeviceId,                Job>;
using ExtractPersons          = Operation<"person/extract",          Access::ByRight,  "002003001", DeviceId,                Job>;
using QueryRecordTotal        = Operation<"access-record/total",     Access::ByRight,  "002003001", AccessRecordRequest_t,   RecordTotal>;
using QueryRecords            = Operation<"access-record/page",      Access::ByRight,  "002003001", AccessRecordRequest_t,   AccessRecords>;

using QueryUserPage           = Operation<"user/page",               Access::ByRight,  "001002",    UserPageRequest_t,       UserPage_t>;
using QueryUserInfo           = Operation<"user/info",               Access::ByRight,  "001002",    UserName,                User_t>;
using QueryUserRole           = Operation<"user/role",               Access::ByRight,  "001002",    UserName,                Roles>;
using AddUser                 = Operation<"user/add",                Access::ByRight,  "001002001", User_t,                  User_t>;
using ModifyUser              = Operation<"user/modify",             Access::ByRight,  "001002001", User_t,                  User_t>;
using LockUser                = Operation<"user/lock",               Access::ByRight,  "001002001", UserName,                Nothing>;
using UnlockUser              = Operation<"user/unlock",             Access::ByRight,  "001002001", UserName,                Nothing>;
using DeleteUsers             = Operation<"user/delete",             Access::ByRight,  "001002001", UserNames,               UserFailures>;

using QueryRoleList           = Operation<"role/list",               Access::ByRight,  "001002",    Nothing,                 Roles>;
using QueryRoleInfo           = Operation<"role/info",               Access::ByRight,  "001002",    RoleId,                  Role_t>;
using AddRole                 = Operation<"role/add",                Access::ByRight,  "001002002", RoleEdit_t,              Role_t>;
using ModifyRole              = Operation<"role/modify",             Access::ByRight,  "001002002", RoleEdit_t,              Role_t>;
using DeleteRoles             = Operation<"role/delete",             Access::ByRight,  "001002002", RoleIds,                 UserFailures>;
using QueryMenuRightList      = Operation<"right/menu",              Access::ByRight,  "001002",    Nothing,                 RightNodes>;
using QueryFuncRightList      = Operation<"right/function",          Access::ByRight,  "001002",    Nothing,                 RightNodes>;
using QueryDeviceRights       = Operation<"right/devices",           Access::ByRight,  "001002",    DeviceRightQuery_t,      DeviceRightNodes>;
using QueryDeviceAccess       = Operation<"device/access",           Access::ByRight,  "001001 001002", DeviceId,            DeviceAccesses>;

using QueryDomainUsers        = Operation<"domain/users",            Access::ByRight,  "001002001", SearchText,              DomainUsers>;
using AddDomainUsers          = Operation<"domain/add",              Access::ByRight,  "001002001", AddDomainUsersRequest,   UserFailures>;
using QueryInvalidDomainUsers = Operation<"domain/invalid",          Access::ByRight,  "001002001", Nothing,                 DomainUsers>;
using DeleteInvalidDomainUsers = Operation<"domain/delete-invalid",  Access::ByRight,  "001002001", UserNames,               UserFailures>;

using QueryAuditPage          = Operation<"audit/page",              Access::ByRight,  "001002003", AuditRequest_t,          AuditPage_t>;
using ExportAudit             = Operation<"audit/export",            Access::ByRight,  "001002003 004003", AuditRequest_t,   AuditPage_t>;

using WaitJob                 = Operation<"job/wait",                Access::SignedIn, "",          WaitJobRequest,          JobState>;
using CancelJob               = Operation<"job/cancel",              Access::SignedIn, "",          Job,                     Nothing>;
// clang-format on

/// Names of the events of the event stream (server-sent events); the data is JSON.
namespace event {
inline constexpr const char* Hello = "hello"; ///< first event of every stream; {}
inline constexpr const char* DeviceStates = "device-states"; ///< wire::DeviceStates
inline constexpr const char* DevicesChanged = "devices-changed"; ///< {}
inline constexpr const char* OrganizationsChanged = "organizations-changed"; ///< {}
inline constexpr const char* DepartmentsChanged = "departments-changed"; ///< {}
inline constexpr const char* PersonsChanged = "persons-changed"; ///< {}
inline constexpr const char* UsersChanged = "users-changed"; ///< {}: accounts, or who is signed in
inline constexpr const char* RolesChanged = "roles-changed"; ///< {}
inline constexpr const char* RightsChanged = "rights-changed"; ///< {}: ask for the session again
inline constexpr const char* SessionEnded = "session-ended"; ///< {}; the stream ends after it
} // namespace event

} // namespace wire

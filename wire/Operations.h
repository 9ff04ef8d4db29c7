#pragma once

#include <wire/Operation.h>
#include <wire/Records.h>

/// Every operation of the server, one line each.
namespace wire {

using namespace GroupLogical;
using RemoteConfigLogical::Dictionary_t;

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
using ExportDevice            = Operation<"device/export",           Access::ByRight,  "001001001", DevicePageRequest_t,     DevicePage_t>;
using QueryDeviceDetail       = Operation<"device/detail",           Access::ByRight,  "001001",    DeviceId,                DeviceAddInfo_t>;
using QueryDeviceReferences   = Operation<"device/references",       Access::ByRight,  "001001",    DeviceId,                DeviceReferences>;
using DeleteDevice            = Operation<"device/delete",           Access::ByRight,  "001001001", DeleteDeviceRequest,     BatchAnswer>;
using MoveDevice              = Operation<"device/move",             Access::ByRight,  "001001001", MoveDeviceRequest,       BatchAnswer>;
using QueryDeviceTypes        = Operation<"device/types",            Access::ByRight,  "001001",    Nothing,                 DeviceTypes>;
// clang-format on

/// Names of the events of the event stream (server-sent events); the data is JSON.
namespace event {
inline constexpr const char* Hello = "hello"; ///< first event of every stream; {}
inline constexpr const char* DeviceStates = "device-states"; ///< wire::DeviceStates
inline constexpr const char* DevicesChanged = "devices-changed"; ///< {}
inline constexpr const char* OrganizationsChanged = "organizations-changed"; ///< {}
inline constexpr const char* RightsChanged = "rights-changed"; ///< {}: ask for the session again
inline constexpr const char* SessionEnded = "session-ended"; ///< {}; the stream ends after it
} // namespace event

} // namespace wire

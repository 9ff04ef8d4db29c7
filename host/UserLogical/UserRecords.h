#pragma once

#include <UICommonMdl/TextRule.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

/// Records of users, roles and rights. All texts are UTF-8; times are milliseconds since 1970, UTC.
namespace UserLogical {

/// One entry of the configuration that the user may open.
struct MenuRight_t
{
    std::string sCode; ///< right code, three digits a level
    std::string sWidgetName; ///< name of the entry
    unsigned int nEntryId = 0; ///< number of the entry

    bool operator==(const MenuRight_t&) const = default;
};

/// Name of the account that every platform has: it holds every right and can be neither locked nor deleted.
inline constexpr const char* BuiltInUserName = "system";

enum UserType : int
{
    UserTypeAll = 0, ///< in filters only
    UserTypeNormal = 1, ///< with a password of the platform's own
    UserTypeDomain = 2, ///< signs in against the directory
};

enum LockState : int
{
    LockStateUsable = 1, ///< any other value: locked
    LockStateLocked = 2,
};

enum OnlineFilter : int
{
    OnlineFilterAll = 0,
    OnlineFilterOnline = 1,
    OnlineFilterOffline = 2,
};

inline constexpr UICommonMdl::TextRule UserName{1, 50, "<>"};
inline constexpr UICommonMdl::TextRule UserPassword{8, 32}; ///< normal users; the directory has its own
inline constexpr UICommonMdl::TextRule UserEmail{0, 50};
inline constexpr UICommonMdl::TextRule UserRemark{0, 255, "<>"};
inline constexpr UICommonMdl::TextRule MacAddress{17, 17, "", "0123456789abcdefABCDEF:"};
inline constexpr std::size_t MacAddressLimit = 5; ///< of one account
inline constexpr UICommonMdl::NumberRule PasswordDays{1, 365};
inline constexpr UICommonMdl::NumberRule PtzLevel{1, 10}; ///< the larger the higher

/// Six pairs of hexadecimal digits with colons in between.
inline bool IsMacAddress(std::string_view address)
{
    if (!UICommonMdl::Holds(MacAddress, address))
        return false;
    for (std::size_t n = 0; n < address.size(); ++n)
        if ((address[n] == ':') != (n % 3 == 2))
            return false;
    return true;
}

/// An operator's account as its form edits it.
struct User_t
{
    std::string sUserName; ///< UserName: key, whatever the case; fixed once the account is there
    bool bMultiLogin = false; ///< may be signed in on several clients at once
    std::string sPassword; ///< towards the server only; empty: stays as it is
    bool bForceChange = false; ///< a new password has to be chosen at the next sign-in
    bool bPasswordInterval = false; ///< a new password has to be chosen every nPasswordDays
    int nPasswordDays = 90; ///< PasswordDays
    std::int64_t nPasswordChanged = 0; ///< when the present password was set; from the server only
    bool bExpiry = false;
    std::int64_t nExpiry = 0; ///< nobody can sign in from then on
    int nPtzLevel = 1; ///< PtzLevel
    std::string sEmail; ///< UserEmail: UICommonMdl::IsMailAddress, or empty
    std::string sRemark; ///< UserRemark
    bool bBindMac = false; ///< sign-in only from a client with one of the addresses
    std::vector<std::string> vecMacAddresses; ///< IsMacAddress; at most MacAddressLimit
    std::vector<std::string> vecRoleIds; ///< at least one
    int nUserType = UserTypeNormal; ///< UserType
    std::string sDomainUser; ///< distinguished name in the directory; empty for normal users
    bool bOnline = false; ///< from the server only
    int nLockState = LockStateUsable; ///< from the server only
    std::int64_t nVersion = 0; ///< of the record; a save against an old one is refused

    bool operator==(const User_t&) const = default;
};

/// A row of the list of users.
struct UserInfo_t
{
    std::string sUserName;
    std::vector<std::string> vecRoleNames;
    bool bOnline = false;
    int nUserType = UserTypeNormal; ///< UserType
    int nLockState = LockStateUsable; ///< LockState

    bool operator==(const UserInfo_t&) const = default;
};

struct UserPageRequest_t
{
    std::string sSearchText; ///< part of the user name, whatever its case
    int nUserType = UserTypeAll; ///< UserType
    int nOnline = OnlineFilterAll; ///< OnlineFilter
    int nPage = 1;
    int nPageSize = 20; ///< 1 to 1000

    bool operator==(const UserPageRequest_t&) const = default;
};

struct UserPage_t
{
    std::vector<UserInfo_t> vecUsers; ///< by name
    int nTotal = 0; ///< of all pages
    int nPage = 1; ///< the last one when a later one was asked for

    bool operator==(const UserPage_t&) const = default;
};

/// A user of a batch that was refused.
struct UserFailure_t
{
    std::string sUserName;
    int nErrorCode = 0; ///< UICommonMdl::ErrorCode

    bool operator==(const UserFailure_t&) const = default;
};

/// A user of the directory.
struct DomainUser_t
{
    std::string sUserName; ///< name to sign in with
    std::string sDomainUser; ///< distinguished name

    bool operator==(const DomainUser_t&) const = default;
};

/// Kinds of the nodes of the menu and function rights trees.
enum RightNodeKind : int
{
    RightNodeAlways = 1, ///< passes the filter always
    RightNodeChecked = 2, ///< passes by its own check: the signed-in user may give that right
};

/// One right of the platform. Parents stand before their children.
struct RightNode_t
{
    std::string sCode; ///< three digits a level; the parent's code is its beginning
    std::string sName; ///< what it is called
    int nKind = RightNodeAlways; ///< RightNodeKind

    bool operator==(const RightNode_t&) const = default;
};

inline constexpr UICommonMdl::TextRule RoleName{1, 50, "<>"};
inline constexpr UICommonMdl::TextRule RoleRemark{0, 255, "<>"};

/// A role without its device rights, which are asked for branch by branch.
struct Role_t
{
    std::string sRoleId; ///< key, given by the server
    std::string sName; ///< RoleName: unique, whatever the case
    std::string sRemark; ///< RoleRemark
    bool bBuiltIn = false; ///< holds every right by itself; can be neither changed nor deleted
    std::vector<std::string> vecMenuRights; ///< right codes; empty in lists
    std::vector<std::string> vecFuncRights; ///< as vecMenuRights
    std::int64_t nVersion = 0; ///< of the record; a save against an old one is refused

    bool operator==(const Role_t&) const = default;
};

enum DeviceNodeKind : int
{
    DeviceNodeOrganization = 1,
    DeviceNodeDevice = 2,
    DeviceNodeChannel = 3,
};

enum ChannelKind : int
{
    ChannelVideo = 1,
    ChannelAlarmInput,
    ChannelAlarmOutput,
    ChannelAccess, ///< doors
    ChannelDecode,
    ChannelLift,
    ChannelPos,
};

enum RightState : int
{
    RightStateNone = 0,
    RightStatePart = 1, ///< some of what lies below
    RightStateAll = 2,
};

/// One node of the device rights tree. Devices, and organisations below, follow their organisation; channels
/// their device.
struct DeviceRightNode_t
{
    int nKind = DeviceNodeOrganization; ///< DeviceNodeKind
    std::string sId; ///< organisation code; device ID for a device and for its channels
    int nChannelKind = 0; ///< ChannelKind, of channels
    int nChannel = 0; ///< number from 1 on within its kind, of channels
    std::string sName;
    int nState = RightStateNone; ///< RightState, by the roles that were asked for together
    bool bAuto = false; ///< of organisations: one of the roles gets what is added below
    bool bHasChildren = false; ///< there is something to ask for below it
    std::vector<std::string> vecRoleIds; ///< which of the roles that were asked for give it, whole or in part

    bool operator==(const DeviceRightNode_t&) const = default;
};

/// Asks for what lies below one node.
struct DeviceRightQuery_t
{
    int nKind = DeviceNodeOrganization; ///< DeviceNodeOrganization or DeviceNodeDevice
    std::string sId; ///< of the node; empty: the root of the tree itself
    std::vector<std::string> vecRoleIds; ///< whose rights the states say; empty: none

    bool operator==(const DeviceRightQuery_t&) const = default;
};

/// What an operator did to one node of a role's device rights.
struct DeviceRightChange_t
{
    enum Change : int
    {
        Keep = -1,
        Off = 0,
        On = 1,
    };
    int nKind = DeviceNodeOrganization; ///< DeviceNodeKind
    std::string sId; ///< as DeviceRightNode_t
    int nChannelKind = 0;
    int nChannel = 0;
    int nRight = Keep; ///< Change: the node with all that lies below it now
    int nAuto = Keep; ///< Change, of organisations: whether the role gets what is added below later

    bool operator==(const DeviceRightChange_t&) const = default;
};

/// A role as its dialog saves it.
struct RoleEdit_t
{
    Role_t role;
    /// Role whose device rights the changes start from: for a new one, or in place of the role's own; empty:
    /// none for a new one, its own for one that is there.
    std::string sCopyFrom;
    /// Applied organisations first, from the root down, then devices, then channels.
    std::vector<DeviceRightChange_t> vecChanges;

    bool operator==(const RoleEdit_t&) const = default;
};

/// Who may use a device, and why.
struct DeviceAccess_t
{
    std::string sUserName;
    std::vector<std::string> vecRoleNames; ///< roles that give it
    bool bWhole = false; ///< false: some of its channels only

    bool operator==(const DeviceAccess_t&) const = default;
};

struct AuditRequest_t
{
    std::int64_t nFrom = 0; ///< 0: from the beginning
    std::int64_t nTo = 0; ///< excluded; 0: until now
    std::string sUserName; ///< part of it, whatever its case
    std::string sClientAddress; ///< part of it
    std::string sOperation; ///< exact; with a "/" at its end all operations of that group; empty: all
    std::string sObject; ///< part of the object's ID
    std::int64_t nBelowId = 0; ///< only entries older than that one, for reading on; 0: all
    int nPage = 1;
    int nPageSize = 20; ///< 1 to 1000

    bool operator==(const AuditRequest_t&) const = default;
};

/// One entry of the log that the server keeps. Secrets are not in it.
struct AuditEntry_t
{
    std::int64_t nId = 0;
    std::int64_t nTime = 0;
    std::string sUserName;
    std::string sClientAddress;
    std::string sOperation;
    std::string sObjectId;
    std::string sBefore; ///< JSON object; empty: there was nothing
    std::string sAfter; ///< as sBefore

    bool operator==(const AuditEntry_t&) const = default;
};

struct AuditPage_t
{
    std::vector<AuditEntry_t> vecEntries; ///< the newest first
    int nTotal = 0; ///< of all pages
    int nPage = 1; ///< the last one when a later one was asked for

    bool operator==(const AuditPage_t&) const = default;
};

} // namespace UserLogical

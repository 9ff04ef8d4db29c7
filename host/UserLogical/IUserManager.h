#pragma once

#include <UserLogical/UserRecords.h>
#include <VxPluginAPI/IAbstractResourceManager.h>
#include <VxPluginAPI/IObserver.h>

#include <memory>
#include <optional>
#include <vector>

namespace UserLogical {

/// The rights of the signed-in user, as last told by the server.
class IUserRight
{
public:
    virtual ~IUserRight() = default;
    /// True when the user has the right of that code. Any thread.
    virtual bool HasRight(const std::string& sRightCode) = 0;
};

/// Hears what happens to the signed-in user's session.
class ILoginManagerObserver : public VxPluginAPI::IObserver
{
public:
    enum ResultCode : int
    {
        ResultRightsChanged = 100, ///< pushed: the signed-in user's rights are others now
        ResultSessionEnded, ///< pushed: the session is no longer valid, the user has to sign in again
        ResultDisconnected, ///< the connection to the central server is lost; the host tries again by itself
        ResultReconnected, ///< and is back: what was shown may be out of date
    };
    struct Param
    {
        int nResultCode = 0; ///< ResultCode
        int nErrorCode = 0; ///< UICommonMdl::ErrorCode
    };
    /// Shared by all who hear it and never changed.
    using Answer = std::shared_ptr<const Param>;
    /// Comes on a thread of the host: keep the pointer or leave it, and return.
    virtual void OnNotifyLoginManagerState(const Answer& pAnswer) = 0;
};

/// Hears what happens to users, roles and the log.
class IUserManagerObserve : public VxPluginAPI::IObserver
{
public:
    enum ResultCode : int
    {
        ResultQueryUserPage = 1,
        ResultQueryUserInfo,
        ResultAddUser,
        ResultModifyUser,
        ResultLockUser,
        ResultUnlockUser,
        ResultDeleteUsers,
        ResultQueryUserRole,
        ResultQueryRoleList,
        ResultQueryRoleInfo,
        ResultAddRole,
        ResultModifyRole,
        ResultDeleteRoles,
        ResultQueryMenuRightList,
        ResultQueryFuncRightList,
        ResultQueryDeviceRights,
        ResultQueryDeviceAccess,
        ResultQueryDomainUsers,
        ResultAddDomainUsers,
        ResultQueryInvalidDomainUsers,
        ResultDeleteInvalidDomainUsers,
        ResultQueryAuditPage,
        ResultExportAudit,

        ResultUsersChanged = 100, ///< pushed: accounts changed, or somebody signed in or out
        ResultRolesChanged, ///< pushed
    };

    /// One answer, or one push (nSequence 0). Fields that the operation does not fill are empty.
    struct Param
    {
        int nResultCode = 0; ///< ResultCode
        int nSequence = 0; ///< the number that the call returned; 0: pushed by the server
        int nErrorCode = 0; ///< UICommonMdl::ErrorCode
        std::string sErrorDetail; ///< ErrorInvalidInput: the field; else the server's own words
        UserPage_t userPage;
        std::optional<User_t> optUser; ///< info, add and modify: as it is now
        /// List: all, by name, without rights. Info, add and modify: the one, whole. User role: those of the
        /// user, whole.
        std::vector<Role_t> vecRoles;
        std::vector<RightNode_t> vecRights; ///< menu and function rights of the platform
        std::vector<DeviceRightNode_t> vecNodes; ///< what lies below the node that was asked for
        std::vector<DeviceAccess_t> vecAccess;
        std::vector<UserFailure_t> vecFailed; ///< of batches: what was refused
        std::vector<DomainUser_t> vecDomainUsers;
        bool bTruncated = false; ///< the directory holds more users than were listed
        AuditPage_t auditPage;
    };
    /// Shared by all who hear it and never changed.
    using Answer = std::shared_ptr<const Param>;

    /// Comes on a thread of the host: keep the pointer or leave it, and return.
    virtual void OnNotifyUserManagerState(const Answer& pAnswer) = 0;
};

/// The signed-in user, and the platform's accounts and roles. Every operation that answers an int returns the
/// number of the request, 0 or less when it was refused (nobody is signed in); its answer comes to the
/// observers exactly once.
class IUserManager : public VxPluginAPI::IManager
{
public:
    static constexpr const char* InterfaceId = "UserLogical.IUserManager(2.0)";

    virtual void AddObserver(ILoginManagerObserver* pObserver) = 0;
    virtual void RemoveObserver(ILoginManagerObserver* pObserver) = 0;
    virtual void AddObserver(IUserManagerObserve* pObserver) = 0;
    virtual void RemoveObserver(IUserManagerObserve* pObserver) = 0;

    /// The rights object, null while nobody is signed in. Owned by the manager.
    virtual IUserRight* GetUserRight() = 0;
    /// The entries that the user may open, in the order of the platform. Any thread, no round trip.
    virtual std::vector<MenuRight_t> GetMenuRights() = 0;
    /// Name of the signed-in account; empty: nobody.
    virtual std::string GetUserName() = 0;
    /// What the signed-in user may give: "1" every right there is, "2" most of them, any other text those of
    /// an operator.
    virtual std::string GetUserTypeText() = 0;
    /// The session's token for addresses of uploads and downloads; empty: nobody is signed in.
    virtual std::string GetToken() = 0;

    virtual int QueryUserPage(const UserPageRequest_t& request) = 0;
    virtual int QueryUserInfo(const std::string& sUserName) = 0;
    virtual int AddUser(const User_t& user) = 0;
    virtual int ModifyUser(const User_t& user) = 0;
    virtual int LockUser(const std::string& sUserName) = 0;
    virtual int UnlockUser(const std::string& sUserName) = 0;
    virtual int DeleteUsers(const std::vector<std::string>& vecUserNames) = 0;
    /// The roles of a user, with their rights.
    virtual int QueryUserRole(const std::string& sUserName) = 0;

    virtual int QueryRoleList() = 0;
    virtual int QueryRoleInfo(const std::string& sRoleId) = 0;
    virtual int AddRole(const RoleEdit_t& edit) = 0;
    virtual int ModifyRole(const RoleEdit_t& edit) = 0;
    /// A role that users hold is refused.
    virtual int DeleteRoles(const std::vector<std::string>& vecRoleIds) = 0;

    virtual int QueryMenuRightList() = 0;
    virtual int QueryFuncRightList() = 0;
    /// What lies below one node of the tree of organisations, devices and channels.
    virtual int QueryDeviceRights(const DeviceRightQuery_t& query) = 0;
    virtual int QueryDeviceAccess(const std::string& sDeviceId) = 0;

    /// Users of the directory that are not users of the platform yet. sSearchText: part of the name; empty:
    /// all.
    virtual int QueryDomainUsers(const std::string& sSearchText) = 0;
    virtual int AddDomainUsers(
        const std::vector<std::string>& vecUserNames, const std::vector<std::string>& vecRoleIds) = 0;
    /// The platform's domain users that the directory no longer holds.
    virtual int QueryInvalidDomainUsers() = 0;
    virtual int DeleteInvalidDomainUsers(const std::vector<std::string>& vecUserNames) = 0;

    virtual int QueryAuditPage(const AuditRequest_t& request) = 0;
    /// As QueryAuditPage, for writing a file.
    virtual int ExportAudit(const AuditRequest_t& request) = 0;
};

} // namespace UserLogical

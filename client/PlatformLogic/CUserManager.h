#pragma once

#include "ObserverList.h"
#include "PlatformLogicExport.h"

#include <UserLogical/IUserManager.h>

#include <mutex>
#include <set>

namespace wire {
struct Session;
}

namespace PlatformLogic {

class IServerConnection;

/// The signed-in user as the server last told, and the server's accounts, roles and log. Any thread.
class PLATFORMLOGIC_EXPORT CUserManager : public UserLogical::IUserManager, private UserLogical::IUserRight
{
public:
    /// The connection is borrowed and outlives the manager's requests.
    explicit CUserManager(IServerConnection& connection);

    void AddObserver(UserLogical::ILoginManagerObserver* pObserver) override;
    void RemoveObserver(UserLogical::ILoginManagerObserver* pObserver) override;
    void AddObserver(UserLogical::IUserManagerObserve* pObserver) override;
    void RemoveObserver(UserLogical::IUserManagerObserve* pObserver) override;
    UserLogical::IUserRight* GetUserRight() override;
    std::vector<UserLogical::MenuRight_t> GetMenuRights() override;
    std::string GetUserName() override;
    std::string GetUserTypeText() override;
    std::string GetToken() override;

    int QueryUserPage(const UserLogical::UserPageRequest_t& request) override;
    int QueryUserInfo(const std::string& sUserName) override;
    int AddUser(const UserLogical::User_t& user) override;
    int ModifyUser(const UserLogical::User_t& user) override;
    int LockUser(const std::string& sUserName) override;
    int UnlockUser(const std::string& sUserName) override;
    int DeleteUsers(const std::vector<std::string>& vecUserNames) override;
    int QueryUserRole(const std::string& sUserName) override;
    int QueryRoleList() override;
    int QueryRoleInfo(const std::string& sRoleId) override;
    int AddRole(const UserLogical::RoleEdit_t& edit) override;
    int ModifyRole(const UserLogical::RoleEdit_t& edit) override;
    int DeleteRoles(const std::vector<std::string>& vecRoleIds) override;
    int QueryMenuRightList() override;
    int QueryFuncRightList() override;
    int QueryDeviceRights(const UserLogical::DeviceRightQuery_t& query) override;
    int QueryDeviceAccess(const std::string& sDeviceId) override;
    int QueryDomainUsers(const std::string& sSearchText) override;
    int AddDomainUsers(
        const std::vector<std::string>& vecUserNames, const std::vector<std::string>& vecRoleIds) override;
    int QueryInvalidDomainUsers() override;
    int DeleteInvalidDomainUsers(const std::vector<std::string>& vecUserNames) override;
    int QueryAuditPage(const UserLogical::AuditRequest_t& request) override;
    int ExportAudit(const UserLogical::AuditRequest_t& request) override;

    /// True when the rights are others than before.
    bool SetSession(const wire::Session& session);
    void ClearSession();
    int GetOrganizationLevelLimit();
    /// Tell the observers of something that the server pushed, or that happened to the connection.
    void NotifyLogin(int nResultCode, int nErrorCode = 0);
    void NotifyPush(int nResultCode);

private:
    using Param = UserLogical::IUserManagerObserve::Param;

    bool HasRight(const std::string& sRightCode) override;
    /// Sends the operation; take(param, data) moves the answer's data into the observers' record.
    template <class Op, class Take>
    int Call(int nResultCode, const typename Op::Request& request, Take take);
    void Notify(Param&& param);

    IServerConnection& m_connection;
    std::mutex m_mutex;
    bool m_bSignedIn = false;
    std::string m_sUserName;
    std::string m_sUserType;
    std::string m_sToken;
    std::vector<UserLogical::MenuRight_t> m_vecMenuRights;
    std::set<std::string> m_setRights;
    int m_nOrganizationLevelLimit = 0;
    ObserverList<UserLogical::ILoginManagerObserver> m_loginObservers;
    ObserverList<UserLogical::IUserManagerObserve> m_observers;
};

} // namespace PlatformLogic

#pragma once

#include "FakeManager.h"

#include <UserLogical/IUserManager.h>

/// A signed-in user who has every right but those that the test takes away, and the platform's users, roles
/// and log. The argument of a call is what the operation took, several as a pair.
class FakeUserManager : public UserLogical::IUserManager, public UserLogical::IUserRight
{
public:
    using LoginObserver = UserLogical::ILoginManagerObserver;
    using Observer = UserLogical::IUserManagerObserve;
    using Param = Observer::Param;
    using Names = std::vector<std::string>;

    void AddObserver(LoginObserver* pObserver) override { login.Add(pObserver); }
    void RemoveObserver(LoginObserver* pObserver) override { login.Remove(pObserver); }
    void AddObserver(Observer* pObserver) override { users.Add(pObserver); }
    void RemoveObserver(Observer* pObserver) override { users.Remove(pObserver); }
    UserLogical::IUserRight* GetUserRight() override { return this; }
    std::vector<UserLogical::MenuRight_t> GetMenuRights() override { return vecMenuRights; }
    std::string GetUserName() override { return sUserName; }
    std::string GetUserTypeText() override { return sTypeText; }
    std::string GetToken() override { return "0123456789abcdef"; }
    bool HasRight(const std::string& sRightCode) override { return setMissing.count(sRightCode) == 0; }

    int QueryUserPage(const UserLogical::UserPageRequest_t& request) override
    {
        return users.Call("QueryUserPage", Observer::ResultQueryUserPage, request);
    }
    int QueryUserInfo(const std::string& sName) override
    {
        return users.Call("QueryUserInfo", Observer::ResultQueryUserInfo, sName);
    }
    int AddUser(const UserLogical::User_t& user) override
    {
        return users.Call("AddUser", Observer::ResultAddUser, user);
    }
    int ModifyUser(const UserLogical::User_t& user) override
    {
        return users.Call("ModifyUser", Observer::ResultModifyUser, user);
    }
    int LockUser(const std::string& sName) override
    {
        return users.Call("LockUser", Observer::ResultLockUser, sName);
    }
    int UnlockUser(const std::string& sName) override
    {
        return users.Call("UnlockUser", Observer::ResultUnlockUser, sName);
    }
    int DeleteUsers(const Names& vecNames) override
    {
        return users.Call("DeleteUsers", Observer::ResultDeleteUsers, vecNames);
    }
    int QueryUserRole(const std::string& sName) override
    {
        return users.Call("QueryUserRole", Observer::ResultQueryUserRole, sName);
    }
    int QueryRoleList() override { return users.Call("QueryRoleList", Observer::ResultQueryRoleList); }
    int QueryRoleInfo(const std::string& sRoleId) override
    {
        return users.Call("QueryRoleInfo", Observer::ResultQueryRoleInfo, sRoleId);
    }
    int AddRole(const UserLogical::RoleEdit_t& edit) override
    {
        return users.Call("AddRole", Observer::ResultAddRole, edit);
    }
    int ModifyRole(const UserLogical::RoleEdit_t& edit) override
    {
        return users.Call("ModifyRole", Observer::ResultModifyRole, edit);
    }
    int DeleteRoles(const Names& vecRoleIds) override
    {
        return users.Call("DeleteRoles", Observer::ResultDeleteRoles, vecRoleIds);
    }
    int QueryMenuRightList() override
    {
        return users.Call("QueryMenuRightList", Observer::ResultQueryMenuRightList);
    }
    int QueryFuncRightList() override
    {
        return users.Call("QueryFuncRightList", Observer::ResultQueryFuncRightList);
    }
    int QueryDeviceRights(const UserLogical::DeviceRightQuery_t& query) override
    {
        return users.Call("QueryDeviceRights", Observer::ResultQueryDeviceRights, query);
    }
    int QueryDeviceAccess(const std::string& sDeviceId) override
    {
        return users.Call("QueryDeviceAccess", Observer::ResultQueryDeviceAccess, sDeviceId);
    }
    int QueryDomainUsers(const std::string& sSearchText) override
    {
        return users.Call("QueryDomainUsers", Observer::ResultQueryDomainUsers, sSearchText);
    }
    int AddDomainUsers(const Names& vecNames, const Names& vecRoleIds) override
    {
        return users.Call("AddDomainUsers", Observer::ResultAddDomainUsers, std::pair(vecNames, vecRoleIds));
    }
    int QueryInvalidDomainUsers() override
    {
        return users.Call("QueryInvalidDomainUsers", Observer::ResultQueryInvalidDomainUsers);
    }
    int DeleteInvalidDomainUsers(const Names& vecNames) override
    {
        return users.Call("DeleteInvalidDomainUsers", Observer::ResultDeleteInvalidDomainUsers, vecNames);
    }
    int QueryAuditPage(const UserLogical::AuditRequest_t& request) override
    {
        return users.Call("QueryAuditPage", Observer::ResultQueryAuditPage, request);
    }
    int ExportAudit(const UserLogical::AuditRequest_t& request) override
    {
        return users.Call("ExportAudit", Observer::ResultExportAudit, request);
    }

    /// Answers the queries of the pages at once: users, roles with their rights, the platform's rights, and a
    /// tree of two organisations with devices and channels.
    void ServePlatform();

    std::string sUserName = "operator";
    std::string sTypeText = "1";
    std::vector<UserLogical::MenuRight_t> vecMenuRights;
    std::set<std::string> setMissing; ///< rights that the user does not have
    std::vector<UserLogical::UserInfo_t> vecUsers;
    std::vector<UserLogical::Role_t> vecRoles;
    FakeManager<LoginObserver, LoginObserver::Param> login{&LoginObserver::OnNotifyLoginManagerState};
    FakeManager<Observer, Param> users{&Observer::OnNotifyUserManagerState};
};

/// That user manager alone, as a source of managers.
class RightsSource : public FakeUserManager, public VxPluginAPI::IAbstractResourceManager
{
public:
    VxPluginAPI::IManager* FindManager(const std::string& sInterfaceId) override
    {
        return sInterfaceId == UserLogical::IUserManager::InterfaceId ? static_cast<IUserManager*>(this)
                                                                      : nullptr;
    }
};

#include "CUserManager.h"

#include "ServerCall.h"

namespace PlatformLogic {

using namespace UserLogical;
using Result = IUserManagerObserve;

namespace {

constexpr auto TakeUser = [](Result::Param& param, User_t&& user) {
    if (param.nErrorCode == UICommonMdl::ErrorNone)
        param.optUser = std::move(user);
};
constexpr auto TakeRole = [](Result::Param& param, Role_t&& role) {
    if (param.nErrorCode == UICommonMdl::ErrorNone)
        param.vecRoles.push_back(std::move(role));
};
constexpr auto TakeRoles = [](Result::Param& param, wire::Roles&& answer) {
    param.vecRoles = std::move(answer.vecRoles);
};
constexpr auto TakeFailedUsers = [](Result::Param& param, wire::UserFailures&& answer) {
    param.vecFailed = std::move(answer.vecFailed);
};
constexpr auto TakeRights = [](Result::Param& param, wire::RightNodes&& answer) {
    param.vecRights = std::move(answer.vecRights);
};
constexpr auto TakeDomainUsers = [](Result::Param& param, wire::DomainUsers&& answer) {
    param.vecDomainUsers = std::move(answer.vecDomainUsers);
    param.bTruncated = answer.bTruncated;
};
constexpr auto TakeAudit = [](Result::Param& param, AuditPage_t&& page) {
    param.auditPage = std::move(page);
};

} // namespace

CUserManager::CUserManager(IServerConnection& connection)
    : m_connection(connection)
{
}

void CUserManager::AddObserver(ILoginManagerObserver* pObserver)
{
    m_loginObservers.Add(pObserver);
}

void CUserManager::RemoveObserver(ILoginManagerObserver* pObserver)
{
    m_loginObservers.Remove(pObserver);
}

void CUserManager::AddObserver(IUserManagerObserve* pObserver)
{
    m_observers.Add(pObserver);
}

void CUserManager::RemoveObserver(IUserManagerObserve* pObserver)
{
    m_observers.Remove(pObserver);
}

IUserRight* CUserManager::GetUserRight()
{
    const std::lock_guard lock(m_mutex);
    return m_bSignedIn ? this : nullptr;
}

std::vector<MenuRight_t> CUserManager::GetMenuRights()
{
    const std::lock_guard lock(m_mutex);
    return m_vecMenuRights;
}

std::string CUserManager::GetUserName()
{
    const std::lock_guard lock(m_mutex);
    return m_sUserName;
}

std::string CUserManager::GetUserTypeText()
{
    const std::lock_guard lock(m_mutex);
    return m_sUserType;
}

std::string CUserManager::GetToken()
{
    const std::lock_guard lock(m_mutex);
    return m_sToken;
}

bool CUserManager::HasRight(const std::string& sRightCode)
{
    const std::lock_guard lock(m_mutex);
    return m_setRights.contains(sRightCode);
}

bool CUserManager::SetSession(const wire::Session& session)
{
    const std::lock_guard lock(m_mutex);
    std::set<std::string> setRights(session.vecRights.begin(), session.vecRights.end());
    const bool bChanged = setRights != m_setRights || session.vecMenuRights != m_vecMenuRights;
    m_bSignedIn = true;
    m_sUserName = session.sUserName;
    m_sUserType = session.sUserType;
    // Only the answer to a sign-in carries it.
    if (!session.sToken.empty())
        m_sToken = session.sToken;
    m_vecMenuRights = session.vecMenuRights;
    m_setRights = std::move(setRights);
    m_nOrganizationLevelLimit = session.nOrganizationLevelLimit;
    return bChanged;
}

void CUserManager::ClearSession()
{
    const std::lock_guard lock(m_mutex);
    m_bSignedIn = false;
    m_sUserName.clear();
    m_sUserType.clear();
    m_sToken.clear();
    m_vecMenuRights.clear();
    m_setRights.clear();
}

int CUserManager::GetOrganizationLevelLimit()
{
    const std::lock_guard lock(m_mutex);
    return m_nOrganizationLevelLimit;
}

void CUserManager::NotifyLogin(int nResultCode, int nErrorCode)
{
    const auto pAnswer = std::make_shared<const ILoginManagerObserver::Param>(
        ILoginManagerObserver::Param{nResultCode, nErrorCode});
    m_loginObservers.ForEach([&](auto& observer) { observer.OnNotifyLoginManagerState(pAnswer); });
}

void CUserManager::NotifyPush(int nResultCode)
{
    Param param;
    param.nResultCode = nResultCode;
    Notify(std::move(param));
}

void CUserManager::Notify(Param&& param)
{
    const auto pAnswer = std::make_shared<const Param>(std::move(param));
    m_observers.ForEach([&](auto& observer) { observer.OnNotifyUserManagerState(pAnswer); });
}

template <class Op, class Take>
int CUserManager::Call(int nResultCode, const typename Op::Request& request, Take take)
{
    if (!GetUserRight())
        return 0;
    return CallServer<Op>(
        m_connection, request, [this, nResultCode, take](TypedAnswer<typename Op::Answer>&& answer) {
            Param param;
            param.nResultCode = nResultCode;
            param.nSequence = answer.nSequence;
            param.nErrorCode = answer.nErrorCode;
            param.sErrorDetail = std::move(answer.sDetail);
            take(param, std::move(answer.data));
            Notify(std::move(param));
        });
}

int CUserManager::QueryUserPage(const UserPageRequest_t& request)
{
    return Call<wire::QueryUserPage>(Result::ResultQueryUserPage, request,
        [](Param& param, UserPage_t&& page) { param.userPage = std::move(page); });
}

int CUserManager::QueryUserInfo(const std::string& sUserName)
{
    return Call<wire::QueryUserInfo>(Result::ResultQueryUserInfo, {sUserName}, TakeUser);
}

int CUserManager::AddUser(const User_t& user)
{
    return Call<wire::AddUser>(Result::ResultAddUser, user, TakeUser);
}

int CUserManager::ModifyUser(const User_t& user)
{
    return Call<wire::ModifyUser>(Result::ResultModifyUser, user, TakeUser);
}

int CUserManager::LockUser(const std::string& sUserName)
{
    return Call<wire::LockUser>(Result::ResultLockUser, {sUserName}, TakeNothing);
}

int CUserManager::UnlockUser(const std::string& sUserName)
{
    return Call<wire::UnlockUser>(Result::ResultUnlockUser, {sUserName}, TakeNothing);
}

int CUserManager::DeleteUsers(const std::vector<std::string>& vecUserNames)
{
    return Call<wire::DeleteUsers>(Result::ResultDeleteUsers, {vecUserNames}, TakeFailedUsers);
}

int CUserManager::QueryUserRole(const std::string& sUserName)
{
    return Call<wire::QueryUserRole>(Result::ResultQueryUserRole, {sUserName}, TakeRoles);
}

int CUserManager::QueryRoleList()
{
    return Call<wire::QueryRoleList>(Result::ResultQueryRoleList, {}, TakeRoles);
}

int CUserManager::QueryRoleInfo(const std::string& sRoleId)
{
    return Call<wire::QueryRoleInfo>(Result::ResultQueryRoleInfo, {sRoleId}, TakeRole);
}

int CUserManager::AddRole(const RoleEdit_t& edit)
{
    return Call<wire::AddRole>(Result::ResultAddRole, edit, TakeRole);
}

int CUserManager::ModifyRole(const RoleEdit_t& edit)
{
    return Call<wire::ModifyRole>(Result::ResultModifyRole, edit, TakeRole);
}

int CUserManager::DeleteRoles(const std::vector<std::string>& vecRoleIds)
{
    return Call<wire::DeleteRoles>(Result::ResultDeleteRoles, {vecRoleIds}, TakeFailedUsers);
}

int CUserManager::QueryMenuRightList()
{
    return Call<wire::QueryMenuRightList>(Result::ResultQueryMenuRightList, {}, TakeRights);
}

int CUserManager::QueryFuncRightList()
{
    return Call<wire::QueryFuncRightList>(Result::ResultQueryFuncRightList, {}, TakeRights);
}

int CUserManager::QueryDeviceRights(const DeviceRightQuery_t& query)
{
    return Call<wire::QueryDeviceRights>(Result::ResultQueryDeviceRights, query,
        [](Param& param, wire::DeviceRightNodes&& answer) { param.vecNodes = std::move(answer.vecNodes); });
}

int CUserManager::QueryDeviceAccess(const std::string& sDeviceId)
{
    return Call<wire::QueryDeviceAccess>(Result::ResultQueryDeviceAccess, {sDeviceId},
        [](Param& param, wire::DeviceAccesses&& answer) { param.vecAccess = std::move(answer.vecAccess); });
}

int CUserManager::QueryDomainUsers(const std::string& sSearchText)
{
    return Call<wire::QueryDomainUsers>(Result::ResultQueryDomainUsers, {sSearchText}, TakeDomainUsers);
}

int CUserManager::AddDomainUsers(
    const std::vector<std::string>& vecUserNames, const std::vector<std::string>& vecRoleIds)
{
    return Call<wire::AddDomainUsers>(
        Result::ResultAddDomainUsers, {vecUserNames, vecRoleIds}, TakeFailedUsers);
}

int CUserManager::QueryInvalidDomainUsers()
{
    return Call<wire::QueryInvalidDomainUsers>(Result::ResultQueryInvalidDomainUsers, {}, TakeDomainUsers);
}

int CUserManager::DeleteInvalidDomainUsers(const std::vector<std::string>& vecUserNames)
{
    return Call<wire::DeleteInvalidDomainUsers>(
        Result::ResultDeleteInvalidDomainUsers, {vecUserNames}, TakeFailedUsers);
}

int CUserManager::QueryAuditPage(const AuditRequest_t& request)
{
    return Call<wire::QueryAuditPage>(Result::ResultQueryAuditPage, request, TakeAudit);
}

int CUserManager::ExportAudit(const AuditRequest_t& request)
{
    return Call<wire::ExportAudit>(Result::ResultExportAudit, request, TakeAudit);
}

} // namespace PlatformLogic

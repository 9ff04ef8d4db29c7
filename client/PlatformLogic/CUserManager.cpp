#include "CUserManager.h"

#include <wire/Records.h>

namespace PlatformLogic {

void CUserManager::AddObserver(UserLogical::IUserManagerObserver* pObserver)
{
    m_observers.Add(pObserver);
}

void CUserManager::RemoveObserver(UserLogical::IUserManagerObserver* pObserver)
{
    m_observers.Remove(pObserver);
}

UserLogical::IUserRight* CUserManager::GetUserRight()
{
    const std::lock_guard lock(m_mutex);
    return m_bSignedIn ? this : nullptr;
}

std::vector<UserLogical::MenuRight_t> CUserManager::GetMenuRights()
{
    const std::lock_guard lock(m_mutex);
    return m_vecMenuRights;
}

std::string CUserManager::GetUserName()
{
    const std::lock_guard lock(m_mutex);
    return m_sUserName;
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
    m_sToken.clear();
    m_vecMenuRights.clear();
    m_setRights.clear();
}

int CUserManager::GetOrganizationLevelLimit()
{
    const std::lock_guard lock(m_mutex);
    return m_nOrganizationLevelLimit;
}

void CUserManager::Notify(int nResultCode, int nErrorCode)
{
    const UserLogical::IUserManagerObserver::Param param{nResultCode, nErrorCode};
    m_observers.ForEach([&](auto& observer) { observer.OnNotifyUserManagerState(param); });
}

} // namespace PlatformLogic

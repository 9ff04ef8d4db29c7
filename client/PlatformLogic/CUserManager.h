#pragma once

#include "ObserverList.h"

#include <UserLogical/IUserManager.h>

#include <mutex>
#include <set>

namespace wire {
struct Session;
}

namespace PlatformLogic {

/// The signed-in user as the server last told. Any thread.
class CUserManager : public UserLogical::IUserManager, private UserLogical::IUserRight
{
public:
    void AddObserver(UserLogical::IUserManagerObserver* pObserver) override;
    void RemoveObserver(UserLogical::IUserManagerObserver* pObserver) override;
    UserLogical::IUserRight* GetUserRight() override;
    std::vector<UserLogical::MenuRight_t> GetMenuRights() override;
    std::string GetUserName() override;
    std::string GetToken() override;

    /// True when the rights are others than before.
    bool SetSession(const wire::Session& session);
    void ClearSession();
    int GetOrganizationLevelLimit();
    void Notify(int nResultCode, int nErrorCode);

private:
    bool HasRight(const std::string& sRightCode) override;

    std::mutex m_mutex;
    bool m_bSignedIn = false;
    std::string m_sUserName;
    std::string m_sToken;
    std::vector<UserLogical::MenuRight_t> m_vecMenuRights;
    std::set<std::string> m_setRights;
    int m_nOrganizationLevelLimit = 0;
    ObserverList<UserLogical::IUserManagerObserver> m_observers;
};

} // namespace PlatformLogic

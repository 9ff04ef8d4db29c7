#pragma once

#include "FakeManager.h"

#include <UserLogical/IUserManager.h>

/// A signed-in user who has every right but those that the test takes away.
class FakeUserManager : public UserLogical::IUserManager, public UserLogical::IUserRight
{
public:
    using Observer = UserLogical::IUserManagerObserver;

    void AddObserver(Observer* pObserver) override { pushes.Add(pObserver); }
    void RemoveObserver(Observer* pObserver) override { pushes.Remove(pObserver); }
    UserLogical::IUserRight* GetUserRight() override { return this; }
    std::vector<UserLogical::MenuRight_t> GetMenuRights() override { return vecMenuRights; }
    std::string GetUserName() override { return "operator"; }
    std::string GetToken() override { return "0123456789abcdef"; }
    bool HasRight(const std::string& sRightCode) override { return setMissing.count(sRightCode) == 0; }

    std::vector<UserLogical::MenuRight_t> vecMenuRights;
    std::set<std::string> setMissing; ///< rights that the user does not have
    FakeManager<Observer, Observer::Param> pushes{&Observer::OnNotifyUserManagerState};
};

#pragma once

#include <PlatformLogic/CUserManager.h>
#include <VxPluginAPI/IAbstractResourceManager.h>
#include <tests/support/fakes/FakeServer.h>

#include <utility>

/// The user manager alone, of a signed-in user with those entries, connected with a server that is not there.
class RightsSource : public VxPluginAPI::IAbstractResourceManager
{
public:
    explicit RightsSource(std::vector<UserLogical::MenuRight_t> vecMenuRights = {})
    {
        wire::Session session;
        session.vecMenuRights = std::move(vecMenuRights);
        m_manager.SetSession(session);
    }
    /// What is open is answered while the manager that it belongs to still stands.
    ~RightsSource() { server.Stop(); }

    VxPluginAPI::IManager* FindManager(const std::string& sInterfaceId) override
    {
        return sInterfaceId == UserLogical::IUserManager::InterfaceId ? &m_manager : nullptr;
    }

    FakeServer server;

private:
    PlatformLogic::CUserManager m_manager{server};
};

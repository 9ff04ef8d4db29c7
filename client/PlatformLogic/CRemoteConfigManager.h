#pragma once

#include "ObserverList.h"

#include <RemoteConfigLogical/IRemoteConfigManager.h>

#include <atomic>

namespace PlatformLogic {

class CServerConnection;
class CUserManager;

/// Device states, dictionary and the state of the connection.
class CRemoteConfigManager : public RemoteConfigLogical::IRemoteConfigManager
{
public:
    /// Both are borrowed and outlive the manager.
    CRemoteConfigManager(CServerConnection& connection, CUserManager& userManager);

    void AddObserver(RemoteConfigLogical::IRemoteDeviceObserver* pObserver) override;
    void RemoveObserver(RemoteConfigLogical::IRemoteDeviceObserver* pObserver) override;
    void AddObserver(RemoteConfigLogical::ISystemConfigObserver* pObserver) override;
    void RemoveObserver(RemoteConfigLogical::ISystemConfigObserver* pObserver) override;
    bool IsServerConnected() override { return m_bConnected; }
    int QueryDictionary() override;

    /// Tells the observers of device states that the server pushed.
    void NotifyStates(const std::vector<RemoteConfigLogical::DeviceState_t>& vecStates);
    /// Keeps the state of the connection and tells the observers when it is another one.
    void SetServerConnected(bool bConnected);

private:
    void Notify(const RemoteConfigLogical::ISystemConfigObserver::Param& param);

    CServerConnection& m_connection;
    CUserManager& m_userManager;
    std::atomic<bool> m_bConnected{true};
    ObserverList<RemoteConfigLogical::IRemoteDeviceObserver> m_deviceObservers;
    ObserverList<RemoteConfigLogical::ISystemConfigObserver> m_systemObservers;
};

} // namespace PlatformLogic

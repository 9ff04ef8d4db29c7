#include "CRemoteConfigManager.h"

#include "CUserManager.h"
#include "ServerCall.h"

namespace PlatformLogic {

using RemoteConfigLogical::IRemoteDeviceObserver;
using RemoteConfigLogical::ISystemConfigObserver;

CRemoteConfigManager::CRemoteConfigManager(CServerConnection& connection, CUserManager& userManager)
    : m_connection(connection)
    , m_userManager(userManager)
{
}

void CRemoteConfigManager::AddObserver(IRemoteDeviceObserver* pObserver)
{
    m_deviceObservers.Add(pObserver);
}

void CRemoteConfigManager::RemoveObserver(IRemoteDeviceObserver* pObserver)
{
    m_deviceObservers.Remove(pObserver);
}

void CRemoteConfigManager::AddObserver(ISystemConfigObserver* pObserver)
{
    m_systemObservers.Add(pObserver);
}

void CRemoteConfigManager::RemoveObserver(ISystemConfigObserver* pObserver)
{
    m_systemObservers.Remove(pObserver);
}

int CRemoteConfigManager::QueryDictionary()
{
    if (!m_userManager.GetUserRight())
        return 0;
    return CallServer<wire::GetDictionary>(
        m_connection, {}, [this](TypedAnswer<RemoteConfigLogical::Dictionary_t>&& answer) {
            Notify({ISystemConfigObserver::ResultQueryDictionary, answer.nSequence, answer.nErrorCode,
                std::move(answer.data)});
        });
}

void CRemoteConfigManager::Notify(const ISystemConfigObserver::Param& param)
{
    m_systemObservers.ForEach(
        [&](ISystemConfigObserver& observer) { observer.OnNotifySystemConfigState(param); });
}

void CRemoteConfigManager::NotifyStates(const std::vector<RemoteConfigLogical::DeviceState_t>& vecStates)
{
    const IRemoteDeviceObserver::Param param{IRemoteDeviceObserver::ResultDeviceState, 0, 0, vecStates};
    m_deviceObservers.ForEach(
        [&](IRemoteDeviceObserver& observer) { observer.OnNotifyRemoteDeviceState(param); });
}

void CRemoteConfigManager::SetServerConnected(bool bConnected)
{
    if (m_bConnected.exchange(bConnected) == bConnected)
        return;
    Notify({bConnected ? ISystemConfigObserver::ResultServerReconnected
                       : ISystemConfigObserver::ResultServerDisconnected,
        0, 0, {}});
}

} // namespace PlatformLogic

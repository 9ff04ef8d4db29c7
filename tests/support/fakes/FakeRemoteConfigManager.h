#pragma once

#include "FakeManager.h"

#include <RemoteConfigLogical/IRemoteConfigManager.h>

/// Pushes of the devices' states, and of the connection.
class FakeRemoteConfigManager : public RemoteConfigLogical::IRemoteConfigManager
{
public:
    using DeviceObserver = RemoteConfigLogical::IRemoteDeviceObserver;
    using SystemObserver = RemoteConfigLogical::ISystemConfigObserver;

    void AddObserver(DeviceObserver* pObserver) override { devices.Add(pObserver); }
    void RemoveObserver(DeviceObserver* pObserver) override { devices.Remove(pObserver); }
    void AddObserver(SystemObserver* pObserver) override { system.Add(pObserver); }
    void RemoveObserver(SystemObserver* pObserver) override { system.Remove(pObserver); }
    bool IsServerConnected() override { return bConnected; }
    int QueryDictionary() override
    {
        return system.Call("QueryDictionary", SystemObserver::ResultQueryDictionary);
    }

    void PushState(const std::vector<RemoteConfigLogical::DeviceState_t>& vecStates)
    {
        devices.Send({DeviceObserver::ResultDeviceState, 0, 0, vecStates});
    }
    void PushConnected(bool bNowConnected)
    {
        bConnected = bNowConnected;
        SystemObserver::Param param;
        param.nResultCode = bNowConnected ? SystemObserver::ResultServerReconnected
                                          : SystemObserver::ResultServerDisconnected;
        system.Send(param);
    }

    bool bConnected = true;
    FakeManager<DeviceObserver, DeviceObserver::Param> devices{&DeviceObserver::OnNotifyRemoteDeviceState};
    FakeManager<SystemObserver, SystemObserver::Param> system{&SystemObserver::OnNotifySystemConfigState};
};

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
    int QueryFeatures() override { return system.Call("QueryFeatures", SystemObserver::ResultQueryFeatures); }
    int QueryVideoServers() override
    {
        return system.Call("QueryVideoServers", SystemObserver::ResultQueryVideoServers);
    }
    int QueryTimeZone() override { return system.Call("QueryTimeZone", SystemObserver::ResultQueryTimeZone); }
    int SearchOnlineDevice(const std::string& sStartIp, const std::string& sEndIp) override
    {
        return devices.Call(
            "SearchOnlineDevice", DeviceObserver::ResultSearchDevice, std::pair(sStartIp, sEndIp));
    }
    void StopSearch(int nSequence) override { vecStopped.push_back(nSequence); }
    int InitializeDevice(const std::vector<RemoteConfigLogical::InitializeDevice_t>& vecDevices,
        const std::string& sPassword, const std::string& sContact) override
    {
        return devices.Call("InitializeDevice", DeviceObserver::ResultInitializeDevice,
            std::tuple(vecDevices, sPassword, sContact));
    }
    int ModifyAddress(const std::vector<RemoteConfigLogical::ModifyAddress_t>& vecDevices) override
    {
        return devices.Call("ModifyAddress", DeviceObserver::ResultModifyAddress, vecDevices);
    }
    int ModifyDevicePassword(const std::vector<std::string>& vecDeviceIds, const std::string& sOldPassword,
        const std::string& sNewPassword) override
    {
        return devices.Call("ModifyDevicePassword", DeviceObserver::ResultModifyPassword,
            std::tuple(vecDeviceIds, sOldPassword, sNewPassword));
    }
    int SetDeviceTimeZone(const std::vector<std::string>& vecDeviceIds,
        const RemoteConfigLogical::TimeZoneSetting_t& setting) override
    {
        return devices.Call(
            "SetDeviceTimeZone", DeviceObserver::ResultSetTimeZone, std::pair(vecDeviceIds, setting));
    }
    int QueryP2PDeviceList(const std::string& sUserName, const std::string& sPassword) override
    {
        return devices.Call(
            "QueryP2PDeviceList", DeviceObserver::ResultP2PDeviceList, std::pair(sUserName, sPassword));
    }

    void PushState(const std::vector<RemoteConfigLogical::DeviceState_t>& vecStates)
    {
        DeviceObserver::Param param;
        param.nResultCode = DeviceObserver::ResultDeviceState;
        param.vecStates = vecStates;
        devices.Send(param);
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
    std::vector<int> vecStopped; ///< searches that were stopped
    FakeManager<DeviceObserver, DeviceObserver::Param> devices{&DeviceObserver::OnNotifyRemoteDeviceState};
    FakeManager<SystemObserver, SystemObserver::Param> system{&SystemObserver::OnNotifySystemConfigState};
};

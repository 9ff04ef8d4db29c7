#pragma once

#include "ObserverList.h"
#include "PlatformLogicExport.h"

#include <RemoteConfigLogical/IRemoteConfigManager.h>

#include <atomic>
#include <functional>
#include <map>
#include <mutex>
#include <set>

namespace PlatformLogic {

class CUserManager;
class IServerConnection;

/// Device states, dictionary and the state of the connection.
class PLATFORMLOGIC_EXPORT CRemoteConfigManager : public RemoteConfigLogical::IRemoteConfigManager
{
public:
    /// Both are borrowed and outlive the manager.
    CRemoteConfigManager(IServerConnection& connection, CUserManager& userManager);

    void AddObserver(RemoteConfigLogical::IRemoteDeviceObserver* pObserver) override;
    void RemoveObserver(RemoteConfigLogical::IRemoteDeviceObserver* pObserver) override;
    void AddObserver(RemoteConfigLogical::ISystemConfigObserver* pObserver) override;
    void RemoveObserver(RemoteConfigLogical::ISystemConfigObserver* pObserver) override;
    bool IsServerConnected() override { return m_bConnected; }
    int QueryDictionary() override;
    int QueryFeatures() override;
    int QueryVideoServers() override;
    int QueryTimeZone() override;
    int SearchOnlineDevice(const std::string& sStartIp, const std::string& sEndIp) override;
    void StopSearch(int nSequence) override;
    int InitializeDevice(const std::vector<RemoteConfigLogical::InitializeDevice_t>& vecDevices,
        const std::string& sPassword, const std::string& sContact) override;
    int ModifyAddress(const std::vector<RemoteConfigLogical::ModifyAddress_t>& vecDevices) override;
    int ModifyDevicePassword(const std::vector<std::string>& vecDeviceIds, const std::string& sOldPassword,
        const std::string& sNewPassword) override;
    int SetDeviceTimeZone(const std::vector<std::string>& vecDeviceIds,
        const RemoteConfigLogical::TimeZoneSetting_t& setting) override;
    int QueryP2PDeviceList(const std::string& sUserName, const std::string& sPassword) override;

    /// Tells the observers of device states that the server pushed.
    void NotifyStates(const std::vector<RemoteConfigLogical::DeviceState_t>& vecStates);
    /// Keeps the state of the connection and tells the observers when it is another one.
    void SetServerConnected(bool bConnected);

private:
    using DeviceParam = RemoteConfigLogical::IRemoteDeviceObserver::Param;
    using SystemParam = RemoteConfigLogical::ISystemConfigObserver::Param;

    /// Sends a query; take(param, data) moves the answer's data into the observers' record.
    template <class Op, class Take>
    int Query(int nResultCode, Take take);
    /// Starts a job on devices; take(param, report) moves what is new into the observers' record.
    template <class Op, class Take>
    int Work(int nResultCode, const typename Op::Request& request, Take take,
        std::function<void(int, const std::string&)> started = {});
    void OnSearchStarted(int nSequence, const std::string& sJob);
    void Notify(DeviceParam&& param);
    void Notify(SystemParam&& param);

    IServerConnection& m_connection;
    CUserManager& m_userManager;
    std::atomic<bool> m_bConnected{true};
    std::mutex m_mutex; ///< guards the two below
    std::map<int, std::string> m_mapSearches; ///< jobs of the searches that run, by request
    std::set<int> m_setStopped; ///< searches that are to stop as soon as their job is known
    ObserverList<RemoteConfigLogical::IRemoteDeviceObserver> m_deviceObservers;
    ObserverList<RemoteConfigLogical::ISystemConfigObserver> m_systemObservers;
};

} // namespace PlatformLogic

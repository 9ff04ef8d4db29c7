#include "CRemoteConfigManager.h"

#include "CUserManager.h"
#include "JobFollower.h"

namespace PlatformLogic {

using RemoteConfigLogical::IRemoteDeviceObserver;
using RemoteConfigLogical::ISystemConfigObserver;

CRemoteConfigManager::CRemoteConfigManager(IServerConnection& connection, CUserManager& userManager)
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

template <class Op, class Take>
int CRemoteConfigManager::Query(int nResultCode, Take take)
{
    if (!m_userManager.GetUserRight())
        return 0;
    return CallServer<Op>(
        m_connection, {}, [this, nResultCode, take](TypedAnswer<typename Op::Answer>&& answer) {
            SystemParam param;
            param.nResultCode = nResultCode;
            param.nSequence = answer.nSequence;
            param.nErrorCode = answer.nErrorCode;
            take(param, std::move(answer.data));
            Notify(std::move(param));
        });
}

template <class Op, class Take>
int CRemoteConfigManager::Work(int nResultCode, const typename Op::Request& request, Take take,
    std::function<void(int, const std::string&)> started)
{
    if (!m_userManager.GetUserRight())
        return 0;
    return StartJob<Op>(
        m_connection, request,
        [this, nResultCode, take](const JobReport& report) {
            DeviceParam param;
            param.nResultCode = nResultCode;
            param.nSequence = report.nSequence;
            param.nErrorCode = report.nErrorCode;
            param.sErrorDetail = report.sDetail;
            param.bFinal = report.bFinal;
            take(param, report);
            Notify(std::move(param));
        },
        std::move(started));
}

int CRemoteConfigManager::QueryDictionary()
{
    return Query<wire::GetDictionary>(ISystemConfigObserver::ResultQueryDictionary,
        [](SystemParam& param, RemoteConfigLogical::Dictionary_t&& dictionary) {
            param.dictionary = std::move(dictionary);
        });
}

int CRemoteConfigManager::QueryFeatures()
{
    return Query<wire::GetFeatures>(ISystemConfigObserver::ResultQueryFeatures,
        [](SystemParam& param, RemoteConfigLogical::Features_t&& features) {
            param.features = std::move(features);
        });
}

int CRemoteConfigManager::QueryVideoServers()
{
    return Query<wire::QueryVideoServers>(
        ISystemConfigObserver::ResultQueryVideoServers, [](SystemParam& param, wire::VideoServers&& servers) {
            param.vecServers = std::move(servers.vecServers);
        });
}

int CRemoteConfigManager::QueryTimeZone()
{
    return Query<wire::GetTimeZone>(ISystemConfigObserver::ResultQueryTimeZone,
        [](SystemParam& param, RemoteConfigLogical::PlatformTime_t&& time) {
            param.platformTime = std::move(time);
        });
}

namespace {
constexpr auto TakeResults = [](IRemoteDeviceObserver::Param& param, const JobReport& report) {
    param.vecResults = ItemsOf<RemoteConfigLogical::ModifyDevicePasswordResultInfo_t>(report);
};
} // namespace

int CRemoteConfigManager::SearchOnlineDevice(const std::string& sStartIp, const std::string& sEndIp)
{
    return Work<wire::SearchOnlineDevice>(
        IRemoteDeviceObserver::ResultSearchDevice, {sStartIp, sEndIp},
        [this](DeviceParam& param, const JobReport& report) {
            param.vecFound = ItemsOf<RemoteConfigLogical::SearchDeviceInfo_t>(report);
            if (!report.bFinal)
                return;
            const std::lock_guard lock(m_mutex);
            m_mapSearches.erase(report.nSequence);
            m_setStopped.erase(report.nSequence);
        },
        [this](int nSequence, const std::string& sJob) { OnSearchStarted(nSequence, sJob); });
}

void CRemoteConfigManager::OnSearchStarted(int nSequence, const std::string& sJob)
{
    {
        const std::lock_guard lock(m_mutex);
        m_mapSearches[nSequence] = sJob;
        if (m_setStopped.count(nSequence) == 0)
            return;
    }
    StopSearch(nSequence);
}

void CRemoteConfigManager::StopSearch(int nSequence)
{
    std::string sJob;
    {
        const std::lock_guard lock(m_mutex);
        const auto it = m_mapSearches.find(nSequence);
        if (it == m_mapSearches.end()) {
            m_setStopped.insert(nSequence);
            return;
        }
        sJob = it->second;
    }
    CallServer<wire::CancelJob>(m_connection, {sJob}, [](TypedAnswer<wire::Nothing>&&) {});
}

int CRemoteConfigManager::InitializeDevice(
    const std::vector<RemoteConfigLogical::InitializeDevice_t>& vecDevices, const std::string& sPassword,
    const std::string& sContact)
{
    return Work<wire::InitializeDevice>(
        IRemoteDeviceObserver::ResultInitializeDevice, {vecDevices, sPassword, sContact}, TakeResults);
}

int CRemoteConfigManager::ModifyAddress(const std::vector<RemoteConfigLogical::ModifyAddress_t>& vecDevices)
{
    return Work<wire::ModifyAddress>(IRemoteDeviceObserver::ResultModifyAddress, {vecDevices}, TakeResults);
}

int CRemoteConfigManager::ModifyDevicePassword(const std::vector<std::string>& vecDeviceIds,
    const std::string& sOldPassword, const std::string& sNewPassword)
{
    return Work<wire::ModifyDevicePassword>(
        IRemoteDeviceObserver::ResultModifyPassword, {vecDeviceIds, sOldPassword, sNewPassword}, TakeResults);
}

int CRemoteConfigManager::SetDeviceTimeZone(
    const std::vector<std::string>& vecDeviceIds, const RemoteConfigLogical::TimeZoneSetting_t& setting)
{
    return Work<wire::SetDeviceTimeZone>(IRemoteDeviceObserver::ResultSetTimeZone, {vecDeviceIds, setting},
        [](DeviceParam& param, const JobReport& report) {
            param.vecTimeZones = ItemsOf<RemoteConfigLogical::TimeZoneResult_t>(report);
        });
}

int CRemoteConfigManager::QueryP2PDeviceList(const std::string& sUserName, const std::string& sPassword)
{
    if (!m_userManager.GetUserRight())
        return 0;
    return CallServer<wire::QueryCloudDevices>(
        m_connection, {sUserName, sPassword}, [this](TypedAnswer<wire::CloudDevices>&& answer) {
            DeviceParam param;
            param.nResultCode = IRemoteDeviceObserver::ResultP2PDeviceList;
            param.nSequence = answer.nSequence;
            param.nErrorCode = answer.nErrorCode;
            param.sErrorDetail = std::move(answer.sDetail);
            param.nCloudCode = answer.data.nCloudCode;
            if (param.nErrorCode == UICommonMdl::ErrorNone && param.nCloudCode != 0)
                param.nErrorCode = UICommonMdl::ErrorCloudRefused;
            param.vecP2PDevices = std::move(answer.data.vecDevices);
            Notify(std::move(param));
        });
}

void CRemoteConfigManager::Notify(DeviceParam&& param)
{
    const auto pAnswer = std::make_shared<const DeviceParam>(std::move(param));
    m_deviceObservers.ForEach(
        [&](IRemoteDeviceObserver& observer) { observer.OnNotifyRemoteDeviceState(pAnswer); });
}

void CRemoteConfigManager::Notify(SystemParam&& param)
{
    const auto pAnswer = std::make_shared<const SystemParam>(std::move(param));
    m_systemObservers.ForEach(
        [&](ISystemConfigObserver& observer) { observer.OnNotifySystemConfigState(pAnswer); });
}

void CRemoteConfigManager::NotifyStates(const std::vector<RemoteConfigLogical::DeviceState_t>& vecStates)
{
    DeviceParam param;
    param.nResultCode = IRemoteDeviceObserver::ResultDeviceState;
    param.vecStates = vecStates;
    Notify(std::move(param));
}

void CRemoteConfigManager::SetServerConnected(bool bConnected)
{
    if (m_bConnected.exchange(bConnected) == bConnected)
        return;
    SystemParam param;
    param.nResultCode = bConnected ? ISystemConfigObserver::ResultServerReconnected
                                   : ISystemConfigObserver::ResultServerDisconnected;
    Notify(std::move(param));
}

} // namespace PlatformLogic

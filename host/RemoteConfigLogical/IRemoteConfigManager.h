#pragma once

#include <RemoteConfigLogical/RemoteConfigRecords.h>
#include <VxPluginAPI/IAbstractResourceManager.h>
#include <VxPluginAPI/IObserver.h>

#include <memory>

namespace RemoteConfigLogical {

/// What happens on the devices themselves.
class IRemoteDeviceObserver : public VxPluginAPI::IObserver
{
public:
    enum ResultCode : int
    {
        ResultDeviceState = 1, ///< pushed: devices came online or went offline
        ResultSearchDevice = 2,
        ResultInitializeDevice = 3,
        ResultModifyAddress = 4,
        ResultP2PDeviceList = 5,
        ResultModifyPassword = 6,
        ResultSetTimeZone = 7,
    };
    struct Param
    {
        int nResultCode = 0; ///< ResultCode
        int nSequence = 0; ///< 0: pushed by the server
        int nErrorCode = 0; ///< UICommonMdl::ErrorCode
        std::vector<DeviceState_t> vecStates;
        std::string sErrorDetail; ///< the server's own words on the error, may be empty
        /// False for a report on a request that goes on: more with its number follow.
        bool bFinal = true;
        SearchDeviceInfoVec vecFound; ///< search: found since the last report
        /// Password, initialisation, address: the devices that are done since the last report, good or bad.
        ModifyDevicePasswordResultInfoVec vecResults;
        std::vector<TimeZoneResult_t> vecTimeZones; ///< time zone: as vecResults
        std::vector<P2PDevice_t> vecP2PDevices;
        int nCloudCode = 0; ///< with ErrorCloudRefused: the account service's reply code
    };
    /// Shared by all who hear it and never changed.
    using Answer = std::shared_ptr<const Param>;
    /// Comes on a thread of the host: keep the pointer or leave it, and return.
    virtual void OnNotifyRemoteDeviceState(const Answer& pAnswer) = 0;
};

/// What concerns the platform as a whole.
class ISystemConfigObserver : public VxPluginAPI::IObserver
{
public:
    enum ResultCode : int
    {
        ResultQueryDictionary = 1,
        ResultQueryFeatures,
        ResultQueryVideoServers,
        ResultQueryTimeZone,
        ResultServerDisconnected =
            100, ///< the connection to the server is lost; the host tries again by itself
        ResultServerReconnected, ///< and is back: what was shown may be out of date
    };
    struct Param
    {
        int nResultCode = 0; ///< ResultCode
        int nSequence = 0;
        int nErrorCode = 0; ///< UICommonMdl::ErrorCode
        Dictionary_t dictionary;
        Features_t features;
        std::vector<VideoServer_t> vecServers;
        PlatformTime_t platformTime;
    };
    /// Shared by all who hear it and never changed.
    using Answer = std::shared_ptr<const Param>;
    /// Comes on a thread of the host: keep the pointer or leave it, and return.
    virtual void OnNotifySystemConfigState(const Answer& pAnswer) = 0;
};

/// Device-side and platform-wide configuration. Calls and answers as GroupLogical::IGroupManager describes
/// them.
class IRemoteConfigManager : public VxPluginAPI::IManager
{
public:
    static constexpr const char* InterfaceId = "RemoteConfigLogical.IRemoteConfigManager(1.0)";

    virtual void AddObserver(IRemoteDeviceObserver* pObserver) = 0;
    virtual void RemoveObserver(IRemoteDeviceObserver* pObserver) = 0;
    virtual void AddObserver(ISystemConfigObserver* pObserver) = 0;
    virtual void RemoveObserver(ISystemConfigObserver* pObserver) = 0;

    /// False while the connection to the server is lost.
    virtual bool IsServerConnected() = 0;
    virtual int QueryDictionary() = 0;
    virtual int QueryFeatures() = 0;
    virtual int QueryVideoServers() = 0;
    /// The platform's time zone.
    virtual int QueryTimeZone() = 0;

    // What runs on devices: reports (bFinal false) bring what is done so far, the last one is final. A device
    // that fails fails alone; an error code means that the request as a whole failed.

    /// Looks for devices between two IPv4 addresses (65,536 at most); both empty: on the local network, by
    /// multicast.
    virtual int SearchOnlineDevice(const std::string& sStartIp, const std::string& sEndIp) = 0;
    /// Ends a search early; its final report follows.
    virtual void StopSearch(int nSequence) = 0;
    /// sContact may be empty.
    virtual int InitializeDevice(const std::vector<InitializeDevice_t>& vecDevices,
        const std::string& sPassword, const std::string& sContact) = 0;
    virtual int ModifyAddress(const std::vector<ModifyAddress_t>& vecDevices) = 0;
    virtual int ModifyDevicePassword(const std::vector<std::string>& vecDeviceIds,
        const std::string& sOldPassword, const std::string& sNewPassword) = 0;
    virtual int SetDeviceTimeZone(
        const std::vector<std::string>& vecDeviceIds, const TimeZoneSetting_t& setting) = 0;
    /// The devices of an account of the cloud service.
    virtual int QueryP2PDeviceList(const std::string& sUserName, const std::string& sPassword) = 0;
};

} // namespace RemoteConfigLogical

#pragma once

#include <RemoteConfigLogical/RemoteConfigRecords.h>
#include <VxPluginAPI/IAbstractResourceManager.h>
#include <VxPluginAPI/IObserver.h>

namespace RemoteConfigLogical {

/// What happens on the devices themselves.
class IRemoteDeviceObserver : public VxPluginAPI::IObserver
{
public:
    enum ResultCode : int
    {
        ResultDeviceState = 1, ///< pushed: devices came online or went offline
    };
    struct Param
    {
        int nResultCode = 0; ///< ResultCode
        int nSequence = 0; ///< 0: pushed by the server
        int nErrorCode = 0; ///< UICommonMdl::ErrorCode
        std::vector<DeviceState_t> vecStates;
    };
    /// Comes on a thread of the host: copy the record and leave.
    virtual void OnNotifyRemoteDeviceState(const Param& param) = 0;
};

/// What concerns the platform as a whole.
class ISystemConfigObserver : public VxPluginAPI::IObserver
{
public:
    enum ResultCode : int
    {
        ResultQueryDictionary = 1,
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
    };
    /// Comes on a thread of the host: copy the record and leave.
    virtual void OnNotifySystemConfigState(const Param& param) = 0;
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
};

} // namespace RemoteConfigLogical

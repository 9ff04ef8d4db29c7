#include "ObserverAdapters.h"

namespace Common {

void RegisterSignalTypes()
{
    qRegisterMetaType<AccessControlLogical::IDepartmentManagerObserver::Param>(
        "AccessControlLogical::IDepartmentManagerObserver::Param");
    qRegisterMetaType<AccessControlLogical::IPersonManagerObserver::Param>(
        "AccessControlLogical::IPersonManagerObserver::Param");
    qRegisterMetaType<AccessControlLogical::IAccessControlManagerObserver::Param>(
        "AccessControlLogical::IAccessControlManagerObserver::Param");
    qRegisterMetaType<GroupLogical::DeviceAddInfo_t>("GroupLogical::DeviceAddInfo_t");
    qRegisterMetaType<GroupLogical::IGroupManagerObserver::Param>(
        "GroupLogical::IGroupManagerObserver::Param");
    qRegisterMetaType<RemoteConfigLogical::SearchDeviceInfoVec>("RemoteConfigLogical::SearchDeviceInfoVec");
    qRegisterMetaType<RemoteConfigLogical::ModifyDevicePasswordResultInfoVec>(
        "RemoteConfigLogical::ModifyDevicePasswordResultInfoVec");
    qRegisterMetaType<RemoteConfigLogical::IRemoteDeviceObserver::Param>(
        "RemoteConfigLogical::IRemoteDeviceObserver::Param");
    qRegisterMetaType<RemoteConfigLogical::ISystemConfigObserver::Param>(
        "RemoteConfigLogical::ISystemConfigObserver::Param");
    qRegisterMetaType<UserLogical::ILoginManagerObserver::Param>("UserLogical::ILoginManagerObserver::Param");
    qRegisterMetaType<UserLogical::IUserManagerObserve::Param>("UserLogical::IUserManagerObserve::Param");
}

CGroupManagerAdapter::CGroupManagerAdapter(GroupLogical::IGroupManager* pManager, QObject* pParent)
    : QObject(pParent)
    , m_registration((RegisterSignalTypes(), pManager), this)
{
}

void CGroupManagerAdapter::OnNotifyGroupManagerState(const Param& param)
{
    Q_EMIT SignalState(param);
}

CRemoteDeviceAdapter::CRemoteDeviceAdapter(
    RemoteConfigLogical::IRemoteConfigManager* pManager, QObject* pParent)
    : QObject(pParent)
    , m_registration((RegisterSignalTypes(), pManager), this)
{
}

void CRemoteDeviceAdapter::OnNotifyRemoteDeviceState(const Param& param)
{
    Q_EMIT SignalState(param);
}

CSystemConfigAdapter::CSystemConfigAdapter(
    RemoteConfigLogical::IRemoteConfigManager* pManager, QObject* pParent)
    : QObject(pParent)
    , m_registration((RegisterSignalTypes(), pManager), this)
{
}

void CSystemConfigAdapter::OnNotifySystemConfigState(const Param& param)
{
    Q_EMIT SignalState(param);
}

CDepartmentManagerAdapter::CDepartmentManagerAdapter(
    AccessControlLogical::IAccessControlManager* pManager, QObject* pParent)
    : QObject(pParent)
    , m_registration((RegisterSignalTypes(), pManager), this)
{
}

void CDepartmentManagerAdapter::OnNotifyDepartmentManagerState(const Param& param)
{
    Q_EMIT SignalState(param);
}

CPersonManagerAdapter::CPersonManagerAdapter(
    AccessControlLogical::IAccessControlManager* pManager, QObject* pParent)
    : QObject(pParent)
    , m_registration((RegisterSignalTypes(), pManager), this)
{
}

void CPersonManagerAdapter::OnNotifyPersonManagerState(const Param& param)
{
    Q_EMIT SignalState(param);
}

CAccessControlAdapter::CAccessControlAdapter(
    AccessControlLogical::IAccessControlManager* pManager, QObject* pParent)
    : QObject(pParent)
    , m_registration((RegisterSignalTypes(), pManager), this)
{
}

void CAccessControlAdapter::OnNotifyAccessControlManagerState(const Param& param)
{
    Q_EMIT SignalState(param);
}

CUserManagerAdapter::CUserManagerAdapter(UserLogical::IUserManager* pManager, QObject* pParent)
    : QObject(pParent)
    , m_registration((RegisterSignalTypes(), pManager), this)
{
}

void CUserManagerAdapter::OnNotifyUserManagerState(const Param& param)
{
    Q_EMIT SignalState(param);
}

CLoginManagerAdapter::CLoginManagerAdapter(UserLogical::IUserManager* pManager, QObject* pParent)
    : QObject(pParent)
    , m_registration((RegisterSignalTypes(), pManager), this)
{
}

void CLoginManagerAdapter::OnNotifyLoginManagerState(const Param& param)
{
    Q_EMIT SignalState(param);
}

} // namespace Common

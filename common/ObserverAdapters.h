#pragma once

#include <GroupLogical/IGroupManager.h>
#include <RemoteConfigLogical/IRemoteConfigManager.h>

#include <QMetaType>
#include <QObject>

Q_DECLARE_METATYPE(GroupLogical::DeviceAddInfo_t)
Q_DECLARE_METATYPE(GroupLogical::IGroupManagerObserver::Param)
Q_DECLARE_METATYPE(RemoteConfigLogical::SearchDeviceInfoVec)
Q_DECLARE_METATYPE(RemoteConfigLogical::ModifyDevicePasswordResultInfoVec)
Q_DECLARE_METATYPE(RemoteConfigLogical::IRemoteDeviceObserver::Param)
Q_DECLARE_METATYPE(RemoteConfigLogical::ISystemConfigObserver::Param)

namespace Common {

/// Makes the records above known to queued signals. May be called any number of times.
void RegisterSignalTypes();

/// An observer's registration: made with the object, ended with it. Declare it as the last member, so that no
/// callback meets a half-destroyed observer.
template <class Manager, class Observer>
class CObserverRegistration
{
public:
    /// Both are borrowed; a null manager registers nothing.
    CObserverRegistration(Manager* pManager, Observer* pObserver)
        : m_pManager(pManager)
        , m_pObserver(pObserver)
    {
        if (m_pManager)
            m_pManager->AddObserver(m_pObserver);
    }
    ~CObserverRegistration() { Release(); }
    CObserverRegistration(const CObserverRegistration&) = delete;
    CObserverRegistration& operator=(const CObserverRegistration&) = delete;

    /// Ends the registration early.
    void Release()
    {
        if (m_pManager)
            m_pManager->RemoveObserver(m_pObserver);
        m_pManager = nullptr;
    }

private:
    Manager* m_pManager;
    Observer* m_pObserver;
};

/// Hears the group manager for a dialog or a part of a page. The signal is emitted on the host's thread:
/// connect it queued.
class CGroupManagerAdapter : public QObject, private GroupLogical::IGroupManagerObserver
{
    Q_OBJECT

public:
    explicit CGroupManagerAdapter(GroupLogical::IGroupManager* pManager, QObject* pParent = nullptr);

Q_SIGNALS:
    void SignalState(const GroupLogical::IGroupManagerObserver::Param& param);

private:
    void OnNotifyGroupManagerState(const Param& param) override;

    CObserverRegistration<GroupLogical::IGroupManager, GroupLogical::IGroupManagerObserver> m_registration;
};

/// As CGroupManagerAdapter, for what happens on devices.
class CRemoteDeviceAdapter : public QObject, private RemoteConfigLogical::IRemoteDeviceObserver
{
    Q_OBJECT

public:
    explicit CRemoteDeviceAdapter(
        RemoteConfigLogical::IRemoteConfigManager* pManager, QObject* pParent = nullptr);

Q_SIGNALS:
    void SignalState(const RemoteConfigLogical::IRemoteDeviceObserver::Param& param);

private:
    void OnNotifyRemoteDeviceState(const Param& param) override;

    CObserverRegistration<RemoteConfigLogical::IRemoteConfigManager,
        RemoteConfigLogical::IRemoteDeviceObserver>
        m_registration;
};

/// As CGroupManagerAdapter, for what concerns the platform as a whole.
class CSystemConfigAdapter : public QObject, private RemoteConfigLogical::ISystemConfigObserver
{
    Q_OBJECT

public:
    explicit CSystemConfigAdapter(
        RemoteConfigLogical::IRemoteConfigManager* pManager, QObject* pParent = nullptr);

Q_SIGNALS:
    void SignalState(const RemoteConfigLogical::ISystemConfigObserver::Param& param);

private:
    void OnNotifySystemConfigState(const Param& param) override;

    CObserverRegistration<RemoteConfigLogical::IRemoteConfigManager,
        RemoteConfigLogical::ISystemConfigObserver>
        m_registration;
};

} // namespace Common

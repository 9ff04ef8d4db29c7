#pragma once

#include <AccessControlLogical/IAccessControlManager.h>
#include <GroupLogical/IGroupManager.h>
#include <RemoteConfigLogical/IRemoteConfigManager.h>
#include <UserLogical/IUserManager.h>

#include <QMetaType>
#include <QObject>

Q_DECLARE_METATYPE(AccessControlLogical::IDepartmentManagerObserver::Param)
Q_DECLARE_METATYPE(AccessControlLogical::IPersonManagerObserver::Param)
Q_DECLARE_METATYPE(AccessControlLogical::IAccessControlManagerObserver::Param)
Q_DECLARE_METATYPE(GroupLogical::DeviceAddInfo_t)
Q_DECLARE_METATYPE(GroupLogical::IGroupManagerObserver::Param)
Q_DECLARE_METATYPE(RemoteConfigLogical::SearchDeviceInfoVec)
Q_DECLARE_METATYPE(RemoteConfigLogical::ModifyDevicePasswordResultInfoVec)
Q_DECLARE_METATYPE(RemoteConfigLogical::IRemoteDeviceObserver::Param)
Q_DECLARE_METATYPE(RemoteConfigLogical::ISystemConfigObserver::Param)
Q_DECLARE_METATYPE(UserLogical::ILoginManagerObserver::Param)
Q_DECLARE_METATYPE(UserLogical::IUserManagerObserve::Param)

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

/// As CGroupManagerAdapter, for the tree of person groups.
class CDepartmentManagerAdapter : public QObject, private AccessControlLogical::IDepartmentManagerObserver
{
    Q_OBJECT

public:
    explicit CDepartmentManagerAdapter(
        AccessControlLogical::IAccessControlManager* pManager, QObject* pParent = nullptr);

Q_SIGNALS:
    void SignalState(const AccessControlLogical::IDepartmentManagerObserver::Param& param);

private:
    void OnNotifyDepartmentManagerState(const Param& param) override;

    CObserverRegistration<AccessControlLogical::IAccessControlManager,
        AccessControlLogical::IDepartmentManagerObserver>
        m_registration;
};

/// As CGroupManagerAdapter, for persons.
class CPersonManagerAdapter : public QObject, private AccessControlLogical::IPersonManagerObserver
{
    Q_OBJECT

public:
    explicit CPersonManagerAdapter(
        AccessControlLogical::IAccessControlManager* pManager, QObject* pParent = nullptr);

Q_SIGNALS:
    void SignalState(const AccessControlLogical::IPersonManagerObserver::Param& param);

private:
    void OnNotifyPersonManagerState(const Param& param) override;

    CObserverRegistration<AccessControlLogical::IAccessControlManager,
        AccessControlLogical::IPersonManagerObserver>
        m_registration;
};

/// As CGroupManagerAdapter, for access records.
class CAccessControlAdapter : public QObject, private AccessControlLogical::IAccessControlManagerObserver
{
    Q_OBJECT

public:
    explicit CAccessControlAdapter(
        AccessControlLogical::IAccessControlManager* pManager, QObject* pParent = nullptr);

Q_SIGNALS:
    void SignalState(const AccessControlLogical::IAccessControlManagerObserver::Param& param);

private:
    void OnNotifyAccessControlManagerState(const Param& param) override;

    CObserverRegistration<AccessControlLogical::IAccessControlManager,
        AccessControlLogical::IAccessControlManagerObserver>
        m_registration;
};

/// As CGroupManagerAdapter, for users, roles and the log.
class CUserManagerAdapter : public QObject, private UserLogical::IUserManagerObserve
{
    Q_OBJECT

public:
    explicit CUserManagerAdapter(UserLogical::IUserManager* pManager, QObject* pParent = nullptr);

Q_SIGNALS:
    void SignalState(const UserLogical::IUserManagerObserve::Param& param);

private:
    void OnNotifyUserManagerState(const Param& param) override;

    CObserverRegistration<UserLogical::IUserManager, UserLogical::IUserManagerObserve> m_registration;
};

/// As CGroupManagerAdapter, for the signed-in user's session.
class CLoginManagerAdapter : public QObject, private UserLogical::ILoginManagerObserver
{
    Q_OBJECT

public:
    explicit CLoginManagerAdapter(UserLogical::IUserManager* pManager, QObject* pParent = nullptr);

Q_SIGNALS:
    void SignalState(const UserLogical::ILoginManagerObserver::Param& param);

private:
    void OnNotifyLoginManagerState(const Param& param) override;

    CObserverRegistration<UserLogical::IUserManager, UserLogical::ILoginManagerObserver> m_registration;
};

} // namespace Common

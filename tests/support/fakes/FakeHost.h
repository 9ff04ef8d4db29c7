#pragma once

#include "FakeSite.h"
#include "FakeTransferManager.h"

#include <PlatformLogic/CAccessControlManager.h>
#include <PlatformLogic/CEventRouter.h>
#include <PlatformLogic/CGroupManager.h>
#include <PlatformLogic/CRemoteConfigManager.h>
#include <PlatformLogic/CUserManager.h>
#include <UICommonMdl/CInterfaceSetManager.h>
#include <UICommonMdl/ILocalConfig.h>

#include <QMap>

/// Settings in memory.
class FakeLocalConfig : public UICommonMdl::ILocalConfig
{
public:
    QVariant GetValue(const QString& sKey, const QVariant& vDefault) override
    {
        return mapValues.value(sKey, vDefault);
    }
    void SetValue(const QString& sKey, const QVariant& vValue) override { mapValues[sKey] = vValue; }

    QMap<QString, QVariant> mapValues;
};

/// A manager that counts its observers.
template <class Manager, class... Observers>
class Counted : public Manager
{
public:
    using Manager::Manager;
    int nObservers = 0;
};
template <class Manager, class Observer, class... Others>
class Counted<Manager, Observer, Others...> : public Counted<Manager, Others...>
{
public:
    using Base = Counted<Manager, Others...>;
    using Base::AddObserver;
    using Base::Base;
    using Base::RemoveObserver;

    void AddObserver(Observer* pObserver) override
    {
        ++this->nObservers;
        Base::AddObserver(pObserver);
    }
    void RemoveObserver(Observer* pObserver) override
    {
        --this->nObservers;
        Base::RemoveObserver(pObserver);
    }
};

/// The host of a signed-in user who has every right: its managers, connected with a server that is not there.
/// Transfers do not go by its connection; they have a fake of their own.
class FakeHost : public VxPluginAPI::IAbstractResourceManager
{
public:
    FakeHost();
    ~FakeHost();
    VxPluginAPI::IManager* FindManager(const std::string& sInterfaceId) override;

    /// What the session is on the server, which tells of it.
    void ApplySession();
    /// The user has every right but these from now on.
    void SetMissingRights(const std::set<std::string>& setMissing);
    /// The connection was lost, or is back.
    void PushConnected(bool bConnected);
    /// Registrations with any manager, without those of the host itself.
    int CountObservers() const;

    wire::Session session;
    FakeServer server;
    FakeSite site{server};
    Counted<PlatformLogic::CUserManager, UserLogical::ILoginManagerObserver, UserLogical::IUserManagerObserve>
        user{server};
    Counted<PlatformLogic::CGroupManager, GroupLogical::IGroupManagerObserver> group{server, user};
    Counted<PlatformLogic::CRemoteConfigManager, RemoteConfigLogical::IRemoteDeviceObserver,
        RemoteConfigLogical::ISystemConfigObserver>
        remote{server, user};
    Counted<PlatformLogic::CAccessControlManager, AccessControlLogical::IDepartmentManagerObserver,
        AccessControlLogical::IPersonManagerObserver, AccessControlLogical::IAccessControlManagerObserver>
        access{server, user};
    FakeLocalConfig config;
    FakeTransferManager transfer;
    UICommonMdl::CInterfaceSetManager interfaceSet;

private:
    PlatformLogic::CEventRouter m_router{server, user, group, remote, access};
    int m_nOwnObservers = 0;
};

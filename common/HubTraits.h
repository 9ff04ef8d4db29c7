#pragma once

#include <AccessControlLogical/IAccessControlManager.h>
#include <GroupLogical/IGroupManager.h>
#include <RemoteConfigLogical/IRemoteConfigManager.h>
#include <UICommonMdl/CInterfaceSetManager.h>
#include <UserLogical/IUserManager.h>

namespace Common {

/// What a hub has to know of an observer interface: whose answers it brings, and the callback that brings
/// them. One line an interface, below.
template <class Observer>
class HubObserver;

#define COMMON_HUB_OBSERVER(ObserverType, ManagerType, GetManager, Callback)                                 \
    template <>                                                                                              \
    class HubObserver<ObserverType> : public ObserverType                                                    \
    {                                                                                                        \
    public:                                                                                                  \
        using Manager = ManagerType;                                                                         \
        static Manager* Find(const UICommonMdl::CInterfaceSetManager* pInterfaceSet)                         \
        {                                                                                                    \
            return pInterfaceSet ? pInterfaceSet->GetManager() : nullptr;                                    \
        }                                                                                                    \
                                                                                                             \
    private:                                                                                                 \
        void Callback(const Answer& pAnswer) final { Hear(pAnswer); }                                        \
        virtual void Hear(const Answer& pAnswer) = 0;                                                        \
    }

COMMON_HUB_OBSERVER(GroupLogical::IGroupManagerObserver, GroupLogical::IGroupManager, GetGroupManager,
    OnNotifyGroupManagerState);
COMMON_HUB_OBSERVER(RemoteConfigLogical::IRemoteDeviceObserver, RemoteConfigLogical::IRemoteConfigManager,
    GetRemoteConfigManager, OnNotifyRemoteDeviceState);
COMMON_HUB_OBSERVER(RemoteConfigLogical::ISystemConfigObserver, RemoteConfigLogical::IRemoteConfigManager,
    GetRemoteConfigManager, OnNotifySystemConfigState);
COMMON_HUB_OBSERVER(AccessControlLogical::IDepartmentManagerObserver,
    AccessControlLogical::IAccessControlManager, GetAccessControlManager, OnNotifyDepartmentManagerState);
COMMON_HUB_OBSERVER(AccessControlLogical::IPersonManagerObserver, AccessControlLogical::IAccessControlManager,
    GetAccessControlManager, OnNotifyPersonManagerState);
COMMON_HUB_OBSERVER(AccessControlLogical::IAccessControlManagerObserver,
    AccessControlLogical::IAccessControlManager, GetAccessControlManager, OnNotifyAccessControlManagerState);
COMMON_HUB_OBSERVER(
    UserLogical::IUserManagerObserve, UserLogical::IUserManager, GetUserManager, OnNotifyUserManagerState);
COMMON_HUB_OBSERVER(
    UserLogical::ILoginManagerObserver, UserLogical::IUserManager, GetUserManager, OnNotifyLoginManagerState);

#undef COMMON_HUB_OBSERVER

} // namespace Common

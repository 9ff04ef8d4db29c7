#include "FakeHost.h"

#include <UICommonMdl/CDepartmentModelManager.h>

FakeHost::FakeHost()
{
    interfaceSet.AddAbstractResourceManager(this);
    UICommonMdl::CDepartmentModelManager::Instance()->SetAccessControlManager(&access);
}

FakeHost::~FakeHost()
{
    UICommonMdl::CDepartmentModelManager::Instance()->SetAccessControlManager(nullptr);
}

VxPluginAPI::IManager* FakeHost::FindManager(const std::string& sInterfaceId)
{
    const std::map<std::string, VxPluginAPI::IManager*> mapManagers = {
        {AccessControlLogical::IAccessControlManager::InterfaceId, &access},
        {GroupLogical::IGroupManager::InterfaceId, static_cast<GroupLogical::IGroupManager*>(&group)},
        {RemoteConfigLogical::IRemoteConfigManager::InterfaceId, &remote},
        {UserLogical::IUserManager::InterfaceId, static_cast<UserLogical::IUserManager*>(&user)},
        {UICommonMdl::ILocalConfig::InterfaceId, &config},
        {UICommonMdl::ITransferManager::InterfaceId, static_cast<UICommonMdl::ITransferManager*>(&transfer)}};
    const auto it = mapManagers.find(sInterfaceId);
    return it == mapManagers.end() ? nullptr : it->second;
}

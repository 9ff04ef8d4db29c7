#include <UICommonMdl/CInterfaceSetManager.h>

#include <AccessControlLogical/IAccessControlManager.h>
#include <GroupLogical/IGroupManager.h>
#include <RemoteConfigLogical/IRemoteConfigManager.h>
#include <UICommonMdl/ILocalConfig.h>
#include <UICommonMdl/ITransferManager.h>
#include <UserLogical/IUserManager.h>
#include <VxPluginAPI/IAbstractResourceManager.h>

#include <algorithm>
#include <vector>

namespace UICommonMdl {

struct CInterfaceSetManager::Private
{
    std::vector<VxPluginAPI::IAbstractResourceManager*> vecSources;
};

CInterfaceSetManager::CInterfaceSetManager()
    : m_pPrivate(std::make_unique<Private>())
{
}

CInterfaceSetManager::~CInterfaceSetManager() = default;

bool CInterfaceSetManager::AddAbstractResourceManager(VxPluginAPI::IAbstractResourceManager* pResourceManager)
{
    auto& vecSources = m_pPrivate->vecSources;
    if (!pResourceManager
        || std::find(vecSources.begin(), vecSources.end(), pResourceManager) != vecSources.end())
        return false;
    vecSources.push_back(pResourceManager);
    return true;
}

VxPluginAPI::IManager* CInterfaceSetManager::FindManager(const std::string& sInterfaceId) const
{
    for (VxPluginAPI::IAbstractResourceManager* pSource : m_pPrivate->vecSources) {
        if (VxPluginAPI::IManager* pManager = pSource->FindManager(sInterfaceId))
            return pManager;
    }
    return nullptr;
}

GroupLogical::IGroupManager* CInterfaceSetManager::GetGroupManager() const
{
    return static_cast<GroupLogical::IGroupManager*>(FindManager(GroupLogical::IGroupManager::InterfaceId));
}

RemoteConfigLogical::IRemoteConfigManager* CInterfaceSetManager::GetRemoteConfigManager() const
{
    return static_cast<RemoteConfigLogical::IRemoteConfigManager*>(
        FindManager(RemoteConfigLogical::IRemoteConfigManager::InterfaceId));
}

UserLogical::IUserManager* CInterfaceSetManager::GetUserManager() const
{
    return static_cast<UserLogical::IUserManager*>(FindManager(UserLogical::IUserManager::InterfaceId));
}

AccessControlLogical::IAccessControlManager* CInterfaceSetManager::GetAccessControlManager() const
{
    return static_cast<AccessControlLogical::IAccessControlManager*>(
        FindManager(AccessControlLogical::IAccessControlManager::InterfaceId));
}

ILocalConfig* CInterfaceSetManager::GetLocalConfig() const
{
    return static_cast<ILocalConfig*>(FindManager(ILocalConfig::InterfaceId));
}

ITransferManager* CInterfaceSetManager::GetTransferManager() const
{
    return static_cast<ITransferManager*>(FindManager(ITransferManager::InterfaceId));
}

} // namespace UICommonMdl

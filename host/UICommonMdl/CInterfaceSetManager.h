#pragma once

#include <UICommonMdl/UICommonMdlExport.h>

#include <memory>
#include <string>

namespace VxPluginAPI {
class IAbstractResourceManager;
class IManager;
} // namespace VxPluginAPI
namespace AccessControlLogical {
class IAccessControlManager;
}
namespace GroupLogical {
class IGroupManager;
}
namespace RemoteConfigLogical {
class IRemoteConfigManager;
}
namespace UserLogical {
class IUserManager;
}

namespace UICommonMdl {

class ILocalConfig;
class ITransferManager;

/// The one set of logic interfaces that all pages of a plug-in share. User-interface thread. Managers are
/// borrowed: they belong to the resource managers that were added, and a page never releases one.
class UICOMMONMDL_EXPORT CInterfaceSetManager
{
public:
    CInterfaceSetManager();
    ~CInterfaceSetManager();
    CInterfaceSetManager(const CInterfaceSetManager&) = delete;
    CInterfaceSetManager& operator=(const CInterfaceSetManager&) = delete;

    /// Adds a source of managers (borrowed). False for null and for one that was added before. When several
    /// sources hold the same manager, the one that was added first answers.
    bool AddAbstractResourceManager(VxPluginAPI::IAbstractResourceManager* pResourceManager);

    /// Each is null while no source holds it.
    GroupLogical::IGroupManager* GetGroupManager() const;
    RemoteConfigLogical::IRemoteConfigManager* GetRemoteConfigManager() const;
    UserLogical::IUserManager* GetUserManager() const;
    AccessControlLogical::IAccessControlManager* GetAccessControlManager() const;
    ILocalConfig* GetLocalConfig() const;
    ITransferManager* GetTransferManager() const;

private:
    VxPluginAPI::IManager* FindManager(const std::string& sInterfaceId) const;

    struct Private;
    std::unique_ptr<Private> m_pPrivate;
};

} // namespace UICommonMdl

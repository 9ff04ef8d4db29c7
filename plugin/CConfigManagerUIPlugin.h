#pragma once

#include <VxPluginAPI/IPluginAPI.h>

#include <QObject>

namespace UICommonMdl {
class CInterfaceSetManager;
}

namespace ConfigManagerPlugin {

class CConfigManagerUI;

/// The object that the client finds in the library: owns the user-interface object and the interface set that
/// all pages share. What UninitPlugin does not release stays: the destructor releases neither.
class CConfigManagerUIPlugin : public QObject, public VxPluginAPI::IClientUIPluginAPI
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "org.qt-project.Qt.QStyleFactoryInterface" FILE "ConfigManagerPlugin.json")
    Q_INTERFACES(VxPluginAPI::IClientUIPluginAPI)

public:
    CConfigManagerUIPlugin();

    std::string GetPluginName() override;
    std::string GetPluginRight() override;
    bool AddAbstractResourceManager(VxPluginAPI::IAbstractResourceManager* pResourceManager) override;
    bool Init() override;
    bool Start() override;
    void Stop() override;
    void CreateUI() override;
    void UninitPlugin() override;
    VxPluginAPI::IAbstractUI* GetAbstractUI() override;

private:
    CConfigManagerUI* m_pAbstractUI = nullptr;
    UICommonMdl::CInterfaceSetManager* m_pInterfaceSet;
};

} // namespace ConfigManagerPlugin

#pragma once

#include <VxPluginAPI/IAbstractUI.h>

namespace UICommonMdl {
class CInterfaceSetManager;
}

namespace ConfigManagerPlugin {

class CConfigManagerWidget;

/// Hands out the top-level widget and, by name, the entry objects of the configuration pages.
class CConfigManagerUI : public VxPluginAPI::IAbstractUI
{
public:
    /// pInterfaceSet is borrowed.
    explicit CConfigManagerUI(UICommonMdl::CInterfaceSetManager* pInterfaceSet);

    VxPluginAPI::IAbstractWidget* GetAbstractWidget(const std::string& sName) override;
    VxPluginAPI::IAbstractWidget* FindAbstractWidget(const std::string& sName) override;

    /// Uninitialises and deletes the top-level widget, when there is one.
    void ReleaseWidget();

private:
    CConfigManagerWidget* m_pWidget = nullptr;
    UICommonMdl::CInterfaceSetManager* m_pInterfaceSet;
};

} // namespace ConfigManagerPlugin

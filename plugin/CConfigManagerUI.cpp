#include "CConfigManagerUI.h"

#include "CConfigManagerWidget.h"
#include "PluginTexts.h"

namespace ConfigManagerPlugin {

CConfigManagerUI::CConfigManagerUI(UICommonMdl::CInterfaceSetManager* pInterfaceSet)
    : m_pInterfaceSet(pInterfaceSet)
{
}

VxPluginAPI::IAbstractWidget* CConfigManagerUI::GetAbstractWidget(const std::string& sName)
{
    if (sName == PluginName && !m_pWidget)
        m_pWidget = new CConfigManagerWidget(m_pInterfaceSet);
    return FindAbstractWidget(sName);
}

VxPluginAPI::IAbstractWidget* CConfigManagerUI::FindAbstractWidget(const std::string& sName)
{
    if (sName == PluginName)
        return m_pWidget;
    return m_pWidget ? m_pWidget->FindPage(sName) : nullptr;
}

void CConfigManagerUI::ReleaseWidget()
{
    if (!m_pWidget)
        return;
    m_pWidget->UninitUI();
    delete m_pWidget;
    m_pWidget = nullptr;
}

} // namespace ConfigManagerPlugin

#include "CConfigManagerUIPlugin.h"

#include "CConfigManagerUI.h"
#include "PluginTexts.h"

#include <UICommonMdl/CInterfaceSetManager.h>

namespace ConfigManagerPlugin {

CConfigManagerUIPlugin::CConfigManagerUIPlugin()
    : m_pInterfaceSet(new UICommonMdl::CInterfaceSetManager)
{
    setObjectName(QString::fromLatin1(PluginName));
}

std::string CConfigManagerUIPlugin::GetPluginName()
{
    return PluginName;
}

std::string CConfigManagerUIPlugin::GetPluginRight()
{
    return PluginRight;
}

bool CConfigManagerUIPlugin::AddAbstractResourceManager(
    VxPluginAPI::IAbstractResourceManager* pResourceManager)
{
    return m_pInterfaceSet && m_pInterfaceSet->AddAbstractResourceManager(pResourceManager);
}

bool CConfigManagerUIPlugin::Init()
{
    return true;
}

bool CConfigManagerUIPlugin::Start()
{
    return true;
}

void CConfigManagerUIPlugin::Stop() { }

void CConfigManagerUIPlugin::CreateUI()
{
    if (!m_pAbstractUI)
        m_pAbstractUI = new CConfigManagerUI(m_pInterfaceSet);
}

void CConfigManagerUIPlugin::UninitPlugin()
{
    if (m_pAbstractUI) {
        m_pAbstractUI->ReleaseWidget();
        delete m_pAbstractUI;
        m_pAbstractUI = nullptr;
    }
    delete m_pInterfaceSet;
    m_pInterfaceSet = nullptr;
}

VxPluginAPI::IAbstractUI* CConfigManagerUIPlugin::GetAbstractUI()
{
    return m_pAbstractUI;
}

} // namespace ConfigManagerPlugin

#include "CConfigManagerWidget.h"

#include "CConfigManagerCtrl.h"
#include "PluginTexts.h"

namespace ConfigManagerPlugin {

CConfigManagerWidget::CConfigManagerWidget(UICommonMdl::CInterfaceSetManager* pInterfaceSet)
    : m_pInterfaceSet(pInterfaceSet)
{
}

CConfigManagerWidget::~CConfigManagerWidget() = default;

std::string CConfigManagerWidget::GetWidgetRight()
{
    return PluginRight;
}

std::string CConfigManagerWidget::GetWidgetName()
{
    return PluginName;
}

QWidget* CConfigManagerWidget::GetWidget(QWidget* pParent)
{
    if (!m_pHomePage)
        m_pHomePage = new CConfigManagerCtrl(m_pInterfaceSet, pParent);
    return m_pHomePage;
}

void CConfigManagerWidget::UninitUI()
{
    if (m_pHomePage)
        m_pHomePage->UninitUI();
}

QString CConfigManagerWidget::GetWidgetTitle(const QString&, int)
{
    return {};
}

QString CConfigManagerWidget::GetWidgetIcon()
{
    return {};
}

QString CConfigManagerWidget::GetWidgetTip()
{
    return {};
}

QString CConfigManagerWidget::GetWidgetTitle(const QString& sContext)
{
    return GetWidgetTitle(sContext, 0);
}

QVariant CConfigManagerWidget::GetWidgetProperty()
{
    return {};
}

bool CConfigManagerWidget::OnMsg(int nMsg, QVariant* pValue, void* pArgument)
{
    if (m_pHomePage)
        m_pHomePage->OnMsg(nMsg, pValue, pArgument);
    return true;
}

VxPluginAPI::IAbstractWidget* CConfigManagerWidget::FindPage(const std::string& sName) const
{
    return m_pHomePage ? m_pHomePage->CreateAbstractWidget(sName) : nullptr;
}

} // namespace ConfigManagerPlugin

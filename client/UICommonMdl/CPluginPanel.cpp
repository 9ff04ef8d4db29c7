#include <UICommonMdl/CPluginPanel.h>

#include <UICommonMdl/CBasePanel.h>

namespace UICommonMdl {

CPluginPanel::CPluginPanel(QWidget* pParent)
    : VxTabPanel(pParent)
{
    connect(this, &VxTabPanel::SignalTabClicked, this, [this](const QString& sName) {
        for (QWidget* pWidget = parentWidget(); pWidget; pWidget = pWidget->parentWidget()) {
            if (auto* pPanel = qobject_cast<CBasePanel*>(pWidget)) {
                pPanel->OpenWidget(sName);
                return;
            }
        }
    });
}

void CPluginPanel::SetPluginId(const QString& sPluginId)
{
    m_sPluginId = sPluginId;
}

void CPluginPanel::ReLayout(const QString& sPluginId, const QVector<PanelTabItem>& vecItems)
{
    m_sPluginId = sPluginId;
    Q_UNUSED(vecItems)
    LayoutTabs();
}

void CPluginPanel::AddPanelTab(const QVector<PanelTabItem>& vecItems)
{
    for (const PanelTabItem& item : vecItems)
        AddTab(item.sWidgetName, item.sTitle, item.icon);
}

void CPluginPanel::EnableAutoResizePanel(bool bEnable)
{
    SetAutoResize(bEnable);
}

QString CPluginPanel::GetLayoutKey() const
{
    return m_sPluginId;
}

} // namespace UICommonMdl

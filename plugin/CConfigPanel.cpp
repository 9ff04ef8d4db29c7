#include "CConfigPanel.h"

#include "PluginTexts.h"

namespace ConfigManagerPlugin {

QString PanelId(int nKind)
{
    QString sName = QString::fromLatin1(PluginName);
    switch (nKind) {
    case CConfigPanel::KindPlatform:
        return sName + QStringLiteral("-Platform");
    case CConfigPanel::KindSystem:
        return sName + QStringLiteral("-System");
    case CConfigPanel::KindApplication:
        return sName + QStringLiteral("-Application");
    default:
        return sName;
    }
}

CConfigPanel::CConfigPanel(QWidget* pParent)
    : CPluginPanel(pParent)
{
}

QString CConfigPanel::GetLayoutKey() const
{
    return PanelId(m_nGroupKind);
}

} // namespace ConfigManagerPlugin

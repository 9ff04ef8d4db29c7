#pragma once

#include <UICommonMdl/CPluginPanel.h>

namespace ConfigManagerPlugin {

/// A panel of entries that knows which of the three groups it shows.
class CConfigPanel : public UICommonMdl::CPluginPanel
{
    Q_OBJECT

public:
    enum GroupKind : int
    {
        KindPlatform = 0,
        KindSystem = 1,
        KindApplication = 2
    };

    explicit CConfigPanel(QWidget* pParent = nullptr);

    /// nKind is a GroupKind; others are taken and have no key of their own.
    void SetGroupKind(int nKind) { m_nGroupKind = nKind; }
    QString GetLayoutKey() const override;

private:
    int m_nGroupKind = KindPlatform;
};

/// Id of the panel of a group: the plug-in's name and the group's suffix, the name alone for an unknown kind.
QString PanelId(int nKind);

} // namespace ConfigManagerPlugin

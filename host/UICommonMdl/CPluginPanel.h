#pragma once

#include <UICommonMdl/PanelTypes.h>
#include <UICommonMdl/UICommonMdlExport.h>
#include <VxGUI/VxTabPanel.h>

namespace UICommonMdl {

/// A panel of entries: choosing one opens its page through the CBasePanel that the panel lies in.
/// User-interface thread.
class UICOMMONMDL_EXPORT CPluginPanel : public VxGUI::VxTabPanel
{
    Q_OBJECT

public:
    explicit CPluginPanel(QWidget* pParent = nullptr);

    void SetPluginId(const QString& sPluginId);
    QString GetPluginId() const { return m_sPluginId; }

    /// Prepares the panel for the items: its id, and the order in which they will stand (that of the list).
    void ReLayout(const QString& sPluginId, const QVector<PanelTabItem>& vecItems);
    /// Shows one tab an item, after those that stand there already.
    void AddPanelTab(const QVector<PanelTabItem>& vecItems);
    /// On: the tabs share the panel's width in as many columns as fit; off: they keep their natural width.
    void EnableAutoResizePanel(bool bEnable);

    /// Key under which the arrangement of the panel is known; the base answers the plug-in id.
    virtual QString GetLayoutKey() const;

private:
    QString m_sPluginId;
};

} // namespace UICommonMdl

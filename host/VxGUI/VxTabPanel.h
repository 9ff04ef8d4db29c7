#pragma once

#include <VxGUI/VxGUIExport.h>

#include <QIcon>
#include <QVector>
#include <QWidget>

class QToolButton;

namespace VxGUI {

/// Large icons with their titles, flowing over as many rows as the width asks for; reached by mouse, Tab and
/// arrow keys. Each tab is a QToolButton whose object name is the tab's name. User-interface thread.
class VXGUI_EXPORT VxTabPanel : public QWidget
{
    Q_OBJECT

public:
    explicit VxTabPanel(QWidget* pParent = nullptr);

    void AddTab(const QString& sName, const QString& sTitle, const QIcon& icon);
    void RemoveAllTab();
    int GetTabCount() const { return m_vecTabs.size(); }
    /// The tabs in their order; owned by the panel.
    QVector<QToolButton*> GetTabs() const { return m_vecTabs; }

    void SetAutoResize(bool bEnable);
    /// Lays the tabs out again for the present width.
    void LayoutTabs();

    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int nWidth) const override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    void SignalTabClicked(const QString& sName);

protected:
    void resizeEvent(QResizeEvent* pEvent) override;
    bool eventFilter(QObject* pWatched, QEvent* pEvent) override;

private:
    int ColumnsFor(int nWidth) const;

    QVector<QToolButton*> m_vecTabs;
    bool m_bAutoResize = false;
};

} // namespace VxGUI

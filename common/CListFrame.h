#pragma once

#include "CToolBar.h"

#include <VxGUI/VxEmptyState.h>

#include <QWidget>

class QLineEdit;
class QSplitter;
class QStackedWidget;
class QVBoxLayout;

namespace UICommonMdl {
class CNumberPageCtrl;
class ILocalConfig;
} // namespace UICommonMdl

namespace Common {

class CListStatus;
class CListView;

/// The frame of a list page: tool bar, rows of filters, a tree at the left where there is one, the list or
/// what stands in its place, and below it count, checks and page bar. It knows nothing of what the rows are
/// nor of where they come from. User-interface thread.
class CListFrame : public QWidget
{
    Q_OBJECT

public:
    explicit CListFrame(QWidget* pParent = nullptr);

    /// The parts; their object names may be changed.
    CToolBar* GetToolBar() const { return m_pToolBar; }
    QSplitter* GetSplitter() const { return m_pSplitter; }
    QWidget* GetListSide() const { return m_pListSide; }
    QStackedWidget* GetStack() const { return m_pStack; }
    VxGUI::VxEmptyState* GetState() const { return m_pState; }
    CListStatus* GetStatus() const { return m_pStatus; }
    UICommonMdl::CNumberPageCtrl* GetPager() const { return m_pPager; }
    CListView* GetList() const { return m_pList; }

    /// Puts the list (taken) into the frame. Once.
    void SetList(CListView* pList);
    /// A tree (taken) at the left, that many pixels wide until the user drags the border.
    void SetTree(QWidget* pTree, int nWidth = DefaultTreeWidth);
    /// A row (taken) between tool bar and list; AddTitle: above the tool bar.
    void AddRow(QWidget* pRow);
    void AddTitle(QWidget* pRow);
    /// A panel (taken) at the right of the list.
    void AddPanel(QWidget* pPanel, int nWidth);
    /// A strip (taken) at the right edge, as wide as it needs, beside all the rest.
    void AddStrip(QWidget* pStrip);
    /// A search field (taken) at the right end of the tool bar; Ctrl+F leads to it.
    void SetSearch(QLineEdit* pSearch);
    /// A list that comes whole has no page bar.
    void SetPaged(bool bPaged);
    /// Keeps tree width, page size and columns under "<sPageKey>/TreeWidth", ".../PageSize", ".../Columns".
    /// After list and tree are set. pConfig is borrowed, outlives the frame and may be null.
    void Remember(UICommonMdl::ILocalConfig* pConfig, const QString& sPageKey);

    /// Shows the list.
    void ShowList();
    /// Shows a state in its place; sAction, when not empty, is the caption of a button (SignalStateAction).
    void ShowState(VxGUI::VxEmptyState::Kind kind, const QString& sTitle, const QString& sText = QString(),
        const QString& sAction = QString());
    /// Rows of all pages, and the page that is shown.
    void SetTotal(int nTotal, int nPage = 1);

    /// Whether the server can be reached: tree, rows, list and page bar are disabled while it cannot.
    void SetConnected(bool bConnected);
    bool IsConnected() const { return m_bConnected; }
    /// Needs of actions: the connection to the server; something that is checked (sReason while nothing is).
    Need NeedsConnection() const;
    Need NeedsChecked(const QString& sReason) const;

Q_SIGNALS:
    /// The user wants another page, or all anew with another page size. The page bar tells which.
    void SignalPageWanted();
    /// The button of the state that stands in the list's place.
    void SignalStateAction();

protected:
    void showEvent(QShowEvent* pEvent) override;

private:
    static constexpr int DefaultTreeWidth = 204;

    void SetWidths();
    void OnSplitterMoved();
    void UpdateEnabled();
    void SetTabOrders();

    CToolBar* m_pToolBar;
    QSplitter* m_pSplitter;
    QWidget* m_pListSide;
    QVBoxLayout* m_pListLayout;
    QStackedWidget* m_pStack;
    VxGUI::VxEmptyState* m_pState;
    CListStatus* m_pStatus;
    UICommonMdl::CNumberPageCtrl* m_pPager;
    CListView* m_pList = nullptr;
    QWidget* m_pTree = nullptr;
    int m_nTreeWidth = 0;
    QVector<QWidget*> m_vecRows;
    QList<int> m_listPanelWidths;
    UICommonMdl::ILocalConfig* m_pConfig = nullptr;
    QString m_sPageKey;
    int m_nTitles = 0;
    bool m_bConnected = true;
    bool m_bOrdered = false;
};

} // namespace Common

#include "CListFrame.h"

#include "CListStatus.h"
#include "CListView.h"
#include "CTableModel.h"
#include "Prompt.h"
#include "TabOrder.h"

#include <UICommonMdl/CNumberPageCtrl.h>
#include <UICommonMdl/ILocalConfig.h>

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QShortcut>
#include <QSplitter>
#include <QStackedWidget>
#include <QVBoxLayout>

#include <utility>

namespace Common {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CListFrame)
};

constexpr int Margin = 8;
constexpr int Spacing = 6;
constexpr int AllTheRest = 1000; ///< more than there is: the splitter gives what it has

QVector<QWidget*> WidgetsOf(const QLayout* pLayout)
{
    QVector<QWidget*> vecWidgets;
    for (int n = 0; n < pLayout->count(); ++n) {
        if (QWidget* const pWidget = pLayout->itemAt(n)->widget())
            vecWidgets.append(pWidget);
    }
    return vecWidgets;
}

} // namespace

CListFrame::CListFrame(QWidget* pParent)
    : QWidget(pParent)
    , m_pToolBar(new CToolBar(this))
    , m_pSplitter(new QSplitter(Qt::Horizontal, this))
    , m_pListSide(new QWidget(m_pSplitter))
    , m_pListLayout(new QVBoxLayout(m_pListSide))
    , m_pStack(new QStackedWidget(m_pListSide))
    , m_pState(new VxGUI::VxEmptyState(m_pStack))
    , m_pStatus(new CListStatus(m_pListSide))
    , m_pPager(new UICommonMdl::CNumberPageCtrl(m_pListSide))
{
    setAttribute(Qt::WA_StyledBackground);
    m_pToolBar->SetShortcutScope(this);
    m_pSplitter->setObjectName(QStringLiteral("splitter"));
    m_pSplitter->setChildrenCollapsible(false);
    m_pListSide->setObjectName(QStringLiteral("wgtList"));
    m_pStack->setObjectName(QStringLiteral("stackList"));
    m_pState->setObjectName(QStringLiteral("wgtListState"));
    m_pPager->setObjectName(QStringLiteral("wgtPager"));
    m_pPager->SetTotalShown(false);
    m_pStack->addWidget(m_pState);

    auto* const pLayout = new QHBoxLayout(this);
    pLayout->setContentsMargins(0, 0, 0, 0);
    pLayout->setSpacing(0);
    pLayout->addWidget(m_pSplitter, 1);
    m_pListLayout->setContentsMargins(Margin, Margin, Margin, Margin);
    m_pListLayout->setSpacing(Spacing);
    m_pListLayout->addWidget(m_pToolBar);
    m_pListLayout->addWidget(m_pStack, 1);
    auto* const pBelow = new QHBoxLayout;
    pBelow->setSpacing(Spacing);
    pBelow->addWidget(m_pStatus);
    pBelow->addStretch();
    pBelow->addWidget(m_pPager);
    m_pListLayout->addLayout(pBelow);
    m_pSplitter->setStretchFactor(0, 1);

    connect(m_pSplitter, &QSplitter::splitterMoved, this, &CListFrame::OnSplitterMoved);
    connect(m_pState, &VxGUI::VxEmptyState::SignalAction, this, &CListFrame::SignalStateAction);
    connect(m_pPager, &UICommonMdl::CNumberPageCtrl::SignalCurrentPageChanged, this,
        &CListFrame::SignalPageWanted);
    connect(m_pPager, &UICommonMdl::CNumberPageCtrl::SignalPageSizeChanged, this, [this](int nPageSize) {
        if (m_pConfig)
            m_pConfig->SetValue(m_sPageKey + QStringLiteral("/PageSize"), nPageSize);
        Q_EMIT SignalPageWanted();
    });
}

void CListFrame::SetList(CListView* pList)
{
    m_pList = pList;
    m_pStack->insertWidget(0, pList);
    m_pStack->setCurrentWidget(pList);
    m_pStatus->Follow(pList->GetTable());
    connect(pList, &CListView::SignalChecksChanged, m_pToolBar, &CToolBar::UpdateNeeds);
    m_pToolBar->UpdateNeeds();
}

void CListFrame::SetTree(QWidget* pTree, int nWidth)
{
    m_pTree = pTree;
    m_nTreeWidth = nWidth;
    m_pSplitter->insertWidget(0, pTree);
    m_pSplitter->setStretchFactor(0, 0);
    m_pSplitter->setStretchFactor(1, 1);
    SetWidths();
}

void CListFrame::SetWidths()
{
    // Before the first layout the splitter does not know its widths.
    QList<int> listWidths{AllTheRest};
    if (m_pTree)
        listWidths.prepend(m_nTreeWidth);
    m_pSplitter->setSizes(listWidths + m_listPanelWidths);
}

void CListFrame::AddRow(QWidget* pRow)
{
    m_vecRows.append(pRow);
    m_pListLayout->insertWidget(m_pListLayout->indexOf(m_pStack), pRow);
}

void CListFrame::AddTitle(QWidget* pRow)
{
    m_vecRows.append(pRow);
    m_pListLayout->insertWidget(m_nTitles++, pRow);
}

void CListFrame::AddPanel(QWidget* pPanel, int nWidth)
{
    m_listPanelWidths.append(nWidth);
    m_pSplitter->addWidget(pPanel);
    m_pSplitter->setStretchFactor(m_pSplitter->count() - 1, 0);
    SetWidths();
}

void CListFrame::AddStrip(QWidget* pStrip)
{
    layout()->addWidget(pStrip);
}

void CListFrame::SetSearch(QLineEdit* pSearch)
{
    m_pToolBar->AddField(pSearch);
    auto* const pFind =
        new QShortcut(QKeySequence::Find, this, nullptr, nullptr, Qt::WidgetWithChildrenShortcut);
    connect(pFind, &QShortcut::activated, pSearch, [pSearch] {
        pSearch->setFocus(Qt::ShortcutFocusReason);
        pSearch->selectAll();
    });
}

void CListFrame::SetPaged(bool bPaged)
{
    m_pPager->setVisible(bPaged);
}

void CListFrame::Remember(UICommonMdl::ILocalConfig* pConfig, const QString& sPageKey)
{
    m_pConfig = pConfig;
    m_sPageKey = sPageKey;
    if (m_pList)
        m_pList->RememberColumns(pConfig, sPageKey);
    if (!pConfig)
        return;
    m_pPager->SetPageSize(pConfig->GetValue(sPageKey + QStringLiteral("/PageSize")).toInt());
    const int nTreeWidth = pConfig->GetValue(sPageKey + QStringLiteral("/TreeWidth")).toInt();
    if (!m_pTree || nTreeWidth <= 0)
        return;
    m_nTreeWidth = nTreeWidth;
    SetWidths();
}

void CListFrame::OnSplitterMoved()
{
    if (m_pConfig && m_pTree)
        m_pConfig->SetValue(m_sPageKey + QStringLiteral("/TreeWidth"), m_pSplitter->sizes().first());
}

void CListFrame::ShowList()
{
    m_pStack->setCurrentWidget(m_pList);
}

void CListFrame::ShowState(
    VxGUI::VxEmptyState::Kind kind, const QString& sTitle, const QString& sText, const QString& sAction)
{
    m_pState->SetState(kind, sTitle, sText, sAction);
    m_pStack->setCurrentWidget(m_pState);
}

void CListFrame::SetTotal(int nTotal, int nPage)
{
    m_pStatus->SetTotal(nTotal);
    m_pPager->SetTotalCount(nTotal);
    m_pPager->SetCurrentPage(nPage);
}

void CListFrame::SetConnected(bool bConnected)
{
    m_bConnected = bConnected;
    UpdateEnabled();
    m_pToolBar->UpdateNeeds();
}

void CListFrame::UpdateEnabled()
{
    for (QWidget* pPart :
        m_vecRows + QVector<QWidget*>{m_pTree, m_pStack, m_pStatus, static_cast<QWidget*>(m_pPager)}) {
        if (pPart)
            pPart->setEnabled(m_bConnected);
    }
    m_pToolBar->SetFieldsEnabled(m_bConnected);
}

void CListFrame::showEvent(QShowEvent* pEvent)
{
    QWidget::showEvent(pEvent);
    if (!std::exchange(m_bOrdered, true))
        SetTabOrders();
}

void CListFrame::SetTabOrders()
{
    // As the parts stand, from left to right and downwards; they were put in as each page has them.
    QVector<QWidget*> vecParts;
    for (int n = 0; n < m_pSplitter->count(); ++n) {
        if (m_pSplitter->widget(n) == m_pListSide)
            vecParts += WidgetsOf(m_pListLayout) + QVector<QWidget*>{m_pStatus, m_pPager};
        else
            vecParts.append(m_pSplitter->widget(n));
    }
    vecParts += WidgetsOf(layout()).mid(1); // the strips behind the splitter
    QVector<QWidget*> vecOrder;
    for (QWidget* pPart : qAsConst(vecParts))
        vecOrder += GetTabStops(pPart);
    SetTabOrder(vecOrder);
}

Need CListFrame::NeedsConnection() const
{
    return [this] { return m_bConnected ? QString() : NoConnectionText(); };
}

Need CListFrame::NeedsChecked(const QString& sReason) const
{
    return [this, sReason] {
        return m_pList && m_pList->GetTable()->GetCheckedCount() > 0 ? QString() : sReason;
    };
}

} // namespace Common

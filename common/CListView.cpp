#include "CListView.h"

#include "CCheckDelegate.h"
#include "CColumnLayout.h"
#include "CFilterHeaderView.h"
#include "CRowButtonDelegate.h"
#include "CTableModel.h"

#include <Trv/QSkin.h>

#include <QHoverEvent>
#include <QMenu>
#include <QPainter>
#include <QScrollBar>
#include <QShortcut>
#include <QToolTip>

#include <algorithm>

namespace Common {

CListView::CListView(QWidget* pParent)
    : QTreeView(pParent)
{
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setMouseTracking(true);
    setAllColumnsShowFocus(true);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setContextMenuPolicy(Qt::CustomContextMenu);
    connect(this, &QWidget::customContextMenuRequested, this, &CListView::OnContextMenu);
}

void CListView::SetUp(CTableModel* pModel, CFilterHeaderView* pHeader, const Columns& columns,
    const QVector<Operation>& vecButtons)
{
    m_pTable = pModel;
    m_pFilterHeader = pHeader;
    m_columns = columns;
    setModel(pModel);
    setHeader(pHeader);
    pHeader->SetCheckSection(columns.nCheck);
    // A view that does not sort by itself takes this away from the header that it gets.
    pHeader->setSectionsClickable(true);
    SetUpColumns();
    if (columns.nOperation >= 0)
        SetUpButtons(vecButtons);
    connect(this, &QAbstractItemView::doubleClicked, this, [this](const QModelIndex& index) {
        if (index.column() != m_columns.nCheck && index.column() != m_columns.nOperation)
            OpenRow(index);
    });
    connect(pModel, &CTableModel::SignalRowsReplaced, this, [this] { m_pColumnLayout->Measure(); });
    AddKey(QKeySequence(QStringLiteral("Alt+C")), [this] { m_pFilterHeader->OpenMenu(); });
    if (columns.nCheck < 0)
        return;
    setItemDelegateForColumn(columns.nCheck, new CCheckDelegate(this));
    connect(pHeader, &CFilterHeaderView::SignalCheckAll, pModel, &CTableModel::SetAllChecked);
    connect(pModel, &CTableModel::SignalChecksChanged, this, &CListView::OnChecksChanged);
    AddKey(Qt::Key_Space, [this] { OnToggleChecks(); });
}

void CListView::SetUpColumns()
{
    m_pColumnLayout = new CColumnLayout(this, m_pTable->GetColumns());
    m_pFilterHeader->SetOptionalSections(m_pColumnLayout->GetOptionalColumns());
    m_pFilterHeader->SetResettable(true);
    m_pFilterHeader->SetFrozenSection(m_columns.nOperation);
    QVector<int> vecSorting;
    for (int nColumn = 0; nColumn < m_pTable->GetColumns().size(); ++nColumn) {
        if (m_pTable->GetColumns()[nColumn].nSortKey != Column::NotSorted)
            vecSorting.append(nColumn);
    }
    m_pFilterHeader->SetSortSections(vecSorting);
    connect(m_pFilterHeader, &CFilterHeaderView::SignalSortChosen, this, &CListView::OnSortChosen);
    connect(m_pFilterHeader, &CFilterHeaderView::SignalColumnStateChanged, m_pColumnLayout,
        [this](int nSection, int nShown) { m_pColumnLayout->SetShown(nSection, nShown != 0); });
    connect(m_pFilterHeader, &CFilterHeaderView::SignalResetColumns, m_pColumnLayout, &CColumnLayout::Reset);
}

void CListView::SetUpButtons(const QVector<Operation>& vecButtons)
{
    QVector<RowButton> vecRowButtons;
    for (const Operation& operation : vecButtons)
        vecRowButtons.append(
            {operation.nRole, Trv::GetIcon(QLatin1String(operation.pszIcon)), operation.sText});
    auto* const pButtons = new CRowButtonDelegate(vecRowButtons, this);
    pButtons->setObjectName(QStringLiteral("rowButtons"));
    pButtons->SetOfferRule([this](const QModelIndex& index, int nRole) { return IsOffered(index, nRole); });
    pButtons->SetObstacleRule(
        [this](const QModelIndex& index, int nRole) { return GetObstacle(index, nRole); });
    setItemDelegateForColumn(m_columns.nOperation, pButtons);
    connect(pButtons, &CRowButtonDelegate::SignalButtonClicked, this,
        [this](const QModelIndex& index, int nRole) { Perform(nRole, index); });
}

void CListView::RememberColumns(UICommonMdl::ILocalConfig* pConfig, const QString& sPageKey)
{
    m_pColumnLayout->Remember(pConfig, sPageKey);
}

void CListView::SetSort(int nSortKey, Qt::SortOrder order)
{
    m_nSortKey = nSortKey;
    m_sortOrder = order;
    const QVector<Column>& vecColumns = m_pTable->GetColumns();
    const auto it = std::find_if(vecColumns.begin(), vecColumns.end(), [nSortKey](const Column& column) {
        return nSortKey != Column::NotSorted && column.nSortKey == nSortKey;
    });
    const int nSection = it == vecColumns.end() ? -1 : int(it - vecColumns.begin());
    m_pFilterHeader->SetSort(nSection, order);
}

void CListView::OnSortChosen(int nSection, Qt::SortOrder order)
{
    m_nSortKey = m_pTable->GetColumns()[nSection].nSortKey;
    m_sortOrder = order;
    Q_EMIT SignalSortChanged(m_nSortKey, order);
}

void CListView::SetMenu(const QString& sName, const QVector<Operation>& vecEntries)
{
    m_sMenuName = sName;
    m_vecMenu = vecEntries;
}

void CListView::AddKey(const QKeySequence& keys, const std::function<void()>& action)
{
    auto* const pShortcut = new QShortcut(keys, this, nullptr, nullptr, Qt::WidgetShortcut);
    connect(pShortcut, &QShortcut::activated, this, action);
}

void CListView::AddKey(const QKeySequence& keys, int nRole)
{
    AddKey(keys, [this, nRole] { Perform(nRole, currentIndex()); });
}

void CListView::ReplaceRows(const std::function<void()>& replace)
{
    const QString sCurrent = m_pTable->GetId(currentIndex().row());
    const int nSide = horizontalScrollBar()->value();
    // The first row in sight that is still there comes back to the top; none is after a page turn.
    QStringList listInSight;
    for (int nRow = indexAt(QPoint(0, 0)).row(); nRow >= 0 && nRow < m_pTable->rowCount(); ++nRow)
        listInSight.append(m_pTable->GetId(nRow));
    QStringList listSelected;
    for (const QModelIndex& index : selectionModel()->selectedRows())
        listSelected.append(m_pTable->GetId(index.row()));
    replace();
    QItemSelection selection;
    for (const QString& sId : qAsConst(listSelected)) {
        const QModelIndex index = m_pTable->index(m_pTable->FindRow(sId), 0);
        selection.select(index, index);
    }
    const int nCurrent = m_pTable->FindRow(sCurrent);
    if (nCurrent >= 0)
        selectionModel()->setCurrentIndex(
            m_pTable->index(nCurrent, m_columns.nName), QItemSelectionModel::NoUpdate);
    if (!selection.isEmpty())
        selectionModel()->select(selection, QItemSelectionModel::Select | QItemSelectionModel::Rows);
    int nTop = -1;
    for (int n = 0; n < listInSight.size() && nTop < 0; ++n)
        nTop = m_pTable->FindRow(listInSight[n]);
    if (nTop < 0)
        scrollToTop();
    else
        scrollTo(m_pTable->index(nTop, m_columns.nName), PositionAtTop);
    horizontalScrollBar()->setValue(nSide);
}

bool CListView::IsOffered(const QModelIndex& /*index*/, int /*nRole*/) const
{
    return true;
}

bool CListView::IsInMenu(const QModelIndex& index, int nRole) const
{
    return IsOffered(index, nRole);
}

QString CListView::GetObstacle(const QModelIndex& /*index*/, int /*nRole*/) const
{
    return {};
}

void CListView::SetChangeable(bool bChangeable)
{
    m_bChangeable = bChangeable;
    viewport()->update();
}

void CListView::RaiseOperation(int nRole, const QModelIndex& index)
{
    if (index.isValid() && (IsInMenu(index, nRole) || IsOffered(index, nRole)))
        Q_EMIT SignalOperation(nRole, m_pTable->GetId(index.row()));
}

void CListView::Perform(int nRole, const QModelIndex& index)
{
    const QString sObstacle = index.isValid() ? GetObstacle(index, nRole) : QString();
    if (sObstacle.isEmpty())
        RaiseOperation(nRole, index);
    else
        QToolTip::showText(viewport()->mapToGlobal(visualRect(index).bottomLeft()), sObstacle, this);
}

void CListView::OnChecksChanged()
{
    m_pFilterHeader->SetCheckState(m_pTable->GetCheckSummary());
    Q_EMIT SignalChecksChanged();
}

void CListView::OnToggleChecks()
{
    const QModelIndexList listRows = selectionModel()->selectedRows(m_columns.nCheck);
    if (listRows.isEmpty())
        return;
    const auto isUnchecked = [](const QModelIndex& index) {
        return index.flags().testFlag(Qt::ItemIsUserCheckable)
            && index.data(Qt::CheckStateRole).toInt() != Qt::Checked;
    };
    const bool bCheck = std::any_of(listRows.begin(), listRows.end(), isUnchecked);
    for (const QModelIndex& index : listRows) {
        if (index.flags().testFlag(Qt::ItemIsUserCheckable))
            m_pTable->setData(index, bCheck ? Qt::Checked : Qt::Unchecked, Qt::CheckStateRole);
    }
}

void CListView::OnContextMenu(const QPoint& pos)
{
    const QModelIndex index = indexAt(pos);
    if (!index.isValid() || m_vecMenu.isEmpty())
        return;
    auto* const pMenu = new QMenu(this);
    pMenu->setObjectName(m_sMenuName);
    pMenu->setAttribute(Qt::WA_DeleteOnClose);
    pMenu->setToolTipsVisible(true);
    const QString sId = m_pTable->GetId(index.row());
    for (const Operation& entry : qAsConst(m_vecMenu)) {
        if (!IsInMenu(index, entry.nRole))
            continue;
        QAction* const pAction = pMenu->addAction(Trv::GetIcon(QLatin1String(entry.pszIcon)), entry.sText);
        const QString sObstacle = GetObstacle(index, entry.nRole);
        pAction->setEnabled(sObstacle.isEmpty());
        pAction->setToolTip(sObstacle);
        // The rows may be others by the time that the choice is made.
        connect(pAction, &QAction::triggered, this, [this, nRole = entry.nRole, sId] {
            Perform(nRole, m_pTable->index(m_pTable->FindRow(sId), m_columns.nName));
        });
    }
    pMenu->popup(viewport()->mapToGlobal(pos));
}

bool CListView::IsFrozenOverOthers() const
{
    return m_pFilterHeader && m_pFilterHeader->IsFrozenOverOthers();
}

QRect CListView::visualRect(const QModelIndex& index) const
{
    QRect rect = QTreeView::visualRect(index);
    if (rect.isValid() && index.column() == m_columns.nOperation && IsFrozenOverOthers())
        rect.moveLeft(m_pFilterHeader->GetSectionRect(m_columns.nOperation).left());
    return rect;
}

QModelIndex CListView::indexAt(const QPoint& pos) const
{
    const QModelIndex index = QTreeView::indexAt(pos);
    if (index.isValid() && IsFrozenOverOthers()
        && pos.x() >= m_pFilterHeader->GetSectionRect(m_columns.nOperation).left())
        return index.siblingAtColumn(m_columns.nOperation);
    return index;
}

void CListView::scrollTo(const QModelIndex& index, ScrollHint hint)
{
    const int nBefore = horizontalScrollBar()->value();
    QTreeView::scrollTo(index, hint);
    if (!IsFrozenOverOthers())
        return;
    // The frozen column is in sight anyway; others are when they are not below it.
    if (index.column() == m_columns.nOperation) {
        horizontalScrollBar()->setValue(nBefore);
        return;
    }
    const QRect cell = visualRect(index);
    const int nHidden = cell.right() + 1 - m_pFilterHeader->GetSectionRect(m_columns.nOperation).left();
    if (nHidden > 0)
        horizontalScrollBar()->setValue(horizontalScrollBar()->value() + qMin(nHidden, qMax(0, cell.left())));
}

void CListView::scrollContentsBy(int nX, int nY)
{
    QTreeView::scrollContentsBy(nX, nY);
    if (nX == 0 || m_columns.nOperation < 0)
        return;
    // What was moved as a picture holds the frozen column where it does not belong any more.
    viewport()->update();
    header()->viewport()->update();
}

bool CListView::viewportEvent(QEvent* pEvent)
{
    if (pEvent->type() == QEvent::HoverMove || pEvent->type() == QEvent::HoverEnter)
        m_nHoverRow = indexAt(static_cast<QHoverEvent*>(pEvent)->pos()).row();
    else if (pEvent->type() == QEvent::HoverLeave)
        m_nHoverRow = -1;
    return QTreeView::viewportEvent(pEvent);
}

QStyleOptionViewItem CListView::FrozenOption(const QStyleOptionViewItem& row, const QModelIndex& index) const
{
    QStyleOptionViewItem option = row;
    option.rect = visualRect(index);
    option.state.setFlag(QStyle::State_Selected, selectionModel()->isSelected(index));
    option.state.setFlag(QStyle::State_MouseOver, index.row() == m_nHoverRow);
    if (!option.state.testFlag(QStyle::State_Enabled))
        option.palette.setCurrentColorGroup(QPalette::Disabled);
    else
        option.palette.setCurrentColorGroup(
            option.state.testFlag(QStyle::State_Active) ? QPalette::Active : QPalette::Inactive);
    return option;
}

void CListView::drawRow(
    QPainter* pPainter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    QTreeView::drawRow(pPainter, option, index);
    if (!IsFrozenOverOthers())
        return;
    const QModelIndex cell = index.siblingAtColumn(m_columns.nOperation);
    const QStyleOptionViewItem frozen = FrozenOption(option, cell);
    pPainter->save();
    pPainter->setClipRect(frozen.rect, Qt::IntersectClip);
    pPainter->fillRect(frozen.rect, Trv::GetColor(QStringLiteral("surface")));
    itemDelegate(cell)->paint(pPainter, frozen, cell);
    if (hasFocus() && index.row() == currentIndex().row()) {
        QStyleOptionFocusRect focus;
        focus.QStyleOption::operator=(option);
        focus.state |= QStyle::State_KeyboardFocusChange;
        focus.backgroundColor =
            option.palette.color(selectionModel()->isSelected(cell) ? QPalette::Highlight : QPalette::Window);
        focus.rect = QRect(-header()->offset(), option.rect.y(), header()->length(), option.rect.height());
        // Without the widget, as the rest of the row has it.
        style()->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, pPainter);
    }
    pPainter->fillRect(QRect(frozen.rect.topLeft(), QSize(1, frozen.rect.height())),
        Trv::GetColor(QStringLiteral("border-strong")));
    pPainter->restore();
}

} // namespace Common

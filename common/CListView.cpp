#include "CListView.h"

#include "CCheckDelegate.h"
#include "CFilterHeaderView.h"
#include "CRowButtonDelegate.h"
#include "CTableModel.h"

#include <Trv/QSkin.h>

#include <QMenu>
#include <QScrollBar>
#include <QShortcut>

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
    const QVector<Operation>& vecButtons, const QVector<int>& vecWidths)
{
    m_pTable = pModel;
    m_pFilterHeader = pHeader;
    m_columns = columns;
    setModel(pModel);
    setHeader(pHeader);
    pHeader->SetCheckSection(columns.nCheck);
    pHeader->setMinimumSectionSize(40);
    pHeader->setStretchLastSection(true);
    // A view that does not sort by itself takes this away from the header that it gets.
    pHeader->setSectionsClickable(true);
    for (int nColumn = 0; nColumn < vecWidths.size(); ++nColumn)
        pHeader->resizeSection(nColumn, vecWidths[nColumn]);
    pHeader->setSectionResizeMode(columns.nCheck, QHeaderView::Fixed);

    QVector<RowButton> vecRowButtons;
    for (const Operation& operation : vecButtons)
        vecRowButtons.append(
            {operation.nRole, Trv::GetIcon(QLatin1String(operation.pszIcon)), operation.sText});
    auto* const pButtons = new CRowButtonDelegate(vecRowButtons, this);
    pButtons->setObjectName(QStringLiteral("rowButtons"));
    pButtons->SetOfferRule([this](const QModelIndex& index, int nRole) { return IsOffered(index, nRole); });
    setItemDelegateForColumn(columns.nCheck, new CCheckDelegate(this));
    setItemDelegateForColumn(columns.nOperation, pButtons);

    connect(pButtons, &CRowButtonDelegate::SignalButtonClicked, this,
        [this](const QModelIndex& index, int nRole) { RaiseOperation(nRole, index); });
    connect(this, &QAbstractItemView::doubleClicked, this, [this](const QModelIndex& index) {
        if (index.column() != m_columns.nCheck && index.column() != m_columns.nOperation)
            OpenRow(index);
    });
    connect(pHeader, &CFilterHeaderView::SignalCheckAll, pModel, &CTableModel::SetAllChecked);
    connect(pModel, &QAbstractItemModel::dataChanged, this, [this](const QModelIndex& index) {
        if (index.column() == m_columns.nCheck)
            OnChecksChanged();
    });
    AddKey(Qt::Key_Space, [this] { OnToggleChecks(); });
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
    AddKey(keys, [this, nRole] { RaiseOperation(nRole, currentIndex()); });
}

void CListView::ReplaceRows(const std::function<void()>& replace)
{
    const QString sCurrent = m_pTable->GetId(currentIndex().row());
    const int nScroll = verticalScrollBar()->value();
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
    if (nCurrent >= 0) {
        selectionModel()->setCurrentIndex(
            m_pTable->index(nCurrent, m_columns.nName), QItemSelectionModel::NoUpdate);
        verticalScrollBar()->setValue(nScroll);
    }
    if (!selection.isEmpty())
        selectionModel()->select(selection, QItemSelectionModel::Select | QItemSelectionModel::Rows);
    OnChecksChanged();
}

bool CListView::IsOffered(const QModelIndex& /*index*/, int /*nRole*/) const
{
    return true;
}

bool CListView::IsInMenu(const QModelIndex& index, int nRole) const
{
    return IsOffered(index, nRole);
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
    const bool bCheck = listRows.first().data(Qt::CheckStateRole).toInt() != Qt::Checked;
    for (const QModelIndex& index : listRows)
        m_pTable->setData(index, bCheck ? Qt::Checked : Qt::Unchecked, Qt::CheckStateRole);
}

void CListView::OnContextMenu(const QPoint& pos)
{
    const QModelIndex index = indexAt(pos);
    if (!index.isValid() || m_vecMenu.isEmpty())
        return;
    auto* const pMenu = new QMenu(this);
    pMenu->setObjectName(m_sMenuName);
    pMenu->setAttribute(Qt::WA_DeleteOnClose);
    const QString sId = m_pTable->GetId(index.row());
    for (const Operation& entry : qAsConst(m_vecMenu)) {
        if (!IsInMenu(index, entry.nRole))
            continue;
        QAction* const pAction = pMenu->addAction(Trv::GetIcon(QLatin1String(entry.pszIcon)), entry.sText);
        // The rows may be others by the time that the choice is made.
        connect(pAction, &QAction::triggered, this, [this, nRole = entry.nRole, sId] {
            RaiseOperation(nRole, m_pTable->index(m_pTable->FindRow(sId), m_columns.nName));
        });
    }
    pMenu->popup(viewport()->mapToGlobal(pos));
}

} // namespace Common

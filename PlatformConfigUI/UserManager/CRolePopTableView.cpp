#include "CRolePopTableView.h"

#include <common/CCheckDelegate.h>
#include <common/CTableModel.h>

#include <QCoreApplication>
#include <QHeaderView>
#include <QShortcut>

namespace PlatformConfigUI {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CRolePopTableView)
};

enum Column : int
{
    ColumnCheck = 0,
    ColumnRole,
    ColumnRemark,
    ColumnId
};

} // namespace

CRolePopTableView::CRolePopTableView(QWidget* pParent)
    : QTreeView(pParent)
    , m_pModel(new Common::CTableModel(
          {{QString(), true}, {Text::tr("Role"), true}, {Text::tr("Remark"), true}, {QString(), false}},
          ColumnId, ColumnCheck, this))
{
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setModel(m_pModel);
    setColumnHidden(ColumnId, true);
    header()->setMinimumSectionSize(32);
    header()->resizeSection(ColumnCheck, 32);
    header()->resizeSection(ColumnRole, 140);
    header()->setStretchLastSection(true);
    setItemDelegateForColumn(ColumnCheck, new Common::CCheckDelegate(this));
    connect(this, &QAbstractItemView::clicked, this, [this](const QModelIndex& index) {
        if (index.column() != ColumnCheck)
            Toggle(index);
    });
    auto* const pSpace = new QShortcut(Qt::Key_Space, this, nullptr, nullptr, Qt::WidgetShortcut);
    connect(pSpace, &QShortcut::activated, this, [this] { Toggle(currentIndex()); });
    connect(m_pModel, &QAbstractItemModel::dataChanged, this, &CRolePopTableView::SignalChecksChanged);
}

void CRolePopTableView::SetRoles(
    const std::vector<UserLogical::Role_t>& vecRoles, const QStringList& listCheckedIds)
{
    using Common::CTableModel;
    const QSignalBlocker blocker(this);
    QVector<CTableModel::Row> vecRows;
    for (const UserLogical::Role_t& role : vecRoles)
        vecRows.append({CTableModel::MakeItem(), CTableModel::MakeItem(QString::fromStdString(role.sName)),
            CTableModel::MakeItem(QString::fromStdString(role.sRemark)),
            CTableModel::MakeItem(QString::fromStdString(role.sRoleId))});
    m_pModel->SetRows(vecRows);
    for (int nRow = 0; nRow < m_pModel->rowCount(); ++nRow)
        m_pModel->item(nRow, ColumnCheck)
            ->setCheckState(listCheckedIds.contains(m_pModel->GetId(nRow)) ? Qt::Checked : Qt::Unchecked);
    SetFilter(m_sFilter);
}

void CRolePopTableView::SetFilter(const QString& sText)
{
    m_sFilter = sText;
    for (int nRow = 0; nRow < m_pModel->rowCount(); ++nRow) {
        const QString sName = m_pModel->item(nRow, ColumnRole)->text();
        setRowHidden(nRow, QModelIndex(), !sName.contains(sText, Qt::CaseInsensitive));
    }
}

QStringList CRolePopTableView::GetCheckedIds() const
{
    return m_pModel->GetCheckedIds();
}

void CRolePopTableView::SetShownChecked(bool bChecked)
{
    {
        const QSignalBlocker blocker(this);
        for (int nRow = 0; nRow < m_pModel->rowCount(); ++nRow) {
            if (!isRowHidden(nRow, QModelIndex()))
                m_pModel->item(nRow, ColumnCheck)->setCheckState(bChecked ? Qt::Checked : Qt::Unchecked);
        }
    }
    Q_EMIT SignalChecksChanged();
}

Qt::CheckState CRolePopTableView::GetShownSummary() const
{
    int nShown = 0;
    int nChecked = 0;
    for (int nRow = 0; nRow < m_pModel->rowCount(); ++nRow) {
        if (isRowHidden(nRow, QModelIndex()))
            continue;
        ++nShown;
        nChecked += m_pModel->item(nRow, ColumnCheck)->checkState() == Qt::Checked ? 1 : 0;
    }
    if (nChecked == 0)
        return Qt::Unchecked;
    return nChecked == nShown ? Qt::Checked : Qt::PartiallyChecked;
}

bool CRolePopTableView::IsNothingShown() const
{
    for (int nRow = 0; nRow < m_pModel->rowCount(); ++nRow) {
        if (!isRowHidden(nRow, QModelIndex()))
            return false;
    }
    return true;
}

void CRolePopTableView::Toggle(const QModelIndex& index)
{
    if (!index.isValid())
        return;
    QStandardItem* const pItem = m_pModel->item(index.row(), ColumnCheck);
    pItem->setCheckState(pItem->checkState() == Qt::Checked ? Qt::Unchecked : Qt::Checked);
}

} // namespace PlatformConfigUI

#include "CTableModel.h"

#include <QSet>
#include <QSignalBlocker>

namespace Common {

CTableModel::CTableModel(
    const QVector<TableColumn>& vecColumns, int nIdColumn, int nCheckColumn, QObject* pParent)
    : QStandardItemModel(0, vecColumns.size(), pParent)
    , m_vecColumns(vecColumns)
    , m_nIdColumn(nIdColumn)
    , m_nCheckColumn(nCheckColumn)
{
    for (int nColumn = 0; nColumn < vecColumns.size(); ++nColumn)
        setHeaderData(nColumn, Qt::Horizontal, vecColumns[nColumn].sHeader);
}

void CTableModel::SetRows(const QVector<Row>& vecRows)
{
    const QStringList listChecked = GetCheckedIds();
    const QSet<QString> setChecked(listChecked.begin(), listChecked.end());
    removeRows(0, rowCount());
    m_mapRows.clear();
    m_mapRows.reserve(vecRows.size());

    QList<QStandardItem*> listFirst;
    listFirst.reserve(vecRows.size());
    for (int nRow = 0; nRow < vecRows.size(); ++nRow) {
        const Row& row = vecRows[nRow];
        const QString sId = row[m_nIdColumn]->text();
        m_mapRows.insert(sId, nRow);
        if (m_nCheckColumn >= 0) {
            row[m_nCheckColumn]->setCheckable(true);
            row[m_nCheckColumn]->setCheckState(setChecked.contains(sId) ? Qt::Checked : Qt::Unchecked);
        }
        listFirst.append(row.first());
    }
    if (listFirst.isEmpty())
        return;
    // The views lay out the new rows lazily, so that one notice for all of them is enough.
    invisibleRootItem()->insertRows(0, listFirst);
    const QSignalBlocker blocker(this);
    for (int nRow = 0; nRow < vecRows.size(); ++nRow) {
        for (int nColumn = 1; nColumn < vecRows[nRow].size(); ++nColumn)
            setItem(nRow, nColumn, vecRows[nRow][nColumn]);
    }
}

QString CTableModel::GetId(int nRow) const
{
    const QStandardItem* pItem = item(nRow, m_nIdColumn);
    return pItem ? pItem->text() : QString();
}

int CTableModel::FindRow(const QString& sId) const
{
    return m_mapRows.value(sId, -1);
}

QVariant CTableModel::data(const QModelIndex& index, int nRole) const
{
    return QStandardItemModel::data(index, nRole == Qt::ToolTipRole ? int(Qt::DisplayRole) : nRole);
}

QStringList CTableModel::GetCheckedIds() const
{
    QStringList listIds;
    for (int nRow = 0; m_nCheckColumn >= 0 && nRow < rowCount(); ++nRow) {
        if (item(nRow, m_nCheckColumn)->checkState() == Qt::Checked)
            listIds.append(GetId(nRow));
    }
    return listIds;
}

void CTableModel::SetAllChecked(bool bChecked)
{
    if (m_nCheckColumn < 0 || rowCount() == 0)
        return;
    {
        const QSignalBlocker blocker(this);
        for (int nRow = 0; nRow < rowCount(); ++nRow)
            item(nRow, m_nCheckColumn)->setCheckState(bChecked ? Qt::Checked : Qt::Unchecked);
    }
    Q_EMIT dataChanged(index(0, m_nCheckColumn), index(rowCount() - 1, m_nCheckColumn), {Qt::CheckStateRole});
}

Qt::CheckState CTableModel::GetCheckSummary() const
{
    const int nChecked = GetCheckedIds().size();
    if (nChecked == 0)
        return Qt::Unchecked;
    return nChecked == rowCount() ? Qt::Checked : Qt::PartiallyChecked;
}

QStandardItem* CTableModel::MakeItem(const QString& sText)
{
    auto* pItem = new QStandardItem(sText);
    pItem->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsDragEnabled);
    return pItem;
}

} // namespace Common

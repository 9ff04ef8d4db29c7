#include "CTableModel.h"

#include <QSignalBlocker>

#include <algorithm>

namespace Common {

CTableModel::CTableModel(const QVector<Column>& vecColumns, int nIdColumn, int nCheckColumn, QObject* pParent)
    : QStandardItemModel(0, vecColumns.size(), pParent)
    , m_vecColumns(vecColumns)
    , m_nIdColumn(nIdColumn)
    , m_nCheckColumn(nCheckColumn)
    , m_nLabelColumn(nIdColumn)
{
    for (int nColumn = 0; nColumn < vecColumns.size(); ++nColumn)
        setHeaderData(nColumn, Qt::Horizontal, vecColumns[nColumn].sHeader);
    connect(this, &QAbstractItemModel::dataChanged, this,
        [this](const QModelIndex& topLeft, const QModelIndex& bottomRight) {
            if (topLeft.column() <= m_nCheckColumn && m_nCheckColumn <= bottomRight.column())
                Q_EMIT SignalChecksChanged();
        });
}

void CTableModel::KeepChecks(int nLabelColumn)
{
    m_bKeepChecks = true;
    m_nLabelColumn = nLabelColumn;
}

void CTableModel::SetRows(const QVector<Row>& vecRows, const QSet<QString>& setUncheckable)
{
    QHash<QString, CheckedItem> mapChecked;
    QStringList listOrder;
    const QVector<CheckedItem> vecChecked = GetChecked();
    for (const CheckedItem& checked : vecChecked) {
        mapChecked.insert(checked.sId, checked);
        listOrder.append(checked.sId);
    }
    removeRows(0, rowCount());
    m_mapRows.clear();
    m_mapRows.reserve(vecRows.size());

    QList<QStandardItem*> listFirst;
    listFirst.reserve(vecRows.size());
    for (int nRow = 0; nRow < vecRows.size(); ++nRow) {
        const Row& row = vecRows[nRow];
        const QString sId = row[m_nIdColumn]->text();
        m_mapRows.insert(sId, nRow);
        const bool bChecked = mapChecked.remove(sId) > 0;
        if (m_nCheckColumn >= 0 && !setUncheckable.contains(sId)) {
            row[m_nCheckColumn]->setCheckable(true);
            row[m_nCheckColumn]->setCheckState(bChecked ? Qt::Checked : Qt::Unchecked);
        }
        listFirst.append(row.first());
    }
    m_vecElsewhere.clear();
    for (const QString& sId : qAsConst(listOrder)) {
        const auto it = mapChecked.constFind(sId);
        if (m_bKeepChecks && it != mapChecked.constEnd())
            m_vecElsewhere.append(*it);
    }
    if (!listFirst.isEmpty()) {
        // The views lay out the new rows lazily, so that one notice for all of them is enough.
        invisibleRootItem()->insertRows(0, listFirst);
        const QSignalBlocker blocker(this);
        for (int nRow = 0; nRow < vecRows.size(); ++nRow) {
            for (int nColumn = 1; nColumn < vecRows[nRow].size(); ++nColumn)
                setItem(nRow, nColumn, vecRows[nRow][nColumn]);
        }
    }
    Q_EMIT SignalRowsReplaced();
    Q_EMIT SignalChecksChanged();
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

bool CTableModel::IsRowChecked(int nRow) const
{
    const QStandardItem* const pItem = m_nCheckColumn < 0 ? nullptr : item(nRow, m_nCheckColumn);
    return pItem && pItem->checkState() == Qt::Checked;
}

CheckedItem CTableModel::GetItem(int nRow) const
{
    return {GetId(nRow), index(nRow, m_nLabelColumn).data().toString(), index(nRow, 0).data(KeptRole)};
}

QVector<CheckedItem> CTableModel::GetChecked() const
{
    QVector<CheckedItem> vecChecked;
    for (int nRow = 0; nRow < rowCount(); ++nRow) {
        if (IsRowChecked(nRow))
            vecChecked.append(GetItem(nRow));
    }
    return vecChecked + m_vecElsewhere;
}

QStringList CTableModel::GetCheckedIds() const
{
    QStringList listIds;
    for (int nRow = 0; nRow < rowCount(); ++nRow) {
        if (IsRowChecked(nRow))
            listIds.append(GetId(nRow));
    }
    for (const CheckedItem& checked : m_vecElsewhere)
        listIds.append(checked.sId);
    return listIds;
}

int CTableModel::GetCheckedCount() const
{
    int nChecked = m_vecElsewhere.size();
    for (int nRow = 0; nRow < rowCount(); ++nRow)
        nChecked += IsRowChecked(nRow) ? 1 : 0;
    return nChecked;
}

QString CTableModel::GetLabel(const QString& sId) const
{
    const int nRow = FindRow(sId);
    if (nRow >= 0)
        return index(nRow, m_nLabelColumn).data().toString();
    for (const CheckedItem& checked : m_vecElsewhere) {
        if (checked.sId == sId)
            return checked.sLabel;
    }
    return sId;
}

void CTableModel::SetAllChecked(bool bChecked)
{
    if (m_nCheckColumn < 0 || rowCount() == 0)
        return;
    {
        const QSignalBlocker blocker(this);
        for (int nRow = 0; nRow < rowCount(); ++nRow) {
            if (flags(index(nRow, m_nCheckColumn)).testFlag(Qt::ItemIsUserCheckable))
                item(nRow, m_nCheckColumn)->setCheckState(bChecked ? Qt::Checked : Qt::Unchecked);
        }
    }
    Q_EMIT dataChanged(index(0, m_nCheckColumn), index(rowCount() - 1, m_nCheckColumn), {Qt::CheckStateRole});
}

Qt::CheckState CTableModel::GetCheckSummary() const
{
    int nCheckable = 0;
    int nChecked = 0;
    for (int nRow = 0; m_nCheckColumn >= 0 && nRow < rowCount(); ++nRow) {
        nCheckable += flags(index(nRow, m_nCheckColumn)).testFlag(Qt::ItemIsUserCheckable) ? 1 : 0;
        nChecked += IsRowChecked(nRow) ? 1 : 0;
    }
    if (nChecked == 0)
        return Qt::Unchecked;
    return nChecked == nCheckable ? Qt::Checked : Qt::PartiallyChecked;
}

void CTableModel::UncheckRows(const std::function<bool(const QString& sId)>& rule)
{
    for (int nRow = 0; nRow < rowCount(); ++nRow) {
        if (IsRowChecked(nRow) && rule(GetId(nRow)))
            item(nRow, m_nCheckColumn)->setCheckState(Qt::Unchecked);
    }
}

void CTableModel::SetChecked(const QVector<CheckedItem>& vecChecked)
{
    m_vecElsewhere.clear();
    {
        const QSignalBlocker blocker(this);
        UncheckRows([](const QString&) { return true; });
        for (const CheckedItem& checked : vecChecked) {
            const int nRow = FindRow(checked.sId);
            if (nRow < 0)
                m_vecElsewhere.append(checked);
            else
                item(nRow, m_nCheckColumn)->setCheckState(Qt::Checked);
        }
    }
    TellChecks();
}

void CTableModel::TellChecks()
{
    if (m_nCheckColumn >= 0 && rowCount() > 0)
        Q_EMIT dataChanged(
            index(0, m_nCheckColumn), index(rowCount() - 1, m_nCheckColumn), {Qt::CheckStateRole});
    else
        Q_EMIT SignalChecksChanged();
}

void CTableModel::ClearChecks()
{
    m_vecElsewhere.clear();
    {
        const QSignalBlocker blocker(this);
        UncheckRows([](const QString&) { return true; });
    }
    TellChecks();
}

void CTableModel::ForgetIds(const QStringList& listIds)
{
    const QSet<QString> setGone(listIds.begin(), listIds.end());
    const auto isGone = [&setGone](const QString& sId) { return setGone.contains(sId); };
    m_vecElsewhere.erase(std::remove_if(m_vecElsewhere.begin(), m_vecElsewhere.end(),
                             [&](const CheckedItem& checked) { return isGone(checked.sId); }),
        m_vecElsewhere.end());
    UncheckRows(isGone);
    Q_EMIT SignalChecksChanged();
}

QStandardItem* CTableModel::MakeItem(const QString& sText)
{
    auto* pItem = new QStandardItem(sText);
    pItem->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsDragEnabled);
    return pItem;
}

} // namespace Common

#include "CTreeFilterProxyModel.h"

namespace Common {

void CTreeFilterProxyModel::setSourceModel(QAbstractItemModel* pSource)
{
    if (sourceModel())
        disconnect(sourceModel(), nullptr, this, nullptr);
    // Before the base hears of it and asks.
    if (pSource)
        connect(pSource, &QAbstractItemModel::rowsInserted, this, &CTreeFilterProxyModel::FindMatches);
    QSortFilterProxyModel::setSourceModel(pSource);
}

void CTreeFilterProxyModel::SetText(const QString& sText)
{
    if (m_sText == sText)
        return;
    m_sText = sText;
    QAbstractItemModel* const pSource = sourceModel();
    if (!pSource)
        return;
    FindMatches();
    // All anew instead of row by row: with thousands of scattered rows that is many times quicker.
    setSourceModel(nullptr);
    setSourceModel(pSource);
}

void CTreeFilterProxyModel::FindMatches()
{
    m_setMatches.clear();
    if (!m_sText.isEmpty())
        AddMatches(QModelIndex());
}

/// Whether anything below the node matches.
bool CTreeFilterProxyModel::AddMatches(const QModelIndex& parent)
{
    bool bAny = false;
    const int nRows = sourceModel()->rowCount(parent);
    for (int nRow = 0; nRow < nRows; ++nRow) {
        const QModelIndex index = sourceModel()->index(nRow, 0, parent);
        if (AddMatches(index) || index.data().toString().contains(m_sText, Qt::CaseInsensitive)) {
            m_setMatches.insert(index);
            bAny = true;
        }
    }
    return bAny;
}

Qt::ItemFlags CTreeFilterProxyModel::flags(const QModelIndex& index) const
{
    const Qt::ItemFlags flags = QSortFilterProxyModel::flags(index);
    return !m_rule || m_rule(mapToSource(index)) ? flags
                                                 : flags & ~(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
}

bool CTreeFilterProxyModel::filterAcceptsRow(int nRow, const QModelIndex& parent) const
{
    return m_sText.isEmpty() || m_setMatches.contains(sourceModel()->index(nRow, 0, parent));
}

} // namespace Common

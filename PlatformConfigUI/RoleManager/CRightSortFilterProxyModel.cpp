#include "CRightSortFilterProxyModel.h"

#include "CRightModel.h"

#include <algorithm>

namespace PlatformConfigUI {

void CRightSortFilterProxyModel::setSourceModel(QAbstractItemModel* pSource)
{
    if (sourceModel())
        disconnect(sourceModel(), nullptr, this, nullptr);
    m_pRights = qobject_cast<CRightModel*>(pSource);
    Forget();
    // Before the base hears of it and asks.
    if (m_pRights)
        connect(m_pRights, &QAbstractItemModel::modelReset, this, &CRightSortFilterProxyModel::Forget);
    QSortFilterProxyModel::setSourceModel(pSource);
}

void CRightSortFilterProxyModel::Forget()
{
    m_vecDecided.clear();
    if (m_pRights)
        m_vecDecided.resize(std::size_t(m_pRights->GetNodeCount()), -1);
}

void CRightSortFilterProxyModel::SetMode(int nMode)
{
    m_nMode = nMode;
    FilterAgain();
}

void CRightSortFilterProxyModel::SetText(const QString& sText)
{
    if (m_sText == sText)
        return;
    m_sText = sText;
    FilterAgain();
}

void CRightSortFilterProxyModel::SetGivenOnly(bool bGivenOnly)
{
    m_bGivenOnly = bGivenOnly;
    FilterAgain();
}

void CRightSortFilterProxyModel::FilterAgain()
{
    // All anew instead of row by row: with thousands of scattered rows that is many times quicker.
    if (QAbstractItemModel* const pSource = sourceModel()) {
        setSourceModel(nullptr);
        setSourceModel(pSource);
    }
}

bool CRightSortFilterProxyModel::filterAcceptsRow(int nRow, const QModelIndex& parent) const
{
    return Accepts(m_pRights->GetNode(m_pRights->index(nRow, 0, parent)));
}

bool CRightSortFilterProxyModel::Accepts(int nNode) const
{
    signed char& nDecided = m_vecDecided[std::size_t(nNode)];
    if (nDecided < 0)
        nDecided = Decide(nNode) ? 1 : 0;
    return nDecided == 1;
}

bool CRightSortFilterProxyModel::Decide(int nNode) const
{
    if (!m_pRights->Passes(nNode, m_nMode) || (m_bGivenOnly && !m_pRights->IsAnyGiven(nNode)))
        return false;
    if (MatchesText(nNode) || MatchesItself(nNode))
        return true;
    const std::vector<int>& vecChildren = m_pRights->GetChildren(nNode);
    return std::any_of(
        vecChildren.begin(), vecChildren.end(), [this](int nChild) { return Accepts(nChild); });
}

bool CRightSortFilterProxyModel::MatchesText(int nNode) const
{
    return m_sText.isEmpty()
        || m_pRights->GetText(nNode, filterKeyColumn()).contains(m_sText, Qt::CaseInsensitive);
}

bool CRightSortFilterProxyModel::MatchesItself(int nNode) const
{
    return m_pRights->GetCode(nNode).startsWith(m_sText);
}

} // namespace PlatformConfigUI

#include "RightTreeItems.h"

#include <algorithm>

namespace PlatformConfigUI {

using UserLogical::DeviceRightChange_t;
using UserLogical::DeviceRightNode_t;

CRightTreeItem::CRightTreeItem(DeviceRightNode_t node, CRightTreeItem* pParent, int nRow)
    : m_node(std::move(node))
    , m_pParent(pParent)
    , m_nRow(nRow)
    , m_nState(m_node.nState)
{
    if (pParent && pParent->GetRightAbove() != Change::Keep)
        m_nState =
            pParent->GetRightAbove() == Change::On ? UserLogical::RightStateAll : UserLogical::RightStateNone;
}

std::unique_ptr<CRightTreeItem> CRightTreeItem::Make(
    DeviceRightNode_t node, CRightTreeItem* pParent, int nRow)
{
    switch (node.nKind) {
    case UserLogical::DeviceNodeOrganization:
        return std::make_unique<COrgRightItem>(std::move(node), pParent, nRow);
    case UserLogical::DeviceNodeDevice:
        return std::make_unique<CDeviceRightItem>(std::move(node), pParent, nRow);
    default:
        return std::make_unique<CChannelRightItem>(std::move(node), pParent, nRow);
    }
}

void CRightTreeItem::AddChildren(const std::vector<DeviceRightNode_t>& vecNodes)
{
    m_load = Load::Done;
    m_vecChildren.reserve(m_vecChildren.size() + vecNodes.size());
    for (const DeviceRightNode_t& node : vecNodes) {
        m_vecChildren.push_back(Make(node, this, GetChildCount()));
        CountChild(*m_vecChildren.back(), m_vecChildren.back()->m_nState, 1);
    }
}

bool CRightTreeItem::IsHollow() const
{
    return m_node.nKind == UserLogical::DeviceNodeOrganization && !m_node.bHasChildren;
}

void CRightTreeItem::CountChild(const CRightTreeItem& child, int nState, int nBy)
{
    (child.IsHollow() ? m_hollowCounts : m_counts)[std::size_t(nState)] += nBy;
}

int CRightTreeItem::GetStateOfChildren() const
{
    const auto any = [](const Counts& counts) { return counts[0] + counts[1] + counts[2] > 0; };
    const Counts& counts = any(m_counts) ? m_counts : m_hollowCounts;
    if (counts[UserLogical::RightStatePart] > 0)
        return UserLogical::RightStatePart;
    if (counts[UserLogical::RightStateAll] == 0)
        return UserLogical::RightStateNone;
    return counts[UserLogical::RightStateNone] == 0 ? UserLogical::RightStateAll
                                                    : UserLogical::RightStatePart;
}

/// The change that holds for what lies below this node and has none of its own.
int CRightTreeItem::GetRightAbove() const
{
    for (const CRightTreeItem* pItem = this; pItem; pItem = pItem->m_pParent) {
        if (pItem->m_nRight != Change::Keep)
            return pItem->m_nRight;
    }
    return Change::Keep;
}

void CRightTreeItem::SetChange(int& nChange, int nValue)
{
    const bool bBefore = HasChange();
    nChange = nValue;
    const int nBy = int(HasChange()) - int(bBefore);
    for (CRightTreeItem* pItem = this; nBy != 0 && pItem; pItem = pItem->m_pParent)
        pItem->m_nChanges += nBy;
}

void CRightTreeItem::SetGiven(bool bGiven)
{
    const int nState = bGiven ? UserLogical::RightStateAll : UserLogical::RightStateNone;
    const int nAbove = m_pParent ? m_pParent->GetRightAbove() : int(Change::Keep);
    const int nWanted = bGiven ? Change::On : Change::Off;
    // What holds anyway is no change.
    const bool bHolds = nAbove == Change::Keep ? m_node.nState == nState : nAbove == nWanted;
    const int nBefore = m_nState;
    SetStateBelow(nState);
    SetChange(m_nRight, bHolds ? int(Change::Keep) : nWanted);

    int nOld = nBefore;
    for (CRightTreeItem* pChild = this; pChild->m_pParent; pChild = pChild->m_pParent) {
        CRightTreeItem* const pParent = pChild->m_pParent;
        const int nOfParent = pParent->m_nState;
        pParent->CountChild(*pChild, nOld, -1);
        pParent->CountChild(*pChild, pChild->m_nState, 1);
        pParent->m_nState = pParent->GetStateOfChildren();
        nOld = nOfParent;
    }
}

void CRightTreeItem::SetStateBelow(int nState)
{
    m_nState = nState;
    if (m_nRight != Change::Keep)
        SetChange(m_nRight, Change::Keep);
    m_counts = {};
    m_hollowCounts = {};
    for (const auto& pChild : m_vecChildren) {
        pChild->SetStateBelow(nState);
        CountChild(*pChild, nState, 1);
    }
}

bool CRightTreeItem::IsAuto() const
{
    // A change above holds for what lies below it, too.
    for (const CRightTreeItem* pItem = this; pItem; pItem = pItem->m_pParent) {
        if (pItem->m_nAuto != Change::Keep)
            return pItem->m_nAuto == Change::On;
    }
    return m_node.bAuto;
}

bool CRightTreeItem::IsAutoInherited() const
{
    for (const CRightTreeItem* pItem = m_pParent; pItem; pItem = pItem->m_pParent) {
        if (pItem->IsAuto())
            return true;
    }
    return false;
}

void CRightTreeItem::SetAuto(bool bAuto)
{
    SetChange(m_nAuto, Change::Keep);
    ForgetAutoBelow();
    if (IsAuto() != bAuto)
        SetChange(m_nAuto, bAuto ? Change::On : Change::Off);
}

void CRightTreeItem::ForgetAutoBelow()
{
    for (const auto& pChild : m_vecChildren) {
        if (pChild->m_nAuto != Change::Keep)
            pChild->SetChange(pChild->m_nAuto, Change::Keep);
        pChild->ForgetAutoBelow();
    }
}

void CRightTreeItem::CollectChanges(int nDepth, std::vector<Found>& vecFound) const
{
    if (m_nChanges == 0)
        return;
    if (HasChange())
        vecFound.push_back(
            {nDepth, {m_node.nKind, m_node.sId, m_node.nChannelKind, m_node.nChannel, m_nRight, m_nAuto}});
    for (const auto& pChild : m_vecChildren)
        pChild->CollectChanges(nDepth + 1, vecFound);
}

std::vector<DeviceRightChange_t> CRightTreeItem::GetChanges() const
{
    std::vector<Found> vecFound;
    CollectChanges(0, vecFound);
    std::stable_sort(vecFound.begin(), vecFound.end(), [](const Found& left, const Found& right) {
        return std::pair(left.change.nKind, left.nDepth) < std::pair(right.change.nKind, right.nDepth);
    });
    std::vector<DeviceRightChange_t> vecChanges;
    vecChanges.reserve(vecFound.size());
    for (const Found& found : vecFound)
        vecChanges.push_back(found.change);
    return vecChanges;
}

QString COrgRightItem::GetIconName() const
{
    return GetParent() ? QStringLiteral("organization") : QStringLiteral("organization-root");
}

QString CDeviceRightItem::GetIconName() const
{
    return QStringLiteral("device");
}

QString CChannelRightItem::GetIconName() const
{
    switch (GetNode().nChannelKind) {
    case UserLogical::ChannelVideo:
        return QStringLiteral("camera");
    case UserLogical::ChannelAccess:
        return QStringLiteral("card");
    default:
        return QStringLiteral("channel");
    }
}

} // namespace PlatformConfigUI

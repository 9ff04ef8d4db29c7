#pragma once

#include <UserLogical/UserRecords.h>

#include <QString>

#include <array>
#include <memory>
#include <vector>

namespace PlatformConfigUI {

/// One node of the device rights tree: what roles give there, and what the operator made of it.
class CRightTreeItem
{
public:
    using Change = UserLogical::DeviceRightChange_t::Change;
    enum class Load
    {
        None, ///< what lies below was not asked for
        Running,
        Done
    };

    /// The item that goes with the node's kind.
    static std::unique_ptr<CRightTreeItem> Make(
        UserLogical::DeviceRightNode_t node, CRightTreeItem* pParent, int nRow);
    CRightTreeItem(UserLogical::DeviceRightNode_t node, CRightTreeItem* pParent, int nRow);
    virtual ~CRightTreeItem() = default;

    virtual QString GetIconName() const = 0;
    /// Whether what is added below later can be given beforehand.
    virtual bool HasAuto() const { return false; }

    const UserLogical::DeviceRightNode_t& GetNode() const { return m_node; }
    CRightTreeItem* GetParent() const { return m_pParent; }
    int GetRow() const { return m_nRow; }
    int GetChildCount() const { return int(m_vecChildren.size()); }
    CRightTreeItem* GetChild(int nRow) const { return m_vecChildren[std::size_t(nRow)].get(); }
    Load GetLoad() const { return m_load; }
    void SetLoad(Load load) { m_load = load; }
    /// What lies below: as the change above it says, or as the roles have it.
    void AddChildren(const std::vector<UserLogical::DeviceRightNode_t>& vecNodes);

    /// UserLogical::RightState, with the operator's changes.
    int GetState() const { return m_nState; }
    /// Gives the node with all that lies below it, or takes it; older changes below are gone.
    void SetGiven(bool bGiven);

    bool IsAuto() const;
    /// An organisation above has it, so that this one cannot be without.
    bool IsAutoInherited() const;
    /// With what lies below; changes there are given up.
    void SetAuto(bool bAuto);

    bool HasChange() const { return m_nRight != Change::Keep || m_nAuto != Change::Keep; }
    /// Of the node and all below it: organisations first, from the top down, then devices, then channels.
    std::vector<UserLogical::DeviceRightChange_t> GetChanges() const;

private:
    using Counts = std::array<int, 3>; ///< a state each
    struct Found
    {
        int nDepth;
        UserLogical::DeviceRightChange_t change;
    };
    bool IsHollow() const;
    int GetRightAbove() const;
    void SetChange(int& nChange, int nValue);
    void SetStateBelow(int nState);
    void ForgetAutoBelow();
    void CountChild(const CRightTreeItem& child, int nState, int nBy);
    int GetStateOfChildren() const;
    void CollectChanges(int nDepth, std::vector<Found>& vecFound) const;

    UserLogical::DeviceRightNode_t m_node;
    CRightTreeItem* m_pParent;
    int m_nRow;
    Load m_load = Load::None;
    std::vector<std::unique_ptr<CRightTreeItem>> m_vecChildren;
    int m_nState;
    int m_nRight = Change::Keep;
    int m_nAuto = Change::Keep;
    int m_nChanges = 0; ///< of this node and all below
    Counts m_counts{}; ///< children
    Counts m_hollowCounts{}; ///< children with nothing in them, which say nothing as long as others do
};

/// An organisation.
class COrgRightItem : public CRightTreeItem
{
public:
    using CRightTreeItem::CRightTreeItem;
    QString GetIconName() const override;
    bool HasAuto() const override { return true; }
};

/// A device.
class CDeviceRightItem : public CRightTreeItem
{
public:
    using CRightTreeItem::CRightTreeItem;
    QString GetIconName() const override;
};

/// A channel of a device.
class CChannelRightItem : public CRightTreeItem
{
public:
    using CRightTreeItem::CRightTreeItem;
    QString GetIconName() const override;
};

} // namespace PlatformConfigUI

#pragma once

#include "RightTreeItems.h"

#include <UserLogical/IUserManager.h>
#include <common/CCalls.h>

#include <QAbstractItemModel>
#include <QHash>
#include <QIcon>

#include <memory>

namespace PlatformConfigUI {

/// The tree of organisations, devices and channels, and what roles give of it. What lies below a node is
/// asked for when the node is expanded. User-interface thread.
class CDeviceRightModel : public QAbstractItemModel
{
    Q_OBJECT

public:
    enum Column : int
    {
        ColumnName = 0,
        ColumnRole, ///< the roles that give the node
        ColumnAuto, ///< whether what is added below later is given
        ColumnCount
    };
    enum DataRole : int
    {
        RoleAuto = Qt::UserRole + 1, ///< AutoState
        RoleChanged, ///< the operator changed the node
    };
    enum AutoState : int
    {
        AutoNone = 0, ///< no organisation
        AutoOff,
        AutoOn,
        AutoInherited, ///< on, because it is on above
    };
    enum class State
    {
        Loading,
        Loaded,
        Failed
    };
    using Param = UserLogical::IUserManagerObserve::Param;

    /// pInterfaceSet is borrowed.
    CDeviceRightModel(
        const UICommonMdl::CInterfaceSetManager* pInterfaceSet, bool bEditable, QObject* pParent = nullptr);
    ~CDeviceRightModel() override;

    /// Asks for the root of the tree with the rights of these roles together; changes are given up.
    void ShowRoles(const std::vector<UserLogical::Role_t>& vecRoles);
    /// As ShowRoles with the roles of before, when the root did not come.
    void QueryRoot();
    State GetState() const { return m_state; }
    int GetError() const { return m_nError; }

    /// What the operator changed: organisations first, from the root down, then devices, then channels.
    std::vector<UserLogical::DeviceRightChange_t> GetChanges() const;

    QModelIndex index(int nRow, int nColumn, const QModelIndex& parent = QModelIndex()) const override;
    QModelIndex parent(const QModelIndex& index) const override;
    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    bool hasChildren(const QModelIndex& parent = QModelIndex()) const override;
    /// True as long as what lies below was not asked for; only OnItemExpanded asks.
    bool canFetchMore(const QModelIndex& parent) const override;
    void fetchMore(const QModelIndex& parent) override;
    QVariant data(const QModelIndex& index, int nRole = Qt::DisplayRole) const override;
    bool setData(const QModelIndex& index, const QVariant& vValue, int nRole) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    QVariant headerData(int nSection, Qt::Orientation orientation, int nRole) const override;

public Q_SLOTS:
    /// Asks for what lies below the node, when it was not asked for yet.
    void OnItemExpanded(const QModelIndex& index);
    /// Turns the node's automatic authorization on or off. An inherited one stays.
    void ToggleAuto(const QModelIndex& index);

Q_SIGNALS:
    void SignalStateChanged();
    void SignalBranchLoaded(const QModelIndex& index);
    void SignalBranchFailed(const QModelIndex& index, int nErrorCode);
    void SignalEdited();

private:
    using Nodes = std::vector<UserLogical::DeviceRightNode_t>;
    CRightTreeItem* ItemOf(const QModelIndex& index) const;
    QModelIndex IndexOf(const CRightTreeItem* pItem, int nColumn = ColumnName) const;
    void SendQuery(int nKind, const std::string& sId, std::function<void(const Param&)> handler);
    void OnRoot(const Param& param);
    void OnBranch(CRightTreeItem* pItem, const Param& param);
    Nodes Shown(const Nodes& vecNodes) const;
    void SetState(State state, int nError);
    void TellAbove(const CRightTreeItem* pItem);
    void TellBelow(const CRightTreeItem* pItem, int nColumn);
    int GetAutoState(const CRightTreeItem& item) const;
    QString GetRoleNames(const CRightTreeItem& item) const;
    QVariant GetDecoration(const CRightTreeItem& item) const;

    bool m_bEditable;
    State m_state = State::Loading;
    int m_nError = 0;
    std::vector<std::string> m_vecRoleIds;
    QHash<QString, QString> m_mapRoleNames;
    std::unique_ptr<CRightTreeItem> m_pRoot; ///< null: not there yet, or the roles give nothing
    mutable QHash<QString, QIcon> m_mapIcons;
    Common::CCalls<UserLogical::IUserManagerObserve> m_calls;
};

} // namespace PlatformConfigUI

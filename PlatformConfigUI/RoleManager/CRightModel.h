#pragma once

#include <common/CCalls.h>

#include <QAbstractItemModel>
#include <QHash>
#include <QSet>

#include <vector>

namespace PlatformConfigUI {

/// A tree of the platform's rights of one sort, and which of them roles give. Either one role's, to be
/// changed by check boxes, or several roles' together, to look at. User-interface thread.
class CRightModel : public QAbstractItemModel
{
    Q_OBJECT

public:
    enum Column : int
    {
        ColumnName = 0,
        ColumnRole, ///< the roles that give the right
        ColumnCount
    };
    enum DataRole : int
    {
        RoleKind = Qt::UserRole + 1, ///< UserLogical::RightNodeKind
        RoleCode, ///< right code, text
        RoleChanged, ///< the box was changed since the role was shown
    };
    enum class State
    {
        Loading,
        Loaded,
        Failed
    };
    using Param = UserLogical::IUserManagerObserve::Param;

    /// pInterfaceSet is borrowed.
    CRightModel(
        const UICommonMdl::CInterfaceSetManager* pInterfaceSet, bool bEditable, QObject* pParent = nullptr);

    /// Asks for the platform's rights; what roles give stays as it is meanwhile.
    void Query();
    State GetState() const { return m_state; }
    /// UICommonMdl::ErrorCode of the failure.
    int GetError() const { return m_nError; }

    void ShowRoles(const std::vector<UserLogical::Role_t>& vecRoles);
    /// The rights as they are now, sorted: what the filter hides, or the platform does not know, as before.
    std::vector<std::string> GetGiven() const;

    /// RightFilterMode; boxes count what passes it only, and change no other.
    void SetMode(int nMode);
    int GetNode(const QModelIndex& index) const { return index.isValid() ? int(index.internalId()) : -1; }
    int GetNodeCount() const { return int(m_vecNodes.size()); }
    const std::vector<int>& GetChildren(int nNode) const
    {
        return m_vecNodes[std::size_t(nNode)].vecChildren;
    }
    QString GetText(int nNode, int nColumn) const;
    const QString& GetCode(int nNode) const { return m_vecNodes[std::size_t(nNode)].sCode; }
    bool Passes(int nNode, int nMode) const;
    /// Whether a role gives the right, or one below it that passes the filter.
    bool IsAnyGiven(int nNode) const { return m_vecNodes[std::size_t(nNode)].nGiven > 0; }
    /// What the right is called; empty when the platform has no such right.
    QString GetRightName(const QString& sCode) const;

    QModelIndex index(int nRow, int nColumn, const QModelIndex& parent = QModelIndex()) const override;
    QModelIndex parent(const QModelIndex& index) const override;
    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int nRole = Qt::DisplayRole) const override;
    bool setData(const QModelIndex& index, const QVariant& vValue, int nRole) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    QVariant headerData(int nSection, Qt::Orientation orientation, int nRole) const override;

Q_SIGNALS:
    /// GetState is another one.
    void SignalStateChanged();
    /// The operator changed a box.
    void SignalEdited();

protected:
    using Calls = Common::CCalls<UserLogical::IUserManagerObserve>;
    /// Asks for the rights; the answer goes to TakeRightList.
    virtual void SendQuery(Calls& calls) = 0;
    virtual const std::vector<std::string>& RightsOf(const UserLogical::Role_t& role) const = 0;

    /// Shows the answer; a failed one is logged.
    void TakeRightList(const Param& param);

private:
    struct Node
    {
        QString sName;
        QString sCode;
        int nKind = 0;
        bool bOwn = false; ///< the signed-in user has the right
        int nParent = -1;
        int nRow = 0;
        std::vector<int> vecChildren;
        bool bGiven = false;
        bool bLoaded = false; ///< bGiven when the role was shown
        bool bOffered = false; ///< it and those above pass the filter
        int nOffered = 0; ///< of it and all below
        int nGiven = 0; ///< of those offered
    };
    struct Shown
    {
        QString sName;
        bool bAll; ///< holds every right by itself
        QSet<QString> setRights;
    };
    Node& At(int nNode) { return m_vecNodes[std::size_t(nNode)]; }
    const Node& At(int nNode) const { return m_vecNodes[std::size_t(nNode)]; }
    const std::vector<int>& ChildrenOf(const QModelIndex& parent) const;
    QModelIndex IndexOf(int nNode, int nColumn = ColumnName) const;
    void Fill(const std::vector<UserLogical::RightNode_t>& vecRights);
    void ApplyRoles();
    void Count();
    bool IsGiven(const QString& sCode) const;
    Qt::CheckState GetCheck(const Node& node) const;
    QString GetRoleNames(const QString& sCode) const;
    void GiveBelow(int nNode, bool bGiven);
    void TellBelow(int nNode);
    void SetState(State state, int nError);

    bool m_bEditable;
    int m_nMode = 2;
    State m_state = State::Loading;
    int m_nError = 0;
    std::vector<Node> m_vecNodes; ///< parents before their children
    std::vector<int> m_vecTop;
    QHash<QString, int> m_mapCodes;
    std::vector<Shown> m_vecRoles;
    Calls m_calls;
};

} // namespace PlatformConfigUI

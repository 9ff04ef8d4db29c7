#include "CDeviceRightModel.h"

#include <Trv/QSkin.h>

#include <QCoreApplication>

namespace PlatformConfigUI {

using UserLogical::DeviceRightNode_t;

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CDeviceRightModel)
};

Qt::CheckState ToCheck(int nState)
{
    if (nState == UserLogical::RightStateNone)
        return Qt::Unchecked;
    return nState == UserLogical::RightStateAll ? Qt::Checked : Qt::PartiallyChecked;
}

} // namespace

CDeviceRightModel::CDeviceRightModel(
    const UICommonMdl::CInterfaceSetManager* pInterfaceSet, bool bEditable, QObject* pParent)
    : QAbstractItemModel(pParent)
    , m_bEditable(bEditable)
    , m_calls(pInterfaceSet, this)
{
}

CDeviceRightModel::~CDeviceRightModel() = default;

void CDeviceRightModel::ShowRoles(const std::vector<UserLogical::Role_t>& vecRoles)
{
    m_vecRoleIds.clear();
    m_mapRoleNames.clear();
    for (const UserLogical::Role_t& role : vecRoles) {
        if (role.sRoleId.empty())
            continue;
        m_vecRoleIds.push_back(role.sRoleId);
        m_mapRoleNames.insert(QString::fromStdString(role.sRoleId), QString::fromStdString(role.sName));
    }
    QueryRoot();
}

void CDeviceRightModel::QueryRoot()
{
    // Branches of the tree of before that are still on their way are nobody's.
    m_calls.ForgetAll();
    beginResetModel();
    m_pRoot.reset();
    endResetModel();
    if (!m_bEditable && m_vecRoleIds.empty()) {
        SetState(State::Loaded, UICommonMdl::ErrorNone);
        return;
    }
    SendQuery(
        UserLogical::DeviceNodeOrganization, std::string(), [this](const Param& param) { OnRoot(param); });
    SetState(State::Loading, UICommonMdl::ErrorNone);
}

void CDeviceRightModel::SendQuery(
    int nKind, const std::string& sId, std::function<void(const Param&)> handler)
{
    m_calls.Each<&UserLogical::IUserManager::QueryDeviceRights>(
        UserLogical::DeviceRightQuery_t{nKind, sId, m_vecRoleIds}, std::move(handler));
}

void CDeviceRightModel::OnRoot(const Param& param)
{
    if (param.nErrorCode != UICommonMdl::ErrorNone) {
        SetState(State::Failed, param.nErrorCode);
        return;
    }
    const Nodes vecRoots = Shown(param.vecNodes);
    if (!vecRoots.empty()) {
        beginInsertRows(QModelIndex(), 0, 0);
        m_pRoot = CRightTreeItem::Make(vecRoots.front(), nullptr, 0);
        endInsertRows();
    }
    SetState(State::Loaded, UICommonMdl::ErrorNone);
}

void CDeviceRightModel::SetState(State state, int nError)
{
    m_state = state;
    m_nError = nError;
    Q_EMIT SignalStateChanged();
}

CDeviceRightModel::Nodes CDeviceRightModel::Shown(const Nodes& vecNodes) const
{
    if (m_bEditable)
        return vecNodes;
    Nodes vecShown;
    std::copy_if(
        vecNodes.begin(), vecNodes.end(), std::back_inserter(vecShown), [](const DeviceRightNode_t& node) {
            return node.nState != UserLogical::RightStateNone || node.bAuto;
        });
    return vecShown;
}

void CDeviceRightModel::OnItemExpanded(const QModelIndex& index)
{
    CRightTreeItem* const pItem = ItemOf(index);
    if (!pItem || !canFetchMore(index) || pItem->GetLoad() == CRightTreeItem::Load::Running)
        return;
    SendQuery(pItem->GetNode().nKind, pItem->GetNode().sId,
        [this, pItem](const Param& param) { OnBranch(pItem, param); });
    pItem->SetLoad(CRightTreeItem::Load::Running);
    Q_EMIT dataChanged(index, index, {Qt::DecorationRole});
}

void CDeviceRightModel::OnBranch(CRightTreeItem* pItem, const Param& param)
{
    const QModelIndex index = IndexOf(pItem);
    pItem->SetLoad(CRightTreeItem::Load::None);
    if (param.nErrorCode != UICommonMdl::ErrorNone) {
        Q_EMIT dataChanged(index, index, {Qt::DecorationRole});
        Q_EMIT SignalBranchFailed(index, param.nErrorCode);
        return;
    }
    const Nodes vecNodes = Shown(param.vecNodes);
    if (vecNodes.empty()) {
        pItem->AddChildren({});
    } else {
        beginInsertRows(index, 0, int(vecNodes.size()) - 1);
        pItem->AddChildren(vecNodes);
        endInsertRows();
    }
    Q_EMIT dataChanged(index, index, {Qt::DecorationRole});
    Q_EMIT SignalBranchLoaded(index);
}

std::vector<UserLogical::DeviceRightChange_t> CDeviceRightModel::GetChanges() const
{
    return m_pRoot ? m_pRoot->GetChanges() : std::vector<UserLogical::DeviceRightChange_t>();
}

CRightTreeItem* CDeviceRightModel::ItemOf(const QModelIndex& index) const
{
    return index.isValid() ? static_cast<CRightTreeItem*>(index.internalPointer()) : nullptr;
}

QModelIndex CDeviceRightModel::IndexOf(const CRightTreeItem* pItem, int nColumn) const
{
    return createIndex(pItem->GetRow(), nColumn, const_cast<CRightTreeItem*>(pItem));
}

QModelIndex CDeviceRightModel::index(int nRow, int nColumn, const QModelIndex& parent) const
{
    if (nRow < 0 || nRow >= rowCount(parent) || nColumn < 0 || nColumn >= ColumnCount)
        return {};
    const CRightTreeItem* const pParent = ItemOf(parent);
    return createIndex(nRow, nColumn, pParent ? pParent->GetChild(nRow) : m_pRoot.get());
}

QModelIndex CDeviceRightModel::parent(const QModelIndex& index) const
{
    const CRightTreeItem* const pItem = ItemOf(index);
    return pItem && pItem->GetParent() ? IndexOf(pItem->GetParent()) : QModelIndex();
}

int CDeviceRightModel::rowCount(const QModelIndex& parent) const
{
    if (!parent.isValid())
        return m_pRoot ? 1 : 0;
    return parent.column() > 0 ? 0 : ItemOf(parent)->GetChildCount();
}

int CDeviceRightModel::columnCount(const QModelIndex&) const
{
    return ColumnCount;
}

bool CDeviceRightModel::hasChildren(const QModelIndex& parent) const
{
    return rowCount(parent) > 0 || canFetchMore(parent);
}

bool CDeviceRightModel::canFetchMore(const QModelIndex& parent) const
{
    const CRightTreeItem* const pItem = parent.column() > 0 ? nullptr : ItemOf(parent);
    return pItem && pItem->GetLoad() != CRightTreeItem::Load::Done && pItem->GetNode().bHasChildren;
}

void CDeviceRightModel::fetchMore(const QModelIndex&) { }

int CDeviceRightModel::GetAutoState(const CRightTreeItem& item) const
{
    if (!item.HasAuto())
        return AutoNone;
    if (item.IsAutoInherited())
        return AutoInherited;
    return item.IsAuto() ? AutoOn : AutoOff;
}

QString CDeviceRightModel::GetRoleNames(const CRightTreeItem& item) const
{
    QStringList listNames;
    for (const std::string& sRoleId : item.GetNode().vecRoleIds)
        listNames.append(m_mapRoleNames.value(QString::fromStdString(sRoleId)));
    listNames.removeAll(QString());
    return listNames.join(QStringLiteral(", "));
}

QVariant CDeviceRightModel::GetDecoration(const CRightTreeItem& item) const
{
    const QString sName =
        item.GetLoad() == CRightTreeItem::Load::Running ? QStringLiteral("loading") : item.GetIconName();
    const auto it = m_mapIcons.constFind(sName);
    return it == m_mapIcons.constEnd() ? *m_mapIcons.insert(sName, Trv::GetIcon(sName)) : *it;
}

QVariant CDeviceRightModel::data(const QModelIndex& index, int nRole) const
{
    const CRightTreeItem* const pItem = ItemOf(index);
    if (!pItem)
        return {};
    if (nRole == RoleAuto)
        return GetAutoState(*pItem);
    if (nRole == RoleChanged)
        return pItem->HasChange();
    if (index.column() == ColumnAuto) {
        if (nRole == Qt::AccessibleTextRole && pItem->HasAuto())
            return GetAutoState(*pItem) == AutoOff ? Text::tr("Off") : Text::tr("On");
        if (nRole != Qt::ToolTipRole || !pItem->HasAuto())
            return {};
        return GetAutoState(*pItem) == AutoOff
            ? Text::tr("Users will not have the permissions of the devices added to the organization or "
                       "sub-organization. You need to configure permissions manually.")
            : Text::tr("After Auto Authorization is enabled, users will automatically have the permission of "
                       "devices added to the organization or sub-organization.");
    }
    if (nRole == Qt::DisplayRole || nRole == Qt::ToolTipRole)
        return index.column() == ColumnName ? QString::fromStdString(pItem->GetNode().sName)
                                            : GetRoleNames(*pItem);
    if (index.column() == ColumnName && nRole == Qt::CheckStateRole)
        return ToCheck(pItem->GetState());
    return index.column() == ColumnName && nRole == Qt::DecorationRole ? GetDecoration(*pItem) : QVariant();
}

bool CDeviceRightModel::setData(const QModelIndex& index, const QVariant& vValue, int nRole)
{
    CRightTreeItem* const pItem = ItemOf(index);
    if (!pItem || index.column() != ColumnName || nRole != Qt::CheckStateRole || !m_bEditable)
        return false;
    pItem->SetGiven(vValue.toInt() != Qt::Unchecked);
    TellAbove(pItem);
    TellBelow(pItem, ColumnName);
    Q_EMIT SignalEdited();
    return true;
}

void CDeviceRightModel::ToggleAuto(const QModelIndex& index)
{
    CRightTreeItem* const pItem = ItemOf(index);
    if (!pItem || !m_bEditable || !pItem->HasAuto() || pItem->IsAutoInherited())
        return;
    pItem->SetAuto(!pItem->IsAuto());
    const QModelIndex changed = IndexOf(pItem, ColumnAuto);
    Q_EMIT dataChanged(changed, changed);
    TellBelow(pItem, ColumnAuto);
    Q_EMIT SignalEdited();
}

void CDeviceRightModel::TellAbove(const CRightTreeItem* pItem)
{
    for (; pItem; pItem = pItem->GetParent())
        Q_EMIT dataChanged(IndexOf(pItem), IndexOf(pItem), {Qt::CheckStateRole});
}

void CDeviceRightModel::TellBelow(const CRightTreeItem* pItem, int nColumn)
{
    const int nCount = pItem->GetChildCount();
    if (nCount == 0)
        return;
    Q_EMIT dataChanged(IndexOf(pItem->GetChild(0), nColumn), IndexOf(pItem->GetChild(nCount - 1), nColumn));
    for (int nRow = 0; nRow < nCount; ++nRow)
        TellBelow(pItem->GetChild(nRow), nColumn);
}

Qt::ItemFlags CDeviceRightModel::flags(const QModelIndex& index) const
{
    if (!index.isValid())
        return Qt::NoItemFlags;
    const Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    return m_bEditable && index.column() == ColumnName ? flags | Qt::ItemIsUserCheckable : flags;
}

QVariant CDeviceRightModel::headerData(int nSection, Qt::Orientation orientation, int nRole) const
{
    if (orientation != Qt::Horizontal || nRole != Qt::DisplayRole)
        return {};
    const QString titles[] = {
        Text::tr("Organization, Device or Channel"), Text::tr("Role"), Text::tr("Auto Authorization")};
    return titles[nSection];
}

} // namespace PlatformConfigUI

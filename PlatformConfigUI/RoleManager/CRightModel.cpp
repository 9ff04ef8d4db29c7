#include "CRightModel.h"

#include "RightRules.h"

#include <QCoreApplication>
#include <QLoggingCategory>

#include <algorithm>

namespace PlatformConfigUI {

using UserLogical::Role_t;

namespace {

Q_LOGGING_CATEGORY(LogRights, "platform.rights")

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CRightModel)
};

} // namespace

CRightModel::CRightModel(
    const UICommonMdl::CInterfaceSetManager* pInterfaceSet, bool bEditable, QObject* pParent)
    : QAbstractItemModel(pParent)
    , m_bEditable(bEditable)
    , m_calls(pInterfaceSet, this)
{
}

void CRightModel::Query()
{
    SendQuery(m_calls);
    SetState(State::Loading, UICommonMdl::ErrorNone);
}

void CRightModel::TakeRightList(const Param& param)
{
    if (param.nErrorCode != UICommonMdl::ErrorNone) {
        qCInfo(LogRights, "Get right list error[%d].", param.nErrorCode);
        SetState(State::Failed, param.nErrorCode);
        return;
    }
    Fill(param.vecRights);
    SetState(State::Loaded, UICommonMdl::ErrorNone);
}

void CRightModel::SetState(State state, int nError)
{
    m_state = state;
    m_nError = nError;
    Q_EMIT SignalStateChanged();
}

void CRightModel::Fill(const std::vector<UserLogical::RightNode_t>& vecRights)
{
    // What was changed before the tree came anew is kept.
    if (m_bEditable && !m_vecNodes.empty() && !m_vecRoles.empty()) {
        QSet<QString> setGiven;
        for (const std::string& sCode : GetGiven())
            setGiven.insert(QString::fromStdString(sCode));
        m_vecRoles.front().setRights = setGiven;
        m_vecRoles.front().bAll = false;
    }
    UserLogical::IUserManager* const pManager = m_calls.GetManager();
    UserLogical::IUserRight* const pRight = pManager ? pManager->GetUserRight() : nullptr;
    beginResetModel();
    m_vecNodes.clear();
    m_vecNodes.reserve(vecRights.size());
    m_vecTop.clear();
    m_mapCodes.clear();
    for (const UserLogical::RightNode_t& right : vecRights) {
        Node node;
        node.sName = QString::fromStdString(right.sName);
        node.sCode = QString::fromStdString(right.sCode);
        node.nKind = right.nKind;
        node.bOwn = pRight && pRight->HasRight(right.sCode);
        node.nParent = m_mapCodes.value(GetParentCode(node.sCode), -1);
        const int nNode = int(m_vecNodes.size());
        std::vector<int>& vecSiblings = node.nParent < 0 ? m_vecTop : At(node.nParent).vecChildren;
        node.nRow = int(vecSiblings.size());
        vecSiblings.push_back(nNode);
        m_mapCodes.insert(node.sCode, nNode);
        m_vecNodes.push_back(std::move(node));
    }
    ApplyRoles();
    endResetModel();
}

void CRightModel::ShowRoles(const std::vector<Role_t>& vecRoles)
{
    beginResetModel();
    m_vecRoles.clear();
    for (const Role_t& role : vecRoles) {
        Shown shown{QString::fromStdString(role.sName), role.bBuiltIn, {}};
        for (const std::string& sCode : RightsOf(role))
            shown.setRights.insert(QString::fromStdString(sCode));
        m_vecRoles.push_back(std::move(shown));
    }
    ApplyRoles();
    endResetModel();
}

void CRightModel::SetMode(int nMode)
{
    beginResetModel();
    m_nMode = nMode;
    Count();
    endResetModel();
}

bool CRightModel::IsGiven(const QString& sCode) const
{
    return std::any_of(m_vecRoles.begin(), m_vecRoles.end(),
        [&](const Shown& role) { return role.bAll || role.setRights.contains(sCode); });
}

void CRightModel::ApplyRoles()
{
    for (Node& node : m_vecNodes)
        node.bGiven = node.bLoaded = IsGiven(node.sCode);
    Count();
}

void CRightModel::Count()
{
    for (Node& node : m_vecNodes) {
        node.bOffered = (node.nParent < 0 || At(node.nParent).bOffered)
            && PassesRightFilter(m_nMode, node.nKind, node.bOwn, node.sCode);
        node.nOffered = node.bOffered ? 1 : 0;
        node.nGiven = node.bOffered && node.bGiven ? 1 : 0;
    }
    for (auto it = m_vecNodes.rbegin(); it != m_vecNodes.rend(); ++it) {
        if (it->nParent < 0)
            continue;
        At(it->nParent).nOffered += it->nOffered;
        At(it->nParent).nGiven += it->nGiven;
    }
}

std::vector<std::string> CRightModel::GetGiven() const
{
    std::vector<std::string> vecCodes;
    for (const Shown& role : m_vecRoles) {
        for (const QString& sCode : role.setRights) {
            if (!m_mapCodes.contains(sCode))
                vecCodes.push_back(sCode.toStdString());
        }
    }
    for (const Node& node : m_vecNodes) {
        if (node.bGiven)
            vecCodes.push_back(node.sCode.toStdString());
    }
    std::sort(vecCodes.begin(), vecCodes.end());
    vecCodes.erase(std::unique(vecCodes.begin(), vecCodes.end()), vecCodes.end());
    return vecCodes;
}

QString CRightModel::GetText(int nNode, int nColumn) const
{
    return nColumn == ColumnName ? At(nNode).sName : GetRoleNames(At(nNode).sCode);
}

bool CRightModel::Passes(int nNode, int nMode) const
{
    const Node& node = At(nNode);
    return PassesRightFilter(nMode, node.nKind, node.bOwn, node.sCode);
}

QString CRightModel::GetRightName(const QString& sCode) const
{
    const int nNode = m_mapCodes.value(sCode, -1);
    return nNode < 0 ? QString() : At(nNode).sName;
}

QString CRightModel::GetRoleNames(const QString& sCode) const
{
    QStringList listNames;
    for (const Shown& role : m_vecRoles) {
        if (role.bAll || role.setRights.contains(sCode))
            listNames.append(role.sName);
    }
    return listNames.join(QStringLiteral(", "));
}

const std::vector<int>& CRightModel::ChildrenOf(const QModelIndex& parent) const
{
    return parent.isValid() ? At(GetNode(parent)).vecChildren : m_vecTop;
}

QModelIndex CRightModel::IndexOf(int nNode, int nColumn) const
{
    return createIndex(At(nNode).nRow, nColumn, quintptr(nNode));
}

QModelIndex CRightModel::index(int nRow, int nColumn, const QModelIndex& parent) const
{
    const std::vector<int>& vecChildren = ChildrenOf(parent);
    if (nRow < 0 || nRow >= int(vecChildren.size()) || nColumn < 0 || nColumn >= ColumnCount)
        return {};
    return createIndex(nRow, nColumn, quintptr(vecChildren[std::size_t(nRow)]));
}

QModelIndex CRightModel::parent(const QModelIndex& index) const
{
    const int nParent = index.isValid() ? At(GetNode(index)).nParent : -1;
    return nParent < 0 ? QModelIndex() : IndexOf(nParent);
}

int CRightModel::rowCount(const QModelIndex& parent) const
{
    return parent.column() > 0 ? 0 : int(ChildrenOf(parent).size());
}

int CRightModel::columnCount(const QModelIndex&) const
{
    return ColumnCount;
}

Qt::CheckState CRightModel::GetCheck(const Node& node) const
{
    if (node.nGiven == 0)
        return Qt::Unchecked;
    // A part of it is one that is ticked below; what is given by itself is given.
    const bool bAlone = node.bGiven && node.nGiven == 1;
    return bAlone || node.nGiven == node.nOffered ? Qt::Checked : Qt::PartiallyChecked;
}

QVariant CRightModel::data(const QModelIndex& index, int nRole) const
{
    if (!index.isValid())
        return {};
    const Node& node = At(GetNode(index));
    switch (nRole) {
    case Qt::DisplayRole:
    case Qt::ToolTipRole:
        return GetText(GetNode(index), index.column());
    case Qt::CheckStateRole:
        return index.column() == ColumnName ? QVariant(GetCheck(node)) : QVariant();
    case RoleKind:
        return node.nKind;
    case RoleCode:
        return node.sCode;
    case RoleChanged:
        return node.bGiven != node.bLoaded;
    }
    return {};
}

bool CRightModel::setData(const QModelIndex& index, const QVariant& vValue, int nRole)
{
    if (!index.isValid() || index.column() != ColumnName || nRole != Qt::CheckStateRole || !m_bEditable)
        return false;
    const int nNode = GetNode(index);
    const bool bGiven = vValue.toInt() != Qt::Unchecked;
    const int nBefore = At(nNode).nGiven;
    GiveBelow(nNode, bGiven);
    int nDelta = At(nNode).nGiven - nBefore;
    for (int nParent = At(nNode).nParent; nParent >= 0; nParent = At(nParent).nParent) {
        Node& parent = At(nParent);
        // A right is worth nothing without the one above it.
        if (bGiven && parent.bOffered && !parent.bGiven) {
            parent.bGiven = true;
            ++nDelta;
        }
        parent.nGiven += nDelta;
        // A heading at the top opens nothing: it goes with the last right below it.
        if (!bGiven && parent.nParent < 0 && parent.bGiven && parent.nGiven == 1) {
            parent.bGiven = false;
            parent.nGiven = 0;
        }
        Q_EMIT dataChanged(IndexOf(nParent), IndexOf(nParent), {Qt::CheckStateRole});
    }
    Q_EMIT dataChanged(index, index, {Qt::CheckStateRole});
    TellBelow(nNode);
    Q_EMIT SignalEdited();
    return true;
}

void CRightModel::GiveBelow(int nNode, bool bGiven)
{
    Node& node = At(nNode);
    if (!node.bOffered)
        return;
    node.bGiven = bGiven;
    node.nGiven = bGiven ? 1 : 0;
    for (const int nChild : node.vecChildren) {
        GiveBelow(nChild, bGiven);
        node.nGiven += At(nChild).nGiven;
    }
}

void CRightModel::TellBelow(int nNode)
{
    const std::vector<int>& vecChildren = GetChildren(nNode);
    if (vecChildren.empty())
        return;
    Q_EMIT dataChanged(IndexOf(vecChildren.front()), IndexOf(vecChildren.back()), {Qt::CheckStateRole});
    for (const int nChild : vecChildren)
        TellBelow(nChild);
}

Qt::ItemFlags CRightModel::flags(const QModelIndex& index) const
{
    if (!index.isValid())
        return Qt::NoItemFlags;
    const Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    return m_bEditable && index.column() == ColumnName ? flags | Qt::ItemIsUserCheckable : flags;
}

QVariant CRightModel::headerData(int nSection, Qt::Orientation orientation, int nRole) const
{
    if (orientation != Qt::Horizontal || nRole != Qt::DisplayRole)
        return {};
    return nSection == ColumnName ? Text::tr("Right") : Text::tr("Role");
}

} // namespace PlatformConfigUI

#include "CRoleModel.h"

#include <QCoreApplication>

#include <algorithm>

namespace PlatformConfigUI {

using UserLogical::Role_t;

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CRoleManagerCtrl)
};

QVector<Common::Column> MakeColumns()
{
    return {{QString(), true}, {Text::tr("Role"), true}, {Text::tr("Remark"), true},
        {Text::tr("Operation"), true}, {QString(), false}};
}

} // namespace

CRoleModel::CRoleModel(QObject* pParent)
    : CTableModel(MakeColumns(), RoleColumnId, RoleColumnCheck, pParent)
{
}

void CRoleModel::SetRoles(const std::vector<Role_t>& vecRoles)
{
    m_vecRoles = vecRoles;
    QVector<Row> vecRows;
    for (const Role_t& role : vecRoles)
        vecRows.append({MakeItem(), MakeItem(QString::fromStdString(role.sName)),
            MakeItem(QString::fromStdString(role.sRemark)), MakeItem(),
            MakeItem(QString::fromStdString(role.sRoleId))});
    SetRows(vecRows);
}

const Role_t* CRoleModel::FindRole(const QString& sId) const
{
    const int nRow = FindRow(sId);
    return nRow < 0 ? nullptr : &m_vecRoles[std::size_t(nRow)];
}

bool CRoleModel::IsBuiltIn(int nRow) const
{
    return nRow >= 0 && nRow < int(m_vecRoles.size()) && m_vecRoles[std::size_t(nRow)].bBuiltIn;
}

QStringList CRoleModel::GetCheckedRoles() const
{
    QStringList listIds = GetCheckedIds();
    listIds.erase(std::remove_if(listIds.begin(), listIds.end(),
                      [this](const QString& sId) { return FindRole(sId)->bBuiltIn; }),
        listIds.end());
    return listIds;
}

Qt::CheckState CRoleModel::GetSummary() const
{
    const int nChecked = GetCheckedRoles().size();
    if (nChecked == 0)
        return Qt::Unchecked;
    const auto nBuiltIn =
        std::count_if(m_vecRoles.begin(), m_vecRoles.end(), [](const Role_t& role) { return role.bBuiltIn; });
    return nChecked == rowCount() - int(nBuiltIn) ? Qt::Checked : Qt::PartiallyChecked;
}

QVariant CRoleModel::data(const QModelIndex& index, int nRole) const
{
    if (nRole == Qt::CheckStateRole && IsBuiltIn(index.row()))
        return {};
    return CTableModel::data(index, nRole);
}

Qt::ItemFlags CRoleModel::flags(const QModelIndex& index) const
{
    const Qt::ItemFlags flags = CTableModel::flags(index);
    return IsBuiltIn(index.row()) ? flags & ~Qt::ItemIsUserCheckable : flags;
}

} // namespace PlatformConfigUI

#include "CRoleModel.h"

#include <QCoreApplication>

namespace PlatformConfigUI {

using UserLogical::Role_t;

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CRoleManagerCtrl)
};

QVector<Common::Column> MakeColumns()
{
    using Width = Common::ColumnWidth;
    constexpr int NotSorted = Common::Column::NotSorted;
    return {{QString(), true, Width::Fixed}, {Text::tr("Role"), true, Width::Text, NotSorted, false},
        {Text::tr("Remark"), true, Width::Stretch},
        {Text::tr("Operation"), true, Width::Content, NotSorted, false}, {QString(), false}};
}

} // namespace

CRoleModel::CRoleModel(QObject* pParent)
    : CTableModel(MakeColumns(), RoleColumnId, RoleColumnCheck, pParent)
{
    KeepChecks(RoleColumnName);
}

void CRoleModel::SetRoles(const std::vector<Role_t>& vecRoles)
{
    m_vecRoles = vecRoles;
    QVector<Row> vecRows;
    QSet<QString> setBuiltIn;
    for (const Role_t& role : vecRoles) {
        const QString sId = QString::fromStdString(role.sRoleId);
        vecRows.append({MakeItem(), MakeItem(QString::fromStdString(role.sName)),
            MakeItem(QString::fromStdString(role.sRemark)), MakeItem(), MakeItem(sId)});
        if (role.bBuiltIn)
            setBuiltIn.insert(sId);
    }
    SetRows(vecRows, setBuiltIn);
}

const Role_t* CRoleModel::FindRole(const QString& sId) const
{
    const int nRow = FindRow(sId);
    return nRow < 0 ? nullptr : &m_vecRoles[std::size_t(nRow)];
}

} // namespace PlatformConfigUI

#include "CUserModel.h"

#include "UserRules.h"

#include <Trv/QSkin.h>

#include <QCoreApplication>

namespace PlatformConfigUI {

using UserLogical::UserInfo_t;

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CUserManagerUserCtrl)
};

QVector<Common::Column> MakeColumns()
{
    using Width = Common::ColumnWidth;
    constexpr int NotSorted = Common::Column::NotSorted;
    return {{QString(), true, Width::Fixed}, {Text::tr("Username"), true, Width::Text, NotSorted, false},
        {Text::tr("Role"), true, Width::Stretch}, {Text::tr("Status")}, {Text::tr("User Type")},
        {Text::tr("Operation"), true, Width::Content, NotSorted, false}};
}

} // namespace

CUserModel::CUserModel(QObject* pParent)
    : CTableModel(MakeColumns(), UserColumnName, UserColumnCheck, pParent)
{
    KeepChecks(UserColumnName);
}

void CUserModel::SetUsers(const std::vector<UserInfo_t>& vecUsers)
{
    const QIcon online = Trv::GetIcon(QStringLiteral("online"));
    const QIcon offline = Trv::GetIcon(QStringLiteral("offline"));
    const QIcon locked = Trv::GetIcon(QStringLiteral("locked"));
    QVector<Row> vecRows;
    vecRows.reserve(int(vecUsers.size()));
    for (const UserInfo_t& user : vecUsers) {
        const QString sName = QString::fromStdString(user.sUserName);
        Row row{MakeItem(), MakeItem(sName), MakeItem(FromNames(user.vecRoleNames).join(QLatin1Char(','))),
            MakeItem(GetOnlineText(user.bOnline)), MakeItem(GetUserTypeText(user.nUserType)), MakeItem()};
        row[UserColumnStatus]->setIcon(user.bOnline ? online : offline);
        if (user.nLockState != UserLogical::LockStateUsable) {
            row[UserColumnName]->setIcon(locked);
            row[UserColumnName]->setData(Text::tr("%1, locked").arg(sName), Qt::AccessibleTextRole);
        }
        for (QStandardItem* pItem : row) {
            pItem->setData(sName, UserRoleName);
            pItem->setData(user.sUserName != UserLogical::BuiltInUserName, UserRoleAllowed);
            pItem->setData(user.nLockState, UserRoleLockState);
        }
        vecRows.append(row);
    }
    SetRows(vecRows);
}

} // namespace PlatformConfigUI

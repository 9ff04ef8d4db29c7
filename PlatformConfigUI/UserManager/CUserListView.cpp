#include "CUserListView.h"

#include "CUserListHeader.h"
#include "CUserModel.h"

#include <QCoreApplication>

namespace PlatformConfigUI {

namespace {
struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CUserListView)
};
} // namespace

CUserListView::CUserListView(QWidget* pParent)
    : CListView(pParent)
    , m_pModel(new CUserModel(this))
    , m_pHeader(new CUserListHeader(this))
{
    setObjectName(QStringLiteral("listUsers"));
    setAccessibleName(Text::tr("Users"));
    m_pHeader->setObjectName(QStringLiteral("headerUsers"));
    const Operation lock{RoleLock, "lock", Text::tr("Lock")};
    const Operation unlock{RoleUnlock, "unlock", Text::tr("Unlock")};
    const Operation edit{RoleEdit, "edit", Text::tr("Edit")};
    const Operation remove{RoleDelete, "delete", Text::tr("Delete")};
    const Operation details{RoleDetails, "details", Text::tr("User Details")};
    SetUp(m_pModel, m_pHeader, {UserColumnCheck, UserColumnName, UserColumnOperation},
        {lock, unlock, edit, remove, details});
    SetMenu(QStringLiteral("menuUser"), {details, edit, lock, unlock, remove});
    AddKey(Qt::Key_Return, RoleDetails);
    AddKey(Qt::Key_Enter, RoleDetails);
    AddKey(Qt::Key_F2, RoleEdit);
    AddKey(Qt::Key_Delete, RoleDelete);
    AddKey(QKeySequence(QStringLiteral("Alt+S")), [this] { m_pHeader->OpenFilter(UserColumnStatus); });
    AddKey(QKeySequence(QStringLiteral("Alt+T")), [this] { m_pHeader->OpenFilter(UserColumnType); });
}

bool CUserListView::IsOffered(const QModelIndex& index, int nRole) const
{
    if (nRole == RoleDetails)
        return !IsChangeable();
    if (!IsChangeable())
        return false;
    if (nRole == RoleEdit)
        return true;
    const bool bUsable = index.data(UserRoleLockState).toInt() == UserLogical::LockStateUsable;
    return index.data(UserRoleAllowed).toBool() && (nRole == RoleDelete || (nRole == RoleLock) == bUsable);
}

bool CUserListView::IsInMenu(const QModelIndex& index, int nRole) const
{
    return nRole == RoleDetails || IsOffered(index, nRole);
}

void CUserListView::OpenRow(const QModelIndex& index)
{
    RaiseOperation(IsChangeable() ? RoleEdit : RoleDetails, index);
}

void CUserListView::SetUsers(const std::vector<UserLogical::UserInfo_t>& vecUsers)
{
    ReplaceRows([&] { m_pModel->SetUsers(vecUsers); });
}

} // namespace PlatformConfigUI

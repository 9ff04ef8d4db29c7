#include "CRoleListView.h"

#include "CRoleModel.h"

#include <common/CFilterHeaderView.h>

#include <QCoreApplication>

namespace PlatformConfigUI {

namespace {
struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CRoleManagerCtrl)
};
} // namespace

CRoleListView::CRoleListView(QWidget* pParent)
    : CListView(pParent)
    , m_pModel(new CRoleModel(this))
{
    setObjectName(QStringLiteral("treeRole"));
    setAccessibleName(Text::tr("Roles"));
    auto* const pHeader = new Common::CFilterHeaderView(this);
    pHeader->setObjectName(QStringLiteral("headerRoles"));
    const Operation edit{RoleEdit, "edit", Text::tr("Edit")};
    const Operation remove{RoleDelete, "delete", Text::tr("Delete")};
    const Operation details{RoleDetails, "details", Text::tr("Role Details")};
    SetUp(m_pModel, pHeader, {RoleColumnCheck, RoleColumnName, RoleColumnOperation}, {edit, remove, details});
    setColumnHidden(RoleColumnId, true);
    SetMenu(QStringLiteral("menuRole"), {details, edit, remove});
    AddKey(Qt::Key_Return, RoleDetails);
    AddKey(Qt::Key_Enter, RoleDetails);
    AddKey(Qt::Key_F2, RoleEdit);
    AddKey(Qt::Key_Delete, RoleDelete);
}

void CRoleListView::SetRoles(const std::vector<UserLogical::Role_t>& vecRoles)
{
    ReplaceRows([&] { m_pModel->SetRoles(vecRoles); });
}

bool CRoleListView::IsAllowed(const QString& sId, int nRole) const
{
    const UserLogical::Role_t* const pRole = m_pModel->FindRole(sId);
    return pRole && (nRole == RoleDetails || (IsChangeable() && !pRole->bBuiltIn));
}

bool CRoleListView::IsOffered(const QModelIndex& index, int nRole) const
{
    // The details stand in for what cannot be had; where the role can be edited the menu has them.
    const QString sId = m_pModel->GetId(index.row());
    return nRole == RoleDetails ? !IsAllowed(sId, RoleEdit) : IsAllowed(sId, nRole);
}

bool CRoleListView::IsInMenu(const QModelIndex& index, int nRole) const
{
    return IsAllowed(m_pModel->GetId(index.row()), nRole);
}

void CRoleListView::OpenRow(const QModelIndex& index)
{
    RaiseOperation(IsAllowed(m_pModel->GetId(index.row()), RoleEdit) ? RoleEdit : RoleDetails, index);
}

} // namespace PlatformConfigUI

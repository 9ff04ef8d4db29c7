#include "CPersonnelListView.h"

#include <common/CFilterHeaderView.h>

#include <QCoreApplication>

namespace BasicInfoManagerUI {

namespace {
struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CPersonnelListView)
};
} // namespace

CPersonnelListView::CPersonnelListView(QWidget* pParent)
    : CListView(pParent)
    , m_pModel(new CPersonModel(this))
{
    setObjectName(QStringLiteral("m_pPersonnelListView"));
    setAccessibleName(Text::tr("Persons"));
    auto* const pHeader = new Common::CFilterHeaderView(this);
    pHeader->setObjectName(QStringLiteral("headerPersons"));
    setIconSize(QSize(CPersonModel::PhotoSide, CPersonModel::PhotoSide));
    const Operation details{RoleDetails, "details", Text::tr("Details")};
    const Operation edit{RoleEdit, "edit", Text::tr("Edit")};
    const Operation remove{RoleDelete, "delete", Text::tr("Delete")};
    const Operation qrCode{RoleQrCode, "qr-code", Text::tr("QR Code")};
    SetUp(m_pModel, pHeader, {PersonColumnCheck, PersonColumnName, PersonColumnOperation},
        {edit, remove, {RoleHistory, "history", Text::tr("Query Log")},
            {RoleReissue, "reissue", Text::tr("Re-issue")}, qrCode,
            {RoleAbnormal, "warning", Text::tr("Authorization error")}, details});
    SetMenu(QStringLiteral("menuPerson"),
        {details, edit, {RoleMove, "move", Text::tr("Move To")}, remove,
            {RoleHistory, "history", Text::tr("History")}, qrCode});
    AddKey(Qt::Key_Return, [this] { OpenRow(currentIndex()); });
    AddKey(Qt::Key_Enter, [this] { OpenRow(currentIndex()); });
    AddKey(Qt::Key_F2, RoleEdit);
    AddKey(Qt::Key_Delete, RoleDelete);
}

bool CPersonnelListView::IsOffered(const QModelIndex& index, int nRole) const
{
    // The details stand in for what cannot be had; otherwise the menu has them.
    return nRole == RoleDetails ? !IsChangeable() : IsInMenu(index, nRole);
}

bool CPersonnelListView::IsInMenu(const QModelIndex& index, int nRole) const
{
    switch (nRole) {
    case RoleDetails:
    case RoleHistory:
    case RoleQrCode:
        return true;
    case RoleAbnormal: {
        const auto* const pPerson = m_pModel->FindPerson(m_pModel->GetId(index.row()));
        return pPerson && pPerson->bAuthorizationError;
    }
    default:
        return IsChangeable();
    }
}

void CPersonnelListView::RaiseOperation(int nRole, const QModelIndex& index)
{
    if (nRole != RoleAbnormal) {
        CListView::RaiseOperation(nRole, index);
    } else if (index.isValid() && IsInMenu(index, nRole)) {
        const QString sId = m_pModel->GetId(index.row());
        Q_EMIT SignalBtnAbnormalClicked(sId, m_pModel->GetLabel(sId));
    }
}

void CPersonnelListView::OpenRow(const QModelIndex& index)
{
    RaiseOperation(IsChangeable() ? RoleEdit : RoleDetails, index);
}

void CPersonnelListView::SetPersons(const std::vector<AccessControlLogical::PersonInfo_t>& vecPersons)
{
    ReplaceRows([&] { m_pModel->SetPersons(vecPersons); });
}

} // namespace BasicInfoManagerUI

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
    auto* const pHeader = new Common::CFilterHeaderView(this);
    pHeader->setObjectName(QStringLiteral("headerPersons"));
    setIconSize(QSize(CPersonModel::PhotoSide, CPersonModel::PhotoSide));
    const Operation edit{RoleEdit, "edit", Text::tr("Edit")};
    const Operation remove{RoleDelete, "delete", Text::tr("Delete")};
    const Operation qrCode{RoleQrCode, "qr-code", Text::tr("QR Code")};
    SetUp(m_pModel, pHeader, {PersonColumnCheck, PersonColumnName, PersonColumnOperation},
        {edit, remove, {RoleHistory, "history", Text::tr("Query Log")},
            {RoleReissue, "reissue", Text::tr("Re-issue")}, qrCode,
            {RoleAbnormal, "warning", Text::tr("Authorization error")}});
    SetMenu(QStringLiteral("menuPerson"),
        {{RoleDetails, "details", Text::tr("Details")}, edit, {RoleMove, "move", Text::tr("Move To")}, remove,
            {RoleHistory, "history", Text::tr("History")}, qrCode});
    AddKey(Qt::Key_Return, RoleEdit);
    AddKey(Qt::Key_Enter, RoleEdit);
    AddKey(Qt::Key_F2, RoleEdit);
    AddKey(Qt::Key_Delete, RoleDelete);
}

bool CPersonnelListView::IsOffered(const QModelIndex& index, int nRole) const
{
    const auto* const pPerson = m_pModel->FindPerson(m_pModel->GetId(index.row()));
    return nRole != RoleAbnormal || (pPerson && pPerson->bAuthorizationError);
}

void CPersonnelListView::RaiseOperation(int nRole, const QModelIndex& index)
{
    const QString sId = m_pModel->GetId(index.row());
    const auto* const pPerson = m_pModel->FindPerson(sId);
    if (!index.isValid() || !pPerson)
        return;
    if (nRole == RoleAbnormal)
        Q_EMIT SignalBtnAbnormalClicked(sId, QString::fromStdString(pPerson->sName));
    else
        Q_EMIT SignalOperation(nRole, sId);
}

void CPersonnelListView::OpenRow(const QModelIndex& index)
{
    RaiseOperation(RoleEdit, index);
}

void CPersonnelListView::SetPersons(const std::vector<AccessControlLogical::PersonInfo_t>& vecPersons)
{
    ReplaceRows([&] { m_pModel->SetPersons(vecPersons); });
}

} // namespace BasicInfoManagerUI

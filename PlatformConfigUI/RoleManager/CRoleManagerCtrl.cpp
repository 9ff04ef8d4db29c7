#include "CRoleManagerCtrl.h"

#include "CRoleManagerEditDlg.h"
#include "CRoleModel.h"
#include "ui_CRoleManagerCtrl.h"

#include <Trv/QSkin.h>
#include <UICommonMdl/CErrorCode.h>
#include <VxGUI/VxNotification.h>
#include <common/CFilterHeaderView.h>
#include <common/Prompt.h>

#include <QMenu>

namespace PlatformConfigUI {

using UserLogical::IUserManager;
using UserLogical::Role_t;

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CRoleManagerCtrl)
};

constexpr const char* RightChangeRoles = "001002002";

QStringList FailureLines(const std::vector<UserLogical::UserFailure_t>& vecFailed)
{
    QStringList listLines;
    for (const UserLogical::UserFailure_t& failure : vecFailed)
        listLines.append(QString::fromStdString(failure.sUserName) + QStringLiteral(": ")
            + UICommonMdl::CErrorCode::GetErroCodeInfor(failure.nErrorCode));
    return listLines;
}

} // namespace

void CRoleManagerCtrl::OnConnectionChanged(bool bConnected)
{
    m_pUi->stackList->setEnabled(bConnected);
    m_pUi->btnRefresh->setEnabled(bConnected);
    UpdateButtons();
    if (bConnected) {
        OnRightsChanged();
        QueryRoles();
        return;
    }
    m_queryTimer.stop();
    if (m_vecRoles.empty())
        ShowListState(UICommonMdl::ErrorDisconnected);
}

void CRoleManagerCtrl::OnRightsChanged()
{
    m_bMayChange = HasRight(RightChangeRoles);
    const QString sReason =
        m_bMayChange ? QString() : Text::tr("You have no permission to add, change or delete roles.");
    m_pUi->btnAdd->setToolTip(sReason);
    m_pUi->btnDelete->setToolTip(sReason);
    m_pUi->treeRole->viewport()->update();
    UpdateButtons();
}

void CRoleManagerCtrl::UpdateButtons()
{
    m_pUi->btnAdd->setEnabled(IsConnected() && m_bMayChange);
    m_pUi->btnDelete->setEnabled(IsConnected() && m_bMayChange);
    m_pHeader->SetCheckState(m_pModel->GetSummary());
    m_pUi->lbStatus->setText(
        Text::tr("Roles: %1, checked: %2").arg(m_pModel->rowCount()).arg(m_pModel->GetCheckedRoles().size()));
}

void CRoleManagerCtrl::QueryRoles()
{
    m_calls.Latest<&IUserManager::QueryRoleList>([this](const UserParam& param) { OnRoleList(param); });
    if (!m_vecRoles.empty())
        return;
    m_pUi->wgtListState->SetState(VxGUI::VxEmptyState::Kind::Loading, Text::tr("Loading roles"));
    m_pUi->stackList->setCurrentWidget(m_pUi->wgtListState);
}

void CRoleManagerCtrl::OnRoleList(const UserParam& param)
{
    if (param.nErrorCode == UICommonMdl::ErrorNone) {
        m_vecRoles = param.vecRoles;
        ShowRoles();
        if (m_pDialog)
            m_pDialog->SetRoles(m_vecRoles);
        return;
    }
    if (param.nErrorCode != UICommonMdl::ErrorNoRight)
        NotifyFailure(Text::tr("Failed to get role list"), param.nErrorCode);
    // While the connection is lost the rows of before stay, with their checks.
    if (param.nErrorCode == UICommonMdl::ErrorDisconnected && !m_vecRoles.empty())
        return;
    m_vecRoles.clear();
    ShowRoles();
    ShowListState(param.nErrorCode);
}

void CRoleManagerCtrl::ShowRoles()
{
    const QString sCurrent = GetCurrentId();
    std::vector<Role_t> vecShown;
    std::copy_if(
        m_vecRoles.begin(), m_vecRoles.end(), std::back_inserter(vecShown), [this](const Role_t& role) {
            return QString::fromStdString(role.sName).contains(m_sSearchText, Qt::CaseInsensitive);
        });
    m_pModel->SetRoles(vecShown);
    const int nCurrent = m_pModel->FindRow(sCurrent);
    if (nCurrent >= 0)
        m_pUi->treeRole->setCurrentIndex(m_pModel->index(nCurrent, RoleColumnName));
    ShowListState(UICommonMdl::ErrorNone);
    UpdateButtons();
}

void CRoleManagerCtrl::ShowListState(int nErrorCode)
{
    using Kind = VxGUI::VxEmptyState::Kind;
    VxGUI::VxEmptyState* const pState = m_pUi->wgtListState;
    const bool bRows = nErrorCode == UICommonMdl::ErrorNone && m_pModel->rowCount() > 0;
    if (nErrorCode == UICommonMdl::ErrorNoRight)
        pState->SetState(Kind::NoPermission, Text::tr("You have no permission to see roles."));
    else if (nErrorCode != UICommonMdl::ErrorNone)
        pState->SetState(Kind::Failed, Text::tr("Failed to get role list"),
            UICommonMdl::CErrorCode::GetErroCodeInfor(nErrorCode), Text::tr("Refresh"));
    else if (!m_sSearchText.isEmpty())
        pState->SetState(Kind::Empty, Text::tr("No role matches the search."));
    else
        pState->SetState(Kind::Empty, Text::tr("There are no roles yet."));
    m_pUi->stackList->setCurrentWidget(bRows ? static_cast<QWidget*>(m_pUi->treeRole) : pState);
}

QString CRoleManagerCtrl::GetCurrentId() const
{
    return m_pModel->GetId(m_pUi->treeRole->currentIndex().row());
}

bool CRoleManagerCtrl::IsOffered(const QString& sId, int nRole) const
{
    const Role_t* const pRole = m_pModel->FindRole(sId);
    return pRole && (nRole == RoleDetails || (m_bMayChange && !pRole->bBuiltIn));
}

void CRoleManagerCtrl::OnToggleChecks()
{
    const QModelIndexList listRows = m_pUi->treeRole->selectionModel()->selectedRows(RoleColumnCheck);
    if (listRows.isEmpty())
        return;
    const bool bCheck = listRows.first().data(Qt::CheckStateRole).toInt() != Qt::Checked;
    for (const QModelIndex& index : listRows) {
        if (index.flags().testFlag(Qt::ItemIsUserCheckable))
            m_pModel->setData(index, bCheck ? Qt::Checked : Qt::Unchecked, Qt::CheckStateRole);
    }
}

void CRoleManagerCtrl::OnContextMenu(const QPoint& pos)
{
    const QModelIndex index = m_pUi->treeRole->indexAt(pos);
    if (!index.isValid())
        return;
    const QString sId = m_pModel->GetId(index.row());
    auto* const pMenu = new QMenu(this);
    pMenu->setObjectName(QStringLiteral("menuRole"));
    pMenu->setAttribute(Qt::WA_DeleteOnClose);
    const struct
    {
        int nRole;
        const char* pszIcon;
        QString sText;
    } entries[] = {{RoleDetails, "details", Text::tr("Role Details")}, {RoleEdit, "edit", Text::tr("Edit")},
        {RoleDelete, "delete", Text::tr("Delete")}};
    for (const auto& entry : entries) {
        QAction* const pAction = pMenu->addAction(Trv::GetIcon(QLatin1String(entry.pszIcon)), entry.sText);
        pAction->setEnabled(IsOffered(sId, entry.nRole));
        connect(pAction, &QAction::triggered, this,
            [this, nRole = entry.nRole, sId] { OnOperation(nRole, sId); });
    }
    pMenu->popup(m_pUi->treeRole->viewport()->mapToGlobal(pos));
}

void CRoleManagerCtrl::OnOperation(int nRole, const QString& sId)
{
    // The role may be gone, and the right with it, by the time that the choice is made.
    if (!IsConnected() || !IsOffered(sId, nRole))
        return;
    if (nRole == RoleDelete) {
        DeleteRoles({sId});
        return;
    }
    CRoleManagerEditDlg* const pDialog = MakeDialog();
    if (nRole == RoleEdit)
        pDialog->BeginModify(sId);
    else
        pDialog->BeginDetails(sId, IsOffered(sId, RoleEdit));
}

CRoleManagerEditDlg* CRoleManagerCtrl::MakeDialog()
{
    m_pDialog = new CRoleManagerEditDlg(GetInterfaceSet(), this);
    m_pDialog->SetRoles(m_vecRoles);
    connect(m_pDialog, &CRoleManagerEditDlg::SignalSave, this, &CRoleManagerCtrl::OnSave);
    m_pDialog->open();
    return m_pDialog;
}

void CRoleManagerCtrl::OnBtnAddClicked()
{
    MakeDialog()->BeginAdd();
}

void CRoleManagerCtrl::OnSave(const UserLogical::RoleEdit_t& edit)
{
    const QPointer<CRoleManagerEditDlg> pDialog = m_pDialog;
    const auto onSaved = [this, pDialog](const UserParam& param) {
        QueryRoles();
        if (param.nErrorCode == UICommonMdl::ErrorNone)
            Notify(Text::tr("The role is saved."), VxGUI::NotificationKind::Success);
        else if (!pDialog)
            NotifyFailure(Text::tr("Failed to modify role"), param.nErrorCode);
        // Last: the page may be gone when a question is answered.
        if (pDialog && param.nErrorCode == UICommonMdl::ErrorNone)
            pDialog->OnSaved();
        else if (pDialog)
            pDialog->OnSaveFailed(param.nErrorCode, QString::fromStdString(param.sErrorDetail));
    };
    if (edit.role.sRoleId.empty())
        m_calls.Each<&IUserManager::AddRole>(edit, onSaved);
    else
        m_calls.Each<&IUserManager::ModifyRole>(edit, onSaved);
}

void CRoleManagerCtrl::OnBtnDeleteClicked()
{
    const QStringList listIds = m_pModel->GetCheckedRoles();
    if (listIds.isEmpty())
        Notify(Text::tr("Please select one or more roles to be deleted."), VxGUI::NotificationKind::Warning);
    else
        DeleteRoles(listIds);
}

void CRoleManagerCtrl::DeleteRoles(const QStringList& listIds)
{
    const QPointer<CRoleManagerCtrl> guard(this);
    if (!Common::AskPrompt(this, Text::tr("Are you sure to delete role?")) || !guard)
        return;
    std::vector<std::string> vecIds;
    for (const QString& sId : listIds)
        vecIds.push_back(sId.toStdString());
    m_calls.Each<&IUserManager::DeleteRoles>(
        vecIds, [this](const UserParam& param) { OnDeleteAnswer(param); });
}

void CRoleManagerCtrl::OnDeleteAnswer(const UserParam& param)
{
    QueryRoles();
    // Last: the page may be gone when the message is closed.
    if (!param.vecFailed.empty())
        WhenShown([this, listLines = FailureLines(param.vecFailed)] {
            Common::ShowFailures(this, Text::tr("Failed to delete role"), listLines);
        });
    else if (param.nErrorCode != UICommonMdl::ErrorNone)
        NotifyFailure(Text::tr("Failed to delete role"), param.nErrorCode);
}

} // namespace PlatformConfigUI

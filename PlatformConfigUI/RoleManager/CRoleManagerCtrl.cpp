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

using UserLogical::Role_t;

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CRoleManagerCtrl)
};

constexpr const char* RightChangeRoles = "001002002";

enum RequestKind : int
{
    KindRoleList = 1,
    KindSave,
    KindDelete
};

QStringList FailureLines(const std::vector<UserLogical::UserFailure_t>& vecFailed)
{
    QStringList listLines;
    for (const UserLogical::UserFailure_t& failure : vecFailed)
        listLines.append(QString::fromStdString(failure.sUserName) + QStringLiteral(": ")
            + UICommonMdl::CErrorCode::GetErroCodeInfor(failure.nErrorCode));
    return listLines;
}

} // namespace

void CRoleManagerCtrl::OnNotifyUserManagerState(const UserParam& param)
{
    Q_EMIT SignalNotifyUserManagerState(param);
}

void CRoleManagerCtrl::OnNotifyLoginManagerState(const LoginParam& param)
{
    Q_EMIT SignalNotifyLoginManagerState(param);
}

void CRoleManagerCtrl::OnUserState(const UserParam& param)
{
    if (param.nSequence > 0)
        m_requests.Answer(param);
    else if (param.nResultCode == ResultRolesChanged && m_bConnected && !m_bReleased
        && !m_queryTimer.isActive())
        m_queryTimer.start();
}

void CRoleManagerCtrl::OnLoginState(const LoginParam& param)
{
    if (param.nResultCode == ResultDisconnected)
        SetConnected(false);
    else if (param.nResultCode == ResultReconnected)
        SetConnected(true);
    else if (param.nResultCode == ResultRightsChanged)
        UpdateRights();
}

void CRoleManagerCtrl::SetConnected(bool bConnected)
{
    if (m_bReleased)
        return;
    m_bConnected = bConnected;
    m_pUi->lbConnection->setVisible(!bConnected);
    m_pUi->stackList->setEnabled(bConnected);
    m_pUi->btnRefresh->setEnabled(bConnected);
    UpdateButtons();
    if (m_pDialog)
        m_pDialog->SetConnected(bConnected);
    if (bConnected) {
        UpdateRights();
        QueryRoles();
        return;
    }
    m_queryTimer.stop();
    if (m_vecRoles.empty())
        ShowListState(UICommonMdl::ErrorDisconnected);
}

void CRoleManagerCtrl::UpdateRights()
{
    UserLogical::IUserRight* const pRight = m_pManager ? m_pManager->GetUserRight() : nullptr;
    m_bMayChange = pRight && pRight->HasRight(RightChangeRoles);
    const QString sReason =
        m_bMayChange ? QString() : Text::tr("You have no permission to add, change or delete roles.");
    m_pUi->btnAdd->setToolTip(sReason);
    m_pUi->btnDelete->setToolTip(sReason);
    m_pUi->treeRole->viewport()->update();
    UpdateButtons();
}

void CRoleManagerCtrl::UpdateButtons()
{
    m_pUi->btnAdd->setEnabled(m_bConnected && m_bMayChange);
    m_pUi->btnDelete->setEnabled(m_bConnected && m_bMayChange);
    m_pHeader->SetCheckState(m_pModel->GetSummary());
    m_pUi->lbStatus->setText(
        Text::tr("Roles: %1, checked: %2").arg(m_pModel->rowCount()).arg(m_pModel->GetCheckedRoles().size()));
}

void CRoleManagerCtrl::QueryRoles()
{
    if (m_bReleased)
        return;
    const int nSequence = m_pManager ? m_pManager->QueryRoleList() : 0;
    if (!m_requests.Supersede(
            nSequence, KindRoleList, [this](const UserParam& param) { OnRoleList(param); })) {
        ShowFailure(Text::tr("Failed to get role list"), UICommonMdl::ErrorNone);
        if (m_vecRoles.empty())
            ShowListState(UICommonMdl::ErrorDisconnected);
        return;
    }
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
        ShowFailure(Text::tr("Failed to get role list"), param.nErrorCode);
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
    if (!m_bConnected || !IsOffered(sId, nRole))
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
    m_pDialog = new CRoleManagerEditDlg(m_pManager, this);
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
    int nSequence = 0;
    if (m_pManager)
        nSequence = edit.role.sRoleId.empty() ? m_pManager->AddRole(edit) : m_pManager->ModifyRole(edit);
    const QPointer<CRoleManagerEditDlg> pDialog = m_pDialog;
    const bool bSent = m_requests.Add(nSequence, KindSave, [this, pDialog](const UserParam& param) {
        QueryRoles();
        if (param.nErrorCode == UICommonMdl::ErrorNone)
            VxGUI::VxNotification::Show(
                this, Text::tr("The role is saved."), VxGUI::NotificationKind::Success);
        else if (!pDialog)
            ShowFailure(Text::tr("Failed to modify role"), param.nErrorCode);
        // Last: the page may be gone when a question is answered.
        if (pDialog && param.nErrorCode == UICommonMdl::ErrorNone)
            pDialog->OnSaved();
        else if (pDialog)
            pDialog->OnSaveFailed(param.nErrorCode, QString::fromStdString(param.sErrorDetail));
    });
    if (!bSent && pDialog)
        pDialog->OnSaveFailed(UICommonMdl::ErrorNone, QString());
}

void CRoleManagerCtrl::OnBtnDeleteClicked()
{
    const QStringList listIds = m_pModel->GetCheckedRoles();
    if (listIds.isEmpty())
        VxGUI::VxNotification::Show(this, Text::tr("Please select one or more roles to be deleted."),
            VxGUI::NotificationKind::Warning);
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
    const int nSequence = m_pManager ? m_pManager->DeleteRoles(vecIds) : 0;
    if (!m_requests.Add(nSequence, KindDelete, [this](const UserParam& param) { OnDeleteAnswer(param); }))
        ShowFailure(Text::tr("Failed to delete role"), UICommonMdl::ErrorNone);
}

void CRoleManagerCtrl::OnDeleteAnswer(const UserParam& param)
{
    QueryRoles();
    // Last: the page may be gone when the message is closed.
    if (!param.vecFailed.empty())
        Common::ShowFailures(this, Text::tr("Failed to delete role"), FailureLines(param.vecFailed));
    else if (param.nErrorCode != UICommonMdl::ErrorNone)
        ShowFailure(Text::tr("Failed to delete role"), param.nErrorCode);
}

void CRoleManagerCtrl::ShowFailure(const QString& sPrefix, int nErrorCode)
{
    VxGUI::VxNotification::Show(this, Common::FailureText(sPrefix, nErrorCode));
}

} // namespace PlatformConfigUI

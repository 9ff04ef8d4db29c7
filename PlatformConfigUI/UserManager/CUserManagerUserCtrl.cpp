#include "CUserManagerUserCtrl.h"

#include "CImportDominUserDlg.h"
#include "CSyncDominUserDlg.h"
#include "CUserListHeader.h"
#include "CUserListView.h"
#include "CUserManagerUserEditDlg.h"
#include "CUserModel.h"
#include "UserRules.h"
#include "ui_CUserManagerUserCtrl.h"

#include <UICommonMdl/CErrorCode.h>
#include <VxGUI/VxWaitDialog.h>
#include <common/Prompt.h>

namespace PlatformConfigUI {

using UserLogical::IUserManager;
using VxGUI::NotificationKind;

namespace {
struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CUserManagerUserCtrl)
};
} // namespace

void CUserManagerUserCtrl::OnOperation(int nRole, const QString& sUserName)
{
    switch (nRole) {
    case CUserListView::RoleLock:
        LockUser(sUserName, true);
        break;
    case CUserListView::RoleUnlock:
        LockUser(sUserName, false);
        break;
    case CUserListView::RoleDelete:
        DeleteUsers({sUserName});
        break;
    case CUserListView::RoleEdit:
        OpenDialog()->BeginModify(sUserName);
        break;
    case CUserListView::RoleDetails:
        OpenDialog()->BeginDetails(sUserName);
        break;
    }
}

void CUserManagerUserCtrl::OnBtnAddClicked()
{
    OpenDialog()->BeginAdd();
}

void CUserManagerUserCtrl::OnBtnDeleteClicked()
{
    const QStringList listNames = m_pUi->listUsers->GetUsers()->GetCheckedIds();
    if (listNames.isEmpty())
        Notify(Text::tr("Please select at least one user."), NotificationKind::Warning);
    else
        DeleteUsers(listNames);
}

void CUserManagerUserCtrl::OnBtnImportClicked()
{
    auto* const pDialog = new CImportDominUserDlg(GetInterfaceSet(), this);
    connect(pDialog, &CImportDominUserDlg::SignalUsersAdded, this, &CUserManagerUserCtrl::OnQueryCurrentPage);
    pDialog->open();
    pDialog->Start();
}

void CUserManagerUserCtrl::OnBtnSyncClicked()
{
    auto* const pDialog = new CSyncDominUserDlg(GetInterfaceSet(), this);
    connect(pDialog, &CSyncDominUserDlg::SignalUsersDeleted, this, &CUserManagerUserCtrl::OnQueryCurrentPage);
    pDialog->open();
    pDialog->Start();
}

void CUserManagerUserCtrl::LockUser(const QString& sUserName, bool bLock)
{
    if (!Common::AskPrompt(this,
            bLock ? Text::tr("Are you sure to lock the user?")
                  : Text::tr("Are you sure to unlock the user?")))
        return;
    const QString sFailure = bLock ? Text::tr("Failed to lock user.") : Text::tr("Failed to unlock user.");
    const auto onAnswer = [this, sFailure](const Param& param) {
        OnStopWaitImmediately();
        if (param.nErrorCode != UICommonMdl::ErrorNone)
            NotifyFailure(sFailure, param.nErrorCode);
        OnQueryCurrentPage();
    };
    if (bLock)
        m_calls.Each<&IUserManager::LockUser>(sUserName.toStdString(), onAnswer);
    else
        m_calls.Each<&IUserManager::UnlockUser>(sUserName.toStdString(), onAnswer);
    WaitFor(bLock ? Text::tr("Locking the user") : Text::tr("Unlocking the user"));
}

void CUserManagerUserCtrl::DeleteUsers(const QStringList& listNames)
{
    if (!Common::AskPrompt(this, Text::tr("Are you sure to delete the user?")))
        return;
    const QString sFailure = Text::tr("Failed to delete user.");
    m_calls.Each<&IUserManager::DeleteUsers>(ToNames(listNames), [this, sFailure](const Param& param) {
        OnStopWaitImmediately();
        UpdateButtons();
        OnQueryCurrentPage();
        // Last: the page may be gone when the message is closed.
        if (!param.vecFailed.empty())
            WhenShown([this, sFailure, listLines = GetFailureLines(param.vecFailed)] {
                Common::ShowFailures(this, sFailure, listLines);
            });
        else if (param.nErrorCode != UICommonMdl::ErrorNone)
            NotifyFailure(sFailure, param.nErrorCode);
    });
    UpdateButtons();
    WaitFor(Text::tr("Deleting users"));
}

CUserManagerUserEditDlg* CUserManagerUserCtrl::OpenDialog()
{
    auto* const pDialog = new CUserManagerUserEditDlg(GetInterfaceSet(), this);
    connect(pDialog, &CUserManagerUserEditDlg::SignalSaveUser, this,
        [this, pDialog](const UserLogical::User_t& user, bool bNew) { OnSaveUser(pDialog, user, bNew); });
    pDialog->open();
    return pDialog;
}

void CUserManagerUserCtrl::OnSaveUser(
    CUserManagerUserEditDlg* pDialog, const UserLogical::User_t& user, bool bNew)
{
    const QPointer<CUserManagerUserEditDlg> pOpen(pDialog);
    const auto onSaved = [this, pOpen, bNew](const Param& param) {
        const bool bSaved = param.nErrorCode == UICommonMdl::ErrorNone;
        if (bSaved) {
            Notify(bNew ? Text::tr("The user is added.") : Text::tr("The user is changed."),
                NotificationKind::Success);
            OnQueryCurrentPage();
        }
        // Closed in the meantime: nobody waits for its failure any more.
        if (!pOpen || !pOpen->isVisible())
            return;
        pOpen->SetSaving(false);
        if (bSaved)
            pOpen->done(QDialog::Accepted);
        else
            pOpen->ShowFailure(param.nErrorCode, QString::fromStdString(param.sErrorDetail));
    };
    if (bNew)
        m_calls.Each<&IUserManager::AddUser>(user, onSaved);
    else
        m_calls.Each<&IUserManager::ModifyUser>(user, onSaved);
    pDialog->SetSaving(true);
}

void CUserManagerUserCtrl::WaitFor(const QString& sText)
{
    m_sWaitText = sText;
    if (!m_pWaitDialog)
        m_waitTimer.start();
}

void CUserManagerUserCtrl::OnStopWaitImmediately()
{
    m_waitTimer.stop();
    if (m_pWaitDialog)
        m_pWaitDialog->accept();
}

} // namespace PlatformConfigUI

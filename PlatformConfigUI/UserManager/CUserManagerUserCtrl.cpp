#include "CUserManagerUserCtrl.h"

#include "CImportDominUserDlg.h"
#include "CSyncDominUserDlg.h"
#include "CUserListHeader.h"
#include "CUserListView.h"
#include "CUserManagerUserEditDlg.h"
#include "CUserModel.h"
#include "UserRequestKinds.h"
#include "UserRules.h"
#include "ui_CUserManagerUserCtrl.h"

#include <UICommonMdl/CErrorCode.h>
#include <VxGUI/VxNotification.h>
#include <VxGUI/VxWaitDialog.h>
#include <common/Prompt.h>

namespace PlatformConfigUI {

using VxGUI::NotificationKind;
using VxGUI::VxNotification;

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
        VxNotification::Show(this, Text::tr("Please select at least one user."), NotificationKind::Warning);
    else
        DeleteUsers(listNames);
}

void CUserManagerUserCtrl::OnBtnImportClicked()
{
    auto* const pDialog = new CImportDominUserDlg(m_pManager, this);
    connect(this, &CUserManagerUserCtrl::SignalConnected, pDialog, &CImportDominUserDlg::SetConnected);
    connect(pDialog, &CImportDominUserDlg::SignalUsersAdded, this, &CUserManagerUserCtrl::OnQueryCurrentPage);
    pDialog->open();
    pDialog->Start();
}

void CUserManagerUserCtrl::OnBtnSyncClicked()
{
    auto* const pDialog = new CSyncDominUserDlg(m_pManager, this);
    connect(this, &CUserManagerUserCtrl::SignalConnected, pDialog, &CSyncDominUserDlg::SetConnected);
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
    int nSequence = 0;
    if (m_pManager)
        nSequence = bLock ? m_pManager->LockUser(sUserName.toStdString())
                          : m_pManager->UnlockUser(sUserName.toStdString());
    const bool bSent = m_requests.Add(nSequence, KindLock, [this, sFailure](const Param& param) {
        OnStopWaitImmediately();
        if (param.nErrorCode != UICommonMdl::ErrorNone)
            ShowFailure(sFailure, param.nErrorCode);
        OnQueryCurrentPage();
    });
    if (bSent)
        WaitFor(bLock ? Text::tr("Locking the user") : Text::tr("Unlocking the user"));
    else
        ShowFailure(sFailure, UICommonMdl::ErrorNone);
}

void CUserManagerUserCtrl::DeleteUsers(const QStringList& listNames)
{
    if (!Common::AskPrompt(this, Text::tr("Are you sure to delete the user?")))
        return;
    const QString sFailure = Text::tr("Failed to delete user.");
    const int nSequence = m_pManager ? m_pManager->DeleteUsers(ToNames(listNames)) : 0;
    const bool bSent = m_requests.Add(nSequence, KindDelete, [this, sFailure](const Param& param) {
        OnStopWaitImmediately();
        UpdateButtons();
        OnQueryCurrentPage();
        // Last: the page may be gone when the message is closed.
        if (!param.vecFailed.empty())
            Common::ShowFailures(this, sFailure, GetFailureLines(param.vecFailed));
        else if (param.nErrorCode != UICommonMdl::ErrorNone)
            ShowFailure(sFailure, param.nErrorCode);
    });
    UpdateButtons();
    if (bSent)
        WaitFor(Text::tr("Deleting users"));
    else
        ShowFailure(sFailure, UICommonMdl::ErrorNone);
}

CUserManagerUserEditDlg* CUserManagerUserCtrl::OpenDialog()
{
    auto* const pDialog = new CUserManagerUserEditDlg(m_pManager, this);
    connect(this, &CUserManagerUserCtrl::SignalConnected, pDialog, &CUserManagerUserEditDlg::SetConnected);
    connect(this, &CUserManagerUserCtrl::SignalChangeable, pDialog, &CUserManagerUserEditDlg::SetChangeable);
    connect(pDialog, &CUserManagerUserEditDlg::SignalSaveUser, this,
        [this, pDialog](const UserLogical::User_t& user, bool bNew) { OnSaveUser(pDialog, user, bNew); });
    pDialog->SetConnected(m_bConnected);
    pDialog->SetChangeable(m_bChangeable);
    pDialog->open();
    return pDialog;
}

void CUserManagerUserCtrl::OnSaveUser(
    CUserManagerUserEditDlg* pDialog, const UserLogical::User_t& user, bool bNew)
{
    int nSequence = 0;
    if (m_pManager)
        nSequence = bNew ? m_pManager->AddUser(user) : m_pManager->ModifyUser(user);
    const QPointer<CUserManagerUserEditDlg> pOpen(pDialog);
    const bool bSent = m_requests.Add(nSequence, KindSave, [this, pOpen, bNew](const Param& param) {
        const bool bSaved = param.nErrorCode == UICommonMdl::ErrorNone;
        if (bSaved) {
            VxNotification::Show(this,
                bNew ? Text::tr("The user is added.") : Text::tr("The user is changed."),
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
    });
    pDialog->SetSaving(bSent);
    if (!bSent)
        pDialog->ShowFailure(UICommonMdl::ErrorNone, QString());
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

#include "CPersonManagerCtrl.h"

#include "CDisplayQRcodeDlg.h"
#include "CHistoryLogDlg.h"
#include "CMovePersonTree.h"
#include "CPersonAuthorizeAbnormalDlg.h"
#include "CPersonnelListView.h"
#include "PersonRules.h"
#include "ui_CPersonManagerCtrl.h"

#include <Credentials/CBatchIssueCard.h>
#include <PersonEdit/CPersonnelBatchAuthorizeUI.h>
#include <PersonEdit/CPersonnelInfoUI.h>
#include <UICommonMdl/CErrorCode.h>
#include <common/Prompt.h>

#include <QKeyEvent>

namespace BasicInfoManagerUI {

using AccessControlLogical::IAccessControlManager;

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CPersonManagerCtrl)
};

std::vector<std::string> ToIds(const QStringList& listIds)
{
    std::vector<std::string> vecIds;
    for (const QString& sId : listIds)
        vecIds.push_back(sId.toStdString());
    return vecIds;
}

QStringList FailureLines(const std::vector<AccessControlLogical::PersonFailure_t>& vecFailed)
{
    QStringList listLines;
    for (const AccessControlLogical::PersonFailure_t& failure : vecFailed)
        listLines.append(
            QStringLiteral("%1 (%2): %3")
                .arg(QString::fromStdString(failure.sName), QString::fromStdString(failure.sPersonId),
                    UICommonMdl::CErrorCode::GetErroCodeInfor(failure.nErrorCode)));
    return listLines;
}

QStringList ExceptionLines(const std::vector<AccessControlLogical::AuthorizeException_t>& vecExceptions)
{
    QStringList listLines;
    for (const AccessControlLogical::AuthorizeException_t& exception : vecExceptions)
        listLines.append(QStringLiteral("%1, %2: %3")
                             .arg(QString::fromStdString(exception.sDeviceName),
                                 GetCredentialText(exception.nCredential), GetExceptionReason(exception)));
    return listLines;
}

} // namespace

void CPersonManagerCtrl::UpdateButtons()
{
    const int nChecked = m_pUi->m_pPersonnelListView->GetPersons()->GetCheckedIds().size();
    const int nTotal = m_pUi->m_pPageFileCtrl->GetTotalCount();
    const bool bRight = MayChange();
    const bool bUsable = IsConnected() && bRight;
    m_pUi->m_btnAdd->setEnabled(bUsable);
    m_pUi->m_btnDel->setEnabled(bUsable && nTotal > 0);
    for (QPushButton* pButton : {m_pUi->m_btnBatchIssuCard, m_pUi->btnMoveTo, m_pUi->btnBatchAuthorize})
        pButton->setEnabled(bUsable && nChecked > 0);
    const QString sReason = bRight ? QString() : Text::tr("You have no permission to change persons.");
    for (QWidget* pButton : std::initializer_list<QWidget*>{m_pUi->m_btnAdd, m_pUi->m_btnDel,
             m_pUi->m_btnBatchIssuCard, m_pUi->btnMoveTo, m_pUi->btnBatchAuthorize})
        pButton->setToolTip(sReason);
    m_pUi->lbStatus->setText(Text::tr("Checked: %1").arg(nChecked));
}

QStringList CPersonManagerCtrl::GetCheckedIds()
{
    QStringList listIds = m_pUi->m_pPersonnelListView->GetPersons()->GetCheckedIds();
    if (listIds.isEmpty())
        Notify(Text::tr("Please select at least one person."), VxGUI::NotificationKind::Warning);
    return listIds;
}

void CPersonManagerCtrl::OnOperation(int nRole, const QString& sPersonId)
{
    switch (nRole) {
    case CPersonnelListView::RoleEdit:
        m_pEditor->EditPerson(sPersonId);
        ShowPage(m_pEditor);
        break;
    case CPersonnelListView::RoleDetails:
        m_pEditor->ShowPerson(sPersonId);
        ShowPage(m_pEditor);
        break;
    case CPersonnelListView::RoleDelete:
        DeletePersons({sPersonId});
        break;
    case CPersonnelListView::RoleMove:
        MovePersons({sPersonId}, m_pUi->btnMoveTo);
        break;
    case CPersonnelListView::RoleHistory:
        ShowHistory(sPersonId);
        break;
    case CPersonnelListView::RoleReissue:
        ReissuePerson(sPersonId);
        break;
    case CPersonnelListView::RoleQrCode:
        ShowQrCode(sPersonId);
        break;
    }
}

void CPersonManagerCtrl::OnBtnDelClicked()
{
    const QStringList listIds = GetCheckedIds();
    if (!listIds.isEmpty())
        DeletePersons(listIds);
}

void CPersonManagerCtrl::DeletePersons(const QStringList& listIds)
{
    if (!Common::AskPrompt(this,
            Text::tr(
                "Are you sure you want to delete the selected person(s)? After deletion, the person(s) in "
                "the group and the related permissions will be deleted.")))
        return;
    m_calls.Each<&IAccessControlManager::DeletePersons>(ToIds(listIds),
        [this](const PersonParam& param) { OnBatchAnswer(param, Text::tr("Failed to delete person")); });
}

void CPersonManagerCtrl::OnDeleteAllClicked()
{
    const QString sGroupCode = GetGroupCode();
    if (sGroupCode.isEmpty()) {
        ShowSelectGroup();
        return;
    }
    if (!Common::AskPrompt(this,
            Text::tr(
                "Are you sure you want to delete all persons? After deletion, all group members and related "
                "permissions will be deleted.")))
        return;
    const bool bSubGroups = m_pUi->cbContainSub->isChecked();
    m_calls.Each<&IAccessControlManager::DeleteAllPersons>(sGroupCode.toStdString(), bSubGroups,
        [this](const PersonParam& param) { OnBatchAnswer(param, Text::tr("Failed to delete person")); });
}

void CPersonManagerCtrl::OnBatchAnswer(const PersonParam& param, const QString& sFailure)
{
    QueryCurrentPage();
    // Last: the page may be gone when the message is closed.
    if (!param.vecFailed.empty())
        WhenShown([this, sFailure, listLines = FailureLines(param.vecFailed)] {
            Common::ShowFailures(this, sFailure, listLines);
        });
    else if (param.nErrorCode != UICommonMdl::ErrorNone)
        NotifyFailure(sFailure, param.nErrorCode);
}

void CPersonManagerCtrl::MovePersons(const QStringList& listIds, const QWidget* pBelow)
{
    if (listIds.isEmpty())
        return;
    auto* pTree = new CMovePersonTree(this);
    connect(pTree, &CMovePersonTree::SignalOkClicked, this,
        [this, listIds](const QString& sGroupCode) { OnMoveConfirmed(listIds, sGroupCode); });
    pTree->PopUp(pBelow);
}

void CPersonManagerCtrl::OnMoveConfirmed(const QStringList& listIds, const QString& sGroupCode)
{
    if (sGroupCode.isEmpty()) {
        Notify(Text::tr("Please select a department."), VxGUI::NotificationKind::Warning);
        return;
    }
    m_calls.Each<&IAccessControlManager::MovePersons>(
        ToIds(listIds), sGroupCode.toStdString(), [this](const PersonParam& param) {
            OnBatchAnswer(param, Text::tr("Failed to move departments in batches."));
        });
}

void CPersonManagerCtrl::ReissuePerson(const QString& sPersonId)
{
    Notify(Text::tr("The rights are being sent again."), VxGUI::NotificationKind::Information);
    const auto onAnswer = [this](const PersonParam& param) {
        const QString sFailure = GetReissueFailure(param.nErrorCode, 0, int(param.vecExceptions.size()));
        if (sFailure.isEmpty())
            Notify(Text::tr("The rights were sent again."), VxGUI::NotificationKind::Success);
        else
            Notify(sFailure, VxGUI::NotificationKind::Error);
        QueryCurrentPage();
        if (!param.vecExceptions.empty())
            WhenShown([this, listLines = ExceptionLines(param.vecExceptions)] {
                Common::ShowFailures(this, Text::tr("Details of authorization failure"), listLines);
            });
    };
    m_reissueCalls.Each<&IAccessControlManager::ReissuePersonRight>(sPersonId.toStdString(), onAnswer);
}

void CPersonManagerCtrl::OnBtnAbnormalClicked(const QString& sPersonId, const QString&)
{
    auto* pDialog = new CPersonAuthorizeAbnormalDlg(GetInterfaceSet(), sPersonId, this);
    connect(pDialog, &QDialog::finished, this, &CPersonManagerCtrl::QueryCurrentPage);
    pDialog->open();
    pDialog->Start();
}

void CPersonManagerCtrl::ShowHistory(const QString& sPersonId)
{
    const auto* const pPerson = m_pUi->m_pPersonnelListView->GetPersons()->FindPerson(sPersonId);
    auto* pDialog = new CHistoryLogDlg(
        GetInterfaceSet(), sPersonId, pPerson ? QString::fromStdString(pPerson->sName) : QString(), this);
    pDialog->open();
    pDialog->Start();
}

void CPersonManagerCtrl::ShowQrCode(const QString& sPersonId)
{
    auto* pDialog = new CDisplayQRcodeDlg(GetInterfaceSet(), sPersonId, this);
    pDialog->open();
    pDialog->Start();
}

void CPersonManagerCtrl::OnBtnAddClicked()
{
    const QString sGroupCode = GetGroupCode();
    m_pEditor->AddPerson(
        sGroupCode.isEmpty() ? QLatin1String(AccessControlLogical::RootDepartmentCode) : sGroupCode);
    ShowPage(m_pEditor);
}

void CPersonManagerCtrl::OnBtnBatchIssueCardClicked()
{
    if (GetCheckedIds().isEmpty())
        return;
    m_pIssueCard->SetPersons(m_pUi->m_pPersonnelListView->GetPersons()->GetCheckedPersons());
    ShowPage(m_pIssueCard);
}

void CPersonManagerCtrl::OnBtnBatchAuthorizeClicked()
{
    if (GetCheckedIds().isEmpty())
        return;
    m_pAuthorize->SetPersons(m_pUi->m_pPersonnelListView->GetPersons()->GetCheckedPersons());
    ShowPage(m_pAuthorize);
}

void CPersonManagerCtrl::ShowPage(QWidget* pPage)
{
    m_pUi->stackPages->setCurrentWidget(pPage);
    pPage->setFocus();
}

void CPersonManagerCtrl::ShowList()
{
    m_pUi->stackPages->setCurrentWidget(m_pUi->pagePersons);
    m_pUi->m_pPersonnelListView->setFocus();
}

bool CPersonManagerCtrl::IsPageDirty() const
{
    const QWidget* const pPage = m_pUi->stackPages->currentWidget();
    return (pPage == m_pEditor && m_pEditor->IsDirty()) || (pPage == m_pIssueCard && m_pIssueCard->IsDirty())
        || (pPage == m_pAuthorize && m_pAuthorize->IsDirty());
}

void CPersonManagerCtrl::LeavePage()
{
    if (IsPageDirty()
        && !Common::AskPrompt(this, Text::tr("Current page data are changed, are you sure to leave?")))
        return;
    // A page that is left lets its reader go with its persons.
    if (m_pUi->stackPages->currentWidget() == m_pIssueCard)
        m_pIssueCard->SetPersons({});
    ShowList();
}

void CPersonManagerCtrl::keyPressEvent(QKeyEvent* pEvent)
{
    const bool bBack = pEvent->key() == Qt::Key_Escape || pEvent->matches(QKeySequence::Back);
    if (bBack && m_pUi->stackPages->currentWidget() != m_pUi->pagePersons)
        LeavePage();
    else
        QWidget::keyPressEvent(pEvent);
}

} // namespace BasicInfoManagerUI

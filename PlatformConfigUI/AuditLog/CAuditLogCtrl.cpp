#include "CAuditLogCtrl.h"

#include "AuditRules.h"
#include "CAuditDetailsDlg.h"
#include "CAuditModel.h"
#include "ui_CAuditLogCtrl.h"

#include <UICommonMdl/CErrorCode.h>

namespace PlatformConfigUI {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CAuditLogCtrl)
};

constexpr std::int64_t MsPerSecond = 1000;

} // namespace

void CAuditLogCtrl::showEvent(QShowEvent* pEvent)
{
    CPage::showEvent(pEvent);
    if (IsConnected() && !pEvent->spontaneous())
        QueryPage();
}

void CAuditLogCtrl::OnPeriodChanged()
{
    const auto period = AuditPeriod(m_pUi->cmbPeriod->currentData().toInt());
    const bool bOwn = period == PeriodOwn;
    m_pUi->m_dtFrom->setEnabled(bOwn);
    m_pUi->m_dtTo->setEnabled(bOwn);
    // An own range starts from what was chosen before.
    const QDateTime start = GetPeriodStart(period, QDate::currentDate());
    if (start.isValid())
        m_pUi->m_dtFrom->setDateTime(start);
    if (!bOwn)
        m_pUi->m_dtTo->setDateTime(QDate::currentDate().endOfDay());
}

void CAuditLogCtrl::OnReset()
{
    m_pUi->cmbPeriod->setCurrentIndex(m_pUi->cmbPeriod->findData(PeriodLast7Days));
    OnPeriodChanged();
    m_pUi->cmbOperation->setCurrentIndex(0);
    for (QLineEdit* pEdit : {m_pUi->edtUser, m_pUi->edtAddress, m_pUi->edtObject})
        pEdit->clear();
    OnSearch();
}

void CAuditLogCtrl::OnSearch()
{
    UserLogical::AuditRequest_t request;
    if (!IsConnected() || !ReadFilters(request))
        return;
    m_request = request;
    m_pUi->m_pPageCtrl->SetCurrentPage(1);
    QueryPage();
}

bool CAuditLogCtrl::ReadFilters(UserLogical::AuditRequest_t& request)
{
    const auto period = AuditPeriod(m_pUi->cmbPeriod->currentData().toInt());
    const QDateTime start = GetPeriodStart(period, QDate::currentDate());
    if (start.isValid())
        request.nFrom = start.toMSecsSinceEpoch();
    if (period == PeriodOwn) {
        request.nFrom = m_pUi->m_dtFrom->dateTime().toMSecsSinceEpoch();
        // The second that is entered belongs to the range.
        request.nTo = m_pUi->m_dtTo->dateTime().toSecsSinceEpoch() * MsPerSecond + MsPerSecond;
        if (request.nFrom >= request.nTo) {
            Notify(Text::tr("The start time must be before the end time."), VxGUI::NotificationKind::Warning);
            m_pUi->m_dtFrom->setFocus();
            return false;
        }
    }
    request.sUserName = m_pUi->edtUser->text().trimmed().toStdString();
    request.sClientAddress = m_pUi->edtAddress->text().trimmed().toStdString();
    request.sOperation = m_pUi->cmbOperation->currentData().toString().toStdString();
    request.sObject = m_pUi->edtObject->text().trimmed().toStdString();
    return true;
}

void CAuditLogCtrl::QueryPage()
{
    m_request.nPage = qMax(1, m_pUi->m_pPageCtrl->GetCurrentPage());
    m_request.nPageSize = m_pUi->m_pPageCtrl->GetPageSize();
    m_calls.Latest<&UserLogical::IUserManager::QueryAuditPage>(
        m_request, [this](const Param& param) { OnPage(param); });
    if (m_pModel->rowCount() == 0) {
        m_pUi->wgtListState->SetState(VxGUI::VxEmptyState::Kind::Loading, Text::tr("Loading the audit log"));
        m_pUi->stackList->setCurrentWidget(m_pUi->wgtListState);
    }
    UpdateButtons();
}

void CAuditLogCtrl::OnPage(const Param& param)
{
    if (param.nErrorCode != UICommonMdl::ErrorNone) {
        NotifyFailure(Text::tr("Failed to get the audit log"), param.nErrorCode);
        // While the connection is lost the rows of before stay.
        if (param.nErrorCode == UICommonMdl::ErrorDisconnected && m_pModel->rowCount() > 0) {
            UpdateButtons();
            return;
        }
    }
    m_pModel->SetEntries(param.auditPage.vecEntries);
    m_pUi->m_pPageCtrl->SetTotalCount(param.auditPage.nTotal);
    m_pUi->m_pPageCtrl->SetCurrentPage(param.auditPage.nPage);
    m_pUi->treeAudit->scrollToTop();
    ShowListState(param.nErrorCode);
    UpdateButtons();
}

bool CAuditLogCtrl::IsFiltered() const
{
    UserLogical::AuditRequest_t all;
    all.nPage = m_request.nPage;
    all.nPageSize = m_request.nPageSize;
    return !(m_request == all);
}

void CAuditLogCtrl::ShowListState(int nErrorCode)
{
    using Kind = VxGUI::VxEmptyState::Kind;
    VxGUI::VxEmptyState* const pState = m_pUi->wgtListState;
    if (nErrorCode == UICommonMdl::ErrorNoRight) {
        pState->SetState(Kind::NoPermission, Text::tr("You have no permission to see the audit log."));
    } else if (nErrorCode != UICommonMdl::ErrorNone) {
        pState->SetState(Kind::Failed, Text::tr("Failed to get the audit log"),
            UICommonMdl::CErrorCode::GetErroCodeInfor(nErrorCode), Text::tr("Refresh"));
    } else if (m_pModel->rowCount() > 0) {
        m_pUi->stackList->setCurrentWidget(m_pUi->treeAudit);
        return;
    } else {
        pState->SetState(Kind::Empty,
            IsFiltered() ? Text::tr("No entry matches the filters.") : Text::tr("The audit log is empty."));
    }
    m_pUi->stackList->setCurrentWidget(pState);
}

void CAuditLogCtrl::ShowDetails(const QModelIndex& index)
{
    if (const UserLogical::AuditEntry_t* const pEntry = m_pModel->GetEntry(index.row()))
        (new CAuditDetailsDlg(*pEntry, this))->open();
}

void CAuditLogCtrl::OnRightsChanged()
{
    UpdateButtons();
}

void CAuditLogCtrl::OnConnectionChanged(bool bConnected)
{
    m_pUi->wgtListState->setEnabled(bConnected);
    m_pUi->m_pPageCtrl->setEnabled(bConnected);
    if (!bConnected && m_pModel->rowCount() == 0)
        ShowListState(UICommonMdl::ErrorDisconnected);
    if (bConnected && isVisible())
        QueryPage();
    UpdateButtons();
}

} // namespace PlatformConfigUI

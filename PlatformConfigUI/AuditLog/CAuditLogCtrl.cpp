#include "CAuditLogCtrl.h"

#include "CAuditDetailsDlg.h"
#include "CAuditExport.h"
#include "CAuditFilter.h"
#include "CAuditListView.h"

#include <UICommonMdl/CNumberPageCtrl.h>
#include <VxGUI/VxDialogService.h>
#include <VxGUI/VxWaitDialog.h>
#include <common/CListStatus.h>
#include <common/CTableModel.h>
#include <common/Prompt.h>

#include <QShortcut>
#include <QShowEvent>

namespace PlatformConfigUI {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CAuditLogCtrl)
};

constexpr const char* RightExportAudit = "004003";

} // namespace

CAuditLogCtrl::CAuditLogCtrl(UICommonMdl::CInterfaceSetManager* pInterfaceSet, QWidget* pParent)
    : CListPage(pInterfaceSet, QString(), pParent)
    , m_pFilter(new CAuditFilter)
    , m_pList(new CAuditListView)
    , m_pExport(new CAuditExport(pInterfaceSet, this))
    , m_request(m_pFilter->Read().value())
    , m_calls(pInterfaceSet, this)
{
    setObjectName(QStringLiteral("CAuditLogCtrl"));
    SetTexts({Text::tr("Loading the audit log"), Text::tr("Failed to get the audit log"),
        Text::tr("You have no permission to see the audit log."), Text::tr("The audit log is empty."),
        Text::tr("No entry matches the filters.")});
    GetFrame()->AddRow(m_pFilter);
    GetFrame()->SetList(m_pList);
    GetFrame()->GetStatus()->SetTotalText(Text::tr("Entries: %1"));
    GetFrame()->GetPager()->setObjectName(QStringLiteral("m_pPageCtrl"));
    SetUpToolBar();
    SetUpExport();
    GetFrame()->Remember(pInterfaceSet->GetLocalConfig(), QStringLiteral("AuditLog"));
    connect(m_pFilter, &CAuditFilter::SignalSearch, this, &CAuditLogCtrl::OnSearch);
    connect(m_pList, &CAuditListView::SignalDetails, this,
        [this](const UserLogical::AuditEntry_t& entry) { (new CAuditDetailsDlg(entry, this))->open(); });
    auto* const pFind =
        new QShortcut(QKeySequence::Find, this, nullptr, nullptr, Qt::WidgetWithChildrenShortcut);
    connect(pFind, &QShortcut::activated, m_pFilter, &CAuditFilter::FocusUser);
    Start();
}

void CAuditLogCtrl::SetUpToolBar()
{
    const Common::Need connection = GetFrame()->NeedsConnection();
    const Common::Need entries = [this] {
        return m_pList->GetTable()->rowCount() > 0 ? QString() : Text::tr("There is nothing to export.");
    };
    GetToolBar()->AddAction({"btnExport", "export", Text::tr("Export"), [this] { OnExport(); },
        {connection,
            NeedsRight(RightExportAudit, Text::tr("You do not have the right to export the audit log.")),
            entries}});
    GetToolBar()->AddAction(
        {"btnRefresh", "refresh", Text::tr("Refresh"), [this] { QueryRows(); }, {connection}, Qt::Key_F5});
}

void CAuditLogCtrl::showEvent(QShowEvent* pEvent)
{
    CListPage::showEvent(pEvent);
    if (IsConnected() && !pEvent->spontaneous())
        QueryRows();
}

void CAuditLogCtrl::QueryAll()
{
    // The page asks when it is shown.
    if (isVisible())
        QueryRows();
}

void CAuditLogCtrl::OnSearch()
{
    const auto request = m_pFilter->Read();
    if (!request) {
        Notify(Text::tr("The start time must be before the end time."), VxGUI::NotificationKind::Warning);
        return;
    }
    m_request = *request;
    QueryFirstPage();
}

void CAuditLogCtrl::Query()
{
    m_request.nPage = qMax(1, GetFrame()->GetPager()->GetCurrentPage());
    m_request.nPageSize = GetFrame()->GetPager()->GetPageSize();
    m_calls.Latest<&UserLogical::IUserManager::QueryAuditPage>(
        m_request, [this](const Param& param) { OnPage(param); });
}

void CAuditLogCtrl::OnPage(const Param& param)
{
    ShowAnswer(param.nErrorCode, param.auditPage.nTotal, param.auditPage.nPage,
        [&] { m_pList->SetEntries(param.auditPage.vecEntries); });
}

bool CAuditLogCtrl::IsFiltered() const
{
    UserLogical::AuditRequest_t all;
    all.nPage = m_request.nPage;
    all.nPageSize = m_request.nPageSize;
    return !(m_request == all);
}

void CAuditLogCtrl::SetUpExport()
{
    connect(m_pExport, &CAuditExport::SignalProgress, this, [this](int nRead, int nTotal) {
        if (m_pWaitDialog)
            m_pWaitDialog->SetProgress(nTotal > 0 ? int(qint64(nRead) * 100 / nTotal) : 100);
    });
    connect(m_pExport, &CAuditExport::SignalWriting, this, [this] {
        if (!m_pWaitDialog)
            return;
        m_pWaitDialog->SetText(Text::tr("Writing the file"));
        m_pWaitDialog->SetProgress(-1);
        m_pWaitDialog->SetCancellable(false);
    });
    connect(m_pExport, &CAuditExport::SignalFinished, this, &CAuditLogCtrl::OnExportFinished);
}

void CAuditLogCtrl::OnExport()
{
    QString sPath = VxGUI::VxDialogService::Current()->SaveFile(
        this, Text::tr("Export"), QStringLiteral("audit-log.xlsx"), QStringLiteral("*.xlsx"));
    if (sPath.isEmpty())
        return;
    if (!sPath.endsWith(QStringLiteral(".xlsx"), Qt::CaseInsensitive))
        sPath += QStringLiteral(".xlsx");
    m_pExport->Start(m_request, sPath);
    m_pWaitDialog = new VxGUI::VxWaitDialog(Text::tr("Exporting the audit log"), this);
    m_pWaitDialog->setAttribute(Qt::WA_DeleteOnClose);
    m_pWaitDialog->SetProgress(0);
    m_pWaitDialog->SetCancellable(true);
    connect(m_pWaitDialog, &VxGUI::VxWaitDialog::SignalCancelled, this, [this] {
        m_pExport->Cancel();
        EndExport();
    });
    m_pWaitDialog->open();
}

void CAuditLogCtrl::OnExportFinished(int nErrorCode, const QString& sError, int nWritten, int nFound)
{
    using Kind = VxGUI::NotificationKind;
    EndExport();
    const QString sFailed = Text::tr("Failed to export the audit log");
    if (nErrorCode != UICommonMdl::ErrorNone)
        NotifyFailure(sFailed, nErrorCode);
    else if (!sError.isEmpty())
        Notify(sFailed + QStringLiteral(": ") + sError, Kind::Error);
    else if (nWritten < nFound)
        Notify(
            Text::tr("The newest %1 of %2 entries are exported.").arg(nWritten).arg(nFound), Kind::Warning);
    else
        Notify(Text::tr("The audit log is exported."), Kind::Success);
}

void CAuditLogCtrl::EndExport()
{
    if (m_pWaitDialog)
        m_pWaitDialog->accept();
}

} // namespace PlatformConfigUI

#include "CAuditLogCtrl.h"

#include "CAuditDetailsDlg.h"
#include "CAuditExport.h"
#include "CAuditFilter.h"
#include "CAuditListView.h"

#include <UICommonMdl/CNumberPageCtrl.h>
#include <UserLogical/RightCodes.h>
#include <common/CListStatus.h>
#include <common/CTableModel.h>

#include <QShortcut>
#include <QShowEvent>

namespace PlatformConfigUI {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CAuditLogCtrl)
};

} // namespace

CAuditLogCtrl::CAuditLogCtrl(UICommonMdl::CInterfaceSetManager* pInterfaceSet, QWidget* pParent)
    : CListPage(pInterfaceSet, QString(), pParent)
    , m_pFilter(new CAuditFilter)
    , m_pList(new CAuditListView)
    , m_pExport(new CAuditExport(this))
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
    GetToolBar()->AddAction(
        {"btnExport", "export", Text::tr("Export"), [this] { m_pExport->Start(m_request); },
            {connection,
                NeedsRight(UserLogical::RightExportAuditLog,
                    Text::tr("You have no permission to export the audit log.")),
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

} // namespace PlatformConfigUI

#include "CListPage.h"

#include "CConnectionNotice.h"
#include "CListView.h"
#include "CTableModel.h"

#include <UICommonMdl/CErrorCode.h>
#include <UICommonMdl/CNumberPageCtrl.h>

#include <QCoreApplication>
#include <QScopedValueRollback>
#include <QStackedWidget>
#include <QVBoxLayout>

namespace Common {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CListPage)
};

/// Pushes of a batch come one after the other; this long they are gathered.
constexpr int PushDelayMs = 200;

/// The server was not heard: what was shown before is still the best that is known.
bool IsUnheard(int nErrorCode)
{
    return nErrorCode == UICommonMdl::ErrorDisconnected || nErrorCode == UICommonMdl::ErrorNotSent;
}

} // namespace

CListPage::CListPage(
    UICommonMdl::CInterfaceSetManager* pInterfaceSet, const QString& sSkinFolder, QWidget* pParent)
    : CPage(pInterfaceSet, sSkinFolder, pParent)
    , m_pPages(new QStackedWidget)
    , m_pFrame(new CListFrame)
    , m_pQueryTimer(new QTimer(this))
{
    auto* const pNotice = new CConnectionNotice;
    pNotice->setObjectName(QStringLiteral("lbConnection"));
    pNotice->Watch(GetSession());
    m_pPages->addWidget(m_pFrame);
    auto* const pLayout = new QVBoxLayout(this);
    pLayout->setContentsMargins(0, 0, 0, 0);
    pLayout->setSpacing(0);
    pLayout->addWidget(pNotice);
    pLayout->addWidget(m_pPages);

    m_pQueryTimer->setSingleShot(true);
    m_pQueryTimer->setInterval(PushDelayMs);
    connect(m_pQueryTimer, &QTimer::timeout, this, [this] {
        const QScopedValueRollback<bool> stale(m_bStale, true);
        QueryStale();
    });
    connect(m_pFrame, &CListFrame::SignalPageWanted, this, &CListPage::QueryRows);
    connect(m_pFrame, &CListFrame::SignalStateAction, this, [this] {
        if (m_pFrame->GetState()->GetKind() == VxGUI::VxEmptyState::Kind::Empty) {
            ClearFilters();
            QueryFirstPage();
        } else {
            QueryAll();
        }
    });
}

void CListPage::Start()
{
    ApplyRights();
    if (IsConnected())
        QueryAll();
    else
        OnConnectionChanged(false);
}

void CListPage::QueryRows()
{
    if (m_pFrame->GetList()->GetTable()->rowCount() == 0)
        m_pFrame->ShowState(VxGUI::VxEmptyState::Kind::Loading, m_texts.sLoading);
    // An answer that the user waits for is not called that of a push which came meanwhile.
    m_bByPush = m_bStale && !m_bAwaited;
    m_bAwaited = true;
    Query();
}

void CListPage::QueryFirstPage()
{
    m_pFrame->GetPager()->SetCurrentPage(1);
    QueryRows();
}

void CListPage::QueryLater()
{
    if (IsConnected() && !m_pQueryTimer->isActive())
        m_pQueryTimer->start();
}

void CListPage::ShowAnswer(int nErrorCode, int nTotal, int nPage, const std::function<void()>& show)
{
    m_bAwaited = false;
    if (nErrorCode != UICommonMdl::ErrorNone)
        NotifyFailure(m_texts.sFailed, nErrorCode);
    const bool bKept = IsUnheard(nErrorCode) || (m_bByPush && UICommonMdl::IsOutcomeUnknown(nErrorCode));
    if (!bKept || m_pFrame->GetList()->GetTable()->rowCount() == 0) {
        show();
        m_pFrame->SetTotal(nTotal, nPage);
        ShowListState(nErrorCode);
    }
    GetToolBar()->UpdateNeeds();
}

void CListPage::ShowListState(int nErrorCode)
{
    using Kind = VxGUI::VxEmptyState::Kind;
    if (nErrorCode == UICommonMdl::ErrorNoRight)
        m_pFrame->ShowState(Kind::NoPermission, m_texts.sNoRight);
    else if (nErrorCode != UICommonMdl::ErrorNone)
        m_pFrame->ShowState(Kind::Failed, m_texts.sFailed,
            UICommonMdl::CErrorCode::GetErroCodeInfor(nErrorCode), Text::tr("Refresh"));
    else if (m_pFrame->GetList()->GetTable()->rowCount() > 0)
        m_pFrame->ShowList();
    else
        m_pFrame->ShowState(Kind::Empty, IsFiltered() ? m_texts.sNoMatch : m_texts.sEmpty, QString(),
            IsFiltered() && CanClearFilters() ? Text::tr("Show All") : QString());
}

Need CListPage::NeedsRight(const char* pszCode, const QString& sReason) const
{
    return [this, pszCode, sReason] { return HasRight(pszCode) ? QString() : sReason; };
}

void CListPage::AddPage(QWidget* pPage)
{
    m_pPages->addWidget(pPage);
}

void CListPage::ShowPage(QWidget* pPage)
{
    m_pPages->setCurrentWidget(pPage);
    pPage->setFocus();
}

void CListPage::ShowList()
{
    m_pPages->setCurrentWidget(m_pFrame);
    m_pFrame->GetList()->setFocus();
}

QWidget* CListPage::GetShownPage() const
{
    QWidget* const pShown = m_pPages->currentWidget();
    return pShown == m_pFrame ? nullptr : pShown;
}

void CListPage::OnConnectionChanged(bool bConnected)
{
    m_pFrame->SetConnected(bConnected);
    if (bConnected) {
        ApplyRights();
        QueryAll();
        return;
    }
    m_pQueryTimer->stop();
    if (m_pFrame->GetList()->GetTable()->rowCount() == 0)
        ShowListState(UICommonMdl::ErrorDisconnected);
}

void CListPage::OnRightsChanged()
{
    ApplyRights();
}

void CListPage::ApplyRights()
{
    GetToolBar()->UpdateNeeds();
}

} // namespace Common

#include "CHistoryLogDlg.h"

#include "PersonRules.h"
#include "TrackRules.h"
#include "ui_CHistoryLogDlg.h"

#include <Trv/QSkin.h>
#include <UICommonMdl/CErrorCode.h>
#include <VxGUI/VxNotification.h>
#include <common/CTableModel.h>
#include <common/Prompt.h>
#include <common/StyleSheet.h>

#include <QHeaderView>

namespace BasicInfoManagerUI {

using AccessControlLogical::AccessRecord_t;
using AccessControlLogical::IAccessControlManager;

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CHistoryLogDlg)
};

constexpr int DefaultDays = 7;
constexpr int NoIdColumn = 0;

Common::CTableModel::Row MakeRow(const AccessRecord_t& record)
{
    using Common::CTableModel;
    return {CTableModel::MakeItem(GetTimeText(record.nTime)),
        CTableModel::MakeItem(QString::fromStdString(record.sDeviceName)),
        CTableModel::MakeItem(QString::fromStdString(record.sChannelName)),
        CTableModel::MakeItem(GetCredentialText(record.nCredential)),
        CTableModel::MakeItem(QString::fromStdString(record.sCardNo)),
        CTableModel::MakeItem(GetDirectionText(record.bEntry)),
        CTableModel::MakeItem(GetResultText(record.bOpened))};
}

} // namespace

CHistoryLogDlg::CHistoryLogDlg(const UICommonMdl::CInterfaceSetManager* pInterfaceSet,
    const QString& sPersonId, const QString& sPersonName, QWidget* pParent)
    : QDialog(pParent)
    , m_pUi(std::make_unique<Ui::CHistoryLogDlg>())
    , m_pModel(new Common::CTableModel(
          {{Text::tr("Time"), true}, {Text::tr("Device Name"), true}, {Text::tr("Channel Name"), true},
              {Text::tr("Credential"), true}, {Text::tr("Card No."), true}, {Text::tr("Direction"), true},
              {Text::tr("Result"), true}},
          NoIdColumn, -1, this))
    , m_session(pInterfaceSet, this)
    , m_calls(pInterfaceSet, this)
    , m_trackCalls(pInterfaceSet, this)
{
    m_pUi->setupUi(this);
    setAttribute(Qt::WA_DeleteOnClose);
    setModal(true);
    m_request.sPersonId = sPersonId.toStdString();
    m_pUi->lbConnection->Watch(m_session);
    m_pUi->lbPerson->setText(sPersonName.isEmpty()
            ? sPersonId
            : sPersonName + QStringLiteral(" (") + sPersonId + QLatin1Char(')'));
    SetUpList();
    SetUpTrack();
    connect(
        &m_session, &Common::CSession::SignalConnectionChanged, this, &CHistoryLogDlg::OnConnectionChanged);
    OnConnectionChanged(m_session.IsConnected());
    Common::LoadStyleSheet(this, QStringLiteral("BasicInfoManagerUI/Personnel"));
}

CHistoryLogDlg::~CHistoryLogDlg() = default;

void CHistoryLogDlg::SetUpList()
{
    const QDate today = QDate::currentDate();
    m_pUi->m_dtFrom->setDateTime(today.addDays(1 - DefaultDays).startOfDay());
    m_pUi->m_dtTo->setDateTime(today.endOfDay());
    m_pUi->btnSearch->setIcon(Trv::GetIcon(QStringLiteral("search")));
    m_pUi->m_pRecordView->setModel(m_pModel);
    const int widths[] = {150, 150, 130, 110, 130, 80, 80};
    for (int nColumn = 0; nColumn < m_pModel->columnCount(); ++nColumn)
        m_pUi->m_pRecordView->header()->resizeSection(nColumn, widths[nColumn]);
    connect(m_pUi->btnSearch, &QAbstractButton::clicked, this, &CHistoryLogDlg::Search);
    connect(m_pUi->wgtRecordState, &VxGUI::VxEmptyState::SignalAction, this, &CHistoryLogDlg::Search);
    connect(m_pUi->m_pPageCtrl, &UICommonMdl::CNumberPageCtrl::SignalCurrentPageChanged, this,
        &CHistoryLogDlg::QueryPage);
    connect(m_pUi->m_pPageCtrl, &UICommonMdl::CNumberPageCtrl::SignalPageSizeChanged, this,
        &CHistoryLogDlg::QueryPage);
}

void CHistoryLogDlg::SetUpTrack()
{
    m_pUi->btnTrack->setIcon(Trv::GetIcon(QStringLiteral("track")));
    m_pUi->btnRecords->setIcon(Trv::GetIcon(QStringLiteral("back")));
    connect(m_pUi->btnTrack, &QAbstractButton::clicked, this, &CHistoryLogDlg::QueryTrack);
    connect(m_pUi->btnRecords, &QAbstractButton::clicked, this,
        [this] { m_pUi->stackHistory->setCurrentWidget(m_pUi->pageRecords); });
    connect(m_pUi->m_pTrackView, &CTrackView::SignalStopChanged, this, &CHistoryLogDlg::OnStopChanged);
}

void CHistoryLogDlg::Start()
{
    Search();
}

void CHistoryLogDlg::Search()
{
    const std::int64_t nFrom = m_pUi->m_dtFrom->dateTime().toSecsSinceEpoch();
    const std::int64_t nTo = m_pUi->m_dtTo->dateTime().toSecsSinceEpoch();
    if (nFrom > nTo) {
        VxGUI::VxNotification::Show(
            this, Text::tr("The start time must be before the end time."), VxGUI::NotificationKind::Warning);
        m_pUi->m_dtFrom->setFocus();
        return;
    }
    m_request.nFrom = nFrom;
    m_request.nTo = nTo;
    m_pUi->stackHistory->setCurrentWidget(m_pUi->pageRecords);
    m_pUi->m_pPageCtrl->SetCurrentPage(1);
    m_calls.Latest<&IAccessControlManager::QueryRecordTotal>(
        m_request, [this](const Param& param) { OnTotal(param); });
    QueryPage();
}

void CHistoryLogDlg::QueryPage()
{
    m_request.nPage = qMax(1, m_pUi->m_pPageCtrl->GetCurrentPage());
    m_request.nPageSize = m_pUi->m_pPageCtrl->GetPageSize();
    m_calls.Latest<&IAccessControlManager::QueryRecords>(
        m_request, [this](const Param& param) { OnPage(param); });
    if (m_pModel->rowCount() == 0) {
        m_pUi->wgtRecordState->SetState(VxGUI::VxEmptyState::Kind::Loading, Text::tr("Loading records"));
        m_pUi->stackRecords->setCurrentWidget(m_pUi->wgtRecordState);
    }
    UpdateButtons();
}

void CHistoryLogDlg::OnTotal(const Param& param)
{
    if (param.nErrorCode == UICommonMdl::ErrorNone)
        m_pUi->m_pPageCtrl->SetTotalCount(param.nTotal);
    else
        VxGUI::VxNotification::Show(
            this, Common::FailureText(Text::tr("Failed to search total record(s)"), param.nErrorCode));
}

void CHistoryLogDlg::OnPage(const Param& param)
{
    QVector<Common::CTableModel::Row> vecRows;
    for (const AccessRecord_t& record : param.vecRecords)
        vecRows.append(MakeRow(record));
    m_pModel->SetRows(vecRows);
    m_pUi->m_pRecordView->scrollToTop();
    if (param.nErrorCode != UICommonMdl::ErrorNone)
        VxGUI::VxNotification::Show(
            this, Common::FailureText(Text::tr("Failed to search log"), param.nErrorCode));
    ShowListState(param.nErrorCode);
    UpdateButtons();
}

void CHistoryLogDlg::ShowListState(int nErrorCode)
{
    using Kind = VxGUI::VxEmptyState::Kind;
    if (nErrorCode == UICommonMdl::ErrorNone && m_pModel->rowCount() > 0) {
        m_pUi->stackRecords->setCurrentWidget(m_pUi->m_pRecordView);
        return;
    }
    if (nErrorCode == UICommonMdl::ErrorNoRight)
        m_pUi->wgtRecordState->SetState(
            Kind::NoPermission, Text::tr("You have no permission to see access records."));
    else if (nErrorCode != UICommonMdl::ErrorNone)
        m_pUi->wgtRecordState->SetState(Kind::Failed, Text::tr("Failed to search log"),
            UICommonMdl::CErrorCode::GetErroCodeInfor(nErrorCode), Text::tr("Refresh"));
    else
        m_pUi->wgtRecordState->SetState(Kind::Empty, Text::tr("There is no record in this period."));
    m_pUi->stackRecords->setCurrentWidget(m_pUi->wgtRecordState);
}

void CHistoryLogDlg::QueryTrack()
{
    AccessControlLogical::AccessRecordRequest_t request = m_request;
    request.nPage = 1;
    request.nPageSize = TrackRecordLimit;
    m_trackCalls.Latest<&IAccessControlManager::QueryRecords>(
        request, [this](const Param& param) { OnTrack(param); });
    UpdateButtons();
}

void CHistoryLogDlg::OnTrack(const Param& param)
{
    UpdateButtons();
    if (param.nErrorCode != UICommonMdl::ErrorNone) {
        VxGUI::VxNotification::Show(
            this, Common::FailureText(Text::tr("Failed to search log"), param.nErrorCode));
        return;
    }
    const int nTotal = qMax(m_pUi->m_pPageCtrl->GetTotalCount(), param.nTotal);
    if (nTotal > TrackRecordLimit)
        VxGUI::VxNotification::Show(
            this, Text::tr("Support up to 1000 records generate tracks"), VxGUI::NotificationKind::Warning);
    m_pUi->m_pTrackView->SetTrack(MakeTrack(param.vecRecords));
    m_pUi->lbTrack->setText(
        Text::tr("Records on the track: %1 of %2").arg(param.vecRecords.size()).arg(nTotal));
    m_pUi->stackHistory->setCurrentWidget(m_pUi->pageTrack);
    m_pUi->m_pTrackView->setFocus();
}

void CHistoryLogDlg::OnStopChanged(int nStop)
{
    const Track& track = m_pUi->m_pTrackView->GetTrack();
    const TrackStop& stop = track.vecStops[nStop];
    const QString sText = QStringLiteral("%1   %2   %3, %4")
                              .arg(GetTimeText(stop.nTime), track.listLanes[stop.nLane],
                                  GetDirectionText(stop.bEntry), GetResultText(stop.bOpened));
    m_pUi->lbStop->setText(sText);
    m_pUi->m_pTrackView->setAccessibleDescription(sText);
}

void CHistoryLogDlg::OnConnectionChanged(bool bConnected)
{
    m_pUi->wgtRecordState->setEnabled(bConnected);
    m_pUi->m_pPageCtrl->setEnabled(bConnected);
    UpdateButtons();
    if (bConnected && isVisible() && m_pModel->rowCount() == 0)
        Search();
}

void CHistoryLogDlg::UpdateButtons()
{
    m_pUi->btnSearch->setEnabled(m_session.IsConnected());
    m_pUi->btnTrack->setEnabled(
        m_session.IsConnected() && m_pModel->rowCount() > 0 && !m_trackCalls.IsPending());
}

} // namespace BasicInfoManagerUI

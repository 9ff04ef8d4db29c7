#include "CImportRun.h"

#include <UICommonMdl/CErrorCode.h>
#include <UICommonMdl/CInterfaceSetManager.h>
#include <UICommonMdl/ITransferManager.h>
#include <UserLogical/IUserManager.h>

#include <QCoreApplication>
#include <QtConcurrent/QtConcurrentRun>

namespace ResourceManagerUI {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CDevImport)
};

/// The server reports at least each time it has worked on some rows; the last step of a large import, when
/// all devices enter the list at once, has none in between.
constexpr std::chrono::minutes ReportTimeOut{10};

} // namespace

CImportRun::CImportRun(UICommonMdl::CInterfaceSetManager* pInterfaceSet, QObject* pParent)
    : QObject(pParent)
    , m_pInterfaceSet(pInterfaceSet)
    , m_pTransfers(pInterfaceSet->GetTransferManager())
    , m_calls(pInterfaceSet, this)
{
    m_calls.SetLimit(ReportTimeOut);
    connect(&m_reading, &QFutureWatcherBase::finished, this, &CImportRun::OnLoaded);
    connect(&m_calls, &Common::CPageWork::SignalEnding, this, [this] {
        if (m_stage == Stage::Uploading)
            m_pTransfers->Cancel(m_nUpload);
    });
    if (!m_pTransfers)
        return;
    connect(
        m_pTransfers, &UICommonMdl::ITransferManager::SignalProgress, this, &CImportRun::OnUploadProgress);
    connect(
        m_pTransfers, &UICommonMdl::ITransferManager::SignalFinished, this, &CImportRun::OnUploadFinished);
}

CImportRun::~CImportRun() = default;

void CImportRun::SetStage(Stage stage)
{
    m_stage = stage;
    Q_EMIT SignalStageChanged();
}

void CImportRun::Begin(Stage stage, const Options& options)
{
    m_options = options;
    m_sheet = {};
    m_vecRows.clear();
    m_nUnreadable = 0;
    m_state = {};
    m_nErrorCode = UICommonMdl::ErrorNone;
    m_sErrorDetail.clear();
    SetStage(stage);
}

void CImportRun::Reset()
{
    m_calls.ForgetAll();
    m_nUpload = 0;
    if (m_stage != Stage::Idle)
        SetStage(Stage::Idle);
}

void CImportRun::Refuse(const QString& sText)
{
    SetStage(Stage::Idle);
    Q_EMIT SignalRefused(sText);
}

std::shared_ptr<CImportRun::Loaded> CImportRun::Load(const QString& sPath)
{
    auto pLoaded = std::make_shared<Loaded>();
    CDeviceImportFile file;
    pLoaded->status = file.Load(sPath);
    if (pLoaded->status != CDeviceImportFile::Status::Read)
        return pLoaded;
    pLoaded->request.sSource = "xml";
    pLoaded->request.vecRows.reserve(file.GetRows().size());
    for (const ImportFileRow& row : file.GetRows())
        pLoaded->request.vecRows.push_back(CDeviceImportFile::MakeImportRow(row));
    pLoaded->vecRows = GetImportedRows(pLoaded->request.vecRows);
    pLoaded->vecUnreadable = file.GetUnreadable();
    return pLoaded;
}

void CImportRun::StartXml(const QString& sPath, const Options& options)
{
    if (IsRunning())
        return;
    Begin(Stage::Reading, options);
    m_reading.setFuture(QtConcurrent::run(&CImportRun::Load, sPath));
}

void CImportRun::OnLoaded()
{
    if (m_stage != Stage::Reading)
        return;
    // Taken out piece by piece: the future keeps the record until the next file.
    const std::shared_ptr<Loaded> pLoaded = m_reading.result();
    if (pLoaded->status != CDeviceImportFile::Status::Read) {
        Refuse(CDeviceImportFile::GetStatusText(pLoaded->status));
        return;
    }
    m_vecRows = std::move(pLoaded->vecRows);
    m_nUnreadable = static_cast<int>(pLoaded->vecUnreadable.size());
    m_state.vecFailed = std::move(pLoaded->vecUnreadable);
    m_state.nTotal = static_cast<int>(m_vecRows.size()) + m_nUnreadable;
    m_state.nDone = m_state.nFailed = m_nUnreadable;
    const bool bNothing = m_vecRows.empty() || (m_nUnreadable > 0 && m_options.bAllOrNothing);
    if (bNothing) {
        SetStage(Stage::Importing);
        Finish(UICommonMdl::ErrorImportAborted, {});
        return;
    }
    Send(std::move(pLoaded->request));
}

void CImportRun::StartRows(
    std::vector<GroupLogical::ImportRow_t> vecRows, const QString& sSource, const Options& options)
{
    if (IsRunning())
        return;
    Begin(Stage::Importing, options);
    m_vecRows = GetImportedRows(vecRows);
    m_state.nTotal = static_cast<int>(vecRows.size());
    GroupLogical::ImportRequest_t request;
    request.vecRows = std::move(vecRows);
    request.sSource = sSource.toStdString();
    Send(std::move(request));
}

void CImportRun::Send(GroupLogical::ImportRequest_t request)
{
    request.sOrgCode = m_options.sOrgCode.toStdString();
    request.bAllOrNothing = m_options.bAllOrNothing;
    m_calls.Latest<&GroupLogical::IGroupManager::ImportDevice>(
        request, [this](const Param& param) { OnReport(param); });
    Wait();
}

void CImportRun::Wait()
{
    SetStage(Stage::Importing);
    Q_EMIT SignalProgress();
}

void CImportRun::StartUpload(const QString& sUrl, const QString& sPath, const Options& options)
{
    if (IsRunning())
        return;
    Begin(Stage::Uploading, options);
    UserLogical::IUserManager* const pUser = m_pInterfaceSet->GetUserManager();
    const QString sWholeUrl =
        AppendToken(sUrl, pUser ? QString::fromStdString(pUser->GetToken()) : QString());
    m_nUpload = m_pTransfers && !sWholeUrl.isEmpty() ? m_pTransfers->Upload(sWholeUrl, sPath) : 0;
    if (m_nUpload > 0)
        return;
    SetStage(Stage::Idle);
    Q_EMIT SignalUploadFailed(sWholeUrl.isEmpty()
            ? Text::tr("The platform takes no uploads now.")
            : CDeviceImportFile::GetStatusText(CDeviceImportFile::Status::Unreadable));
}

void CImportRun::OnUploadProgress(int nTransfer, qint64 nDone, qint64 nTotal)
{
    if (m_stage == Stage::Uploading && nTransfer == m_nUpload && nTotal > 0)
        Q_EMIT SignalUploadRate(static_cast<int>(qBound(qint64(0), nDone * 100 / nTotal, qint64(100))));
}

void CImportRun::OnUploadFinished(
    int nTransfer, int nErrorCode, const QString& sDetail, const QByteArray& baAnswer)
{
    if (m_stage != Stage::Uploading || nTransfer != m_nUpload)
        return;
    m_nUpload = 0;
    const std::optional<UploadedSheet> optSheet =
        nErrorCode == UICommonMdl::ErrorNone ? ParseUploadAnswer(baAnswer) : std::nullopt;
    if (optSheet) {
        m_sheet = *optSheet;
        Q_EMIT SignalUploadRate(100);
        SetStage(Stage::Uploaded);
        Q_EMIT SignalUploaded();
        return;
    }
    const int nShown = nErrorCode == UICommonMdl::ErrorNone ? UICommonMdl::ErrorBadAnswer : nErrorCode;
    const QString sReason = UICommonMdl::CErrorCode::GetErroCodeInfor(nShown);
    SetStage(Stage::Idle);
    Q_EMIT SignalUploadFailed(sDetail.isEmpty() ? sReason : QString(sReason + QLatin1Char(' ') + sDetail));
}

void CImportRun::ImportUploaded(bool bOverwrite)
{
    if (m_stage != Stage::Uploaded)
        return;
    m_state.nTotal = m_sheet.nRows;
    m_calls.Latest<&GroupLogical::IGroupManager::ImportUploaded>(m_sheet.sJob.toStdString(),
        m_options.bAllOrNothing, bOverwrite, [this](const Param& param) { OnReport(param); });
    Wait();
}

void CImportRun::OnReport(const Param& param)
{
    if (param.nErrorCode == UICommonMdl::ErrorNotSent) {
        Refuse(Text::tr("Failed to import device!"));
        return;
    }
    const GroupLogical::ImportState_t& news = param.importState;
    m_state.vecFailed.insert(m_state.vecFailed.end(), news.vecFailed.begin(), news.vecFailed.end());
    // A failure of the request as a whole may come without figures.
    if (news.nTotal > 0) {
        m_state.nTotal = news.nTotal + m_nUnreadable;
        m_state.nDone = news.nDone + m_nUnreadable;
        m_state.nFailed = news.nFailed + m_nUnreadable;
        m_state.nSucceeded = news.nSucceeded;
    }
    if (!param.bFinal) {
        Q_EMIT SignalProgress();
        return;
    }
    m_state.sFailListUrl = news.sFailListUrl;
    m_state.sFailListName = news.sFailListName;
    const bool bAborted = param.nErrorCode == UICommonMdl::ErrorNone && m_options.bAllOrNothing
        && m_state.nFailed > 0 && m_state.nSucceeded == 0;
    Finish(bAborted ? UICommonMdl::ErrorImportAborted : param.nErrorCode,
        QString::fromStdString(param.sErrorDetail));
}

void CImportRun::Finish(int nErrorCode, const QString& sDetail)
{
    m_nErrorCode = nErrorCode;
    m_sErrorDetail = sDetail;
    if (!IsOutcomeUnknown(nErrorCode)) {
        m_state.nDone = m_state.nTotal;
        // Nothing enters the list of an import that fails as a whole.
        if (nErrorCode != UICommonMdl::ErrorNone)
            m_state.nSucceeded = 0;
        m_state.nFailed = m_state.nTotal - m_state.nSucceeded;
    }
    Q_EMIT SignalProgress();
    SetStage(Stage::Done);
    Q_EMIT SignalFinished();
}

std::vector<ImportResultRow> CImportRun::MakeResult() const
{
    // Only what is certain is said: rows nobody reported on have gone the way of the whole.
    std::optional<int> optRest;
    if (!IsOutcomeUnknown(m_nErrorCode))
        optRest = m_nErrorCode;
    return MakeImportResult(m_vecRows, m_state.vecFailed, optRest);
}

} // namespace ResourceManagerUI

#include "CImportSender.h"

namespace PlatformLogic {

namespace {
constexpr std::size_t ChunkSize = 1000;
constexpr int ImportRetryMs = 1000;
constexpr int ImportRetryLimit = 30;
} // namespace

CImportSender::CImportSender(
    IServerConnection& connection, GroupLogical::ImportRequest_t request, JobHandler handler)
    : m_connection(connection)
    , m_request(std::move(request))
    , m_handler(std::move(handler))
{
}

int CImportSender::Start()
{
    return CallServer<wire::BeginImport>(m_connection, {m_request.sOrgCode, m_request.sSource},
        [pSelf = shared_from_this()](TypedAnswer<wire::Job>&& answer) {
            pSelf->m_nSequence = answer.nSequence;
            pSelf->m_sJob = answer.data.sJob;
            if (answer.nErrorCode != UICommonMdl::ErrorNone)
                pSelf->Fail(answer.nErrorCode, answer.sDetail);
            else
                pSelf->SendRows();
        });
}

void CImportSender::Fail(int nErrorCode, const std::string& sDetail)
{
    // Without RunImport the server imports nothing.
    m_handler({m_nSequence, nErrorCode, sDetail, true, {}, 0});
}

void CImportSender::SendRows()
{
    if (m_nSent == m_request.vecRows.size()) {
        Run(m_connection, {m_sJob, m_request.bAllOrNothing, false}, m_nSequence, m_handler, 0);
        return;
    }
    wire::ImportRowsRequest rows{m_sJob, {}};
    const std::size_t nEnd = std::min(m_nSent + ChunkSize, m_request.vecRows.size());
    for (; m_nSent < nEnd; ++m_nSent)
        rows.vecRows.push_back(std::move(m_request.vecRows[m_nSent]));
    CallServer<wire::AddImportRows>(
        m_connection, rows, [pSelf = shared_from_this()](TypedAnswer<wire::Nothing>&& answer) {
            if (answer.nErrorCode != UICommonMdl::ErrorNone)
                pSelf->Fail(answer.nErrorCode, answer.sDetail);
            else
                pSelf->SendRows();
        });
}

void CImportSender::Run(IServerConnection& connection, const wire::RunImportRequest& request, int nSequence,
    const JobHandler& handler, int nAttempt)
{
    CallServer<wire::RunImport>(
        connection, request,
        [&connection, request, nSequence, handler, nAttempt](TypedAnswer<wire::Nothing>&& answer) {
            const bool bLost = answer.nErrorCode == UICommonMdl::ErrorDisconnected
                || answer.nErrorCode == UICommonMdl::ErrorTimeOut;
            // Whether a request whose answer was lost arrived is found out by asking again: an import that
            // runs refuses to be started a second time.
            const bool bRuns = answer.nErrorCode == UICommonMdl::ErrorNone
                || (nAttempt > 0 && answer.nErrorCode == UICommonMdl::ErrorInvalidInput);
            if (bRuns)
                FollowJob(connection, request.sJob, nSequence, handler);
            else if (bLost && nAttempt < ImportRetryLimit)
                Run(connection, request, nSequence, handler, nAttempt + 1);
            else
                handler({nSequence, answer.nErrorCode, answer.sDetail, true, {}, 0});
        },
        nAttempt == 0 ? 0 : ImportRetryMs);
}

int CImportSender::StartUploaded(
    IServerConnection& connection, const wire::RunImportRequest& request, JobHandler handler)
{
    // The number of the first request is that of the import.
    return CallServer<wire::GetSession>(connection, {},
        [&connection, request, handler = std::move(handler)](
            TypedAnswer<wire::Session>&& answer) { Run(connection, request, answer.nSequence, handler, 0); });
}

} // namespace PlatformLogic

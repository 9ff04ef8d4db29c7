#include "FakeServer.h"

#include <UICommonMdl/ErrorCodes.h>

#include <gtest/gtest.h>

FakeServer::FakeServer()
{
    m_context.moveToThread(&m_thread);
    m_thread.start();
    StartJobs<wire::SearchOnlineDevice, wire::InitializeDevice, wire::ModifyAddress,
        wire::ModifyDevicePassword, wire::SetDeviceTimeZone, wire::BeginImport, wire::ReissuePersonRight,
        wire::CaptureFingerprint, wire::ExtractPersons>();
    AnswerAlways<wire::AddImportRows>({});
    AnswerAlways<wire::RunImport>({});
    AnswerAlways<wire::CancelJob>({});
}

void FakeServer::Stop()
{
    if (!m_thread.isRunning())
        return;
    Join();
    CloseSession(OpenRequests::Cancel);
    m_thread.quit();
    m_thread.wait();
}

template <class... Ops>
void FakeServer::StartJobs()
{
    (SetAutomatic(Ops::Name,
         [](const FakeCall& call) {
             return Reply{0, {}, Encode(wire::Job{JobOf(call)})};
         }),
        ...);
}

void FakeServer::Run(const std::function<void()>& work)
{
    if (QThread::currentThread() == &m_thread) {
        m_queWork.push_back(work);
        return;
    }
    const auto run = [&] {
        m_queWork.push_back(work);
        while (!m_queWork.empty()) {
            const auto next = std::move(m_queWork.front());
            m_queWork.pop_front();
            next();
        }
    };
    QMetaObject::invokeMethod(&m_context, run, Qt::BlockingQueuedConnection);
}

int FakeServer::Send(const std::string& sOperation, const QByteArray& body, DataHandler onData,
    AnswerHandler onEnd, int /*nDelayMs*/)
{
    FakeCall call{sOperation, 0, nlohmann::json::parse(body.begin(), body.end())};
    Maker maker;
    {
        const std::lock_guard lock(m_mutex);
        if (m_setRefused.count(sOperation) == 0) {
            call.nSequence = ++m_nLastSequence;
            m_mapOpen[call.nSequence] = {std::move(onData), std::move(onEnd)};
            if (!m_bReachable)
                maker = [](const FakeCall&) { return Reply{UICommonMdl::ErrorDisconnected, {}, "{}"}; };
            else if (const auto it = m_mapAutomatic.find(sOperation); it != m_mapAutomatic.end())
                maker = it->second;
        }
        m_vecCalls.push_back(call);
    }
    if (maker)
        Run([this, call, maker] { End(call, maker(call)); });
    return call.nSequence;
}

void FakeServer::CloseSession(OpenRequests openRequests)
{
    if (openRequests == OpenRequests::Keep)
        return;
    for (const FakeCall& call : OpenCalls())
        Fail(call, UICommonMdl::ErrorCancelled);
}

void FakeServer::SetReachable(bool bReachable)
{
    {
        const std::lock_guard lock(m_mutex);
        m_bReachable = bReachable;
    }
    if (bReachable)
        return;
    for (const FakeCall& call : OpenCalls())
        Fail(call, UICommonMdl::ErrorDisconnected);
}

void FakeServer::SetAutomatic(std::string_view sOperation, Maker maker)
{
    const std::lock_guard lock(m_mutex);
    if (maker)
        m_mapAutomatic[std::string(sOperation)] = std::move(maker);
    else
        m_mapAutomatic.erase(std::string(sOperation));
}

void FakeServer::HoldAll()
{
    const std::lock_guard lock(m_mutex);
    std::erase_if(m_mapAutomatic, [](const auto& entry) { return entry.first != wire::GetSession::Name; });
}

void FakeServer::End(const FakeCall& call, const Reply& reply)
{
    Handlers handlers;
    {
        const std::lock_guard lock(m_mutex);
        const auto it = m_mapOpen.find(call.nSequence);
        if (it == m_mapOpen.end()) {
            ADD_FAILURE() << "not open: " << call.sOperation << ' ' << call.nSequence;
            return;
        }
        handlers = std::move(it->second);
        m_mapOpen.erase(it);
    }
    Run([=, nSequence = call.nSequence] {
        if (reply.nErrorCode == UICommonMdl::ErrorNone)
            handlers.onData(nlohmann::json::parse(reply.sData), 1);
        handlers.onEnd({nSequence, reply.nErrorCode, reply.sDetail});
    });
}

void FakeServer::ReportJob(const std::string& sJob, const wire::JobState& state)
{
    for (const FakeCall& call : OpenCalls()) {
        if (call.sOperation == wire::WaitJob::Name && call.Request<wire::WaitJob>().sJob == sJob) {
            Answer<wire::WaitJob>(call, state);
            return;
        }
    }
    ADD_FAILURE() << "nobody waits for " << sJob;
}

void FakeServer::PushUntilJoin(const std::string& sEvent)
{
    m_bPushing = true;
    m_pusher = std::thread([this, sEvent] {
        while (m_bPushing)
            Push(sEvent);
    });
}

void FakeServer::Join()
{
    m_bPushing = false;
    if (m_pusher.joinable())
        m_pusher.join();
}

std::vector<FakeCall> FakeServer::Calls(std::string_view sOperation) const
{
    const std::lock_guard lock(m_mutex);
    std::vector<FakeCall> vecCalls;
    for (const FakeCall& call : m_vecCalls) {
        if (sOperation.empty() || call.sOperation == sOperation)
            vecCalls.push_back(call);
    }
    return vecCalls;
}

std::vector<FakeCall> FakeServer::OpenCalls() const
{
    std::vector<FakeCall> vecCalls = Calls();
    const std::lock_guard lock(m_mutex);
    std::erase_if(vecCalls, [&](const FakeCall& call) { return m_mapOpen.count(call.nSequence) == 0; });
    return vecCalls;
}

GroupLogical::ImportRequest_t FakeServer::LastImport() const
{
    const FakeCall begun = Last<wire::BeginImport>();
    GroupLogical::ImportRequest_t import;
    import.sOrgCode = begun.Request<wire::BeginImport>().sOrgCode;
    import.sSource = begun.Request<wire::BeginImport>().sSource;
    for (const FakeCall& call : Calls<wire::AddImportRows>()) {
        const auto piece = call.Request<wire::AddImportRows>();
        if (piece.sJob == JobOf(begun))
            import.vecRows.insert(import.vecRows.end(), piece.vecRows.begin(), piece.vecRows.end());
    }
    import.bAllOrNothing = LastRequest<wire::RunImport>().bAllOrNothing;
    return import;
}

wire::JobState MakeImportReport(GroupLogical::ImportState_t import, bool bFinished, int nErrorCode)
{
    wire::JobState state = MakeReport(std::exchange(import.vecFailed, {}), bFinished, nErrorCode);
    state.nTotal = import.nTotal;
    state.nDone = import.nDone;
    if (bFinished)
        state.summary = import;
    return state;
}

FakeCall FakeServer::Last(std::string_view sOperation) const
{
    const std::vector<FakeCall> vecCalls = Calls(sOperation);
    return vecCalls.empty() ? FakeCall{std::string(sOperation), 0, nlohmann::json::object()}
                            : vecCalls.back();
}

#include "JobService.h"

#include "Log.h"
#include "Password.h"
#include "ServiceError.h"

#include <algorithm>

namespace Platform {

namespace {
constexpr std::chrono::milliseconds Patience(5000);
// Results that come one by one are gathered for so long.
constexpr std::chrono::milliseconds Gathering(40);
} // namespace

Job::Job(std::string sId, std::int64_t nAccountId)
    : m_sId(std::move(sId))
    , m_nAccountId(nAccountId)
{
}

void Job::SetTotal(int nTotal)
{
    const std::lock_guard lock(m_mutex);
    m_state.nTotal = nTotal;
    m_changed.notify_all();
}

void Job::SetDone(int nDone)
{
    const std::lock_guard lock(m_mutex);
    m_state.nDone = nDone;
    m_changed.notify_all();
}

void Job::AddItem(nlohmann::json item)
{
    const std::lock_guard lock(m_mutex);
    m_vecItems.push_back(std::move(item));
    m_changed.notify_all();
}

void Job::AddDone(nlohmann::json item)
{
    const std::lock_guard lock(m_mutex);
    m_vecItems.push_back(std::move(item));
    ++m_state.nDone;
    m_changed.notify_all();
}

void Job::SetSummary(nlohmann::json summary)
{
    const std::lock_guard lock(m_mutex);
    m_state.summary = std::move(summary);
}

void Job::Finish(int nErrorCode, const std::string& sDetail)
{
    const std::lock_guard lock(m_mutex);
    m_state.bFinished = true;
    m_state.nErrorCode = nErrorCode;
    m_state.sErrorDetail = sDetail;
    m_changed.notify_all();
}

wire::JobState Job::Read(int nFrom, std::chrono::milliseconds patience)
{
    std::unique_lock lock(m_mutex);
    const int nDone = m_state.nDone;
    const auto more = [&] {
        return m_state.bFinished || static_cast<int>(m_vecItems.size()) > nFrom || m_state.nDone != nDone
            || m_bEnding;
    };
    if (!m_state.bFinished && m_changed.wait_for(lock, patience, more))
        m_changed.wait_for(lock, Gathering, [this] { return m_state.bFinished; });
    wire::JobState state = m_state;
    const auto nFirst = std::min(static_cast<std::size_t>(std::max(nFrom, 0)), m_vecItems.size());
    const auto nEnd = std::min(nFirst + JobService::ItemLimit, m_vecItems.size());
    for (std::size_t i = nFirst; i < nEnd; ++i)
        state.items.push_back(m_vecItems[i]);
    // The end is told with the last results, and not before them.
    state.bFinished = state.bFinished && nEnd == m_vecItems.size();
    return state;
}

JobService::JobService(Clock clock)
    : m_clock(std::move(clock))
{
}

JobService::~JobService()
{
    End();
    std::vector<Runner> vecRunners;
    {
        const std::lock_guard lock(m_mutex);
        vecRunners.swap(m_vecRunners);
    }
    for (Runner& runner : vecRunners)
        runner.thread.join();
}

std::shared_ptr<Job> JobService::Create(const Context& context)
{
    auto pJob = std::make_shared<Job>(Password::NewToken().substr(0, 32), context.nAccountId);
    const std::lock_guard lock(m_mutex);
    Forget();
    pJob->m_nIdleSince = m_clock();
    m_mapJobs[pJob->Id()] = pJob;
    return pJob;
}

void JobService::Start(const std::shared_ptr<Job>& pJob, Work work)
{
    const std::lock_guard lock(m_mutex);
    Forget();
    if (m_bEnded || m_vecRunners.size() >= RunningLimit)
        throw ServiceError(UICommonMdl::ErrorServerBusy);
    pJob->m_nIdleSince = 0;
    m_vecRunners.push_back({pJob, std::thread([this, pJob, work = std::move(work)] {
                                int nCode = UICommonMdl::ErrorNone;
                                std::string sDetail;
                                try {
                                    work(*pJob);
                                } catch (const ServiceError& error) {
                                    nCode = error.Code();
                                    sDetail = error.Detail();
                                } catch (const std::exception& error) {
                                    nCode = UICommonMdl::ErrorInternal;
                                    Log::Error("job", "A job failed", {{"error", error.what()}});
                                }
                                {
                                    const std::lock_guard finished(m_mutex);
                                    pJob->m_nIdleSince = m_clock();
                                }
                                pJob->Finish(nCode, sDetail);
                            })});
}

wire::Job JobService::Run(const Context& context, Work work)
{
    const std::shared_ptr<Job> pJob = Create(context);
    Start(pJob, std::move(work));
    return {pJob->Id()};
}

void JobService::Forget()
{
    const std::int64_t nNow = m_clock();
    std::erase_if(m_vecRunners, [](Runner& runner) {
        if (runner.pJob->m_nIdleSince == 0)
            return false;
        runner.thread.join();
        return true;
    });
    std::erase_if(m_mapJobs, [nNow](const auto& entry) {
        const std::int64_t nIdleSince = entry.second->m_nIdleSince;
        return nIdleSince != 0 && nNow - nIdleSince > KeepMs;
    });
}

std::shared_ptr<Job> JobService::Find(const Context& context, const std::string& sJob)
{
    const std::lock_guard lock(m_mutex);
    const auto it = m_mapJobs.find(sJob);
    if (it == m_mapJobs.end() || it->second->AccountId() != context.nAccountId)
        throw ServiceError(UICommonMdl::ErrorNotFound);
    return it->second;
}

bool JobService::Knows(const std::string& sJob)
{
    const std::lock_guard lock(m_mutex);
    return m_mapJobs.count(sJob) != 0;
}

wire::JobState JobService::Wait(const Context& context, const wire::WaitJobRequest& request)
{
    return Find(context, request.sJob)->Read(request.nFrom, Patience);
}

void JobService::Cancel(const Context& context, const wire::Job& job)
{
    Find(context, job.sJob)->m_stop.request_stop();
}

void JobService::End()
{
    const std::lock_guard lock(m_mutex);
    m_bEnded = true;
    for (const auto& [sId, pJob] : m_mapJobs) {
        pJob->m_stop.request_stop();
        const std::lock_guard state(pJob->m_mutex);
        pJob->m_bEnding = true;
        pJob->m_changed.notify_all();
    }
}

} // namespace Platform

#pragma once

#include "Context.h"

#include <wire/Records.h>

#include <condition_variable>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <stop_token>
#include <string>
#include <thread>
#include <vector>

namespace Platform {

/// Work that runs beside the request that started it, and what it has brought so far. Any thread.
class Job
{
public:
    Job(std::string sId, std::int64_t nAccountId);

    const std::string& Id() const { return m_sId; }
    std::int64_t AccountId() const { return m_nAccountId; }

    void SetTotal(int nTotal);
    void SetDone(int nDone);
    /// A result that clients read; its form is the job's.
    void AddItem(nlohmann::json item);
    /// As AddItem, and counts it as done.
    void AddDone(nlohmann::json item);
    /// Told once, with the end. Set before the work returns.
    void SetSummary(nlohmann::json summary);
    std::stop_token StopToken() const { return m_stop.get_token(); }

private:
    friend class JobService;
    wire::JobState Read(int nFrom, std::chrono::milliseconds patience);
    void Finish(int nErrorCode, const std::string& sDetail);

    const std::string m_sId;
    const std::int64_t m_nAccountId;
    std::stop_source m_stop;
    std::mutex m_mutex;
    std::condition_variable m_changed;
    wire::JobState m_state;
    std::vector<nlohmann::json> m_vecItems;
    bool m_bEnding = false; ///< the server stops: nobody waits any more
    std::int64_t m_nIdleSince = 0; ///< 0: it runs. Guarded by the service
};

/// The jobs of all accounts. One that does not run, finished or not started, is kept for an hour. Any thread;
/// faults are ServiceError.
class JobService
{
public:
    static constexpr std::size_t RunningLimit = 32;
    static constexpr std::int64_t KeepMs = std::int64_t(60) * 60 * 1000;
    /// Results that one answer carries at most.
    static constexpr int ItemLimit = 1000;

    explicit JobService(Clock clock);
    /// Stops what runs and waits for it.
    ~JobService();
    JobService(const JobService&) = delete;
    JobService& operator=(const JobService&) = delete;

    using Work = std::function<void(Job&)>;
    /// A job that does not run yet.
    std::shared_ptr<Job> Create(const Context& context);
    /// Runs the work on a thread of its own; it ends the job by returning, or fails it by a ServiceError.
    /// Throws ErrorServerBusy when too many run.
    void Start(const std::shared_ptr<Job>& pJob, Work work);
    wire::Job Run(const Context& context, Work work);

    /// Only the account that started a job sees it: others get ErrorNotFound.
    std::shared_ptr<Job> Find(const Context& context, const std::string& sJob);
    /// True while that job is kept.
    bool Knows(const std::string& sJob);
    /// Waits a few seconds for more than the client has read.
    wire::JobState Wait(const Context& context, const wire::WaitJobRequest& request);
    void Cancel(const Context& context, const wire::Job& job);
    /// Asks all jobs to stop and wakes everybody who waits for one.
    void End();

private:
    void Forget();

    const Clock m_clock;
    std::mutex m_mutex;
    std::map<std::string, std::shared_ptr<Job>> m_mapJobs;
    struct Runner
    {
        std::shared_ptr<Job> pJob;
        std::thread thread;
    };
    std::vector<Runner> m_vecRunners;
    bool m_bEnded = false;
};

} // namespace Platform

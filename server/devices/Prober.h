#pragma once

#include "Reachability.h"
#include "services/Generations.h"
#include "store/DatabasePool.h"

#include <wire/Records.h>

#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

namespace Platform {

/// Keeps the online state of all devices: probes them at its start and then at an interval, on a thread of
/// its own, writes what changed in batches and tells of it.
class Prober
{
public:
    /// Told the states that changed, after they were written, on the prober's thread.
    using Publish = std::function<void(const wire::DeviceStates& states)>;
    /// Told the numbers of devices that have just come online, on the prober's thread.
    using CameOnline = std::function<void(const std::vector<std::int64_t>& vecIds)>;

    Prober(DatabasePool& pool, Generations& generations, std::unique_ptr<Reachability> pReachability,
        std::chrono::milliseconds interval, Publish publish, CameOnline cameOnline = {});
    /// Gives up the probes under way.
    ~Prober();
    /// Looks at these devices as soon as the round under way allows, without waiting for the next one. Any
    /// thread.
    void ProbeSoon(const std::vector<std::int64_t>& vecIds);
    Prober(const Prober&) = delete;
    Prober& operator=(const Prober&) = delete;

private:
    struct Row
    {
        ProbeTarget target;
        ProbeResult known;
    };
    struct Change
    {
        ProbeTarget target;
        ProbeResult result;
    };

    void Run(const std::stop_token& stop);
    void ProbeAll(const std::stop_token& stop);
    void ProbeAdded(const std::stop_token& stop);
    void Probe(std::vector<Row> vecRows, const std::stop_token& stop);
    std::vector<Row> ReadRows(std::int64_t nAfterId);
    std::vector<Row> ReadRow(std::int64_t nId);
    void Write(std::vector<Change>& vecChanges);

    DatabasePool& m_pool;
    Generations& m_generations;
    const std::unique_ptr<Reachability> m_pReachability;
    const std::chrono::milliseconds m_interval;
    const Publish m_publish;
    const CameOnline m_cameOnline;
    std::mutex m_mutex;
    std::condition_variable_any m_wake;
    std::vector<std::int64_t> m_vecSoon; ///< guarded by m_mutex
    std::jthread m_thread;
};

} // namespace Platform

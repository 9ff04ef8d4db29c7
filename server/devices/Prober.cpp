#include "Prober.h"

#include "Log.h"
#include "ServiceError.h"

#include <GroupLogical/GroupRecords.h>

#include <unordered_map>

namespace Platform {

namespace {
constexpr int ChunkSize = 5000; // devices read and probed at a time
constexpr std::size_t BatchSize = 200; // changes written and told at a time
constexpr std::chrono::milliseconds BatchTime(250);
} // namespace

Prober::Prober(DatabasePool& pool, Generations& generations, std::unique_ptr<Reachability> pReachability,
    std::chrono::milliseconds interval, Publish publish, CameOnline cameOnline)
    : m_pool(pool)
    , m_generations(generations)
    , m_pReachability(std::move(pReachability))
    , m_interval(interval)
    , m_publish(std::move(publish))
    , m_cameOnline(std::move(cameOnline))
    , m_thread([this](const std::stop_token& stop) { Run(stop); })
{
}

Prober::~Prober() = default;

void Prober::ProbeSoon(const std::vector<std::int64_t>& vecIds)
{
    const std::lock_guard lock(m_mutex);
    m_vecSoon.insert(m_vecSoon.end(), vecIds.begin(), vecIds.end());
    m_wake.notify_all();
}

void Prober::Run(const std::stop_token& stop)
{
    auto next = std::chrono::steady_clock::now();
    while (!stop.stop_requested()) {
        try {
            if (std::chrono::steady_clock::now() >= next) {
                next = std::chrono::steady_clock::now() + m_interval;
                ProbeAll(stop);
            }
            ProbeAdded(stop);
        } catch (const ServiceError& error) {
            // The database was busy or away; the next round starts anew.
            Log::Warning("prober", "A round was given up", {{"code", std::to_string(error.Code())}});
        }
        std::unique_lock lock(m_mutex);
        m_wake.wait_until(lock, stop, next, [this] { return !m_vecSoon.empty(); });
    }
}

void Prober::ProbeAdded(const std::stop_token& stop)
{
    std::vector<std::int64_t> vecIds;
    {
        const std::lock_guard lock(m_mutex);
        vecIds.swap(m_vecSoon);
    }
    std::vector<Row> vecRows;
    for (const std::int64_t nId : vecIds)
        for (Row& row : ReadRow(nId))
            vecRows.push_back(std::move(row));
    if (!vecRows.empty())
        Probe(std::move(vecRows), stop);
}

std::vector<Prober::Row> Prober::ReadRow(std::int64_t nId)
{
    return m_pool.Read([nId](Database& database) {
        std::vector<Row> vecRows;
        Rows rows = database.Run(QStringLiteral("SELECT id, address, port, online_state, offline_reason "
                                                "FROM device WHERE id = ?"),
            {static_cast<qlonglong>(nId)});
        if (rows.Next())
            vecRows.push_back({{rows.Big(0), rows.Text(1), rows.Int(2)}, {rows.Int(3), rows.Int(4)}});
        return vecRows;
    });
}

std::vector<Prober::Row> Prober::ReadRows(std::int64_t nAfterId)
{
    return m_pool.Read([nAfterId](Database& database) {
        std::vector<Row> vecRows;
        Rows rows =
            database.Run(QStringLiteral("SELECT id, address, port, online_state, offline_reason FROM device "
                                        "WHERE id > ? ORDER BY id LIMIT ?"),
                {static_cast<qlonglong>(nAfterId), ChunkSize});
        while (rows.Next())
            vecRows.push_back({{rows.Big(0), rows.Text(1), rows.Int(2)}, {rows.Int(3), rows.Int(4)}});
        return vecRows;
    });
}

void Prober::ProbeAll(const std::stop_token& stop)
{
    std::int64_t nAfterId = 0;
    for (std::vector<Row> vecRows = ReadRows(nAfterId); !vecRows.empty() && !stop.stop_requested();
         vecRows = ReadRows(nAfterId)) {
        nAfterId = vecRows.back().target.nId;
        Probe(std::move(vecRows), stop);
        ProbeAdded(stop);
    }
}

void Prober::Probe(std::vector<Row> vecRows, const std::stop_token& stop)
{
    std::unordered_map<std::int64_t, ProbeResult> mapKnown;
    std::vector<ProbeTarget> vecTargets;
    for (Row& row : vecRows) {
        mapKnown[row.target.nId] = row.known;
        vecTargets.push_back(std::move(row.target));
    }
    std::vector<Change> vecChanges;
    auto lastWrite = std::chrono::steady_clock::now();
    m_pReachability->Check(
        vecTargets,
        [&](const ProbeTarget& target, const ProbeResult& result) {
            if (!(mapKnown[target.nId] == result))
                vecChanges.push_back({target, result});
            const auto now = std::chrono::steady_clock::now();
            if (vecChanges.size() >= BatchSize || (!vecChanges.empty() && now - lastWrite >= BatchTime)) {
                Write(vecChanges);
                lastWrite = now;
            }
        },
        stop);
    Write(vecChanges);
}

void Prober::Write(std::vector<Change>& vecChanges)
{
    if (vecChanges.empty())
        return;
    const wire::DeviceStates states = m_pool.Write([&vecChanges](Database& database) {
        wire::DeviceStates written;
        for (const Change& change : vecChanges) {
            // A device that was deleted or has another address now keeps what it has.
            const int nChanged =
                database
                    .Run(QStringLiteral("UPDATE device SET online_state = ?, offline_reason = ? "
                                        "WHERE id = ? AND address = ? AND port = ?"),
                        {change.result.nOnlineState, change.result.nOfflineReason,
                            static_cast<qlonglong>(change.target.nId), TextValue(change.target.sAddress),
                            change.target.nPort})
                    .Affected();
            if (nChanged == 1)
                written.vecStates.push_back({std::to_string(change.target.nId), change.result.nOnlineState,
                    change.result.nOfflineReason});
        }
        return written;
    });
    vecChanges.clear();
    if (states.vecStates.empty())
        return;
    ++m_generations.states;
    m_publish(states);
    std::vector<std::int64_t> vecOnline;
    for (const auto& state : states.vecStates)
        if (state.nOnlineState == GroupLogical::StateOnline)
            vecOnline.push_back(std::stoll(state.sDeviceId));
    if (m_cameOnline && !vecOnline.empty())
        m_cameOnline(vecOnline);
}

} // namespace Platform

#pragma once

#include "Database.h"

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <optional>
#include <thread>
#include <type_traits>
#include <vector>

namespace Platform {

/// Connections, each owned by a thread of its own: several that read and one that writes. One writer is what
/// SQLite has anyway, and it spares services the anomalies of concurrent changes on PostgreSQL.
///
/// Read and Write are called on any thread but the pool's own, wait for the result and pass exceptions on.
class DatabasePool
{
public:
    using Job = std::function<void(Database&)>;

    /// Opens the connections; throws StartError.
    DatabasePool(const DatabaseAddress& address, int nReaders);
    /// Finishes the jobs that wait, then closes the connections.
    ~DatabasePool();
    DatabasePool(const DatabasePool&) = delete;
    DatabasePool& operator=(const DatabasePool&) = delete;

    /// work(Database&) on a reading connection. Throws ServiceError with ErrorServerBusy when too many wait.
    template <class Work>
    auto Read(Work&& work)
    {
        return RunOn(&DatabasePool::RunReading, work);
    }

    /// work(Database&) in one transaction, committed when it returns and rolled back when it throws.
    template <class Work>
    auto Write(Work&& work)
    {
        return RunOn(&DatabasePool::RunWriting, work);
    }

    /// work(Database&) on the writing connection without a transaction.
    template <class Work>
    auto WriteBare(Work&& work)
    {
        return RunOn(&DatabasePool::RunWritingBare, work);
    }

private:
    struct Queue
    {
        std::mutex mutex;
        std::condition_variable changed;
        std::deque<Job> jobs;
        bool bEnding = false;
    };

    /// Runs work by one of the Run functions below and answers what it answers.
    template <class Work>
    auto RunOn(void (DatabasePool::*run)(const Job&), Work& work)
    {
        using Result = std::invoke_result_t<Work&, Database&>;
        if constexpr (std::is_void_v<Result>) {
            (this->*run)([&work](Database& database) { work(database); });
        } else {
            std::optional<Result> result;
            (this->*run)([&work, &result](Database& database) { result.emplace(work(database)); });
            return Result(std::move(*result));
        }
    }
    void RunReading(const Job& job);
    void RunWriting(const Job& job);
    void RunWritingBare(const Job& job);
    /// Waits until the job is done and throws what it throws.
    static void RunAndWait(Queue& queue, const Job& job);
    static void Submit(Queue& queue, Job job);
    void StartThread(Queue& queue, const DatabaseAddress& address);
    static void Serve(Queue& queue, Database& database);
    void End();

    Queue m_readQueue;
    Queue m_writeQueue;
    std::vector<std::thread> m_threads;
};

} // namespace Platform

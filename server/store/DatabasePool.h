#pragma once

#include "Database.h"

#include <condition_variable>
#include <deque>
#include <functional>
#include <future>
#include <mutex>
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
        return RunOn(m_readQueue, std::forward<Work>(work));
    }

    /// work(Database&) in one transaction, committed when it returns and rolled back when it throws.
    template <class Work>
    auto Write(Work&& work)
    {
        using Result = std::invoke_result_t<Work, Database&>;
        return RunOn(m_writeQueue, [&work](Database& database) -> Result {
            Transaction transaction(database);
            if constexpr (std::is_void_v<Result>) {
                work(database);
                transaction.Commit();
            } else {
                Result result = work(database);
                transaction.Commit();
                return result;
            }
        });
    }

    /// work(Database&) on the writing connection without a transaction.
    template <class Work>
    auto WriteBare(Work&& work)
    {
        return RunOn(m_writeQueue, std::forward<Work>(work));
    }

private:
    struct Queue
    {
        std::mutex mutex;
        std::condition_variable changed;
        std::deque<Job> jobs;
        bool bEnding = false;
    };

    template <class Work>
    auto RunOn(Queue& queue, Work&& work)
    {
        using Result = std::invoke_result_t<Work, Database&>;
        // Shared: the waiting caller may be gone before the thread has left the task.
        auto pTask = std::make_shared<std::packaged_task<Result(Database&)>>(std::ref(work));
        std::future<Result> result = pTask->get_future();
        Submit(queue, [pTask](Database& database) { (*pTask)(database); });
        return result.get();
    }
    void Submit(Queue& queue, Job job);
    void StartThread(Queue& queue, const DatabaseAddress& address);
    static void Serve(Queue& queue, Database& database);
    void End();

    Queue m_readQueue;
    Queue m_writeQueue;
    std::vector<std::thread> m_threads;
};

} // namespace Platform

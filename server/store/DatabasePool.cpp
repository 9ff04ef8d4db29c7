#include "DatabasePool.h"

#include "ServiceError.h"

#include <future>

namespace Platform {

namespace {
constexpr std::size_t WaitingLimit = 1000;
}

DatabasePool::DatabasePool(const DatabaseAddress& address, int nReaders)
{
    try {
        StartThread(m_writeQueue, address);
        for (int i = 0; i < nReaders; ++i)
            StartThread(m_readQueue, address);
    } catch (...) {
        End();
        throw;
    }
}

DatabasePool::~DatabasePool()
{
    End();
}

void DatabasePool::End()
{
    for (Queue* pQueue : {&m_readQueue, &m_writeQueue}) {
        const std::lock_guard lock(pQueue->mutex);
        pQueue->bEnding = true;
        pQueue->changed.notify_all();
    }
    for (std::thread& thread : m_threads)
        thread.join();
    m_threads.clear();
}

void DatabasePool::StartThread(Queue& queue, const DatabaseAddress& address)
{
    std::promise<void> opened;
    m_threads.emplace_back([&queue, &address, &opened] {
        std::unique_ptr<Database> pDatabase;
        try {
            // Copied here: the address does not outlive the constructor.
            pDatabase = std::make_unique<Database>(DatabaseAddress(address));
        } catch (...) {
            opened.set_exception(std::current_exception());
            return;
        }
        opened.set_value();
        Serve(queue, *pDatabase);
    });
    opened.get_future().get();
}

void DatabasePool::RunReading(const Job& job)
{
    RunAndWait(m_readQueue, job);
}

void DatabasePool::RunWriting(const Job& job)
{
    RunAndWait(m_writeQueue, [&job](Database& database) {
        Transaction transaction(database);
        job(database);
        transaction.Commit();
    });
}

void DatabasePool::RunWritingBare(const Job& job)
{
    RunAndWait(m_writeQueue, job);
}

void DatabasePool::RunAndWait(Queue& queue, const Job& job)
{
    // Shared: the waiting caller may be gone before the thread has left the task.
    auto pTask =
        std::make_shared<std::packaged_task<void(Database&)>>([&job](Database& database) { job(database); });
    std::future<void> done = pTask->get_future();
    Submit(queue, [pTask](Database& database) { (*pTask)(database); });
    done.get();
}

void DatabasePool::Submit(Queue& queue, Job job)
{
    const std::lock_guard lock(queue.mutex);
    if (queue.jobs.size() >= WaitingLimit || queue.bEnding)
        throw ServiceError(UICommonMdl::ErrorServerBusy);
    queue.jobs.push_back(std::move(job));
    queue.changed.notify_one();
}

void DatabasePool::Serve(Queue& queue, Database& database)
{
    for (;;) {
        Job job;
        {
            std::unique_lock lock(queue.mutex);
            queue.changed.wait(lock, [&queue] { return !queue.jobs.empty() || queue.bEnding; });
            if (queue.jobs.empty())
                return;
            job = std::move(queue.jobs.front());
            queue.jobs.pop_front();
        }
        if (database.IsLost()) {
            try {
                database.Reopen();
            } catch (const ServiceError&) {
                // Still away: the job's first statement fails and tells its caller.
            }
        }
        job(database);
    }
}

} // namespace Platform

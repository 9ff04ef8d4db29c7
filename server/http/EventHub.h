#pragma once

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <set>
#include <string>
#include <vector>

namespace Platform {

/// What waits for one client's event stream. Any thread.
class EventQueue
{
public:
    EventQueue(std::string sTokenHash, std::int64_t nAccountId);

    /// Text of the event stream for the events that wait, after at most that time; a comment when none came.
    /// Empty: the stream ends.
    std::string Take(std::chrono::milliseconds timeOut);
    /// Events without content of their own are kept once; a queue that is full ends its stream, because a
    /// client that comes back reads everything anew.
    void Push(const std::string& sName, const std::string& sJson);
    /// Ends the stream after what waits.
    void End();

    const std::string& TokenHash() const { return m_sTokenHash; }
    std::int64_t AccountId() const { return m_nAccountId; }

private:
    struct Event
    {
        std::string sName;
        std::string sJson;
    };
    const std::string m_sTokenHash;
    const std::int64_t m_nAccountId;
    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::deque<Event> m_events;
    bool m_bEnding = false;
};

/// The event streams of all clients. Any thread.
class EventHub
{
public:
    explicit EventHub(int nLimit);

    /// A queue that holds "hello" already; null when there are as many streams as allowed, or the hub ended.
    std::shared_ptr<EventQueue> Subscribe(const std::string& sTokenHash, std::int64_t nAccountId);
    void Unsubscribe(const std::shared_ptr<EventQueue>& pQueue);

    void Publish(const std::string& sName, const std::string& sJson = "{}");
    /// To each account what make answers for it, unless that is empty.
    void PublishEach(
        const std::string& sName, const std::function<std::string(std::int64_t nAccountId)>& make);
    void PublishTo(std::int64_t nAccountId, const std::string& sName, const std::string& sJson = "{}");
    /// Tells the streams of that session that it is over, and ends them.
    void EndSession(const std::string& sTokenHash);
    /// As EndSession, for all sessions of an account.
    void EndAccount(std::int64_t nAccountId);
    /// The accounts that have a stream open.
    std::set<std::int64_t> Accounts() const;
    /// Ends every stream; no new one is taken.
    void End();
    int Count() const;

private:
    std::vector<std::shared_ptr<EventQueue>> Queues() const;

    const int m_nLimit;
    mutable std::mutex m_mutex;
    std::set<std::shared_ptr<EventQueue>> m_queues;
    bool m_bEnded = false;
};

} // namespace Platform

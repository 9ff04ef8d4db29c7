#include "EventHub.h"

#include <wire/Operations.h>

#include <algorithm>
#include <map>

namespace Platform {

namespace {
constexpr std::size_t QueueLimit = 256;
}

EventQueue::EventQueue(std::string sTokenHash, std::int64_t nAccountId)
    : m_sTokenHash(std::move(sTokenHash))
    , m_nAccountId(nAccountId)
{
}

std::string EventQueue::Take(std::chrono::milliseconds timeOut)
{
    std::unique_lock lock(m_mutex);
    m_changed.wait_for(lock, timeOut, [this] { return !m_events.empty() || m_bEnding; });
    if (m_events.empty())
        return m_bEnding ? std::string() : ": alive\n\n";
    std::string sText;
    for (const Event& event : m_events)
        sText += "event: " + event.sName + "\ndata: " + event.sJson + "\n\n";
    m_events.clear();
    return sText;
}

void EventQueue::Push(const std::string& sName, const std::string& sJson)
{
    const std::lock_guard lock(m_mutex);
    if (m_bEnding)
        return;
    const bool bRepeated = sJson == "{}"
        && std::any_of(
            m_events.begin(), m_events.end(), [&sName](const Event& event) { return event.sName == sName; });
    if (bRepeated)
        return;
    if (m_events.size() >= QueueLimit) {
        m_events.clear();
        m_bEnding = true;
    } else {
        m_events.push_back({sName, sJson});
    }
    m_changed.notify_all();
}

void EventQueue::End()
{
    const std::lock_guard lock(m_mutex);
    m_bEnding = true;
    m_changed.notify_all();
}

EventHub::EventHub(int nLimit)
    : m_nLimit(nLimit)
{
}

std::shared_ptr<EventQueue> EventHub::Subscribe(const std::string& sTokenHash, std::int64_t nAccountId)
{
    const std::lock_guard lock(m_mutex);
    if (m_bEnded || static_cast<int>(m_queues.size()) >= m_nLimit)
        return nullptr;
    auto pQueue = std::make_shared<EventQueue>(sTokenHash, nAccountId);
    pQueue->Push(wire::event::Hello, "{}");
    // Who is online is told to those that were there before.
    for (const auto& pOther : m_queues)
        pOther->Push(wire::event::UsersChanged, "{}");
    m_queues.insert(pQueue);
    return pQueue;
}

void EventHub::Unsubscribe(const std::shared_ptr<EventQueue>& pQueue)
{
    const std::lock_guard lock(m_mutex);
    m_queues.erase(pQueue);
    for (const auto& pOther : m_queues)
        pOther->Push(wire::event::UsersChanged, "{}");
}

std::vector<std::shared_ptr<EventQueue>> EventHub::Queues() const
{
    const std::lock_guard lock(m_mutex);
    return {m_queues.begin(), m_queues.end()};
}

void EventHub::Publish(const std::string& sName, const std::string& sJson)
{
    for (const auto& pQueue : Queues())
        pQueue->Push(sName, sJson);
}

void EventHub::PublishEach(
    const std::string& sName, const std::function<std::string(std::int64_t nAccountId)>& make)
{
    std::map<std::int64_t, std::string> mapTexts;
    for (const auto& pQueue : Queues()) {
        const std::int64_t nAccountId = pQueue->AccountId();
        auto it = mapTexts.find(nAccountId);
        if (it == mapTexts.end())
            it = mapTexts.emplace(nAccountId, make(nAccountId)).first;
        if (!it->second.empty())
            pQueue->Push(sName, it->second);
    }
}

void EventHub::PublishTo(std::int64_t nAccountId, const std::string& sName, const std::string& sJson)
{
    for (const auto& pQueue : Queues())
        if (pQueue->AccountId() == nAccountId)
            pQueue->Push(sName, sJson);
}

void EventHub::EndSession(const std::string& sTokenHash)
{
    for (const auto& pQueue : Queues()) {
        if (pQueue->TokenHash() != sTokenHash)
            continue;
        pQueue->Push(wire::event::SessionEnded, "{}");
        pQueue->End();
    }
}

void EventHub::EndAccount(std::int64_t nAccountId)
{
    for (const auto& pQueue : Queues()) {
        if (pQueue->AccountId() != nAccountId)
            continue;
        pQueue->Push(wire::event::SessionEnded, "{}");
        pQueue->End();
    }
}

std::set<std::int64_t> EventHub::Accounts() const
{
    std::set<std::int64_t> setAccounts;
    for (const auto& pQueue : Queues())
        setAccounts.insert(pQueue->AccountId());
    return setAccounts;
}

void EventHub::End()
{
    {
        const std::lock_guard lock(m_mutex);
        m_bEnded = true;
    }
    for (const auto& pQueue : Queues())
        pQueue->End();
}

int EventHub::Count() const
{
    const std::lock_guard lock(m_mutex);
    return static_cast<int>(m_queues.size());
}

} // namespace Platform

#pragma once

#include <algorithm>
#include <any>
#include <atomic>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <set>
#include <string>
#include <thread>
#include <vector>

/// One call that a page made.
struct FakeCall
{
    std::string sOperation;
    int nSequence = 0; ///< 0: it was refused
    int nResultCode = 0;
    std::any argument; ///< what the operation took
};

/// What the fakes of all managers share: it keeps every call with its number, and answers when and how the
/// test says. Without an automatic answer a call is held until the test answers it. Answers come on a thread
/// of the fake, as those of a host do.
template <class Observer, class Param>
class FakeManager
{
public:
    using Notify = void (Observer::*)(const std::shared_ptr<const Param>&);
    using Maker = std::function<void(const FakeCall&, Param&)>;

    explicit FakeManager(Notify notify)
        : m_notify(notify)
    {
    }
    ~FakeManager() { Join(); }

    // What the page sees.

    void Add(Observer* pObserver)
    {
        const std::lock_guard lock(m_mutex);
        m_setObservers.insert(pObserver);
    }
    /// Waits for a callback that runs, as a host does.
    void Remove(Observer* pObserver)
    {
        const std::lock_guard lock(m_mutex);
        m_setObservers.erase(pObserver);
    }
    int Call(const std::string& sOperation, int nResultCode, std::any argument = {})
    {
        FakeCall call{sOperation, 0, nResultCode, std::move(argument)};
        if (m_setRefused.count(sOperation) == 0)
            call.nSequence = ++m_nLastSequence;
        m_vecCalls.push_back(call);
        if (call.nSequence > 0) {
            const auto it = m_mapAutomatic.find(sOperation);
            if (it != m_mapAutomatic.end())
                Answer(call, it->second);
        }
        return call.nSequence;
    }

    // What the test says.

    /// Answers calls of that operation at once from now on.
    void AnswerAlways(const std::string& sOperation, Maker maker) { m_mapAutomatic[sOperation] = maker; }
    void FailAlways(const std::string& sOperation, int nErrorCode)
    {
        AnswerAlways(
            sOperation, [nErrorCode](const FakeCall&, Param& param) { param.nErrorCode = nErrorCode; });
    }
    /// Holds calls of that operation from now on.
    void Hold(const std::string& sOperation) { m_mapAutomatic.erase(sOperation); }
    /// Refuses calls of that operation from now on.
    void Refuse(const std::string& sOperation) { m_setRefused.insert(sOperation); }

    /// Answers one call; may be done late, twice and in any order.
    void Answer(const FakeCall& call, const Maker& maker)
    {
        Param param;
        param.nResultCode = call.nResultCode;
        param.nSequence = call.nSequence;
        if (maker)
            maker(call, param);
        Send(param);
    }
    void Fail(const FakeCall& call, int nErrorCode)
    {
        Answer(call, [nErrorCode](const FakeCall&, Param& param) { param.nErrorCode = nErrorCode; });
    }
    /// Pushes, when param's number is 0.
    void Send(const Param& param)
    {
        std::thread([this, &param] { SendHere(param); }).join();
    }
    /// Sends the record over and over on another thread until Join.
    void SendUntilJoin(const Param& param)
    {
        m_bSending = true;
        m_thread = std::thread([this, param] {
            while (m_bSending)
                SendHere(param);
        });
    }
    void Join()
    {
        m_bSending = false;
        if (m_thread.joinable())
            m_thread.join();
    }

    const std::vector<FakeCall>& Calls() const { return m_vecCalls; }
    std::vector<FakeCall> Calls(const std::string& sOperation) const
    {
        std::vector<FakeCall> vecCalls;
        std::copy_if(m_vecCalls.begin(), m_vecCalls.end(), std::back_inserter(vecCalls),
            [&](const FakeCall& call) { return call.sOperation == sOperation; });
        return vecCalls;
    }
    int Count(const std::string& sOperation) const { return int(Calls(sOperation).size()); }
    FakeCall Last(const std::string& sOperation) const
    {
        const std::vector<FakeCall> vecCalls = Calls(sOperation);
        return vecCalls.empty() ? FakeCall{} : vecCalls.back();
    }
    template <class T>
    T LastArgument(const std::string& sOperation) const
    {
        const FakeCall call = Last(sOperation);
        return call.argument.has_value() ? std::any_cast<T>(call.argument) : T{};
    }
    std::size_t ObserverCount()
    {
        const std::lock_guard lock(m_mutex);
        return m_setObservers.size();
    }

private:
    void SendHere(const Param& param)
    {
        const auto pAnswer = std::make_shared<const Param>(param);
        const std::lock_guard lock(m_mutex);
        for (Observer* pObserver : m_setObservers)
            (pObserver->*m_notify)(pAnswer);
    }

    Notify m_notify;
    std::mutex m_mutex; ///< guards the observers, held while they are called
    std::set<Observer*> m_setObservers;
    std::atomic<bool> m_bSending = false;
    std::thread m_thread;
    int m_nLastSequence = 0;
    std::vector<FakeCall> m_vecCalls;
    std::map<std::string, Maker> m_mapAutomatic;
    std::set<std::string> m_setRefused;
};

#pragma once

#include "HubTraits.h"

#include <UICommonMdl/ErrorCodes.h>

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <algorithm>
#include <chrono>
#include <functional>
#include <memory>
#include <unordered_map>
#include <vector>

namespace Common {

/// The module's one registration with a manager for one kind of observer. Answers come on threads of the host
/// and are brought, shared and not copied, to the user-interface thread and there to who waits for their
/// number; pushes go to all who listen to their code. It lives as long as somebody holds it; everything but
/// the observer's callback is called on the user-interface thread.
template <class Observer>
class CHub : private HubObserver<Observer>, public std::enable_shared_from_this<CHub<Observer>>
{
public:
    using Manager = typename HubObserver<Observer>::Manager;
    using Param = typename Observer::Param;
    using Answer = typename Observer::Answer;
    using Handler = std::function<void(const Answer&)>;
    /// Who waits or listens; only compared.
    using Owner = const void*;

    /// The hub of that manager (borrowed, outlives the hub; null: every call is refused).
    static std::shared_ptr<CHub> Of(Manager* pManager)
    {
        std::weak_ptr<CHub>& pKnown = Hubs()[pManager];
        std::shared_ptr<CHub> pHub = pKnown.lock();
        if (!pHub) {
            pHub = std::shared_ptr<CHub>(new CHub(pManager));
            pKnown = pHub;
        }
        return pHub;
    }
    static Manager* Find(const UICommonMdl::CInterfaceSetManager* pInterfaceSet)
    {
        return HubObserver<Observer>::Find(pInterfaceSet);
    }

    ~CHub() override
    {
        // No callback runs any more once it is removed; what waits in the event queue goes with the context.
        if (m_pManager)
            m_pManager->RemoveObserver(this);
        Hubs().erase(m_pManager);
    }
    CHub(const CHub&) = delete;
    CHub& operator=(const CHub&) = delete;

    Manager* GetManager() const { return m_pManager; }

    /// Waits for the answer to the call that was answered nSequence. A refused call (0 or less) is answered
    /// ErrorNotSent, one that no answer comes to in time ErrorTimeOut, both from the event loop. pMethod
    /// tells what was called.
    void Wait(
        Owner pOwner, const void* pMethod, int nSequence, std::chrono::milliseconds limit, Handler handler)
    {
        const int nKey = nSequence > 0 ? nSequence : --m_nRefused;
        m_mapWaiting[nKey] = {
            pOwner, pMethod, limit, m_clock.elapsed(), std::make_shared<const Handler>(std::move(handler))};
        if (nSequence <= 0) {
            QMetaObject::invokeMethod(
                &m_context, [this, nKey] { Fail(nKey, UICommonMdl::ErrorNotSent); }, Qt::QueuedConnection);
            return;
        }
        if (!m_timer.isActive())
            m_timer.start(std::min(limit, std::chrono::milliseconds(1000)));
    }
    /// Answers to the calls of that method will be ignored; a null method: to all calls.
    void Forget(Owner pOwner, const void* pMethod)
    {
        std::erase_if(m_mapWaiting, [=](const auto& entry) {
            return entry.second.pOwner == pOwner && (!pMethod || entry.second.pMethod == pMethod);
        });
    }
    bool IsWaiting(Owner pOwner, const void* pMethod) const
    {
        return std::any_of(m_mapWaiting.begin(), m_mapWaiting.end(), [=](const auto& entry) {
            return entry.second.pOwner == pOwner && (!pMethod || entry.second.pMethod == pMethod);
        });
    }

    void Listen(Owner pOwner, int nResultCode, Handler handler)
    {
        m_vecListeners.push_back({pOwner, nResultCode, std::make_shared<const Handler>(std::move(handler))});
    }
    void Leave(Owner pOwner)
    {
        Forget(pOwner, nullptr);
        std::erase_if(m_vecListeners, [=](const Listener& listener) { return listener.pOwner == pOwner; });
    }

private:
    struct Waiting
    {
        Owner pOwner = nullptr;
        const void* pMethod = nullptr;
        std::chrono::milliseconds limit{};
        qint64 nSince = 0;
        std::shared_ptr<const Handler> pHandler;
    };
    struct Listener
    {
        Owner pOwner;
        int nResultCode;
        std::shared_ptr<const Handler> pHandler;
    };

    explicit CHub(Manager* pManager)
        : m_pManager(pManager)
    {
        m_clock.start();
        QObject::connect(&m_timer, &QTimer::timeout, &m_context, [this] { ExpireLate(); });
        if (m_pManager)
            m_pManager->AddObserver(this);
    }

    static std::unordered_map<Manager*, std::weak_ptr<CHub>>& Hubs()
    {
        static std::unordered_map<Manager*, std::weak_ptr<CHub>> s_mapHubs;
        return s_mapHubs;
    }

    void Hear(const Answer& pAnswer) final
    {
        QMetaObject::invokeMethod(
            &m_context, [this, pAnswer] { Deliver(pAnswer); }, Qt::QueuedConnection);
    }

    void Deliver(const Answer& pAnswer)
    {
        if constexpr (requires(const Param& param) { param.nSequence; }) {
            if (pAnswer->nSequence > 0) {
                DeliverAnswer(pAnswer->nSequence, pAnswer);
                return;
            }
        }
        DeliverPush(pAnswer);
    }

    void DeliverAnswer(int nKey, const Answer& pAnswer)
    {
        const auto it = m_mapWaiting.find(nKey);
        if (it == m_mapWaiting.end())
            return;
        // The handler may destroy who waits, and the last one to hold the hub.
        const auto pSelf = this->shared_from_this();
        const std::shared_ptr<const Handler> pHandler = it->second.pHandler;
        if (IsFinal(*pAnswer))
            m_mapWaiting.erase(it);
        else
            it->second.nSince = m_clock.elapsed();
        (*pHandler)(pAnswer);
    }

    void DeliverPush(const Answer& pAnswer)
    {
        const auto pSelf = this->shared_from_this();
        std::vector<std::shared_ptr<const Handler>> vecHandlers;
        for (const Listener& listener : m_vecListeners) {
            if (listener.nResultCode == pAnswer->nResultCode)
                vecHandlers.push_back(listener.pHandler);
        }
        for (const auto& pHandler : vecHandlers) {
            // One that left while the others were told is not told any more.
            if (std::any_of(m_vecListeners.begin(), m_vecListeners.end(),
                    [&](const Listener& listener) { return listener.pHandler == pHandler; }))
                (*pHandler)(pAnswer);
        }
    }

    /// A report on a call that goes on (bFinal false) is followed by others.
    static bool IsFinal(const Param& param)
    {
        if constexpr (requires { param.bFinal; })
            return param.bFinal;
        else
            return true;
    }

    void Fail(int nKey, int nErrorCode)
    {
        const auto pAnswer = std::make_shared<Param>();
        if constexpr (requires(Param & param) { param.nSequence; })
            pAnswer->nSequence = nKey;
        pAnswer->nErrorCode = nErrorCode;
        DeliverAnswer(nKey, pAnswer);
    }

    void ExpireLate()
    {
        std::vector<int> vecLate;
        bool bWaiting = false;
        for (const auto& [nKey, waiting] : m_mapWaiting) {
            if (nKey > 0 && m_clock.elapsed() - waiting.nSince >= waiting.limit.count())
                vecLate.push_back(nKey);
            else
                bWaiting = true;
        }
        if (!bWaiting)
            m_timer.stop();
        const auto pSelf = this->shared_from_this();
        for (const int nKey : vecLate)
            Fail(nKey, UICommonMdl::ErrorTimeOut);
    }

    Manager* m_pManager;
    std::unordered_map<int, Waiting> m_mapWaiting; ///< by the call's number; refused ones below 0
    std::vector<Listener> m_vecListeners;
    int m_nRefused = 0;
    QElapsedTimer m_clock;
    QTimer m_timer;
    QObject m_context; ///< lives on the user-interface thread; last, so that it goes first
};

} // namespace Common

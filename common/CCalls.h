#pragma once

#include "CHub.h"
#include "CPageWork.h"

#include <tuple>
#include <utility>

namespace Common {

/// The calls of one page, dialog or model to one manager, and the pushes that it listens to; a member of it.
///
///     m_calls.Latest<&IUserManager::QueryUserPage>(request, [this](const Param& param) { … });
///
/// The handler stands last and gets the answer, exactly once, from the event loop: what the server said, or
/// the code for what went wrong on the way (ErrorNotSent, ErrorTimeOut, ErrorDisconnected, …). It takes the
/// record, or the shared pointer to it when it has to keep it. Reports on a call that goes on (bFinal false)
/// come before. When the owner is destroyed or ended, nothing more comes. User-interface thread.
template <class Observer>
class CCalls : public CPageWork
{
public:
    using Hub = CHub<Observer>;
    using Manager = typename Hub::Manager;
    using Param = typename Hub::Param;
    using Answer = typename Hub::Answer;

    /// Longer than the host's own limit, which normally answers first.
    static constexpr std::chrono::milliseconds DefaultLimit{90000};

    /// pInterfaceSet is borrowed and only asked here; without the manager every call is answered
    /// ErrorNotSent.
    CCalls(const UICommonMdl::CInterfaceSetManager* pInterfaceSet, QObject* pOwner)
        : CPageWork(pOwner)
        , m_pHub(Hub::Of(Hub::Find(pInterfaceSet)))
    {
    }
    ~CCalls() override { CCalls::End(); }

    /// How long an answer, or the next report, may take. Holds for calls from now on.
    void SetLimit(std::chrono::milliseconds limit) { m_limit = limit; }

    /// Calls the manager; earlier calls of the same method go on.
    template <auto Method, class... Args>
    void Each(Args&&... args)
    {
        auto all = std::forward_as_tuple(std::forward<Args>(args)...);
        Call<Method>(all, std::make_index_sequence<sizeof...(Args) - 1>());
    }
    /// Calls the manager; the answers to earlier calls of the same method no longer count.
    template <auto Method, class... Args>
    void Latest(Args&&... args)
    {
        Forget<Method>();
        Each<Method>(std::forward<Args>(args)...);
    }
    /// The answers to calls of that method no longer count.
    template <auto Method>
    void Forget()
    {
        if (m_pHub)
            m_pHub->Forget(this, &s_method<Method>);
    }
    void ForgetAll()
    {
        if (m_pHub)
            m_pHub->Forget(this, nullptr);
    }
    template <auto Method>
    bool IsPending() const
    {
        return m_pHub && m_pHub->IsWaiting(this, &s_method<Method>);
    }
    bool IsPending() const { return m_pHub && m_pHub->IsWaiting(this, nullptr); }

    /// The number of the last call, for operations that name a running one; 0 or less: it was refused.
    int GetLastSequence() const { return m_nLast; }

    /// Listens to what the server pushes under that result code.
    template <class Handler>
    void OnPush(int nResultCode, Handler handler)
    {
        if (m_pHub)
            m_pHub->Listen(this, nResultCode, Wrap(std::move(handler)));
    }

    /// For what a manager answers without a call; null when the host has none, and after the end.
    Manager* GetManager() const { return m_pHub ? m_pHub->GetManager() : nullptr; }

    void End() override
    {
        if (!m_pHub)
            return;
        Q_EMIT SignalEnding();
        m_pHub->Leave(this);
        m_pHub.reset();
    }

private:
    /// Its address stands for the method.
    template <auto Method>
    static inline char s_method = 0;

    template <class Handler>
    static typename Hub::Handler Wrap(Handler handler)
    {
        if constexpr (std::is_invocable_v<Handler&, const Answer&>)
            return [handler = std::move(handler)](const Answer& pAnswer) mutable { handler(pAnswer); };
        else
            return [handler = std::move(handler)](const Answer& pAnswer) mutable { handler(*pAnswer); };
    }

    template <auto Method, class Tuple, std::size_t... Index>
    void Call(Tuple& all, std::index_sequence<Index...>)
    {
        if (!m_pHub)
            return;
        Manager* const pManager = m_pHub->GetManager();
        m_nLast = pManager ? (pManager->*Method)(std::get<Index>(all)...) : 0;
        m_pHub->Wait(
            this, &s_method<Method>, m_nLast, m_limit, Wrap(std::get<sizeof...(Index)>(std::move(all))));
    }

    std::shared_ptr<Hub> m_pHub; ///< null once ended
    std::chrono::milliseconds m_limit = DefaultLimit;
    int m_nLast = 0;
};

} // namespace Common

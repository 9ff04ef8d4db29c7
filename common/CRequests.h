#pragma once

#include <UICommonMdl/COperSequence.h>
#include <UICommonMdl/ErrorCodes.h>

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <functional>
#include <unordered_map>
#include <vector>

namespace Common {

/// The requests of one page to one manager: each number waits for its answer and goes to its handler once.
/// Param is the manager's answer record. User-interface thread.
template <class Param>
class CRequests
{
public:
    using Handler = std::function<void(const Param&)>;

    CRequests()
    {
        m_clock.start();
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { ExpireLate(); });
    }

    /// How long an answer may take before the handler gets a time-out in its place; longer than the host's
    /// own limit, which normally answers first.
    void SetTimeOut(std::chrono::milliseconds timeOut) { m_timeOut = timeOut; }

    /// Waits for the answer of a request that was just made. A refused one (0 or less) is not kept: its
    /// handler never runs and the result is false.
    bool Add(int nSequence, int nKind, Handler handler)
    {
        return Keep(m_operations.Add(nSequence, nKind), nSequence, std::move(handler));
    }
    /// As Add; answers to earlier requests of that kind are ignored from now on.
    bool Supersede(int nSequence, int nKind, Handler handler)
    {
        return Keep(m_operations.Supersede(nSequence, nKind), nSequence, std::move(handler));
    }

    /// Runs the handler of the answer's number; false, and nothing happens, when it is not pending. A report
    /// on a request that goes on (bFinal false) leaves it pending, its time starting anew.
    bool Answer(const Param& param)
    {
        const auto it = m_mapHandlers.find(param.nSequence);
        if (it == m_mapHandlers.end())
            return false;
        if (!IsFinal(param)) {
            it->second.nSince = m_clock.elapsed();
            const Handler reported = it->second.handler;
            reported(param);
            return true;
        }
        const Handler handler = std::move(it->second.handler);
        m_mapHandlers.erase(it);
        if (!m_operations.Take(param.nSequence))
            return false;
        handler(param);
        return true;
    }

    bool HasKind(int nKind) const { return m_operations.HasKind(nKind); }
    /// Gives all requests up: their answers will be ignored.
    void Clear()
    {
        m_operations.Clear();
        m_mapHandlers.clear();
    }

private:
    struct Waiting
    {
        Handler handler;
        qint64 nSince;
    };

    static bool IsFinal(const Param& param)
    {
        if constexpr (requires { param.bFinal; })
            return param.bFinal;
        else
            return true;
    }

    bool Keep(bool bAccepted, int nSequence, Handler handler)
    {
        if (!bAccepted)
            return false;
        m_mapHandlers[nSequence] = {std::move(handler), m_clock.elapsed()};
        if (!m_timer.isActive())
            m_timer.start(std::min(m_timeOut, std::chrono::milliseconds(1000)));
        return true;
    }

    void ExpireLate()
    {
        std::vector<int> vecLate;
        for (const auto& [nSequence, waiting] : m_mapHandlers) {
            if (m_clock.elapsed() - waiting.nSince >= m_timeOut.count())
                vecLate.push_back(nSequence);
        }
        for (const int nSequence : vecLate) {
            Param param;
            param.nSequence = nSequence;
            param.nErrorCode = UICommonMdl::ErrorTimeOut;
            Answer(param);
        }
        if (m_mapHandlers.empty())
            m_timer.stop();
    }

    UICommonMdl::COperSequence m_operations;
    std::unordered_map<int, Waiting> m_mapHandlers;
    std::chrono::milliseconds m_timeOut{90000};
    QElapsedTimer m_clock;
    QTimer m_timer;
};

} // namespace Common

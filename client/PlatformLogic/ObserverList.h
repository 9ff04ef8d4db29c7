#pragma once

#include <algorithm>
#include <mutex>
#include <vector>

namespace PlatformLogic {

/// The observers of one manager. Any thread. The lock is held while observers are called, so that after
/// Remove has returned no callback runs on that observer; an observer may remove itself inside its callback.
template <class Observer>
class ObserverList
{
public:
    void Add(Observer* pObserver)
    {
        const std::lock_guard lock(m_mutex);
        if (pObserver
            && std::find(m_vecObservers.begin(), m_vecObservers.end(), pObserver) == m_vecObservers.end())
            m_vecObservers.push_back(pObserver);
    }

    void Remove(Observer* pObserver)
    {
        const std::lock_guard lock(m_mutex);
        std::erase(m_vecObservers, pObserver);
    }

    template <class Call>
    void ForEach(const Call& call)
    {
        const std::lock_guard lock(m_mutex);
        const std::vector<Observer*> vecNow = m_vecObservers;
        for (Observer* pObserver : vecNow) {
            if (std::find(m_vecObservers.begin(), m_vecObservers.end(), pObserver) != m_vecObservers.end())
                call(*pObserver);
        }
    }

private:
    std::recursive_mutex m_mutex;
    std::vector<Observer*> m_vecObservers;
};

} // namespace PlatformLogic

#include "PageIndex.h"

namespace Platform {

std::optional<PageIndex::Known> PageIndex::Find(const std::string& sFilter, const Stamp& stamp) const
{
    const std::lock_guard lock(m_mutex);
    const auto it = m_mapKnown.find(sFilter);
    if (it == m_mapKnown.end() || it->second.stamp != stamp)
        return std::nullopt;
    return it->second;
}

void PageIndex::Remember(const std::string& sFilter, Known known)
{
    const std::lock_guard lock(m_mutex);
    const auto it = m_mapKnown.find(sFilter);
    if (it == m_mapKnown.end()) {
        if (m_mapKnown.size() >= KnownLimit) {
            m_mapKnown.erase(m_order.front());
            m_order.pop_front();
        }
        m_order.push_back(sFilter);
        m_mapKnown.emplace(sFilter, std::move(known));
        return;
    }
    // Pages that were served side by side add their anchors.
    Known& present = it->second;
    if (present.stamp == known.stamp && present.mapAnchors.size() + known.mapAnchors.size() <= AnchorLimit)
        known.mapAnchors.merge(present.mapAnchors);
    present = std::move(known);
}

PageIndex::Plan PageIndex::MakePlan(const Known& known, int nFirst, int nCount)
{
    const int nEnd = nFirst + nCount;
    Plan plan{true, std::nullopt, nFirst, nCount};
    const auto itAfter = known.mapAnchors.upper_bound(nFirst);
    if (itAfter != known.mapAnchors.begin()) {
        const auto it = std::prev(itAfter);
        plan = {true, it->second, nFirst - it->first, nCount};
    }
    if (const auto it = known.mapAnchors.lower_bound(nEnd); it != known.mapAnchors.end()) {
        if (it->first - nEnd < plan.nSkip)
            plan = {false, it->second, it->first - nEnd, nCount};
    } else if (known.nTotal - nEnd < plan.nSkip) {
        plan = {false, std::nullopt, known.nTotal - nEnd, nCount};
    }
    return plan;
}

} // namespace Platform

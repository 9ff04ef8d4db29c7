#pragma once

#include <cstddef>
#include <cstdint>
#include <list>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <unordered_map>
#include <utility>

namespace Platform {

/// What is known of the rows that filters select, so that the cost of a page does not grow with the number of
/// rows: what a filter selects is counted once for as long as the data stays the same, and the keys of rows
/// that were served are remembered as anchors, so that the next page starts at a key instead of stepping over
/// all rows before it. Any thread.
class PageIndex
{
public:
    /// Tells one state of the data from another.
    using Stamp = std::pair<std::uint64_t, std::uint64_t>;

    struct Key
    {
        std::string sSortKey;
        std::int64_t nId = 0;
    };
    /// What is known of one filter and sort field, in ascending order of the rows.
    struct Known
    {
        Stamp stamp;
        int nTotal = 0;
        std::map<int, Key> mapAnchors; ///< by row number
    };
    /// Rows to read: forward from an anchor (included), or backward from one (excluded).
    struct Plan
    {
        bool bForward = true;
        std::optional<Key> optAnchor;
        int nSkip = 0;
        int nCount = 0;
    };

    /// nullopt when nothing is known of that filter for that state of the data.
    std::optional<Known> Find(const std::string& sFilter, const Stamp& stamp) const;
    void Remember(const std::string& sFilter, Known known);
    /// The nearest way to nCount rows from row nFirst on.
    static Plan MakePlan(const Known& known, int nFirst, int nCount);

private:
    static constexpr std::size_t KnownLimit = 256;
    static constexpr std::size_t AnchorLimit = 4096;

    mutable std::mutex m_mutex;
    std::unordered_map<std::string, Known> m_mapKnown;
    std::list<std::string> m_order; ///< of the filters, the oldest first
};

} // namespace Platform

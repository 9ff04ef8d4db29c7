#pragma once

#include "Generations.h"
#include "store/Database.h"

#include <GroupLogical/GroupRecords.h>

#include <cstdint>
#include <functional>
#include <list>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace Platform {

/// Selects devices by a request's filter and sort, a page at a time.
///
/// The cost of a page does not grow with the number of devices: what a filter selects is counted once for as
/// long as the data stays the same, and the keys of rows that were served are remembered as anchors, so that
/// the next page starts at a key instead of stepping over all rows before it. Any thread.
class DevicePages
{
public:
    explicit DevicePages(const Generations& generations);

    /// The page of the request, the last one when the request goes beyond it. Throws ServiceError.
    GroupLogical::DevicePage_t Page(Database& database, const GroupLogical::DevicePageRequest_t& request);
    /// All rows of the filter, in the request's order.
    GroupLogical::DevicePage_t All(Database& database, const GroupLogical::DevicePageRequest_t& request);

    /// The statement that Page runs for the first page of a request, with its values, for looking at its
    /// plan.
    static std::pair<QString, QVariantList> FirstPageStatement(
        const Database& database, const GroupLogical::DevicePageRequest_t& request);

private:
    struct Key
    {
        std::string sSortKey;
        std::int64_t nId = 0;
    };
    /// What is known of one filter and sort field, in ascending order of the rows.
    struct Known
    {
        std::uint64_t nDevices = 0;
        std::uint64_t nStates = 0;
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

    struct Filter;
    std::optional<Known> Find(const std::string& sKey, const Filter& filter) const;
    void Remember(const std::string& sKey, const Filter& filter, Known known);
    static int Count(Database& database, const Filter& filter);
    int CountAll(Database& database);
    static Plan MakePlan(const Known& known, int nFirst, int nCount);
    static std::vector<GroupLogical::DeviceInfo_t> Read(Database& database, const Filter& filter,
        const Plan& plan, int nTotal, int nAll, Key* pFirst, Key* pLast);

    const Generations& m_generations;
    mutable std::mutex m_mutex;
    std::unordered_map<std::string, Known> m_mapKnown;
    std::uint64_t m_nAllOf = 0; ///< generation that m_nAll was counted in
    int m_nAll = 0;
    std::list<std::string> m_order; ///< keys of m_mapKnown, oldest first
};

} // namespace Platform

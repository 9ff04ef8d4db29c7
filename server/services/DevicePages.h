#pragma once

#include "DeviceScope.h"
#include "Generations.h"
#include "store/Database.h"
#include "store/PageIndex.h"

#include <GroupLogical/GroupRecords.h>

#include <cstdint>
#include <functional>
#include <mutex>
#include <optional>
#include <string>
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

    /// The page of the request among the devices of the scope, the last one when the request goes beyond it.
    /// Throws ServiceError.
    GroupLogical::DevicePage_t Page(
        Database& database, const DeviceScope& scope, const GroupLogical::DevicePageRequest_t& request);
    /// All rows of the filter, in the request's order.
    GroupLogical::DevicePage_t All(
        Database& database, const DeviceScope& scope, const GroupLogical::DevicePageRequest_t& request);

    /// The statement that Page runs for the first page of a request, with its values, for looking at its
    /// plan.
    static std::pair<QString, QVariantList> FirstPageStatement(
        const Database& database, const DeviceScope& scope, const GroupLogical::DevicePageRequest_t& request);

private:
    using Key = PageIndex::Key;
    using Known = PageIndex::Known;
    using Plan = PageIndex::Plan;

    struct Filter;
    PageIndex::Stamp StampOf(const Filter& filter) const;
    static int Count(Database& database, const Filter& filter);
    int CountAll(Database& database);
    static std::vector<GroupLogical::DeviceInfo_t> Read(Database& database, const Filter& filter,
        const Plan& plan, int nTotal, int nAll, Key* pFirst, Key* pLast);

    const Generations& m_generations;
    PageIndex m_index;
    std::mutex m_mutex; ///< guards the following
    std::uint64_t m_nAllOf = 0; ///< generation that m_nAll was counted in
    int m_nAll = 0;
};

} // namespace Platform

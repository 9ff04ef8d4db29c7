#pragma once

#include "services/Generations.h"
#include "store/Database.h"
#include "store/PageIndex.h"

#include <AccessControlLogical/PersonRecords.h>

#include <string>

namespace Platform {

/// Selects persons by a request's group and search, a page at a time, in the order of their IDs. Any thread.
class PersonPages
{
public:
    explicit PersonPages(const Generations& generations);

    /// The page of the request, the last one when the request goes beyond it. Throws ServiceError.
    AccessControlLogical::PersonPage_t Page(
        Database& database, const AccessControlLogical::PersonPageRequest_t& request);

private:
    struct Filter;
    static int Count(Database& database, const Filter& filter);
    int CountAll(Database& database);
    static std::vector<AccessControlLogical::PersonInfo_t> Read(
        Database& database, const Filter& filter, const PageIndex::Plan& plan, bool bWalk);
    /// What is not known yet: the first rows tell it all when there are not more of them.
    AccessControlLogical::PersonPage_t FirstPage(
        Database& database, const Filter& filter, int nPageSize, PageIndex::Known& known);

    const Generations& m_generations;
    PageIndex m_index;
};

} // namespace Platform

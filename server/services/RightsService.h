#pragma once

#include "Context.h"
#include "http/EventHub.h"
#include "store/DatabasePool.h"

#include <UserLogical/UserRecords.h>

#include <map>
#include <memory>
#include <mutex>
#include <set>
#include <string>
#include <vector>

namespace Platform {

/// Which rights accounts have through their roles. Any thread.
class RightsService
{
public:
    using Rights = std::shared_ptr<const std::set<std::string>>;

    RightsService(DatabasePool& pool, EventHub& hub);

    /// The rights of an account, from memory after the first time.
    Rights RightsOf(std::int64_t nAccountId);
    /// The menu entries of those rights, entry ids ascending.
    std::vector<UserLogical::MenuRight_t> MenuOf(const std::set<std::string>& rights);

    /// Gives a role exactly those rights and tells the accounts that have it. Throws ServiceError with
    /// ErrorNotFound for an unknown role, ErrorInvalidInput for an unknown right and for the role that has
    /// every right by itself.
    void SetRoleRights(std::int64_t nRoleId, const std::vector<std::string>& vecCodes);
    /// Reads the rights of the accounts in memory anew and tells those whose rights are others now.
    void Reload();

private:
    Rights ReadRights(std::int64_t nAccountId);

    DatabasePool& m_pool;
    EventHub& m_hub;
    std::mutex m_mutex;
    std::map<std::int64_t, Rights> m_mapRights;
};

} // namespace Platform

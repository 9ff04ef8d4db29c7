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

/// What an account may do, and with which devices.
struct AccountRights
{
    std::set<std::string> setCodes;
    bool bEverything = false; ///< through a role that has every right by itself
    DeviceScope scope;

    /// "1": has every right, "2": may manage users, "3": neither.
    std::string TypeText() const;
};

/// Which rights accounts have through their roles. Any thread.
class RightsService
{
public:
    using Rights = std::shared_ptr<const AccountRights>;

    RightsService(DatabasePool& pool, EventHub& hub);

    /// The rights of an account, from memory after the first time.
    Rights RightsOf(std::int64_t nAccountId);
    /// The menu entries of those rights, entry ids ascending.
    std::vector<UserLogical::MenuRight_t> MenuOf(const std::set<std::string>& rights);
    /// Within a transaction: as the database has it now.
    static AccountRights Read(Database& database, std::int64_t nAccountId);

    /// Accounts and roles are others now: reads the rights of the accounts in memory anew and tells those
    /// whose rights changed.
    void Reload();
    /// Tells the accounts of a role that what they see of the devices is another thing now. nRoleId 0: all.
    void ScopeChanged(std::int64_t nRoleId);

private:
    DatabasePool& m_pool;
    EventHub& m_hub;
    std::mutex m_mutex;
    std::map<std::int64_t, Rights> m_mapRights;
    std::uint64_t m_nReloads = 0; ///< guarded by m_mutex
};

} // namespace Platform

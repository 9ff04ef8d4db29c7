#pragma once

#include "services/DeviceScope.h"
#include "store/Database.h"

#include <UserLogical/UserRecords.h>

#include <vector>

namespace Platform {

/// The device rights of one role, within the transaction that changes them: whoever changes them only moves
/// what he reaches himself. Faults are ServiceError.
class RoleDevices
{
public:
    /// The database and the scope of who asks are borrowed.
    RoleDevices(Database& database, const DeviceScope& scope, std::int64_t nRoleId);

    /// Everything that another role has takes the place of what there is. Throws ErrorNotFound.
    void CopyFrom(std::int64_t nRoleId);
    /// Throws ErrorNotFound for a node that is not there, or not reached.
    void Apply(const std::vector<UserLogical::DeviceRightChange_t>& vecChanges);

    static int CountDevices(Database& database, std::int64_t nRoleId);

private:
    using Change = UserLogical::DeviceRightChange_t;

    void ApplyOrganization(const Change& change);
    void ApplyDevices(const std::vector<const Change*>& vecChanges);
    void AddDevices(const std::vector<std::int64_t>& vecIds);
    void RemoveDevices(const std::vector<std::int64_t>& vecIds);
    void AddChannels(const std::vector<const Change*>& vecChanges);
    void RemoveChannel(const Change& change);
    /// Runs szSql, in which {reached} is " AND " and the condition that the device of that column is reached.
    int Run(const char* szSql, const char* szIdColumn, QVariantList values);

    Database& m_database;
    const DeviceScope& m_scope;
    const std::int64_t m_nRoleId;
};

} // namespace Platform

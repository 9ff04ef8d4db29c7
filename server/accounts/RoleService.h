#pragma once

#include "services/AuditService.h"
#include "services/Context.h"
#include "services/Generations.h"
#include "services/RightsService.h"
#include "store/DatabasePool.h"

#include <wire/Records.h>

namespace Platform {

/// Roles and what they give. Any thread; faults are ServiceError.
class RoleService
{
public:
    /// All are borrowed.
    RoleService(DatabasePool& pool, EventHub& hub, const AuditService& audit, Generations& generations,
        RightsService& rights);

    wire::Roles List();
    UserLogical::Role_t Info(const wire::RoleId& id);
    wire::RightNodes MenuRights();
    wire::RightNodes FuncRights();
    /// What lies below one node of the tree of organisations, devices and channels that the account reaches.
    wire::DeviceRightNodes DeviceRights(const Context& context, const UserLogical::DeviceRightQuery_t& query);
    wire::DeviceAccesses DeviceAccess(const Context& context, const wire::DeviceId& id);

    UserLogical::Role_t Add(const Context& context, const UserLogical::RoleEdit_t& edit);
    UserLogical::Role_t Modify(const Context& context, const UserLogical::RoleEdit_t& edit);
    /// Each role is deleted or listed, with its name in place of the user's.
    wire::UserFailures Delete(const Context& context, const wire::RoleIds& ids);

    /// Within a transaction: the role with its rights. Throws ErrorNotFound.
    static UserLogical::Role_t Read(Database& database, std::int64_t nRoleId);

private:
    wire::RightNodes Rights(bool bFunctions);
    void Changed(std::int64_t nRoleId);

    DatabasePool& m_pool;
    EventHub& m_hub;
    const AuditService& m_audit;
    Generations& m_generations;
    RightsService& m_rights;
};

} // namespace Platform

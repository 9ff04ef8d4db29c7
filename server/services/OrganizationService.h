#pragma once

#include "AuditService.h"
#include "Context.h"
#include "Generations.h"
#include "http/EventHub.h"
#include "store/DatabasePool.h"

#include <wire/Records.h>

namespace Platform {

/// The tree of organisations. Codes are given by the server and never used again; which organisation lies
/// below which is kept in a table of its own, so that a sub-tree is found by index and a move touches the
/// sub-tree's organisations only, never its devices. Any thread; faults are ServiceError.
class OrganizationService
{
public:
    OrganizationService(
        DatabasePool& pool, EventHub& hub, const AuditService& audit, Generations& generations);

    /// All organisations, parents before children, siblings by place and then by name.
    /// With the organisations above those that the account reaches, which lead to them.
    wire::Organizations Query(const Context& context);
    GroupLogical::Organization_t Add(
        const Context& context, const GroupLogical::Organization_t& organization);
    GroupLogical::Organization_t Modify(
        const Context& context, const GroupLogical::Organization_t& organization);
    /// Empty organisations below it go with it; one with devices anywhere in it is refused.
    void Delete(const Context& context, const wire::Code& code);
    void Move(const Context& context, const wire::MoveOrganizationRequest& request);

private:
    void Changed();

    DatabasePool& m_pool;
    EventHub& m_hub;
    const AuditService& m_audit;
    Generations& m_generations;
};

} // namespace Platform

#pragma once

#include "http/EventHub.h"
#include "services/AuditService.h"
#include "services/Context.h"
#include "services/Generations.h"
#include "store/DatabasePool.h"

#include <wire/Records.h>

#include <functional>

namespace Platform {

/// The tree of person groups. Any thread; faults are ServiceError.
class DepartmentService
{
public:
    /// Removes all persons of those groups, in the transaction of the caller.
    using RemovePersons = std::function<void(
        Database& database, const Context& context, const std::vector<std::string>& vecGroupCodes)>;

    /// All are borrowed.
    DepartmentService(DatabasePool& pool, EventHub& hub, const AuditService& audit, Generations& generations);

    /// All groups, parents before children, siblings by name.
    wire::Departments Query();
    AccessControlLogical::Department_t Add(
        const Context& context, const AccessControlLogical::Department_t& department);
    /// Another parent moves the group with all that is below it.
    AccessControlLogical::Department_t Modify(
        const Context& context, const AccessControlLogical::Department_t& department);
    void Delete(const Context& context, const wire::Code& code, const RemovePersons& removePersons);

    /// That group alone, or with all groups below it. Throws ErrorNotFound.
    static std::vector<std::string> Codes(Database& database, const std::string& sCode, bool bSubGroups);

private:
    void Changed();

    DatabasePool& m_pool;
    EventHub& m_hub;
    const AuditService& m_audit;
    Generations& m_generations;
};

} // namespace Platform

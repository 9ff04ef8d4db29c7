#pragma once

#include "Context.h"
#include "store/DatabasePool.h"

#include <UserLogical/UserRecords.h>

namespace Platform {

/// Reads the log of who changed what. What it says of devices and organisations that an account does not
/// reach is left out. Any thread; faults are ServiceError.
class AuditLog
{
public:
    explicit AuditLog(DatabasePool& pool);

    UserLogical::AuditPage_t Query(const Context& context, const UserLogical::AuditRequest_t& request);

private:
    DatabasePool& m_pool;
};

} // namespace Platform

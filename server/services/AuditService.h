#pragma once

#include "Context.h"
#include "store/Database.h"

#include <nlohmann/json_fwd.hpp>

#include <string>
#include <string_view>

namespace Platform {

/// The log of who changed what. Entries are written in the transaction of the change.
class AuditService
{
public:
    explicit AuditService(Clock clock);

    /// before and after: the record as JSON, null where there is none. Secrets in them are replaced.
    void Write(Database& database, const Context& context, std::string_view sOperation,
        const std::string& sObjectId, const nlohmann::json& before, const nlohmann::json& after) const;

    /// Replaces the values of fields that hold secrets, at any depth.
    static void Redact(nlohmann::json& record);

private:
    Clock m_clock;
};

} // namespace Platform

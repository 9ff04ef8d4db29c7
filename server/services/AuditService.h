#pragma once

#include "Context.h"
#include "store/Database.h"

#include <nlohmann/json_fwd.hpp>

#include <string>
#include <string_view>
#include <vector>

namespace Platform {

/// The log of who changed what. Entries are written in the transaction of the change.
class AuditService
{
public:
    explicit AuditService(Clock clock);

    /// before and after: the record as JSON, null where there is none. Secrets in them are replaced.
    void Write(Database& database, const Context& context, std::string_view sOperation,
        const std::string& sObjectId, const nlohmann::json& before, const nlohmann::json& after) const;

    /// An entry for every row of a SELECT, whose first column is the object's ID; before holds its columns
    /// under those names. For removals of any size.
    void WriteEach(Database& database, const Context& context, std::string_view sOperation,
        const QString& sSelect, const QVariantList& values, const std::vector<std::string>& vecNames) const;

    /// Replaces the values of fields that hold secrets, at any depth.
    static void Redact(nlohmann::json& record);

private:
    Clock m_clock;
};

} // namespace Platform

#include "AuditService.h"

#include <nlohmann/json.hpp>

namespace Platform {

namespace {

bool IsSecret(std::string sName)
{
    for (char& c : sName)
        c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    for (const char* szPart : {"password", "token", "secret", "hash", "template"})
        if (sName.find(szPart) != std::string::npos)
            return true;
    return false;
}

QVariant JsonValue(nlohmann::json record)
{
    if (record.is_null())
        return TextValue({});
    AuditService::Redact(record);
    return TextValue(record.dump());
}

} // namespace

AuditService::AuditService(Clock clock)
    : m_clock(std::move(clock))
{
}

void AuditService::Redact(nlohmann::json& record)
{
    if (!record.is_structured())
        return;
    for (auto it = record.begin(); it != record.end(); ++it) {
        // What is said about a secret (its age, that there is one) is none.
        if (record.is_object() && IsSecret(it.key()) && !it->is_number() && !it->is_boolean())
            *it = "***";
        else
            Redact(*it);
    }
}

void AuditService::Write(Database& database, const Context& context, std::string_view sOperation,
    const std::string& sObjectId, const nlohmann::json& before, const nlohmann::json& after) const
{
    database.Run(
        QStringLiteral("INSERT INTO audit_log (at, account_name, client_address, operation, object_id, "
                       "before_json, after_json) VALUES (?, ?, ?, ?, ?, ?, ?)"),
        {static_cast<qlonglong>(m_clock()), TextValue(context.sUserName), TextValue(context.sClientAddress),
            TextValue(std::string(sOperation)), TextValue(sObjectId), JsonValue(before), JsonValue(after)});
}

void AuditService::WriteEach(Database& database, const Context& context, std::string_view sOperation,
    const QString& sSelect, const QVariantList& values, const std::vector<std::string>& vecNames) const
{
    // Read to the end first: PostgreSQL answers one statement at a time.
    std::vector<nlohmann::json> vecBefore;
    {
        Rows rows = database.Run(sSelect, values);
        while (rows.Next()) {
            nlohmann::json before = nlohmann::json::object();
            for (std::size_t n = 0; n < vecNames.size(); ++n)
                before[vecNames[n]] = rows.Text(static_cast<int>(n));
            vecBefore.push_back(std::move(before));
        }
    }
    for (const nlohmann::json& before : vecBefore)
        Write(database, context, sOperation, before[vecNames.front()].get<std::string>(), before, nullptr);
}

} // namespace Platform

#include "OrganizationService.h"

#include "ServiceError.h"
#include "SessionService.h"
#include "TextRules.h"

#include <wire/Operations.h>

#include <algorithm>
#include <unordered_map>

namespace Platform {

using GroupLogical::Organization_t;
using GroupLogical::RootOrganizationCode;

namespace {

constexpr std::size_t NameLimit = 50;
constexpr std::size_t RemarkLimit = 255;

Organization_t ReadRow(const Rows& rows)
{
    Organization_t organization;
    organization.sCode = rows.Text(0);
    organization.sParentCode = rows.Text(1);
    organization.sName = rows.Text(2);
    organization.sRemark = rows.Text(3);
    organization.nSort = rows.Int(4);
    organization.nVersion = rows.Big(5);
    return organization;
}

Organization_t Find(Database& database, const std::string& sCode)
{
    Rows rows = database.Run(
        QStringLiteral(
            "SELECT code, parent_code, name, remark, sort, version FROM organization WHERE code = ?"),
        {TextValue(sCode)});
    if (!rows.Next())
        throw ServiceError(UICommonMdl::ErrorNotFound);
    return ReadRow(rows);
}

int Number(Database& database, const QString& sSql, const QVariantList& values)
{
    Rows rows = database.Run(sSql, values);
    rows.Next();
    return rows.Int(0);
}

/// Level of an organisation, the root being level 1.
int LevelOf(Database& database, const std::string& sCode)
{
    return 1
        + Number(database,
            QStringLiteral("SELECT COALESCE(MAX(distance), 0) FROM organization_ancestor WHERE code = ?"),
            {TextValue(sCode)});
}

/// Levels of the sub-tree, 1 for an organisation without others below it.
int HeightOf(Database& database, const std::string& sCode)
{
    return 1
        + Number(database,
            QStringLiteral("SELECT COALESCE(MAX(distance), 0) FROM organization_ancestor WHERE ancestor = ?"),
            {TextValue(sCode)});
}

Organization_t Checked(Organization_t organization)
{
    organization.sName = Trimmed(organization.sName);
    if (organization.sName.empty() || CharacterCount(organization.sName) > NameLimit
        || organization.sName.find_first_of("<>") != std::string::npos
        || HasControlCharacter(organization.sName))
        throw ServiceError(UICommonMdl::ErrorInvalidInput, "sName");
    if (CharacterCount(organization.sRemark) > RemarkLimit)
        throw ServiceError(UICommonMdl::ErrorInvalidInput, "sRemark");
    return organization;
}

void CheckSiblings(Database& database, const Organization_t& organization)
{
    const int nSame = Number(database,
        QStringLiteral(
            "SELECT COUNT(*) FROM organization WHERE parent_code = ? AND name_key = ? AND code <> ?"),
        {TextValue(organization.sParentCode), TextValue(FoldCase(organization.sName)),
            TextValue(organization.sCode)});
    if (nSame != 0)
        throw ServiceError(UICommonMdl::ErrorNameExists);
}

} // namespace

OrganizationService::OrganizationService(
    DatabasePool& pool, EventHub& hub, const AuditService& audit, Generations& generations)
    : m_pool(pool)
    , m_hub(hub)
    , m_audit(audit)
    , m_generations(generations)
{
}

wire::Organizations OrganizationService::Query()
{
    return m_pool.Read([](Database& database) {
        wire::Organizations answer;
        Rows rows = database.Run(QStringLiteral(
            "SELECT o.code, o.parent_code, o.name, o.remark, o.sort, o.version FROM organization o "
            "JOIN organization_ancestor a ON a.code = o.code AND a.ancestor = '001' "
            "ORDER BY a.distance, o.sort, o.name_key"));
        while (rows.Next())
            answer.vecOrganizations.push_back(ReadRow(rows));
        return answer;
    });
}

Organization_t OrganizationService::Add(const Context& context, const Organization_t& organization)
{
    Organization_t added = Checked(organization);
    added.nSort = 0;
    added.nVersion = 1;
    m_pool.Write([&](Database& database) {
        Find(database, added.sParentCode);
        if (LevelOf(database, added.sParentCode) + 1 > SessionService::OrganizationLevelLimit)
            throw ServiceError(UICommonMdl::ErrorOrganizationDepth);
        added.sCode = std::to_string(database.NextNumber(QStringLiteral("organization")));
        CheckSiblings(database, added);
        database.Run(QStringLiteral("INSERT INTO organization (code, parent_code, name, name_key, remark) "
                                    "VALUES (?, ?, ?, ?, ?)"),
            {TextValue(added.sCode), TextValue(added.sParentCode), TextValue(added.sName),
                TextValue(FoldCase(added.sName)), TextValue(added.sRemark)});
        database.Run(
            QStringLiteral("INSERT INTO organization_ancestor (ancestor, code, distance) "
                           "SELECT ancestor, CAST(? AS TEXT), distance + 1 FROM organization_ancestor "
                           "WHERE code = ?"),
            {TextValue(added.sCode), TextValue(added.sParentCode)});
        database.Run(
            QStringLiteral("INSERT INTO organization_ancestor (ancestor, code, distance) VALUES (?, ?, 0)"),
            {TextValue(added.sCode), TextValue(added.sCode)});
        m_audit.Write(database, context, wire::AddOrganization::Name, added.sCode, nullptr, added);
    });
    Changed();
    return added;
}

Organization_t OrganizationService::Modify(const Context& context, const Organization_t& organization)
{
    const Organization_t wanted = Checked(organization);
    Organization_t changed = m_pool.Write([&](Database& database) {
        const Organization_t before = Find(database, wanted.sCode);
        if (before.nVersion != wanted.nVersion)
            throw ServiceError(UICommonMdl::ErrorVersionConflict);
        Organization_t after = before;
        after.sName = wanted.sName;
        after.sRemark = wanted.sRemark;
        ++after.nVersion;
        CheckSiblings(database, after);
        database.Run(QStringLiteral("UPDATE organization SET name = ?, name_key = ?, remark = ?, version = ? "
                                    "WHERE code = ?"),
            {TextValue(after.sName), TextValue(FoldCase(after.sName)), TextValue(after.sRemark),
                static_cast<qlonglong>(after.nVersion), TextValue(after.sCode)});
        m_audit.Write(database, context, wire::ModifyOrganization::Name, after.sCode, before, after);
        return after;
    });
    Changed();
    return changed;
}

void OrganizationService::Delete(const Context& context, const wire::Code& code)
{
    if (code.sCode == RootOrganizationCode)
        throw ServiceError(UICommonMdl::ErrorOrganizationRoot);
    m_pool.Write([&](Database& database) {
        const Organization_t before = Find(database, code.sCode);
        const QVariant value = TextValue(code.sCode);
        const int nDevices = Number(database,
            QStringLiteral("SELECT COUNT(*) FROM device WHERE org_code IN "
                           "(SELECT code FROM organization_ancestor WHERE ancestor = ?)"),
            {value});
        if (nDevices != 0)
            throw ServiceError(UICommonMdl::ErrorOrganizationNotEmpty);
        std::vector<std::string> vecCodes;
        {
            Rows rows = database.Run(
                QStringLiteral("SELECT code FROM organization_ancestor WHERE ancestor = ?"), {value});
            while (rows.Next())
                vecCodes.push_back(rows.Text(0));
        }
        for (const std::string& sCode : vecCodes) {
            const Organization_t gone = Find(database, sCode);
            database.Run(
                QStringLiteral("DELETE FROM organization_ancestor WHERE code = ?"), {TextValue(sCode)});
            database.Run(QStringLiteral("DELETE FROM organization WHERE code = ?"), {TextValue(sCode)});
            m_audit.Write(database, context, wire::DeleteOrganization::Name, sCode, gone, nullptr);
        }
    });
    Changed();
}

void OrganizationService::Move(const Context& context, const wire::MoveOrganizationRequest& request)
{
    if (request.sCode == RootOrganizationCode)
        throw ServiceError(UICommonMdl::ErrorOrganizationRoot);
    m_pool.Write([&](Database& database) {
        const Organization_t before = Find(database, request.sCode);
        Find(database, request.sNewParentCode);
        Organization_t after = before;
        after.sParentCode = request.sNewParentCode;
        ++after.nVersion;
        const QVariant code = TextValue(request.sCode);
        const QVariant parent = TextValue(request.sNewParentCode);
        if (Number(database,
                QStringLiteral("SELECT COUNT(*) FROM organization_ancestor WHERE ancestor = ? AND code = ?"),
                {code, parent})
            != 0)
            throw ServiceError(UICommonMdl::ErrorOrganizationCycle);
        if (LevelOf(database, request.sNewParentCode) + HeightOf(database, request.sCode)
            > SessionService::OrganizationLevelLimit)
            throw ServiceError(UICommonMdl::ErrorOrganizationDepth);
        CheckSiblings(database, after);

        database.Run(QStringLiteral("UPDATE organization SET parent_code = ?, version = ? WHERE code = ?"),
            {parent, static_cast<qlonglong>(after.nVersion), code});
        // The sub-tree leaves its old ancestors and comes under the new parent's.
        database.Run(
            QStringLiteral(
                "DELETE FROM organization_ancestor WHERE "
                "code IN (SELECT code FROM organization_ancestor WHERE ancestor = ?) AND "
                "ancestor IN (SELECT ancestor FROM organization_ancestor WHERE code = ? AND distance > 0)"),
            {code, code});
        database.Run(QStringLiteral("INSERT INTO organization_ancestor (ancestor, code, distance) "
                                    "SELECT above.ancestor, below.code, above.distance + below.distance + 1 "
                                    "FROM organization_ancestor above, organization_ancestor below "
                                    "WHERE above.code = ? AND below.ancestor = ?"),
            {parent, code});
        m_audit.Write(database, context, wire::MoveOrganization::Name, request.sCode, before, after);
    });
    Changed();
}

void OrganizationService::Changed()
{
    ++m_generations.devices;
    m_hub.Publish(wire::event::OrganizationsChanged);
}

} // namespace Platform

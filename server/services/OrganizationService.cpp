#include "OrganizationService.h"

#include "ServiceError.h"
#include "SessionService.h"
#include "TextRules.h"
#include "TreeTable.h"
#include "accounts/RoleGrants.h"

#include <wire/Operations.h>

#include <algorithm>
#include <unordered_map>

namespace Platform {

using GroupLogical::Organization_t;
using GroupLogical::RootOrganizationCode;

namespace {

Organization_t ReadOrganization(const Rows& rows)
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

Organization_t FindOrganization(Database& database, const std::string& sCode)
{
    Rows rows = database.Run(
        QStringLiteral(
            "SELECT code, parent_code, name, remark, sort, version FROM organization WHERE code = ?"),
        {TextValue(sCode)});
    if (!rows.Next())
        throw ServiceError(UICommonMdl::ErrorNotFound);
    return ReadOrganization(rows);
}

constexpr TreeTable Tree("organization");

void CheckEmpty(Database& database, const std::string& sCode)
{
    Rows rows =
        database.Run(QStringLiteral("SELECT 1 FROM device WHERE org_code IN "
                                    "(SELECT code FROM organization_ancestor WHERE ancestor = ?) LIMIT 1"),
            {TextValue(sCode)});
    if (rows.Next())
        throw ServiceError(UICommonMdl::ErrorOrganizationNotEmpty);
}

Organization_t Checked(Organization_t organization)
{
    organization.sName = Trimmed(organization.sName);
    if (!UICommonMdl::Holds(GroupLogical::OrganizationName, organization.sName))
        throw ServiceError(UICommonMdl::ErrorInvalidInput, "sName");
    if (!UICommonMdl::Holds(GroupLogical::OrganizationRemark, organization.sRemark))
        throw ServiceError(UICommonMdl::ErrorInvalidInput, "sRemark");
    return organization;
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

wire::Organizations OrganizationService::Query(const Context& context)
{
    return m_pool.Read([&context](Database& database) {
        wire::Organizations answer;
        QVariantList values;
        QString sSql = QStringLiteral(
            "SELECT o.code, o.parent_code, o.name, o.remark, o.sort, o.version FROM organization o "
            "JOIN organization_ancestor a ON a.code = o.code AND a.ancestor = '001'");
        if (!context.Scope().IsAll())
            sSql +=
                QLatin1String(" WHERE ") + context.Scope().OrganizationTerm(QStringLiteral("o.code"), values);
        Rows rows = database.Run(sSql + QLatin1String(" ORDER BY a.distance, o.sort, o.name_key"), values);
        while (rows.Next())
            answer.vecOrganizations.push_back(ReadOrganization(rows));
        return answer;
    });
}

Organization_t OrganizationService::Add(const Context& context, const Organization_t& organization)
{
    Organization_t added = Checked(organization);
    added.nSort = 0;
    added.nVersion = 1;
    m_pool.Write([&](Database& database) {
        context.Scope().CheckOrganization(database, added.sParentCode);
        FindOrganization(database, added.sParentCode);
        Tree.CheckChild(database, added.sParentCode, SessionService::OrganizationLevelLimit);
        added.sCode = std::to_string(database.NextNumber(QStringLiteral("organization")));
        Tree.CheckSiblings(database, added.sParentCode, added.sName, added.sCode);
        database.Run(QStringLiteral("INSERT INTO organization (code, parent_code, name, name_key, remark) "
                                    "VALUES (?, ?, ?, ?, ?)"),
            {TextValue(added.sCode), TextValue(added.sParentCode), TextValue(added.sName),
                TextValue(FoldCase(added.sName)), TextValue(added.sRemark)});
        Tree.AddAncestors(database, added.sCode, added.sParentCode);
        RoleGrants::OrganizationArrived(database, added.sCode, added.sParentCode);
        m_audit.Write(database, context, wire::AddOrganization::Name, added.sCode, nullptr, added);
    });
    Changed();
    return added;
}

Organization_t OrganizationService::Modify(const Context& context, const Organization_t& organization)
{
    const Organization_t wanted = Checked(organization);
    Organization_t changed = m_pool.Write([&](Database& database) {
        context.Scope().CheckOrganization(database, wanted.sCode);
        const Organization_t before = FindOrganization(database, wanted.sCode);
        if (before.nVersion != wanted.nVersion)
            throw ServiceError(UICommonMdl::ErrorVersionConflict);
        Organization_t after = before;
        after.sName = wanted.sName;
        after.sRemark = wanted.sRemark;
        ++after.nVersion;
        Tree.CheckSiblings(database, after.sParentCode, after.sName, after.sCode);
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
        context.Scope().CheckOrganization(database, code.sCode);
        FindOrganization(database, code.sCode);
        CheckEmpty(database, code.sCode);
        for (const std::string& sCode : Tree.Below(database, code.sCode)) {
            context.Scope().CheckOrganization(database, sCode);
            const Organization_t gone = FindOrganization(database, sCode);
            Tree.Remove(database, sCode);
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
        context.Scope().CheckOrganization(database, request.sCode);
        context.Scope().CheckOrganization(database, request.sNewParentCode);
        const Organization_t before = FindOrganization(database, request.sCode);
        FindOrganization(database, request.sNewParentCode);
        Organization_t after = before;
        after.sParentCode = request.sNewParentCode;
        ++after.nVersion;
        Tree.CheckMove(
            database, request.sCode, request.sNewParentCode, SessionService::OrganizationLevelLimit);
        Tree.CheckSiblings(database, after.sParentCode, after.sName, after.sCode);
        database.Run(QStringLiteral("UPDATE organization SET parent_code = ?, version = ? WHERE code = ?"),
            {TextValue(request.sNewParentCode), static_cast<qlonglong>(after.nVersion),
                TextValue(request.sCode)});
        Tree.MoveAncestors(database, request.sCode, request.sNewParentCode);
        RoleGrants::OrganizationArrived(database, request.sCode, request.sNewParentCode);
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

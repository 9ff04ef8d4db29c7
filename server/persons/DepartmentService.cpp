#include "DepartmentService.h"

#include "ServiceError.h"
#include "services/TextRules.h"
#include "services/TreeTable.h"

#include <wire/Operations.h>

namespace Platform {

using AccessControlLogical::Department_t;
using AccessControlLogical::DepartmentLevelLimit;
using AccessControlLogical::RootDepartmentCode;

namespace {

constexpr TreeTable Tree("person_group");

Department_t ReadDepartment(const Rows& rows)
{
    return {rows.Text(0), rows.Text(1), rows.Text(2), rows.Text(3), rows.Big(4)};
}

Department_t Find(Database& database, const std::string& sCode)
{
    Rows rows = database.Run(
        QStringLiteral("SELECT code, parent_code, name, remark, version FROM person_group WHERE code = ?"),
        {TextValue(sCode)});
    if (!rows.Next())
        throw ServiceError(UICommonMdl::ErrorNotFound);
    return ReadDepartment(rows);
}

Department_t Checked(Department_t department)
{
    department.sName = Trimmed(department.sName);
    if (!UICommonMdl::Holds(AccessControlLogical::DepartmentName, department.sName))
        throw ServiceError(UICommonMdl::ErrorInvalidInput, "sName");
    if (!UICommonMdl::Holds(AccessControlLogical::DepartmentRemark, department.sRemark))
        throw ServiceError(UICommonMdl::ErrorInvalidInput, "sRemark");
    return department;
}

void MoveChecked(Database& database, const Department_t& before, const std::string& sNewParentCode)
{
    if (before.sCode == RootDepartmentCode)
        throw ServiceError(UICommonMdl::ErrorOrganizationRoot);
    Find(database, sNewParentCode);
    Tree.CheckMove(database, before.sCode, sNewParentCode, DepartmentLevelLimit);
    Tree.MoveAncestors(database, before.sCode, sNewParentCode);
}

} // namespace

DepartmentService::DepartmentService(
    DatabasePool& pool, EventHub& hub, const AuditService& audit, Generations& generations)
    : m_pool(pool)
    , m_hub(hub)
    , m_audit(audit)
    , m_generations(generations)
{
}

wire::Departments DepartmentService::Query()
{
    return m_pool.Read([](Database& database) {
        wire::Departments answer;
        Rows rows = database.Run(
            QStringLiteral("SELECT g.code, g.parent_code, g.name, g.remark, g.version FROM person_group g "
                           "JOIN person_group_ancestor a ON a.code = g.code AND a.ancestor = '001' "
                           "ORDER BY a.distance, g.name_key"));
        while (rows.Next())
            answer.vecDepartments.push_back(ReadDepartment(rows));
        return answer;
    });
}

Department_t DepartmentService::Add(const Context& context, const Department_t& department)
{
    Department_t added = Checked(department);
    added.nVersion = 1;
    m_pool.Write([&](Database& database) {
        Find(database, added.sParentCode);
        Tree.CheckChild(database, added.sParentCode, DepartmentLevelLimit);
        added.sCode = std::to_string(database.NextNumber(QStringLiteral("person group")));
        Tree.CheckSiblings(database, added.sParentCode, added.sName, added.sCode);
        database.Run(QStringLiteral("INSERT INTO person_group (code, parent_code, name, name_key, remark) "
                                    "VALUES (?, ?, ?, ?, ?)"),
            {TextValue(added.sCode), TextValue(added.sParentCode), TextValue(added.sName),
                TextValue(FoldCase(added.sName)), TextValue(added.sRemark)});
        Tree.AddAncestors(database, added.sCode, added.sParentCode);
        m_audit.Write(database, context, wire::AddDepartment::Name, added.sCode, nullptr, added);
    });
    Changed();
    return added;
}

Department_t DepartmentService::Modify(const Context& context, const Department_t& department)
{
    Department_t after = Checked(department);
    m_pool.Write([&](Database& database) {
        const Department_t before = Find(database, after.sCode);
        if (before.nVersion != department.nVersion)
            throw ServiceError(UICommonMdl::ErrorVersionConflict);
        after.nVersion = before.nVersion + 1;
        if (after.sParentCode != before.sParentCode)
            MoveChecked(database, before, after.sParentCode);
        Tree.CheckSiblings(database, after.sParentCode, after.sName, after.sCode);
        database.Run(QStringLiteral("UPDATE person_group SET parent_code = ?, name = ?, name_key = ?, "
                                    "remark = ?, version = ? WHERE code = ?"),
            {TextValue(after.sParentCode), TextValue(after.sName), TextValue(FoldCase(after.sName)),
                TextValue(after.sRemark), static_cast<qlonglong>(after.nVersion), TextValue(after.sCode)});
        m_audit.Write(database, context, wire::ModifyDepartment::Name, after.sCode, before, after);
    });
    Changed();
    return after;
}

void DepartmentService::Delete(
    const Context& context, const wire::Code& code, const RemovePersons& removePersons)
{
    if (code.sCode == RootDepartmentCode)
        throw ServiceError(UICommonMdl::ErrorOrganizationRoot);
    m_pool.Write([&](Database& database) {
        const std::vector<std::string> vecCodes = Codes(database, code.sCode, true);
        removePersons(database, context, vecCodes);
        for (const std::string& sCode : vecCodes) {
            const Department_t gone = Find(database, sCode);
            Tree.Remove(database, sCode);
            m_audit.Write(database, context, wire::DeleteDepartment::Name, sCode, gone, nullptr);
        }
    });
    Changed();
}

std::vector<std::string> DepartmentService::Codes(
    Database& database, const std::string& sCode, bool bSubGroups)
{
    Find(database, sCode);
    return bSubGroups ? Tree.Below(database, sCode) : std::vector<std::string>{sCode};
}

void DepartmentService::Changed()
{
    ++m_generations.persons;
    m_hub.Publish(wire::event::DepartmentsChanged);
}

} // namespace Platform

#include "RoleService.h"

#include "AccountRules.h"
#include "Channels.h"
#include "DeviceRightTree.h"
#include "RoleDevices.h"
#include "ServiceError.h"
#include "services/DeviceRecords.h"
#include "services/TextRules.h"

#include <wire/Operations.h>

namespace Platform {

using UserLogical::Role_t;
using UserLogical::RoleEdit_t;

namespace {

constexpr const char* FunctionRights = "004";
constexpr std::size_t CodeStep = 3;
constexpr std::size_t AuditedChanges = 200;

bool IsFunction(const std::string& sCode)
{
    return sCode.compare(0, CodeStep, FunctionRights) == 0;
}

/// The codes of a record with those above them: a right below a page is worth nothing without the page.
std::set<std::string> CodesOf(const Role_t& role)
{
    std::set<std::string> setCodes;
    for (const auto* pCodes : {&role.vecMenuRights, &role.vecFuncRights})
        for (const std::string& sCode : *pCodes) {
            if (IsFunction(sCode) != (pCodes == &role.vecFuncRights))
                throw ServiceError(UICommonMdl::ErrorInvalidInput, sCode);
            for (std::size_t nLength = CodeStep; nLength < sCode.size(); nLength += CodeStep)
                setCodes.insert(sCode.substr(0, nLength));
            setCodes.insert(sCode);
        }
    return setCodes;
}

std::set<std::string> KeptCodes(const Role_t& role)
{
    std::set<std::string> setCodes(role.vecMenuRights.begin(), role.vecMenuRights.end());
    setCodes.insert(role.vecFuncRights.begin(), role.vecFuncRights.end());
    return setCodes;
}

void WriteCodes(Database& database, const Context& context, std::int64_t nRoleId,
    const std::set<std::string>& before, const std::set<std::string>& after)
{
    const QVariant role = static_cast<qlonglong>(nRoleId);
    for (const std::string& sCode : after) {
        if (before.count(sCode) != 0)
            continue;
        const int nAdded =
            database
                .Run(QStringLiteral("INSERT INTO role_right (role_id, code) "
                                    "SELECT CAST(? AS BIGINT), code FROM right_code WHERE code = ?"),
                    {role, TextValue(sCode)})
                .Affected();
        if (nAdded != 1)
            throw ServiceError(UICommonMdl::ErrorInvalidInput, "Unknown right " + sCode);
        if (!context.HasRights(sCode))
            throw ServiceError(UICommonMdl::ErrorRightNotOwn, sCode);
    }
    for (const std::string& sCode : before)
        if (after.count(sCode) == 0)
            database.Run(QStringLiteral("DELETE FROM role_right WHERE role_id = ? AND code = ?"),
                {role, TextValue(sCode)});
}

void CheckName(Database& database, const Role_t& role, std::int64_t nOwn)
{
    Rows rows = database.Run(QStringLiteral("SELECT 1 FROM role WHERE name_key = ? AND id <> ?"),
        {TextValue(FoldCase(role.sName)), static_cast<qlonglong>(nOwn)});
    if (rows.Next())
        throw ServiceError(UICommonMdl::ErrorNameExists, "sName");
}

std::int64_t SourceOf(const RoleEdit_t& edit)
{
    const std::int64_t nSource = AccountRules::RoleNumber(edit.sCopyFrom);
    if (!edit.sCopyFrom.empty() && nSource == 0)
        throw ServiceError(UICommonMdl::ErrorNotFound, "sCopyFrom");
    return nSource;
}

std::string TextOf(Database& database, const QString& sSql, const QVariant& value)
{
    Rows rows = database.Run(sSql, {value});
    return rows.Next() ? rows.Text(0) : std::string();
}

/// "Gate / Channel 2: given", as the log tells it.
std::string Described(Database& database, const UserLogical::DeviceRightChange_t& change)
{
    using Change = UserLogical::DeviceRightChange_t;
    std::string sText = change.nKind == UserLogical::DeviceNodeOrganization
        ? TextOf(
            database, QStringLiteral("SELECT name FROM organization WHERE code = ?"), TextValue(change.sId))
        : TextOf(database, QStringLiteral("SELECT name FROM device WHERE id = ?"),
            DeviceRecords::NumberOf(change.sId).value_or(0));
    for (const ChannelColumn& column : ChannelColumns)
        if (change.nKind == UserLogical::DeviceNodeChannel && column.nKind == change.nChannelKind)
            sText.append(" / ").append(column.szName).append(" ").append(std::to_string(change.nChannel));
    sText.append(":");
    if (change.nRight != Change::Keep)
        sText.append(change.nRight == Change::On ? " given" : " taken");
    if (change.nAuto != Change::Keep)
        sText.append(change.nAuto == Change::On ? " auto authorization on" : " auto authorization off");
    return sText;
}

/// What the log keeps of a role: its record with the names of its rights, how much of the devices it has, and
/// what was changed of that.
nlohmann::json LogRecord(Database& database, const Role_t& role, const RoleEdit_t* pEdit)
{
    nlohmann::json record = role;
    for (const char* szRights : {"vecMenuRights", "vecFuncRights"})
        for (nlohmann::json& code : record[szRights])
            code = TextOf(database, QStringLiteral("SELECT name FROM right_code WHERE code = ?"),
                TextValue(code.get<std::string>()));
    record["nDevices"] = RoleDevices::CountDevices(database, AccountRules::RoleNumber(role.sRoleId));
    if (pEdit) {
        const auto itEnd = pEdit->vecChanges.begin()
            + static_cast<std::ptrdiff_t>(std::min(pEdit->vecChanges.size(), AuditedChanges));
        nlohmann::json changes = nlohmann::json::array();
        std::for_each(pEdit->vecChanges.begin(), itEnd,
            [&](const auto& change) { changes.push_back(Described(database, change)); });
        if (pEdit->vecChanges.size() > AuditedChanges)
            changes.push_back("and " + std::to_string(pEdit->vecChanges.size() - AuditedChanges) + " more");
        record["vecDeviceChanges"] = std::move(changes);
    }
    return record;
}

} // namespace

RoleService::RoleService(DatabasePool& pool, EventHub& hub, const AuditService& audit,
    Generations& generations, RightsService& rights)
    : m_pool(pool)
    , m_hub(hub)
    , m_audit(audit)
    , m_generations(generations)
    , m_rights(rights)
{
}

wire::Roles RoleService::List()
{
    return m_pool.Read([](Database& database) {
        wire::Roles answer;
        Rows rows = database.Run(
            QStringLiteral("SELECT id, name, remark, has_all_rights, version FROM role ORDER BY name_key"));
        while (rows.Next())
            answer.vecRoles.push_back({std::to_string(rows.Big(0)), rows.Text(1), rows.Text(2),
                rows.Int(3) != 0, {}, {}, rows.Big(4)});
        return answer;
    });
}

Role_t RoleService::Read(Database& database, std::int64_t nRoleId)
{
    const QVariant id = static_cast<qlonglong>(nRoleId);
    Role_t role;
    {
        Rows rows = database.Run(
            QStringLiteral("SELECT name, remark, has_all_rights, version FROM role WHERE id = ?"), {id});
        if (!rows.Next())
            throw ServiceError(UICommonMdl::ErrorNotFound);
        role = {std::to_string(nRoleId), rows.Text(0), rows.Text(1), rows.Int(2) != 0, {}, {}, rows.Big(3)};
    }
    Rows rows = role.bBuiltIn
        ? database.Run(QStringLiteral("SELECT code FROM right_code ORDER BY code"))
        : database.Run(QStringLiteral("SELECT code FROM role_right WHERE role_id = ? ORDER BY code"), {id});
    while (rows.Next()) {
        std::string sCode = rows.Text(0);
        (IsFunction(sCode) ? role.vecFuncRights : role.vecMenuRights).push_back(std::move(sCode));
    }
    return role;
}

Role_t RoleService::Info(const wire::RoleId& id)
{
    return m_pool.Read(
        [&id](Database& database) { return Read(database, AccountRules::RoleNumber(id.sRoleId)); });
}

wire::RightNodes RoleService::Rights(bool bFunctions)
{
    return m_pool.Read([bFunctions](Database& database) {
        wire::RightNodes answer;
        Rows rows = database.Run(QStringLiteral("SELECT code, name FROM right_code ORDER BY code"));
        while (rows.Next()) {
            const std::string sCode = rows.Text(0);
            if (IsFunction(sCode) == bFunctions)
                answer.vecRights.push_back({sCode, rows.Text(1),
                    sCode.size() == CodeStep ? UserLogical::RightNodeAlways : UserLogical::RightNodeChecked});
        }
        return answer;
    });
}

wire::RightNodes RoleService::MenuRights()
{
    return Rights(false);
}

wire::RightNodes RoleService::FuncRights()
{
    return Rights(true);
}

wire::DeviceRightNodes RoleService::DeviceRights(
    const Context& context, const UserLogical::DeviceRightQuery_t& query)
{
    return m_pool.Read(
        [&](Database& database) { return DeviceRightTree(database, context.Scope(), query).Children(); });
}

wire::DeviceAccesses RoleService::DeviceAccess(const Context& context, const wire::DeviceId& id)
{
    return m_pool.Read([&](Database& database) {
        context.Scope().CheckDevice(database, id.sDeviceId);
        if (!DeviceRecords::Find(database, id.sDeviceId))
            throw ServiceError(UICommonMdl::ErrorNotFound);
        wire::DeviceAccesses answer;
        Rows rows = database.Run(
            QStringLiteral("SELECT a.name, r.name, CASE WHEN r.has_all_rights = 1 THEN 1 "
                           "ELSE rd.whole END FROM account a "
                           "JOIN account_role ar ON ar.account_id = a.id JOIN role r ON r.id = ar.role_id "
                           "LEFT JOIN role_device rd ON rd.role_id = r.id AND rd.device_id = ? "
                           "WHERE r.has_all_rights = 1 OR rd.role_id IS NOT NULL "
                           "ORDER BY a.name_key, r.name_key"),
            {DeviceRecords::NumberOf(id.sDeviceId).value_or(0)});
        while (rows.Next()) {
            std::string sUser = rows.Text(0);
            if (answer.vecAccess.empty() || answer.vecAccess.back().sUserName != sUser)
                answer.vecAccess.push_back({std::move(sUser), {}, false});
            answer.vecAccess.back().vecRoleNames.push_back(rows.Text(1));
            answer.vecAccess.back().bWhole = answer.vecAccess.back().bWhole || rows.Int(2) != 0;
        }
        return answer;
    });
}

Role_t RoleService::Add(const Context& context, const RoleEdit_t& edit)
{
    const Role_t wanted = AccountRules::Checked(edit.role);
    const std::set<std::string> setCodes = CodesOf(wanted);
    std::int64_t nId = 0;
    Role_t added = m_pool.Write([&](Database& database) {
        CheckName(database, wanted, 0);
        nId = database.NextNumber(QStringLiteral("role"));
        database.Run(QStringLiteral("INSERT INTO role (id, name, name_key, remark) VALUES (?, ?, ?, ?)"),
            {static_cast<qlonglong>(nId), TextValue(wanted.sName), TextValue(FoldCase(wanted.sName)),
                TextValue(wanted.sRemark)});
        WriteCodes(database, context, nId, {}, setCodes);
        RoleDevices devices(database, context.Scope(), nId);
        if (const std::int64_t nSource = SourceOf(edit); nSource != 0)
            devices.CopyFrom(nSource);
        devices.Apply(edit.vecChanges);
        Role_t role = Read(database, nId);
        m_audit.Write(
            database, context, wire::AddRole::Name, role.sName, nullptr, LogRecord(database, role, &edit));
        return role;
    });
    Changed(nId);
    return added;
}

Role_t RoleService::Modify(const Context& context, const RoleEdit_t& edit)
{
    const Role_t wanted = AccountRules::Checked(edit.role);
    const std::set<std::string> setCodes = CodesOf(wanted);
    const std::int64_t nId = AccountRules::RoleNumber(wanted.sRoleId);
    Role_t changed = m_pool.Write([&](Database& database) {
        const Role_t before = Read(database, nId);
        if (before.bBuiltIn)
            throw ServiceError(UICommonMdl::ErrorBuiltInAccount);
        if (before.nVersion != wanted.nVersion)
            throw ServiceError(UICommonMdl::ErrorVersionConflict);
        CheckName(database, wanted, nId);
        const nlohmann::json logged = LogRecord(database, before, nullptr);
        database.Run(QStringLiteral("UPDATE role SET name = ?, name_key = ?, remark = ?, "
                                    "version = version + 1 WHERE id = ?"),
            {TextValue(wanted.sName), TextValue(FoldCase(wanted.sName)), TextValue(wanted.sRemark),
                static_cast<qlonglong>(nId)});
        WriteCodes(database, context, nId, KeptCodes(before), setCodes);
        RoleDevices devices(database, context.Scope(), nId);
        if (const std::int64_t nSource = SourceOf(edit); nSource != 0 && nSource != nId)
            devices.CopyFrom(nSource);
        devices.Apply(edit.vecChanges);
        AccountRules::CheckManagerLeft(database, 0);
        Role_t role = Read(database, nId);
        m_audit.Write(
            database, context, wire::ModifyRole::Name, role.sName, logged, LogRecord(database, role, &edit));
        return role;
    });
    Changed(nId);
    return changed;
}

wire::UserFailures RoleService::Delete(const Context& context, const wire::RoleIds& ids)
{
    AccountRules::CheckBatch(ids.vecRoleIds.size(), "vecRoleIds");
    wire::UserFailures answer = m_pool.Write([&](Database& database) {
        wire::UserFailures failed;
        for (const std::string& sRoleId :
            std::set<std::string>(ids.vecRoleIds.begin(), ids.vecRoleIds.end())) {
            std::string sName = sRoleId;
            try {
                const std::int64_t nId = AccountRules::RoleNumber(sRoleId);
                const Role_t role = Read(database, nId);
                sName = role.sName;
                if (role.bBuiltIn)
                    throw ServiceError(UICommonMdl::ErrorBuiltInAccount);
                const QVariant id = static_cast<qlonglong>(nId);
                if (Rows rows = database.Run(
                        QStringLiteral("SELECT 1 FROM account_role WHERE role_id = ? LIMIT 1"), {id});
                    rows.Next())
                    throw ServiceError(UICommonMdl::ErrorReferenced);
                const nlohmann::json logged = LogRecord(database, role, nullptr);
                database.Run(QStringLiteral("DELETE FROM role WHERE id = ?"), {id});
                m_audit.Write(database, context, wire::DeleteRoles::Name, role.sName, logged, nullptr);
            } catch (const ServiceError& error) {
                if (error.Code() < UICommonMdl::ErrorNotSignedIn)
                    throw;
                failed.vecFailed.push_back({sName, error.Code()});
            }
        }
        return failed;
    });
    m_hub.Publish(wire::event::RolesChanged);
    return answer;
}

void RoleService::Changed(std::int64_t nRoleId)
{
    ++m_generations.devices;
    m_rights.Reload();
    m_rights.ScopeChanged(nRoleId);
    m_hub.Publish(wire::event::RolesChanged);
}

} // namespace Platform

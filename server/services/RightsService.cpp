#include "RightsService.h"

#include <wire/Operations.h>

namespace Platform {

namespace {
constexpr const char* RightManageUsers = "001002001";
}

std::string AccountRights::TypeText() const
{
    if (bEverything)
        return "1";
    return setCodes.count(RightManageUsers) != 0 ? "2" : "3";
}

RightsService::RightsService(DatabasePool& pool, EventHub& hub)
    : m_pool(pool)
    , m_hub(hub)
{
}

AccountRights RightsService::Read(Database& database, std::int64_t nAccountId)
{
    const QVariant account = static_cast<qlonglong>(nAccountId);
    AccountRights rights;
    std::string sRoles;
    {
        Rows rows = database.Run(QStringLiteral("SELECT r.id, r.has_all_rights FROM account_role ar "
                                                "JOIN role r ON r.id = ar.role_id WHERE ar.account_id = ? "
                                                "ORDER BY r.id"),
            {account});
        while (rows.Next()) {
            sRoles += std::to_string(rows.Big(0)) + ',';
            rights.bEverything = rights.bEverything || rows.Int(1) != 0;
        }
    }
    rights.scope = rights.bEverything ? DeviceScope::All() : DeviceScope(nAccountId, sRoles);
    Rows rows = rights.bEverything
        ? database.Run(QStringLiteral("SELECT code FROM right_code"))
        : database.Run(
            QStringLiteral("SELECT DISTINCT rr.code FROM account_role ar "
                           "JOIN role_right rr ON rr.role_id = ar.role_id WHERE ar.account_id = ?"),
            {account});
    while (rows.Next())
        rights.setCodes.insert(rows.Text(0));
    return rights;
}

RightsService::Rights RightsService::RightsOf(std::int64_t nAccountId)
{
    std::uint64_t nReloads = 0;
    {
        const std::lock_guard lock(m_mutex);
        nReloads = m_nReloads;
        if (const auto it = m_mapRights.find(nAccountId); it != m_mapRights.end())
            return it->second;
    }
    auto pRights = std::make_shared<const AccountRights>(
        m_pool.Read([nAccountId](Database& database) { return Read(database, nAccountId); }));
    const std::lock_guard lock(m_mutex);
    // What was read before a change is not kept for after it.
    if (nReloads == m_nReloads)
        m_mapRights.emplace(nAccountId, pRights);
    return pRights;
}

std::vector<UserLogical::MenuRight_t> RightsService::MenuOf(const std::set<std::string>& rights)
{
    return m_pool.Read([&rights](Database& database) {
        std::vector<UserLogical::MenuRight_t> vecMenu;
        Rows rows = database.Run(
            QStringLiteral("SELECT code, widget_name, entry_id FROM menu_entry ORDER BY entry_id"));
        while (rows.Next())
            if (rights.count(rows.Text(0)) != 0)
                vecMenu.push_back({rows.Text(0), rows.Text(1), static_cast<unsigned int>(rows.Int(2))});
        return vecMenu;
    });
}

void RightsService::Reload()
{
    std::map<std::int64_t, Rights> mapOld;
    {
        const std::lock_guard lock(m_mutex);
        ++m_nReloads;
        mapOld.swap(m_mapRights);
    }
    for (const auto& [nAccountId, pOld] : mapOld) {
        const Rights pNew = RightsOf(nAccountId);
        if (pNew->setCodes != pOld->setCodes || pNew->TypeText() != pOld->TypeText())
            m_hub.PublishTo(nAccountId, wire::event::RightsChanged);
        if (pNew->scope.Key() != pOld->scope.Key() || pNew->scope.IsAll() != pOld->scope.IsAll()) {
            m_hub.PublishTo(nAccountId, wire::event::OrganizationsChanged);
            m_hub.PublishTo(nAccountId, wire::event::DevicesChanged);
        }
    }
}

void RightsService::ScopeChanged(std::int64_t nRoleId)
{
    const std::vector<std::int64_t> vecAccounts = m_pool.Read([nRoleId](Database& database) {
        std::vector<std::int64_t> vecIds;
        Rows rows = database.Run(
            QStringLiteral("SELECT DISTINCT account_id FROM account_role WHERE role_id = ? OR 0 = ?"),
            {static_cast<qlonglong>(nRoleId), static_cast<qlonglong>(nRoleId)});
        while (rows.Next())
            vecIds.push_back(rows.Big(0));
        return vecIds;
    });
    for (const std::int64_t nAccountId : vecAccounts) {
        m_hub.PublishTo(nAccountId, wire::event::OrganizationsChanged);
        m_hub.PublishTo(nAccountId, wire::event::DevicesChanged);
    }
}

} // namespace Platform

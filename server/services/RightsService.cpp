#include "RightsService.h"

#include "ServiceError.h"

#include <wire/Operations.h>

namespace Platform {

RightsService::RightsService(DatabasePool& pool, EventHub& hub)
    : m_pool(pool)
    , m_hub(hub)
{
}

RightsService::Rights RightsService::ReadRights(std::int64_t nAccountId)
{
    return m_pool.Read([nAccountId](Database& database) -> Rights {
        auto pRights = std::make_shared<std::set<std::string>>();
        Rows rows = database.Run(
            QStringLiteral(
                "SELECT rr.code FROM account_role ar JOIN role_right rr ON rr.role_id = ar.role_id "
                "WHERE ar.account_id = ? UNION SELECT c.code FROM right_code c WHERE EXISTS "
                "(SELECT 1 FROM account_role ar JOIN role r ON r.id = ar.role_id "
                "WHERE ar.account_id = ? AND r.has_all_rights = 1)"),
            {static_cast<qlonglong>(nAccountId), static_cast<qlonglong>(nAccountId)});
        while (rows.Next())
            pRights->insert(rows.Text(0));
        return pRights;
    });
}

RightsService::Rights RightsService::RightsOf(std::int64_t nAccountId)
{
    {
        const std::lock_guard lock(m_mutex);
        if (const auto it = m_mapRights.find(nAccountId); it != m_mapRights.end())
            return it->second;
    }
    Rights pRights = ReadRights(nAccountId);
    const std::lock_guard lock(m_mutex);
    return m_mapRights.emplace(nAccountId, std::move(pRights)).first->second;
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

void RightsService::SetRoleRights(std::int64_t nRoleId, const std::vector<std::string>& vecCodes)
{
    m_pool.Write([nRoleId, &vecCodes](Database& database) {
        const QVariant role = static_cast<qlonglong>(nRoleId);
        {
            Rows rows = database.Run(QStringLiteral("SELECT has_all_rights FROM role WHERE id = ?"), {role});
            if (!rows.Next())
                throw ServiceError(UICommonMdl::ErrorNotFound);
            if (rows.Int(0) != 0)
                throw ServiceError(UICommonMdl::ErrorInvalidInput, "The role has every right");
        }
        database.Run(QStringLiteral("DELETE FROM role_right WHERE role_id = ?"), {role});
        for (const std::string& sCode : std::set<std::string>(vecCodes.begin(), vecCodes.end())) {
            const int nAdded =
                database
                    .Run(QStringLiteral("INSERT INTO role_right (role_id, code) "
                                        "SELECT CAST(? AS BIGINT), code FROM right_code WHERE code = ?"),
                        {role, TextValue(sCode)})
                    .Affected();
            if (nAdded != 1)
                throw ServiceError(UICommonMdl::ErrorInvalidInput, "Unknown right " + sCode);
        }
    });
    Reload();
}

void RightsService::Reload()
{
    std::map<std::int64_t, Rights> mapKnown;
    {
        const std::lock_guard lock(m_mutex);
        mapKnown = m_mapRights;
    }
    for (const auto& [nAccountId, pOld] : mapKnown) {
        Rights pNew = ReadRights(nAccountId);
        if (*pNew == *pOld)
            continue;
        {
            const std::lock_guard lock(m_mutex);
            m_mapRights[nAccountId] = std::move(pNew);
        }
        m_hub.PublishTo(nAccountId, wire::event::RightsChanged);
    }
}

} // namespace Platform

#include "RoleGrants.h"

#include "services/DeviceRecords.h"

namespace Platform::RoleGrants {

namespace {

bool AnyAutomatic(Database& database)
{
    Rows rows = database.Run(QStringLiteral("SELECT 1 FROM role_org WHERE auto_pass = 1 LIMIT 1"));
    return rows.Next();
}

#define GRANT_DEVICES                                                                                        \
    "INSERT INTO role_device (role_id, device_id, whole) SELECT DISTINCT ro.role_id, d.id, 1 "               \
    "FROM device d JOIN role_org ro ON ro.org_code = d.org_code AND ro.auto_pass = 1 WHERE "
#define GRANT_END " ON CONFLICT (role_id, device_id) DO NOTHING"

} // namespace

void DevicesArrived(Database& database, const std::vector<std::string>& vecDeviceIds)
{
    if (!AnyAutomatic(database))
        return;
    for (const std::string& sDeviceId : vecDeviceIds)
        database.Run(QStringLiteral(GRANT_DEVICES "d.id = ?" GRANT_END),
            {DeviceRecords::NumberOf(sDeviceId).value_or(0)});
}

void OrganizationArrived(Database& database, const std::string& sCode, const std::string& sParentCode)
{
    if (!AnyAutomatic(database))
        return;
    const QVariant code = TextValue(sCode);
    database.Run(
        QStringLiteral("INSERT INTO role_org (role_id, org_code, auto_pass) "
                       "SELECT ro.role_id, below.code, 1 FROM role_org ro, organization_ancestor below "
                       "WHERE ro.org_code = ? AND ro.auto_pass = 1 AND below.ancestor = ? "
                       "ON CONFLICT (role_id, org_code) DO UPDATE SET auto_pass = 1"),
        {TextValue(sParentCode), code});
    database.Run(QStringLiteral(GRANT_DEVICES
                     "d.org_code IN (SELECT code FROM organization_ancestor WHERE ancestor = ?)" GRANT_END),
        {code});
}

} // namespace Platform::RoleGrants

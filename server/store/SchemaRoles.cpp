#include "SchemaStep.h"

namespace Platform {

namespace {

QStringList NewColumns()
{
    QStringList listColumns;
    for (const char* szText : {"email", "remark", "domain_dn"})
        listColumns << QStringLiteral("ALTER TABLE account ADD COLUMN %1 TEXT NOT NULL DEFAULT ''")
                           .arg(QLatin1String(szText));
    // Accounts of before could be signed in on several clients, and still can.
    const std::initializer_list<std::pair<const char*, int>> numbers{{"multi_login", 1}, {"force_change", 0},
        {"password_days", 0}, {"password_changed", 0}, {"expires_at", 0}, {"ptz_level", 1}, {"bind_mac", 0},
        {"user_type", 1}, {"lock_state", 1}, {"version", 1}};
    for (const auto& [szName, nDefault] : numbers)
        listColumns << QStringLiteral("ALTER TABLE account ADD COLUMN %1 BIGINT NOT NULL DEFAULT %2")
                           .arg(QLatin1String(szName))
                           .arg(nDefault);
    listColumns << QStringLiteral("ALTER TABLE role ADD COLUMN remark TEXT NOT NULL DEFAULT ''")
                << QStringLiteral("ALTER TABLE role ADD COLUMN version BIGINT NOT NULL DEFAULT 1")
                << QStringLiteral("ALTER TABLE right_code ADD COLUMN name TEXT NOT NULL DEFAULT ''")
                << QStringLiteral("ALTER TABLE access_record ADD COLUMN device_id BIGINT NOT NULL DEFAULT 0");
    return listColumns;
}

} // namespace

Migration RolesAndScopes(bool bPostgres)
{
    using S = SchemaStatement;
    Migration migration = SchemaStep(5, "roles and what they reach", bPostgres,
        {
            {S::Both, "UPDATE account SET ptz_level = 10 WHERE id = 1"},
            {S::Both, "INSERT INTO counter (name, value) VALUES ('account', 1000), ('role', 1000)"},
            {S::Both,
                "CREATE TABLE account_mac (account_id BIGINT NOT NULL REFERENCES account (id) ON DELETE "
                "CASCADE, place INTEGER NOT NULL, mac {key} NOT NULL, PRIMARY KEY (account_id, place))"},
            {S::Both, "CREATE INDEX account_role_role ON account_role (role_id)"},
            {S::Both, "CREATE INDEX session_account ON session (account_id)"},
            // Organisations that a role reaches; auto_pass: it gets the devices that are added below later.
            {S::Both,
                "CREATE TABLE role_org (role_id BIGINT NOT NULL REFERENCES role (id) ON DELETE CASCADE, "
                "org_code {key} NOT NULL REFERENCES organization (code) ON DELETE CASCADE, "
                "auto_pass INTEGER NOT NULL DEFAULT 0, PRIMARY KEY (role_id, org_code))"},
            {S::Both, "CREATE INDEX role_org_code ON role_org (org_code, role_id)"},
            // whole: every channel, those that come later too; else those of role_channel.
            {S::Both,
                "CREATE TABLE role_device (role_id BIGINT NOT NULL REFERENCES role (id) ON DELETE CASCADE, "
                "device_id BIGINT NOT NULL REFERENCES device (id) ON DELETE CASCADE, "
                "whole INTEGER NOT NULL, PRIMARY KEY (role_id, device_id))"},
            {S::Both, "CREATE INDEX role_device_device ON role_device (device_id, role_id)"},
            {S::Both,
                "CREATE TABLE role_channel (role_id BIGINT NOT NULL, device_id BIGINT NOT NULL, "
                "kind INTEGER NOT NULL, number INTEGER NOT NULL, "
                "PRIMARY KEY (role_id, device_id, kind, number), "
                "FOREIGN KEY (role_id, device_id) REFERENCES role_device (role_id, device_id) ON DELETE "
                "CASCADE)"},
            {S::Both,
                "INSERT INTO right_code (code) VALUES ('001'), ('002'), ('003'), ('004'), ('001002001'), "
                "('001002002'), ('001002003'), ('004001'), ('004002'), ('004003')"},
            {S::Both,
                "UPDATE right_code SET name = CASE code "
                "WHEN '001' THEN 'Basic Configuration' WHEN '001001' THEN 'Device' "
                "WHEN '001001001' THEN 'Add Device' WHEN '001001002' THEN 'Device Configuration' "
                "WHEN '001002' THEN 'User' WHEN '001002001' THEN 'User Management' "
                "WHEN '001002002' THEN 'Role Management' WHEN '001002003' THEN 'Audit Log' "
                "WHEN '001003' THEN 'Storage' WHEN '002' THEN 'Applications' WHEN '002001' THEN 'Event' "
                "WHEN '002002' THEN 'Map' WHEN '002003' THEN 'Person and Vehicle Info' "
                "WHEN '002003001' THEN 'Person' WHEN '002003002' THEN 'Vehicle' "
                "WHEN '002004' THEN 'Watch List' WHEN '002005' THEN 'Access Control' "
                "WHEN '002006' THEN 'Video Intercom' WHEN '002007' THEN 'Attendance' "
                "WHEN '002008' THEN 'Visitor' WHEN '002009' THEN 'Entrance and Exit' WHEN '003' THEN "
                "'System' "
                "WHEN '003001' THEN 'System Deployment' WHEN '003003' THEN 'System Parameters' "
                "WHEN '003004' THEN 'Backup and Restore' WHEN '004' THEN 'All' "
                "WHEN '004001' THEN 'Privacy Masking' WHEN '004002' THEN 'Export Devices' "
                "WHEN '004003' THEN 'Export Audit Log' ELSE code END"},
            // Who had a page may use what stands behind it now, and keeps what he could see.
            {S::Both,
                "INSERT INTO role_right (role_id, code) SELECT r.role_id, c.code FROM role_right r, "
                "right_code c WHERE r.code = '001002' AND c.code IN ('001002001', '001002002', '001002003')"},
            {S::Both,
                "INSERT INTO role_right (role_id, code) SELECT role_id, '004002' FROM role_right "
                "WHERE code = '001001001'"},
            {S::Both,
                "INSERT INTO role_right (role_id, code) SELECT DISTINCT role_id, SUBSTR(code, 1, 3) "
                "FROM role_right WHERE LENGTH(code) > 3"},
            {S::Both,
                "INSERT INTO role_org (role_id, org_code, auto_pass) SELECT r.id, o.code, 1 "
                "FROM role r, organization o WHERE r.has_all_rights = 0"},
            {S::Both,
                "INSERT INTO role_device (role_id, device_id, whole) SELECT r.id, d.id, 1 "
                "FROM role r, device d WHERE r.has_all_rights = 0"},
        });
    migration.listStatements = NewColumns() + migration.listStatements;
    return migration;
}

} // namespace Platform

#include "SchemaStep.h"

namespace Platform {

namespace {

Migration Accounts(bool bPostgres)
{
    using S = SchemaStatement;
    return SchemaStep(1, "accounts", bPostgres,
        {
            {S::Both, "CREATE TABLE counter (name {key} PRIMARY KEY, value BIGINT NOT NULL)"},
            {S::Both,
                "CREATE TABLE account (id {id}, name TEXT NOT NULL, name_key {key} NOT NULL UNIQUE, "
                "password_hash TEXT, failed_count INTEGER NOT NULL DEFAULT 0, "
                "locked_until BIGINT NOT NULL DEFAULT 0)"},
            {S::Both,
                "CREATE TABLE role (id {id}, name TEXT NOT NULL, name_key {key} NOT NULL UNIQUE, "
                "has_all_rights INTEGER NOT NULL DEFAULT 0)"},
            {S::Both,
                "CREATE TABLE account_role (account_id BIGINT NOT NULL REFERENCES account (id) ON DELETE "
                "CASCADE, "
                "role_id BIGINT NOT NULL REFERENCES role (id) ON DELETE CASCADE, "
                "PRIMARY KEY (account_id, role_id))"},
            {S::Both, "CREATE TABLE right_code (code {key} PRIMARY KEY)"},
            {S::Both,
                "CREATE TABLE role_right (role_id BIGINT NOT NULL REFERENCES role (id) ON DELETE CASCADE, "
                "code {key} NOT NULL REFERENCES right_code (code), PRIMARY KEY (role_id, code))"},
            {S::Both,
                "CREATE TABLE menu_entry (entry_id INTEGER PRIMARY KEY, "
                "code {key} NOT NULL REFERENCES right_code (code), widget_name TEXT NOT NULL)"},
            {S::Both,
                "CREATE TABLE session (token_hash {key} PRIMARY KEY, "
                "account_id BIGINT NOT NULL REFERENCES account (id) ON DELETE CASCADE, "
                "client_address TEXT NOT NULL, created_at BIGINT NOT NULL, expires_at BIGINT NOT NULL)"},
            {S::Both, "CREATE INDEX session_expiry ON session (expires_at)"},
            {S::Both,
                "CREATE TABLE audit_log (id {serial}, at BIGINT NOT NULL, account_name TEXT NOT NULL, "
                "client_address TEXT NOT NULL, operation {key} NOT NULL, object_id {key} NOT NULL, "
                "before_json TEXT NOT NULL, after_json TEXT NOT NULL)"},
            {S::Both, "CREATE INDEX audit_log_at ON audit_log (at)"},
            {S::Both, "CREATE INDEX audit_log_object ON audit_log (object_id, at)"},
            {S::Both,
                "INSERT INTO right_code (code) VALUES ('001001'), ('001001001'), ('001001002'), ('001002'), "
                "('001003'), ('002001'), ('002002'), ('002003'), ('002004'), ('002005'), ('002006'), "
                "('002007'), ('002008'), ('002009'), ('003001'), ('003003'), ('003004')"},
            {S::Both,
                "INSERT INTO menu_entry (entry_id, code, widget_name) VALUES "
                "(0, '001001', 'ResourceManagerWidget'), (1, '001002', 'UserManagerWidget'), "
                "(2, '001003', 'StorageManagerWidget'), (4, '003001', 'ServiceManageWidget'), "
                "(6, '003003', 'SystemConfigWidget'), (7, '003004', 'BackupRestoreWidget'), "
                "(9, '002001', 'EventConfigWidget'), (10, '002002', 'EmapConfigUI'), "
                "(11, '002003', 'BasicInfoManagerUI'), (12, '002004', 'CArmLibWidget'), "
                "(13, '002005', 'ACSManagerWidget'), (14, '002006', 'VideoIntercomConfigWidget'), "
                "(15, '002007', 'AttendanceManagerWidget'), (16, '002008', 'VisitorParamWidget'), "
                "(17, '002009', 'EntranceConfigWidget')"},
            {S::Both, "INSERT INTO account (id, name, name_key) VALUES (1, 'system', 'system')"},
            {S::Both,
                "INSERT INTO role (id, name, name_key, has_all_rights) "
                "VALUES (1, 'Administrator', 'administrator', 1)"},
            {S::Both, "INSERT INTO account_role (account_id, role_id) VALUES (1, 1)"},
        });
}

Migration Devices(bool bPostgres)
{
    using S = SchemaStatement;
    return SchemaStep(2, "organizations and devices", bPostgres,
        {
            {S::Both, "INSERT INTO counter (name, value) VALUES ('organization', 1000), ('device', 1000000)"},
            {S::Both,
                "CREATE TABLE organization (code {key} PRIMARY KEY, parent_code {key} NOT NULL, "
                "name TEXT NOT NULL, name_key {key} NOT NULL, remark TEXT NOT NULL, "
                "sort INTEGER NOT NULL DEFAULT 0, version BIGINT NOT NULL DEFAULT 1)"},
            {S::Both, "CREATE UNIQUE INDEX organization_sibling ON organization (parent_code, name_key)"},
            // Every organisation is its own ancestor at the distance 0.
            {S::Both,
                "CREATE TABLE organization_ancestor (ancestor {key} NOT NULL, code {key} NOT NULL, "
                "distance INTEGER NOT NULL, PRIMARY KEY (ancestor, code))"},
            {S::Both, "CREATE INDEX organization_ancestor_code ON organization_ancestor (code, distance)"},
            {S::Both,
                "INSERT INTO organization (code, parent_code, name, name_key, remark) "
                "VALUES ('001', '', 'Root', 'root', '')"},
            {S::Both,
                "INSERT INTO organization_ancestor (ancestor, code, distance) VALUES ('001', '001', 0)"},
            {S::Both,
                "CREATE TABLE device (id {id}, name TEXT NOT NULL, name_key {key} NOT NULL, "
                "address TEXT NOT NULL, address_key {key} NOT NULL, port INTEGER NOT NULL, "
                "search_key {key} NOT NULL, category INTEGER NOT NULL, model TEXT NOT NULL, "
                "org_code {key} NOT NULL REFERENCES organization (code), manufacturer TEXT NOT NULL, "
                "protocol TEXT NOT NULL, access_direction INTEGER NOT NULL DEFAULT 0, "
                "serial_number TEXT NOT NULL DEFAULT '', user_name TEXT NOT NULL DEFAULT '', "
                "remark TEXT NOT NULL DEFAULT '', video_channels INTEGER NOT NULL DEFAULT 0, "
                "alarm_inputs INTEGER NOT NULL DEFAULT 0, alarm_outputs INTEGER NOT NULL DEFAULT 0, "
                "online_state INTEGER NOT NULL DEFAULT 0, offline_reason INTEGER NOT NULL DEFAULT 1, "
                "version BIGINT NOT NULL DEFAULT 1)"},
            // The filters' columns follow the sort key, so that a page is read off the index alone.
            {S::Both,
                "CREATE INDEX device_by_address ON device (address_key, id, category, org_code, "
                "online_state)"},
            {S::Both,
                "CREATE INDEX device_by_name ON device (name_key, id, category, org_code, online_state)"},
            {S::Both, "CREATE INDEX device_by_organization ON device (org_code, category, online_state)"},
            {S::Both, "CREATE INDEX device_by_category ON device (category, online_state)"},
            {S::Both,
                "CREATE TABLE device_reference (device_id BIGINT NOT NULL REFERENCES device (id) ON DELETE "
                "CASCADE, "
                "kind INTEGER NOT NULL, name {key} NOT NULL, PRIMARY KEY (device_id, kind, name))"},
            {S::Both,
                "CREATE TABLE device_task (device_id BIGINT NOT NULL REFERENCES device (id) ON DELETE "
                "CASCADE, "
                "kind INTEGER NOT NULL, PRIMARY KEY (device_id, kind))"},
            {S::SqliteOnly,
                "CREATE VIRTUAL TABLE device_search USING fts5 (search_key, content = 'device', "
                "content_rowid = 'id', tokenize = 'trigram case_sensitive 1')"},
            {S::SqliteOnly,
                "CREATE TRIGGER device_search_insert AFTER INSERT ON device BEGIN "
                "INSERT INTO device_search (rowid, search_key) VALUES (new.id, new.search_key); END"},
            {S::SqliteOnly,
                "CREATE TRIGGER device_search_delete AFTER DELETE ON device BEGIN "
                "INSERT INTO device_search (device_search, rowid, search_key) "
                "VALUES ('delete', old.id, old.search_key); END"},
            {S::SqliteOnly,
                "CREATE TRIGGER device_search_update AFTER UPDATE OF search_key ON device BEGIN "
                "INSERT INTO device_search (device_search, rowid, search_key) "
                "VALUES ('delete', old.id, old.search_key); "
                "INSERT INTO device_search (rowid, search_key) VALUES (new.id, new.search_key); END"},
            {S::PostgresOnly, "CREATE EXTENSION IF NOT EXISTS pg_trgm"},
            {S::PostgresOnly, "CREATE INDEX device_search ON device USING gin (search_key gin_trgm_ops)"},
        });
}

Migration DeviceLogins(bool bPostgres)
{
    using S = SchemaStatement;
    Migration migration = SchemaStep(3, "logins and channels of devices", bPostgres,
        {
            // Devices of before are reached as their address says.
            {S::Both,
                "UPDATE device SET add_mode = CASE WHEN address = '' THEN 4 "
                "WHEN address_key LIKE 'h%' THEN 3 ELSE 1 END"},
            {S::Both, "CREATE INDEX device_by_serial ON device (serial_number) WHERE add_mode = 5"},
            {S::Both, "CREATE INDEX device_by_register ON device (register_id) WHERE register_id <> ''"},
        });
    QStringList listColumns;
    for (const char* szText : {"register_id", "device_type", "series", "server_id", "sip_id",
             "password_sealed", "sip_password_sealed"})
        listColumns << QStringLiteral("ALTER TABLE device ADD COLUMN %1 TEXT NOT NULL DEFAULT ''")
                           .arg(QLatin1String(szText));
    for (const char* szNumber : {"add_mode", "led_type", "access_channels", "decode_channels", "lifts",
             "lift_floors", "pos_channels", "combine"})
        listColumns << QStringLiteral("ALTER TABLE device ADD COLUMN %1 INTEGER NOT NULL DEFAULT 0")
                           .arg(QLatin1String(szNumber));
    migration.listStatements = listColumns + migration.listStatements;
    return migration;
}

Migration Persons(bool bPostgres)
{
    using S = SchemaStatement;
    return SchemaStep(4, "persons", bPostgres,
        {
            {S::Both, "INSERT INTO right_code (code) VALUES ('002003001'), ('002003002')"},
            // Who might open the entry may use what stands behind it.
            {S::Both,
                "INSERT INTO role_right (role_id, code) SELECT r.role_id, c.code FROM role_right r, "
                "right_code c "
                "WHERE r.code = '002003' AND c.code IN ('002003001', '002003002')"},
            {S::Both, "INSERT INTO counter (name, value) VALUES ('person group', 1000), ('fingerprint', 0)"},
            {S::Both,
                "CREATE TABLE person_group (code {key} PRIMARY KEY, parent_code {key} NOT NULL, "
                "name TEXT NOT NULL, name_key {key} NOT NULL, remark TEXT NOT NULL, "
                "version BIGINT NOT NULL DEFAULT 1)"},
            {S::Both, "CREATE UNIQUE INDEX person_group_sibling ON person_group (parent_code, name_key)"},
            {S::Both,
                "CREATE TABLE person_group_ancestor (ancestor {key} NOT NULL, code {key} NOT NULL, "
                "distance INTEGER NOT NULL, PRIMARY KEY (ancestor, code))"},
            {S::Both, "CREATE INDEX person_group_ancestor_code ON person_group_ancestor (code, distance)"},
            {S::Both,
                "INSERT INTO person_group (code, parent_code, name, name_key, remark) "
                "VALUES ('001', '', 'All Persons', 'all persons', '')"},
            {S::Both,
                "INSERT INTO person_group_ancestor (ancestor, code, distance) VALUES ('001', '001', 0)"},
            // The ID of a person is the number of its row. plates: as in person_plate, for the list.
            {S::Both,
                "CREATE TABLE person (id {id}, name TEXT NOT NULL, gender INTEGER NOT NULL, "
                "group_code {key} NOT NULL REFERENCES person_group (code), telephone TEXT NOT NULL, "
                "email TEXT NOT NULL, remark TEXT NOT NULL, photo TEXT NOT NULL DEFAULT '', "
                "valid_from BIGINT NOT NULL, valid_to BIGINT NOT NULL, nickname TEXT NOT NULL, "
                "birthday TEXT NOT NULL, entry_date TEXT NOT NULL, company TEXT NOT NULL, "
                "position TEXT NOT NULL, unlock_password_sealed TEXT NOT NULL DEFAULT '', "
                "person_type INTEGER NOT NULL, extend_time INTEGER NOT NULL, card_times INTEGER NOT NULL, "
                "device_login INTEGER NOT NULL, room_no TEXT NOT NULL, plates TEXT NOT NULL, "
                "search_key {key} NOT NULL, version BIGINT NOT NULL DEFAULT 1)"},
            {S::Both, "CREATE INDEX person_by_group ON person (group_code, id)"},
            {S::Both, "CREATE INDEX person_walk ON person (id, group_code)"},
            {S::Both, "CREATE INDEX person_photo ON person (photo) WHERE photo <> ''"},
            {S::Both,
                "CREATE TABLE person_card (card_no {key} PRIMARY KEY, "
                "person_id BIGINT NOT NULL REFERENCES person (id) ON DELETE CASCADE, "
                "place INTEGER NOT NULL, main INTEGER NOT NULL, duress INTEGER NOT NULL, "
                "locked INTEGER NOT NULL)"},
            {S::Both, "CREATE INDEX person_card_person ON person_card (person_id, place)"},
            {S::Both,
                "CREATE TABLE person_fingerprint (id {id}, "
                "person_id BIGINT NOT NULL REFERENCES person (id) ON DELETE CASCADE, "
                "place INTEGER NOT NULL, name TEXT NOT NULL, duress INTEGER NOT NULL, "
                "template_sealed TEXT NOT NULL)"},
            {S::Both, "CREATE INDEX person_fingerprint_person ON person_fingerprint (person_id, place)"},
            {S::Both,
                "CREATE TABLE person_plate (plate_key {key} PRIMARY KEY, plate TEXT NOT NULL, "
                "person_id BIGINT NOT NULL REFERENCES person (id) ON DELETE CASCADE, "
                "place INTEGER NOT NULL)"},
            {S::Both, "CREATE INDEX person_plate_person ON person_plate (person_id, place)"},
            {S::Both, "CREATE TABLE access_group (id {id}, name TEXT NOT NULL)"},
            {S::Both,
                "CREATE TABLE access_group_door (group_id BIGINT NOT NULL REFERENCES access_group (id) "
                "ON DELETE CASCADE, device_id BIGINT NOT NULL REFERENCES device (id) ON DELETE CASCADE, "
                "channel INTEGER NOT NULL, channel_name TEXT NOT NULL, "
                "PRIMARY KEY (group_id, device_id, channel))"},
            {S::Both, "CREATE INDEX access_group_door_device ON access_group_door (device_id)"},
            {S::Both, "CREATE TABLE face_group (id {id}, name TEXT NOT NULL)"},
            {S::Both,
                "CREATE TABLE lift_floor (id {id}, device_id BIGINT NOT NULL REFERENCES device (id) "
                "ON DELETE CASCADE, channel_name TEXT NOT NULL, floor TEXT NOT NULL)"},
            {S::Both, "CREATE INDEX lift_floor_device ON lift_floor (device_id)"},
            {S::Both,
                "CREATE TABLE person_access_group (person_id BIGINT NOT NULL REFERENCES person (id) "
                "ON DELETE CASCADE, choice_id BIGINT NOT NULL REFERENCES access_group (id) ON DELETE "
                "CASCADE, "
                "PRIMARY KEY (person_id, choice_id))"},
            {S::Both,
                "CREATE TABLE person_face_group (person_id BIGINT NOT NULL REFERENCES person (id) "
                "ON DELETE CASCADE, choice_id BIGINT NOT NULL REFERENCES face_group (id) ON DELETE CASCADE, "
                "PRIMARY KEY (person_id, choice_id))"},
            {S::Both,
                "CREATE TABLE person_lift_floor (person_id BIGINT NOT NULL REFERENCES person (id) "
                "ON DELETE CASCADE, choice_id BIGINT NOT NULL REFERENCES lift_floor (id) ON DELETE CASCADE, "
                "PRIMARY KEY (person_id, choice_id))"},
            {S::Both, "CREATE TABLE room (number {key} PRIMARY KEY)"},
            {S::Both,
                "CREATE TABLE access_record (id {serial}, person_id BIGINT NOT NULL, at BIGINT NOT NULL, "
                "device_name TEXT NOT NULL, channel_name TEXT NOT NULL, credential INTEGER NOT NULL, "
                "card_no TEXT NOT NULL, entry INTEGER NOT NULL, opened INTEGER NOT NULL)"},
            {S::Both, "CREATE INDEX access_record_person ON access_record (person_id, at)"},
            // What has to reach a device. It outlives the person, whose rights are then taken away there.
            {S::Both,
                "CREATE TABLE person_authorization (person_id BIGINT NOT NULL, "
                "device_id BIGINT NOT NULL REFERENCES device (id) ON DELETE CASCADE, "
                "removal INTEGER NOT NULL, state INTEGER NOT NULL, revision BIGINT NOT NULL, "
                "error_code INTEGER NOT NULL DEFAULT 0, refusals TEXT NOT NULL DEFAULT '', "
                "PRIMARY KEY (person_id, device_id))"},
            {S::Both, "CREATE INDEX person_authorization_state ON person_authorization (state, device_id)"},
            {S::Both, "CREATE INDEX person_authorization_device ON person_authorization (device_id, state)"},
            {S::SqliteOnly,
                "CREATE VIRTUAL TABLE person_search USING fts5 (search_key, content = 'person', "
                "content_rowid = 'id', tokenize = 'trigram case_sensitive 1')"},
            {S::SqliteOnly,
                "CREATE TRIGGER person_search_insert AFTER INSERT ON person BEGIN "
                "INSERT INTO person_search (rowid, search_key) VALUES (new.id, new.search_key); END"},
            {S::SqliteOnly,
                "CREATE TRIGGER person_search_delete AFTER DELETE ON person BEGIN "
                "INSERT INTO person_search (person_search, rowid, search_key) "
                "VALUES ('delete', old.id, old.search_key); END"},
            {S::SqliteOnly,
                "CREATE TRIGGER person_search_update AFTER UPDATE OF search_key ON person "
                "WHEN old.search_key <> new.search_key BEGIN "
                "INSERT INTO person_search (person_search, rowid, search_key) "
                "VALUES ('delete', old.id, old.search_key); "
                "INSERT INTO person_search (rowid, search_key) VALUES (new.id, new.search_key); END"},
            {S::PostgresOnly, "CREATE INDEX person_search ON person USING gin (search_key gin_trgm_ops)"},
        });
}

} // namespace

std::vector<Migration> Migrations(bool bPostgres)
{
    return {Accounts(bPostgres), Devices(bPostgres), DeviceLogins(bPostgres), Persons(bPostgres),
        RolesAndScopes(bPostgres)};
}

} // namespace Platform

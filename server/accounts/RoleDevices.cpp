#include "RoleDevices.h"

#include "Channels.h"
#include "ServiceError.h"
#include "services/DeviceRecords.h"

#include <GroupLogical/ChannelCounts.h>
#include <QStringList>

#include <algorithm>
#include <map>
#include <tuple>

namespace Platform {

using namespace UserLogical;

namespace {

std::int64_t DeviceNumber(const DeviceRightChange_t& change)
{
    const auto optId = DeviceRecords::NumberOf(change.sId);
    if (!optId)
        throw ServiceError(UICommonMdl::ErrorNotFound, change.sId);
    return *optId;
}

/// "CASE kind WHEN 1 THEN d.video_channels …": how many channels of a kind a device has.
QString ChannelCount(const QString& sKind)
{
    QString sCase = QLatin1String("CASE ") + sKind;
    for (const ChannelColumn& column : ChannelColumns)
        sCase += QStringLiteral(" WHEN %1 THEN d.%2").arg(column.nKind).arg(QLatin1String(column.szColumn));
    return sCase + QLatin1String(" ELSE 0 END");
}

constexpr const char* SubTree = "(SELECT code FROM organization_ancestor WHERE ancestor = ?)";

} // namespace

RoleDevices::RoleDevices(Database& database, const DeviceScope& scope, std::int64_t nRoleId)
    : m_database(database)
    , m_scope(scope)
    , m_nRoleId(nRoleId)
{
}

int RoleDevices::CountDevices(Database& database, std::int64_t nRoleId)
{
    Rows rows = database.Run(QStringLiteral("SELECT COUNT(*) FROM role_device WHERE role_id = ?"),
        {static_cast<qlonglong>(nRoleId)});
    rows.Next();
    return rows.Int(0);
}

int RoleDevices::Run(const char* szSql, const char* szIdColumn, QVariantList values)
{
    QString sSql = QString::fromLatin1(szSql);
    // The values of the condition come last, so that it stands at the end of its statement.
    if (sSql.contains(QLatin1String("{reached}")))
        sSql.replace(QLatin1String("{reached}"), m_scope.AndDevice(QLatin1String(szIdColumn), values));
    return m_database.Run(sSql, values).Affected();
}

void RoleDevices::CopyFrom(std::int64_t nRoleId)
{
    const QVariant own = static_cast<qlonglong>(m_nRoleId);
    const QVariant source = static_cast<qlonglong>(nRoleId);
    bool bEverything = false;
    {
        Rows rows = m_database.Run(QStringLiteral("SELECT has_all_rights FROM role WHERE id = ?"), {source});
        if (!rows.Next())
            throw ServiceError(UICommonMdl::ErrorNotFound, "sCopyFrom");
        bEverything = rows.Int(0) != 0;
    }
    ApplyOrganization({DeviceNodeOrganization, "001", 0, 0, Change::Off, Change::Off});
    if (bEverything) {
        ApplyOrganization({DeviceNodeOrganization, "001", 0, 0, Change::On, Change::On});
        return;
    }
    QVariantList values{own, source};
    QString sOrganizations = QStringLiteral("INSERT INTO role_org (role_id, org_code, auto_pass) "
                                            "SELECT CAST(? AS BIGINT), so.org_code, so.auto_pass "
                                            "FROM role_org so WHERE so.role_id = ?");
    if (!m_scope.IsAll())
        sOrganizations +=
            QLatin1String(" AND ") + m_scope.OwnOrganizationTerm(QStringLiteral("so.org_code"), values);
    m_database.Run(sOrganizations + QLatin1String(" ON CONFLICT (role_id, org_code) DO NOTHING"), values);
    Run("INSERT INTO role_device (role_id, device_id, whole) SELECT CAST(? AS BIGINT), s.device_id, s.whole "
        "FROM role_device s WHERE s.role_id = ?{reached} ON CONFLICT (role_id, device_id) DO NOTHING",
        "s.device_id", {own, source});
    Run("INSERT INTO role_channel (role_id, device_id, kind, number) "
        "SELECT CAST(? AS BIGINT), s.device_id, s.kind, s.number FROM role_channel s WHERE s.role_id = "
        "?{reached} ON CONFLICT (role_id, device_id, kind, number) DO NOTHING",
        "s.device_id", {own, source});
}

void RoleDevices::Apply(const std::vector<Change>& vecChanges)
{
    std::vector<std::pair<int, const Change*>> vecOrganizations;
    // One change a node: the last one holds.
    std::map<std::string, const Change*> mapDevices;
    std::map<std::tuple<std::string, int, int>, const Change*> mapChannels;
    for (const Change& change : vecChanges) {
        switch (change.nKind) {
        case DeviceNodeOrganization: {
            m_scope.CheckOrganization(m_database, change.sId);
            Rows rows = m_database.Run(
                QStringLiteral("SELECT MAX(distance) FROM organization_ancestor WHERE code = ?"),
                {TextValue(change.sId)});
            if (!rows.Next() || rows.IsNull(0))
                throw ServiceError(UICommonMdl::ErrorNotFound, change.sId);
            vecOrganizations.emplace_back(rows.Int(0), &change);
            break;
        }
        case DeviceNodeDevice:
            mapDevices[change.sId] = &change;
            break;
        case DeviceNodeChannel:
            mapChannels[{change.sId, change.nChannelKind, change.nChannel}] = &change;
            break;
        default:
            throw ServiceError(UICommonMdl::ErrorInvalidInput, "nKind");
        }
    }
    std::stable_sort(vecOrganizations.begin(), vecOrganizations.end(),
        [](const auto& first, const auto& second) { return first.first < second.first; });
    for (const auto& [nLevel, pChange] : vecOrganizations)
        ApplyOrganization(*pChange);
    std::vector<const Change*> vecDevices;
    vecDevices.reserve(mapDevices.size());
    for (const auto& [sId, pChange] : mapDevices)
        vecDevices.push_back(pChange);
    ApplyDevices(vecDevices);
    std::vector<const Change*> vecChannels;
    for (const auto& [key, pChange] : mapChannels) {
        if (pChange->nRight == Change::On)
            vecChannels.push_back(pChange);
        else if (pChange->nRight == Change::Off)
            RemoveChannel(*pChange);
    }
    AddChannels(vecChannels);
}

void RoleDevices::ApplyOrganization(const Change& change)
{
    const QVariant role = static_cast<qlonglong>(m_nRoleId);
    const QVariant code = TextValue(change.sId);
    const auto addOrganizations = [&](int nAuto, const char* szConflict) {
        QVariantList values{role, nAuto, code};
        QString sSql = QStringLiteral("INSERT INTO role_org (role_id, org_code, auto_pass) "
                                      "SELECT CAST(? AS BIGINT), a.code, CAST(? AS INTEGER) "
                                      "FROM organization_ancestor a WHERE a.ancestor = ?");
        if (!m_scope.IsAll())
            sSql += QLatin1String(" AND ") + m_scope.OwnOrganizationTerm(QStringLiteral("a.code"), values);
        m_database.Run(
            sSql + QLatin1String(" ON CONFLICT (role_id, org_code) ") + QLatin1String(szConflict), values);
    };
    if (change.nAuto == Change::Off)
        m_database.Run(QLatin1String("UPDATE role_org SET auto_pass = 0 WHERE role_id = ? AND org_code IN ")
                + QLatin1String(SubTree),
            {role, code});
    if (change.nRight == Change::On) {
        addOrganizations(0, "DO NOTHING");
        Run("DELETE FROM role_channel WHERE role_id = ? AND device_id IN (SELECT d.id FROM device d WHERE "
            "d.org_code IN (SELECT code FROM organization_ancestor WHERE ancestor = ?){reached})",
            "d.id", {role, code});
        Run("INSERT INTO role_device (role_id, device_id, whole) SELECT CAST(? AS BIGINT), d.id, 1 "
            "FROM device d WHERE d.org_code IN (SELECT code FROM organization_ancestor WHERE ancestor = ?)"
            "{reached} ON CONFLICT (role_id, device_id) DO UPDATE SET whole = 1",
            "d.id", {role, code});
    } else if (change.nRight == Change::Off) {
        // An organisation that passes on what is added keeps doing so until that is turned off.
        QVariantList values{role, code};
        QString sSql =
            QLatin1String("DELETE FROM role_org WHERE role_id = ? AND auto_pass = 0 AND org_code IN ")
            + QLatin1String(SubTree);
        if (!m_scope.IsAll())
            sSql += QLatin1String(" AND ") + m_scope.OwnOrganizationTerm(QStringLiteral("org_code"), values);
        m_database.Run(sSql, values);
        Run("DELETE FROM role_device WHERE role_id = ? AND device_id IN (SELECT d.id FROM device d WHERE "
            "d.org_code IN (SELECT code FROM organization_ancestor WHERE ancestor = ?){reached})",
            "d.id", {role, code});
    }
    if (change.nAuto == Change::On)
        addOrganizations(1, "DO UPDATE SET auto_pass = 1");
}

void RoleDevices::ApplyDevices(const std::vector<const Change*>& vecChanges)
{
    std::vector<std::int64_t> vecOn;
    std::vector<std::int64_t> vecOff;
    for (const Change* pChange : vecChanges) {
        if (pChange->nRight == Change::On)
            vecOn.push_back(DeviceNumber(*pChange));
        else if (pChange->nRight == Change::Off)
            vecOff.push_back(DeviceNumber(*pChange));
    }
    RemoveDevices(vecOff);
    AddDevices(vecOn);
}

void RoleDevices::AddDevices(const std::vector<std::int64_t>& vecIds)
{
    if (vecIds.empty())
        return;
    const QVariant role = static_cast<qlonglong>(m_nRoleId);
    // Channels of devices that the role had in part until now.
    QVariantList parts{role};
    m_database.Run(QStringLiteral("DELETE FROM role_channel WHERE role_id = ? AND device_id")
            + m_database.InList(vecIds, parts),
        parts);
    QVariantList values{role};
    QString sSql = QStringLiteral("INSERT INTO role_device (role_id, device_id, whole) "
                                  "SELECT CAST(? AS BIGINT), d.id, 1 FROM device d WHERE d.id")
        + m_database.InList(vecIds, values);
    sSql += m_scope.AndDevice(QStringLiteral("d.id"), values)
        + QLatin1String(" ON CONFLICT (role_id, device_id) DO UPDATE SET whole = 1");
    if (m_database.Run(sSql, values).Affected() != static_cast<int>(vecIds.size()))
        throw ServiceError(UICommonMdl::ErrorNotFound, "vecChanges");
}

void RoleDevices::RemoveDevices(const std::vector<std::int64_t>& vecIds)
{
    if (vecIds.empty())
        return;
    QVariantList values{static_cast<qlonglong>(m_nRoleId)};
    QString sSql = QStringLiteral("DELETE FROM role_device WHERE role_id = ? AND device_id")
        + m_database.InList(vecIds, values);
    m_database.Run(sSql + m_scope.AndDevice(QStringLiteral("role_device.device_id"), values), values);
}

void RoleDevices::AddChannels(const std::vector<const Change*>& vecChanges)
{
    if (vecChanges.empty())
        return;
    std::vector<std::int64_t> vecDevices;
    QStringList listChannels;
    for (const Change* pChange : vecChanges) {
        const std::int64_t nDevice = DeviceNumber(*pChange);
        if (vecDevices.empty() || vecDevices.back() != nDevice)
            vecDevices.push_back(nDevice);
        listChannels
            << QStringLiteral("[%1,%2,%3]").arg(nDevice).arg(pChange->nChannelKind).arg(pChange->nChannel);
    }
    const QVariant role = static_cast<qlonglong>(m_nRoleId);
    QVariantList values{role};
    const QString sDevices = QStringLiteral("INSERT INTO role_device (role_id, device_id, whole) "
                                            "SELECT CAST(? AS BIGINT), d.id, 0 FROM device d WHERE d.id")
        + m_database.InList(vecDevices, values);
    m_database.Run(sDevices + m_scope.AndDevice(QStringLiteral("d.id"), values)
            + QLatin1String(" ON CONFLICT (role_id, device_id) DO NOTHING"),
        values);
    const bool bPostgres = m_database.IsPostgres();
    const auto part = [bPostgres](int n) {
        return bPostgres ? QStringLiteral("CAST(c.value ->> %1 AS BIGINT)").arg(n)
                         : QStringLiteral("json_extract(c.value, '$[%1]')").arg(n);
    };
    const QString sFrom =
        QLatin1String(bPostgres ? "json_array_elements(CAST(? AS json)) c" : "json_each(?) c");
    const QVariant list = QString(QLatin1Char('[') + listChannels.join(QLatin1Char(',')) + QLatin1Char(']'));
    QVariantList known{list};
    const QString sKnown = QLatin1String(" FROM ") + sFrom + QLatin1String(" JOIN device d ON d.id = ")
        + part(0) + QLatin1String(" WHERE ") + part(2) + QLatin1String(" >= 1 AND ") + part(2)
        + QLatin1String(" <= ") + ChannelCount(part(1)) + m_scope.AndDevice(QStringLiteral("d.id"), known);
    {
        Rows rows = m_database.Run(QLatin1String("SELECT COUNT(*)") + sKnown, known);
        rows.Next();
        if (rows.Int(0) != static_cast<int>(vecChanges.size()))
            throw ServiceError(UICommonMdl::ErrorNotFound, "vecChanges");
    }
    // Whole devices have them already.
    m_database.Run(QStringLiteral("INSERT INTO role_channel (role_id, device_id, kind, number) "
                                  "SELECT rd.role_id, rd.device_id, ")
            + part(1) + QLatin1String(", ") + part(2) + QLatin1String(" FROM ") + sFrom
            + QLatin1String(" JOIN role_device rd ON rd.device_id = ") + part(0)
            + QLatin1String(" AND rd.role_id = ? AND rd.whole = 0 WHERE 1 = 1 "
                            "ON CONFLICT (role_id, device_id, kind, number) DO NOTHING"),
        {list, role});
}

void RoleDevices::RemoveChannel(const Change& change)
{
    const QVariant role = static_cast<qlonglong>(m_nRoleId);
    const QVariant device = static_cast<qlonglong>(DeviceNumber(change));
    m_scope.CheckDevice(m_database, change.sId);
    const int nWhole =
        m_database
            .Run(QStringLiteral(
                     "UPDATE role_device SET whole = 0 WHERE role_id = ? AND device_id = ? AND whole = 1"),
                {role, device})
            .Affected();
    if (nWhole == 1) {
        const auto optDevice = DeviceRecords::Find(m_database, change.sId);
        for (const ChannelColumn& column : ChannelColumns)
            for (int n = 1; n <= ChannelCountOf(*optDevice, column.nKind); ++n)
                m_database.Run(QStringLiteral("INSERT INTO role_channel (role_id, device_id, kind, number) "
                                              "VALUES (?, ?, ?, ?)"),
                    {role, device, column.nKind, n});
    }
    m_database.Run(QStringLiteral("DELETE FROM role_channel WHERE role_id = ? AND device_id = ? AND kind = ? "
                                  "AND number = ?"),
        {role, device, change.nChannelKind, change.nChannel});
    m_database.Run(QStringLiteral("DELETE FROM role_device WHERE role_id = ? AND device_id = ? AND whole = 0 "
                                  "AND NOT EXISTS (SELECT 1 FROM role_channel c WHERE c.role_id = "
                                  "role_device.role_id AND c.device_id = role_device.device_id)"),
        {role, device});
}

} // namespace Platform

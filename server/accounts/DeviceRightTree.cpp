#include "DeviceRightTree.h"

#include "AccountRules.h"
#include "Channels.h"
#include "ServiceError.h"
#include "services/DeviceRecords.h"

#include <GroupLogical/ChannelCounts.h>
#include <QStringList>

namespace Platform {

using namespace UserLogical;

namespace {

constexpr std::size_t RoleLimit = 1000;
constexpr const char* RootName = "Root";
constexpr const char* RootCode = "001";

RightState StateOf(bool bAny, bool bAll)
{
    if (bAll)
        return RightStateAll;
    return bAny ? RightStatePart : RightStateNone;
}

} // namespace

DeviceRightTree::DeviceRightTree(
    Database& database, const DeviceScope& scope, const DeviceRightQuery_t& query)
    : m_database(database)
    , m_scope(scope)
    , m_query(query)
{
    if (query.vecRoleIds.size() > RoleLimit)
        throw ServiceError(UICommonMdl::ErrorInvalidInput, "vecRoleIds");
    ReadRoles();
}

void DeviceRightTree::ReadRoles()
{
    std::vector<std::int64_t> vecIds;
    for (const std::string& sRoleId : m_query.vecRoleIds)
        vecIds.push_back(AccountRules::RoleNumber(sRoleId));
    QVariantList values;
    const QString sIn = m_database.InList(vecIds, values);
    Rows rows = m_database.Run(
        QLatin1String("SELECT id, has_all_rights FROM role WHERE id") + sIn + QLatin1String(" ORDER BY id"),
        values);
    while (rows.Next()) {
        if (rows.Int(1) != 0)
            m_setEverything.insert(rows.Big(0));
        else
            m_vecRoles.push_back(rows.Big(0));
    }
}

wire::DeviceRightNodes DeviceRightTree::Children()
{
    wire::DeviceRightNodes answer;
    if (m_query.nKind == DeviceNodeDevice) {
        AddChannels(answer);
    } else if (m_query.nKind != DeviceNodeOrganization) {
        throw ServiceError(UICommonMdl::ErrorInvalidInput, "nKind");
    } else if (m_query.sId.empty()) {
        AddOrganizations(QStringLiteral("o.code = ?"), TextValue(RootCode), answer);
        for (DeviceRightNode_t& node : answer.vecNodes)
            node.sName = RootName;
    } else {
        AddOrganizations(QStringLiteral("o.parent_code = ?"), TextValue(m_query.sId), answer);
        AddDevices(answer);
    }
    return answer;
}

void DeviceRightTree::AddOrganizations(
    const QString& sCondition, const QVariant& value, wire::DeviceRightNodes& answer)
{
    std::map<std::string, Sum> mapSums;
    {
        QVariantList values{value};
        QString sSql =
            QLatin1String("SELECT o.code, o.name, CASE WHEN EXISTS (SELECT 1 FROM organization c "
                          "WHERE c.parent_code = o.code) THEN 1 ELSE 0 END FROM organization o WHERE ")
            + sCondition;
        if (!m_scope.IsAll())
            sSql += QLatin1String(" AND ") + m_scope.OrganizationTerm(QStringLiteral("o.code"), values);
        Rows rows = m_database.Run(sSql + QLatin1String(" ORDER BY o.sort, o.name_key"), values);
        while (rows.Next()) {
            DeviceRightNode_t node;
            node.sId = rows.Text(0);
            node.sName = rows.Text(1);
            mapSums[node.sId].bSubOrganizations = rows.Int(2) != 0;
            answer.vecNodes.push_back(std::move(node));
        }
    }
    if (answer.vecNodes.empty())
        return;
    SumDevices(mapSums);
    if (!m_vecRoles.empty())
        SumRoles(mapSums);
    for (DeviceRightNode_t& node : answer.vecNodes)
        Finish(node, mapSums[node.sId]);
}

QString DeviceRightTree::CodeList(const std::map<std::string, Sum>& mapSums, QVariantList& values) const
{
    QStringList listMarks;
    for (const auto& [sCode, sum] : mapSums) {
        listMarks << QStringLiteral("?");
        values << TextValue(sCode);
    }
    return QLatin1Char('(') + listMarks.join(QLatin1Char(',')) + QLatin1Char(')');
}

void DeviceRightTree::SumDevices(std::map<std::string, Sum>& mapSums)
{
    // Counted an organisation first: that is read off an index alone.
    QVariantList values;
    QString sCounts = QStringLiteral("SELECT d.org_code, COUNT(*) AS n FROM device d");
    if (!m_scope.IsAll())
        sCounts += QLatin1String(" WHERE ")
            + m_scope.DeviceTerm(QStringLiteral("d.id"), DeviceScope::Way::Collect, values);
    const QString sCodes = CodeList(mapSums, values);
    Rows rows = m_database.Run(QLatin1String("SELECT up.ancestor, SUM(c.n) FROM (") + sCounts
            + QLatin1String(" GROUP BY d.org_code) c JOIN organization_ancestor up ON up.code = c.org_code "
                            "WHERE up.ancestor IN ")
            + sCodes + QLatin1String(" GROUP BY up.ancestor"),
        values);
    while (rows.Next())
        mapSums[rows.Text(0)].nDevices = rows.Int(1);
}

void DeviceRightTree::SumRoles(std::map<std::string, Sum>& mapSums)
{
    {
        QVariantList values;
        QString sSql =
            QStringLiteral("SELECT d.org_code AS org_code, x.device_id AS device_id, MAX(x.whole) AS whole "
                           "FROM role_device x JOIN device d ON d.id = x.device_id WHERE x.role_id")
            + m_database.InList(m_vecRoles, values) + m_scope.AndDevice(QStringLiteral("x.device_id"), values)
            + QLatin1String(" GROUP BY d.org_code, x.device_id");
        sSql = QLatin1String("SELECT org_code, COUNT(*) AS n, SUM(whole) AS w FROM (") + sSql
            + QLatin1String(") e GROUP BY org_code");
        const QString sCodes = CodeList(mapSums, values);
        Rows rows = m_database.Run(QLatin1String("SELECT up.ancestor, SUM(c.n), SUM(c.w) FROM (") + sSql
                + QLatin1String(
                    ") c JOIN organization_ancestor up ON up.code = c.org_code WHERE up.ancestor IN ")
                + sCodes + QLatin1String(" GROUP BY up.ancestor"),
            values);
        while (rows.Next()) {
            mapSums[rows.Text(0)].nTouched = rows.Int(1);
            mapSums[rows.Text(0)].nWhole = rows.Int(2);
        }
    }
    for (const std::int64_t nRole : m_vecRoles)
        AddRole(mapSums, nRole);
}

void DeviceRightTree::AddRole(std::map<std::string, Sum>& mapSums, std::int64_t nRole)
{
    const QVariant role = static_cast<qlonglong>(nRole);
    {
        QVariantList values{role};
        const QString sReached = m_scope.AndDevice(QStringLiteral("x.device_id"), values);
        const QString sCodes = CodeList(mapSums, values);
        Rows rows = m_database.Run(
            QLatin1String("SELECT DISTINCT up.ancestor FROM (SELECT DISTINCT d.org_code AS org_code "
                          "FROM role_device x JOIN device d ON d.id = x.device_id WHERE x.role_id = ?")
                + sReached
                + QLatin1String(
                    ") c JOIN organization_ancestor up ON up.code = c.org_code WHERE up.ancestor IN ")
                + sCodes,
            values);
        while (rows.Next())
            mapSums[rows.Text(0)].setRoles.insert(nRole);
    }
    QVariantList values{role};
    const QString sCodes = CodeList(mapSums, values);
    Rows rows = m_database.Run(
        QLatin1String("SELECT org_code, auto_pass FROM role_org WHERE role_id = ? AND org_code IN ") + sCodes,
        values);
    while (rows.Next()) {
        Sum& sum = mapSums[rows.Text(0)];
        sum.bNamed = true;
        sum.bAuto = sum.bAuto || rows.Int(1) != 0;
        sum.setRoles.insert(nRole);
    }
}

void DeviceRightTree::Finish(DeviceRightNode_t& node, const Sum& sum) const
{
    const bool bEverything = !m_setEverything.empty();
    // An organisation without devices is had when it is named.
    const bool bAll = sum.nDevices > 0 ? sum.nWhole >= sum.nDevices : sum.bNamed;
    node.nState = StateOf(sum.nTouched > 0 || sum.bNamed, bEverything || bAll);
    node.bAuto = bEverything || sum.bAuto;
    node.bHasChildren = sum.nDevices > 0 || sum.bSubOrganizations;
    node.vecRoleIds = RoleTexts(sum.setRoles);
}

std::vector<std::string> DeviceRightTree::RoleTexts(const std::set<std::int64_t>& setRoles) const
{
    std::set<std::int64_t> setAll = m_setEverything;
    setAll.insert(setRoles.begin(), setRoles.end());
    std::vector<std::string> vecIds;
    vecIds.reserve(setAll.size());
    for (const std::int64_t nRole : setAll)
        vecIds.push_back(std::to_string(nRole));
    return vecIds;
}

void DeviceRightTree::AddDevices(wire::DeviceRightNodes& answer)
{
    std::map<std::int64_t, std::size_t> mapPlaces;
    {
        QString sChannels;
        for (const ChannelColumn& column : ChannelColumns)
            sChannels += QLatin1String(" + d.") + QLatin1String(column.szColumn);
        QVariantList values{TextValue(m_query.sId)};
        const QString sReached = m_scope.AndDevice(QStringLiteral("d.id"), values);
        Rows rows = m_database.Run(QLatin1String("SELECT d.id, d.name, 0") + sChannels
                + QLatin1String(" FROM device d WHERE d.org_code = ?") + sReached
                + QLatin1String(" ORDER BY d.name_key, d.id"),
            values);
        while (rows.Next()) {
            mapPlaces[rows.Big(0)] = answer.vecNodes.size();
            DeviceRightNode_t node;
            node.nKind = DeviceNodeDevice;
            node.sId = std::to_string(rows.Big(0));
            node.sName = rows.Text(1);
            node.bHasChildren = rows.Int(2) > 0;
            node.nState = m_setEverything.empty() ? RightStateNone : RightStateAll;
            node.vecRoleIds = RoleTexts({});
            answer.vecNodes.push_back(std::move(node));
        }
    }
    if (mapPlaces.empty() || m_vecRoles.empty())
        return;
    QVariantList values;
    const QString sRoles = m_database.InList(m_vecRoles, values);
    values << TextValue(m_query.sId);
    Rows rows = m_database.Run(QLatin1String("SELECT x.device_id, x.role_id, x.whole FROM role_device x "
                                             "JOIN device d ON d.id = x.device_id WHERE x.role_id")
            + sRoles + QLatin1String(" AND d.org_code = ? ORDER BY x.role_id"),
        values);
    while (rows.Next()) {
        const auto it = mapPlaces.find(rows.Big(0));
        if (it == mapPlaces.end())
            continue;
        DeviceRightNode_t& node = answer.vecNodes[it->second];
        node.nState = std::max<int>(node.nState, StateOf(true, rows.Int(2) != 0));
        node.vecRoleIds.push_back(std::to_string(rows.Big(1)));
    }
}

void DeviceRightTree::AddChannels(wire::DeviceRightNodes& answer)
{
    m_scope.CheckDevice(m_database, m_query.sId);
    const auto optDevice = DeviceRecords::Find(m_database, m_query.sId);
    if (!optDevice)
        throw ServiceError(UICommonMdl::ErrorNotFound);
    const QVariant device = DeviceRecords::NumberOf(m_query.sId).value_or(0);
    std::set<std::int64_t> setWhole;
    std::map<std::pair<int, int>, std::set<std::int64_t>> mapParts;
    if (!m_vecRoles.empty()) {
        QVariantList values{device};
        const QString sRoles = m_database.InList(m_vecRoles, values);
        Rows rows = m_database.Run(
            QLatin1String("SELECT x.role_id, x.whole, COALESCE(c.kind, 0), COALESCE(c.number, 0) "
                          "FROM role_device x LEFT JOIN role_channel c ON c.role_id = x.role_id "
                          "AND c.device_id = x.device_id WHERE x.device_id = ? AND x.role_id")
                + sRoles,
            values);
        while (rows.Next()) {
            if (rows.Int(1) != 0)
                setWhole.insert(rows.Big(0));
            else
                mapParts[{rows.Int(2), rows.Int(3)}].insert(rows.Big(0));
        }
    }
    for (const ChannelColumn& column : ChannelColumns)
        for (int n = 1; n <= ChannelCountOf(*optDevice, column.nKind); ++n) {
            std::set<std::int64_t> setRoles = setWhole;
            if (const auto it = mapParts.find({column.nKind, n}); it != mapParts.end())
                setRoles.insert(it->second.begin(), it->second.end());
            const bool bGiven = !setRoles.empty() || !m_setEverything.empty();
            answer.vecNodes.push_back({DeviceNodeChannel, m_query.sId, column.nKind, n,
                std::string(column.szName).append(" ").append(std::to_string(n)), StateOf(false, bGiven),
                false, false, RoleTexts(setRoles)});
        }
}

} // namespace Platform

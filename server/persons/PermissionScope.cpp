#include "PermissionScope.h"

#include "ServiceError.h"

#include <algorithm>
#include <set>

namespace Platform::PermissionScope {

using AccessControlLogical::PermissionChoices_t;
using AccessControlLogical::Person_t;

namespace {

using Ids = std::set<std::string>;

Ids ReadIds(Database& database, const QString& sSql, const QVariantList& values)
{
    Ids setIds;
    Rows rows = database.Run(sSql, values);
    while (rows.Next())
        setIds.insert(rows.Text(0));
    return setIds;
}

Ids HiddenGroups(Database& database, const DeviceScope& scope)
{
    QVariantList values;
    const QString sReached =
        scope.DeviceTerm(QStringLiteral("g.device_id"), DeviceScope::Way::TestRows, values);
    return ReadIds(database,
        QLatin1String("SELECT DISTINCT g.group_id FROM access_group_door g WHERE NOT ") + sReached, values);
}

Ids HiddenFloors(Database& database, const DeviceScope& scope)
{
    QVariantList values;
    const QString sReached =
        scope.DeviceTerm(QStringLiteral("f.device_id"), DeviceScope::Way::TestRows, values);
    return ReadIds(database, QLatin1String("SELECT f.id FROM lift_floor f WHERE NOT ") + sReached, values);
}

void ProtectIds(
    const Ids& hidden, const std::vector<std::string>& vecBefore, std::vector<std::string>& vecAfter)
{
    const auto isIn = [](const std::vector<std::string>& vecIds, const std::string& sId) {
        return std::find(vecIds.begin(), vecIds.end(), sId) != vecIds.end();
    };
    for (const std::string& sId : vecAfter)
        if (hidden.count(sId) != 0 && !isIn(vecBefore, sId))
            throw ServiceError(UICommonMdl::ErrorNotFound, sId);
    for (const std::string& sId : vecBefore)
        if (hidden.count(sId) != 0 && !isIn(vecAfter, sId))
            vecAfter.push_back(sId);
}

} // namespace

void Filter(Database& database, const DeviceScope& scope, PermissionChoices_t& choices)
{
    if (scope.IsAll())
        return;
    const Ids groups = HiddenGroups(database, scope);
    const Ids floors = HiddenFloors(database, scope);
    std::erase_if(choices.vecAccessGroups, [&](const auto& choice) { return groups.count(choice.sId) != 0; });
    std::erase_if(choices.vecLiftFloors, [&](const auto& floor) { return floors.count(floor.sId) != 0; });
}

void Protect(Database& database, const DeviceScope& scope, const Person_t* pBefore, Person_t& after)
{
    if (scope.IsAll())
        return;
    const Person_t nobody;
    const Person_t& before = pBefore ? *pBefore : nobody;
    ProtectIds(HiddenGroups(database, scope), before.vecAccessGroups, after.vecAccessGroups);
    ProtectIds(HiddenFloors(database, scope), before.vecLiftFloors, after.vecLiftFloors);
}

} // namespace Platform::PermissionScope

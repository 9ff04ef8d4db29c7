#include "DeviceScope.h"

#include "DeviceRecords.h"
#include "ServiceError.h"

#include <algorithm>

namespace Platform {

DeviceScope DeviceScope::All()
{
    DeviceScope scope;
    scope.m_bAll = true;
    return scope;
}

DeviceScope::DeviceScope(std::int64_t nAccountId, std::string sKey)
    : m_nAccountId(nAccountId)
    , m_sKey(std::move(sKey))
{
}

QString DeviceScope::DeviceTerm(const QString& sIdColumn, Way way, QVariantList& values) const
{
    if (m_bAll)
        return {};
    values << static_cast<qlonglong>(m_nAccountId);
    if (way == Way::TestRows)
        return QLatin1String("EXISTS (SELECT 1 FROM role_device rd JOIN account_role ar "
                             "ON ar.role_id = rd.role_id WHERE rd.device_id = ")
            + sIdColumn + QLatin1String(" AND ar.account_id = ?)");
    return sIdColumn
        + QLatin1String(" IN (SELECT rd.device_id FROM role_device rd JOIN account_role ar "
                        "ON ar.role_id = rd.role_id WHERE ar.account_id = ?)");
}

QString DeviceScope::AndDevice(const QString& sIdColumn, QVariantList& values) const
{
    return m_bAll ? QString() : QLatin1String(" AND ") + DeviceTerm(sIdColumn, Way::TestRows, values);
}

QString DeviceScope::OrganizationTerm(const QString& sCodeColumn, QVariantList& values) const
{
    values << static_cast<qlonglong>(m_nAccountId) << static_cast<qlonglong>(m_nAccountId);
    return sCodeColumn
        + QLatin1String(
            " IN (SELECT up.ancestor FROM organization_ancestor up WHERE up.code IN "
            "(SELECT ro.org_code FROM role_org ro JOIN account_role ar ON ar.role_id = ro.role_id "
            "WHERE ar.account_id = ? UNION SELECT od.org_code FROM role_device rd "
            "JOIN account_role ar ON ar.role_id = rd.role_id "
            "JOIN device od ON od.id = rd.device_id WHERE ar.account_id = ?))");
}

QString DeviceScope::OwnOrganizationTerm(const QString& sCodeColumn, QVariantList& values) const
{
    values << static_cast<qlonglong>(m_nAccountId);
    return sCodeColumn
        + QLatin1String(" IN (SELECT xo.org_code FROM role_org xo JOIN account_role ar "
                        "ON ar.role_id = xo.role_id WHERE ar.account_id = ?)");
}

bool DeviceScope::HoldsDevice(Database& database, std::int64_t nDeviceId) const
{
    return m_bAll || !Reached(database, {nDeviceId}).empty();
}

void DeviceScope::CheckDevice(Database& database, const std::string& sDeviceId) const
{
    if (!HoldsDevice(database, DeviceRecords::NumberOf(sDeviceId).value_or(0)))
        throw ServiceError(UICommonMdl::ErrorNotFound);
}

bool DeviceScope::HoldsOrganization(Database& database, const std::string& sCode) const
{
    if (m_bAll)
        return true;
    Rows rows = database.Run(QStringLiteral("SELECT 1 FROM role_org ro JOIN account_role ar "
                                            "ON ar.role_id = ro.role_id "
                                            "WHERE ro.org_code = ? AND ar.account_id = ? LIMIT 1"),
        {TextValue(sCode), static_cast<qlonglong>(m_nAccountId)});
    return rows.Next();
}

void DeviceScope::CheckOrganization(Database& database, const std::string& sCode) const
{
    if (!HoldsOrganization(database, sCode))
        throw ServiceError(UICommonMdl::ErrorNotFound, "sOrgCode");
}

std::vector<std::int64_t> DeviceScope::Reached(
    Database& database, const std::vector<std::int64_t>& vecIds) const
{
    std::vector<std::int64_t> vecReached;
    if (m_bAll) {
        vecReached = vecIds;
    } else {
        for (const std::int64_t nId : vecIds) {
            Rows rows = database.Run(QStringLiteral("SELECT 1 FROM role_device rd JOIN account_role ar "
                                                    "ON ar.role_id = rd.role_id "
                                                    "WHERE rd.device_id = ? AND ar.account_id = ? LIMIT 1"),
                {static_cast<qlonglong>(nId), static_cast<qlonglong>(m_nAccountId)});
            if (rows.Next())
                vecReached.push_back(nId);
        }
    }
    std::sort(vecReached.begin(), vecReached.end());
    return vecReached;
}

} // namespace Platform

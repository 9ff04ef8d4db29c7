#pragma once

#include "store/Database.h"

#include <cstdint>
#include <string>
#include <vector>

namespace Platform {

/// Which devices and organisations an account reaches: all there are, or those that its roles name. The terms
/// are for the WHERE of a statement and add their values to it.
class DeviceScope
{
public:
    /// Nothing at all.
    DeviceScope() = default;
    static DeviceScope All();
    /// What the roles of that account name. sKey tells two sets of roles apart.
    DeviceScope(std::int64_t nAccountId, std::string sKey);

    bool IsAll() const { return m_bAll; }
    /// The same text for accounts that reach the same.
    const std::string& Key() const { return m_sKey; }

    /// How a statement looks for devices: along an index with the test on each row, or from the few that the
    /// account reaches.
    enum class Way
    {
        TestRows,
        Collect
    };
    /// A condition that the device of that column (a number) is reached; empty for an account that reaches
    /// all.
    QString DeviceTerm(const QString& sIdColumn, Way way, QVariantList& values) const;
    /// " AND " and DeviceTerm, or nothing.
    QString AndDevice(const QString& sIdColumn, QVariantList& values) const;

    /// A condition that the organisation of that column is reached, holds a device that is, or leads to such
    /// an organisation. Not for an account that reaches all.
    QString OrganizationTerm(const QString& sCodeColumn, QVariantList& values) const;

    /// As above, only of organisations that the account's roles name themselves.
    QString OwnOrganizationTerm(const QString& sCodeColumn, QVariantList& values) const;

    bool HoldsDevice(Database& database, std::int64_t nDeviceId) const;
    /// Throws ServiceError with ErrorNotFound for a device that is not reached: to the account it is not
    /// there.
    void CheckDevice(Database& database, const std::string& sDeviceId) const;
    /// Whether the account's roles name the organisation itself.
    bool HoldsOrganization(Database& database, const std::string& sCode) const;
    /// Throws ServiceError with ErrorNotFound.
    void CheckOrganization(Database& database, const std::string& sCode) const;
    /// Those of the devices that are reached, ascending. vecIds: at most a few hundred.
    std::vector<std::int64_t> Reached(Database& database, const std::vector<std::int64_t>& vecIds) const;

private:
    bool m_bAll = false;
    std::int64_t m_nAccountId = 0;
    std::string m_sKey;
};

} // namespace Platform

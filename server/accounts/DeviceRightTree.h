#pragma once

#include "services/DeviceScope.h"
#include "store/Database.h"

#include <wire/Records.h>

#include <map>
#include <set>
#include <vector>

namespace Platform {

/// One branch of the tree of organisations, devices and channels, as far as a scope reaches, with what some
/// roles have of it. Within a read of the caller; faults are ServiceError.
class DeviceRightTree
{
public:
    /// All are borrowed.
    DeviceRightTree(
        Database& database, const DeviceScope& scope, const UserLogical::DeviceRightQuery_t& query);

    wire::DeviceRightNodes Children();

private:
    /// What roles have below one organisation.
    struct Sum
    {
        int nDevices = 0;
        int nTouched = 0; ///< devices that a role has, whole or in part
        int nWhole = 0;
        bool bNamed = false; ///< a role has the organisation itself
        bool bAuto = false;
        bool bSubOrganizations = false;
        std::set<std::int64_t> setRoles;
    };

    void ReadRoles();
    void AddOrganizations(const QString& sCondition, const QVariant& value, wire::DeviceRightNodes& answer);
    void SumDevices(std::map<std::string, Sum>& mapSums);
    void SumRoles(std::map<std::string, Sum>& mapSums);
    void AddRole(std::map<std::string, Sum>& mapSums, std::int64_t nRole);
    void Finish(UserLogical::DeviceRightNode_t& node, const Sum& sum) const;
    void AddDevices(wire::DeviceRightNodes& answer);
    void AddChannels(wire::DeviceRightNodes& answer);
    /// Text of the organisations of mapSums as the values of one statement.
    QString CodeList(const std::map<std::string, Sum>& mapSums, QVariantList& values) const;
    std::vector<std::string> RoleTexts(const std::set<std::int64_t>& setRoles) const;

    Database& m_database;
    const DeviceScope& m_scope;
    const UserLogical::DeviceRightQuery_t& m_query;
    std::vector<std::int64_t> m_vecRoles; ///< that have some of the devices
    std::set<std::int64_t> m_setEverything; ///< that have all there are
};

} // namespace Platform

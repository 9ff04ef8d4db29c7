#pragma once

#include "store/Database.h"

#include <string>
#include <vector>

namespace Platform {

/// What organisations with auto-authorisation pass on: a role that has such an organisation gets what is
/// added to it. Within the transaction that adds it; faults are ServiceError.
namespace RoleGrants {

/// Devices are new, or in another organisation now. What roles have of them already stays as it is.
void DevicesArrived(Database& database, const std::vector<std::string>& vecDeviceIds);
/// The organisation, with all that lies below it, is new or under another parent now: it passes on what its
/// parent does.
void OrganizationArrived(Database& database, const std::string& sCode, const std::string& sParentCode);

} // namespace RoleGrants

} // namespace Platform

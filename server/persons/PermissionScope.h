#pragma once

#include "services/DeviceScope.h"

#include <AccessControlLogical/PersonRecords.h>

namespace Platform {

/// Which permissions of persons an account deals with: access groups all of whose doors it reaches, and lift
/// floors of lifts that it reaches. Within the transaction or read of the caller; faults are ServiceError.
namespace PermissionScope {

/// Leaves out what the account does not reach.
void Filter(Database& database, const DeviceScope& scope, AccessControlLogical::PermissionChoices_t& choices);
/// What a person has and the account does not reach stays. Throws ErrorNotFound when something of that kind
/// is added. before: null for a new person.
void Protect(Database& database, const DeviceScope& scope, const AccessControlLogical::Person_t* pBefore,
    AccessControlLogical::Person_t& after);

} // namespace PermissionScope

} // namespace Platform

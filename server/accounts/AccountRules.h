#pragma once

#include "services/Context.h"
#include "services/RightsService.h"
#include "store/Database.h"

#include <UserLogical/UserRecords.h>

#include <string>
#include <vector>

namespace Platform {

/// What accounts and roles have to keep to. Those that read the database run within a transaction of the
/// caller; faults are ServiceError.
namespace AccountRules {

inline constexpr std::size_t BatchLimit = 1000;

/// Trimmed, addresses in lower case. Throws ErrorInvalidInput with the field.
UserLogical::User_t Checked(UserLogical::User_t user);
UserLogical::Role_t Checked(UserLogical::Role_t role);
/// Throws ErrorInvalidInput with the field for a batch that is empty or too large.
void CheckBatch(std::size_t nCount, const char* szField);

/// The number behind a role ID; 0 for a text that no role has as its ID.
std::int64_t RoleNumber(const std::string& sRoleId);

/// Throws ErrorLastManager when no account but nExcept (0: none is left out) could sign in and manage users.
void CheckManagerLeft(Database& database, std::int64_t nExcept);
/// Throws ErrorRightNotOwn when the other account can do more than who asks.
void CheckNotAbove(Database& database, const Context& context, std::int64_t nAccountId);
/// Throws ErrorRightNotOwn when the role gives more than who asks has, ErrorNotFound when it is not there.
void CheckRoleGivable(Database& database, const Context& context, std::int64_t nRoleId);

} // namespace AccountRules

} // namespace Platform

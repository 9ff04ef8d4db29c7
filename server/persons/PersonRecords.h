#pragma once

#include "services/SecretBox.h"
#include "store/Database.h"

#include <AccessControlLogical/PersonRecords.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace Platform {

/// The rows of persons with all that belongs to them. Within a transaction of the caller; faults are
/// ServiceError.
namespace PersonRecords {

/// Where the photo of that name is fetched from; empty for an empty name.
std::string PhotoUrl(const std::string& sPersonId, const std::string& sPhoto);

/// Without secrets; nullopt when there is none.
std::optional<AccessControlLogical::Person_t> Find(Database& database, const std::string& sPersonId);
/// Name of the person's photo file; empty: none.
std::string PhotoOf(Database& database, const std::string& sPersonId);

/// What is another person's already, of all that the person brings; with its ID when it is new.
std::vector<AccessControlLogical::PersonClash_t> Clashes(
    Database& database, const AccessControlLogical::Person_t& person, bool bNew);
/// Throws ErrorNotFound with the field's name when something that was chosen does not exist.
void CheckChoices(Database& database, const AccessControlLogical::Person_t& person);

/// Adds the person, or writes everything of it but its ID; sPhoto is the name of its photo file. Secrets
/// that the record leaves empty stay as they are.
void Insert(Database& database, const SecretBox& box, const AccessControlLogical::Person_t& person,
    const std::string& sPhoto);
void Update(Database& database, const SecretBox& box, const AccessControlLogical::Person_t& person,
    const std::string& sPhoto);
/// Adds a card behind the person's others.
void AddCard(Database& database, std::int64_t nPersonId, const std::string& sCardNo);

/// Everything that a device has to know, secrets and photo name included.
struct Credentials
{
    AccessControlLogical::Person_t person; ///< with templates and unlock password
    std::string sPhoto;
};
std::optional<Credentials> FindCredentials(
    Database& database, const SecretBox& box, const std::string& sPersonId);

} // namespace PersonRecords

} // namespace Platform

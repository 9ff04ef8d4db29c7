#pragma once

#include <AccessControlLogical/PersonRecords.h>

#include <cstdint>
#include <optional>
#include <string>

namespace Platform::PersonRules {

/// The number that a person ID stands for; nullopt for a text that is none.
std::optional<std::int64_t> NumberOf(const std::string& sPersonId);

/// Texts trimmed; card numbers in upper case, dates and plates as they are kept.
AccessControlLogical::Person_t Cleaned(AccessControlLogical::Person_t person);
/// Name of the first field that breaks its rule; empty when all are right. Does not look at the photo, nor
/// whether what was chosen exists.
std::string FaultyField(const AccessControlLogical::Person_t& person);

/// True for 1 to 16 hexadecimal digits.
bool IsCardNo(const std::string& sCardNo);
/// True when the period, as in Person_t, does not end before it begins.
bool IsPeriod(std::int64_t nFrom, std::int64_t nTo);
std::string UpperCase(std::string sText);

} // namespace Platform::PersonRules

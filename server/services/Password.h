#pragma once

#include <string>

namespace Platform {

/// Hashes of passwords and tokens. Any thread. A password's hash costs tens of milliseconds and 64 MiB, so
/// only a few are computed at a time and others wait.
namespace Password {

/// argon2id with a salt of its own, as text.
std::string Hash(const std::string& sPassword);
/// An empty hash (account unknown, or without a password) costs the same time and never matches.
bool Verify(const std::string& sHash, const std::string& sPassword);
/// 256 random bits in hexadecimal.
std::string NewToken();
/// What is kept of a token.
std::string TokenHash(const std::string& sToken);
/// Throws ServiceError with ErrorPasswordRule when the password breaks the platform's rule.
void CheckRule(const std::string& sPassword, const std::string& sUserName);

} // namespace Password

} // namespace Platform

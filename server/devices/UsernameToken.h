#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// Signing in to web services (WS-Security, UsernameToken with a password digest). Free functions; any
/// thread.
namespace Platform::UsernameToken {

/// Base64 of SHA-1 over nonce, time and password. sNonce: its bytes, not Base64.
std::string PasswordDigest(
    std::string_view sNonce, const std::string& sCreated, const std::string& sPassword);
/// "2026-01-31T12:00:00Z".
std::string Timestamp(std::int64_t nSecondsSinceEpoch);
/// The header element, with a fresh nonce.
std::string Header(
    const std::string& sUserName, const std::string& sPassword, std::int64_t nSecondsSinceEpoch);

} // namespace Platform::UsernameToken

#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// The few primitives that device protocols need. Free functions; any thread.
namespace Platform::Crypto {

enum class Hash
{
    Md5,
    Sha1,
    Sha256
};

/// The digest's bytes.
std::string Digest(Hash hash, std::string_view sData);
/// Digits in lower case.
std::string Hex(std::string_view sBytes);
std::string Base64(std::string_view sBytes);
/// Empty when the text is not Base64.
std::string FromBase64(std::string_view sText);
/// Bytes that nobody can guess.
std::string Random(std::size_t nBytes);
/// Random, of the form "urn:uuid:…".
std::string UuidUrn();

} // namespace Platform::Crypto

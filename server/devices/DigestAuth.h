#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>

/// HTTP digest authentication, both sides of it. Free functions; any thread.
namespace Platform::DigestAuth {

/// What a response is computed from.
struct Terms
{
    std::string sUserName;
    std::string sPassword;
    std::string sRealm;
    std::string sNonce;
    std::string sMethod; ///< "POST"
    std::string sUri; ///< path and query, as in the request line
    std::string sQop; ///< "auth"; empty: the older form without client nonce and count
    std::string sCount; ///< eight hexadecimal digits
    std::string sClientNonce;
    std::string sAlgorithm; ///< "MD5" or "SHA-256", either with "-sess"; empty: MD5
};

/// The fields of a "Digest" header, keys in lower case; nullopt when it is not one or cannot be read.
std::optional<std::map<std::string, std::string>> ReadFields(std::string_view sHeader);

/// Hexadecimal digits; nullopt for an algorithm that is not known.
std::optional<std::string> Response(const Terms& terms);

/// The value of the Authorization header that answers a WWW-Authenticate header; nullopt when that is not a
/// digest challenge, or asks for something that is not known. Of the terms user name, password, method, URI
/// and client nonce have to be filled.
std::optional<std::string> Answer(std::string_view sChallenge, Terms terms);

/// True when the challenge says that only the nonce was too old.
bool IsStale(std::string_view sChallenge);

} // namespace Platform::DigestAuth

#include "Gates.h"

#include <server/devices/Crypto.h>
#include <server/devices/DigestAuth.h>
#include <server/devices/UsernameToken.h>

#include <algorithm>
#include <charconv>
#include <optional>

namespace FieldDevice {

namespace {

namespace Crypto = Platform::Crypto;
namespace DigestAuth = Platform::DigestAuth;

constexpr const char* Realm = "Simulated Device";
constexpr std::chrono::seconds Lifetime(60);
constexpr std::size_t MaxEntries = 20000;
constexpr std::int64_t Tolerance = 30; ///< seconds
constexpr std::size_t NonceBytes = 16;

std::uint64_t ReadCount(const std::string& sDigits)
{
    std::uint64_t nCount = 0;
    const auto [pEnd, error] = std::from_chars(sDigits.data(), sDigits.data() + sDigits.size(), nCount, 16);
    return error == std::errc() && pEnd == sDigits.data() + sDigits.size() && sDigits.size() == 8 ? nCount
                                                                                                  : 0;
}

} // namespace

std::uint64_t* ShortMemory::Find(const std::string& sText)
{
    const auto it = m_mapEntries.find(sText);
    const bool bKnown = it != m_mapEntries.end() && it->second.until > std::chrono::steady_clock::now();
    return bKnown ? &it->second.nNumber : nullptr;
}

void ShortMemory::Remember(const std::string& sText, std::uint64_t nNumber)
{
    if (m_mapEntries.size() >= MaxEntries)
        Prune();
    m_mapEntries[sText] = {nNumber, std::chrono::steady_clock::now() + Lifetime};
}

void ShortMemory::Prune()
{
    const auto now = std::chrono::steady_clock::now();
    std::erase_if(m_mapEntries, [now](const auto& entry) { return entry.second.until <= now; });
    if (m_mapEntries.size() >= MaxEntries)
        m_mapEntries.clear();
}

std::vector<std::string> DigestGate::Challenges(bool bStale)
{
    const std::string sNonce = Crypto::Hex(Crypto::Random(NonceBytes));
    {
        const std::lock_guard lock(m_mutex);
        m_nonces.Remember(sNonce, 0);
    }
    std::vector<std::string> vecChallenges;
    for (const char* const szAlgorithm : {"SHA-256", "MD5"}) {
        std::string& sChallenge = vecChallenges.emplace_back("Digest realm=\"");
        sChallenge.append(Realm).append("\", qop=\"auth\", algorithm=").append(szAlgorithm);
        sChallenge.append(", nonce=\"").append(sNonce).append(bStale ? "\", stale=true" : "\"");
    }
    return vecChallenges;
}

DigestGate::Verdict DigestGate::Check(const std::string& sAuthorization, const std::string& sMethod,
    const std::string& sPath, const std::string& sUserName, const std::string& sPassword)
{
    auto optFields = DigestAuth::ReadFields(sAuthorization);
    if (!optFields)
        return Verdict::Refused;
    auto& mapFields = *optFields;
    DigestAuth::Terms terms{sUserName, sPassword, Realm, mapFields["nonce"], sMethod, sPath, mapFields["qop"],
        mapFields["nc"], mapFields["cnonce"], mapFields["algorithm"]};
    const bool bRight = mapFields["username"] == sUserName && mapFields["realm"] == Realm
        && mapFields["uri"] == sPath && terms.sQop == "auth"
        && DigestAuth::Response(terms) == mapFields["response"];
    if (!bRight)
        return Verdict::Refused;
    const std::lock_guard lock(m_mutex);
    std::uint64_t* const pLastCount = m_nonces.Find(terms.sNonce);
    const std::uint64_t nCount = ReadCount(terms.sCount);
    if (!pLastCount || nCount <= *pLastCount)
        return Verdict::Stale;
    *pLastCount = nCount;
    return Verdict::Accepted;
}

bool TokenGate::Check(
    const Token& token, const std::string& sUserName, const std::string& sPassword, std::int64_t nNow)
{
    const std::string sNonce = Crypto::FromBase64(token.sNonce);
    if (sNonce.empty() || token.sUserName != sUserName
        || Platform::UsernameToken::PasswordDigest(sNonce, token.sCreated, sPassword) != token.sDigest)
        return false;
    // Times of this form sort as texts.
    if (token.sCreated.size() != Platform::UsernameToken::Timestamp(nNow).size()
        || token.sCreated < Platform::UsernameToken::Timestamp(nNow - Tolerance)
        || token.sCreated > Platform::UsernameToken::Timestamp(nNow + Tolerance))
        return false;
    const std::lock_guard lock(m_mutex);
    if (m_nonces.Find(token.sNonce))
        return false;
    m_nonces.Remember(token.sNonce, 0);
    return true;
}

} // namespace FieldDevice

#pragma once

#include <chrono>
#include <cstdint>
#include <map>
#include <mutex>
#include <string>
#include <vector>

namespace FieldDevice {

/// Remembers texts for a time; at most a number of them. One thread.
class ShortMemory
{
public:
    /// The number that goes with a text; nullptr when it is not known, or no longer.
    std::uint64_t* Find(const std::string& sText);
    void Remember(const std::string& sText, std::uint64_t nNumber);

private:
    struct Entry
    {
        std::uint64_t nNumber;
        std::chrono::steady_clock::time_point until;
    };
    void Prune();

    std::map<std::string, Entry> m_mapEntries;
};

/// Checks HTTP digest authentication, strictly: only nonces of its own, each count once. Any thread.
class DigestGate
{
public:
    enum class Verdict
    {
        Accepted,
        Stale,
        Refused
    };

    /// The WWW-Authenticate headers that ask for a password.
    std::vector<std::string> Challenges(bool bStale);
    Verdict Check(const std::string& sAuthorization, const std::string& sMethod, const std::string& sPath,
        const std::string& sUserName, const std::string& sPassword);

private:
    std::mutex m_mutex;
    ShortMemory m_nonces; ///< with the highest count so far
};

/// Checks tokens of web services, strictly: each nonce once, and the time within half a minute. Any thread.
class TokenGate
{
public:
    struct Token
    {
        std::string sUserName;
        std::string sDigest;
        std::string sNonce; ///< Base64
        std::string sCreated;
    };

    /// nNow: the device's clock, seconds since the epoch.
    bool Check(
        const Token& token, const std::string& sUserName, const std::string& sPassword, std::int64_t nNow);

private:
    std::mutex m_mutex;
    ShortMemory m_nonces;
};

} // namespace FieldDevice

#pragma once

#include "AuditService.h"
#include "Context.h"
#include "RightsService.h"
#include "directory/Directory.h"
#include "store/DatabasePool.h"

#include <wire/Records.h>

#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <unordered_map>

namespace Platform {

/// Accounts' passwords and sessions. Any thread.
class SessionService
{
public:
    static constexpr int OrganizationLevelLimit = 10;
    static constexpr int WrongPasswordLimit = 5;
    static constexpr std::int64_t LockMs = std::int64_t(5) * 60 * 1000;

    SessionService(DatabasePool& pool, EventHub& hub, RightsService& rights, const AuditService& audit,
        const Directory& directory, Clock clock, int nTokenLifetimeMinutes);

    wire::ServerState State();
    /// The first password of the built-in account; only once and only from the server's own machine.
    void SetUp(const Context& context, const wire::SetupRequest& request);
    /// The built-in account's password, new or first, given on the server's command line; ends its sessions.
    void SetPassword(const std::string& sPassword);

    /// Domain users are asked about in the directory. What else stands in the way (a lock, an expiry, another
    /// client, a password that is due) is told only to who knows the password. An account that may be signed
    /// in on one client only leaves the others.
    wire::Session SignIn(const Context& context, const wire::SignInRequest& request);
    void SignOut(const Context& context);
    wire::Session Get(const Context& context);

    /// Ends all sessions of an account: within a transaction, and after it was committed.
    static void RemoveSessions(Database& database, std::int64_t nAccountId);
    void ForgetAccount(std::int64_t nAccountId);

    /// Who holds that token; nullopt when it is unknown or expired. Using a session makes it last.
    std::optional<Context> Find(const std::string& sToken);

private:
    struct Live
    {
        std::int64_t nAccountId = 0;
        std::string sUserName;
        std::int64_t nExpiresAt = 0;
    };
    struct Attempt
    {
        int nFailed = 0;
        std::int64_t nLockedUntil = 0;
    };
    struct Account
    {
        std::int64_t nId = 0; ///< 0: there is none of that name
        std::string sName;
        std::string sHash; ///< empty: no password, nobody can sign in
        bool bDomain = false; ///< the directory knows the password
        bool bMultiLogin = false;
        bool bForceChange = false;
        std::int64_t nPasswordDue = 0; ///< when a new password has to be chosen; 0: never
        std::int64_t nExpiresAt = 0; ///< 0: never
        int nLockState = 1; ///< UserLogical::LockState
        bool bBindMac = false;
        std::vector<std::string> vecMacs;
    };

    Account Reserve(const std::string& sNameKey);
    static std::optional<Account> ReadAccount(
        Database& database, const std::string& sNameKey, int& nFailed, std::int64_t& nLockedUntil);
    /// An attempt that was no wrong password counts no longer.
    void Release(const Account& account);
    bool KnowsPassword(const Account& account, const std::string& sPassword);
    /// Throws what stands in the way of somebody who knows the password.
    void CheckAdmission(const Account& account, const wire::SignInRequest& request);
    void ChangePassword(const Context& context, const Account& account, const wire::SignInRequest& request);
    void LogRefusal(const Context& context, const std::string& sName, int nCode);
    void ReserveUnknown(const std::string& sNameKey);
    wire::Session Open(const Context& context, const Account& account);
    wire::Session Describe(const std::string& sUserName, const AccountRights& rights);
    std::optional<Live> ReadSession(const std::string& sTokenHash);

    DatabasePool& m_pool;
    EventHub& m_hub;
    RightsService& m_rights;
    const AuditService& m_audit;
    const Directory& m_directory;
    const Clock m_clock;
    const std::int64_t m_nLifetimeMs;

    std::mutex m_mutex;
    std::unordered_map<std::string, Live> m_mapLive;
    std::uint64_t m_nForgotten = 0; ///< sessions taken out of m_mapLive by sign-outs so far
    std::map<std::string, Attempt>
        m_mapUnknown; ///< wrong names lock like accounts, so that they tell nothing
};

} // namespace Platform

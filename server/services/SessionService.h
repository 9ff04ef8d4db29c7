#pragma once

#include "AuditService.h"
#include "Context.h"
#include "RightsService.h"
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
        Clock clock, int nTokenLifetimeMinutes);

    wire::ServerState State();
    /// The first password of the built-in account; only once and only from the server's own machine.
    void SetUp(const Context& context, const wire::SetupRequest& request);
    /// The built-in account's password, new or first, given on the server's command line; ends its sessions.
    void SetPassword(const std::string& sPassword);

    wire::Session SignIn(const Context& context, const wire::SignInRequest& request);
    void SignOut(const Context& context);
    wire::Session Get(const Context& context);

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
    };

    Account Reserve(const std::string& sNameKey);
    void ReserveUnknown(const std::string& sNameKey);
    wire::Session Open(const Context& context, const Account& account);
    wire::Session Describe(const std::string& sUserName, const std::set<std::string>& rights);
    std::optional<Live> ReadSession(const std::string& sTokenHash);

    DatabasePool& m_pool;
    EventHub& m_hub;
    RightsService& m_rights;
    const AuditService& m_audit;
    const Clock m_clock;
    const std::int64_t m_nLifetimeMs;

    std::mutex m_mutex;
    std::unordered_map<std::string, Live> m_mapLive;
    std::uint64_t m_nForgotten = 0; ///< sessions taken out of m_mapLive by sign-outs so far
    std::map<std::string, Attempt>
        m_mapUnknown; ///< wrong names lock like accounts, so that they tell nothing
};

} // namespace Platform

#include "SessionService.h"

#include "Log.h"
#include "Password.h"
#include "ServiceError.h"
#include "TextRules.h"

#include <wire/Operations.h>

namespace Platform {

namespace {

constexpr std::size_t UnknownNameLimit = 1000;
// How much longer a session has to last than the database says before that is written down.
constexpr std::int64_t ExpiryStepMs = 60000;

} // namespace

SessionService::SessionService(DatabasePool& pool, EventHub& hub, RightsService& rights,
    const AuditService& audit, Clock clock, int nTokenLifetimeMinutes)
    : m_pool(pool)
    , m_hub(hub)
    , m_rights(rights)
    , m_audit(audit)
    , m_clock(std::move(clock))
    , m_nLifetimeMs(std::int64_t(nTokenLifetimeMinutes) * 60 * 1000)
{
}

wire::ServerState SessionService::State()
{
    return m_pool.Read([](Database& database) {
        Rows rows = database.Run(
            QStringLiteral("SELECT COUNT(*) FROM account WHERE id = 1 AND password_hash IS NULL"));
        rows.Next();
        return wire::ServerState{rows.Int(0) == 1, PLATFORM_VERSION};
    });
}

void SessionService::SetUp(const Context& context, const wire::SetupRequest& request)
{
    if (!context.bLoopback)
        throw ServiceError(UICommonMdl::ErrorSetupRemote);
    if (!State().bSetupNeeded)
        throw ServiceError(UICommonMdl::ErrorSetupDone);
    Password::CheckRule(request.sPassword, "system");
    const std::string sHash = Password::Hash(request.sPassword);
    m_pool.Write([&](Database& database) {
        const int nChanged =
            database
                .Run(QStringLiteral(
                         "UPDATE account SET password_hash = ? WHERE id = 1 AND password_hash IS NULL"),
                    {TextValue(sHash)})
                .Affected();
        if (nChanged != 1)
            throw ServiceError(UICommonMdl::ErrorSetupDone);
        m_audit.Write(database, context, wire::SetUp::Name, "system", nullptr, nullptr);
    });
    Log::Info("session", "The first password was set");
}

void SessionService::SetPassword(const std::string& sPassword)
{
    Password::CheckRule(sPassword, "system");
    const std::string sHash = Password::Hash(sPassword);
    m_pool.Write([&](Database& database) {
        database.Run(
            QStringLiteral(
                "UPDATE account SET password_hash = ?, failed_count = 0, locked_until = 0 WHERE id = 1"),
            {TextValue(sHash)});
        database.Run(QStringLiteral("DELETE FROM session WHERE account_id = 1"));
        m_audit.Write(database, Context{}, "command-line/set-password", "system", nullptr, nullptr);
    });
    const std::lock_guard lock(m_mutex);
    m_mapLive.clear();
}

// An attempt counts as failed until its password proved right: attempts side by side cannot outrun the lock.
SessionService::Account SessionService::Reserve(const std::string& sNameKey)
{
    const std::int64_t nNow = m_clock();
    Account account = m_pool.Write([&](Database& database) {
        Account found;
        std::int64_t nLockedUntil = 0;
        int nFailed = 0;
        {
            Rows rows =
                database.Run(QStringLiteral("SELECT id, name, password_hash, failed_count, locked_until "
                                            "FROM account WHERE name_key = ?"),
                    {TextValue(sNameKey)});
            if (!rows.Next())
                return found;
            found = {rows.Big(0), rows.Text(1), rows.Text(2)};
            nFailed = rows.Int(3);
            nLockedUntil = rows.Big(4);
        }
        if (nLockedUntil > nNow)
            throw ServiceError(UICommonMdl::ErrorAccountLocked);
        nFailed = nLockedUntil > 0 ? 1 : nFailed + 1;
        nLockedUntil = nFailed >= WrongPasswordLimit ? nNow + LockMs : 0;
        database.Run(QStringLiteral("UPDATE account SET failed_count = ?, locked_until = ? WHERE id = ?"),
            {nFailed, static_cast<qlonglong>(nLockedUntil), static_cast<qlonglong>(found.nId)});
        return found;
    });
    if (account.nId == 0)
        ReserveUnknown(sNameKey);
    return account;
}

void SessionService::ReserveUnknown(const std::string& sNameKey)
{
    const std::int64_t nNow = m_clock();
    const std::lock_guard lock(m_mutex);
    if (m_mapUnknown.size() >= UnknownNameLimit && m_mapUnknown.count(sNameKey) == 0)
        m_mapUnknown.clear();
    Attempt& attempt = m_mapUnknown[sNameKey];
    if (attempt.nLockedUntil > nNow)
        throw ServiceError(UICommonMdl::ErrorAccountLocked);
    attempt.nFailed = attempt.nLockedUntil > 0 ? 1 : attempt.nFailed + 1;
    attempt.nLockedUntil = attempt.nFailed >= WrongPasswordLimit ? nNow + LockMs : 0;
}

wire::Session SessionService::SignIn(const Context& context, const wire::SignInRequest& request)
{
    const std::string sNameKey = FoldCase(request.sUserName).substr(0, 256);
    if (sNameKey == "system" && State().bSetupNeeded)
        throw ServiceError(UICommonMdl::ErrorSetupNeeded);
    const Account account = Reserve(sNameKey);
    if (!Password::Verify(account.sHash, request.sPassword)) {
        Log::Warning("session", "Wrong password", {{"client", context.sClientAddress}});
        throw ServiceError(UICommonMdl::ErrorWrongPassword);
    }
    return Open(context, account);
}

wire::Session SessionService::Open(const Context& context, const Account& account)
{
    const std::string sToken = Password::NewToken();
    const std::string sTokenHash = Password::TokenHash(sToken);
    const std::int64_t nNow = m_clock();
    const std::int64_t nExpiresAt = nNow + m_nLifetimeMs;
    m_pool.Write([&](Database& database) {
        database.Run(QStringLiteral("UPDATE account SET failed_count = 0, locked_until = 0 WHERE id = ?"),
            {static_cast<qlonglong>(account.nId)});
        database.Run(
            QStringLiteral("DELETE FROM session WHERE expires_at < ?"), {static_cast<qlonglong>(nNow)});
        database.Run(
            QStringLiteral("INSERT INTO session (token_hash, account_id, client_address, created_at, "
                           "expires_at) VALUES (?, ?, ?, ?, ?)"),
            {TextValue(sTokenHash), static_cast<qlonglong>(account.nId), TextValue(context.sClientAddress),
                static_cast<qlonglong>(nNow), static_cast<qlonglong>(nExpiresAt)});
        Context signedIn = context;
        signedIn.sUserName = account.sName;
        m_audit.Write(database, signedIn, wire::SignIn::Name, account.sName, nullptr, nullptr);
    });
    {
        const std::lock_guard lock(m_mutex);
        std::erase_if(m_mapLive, [nNow](const auto& entry) { return entry.second.nExpiresAt < nNow; });
        m_mapLive[sTokenHash] = {account.nId, account.sName, nExpiresAt};
    }
    wire::Session session = Describe(account.sName, *m_rights.RightsOf(account.nId));
    session.sToken = sToken;
    return session;
}

wire::Session SessionService::Describe(const std::string& sUserName, const std::set<std::string>& rights)
{
    wire::Session session;
    session.sUserName = sUserName;
    session.vecMenuRights = m_rights.MenuOf(rights);
    session.vecRights.assign(rights.begin(), rights.end());
    session.nOrganizationLevelLimit = OrganizationLevelLimit;
    return session;
}

void SessionService::SignOut(const Context& context)
{
    m_pool.Write([&](Database& database) {
        database.Run(
            QStringLiteral("DELETE FROM session WHERE token_hash = ?"), {TextValue(context.sTokenHash)});
        m_audit.Write(database, context, wire::SignOut::Name, context.sUserName, nullptr, nullptr);
    });
    {
        const std::lock_guard lock(m_mutex);
        m_mapLive.erase(context.sTokenHash);
        ++m_nForgotten;
    }
    m_hub.EndSession(context.sTokenHash);
}

wire::Session SessionService::Get(const Context& context)
{
    return Describe(context.sUserName, *context.pRights);
}

std::optional<SessionService::Live> SessionService::ReadSession(const std::string& sTokenHash)
{
    return m_pool.Read([&](Database& database) -> std::optional<Live> {
        Rows rows =
            database.Run(QStringLiteral("SELECT a.id, a.name, s.expires_at FROM session s "
                                        "JOIN account a ON a.id = s.account_id WHERE s.token_hash = ?"),
                {TextValue(sTokenHash)});
        if (!rows.Next())
            return std::nullopt;
        return Live{rows.Big(0), rows.Text(1), rows.Big(2)};
    });
}

std::optional<Context> SessionService::Find(const std::string& sToken)
{
    const std::string sTokenHash = Password::TokenHash(sToken);
    std::optional<Live> optLive;
    std::uint64_t nForgotten = 0;
    {
        const std::lock_guard lock(m_mutex);
        nForgotten = m_nForgotten;
        if (const auto it = m_mapLive.find(sTokenHash); it != m_mapLive.end())
            optLive = it->second;
    }
    const bool bCached = optLive.has_value();
    if (!bCached)
        optLive = ReadSession(sTokenHash);
    const std::int64_t nNow = m_clock();
    if (!optLive || optLive->nExpiresAt <= nNow)
        return std::nullopt;

    const std::int64_t nExpiresAt = nNow + m_nLifetimeMs;
    if (nExpiresAt - optLive->nExpiresAt >= ExpiryStepMs) {
        const bool bStillThere = m_pool.Write([&](Database& database) {
            return database
                       .Run(QStringLiteral("UPDATE session SET expires_at = ? WHERE token_hash = ?"),
                           {static_cast<qlonglong>(nExpiresAt), TextValue(sTokenHash)})
                       .Affected()
                == 1;
        });
        if (!bStillThere)
            return std::nullopt;
        optLive->nExpiresAt = nExpiresAt;
    }
    if (!bCached || optLive->nExpiresAt == nExpiresAt) {
        // A session that was signed out meanwhile does not come back.
        const std::lock_guard lock(m_mutex);
        if (nForgotten == m_nForgotten)
            m_mapLive[sTokenHash] = *optLive;
    }

    Context context;
    context.nAccountId = optLive->nAccountId;
    context.sUserName = optLive->sUserName;
    context.sTokenHash = sTokenHash;
    context.pRights = m_rights.RightsOf(optLive->nAccountId);
    return context;
}

} // namespace Platform

#include "SessionService.h"

#include "Log.h"
#include "Password.h"
#include "ServiceError.h"
#include "TextRules.h"

#include <wire/Operations.h>

#include <algorithm>

namespace Platform {

namespace {

constexpr std::size_t UnknownNameLimit = 1000;
// How much longer a session has to last than the database says before that is written down.
constexpr std::int64_t ExpiryStepMs = 60000;
constexpr std::int64_t DayMs = std::int64_t(24) * 60 * 60 * 1000;

} // namespace

SessionService::SessionService(DatabasePool& pool, EventHub& hub, RightsService& rights,
    const AuditService& audit, const Directory& directory, Clock clock, int nTokenLifetimeMinutes)
    : m_pool(pool)
    , m_hub(hub)
    , m_rights(rights)
    , m_audit(audit)
    , m_directory(directory)
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
                .Run(QStringLiteral("UPDATE account SET password_hash = ?, password_changed = ? "
                                    "WHERE id = 1 AND password_hash IS NULL"),
                    {TextValue(sHash), static_cast<qlonglong>(m_clock())})
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
            QStringLiteral("UPDATE account SET password_hash = ?, password_changed = ?, failed_count = 0, "
                           "locked_until = 0, force_change = 0 WHERE id = 1"),
            {TextValue(sHash), static_cast<qlonglong>(m_clock())});
        database.Run(QStringLiteral("DELETE FROM session WHERE account_id = 1"));
        m_audit.Write(database, Context{}, "command-line/set-password", "system", nullptr, nullptr);
    });
    const std::lock_guard lock(m_mutex);
    m_mapLive.clear();
}

std::optional<SessionService::Account> SessionService::ReadAccount(
    Database& database, const std::string& sNameKey, int& nFailed, std::int64_t& nLockedUntil)
{
    Account account;
    {
        Rows rows = database.Run(
            QStringLiteral(
                "SELECT id, name, password_hash, failed_count, locked_until, user_type, multi_login, "
                "force_change, password_days, password_changed, expires_at, lock_state, bind_mac "
                "FROM account WHERE name_key = ?"),
            {TextValue(sNameKey)});
        if (!rows.Next())
            return std::nullopt;
        account.nId = rows.Big(0);
        account.sName = rows.Text(1);
        account.sHash = rows.Text(2);
        nFailed = rows.Int(3);
        nLockedUntil = rows.Big(4);
        account.bDomain = rows.Int(5) == UserLogical::UserTypeDomain;
        account.bMultiLogin = rows.Int(6) != 0;
        account.bForceChange = rows.Int(7) != 0;
        account.nPasswordDue = rows.Int(8) == 0 ? 0 : rows.Big(9) + rows.Int(8) * DayMs;
        account.nExpiresAt = rows.Big(10);
        account.nLockState = rows.Int(11);
        account.bBindMac = rows.Int(12) != 0;
    }
    Rows rows = database.Run(QStringLiteral("SELECT mac FROM account_mac WHERE account_id = ?"),
        {static_cast<qlonglong>(account.nId)});
    while (rows.Next())
        account.vecMacs.push_back(rows.Text(0));
    return account;
}

// An attempt counts as failed until its password proved right: attempts side by side cannot outrun the lock.
SessionService::Account SessionService::Reserve(const std::string& sNameKey)
{
    const std::int64_t nNow = m_clock();
    Account account = m_pool.Write([&](Database& database) {
        std::int64_t nLockedUntil = 0;
        int nFailed = 0;
        const auto optFound = ReadAccount(database, sNameKey, nFailed, nLockedUntil);
        if (!optFound)
            return Account{};
        if (nLockedUntil > nNow)
            throw ServiceError(UICommonMdl::ErrorAccountLocked);
        nFailed = nLockedUntil > 0 ? 1 : nFailed + 1;
        nLockedUntil = nFailed >= WrongPasswordLimit ? nNow + LockMs : 0;
        database.Run(QStringLiteral("UPDATE account SET failed_count = ?, locked_until = ? WHERE id = ?"),
            {nFailed, static_cast<qlonglong>(nLockedUntil), static_cast<qlonglong>(optFound->nId)});
        return *optFound;
    });
    if (account.nId == 0)
        ReserveUnknown(sNameKey);
    return account;
}

void SessionService::Release(const Account& account)
{
    m_pool.Write([&](Database& database) {
        database.Run(QStringLiteral("UPDATE account SET failed_count = CASE WHEN failed_count > 0 "
                                    "THEN failed_count - 1 ELSE 0 END, locked_until = 0 WHERE id = ?"),
            {static_cast<qlonglong>(account.nId)});
    });
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

bool SessionService::KnowsPassword(const Account& account, const std::string& sPassword)
{
    if (!account.bDomain)
        return Password::Verify(account.sHash, sPassword);
    try {
        const auto optUser = m_directory.Find(account.sName);
        return optUser && m_directory.CheckPassword(optUser->sDn, sPassword);
    } catch (const ServiceError& error) {
        // A name that the directory has several times is nobody's.
        if (error.Code() == UICommonMdl::ErrorNameExists)
            return false;
        Release(account);
        throw;
    }
}

void SessionService::CheckAdmission(const Account& account, const wire::SignInRequest& request)
{
    const std::int64_t nNow = m_clock();
    if (account.nLockState != UserLogical::LockStateUsable)
        throw ServiceError(UICommonMdl::ErrorAccountDisabled);
    if (account.nExpiresAt != 0 && account.nExpiresAt <= nNow)
        throw ServiceError(UICommonMdl::ErrorAccountExpired);
    const auto isBound = [&account](std::string sMac) {
        sMac = FoldCase(sMac);
        return std::find(account.vecMacs.begin(), account.vecMacs.end(), sMac) != account.vecMacs.end();
    };
    if (account.bBindMac
        && std::none_of(request.vecMacAddresses.begin(), request.vecMacAddresses.end(), isBound))
        throw ServiceError(UICommonMdl::ErrorMacAddress);
    const bool bDue = account.bForceChange || (account.nPasswordDue != 0 && account.nPasswordDue <= nNow);
    if (bDue && !account.bDomain && request.sNewPassword.empty())
        throw ServiceError(UICommonMdl::ErrorPasswordChangeNeeded, account.bForceChange ? "first" : "age");
}

void SessionService::ChangePassword(
    const Context& context, const Account& account, const wire::SignInRequest& request)
{
    if (account.bDomain)
        throw ServiceError(UICommonMdl::ErrorInvalidInput, "sNewPassword");
    Password::CheckRule(request.sNewPassword, account.sName);
    if (request.sNewPassword == request.sPassword)
        throw ServiceError(UICommonMdl::ErrorPasswordRule, "another one than before");
    const std::string sHash = Password::Hash(request.sNewPassword);
    m_pool.Write([&](Database& database) {
        database.Run(
            QStringLiteral("UPDATE account SET password_hash = ?, password_changed = ?, force_change = 0, "
                           "version = version + 1 WHERE id = ?"),
            {TextValue(sHash), static_cast<qlonglong>(m_clock()), static_cast<qlonglong>(account.nId)});
        RemoveSessions(database, account.nId);
        Context owner = context;
        owner.sUserName = account.sName;
        m_audit.Write(database, owner, "session/new-password", account.sName, nullptr, nullptr);
    });
    ForgetAccount(account.nId);
}

void SessionService::LogRefusal(const Context& context, const std::string& sName, int nCode)
{
    Log::Warning("session", "A sign-in was refused",
        {{"client", context.sClientAddress}, {"code", std::to_string(nCode)}});
    m_pool.Write([&](Database& database) {
        Context refused = context;
        refused.sUserName = sName;
        m_audit.Write(database, refused, wire::SignIn::Name, sName, nullptr, {{"nErrorCode", nCode}});
    });
}

wire::Session SessionService::SignIn(const Context& context, const wire::SignInRequest& request)
{
    const std::string sNameKey = FoldCase(request.sUserName).substr(0, 256);
    if (sNameKey == UserLogical::BuiltInUserName && State().bSetupNeeded)
        throw ServiceError(UICommonMdl::ErrorSetupNeeded);
    const Account account = Reserve(sNameKey);
    if (!KnowsPassword(account, request.sPassword)) {
        // Names that no account has are not kept: they may be passwords that were typed into the wrong field.
        if (account.nId != 0)
            LogRefusal(context, account.sName, UICommonMdl::ErrorWrongPassword);
        else
            Log::Warning("session", "Wrong password", {{"client", context.sClientAddress}});
        throw ServiceError(UICommonMdl::ErrorWrongPassword);
    }
    try {
        CheckAdmission(account, request);
        if (!request.sNewPassword.empty())
            ChangePassword(context, account, request);
    } catch (const ServiceError& error) {
        Release(account);
        LogRefusal(context, account.sName, error.Code());
        throw;
    }
    return Open(context, account);
}

void SessionService::RemoveSessions(Database& database, std::int64_t nAccountId)
{
    database.Run(
        QStringLiteral("DELETE FROM session WHERE account_id = ?"), {static_cast<qlonglong>(nAccountId)});
}

void SessionService::ForgetAccount(std::int64_t nAccountId)
{
    {
        const std::lock_guard lock(m_mutex);
        std::erase_if(
            m_mapLive, [nAccountId](const auto& entry) { return entry.second.nAccountId == nAccountId; });
        ++m_nForgotten;
    }
    m_hub.EndAccount(nAccountId);
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
        if (!account.bMultiLogin)
            RemoveSessions(database, account.nId);
        database.Run(
            QStringLiteral("INSERT INTO session (token_hash, account_id, client_address, created_at, "
                           "expires_at) VALUES (?, ?, ?, ?, ?)"),
            {TextValue(sTokenHash), static_cast<qlonglong>(account.nId), TextValue(context.sClientAddress),
                static_cast<qlonglong>(nNow), static_cast<qlonglong>(nExpiresAt)});
        Context signedIn = context;
        signedIn.sUserName = account.sName;
        m_audit.Write(database, signedIn, wire::SignIn::Name, account.sName, nullptr, nullptr);
    });
    if (!account.bMultiLogin)
        ForgetAccount(account.nId);
    {
        const std::lock_guard lock(m_mutex);
        std::erase_if(m_mapLive, [nNow](const auto& entry) { return entry.second.nExpiresAt < nNow; });
        m_mapLive[sTokenHash] = {account.nId, account.sName, nExpiresAt};
    }
    wire::Session session = Describe(account.sName, *m_rights.RightsOf(account.nId));
    session.sToken = sToken;
    return session;
}

wire::Session SessionService::Describe(const std::string& sUserName, const AccountRights& rights)
{
    wire::Session session;
    session.sUserName = sUserName;
    session.vecMenuRights = m_rights.MenuOf(rights.setCodes);
    session.vecRights.assign(rights.setCodes.begin(), rights.setCodes.end());
    session.sUserType = rights.TypeText();
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

#include "UserService.h"

#include "AccountRules.h"
#include "RoleService.h"
#include "ServiceError.h"
#include "services/Password.h"
#include "services/TextRules.h"
#include "store/TextSearch.h"

#include <wire/Operations.h>

#include <algorithm>
#include <unordered_map>

namespace Platform {

using namespace UserLogical;

namespace {

constexpr std::int64_t BuiltInId = 1;

bool HasAccount(Database& database, const std::string& sUserName)
{
    return database
        .Run(QStringLiteral("SELECT 1 FROM account WHERE name_key = ?"), {TextValue(FoldCase(sUserName))})
        .Next();
}

std::vector<std::string> RoleIdsOf(Database& database, std::int64_t nAccountId)
{
    std::vector<std::string> vecIds;
    Rows rows =
        database.Run(QStringLiteral("SELECT ar.role_id FROM account_role ar JOIN role r ON r.id = ar.role_id "
                                    "WHERE ar.account_id = ? ORDER BY r.name_key"),
            {static_cast<qlonglong>(nAccountId)});
    while (rows.Next())
        vecIds.push_back(std::to_string(rows.Big(0)));
    return vecIds;
}

/// What is kept of a user but his name, roles and addresses.
QVariantList Values(const User_t& user)
{
    return {user.bMultiLogin ? 1 : 0, user.bForceChange ? 1 : 0,
        user.bPasswordInterval ? user.nPasswordDays : 0,
        static_cast<qlonglong>(user.bExpiry ? user.nExpiry : 0), user.nPtzLevel, TextValue(user.sEmail),
        TextValue(user.sRemark), user.bBindMac ? 1 : 0};
}

/// What the log keeps of a user: the names of his roles instead of their numbers.
nlohmann::json LogRecord(Database& database, const User_t& user)
{
    nlohmann::json record = user;
    nlohmann::json roles = nlohmann::json::array();
    for (const std::string& sRoleId : user.vecRoleIds)
        roles.push_back(RoleService::Read(database, AccountRules::RoleNumber(sRoleId)).sName);
    record.erase("vecRoleIds");
    record["vecRoles"] = std::move(roles);
    return record;
}

/// The built-in account keeps what lets somebody in at any time.
void CheckBuiltIn(const User_t& user, const std::vector<std::string>& vecOldRoles)
{
    if (user.bExpiry || user.bBindMac || user.vecRoleIds != vecOldRoles)
        throw ServiceError(UICommonMdl::ErrorBuiltInAccount);
}

} // namespace

UserService::UserService(DatabasePool& pool, EventHub& hub, const AuditService& audit, RightsService& rights,
    SessionService& sessions, const Directory& directory, Clock clock)
    : m_pool(pool)
    , m_hub(hub)
    , m_audit(audit)
    , m_rights(rights)
    , m_sessions(sessions)
    , m_directory(directory)
    , m_clock(std::move(clock))
{
}

UserPage_t UserService::QueryPage(const UserPageRequest_t& request)
{
    CheckPage(request.nPage, request.nPageSize);
    const std::set<std::int64_t> setOnline = m_hub.Accounts();
    return m_pool.Read([&](Database& database) {
        QString sWhere = QStringLiteral(" WHERE a.name_key LIKE ? ESCAPE '\\'");
        QVariantList values{TextSearch::LikePattern(FoldCase(Trimmed(request.sSearchText)))};
        if (request.nUserType != UserTypeAll) {
            sWhere += QLatin1String(" AND a.user_type = ?");
            values << request.nUserType;
        }
        if (request.nOnline != OnlineFilterAll) {
            sWhere += QLatin1String(request.nOnline == OnlineFilterOnline ? " AND a.id" : " AND NOT a.id");
            sWhere += database.InList({setOnline.begin(), setOnline.end()}, values);
        }
        UserPage_t page;
        {
            Rows rows = database.Run(QLatin1String("SELECT COUNT(*) FROM account a") + sWhere, values);
            rows.Next();
            page.nTotal = rows.Int(0);
        }
        page.nPage = std::clamp(
            request.nPage, 1, std::max(1, (page.nTotal + request.nPageSize - 1) / request.nPageSize));
        values << request.nPageSize << static_cast<qlonglong>(page.nPage - 1) * request.nPageSize;
        std::unordered_map<std::int64_t, std::size_t> mapPlaces;
        std::vector<std::int64_t> vecIds;
        {
            Rows rows =
                database.Run(QLatin1String("SELECT a.id, a.name, a.user_type, a.lock_state FROM account a")
                        + sWhere + QLatin1String(" ORDER BY a.name_key LIMIT ? OFFSET ?"),
                    values);
            while (rows.Next()) {
                vecIds.push_back(rows.Big(0));
                mapPlaces[rows.Big(0)] = page.vecUsers.size();
                page.vecUsers.push_back(
                    {rows.Text(1), {}, setOnline.count(rows.Big(0)) != 0, rows.Int(2), rows.Int(3)});
            }
        }
        QVariantList ids;
        const QString sIn = database.InList(vecIds, ids);
        Rows rows = database.Run(QLatin1String("SELECT ar.account_id, r.name FROM account_role ar "
                                               "JOIN role r ON r.id = ar.role_id WHERE ar.account_id")
                + sIn + QLatin1String(" ORDER BY r.name_key"),
            ids);
        while (rows.Next())
            page.vecUsers[mapPlaces[rows.Big(0)]].vecRoleNames.push_back(rows.Text(1));
        return page;
    });
}

UserService::Account UserService::Read(Database& database, const std::string& sName) const
{
    Account account;
    User_t& user = account.user;
    {
        Rows rows = database.Run(
            QStringLiteral(
                "SELECT id, name, multi_login, force_change, password_days, password_changed, "
                "expires_at, ptz_level, email, remark, bind_mac, user_type, domain_dn, lock_state, "
                "version FROM account WHERE name_key = ?"),
            {TextValue(FoldCase(Trimmed(sName)))});
        if (!rows.Next())
            throw ServiceError(UICommonMdl::ErrorNotFound);
        account.nId = rows.Big(0);
        user.sUserName = rows.Text(1);
        user.bMultiLogin = rows.Int(2) != 0;
        user.bForceChange = rows.Int(3) != 0;
        user.bPasswordInterval = rows.Int(4) != 0;
        if (user.bPasswordInterval)
            user.nPasswordDays = rows.Int(4);
        user.nPasswordChanged = rows.Big(5);
        user.nExpiry = rows.Big(6);
        user.bExpiry = user.nExpiry != 0;
        user.nPtzLevel = rows.Int(7);
        user.sEmail = rows.Text(8);
        user.sRemark = rows.Text(9);
        user.bBindMac = rows.Int(10) != 0;
        user.nUserType = rows.Int(11);
        user.sDomainUser = rows.Text(12);
        user.nLockState = rows.Int(13);
        user.nVersion = rows.Big(14);
    }
    {
        Rows rows =
            database.Run(QStringLiteral("SELECT mac FROM account_mac WHERE account_id = ? ORDER BY place"),
                {static_cast<qlonglong>(account.nId)});
        while (rows.Next())
            user.vecMacAddresses.push_back(rows.Text(0));
    }
    user.vecRoleIds = RoleIdsOf(database, account.nId);
    user.bOnline = m_hub.Accounts().count(account.nId) != 0;
    return account;
}

User_t UserService::Info(const wire::UserName& name)
{
    return m_pool.Read([&](Database& database) { return Read(database, name.sUserName).user; });
}

wire::Roles UserService::RolesOf(const wire::UserName& name)
{
    return m_pool.Read([&](Database& database) {
        wire::Roles answer;
        for (const std::string& sRoleId : Read(database, name.sUserName).user.vecRoleIds)
            answer.vecRoles.push_back(RoleService::Read(database, AccountRules::RoleNumber(sRoleId)));
        return answer;
    });
}

void UserService::WriteParts(Database& database, const Context& context, std::int64_t nId, const User_t& user,
    const std::vector<std::string>& vecOldRoles)
{
    const QVariant id = static_cast<qlonglong>(nId);
    database.Run(QStringLiteral("DELETE FROM account_mac WHERE account_id = ?"), {id});
    int nPlace = 0;
    for (const std::string& sMac : user.vecMacAddresses)
        database.Run(QStringLiteral("INSERT INTO account_mac (account_id, place, mac) VALUES (?, ?, ?)"),
            {id, nPlace++, TextValue(sMac)});
    database.Run(QStringLiteral("DELETE FROM account_role WHERE account_id = ?"), {id});
    for (const std::string& sRoleId : std::set<std::string>(user.vecRoleIds.begin(), user.vecRoleIds.end())) {
        const std::int64_t nRoleId = AccountRules::RoleNumber(sRoleId);
        if (std::find(vecOldRoles.begin(), vecOldRoles.end(), sRoleId) == vecOldRoles.end())
            AccountRules::CheckRoleGivable(database, context, nRoleId);
        database.Run(QStringLiteral("INSERT INTO account_role (account_id, role_id) VALUES (?, ?)"),
            {id, static_cast<qlonglong>(nRoleId)});
    }
}

void UserService::InsertAccount(Database& database, const Context& context, std::string_view sOperation,
    const User_t& user, const std::string& sPasswordHash)
{
    const std::int64_t nId = database.NextNumber(QStringLiteral("account"));
    QVariantList values{static_cast<qlonglong>(nId), TextValue(user.sUserName),
        TextValue(FoldCase(user.sUserName)), user.nUserType, TextValue(user.sDomainUser),
        static_cast<qlonglong>(m_clock()),
        sPasswordHash.empty() ? QVariant(QVariant::String) : TextValue(sPasswordHash)};
    database.Run(
        QStringLiteral("INSERT INTO account (id, name, name_key, user_type, domain_dn, password_changed, "
                       "password_hash, multi_login, force_change, password_days, expires_at, ptz_level, "
                       "email, remark, bind_mac) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"),
        values + Values(user));
    WriteParts(database, context, nId, user, {});
    m_audit.Write(database, context, sOperation, user.sUserName, nullptr,
        LogRecord(database, Read(database, user.sUserName).user));
}

User_t UserService::Add(const Context& context, const User_t& user)
{
    User_t added = AccountRules::Checked(user);
    if (added.nUserType != UserTypeNormal)
        throw ServiceError(UICommonMdl::ErrorInvalidInput, "nUserType");
    if (added.bExpiry && added.nExpiry < m_clock())
        throw ServiceError(UICommonMdl::ErrorInvalidInput, "nExpiry");
    Password::CheckRule(added.sPassword, added.sUserName);
    added.sDomainUser.clear();
    const std::string sHash = Password::Hash(added.sPassword);
    added = m_pool.Write([&](Database& database) {
        if (HasAccount(database, added.sUserName))
            throw ServiceError(UICommonMdl::ErrorNameExists, "sUserName");
        InsertAccount(database, context, wire::AddUser::Name, added, sHash);
        return Read(database, added.sUserName).user;
    });
    Changed();
    return added;
}

User_t UserService::Modify(const Context& context, const User_t& user)
{
    const User_t wanted = AccountRules::Checked(user);
    std::string sHash;
    if (!wanted.sPassword.empty()) {
        Password::CheckRule(wanted.sPassword, wanted.sUserName);
        sHash = Password::Hash(wanted.sPassword);
    }
    std::int64_t nId = 0;
    User_t changed = m_pool.Write([&](Database& database) {
        const Account before = Read(database, wanted.sUserName);
        nId = before.nId;
        if (before.user.nVersion != wanted.nVersion)
            throw ServiceError(UICommonMdl::ErrorVersionConflict);
        // An expiry that has passed stays as it is until somebody sets another one.
        if (wanted.bExpiry && wanted.nExpiry != before.user.nExpiry && wanted.nExpiry < m_clock())
            throw ServiceError(UICommonMdl::ErrorInvalidInput, "nExpiry");
        if (nId == BuiltInId)
            CheckBuiltIn(wanted, before.user.vecRoleIds);
        AccountRules::CheckNotAbove(database, context, nId);
        const nlohmann::json logBefore = LogRecord(database, before.user);
        const QVariant id = static_cast<qlonglong>(nId);
        database.Run(
            QStringLiteral("UPDATE account SET multi_login = ?, force_change = ?, password_days = ?, "
                           "expires_at = ?, ptz_level = ?, email = ?, remark = ?, bind_mac = ?, "
                           "version = version + 1 WHERE id = ?"),
            Values(wanted) + QVariantList{id});
        if (!sHash.empty()) {
            if (before.user.nUserType == UserTypeDomain)
                throw ServiceError(UICommonMdl::ErrorInvalidInput, "sPassword");
            database.Run(QStringLiteral("UPDATE account SET password_hash = ?, password_changed = ?, "
                                        "failed_count = 0, locked_until = 0 WHERE id = ?"),
                {TextValue(sHash), static_cast<qlonglong>(m_clock()), id});
            if (nId != context.nAccountId)
                SessionService::RemoveSessions(database, nId);
        }
        WriteParts(database, context, nId, wanted, before.user.vecRoleIds);
        AccountRules::CheckManagerLeft(database, 0);
        User_t after = Read(database, wanted.sUserName).user;
        nlohmann::json logged = LogRecord(database, after);
        if (!sHash.empty())
            logged["bPasswordChanged"] = true;
        m_audit.Write(database, context, wire::ModifyUser::Name, after.sUserName, logBefore, logged);
        return after;
    });
    if (!sHash.empty() && nId != context.nAccountId)
        m_sessions.ForgetAccount(nId);
    Changed();
    return changed;
}

void UserService::SetLock(
    const Context& context, const std::string& sName, std::string_view sOperation, int nState)
{
    std::int64_t nId = 0;
    m_pool.Write([&](Database& database) {
        const Account before = Read(database, sName);
        nId = before.nId;
        if (nId == BuiltInId)
            throw ServiceError(UICommonMdl::ErrorBuiltInAccount);
        if (nId == context.nAccountId)
            throw ServiceError(UICommonMdl::ErrorOwnAccount);
        AccountRules::CheckNotAbove(database, context, nId);
        if (nState != LockStateUsable) {
            AccountRules::CheckManagerLeft(database, nId);
            SessionService::RemoveSessions(database, nId);
        }
        // Wrong passwords are forgotten together with the lock.
        database.Run(QStringLiteral("UPDATE account SET lock_state = ?, failed_count = 0, locked_until = 0, "
                                    "version = version + 1 WHERE id = ?"),
            {nState, static_cast<qlonglong>(nId)});
        m_audit.Write(database, context, sOperation, before.user.sUserName,
            {{"nLockState", before.user.nLockState}}, {{"nLockState", nState}});
    });
    if (nState != LockStateUsable)
        m_sessions.ForgetAccount(nId);
    Changed();
}

void UserService::Lock(const Context& context, const wire::UserName& name)
{
    SetLock(context, name.sUserName, wire::LockUser::Name, LockStateLocked);
}

void UserService::Unlock(const Context& context, const wire::UserName& name)
{
    SetLock(context, name.sUserName, wire::UnlockUser::Name, LockStateUsable);
}

void UserService::DeleteOne(Database& database, const Context& context, std::string_view sOperation,
    const std::string& sName, std::vector<std::int64_t>& vecGone)
{
    const Account account = Read(database, sName);
    if (account.nId == BuiltInId)
        throw ServiceError(UICommonMdl::ErrorBuiltInAccount);
    if (account.nId == context.nAccountId)
        throw ServiceError(UICommonMdl::ErrorOwnAccount);
    AccountRules::CheckNotAbove(database, context, account.nId);
    AccountRules::CheckManagerLeft(database, account.nId);
    const nlohmann::json logged = LogRecord(database, account.user);
    database.Run(QStringLiteral("DELETE FROM account WHERE id = ?"), {static_cast<qlonglong>(account.nId)});
    m_audit.Write(database, context, sOperation, account.user.sUserName, logged, nullptr);
    vecGone.push_back(account.nId);
}

wire::UserFailures UserService::DeleteEach(
    const Context& context, std::string_view sOperation, const std::vector<std::string>& vecNames)
{
    AccountRules::CheckBatch(vecNames.size(), "vecUserNames");
    std::vector<std::int64_t> vecGone;
    wire::UserFailures answer = m_pool.Write([&](Database& database) {
        wire::UserFailures failed;
        for (const std::string& sName : std::set<std::string>(vecNames.begin(), vecNames.end())) {
            try {
                DeleteOne(database, context, sOperation, sName, vecGone);
            } catch (const ServiceError& error) {
                if (error.Code() < UICommonMdl::ErrorNotSignedIn)
                    throw;
                failed.vecFailed.push_back({sName, error.Code()});
            }
        }
        return failed;
    });
    for (const std::int64_t nId : vecGone)
        m_sessions.ForgetAccount(nId);
    if (!vecGone.empty())
        Changed();
    return answer;
}

wire::UserFailures UserService::Delete(const Context& context, const wire::UserNames& names)
{
    return DeleteEach(context, wire::DeleteUsers::Name, names.vecUserNames);
}

wire::DomainUsers UserService::QueryDomainUsers(const wire::SearchText& text)
{
    const Directory::Found found = m_directory.Search(Trimmed(text.sSearchText), DirectoryLimit);
    return m_pool.Read([&found](Database& database) {
        wire::DomainUsers answer;
        answer.bTruncated = found.bTruncated;
        for (const DirectoryUser& user : found.vecUsers) {
            if (!HasAccount(database, user.sName))
                answer.vecDomainUsers.push_back({user.sName, user.sDn});
        }
        return answer;
    });
}

wire::UserFailures UserService::AddDomainUsers(
    const Context& context, const wire::AddDomainUsersRequest& request)
{
    AccountRules::CheckBatch(request.vecUserNames.size(), "vecUserNames");
    AccountRules::CheckBatch(request.vecRoleIds.size(), "vecRoleIds");
    // The directory is asked before the transaction, which lasts no longer than the database takes.
    std::vector<User_t> vecUsers;
    wire::UserFailures answer;
    for (const std::string& sName :
        std::set<std::string>(request.vecUserNames.begin(), request.vecUserNames.end())) {
        std::optional<DirectoryUser> optFound;
        try {
            optFound = m_directory.Find(sName);
        } catch (const ServiceError& error) {
            // One name that the directory has several times does not spoil the others.
            if (error.Code() != UICommonMdl::ErrorNameExists)
                throw;
        }
        if (!optFound) {
            answer.vecFailed.push_back({sName, UICommonMdl::ErrorNotFound});
            continue;
        }
        User_t user;
        user.sUserName = optFound->sName;
        user.sDomainUser = optFound->sDn;
        user.nUserType = UserTypeDomain;
        user.vecRoleIds = request.vecRoleIds;
        vecUsers.push_back(std::move(user));
    }
    m_pool.Write([&](Database& database) {
        for (const User_t& user : vecUsers) {
            try {
                const User_t checked = AccountRules::Checked(user);
                if (HasAccount(database, checked.sUserName))
                    throw ServiceError(UICommonMdl::ErrorNameExists);
                for (const std::string& sRoleId : checked.vecRoleIds)
                    AccountRules::CheckRoleGivable(database, context, AccountRules::RoleNumber(sRoleId));
                InsertAccount(database, context, wire::AddDomainUsers::Name, checked, {});
            } catch (const ServiceError& error) {
                if (error.Code() < UICommonMdl::ErrorNotSignedIn
                    && error.Code() != UICommonMdl::ErrorInvalidInput)
                    throw;
                answer.vecFailed.push_back({user.sUserName, error.Code()});
            }
        }
    });
    Changed();
    return answer;
}

bool UserService::IsInDirectory(const std::string& sName) const
{
    try {
        return m_directory.Find(sName).has_value();
    } catch (const ServiceError& error) {
        // Several of that name: it is there, although nobody can sign in by it.
        if (error.Code() == UICommonMdl::ErrorNameExists)
            return true;
        throw;
    }
}

wire::DomainUsers UserService::QueryInvalidDomainUsers()
{
    const std::vector<DomainUser_t> vecKnown = m_pool.Read([](Database& database) {
        std::vector<DomainUser_t> vecUsers;
        Rows rows = database.Run(
            QStringLiteral("SELECT name, domain_dn FROM account WHERE user_type = 2 ORDER BY name_key"));
        while (rows.Next())
            vecUsers.push_back({rows.Text(0), rows.Text(1)});
        return vecUsers;
    });
    wire::DomainUsers answer;
    if (!m_directory.IsConfigured())
        throw ServiceError(UICommonMdl::ErrorDirectoryNotConfigured);
    for (const DomainUser_t& user : vecKnown)
        if (!IsInDirectory(user.sUserName))
            answer.vecDomainUsers.push_back(user);
    return answer;
}

wire::UserFailures UserService::DeleteInvalidDomainUsers(const Context& context, const wire::UserNames& names)
{
    AccountRules::CheckBatch(names.vecUserNames.size(), "vecUserNames");
    std::vector<std::string> vecInvalid;
    wire::UserFailures answer;
    for (const std::string& sName : names.vecUserNames) {
        const bool bDomain = m_pool.Read([&](Database& database) {
            Rows rows =
                database.Run(QStringLiteral("SELECT 1 FROM account WHERE name_key = ? AND user_type = 2"),
                    {TextValue(FoldCase(Trimmed(sName)))});
            return rows.Next();
        });
        // Somebody may have come back to the directory since it was asked.
        if (!bDomain)
            answer.vecFailed.push_back({sName, UICommonMdl::ErrorNotFound});
        else if (IsInDirectory(sName))
            answer.vecFailed.push_back({sName, UICommonMdl::ErrorReferenced});
        else
            vecInvalid.push_back(sName);
    }
    if (vecInvalid.empty())
        return answer;
    const wire::UserFailures failed = DeleteEach(context, wire::DeleteInvalidDomainUsers::Name, vecInvalid);
    answer.vecFailed.insert(answer.vecFailed.end(), failed.vecFailed.begin(), failed.vecFailed.end());
    return answer;
}

void UserService::Changed()
{
    m_rights.Reload();
    m_hub.Publish(wire::event::UsersChanged);
}

} // namespace Platform

#pragma once

#include "directory/Directory.h"
#include "services/AuditService.h"
#include "services/Context.h"
#include "services/RightsService.h"
#include "services/SessionService.h"
#include "store/DatabasePool.h"

#include <wire/Records.h>

#include <optional>

namespace Platform {

/// The platform's accounts. Any thread; faults are ServiceError.
class UserService
{
public:
    static constexpr std::size_t DirectoryLimit = 1000;

    /// All are borrowed.
    UserService(DatabasePool& pool, EventHub& hub, const AuditService& audit, RightsService& rights,
        SessionService& sessions, const Directory& directory, Clock clock);

    UserLogical::UserPage_t QueryPage(const UserLogical::UserPageRequest_t& request);
    UserLogical::User_t Info(const wire::UserName& name);
    wire::Roles RolesOf(const wire::UserName& name);
    UserLogical::User_t Add(const Context& context, const UserLogical::User_t& user);
    UserLogical::User_t Modify(const Context& context, const UserLogical::User_t& user);
    /// Ends the account's sessions.
    void Lock(const Context& context, const wire::UserName& name);
    void Unlock(const Context& context, const wire::UserName& name);
    /// Each account is deleted with its sessions, or listed.
    wire::UserFailures Delete(const Context& context, const wire::UserNames& names);

    wire::DomainUsers QueryDomainUsers(const wire::SearchText& text);
    /// Each user is added or listed.
    wire::UserFailures AddDomainUsers(const Context& context, const wire::AddDomainUsersRequest& request);
    /// Domain users of the platform that the directory no longer holds.
    wire::DomainUsers QueryInvalidDomainUsers();
    /// As Delete, for users that are of that kind still.
    wire::UserFailures DeleteInvalidDomainUsers(const Context& context, const wire::UserNames& names);

private:
    struct Account
    {
        std::int64_t nId = 0;
        UserLogical::User_t user;
    };
    /// Throws ErrorNotFound.
    Account Read(Database& database, const std::string& sName) const;
    void InsertAccount(Database& database, const Context& context, std::string_view sOperation,
        const UserLogical::User_t& user, const std::string& sPasswordHash);
    /// Whatever hangs on the account: addresses and roles.
    void WriteParts(Database& database, const Context& context, std::int64_t nId,
        const UserLogical::User_t& user, const std::vector<std::string>& vecOldRoles);
    void SetLock(const Context& context, const std::string& sName, std::string_view sOperation, int nState);
    void DeleteOne(Database& database, const Context& context, std::string_view sOperation,
        const std::string& sName, std::vector<std::int64_t>& vecGone);
    wire::UserFailures DeleteEach(
        const Context& context, std::string_view sOperation, const std::vector<std::string>& vecNames);
    bool IsInDirectory(const std::string& sName) const;
    void Changed();

    DatabasePool& m_pool;
    EventHub& m_hub;
    const AuditService& m_audit;
    RightsService& m_rights;
    SessionService& m_sessions;
    const Directory& m_directory;
    const Clock m_clock;
};

} // namespace Platform

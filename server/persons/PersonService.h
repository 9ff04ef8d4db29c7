#pragma once

#include "DepartmentService.h"
#include "PersonPages.h"
#include "PhotoStore.h"
#include "services/SecretBox.h"

namespace Platform {

class AuthorizationService;

/// Persons. Any thread; faults are ServiceError.
class PersonService
{
public:
    /// All are borrowed.
    PersonService(DatabasePool& pool, EventHub& hub, const AuditService& audit, Generations& generations,
        const SecretBox& box, const PhotoStore& photos, AuthorizationService& authorization);

    AccessControlLogical::PersonPage_t QueryPage(const AccessControlLogical::PersonPageRequest_t& request);
    AccessControlLogical::Person_t QueryDetail(const wire::PersonId& id);
    AccessControlLogical::PermissionChoices_t QueryChoices(const Context& context);
    AccessControlLogical::ResidenceScenario_t QueryResidence();
    AccessControlLogical::Person_t Add(const Context& context, const AccessControlLogical::Person_t& person);
    AccessControlLogical::Person_t Modify(
        const Context& context, const AccessControlLogical::Person_t& person);
    wire::PersonBatchAnswer Delete(const Context& context, const wire::PersonIds& ids);
    void DeleteAll(const Context& context, const wire::DeleteAllPersonsRequest& request);
    wire::PersonBatchAnswer Move(const Context& context, const wire::MovePersonsRequest& request);
    void IssueCards(const Context& context, const wire::IssueCardsRequest& request);
    wire::PersonBatchAnswer Authorize(const Context& context, const wire::AuthorizePersonsRequest& request);
    void DeleteDepartment(const Context& context, DepartmentService& departments, const wire::Code& code);

    /// The JPEG file behind an address that PersonRecords::PhotoUrl made.
    QByteArray Photo(const std::string& sPersonId, const std::string& sPhoto);

private:
    /// Changes the persons of a batch one by one in one transaction; those that are gone are listed.
    template <class Change>
    wire::PersonBatchAnswer ChangeEach(const Context& context, std::string_view sOperation,
        const std::vector<std::string>& vecIds, Change change);
    void Write(Database& database, const AccessControlLogical::Person_t& before,
        AccessControlLogical::Person_t& after, const Context& context, std::string_view sOperation);
    std::vector<std::string> RemoveOfGroups(
        Database& database, const Context& context, const std::vector<std::string>& vecGroupCodes);
    void Changed();

    DatabasePool& m_pool;
    EventHub& m_hub;
    const AuditService& m_audit;
    Generations& m_generations;
    const SecretBox& m_box;
    const PhotoStore& m_photos;
    AuthorizationService& m_authorization;
    PersonPages m_pages;
};

} // namespace Platform

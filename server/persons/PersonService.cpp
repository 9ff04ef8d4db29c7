#include "PersonService.h"

#include "AuthorizationService.h"
#include "PermissionScope.h"
#include "PersonRecords.h"
#include "PersonRules.h"
#include "ServiceError.h"
#include "services/TextRules.h"

#include <wire/Operations.h>

#include <set>

namespace Platform {

using namespace AccessControlLogical;

namespace {

std::vector<std::string> CheckedIds(const std::vector<std::string>& vecIds)
{
    if (vecIds.size() > PersonBatchLimit)
        throw ServiceError(UICommonMdl::ErrorInvalidInput, "vecPersonIds");
    const std::set<std::string> ids(vecIds.begin(), vecIds.end());
    return {ids.begin(), ids.end()};
}

Person_t Checked(const Person_t& person)
{
    Person_t cleaned = PersonRules::Cleaned(person);
    if (const std::string sField = PersonRules::FaultyField(cleaned); !sField.empty())
        throw ServiceError(UICommonMdl::ErrorInvalidInput, sField);
    return cleaned;
}

void CheckFree(Database& database, const Person_t& person, bool bNew)
{
    const auto vecClashes = PersonRecords::Clashes(database, person, bNew);
    if (!vecClashes.empty())
        throw ServiceError(UICommonMdl::ErrorPersonDuplicate, wire::ClashText(vecClashes));
}

/// As the log keeps a person: the photo and templates are not for it.
Person_t ForAudit(Person_t person)
{
    person.sPhotoData.clear();
    for (Fingerprint_t& fingerprint : person.vecFingerprints)
        fingerprint.sTemplate.clear();
    return person;
}

std::vector<Choice_t> ReadChoices(Database& database, const QString& sTable)
{
    std::vector<Choice_t> vecChoices;
    Rows rows = database.Run(QLatin1String("SELECT id, name FROM ") + sTable + QLatin1String(" ORDER BY id"));
    while (rows.Next())
        vecChoices.push_back({rows.Text(0), rows.Text(1)});
    return vecChoices;
}

} // namespace

PersonService::PersonService(DatabasePool& pool, EventHub& hub, const AuditService& audit,
    Generations& generations, const SecretBox& box, const PhotoStore& photos,
    AuthorizationService& authorization)
    : m_pool(pool)
    , m_hub(hub)
    , m_audit(audit)
    , m_generations(generations)
    , m_box(box)
    , m_photos(photos)
    , m_authorization(authorization)
    , m_pages(generations)
{
}

PersonPage_t PersonService::QueryPage(const PersonPageRequest_t& request)
{
    return m_pool.Read([&](Database& database) { return m_pages.Page(database, request); });
}

Person_t PersonService::QueryDetail(const wire::PersonId& id)
{
    auto optPerson =
        m_pool.Read([&](Database& database) { return PersonRecords::Find(database, id.sPersonId); });
    if (!optPerson)
        throw ServiceError(UICommonMdl::ErrorNotFound);
    return std::move(*optPerson);
}

PermissionChoices_t PersonService::QueryChoices(const Context& context)
{
    return m_pool.Read([&context](Database& database) {
        PermissionChoices_t choices;
        choices.vecAccessGroups = ReadChoices(database, QStringLiteral("access_group"));
        choices.vecFaceGroups = ReadChoices(database, QStringLiteral("face_group"));
        Rows rows =
            database.Run(QStringLiteral("SELECT f.id, d.name, f.channel_name, f.floor FROM lift_floor f "
                                        "JOIN device d ON d.id = f.device_id ORDER BY f.device_id, f.id"));
        while (rows.Next())
            choices.vecLiftFloors.push_back({rows.Text(0), rows.Text(1), rows.Text(2), rows.Text(3)});
        PermissionScope::Filter(database, context.Scope(), choices);
        return choices;
    });
}

ResidenceScenario_t PersonService::QueryResidence()
{
    return m_pool.Read([](Database& database) {
        ResidenceScenario_t residence;
        Rows rows = database.Run(QStringLiteral("SELECT number FROM room ORDER BY number"));
        while (rows.Next())
            residence.vecRooms.push_back(rows.Text(0));
        residence.bEnabled = !residence.vecRooms.empty();
        return residence;
    });
}

Person_t PersonService::Add(const Context& context, const Person_t& person)
{
    Person_t added = Checked(person);
    added.nVersion = 1;
    const std::string sPhoto = person.sPhotoData.empty() ? std::string() : m_photos.Add(person.sPhotoData);
    try {
        m_pool.Write([&](Database& database) {
            PersonRecords::CheckChoices(database, added);
            PermissionScope::Protect(database, context.Scope(), nullptr, added);
            CheckFree(database, added, true);
            PersonRecords::Insert(database, m_box, added, sPhoto);
            AuthorizationService::PersonChanged(database, added.sPersonId);
            added = PersonRecords::Find(database, added.sPersonId).value();
            m_audit.Write(database, context, wire::AddPerson::Name, added.sPersonId, nullptr, added);
        });
    } catch (const ServiceError&) {
        m_photos.Remove({sPhoto});
        throw;
    }
    Changed();
    return added;
}

void PersonService::Write(Database& database, const Person_t& before, Person_t& after, const Context& context,
    std::string_view sOperation)
{
    after.nVersion = before.nVersion + 1;
    PersonRecords::Update(database, m_box, after, PersonRecords::PhotoOf(database, after.sPersonId));
    AuthorizationService::PersonChanged(database, after.sPersonId);
    m_audit.Write(database, context, sOperation, after.sPersonId, before, ForAudit(after));
}

Person_t PersonService::Modify(const Context& context, const Person_t& person)
{
    Person_t after = Checked(person);
    const std::string sNewPhoto = person.sPhotoData.empty() ? std::string() : m_photos.Add(person.sPhotoData);
    std::string sOldPhoto;
    try {
        m_pool.Write([&](Database& database) {
            const auto optBefore = PersonRecords::Find(database, after.sPersonId);
            if (!optBefore)
                throw ServiceError(UICommonMdl::ErrorNotFound);
            if (optBefore->nVersion != person.nVersion)
                throw ServiceError(UICommonMdl::ErrorVersionConflict);
            PersonRecords::CheckChoices(database, after);
            PermissionScope::Protect(database, context.Scope(), &*optBefore, after);
            CheckFree(database, after, false);
            after.nVersion = optBefore->nVersion + 1;
            const std::string sPresent = PersonRecords::PhotoOf(database, after.sPersonId);
            const bool bKept = sNewPhoto.empty() && !person.sPhotoUrl.empty();
            sOldPhoto = bKept ? std::string() : sPresent;
            PersonRecords::Update(database, m_box, after, bKept ? sPresent : sNewPhoto);
            AuthorizationService::PersonChanged(database, after.sPersonId);
            after = PersonRecords::Find(database, after.sPersonId).value();
            m_audit.Write(database, context, wire::ModifyPerson::Name, after.sPersonId, *optBefore, after);
        });
    } catch (const ServiceError&) {
        m_photos.Remove({sNewPhoto});
        throw;
    }
    m_photos.Remove({sOldPhoto});
    Changed();
    return after;
}

template <class Change>
wire::PersonBatchAnswer PersonService::ChangeEach(const Context& context, std::string_view sOperation,
    const std::vector<std::string>& vecIds, Change change)
{
    wire::PersonBatchAnswer answer = m_pool.Write([&](Database& database) {
        wire::PersonBatchAnswer result;
        for (const std::string& sPersonId : CheckedIds(vecIds)) {
            const auto optBefore = PersonRecords::Find(database, sPersonId);
            if (!optBefore) {
                result.vecFailed.push_back({sPersonId, {}, UICommonMdl::ErrorNotFound, {}});
                continue;
            }
            Person_t after = *optBefore;
            change(database, after);
            PermissionScope::Protect(database, context.Scope(), &*optBefore, after);
            Write(database, *optBefore, after, context, sOperation);
        }
        return result;
    });
    Changed();
    return answer;
}

wire::PersonBatchAnswer PersonService::Move(const Context& context, const wire::MovePersonsRequest& request)
{
    return ChangeEach(
        context, wire::MovePersons::Name, request.vecPersonIds, [&](Database& database, Person_t& person) {
            person.sGroupCode = request.sGroupCode;
            DepartmentService::Codes(database, request.sGroupCode, false);
        });
}

wire::PersonBatchAnswer PersonService::Authorize(
    const Context& context, const wire::AuthorizePersonsRequest& request)
{
    return ChangeEach(context, wire::AuthorizePersons::Name, request.vecPersonIds,
        [&](Database& database, Person_t& person) {
            person.vecAccessGroups = request.vecAccessGroups;
            person.vecFaceGroups = request.vecFaceGroups;
            PersonRecords::CheckChoices(database, person);
        });
}

void PersonService::IssueCards(const Context& context, const wire::IssueCardsRequest& request)
{
    if (request.vecCards.size() > PersonBatchLimit || request.vecCards.empty())
        throw ServiceError(UICommonMdl::ErrorInvalidInput, "vecCards");
    if (!PersonRules::IsPeriod(request.nValidFrom, request.nValidTo))
        throw ServiceError(UICommonMdl::ErrorInvalidInput, "nValidTo");
    m_pool.Write([&](Database& database) {
        std::vector<PersonClash_t> vecClashes;
        for (const IssueCard_t& card : request.vecCards) {
            const auto optBefore = PersonRecords::Find(database, card.sPersonId);
            if (!optBefore)
                throw ServiceError(UICommonMdl::ErrorNotFound, card.sPersonId);
            const std::string sCardNo = PersonRules::UpperCase(card.sCardNo);
            if (!PersonRules::IsCardNo(sCardNo))
                throw ServiceError(UICommonMdl::ErrorInvalidInput, "sCardNo");
            // A client whose answer was lost asks again: what the person has already is no clash.
            const bool bHeld = std::any_of(optBefore->vecCards.begin(), optBefore->vecCards.end(),
                [&](const Card_t& held) { return held.sCardNo == sCardNo; });
            // Numbers that stand twice in the batch clash with the first one, which is in by then.
            if (!bHeld
                && database
                       .Run(QStringLiteral("SELECT 1 FROM person_card WHERE card_no = ?"),
                           {TextValue(sCardNo)})
                       .Next()) {
                vecClashes.push_back({ClashCardNo, sCardNo});
                continue;
            }
            Person_t after = *optBefore;
            if (!bHeld)
                after.vecCards.push_back({sCardNo});
            if (request.nValidFrom != 0 || request.nValidTo != 0) {
                after.nValidFrom = request.nValidFrom;
                after.nValidTo = request.nValidTo;
            }
            if (!(after == *optBefore))
                Write(database, *optBefore, after, context, wire::IssueCards::Name);
        }
        if (!vecClashes.empty())
            throw ServiceError(UICommonMdl::ErrorPersonDuplicate, wire::ClashText(vecClashes));
    });
    Changed();
}

wire::PersonBatchAnswer PersonService::Delete(const Context& context, const wire::PersonIds& ids)
{
    std::vector<std::string> vecPhotos;
    m_pool.Write([&](Database& database) {
        for (const std::string& sPersonId : CheckedIds(ids.vecPersonIds)) {
            // One that is gone already is what was wanted.
            const auto optBefore = PersonRecords::Find(database, sPersonId);
            if (!optBefore)
                continue;
            const auto nId = static_cast<qlonglong>(PersonRules::NumberOf(sPersonId).value_or(0));
            vecPhotos.push_back(PersonRecords::PhotoOf(database, sPersonId));
            AuthorizationService::PersonsRemoved(database, QStringLiteral("person_id = ?"), {nId});
            database.Run(QStringLiteral("DELETE FROM person WHERE id = ?"), {nId});
            m_audit.Write(database, context, wire::DeletePersons::Name, sPersonId, *optBefore, nullptr);
        }
    });
    m_photos.Remove(vecPhotos);
    Changed();
    return {};
}

std::vector<std::string> PersonService::RemoveOfGroups(
    Database& database, const Context& context, const std::vector<std::string>& vecGroupCodes)
{
    std::vector<std::string> vecPhotos;
    for (const std::string& sGroupCode : vecGroupCodes) {
        const QVariant code = TextValue(sGroupCode);
        {
            Rows rows = database.Run(
                QStringLiteral("SELECT photo FROM person WHERE group_code = ? AND photo <> ''"), {code});
            while (rows.Next())
                vecPhotos.push_back(rows.Text(0));
        }
        AuthorizationService::PersonsRemoved(
            database, QStringLiteral("person_id IN (SELECT id FROM person WHERE group_code = ?)"), {code});
        m_audit.WriteEach(database, context, wire::DeleteAllPersons::Name,
            QStringLiteral("SELECT id, name, group_code FROM person WHERE group_code = ?"), {code},
            {"sPersonId", "sName", "sGroupCode"});
        database.Run(QStringLiteral("DELETE FROM person WHERE group_code = ?"), {code});
    }
    return vecPhotos;
}

void PersonService::DeleteAll(const Context& context, const wire::DeleteAllPersonsRequest& request)
{
    m_photos.Remove(m_pool.Write([&](Database& database) {
        return RemoveOfGroups(
            database, context, DepartmentService::Codes(database, request.sGroupCode, request.bSubGroups));
    }));
    Changed();
}

void PersonService::DeleteDepartment(
    const Context& context, DepartmentService& departments, const wire::Code& code)
{
    std::vector<std::string> vecPhotos;
    departments.Delete(
        context, code, [&](Database& database, const Context& who, const std::vector<std::string>& vecCodes) {
            vecPhotos = RemoveOfGroups(database, who, vecCodes);
        });
    m_photos.Remove(vecPhotos);
    Changed();
}

QByteArray PersonService::Photo(const std::string& sPersonId, const std::string& sPhoto)
{
    const std::string sPresent =
        m_pool.Read([&](Database& database) { return PersonRecords::PhotoOf(database, sPersonId); });
    if (sPhoto.empty() || sPresent != sPhoto)
        throw ServiceError(UICommonMdl::ErrorNotFound);
    return m_photos.Read(sPhoto);
}

void PersonService::Changed()
{
    ++m_generations.persons;
    m_hub.Publish(wire::event::PersonsChanged);
    m_authorization.SendSoon();
}

} // namespace Platform

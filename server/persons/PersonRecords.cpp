#include "PersonRecords.h"

#include "PersonRules.h"
#include "ServiceError.h"
#include "http/FileRoutes.h"
#include "services/DeviceRecords.h"
#include "services/TextRules.h"

#include <set>

namespace Platform::PersonRecords {

using namespace AccessControlLogical;

namespace {

// The fields of the record that are columns of the table, in the order of ReadRow and Values.
#define PERSON_COLUMNS                                                                                       \
    "name, gender, group_code, telephone, email, remark, valid_from, valid_to, nickname, birthday, "         \
    "entry_date, company, position, person_type, extend_time, card_times, device_login, room_no, version"
#define PERSON_MARKS "?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?"

struct ChoiceTable
{
    const char* szField;
    const char* szTable; ///< of the choices; those of persons are in "person_" and its name
    std::vector<std::string> Person_t::*pIds;
};
constexpr ChoiceTable ChoiceTables[] = {
    {"vecAccessGroups", "access_group", &Person_t::vecAccessGroups},
    {"vecLiftFloors", "lift_floor", &Person_t::vecLiftFloors},
    {"vecFaceGroups", "face_group", &Person_t::vecFaceGroups},
};

qlonglong IdOf(const Person_t& person)
{
    return PersonRules::NumberOf(person.sPersonId).value_or(0);
}

QVariantList Values(const Person_t& person)
{
    return {TextValue(person.sName), person.nGender, TextValue(person.sGroupCode),
        TextValue(person.sTelephone), TextValue(person.sEmail), TextValue(person.sRemark),
        static_cast<qlonglong>(person.nValidFrom), static_cast<qlonglong>(person.nValidTo),
        TextValue(person.sNickname), TextValue(person.sBirthday), TextValue(person.sEntryDate),
        TextValue(person.sCompany), TextValue(person.sPosition), person.nPersonType, person.nExtendTime,
        person.nCardTimes, person.bDeviceLogin ? 1 : 0, TextValue(person.sRoomNo),
        static_cast<qlonglong>(person.nVersion)};
}

Person_t ReadRow(const Rows& rows)
{
    Person_t person;
    person.sName = rows.Text(0);
    person.nGender = rows.Int(1);
    person.sGroupCode = rows.Text(2);
    person.sTelephone = rows.Text(3);
    person.sEmail = rows.Text(4);
    person.sRemark = rows.Text(5);
    person.nValidFrom = rows.Big(6);
    person.nValidTo = rows.Big(7);
    person.sNickname = rows.Text(8);
    person.sBirthday = rows.Text(9);
    person.sEntryDate = rows.Text(10);
    person.sCompany = rows.Text(11);
    person.sPosition = rows.Text(12);
    person.nPersonType = rows.Int(13);
    person.nExtendTime = rows.Int(14);
    person.nCardTimes = rows.Int(15);
    person.bDeviceLogin = rows.Int(16) != 0;
    person.sRoomNo = rows.Text(17);
    person.nVersion = rows.Big(18);
    return person;
}

std::string Plates(const Person_t& person)
{
    std::string sPlates;
    for (const std::string& sPlate : person.vecPlates)
        sPlates += (sPlates.empty() ? "" : ",") + sPlate;
    return sPlates;
}

/// What the search looks through: no field holds a line break, so that nothing matches across two.
std::string SearchKey(const Person_t& person)
{
    std::string sKey = person.sPersonId + '\n' + FoldCase(person.sName);
    for (const std::string& sPlate : person.vecPlates)
        sKey += '\n' + FoldCase(sPlate);
    return sKey;
}

void ReadLists(Database& database, qlonglong nId, Person_t& person)
{
    {
        Rows rows = database.Run(QStringLiteral("SELECT card_no, main, duress, locked FROM person_card "
                                                "WHERE person_id = ? ORDER BY place, card_no"),
            {nId});
        while (rows.Next())
            person.vecCards.push_back({rows.Text(0), rows.Int(1) != 0, rows.Int(2) != 0, rows.Int(3) != 0});
    }
    {
        Rows rows = database.Run(QStringLiteral("SELECT id, name, duress FROM person_fingerprint "
                                                "WHERE person_id = ? ORDER BY place"),
            {nId});
        while (rows.Next())
            person.vecFingerprints.push_back({rows.Big(0), rows.Text(1), rows.Int(2) != 0, {}});
    }
    {
        Rows rows = database.Run(
            QStringLiteral("SELECT plate FROM person_plate WHERE person_id = ? ORDER BY place"), {nId});
        while (rows.Next())
            person.vecPlates.push_back(rows.Text(0));
    }
    for (const ChoiceTable& table : ChoiceTables) {
        Rows rows = database.Run(
            QStringLiteral("SELECT choice_id FROM person_%1 WHERE person_id = ? ORDER BY choice_id")
                .arg(QLatin1String(table.szTable)),
            {nId});
        while (rows.Next())
            (person.*table.pIds).push_back(std::to_string(rows.Big(0)));
    }
}

void WriteCards(Database& database, qlonglong nId, const Person_t& person)
{
    database.Run(QStringLiteral("DELETE FROM person_card WHERE person_id = ?"), {nId});
    int nPlace = 0;
    for (const Card_t& card : person.vecCards)
        database.Run(
            QStringLiteral("INSERT INTO person_card (card_no, person_id, place, main, duress, locked) "
                           "VALUES (?, ?, ?, ?, ?, ?)"),
            {TextValue(card.sCardNo), nId, nPlace++, card.bMain ? 1 : 0, card.bDuress ? 1 : 0,
                card.bLocked ? 1 : 0});
}

void WritePlates(Database& database, qlonglong nId, const Person_t& person)
{
    database.Run(QStringLiteral("DELETE FROM person_plate WHERE person_id = ?"), {nId});
    int nPlace = 0;
    for (const std::string& sPlate : person.vecPlates)
        database.Run(QStringLiteral(
                         "INSERT INTO person_plate (plate_key, plate, person_id, place) VALUES (?, ?, ?, ?)"),
            {TextValue(FoldCase(sPlate)), TextValue(sPlate), nId, nPlace++});
}

/// Those that stay keep their template; one that the person has not is nobody's.
void WriteFingerprints(Database& database, const SecretBox& box, qlonglong nId, const Person_t& person)
{
    std::set<std::int64_t> gone;
    {
        Rows rows =
            database.Run(QStringLiteral("SELECT id FROM person_fingerprint WHERE person_id = ?"), {nId});
        while (rows.Next())
            gone.insert(rows.Big(0));
    }
    int nPlace = 0;
    for (const Fingerprint_t& fingerprint : person.vecFingerprints) {
        if (fingerprint.nId != 0 && gone.erase(fingerprint.nId) == 0)
            throw ServiceError(UICommonMdl::ErrorNotFound, "vecFingerprints");
        const QVariant name = TextValue(fingerprint.sName);
        const int nDuress = fingerprint.bDuress ? 1 : 0;
        if (fingerprint.nId == 0)
            database.Run(QStringLiteral("INSERT INTO person_fingerprint (id, person_id, place, name, duress, "
                                        "template_sealed) VALUES (?, ?, ?, ?, ?, '')"),
                {static_cast<qlonglong>(database.NextNumber(QStringLiteral("fingerprint"))), nId, nPlace,
                    name, nDuress});
        else
            database.Run(QStringLiteral("UPDATE person_fingerprint SET place = ?, name = ?, duress = ? "
                                        "WHERE id = ?"),
                {nPlace, name, nDuress, static_cast<qlonglong>(fingerprint.nId)});
        if (!fingerprint.sTemplate.empty())
            database.Run(QStringLiteral("UPDATE person_fingerprint SET template_sealed = ? "
                                        "WHERE person_id = ? AND place = ? AND (id = ? OR ? = 0)"),
                {TextValue(box.Seal(fingerprint.sTemplate)), nId, nPlace,
                    static_cast<qlonglong>(fingerprint.nId), static_cast<qlonglong>(fingerprint.nId)});
        ++nPlace;
    }
    for (const std::int64_t nFingerprint : gone)
        database.Run(QStringLiteral("DELETE FROM person_fingerprint WHERE id = ?"),
            {static_cast<qlonglong>(nFingerprint)});
}

void WriteChoices(Database& database, qlonglong nId, const Person_t& person)
{
    for (const ChoiceTable& table : ChoiceTables) {
        const QLatin1String sTable(table.szTable);
        database.Run(QStringLiteral("DELETE FROM person_%1 WHERE person_id = ?").arg(sTable), {nId});
        for (const std::string& sChoice :
            std::set<std::string>((person.*table.pIds).begin(), (person.*table.pIds).end()))
            database.Run(
                QStringLiteral("INSERT INTO person_%1 (person_id, choice_id) VALUES (?, ?)").arg(sTable),
                {nId, DeviceRecords::NumberOf(sChoice).value_or(0)});
    }
}

void WriteLists(Database& database, const SecretBox& box, const Person_t& person, const std::string& sPhoto)
{
    const qlonglong nId = IdOf(person);
    WriteCards(database, nId, person);
    WritePlates(database, nId, person);
    WriteFingerprints(database, box, nId, person);
    WriteChoices(database, nId, person);
    database.Run(QStringLiteral("UPDATE person SET photo = ? WHERE id = ?"), {TextValue(sPhoto), nId});
    if (!person.bUnlockPassword || !person.sUnlockPassword.empty())
        database.Run(QStringLiteral("UPDATE person SET unlock_password_sealed = ? WHERE id = ?"),
            {TextValue(person.bUnlockPassword ? box.Seal(person.sUnlockPassword) : std::string()), nId});
}

bool IsOthers(Database& database, const QString& sSql, const std::string& sValue, qlonglong nId)
{
    return database.Run(sSql, {TextValue(sValue), nId}).Next();
}

} // namespace

std::string PhotoUrl(const std::string& sPersonId, const std::string& sPhoto)
{
    if (sPhoto.empty())
        return {};
    std::string sUrl = FileRoutes::DownloadPrefix;
    sUrl.append("person-photo?person=").append(sPersonId).append("&photo=").append(sPhoto);
    return sUrl;
}

std::optional<Person_t> Find(Database& database, const std::string& sPersonId)
{
    const auto optId = PersonRules::NumberOf(sPersonId);
    if (!optId)
        return std::nullopt;
    const qlonglong nId = *optId;
    std::optional<Person_t> optPerson;
    {
        Rows rows = database.Run(
            QStringLiteral("SELECT " PERSON_COLUMNS ", photo, unlock_password_sealed <> '', "
                           "(SELECT g.name FROM person_group g WHERE g.code = group_code), "
                           "EXISTS (SELECT 1 FROM person_authorization a WHERE a.person_id = person.id "
                           "AND a.state = 2) FROM person WHERE id = ?"),
            {nId});
        if (!rows.Next())
            return std::nullopt;
        optPerson = ReadRow(rows);
        optPerson->sPersonId = sPersonId;
        optPerson->sPhotoUrl = PhotoUrl(sPersonId, rows.Text(19));
        optPerson->bUnlockPassword = rows.Flag(20);
        optPerson->sGroupName = rows.Text(21);
        optPerson->bAuthorizationError = rows.Flag(22);
    }
    ReadLists(database, nId, *optPerson);
    return optPerson;
}

std::string PhotoOf(Database& database, const std::string& sPersonId)
{
    Rows rows = database.Run(QStringLiteral("SELECT photo FROM person WHERE id = ?"),
        {static_cast<qlonglong>(PersonRules::NumberOf(sPersonId).value_or(0))});
    return rows.Next() ? rows.Text(0) : std::string();
}

std::vector<PersonClash_t> Clashes(Database& database, const Person_t& person, bool bNew)
{
    std::vector<PersonClash_t> vecClashes;
    const qlonglong nId = IdOf(person);
    if (bNew && database.Run(QStringLiteral("SELECT 1 FROM person WHERE id = ?"), {nId}).Next())
        vecClashes.push_back({ClashPersonId, person.sPersonId});
    // A new person has nothing yet, not even what the one with its ID has.
    const qlonglong nOwner = bNew ? 0 : nId;
    for (const Card_t& card : person.vecCards) {
        if (IsOthers(database,
                QStringLiteral("SELECT 1 FROM person_card WHERE card_no = ? AND person_id <> ?"),
                card.sCardNo, nOwner))
            vecClashes.push_back({ClashCardNo, card.sCardNo});
    }
    for (const std::string& sPlate : person.vecPlates) {
        if (IsOthers(database,
                QStringLiteral("SELECT 1 FROM person_plate WHERE plate_key = ? AND person_id <> ?"),
                FoldCase(sPlate), nOwner))
            vecClashes.push_back({ClashPlate, sPlate});
    }
    return vecClashes;
}

void CheckChoices(Database& database, const Person_t& person)
{
    const auto require = [&database](const QString& sSql, const QVariant& value, const char* szField) {
        if (!database.Run(sSql, {value}).Next())
            throw ServiceError(UICommonMdl::ErrorNotFound, szField);
    };
    require(QStringLiteral("SELECT 1 FROM person_group WHERE code = ?"), TextValue(person.sGroupCode),
        "sGroupCode");
    if (!person.sRoomNo.empty())
        require(QStringLiteral("SELECT 1 FROM room WHERE number = ?"), TextValue(person.sRoomNo), "sRoomNo");
    for (const ChoiceTable& table : ChoiceTables) {
        for (const std::string& sChoice : person.*table.pIds)
            require(QStringLiteral("SELECT 1 FROM %1 WHERE id = ?").arg(QLatin1String(table.szTable)),
                DeviceRecords::NumberOf(sChoice).value_or(0), table.szField);
    }
}

void Insert(Database& database, const SecretBox& box, const Person_t& person, const std::string& sPhoto)
{
    QVariantList values = Values(person);
    values << TextValue(Plates(person)) << TextValue(SearchKey(person)) << IdOf(person);
    database.Run(QStringLiteral("INSERT INTO person (" PERSON_COLUMNS
                                ", plates, search_key, id) VALUES (" PERSON_MARKS ", ?, ?, ?)"),
        values);
    WriteLists(database, box, person, sPhoto);
}

void Update(Database& database, const SecretBox& box, const Person_t& person, const std::string& sPhoto)
{
    QVariantList values = Values(person);
    values << TextValue(Plates(person)) << TextValue(SearchKey(person)) << IdOf(person);
    database.Run(QStringLiteral("UPDATE person SET (" PERSON_COLUMNS ", plates, search_key) = (" PERSON_MARKS
                                ", ?, ?) WHERE id = ?"),
        values);
    WriteLists(database, box, person, sPhoto);
}

void AddCard(Database& database, std::int64_t nPersonId, const std::string& sCardNo)
{
    const auto nId = static_cast<qlonglong>(nPersonId);
    database.Run(
        QStringLiteral("INSERT INTO person_card (card_no, person_id, place, main, duress, locked) "
                       "SELECT CAST(? AS TEXT), CAST(? AS BIGINT), COALESCE(MAX(place) + 1, 0), 0, 0, 0 "
                       "FROM person_card WHERE person_id = ?"),
        {TextValue(sCardNo), nId, nId});
}

std::optional<Credentials> FindCredentials(
    Database& database, const SecretBox& box, const std::string& sPersonId)
{
    std::optional<Person_t> optPerson = Find(database, sPersonId);
    if (!optPerson)
        return std::nullopt;
    Credentials credentials{std::move(*optPerson), PhotoOf(database, sPersonId)};
    const qlonglong nId = IdOf(credentials.person);
    std::size_t nPlace = 0;
    Rows rows = database.Run(
        QStringLiteral("SELECT template_sealed FROM person_fingerprint WHERE person_id = ? ORDER BY place"),
        {nId});
    while (rows.Next() && nPlace < credentials.person.vecFingerprints.size())
        credentials.person.vecFingerprints[nPlace++].sTemplate = box.Open(rows.Text(0)).value_or("");
    Rows password =
        database.Run(QStringLiteral("SELECT unlock_password_sealed FROM person WHERE id = ?"), {nId});
    if (password.Next())
        credentials.person.sUnlockPassword = box.Open(password.Text(0)).value_or("");
    return credentials;
}

} // namespace Platform::PersonRecords

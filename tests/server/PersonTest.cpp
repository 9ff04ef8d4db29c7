#include "PersonFixture.h"

#include "persons/PhotoStore.h"

#include <QDir>
#include <QDirIterator>

#include <functional>

namespace ServerTest {

using namespace UICommonMdl;
using namespace AccessControlLogical;

class PersonTest : public PersonFixture
{
protected:
    void SetUp() override { Start(); }
    /// Everything that a person may have.
    Person_t Full()
    {
        pServer->RunSql(
            QStringLiteral("INSERT INTO access_group (id, name) VALUES (1, 'Day'), (2, 'Night')"));
        pServer->RunSql(QStringLiteral("INSERT INTO face_group (id, name) VALUES (1, 'Staff')"));
        pServer->RunSql(QStringLiteral("INSERT INTO room (number) VALUES ('101')"));
        Person_t person = Make("4711", "Ann Example", AddGroup("001", "Team"));
        person.sGroupName = "Team";
        person.nGender = GenderFemale;
        person.sTelephone = "+49-555";
        person.sEmail = "ann@example.com";
        person.sRemark = "two\nlines";
        person.nValidFrom = 1700000000;
        person.nValidTo = 1800000000;
        person.sNickname = "An";
        person.sBirthday = "1990-02-28";
        person.sEntryDate = "2020-01-01";
        person.sCompany = "Example";
        person.sPosition = "Guard";
        person.vecCards = {{"0A1B", true, false, false}, {"FFFF", false, true, true}};
        person.vecFingerprints = {
            {0, "Finger 1", false, Template('a')}, {0, "Finger 2", true, Template('b')}};
        person.bUnlockPassword = true;
        person.sUnlockPassword = "123456";
        person.nPersonType = PersonVip;
        person.nExtendTime = 200;
        person.nCardTimes = 9;
        person.bDeviceLogin = true;
        person.vecAccessGroups = {"1", "2"};
        person.vecFaceGroups = {"1"};
        person.sRoomNo = "101";
        person.vecPlates = {"AB-1", "CD 2"};
        return person;
    }
    int PhotoFiles() const
    {
        int nFiles = 0;
        QDirIterator it(
            pServer->DataDir() + QStringLiteral("/photos"), QDir::Files, QDirIterator::Subdirectories);
        for (; it.hasNext(); it.next())
            ++nFiles;
        return nFiles;
    }
    int Sealed(const QString& sSql) { return pServer->QuerySql(sSql).toInt(); }
};

TEST_P(PersonTest, EverythingIsKeptAndSecretsNeverComeBack)
{
    Person_t sent = Full();
    Person_t wanted = sent;
    const Person_t added = Add(sent);
    wanted.nVersion = 1;
    wanted.sUnlockPassword.clear();
    for (std::size_t n = 0; n < 2; ++n) {
        wanted.vecFingerprints[n].sTemplate.clear();
        wanted.vecFingerprints[n].nId = added.vecFingerprints.at(n).nId;
        EXPECT_GT(added.vecFingerprints[n].nId, 0);
    }
    EXPECT_EQ(added, wanted);
    pServer->Restart();
    EXPECT_EQ(Detail("4711"), wanted);
    // Neither in the database nor in the log do they stand in clear.
    for (const char* szText : {"123456", "YWFhYWFh"})
        for (const char* szColumn :
            {"SELECT COUNT(*) FROM audit_log WHERE before_json LIKE ? OR after_json LIKE ?",
                "SELECT COUNT(*) FROM person p LEFT JOIN person_fingerprint f ON f.person_id = p.id "
                "WHERE p.unlock_password_sealed LIKE ? OR f.template_sealed LIKE ?"}) {
            const QString sPattern = QLatin1Char('%') + QLatin1String(szText) + QLatin1Char('%');
            EXPECT_EQ(pServer->QuerySql(QLatin1String(szColumn), {sPattern, sPattern}).toInt(), 0) << szText;
        }

    // Saved as it was read nothing is lost; without the flag the password goes.
    Person_t edited = wanted;
    edited.sName = "Ann Other";
    edited.vecFingerprints.erase(edited.vecFingerprints.begin());
    edited.vecFingerprints.push_back({0, "Third", false, Template('c')});
    const Person_t saved = pClient->Get<wire::ModifyPerson>(edited);
    EXPECT_EQ(saved.nVersion, 2);
    EXPECT_EQ(saved.vecFingerprints.front().nId, wanted.vecFingerprints[1].nId);
    EXPECT_EQ(
        Sealed(QStringLiteral("SELECT COUNT(*) FROM person_fingerprint WHERE template_sealed <> ''")), 2);
    EXPECT_TRUE(saved.bUnlockPassword);
    Person_t without = saved;
    without.bUnlockPassword = false;
    EXPECT_FALSE(pClient->Get<wire::ModifyPerson>(without).bUnlockPassword);
    EXPECT_EQ(Sealed(QStringLiteral("SELECT COUNT(*) FROM person WHERE unlock_password_sealed <> ''")), 0);
}

TEST_P(PersonTest, FieldsThatBreakTheirRuleAreNamed)
{
    const struct
    {
        const char* szField;
        std::function<void(Person_t&)> spoil;
    } cases[] = {
        {"sPersonId", [](Person_t& p) { p.sPersonId = "1"; }},
        {"sPersonId", [](Person_t& p) { p.sPersonId = "012"; }},
        {"sPersonId", [](Person_t& p) { p.sPersonId = std::string(PersonId.nMax + 1, '1'); }},
        {"sName", [](Person_t& p) { p.sName = "  "; }},
        {"sName", [](Person_t& p) { p.sName = "a<b"; }},
        {"nGender", [](Person_t& p) { p.nGender = 3; }},
        {"sTelephone", [](Person_t& p) { p.sTelephone = "12a"; }},
        {"sEmail", [](Person_t& p) { p.sEmail = "@."; }},
        {"sRemark", [](Person_t& p) { p.sRemark = std::string(PersonRemark.nMax + 1, 'x'); }},
        {"nValidTo", [](Person_t& p) { p.nValidFrom = 10, p.nValidTo = 9; }},
        {"sBirthday", [](Person_t& p) { p.sBirthday = "2023-02-29"; }},
        {"vecCards", [](Person_t& p) { p.vecCards = {{"XYZ"}}; }},
        {"vecCards", [](Person_t& p) { p.vecCards = {{"12345678901234567"}}; }},
        {"vecCards",
            [](Person_t& p) {
                p.vecCards = {{"ab"}, {"AB"}};
            }},
        {"vecCards",
            [](Person_t& p) {
                p.vecCards = {{"1", false, true}, {"2", false, true}};
            }},
        {"vecCards",
            [](Person_t& p) {
                p.vecCards = {{"1", true}, {"2", true}};
            }},
        {"vecFingerprints",
            [](Person_t& p) {
                p.vecFingerprints = {{0, "a", false, "AAAA"}};
            }},
        {"vecFingerprints",
            [](Person_t& p) {
                p.vecFingerprints = {{0, "a", false, {}}};
            }},
        {"vecFingerprints",
            [](Person_t& p) {
                for (const char* szName : {"1", "2", "3", "4"})
                    p.vecFingerprints.push_back({0, szName, false, Template('x')});
            }},
        {"sUnlockPassword", [](Person_t& p) { p.bUnlockPassword = true, p.sUnlockPassword = "12345"; }},
        {"nExtendTime", [](Person_t& p) { p.nExtendTime = 0; }},
        {"nExtendTime", [](Person_t& p) { p.nExtendTime = 201; }},
        {"vecPlates", [](Person_t& p) { p.vecPlates = {"1234567890123456"}; }},
        {"vecPlates",
            [](Person_t& p) {
                p.vecPlates = {"ab 1", "AB 1"};
            }},
    };
    for (const auto& test : cases) {
        Person_t person = Make("77", "Right");
        test.spoil(person);
        const Reply reply = pClient->Call<wire::AddPerson>(person);
        EXPECT_EQ(reply.nCode, ErrorInvalidInput) << test.szField;
        EXPECT_EQ(reply.sDetail, test.szField);
    }
    // What was chosen has to exist.
    const std::pair<const char*, std::function<void(Person_t&)>> unknown[] = {
        {"sGroupCode", [](Person_t& p) { p.sGroupCode = "9"; }},
        {"sRoomNo", [](Person_t& p) { p.sRoomNo = "9"; }},
        {"vecAccessGroups", [](Person_t& p) { p.vecAccessGroups = {"9"}; }},
        {"vecFaceGroups", [](Person_t& p) { p.vecFaceGroups = {"x"}; }},
        {"vecLiftFloors", [](Person_t& p) { p.vecLiftFloors = {"9"}; }}};
    for (const auto& [szField, spoil] : unknown) {
        Person_t person = Make("77", "Right");
        spoil(person);
        const Reply reply = pClient->Call<wire::AddPerson>(person);
        EXPECT_EQ(std::pair(reply.nCode, reply.sDetail), std::pair(int(ErrorNotFound), std::string(szField)));
    }
    EXPECT_EQ(Count("person"), 0);
}

TEST_P(PersonTest, WhatAnotherPersonHasIsListedWhole)
{
    Person_t first = Make("100", "First");
    first.vecCards = {{"AA"}, {"BB"}};
    first.vecPlates = {"Plate 1"};
    first = Add(first);
    Person_t second = Make("100", "Second");
    second.vecCards = {{"bb"}, {"CC"}, {"aa"}};
    second.vecPlates = {"PLATE 1", "Plate 2"};
    Reply reply = pClient->Call<wire::AddPerson>(second);
    EXPECT_EQ(reply.nCode, ErrorPersonDuplicate);
    using C = PersonClash_t;
    EXPECT_THAT(wire::ClashesOf(reply.sDetail),
        testing::ElementsAre(
            C{ClashPersonId, "100"}, C{ClashCardNo, "BB"}, C{ClashCardNo, "AA"}, C{ClashPlate, "PLATE 1"}));
    second.sPersonId = "101";
    second.vecCards = {{"CC"}};
    second.vecPlates = {};
    second = Add(second);
    // One's own numbers do not clash; those of others do when a person is modified too.
    second.vecCards.push_back({"AA"});
    reply = pClient->Call<wire::ModifyPerson>(second);
    EXPECT_EQ(reply.nCode, ErrorPersonDuplicate);
    EXPECT_EQ(Detail("101").vecCards.size(), 1U);
    first.vecCards.erase(first.vecCards.begin());
    pClient->Get<wire::ModifyPerson>(first);
    EXPECT_EQ(pClient->Get<wire::ModifyPerson>(second).vecCards.size(), 2U);
}

TEST_P(PersonTest, OfTwoWhoSaveOnePersonTheSecondIsToldAndNothingIsOverwritten)
{
    const Person_t read = Add(Make("55", "Read"));
    Person_t theirs = read;
    theirs.sName = "Theirs";
    Person_t mine = read;
    mine.sRemark = "mine";
    ApiClient other(pServer->Url());
    other.SignIn("system", TestSupport::TestServer::AdminPassword());
    other.Get<wire::ModifyPerson>(theirs);
    EXPECT_EQ(pClient->Call<wire::ModifyPerson>(mine).nCode, ErrorVersionConflict);
    EXPECT_EQ(Detail("55").sName, "Theirs");
    EXPECT_EQ(Detail("55").sRemark, "");
    mine.sPersonId = "56";
    EXPECT_EQ(pClient->Call<wire::ModifyPerson>(mine).nCode, ErrorNotFound);
}

TEST_P(PersonTest, PhotosAreFilesThatComeAndGoWithTheirPerson)
{
    const QByteArray baPhoto = MakeJpeg(48, 64);
    Person_t person = Make("21", "Photographed");
    person.sPhotoData = baPhoto.toBase64().toStdString();
    person = Add(person);
    EXPECT_EQ(pClient->Download(person.sPhotoUrl + '&').sDetail, baPhoto.toStdString());
    EXPECT_EQ(PhotoFiles(), 1);
    const std::string sFirstUrl = person.sPhotoUrl;
    person = pClient->Get<wire::ModifyPerson>(person);
    EXPECT_EQ(person.sPhotoUrl, sFirstUrl) << "kept";
    person.sPhotoData = MakeJpeg(30, 40).toBase64().toStdString();
    person = pClient->Get<wire::ModifyPerson>(person);
    EXPECT_NE(person.sPhotoUrl, sFirstUrl);
    EXPECT_EQ(pClient->Download(sFirstUrl).nCode, ErrorNotFound);
    EXPECT_EQ(PhotoFiles(), 1);
    pClient->Get<wire::DeletePersons>({{"21"}});
    EXPECT_EQ(PhotoFiles(), 0);
    EXPECT_EQ(pClient->Download(person.sPhotoUrl).nCode, ErrorNotFound);
    EXPECT_EQ(pClient->Download("/api/v1/download/person-photo?person=21&photo=../../platform").nCode,
        ErrorNotFound);
}

TEST_P(PersonTest, WhatIsNoPhotoIsRefusedAndLeavesNoFile)
{
    const QByteArray baPhoto = MakeJpeg(200, 200);
    QByteArray baHuge = MakeJpeg(16, 16);
    // The header says 20,000 x 20,000: nobody takes the memory for that.
    const int nFrame = baHuge.indexOf(QByteArray("\xff\xc0", 2));
    baHuge.replace(nFrame + 5, 4, QByteArray("\x4e\x20\x4e\x20", 4));
    const std::pair<const char*, std::string> cases[] = {
        {"text", QByteArray("not a picture").toBase64().toStdString()}, {"not base64", "%%%"},
        {"truncated", baPhoto.left(baPhoto.size() / 2).toBase64().toStdString()},
        {"without its end", baPhoto.left(baPhoto.size() - 2).toBase64().toStdString()},
        {"huge sides", baHuge.toBase64().toStdString()},
        {"a side too long", MakeJpeg(PhotoSideLimit + 1, 8).toBase64().toStdString()},
        {"large", QByteArray(int(PhotoSizeLimit) + 4, 'x').toBase64().toStdString()}};
    for (const auto& [szName, sData] : cases) {
        Person_t person = Make("31", "Photographed");
        person.sPhotoData = sData;
        EXPECT_EQ(pClient->Call<wire::AddPerson>(person).nCode, ErrorPhoto) << szName;
    }
    Person_t refused = Make("31", "");
    refused.sPhotoData = baPhoto.toBase64().toStdString();
    EXPECT_EQ(pClient->Call<wire::AddPerson>(refused).nCode, ErrorInvalidInput);
    Person_t clashing = Make("32", "Clashing");
    Add(clashing);
    clashing.sPhotoData = baPhoto.toBase64().toStdString();
    EXPECT_EQ(pClient->Call<wire::AddPerson>(clashing).nCode, ErrorPersonDuplicate);
    EXPECT_EQ(PhotoFiles(), 0);
}

TEST_P(PersonTest, FilesThatNobodyHoldsGoAtTheNextStart)
{
    Person_t person = Make("41", "Photographed");
    person.sPhotoData = MakeJpeg(20, 20).toBase64().toStdString();
    Add(person);
    pServer->RunSql(QStringLiteral("UPDATE person SET photo = ''"));
    pServer->Restart();
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    while (PhotoFiles() > 0 && std::chrono::steady_clock::now() < end)
        std::this_thread::yield();
    EXPECT_EQ(PhotoFiles(), 0);
}

TEST_P(PersonTest, ChoicesAndRoomsAreToldAndChangesPushed)
{
    EXPECT_FALSE(pClient->Get<wire::QueryResidenceScenario>().bEnabled);
    Full();
    const auto choices = pClient->Get<wire::QueryPermissionChoices>();
    EXPECT_THAT(choices.vecAccessGroups, testing::ElementsAre(Choice_t{"1", "Day"}, Choice_t{"2", "Night"}));
    EXPECT_THAT(pClient->Get<wire::QueryResidenceScenario>().vecRooms, testing::ElementsAre("101"));
    EventReader events(pServer->Url(), pClient->sToken);
    ASSERT_TRUE(events.WaitFor("event: hello"));
    Add(Make("61", "Pushed"));
    EXPECT_TRUE(events.WaitFor("event: persons-changed"));
    AddGroup("001", "Pushed");
    EXPECT_TRUE(events.WaitFor("event: departments-changed"));
}

INSTANTIATE_TEST_SUITE_P(
    , PersonTest, testing::ValuesIn(TestSupport::DatabaseKinds()), TestSupport::DatabaseKindName);

} // namespace ServerTest

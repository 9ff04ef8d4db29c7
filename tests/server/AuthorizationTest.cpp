#include "PersonFixture.h"

#include "FieldDevices.h"

namespace ServerTest {

using namespace UICommonMdl;
using namespace AccessControlLogical;
using TestSupport::FieldDevices;

/// Two door controllers behind the access permission groups "1" (both) and "2" (the second).
class AuthorizationTest : public PersonFixture
{
protected:
    void SetUp() override
    {
        const nlohmann::json door{{"category", 8}, {"channels", {{"access", 4}}}};
        pDevices = std::make_unique<FieldDevices>(3, std::vector<nlohmann::json>{door, door});
        TestSupport::TestServerOptions options;
        options.nDeviceTimeoutMs = 1000;
        options.nProbeIntervalSeconds = 1;
        Start(options);
        pServer->RunSql(
            QStringLiteral("INSERT INTO access_group (id, name) VALUES (1, 'Both'), (2, 'Second')"));
        for (int nDevice = 0; nDevice < 3; ++nDevice)
            vecDevices.push_back(Manage(nDevice));
        for (const auto& [nGroup, nDevice] : {std::pair(1, 0), {1, 1}, {2, 1}})
            pServer->RunSql(QStringLiteral("INSERT INTO access_group_door (group_id, device_id, channel, "
                                           "channel_name) VALUES (?, ?, 1, 'Door 1')"),
                {nGroup, QString::fromStdString(vecDevices[std::size_t(nDevice)]).toLongLong()});
    }
    std::string Manage(int nDevice)
    {
        GroupLogical::DeviceAddInfo_t device;
        device.sName = "Door " + std::to_string(nDevice);
        device.sIp = pDevices->Address(nDevice);
        device.nPort = FieldDevices::Port;
        device.nCategory = 8;
        device.sOrgCode = "001";
        device.sManufacturer = "Other";
        device.sProtocol = "Private";
        device.sUserName = "admin";
        device.sPassword = FieldDevices::Password;
        return pClient->Get<wire::AddDevice>(device).vecAddedIds.at(0);
    }
    /// The person as the device has it; null: it has not.
    nlohmann::json On(int nDevice, const std::string& sId) const
    {
        return pDevices->State(nDevice)["persons"].value(sId, nlohmann::json());
    }
    static bool Wait(const std::function<bool()>& condition)
    {
        const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
        while (!condition()) {
            if (std::chrono::steady_clock::now() > end)
                return false;
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
        }
        return true;
    }
    Person_t Member(const std::string& sId, const std::string& sGroup)
    {
        Person_t person = Make(sId, "Member " + sId);
        person.vecAccessGroups = {sGroup};
        person.vecCards = {{"AB" + sId}};
        return person;
    }
    std::vector<AuthorizeException_t> Exceptions(const std::string& sId)
    {
        return pClient->Get<wire::QueryAuthorizeException>({sId}).vecExceptions;
    }

    std::unique_ptr<FieldDevices> pDevices;
    std::vector<std::string> vecDevices;
};

TEST_P(AuthorizationTest, RightsFollowThePersonToTheDevicesAndAwayAgain)
{
    Person_t person = Member("70", "1");
    person.vecFingerprints = {{0, "Finger 1", true, Template('q')}};
    person.bUnlockPassword = true;
    person.sUnlockPassword = "135790";
    person = Add(person);
    ASSERT_TRUE(Wait([&] { return !On(0, "70").is_null() && !On(1, "70").is_null(); }));
    const nlohmann::json sent = On(0, "70");
    EXPECT_EQ(sent["cards"][0]["no"], "AB70");
    EXPECT_EQ(sent["fingerprints"][0]["template"], Template('q'));
    EXPECT_EQ(sent["password"], "135790");
    EXPECT_TRUE(On(2, "70").is_null());
    // Another group: one device keeps the person, one forgets it.
    person.vecAccessGroups = {"2"};
    person.sName = "Renamed";
    person = pClient->Get<wire::ModifyPerson>(person);
    EXPECT_TRUE(Wait([&] { return On(0, "70").is_null() && On(1, "70").value("name", "") == "Renamed"; }));
    EXPECT_EQ(On(1, "70")["fingerprints"].size(), 1U) << "stored templates are sent again";
    EXPECT_THAT(Exceptions("70"), testing::IsEmpty());
    pClient->Get<wire::DeletePersons>({{"70"}});
    EXPECT_TRUE(Wait([&] { return On(1, "70").is_null(); }));
    EXPECT_TRUE(Wait([&] { return Count("person_authorization") == 0; }));
}

TEST_P(AuthorizationTest, WhatADeviceRefusesIsShownUntilAReissueBringsIt)
{
    pDevices->Change(1, {{"refuse_fingerprints", true}});
    Person_t person = Member("71", "1");
    person.vecFingerprints = {{0, "Finger 1", false, Template('r')}};
    Add(person);
    ASSERT_TRUE(Wait([&] { return Detail("71").bAuthorizationError; }));
    const auto vecExceptions = Exceptions("71");
    ASSERT_EQ(vecExceptions.size(), 1U);
    EXPECT_EQ(vecExceptions[0].nCredential, CredentialFingerprint);
    EXPECT_EQ(vecExceptions[0].sDeviceName, "Door 1");
    EXPECT_EQ(vecExceptions[0].sChannelName, "Door 1");
    EXPECT_EQ(vecExceptions[0].sPersonName, "Member 71");
    EXPECT_EQ(vecExceptions[0].nErrorCode, ErrorDeviceRefused);
    EXPECT_FALSE(vecExceptions[0].sDetail.empty());
    EXPECT_TRUE(Page("", true).vecPersons.at(0).bAuthorizationError);

    auto state = pClient->Finish(pClient->Get<wire::ReissuePersonRight>({"71"}));
    EXPECT_EQ(state.items.size(), 1U) << "still refused";
    pDevices->Change(1, {{"refuse_fingerprints", false}});
    state = pClient->Finish(pClient->Get<wire::ReissuePersonRight>({"71"}));
    EXPECT_EQ(state.nErrorCode, 0);
    EXPECT_TRUE(state.items.empty());
    EXPECT_EQ(On(1, "71")["fingerprints"].size(), 1U);
    EXPECT_FALSE(Detail("71").bAuthorizationError);
    EXPECT_EQ(pClient->Call<wire::ReissuePersonRight>({"99"}).nCode, ErrorNotFound);
}

TEST_P(AuthorizationTest, ADeviceThatCannotBeReachedGetsItAllWhenItComesBack)
{
    pDevices->Change(0, {{"present", false}});
    for (const char* szId : {"72", "73", "74"})
        Add(Member(szId, "1"));
    ASSERT_TRUE(Wait([&] {
        return Exceptions("72").size() == 1 && Exceptions("73").size() == 1 && Exceptions("74").size() == 1;
    }));
    EXPECT_EQ(Exceptions("73")[0].nErrorCode, ErrorDeviceUnreachable);
    EXPECT_EQ(Exceptions("73")[0].nCredential, CredentialPerson);
    ASSERT_TRUE(Wait([&] {
        return pServer
                   ->QuerySql(QStringLiteral("SELECT online_state FROM device WHERE id = ?"),
                       {QString::fromStdString(vecDevices[0])})
                   .toInt()
            == 0;
    }));
    pDevices->Change(0, {{"present", true}});
    EXPECT_TRUE(
        Wait([&] { return !On(0, "72").is_null() && !On(0, "73").is_null() && !On(0, "74").is_null(); }));
    EXPECT_TRUE(Wait([&] { return !Detail("74").bAuthorizationError; }));
}

TEST_P(AuthorizationTest, WhatWasNotSentBeforeAStopIsSentAfterIt)
{
    pDevices->Change(1, {{"slow_ms", 250}});
    Add(Member("75", "2"));
    pServer->Restart();
    EXPECT_TRUE(Wait([&] { return !On(1, "75").is_null(); }));
    EXPECT_TRUE(Wait([&] {
        return pServer->QuerySql(QStringLiteral("SELECT MIN(state) FROM person_authorization")).toInt() == 1;
    }));
}

TEST_P(AuthorizationTest, AFingerOnADevicesReaderAndThePersonsThatItHolds)
{
    pDevices->Change(0, {{"finger_ms", 100}});
    auto state = pClient->Finish(pClient->Get<wire::CaptureFingerprint>({vecDevices[0]}));
    EXPECT_EQ(QByteArray::fromBase64(
                  QByteArray::fromStdString(state.summary.get<wire::CapturedFingerprint>().sTemplate))
                  .size(),
        int(TemplateSize));
    pDevices->Change(0, {{"finger_empty", true}});
    state = pClient->Finish(pClient->Get<wire::CaptureFingerprint>({vecDevices[0]}));
    EXPECT_EQ(state.nErrorCode, 0);
    EXPECT_EQ(state.summary.get<wire::CapturedFingerprint>().sTemplate, "");
    // The third one opens no doors.
    EXPECT_EQ(pClient->Finish(pClient->Get<wire::CaptureFingerprint>({vecDevices[2]})).nErrorCode,
        ErrorDeviceNotSupported);
    EXPECT_EQ(pClient->Call<wire::CaptureFingerprint>({"999"}).nCode, ErrorNotFound);

    Add(Member("76", "1"));
    ASSERT_TRUE(Wait([&] { return !On(0, "76").is_null(); }));
    state = pClient->Finish(pClient->Get<wire::ExtractPersons>({vecDevices[0]}));
    const auto vecPersons = state.summary.get<wire::DevicePersons>().vecPersons;
    ASSERT_EQ(vecPersons.size(), 1U);
    EXPECT_EQ(vecPersons[0].sPersonId, "76");
    EXPECT_EQ(vecPersons[0].vecCards.at(0).sCardNo, "AB76");
    pDevices->Change(0, {{"present", false}});
    EXPECT_EQ(pClient->Finish(pClient->Get<wire::ExtractPersons>({vecDevices[0]})).nErrorCode,
        ErrorDeviceUnreachable);
}

TEST_P(AuthorizationTest, QrCodesAreFreshAndAccessRecordsArePagedNewestFirst)
{
    Add(Make("80", "Recorded"));
    const auto first = pClient->Get<wire::QueryQrCode>({"80"});
    EXPECT_NE(first.sText, pClient->Get<wire::QueryQrCode>({"80"}).sText);
    EXPECT_EQ(first.sText.find("80 "), std::string::npos) << "sealed";
    EXPECT_EQ(pClient->Call<wire::QueryQrCode>({"81"}).nCode, ErrorNotFound);
    for (int n = 1; n <= 25; ++n)
        pServer->RunSql(
            QStringLiteral("INSERT INTO access_record (person_id, at, device_name, channel_name, "
                           "credential, card_no, entry, opened) VALUES (80, ?, 'Gate', 'Door 1', 1, "
                           "'AB', 1, 0)"),
            {n * 10});
    AccessRecordRequest_t request{"80", 20, 250, 2, 20};
    EXPECT_EQ(pClient->Get<wire::QueryRecordTotal>(request).nTotal, 24);
    const auto page = pClient->Get<wire::QueryRecords>(request);
    EXPECT_EQ(page.nTotal, 24);
    ASSERT_EQ(page.vecRecords.size(), 4U);
    EXPECT_EQ(page.vecRecords[0].nTime, 50);
    EXPECT_EQ(page.vecRecords[3], (AccessRecord_t{20, "Gate", "Door 1", CredentialCard, "AB", true, false}));
}

INSTANTIATE_TEST_SUITE_P(
    , AuthorizationTest, testing::ValuesIn(TestSupport::DatabaseKinds()), TestSupport::DatabaseKindName);

} // namespace ServerTest

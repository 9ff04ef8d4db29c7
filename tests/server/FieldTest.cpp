#include "ServerFixture.h"

#include "FieldDevices.h"
#include "services/TimeZones.h"

#include <httplib.h>

namespace ServerTest {

using namespace UICommonMdl;
using RemoteConfigLogical::ModifyDevicePasswordResultInfo_t;
using RemoteConfigLogical::SearchDeviceInfo_t;
using TestSupport::FieldDevices;

class FieldTest : public ServerFixture
{
protected:
    void StartWith(int nCount, const std::vector<nlohmann::json>& vecChanges = {}, int nProbeSeconds = 0)
    {
        pDevices = std::make_unique<FieldDevices>(nCount, vecChanges);
        TestSupport::TestServerOptions options;
        options.nDiscoveryPort = pDevices->DiscoveryPort();
        options.nOnvifDiscoveryPort = pDevices->OnvifDiscoveryPort();
        options.nProbeIntervalSeconds = nProbeSeconds;
        Start(options);
    }
    std::string Manage(int nDevice)
    {
        GroupLogical::DeviceAddInfo_t device;
        device.sName = "Device " + std::to_string(nDevice);
        device.sIp = pDevices->Address(nDevice);
        device.nPort = FieldDevices::Port;
        device.nCategory = 1;
        device.sOrgCode = "001";
        device.sManufacturer = "Other";
        device.sProtocol = "Private";
        device.sUserName = "admin";
        device.sPassword = FieldDevices::Password;
        return pClient->Get<wire::AddDevice>(device).vecAddedIds.at(0);
    }
    template <class Item>
    std::map<std::string, Item> Items(const wire::JobState& state)
    {
        std::map<std::string, Item> mapItems;
        for (const auto& json : state.items) {
            auto item = json.get<Item>();
            mapItems[item.sDeviceId] = item;
        }
        return mapItems;
    }

    std::unique_ptr<FieldDevices> pDevices;
};

TEST_P(FieldTest, ASearchFindsDevicesAndSaysWhichAreManaged)
{
    StartWith(5, {{{"initialized", false}}});
    const std::string sManaged = Manage(2);
    const auto state =
        pClient->Finish(pClient->Get<wire::SearchOnlineDevice>({pDevices->Address(0), pDevices->Address(3)}));
    std::map<std::string, SearchDeviceInfo_t> mapFound;
    for (const auto& item : state.items)
        mapFound[item.at("sIp").get<std::string>()] = item.get<SearchDeviceInfo_t>();
    ASSERT_EQ(mapFound.size(), 4U) << "the fifth lies outside";
    EXPECT_EQ(mapFound[pDevices->Address(0)].nInitState, RemoteConfigLogical::InitMissing);
    EXPECT_EQ(mapFound[pDevices->Address(1)].nInitState, RemoteConfigLogical::InitDone);
    EXPECT_EQ(mapFound[pDevices->Address(1)].sDeviceId, "");
    EXPECT_EQ(mapFound[pDevices->Address(2)].sDeviceId, sManaged);
    EXPECT_EQ(mapFound[pDevices->Address(3)].sMac, "02:00:5e:00:00:03");

    for (const auto& [sStart, sEnd] : std::vector<std::pair<std::string, std::string>>{
             {"10.0.0.1", ""}, {"10.0.0.2", "10.0.0.1"}, {"10.0.0", "10.0.0.1"}, {"10.0.0.0", "10.1.0.0"}})
        EXPECT_EQ(pClient->Call<wire::SearchOnlineDevice>({sStart, sEnd}).nCode, ErrorInvalidInput) << sStart;
}

TEST_P(FieldTest, AJobIsSeenByItsAccountAndIsCancelled)
{
    StartWith(1);
    const auto job = pClient->Get<wire::SearchOnlineDevice>({"127.0.0.1", "127.0.0.9"});
    pServer->AddAccount("other", {"001001", "001001001"});
    ApiClient other(pServer->Url());
    other.SignIn("other", TestSupport::TestServer::AdminPassword());
    EXPECT_EQ(other.Call<wire::WaitJob>({job.sJob, 0}).nCode, ErrorNotFound);
    EXPECT_EQ(other.Call<wire::CancelJob>(job).nCode, ErrorNotFound);
    EXPECT_EQ(pClient->Call<wire::CancelJob>(job).nCode, 0);
    EXPECT_EQ(pClient->Finish(job).nErrorCode, 0);
    EXPECT_EQ(pClient->Call<wire::WaitJob>({job.sJob, -5}).nCode, 0);
    pServer->AdvanceClock(2 * 60 * 60 * 1000);
    pClient->Get<wire::SearchOnlineDevice>({"127.0.0.1", "127.0.0.9"});
    EXPECT_EQ(pClient->Call<wire::WaitJob>({job.sJob, 0}).nCode, ErrorNotFound) << "kept for an hour";
}

TEST_P(FieldTest, TwelvePasswordsAtOnceWithOneDeviceThatRefuses)
{
    std::vector<nlohmann::json> vecChanges(12, nlohmann::json::object());
    vecChanges[4]["refuse_password"] = true;
    vecChanges[7]["present"] = false;
    vecChanges[9]["password"] = "Something-else1";
    StartWith(12, vecChanges);
    std::vector<std::string> vecIds;
    for (int n = 0; n < 12; ++n)
        vecIds.push_back(Manage(n));
    vecIds.push_back("4711");
    const auto state = pClient->Finish(
        pClient->Get<wire::ModifyDevicePassword>({vecIds, FieldDevices::Password, "Brand-new-7"}));
    EXPECT_EQ(state.nDone, 13);
    auto mapResults = Items<ModifyDevicePasswordResultInfo_t>(state);
    const std::map<int, int> mapExpected{
        {4, ErrorDeviceRefused}, {9, ErrorDevicePassword}, {12, ErrorNotFound}};
    for (int n = 0; n < 13; ++n) {
        const auto& result = mapResults[vecIds[static_cast<std::size_t>(n)]];
        if (n == 7) {
            EXPECT_THAT(result.nErrorCode, testing::AnyOf(ErrorDeviceUnreachable, ErrorDeviceTimeOut));
            continue;
        }
        const auto it = mapExpected.find(n);
        EXPECT_EQ(result.nErrorCode, it == mapExpected.end() ? 0 : it->second) << n << ' ' << result.sDetail;
        EXPECT_EQ(result.sDeviceName, n < 12 ? "Device " + std::to_string(n) : "");
    }
    EXPECT_EQ(pDevices->State(0).at("password"), "Brand-new-7");
    EXPECT_EQ(pDevices->State(4).at("password"), FieldDevices::Password);
    // The platform goes on with the new password: it still sets the clock.
    const auto zones = pClient->Finish(pClient->Get<wire::SetDeviceTimeZone>(
        {{vecIds[0], vecIds[4]}, pClient->Get<wire::GetTimeZone>().setting}));
    for (const auto& [sId, result] : Items<RemoteConfigLogical::TimeZoneResult_t>(zones))
        EXPECT_EQ(result.nState, RemoteConfigLogical::TimeZoneDone) << sId;
    EXPECT_EQ(pServer
                  ->QuerySql(QStringLiteral("SELECT COUNT(*) FROM audit_log "
                                            "WHERE operation = 'device/password'"))
                  .toInt(),
        9);
}

TEST_P(FieldTest, TimeZonesEndInTheStateOfEachDevice)
{
    StartWith(3, {nlohmann::json::object(), {{"time_zone_support", false}}, {{"present", false}}});
    std::vector<std::string> vecIds{Manage(0), Manage(1), Manage(2)};
    const auto time = pClient->Get<wire::GetTimeZone>();
    const auto it = std::find_if(time.vecZones.begin(), time.vecZones.end(),
        [](const auto& zone) { return zone.setting.sZone == "Europe/Berlin"; });
    ASSERT_NE(it, time.vecZones.end());
    EXPECT_EQ(it->sText, "(UTC+01:00) Europe/Berlin");
    auto mapResults = Items<RemoteConfigLogical::TimeZoneResult_t>(
        pClient->Finish(pClient->Get<wire::SetDeviceTimeZone>({vecIds, it->setting})));
    EXPECT_EQ(mapResults[vecIds[0]].nState, RemoteConfigLogical::TimeZoneDone);
    EXPECT_EQ(mapResults[vecIds[1]].nState, RemoteConfigLogical::TimeZoneNotSupported);
    EXPECT_EQ(mapResults[vecIds[2]].nState, RemoteConfigLogical::TimeZoneFailed);
    EXPECT_THAT(pDevices->State(0).dump(), testing::HasSubstr("Europe/Berlin"));
}

TEST_P(FieldTest, DaylightSavingIsTheRuleOfTheZone)
{
    using RemoteConfigLogical::DstDate_t;
    const auto berlin = Platform::TimeZones::SettingOf("Europe/Berlin", 2026);
    EXPECT_EQ(berlin.nOffsetMinutes, 60);
    EXPECT_TRUE(berlin.bDst);
    EXPECT_EQ(berlin.dstStart, (DstDate_t{3, 5, 7, 2}));
    EXPECT_EQ(berlin.dstEnd, (DstDate_t{10, 5, 7, 3}));
    const auto newYork = Platform::TimeZones::SettingOf("America/New_York", 2026);
    EXPECT_EQ(newYork.nOffsetMinutes, -300);
    EXPECT_EQ(newYork.dstStart, (DstDate_t{3, 2, 7, 2}));
    EXPECT_EQ(newYork.dstEnd, (DstDate_t{11, 1, 7, 2}));
    const auto sydney = Platform::TimeZones::SettingOf("Australia/Sydney", 2026);
    EXPECT_EQ(sydney.nOffsetMinutes, 600);
    EXPECT_EQ(sydney.dstStart.nMonth, 10);
    EXPECT_EQ(sydney.dstEnd.nMonth, 4);
    EXPECT_FALSE(Platform::TimeZones::SettingOf("Asia/Tokyo", 2026).bDst);
    EXPECT_EQ(Platform::TimeZones::SettingOf("Asia/Kathmandu", 2026).nOffsetMinutes, 345);
}

TEST_P(FieldTest, FirstPasswordsAndNewAddressesReachTheDeviceAndItsRecord)
{
    StartWith(3, {{{"initialized", false}}});
    const auto initialized = Items<ModifyDevicePasswordResultInfo_t>(pClient->Finish(
        pClient->Get<wire::InitializeDevice>({{{pDevices->Address(0), FieldDevices::Port, "Private"},
                                                  {pDevices->Address(1), FieldDevices::Port, "Private"}},
            "First-pass1", "owner@example.org"})));
    EXPECT_EQ(initialized.at(pDevices->Address(0) + ":37777").nErrorCode, 0);
    EXPECT_EQ(initialized.at(pDevices->Address(1) + ":37777").nErrorCode, ErrorDeviceInitialized);
    EXPECT_EQ(pDevices->State(0).at("password"), "First-pass1");

    const std::string sMoved = Manage(1);
    Manage(2);
    const auto change = [&](const std::string& sNewIp, const std::string& sPassword) {
        const auto state = pClient->Finish(pClient->Get<wire::ModifyAddress>({{{pDevices->Address(1),
            FieldDevices::Port, "Private", "admin", sPassword, sNewIp, "255.255.255.0", ""}}}));
        return state.items.at(0).get<ModifyDevicePasswordResultInfo_t>().nErrorCode;
    };
    EXPECT_EQ(change(pDevices->Address(2), FieldDevices::Password), ErrorAddressExists);
    EXPECT_EQ(change(pDevices->Address(9), "wrong"), ErrorDevicePassword);
    EXPECT_EQ(pClient->Get<wire::QueryDeviceDetail>({sMoved}).sIp, pDevices->Address(1));
    EXPECT_EQ(change(pDevices->Address(9), FieldDevices::Password), 0);
    EXPECT_EQ(pClient->Get<wire::QueryDeviceDetail>({sMoved}).sIp, pDevices->Address(9));
    EXPECT_EQ(pDevices->State(1, pDevices->Address(9)).at("address"), pDevices->Address(9));
}

TEST_P(FieldTest, AnAddedDeviceComesOnlineAtOnceAndItsChannelsAreRead)
{
    StartWith(1, {}, 3600);
    EventReader events(pServer->Url(), pClient->sToken);
    ASSERT_TRUE(events.WaitFor("hello"));
    const std::string sId = Manage(0);
    EXPECT_TRUE(events.WaitFor("\"sDeviceId\":\"" + sId + "\""));
    GroupLogical::DeviceAddInfo_t device;
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(15);
    while (device.nVideoChannels == 0 && std::chrono::steady_clock::now() < deadline)
        device = pClient->Get<wire::QueryDeviceDetail>({sId});
    EXPECT_EQ(device.nVideoChannels, 4);
    EXPECT_EQ(device.nAlarmInputs, 2);
    EXPECT_EQ(device.sModel, "SIM-1");
    EXPECT_EQ(device.nVersion, 1) << "an edit that is under way stays valid";
}

TEST_P(FieldTest, CloudAccountsAreAskedThroughTheServer)
{
    httplib::Server cloud;
    cloud.Post("/api/devices", [](const httplib::Request& request, httplib::Response& response) {
        const auto body = nlohmann::json::parse(request.body);
        const std::string sUser = body.at("user");
        response.body = sUser == "empty" ? R"({"code":1})"
            : sUser == "wrong"           ? R"({"code":7})"
            : sUser == "broken"          ? "<html>"
                                : R"({"code":0,"devices":[{"sn":"P2P-1","name":"Cabin","model":"M"},)"
                                  R"({"sn":"P2P-2","category":8,"name":3}]})";
    });
    const int nPort = cloud.bind_to_any_port("127.0.0.1");
    std::thread serving([&] { cloud.listen_after_bind(); });
    TestSupport::TestServerOptions options;
    options.sCloudUrl = "http://127.0.0.1:" + std::to_string(nPort) + "/api/";
    Start(options);
    const auto features = pClient->Get<wire::GetFeatures>();
    EXPECT_TRUE(features.bCloudAccount);
    EXPECT_EQ(features.sCloudService, "127.0.0.1:" + std::to_string(nPort));
    const auto list = pClient->Get<wire::QueryCloudDevices>({"me", "secret"});
    ASSERT_EQ(list.vecDevices.size(), 2U);
    EXPECT_EQ(list.vecDevices[0].sName, "Cabin");
    EXPECT_EQ(list.vecDevices[1].sSerialNumber, "P2P-2");
    EXPECT_EQ(list.vecDevices[1].nCategory, 8);
    EXPECT_EQ(pClient->Get<wire::QueryCloudDevices>({"empty", "x"}).nCloudCode, 1);
    EXPECT_EQ(pClient->Get<wire::QueryCloudDevices>({"wrong", "x"}).nCloudCode, 7);
    EXPECT_EQ(pClient->Call<wire::QueryCloudDevices>({"broken", "x"}).nCode, ErrorCloudUnreachable);
    cloud.stop();
    serving.join();
    EXPECT_EQ(pClient->Call<wire::QueryCloudDevices>({"me", "x"}).nCode, ErrorCloudUnreachable);
    Start();
    EXPECT_FALSE(pClient->Get<wire::GetFeatures>().bCloudAccount);
    EXPECT_EQ(pClient->Call<wire::QueryCloudDevices>({"me", "x"}).nCode, ErrorCloudNotConfigured);
}

INSTANTIATE_TEST_SUITE_P(
    , FieldTest, testing::ValuesIn(TestSupport::DatabaseKinds()), TestSupport::DatabaseKindName);

} // namespace ServerTest

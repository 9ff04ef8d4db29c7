#include "ServerFixture.h"

#include <server/import/SheetFile.h>

namespace ServerTest {

using namespace UICommonMdl;
using namespace UserLogical;
using TestSupport::TestServer;

/// Two organisations with two devices each; "guard" reaches the first one and its devices.
class ScopeTest : public ServerFixture
{
protected:
    void StartSite()
    {
        Start();
        sNorth = AddOrganization("001", "North").sCode;
        sSouth = AddOrganization("001", "South").sCode;
        sGate = AddDevice("Gate", sNorth);
        sLobby = AddDevice("Lobby", sNorth);
        sDock = AddDevice("Dock", sSouth);
        pServer->AddAccount("guard",
            {"001", "001001", "001001001", "001002", "001002002", "002", "002003", "002003001", "004",
                "004002"},
            TestServer::Reach::Nothing);
        pGuard = std::make_unique<ApiClient>(pServer->Url());
        pGuard->SignIn("guard", TestServer::AdminPassword());
        sRole = pClient->Get<wire::QueryUserRole>({"guard"}).vecRoles.at(0).sRoleId;
    }
    std::string AddDevice(const std::string& sName, const std::string& sOrgCode, ApiClient* pBy = nullptr)
    {
        GroupLogical::DeviceAddInfo_t device;
        device.sName = sName;
        device.nAddMode = GroupLogical::AddByIp;
        device.sIp = "127.9.9." + std::to_string(++nDevices);
        device.nPort = 80;
        device.nCategory = 1;
        device.sOrgCode = sOrgCode;
        device.sUserName = "admin";
        device.sPassword = "Device-17";
        device.sProtocol = "Private";
        device.sManufacturer = "Alderpoint";
        const std::string sId = (pBy ? *pBy : *pClient).Get<wire::AddDevice>(device).vecAddedIds.at(0);
        pServer->RunSql(QStringLiteral("UPDATE device SET video_channels = 2 WHERE id = ?"),
            {QString::fromStdString(sId).toLongLong()});
        return sId;
    }
    void Change(const std::vector<DeviceRightChange_t>& vecChanges)
    {
        RoleEdit_t edit;
        edit.role = pClient->Get<wire::QueryRoleInfo>({sRole});
        edit.vecChanges = vecChanges;
        pClient->Get<wire::ModifyRole>(edit);
    }
    static DeviceRightChange_t Organization(
        const std::string& sCode, int nRight, int nAuto = DeviceRightChange_t::Keep)
    {
        return {DeviceNodeOrganization, sCode, 0, 0, nRight, nAuto};
    }
    static DeviceRightChange_t Device(const std::string& sId, int nRight)
    {
        return {DeviceNodeDevice, sId, 0, 0, nRight, DeviceRightChange_t::Keep};
    }
    static DeviceRightChange_t Channel(const std::string& sId, int nNumber, int nRight)
    {
        return {DeviceNodeChannel, sId, ChannelVideo, nNumber, nRight, DeviceRightChange_t::Keep};
    }
    std::vector<std::string> Seen(ApiClient& client)
    {
        std::vector<std::string> vecNames;
        GroupLogical::DevicePageRequest_t request;
        request.nSortField = GroupLogical::SortByName;
        for (const auto& device : client.Get<wire::QueryDevicePage>(request).vecDevices)
            vecNames.push_back(device.sName);
        return vecNames;
    }
    std::vector<std::string> SeenOrganizations()
    {
        std::vector<std::string> vecNames;
        for (const auto& organization : pGuard->Get<wire::QueryOrganizations>().vecOrganizations)
            vecNames.push_back(organization.sName);
        return vecNames;
    }
    /// States of what lies below a node, as the built-in account sees it: "Gate 2".
    std::vector<std::string> States(const std::string& sId, int nKind = DeviceNodeOrganization)
    {
        std::vector<std::string> vecStates;
        for (const auto& node : pClient->Get<wire::QueryDeviceRights>({nKind, sId, {sRole}}).vecNodes)
            vecStates.push_back(node.sName + ' ' + std::to_string(node.nState) + (node.bAuto ? " auto" : ""));
        return vecStates;
    }

    using Names = std::vector<std::string>;
    std::string sNorth, sSouth, sGate, sLobby, sDock, sRole;
    std::unique_ptr<ApiClient> pGuard;
    int nDevices = 0;
};

TEST_P(ScopeTest, EveryAnswerKeepsToWhatTheRoleReaches)
{
    StartSite();
    EXPECT_EQ(Seen(*pGuard), Names());
    EXPECT_EQ(SeenOrganizations(), Names());
    Change({Organization(sNorth, DeviceRightChange_t::On)});
    EXPECT_EQ(Seen(*pGuard), (Names{"Gate", "Lobby"}));
    EXPECT_EQ(SeenOrganizations(), (Names{"Root", "North"}));
    EXPECT_EQ(pGuard->Get<wire::ExportDevice>().vecDevices.size(), 2U);
    GroupLogical::DevicePageRequest_t search;
    search.sSearchText = "Dock";
    EXPECT_EQ(pGuard->Get<wire::QueryDevicePage>(search).nTotal, 0);
    EXPECT_EQ(pClient->Get<wire::QueryDevicePage>(search).nTotal, 1);

    // What names a device or an organisation that is not reached is answered as if it were not there.
    auto hidden = pClient->Get<wire::QueryDeviceDetail>({sDock});
    GroupLogical::DeviceAddInfo_t added = hidden;
    added.sDeviceId.clear();
    added.sName = "New";
    added.sIp = "127.9.9.99";
    added.sPassword = "Device-17";
    GroupLogical::Organization_t organization;
    organization.sParentCode = sSouth;
    organization.sName = "Below";
    GroupLogical::Organization_t renamed;
    for (const auto& o : pClient->Get<wire::QueryOrganizations>().vecOrganizations)
        if (o.sCode == sSouth)
            renamed = o;
    const std::vector<std::pair<const char*, std::function<Reply()>>> vecCalls{
        {"detail", [&] { return pGuard->Call<wire::QueryDeviceDetail>({sDock}); }},
        {"references", [&] { return pGuard->Call<wire::QueryDeviceReferences>({sDock}); }},
        {"access", [&] { return pGuard->Call<wire::QueryDeviceAccess>({sDock}); }},
        {"modify", [&] { return pGuard->Call<wire::ModifyDevice>(hidden); }},
        {"add", [&] { return pGuard->Call<wire::AddDevice>(added); }},
        {"move there",
            [&] {
                return pGuard->Call<wire::MoveDevice>({{sGate}, sSouth});
            }},
        {"capture", [&] { return pGuard->Call<wire::CaptureFingerprint>({sDock}); }},
        {"extract", [&] { return pGuard->Call<wire::ExtractPersons>({sDock}); }},
        {"channels",
            [&] {
                return pGuard->Call<wire::QueryDeviceRights>({DeviceNodeDevice, sDock, {}});
            }},
        {"add organization", [&] { return pGuard->Call<wire::AddOrganization>(organization); }},
        {"rename organization", [&] { return pGuard->Call<wire::ModifyOrganization>(renamed); }},
        {"delete organization", [&] { return pGuard->Call<wire::DeleteOrganization>({sSouth}); }},
        {"move organization",
            [&] {
                return pGuard->Call<wire::MoveOrganization>({sSouth, sNorth});
            }},
        {"move below it",
            [&] {
                return pGuard->Call<wire::MoveOrganization>({sNorth, sSouth});
            }},
    };
    for (const auto& [szName, call] : vecCalls)
        EXPECT_EQ(call().nCode, ErrorNotFound) << szName;
    EXPECT_EQ(pGuard->Get<wire::DeleteDevice>({{sDock}, 0}).vecFailed.at(0).nErrorCode, ErrorNotFound);
    EXPECT_EQ(pGuard->Get<wire::MoveDevice>({{sDock}, sNorth}).vecFailed.at(0).nErrorCode, ErrorNotFound);
    const auto state =
        pGuard->Finish(pGuard->Get<wire::ModifyDevicePassword>({{sDock}, "Device-17", "Device-18"}));
    EXPECT_NE(nlohmann::json(state).dump().find("41"), std::string::npos);
    EXPECT_EQ(Seen(*pClient), (Names{"Dock", "Gate", "Lobby"}));

    // And nobody gives what he does not reach himself.
    RoleEdit_t edit;
    edit.role.sName = "Copy";
    edit.vecChanges = {Device(sDock, DeviceRightChange_t::On)};
    EXPECT_EQ(pGuard->Call<wire::AddRole>(edit).nCode, ErrorNotFound);
    edit.vecChanges = {Organization("001", DeviceRightChange_t::On)};
    EXPECT_EQ(pGuard->Call<wire::AddRole>(edit).nCode, ErrorNotFound);
    edit.vecChanges = {Device(sGate, DeviceRightChange_t::On)};
    EXPECT_EQ(pGuard->Call<wire::AddRole>(edit).nCode, 0);
}

TEST_P(ScopeTest, AutoAuthorizationPassesOnWhatIsAdded)
{
    StartSite();
    const std::string sOffice = AddOrganization(sNorth, "Office").sCode;
    Change({Organization(sNorth, DeviceRightChange_t::On, DeviceRightChange_t::On)});
    EXPECT_EQ(States("001"), (Names{"North 2 auto", "South 0"}));
    AddDevice("Porch", sOffice);
    AddDevice("Quay", sSouth);
    EXPECT_EQ(Seen(*pGuard), (Names{"Gate", "Lobby", "Porch"}));
    // Devices and organisations that are moved there, and organisations that are new there.
    ASSERT_EQ(pClient->Call<wire::MoveDevice>({{sDock}, sOffice}).nCode, 0);
    const std::string sAnnex = AddOrganization(sOffice, "Annex").sCode;
    AddDevice("Attic", sAnnex, pGuard.get());
    ASSERT_EQ(pClient->Call<wire::MoveOrganization>({sSouth, sNorth}).nCode, 0);
    EXPECT_EQ(Seen(*pGuard), (Names{"Attic", "Dock", "Gate", "Lobby", "Porch", "Quay"}));
    pServer->Restart();
    EXPECT_EQ(Seen(*pGuard).size(), 6U);

    Change({Organization(sNorth, DeviceRightChange_t::Off)});
    EXPECT_EQ(Seen(*pGuard), Names());
    AddDevice("Late", sNorth);
    EXPECT_EQ(Seen(*pGuard), Names{"Late"}) << "what is taken is taken, what comes is passed on";
    Change({Organization(sNorth, DeviceRightChange_t::On)});
    EXPECT_EQ(Seen(*pGuard).size(), 7U);
    Change({Organization(sNorth, DeviceRightChange_t::Keep, DeviceRightChange_t::Off)});
    AddDevice("Roof", sNorth);
    EXPECT_EQ(Seen(*pGuard).size(), 7U) << "what is there stays, what comes does not";
    EXPECT_EQ(States("001"), (Names{"North 1"}));
}

TEST_P(ScopeTest, AnImportKeepsToWhatTheRoleReaches)
{
    StartSite();
    Change({Organization(sNorth, DeviceRightChange_t::On, DeviceRightChange_t::On)});
    const auto row = [](int nLine, const std::string& sName, const std::string& sOrganization) {
        GroupLogical::ImportRow_t device;
        device.nLine = nLine;
        device.sName = sName;
        device.sConnect = "1";
        device.sAddress = "127.9.8." + std::to_string(nLine);
        device.sPort = "37777";
        device.sUserName = "admin";
        device.sPassword = "Device-17";
        device.sOrganization = sOrganization;
        return device;
    };
    auto hidden = row(4, "Dock", sNorth);
    hidden.sAddress = "127.9.9.3"; // that of a device that is not reached
    hidden.sPort = "80";
    const auto job = pGuard->Get<wire::BeginImport>({"001", "xml"});
    pGuard->Get<wire::AddImportRows>(
        {job.sJob, {row(1, "Porch", sNorth), row(2, "Quay", sSouth), row(3, "Hall", ""), hidden}});
    pGuard->Get<wire::RunImport>({job.sJob, false, false});
    std::map<int, int> mapFailed;
    for (const auto& item : pGuard->Finish(job).items) {
        const auto failure = item.get<GroupLogical::ImportFailure_t>();
        mapFailed[failure.nLine] = failure.nErrorCode;
    }
    EXPECT_EQ(
        mapFailed, (std::map<int, int>{{2, ErrorNotFound}, {3, ErrorNotFound}, {4, ErrorAddressExists}}));
    EXPECT_EQ(Seen(*pGuard), (Names{"Gate", "Lobby", "Porch"}));
}

TEST_P(ScopeTest, AnImportOverwritesOnlyWhatTheRoleReaches)
{
    StartSite();
    Change({Organization(sNorth, DeviceRightChange_t::On, DeviceRightChange_t::On)});
    const QByteArray baSheet = Platform::SheetFile::Write("x",
        {{"Intercom Device Name", "IP Address", "Port", "User Name", "Password"},
            {"Gate Station", "127.9.9.1", "80", "admin", "Device-18"},
            {"Dock Station", "127.9.9.3", "80", "admin", "Device-18"}});
    const auto sheet = pGuard->Upload("/api/v1/upload/device-sheet?org=" + sNorth, baSheet.toStdString())
                           .data.get<wire::UploadedSheet>();
    pGuard->Get<wire::RunImport>({sheet.sJob, false, true});
    std::vector<GroupLogical::ImportFailure_t> vecFailed;
    for (const auto& item : pGuard->Finish({sheet.sJob}).items)
        vecFailed.push_back(item.get<GroupLogical::ImportFailure_t>());
    ASSERT_EQ(vecFailed.size(), 1U);
    EXPECT_EQ(vecFailed[0].sName, "Dock Station");
    EXPECT_EQ(vecFailed[0].nErrorCode, ErrorNoRight);
    EXPECT_EQ(Seen(*pClient), (Names{"Dock", "Gate Station", "Lobby"}));
}

TEST_P(ScopeTest, ChangesApplyFromTheRootDownAndShowInTheTree)
{
    StartSite();
    EXPECT_EQ(States(""), Names{"Root 0"});
    Change({Channel(sGate, 2, DeviceRightChange_t::Off), Device(sLobby, DeviceRightChange_t::Off),
        Organization("001", DeviceRightChange_t::On)});
    EXPECT_EQ(States(""), Names{"Root 1"});
    EXPECT_EQ(States("001"), (Names{"North 1", "South 2"}));
    EXPECT_EQ(States(sNorth), (Names{"Gate 1", "Lobby 0"}));
    EXPECT_EQ(States(sGate, DeviceNodeDevice), (Names{"Channel 1 2", "Channel 2 0"}));
    EXPECT_EQ(Seen(*pGuard), (Names{"Dock", "Gate"}));
    Change({Channel(sGate, 1, DeviceRightChange_t::Off), Channel(sLobby, 1, DeviceRightChange_t::On)});
    EXPECT_EQ(States(sNorth), (Names{"Gate 0", "Lobby 1"}));
    const auto access = pClient->Get<wire::QueryDeviceAccess>({sLobby}).vecAccess;
    EXPECT_EQ(access,
        (std::vector<DeviceAccess_t>{{"guard", {"guard"}, false}, {"system", {"Administrator"}, true}}));

    RoleEdit_t copy;
    copy.role.sName = "Copy";
    copy.sCopyFrom = sRole;
    copy.vecChanges = {Device(sDock, DeviceRightChange_t::Off)};
    sRole = pClient->Get<wire::AddRole>(copy).sRoleId;
    EXPECT_EQ(States(sNorth), (Names{"Gate 0", "Lobby 1"}));
    EXPECT_EQ(States("001"), (Names{"North 1", "South 1"})) << "the organization itself is still reached";
    copy.role.sName = "Everything";
    copy.sCopyFrom = "1";
    copy.vecChanges.clear();
    sRole = pClient->Get<wire::AddRole>(copy).sRoleId;
    EXPECT_EQ(States(""), Names{"Root 2 auto"});

    for (const auto& wrong :
        {Device("4711", DeviceRightChange_t::On), Channel(sGate, 3, DeviceRightChange_t::On),
            Organization("4711", DeviceRightChange_t::On), Device("x", DeviceRightChange_t::On)}) {
        copy.role.sName = "Wrong";
        copy.sCopyFrom.clear();
        copy.vecChanges = {wrong};
        EXPECT_EQ(pClient->Call<wire::AddRole>(copy).nCode, ErrorNotFound) << wrong.sId;
    }
    EXPECT_EQ(pClient->Get<wire::QueryRoleList>().vecRoles.size(), 4U);
}

TEST_P(ScopeTest, ARoleWithThousandsOfCamerasIsSavedAndCopiedWhole)
{
    TestSupport::TestServerOptions options;
    options.nSeedDevices = 4000;
    Start(options);
    RoleEdit_t edit;
    edit.role.sName = "Cameras";
    GroupLogical::DevicePageRequest_t request;
    request.nPageSize = 1000;
    for (request.nPage = 1; request.nPage <= 4; ++request.nPage)
        for (const auto& device : pClient->Get<wire::QueryDevicePage>(request).vecDevices)
            edit.vecChanges.push_back(Device(device.sDeviceId, DeviceRightChange_t::On));
    ASSERT_EQ(edit.vecChanges.size(), 4000U);
    sRole = pClient->Get<wire::AddRole>(edit).sRoleId;
    EXPECT_EQ(States(""), Names{"Root 2"});
    pServer->AddAccount("guard", {"001001"}, TestServer::Reach::Nothing);
    User_t guard = pClient->Get<wire::QueryUserInfo>({"guard"});
    guard.vecRoleIds.push_back(sRole);
    pClient->Get<wire::ModifyUser>(guard);
    ApiClient client(pServer->Url());
    client.SignIn("guard", TestServer::AdminPassword());
    // Pages of a restricted account, back and forth, are those of the whole list.
    for (const int nPage : {1, 4, 2, 3}) {
        request.nPage = nPage;
        EXPECT_EQ(client.Get<wire::QueryDevicePage>(request), pClient->Get<wire::QueryDevicePage>(request));
    }
}

TEST_P(ScopeTest, StatesAndChangesReachThoseWhoSeeTheDevice)
{
    StartSite();
    EventReader guardEvents(pServer->Url(), pGuard->sToken);
    ASSERT_TRUE(guardEvents.WaitFor("hello"));
    Change({Organization(sNorth, DeviceRightChange_t::On)});
    EXPECT_TRUE(guardEvents.WaitFor("devices-changed")) << "what is seen is another thing now";
    EXPECT_TRUE(guardEvents.WaitFor("organizations-changed"));
    EXPECT_FALSE(guardEvents.WaitFor("rights-changed", std::chrono::milliseconds(0)));
}

INSTANTIATE_TEST_SUITE_P(
    , ScopeTest, testing::ValuesIn(TestSupport::DatabaseKinds()), TestSupport::DatabaseKindName);

} // namespace ServerTest

#include "ServerFixture.h"

#include "ServiceError.h"
#include "services/AuditService.h"
#include "services/Context.h"
#include "services/RightsService.h"
#include "services/SessionService.h"

#include <atomic>
#include <thread>

namespace ServerTest {

using namespace UICommonMdl;
using TestSupport::TestServer;

class SessionTest : public ServerFixture
{
};

TEST_P(SessionTest, TheFirstPasswordIsSetOnceAndFromTheOwnMachineOnly)
{
    TestSupport::TestServerOptions options;
    options.bSetUp = false;
    Start(options);
    EXPECT_TRUE(pClient->Get<wire::GetServerState>().bSetupNeeded);
    EXPECT_EQ(pClient->SignIn("system", "").nCode, ErrorSetupNeeded);
    for (const char* szBad : {"Ab1", "aaaaaaaa", "metsys", "pass word1", "", "quote\"quote1"})
        EXPECT_EQ(pClient->Call<wire::SetUp>({szBad}).nCode, ErrorPasswordRule) << szBad;
    Platform::Context remote;
    remote.sClientAddress = "192.0.2.7";
    try {
        pServer->Server().Sessions().SetUp(remote, {TestServer::AdminPassword()});
        ADD_FAILURE() << "set up from another machine";
    } catch (const Platform::ServiceError& error) {
        EXPECT_EQ(error.Code(), ErrorSetupRemote);
    }
    EXPECT_EQ(pClient->Call<wire::SetUp>({TestServer::AdminPassword()}).nCode, 0);
    EXPECT_EQ(pClient->Call<wire::SetUp>({"Another-42"}).nCode, ErrorSetupDone);
    EXPECT_FALSE(pClient->Get<wire::GetServerState>().bSetupNeeded);
    EXPECT_EQ(pClient->SignIn("system", "Another-42").nCode, ErrorWrongPassword);
    EXPECT_EQ(pClient->SignIn("SYSTEM", TestServer::AdminPassword()).nCode, 0);
}

TEST_P(SessionTest, FiveWrongPasswordsLockAnyNameForFiveMinutes)
{
    Start();
    // A name that no account has behaves alike, so that nobody learns which names exist.
    for (const char* szName : {"system", "nobody"}) {
        ApiClient client(pServer->Url());
        for (int i = 0; i < 5; ++i)
            EXPECT_EQ(client.SignIn(szName, "Wrong-4242").nCode, ErrorWrongPassword) << szName << i;
        EXPECT_EQ(client.SignIn(szName, TestServer::AdminPassword()).nCode, ErrorAccountLocked) << szName;
    }
    EXPECT_EQ(pClient->Call<wire::GetSession>().nCode, 0) << "a session that is open goes on";
    pServer->Restart();
    EXPECT_EQ(pClient->SignIn("system", TestServer::AdminPassword()).nCode, ErrorAccountLocked);
    pServer->AdvanceClock(Platform::SessionService::LockMs - 5000);
    EXPECT_EQ(pClient->SignIn("system", TestServer::AdminPassword()).nCode, ErrorAccountLocked);
    pServer->AdvanceClock(6000);
    EXPECT_EQ(pClient->SignIn("system", TestServer::AdminPassword()).nCode, 0);
    for (int i = 0; i < 4; ++i)
        pClient->SignIn("system", "Wrong-4242");
    EXPECT_EQ(pClient->SignIn("system", TestServer::AdminPassword()).nCode, 0)
        << "a right one clears the count";
}

TEST_P(SessionTest, GuessesSideBySideDoNotOutrunTheLock)
{
    Start();
    std::atomic<int> nTried{0};
    std::vector<std::thread> vecThreads;
    for (int i = 0; i < 12; ++i)
        vecThreads.emplace_back([&] {
            ApiClient client(pServer->Url());
            if (client.SignIn("system", "Wrong-4242").nCode == ErrorWrongPassword)
                ++nTried;
        });
    for (std::thread& thread : vecThreads)
        thread.join();
    EXPECT_EQ(nTried, 5);
}

TEST_P(SessionTest, SessionsLastWhileUsedAndEndBySignOut)
{
    TestSupport::TestServerOptions options;
    options.nTokenLifetimeMinutes = 10;
    Start(options);
    const std::string sHashed =
        pServer->QuerySql(QStringLiteral("SELECT token_hash FROM session")).toString().toStdString();
    EXPECT_NE(sHashed, pClient->sToken) << "the token itself is not kept";
    for (int i = 0; i < 4; ++i) {
        pServer->AdvanceClock(8 * 60 * 1000);
        EXPECT_EQ(pClient->Call<wire::GetSession>().nCode, 0) << i;
        pServer->Restart();
    }
    pServer->AdvanceClock(10 * 60 * 1000 + 1);
    EXPECT_EQ(pClient->Call<wire::GetSession>().nCode, ErrorNotSignedIn);

    pClient->SignIn("system", TestServer::AdminPassword());
    EXPECT_EQ(pClient->Call<wire::SignOut>().nCode, 0);
    EXPECT_EQ(pClient->Call<wire::GetSession>().nCode, ErrorNotSignedIn);
    pServer->Restart();
    EXPECT_EQ(pClient->Call<wire::GetSession>().nCode, ErrorNotSignedIn);
}

TEST_P(SessionTest, ARolesNewRightsHoldAtOnceAndAreTold)
{
    Start();
    pServer->AddAccount("guard", {"001001"});
    ApiClient guard(pServer->Url());
    guard.SignIn("guard", TestServer::AdminPassword());
    EventReader guardEvents(pServer->Url(), guard.sToken);
    EventReader systemEvents(pServer->Url(), pClient->sToken);
    ASSERT_TRUE(guardEvents.WaitFor("hello") && systemEvents.WaitFor("hello"));
    EXPECT_EQ(guard.Call<wire::QueryOrganizations>().nCode, 0);
    UserLogical::RoleEdit_t edit;
    edit.role = pClient->Get<wire::QueryUserRole>({"guard"}).vecRoles.at(0);
    edit.role.vecMenuRights = {"002001", "002005"};
    EXPECT_EQ(pClient->Call<wire::ModifyRole>(edit).nCode, 0);
    EXPECT_TRUE(guardEvents.WaitFor("rights-changed"));
    EXPECT_EQ(guard.Call<wire::QueryOrganizations>().nCode, ErrorNoRight);
    const auto session = guard.Get<wire::GetSession>();
    ASSERT_EQ(session.vecMenuRights.size(), 2U);
    EXPECT_EQ(session.vecMenuRights[1].sWidgetName, "ACSManagerWidget");
    EXPECT_EQ(session.vecRights, (std::vector<std::string>{"002", "002001", "002005"}));

    edit.role = pClient->Get<wire::QueryUserRole>({"guard"}).vecRoles.at(0);
    edit.role.vecMenuRights = {"999"};
    EXPECT_EQ(pClient->Call<wire::ModifyRole>(edit).nCode, ErrorInvalidInput);
    EXPECT_EQ(guard.Get<wire::GetSession>().vecRights.size(), 3U) << "a refused change changes nothing";
    pServer->Publish("devices-changed");
    ASSERT_TRUE(systemEvents.WaitFor("devices-changed"));
    EXPECT_FALSE(systemEvents.WaitFor("rights-changed", std::chrono::milliseconds(0)));
}

TEST(AuditTest, SecretsDoNotReachTheLog)
{
    nlohmann::json record{{"sName", "a"}, {"sPassword", "x"}, {"list", {{{"sToken", "y"}, {"nPort", 1}}}}};
    Platform::AuditService::Redact(record);
    EXPECT_EQ(record.dump(), R"({"list":[{"nPort":1,"sToken":"***"}],"sName":"a","sPassword":"***"})");
}

INSTANTIATE_TEST_SUITE_P(
    , SessionTest, testing::ValuesIn(TestSupport::DatabaseKinds()), TestSupport::DatabaseKindName);

} // namespace ServerTest

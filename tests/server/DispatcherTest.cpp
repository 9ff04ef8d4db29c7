#include "ServerFixture.h"

#include "http/Dispatcher.h"

namespace ServerTest {

using namespace UICommonMdl;

class DispatcherTest : public ServerFixture
{
protected:
    /// What no refused request may change.
    QString Fingerprint()
    {
        return pServer
            ->QuerySql(QStringLiteral("SELECT CAST((SELECT COUNT(*) FROM device) AS TEXT) || '/' || "
                                      "CAST((SELECT COUNT(*) FROM organization) AS TEXT) || '/' || "
                                      "CAST((SELECT SUM(version) FROM device) AS TEXT) || '/' || "
                                      "CAST((SELECT COUNT(*) FROM session) AS TEXT) || '/' || "
                                      "CAST((SELECT COUNT(*) FROM audit_log) AS TEXT)"))
            .toString();
    }
};

TEST_P(DispatcherTest, EveryOperationRefusesWhoMayNotUseIt)
{
    TestSupport::TestServerOptions options;
    options.bSeedDemo = true;
    options.nTokenLifetimeMinutes = 10;
    Start(options);
    pServer->AddAccount("guest", {});
    ApiClient guest(pServer->Url());
    ASSERT_EQ(guest.SignIn("guest", TestSupport::TestServer::AdminPassword()).nCode, 0);
    ApiClient expired(pServer->Url());
    expired.SignIn("guest", TestSupport::TestServer::AdminPassword());
    pServer->AdvanceClock(9 * 60 * 1000);
    ASSERT_EQ(guest.Call<wire::GetSession>().nCode, 0);
    ASSERT_EQ(pClient->Call<wire::GetSession>().nCode, 0);
    pServer->AdvanceClock(2 * 60 * 1000);
    ApiClient nobody(pServer->Url());
    ApiClient stranger(pServer->Url());
    stranger.sToken = std::string(64, 'a');
    ApiClient old(pServer->Url());
    old.sToken = pClient->sToken;
    old.sVersion = "0";

    const auto vecRules = pServer->Server().Operations().Rules();
    ASSERT_GE(vecRules.size(), 18U);
    const QString sBefore = Fingerprint();
    for (const auto& rule : vecRules) {
        EXPECT_EQ(old.Post(rule.sName, "{}").nCode, ErrorProtocolVersion) << rule.sName;
        for (const char* szBody : {"", "[]", "{", "\"text\"", "{\"a\":\"\\u0000\"}", "{\"a\":\"\xff\"}"}) {
            const Reply reply = pClient->Post(rule.sName, szBody);
            EXPECT_EQ(reply.nCode, ErrorMalformed) << rule.sName << ' ' << szBody;
            EXPECT_EQ(reply.nStatus, 400);
        }
        if (rule.access == wire::Access::Anybody)
            continue;
        for (ApiClient* pUnknown : {&nobody, &stranger, &expired}) {
            const Reply reply = pUnknown->Post(rule.sName, "{}");
            EXPECT_EQ(reply.nCode, ErrorNotSignedIn) << rule.sName;
            EXPECT_EQ(reply.nStatus, 401);
        }
        if (rule.access == wire::Access::ByRight) {
            EXPECT_EQ(guest.Post(rule.sName, "{}").nCode, ErrorNoRight) << rule.sName;
        }
    }
    EXPECT_EQ(Fingerprint(), sBefore);
}

TEST_P(DispatcherTest, RequestsThatAreNoneAreAnsweredAndTheNextOneWorks)
{
    Start();
    struct Case
    {
        std::string sOperation;
        std::string sBody;
        int nStatus;
        int nCode;
    };
    const std::vector<Case> vecCases{
        {"device/none", "{}", 404, ErrorUnknownOperation},
        {"", "{}", 404, ErrorUnknownOperation},
        {"device/page", std::string(5 * 1024 * 1024, ' '), 413, ErrorTooLarge},
        {"device/page", R"({"nPage":"1"})", 400, ErrorMalformed},
        {"device/page", R"({"nPage":1.5})", 400, ErrorMalformed},
        {"device/page", R"({"nPage":4294967297})", 400, ErrorMalformed},
        {"device/page", R"({"nPage":true})", 400, ErrorMalformed},
        {"device/page", R"({"sSearchText":null})", 400, ErrorMalformed},
        {"device/page", std::string(100000, '[') + std::string(100000, ']'), 400, ErrorMalformed},
        {"device/page", "{\"a\":" + std::string(100000, '[') + std::string(100000, ']') + '}', 400,
            ErrorMalformed},
        {"device/delete", R"({"vecDeviceIds":[1]})", 400, ErrorMalformed},
    };
    for (const Case& c : vecCases) {
        const Reply reply = pClient->Post(c.sOperation, c.sBody);
        EXPECT_EQ(reply.nStatus, c.nStatus) << c.sOperation << ' ' << c.sBody.substr(0, 60);
        EXPECT_EQ(reply.nCode, c.nCode) << c.sOperation << ' ' << c.sBody.substr(0, 60);
        EXPECT_EQ(pClient->Call<wire::GetSession>().nCode, 0);
    }
}

TEST_P(DispatcherTest, AStopAnswersTheRequestsUnderWayAndAKillDoesNot)
{
    for (const bool bKill : {false, true}) {
        Start();
        pServer->Hold("organization/add");
        Reply reply;
        std::thread request([&] {
            GroupLogical::Organization_t organization;
            organization.sParentCode = "001";
            organization.sName = "Late";
            reply = pClient->Call<wire::AddOrganization>(organization);
        });
        while (pServer->RequestCount("organization/add") == 0)
            std::this_thread::yield();
        bKill ? pServer->Kill() : pServer->Stop();
        request.join();
        EXPECT_EQ(reply.nStatus, bKill ? 0 : 200);
        pServer->Start();
        EXPECT_EQ(pClient->Call<wire::GetSession>().nCode, 0) << "sessions outlast a restart";
        EXPECT_EQ(pClient->Get<wire::QueryOrganizations>().vecOrganizations.size(), 2U)
            << "confirmed or not, it is whole";
    }
}

INSTANTIATE_TEST_SUITE_P(
    , DispatcherTest, testing::ValuesIn(TestSupport::DatabaseKinds()), TestSupport::DatabaseKindName);

} // namespace ServerTest

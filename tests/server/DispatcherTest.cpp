#include "ServerFixture.h"

#include "http/Dispatcher.h"

#include <iterator>
#include <sstream>

namespace ServerTest {

using namespace UICommonMdl;

namespace {

constexpr const char* Anybody = "-";
constexpr const char* SignedIn = "";

/// Every operation with the rights that it needs: whoever adds one says here who may use it.
const std::map<std::string, std::string> Needed{
    {"access-record/page", "002003001"},
    {"access-record/total", "002003001"},
    {"audit/export", "001002003 004003"},
    {"audit/page", "001002003"},
    {"cloud/devices", "001001001"},
    {"device/access", "001001 001002"},
    {"device/add", "001001001"},
    {"device/delete", "001001001"},
    {"device/detail", "001001"},
    {"device/export", "001001001 004002"},
    {"device/modify", "001001001"},
    {"device/move", "001001001"},
    {"device/page", "001001"},
    {"device/password", "001001001"},
    {"device/references", "001001"},
    {"device/time-zone", "001001001"},
    {"device/types", "001001"},
    {"dictionary/get", SignedIn},
    {"discovery/address", "001001001"},
    {"discovery/initialize", "001001001"},
    {"discovery/search", "001001001"},
    {"domain/add", "001002001"},
    {"domain/delete-invalid", "001002001"},
    {"domain/invalid", "001002001"},
    {"domain/users", "001002001"},
    {"features/get", SignedIn},
    {"import/begin", "001001001"},
    {"import/rows", "001001001"},
    {"import/run", "001001001"},
    {"job/cancel", SignedIn},
    {"job/wait", SignedIn},
    {"organization/add", "001001001"},
    {"organization/delete", "001001001"},
    {"organization/modify", "001001001"},
    {"organization/move", "001001001"},
    {"organization/query", "001001"},
    {"person-group/add", "002003001"},
    {"person-group/delete", "002003001"},
    {"person-group/modify", "002003001"},
    {"person-group/query", "002003001"},
    {"person/add", "002003001"},
    {"person/authorize", "002003001"},
    {"person/capture", "002003001"},
    {"person/choices", "002003001"},
    {"person/delete", "002003001"},
    {"person/delete-all", "002003001"},
    {"person/detail", "002003001"},
    {"person/exceptions", "002003001"},
    {"person/extract", "002003001"},
    {"person/issue-cards", "002003001"},
    {"person/modify", "002003001"},
    {"person/move", "002003001"},
    {"person/page", "002003001"},
    {"person/qr-code", "002003001"},
    {"person/reissue", "002003001"},
    {"person/residence", "002003001"},
    {"right/devices", "001002"},
    {"right/function", "001002"},
    {"right/menu", "001002"},
    {"role/add", "001002002"},
    {"role/delete", "001002002"},
    {"role/info", "001002"},
    {"role/list", "001002"},
    {"role/modify", "001002002"},
    {"server/set-up", Anybody},
    {"server/state", Anybody},
    {"server/video-list", "001001"},
    {"session/get", SignedIn},
    {"session/sign-in", Anybody},
    {"session/sign-out", SignedIn},
    {"time-zone/get", "001001"},
    {"user/add", "001002001"},
    {"user/delete", "001002001"},
    {"user/info", "001002"},
    {"user/lock", "001002001"},
    {"user/modify", "001002001"},
    {"user/page", "001002"},
    {"user/role", "001002"},
    {"user/unlock", "001002001"},
};

std::vector<std::string> Split(const std::string& sCodes)
{
    std::istringstream codes(sCodes);
    return {std::istream_iterator<std::string>(codes), {}};
}

} // namespace

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
                                      "CAST((SELECT COUNT(*) FROM audit_log) AS TEXT) || '/' || "
                                      "CAST((SELECT COUNT(*) FROM account) AS TEXT) || '/' || "
                                      "CAST((SELECT COUNT(*) FROM role_right) AS TEXT) || '/' || "
                                      "CAST((SELECT SUM(version) FROM person) AS TEXT)"))
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

    // An account for each set of rights that lacks one of them and has all others there are.
    std::map<std::string, std::unique_ptr<ApiClient>> mapLacking;
    for (const auto& [sName, sCodes] : Needed)
        for (const std::string& sCode : Split(sCodes)) {
            if (sCode == Anybody || mapLacking.count(sCode) != 0)
                continue;
            std::vector<std::string> vecOthers;
            for (const auto& [sOther, sOtherCodes] : Needed)
                for (const std::string& sHas : Split(sOtherCodes))
                    if (sHas != Anybody && sHas != sCode
                        && std::find(vecOthers.begin(), vecOthers.end(), sHas) == vecOthers.end())
                        vecOthers.push_back(sHas);
            pServer->AddAccount("lacks " + sCode, vecOthers);
            mapLacking[sCode] = std::make_unique<ApiClient>(pServer->Url());
            ASSERT_EQ(
                mapLacking[sCode]->SignIn("lacks " + sCode, TestSupport::TestServer::AdminPassword()).nCode,
                0);
        }
    const auto vecRules = pServer->Server().Operations().Rules();
    ASSERT_EQ(vecRules.size(), Needed.size());
    const QString sBefore = Fingerprint();
    for (const auto& rule : vecRules) {
        const auto it = Needed.find(rule.sName);
        ASSERT_NE(it, Needed.end()) << rule.sName << " is not in the table";
        EXPECT_EQ(old.Post(rule.sName, "{}").nCode, ErrorProtocolVersion) << rule.sName;
        for (const char* szBody : {"", "[]", "{", "\"text\"", "{\"a\":\"\\u0000\"}", "{\"a\":\"\xff\"}"}) {
            const Reply reply = pClient->Post(rule.sName, szBody);
            EXPECT_EQ(reply.nCode, ErrorMalformed) << rule.sName << ' ' << szBody;
            EXPECT_EQ(reply.nStatus, 400);
        }
        if (it->second == Anybody)
            continue;
        for (ApiClient* pUnknown : {&nobody, &stranger, &expired}) {
            const Reply reply = pUnknown->Post(rule.sName, "{}");
            EXPECT_EQ(reply.nCode, ErrorNotSignedIn) << rule.sName;
            EXPECT_EQ(reply.nStatus, 401);
        }
        for (const std::string& sCode : Split(it->second)) {
            EXPECT_EQ(guest.Post(rule.sName, "{}").nCode, ErrorNoRight) << rule.sName;
            EXPECT_EQ(mapLacking[sCode]->Post(rule.sName, "{}").nCode, ErrorNoRight)
                << rule.sName << " without " << sCode;
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

#include "ServerFixture.h"

#include "http/FileRoutes.h"

namespace ServerTest {

using namespace UICommonMdl;

class FileRouteTest : public ServerFixture
{
};

TEST_P(FileRouteTest, EveryFileRefusesWhoMayNotHaveIt)
{
    Start();
    pServer->AddAccount("guest", {"001001"});
    ApiClient guest(pServer->Url());
    guest.SignIn("guest", TestSupport::TestServer::AdminPassword());
    ApiClient nobody(pServer->Url());
    const auto vecRules = pServer->Server().Files().Rules();
    ASSERT_EQ(vecRules.size(), 4U);
    for (const auto& rule : vecRules) {
        const bool bUpload = rule.sPath.rfind("/api/v1/upload/", 0) == 0;
        const auto ask = [&](ApiClient& client) {
            return bUpload ? client.Upload(rule.sPath, "PK") : client.Download(rule.sPath);
        };
        EXPECT_EQ(ask(nobody).nCode, ErrorNotSignedIn) << rule.sPath;
        EXPECT_EQ(ask(guest).nCode, ErrorNoRight) << rule.sPath;
    }
    EXPECT_EQ(pClient->Download("/api/v1/download/none").nCode, ErrorUnknownOperation);
    EXPECT_EQ(pClient->Download("/api/v1/download/device-template?kind=none").nCode, ErrorNotFound);
    EXPECT_EQ(pClient->Download("/api/v1/download/import-failures?job=none").nCode, ErrorNotFound);
    const Reply sheet = pClient->Download("/api/v1/download/device-template?kind=device");
    EXPECT_EQ(sheet.nStatus, 200);
    EXPECT_EQ(sheet.sDetail.substr(0, 2), "PK");
}

INSTANTIATE_TEST_SUITE_P(
    , FileRouteTest, testing::ValuesIn(TestSupport::DatabaseKinds()), TestSupport::DatabaseKindName);

} // namespace ServerTest

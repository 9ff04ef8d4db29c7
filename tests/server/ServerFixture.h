#pragma once

#include "ApiClient.h"
#include "TestServer.h"

#include <UICommonMdl/ErrorCodes.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace ServerTest {

/// A server of the parameter's database with the built-in account signed in.
class ServerFixture : public testing::TestWithParam<TestSupport::DatabaseKind>
{
protected:
    TestSupport::TestServer& Start(TestSupport::TestServerOptions options = {})
    {
        options.kind = GetParam();
        pServer = std::make_unique<TestSupport::TestServer>(options);
        pClient = std::make_unique<ApiClient>(pServer->Url());
        pClient->SignIn(TestSupport::TestServer::AdminName(), TestSupport::TestServer::AdminPassword());
        return *pServer;
    }

    GroupLogical::Organization_t AddOrganization(const std::string& sParent, const std::string& sName)
    {
        GroupLogical::Organization_t organization;
        organization.sParentCode = sParent;
        organization.sName = sName;
        return pClient->Get<wire::AddOrganization>(organization);
    }

    std::unique_ptr<TestSupport::TestServer> pServer;
    std::unique_ptr<ApiClient> pClient;
};

} // namespace ServerTest

#include "ServerFixture.h"

#include "http/EventHub.h"

namespace ServerTest {

class EventStreamTest : public ServerFixture
{
};

TEST_P(EventStreamTest, ChangesReachTheOtherClientsAndTheStreamEndsWithItsSession)
{
    Start();
    EventReader refused(pServer->Url(), "");
    EXPECT_TRUE(refused.WaitForEnd());
    EXPECT_EQ(refused.Status(), 401);

    ApiClient other(pServer->Url());
    other.SignIn("system", TestSupport::TestServer::AdminPassword());
    EventReader events(pServer->Url(), other.sToken);
    ASSERT_TRUE(events.WaitFor("event: hello\ndata: {}\n\n"));
    AddOrganization("001", "East");
    EXPECT_TRUE(events.WaitFor("event: organizations-changed\ndata: {}\n\n"));
    other.Get<wire::SignOut>();
    EXPECT_TRUE(events.WaitFor("event: session-ended"));
    EXPECT_TRUE(events.WaitForEnd());
}

TEST_P(EventStreamTest, AnIdleStreamShowsLifeAndEndsWhenItsSessionIsGone)
{
    TestSupport::TestServerOptions options;
    options.nHeartbeatMs = 20;
    options.nTokenLifetimeMinutes = 5;
    Start(options);
    EventReader events(pServer->Url(), pClient->sToken);
    ASSERT_TRUE(events.WaitFor("\n\n: alive\n\n: alive"));
    pServer->AdvanceClock(6 * 60 * 1000);
    EXPECT_TRUE(events.WaitFor("session-ended"));
    EXPECT_TRUE(events.WaitForEnd());
}

TEST_P(EventStreamTest, AStopEndsStreamsAtOnce)
{
    Start();
    EventReader events(pServer->Url(), pClient->sToken);
    ASSERT_TRUE(events.WaitFor("hello"));
    pServer->Stop();
    EXPECT_TRUE(events.WaitForEnd());
}

TEST(EventHubTest, ASlowClientIsCutOffAndStreamsAreLimited)
{
    Platform::EventHub hub(2);
    const auto pSlow = hub.Subscribe("a", 1);
    const auto pOther = hub.Subscribe("b", 2);
    EXPECT_EQ(hub.Subscribe("c", 3), nullptr);
    for (int i = 0; i < 1000; ++i)
        hub.Publish("devices-changed");
    EXPECT_EQ(pSlow->Take(std::chrono::milliseconds(0)),
        "event: hello\ndata: {}\n\nevent: users-changed\ndata: {}\n\nevent: devices-changed\ndata: {}\n\n")
        << "repeated news is kept once; who is online is news";
    for (int i = 0; i < 1000; ++i)
        hub.PublishTo(1, "device-states", '[' + std::to_string(i) + ']');
    EXPECT_EQ(pSlow->Take(std::chrono::milliseconds(0)), "")
        << "the stream ends, so that the client reads anew";
    EXPECT_THAT(
        pOther->Take(std::chrono::milliseconds(0)), testing::Not(testing::HasSubstr("device-states")));
}

TEST(EventHubTest, EachAccountGetsItsOwnNewsAndAnEndedOneNoMore)
{
    Platform::EventHub hub(8);
    const auto pFirst = hub.Subscribe("a", 1);
    const auto pSecond = hub.Subscribe("b", 1);
    const auto pOther = hub.Subscribe("c", 2);
    EXPECT_EQ(hub.Accounts(), (std::set<std::int64_t>{1, 2}));
    for (const auto& pQueue : {pFirst, pSecond, pOther})
        pQueue->Take(std::chrono::milliseconds(0));
    int nMade = 0;
    hub.PublishEach("device-states", [&nMade](std::int64_t nAccountId) {
        ++nMade;
        return nAccountId == 1 ? std::string("[1]") : std::string();
    });
    EXPECT_EQ(nMade, 2) << "made once an account";
    for (const auto& pQueue : {pFirst, pSecond})
        EXPECT_EQ(pQueue->Take(std::chrono::milliseconds(0)), "event: device-states\ndata: [1]\n\n");
    EXPECT_EQ(pOther->Take(std::chrono::milliseconds(0)), ": alive\n\n");
    hub.EndAccount(1);
    for (const auto& pQueue : {pFirst, pSecond}) {
        EXPECT_EQ(pQueue->Take(std::chrono::milliseconds(0)), "event: session-ended\ndata: {}\n\n");
        EXPECT_EQ(pQueue->Take(std::chrono::milliseconds(0)), "");
    }
    EXPECT_EQ(pOther->Take(std::chrono::milliseconds(0)), ": alive\n\n");
}

INSTANTIATE_TEST_SUITE_P(
    , EventStreamTest, testing::ValuesIn(TestSupport::DatabaseKinds()), TestSupport::DatabaseKindName);

} // namespace ServerTest

#include "ServerFixture.h"

#include "devices/TcpReachability.h"

#include <QElapsedTimer>
#include <QHostAddress>
#include <QTcpServer>

namespace ServerTest {

using namespace GroupLogical;

class ProberTest : public ServerFixture
{
protected:
    void AddDevice(qlonglong nId, const QString& sAddress, int nPort)
    {
        pServer->RunSql(
            QStringLiteral("INSERT INTO device (id, name, name_key, address, address_key, port, search_key, "
                           "category, model, org_code, manufacturer, protocol) "
                           "VALUES (?, 'x', 'x', ?, '~', ?, 'x', 1, '', '001', '', '')"),
            {nId, sAddress, nPort});
    }
};

/// A listening port whose connections nobody has to take.
struct Listener
{
    explicit Listener(const char* szAddress = "127.0.0.1")
    {
        TestSupport::EnsureApplication();
        server.listen(QHostAddress(QLatin1String(szAddress)));
    }
    QTcpServer server;
};

TEST_P(ProberTest, StatesFollowTheDevicesAndAreTold)
{
    TestSupport::TestServerOptions options;
    options.nProbeIntervalSeconds = 1;
    Start(options);
    EventReader events(pServer->Url(), pClient->sToken);
    ASSERT_TRUE(events.WaitFor("hello"));
    Listener listener;
    AddDevice(1, QStringLiteral("127.0.0.1"), listener.server.serverPort());
    EXPECT_TRUE(events.WaitFor(R"({"nOfflineReason":0,"nOnlineState":1,"sDeviceId":"1"})"));
    DevicePageRequest_t online;
    online.nOnlineState = StateOnline;
    EXPECT_EQ(pClient->Get<wire::QueryDevicePage>(online).nTotal, 1);

    listener.server.close();
    EXPECT_TRUE(events.WaitFor(R"({"nOfflineReason":2,"nOnlineState":0,"sDeviceId":"1"})"));
    EXPECT_EQ(pClient->Get<wire::QueryDevicePage>(online).nTotal, 0);
    EXPECT_EQ(pServer->QuerySql(QStringLiteral("SELECT version FROM device")).toInt(), 1)
        << "a state is no change of the record";
}

TEST(TcpReachabilityTest, EveryTargetIsToldOnceWithItsReason)
{
    Listener listener;
    Listener listener6("::1");
    Listener closed;
    const int nClosed = closed.server.serverPort();
    closed.server.close();
    std::vector<Platform::ProbeTarget> vecTargets{
        {1, "127.0.0.1", listener.server.serverPort()},
        {2, "127.0.0.1", nClosed},
        {3, "", 80},
        {4, "127.0.0.1", 0},
        {5, "no-such-host.invalid", 80},
        {6, "localhost", nClosed},
    };
    std::vector<int> vecReasons{
        ReasonNone, ReasonRefused, ReasonNoAddress, ReasonNoAddress, ReasonAddressUnknown, ReasonRefused};
    if (listener6.server.isListening()) {
        vecTargets.push_back({7, "::1", listener6.server.serverPort()});
        vecReasons.push_back(ReasonNone);
    }
    // Far more than may be tried at a time.
    for (int i = 0; i < 300; ++i) {
        vecTargets.push_back({100 + i, "127.0.0." + std::to_string(1 + i % 200),
            i % 2 ? nClosed : listener.server.serverPort()});
        vecReasons.push_back(i % 2 == 0 && i % 200 == 0 ? int(ReasonNone) : int(ReasonRefused));
    }
    Platform::TcpReachability reachability(8, 3000);
    std::map<std::int64_t, int> mapFound;
    reachability.Check(vecTargets,
        [&](const Platform::ProbeTarget& target, const Platform::ProbeResult& result) {
            EXPECT_TRUE(mapFound.emplace(target.nId, result.nOfflineReason).second) << target.nId;
            EXPECT_EQ(result.nOnlineState == StateOnline, result.nOfflineReason == ReasonNone);
        },
        {});
    ASSERT_EQ(mapFound.size(), vecTargets.size());
    for (std::size_t i = 0; i < vecTargets.size(); ++i)
        EXPECT_EQ(mapFound[vecTargets[i].nId], vecReasons[i])
            << vecTargets[i].sAddress << ':' << vecTargets[i].nPort;
}

INSTANTIATE_TEST_SUITE_P(
    , ProberTest, testing::ValuesIn(TestSupport::DatabaseKinds()), TestSupport::DatabaseKindName);

} // namespace ServerTest

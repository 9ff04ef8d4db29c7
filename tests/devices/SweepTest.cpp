#include "FieldDeviceProcess.h"

#include <server/devices/DiscoverySweep.h>
#include <server/devices/FieldDeviceDriver.h>
#include <server/devices/OnvifDriver.h>

#include <gtest/gtest.h>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <set>
#include <thread>

namespace DevicesTest {

namespace {

using nlohmann::json;
using Platform::DiscoverySweep;
using Platform::FieldDeviceDriver;
using Platform::OnvifDriver;
using RemoteConfigLogical::SearchDeviceInfo_t;

constexpr int Port = 37777;
constexpr int ShortMs = 300;

std::string Key(const SearchDeviceInfo_t& device)
{
    return device.sProtocol + ' ' + device.sIp + ':' + std::to_string(device.nPort);
}

std::multiset<std::string> Found(const DiscoverySweep& sweep,
    const std::vector<Platform::DeviceDriver*>& vecDrivers, const std::string& sStart,
    const std::string& sEnd)
{
    std::multiset<std::string> found;
    sweep.Run(
        vecDrivers, sStart, sEnd, [&](const SearchDeviceInfo_t& device) { found.insert(Key(device)); }, {});
    return found;
}

/// Answers every probe with the same datagrams, from 127.0.0.1 and, for those that begin with '!', from its
/// second address.
class ScriptedResponder
{
public:
    explicit ScriptedResponder(std::vector<std::string> vecReplies)
        : m_vecReplies(std::move(vecReplies))
        , m_nSocket(Open(INADDR_LOOPBACK))
        , m_nElsewhere(Open(INADDR_LOOPBACK + 0x010000))
        , m_thread([this] { Run(); })
    {
    }
    ~ScriptedResponder()
    {
        shutdown(m_nSocket, SHUT_RDWR);
        m_thread.join();
        close(m_nSocket);
        close(m_nElsewhere);
    }
    ScriptedResponder(const ScriptedResponder&) = delete;
    ScriptedResponder& operator=(const ScriptedResponder&) = delete;

    int Port() const
    {
        sockaddr_in bound{};
        socklen_t nSize = sizeof(bound);
        getsockname(m_nSocket, reinterpret_cast<sockaddr*>(&bound), &nSize);
        return ntohs(bound.sin_port);
    }

private:
    static int Open(std::uint32_t nAddress)
    {
        const int nSocket = socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
        sockaddr_in bound{};
        bound.sin_family = AF_INET;
        bound.sin_addr.s_addr = htonl(nAddress);
        EXPECT_EQ(bind(nSocket, reinterpret_cast<sockaddr*>(&bound), sizeof(bound)), 0);
        return nSocket;
    }
    void Run() const
    {
        std::array<char, 4096> buffer{};
        sockaddr_in sender{};
        for (;;) {
            socklen_t nSize = sizeof(sender);
            auto* const pSender = reinterpret_cast<sockaddr*>(&sender);
            if (recvfrom(m_nSocket, buffer.data(), buffer.size(), 0, pSender, &nSize) <= 0)
                return;
            for (const std::string& sReply : m_vecReplies) {
                const bool bElsewhere = sReply.starts_with('!');
                sendto(bElsewhere ? m_nElsewhere : m_nSocket, sReply.data() + (bElsewhere ? 1 : 0),
                    sReply.size() - (bElsewhere ? 1 : 0), 0, pSender, nSize);
            }
        }
    }

    const std::vector<std::string> m_vecReplies;
    const int m_nSocket;
    const int m_nElsewhere;
    std::thread m_thread;
};

std::string Reply(const std::string& sAddress, int nPort)
{
    return json{{"method", "device.found"}, {"address", sAddress}, {"port", nPort}}.dump();
}

} // namespace

TEST(Sweep, FindsFiftyDevicesAmongAThousandAddressesInTime)
{
    constexpr int TimeoutMs = 1500;
    std::string sNet = Loopback(1);
    sNet = sNet.substr(0, sNet.find('.', 4)) + '.';
    json devices = json::array();
    std::multiset<std::string> expected;
    for (int i = 0; i < 50; ++i) {
        const std::string sAddress = sNet + std::to_string(i % 4) + '.' + std::to_string(5 * i + 1);
        const std::string sProtocol = i % 3 == 0 ? "ONVIF" : "Private";
        devices.push_back(Simulated(sProtocol, sAddress, Port));
        expected.insert(sProtocol + ' ' + sAddress + ':' + std::to_string(Port));
    }
    const FieldDeviceProcess process(devices);
    ASSERT_EQ(process.Printed("ready"), 50);
    FieldDeviceDriver own(1000, process.DiscoveryPort("Private"));
    OnvifDriver onvif(1000, process.DiscoveryPort("ONVIF"));
    const auto start = std::chrono::steady_clock::now();
    const auto found = Found(DiscoverySweep(TimeoutMs), {&own, &onvif}, sNet + "0.0", sNet + "3.255");
    const std::chrono::duration<double, std::milli> elapsed = std::chrono::steady_clock::now() - start;
    EXPECT_EQ(found, expected);
    EXPECT_LE(elapsed.count(), 1.5 * TimeoutMs);
}

TEST(Sweep, WithoutARangeAsksTheGroupsAndWithOneDropsTheRest)
{
    json absent = Simulated("Private", Loopback(4), Port);
    absent["present"] = false;
    const FieldDeviceProcess process(
        {Simulated("Private", Loopback(1), Port), Simulated("Private", Loopback(1), Port + 1),
            Simulated("ONVIF", Loopback(1), Port + 2), Simulated("Private", Loopback(3), Port), absent});
    FieldDeviceDriver own(1000, process.DiscoveryPort("Private"));
    OnvifDriver onvif(1000, process.DiscoveryPort("ONVIF"));
    const std::string sFirst = "Private " + Loopback(1) + ':';
    const std::string sOnvif = "ONVIF " + Loopback(1) + ':' + std::to_string(Port + 2);
    const std::multiset<std::string> atFirst{
        sFirst + std::to_string(Port), sFirst + std::to_string(Port + 1), sOnvif};
    std::multiset<std::string> everywhere = atFirst;
    everywhere.insert("Private " + Loopback(3) + ':' + std::to_string(Port));
    const DiscoverySweep sweep(ShortMs);
    EXPECT_EQ(Found(sweep, {&own, &onvif}, {}, {}), everywhere);
    EXPECT_EQ(Found(sweep, {&own, &onvif}, Loopback(1), Loopback(2)), atFirst);
    EXPECT_EQ(Found(sweep, {&onvif}, Loopback(1), Loopback(1)), std::multiset<std::string>{sOnvif});
    EXPECT_EQ(Found(sweep, {}, {}, {}).size(), 0U);
}

TEST(Sweep, TellsEachDeviceOnceAndDropsWhatIsNone)
{
    std::vector<std::string> vecReplies{Reply("127.0.0.1", 8000), Reply("127.0.0.1", 8000),
        Reply("127.0.0.1", 8001), Reply("127.0.0.9", 8000), "!" + Reply("127.1.0.1", 8000), "nonsense", "",
        Reply("127.0.0.1", 8000).substr(0, 30), std::string(60000, '{')};
    const ScriptedResponder responder(vecReplies);
    FieldDeviceDriver driver(1000, responder.Port());
    EXPECT_EQ(Found(DiscoverySweep(ShortMs), {&driver}, "127.0.0.1", "127.0.0.8"),
        (std::multiset<std::string>{"Private 127.0.0.1:8000", "Private 127.0.0.1:8001"}));
}

TEST(Sweep, AnAddressCannotFloodTheList)
{
    std::vector<std::string> vecReplies;
    for (int i = 1; i <= 500; ++i)
        vecReplies.push_back(Reply("127.0.0.1", i));
    const ScriptedResponder responder(vecReplies);
    FieldDeviceDriver driver(1000, responder.Port());
    EXPECT_EQ(Found(DiscoverySweep(ShortMs, 1), {&driver}, "127.0.0.1", "127.0.0.1").size(), 64U);
}

TEST(Sweep, StopsAtOnce)
{
    const ScriptedResponder responder({Reply("127.0.0.1", 8000)});
    FieldDeviceDriver driver(1000, responder.Port());
    std::stop_source stop;
    std::chrono::steady_clock::time_point asked;
    // All of 127.0.0.0/16: the stop comes while probes are being sent.
    DiscoverySweep(60000).Run(
        {&driver}, "127.0.0.0", "127.0.255.255",
        [&](const SearchDeviceInfo_t&) {
            asked = std::chrono::steady_clock::now();
            stop.request_stop();
        },
        stop.get_token());
    ASSERT_TRUE(stop.stop_requested());
    EXPECT_LT(std::chrono::steady_clock::now() - asked, std::chrono::milliseconds(100));
}

TEST(Sweep, RefusesWhatIsNoRange)
{
    FieldDeviceDriver driver;
    for (const auto& [sStart, sEnd] :
        {std::pair<std::string, std::string>{"127.0.0.1", ""}, {"", "127.0.0.1"}, {"127.0.0.2", "127.0.0.1"},
            {"127.0.0.1", "127.1.0.1"}, {"127.0.0.1", "host"}, {"127.1", "127.0.0.9"}}) {
        EXPECT_THROW(Found(DiscoverySweep(ShortMs), {&driver}, sStart, sEnd), std::invalid_argument)
            << sStart << ' ' << sEnd;
    }
}

} // namespace DevicesTest

// Both drivers against the simulated devices: what holds whatever the protocol.

#include "FieldDeviceProcess.h"

#include <server/devices/DiscoverySweep.h>
#include <server/devices/FieldDeviceDriver.h>
#include <server/devices/OnvifDriver.h>

#include <gtest/gtest.h>

#include <memory>

namespace DevicesTest {

namespace {

using namespace UICommonMdl;
using nlohmann::json;
using Platform::DeviceAccess;
using Platform::DeviceError;

constexpr int Port = 37777;
constexpr int ShortTimeoutMs = 300;
constexpr int LongTimeoutMs = 20000;

std::unique_ptr<Platform::DeviceDriver> MakeDriver(
    const std::string& sProtocol, int nTimeoutMs, int nDiscoveryPort)
{
    if (sProtocol == "ONVIF")
        return std::make_unique<Platform::OnvifDriver>(nTimeoutMs, nDiscoveryPort);
    return std::make_unique<Platform::FieldDeviceDriver>(nTimeoutMs, nDiscoveryPort);
}

/// The code that a call fails with; 0 when it does not.
template <class Call>
int CodeOf(const Call& call)
{
    try {
        call();
        return 0;
    } catch (const DeviceError& error) {
        return error.Code();
    }
}

/// The parameter: the protocol, and for ONVIF whether devices want HTTP digest.
struct Kind
{
    const char* szName;
    const char* szProtocol;
    bool bHttpDigest;
    int nClockOffset;
};

class DriverTest : public testing::TestWithParam<Kind>
{
protected:
    void Start(json change = json::object())
    {
        json device = Simulated(GetParam().szProtocol, Loopback(1), Port);
        device["http_digest"] = GetParam().bHttpDigest;
        device["clock_offset"] = GetParam().nClockOffset;
        device.update(change);
        process = std::make_unique<FieldDeviceProcess>(json::array({device}));
        ASSERT_EQ(process->Printed("ready"), device.value("present", true) ? 1 : 0);
        driver =
            MakeDriver(GetParam().szProtocol, LongTimeoutMs, process->DiscoveryPort(GetParam().szProtocol));
    }
    DeviceAccess Access(const std::string& sPassword = "Field-2024", int nHost = 1) const
    {
        return {Loopback(nHost), Port, "admin", sPassword};
    }
    json State(int nHost = 1) const { return process->State(Loopback(nHost), Port); }
    int IdentifyCode(const std::string& sPassword = "Field-2024", int nHost = 1) const
    {
        return CodeOf([&] { driver->Identify(Access(sPassword, nHost)); });
    }

    std::unique_ptr<FieldDeviceProcess> process;
    std::unique_ptr<Platform::DeviceDriver> driver;
};

INSTANTIATE_TEST_SUITE_P(Protocols, DriverTest,
    testing::Values(Kind{"Private", "Private", false, 0}, Kind{"OnvifToken", "ONVIF", false, 0},
        Kind{"OnvifWrongClock", "ONVIF", false, -86400}, Kind{"OnvifDigest", "ONVIF", true, 0}),
    [](const auto& info) { return info.param.szName; });

} // namespace

TEST_P(DriverTest, TellsWhatTheDeviceIs)
{
    Start();
    const auto identity = driver->Identify(Access());
    EXPECT_EQ(identity.sManufacturer, "Acme & Sons");
    EXPECT_EQ(identity.sModel, "VC-2140");
    EXPECT_EQ(identity.sSerialNumber, "S-1");
    EXPECT_EQ(identity.sMac, "02:00:5e:10:00:01");
    EXPECT_EQ(identity.nCategory, GetParam().szProtocol == std::string("ONVIF") ? 1 : 8);
    Platform::ChannelCounts expected;
    expected.nVideo = 3;
    expected.nAlarmInputs = 4;
    expected.nAlarmOutputs = 2;
    EXPECT_EQ(driver->Channels(Access()), expected);
}

TEST_P(DriverTest, AWrongPasswordIsTold)
{
    Start();
    EXPECT_EQ(IdentifyCode("wrong"), ErrorDevicePassword);
    EXPECT_EQ(CodeOf([&] { driver->SetPassword(Access("wrong"), "New-2025"); }), ErrorDevicePassword);
    EXPECT_EQ(State()["password"], "Field-2024");
}

TEST_P(DriverTest, TheNewPasswordIsTheOneThatCounts)
{
    Start();
    const std::string sNew = R"(<N&w"2' %\)";
    driver->SetPassword(Access(), sNew);
    EXPECT_EQ(State()["password"], sNew);
    EXPECT_EQ(IdentifyCode("Field-2024"), ErrorDevicePassword);
    EXPECT_EQ(IdentifyCode(sNew), 0);
}

TEST_P(DriverTest, ADeviceMayRefuseAPasswordInItsOwnWords)
{
    Start({{"refuse_password", true}});
    try {
        driver->SetPassword(Access(), "New-2025");
        FAIL();
    } catch (const DeviceError& error) {
        EXPECT_EQ(error.Code(), ErrorDeviceRefused);
        EXPECT_STREQ(error.what(), "The device does not change its password");
    }
    EXPECT_EQ(State()["password"], "Field-2024");
}

TEST_P(DriverTest, TakesATimeZone)
{
    Start();
    RemoteConfigLogical::TimeZoneSetting_t setting{"Europe/Berlin", 60, true, {3, 5, 7, 2}, {10, 5, 7, 3}};
    driver->SetTimeZone(Access(), setting);
    const json told = State()["time_zone"];
    if (GetParam().szProtocol == std::string("ONVIF")) {
        EXPECT_EQ(told, (json{{"tz", "STD-1DST,M3.5.0/2,M10.5.0/3"}, {"dst", true}}));
    } else {
        EXPECT_EQ(told["zone"], "Europe/Berlin");
        EXPECT_EQ(told["offset_minutes"], 60);
        EXPECT_EQ(told["dst_end"], (json{{"month", 10}, {"week", 5}, {"weekday", 7}, {"hour", 3}}));
    }
    process->Change(Loopback(1), Port, {{"time_zone_support", false}});
    EXPECT_EQ(CodeOf([&] { driver->SetTimeZone(Access(), setting); }), ErrorDeviceNotSupported);
}

TEST_P(DriverTest, TheFirstPasswordIsGivenOnce)
{
    Start({{"initialized", false}});
    EXPECT_EQ(IdentifyCode(),
        GetParam().szProtocol == std::string("ONVIF") ? ErrorDevicePassword : ErrorDeviceNotInitialized);
    driver->Initialize(Access("First-2026"), "owner@example.org");
    EXPECT_EQ(IdentifyCode("First-2026"), 0);
    EXPECT_EQ(CodeOf([&] { driver->Initialize(Access("Second-2026"), {}); }), ErrorDeviceInitialized);
    EXPECT_EQ(State()["password"], "First-2026");
}

TEST_P(DriverTest, MovesToAnotherAddressAndIsFoundThere)
{
    Start();
    driver->SetAddress(Access(), {Loopback(9), "255.255.0.0", Loopback(254)});
    const json state = State(9);
    EXPECT_EQ(state["mask"], "255.255.0.0");
    EXPECT_EQ(state["gateway"], Loopback(254));
    EXPECT_EQ(IdentifyCode("Field-2024", 9), 0);
    EXPECT_EQ(IdentifyCode("Field-2024", 1), ErrorDeviceUnreachable);
    std::vector<RemoteConfigLogical::SearchDeviceInfo_t> vecFound;
    Platform::DiscoverySweep(200).Run({driver.get()}, Loopback(1), Loopback(20),
        [&](const auto& device) { vecFound.push_back(device); }, {});
    ASSERT_EQ(vecFound.size(), 1U);
    EXPECT_EQ(vecFound[0].sIp, Loopback(9));
    EXPECT_EQ(vecFound[0].nPort, Port);
    EXPECT_EQ(vecFound[0].sName, "Gate <1>");
}

TEST_P(DriverTest, AnAddressThatTheDeviceCannotTakeIsRefused)
{
    Start();
    for (const auto& place : {std::pair<std::string, std::string>{"192.0.2.1", "255.255.255.0"},
             {Loopback(9), "255.0.255.0"}, {Loopback(9), "nonsense"}}) {
        EXPECT_EQ(CodeOf([&] {
            driver->SetAddress(Access(), {place.first, place.second, {}});
        }),
            ErrorDeviceRefused)
            << place.first << ' ' << place.second;
    }
    EXPECT_EQ(IdentifyCode(), 0);
}

TEST_P(DriverTest, ASlowDeviceTimesOutAndAVanishedOneIsUnreachable)
{
    Start({{"slow_ms", 60000}});
    const auto impatient = MakeDriver(GetParam().szProtocol, ShortTimeoutMs, 0);
    EXPECT_EQ(CodeOf([&] { impatient->Identify(Access()); }), ErrorDeviceTimeOut);
    process->Change(Loopback(1), Port, {{"slow_ms", 0}});
    EXPECT_EQ(IdentifyCode(), 0);
    process->Change(Loopback(1), Port, {{"present", false}});
    EXPECT_EQ(IdentifyCode(), ErrorDeviceUnreachable);
    process->Change(Loopback(1), Port, {{"present", true}});
    EXPECT_EQ(IdentifyCode(), 0);
}

} // namespace DevicesTest

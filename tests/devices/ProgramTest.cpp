// The program "fielddevice" itself.

#include "FieldDeviceProcess.h"

#include <server/devices/Drivers.h>

#include <gtest/gtest.h>
#include <httplib.h>

#include <QFile>

namespace DevicesTest {

namespace {

using nlohmann::json;
using Platform::DeviceAccess;
constexpr int Port = 37777;

httplib::Result Post(const std::string& sBody, const std::string& sAuthorization = {})
{
    httplib::Client client(Loopback(1), Port);
    httplib::Headers headers;
    if (!sAuthorization.empty())
        headers.emplace("Authorization", sAuthorization);
    return client.Post("/onvif/device_service", headers, sBody, "application/soap+xml");
}

} // namespace

TEST(FieldDevice, KeepsItsStateOverARestart)
{
    const QTemporaryDir folder;
    const QStringList listState{QStringLiteral("--state"), folder.filePath(QStringLiteral("state.json"))};
    const json devices{Simulated("Private", Loopback(1), Port), Simulated("ONVIF", Loopback(2), Port)};
    const auto drivers = Platform::Drivers::All(20000);
    json before;
    {
        FieldDeviceProcess process(devices, listState);
        ASSERT_EQ(process.Printed("ready"), 2);
        Platform::DeviceDriver& driver = *drivers.Find("Private");
        driver.SetPassword({Loopback(1), Port, "admin", "Field-2024"}, "Other-2025");
        driver.SetTimeZone({Loopback(1), Port, "admin", "Other-2025"}, {"Etc/UTC", 0, false, {}, {}});
        driver.SetAddress({Loopback(1), Port, "admin", "Other-2025"}, {Loopback(7), "255.0.0.0", {}});
        before = process.State(Loopback(7), Port);
        EXPECT_EQ(process.Stop(), 0);
    }
    EXPECT_EQ(QFile::permissions(listState.last()) & (QFile::ReadOther | QFile::ReadGroup), 0);
    const FieldDeviceProcess process(devices, listState);
    EXPECT_EQ(process.State(Loopback(7), Port), before);
    EXPECT_EQ(before["password"], "Other-2025");
    EXPECT_EQ(
        drivers.Find("Private")->Identify({Loopback(7), Port, "admin", "Other-2025"}).sModel, "VC-2140");
    EXPECT_EQ(process.State(Loopback(2), Port)["password"], "Field-2024");
}

TEST(FieldDevice, RefusesListsThatItCannotPlay)
{
    const auto with = [](const char* szKey, const json& value) {
        json device = Simulated("Private", Loopback(1), Port);
        device[szKey] = value;
        return device;
    };
    for (const json& device : {with("address", "192.0.2.1"), with("address", "0.0.0.0"), with("port", 0),
             with("port", 65536), with("protocol", "Other"), with("slow_ms", "often"), json("device")}) {
        FieldDeviceProcess process(json::array({device}));
        EXPECT_EQ(process.Printed("ready"), 0) << device;
        EXPECT_EQ(process.ExitCode(), 2) << device;
    }
}

TEST(FieldDevice, TheDozenIsThere)
{
    const FieldDeviceProcess process(json::array(), {QStringLiteral("--dozen")});
    if (process.Printed("ready") != 12)
        GTEST_SKIP() << "127.30.0.1 to 127.30.0.12 are in use";
    int nUninitialized = 0;
    int nRefusing = 0;
    int nWithoutTimeZone = 0;
    for (int i = 1; i <= 12; ++i) {
        const std::string sAddress = "127.30.0." + std::to_string(i);
        json state = process.State(sAddress, 37777);
        for (const int nPort : {80, 8080})
            state = state.is_null() ? process.State(sAddress, nPort) : state;
        ASSERT_FALSE(state.is_null()) << sAddress;
        nUninitialized += state["initialized"] == false ? 1 : 0;
        nRefusing += state["refuse_password"] == true ? 1 : 0;
        nWithoutTimeZone += state["time_zone_support"] == false ? 1 : 0;
    }
    EXPECT_EQ(nUninitialized, 2);
    EXPECT_EQ(nRefusing, 1);
    EXPECT_EQ(nWithoutTimeZone, 1);
}

TEST(FieldDevice, TokensCountOnce)
{
    const FieldDeviceProcess process(json::array({Simulated("ONVIF", Loopback(1), Port)}));
    const auto drivers = Platform::Drivers::All(20000);
    const auto body = [](const std::string& sToken) {
        return R"(<s:Envelope xmlns:s="http://www.w3.org/2003/05/soap-envelope"><s:Header><Security><UsernameToken>)"
            + sToken
            + "</UsernameToken></Security></s:Header><s:Body><tds:GetDeviceInformation "
              R"(xmlns:tds="http://www.onvif.org/ver10/device/wsdl"/></s:Body></s:Envelope>)";
    };
    // The right digest of a nonce and a time long ago.
    const std::string sStale = "<Username>admin</Username><Password Type=\"#PasswordDigest\">"
        + std::string("tuOSpGlFlIXsozq4HFNeeGeFLEI=")
        + "</Password><Nonce>LKqI6G/AikKCQrN0zqZFlg==</Nonce><Created>2010-09-16T07:50:45Z</Created>";
    for (const std::string& sToken : {std::string(), sStale,
             std::string(
                 "<Username>admin</Username><Password Type=\"#PasswordText\">Field-2024</Password>")}) {
        const auto result = Post(body(sToken));
        ASSERT_TRUE(result);
        EXPECT_EQ(result->status, 400) << sToken;
        EXPECT_NE(result->body.find("ter:NotAuthorized"), std::string::npos);
    }
}

TEST(FieldDevice, TwoInstancesDoNotTakeProbesFromEachOther)
{
    const FieldDeviceProcess first(json::array({Simulated("Private", Loopback(1), Port)}));
    const FieldDeviceProcess second(json::array({Simulated("Private", Loopback(2), Port)}),
        {QStringLiteral("--discovery-port"), QString::number(first.DiscoveryPort("Private"))});
    EXPECT_NE(first.DiscoveryPort("Private"), 0);
    EXPECT_EQ(second.DiscoveryPort("Private"), 0);
    EXPECT_EQ(second.Printed("ready"), 1);
}

} // namespace DevicesTest

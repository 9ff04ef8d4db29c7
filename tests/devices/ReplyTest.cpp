// What datagrams and settings are turned into, without a network.

#include <server/devices/Drivers.h>
#include <server/devices/FieldDeviceDriver.h>
#include <server/devices/OnvifDriver.h>
#include <server/devices/PosixTimeZone.h>
#include <server/devices/ReplyText.h>
#include <server/devices/SoapXml.h>

#include <gtest/gtest.h>

namespace DevicesTest {

namespace {

constexpr const char* From = "192.168.1.64";
constexpr const char* Video = "dn:NetworkVideoTransmitter";
constexpr const char* Network = "http://www.onvif.org/ver10/network/wsdl";

std::string ProbeMatch(const std::string& sTypes, const std::string& sNamespace, const std::string& sScopes,
    const std::string& sAddresses)
{
    return R"(<E:Envelope xmlns:E="http://www.w3.org/2003/05/soap-envelope" xmlns:dn=")" + sNamespace
        + R"(" xmlns:w="http://schemas.xmlsoap.org/ws/2005/04/discovery"><E:Body><w:ProbeMatches><w:ProbeMatch>)"
        + "<w:Types>" + sTypes + "</w:Types><w:Scopes>" + sScopes + "</w:Scopes><w:XAddrs>" + sAddresses
        + "</w:XAddrs></w:ProbeMatch></w:ProbeMatches></E:Body></E:Envelope>";
}

struct MatchCase
{
    const char* szWhat;
    const char* szTypes;
    const char* szNamespace;
    const char* szScopes;
    const char* szAddresses;
    int nPort; ///< 0: not listed
};
constexpr MatchCase MatchCases[] = {
    {"camera", Video, Network, "", "http://192.168.1.64/onvif/device_service", 80},
    {"one type of several", "tds:Device dn:NetworkVideoTransmitter", Network, "",
        "http://192.168.1.64:8080/x", 8080},
    {"no address told", Video, Network, "", "", 80},
    {"prefix means something else", Video, "http://example.org/", "", "http://192.168.1.64/", 0},
    {"computer", "wsdp:Device pub:Computer", Network, "", "http://192.168.1.64:5357/1234", 0},
    {"printer with scopes of its own", "wprt:PrintDeviceType", Network, "ldap:///ou=printers",
        "http://192.168.1.64:80/wsd", 0},
    {"scopes alone", "tds:Device", Network, "onvif://www.onvif.org/type/ptz", "http://192.168.1.64:2020/",
        2020},
    {"scopes without an address", "tds:Device", Network, "onvif://www.onvif.org/type/ptz", "", 0},
    {"own address behind others", Video, Network, "",
        "http://169.254.3.4:81/x http://[fe80::1]:82/x http://192.168.1.64:83/x", 83},
    {"address of another network only", Video, Network, "", "http://10.0.0.9:8899/onvif", 8899},
    {"IPv6 first", Video, Network, "", "http://[fe80::1]:82/x", 82},
    {"no port number", Video, Network, "", "http://192.168.1.64:99999/x", 80},
    {"not HTTP", Video, Network, "", "ftp://192.168.1.64:21/x", 80},
};

} // namespace

TEST(OnvifReply, ListsVideoDevicesOnly)
{
    const Platform::OnvifDriver driver;
    for (const MatchCase& one : MatchCases) {
        const auto vecDevices =
            driver.ReadReply(ProbeMatch(one.szTypes, one.szNamespace, one.szScopes, one.szAddresses), From);
        ASSERT_EQ(vecDevices.size(), one.nPort == 0 ? 0U : 1U) << one.szWhat;
        if (one.nPort == 0)
            continue;
        EXPECT_EQ(vecDevices[0].sIp, From) << one.szWhat;
        EXPECT_EQ(vecDevices[0].nPort, one.nPort) << one.szWhat;
        EXPECT_EQ(vecDevices[0].sProtocol, "ONVIF");
    }
}

TEST(OnvifReply, ReadsScopes)
{
    const auto vecDevices = Platform::OnvifDriver().ReadReply(
        ProbeMatch(Video, Network,
            "onvif://www.onvif.org/name/Gate%20%C3%9C%zz%4 onvif://www.onvif.org/hardware/VC-2140\n"
            "onvif://www.onvif.org/MAC/02005E100001 http://example.org/name/Other",
            "http://192.168.1.64/"),
        From);
    ASSERT_EQ(vecDevices.size(), 1U);
    EXPECT_EQ(vecDevices[0].sName, "Gate Ü%zz%4");
    EXPECT_EQ(vecDevices[0].sModel, "VC-2140");
    EXPECT_EQ(vecDevices[0].sMac, "02:00:5e:10:00:01");
    EXPECT_EQ(vecDevices[0].nInitState, RemoteConfigLogical::InitUnknown);
}

TEST(Replies, HostileDatagramsAreNoDevices)
{
    const std::string sFound =
        R"({"method":"device.found","address":"192.168.1.64","port":37777,"model":"VC-2140"})";
    ASSERT_EQ(Platform::FieldDeviceDriver().ReadReply(sFound, From).size(), 1U);
    const std::string sMatch = ProbeMatch(Video, Network, "", "");
    std::vector<std::string> vecHostile{"", std::string(65000, '['), std::string(65000, '<'), "null", "[]",
        R"({"method":7})", R"({"method":"device.search"})",
        R"({"method":"device.found","address":"192.168.1.65","port":37777})",
        R"({"method":"device.found","address":"192.168.1.64","port":0})",
        R"({"method":"device.found","address":"192.168.1.64","port":65536})",
        R"({"method":"device.found","address":"192.168.1.64","port":"80"})",
        R"({"method":"device.found","address":"192.168.1.64","port":-1})",
        "<!DOCTYPE x [<!ENTITY a \"b\">]>" + sMatch, std::string("\xff\xfe\x00<", 4)};
    for (std::size_t nSize = 0; nSize < sFound.size(); ++nSize)
        vecHostile.push_back(sFound.substr(0, nSize));
    for (std::size_t nSize = 0; nSize < sMatch.size(); nSize += 7)
        vecHostile.push_back(sMatch.substr(0, nSize));
    const auto drivers = Platform::Drivers::All(100);
    for (const auto* const pDriver : drivers.List()) {
        for (const std::string& sDatagram : vecHostile)
            EXPECT_TRUE(pDriver->ReadReply(sDatagram, From).empty())
                << pDriver->Protocol() << sDatagram.substr(0, 200);
    }
}

TEST(Replies, TextsAreCleanedAndCut)
{
    using Platform::ReplyText::Clean;
    EXPECT_EQ(Clean(" a\r\nb\x01 "), "ab");
    EXPECT_EQ(Clean("bad \xc3"), "");
    std::string sLong;
    for (int i = 0; i < 200; ++i)
        sLong += "ü";
    EXPECT_EQ(Clean(sLong), sLong.substr(0, 256));
    EXPECT_EQ(Platform::ReplyText::Mac("02-00-5E-10-00-0G"), "");
}

TEST(SoapXml, SurvivesDeepNesting)
{
    std::string sDeep = "<a>";
    for (int i = 0; i < 200000; ++i)
        sDeep += "<b>";
    EXPECT_EQ(Platform::SoapXml::Load(sDeep), nullptr);
    for (int i = 0; i < 200000; ++i)
        sDeep += "</b>";
    EXPECT_NE(Platform::SoapXml::Load(sDeep + "</a>"), nullptr);
}

TEST(PosixTimeZone, CountsWestwards)
{
    using RemoteConfigLogical::TimeZoneSetting_t;
    const std::vector<std::pair<TimeZoneSetting_t, const char*>> vecCases{
        {{"Etc/UTC", 0, false, {}, {}}, "STD0"},
        {{"Asia/Kolkata", 330, false, {}, {}}, "STD-5:30"},
        {{"America/St_Johns", -210, true, {3, 2, 7, 2}, {11, 1, 7, 2}}, "STD3:30DST,M3.2.0/2,M11.1.0/2"},
        {{"Asia/Kathmandu", 345, false, {}, {}}, "STD-5:45"},
        {{"Africa/Cairo", 120, true, {4, 5, 5, 0}, {10, 5, 4, 23}}, "STD-2DST,M4.5.5/0,M10.5.4/23"},
        {{"Etc/GMT-1", 5, false, {}, {}}, "STD-0:05"},
    };
    for (const auto& [setting, szExpected] : vecCases)
        EXPECT_EQ(Platform::PosixTimeZone(setting), szExpected) << setting.sZone;
}

TEST(Drivers, AreFoundByTheKeyOfTheirProtocol)
{
    const auto drivers = Platform::Drivers::All(100);
    ASSERT_NE(drivers.Find("ONVIF"), nullptr);
    EXPECT_EQ(drivers.Find("ONVIF")->DiscoveryPort(), 3702);
    EXPECT_EQ(drivers.Find("Private")->DiscoveryPort(), 37810);
    EXPECT_EQ(drivers.Find("onvif"), nullptr);
}

} // namespace DevicesTest

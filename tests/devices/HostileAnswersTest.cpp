// What drivers make of answers that no decent device gives.

#include "ScriptedDevice.h"

#include <server/devices/Drivers.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace DevicesTest {

namespace {

using namespace UICommonMdl;
using Platform::DeviceAccess;
using Platform::DeviceError;
using testing::HasSubstr;

constexpr int TimeoutMs = 500;
constexpr int LongTimeoutMs = 20000;
constexpr const char* Challenge = "WWW-Authenticate: Digest realm=\"r\", qop=\"auth\", nonce=\"abc\"\r\n";

struct Outcome
{
    int nCode;
    std::string sDetail;
};

template <class Call>
Outcome OutcomeOf(const Call& call)
{
    try {
        call();
        return {0, {}};
    } catch (const DeviceError& error) {
        return {error.Code(), error.what()};
    }
}

DeviceAccess Access(const ScriptedDevice& device)
{
    return {"127.0.0.1", device.Port(), "admin", "Secret-1"};
}

/// The parameter: the protocol.
class HostileAnswers : public testing::TestWithParam<const char*>
{
protected:
    static Outcome Identify(const ScriptedDevice::Script& script, int nTimeoutMs)
    {
        const ScriptedDevice device(script);
        const auto drivers = Platform::Drivers::All(nTimeoutMs);
        return OutcomeOf([&] { drivers.Find(GetParam())->Identify(Access(device)); });
    }
};

INSTANTIATE_TEST_SUITE_P(Protocols, HostileAnswers, testing::Values("Private", "ONVIF"));

struct BytesCase
{
    const char* szWhat;
    std::string sBytes;
};

std::vector<BytesCase> BadBytes()
{
    std::string sLaughs = "<!DOCTYPE l [<!ENTITY a \"ha\">";
    for (int i = 0; i < 30; ++i)
        sLaughs += "<!ENTITY b" + std::to_string(i) + " \"&a;&a;\">";
    sLaughs += "]><Envelope><Body><GetDeviceInformationResponse><Model>&b29;</Model>"
               "</GetDeviceInformationResponse></Body></Envelope>";
    return {{"nothing", ""}, {"not HTTP", "SSH-2.0-server\r\n"},
        {"half a head", "HTTP/1.1 200 OK\r\nContent-Le"}, {"empty", Http(200, "")},
        {"a web page", Http(200, "<html><body>hello</body></html>")}, {"a list", Http(200, "[1,2]")},
        {"nothing in it", Http(200, "{}")}, {"an empty message", Soap("")},
        {"another answer", Soap("<GetUsersResponse/>")}, {"entities", Http(200, sLaughs)},
        {"not found", Http(404, "no")}, {"broken", Http(500, "no")},
        {"elsewhere", Http(302, "", "Location: http://127.0.0.1:1/\r\n")},
        {"cut body", "HTTP/1.1 200 OK\r\nContent-Length: 1000\r\n\r\n{\"model\":\"x\"}"},
        {"endless chunk", "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\nffffffffffffffff\r\nabc"}};
}

} // namespace

TEST_P(HostileAnswers, AreBadAnswers)
{
    for (const BytesCase& one : BadBytes()) {
        const auto script = [&](const Connection& connection, const std::string&) {
            connection.Send(one.sBytes);
        };
        EXPECT_EQ(Identify(script, LongTimeoutMs).nCode, ErrorDeviceBadAnswer) << one.szWhat;
    }
}

TEST_P(HostileAnswers, TooMuchIsCutOff)
{
    const auto body = [](const Connection& connection, const std::string&) {
        connection.Send(Http(200, std::string(3 * 1024 * 1024, ' ')));
    };
    EXPECT_EQ(Identify(body, LongTimeoutMs).nCode, ErrorDeviceBadAnswer);
    const auto headers = [](const Connection& connection, const std::string&) {
        const std::string sHeader = "X-Filler: " + std::string(1000, 'x') + "\r\n";
        for (bool bGoesOn = connection.Send("HTTP/1.1 200 OK\r\n"); bGoesOn;)
            bGoesOn = connection.Send(sHeader);
    };
    EXPECT_EQ(Identify(headers, LongTimeoutMs).nCode, ErrorDeviceBadAnswer);
}

TEST_P(HostileAnswers, TheTimeIsForTheWholeCall)
{
    const auto drip = [](const Connection& connection, const std::string&) {
        for (bool bGoesOn = connection.Send("HTTP/1.1 200 OK\r\nX-Drip: "); bGoesOn;)
            bGoesOn = !connection.IsClosedWithin(20) && connection.Send("x");
    };
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(Identify(drip, TimeoutMs).nCode, ErrorDeviceTimeOut);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(4 * TimeoutMs));
}

TEST_P(HostileAnswers, AWrongPasswordIsSentOnce)
{
    const ScriptedDevice device([](const Connection& connection, const std::string& sRequest) {
        const bool bClock = sRequest.find("GetSystemDateAndTime") != std::string::npos;
        connection.Send(
            bClock ? Soap("<GetSystemDateAndTimeResponse/>") : Http(401, "{\"error\":\"x\"}", Challenge));
    });
    const auto drivers = Platform::Drivers::All(LongTimeoutMs);
    EXPECT_EQ(
        OutcomeOf([&] { drivers.Find(GetParam())->Identify(Access(device)); }).nCode, ErrorDevicePassword);
    const auto vecRequests = device.Requests();
    EXPECT_EQ(std::count_if(vecRequests.begin(), vecRequests.end(),
                  [](const auto& sRequest) { return sRequest.find("Authorization:") != std::string::npos; }),
        1);
    for (const std::string& sRequest : vecRequests)
        EXPECT_THAT(sRequest, testing::Not(HasSubstr("Secret-1")));
}

TEST(Onvif, FaultsBecomeErrors)
{
    struct
    {
        const char* szFault;
        int nCode;
        const char* szDetail;
    } const cases[] = {
        {"<f:Fault><f:Code><f:Value>f:Sender</f:Value><f:Subcode><f:Value>ter:NotAuthorized</f:Value></"
         "f:Subcode>"
         "</f:Code><f:Reason><f:Text>Go away</f:Text></f:Reason></f:Fault>",
            ErrorDevicePassword, "Go away"},
        {"<Fault><Code><Value>Receiver</Value><Subcode><Value>t:InvalidArgVal</Value><Subcode>"
         "<Value>t:ActionNotSupported</Value></Subcode></Subcode></Code></Fault>",
            ErrorDeviceNotSupported, ""},
        {"<Fault><faultcode>wsse:FailedAuthentication</faultcode><faultstring>No</faultstring></Fault>",
            ErrorDevicePassword, "No"},
        {"<Fault><Code><Value>Sender</Value></Code><Reason><Text> Too\nbad </Text></Reason></Fault>",
            ErrorDeviceRefused, "Toobad"},
        {"<Fault/>", ErrorDeviceRefused, ""},
    };
    for (const auto& one : cases) {
        for (const int nStatus : {200, 400, 500}) {
            const ScriptedDevice device([&](const Connection& connection, const std::string& sRequest) {
                const bool bClock = sRequest.find("GetSystemDateAndTime") != std::string::npos;
                connection.Send(bClock ? Soap("<Fault/>") : Soap(one.szFault, nStatus));
            });
            const auto drivers = Platform::Drivers::All(LongTimeoutMs);
            const Outcome outcome = OutcomeOf([&] { drivers.Find("ONVIF")->Identify(Access(device)); });
            EXPECT_EQ(outcome.nCode, one.nCode) << one.szFault;
            EXPECT_EQ(outcome.sDetail, one.szDetail);
        }
    }
}

TEST(Onvif, FindsMediaWithoutCapabilitiesAndStaysOnTheDevice)
{
    // The service tells an address that is nobody's; only its path counts.
    const ScriptedDevice device([](const Connection& connection, const std::string& sRequest) {
        if (sRequest.find("GetCapabilities") != std::string::npos)
            connection.Send(
                Soap("<Fault><Code><Subcode><Value>ter:ActionNotSupported</Value></Subcode></Code></Fault>"));
        else if (sRequest.find("GetServices") != std::string::npos)
            connection.Send(
                Soap("<GetServicesResponse><Service><Namespace>urn:other</Namespace><XAddr>http://x/y</XAddr>"
                     "</Service><Service><Namespace>http://www.onvif.org/ver10/media/wsdl</Namespace>"
                     "<XAddr>http://192.0.2.7:9/deep/media?x=1</XAddr></Service></GetServicesResponse>"));
        else if (sRequest.starts_with("POST /deep/media?x=1 "))
            connection.Send(
                Soap("<GetProfilesResponse><Profiles><VideoSourceConfiguration><SourceToken>a</SourceToken>"
                     "</VideoSourceConfiguration></Profiles><Profiles/></GetProfilesResponse>"));
        else
            connection.Send(Soap("<GetSystemDateAndTimeResponse/>"));
    });
    const auto drivers = Platform::Drivers::All(LongTimeoutMs);
    EXPECT_EQ(drivers.Find("ONVIF")->Channels(Access(device)).nVideo, 1);
}

TEST(Onvif, KeepsTheSourceOfTheDevicesTime)
{
    for (const bool bNtp : {true, false}) {
        const std::string sTime =
            std::string("<GetSystemDateAndTimeResponse><SystemDateAndTime><DateTimeType>")
            + (bNtp ? "NTP" : "Manual")
            + "</DateTimeType></SystemDateAndTime></GetSystemDateAndTimeResponse>";
        const ScriptedDevice device([&](const Connection& connection, const std::string& sRequest) {
            const bool bGet = sRequest.find("GetSystemDateAndTime") != std::string::npos;
            connection.Send(Soap(bGet ? sTime : "<SetSystemDateAndTimeResponse/>"));
        });
        const auto drivers = Platform::Drivers::All(LongTimeoutMs);
        drivers.Find("ONVIF")->SetTimeZone(Access(device), {"Etc/UTC", 0, false, {}, {}});
        const std::string sRequest = device.Requests().back();
        EXPECT_THAT(sRequest, HasSubstr(bNtp ? "<tds:DateTimeType>NTP<" : "<tds:DateTimeType>Manual<"));
        EXPECT_EQ(sRequest.find("UTCDateTime") != std::string::npos, !bNtp);
    }
}

} // namespace DevicesTest

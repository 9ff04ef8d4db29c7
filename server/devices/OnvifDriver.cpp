#include "OnvifDriver.h"

#include "PosixTimeZone.h"
#include "ReplyText.h"
#include "SoapClient.h"
#include "WsDiscovery.h"

#include <arpa/inet.h>

#include <bit>
#include <charconv>
#include <ctime>
#include <optional>
#include <set>

namespace Platform {

namespace {

using RemoteConfigLogical::SearchDeviceInfo_t;
using UICommonMdl::ErrorDeviceBadAnswer;
using UICommonMdl::ErrorDeviceInitialized;
using UICommonMdl::ErrorDeviceNotSupported;
using UICommonMdl::ErrorDevicePassword;
using UICommonMdl::ErrorDeviceRefused;

constexpr const char* MediaNamespace = "http://www.onvif.org/ver10/media/wsdl";
const SoapService DeviceService{"/onvif/device_service", "http://www.onvif.org/ver10/device/wsdl"};
constexpr int CategoryEncoder = 1;
constexpr int MaxCount = 65535;

std::string Element(const std::string& sName, const std::string& sContent)
{
    return '<' + sName + '>' + sContent + "</" + sName + '>';
}

std::string TextElement(const std::string& sName, const std::string& sText)
{
    return Element(sName, SoapXml::Escape(sText));
}

/// 0 when it is no number from 0 to MaxCount.
int ToCount(const std::string& sText)
{
    int nCount = 0;
    std::from_chars(sText.data(), sText.data() + sText.size(), nCount);
    return nCount >= 0 && nCount <= MaxCount ? nCount : 0;
}

std::string Member(const pugi::xml_node& node, std::initializer_list<std::string_view> path)
{
    return ReplyText::Clean(SoapXml::Text(node, path));
}

std::optional<std::int64_t> ReadTime(const pugi::xml_node& utc)
{
    std::tm parts{};
    parts.tm_year = ToCount(SoapXml::Text(utc, {"Date", "Year"})) - 1900;
    parts.tm_mon = ToCount(SoapXml::Text(utc, {"Date", "Month"})) - 1;
    parts.tm_mday = ToCount(SoapXml::Text(utc, {"Date", "Day"}));
    parts.tm_hour = ToCount(SoapXml::Text(utc, {"Time", "Hour"}));
    parts.tm_min = ToCount(SoapXml::Text(utc, {"Time", "Minute"}));
    parts.tm_sec = ToCount(SoapXml::Text(utc, {"Time", "Second"}));
    if (parts.tm_year < 70 || parts.tm_year > 8000 || parts.tm_mday < 1)
        return std::nullopt;
    return timegm(&parts);
}

std::string TimeElement(std::int64_t nTime)
{
    const std::time_t nSeconds = nTime;
    std::tm parts{};
    gmtime_r(&nSeconds, &parts);
    const auto number = [](const char* szName, int nValue) {
        return TextElement(szName, std::to_string(nValue));
    };
    return Element("tds:UTCDateTime",
        Element("tt:Time",
            number("tt:Hour", parts.tm_hour) + number("tt:Minute", parts.tm_min)
                + number("tt:Second", parts.tm_sec))
            + Element("tt:Date",
                number("tt:Year", parts.tm_year + 1900) + number("tt:Month", parts.tm_mon + 1)
                    + number("tt:Day", parts.tm_mday)));
}

/// The path of a service's address; its host may be one that only the device's own network knows.
std::string PathOf(const std::string& sUrl)
{
    const std::size_t nHost = sUrl.find("//");
    const std::size_t nPath = nHost == std::string::npos ? nHost : sUrl.find('/', nHost + 2);
    const std::string sPath = nPath == std::string::npos ? std::string() : sUrl.substr(nPath);
    const bool bClean = sPath.find_first_of(" \t\r\n#") == std::string::npos;
    return bClean ? sPath : std::string();
}

/// Reads the device's clock first; one that does not tell it is taken to be right.
SoapClient SignedIn(const DeviceAccess& access, int nTimeoutMs)
{
    SoapClient client(access, nTimeoutMs);
    try {
        const SoapAnswer answer =
            client.Call(DeviceService, "GetSystemDateAndTime", {}, SoapClient::Sign::No);
        const auto optTime = ReadTime(SoapXml::Find(answer.node, {"SystemDateAndTime", "UTCDateTime"}));
        if (optTime)
            client.SetClockOffset(*optTime - client.DeviceTime());
    } catch (const DeviceError& error) {
        const bool bAnswered = error.Code() == ErrorDevicePassword || error.Code() == ErrorDeviceRefused
            || error.Code() == ErrorDeviceNotSupported;
        if (!bAnswered)
            throw;
    }
    return client;
}

/// Empty when the device has no media.
std::string MediaPath(SoapClient& client, ChannelCounts& counts)
{
    try {
        const SoapAnswer answer =
            client.Call(DeviceService, "GetCapabilities", "<tds:Category>All</tds:Category>");
        const pugi::xml_node capabilities = SoapXml::Child(answer.node, "Capabilities");
        counts.nAlarmInputs = ToCount(SoapXml::Text(capabilities, {"Device", "IO", "InputConnectors"}));
        counts.nAlarmOutputs = ToCount(SoapXml::Text(capabilities, {"Device", "IO", "RelayOutputs"}));
        return PathOf(SoapXml::Text(capabilities, {"Media", "XAddr"}));
    } catch (const DeviceError& error) {
        if (error.Code() != ErrorDeviceNotSupported)
            throw;
    }
    const SoapAnswer answer =
        client.Call(DeviceService, "GetServices", "<tds:IncludeCapability>false</tds:IncludeCapability>");
    for (const pugi::xml_node& service : SoapXml::Children(answer.node, "Service")) {
        if (SoapXml::Text(service, {"Namespace"}) == MediaNamespace)
            return PathOf(SoapXml::Text(service, {"XAddr"}));
    }
    return {};
}

std::string MacOf(SoapClient& client)
{
    try {
        const SoapAnswer answer = client.Call(DeviceService, "GetNetworkInterfaces");
        return ReplyText::Mac(SoapXml::Text(answer.node, {"NetworkInterfaces", "Info", "HwAddress"}));
    } catch (const DeviceError& error) {
        // The MAC address is a detail that some devices keep to themselves.
        if (error.Code() == UICommonMdl::ErrorDeviceTimeOut)
            throw;
        return {};
    }
}

/// 24 for "255.255.255.0".
int PrefixLength(const std::string& sMask)
{
    in_addr mask{};
    const bool bAddress = inet_pton(AF_INET, sMask.c_str(), &mask) == 1;
    const std::uint32_t nMask = ntohl(mask.s_addr);
    const int nLength = std::countl_one(nMask);
    if (!bAddress || nLength == 0 || nLength + std::countr_zero(nMask) < 32)
        throw DeviceError(ErrorDeviceRefused, "not a network mask");
    return nLength;
}

bool HasAddress(const pugi::xml_node& networkInterface, const std::string& sAddress)
{
    const pugi::xml_node config = SoapXml::Find(networkInterface, {"IPv4", "Config"});
    for (const char* const szKind : {"Manual", "FromDHCP", "LinkLocal"}) {
        for (const pugi::xml_node& node : SoapXml::Children(config, szKind)) {
            if (SoapXml::Text(node, {"Address"}) == sAddress)
                return true;
        }
    }
    return false;
}

/// The interface that the device is reached by, else its first one.
std::string InterfaceToken(SoapClient& client)
{
    const SoapAnswer answer = client.Call(DeviceService, "GetNetworkInterfaces");
    const auto vecInterfaces = SoapXml::Children(answer.node, "NetworkInterfaces");
    if (vecInterfaces.empty())
        throw DeviceError(ErrorDeviceBadAnswer, "the device tells no network interface");
    for (const pugi::xml_node& networkInterface : vecInterfaces) {
        if (HasAddress(networkInterface, client.Access().sAddress))
            return networkInterface.attribute("token").value();
    }
    return vecInterfaces.front().attribute("token").value();
}

std::string UserElement(const std::string& sUserName, const std::string& sPassword)
{
    return Element("tds:User",
        TextElement("tt:Username", sUserName) + TextElement("tt:Password", sPassword)
            + "<tt:UserLevel>Administrator</tt:UserLevel>");
}

} // namespace

OnvifDriver::OnvifDriver(int nTimeoutMs, int nDiscoveryPort)
    : m_nTimeoutMs(nTimeoutMs)
    , m_nDiscoveryPort(nDiscoveryPort)
{
}

DeviceIdentity OnvifDriver::Identify(const DeviceAccess& access)
{
    SoapClient client = SignedIn(access, m_nTimeoutMs);
    const SoapAnswer answer = client.Call(DeviceService, "GetDeviceInformation");
    DeviceIdentity identity;
    identity.sManufacturer = Member(answer.node, {"Manufacturer"});
    identity.sModel = Member(answer.node, {"Model"});
    identity.sSerialNumber = Member(answer.node, {"SerialNumber"});
    identity.sFirmware = Member(answer.node, {"FirmwareVersion"});
    identity.nCategory = CategoryEncoder;
    identity.sMac = MacOf(client);
    return identity;
}

ChannelCounts OnvifDriver::Channels(const DeviceAccess& access)
{
    SoapClient client = SignedIn(access, m_nTimeoutMs);
    ChannelCounts counts;
    const std::string sMedia = MediaPath(client, counts);
    if (sMedia.empty())
        return counts;
    const SoapAnswer answer = client.Call({sMedia, MediaNamespace}, "GetProfiles");
    std::set<std::string> sources;
    for (const pugi::xml_node& profile : SoapXml::Children(answer.node, "Profiles"))
        sources.insert(SoapXml::Text(profile, {"VideoSourceConfiguration", "SourceToken"}));
    sources.erase(std::string());
    counts.nVideo = static_cast<int>(std::min<std::size_t>(sources.size(), MaxCount));
    return counts;
}

void OnvifDriver::Initialize(const DeviceAccess& access, const std::string& /*sContact*/)
{
    SoapClient client(access, m_nTimeoutMs);
    try {
        client.Call(DeviceService, "CreateUsers", UserElement(access.sUserName, access.sPassword),
            SoapClient::Sign::No);
    } catch (const DeviceError& error) {
        // Who wants a password has one.
        if (error.Code() == ErrorDevicePassword)
            throw DeviceError(ErrorDeviceInitialized, error.what());
        throw;
    }
}

void OnvifDriver::SetPassword(const DeviceAccess& access, const std::string& sNewPassword)
{
    SignedIn(access, m_nTimeoutMs)
        .Call(DeviceService, "SetUser", UserElement(access.sUserName, sNewPassword));
}

void OnvifDriver::SetTimeZone(
    const DeviceAccess& access, const RemoteConfigLogical::TimeZoneSetting_t& setting)
{
    SoapClient client = SignedIn(access, m_nTimeoutMs);
    const SoapAnswer answer = client.Call(DeviceService, "GetSystemDateAndTime");
    // The source of the device's time stays as it is.
    const bool bNtp = SoapXml::Text(answer.node, {"SystemDateAndTime", "DateTimeType"}) == "NTP";
    std::string sContent = TextElement("tds:DateTimeType", bNtp ? "NTP" : "Manual")
        + TextElement("tds:DaylightSavings", setting.bDst ? "true" : "false")
        + Element("tds:TimeZone", TextElement("tt:TZ", PosixTimeZone(setting)));
    if (!bNtp)
        sContent += TimeElement(client.DeviceTime());
    client.Call(DeviceService, "SetSystemDateAndTime", sContent);
}

void OnvifDriver::SetAddress(const DeviceAccess& access, const NetworkSetting& setting)
{
    const int nPrefixLength = PrefixLength(setting.sMask);
    SoapClient client = SignedIn(access, m_nTimeoutMs);
    const std::string sToken = InterfaceToken(client);
    // The gateway first: after the address the device is no longer here.
    if (!setting.sGateway.empty())
        client.Call(
            DeviceService, "SetNetworkDefaultGateway", TextElement("tds:IPv4Address", setting.sGateway));
    const std::string sManual = Element("tt:Manual",
        TextElement("tt:Address", setting.sAddress)
            + TextElement("tt:PrefixLength", std::to_string(nPrefixLength)));
    const SoapAnswer answer = client.Call(DeviceService, "SetNetworkInterfaces",
        TextElement("tds:InterfaceToken", sToken)
            + Element("tds:NetworkInterface",
                "<tt:Enabled>true</tt:Enabled>"
                    + Element(
                        "tt:IPv4", "<tt:Enabled>true</tt:Enabled>" + sManual + "<tt:DHCP>false</tt:DHCP>")));
    if (SoapXml::Text(answer.node, {"RebootNeeded"}) == "true")
        client.Call(DeviceService, "SystemReboot");
}

std::string OnvifDriver::DiscoveryProbe() const
{
    return WsDiscovery::Probe();
}

std::vector<SearchDeviceInfo_t> OnvifDriver::ReadReply(
    std::string_view datagram, const std::string& sFrom) const
{
    std::vector<SearchDeviceInfo_t> vecDevices;
    for (WsDiscovery::Match& match : WsDiscovery::ReadMatches(datagram, sFrom)) {
        SearchDeviceInfo_t device;
        device.sIp = sFrom;
        device.nPort = match.nPort;
        device.sName = std::move(match.sName);
        device.sModel = std::move(match.sModel);
        device.sMac = std::move(match.sMac);
        device.sProtocol = Protocol();
        device.nCategory = CategoryEncoder;
        vecDevices.push_back(std::move(device));
    }
    return vecDevices;
}

} // namespace Platform

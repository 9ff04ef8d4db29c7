#include "Gates.h"
#include "OnvifMessages.h"
#include "Protocol.h"
#include "Settings.h"

#include <chrono>
#include <regex>

namespace FieldDevice {

namespace {

namespace SoapXml = Platform::SoapXml;
using OnvifMessages::Fault;
using OnvifMessages::Reply;

constexpr const char* DevicePath = "/onvif/device_service";
constexpr const char* MediaPath = "/onvif/media_service";
constexpr const char* DeviceNamespace = "http://www.onvif.org/ver10/device/wsdl";
constexpr const char* MediaNamespace = "http://www.onvif.org/ver10/media/wsdl";

struct Call
{
    const Services& services;
    Device& device;
    const pugi::xml_node& node;
    const DeviceState state;
};

Answer Refused(const Refusal& refusal)
{
    return Fault("s:Sender", "ter:InvalidArgVal", refusal);
}

std::int64_t ClockOf(const Device& device)
{
    return std::chrono::duration_cast<std::chrono::seconds>(
               std::chrono::system_clock::now().time_since_epoch())
               .count()
        + device.Spec().clock_offset;
}

std::string TimeZoneOf(const DeviceState& state)
{
    return state.time_zone.is_object() ? state.time_zone.value("tz", "") : "UTC0";
}

Answer GetTime(const Call& call)
{
    return Reply(call.node, OnvifMessages::SystemTime(ClockOf(call.device), TimeZoneOf(call.state)));
}

Answer SetTime(const Call& call)
{
    if (!call.state.time_zone_support)
        return Fault("s:Receiver", "ter:ActionNotSupported", "The device has no time zone");
    static const std::regex s_timeZone(R"([A-Za-z]{3,}[+-]?\d{1,2}(:\d{2})?)"
                                       R"(([A-Za-z]{3,}([+-]?\d{1,2}(:\d{2})?)?)"
                                       R"((,M\d{1,2}\.[1-5]\.[0-6](/\d{1,2})?){2})?)");
    const std::string sType = SoapXml::Text(call.node, {"DateTimeType"});
    const std::string sZone = SoapXml::Text(call.node, {"TimeZone", "TZ"});
    const bool bHasTime = SoapXml::Child(call.node, "UTCDateTime");
    if ((sType != "Manual" && sType != "NTP") || bHasTime != (sType == "Manual"))
        return Refused("The date and time are missing");
    if (sZone.size() > 64 || !std::regex_match(sZone, s_timeZone))
        return Fault("s:Sender", "ter:InvalidTimeZone", "The time zone is wrong");
    const bool bDst = SoapXml::Text(call.node, {"DaylightSavings"}) == "true";
    call.services.fleet.Change(call.device, [&](DeviceState& state) {
        state.time_zone = {{"tz", sZone}, {"dst", bDst}};
    });
    return Reply(call.node, {});
}

Answer GetInformation(const Call& call)
{
    return Reply(call.node, OnvifMessages::Information(call.device.Spec()));
}

std::string ServiceUrl(const Call& call, const char* szPath)
{
    return "http://" + Address{call.state.address, call.state.port}.Text() + szPath;
}

Answer GetCapabilities(const Call& call)
{
    return Reply(call.node,
        OnvifMessages::Capabilities(
            call.device.Spec(), ServiceUrl(call, DevicePath), ServiceUrl(call, MediaPath)));
}

Answer GetInterfaces(const Call& call)
{
    return Reply(call.node, OnvifMessages::NetworkInterface(call.device.Spec(), call.state));
}

Answer SetGateway(const Call& call)
{
    const std::string sGateway = SoapXml::Text(call.node, {"IPv4Address"});
    const Refusal refusal = CheckAddress(call.state.address, call.state.mask, sGateway);
    if (!refusal.empty() || sGateway.empty())
        return Refused("The gateway is no address");
    call.services.fleet.Change(call.device, [&](DeviceState& state) { state.gateway = sGateway; });
    return Reply(call.node, {});
}

Answer SetInterfaces(const Call& call)
{
    const pugi::xml_node manual = SoapXml::Find(call.node, {"NetworkInterface", "IPv4", "Manual"});
    if (SoapXml::Text(call.node, {"InterfaceToken"}) != OnvifMessages::InterfaceToken)
        return Fault("s:Sender", "ter:InvalidNetworkInterface", "The device has no such interface");
    const std::string sHost = SoapXml::Text(manual, {"Address"});
    const std::string sMask = OnvifMessages::MaskOf(SoapXml::Text(manual, {"PrefixLength"}));
    if (const Refusal refusal = CheckAddress(sHost, sMask, {}); !refusal.empty())
        return Refused(refusal);
    // Only a restart makes it so, as with many devices.
    call.services.fleet.Change(call.device, [&](DeviceState& state) {
        state.next_address = sHost;
        state.next_mask = sMask;
    });
    return Reply(call.node, "<tds:RebootNeeded>true</tds:RebootNeeded>");
}

Answer Reboot(const Call& call)
{
    if (!call.state.next_address.empty()) {
        const Refusal refusal = MoveTo(call.services.fleet, call.device, call.state.next_address,
            call.state.next_mask, call.state.gateway);
        call.services.fleet.Change(call.device, [&](DeviceState& state) { state.next_address.clear(); });
        if (!refusal.empty())
            return Refused(refusal);
    }
    return Reply(call.node, "<tds:Message>Restarting</tds:Message>");
}

Answer SetUser(const Call& call)
{
    const pugi::xml_node user = SoapXml::Child(call.node, "User");
    if (SoapXml::Text(user, {"Username"}) != call.state.user)
        return Fault("s:Sender", "ter:UsernameMissing", "The device has no such user");
    const Refusal refusal =
        SetPassword(call.services.fleet, call.device, SoapXml::Child(user, "Password").text().get());
    return refusal.empty() ? Reply(call.node, {}) : Refused(refusal);
}

Answer CreateUsers(const Call& call)
{
    // A device has one user here.
    if (call.state.initialized)
        return Fault("s:Receiver", "ter:TooManyUsers", "The device takes no further user");
    const pugi::xml_node user = SoapXml::Child(call.node, "User");
    const Refusal refusal = Initialize(call.services.fleet, call.device, SoapXml::Text(user, {"Username"}),
        SoapXml::Child(user, "Password").text().get(), {});
    return refusal.empty() ? Reply(call.node, {}) : Refused(refusal);
}

Answer GetProfiles(const Call& call)
{
    return Reply(call.node, OnvifMessages::Profiles(call.device.Spec().channels.video));
}

enum class Access
{
    Everybody,
    EverybodyUntilInitialized,
    User
};

struct Operation
{
    const char* szNamespace;
    const char* szName;
    Access access;
    Answer (*run)(const Call&);
};
constexpr Operation Operations[] = {
    {DeviceNamespace, "GetSystemDateAndTime", Access::Everybody, GetTime},
    {DeviceNamespace, "SetSystemDateAndTime", Access::User, SetTime},
    {DeviceNamespace, "GetDeviceInformation", Access::User, GetInformation},
    {DeviceNamespace, "GetCapabilities", Access::Everybody, GetCapabilities},
    {DeviceNamespace, "GetNetworkInterfaces", Access::User, GetInterfaces},
    {DeviceNamespace, "SetNetworkInterfaces", Access::User, SetInterfaces},
    {DeviceNamespace, "SetNetworkDefaultGateway", Access::User, SetGateway},
    {DeviceNamespace, "SystemReboot", Access::User, Reboot},
    {DeviceNamespace, "SetUser", Access::User, SetUser},
    {DeviceNamespace, "CreateUsers", Access::EverybodyUntilInitialized, CreateUsers},
    {MediaNamespace, "GetProfiles", Access::User, GetProfiles},
};

bool HasToken(const Call& call, const pugi::xml_node& envelope)
{
    const pugi::xml_node node = SoapXml::Find(envelope, {"Header", "Security", "UsernameToken"});
    const pugi::xml_node password = SoapXml::Child(node, "Password");
    if (!std::string_view(password.attribute("Type").value()).ends_with("#PasswordDigest"))
        return false;
    const TokenGate::Token token{SoapXml::Text(node, {"Username"}), SoapXml::Text(password),
        SoapXml::Text(node, {"Nonce"}), SoapXml::Text(node, {"Created"})};
    return call.services.tokens.Check(token, call.state.user, call.state.password, ClockOf(call.device));
}

Answer NotAuthorized()
{
    return Fault("s:Sender", "ter:NotAuthorized", "Sender not authorized");
}

/// Nothing when the caller may go on.
std::optional<Answer> CheckAccess(
    const Call& call, Access access, const pugi::xml_node& envelope, const Query& query)
{
    if (access == Access::Everybody
        || (access == Access::EverybodyUntilInitialized && !call.state.initialized))
        return std::nullopt;
    if (!call.state.initialized)
        return NotAuthorized();
    if (!call.device.Spec().http_digest)
        return HasToken(call, envelope) ? std::nullopt : std::optional(NotAuthorized());
    const auto verdict = call.services.digest.Check(
        query.sAuthorization, query.sMethod, query.sPath, call.state.user, call.state.password);
    if (verdict == DigestGate::Verdict::Accepted)
        return std::nullopt;
    return Answer{401, {}, "text/plain", true, verdict == DigestGate::Verdict::Stale};
}

const Operation* FindOperation(const pugi::xml_node& node, const std::string& sPath)
{
    const std::string sNamespace = SoapXml::Namespace(node);
    for (const Operation& operation : Operations) {
        const bool bHere = sPath == (operation.szNamespace == MediaNamespace ? MediaPath : DevicePath);
        if (bHere && sNamespace == operation.szNamespace
            && SoapXml::LocalName(node.name()) == operation.szName)
            return &operation;
    }
    return nullptr;
}

} // namespace

Answer AnswerOnvif(const Services& services, Device& device, const Query& query)
{
    if (query.sPath != DevicePath && query.sPath != MediaPath)
        return {404, {}, "text/plain"};
    const auto pDocument = query.sMethod == "POST" ? SoapXml::Load(query.sBody) : nullptr;
    const pugi::xml_node envelope = pDocument ? SoapXml::Child(*pDocument, "Envelope") : pugi::xml_node();
    const pugi::xml_node node = SoapXml::Child(envelope, "Body").find_child([](const pugi::xml_node& child) {
        return child.type() == pugi::node_element;
    });
    if (!node)
        return Fault("s:Sender", "ter:WellFormed", "The message cannot be read");
    const Operation* const pOperation = FindOperation(node, query.sPath);
    if (!pOperation)
        return Fault("s:Receiver", "ter:ActionNotSupported", "The device does not know that call");
    const Call call{services, device, node, device.State()};
    if (auto optRefused = CheckAccess(call, pOperation->access, envelope, query))
        return *optRefused;
    return pOperation->run(call);
}

} // namespace FieldDevice

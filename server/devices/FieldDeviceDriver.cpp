#include "FieldDeviceDriver.h"

#include "DeviceHttp.h"
#include "ReplyText.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <limits>

namespace Platform {

namespace {

using AccessControlLogical::Person_t;
using nlohmann::json;
using RemoteConfigLogical::SearchDeviceInfo_t;
constexpr int MaxCount = 65535;
constexpr std::size_t TemplateLimit = 4096;
/// What a device calls the kinds of credentials, in their order.
constexpr std::string_view CredentialNames[] = {"person", "card", "face", "fingerprint", "password"};

struct ErrorName
{
    std::string_view sName;
    int nCode;
};
/// What a device calls its refusals.
constexpr ErrorName ErrorNames[] = {
    {"not_initialized", UICommonMdl::ErrorDeviceNotInitialized},
    {"already_initialized", UICommonMdl::ErrorDeviceInitialized},
    {"not_supported", UICommonMdl::ErrorDeviceNotSupported},
    {"refused", UICommonMdl::ErrorDeviceRefused},
};

std::string Text(const json& object, const char* szKey)
{
    const auto it = object.find(szKey);
    return it != object.end() && it->is_string() ? ReplyText::Clean(it->get_ref<const std::string&>())
                                                 : std::string();
}

/// 0 when it is missing or no number from 0 to nMax.
int Number(const json& object, const char* szKey, int nMax)
{
    const auto it = object.find(szKey);
    if (it == object.end() || !it->is_number_unsigned())
        return 0;
    const auto nValue = it->get<std::uint64_t>();
    return nValue <= static_cast<std::uint64_t>(nMax) ? static_cast<int>(nValue) : 0;
}

[[noreturn]] void Refused(const HttpReply& reply, const json& answer)
{
    if (reply.nStatus == 401)
        throw DeviceError(UICommonMdl::ErrorDevicePassword);
    const std::string sName = answer.is_object() ? Text(answer, "error") : std::string();
    for (const ErrorName& error : ErrorNames) {
        if (sName == error.sName)
            throw DeviceError(error.nCode, Text(answer, "message"));
    }
    throw DeviceError(UICommonMdl::ErrorDeviceBadAnswer,
        "the device answered HTTP status " + std::to_string(reply.nStatus));
}

json Call(const DeviceAccess& access, int nTimeoutMs, HttpQuestion question)
{
    DeviceHttp http(access, nTimeoutMs);
    if (!question.sBody.empty())
        question.sContentType = "application/json";
    const HttpReply reply = http.Send(question);
    json answer = json::parse(reply.sBody, nullptr, false);
    if (reply.nStatus != 200)
        Refused(reply, answer);
    if (!answer.is_object())
        throw DeviceError(UICommonMdl::ErrorDeviceBadAnswer, "the answer is not a JSON object");
    return answer;
}

/// An input that is not UTF-8 cannot be told to a device.
std::string Dump(const json& object)
{
    try {
        return object.dump();
    } catch (const json::exception&) {
        throw DeviceError(UICommonMdl::ErrorDeviceRefused, "the text is not UTF-8");
    }
}

json PersonJson(const DevicePerson& sent)
{
    const Person_t& person = sent.person;
    json cards = json::array();
    for (const auto& card : person.vecCards)
        cards.push_back({{"no", card.sCardNo}, {"duress", card.bDuress}, {"locked", card.bLocked}});
    json fingerprints = json::array();
    for (const auto& fingerprint : person.vecFingerprints)
        fingerprints.push_back({{"name", fingerprint.sName}, {"duress", fingerprint.bDuress},
            {"template", fingerprint.sTemplate}});
    return {{"id", person.sPersonId}, {"name", person.sName}, {"type", person.nPersonType},
        {"valid_from", person.nValidFrom}, {"valid_to", person.nValidTo}, {"extend_time", person.nExtendTime},
        {"card_times", person.nCardTimes}, {"admin", person.bDeviceLogin}, {"cards", cards},
        {"fingerprints", fingerprints}, {"password", person.sUnlockPassword}, {"photo", sent.sPhoto}};
}

Person_t ReadPerson(const json& entry)
{
    Person_t person;
    person.sPersonId = Text(entry, "id");
    person.sName = Text(entry, "name");
    person.nPersonType = Number(entry, "type", AccessControlLogical::PersonOther);
    for (const json& card : entry.value("cards", json::array())) {
        if (card.is_object() && !Text(card, "no").empty())
            person.vecCards.push_back({Text(card, "no")});
    }
    return person;
}

json DateJson(const RemoteConfigLogical::DstDate_t& date)
{
    return {{"month", date.nMonth}, {"week", date.nWeek}, {"weekday", date.nWeekday}, {"hour", date.nHour}};
}

} // namespace

FieldDeviceDriver::FieldDeviceDriver(int nTimeoutMs, int nDiscoveryPort)
    : m_nTimeoutMs(nTimeoutMs)
    , m_nDiscoveryPort(nDiscoveryPort)
{
}

DeviceIdentity FieldDeviceDriver::Identify(const DeviceAccess& access)
{
    const json answer = Call(access, m_nTimeoutMs, {.sPath = "/api/identity"});
    DeviceIdentity identity;
    identity.sManufacturer = Text(answer, "manufacturer");
    identity.sModel = Text(answer, "model");
    identity.sSerialNumber = Text(answer, "serial");
    identity.sFirmware = Text(answer, "firmware");
    identity.sMac = ReplyText::Mac(Text(answer, "mac"));
    identity.nCategory = Number(answer, "category", std::numeric_limits<int>::max());
    if (identity.sModel.empty())
        throw DeviceError(UICommonMdl::ErrorDeviceBadAnswer, "the device tells no model");
    return identity;
}

ChannelCounts FieldDeviceDriver::Channels(const DeviceAccess& access)
{
    const json answer = Call(access, m_nTimeoutMs, {.sPath = "/api/channels"});
    ChannelCounts counts;
    counts.nVideo = Number(answer, "video", MaxCount);
    counts.nAlarmInputs = Number(answer, "alarm_inputs", MaxCount);
    counts.nAlarmOutputs = Number(answer, "alarm_outputs", MaxCount);
    counts.nAccess = Number(answer, "access", MaxCount);
    counts.nDecode = Number(answer, "decode", MaxCount);
    counts.nLifts = Number(answer, "lifts", MaxCount);
    counts.nLiftFloors = Number(answer, "lift_floors", MaxCount);
    counts.nPos = Number(answer, "pos", MaxCount);
    return counts;
}

void FieldDeviceDriver::Initialize(const DeviceAccess& access, const std::string& sContact)
{
    const json body{{"user", access.sUserName}, {"password", access.sPassword}, {"contact", sContact}};
    Call(access, m_nTimeoutMs,
        {.sMethod = "POST", .sPath = "/api/initialize", .sBody = Dump(body), .bSignIn = false});
}

void FieldDeviceDriver::SetPassword(const DeviceAccess& access, const std::string& sNewPassword)
{
    Call(access, m_nTimeoutMs,
        {.sMethod = "POST", .sPath = "/api/password", .sBody = Dump({{"password", sNewPassword}})});
}

void FieldDeviceDriver::SetTimeZone(
    const DeviceAccess& access, const RemoteConfigLogical::TimeZoneSetting_t& setting)
{
    json body{{"zone", setting.sZone}, {"offset_minutes", setting.nOffsetMinutes}, {"dst", setting.bDst}};
    if (setting.bDst) {
        body["dst_start"] = DateJson(setting.dstStart);
        body["dst_end"] = DateJson(setting.dstEnd);
    }
    Call(access, m_nTimeoutMs, {.sMethod = "POST", .sPath = "/api/time-zone", .sBody = Dump(body)});
}

void FieldDeviceDriver::SetAddress(const DeviceAccess& access, const NetworkSetting& setting)
{
    const json body{{"address", setting.sAddress}, {"mask", setting.sMask}, {"gateway", setting.sGateway}};
    Call(access, m_nTimeoutMs, {.sMethod = "POST", .sPath = "/api/network", .sBody = Dump(body)});
}

std::vector<PersonRefusal> FieldDeviceDriver::PutPerson(
    const DeviceAccess& access, const DevicePerson& person)
{
    const json answer = Call(
        access, m_nTimeoutMs, {.sMethod = "POST", .sPath = "/api/person", .sBody = Dump(PersonJson(person))});
    std::vector<PersonRefusal> vecRefusals;
    for (const json& refused : answer.value("refused", json::array())) {
        if (!refused.is_object())
            continue;
        const std::string sKind = Text(refused, "credential");
        const auto it = std::find(std::begin(CredentialNames), std::end(CredentialNames), sKind);
        const auto nKind = it == std::end(CredentialNames) ? 0 : it - std::begin(CredentialNames);
        vecRefusals.push_back(
            {static_cast<int>(nKind), UICommonMdl::ErrorDeviceRefused, Text(refused, "message")});
    }
    return vecRefusals;
}

void FieldDeviceDriver::RemovePerson(const DeviceAccess& access, const std::string& sPersonId)
{
    Call(access, m_nTimeoutMs,
        {.sMethod = "POST", .sPath = "/api/person/remove", .sBody = Dump({{"id", sPersonId}})});
}

std::vector<Person_t> FieldDeviceDriver::Persons(const DeviceAccess& access, std::size_t nLimit)
{
    const json answer = Call(access, m_nTimeoutMs, {.sPath = "/api/persons"});
    std::vector<Person_t> vecPersons;
    for (const json& entry : answer.value("persons", json::array())) {
        if (vecPersons.size() == nLimit)
            break;
        if (entry.is_object())
            vecPersons.push_back(ReadPerson(entry));
    }
    return vecPersons;
}

void FieldDeviceDriver::StartFingerprint(const DeviceAccess& access)
{
    Call(access, m_nTimeoutMs, {.sMethod = "POST", .sPath = "/api/fingerprint/start", .sBody = "{}"});
}

std::optional<std::string> FieldDeviceDriver::ReadFingerprint(const DeviceAccess& access)
{
    const json answer = Call(access, m_nTimeoutMs, {.sPath = "/api/fingerprint"});
    if (Text(answer, "state") != "done")
        return std::nullopt;
    const auto it = answer.find("template");
    return it != answer.end() && it->is_string() && it->get_ref<const std::string&>().size() <= TemplateLimit
        ? it->get<std::string>()
        : std::string();
}

std::string FieldDeviceDriver::DiscoveryProbe() const
{
    return R"({"method":"device.search"})";
}

std::vector<SearchDeviceInfo_t> FieldDeviceDriver::ReadReply(
    std::string_view datagram, const std::string& sFrom) const
{
    const json answer = json::parse(datagram, nullptr, false);
    if (!answer.is_object() || Text(answer, "method") != "device.found" || Text(answer, "address") != sFrom)
        return {};
    SearchDeviceInfo_t device;
    device.sIp = sFrom;
    device.nPort = Number(answer, "port", MaxCount);
    if (device.nPort == 0)
        return {};
    device.sModel = Text(answer, "model");
    device.sMac = ReplyText::Mac(Text(answer, "mac"));
    device.sName = Text(answer, "name");
    device.sManufacturer = Text(answer, "manufacturer");
    device.sSerialNumber = Text(answer, "serial");
    device.sProtocol = Protocol();
    device.nCategory = Number(answer, "category", std::numeric_limits<int>::max());
    if (const auto it = answer.find("initialized"); it != answer.end() && it->is_boolean())
        device.nInitState =
            it->get<bool>() ? RemoteConfigLogical::InitDone : RemoteConfigLogical::InitMissing;
    return {device};
}

} // namespace Platform

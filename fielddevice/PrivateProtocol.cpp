#include "Gates.h"
#include "Protocol.h"
#include "Settings.h"

namespace FieldDevice {

namespace {

using nlohmann::json;
constexpr int MaxOffset = 14 * 60;

/// The answer to a setting.
Answer Done(const Refusal& refusal)
{
    return refusal.empty() ? Answer{200, "{}"} : Fail(422, "refused", refusal);
}

std::string Text(const json& body, const char* szKey)
{
    const auto it = body.find(szKey);
    return it != body.end() && it->is_string() ? it->get<std::string>() : std::string();
}

bool IsWithin(const json& object, const char* szKey, int nMin, int nMax)
{
    const auto it = object.find(szKey);
    return it != object.end() && it->is_number_integer() && *it >= nMin && *it <= nMax;
}

bool IsDate(const json& body, const char* szKey)
{
    const auto it = body.find(szKey);
    return it != body.end() && it->is_object() && IsWithin(*it, "month", 1, 12) && IsWithin(*it, "week", 1, 5)
        && IsWithin(*it, "weekday", 1, 7) && IsWithin(*it, "hour", 0, 23);
}

Answer Identity(const Services& /*services*/, Device& device, const json& /*body*/)
{
    const DeviceSpec& spec = device.Spec();
    return {200,
        json{{"manufacturer", spec.manufacturer}, {"model", spec.model}, {"serial", spec.serial},
            {"firmware", "1.0"}, {"mac", spec.mac}, {"category", spec.category}}
            .dump()};
}

Answer Channels(const Services& /*services*/, Device& device, const json& /*body*/)
{
    return {200, json(device.Spec().channels).dump()};
}

Answer Password(const Services& services, Device& device, const json& body)
{
    return Done(SetPassword(services.fleet, device, Text(body, "password")));
}

Answer TimeZone(const Services& services, Device& device, const json& body)
{
    if (!device.State().time_zone_support)
        return Fail(501, "not_supported", "The device has no time zone");
    const bool bDst = body.contains("dst") && body["dst"] == true;
    const bool bRight = !Text(body, "zone").empty() && IsWithin(body, "offset_minutes", -MaxOffset, MaxOffset)
        && (!bDst || (IsDate(body, "dst_start") && IsDate(body, "dst_end")));
    if (!bRight)
        return Done("The time zone is wrong");
    services.fleet.Change(device, [&](DeviceState& state) { state.time_zone = body; });
    return Done({});
}

Answer Network(const Services& services, Device& device, const json& body)
{
    return Done(
        MoveTo(services.fleet, device, Text(body, "address"), Text(body, "mask"), Text(body, "gateway")));
}

struct Route
{
    const char* szMethod;
    const char* szPath;
    Answer (*handle)(const Services&, Device&, const json&);
    bool bOfPersons = false; ///< of devices that keep persons only
};
constexpr Route Routes[] = {
    {"GET", "/api/identity", Identity},
    {"GET", "/api/channels", Channels},
    {"POST", "/api/password", Password},
    {"POST", "/api/time-zone", TimeZone},
    {"POST", "/api/network", Network},
    {"POST", "/api/person", PutPerson, true},
    {"POST", "/api/person/remove", RemovePerson, true},
    {"GET", "/api/persons", Persons, true},
    {"POST", "/api/fingerprint/start", StartFingerprint, true},
    {"GET", "/api/fingerprint", ReadFingerprint, true},
};

Answer FirstPassword(const Services& services, Device& device, const json& body)
{
    if (device.State().initialized)
        return Fail(409, "already_initialized", "The device has its password");
    return Done(Initialize(
        services.fleet, device, Text(body, "user"), Text(body, "password"), Text(body, "contact")));
}

Answer AnswerRoute(
    const Services& services, Device& device, const Route& route, const Query& query, const json& body)
{
    const DeviceState state = device.State();
    if (!state.initialized)
        return Fail(403, "not_initialized", "The device has no password yet");
    const auto verdict =
        services.digest.Check(query.sAuthorization, query.sMethod, query.sPath, state.user, state.password);
    if (verdict != DigestGate::Verdict::Accepted) {
        Answer answer = Fail(401, "not_signed_in", "The password is wrong");
        answer.bChallenge = true;
        answer.bStale = verdict == DigestGate::Verdict::Stale;
        return answer;
    }
    if (route.bOfPersons && !KeepsPersons(device.Spec()))
        return Fail(501, "not_supported", "The device keeps no persons");
    return route.handle(services, device, body);
}

} // namespace

Answer AnswerPrivate(const Services& services, Device& device, const Query& query)
{
    json body = json::object();
    if (query.sMethod == "POST")
        body = json::parse(query.sBody, nullptr, false);
    if (!body.is_object())
        return Fail(400, "refused", "The request is not a JSON object");
    if (query.sMethod == "POST" && query.sPath == "/api/initialize")
        return FirstPassword(services, device, body);
    for (const Route& route : Routes) {
        if (query.sMethod == route.szMethod && query.sPath == route.szPath)
            return AnswerRoute(services, device, route, query, body);
    }
    return Fail(404, "not_supported", "The device has no " + query.sPath);
}

} // namespace FieldDevice

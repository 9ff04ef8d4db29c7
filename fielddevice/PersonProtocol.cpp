#include "Protocol.h"

#include <chrono>
#include <random>

namespace FieldDevice {

namespace {

using nlohmann::json;
constexpr std::size_t TemplateSize = 810;
constexpr std::size_t PersonLimit = 20000;

std::int64_t NowMs()
{
    using namespace std::chrono;
    return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}

std::string Base64(const std::string& sBytes)
{
    static constexpr char Letters[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string sText;
    for (std::size_t i = 0; i + 2 < sBytes.size(); i += 3) {
        const auto byte = [&](std::size_t n) {
            return static_cast<unsigned>(static_cast<unsigned char>(sBytes[i + n]));
        };
        const unsigned n = byte(0) << 16U | byte(1) << 8U | byte(2);
        for (const unsigned nShift : {18U, 12U, 6U, 0U})
            sText += Letters[n >> nShift & 63U];
    }
    return sText;
}

/// Another finger each time. The size of a template is a multiple of three bytes: nothing to pad.
std::string MakeTemplate()
{
    static_assert(TemplateSize % 3 == 0);
    std::random_device source;
    std::string sBytes(TemplateSize, '\0');
    for (char& c : sBytes)
        c = static_cast<char>(source() & 0xffU);
    return Base64(sBytes);
}

} // namespace

bool KeepsPersons(const DeviceSpec& spec)
{
    return spec.channels.access > 0 || spec.channels.lifts > 0;
}

Answer PutPerson(const Services& services, Device& device, const json& body)
{
    const std::string sId = body.value("id", "");
    if (sId.empty() || body.value("name", "").empty())
        return Fail(422, "refused", "The person has no ID or no name");
    json person = body;
    // That it came is enough.
    person["photo"] = body.value("photo", "").size();
    json refused = json::array();
    services.fleet.Change(device, [&](DeviceState& state) {
        if (state.refuse_fingerprints && !person.value("fingerprints", json::array()).empty()) {
            person["fingerprints"] = json::array();
            refused.push_back(
                {{"credential", "fingerprint"}, {"message", "The device has no fingerprint reader"}});
        }
        if (state.persons.size() < PersonLimit || state.persons.contains(sId))
            state.persons[sId] = person;
        else
            refused.push_back({{"credential", "person"}, {"message", "The device's memory is full"}});
    });
    return {200, json{{"refused", refused}}.dump()};
}

Answer RemovePerson(const Services& services, Device& device, const json& body)
{
    services.fleet.Change(device, [&](DeviceState& state) { state.persons.erase(body.value("id", "")); });
    return {200, "{}"};
}

Answer Persons(const Services& /*services*/, Device& device, const json& /*body*/)
{
    const DeviceState state = device.State();
    json persons = json::array();
    for (const json& person : state.persons) {
        json shown = person;
        for (const char* szSecret : {"fingerprints", "password", "photo"})
            shown.erase(szSecret);
        persons.push_back(std::move(shown));
    }
    return {200, json{{"persons", persons}}.dump()};
}

Answer StartFingerprint(const Services& services, Device& device, const json& /*body*/)
{
    services.fleet.Change(device, [](DeviceState& state) { state.finger_since = NowMs(); });
    return {200, "{}"};
}

Answer ReadFingerprint(const Services& /*services*/, Device& device, const json& /*body*/)
{
    const DeviceState state = device.State();
    if (state.finger_ms < 0 || NowMs() - state.finger_since < state.finger_ms)
        return {200, R"({"state":"waiting"})"};
    return {200,
        json{{"state", "done"}, {"template", state.finger_empty ? std::string() : MakeTemplate()}}.dump()};
}

} // namespace FieldDevice

#include "Responder.h"

#include <server/devices/Crypto.h>
#include <server/devices/SoapXml.h>

namespace FieldDevice {

namespace {

using nlohmann::json;
namespace SoapXml = Platform::SoapXml;

/// As in the path of a URL.
std::string Encoded(const std::string& sText)
{
    std::string sEncoded;
    for (const char c : sText) {
        const auto nByte = static_cast<unsigned char>(c);
        if (std::isalnum(nByte) != 0 || c == '-' || c == '.' || c == '_')
            sEncoded += c;
        else
            sEncoded += '%' + Platform::Crypto::Hex({&c, 1});
    }
    return sEncoded;
}

bool IsForVideo(const std::string& sTypes)
{
    const auto vecTypes = SoapXml::Words(sTypes, 16);
    return vecTypes.empty() || std::any_of(vecTypes.begin(), vecTypes.end(), [](const std::string& sType) {
        return SoapXml::LocalName(sType) == "NetworkVideoTransmitter";
    });
}

/// The same each time, as a device's is.
std::string EndpointOf(const DeviceSpec& spec)
{
    using namespace Platform;
    std::string sHex = Crypto::Hex(Crypto::Digest(Crypto::Hash::Sha1, spec.serial + spec.mac + spec.address));
    for (const std::size_t nDash : {20, 16, 12, 8})
        sHex.insert(nDash, 1, '-');
    return "urn:uuid:" + sHex.substr(0, 36);
}

} // namespace

std::string PrivateReply(const DeviceSpec& spec, const DeviceState& state, std::string_view probe)
{
    const json question = json::parse(probe, nullptr, false);
    if (!question.is_object() || question.value("method", json()) != "device.search")
        return {};
    return json{{"method", "device.found"}, {"address", state.address}, {"port", state.port},
        {"name", spec.name}, {"model", spec.model}, {"manufacturer", spec.manufacturer},
        {"serial", spec.serial}, {"mac", spec.mac}, {"category", spec.category},
        {"initialized", state.initialized}}
        .dump();
}

std::string OnvifReply(const DeviceSpec& spec, const DeviceState& state, std::string_view probe)
{
    const auto pDocument = SoapXml::Load(probe);
    if (!pDocument)
        return {};
    const pugi::xml_node envelope = SoapXml::Child(*pDocument, "Envelope");
    const pugi::xml_node question = SoapXml::Find(envelope, {"Body", "Probe"});
    const std::string sMessage = SoapXml::Text(envelope, {"Header", "MessageID"});
    if (!question || sMessage.empty() || !IsForVideo(SoapXml::Text(question, {"Types"})))
        return {};
    const std::string sScope = " onvif://www.onvif.org/";
    return SoapXml::Envelope("<wsa:MessageID>" + Platform::Crypto::UuidUrn()
            + "</wsa:MessageID><wsa:RelatesTo>" + SoapXml::Escape(sMessage)
            + "</wsa:RelatesTo>"
              "<wsa:To>http://schemas.xmlsoap.org/ws/2004/08/addressing/role/anonymous</wsa:To>"
              "<wsa:Action>http://schemas.xmlsoap.org/ws/2005/04/discovery/ProbeMatches</wsa:Action>",
        "<d:ProbeMatches><d:ProbeMatch><wsa:EndpointReference><wsa:Address>" + EndpointOf(spec)
            + "</wsa:Address></wsa:EndpointReference><d:Types>dn:NetworkVideoTransmitter</d:Types><d:Scopes>"
              "onvif://www.onvif.org/type/video_encoder"
            + sScope + "hardware/" + Encoded(spec.model) + sScope + "name/" + Encoded(spec.name) + sScope
            + "MAC/" + Encoded(spec.mac) + "</d:Scopes><d:XAddrs>http://"
            + Address{state.address, state.port}.Text()
            + "/onvif/device_service</d:XAddrs><d:MetadataVersion>1</d:MetadataVersion>"
              "</d:ProbeMatch></d:ProbeMatches>");
}

} // namespace FieldDevice

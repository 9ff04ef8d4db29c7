#include "WsDiscovery.h"

#include "Crypto.h"
#include "ReplyText.h"
#include "SoapXml.h"

#include <charconv>
#include <optional>

namespace Platform::WsDiscovery {

namespace {

constexpr std::string_view NetworkNamespace = "http://www.onvif.org/ver10/network/wsdl";
constexpr std::string_view VideoTransmitter = "NetworkVideoTransmitter";
constexpr std::string_view ScopePrefix = "onvif://www.onvif.org/";
constexpr std::size_t MaxMatches = 16;
constexpr std::size_t MaxWords = 64;
constexpr int HttpPort = 80;
constexpr int HttpsPort = 443;

struct Url
{
    std::string sHost;
    int nPort = 0;
};

std::optional<int> ReadPort(std::string_view sText)
{
    int nPort = 0;
    const auto [pEnd, error] = std::from_chars(sText.data(), sText.data() + sText.size(), nPort);
    if (error != std::errc() || pEnd != sText.data() + sText.size() || nPort < 1 || nPort > 65535)
        return std::nullopt;
    return nPort;
}

std::optional<Url> ReadUrl(std::string_view sText)
{
    const bool bHttps = sText.starts_with("https://");
    if (!bHttps && !sText.starts_with("http://"))
        return std::nullopt;
    sText.remove_prefix(sText.find("//") + 2);
    sText = sText.substr(0, sText.find_first_of("/?#"));
    const std::size_t nHostEnd = sText.starts_with('[') ? sText.find(']') : 0;
    const std::size_t nColon = nHostEnd == std::string_view::npos ? nHostEnd : sText.find(':', nHostEnd);
    if (nColon == std::string_view::npos)
        return sText.empty() ? std::nullopt
                             : std::optional(Url{std::string(sText), bHttps ? HttpsPort : HttpPort});
    const auto optPort = ReadPort(sText.substr(nColon + 1));
    return optPort ? std::optional(Url{std::string(sText.substr(0, nColon)), *optPort}) : std::nullopt;
}

/// The sender's own address counts more than the order: behind a router the others cannot be reached.
std::optional<int> PortOf(const std::string& sAddresses, const std::string& sFrom)
{
    std::optional<int> optPort;
    for (const std::string& sAddress : SoapXml::Words(sAddresses, MaxWords)) {
        const auto optUrl = ReadUrl(sAddress);
        if (optUrl && optUrl->sHost == sFrom)
            return optUrl->nPort;
        if (optUrl && !optPort)
            optPort = optUrl->nPort;
    }
    return optPort;
}

bool IsVideoTransmitter(const pugi::xml_node& types)
{
    for (const std::string& sType : SoapXml::Words(types.text().get(), MaxWords)) {
        const std::size_t nColon = sType.find(':');
        const std::string sPrefix = nColon == std::string::npos ? std::string() : sType.substr(0, nColon);
        if (SoapXml::LocalName(sType) == VideoTransmitter
            && SoapXml::Namespace(types, sPrefix) == NetworkNamespace)
            return true;
    }
    return false;
}

std::string Decoded(std::string_view sText)
{
    std::string sDecoded;
    for (std::size_t i = 0; i < sText.size(); ++i) {
        unsigned nByte = 0;
        if (sText[i] == '%' && i + 2 < sText.size()
            && std::from_chars(&sText[i + 1], &sText[i + 1] + 2, nByte, 16).ptr == &sText[i + 1] + 2) {
            sDecoded += static_cast<char>(nByte);
            i += 2;
        } else {
            sDecoded += sText[i];
        }
    }
    return ReplyText::Clean(sDecoded);
}

/// Answers whether there was any scope of ONVIF's.
bool ReadScopes(const std::string& sScopes, Match& match)
{
    bool bAny = false;
    for (const std::string& sScope : SoapXml::Words(sScopes, MaxWords)) {
        if (!sScope.starts_with(ScopePrefix))
            continue;
        bAny = true;
        const std::string_view sItem = std::string_view(sScope).substr(ScopePrefix.size());
        const std::size_t nSlash = sItem.find('/');
        if (nSlash == std::string_view::npos)
            continue;
        const std::string_view sKey = sItem.substr(0, nSlash);
        const std::string sValue = Decoded(sItem.substr(nSlash + 1));
        if (sKey == "name" && match.sName.empty())
            match.sName = sValue;
        else if (sKey == "hardware" && match.sModel.empty())
            match.sModel = sValue;
        else if ((sKey == "MAC" || sKey == "mac") && match.sMac.empty())
            match.sMac = ReplyText::Mac(sValue);
    }
    return bAny;
}

} // namespace

std::string Probe()
{
    return SoapXml::Envelope(
        "<wsa:Action>http://schemas.xmlsoap.org/ws/2005/04/discovery/Probe</wsa:Action><wsa:MessageID>"
            + Crypto::UuidUrn()
            + "</wsa:MessageID><wsa:To>urn:schemas-xmlsoap-org:ws:2005:04:discovery</wsa:To>",
        "<d:Probe><d:Types>dn:NetworkVideoTransmitter</d:Types></d:Probe>");
}

std::vector<Match> ReadMatches(std::string_view datagram, const std::string& sFrom)
{
    const auto pDocument = SoapXml::Load(datagram);
    if (!pDocument)
        return {};
    std::vector<Match> vecMatches;
    for (const pugi::xml_node& node :
        SoapXml::Children(SoapXml::Find(*pDocument, {"Envelope", "Body", "ProbeMatches"}), "ProbeMatch")) {
        Match match;
        const auto optPort = PortOf(SoapXml::Text(node, {"XAddrs"}), sFrom);
        const bool bScopes = ReadScopes(SoapXml::Text(node, {"Scopes"}), match);
        if (!IsVideoTransmitter(SoapXml::Child(node, "Types")) && !(bScopes && optPort))
            continue;
        match.nPort = optPort.value_or(HttpPort);
        vecMatches.push_back(match);
        if (vecMatches.size() == MaxMatches)
            break;
    }
    return vecMatches;
}

} // namespace Platform::WsDiscovery

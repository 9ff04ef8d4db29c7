#include "SoapXml.h"

#include <algorithm>

namespace Platform::SoapXml {

namespace {

constexpr std::string_view Blanks = " \t\r\n";

std::string Trimmed(std::string_view sText)
{
    const std::size_t nBegin = std::min(sText.find_first_not_of(Blanks), sText.size());
    return std::string(sText.substr(nBegin, sText.find_last_not_of(Blanks) + 1 - nBegin));
}

} // namespace

std::unique_ptr<pugi::xml_document> Load(std::string_view sText)
{
    auto pDocument = std::make_unique<pugi::xml_document>();
    const auto result =
        pDocument->load_buffer(sText.data(), sText.size(), pugi::parse_default | pugi::parse_doctype);
    if (!result)
        return nullptr;
    const auto children = pDocument->children();
    const bool bDoctype = std::any_of(children.begin(), children.end(),
        [](const pugi::xml_node& node) { return node.type() == pugi::node_doctype; });
    return bDoctype ? nullptr : std::move(pDocument);
}

std::string_view LocalName(std::string_view sName)
{
    return sName.substr(sName.find(':') + 1);
}

pugi::xml_node Child(const pugi::xml_node& node, std::string_view sLocalName)
{
    return node.find_child([&](const pugi::xml_node& child) {
        return child.type() == pugi::node_element && LocalName(child.name()) == sLocalName;
    });
}

pugi::xml_node Find(const pugi::xml_node& node, std::initializer_list<std::string_view> path)
{
    pugi::xml_node found = node;
    for (const std::string_view sName : path)
        found = Child(found, sName);
    return found;
}

std::vector<pugi::xml_node> Children(const pugi::xml_node& node, std::string_view sLocalName)
{
    std::vector<pugi::xml_node> vecFound;
    for (const pugi::xml_node& child : node.children()) {
        if (child.type() == pugi::node_element && LocalName(child.name()) == sLocalName)
            vecFound.push_back(child);
    }
    return vecFound;
}

std::string Text(const pugi::xml_node& node, std::initializer_list<std::string_view> path)
{
    return Trimmed(Find(node, path).text().get());
}

std::string Namespace(const pugi::xml_node& node, std::string_view sPrefix)
{
    const std::string sAttribute = sPrefix.empty() ? "xmlns" : "xmlns:" + std::string(sPrefix);
    for (pugi::xml_node place = node; place; place = place.parent()) {
        if (const pugi::xml_attribute declaration = place.attribute(sAttribute.c_str()))
            return declaration.value();
    }
    return {};
}

std::string Namespace(const pugi::xml_node& node)
{
    const std::string_view sName = node.name();
    const std::size_t nColon = sName.find(':');
    return Namespace(node, nColon == std::string_view::npos ? std::string_view() : sName.substr(0, nColon));
}

std::vector<std::string> Words(const std::string& sText, std::size_t nLimit)
{
    std::vector<std::string> vecWords;
    for (std::size_t nBegin = sText.find_first_not_of(Blanks);
         nBegin != std::string::npos && vecWords.size() < nLimit;) {
        const std::size_t nEnd = std::min(sText.find_first_of(Blanks, nBegin), sText.size());
        vecWords.push_back(sText.substr(nBegin, nEnd - nBegin));
        nBegin = sText.find_first_not_of(Blanks, nEnd);
    }
    return vecWords;
}

std::string Escape(std::string_view sText)
{
    std::string sEscaped;
    for (const char c : sText) {
        switch (c) {
        case '&':
            sEscaped += "&amp;";
            break;
        case '<':
            sEscaped += "&lt;";
            break;
        case '>':
            sEscaped += "&gt;";
            break;
        case '"':
            sEscaped += "&quot;";
            break;
        default:
            if (static_cast<unsigned char>(c) >= 0x20 || c == '\t')
                sEscaped += c;
        }
    }
    return sEscaped;
}

std::string Envelope(const std::string& sHeader, const std::string& sBody)
{
    return R"(<?xml version="1.0" encoding="UTF-8"?>)"
           R"(<s:Envelope xmlns:s="http://www.w3.org/2003/05/soap-envelope")"
           R"( xmlns:wsa="http://schemas.xmlsoap.org/ws/2004/08/addressing")"
           R"( xmlns:d="http://schemas.xmlsoap.org/ws/2005/04/discovery")"
           R"( xmlns:dn="http://www.onvif.org/ver10/network/wsdl")"
           R"( xmlns:tds="http://www.onvif.org/ver10/device/wsdl")"
           R"( xmlns:trt="http://www.onvif.org/ver10/media/wsdl")"
           R"( xmlns:tt="http://www.onvif.org/ver10/schema">)"
           "<s:Header>"
        + sHeader
        + R"(</s:Header><s:Body xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance")"
          R"( xmlns:xsd="http://www.w3.org/2001/XMLSchema">)"
        + sBody + "</s:Body></s:Envelope>";
}

} // namespace Platform::SoapXml

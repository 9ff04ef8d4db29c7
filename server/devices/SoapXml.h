#pragma once

#include <pugixml.hpp>

#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

/// Reading of SOAP messages that came over the network, and writing of ours.
namespace Platform::SoapXml {

/// nullptr when it is not XML, or has a document type: SOAP forbids it, and nothing good comes of one.
std::unique_ptr<pugi::xml_document> Load(std::string_view sText);

/// The name without its prefix.
std::string_view LocalName(std::string_view sName);
/// The first child element of that name, whatever its prefix.
pugi::xml_node Child(const pugi::xml_node& node, std::string_view sLocalName);
/// From child to child; a null node when one is missing.
pugi::xml_node Find(const pugi::xml_node& node, std::initializer_list<std::string_view> path);
std::vector<pugi::xml_node> Children(const pugi::xml_node& node, std::string_view sLocalName);
/// The text of Find, without blanks at its ends.
std::string Text(const pugi::xml_node& node, std::initializer_list<std::string_view> path = {});
/// The namespace that a prefix stands for at that place; empty when it was not declared.
std::string Namespace(const pugi::xml_node& node, std::string_view sPrefix);
/// The namespace of the element itself.
std::string Namespace(const pugi::xml_node& node);
/// The words of a text, nLimit at most.
std::vector<std::string> Words(const std::string& sText, std::size_t nLimit);

/// For element content and attribute values.
std::string Escape(std::string_view sText);
/// A SOAP 1.2 message, of the form that nearly all clients write: some devices read it by patterns. Both
/// parts are XML with the prefixes tds, trt, tt, wsa, d and dn at their disposal.
std::string Envelope(const std::string& sHeader, const std::string& sBody);

} // namespace Platform::SoapXml

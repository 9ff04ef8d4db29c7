#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace ResourceManagerUI {

/// Length of the UTF-8 sequence at the start of the text; 0 when there is no valid one.
std::size_t Utf8Length(std::string_view sText);

/// A reference to a character in an XML text.
struct XmlReference
{
    std::size_t nLength = 0; ///< with "&" and ";"; 0: none of XML's own
    std::string sText; ///< what it stands for
};
/// sText begins with "&". References to characters that XML does not allow are none.
XmlReference ReadReference(std::string_view sText);

/// Whether the text is well-formed XML in UTF-8 without a document type: judged strictly, and slowly.
bool IsWellFormedXml(std::string_view sBytes);

} // namespace ResourceManagerUI

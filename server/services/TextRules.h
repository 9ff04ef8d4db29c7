#pragma once

#include <string>

namespace Platform {

/// The text in the form in which upper and lower case are the same.
std::string FoldCase(const std::string& sText);
/// Without white space at both ends.
std::string Trimmed(const std::string& sText);
/// Text that a percent-encoded one stands for; what is not a valid code stays as it is.
std::string PercentDecoded(const std::string& sText);

/// Orders addresses bytewise: IPv4 by number, IPv6 by number, host names by letter, no address.
std::string AddressSortKey(const std::string& sAddress);
/// What the text search of devices looks through.
std::string DeviceSearchKey(const std::string& sName, const std::string& sAddress);

} // namespace Platform

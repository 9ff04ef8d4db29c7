#pragma once

#include <string>
#include <string_view>

/// Texts that devices tell about themselves: they end up in lists and databases.
namespace Platform::ReplyText {

/// Without control characters and blanks at the ends, at most 128 characters; empty when it is not UTF-8.
std::string Clean(std::string_view sText);

/// Hardware address as "02:00:5e:10:00:01", from digits with colons, dashes or nothing in between; empty when
/// it is none.
std::string Mac(std::string_view sText);

} // namespace Platform::ReplyText

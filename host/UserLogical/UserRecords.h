#pragma once

#include <string>

/// Records of users and rights. All texts are UTF-8.
namespace UserLogical {

/// One entry of the configuration that the user may open.
struct MenuRight_t
{
    std::string sCode; ///< right code, three digits a level
    std::string sWidgetName; ///< name of the entry
    unsigned int nEntryId = 0; ///< number of the entry

    bool operator==(const MenuRight_t&) const = default;
};

} // namespace UserLogical

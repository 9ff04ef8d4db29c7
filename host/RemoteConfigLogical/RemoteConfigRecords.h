#pragma once

#include <string>
#include <vector>

/// Records of the remote configuration. All texts are UTF-8.
namespace RemoteConfigLogical {

/// The reachability of one device, as the server found it.
struct DeviceState_t
{
    std::string sDeviceId;
    int nOnlineState = 0; ///< GroupLogical::OnlineState
    int nOfflineReason = 0; ///< GroupLogical::OfflineReason

    bool operator==(const DeviceState_t&) const = default;
};

/// One choice of a dictionary list.
struct DictionaryItem_t
{
    std::string sKey; ///< what records hold
    std::string sText; ///< what is shown

    bool operator==(const DictionaryItem_t&) const = default;
};

/// The lists that device forms choose from.
struct Dictionary_t
{
    std::vector<DictionaryItem_t> vecCategories; ///< keys: category codes as decimal digits
    std::vector<DictionaryItem_t> vecManufacturers;
    std::vector<DictionaryItem_t> vecProtocols;

    bool operator==(const Dictionary_t&) const = default;
};

} // namespace RemoteConfigLogical

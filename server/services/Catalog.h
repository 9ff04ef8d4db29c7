#pragma once

#include <RemoteConfigLogical/RemoteConfigRecords.h>

namespace Platform {

/// The choices that device records hold.
namespace Catalog {

/// Categories, manufacturers, protocols, types and series.
const RemoteConfigLogical::Dictionary_t& Dictionary();
/// The servers that work with devices.
const std::vector<RemoteConfigLogical::VideoServer_t>& VideoServers();

} // namespace Catalog

} // namespace Platform

#pragma once

#include <RemoteConfigLogical/RemoteConfigRecords.h>

namespace Platform {

/// The choices that device records hold.
namespace Catalog {

/// Categories, manufacturers and protocols.
const RemoteConfigLogical::Dictionary_t& Dictionary();

} // namespace Catalog

} // namespace Platform

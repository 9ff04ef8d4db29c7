#pragma once

#include <RemoteConfigLogical/RemoteConfigRecords.h>

#include <string>

namespace Platform {

/// The setting as a POSIX TZ text: "STD-1DST,M3.5.0/2,M10.5.0/3". Offsets count westwards there.
std::string PosixTimeZone(const RemoteConfigLogical::TimeZoneSetting_t& setting);

} // namespace Platform

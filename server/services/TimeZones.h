#pragma once

#include <RemoteConfigLogical/RemoteConfigRecords.h>

namespace Platform {

/// The time zones of the machine's IANA database with their rules of the present year.
namespace TimeZones {

/// The machine's own zone and the ones to choose from, by offset and name. Any thread; costs some tens of
/// milliseconds the first time in a year.
RemoteConfigLogical::PlatformTime_t Platform();

/// A zone's standard offset and daylight saving in that year. A zone whose changes of the year are not one to
/// daylight saving and one back has none.
RemoteConfigLogical::TimeZoneSetting_t SettingOf(const std::string& sZone, int nYear);

} // namespace TimeZones

} // namespace Platform

#include "PosixTimeZone.h"

#include <cstdlib>

namespace Platform {

namespace {

std::string Offset(int nMinutesEast)
{
    const int nMinutes = std::abs(nMinutesEast);
    std::string sOffset = nMinutesEast > 0 ? "-" : "";
    sOffset += std::to_string(nMinutes / 60);
    if (nMinutes % 60 != 0)
        sOffset += (nMinutes % 60 < 10 ? ":0" : ":") + std::to_string(nMinutes % 60);
    return sOffset;
}

std::string Date(const RemoteConfigLogical::DstDate_t& date)
{
    // Sunday is 0 there.
    return ",M" + std::to_string(date.nMonth) + '.' + std::to_string(date.nWeek) + '.'
        + std::to_string(date.nWeekday % 7) + '/' + std::to_string(date.nHour);
}

} // namespace

std::string PosixTimeZone(const RemoteConfigLogical::TimeZoneSetting_t& setting)
{
    const std::string sStandard = "STD" + Offset(setting.nOffsetMinutes);
    return setting.bDst ? sStandard + "DST" + Date(setting.dstStart) + Date(setting.dstEnd) : sStandard;
}

} // namespace Platform

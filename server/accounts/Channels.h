#pragma once

#include <UserLogical/UserRecords.h>

#include <array>

namespace Platform {

/// One kind of channels of a device: where their number is kept and what one of them is called.
struct ChannelColumn
{
    int nKind; ///< UserLogical::ChannelKind
    const char* szColumn; ///< of the table of devices
    const char* szName;
};

inline constexpr std::array<ChannelColumn, 7> ChannelColumns{{
    {UserLogical::ChannelVideo, "video_channels", "Channel"},
    {UserLogical::ChannelAlarmInput, "alarm_inputs", "Alarm Input"},
    {UserLogical::ChannelAlarmOutput, "alarm_outputs", "Alarm Output"},
    {UserLogical::ChannelAccess, "access_channels", "Door"},
    {UserLogical::ChannelDecode, "decode_channels", "Decoding Channel"},
    {UserLogical::ChannelLift, "lifts", "Lift"},
    {UserLogical::ChannelPos, "pos_channels", "POS Channel"},
}};

} // namespace Platform

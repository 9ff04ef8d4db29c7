#pragma once

#include <GroupLogical/GroupRecords.h>
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

/// How many channels of that kind the device has.
inline int ChannelCountOf(const GroupLogical::DeviceAddInfo_t& device, int nKind)
{
    switch (nKind) {
    case UserLogical::ChannelVideo:
        return device.nVideoChannels;
    case UserLogical::ChannelAlarmInput:
        return device.nAlarmInputs;
    case UserLogical::ChannelAlarmOutput:
        return device.nAlarmOutputs;
    case UserLogical::ChannelAccess:
        return device.nAccessChannels;
    case UserLogical::ChannelDecode:
        return device.nDecodeChannels;
    case UserLogical::ChannelLift:
        return device.nLifts;
    case UserLogical::ChannelPos:
        return device.nPosChannels;
    default:
        return 0;
    }
}

} // namespace Platform

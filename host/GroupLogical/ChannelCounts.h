#pragma once

#include <GroupLogical/GroupRecords.h>
#include <UserLogical/UserRecords.h>

namespace GroupLogical {

/// How many channels of that kind (UserLogical::ChannelKind) the device has.
inline int ChannelCountOf(const DeviceAddInfo_t& device, int nKind)
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

} // namespace GroupLogical

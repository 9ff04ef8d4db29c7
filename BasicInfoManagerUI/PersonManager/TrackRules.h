#pragma once

#include <AccessControlLogical/PersonRecords.h>

#include <QStringList>
#include <QVector>

namespace BasicInfoManagerUI {

/// Records that one track may show.
inline constexpr int TrackRecordLimit = 1000;

/// A person at a door, on a track.
struct TrackStop
{
    qint64 nTime; ///< seconds since 1970, UTC
    int nLane; ///< of the door
    bool bEntry;
    bool bOpened;
};

/// The way of a person from door to door.
struct Track
{
    QStringList listLanes; ///< the doors, in the order in which they were first passed
    QVector<TrackStop> vecStops; ///< in order of time
};

Track MakeTrack(const std::vector<AccessControlLogical::AccessRecord_t>& vecRecords);

/// Seconds from one mark of the time line to the next: a usual step that puts at most nMarks marks on a
/// period of nSeconds.
qint64 GetTimeStep(qint64 nSeconds, int nMarks);

QString GetDoorText(const AccessControlLogical::AccessRecord_t& record);
QString GetDirectionText(bool bEntry);
QString GetResultText(bool bOpened);
QString GetTimeText(qint64 nTime);

} // namespace BasicInfoManagerUI

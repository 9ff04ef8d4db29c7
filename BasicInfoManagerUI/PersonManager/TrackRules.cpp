#include "TrackRules.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QHash>

#include <algorithm>

namespace BasicInfoManagerUI {

using AccessControlLogical::AccessRecord_t;

namespace {
struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CHistoryLogDlg)
};
} // namespace

Track MakeTrack(const std::vector<AccessRecord_t>& vecRecords)
{
    // Records come newest first; of those of the same second the last one is the earliest.
    std::vector<AccessRecord_t> vecSorted(vecRecords.rbegin(), vecRecords.rend());
    std::stable_sort(vecSorted.begin(), vecSorted.end(),
        [](const AccessRecord_t& a, const AccessRecord_t& b) { return a.nTime < b.nTime; });
    Track track;
    QHash<QString, int> mapLanes;
    track.vecStops.reserve(int(vecSorted.size()));
    for (const AccessRecord_t& record : vecSorted) {
        const QString sDoor = GetDoorText(record);
        if (!mapLanes.contains(sDoor)) {
            mapLanes.insert(sDoor, track.listLanes.size());
            track.listLanes.append(sDoor);
        }
        track.vecStops.append({record.nTime, mapLanes.value(sDoor), record.bEntry, record.bOpened});
    }
    return track;
}

qint64 GetTimeStep(qint64 nSeconds, int nMarks)
{
    constexpr qint64 Minute = 60;
    constexpr qint64 Hour = 60 * Minute;
    constexpr qint64 Day = 24 * Hour;
    for (const qint64 nStep : {qint64(10), qint64(30), Minute, 5 * Minute, 15 * Minute, 30 * Minute, Hour,
             3 * Hour, 6 * Hour, 12 * Hour, Day, 2 * Day, 7 * Day, 14 * Day, 30 * Day, 90 * Day}) {
        if (nSeconds / nStep < nMarks)
            return nStep;
    }
    return nSeconds / qMax(1, nMarks) + 1;
}

QString GetDoorText(const AccessRecord_t& record)
{
    return QString::fromStdString(record.sDeviceName) + QStringLiteral(" / ")
        + QString::fromStdString(record.sChannelName);
}

QString GetDirectionText(bool bEntry)
{
    return bEntry ? Text::tr("In") : Text::tr("Out");
}

QString GetResultText(bool bOpened)
{
    return bOpened ? Text::tr("Opened") : Text::tr("Refused");
}

QString GetTimeText(qint64 nTime)
{
    return QDateTime::fromSecsSinceEpoch(nTime).toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"));
}

} // namespace BasicInfoManagerUI

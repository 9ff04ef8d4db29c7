#include "TimeZones.h"

#include <QDateTime>
#include <QTimeZone>

#include <algorithm>
#include <cstdlib>
#include <mutex>
#include <tuple>

namespace Platform::TimeZones {

using RemoteConfigLogical::DstDate_t;
using RemoteConfigLogical::PlatformTime_t;
using RemoteConfigLogical::TimeZone_t;
using RemoteConfigLogical::TimeZoneSetting_t;

namespace {

constexpr int LastWeek = 5;

/// The day of a change as a rule; the hour is that of the clock before it.
DstDate_t DateOf(const QDateTime& utc, int nOffsetBefore)
{
    const QDateTime local = utc.addSecs(nOffsetBefore);
    const QDate day = local.date();
    DstDate_t date;
    date.nMonth = day.month();
    date.nWeek = day.day() + 7 > day.daysInMonth() ? LastWeek : (day.day() - 1) / 7 + 1;
    date.nWeekday = day.dayOfWeek();
    date.nHour = local.time().hour();
    return date;
}

std::string OffsetText(int nMinutes)
{
    return QStringLiteral("(UTC%1%2:%3) ")
        .arg(nMinutes < 0 ? QLatin1Char('-') : QLatin1Char('+'))
        .arg(std::abs(nMinutes) / 60, 2, 10, QLatin1Char('0'))
        .arg(std::abs(nMinutes) % 60, 2, 10, QLatin1Char('0'))
        .toStdString();
}

/// "Europe/Berlin" and the like, and UTC; not the abbreviations and doubles of other times.
bool IsOffered(const QByteArray& id)
{
    static const QList<QByteArray> s_listAreas{"Africa/", "America/", "Antarctica/", "Asia/", "Atlantic/",
        "Australia/", "Europe/", "Indian/", "Pacific/"};
    return id == "UTC" || std::any_of(s_listAreas.begin(), s_listAreas.end(), [&id](const QByteArray& area) {
        return id.startsWith(area);
    });
}

std::vector<TimeZone_t> ZonesOf(int nYear)
{
    std::vector<TimeZone_t> vecZones;
    for (const QByteArray& id : QTimeZone::availableTimeZoneIds()) {
        if (!IsOffered(id))
            continue;
        TimeZoneSetting_t setting = SettingOf(id.toStdString(), nYear);
        std::string sText = OffsetText(setting.nOffsetMinutes) + setting.sZone;
        vecZones.push_back({std::move(sText), std::move(setting)});
    }
    std::sort(vecZones.begin(), vecZones.end(), [](const TimeZone_t& first, const TimeZone_t& second) {
        return std::tie(first.setting.nOffsetMinutes, first.setting.sZone)
            < std::tie(second.setting.nOffsetMinutes, second.setting.sZone);
    });
    return vecZones;
}

} // namespace

TimeZoneSetting_t SettingOf(const std::string& sZone, int nYear)
{
    const QTimeZone zone(QByteArray::fromStdString(sZone));
    const QDateTime start(QDate(nYear, 1, 1), QTime(0, 0), Qt::UTC);
    TimeZoneSetting_t setting;
    setting.sZone = sZone;
    setting.nOffsetMinutes = zone.standardTimeOffset(start) / 60;
    const auto changes = zone.transitions(start, start.addYears(1).addSecs(-1));
    if (changes.size() != 2)
        return setting;
    int nBefore = zone.offsetFromUtc(start);
    for (const QTimeZone::OffsetData& change : changes) {
        const bool bToDaylight = change.offsetFromUtc > nBefore;
        (bToDaylight ? setting.dstStart : setting.dstEnd) = DateOf(change.atUtc, nBefore);
        setting.bDst = setting.bDst || bToDaylight;
        nBefore = change.offsetFromUtc;
    }
    if (setting.bDst)
        setting.nOffsetMinutes = std::min(changes.at(0).offsetFromUtc, changes.at(1).offsetFromUtc) / 60;
    return setting;
}

PlatformTime_t Platform()
{
    static std::mutex s_mutex;
    static int s_nYear = 0;
    static std::vector<TimeZone_t> s_vecZones;
    const int nYear = QDate::currentDate().year();
    const std::lock_guard lock(s_mutex);
    if (s_nYear != nYear) {
        s_vecZones = ZonesOf(nYear);
        s_nYear = nYear;
    }
    return {SettingOf(QTimeZone::systemTimeZoneId().toStdString(), nYear), s_vecZones};
}

} // namespace Platform::TimeZones

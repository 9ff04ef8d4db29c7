#pragma once

#include <RemoteConfigLogical/RemoteConfigRecords.h>

#include <QString>
#include <QStringList>

#include <optional>

namespace ResourceManagerUI {

/// How the status mark of a device shows its state.
struct StatusMark
{
    QString sStatus; ///< value of the property "Status"
    QString sToolTip; ///< translated, may be empty

    bool operator==(const StatusMark& other) const
    {
        return sStatus == other.sStatus && sToolTip == other.sToolTip;
    }
};
/// nState is a RemoteConfigLogical::TimeZoneState; none for other values: the mark stays as it is.
std::optional<StatusMark> GetStatusMark(int nState);

/// Texts of the parts of a daylight-saving date, in the order of their values: "Jan" to "Dec", "1st" to
/// "Last week", "Monday" to "Sunday".
QStringList GetMonthTexts();
QStringList GetWeekTexts();
QStringList GetWeekdayTexts();
/// "2:00, Mar/Last week/Sunday": hour, then month, week and weekday. Values out of range are empty.
QString GetDstDateText(const RemoteConfigLogical::DstDate_t& date);

/// Part of the zones' list that a zone belongs to: "Europe" of "Europe/Berlin"; empty without one.
QString GetZoneRegion(const std::string& sZone);

} // namespace ResourceManagerUI

#include "TimeZoneRules.h"

#include <QCoreApplication>

namespace ResourceManagerUI {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CDevTimeZone)
};

} // namespace

std::optional<StatusMark> GetStatusMark(int nState)
{
    const QString sFailed = QStringLiteral("Failed");
    switch (nState) {
    case RemoteConfigLogical::TimeZoneNormal:
        return StatusMark{QStringLiteral("Normal"), {}};
    case RemoteConfigLogical::TimeZoneFailed:
        return StatusMark{sFailed,
            Text::tr("Please manually change time zone and DST and make them the same as those on the "
                     "management platform.")};
    case RemoteConfigLogical::TimeZoneDone:
        return StatusMark{QStringLiteral("Success"), {}};
    case RemoteConfigLogical::TimeZoneSending:
        return StatusMark{sFailed, Text::tr("Sending...")};
    case RemoteConfigLogical::TimeZoneNotSupported:
        return StatusMark{sFailed,
            Text::tr("Time zone and DST sync are not supported by the device. Please manually change time "
                     "zone and DST and make them the same as those on the management platform.")};
    default:
        return std::nullopt;
    }
}

QStringList GetMonthTexts()
{
    return {Text::tr("Jan"), Text::tr("Feb"), Text::tr("Mar"), Text::tr("Apr"), Text::tr("May"),
        Text::tr("Jun"), Text::tr("Jul"), Text::tr("Aug"), Text::tr("Sep"), Text::tr("Oct"), Text::tr("Nov"),
        Text::tr("Dec")};
}

QStringList GetWeekTexts()
{
    return {Text::tr("1st"), Text::tr("2nd"), Text::tr("3rd"), Text::tr("4th"), Text::tr("Last week")};
}

QStringList GetWeekdayTexts()
{
    return {Text::tr("Monday"), Text::tr("Tuesday"), Text::tr("Wednesday"), Text::tr("Thursday"),
        Text::tr("Friday"), Text::tr("Saturday"), Text::tr("Sunday")};
}

QString GetDstDateText(const RemoteConfigLogical::DstDate_t& date)
{
    return Text::tr("%1:00, %2/%3/%4")
        .arg(QString::number(date.nHour), GetMonthTexts().value(date.nMonth - 1),
            GetWeekTexts().value(date.nWeek - 1), GetWeekdayTexts().value(date.nWeekday - 1));
}

QString GetZoneRegion(const std::string& sZone)
{
    const QString sName = QString::fromStdString(sZone);
    const int nSlash = sName.indexOf(QLatin1Char('/'));
    return nSlash < 0 ? QString() : sName.left(nSlash);
}

} // namespace ResourceManagerUI

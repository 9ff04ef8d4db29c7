#pragma once

#include <UserLogical/UserRecords.h>

#include <QDateTime>
#include <QString>
#include <QStringList>
#include <QVector>

/// What the log's page says and asks, without widgets.
namespace PlatformConfigUI {

/// One choice of the operation filter.
struct AuditChoice
{
    QString sCode; ///< as the request takes it; empty: all
    QString sText; ///< translated
    bool bGroup = false; ///< all operations of that group
};

/// All, and then each group followed by its operations.
QVector<AuditChoice> GetAuditChoices();
/// What an operation is called; the code itself when it is not known.
QString GetOperationText(const QString& sCode);

/// The periods that can be chosen.
enum AuditPeriod : int
{
    PeriodToday,
    PeriodLast7Days,
    PeriodLast30Days,
    PeriodAll,
    PeriodOwn ///< from and to are entered
};
/// Where the period begins, at a midnight; invalid for PeriodAll and PeriodOwn.
QDateTime GetPeriodStart(AuditPeriod period, const QDate& today);

/// Local time with seconds.
QString GetTimeText(std::int64_t nMilliseconds);

/// "nPort" is "Port", "vecRoleIds" is "Role IDs".
QString GetFieldName(const QString& sKey);

/// A field whose value a change has changed.
struct AuditChange
{
    QString sField; ///< empty: the record as a whole
    QString sBefore; ///< empty: there was nothing
    QString sAfter;

    bool operator==(const AuditChange& other) const
    {
        return sField == other.sField && sBefore == other.sBefore && sAfter == other.sAfter;
    }
};
/// What an entry changed, names first. Of a record that was added or removed: its fields that hold something.
QVector<AuditChange> GetChanges(const std::string& sBefore, const std::string& sAfter);

/// "Port: 80, Name: Gate" of the side before or after.
QString GetBeforeText(const QVector<AuditChange>& vecChanges);
QString GetAfterText(const QVector<AuditChange>& vecChanges);
/// "Port: 80 → 81", one line a field.
QStringList GetChangeLines(const QVector<AuditChange>& vecChanges);

/// The texts of an entry in the order of the list's columns.
QStringList GetAuditTexts(const UserLogical::AuditEntry_t& entry);
/// The same texts' headings, translated.
QStringList GetAuditHeader();

} // namespace PlatformConfigUI

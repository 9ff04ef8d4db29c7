#include "AuditRules.h"

#include <QCoreApplication>

namespace PlatformConfigUI {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(AuditRules)
};

struct Operation
{
    const char* szCode; ///< a group's with a "/" at its end
    const char* szText;
};

// Groups stand before their operations.
const Operation Operations[] = {
    {"session/", QT_TRANSLATE_NOOP("AuditRules", "Session")},
    {"session/sign-in", QT_TRANSLATE_NOOP("AuditRules", "Sign In")},
    {"session/sign-out", QT_TRANSLATE_NOOP("AuditRules", "Sign Out")},
    {"session/new-password", QT_TRANSLATE_NOOP("AuditRules", "Change Own Password")},
    {"server/", QT_TRANSLATE_NOOP("AuditRules", "Server")},
    {"server/set-up", QT_TRANSLATE_NOOP("AuditRules", "Set First Password")},
    {"command-line/", QT_TRANSLATE_NOOP("AuditRules", "Command Line")},
    {"command-line/set-password", QT_TRANSLATE_NOOP("AuditRules", "Set Password on the Server")},
    {"organization/", QT_TRANSLATE_NOOP("AuditRules", "Organization")},
    {"organization/add", QT_TRANSLATE_NOOP("AuditRules", "Add Organization")},
    {"organization/modify", QT_TRANSLATE_NOOP("AuditRules", "Modify Organization")},
    {"organization/delete", QT_TRANSLATE_NOOP("AuditRules", "Delete Organization")},
    {"organization/move", QT_TRANSLATE_NOOP("AuditRules", "Move Organization")},
    {"device/", QT_TRANSLATE_NOOP("AuditRules", "Device")},
    {"device/add", QT_TRANSLATE_NOOP("AuditRules", "Add Device")},
    {"device/modify", QT_TRANSLATE_NOOP("AuditRules", "Modify Device")},
    {"device/delete", QT_TRANSLATE_NOOP("AuditRules", "Delete Device")},
    {"device/move", QT_TRANSLATE_NOOP("AuditRules", "Move Device")},
    {"device/export", QT_TRANSLATE_NOOP("AuditRules", "Export Devices")},
    {"device/password", QT_TRANSLATE_NOOP("AuditRules", "Change Device Password")},
    {"device/time-zone", QT_TRANSLATE_NOOP("AuditRules", "Set Device Time Zone")},
    {"discovery/", QT_TRANSLATE_NOOP("AuditRules", "Device Search")},
    {"discovery/search", QT_TRANSLATE_NOOP("AuditRules", "Search Online Devices")},
    {"discovery/initialize", QT_TRANSLATE_NOOP("AuditRules", "Initialize Device")},
    {"discovery/address", QT_TRANSLATE_NOOP("AuditRules", "Change Device Address")},
    {"import/", QT_TRANSLATE_NOOP("AuditRules", "Device Import")},
    {"import/begin", QT_TRANSLATE_NOOP("AuditRules", "Begin Import")},
    {"import/rows", QT_TRANSLATE_NOOP("AuditRules", "Send Import Rows")},
    {"import/run", QT_TRANSLATE_NOOP("AuditRules", "Import Devices")},
    {"person-group/", QT_TRANSLATE_NOOP("AuditRules", "Person Group")},
    {"person-group/add", QT_TRANSLATE_NOOP("AuditRules", "Add Person Group")},
    {"person-group/modify", QT_TRANSLATE_NOOP("AuditRules", "Modify Person Group")},
    {"person-group/delete", QT_TRANSLATE_NOOP("AuditRules", "Delete Person Group")},
    {"person/", QT_TRANSLATE_NOOP("AuditRules", "Person")},
    {"person/add", QT_TRANSLATE_NOOP("AuditRules", "Add Person")},
    {"person/modify", QT_TRANSLATE_NOOP("AuditRules", "Modify Person")},
    {"person/delete", QT_TRANSLATE_NOOP("AuditRules", "Delete Person")},
    {"person/delete-all", QT_TRANSLATE_NOOP("AuditRules", "Delete All Persons")},
    {"person/move", QT_TRANSLATE_NOOP("AuditRules", "Move Person")},
    {"person/issue-cards", QT_TRANSLATE_NOOP("AuditRules", "Issue Card")},
    {"person/authorize", QT_TRANSLATE_NOOP("AuditRules", "Authorize Person")},
    {"person/reissue", QT_TRANSLATE_NOOP("AuditRules", "Send Person Rights Again")},
    {"person/capture", QT_TRANSLATE_NOOP("AuditRules", "Capture Fingerprint")},
    {"person/extract", QT_TRANSLATE_NOOP("AuditRules", "Extract Persons")},
    {"user/", QT_TRANSLATE_NOOP("AuditRules", "User")},
    {"user/add", QT_TRANSLATE_NOOP("AuditRules", "Add User")},
    {"user/modify", QT_TRANSLATE_NOOP("AuditRules", "Modify User")},
    {"user/lock", QT_TRANSLATE_NOOP("AuditRules", "Lock User")},
    {"user/unlock", QT_TRANSLATE_NOOP("AuditRules", "Unlock User")},
    {"user/delete", QT_TRANSLATE_NOOP("AuditRules", "Delete User")},
    {"role/", QT_TRANSLATE_NOOP("AuditRules", "Role")},
    {"role/add", QT_TRANSLATE_NOOP("AuditRules", "Add Role")},
    {"role/modify", QT_TRANSLATE_NOOP("AuditRules", "Modify Role")},
    {"role/delete", QT_TRANSLATE_NOOP("AuditRules", "Delete Role")},
    {"domain/", QT_TRANSLATE_NOOP("AuditRules", "Domain User")},
    {"domain/add", QT_TRANSLATE_NOOP("AuditRules", "Import Domain User")},
    {"domain/delete-invalid", QT_TRANSLATE_NOOP("AuditRules", "Delete Invalid Domain User")},
    {"audit/", QT_TRANSLATE_NOOP("AuditRules", "Audit Log")},
    {"audit/export", QT_TRANSLATE_NOOP("AuditRules", "Export Audit Log")},
    {"job/", QT_TRANSLATE_NOOP("AuditRules", "Task")},
    {"job/cancel", QT_TRANSLATE_NOOP("AuditRules", "Cancel Task")},
};

QString Translate(const char* szText)
{
    return QCoreApplication::translate("AuditRules", szText);
}

QString JoinSide(const QVector<AuditChange>& vecChanges, QString AuditChange::*side)
{
    QStringList listTexts;
    for (const AuditChange& change : vecChanges) {
        const QString& sValue = change.*side;
        if (!sValue.isEmpty())
            listTexts.append(
                change.sField.isEmpty() ? sValue : change.sField + QStringLiteral(": ") + sValue);
    }
    return listTexts.join(QStringLiteral(", "));
}

} // namespace

QVector<AuditChoice> GetAuditChoices()
{
    QVector<AuditChoice> vecChoices{{QString(), Text::tr("All"), false}};
    for (const Operation& operation : Operations) {
        const QString sCode = QLatin1String(operation.szCode);
        vecChoices.append({sCode, Translate(operation.szText), sCode.endsWith(QLatin1Char('/'))});
    }
    return vecChoices;
}

QString GetOperationText(const QString& sCode)
{
    for (const Operation& operation : Operations) {
        if (sCode == QLatin1String(operation.szCode))
            return Translate(operation.szText);
    }
    return sCode;
}

QDateTime GetPeriodStart(AuditPeriod period, const QDate& today)
{
    switch (period) {
    case PeriodToday:
        return today.startOfDay();
    case PeriodLast7Days:
        return today.addDays(-6).startOfDay();
    case PeriodLast30Days:
        return today.addDays(-29).startOfDay();
    case PeriodAll:
    case PeriodOwn:
        break;
    }
    return {};
}

QString GetTimeText(std::int64_t nMilliseconds)
{
    return QDateTime::fromMSecsSinceEpoch(nMilliseconds).toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"));
}

QString GetBeforeText(const QVector<AuditChange>& vecChanges)
{
    return JoinSide(vecChanges, &AuditChange::sBefore);
}

QString GetAfterText(const QVector<AuditChange>& vecChanges)
{
    return JoinSide(vecChanges, &AuditChange::sAfter);
}

QStringList GetChangeLines(const QVector<AuditChange>& vecChanges)
{
    const QString sNothing = Text::tr("(empty)");
    QStringList listLines;
    for (const AuditChange& change : vecChanges)
        listLines.append((change.sField.isEmpty() ? QString() : change.sField + QStringLiteral(": "))
            + (change.sBefore.isEmpty() ? sNothing : change.sBefore) + QStringLiteral(" \u2192 ")
            + (change.sAfter.isEmpty() ? sNothing : change.sAfter));
    return listLines;
}

QStringList GetAuditTexts(const UserLogical::AuditEntry_t& entry)
{
    const QVector<AuditChange> vecChanges = GetChanges(entry.sBefore, entry.sAfter);
    return {GetTimeText(entry.nTime), QString::fromStdString(entry.sUserName),
        QString::fromStdString(entry.sClientAddress),
        GetOperationText(QString::fromStdString(entry.sOperation)), QString::fromStdString(entry.sObjectId),
        GetBeforeText(vecChanges), GetAfterText(vecChanges)};
}

QStringList GetAuditHeader()
{
    return {Text::tr("Time"), Text::tr("User"), Text::tr("Client Address"), Text::tr("Operation"),
        Text::tr("Object"), Text::tr("Before"), Text::tr("After")};
}

} // namespace PlatformConfigUI

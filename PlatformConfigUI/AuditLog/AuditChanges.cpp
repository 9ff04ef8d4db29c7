#include "AuditRules.h"

#include <UICommonMdl/CErrorCode.h>

#include <QCoreApplication>
#include <QHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QSet>

#include <algorithm>
#include <cmath>

namespace PlatformConfigUI {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(AuditRules)
};

constexpr qint64 MsPerSecond = 1000;
constexpr double MostExact = 9007199254740992.0; ///< 2^53; a time in seconds as much as in milliseconds

/// Fields that hold a time, and its unit in milliseconds. 0 is no time.
const QHash<QString, qint64>& TimeUnits()
{
    static const QHash<QString, qint64> s_units = {{QStringLiteral("nExpiry"), 1},
        {QStringLiteral("nPasswordChanged"), 1}, {QStringLiteral("nTime"), 1},
        {QStringLiteral("nValidFrom"), MsPerSecond}, {QStringLiteral("nValidTo"), MsPerSecond}};
    return s_units;
}

/// Words of field names that are written in their own way.
const QHash<QString, QString>& Words()
{
    static const QHash<QString, QString> s_words = {{QStringLiteral("Id"), QStringLiteral("ID")},
        {QStringLiteral("Ids"), QStringLiteral("IDs")}, {QStringLiteral("Ip"), QStringLiteral("IP")},
        {QStringLiteral("Mac"), QStringLiteral("MAC")}, {QStringLiteral("Ptz"), QStringLiteral("PTZ")},
        {QStringLiteral("Url"), QStringLiteral("URL")}, {QStringLiteral("Sip"), QStringLiteral("SIP")},
        {QStringLiteral("Led"), QStringLiteral("LED")}, {QStringLiteral("Pos"), QStringLiteral("POS")},
        {QStringLiteral("Org"), QStringLiteral("Organization")},
        {QStringLiteral("Func"), QStringLiteral("Function")}, {QStringLiteral("No"), QStringLiteral("No.")}};
    return s_words;
}

/// Numbers that stand for something: the text, empty for other fields and unknown numbers.
QString GetMeaning(const QString& sKey, qint64 nValue)
{
    using namespace UserLogical;
    if (sKey == QLatin1String("nErrorCode") && nValue == int(nValue))
        return UICommonMdl::CErrorCode::GetErroCodeInfor(int(nValue));
    if (sKey == QLatin1String("nLockState"))
        return nValue == LockStateUsable ? Text::tr("Usable") : Text::tr("Locked");
    if (sKey == QLatin1String("nUserType") && nValue == UserTypeNormal)
        return Text::tr("Normal User");
    if (sKey == QLatin1String("nUserType") && nValue == UserTypeDomain)
        return Text::tr("Domain User");
    return {};
}

QString GetNumberText(const QString& sKey, double dValue)
{
    // What a double does not hold exactly, and a fraction, is neither a time nor the number of something.
    if (dValue != std::floor(dValue) || std::abs(dValue) > MostExact)
        return QString::number(dValue);
    const auto nValue = qint64(dValue);
    if (const qint64 nUnit = TimeUnits().value(sKey); nUnit > 0)
        return nValue == 0 ? QString() : GetTimeText(nValue * nUnit);
    const QString sMeaning = GetMeaning(sKey, nValue);
    return sMeaning.isEmpty() ? QString::number(nValue) : sMeaning;
}

QString GetValueText(const QString& sKey, const QJsonValue& value);

QString GetObjectText(const QJsonObject& object)
{
    QStringList listTexts;
    for (auto it = object.begin(); it != object.end(); ++it) {
        const QString sText = GetValueText(it.key(), it.value());
        if (!sText.isEmpty())
            listTexts.append(GetFieldName(it.key()) + QStringLiteral(": ") + sText);
    }
    return QLatin1Char('(') + listTexts.join(QStringLiteral(", ")) + QLatin1Char(')');
}

QString GetValueText(const QString& sKey, const QJsonValue& value)
{
    switch (value.type()) {
    case QJsonValue::Bool:
        return value.toBool() ? Text::tr("Yes") : Text::tr("No");
    case QJsonValue::Double:
        return GetNumberText(sKey, value.toDouble());
    case QJsonValue::String:
        return value.toString();
    case QJsonValue::Object:
        return GetObjectText(value.toObject());
    case QJsonValue::Array: {
        QStringList listTexts;
        const QJsonArray values = value.toArray();
        for (const QJsonValue& item : values)
            listTexts.append(GetValueText(sKey, item));
        return listTexts.join(QStringLiteral(", "));
    }
    case QJsonValue::Null:
    case QJsonValue::Undefined:
        break;
    }
    return {};
}

/// Leaves in two lists what the other one lacks. Lists of the same items in another order stay as they are.
void DropCommon(QJsonValue& before, QJsonValue& after)
{
    const QJsonArray old = before.toArray();
    const QJsonArray fresh = after.toArray();
    const auto without = [](const QJsonArray& items, const QJsonArray& others) {
        QJsonArray left;
        std::copy_if(items.begin(), items.end(), std::back_inserter(left),
            [&others](const QJsonValue& item) { return !others.contains(item); });
        return left;
    };
    const QJsonArray gone = without(old, fresh);
    const QJsonArray come = without(fresh, old);
    if (gone.isEmpty() && come.isEmpty())
        return;
    before = gone;
    after = come;
}

/// The counter of a record's changes tells nothing that the change does not.
bool IsTold(const QString& sKey)
{
    return sKey != QLatin1String("nVersion");
}

void Compare(const QString& sPath, const QJsonObject& before, const QJsonObject& after,
    QVector<AuditChange>& vecChanges)
{
    QStringList listKeys = before.keys() + after.keys();
    listKeys.removeDuplicates();
    for (const QString& sKey : qAsConst(listKeys)) {
        QJsonValue old = before.value(sKey);
        QJsonValue fresh = after.value(sKey);
        if (old == fresh || !IsTold(sKey))
            continue;
        const QString sField = sPath + GetFieldName(sKey);
        if (old.isObject() && fresh.isObject()) {
            Compare(sField + QStringLiteral(" / "), old.toObject(), fresh.toObject(), vecChanges);
            continue;
        }
        if (old.isArray() && fresh.isArray())
            DropCommon(old, fresh);
        const AuditChange change{sField, GetValueText(sKey, old), GetValueText(sKey, fresh)};
        if (!change.sBefore.isEmpty() || !change.sAfter.isEmpty())
            vecChanges.append(change);
    }
}

bool IsName(const AuditChange& change)
{
    return change.sField.endsWith(QLatin1String("Name"));
}

} // namespace

QString GetFieldName(const QString& sKey)
{
    if (sKey == QLatin1String("nErrorCode"))
        return Text::tr("Refused");
    static const QRegularExpression s_prefix(QStringLiteral("^(s|n|b|d|vec|opt|map|list)(?=[A-Z])"));
    static const QRegularExpression s_wordStart(QStringLiteral("(?<=[a-z0-9])(?=[A-Z])|_"));
    QStringList listWords = QString(sKey).remove(s_prefix).split(s_wordStart, Qt::SkipEmptyParts);
    for (QString& sWord : listWords) {
        sWord[0] = sWord[0].toUpper();
        sWord = Words().value(sWord, sWord);
    }
    return QCoreApplication::translate("AuditRules", listWords.join(QLatin1Char(' ')).toUtf8().constData());
}

QVector<AuditChange> GetChanges(const std::string& sBefore, const std::string& sAfter)
{
    const QJsonDocument before = QJsonDocument::fromJson(QByteArray::fromStdString(sBefore));
    const QJsonDocument after = QJsonDocument::fromJson(QByteArray::fromStdString(sAfter));
    // What is no record is shown as it stands.
    if ((!sBefore.empty() && !before.isObject()) || (!sAfter.empty() && !after.isObject()))
        return {{QString(), QString::fromStdString(sBefore), QString::fromStdString(sAfter)}};
    QVector<AuditChange> vecChanges;
    Compare(QString(), before.object(), after.object(), vecChanges);
    std::sort(vecChanges.begin(), vecChanges.end(), [](const AuditChange& left, const AuditChange& right) {
        return IsName(left) != IsName(right)
            ? IsName(left)
            : QString::compare(left.sField, right.sField, Qt::CaseInsensitive) < 0;
    });
    return vecChanges;
}

} // namespace PlatformConfigUI

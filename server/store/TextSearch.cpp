#include "TextSearch.h"

#include "services/TextRules.h"

#include <UICommonMdl/TextRule.h>

#include <QStringList>
#include <QVector>

#include <algorithm>

namespace Platform::TextSearch {

namespace {

constexpr int TrigramLength = 3;
constexpr int FewLimit = 2000;

QString QuotedPhrase(const std::string& sText)
{
    QString sPhrase = QString::fromStdString(sText);
    sPhrase.replace(QLatin1Char('"'), QLatin1String("\"\""));
    return QLatin1Char('"') + sPhrase + QLatin1Char('"');
}

/// The last three characters and the three before them, as far as there are: what a text ends with tells it
/// from others best.
QString TwoTrigrams(const std::string& sKey)
{
    constexpr int Length = TrigramLength;
    const QVector<uint> characters = QString::fromStdString(sKey).toUcs4();
    const auto phrase = [&characters](int nFrom) {
        return QuotedPhrase(QString::fromUcs4(characters.constData() + nFrom, Length).toStdString());
    };
    const int nLast = static_cast<int>(characters.size()) - Length;
    return nLast == 0 ? phrase(0)
                      : phrase(nLast) + QLatin1String(" AND ") + phrase(std::max(0, nLast - Length));
}

} // namespace

QString LikePattern(const std::string& sText)
{
    QString sPattern = QString::fromStdString(sText);
    for (const QLatin1Char c : {QLatin1Char('\\'), QLatin1Char('%'), QLatin1Char('_')})
        sPattern.replace(c, QString(QLatin1Char('\\')) + c);
    return QLatin1Char('%') + sPattern + QLatin1Char('%');
}

std::string Key(const std::string& sText)
{
    std::string sKey = sText;
    std::erase_if(sKey, UICommonMdl::IsControlCharacter);
    return FoldCase(sKey);
}

bool IsIndexed(const Database& database, const std::string& sKey)
{
    return !database.IsPostgres() && UICommonMdl::CountCharacters(sKey) >= TrigramLength;
}

Way FindWay(Database& database, const QString& sTable, const std::string& sKey)
{
    if (!IsIndexed(database, sKey))
        return {};
    Rows rows = database.Run(QStringLiteral("SELECT rowid FROM %1_search WHERE %1_search MATCH ? LIMIT %2")
                                 .arg(sTable)
                                 .arg(FewLimit + 1),
        {TwoTrigrams(sKey)});
    QStringList listIds;
    while (rows.Next())
        listIds << QString::number(rows.Big(0));
    if (listIds.size() > FewLimit)
        return {};
    return {false, QVariant(QLatin1Char('[') + listIds.join(QLatin1Char(',')) + QLatin1Char(']'))};
}

QString Term(const Database& database, const QString& sTable, const QString& sAlias, const std::string& sKey,
    const Way& way, QVariantList& values)
{
    if (database.IsPostgres()) {
        values << LikePattern(sKey);
        return sAlias + QLatin1String(".search_key LIKE ? ESCAPE '\\'");
    }
    QString sLook = QLatin1String("instr(") + sAlias + QLatin1String(".search_key, ?) > 0");
    if (!way.bWalk && way.IsFew()) {
        values << way.few << TextValue(sKey);
        return sAlias + QLatin1String(".id IN (SELECT value FROM json_each(?)) AND ") + sLook;
    }
    if (way.bWalk || !IsIndexed(database, sKey)) {
        values << TextValue(sKey);
        return sLook;
    }
    values << QuotedPhrase(sKey);
    return QStringLiteral("%1.id IN (SELECT rowid FROM %2_search WHERE %2_search MATCH ?)")
        .arg(sAlias, sTable);
}

QString CountStatement(const QString& sTable, const std::string& sKey, QVariantList& values)
{
    values << QuotedPhrase(sKey);
    return QStringLiteral("SELECT COUNT(*) FROM %1_search WHERE %1_search MATCH ?").arg(sTable);
}

} // namespace Platform::TextSearch

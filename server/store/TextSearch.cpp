#include "TextSearch.h"

#include "services/TextRules.h"

namespace Platform::TextSearch {

namespace {

constexpr std::size_t TrigramLength = 3;

QString LikePattern(const std::string& sText)
{
    QString sPattern = QString::fromStdString(sText);
    for (const QLatin1Char c : {QLatin1Char('\\'), QLatin1Char('%'), QLatin1Char('_')})
        sPattern.replace(c, QString(QLatin1Char('\\')) + c);
    return QLatin1Char('%') + sPattern + QLatin1Char('%');
}

QString QuotedPhrase(const std::string& sText)
{
    QString sPhrase = QString::fromStdString(sText);
    sPhrase.replace(QLatin1Char('"'), QLatin1String("\"\""));
    return QLatin1Char('"') + sPhrase + QLatin1Char('"');
}

} // namespace

std::string Key(const std::string& sText)
{
    std::string sKey = sText;
    std::erase_if(sKey, [](char c) { return HasControlCharacter(std::string(1, c)); });
    return FoldCase(sKey);
}

bool IsIndexed(const Database& database, const std::string& sKey)
{
    return !database.IsPostgres() && CharacterCount(sKey) >= TrigramLength;
}

QString Term(const Database& database, const QString& sTable, const QString& sAlias, const std::string& sKey,
    bool bWalk, QVariantList& values)
{
    if (database.IsPostgres()) {
        values << LikePattern(sKey);
        return sAlias + QLatin1String(".search_key LIKE ? ESCAPE '\\'");
    }
    if (bWalk || !IsIndexed(database, sKey)) {
        values << TextValue(sKey);
        return QLatin1String("instr(") + sAlias + QLatin1String(".search_key, ?) > 0");
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

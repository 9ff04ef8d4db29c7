#include "SchemaStep.h"

namespace Platform {

namespace {

QString Spell(const char* szText, bool bPostgres)
{
    QString sText = QString::fromUtf8(szText);
    sText.replace(QLatin1String("{id}"),
        bPostgres ? QStringLiteral("BIGINT PRIMARY KEY") : QStringLiteral("INTEGER PRIMARY KEY"));
    sText.replace(QLatin1String("{serial}"),
        bPostgres ? QStringLiteral("BIGSERIAL PRIMARY KEY")
                  : QStringLiteral("INTEGER PRIMARY KEY AUTOINCREMENT"));
    // Sorted and compared byte by byte, so that both databases agree and LIKE can use an index.
    sText.replace(
        QLatin1String("{key}"), bPostgres ? QStringLiteral("TEXT COLLATE \"C\"") : QStringLiteral("TEXT"));
    return sText;
}

} // namespace

Migration SchemaStep(
    int nNumber, const char* szName, bool bPostgres, std::initializer_list<SchemaStatement> statements)
{
    Migration migration;
    migration.nNumber = nNumber;
    migration.sName = QString::fromLatin1(szName);
    for (const SchemaStatement& statement : statements)
        if (statement.use == SchemaStatement::Both
            || (statement.use == SchemaStatement::PostgresOnly) == bPostgres)
            migration.listStatements << Spell(statement.szText, bPostgres);
    return migration;
}

} // namespace Platform

#include "Migrations.h"

#include "Log.h"
#include "ServiceError.h"

#include <QCryptographicHash>
#include <QDateTime>

#include <algorithm>
#include <map>

namespace Platform {

namespace {

QString Checksum(const Migration& migration)
{
    return QString::fromLatin1(QCryptographicHash::hash(
        migration.listStatements.join(QLatin1Char(';')).toUtf8(), QCryptographicHash::Sha256)
                                   .toHex());
}

std::map<int, QString> AppliedSteps(Database& database)
{
    std::map<int, QString> mapApplied;
    Rows rows = database.Run(QStringLiteral("SELECT number, checksum FROM schema_migration"));
    while (rows.Next())
        mapApplied[rows.Int(0)] = QString::fromStdString(rows.Text(1));
    return mapApplied;
}

void Apply(Database& database, const Migration& migration)
{
    Transaction transaction(database);
    // Two servers that start on one PostgreSQL database take turns.
    if (database.IsPostgres())
        database.Execute(QStringLiteral("LOCK TABLE schema_migration IN EXCLUSIVE MODE"));
    if (AppliedSteps(database).count(migration.nNumber) != 0)
        return;
    for (const QString& sStatement : migration.listStatements)
        database.Execute(sStatement);
    database.Run(QStringLiteral(
                     "INSERT INTO schema_migration (number, name, checksum, applied_at) VALUES (?, ?, ?, ?)"),
        {migration.nNumber, migration.sName, Checksum(migration), QDateTime::currentMSecsSinceEpoch()});
    transaction.Commit();
    Log::Info("store", "Schema step applied",
        {{"number", std::to_string(migration.nNumber)}, {"name", migration.sName.toStdString()}});
}

} // namespace

void Migrate(Database& database, const std::vector<Migration>& vecMigrations)
{
    database.Execute(
        QStringLiteral("CREATE TABLE IF NOT EXISTS schema_migration (number INTEGER PRIMARY KEY, "
                       "name TEXT NOT NULL, checksum TEXT NOT NULL, applied_at BIGINT NOT NULL)"));
    const std::map<int, QString> mapApplied = AppliedSteps(database);
    if (!mapApplied.empty() && mapApplied.rbegin()->first > vecMigrations.back().nNumber)
        throw StartError(ExitDatabaseNewer,
            "The database is of a newer version than this program: it has schema step "
                + std::to_string(mapApplied.rbegin()->first) + ", the program knows "
                + std::to_string(vecMigrations.back().nNumber));
    for (const Migration& migration : vecMigrations) {
        const auto it = mapApplied.find(migration.nNumber);
        if (it == mapApplied.end())
            Apply(database, migration);
        else if (it->second != Checksum(migration))
            throw StartError(ExitDatabase,
                "Schema step " + std::to_string(migration.nNumber)
                    + " of the database differs from this program's");
    }
}

} // namespace Platform

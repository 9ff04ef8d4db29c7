#pragma once

#include "Database.h"

#include <QStringList>

#include <vector>

namespace Platform {

/// One step of the schema. Its number never changes and its statements never change after a release.
struct Migration
{
    int nNumber = 0;
    QString sName;
    QStringList listStatements;
};

/// All steps, ascending, in the words of that database.
std::vector<Migration> Migrations(bool bPostgres);

/// Brings the database up to the last of the steps, each in a transaction of its own: an interruption leaves
/// the steps before it, and the next start goes on. Throws StartError when the database is newer than the
/// steps or was made by other ones, ServiceError when a statement fails.
void Migrate(Database& database, const std::vector<Migration>& vecMigrations);

} // namespace Platform

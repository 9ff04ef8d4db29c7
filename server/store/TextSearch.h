#pragma once

#include "Database.h"

#include <string>

namespace Platform {

/// Searches for a part of the column search_key: by the index of trigrams, which SQLite has in a table of its
/// own ("device_search" for "device").
namespace TextSearch {

/// What a search for that text looks for: without case and control characters.
std::string Key(const std::string& sText);
/// For LIKE … ESCAPE '\\': texts that hold sText.
QString LikePattern(const std::string& sText);
/// True when SQLite finds the key by its index; it is too short for it otherwise.
bool IsIndexed(const Database& database, const std::string& sKey);

/// How the rows with a key are found.
struct Way
{
    bool bWalk = false; ///< each row is looked at: they are read in another order anyway
    /// JSON array of the numbers of the few rows that can have the key; null: the index of trigrams tells.
    QVariant few;

    bool IsFew() const { return !few.isNull(); }
};
/// Few rows when not many of the table have two of the key's trigrams: looking at them is several times
/// quicker than to find the whole key in the index.
Way FindWay(Database& database, const QString& sTable, const std::string& sKey);

/// The condition on the rows of sTable, known in the statement as sAlias.
QString Term(const Database& database, const QString& sTable, const QString& sAlias, const std::string& sKey,
    const Way& way, QVariantList& values);
/// Counts what an indexed key finds.
QString CountStatement(const QString& sTable, const std::string& sKey, QVariantList& values);

} // namespace TextSearch

} // namespace Platform

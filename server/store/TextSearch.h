#pragma once

#include "Database.h"

#include <string>

namespace Platform {

/// Searches for a part of the column search_key: by the index of trigrams, which SQLite has in a table of its
/// own ("device_search" for "device").
namespace TextSearch {

/// What a search for that text looks for: without case and control characters.
std::string Key(const std::string& sText);
/// True when SQLite finds the key by its index; it is too short for it otherwise.
bool IsIndexed(const Database& database, const std::string& sKey);
/// The condition on the rows of sTable, known in the statement as sAlias. bWalk: its rows are read in another
/// order anyway, so that the index is of no use.
QString Term(const Database& database, const QString& sTable, const QString& sAlias, const std::string& sKey,
    bool bWalk, QVariantList& values);
/// Counts what an indexed key finds.
QString CountStatement(const QString& sTable, const std::string& sKey, QVariantList& values);

} // namespace TextSearch

} // namespace Platform

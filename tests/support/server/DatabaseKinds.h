#pragma once

#include "store/Database.h"

#include <QString>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

namespace TestSupport {

enum class DatabaseKind
{
    Sqlite,
    Postgres
};

/// The databases that a test body runs on: SQLite, and PostgreSQL where PRODUCT_TEST_POSTGRES holds the URL
/// of one. A program in which a parameter source asked for PostgreSQL, with one configured, and no case used
/// it fails at its end.
std::vector<DatabaseKind> DatabaseKinds();
std::string DatabaseKindName(const testing::TestParamInfo<DatabaseKind>& info);

/// A database of its own, empty, that goes with the object.
class TestDatabase
{
public:
    explicit TestDatabase(DatabaseKind kind);
    ~TestDatabase();
    TestDatabase(const TestDatabase&) = delete;
    TestDatabase& operator=(const TestDatabase&) = delete;

    Platform::DatabaseAddress Address() const { return m_address; }
    /// A folder for the server's files.
    QString Folder() const { return m_folder.path(); }

private:
    QTemporaryDir m_folder;
    QString m_sName; ///< of the PostgreSQL database
    Platform::DatabaseAddress m_address;
};

/// Qt's SQL drivers need an application object; makes one when the test program has none.
void EnsureApplication();

} // namespace TestSupport

#pragma once

#include "Migrations.h"

#include <initializer_list>

namespace Platform {

/// A statement for both databases with {words} that they spell differently, or one for only one of them.
struct SchemaStatement
{
    enum Use
    {
        Both,
        SqliteOnly,
        PostgresOnly
    };
    Use use;
    const char* szText;
};

/// One step of the schema in the words of that database.
Migration SchemaStep(
    int nNumber, const char* szName, bool bPostgres, std::initializer_list<SchemaStatement> statements);

/// Step 5: what accounts and roles are made of, and which devices a role reaches.
Migration RolesAndScopes(bool bPostgres);

} // namespace Platform

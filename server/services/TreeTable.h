#pragma once

#include "store/Database.h"

#include <string>
#include <vector>

namespace Platform {

/// A table of nodes (code, parent_code, name, name_key, …) with its table of ancestors, in which every node
/// is its own ancestor at the distance 0: so a sub-tree is found by index, and a move touches the sub-tree's
/// nodes only. Within a transaction of the caller; faults are ServiceError.
class TreeTable
{
public:
    /// szTable is a literal; the ancestors are in the table of that name and "_ancestor".
    explicit constexpr TreeTable(const char* szTable)
        : m_szTable(szTable)
    {
    }

    /// Level of a node, the root being level 1.
    int LevelOf(Database& database, const std::string& sCode) const;
    /// Throws ErrorNameExists when another child of the parent has the name, whatever its case.
    void CheckSiblings(Database& database, const std::string& sParentCode, const std::string& sName,
        const std::string& sCode) const;
    /// Throws ErrorOrganizationDepth for a child that would lie below nLevelLimit.
    void CheckChild(Database& database, const std::string& sParentCode, int nLevelLimit) const;
    /// Throws ErrorOrganizationCycle, or ErrorOrganizationDepth as above.
    void CheckMove(Database& database, const std::string& sCode, const std::string& sNewParentCode,
        int nLevelLimit) const;

    /// The ancestors of a node that was inserted.
    void AddAncestors(Database& database, const std::string& sCode, const std::string& sParentCode) const;
    /// The sub-tree leaves its old ancestors and comes under the new parent's. Its row is the caller's.
    void MoveAncestors(Database& database, const std::string& sCode, const std::string& sNewParentCode) const;
    /// The node and everything below it, the deepest first.
    std::vector<std::string> Below(Database& database, const std::string& sCode) const;
    /// Removes a node that has nothing below it.
    void Remove(Database& database, const std::string& sCode) const;

private:
    QString Sql(const char* szText) const;
    int Number(Database& database, const char* szText, const QVariantList& values) const;

    const char* m_szTable;
};

} // namespace Platform

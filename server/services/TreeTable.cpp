#include "TreeTable.h"

#include "ServiceError.h"
#include "TextRules.h"

namespace Platform {

QString TreeTable::Sql(const char* szText) const
{
    QString sText = QString::fromLatin1(szText);
    return sText.replace(QLatin1String("{nodes}"), QLatin1String(m_szTable));
}

int TreeTable::Number(Database& database, const char* szText, const QVariantList& values) const
{
    Rows rows = database.Run(Sql(szText), values);
    rows.Next();
    return rows.Int(0);
}

int TreeTable::LevelOf(Database& database, const std::string& sCode) const
{
    return 1
        + Number(database, "SELECT COALESCE(MAX(distance), 0) FROM {nodes}_ancestor WHERE code = ?",
            {TextValue(sCode)});
}

void TreeTable::CheckSiblings(Database& database, const std::string& sParentCode, const std::string& sName,
    const std::string& sCode) const
{
    const int nSame =
        Number(database, "SELECT COUNT(*) FROM {nodes} WHERE parent_code = ? AND name_key = ? AND code <> ?",
            {TextValue(sParentCode), TextValue(FoldCase(sName)), TextValue(sCode)});
    if (nSame != 0)
        throw ServiceError(UICommonMdl::ErrorNameExists);
}

void TreeTable::CheckChild(Database& database, const std::string& sParentCode, int nLevelLimit) const
{
    if (LevelOf(database, sParentCode) + 1 > nLevelLimit)
        throw ServiceError(UICommonMdl::ErrorOrganizationDepth);
}

void TreeTable::CheckMove(
    Database& database, const std::string& sCode, const std::string& sNewParentCode, int nLevelLimit) const
{
    if (Number(database, "SELECT COUNT(*) FROM {nodes}_ancestor WHERE ancestor = ? AND code = ?",
            {TextValue(sCode), TextValue(sNewParentCode)})
        != 0)
        throw ServiceError(UICommonMdl::ErrorOrganizationCycle);
    const int nHeight = 1
        + Number(database, "SELECT COALESCE(MAX(distance), 0) FROM {nodes}_ancestor WHERE ancestor = ?",
            {TextValue(sCode)});
    if (LevelOf(database, sNewParentCode) + nHeight > nLevelLimit)
        throw ServiceError(UICommonMdl::ErrorOrganizationDepth);
}

void TreeTable::AddAncestors(
    Database& database, const std::string& sCode, const std::string& sParentCode) const
{
    database.Run(Sql("INSERT INTO {nodes}_ancestor (ancestor, code, distance) "
                     "SELECT ancestor, CAST(? AS TEXT), distance + 1 FROM {nodes}_ancestor WHERE code = ?"),
        {TextValue(sCode), TextValue(sParentCode)});
    database.Run(Sql("INSERT INTO {nodes}_ancestor (ancestor, code, distance) VALUES (?, ?, 0)"),
        {TextValue(sCode), TextValue(sCode)});
}

void TreeTable::MoveAncestors(
    Database& database, const std::string& sCode, const std::string& sNewParentCode) const
{
    const QVariant code = TextValue(sCode);
    database.Run(
        Sql("DELETE FROM {nodes}_ancestor WHERE code IN (SELECT code FROM {nodes}_ancestor WHERE ancestor = "
            "?) "
            "AND ancestor IN (SELECT ancestor FROM {nodes}_ancestor WHERE code = ? AND distance > 0)"),
        {code, code});
    database.Run(Sql("INSERT INTO {nodes}_ancestor (ancestor, code, distance) "
                     "SELECT above.ancestor, below.code, above.distance + below.distance + 1 "
                     "FROM {nodes}_ancestor above, {nodes}_ancestor below "
                     "WHERE above.code = ? AND below.ancestor = ?"),
        {TextValue(sNewParentCode), code});
}

std::vector<std::string> TreeTable::Below(Database& database, const std::string& sCode) const
{
    std::vector<std::string> vecCodes;
    Rows rows =
        database.Run(Sql("SELECT code FROM {nodes}_ancestor WHERE ancestor = ? ORDER BY distance DESC, code"),
            {TextValue(sCode)});
    while (rows.Next())
        vecCodes.push_back(rows.Text(0));
    return vecCodes;
}

void TreeTable::Remove(Database& database, const std::string& sCode) const
{
    database.Run(Sql("DELETE FROM {nodes}_ancestor WHERE code = ?"), {TextValue(sCode)});
    database.Run(Sql("DELETE FROM {nodes} WHERE code = ?"), {TextValue(sCode)});
}

} // namespace Platform

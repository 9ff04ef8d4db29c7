#include "XlsxReader.h"

#include "ServiceError.h"

#include <UICommonMdl/TextRule.h>

#include <archive.h>
#include <archive_entry.h>
#include <pugixml.hpp>

#include <array>
#include <charconv>
#include <cstring>
#include <map>
#include <memory>
#include <optional>

namespace Platform {

namespace {

using Parts = std::map<std::string, std::string>;

[[noreturn]] void Refuse(const char* szWhy)
{
    throw ServiceError(UICommonMdl::ErrorNotSpreadsheet, szWhy);
}

bool IsNeeded(const std::string& sName)
{
    return sName == "xl/workbook.xml" || sName == "xl/_rels/workbook.xml.rels"
        || sName == "xl/sharedStrings.xml" || sName.rfind("xl/worksheets/sheet", 0) == 0;
}

/// Reads one entry; the bytes of all entries together have a limit, whatever their headers say.
std::string ReadEntry(archive* pArchive, std::size_t& nBudget)
{
    std::string sContent;
    std::array<char, 16384> buffer{};
    for (;;) {
        const la_ssize_t nRead = archive_read_data(pArchive, buffer.data(), buffer.size());
        if (nRead < 0)
            Refuse("The file is damaged");
        if (nRead == 0)
            return sContent;
        if (static_cast<std::size_t>(nRead) > nBudget)
            Refuse("The file unpacks to too much");
        nBudget -= static_cast<std::size_t>(nRead);
        sContent.append(buffer.data(), static_cast<std::size_t>(nRead));
    }
}

Parts Unpack(const QByteArray& baFile)
{
    const std::unique_ptr<archive, int (*)(archive*)> pArchive(archive_read_new(), archive_read_free);
    archive_read_support_format_zip(pArchive.get());
    if (archive_read_open_memory(pArchive.get(), baFile.constData(), static_cast<std::size_t>(baFile.size()))
        != ARCHIVE_OK)
        Refuse("The file is damaged");
    constexpr int nEntryLimit = 1000;
    Parts parts;
    std::size_t nBudget = SheetFile::UnpackedLimit;
    archive_entry* pEntry = nullptr;
    for (int n = 0;; ++n) {
        const int nResult = archive_read_next_header(pArchive.get(), &pEntry);
        if (nResult == ARCHIVE_EOF)
            return parts;
        if (nResult != ARCHIVE_OK || n >= nEntryLimit)
            Refuse("The file is damaged");
        const char* const szName = archive_entry_pathname(pEntry);
        if (szName && IsNeeded(szName))
            parts[szName] = ReadEntry(pArchive.get(), nBudget);
    }
}

pugi::xml_document Parse(const std::string& sText)
{
    pugi::xml_document document;
    // No entities but XML's own are expanded, and a document with definitions is none of a spreadsheet.
    if (sText.find("<!DOCTYPE") != std::string::npos
        || !document.load_buffer(sText.data(), sText.size(), pugi::parse_default | pugi::parse_ws_pcdata))
        Refuse("A part of the file is not XML");
    return document;
}

const char* LocalName(const pugi::xml_node& node)
{
    const char* const szColon = std::strchr(node.name(), ':');
    return szColon ? szColon + 1 : node.name();
}

pugi::xml_node Child(const pugi::xml_node& node, const char* szName)
{
    return node.find_child(
        [szName](const pugi::xml_node& child) { return std::strcmp(LocalName(child), szName) == 0; });
}

/// The text of a string item: plain, or in runs; phonetic hints are left out.
std::string StringItem(const pugi::xml_node& item)
{
    std::string sText;
    for (const pugi::xml_node& child : item.children()) {
        if (std::strcmp(LocalName(child), "t") == 0)
            sText += child.text().get();
        else if (std::strcmp(LocalName(child), "r") == 0)
            sText += Child(child, "t").text().get();
    }
    return sText;
}

std::vector<std::string> SharedStrings(const Parts& parts)
{
    std::vector<std::string> vecStrings;
    const auto it = parts.find("xl/sharedStrings.xml");
    if (it == parts.end())
        return vecStrings;
    const pugi::xml_document document = Parse(it->second);
    for (const pugi::xml_node& item : document.document_element().children())
        if (std::strcmp(LocalName(item), "si") == 0)
            vecStrings.push_back(StringItem(item));
    return vecStrings;
}

/// The part of the workbook's first sheet.
const std::string& FirstSheet(const Parts& parts)
{
    const auto itBook = parts.find("xl/workbook.xml");
    const auto itRelations = parts.find("xl/_rels/workbook.xml.rels");
    if (itBook == parts.end() || itRelations == parts.end())
        Refuse("The file is no workbook");
    const pugi::xml_document book = Parse(itBook->second);
    const pugi::xml_node sheet = Child(book.document_element(), "sheets").first_child();
    const pugi::xml_attribute id = sheet.find_attribute([](const pugi::xml_attribute& attribute) {
        const char* const szColon = std::strchr(attribute.name(), ':');
        return szColon && std::strcmp(szColon, ":id") == 0;
    });
    const pugi::xml_document relations = Parse(itRelations->second);
    for (const pugi::xml_node& relation : relations.document_element().children()) {
        if (id && std::strcmp(relation.attribute("Id").value(), id.value()) == 0) {
            const std::string sTarget = relation.attribute("Target").value();
            const auto it = parts.find(sTarget.rfind('/', 0) == 0 ? sTarget.substr(1) : "xl/" + sTarget);
            if (it != parts.end())
                return it->second;
        }
    }
    Refuse("The workbook has no sheet");
}

/// Column of a cell's reference ("B7" is 1); nullopt when there is none.
std::optional<std::size_t> ColumnOf(const char* szReference)
{
    std::size_t nColumn = 0;
    const char* szLetter = szReference;
    for (; *szLetter >= 'A' && *szLetter <= 'Z'; ++szLetter)
        nColumn = std::min<std::size_t>(nColumn * 26 + static_cast<std::size_t>(*szLetter - 'A' + 1), 100000);
    if (szLetter == szReference)
        return std::nullopt;
    return nColumn - 1;
}

std::string CellText(const pugi::xml_node& cell, const std::vector<std::string>& vecStrings)
{
    const std::string sType = cell.attribute("t").value();
    if (sType == "inlineStr")
        return StringItem(Child(cell, "is"));
    std::string sValue = Child(cell, "v").text().get();
    if (sType != "s")
        return sValue;
    std::size_t nIndex = 0;
    const auto [pStop, fault] = std::from_chars(sValue.data(), sValue.data() + sValue.size(), nIndex);
    if (fault != std::errc() || nIndex >= vecStrings.size())
        Refuse("A cell names a text that does not exist");
    return vecStrings[nIndex];
}

SheetRow ReadRow(const pugi::xml_node& node, int nLine, const std::vector<std::string>& vecStrings,
    std::size_t& nTextBudget)
{
    SheetRow row{nLine, {}};
    std::size_t nNext = 0;
    for (const pugi::xml_node& cell : node.children()) {
        if (std::strcmp(LocalName(cell), "c") != 0)
            continue;
        const std::size_t nColumn = ColumnOf(cell.attribute("r").value()).value_or(nNext);
        nNext = nColumn + 1;
        if (nColumn >= SheetFile::ColumnLimit)
            continue;
        if (row.vecCells.size() <= nColumn)
            row.vecCells.resize(nColumn + 1);
        SheetCell& target = row.vecCells[nColumn];
        target.bFormula = Child(cell, "f") != nullptr;
        target.sText = UICommonMdl::CutText(CellText(cell, vecStrings), SheetFile::CellLimit);
        // One shared text may stand in every cell.
        if (target.sText.size() > nTextBudget)
            Refuse("The file unpacks to too much");
        nTextBudget -= target.sText.size();
    }
    return row;
}

} // namespace

std::vector<SheetRow> ReadXlsx(const QByteArray& baFile)
{
    const Parts parts = Unpack(baFile);
    const std::vector<std::string> vecStrings = SharedStrings(parts);
    const pugi::xml_document document = Parse(FirstSheet(parts));
    std::vector<SheetRow> vecRows;
    std::size_t nTextBudget = SheetFile::TextLimit;
    int nLine = 0;
    for (const pugi::xml_node& node : Child(document.document_element(), "sheetData").children()) {
        if (std::strcmp(LocalName(node), "row") != 0)
            continue;
        nLine = node.attribute("r").as_int(nLine + 1);
        vecRows.push_back(ReadRow(node, nLine, vecStrings, nTextBudget));
        if (vecRows.size() > SheetFile::RowLimit)
            throw ServiceError(UICommonMdl::ErrorTooManyRows);
    }
    return vecRows;
}

} // namespace Platform

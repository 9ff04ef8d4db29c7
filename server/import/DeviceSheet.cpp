#include "DeviceSheet.h"

#include "ServiceError.h"
#include "SheetFile.h"
#include "services/TextRules.h"

#include <pugixml.hpp>

#include <array>
#include <optional>
#include <sstream>

namespace Platform::DeviceSheet {

using GroupLogical::ImportRow_t;

namespace {

struct Column
{
    const char* szHeading;
    const char* szAttribute; ///< in XML files
    std::string ImportRow_t::*pText;
    bool bRequired;
};

constexpr int HeadingLimit = 50; ///< characters of an unknown heading that are told
constexpr const char* DeviceName = "Device Name";
constexpr const char* IntercomName = "Intercom Device Name";
constexpr const char* Category = "Category";
constexpr const char* IntercomCategory = "21";

// The order is that of the template.
constexpr std::array<Column, 14> Columns{{
    {DeviceName, "name", &ImportRow_t::sName, true},
    {"Connect", "connect", &ImportRow_t::sConnect, false},
    {"IP Address", "address", &ImportRow_t::sAddress, true},
    {"Domain", "domain", &ImportRow_t::sDomain, false},
    {"Port", "port", &ImportRow_t::sPort, true},
    {"User Name", "username", &ImportRow_t::sUserName, true},
    {"Password", "password", &ImportRow_t::sPassword, true},
    {Category, "category", &ImportRow_t::sCategory, false},
    {"Protocol", "protocol", &ImportRow_t::sProtocol, false},
    {"Manufacturer", "manufacturer", &ImportRow_t::sManufacturer, false},
    {"Device Model", "model", &ImportRow_t::sModel, false},
    {"SN", "sn", &ImportRow_t::sSerialNumber, false},
    {"Register ID", "registerid", &ImportRow_t::sRegisterId, false},
    {"Organization", "organization", &ImportRow_t::sOrganization, false},
}};

const char* HeadingOf(const Column& column, Kind kind)
{
    if (kind == Kind::Intercom && column.szHeading == DeviceName)
        return IntercomName;
    return column.szHeading;
}

bool IsOf(const Column& column, Kind kind)
{
    return kind == Kind::Devices || column.szHeading != Category;
}

bool IsComment(const std::string& sFolded)
{
    return sFolded.empty() || sFolded == "line" || sFolded == "reason";
}

/// For each cell of the heading row its column; null for one that is skipped.
std::vector<const Column*> ReadHeadings(const SheetRow& row, Kind& kind)
{
    std::vector<const Column*> vecColumns;
    for (const SheetCell& cell : row.vecCells)
        if (FoldCase(Trimmed(cell.sText)) == FoldCase(IntercomName))
            kind = Kind::Intercom;
    for (const SheetCell& cell : row.vecCells) {
        const std::string sFolded = FoldCase(Trimmed(cell.sText));
        const Column* pFound = nullptr;
        for (const Column& column : Columns)
            if (IsOf(column, kind) && FoldCase(HeadingOf(column, kind)) == sFolded)
                pFound = &column;
        const bool bDouble =
            pFound && std::find(vecColumns.begin(), vecColumns.end(), pFound) != vecColumns.end();
        if (bDouble || (!pFound && !IsComment(sFolded)))
            throw ServiceError(
                UICommonMdl::ErrorSheetColumns, UICommonMdl::CutText(cell.sText, HeadingLimit));
        vecColumns.push_back(pFound);
    }
    for (const Column& column : Columns)
        if (column.bRequired && std::find(vecColumns.begin(), vecColumns.end(), &column) == vecColumns.end())
            throw ServiceError(UICommonMdl::ErrorSheetColumns, HeadingOf(column, kind));
    return vecColumns;
}

std::vector<std::string> Headings(Kind kind)
{
    std::vector<std::string> vecHeadings;
    for (const Column& column : Columns)
        if (IsOf(column, kind))
            vecHeadings.emplace_back(HeadingOf(column, kind));
    return vecHeadings;
}

const char* SheetName(Kind kind)
{
    return kind == Kind::Intercom ? "Intercom devices" : "Devices";
}

} // namespace

Content Read(const QByteArray& baFile)
{
    const std::vector<SheetRow> vecSheet = SheetFile::Read(baFile);
    if (vecSheet.empty())
        throw ServiceError(UICommonMdl::ErrorSheetColumns, DeviceName);
    Content content;
    const std::vector<const Column*> vecColumns = ReadHeadings(vecSheet.front(), content.kind);
    for (auto it = std::next(vecSheet.begin()); it != vecSheet.end(); ++it) {
        ImportRow_t row;
        row.nLine = it->nLine;
        if (content.kind == Kind::Intercom)
            row.sCategory = IntercomCategory;
        for (std::size_t n = 0; n < std::min(vecColumns.size(), it->vecCells.size()); ++n) {
            if (!vecColumns[n])
                continue;
            row.*(vecColumns[n]->pText) = it->vecCells[n].sText;
            if (it->vecCells[n].bFormula)
                content.vecFormulas.emplace_back(it->nLine, HeadingOf(*vecColumns[n], content.kind));
        }
        content.vecRows.push_back(std::move(row));
    }
    return content;
}

QByteArray Template(Kind kind)
{
    return SheetFile::Write(SheetName(kind), {Headings(kind)});
}

QByteArray FailureList(
    Kind kind, const std::vector<ImportRow_t>& vecRows, const std::vector<std::string>& vecReasons)
{
    std::vector<std::vector<std::string>> vecSheet{Headings(kind)};
    vecSheet.front().insert(vecSheet.front().end(), {"Line", "Reason"});
    for (std::size_t n = 0; n < vecRows.size(); ++n) {
        std::vector<std::string> vecCells;
        for (const Column& column : Columns)
            if (IsOf(column, kind))
                vecCells.push_back(vecRows[n].*(column.pText));
        vecCells.push_back(std::to_string(vecRows[n].nLine));
        vecCells.push_back(vecReasons[n]);
        vecSheet.push_back(std::move(vecCells));
    }
    return SheetFile::Write(SheetName(kind), vecSheet);
}

QByteArray XmlFailureList(const std::vector<ImportRow_t>& vecRows, const std::vector<std::string>& vecReasons)
{
    pugi::xml_document document;
    pugi::xml_node declaration = document.append_child(pugi::node_declaration);
    declaration.append_attribute("version") = "1.0";
    declaration.append_attribute("encoding") = "UTF-8";
    pugi::xml_node root = document.append_child("DeviceManager");
    root.append_attribute("version") = "2.0";
    for (std::size_t n = 0; n < vecRows.size(); ++n) {
        pugi::xml_node device = root.append_child("Device");
        for (const Column& column : Columns)
            if (const std::string& sText = vecRows[n].*(column.pText); !sText.empty())
                device.append_attribute(column.szAttribute) = sText.c_str();
        device.append_attribute("line") = vecRows[n].nLine;
        device.append_attribute("reason") = vecReasons[n].c_str();
    }
    std::ostringstream text;
    document.save(text, " ");
    return QByteArray::fromStdString(text.str());
}

} // namespace Platform::DeviceSheet

#pragma once

#include <QByteArray>

#include <string>
#include <vector>

namespace Platform {

/// One cell: its text, and whether a formula makes it.
struct SheetCell
{
    std::string sText;
    bool bFormula = false;
};

/// One row of a sheet; cells after the last written one are left out.
struct SheetRow
{
    int nLine = 0; ///< from 1, as the spreadsheet program counts
    std::vector<SheetCell> vecCells;
};

/// Spreadsheets that people send, with limits that keep a small file from becoming a large one.
namespace SheetFile {

inline constexpr std::size_t RowLimit = 20000;
inline constexpr std::size_t ColumnLimit = 64;
inline constexpr int CellLimit = 1000; ///< characters of one cell's text
inline constexpr std::size_t UnpackedLimit = std::size_t(16) * 1024 * 1024;
inline constexpr std::size_t TextLimit = std::size_t(16) * 1024 * 1024; ///< bytes of all cells together

/// The rows of the first sheet of an Office Open XML (".xlsx", ECMA-376) or BIFF (".xls") file, told apart by
/// their content; empty rows are left out. Throws ServiceError: ErrorNotSpreadsheet, ErrorTooManyRows.
std::vector<SheetRow> Read(const QByteArray& baFile);

/// An .xlsx file with one sheet, all cells as text; the first row is the heading.
QByteArray Write(const std::string& sSheet, const std::vector<std::vector<std::string>>& vecRows);

} // namespace SheetFile

} // namespace Platform

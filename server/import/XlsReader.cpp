#include "XlsReader.h"

#include "ServiceError.h"

#include <UICommonMdl/TextRule.h>

#include <freexl.h>

#include <QFile>
#include <QTemporaryFile>

#include <algorithm>
#include <cmath>
#include <memory>

namespace Platform {

namespace {

[[noreturn]] void Refuse()
{
    throw ServiceError(UICommonMdl::ErrorNotSpreadsheet, "The file is damaged");
}

/// As people wrote it: whole numbers without a fraction.
std::string NumberText(double dNumber)
{
    if (std::floor(dNumber) == dNumber && std::abs(dNumber) < 1e15)
        return std::to_string(static_cast<long long>(dNumber));
    return QString::number(dNumber, 'g', 15).toStdString();
}

std::string Text(const FreeXL_CellValue& value)
{
    switch (value.type) {
    case FREEXL_CELL_INT:
        return std::to_string(value.value.int_value);
    case FREEXL_CELL_DOUBLE:
        return NumberText(value.value.double_value);
    case FREEXL_CELL_TEXT:
    case FREEXL_CELL_SST_TEXT:
    case FREEXL_CELL_DATE:
    case FREEXL_CELL_DATETIME:
    case FREEXL_CELL_TIME:
        return value.value.text_value ? UICommonMdl::CutText(value.value.text_value, SheetFile::CellLimit)
                                      : std::string();
    default:
        return {};
    }
}

} // namespace

std::vector<SheetRow> ReadXls(const QByteArray& baFile)
{
    // The library reads from files only.
    QTemporaryFile file;
    if (!file.open() || file.write(baFile) != baFile.size() || !file.flush())
        throw ServiceError(UICommonMdl::ErrorInternal, "The sheet could not be kept");
    const void* pHandle = nullptr;
    const int nOpened = freexl_open(QFile::encodeName(file.fileName()).constData(), &pHandle);
    const std::unique_ptr<const void, void (*)(const void*)> pClose(
        pHandle, [](const void* pOpen) { freexl_close(pOpen); });
    unsigned int nRows = 0;
    unsigned short nColumns = 0;
    if (nOpened != FREEXL_OK || freexl_select_active_worksheet(pHandle, 0) != FREEXL_OK
        || freexl_worksheet_dimensions(pHandle, &nRows, &nColumns) != FREEXL_OK)
        Refuse();
    if (nRows > SheetFile::RowLimit)
        throw ServiceError(UICommonMdl::ErrorTooManyRows);
    std::vector<SheetRow> vecRows;
    for (unsigned int nRow = 0; nRow < nRows; ++nRow) {
        SheetRow row{static_cast<int>(nRow) + 1, {}};
        for (unsigned short nColumn = 0; nColumn < std::min<std::size_t>(nColumns, SheetFile::ColumnLimit);
             ++nColumn) {
            FreeXL_CellValue value{};
            if (freexl_get_cell_value(pHandle, nRow, nColumn, &value) != FREEXL_OK)
                Refuse();
            row.vecCells.push_back({Text(value), false});
        }
        vecRows.push_back(std::move(row));
    }
    return vecRows;
}

} // namespace Platform

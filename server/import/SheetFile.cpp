#include "SheetFile.h"

#include "ServiceError.h"
#include "XlsReader.h"
#include "XlsxReader.h"

#include <xlsxwriter.h>

#include <QFile>
#include <QTemporaryDir>

#include <algorithm>

namespace Platform::SheetFile {

std::vector<SheetRow> Read(const QByteArray& baFile)
{
    std::vector<SheetRow> vecRows;
    if (baFile.startsWith("PK\x03\x04"))
        vecRows = ReadXlsx(baFile);
    else if (baFile.startsWith("\xd0\xcf\x11\xe0"))
        vecRows = ReadXls(baFile);
    else
        throw ServiceError(UICommonMdl::ErrorNotSpreadsheet);
    std::erase_if(vecRows, [](const SheetRow& row) {
        return std::all_of(row.vecCells.begin(), row.vecCells.end(),
            [](const SheetCell& cell) { return cell.sText.empty() && !cell.bFormula; });
    });
    return vecRows;
}

QByteArray Write(const std::string& sSheet, const std::vector<std::vector<std::string>>& vecRows)
{
    const QTemporaryDir folder;
    const QByteArray path = QFile::encodeName(folder.filePath(QStringLiteral("sheet.xlsx")));
    lxw_workbook* const pBook = workbook_new(path.constData());
    lxw_worksheet* const pSheet = workbook_add_worksheet(pBook, sSheet.c_str());
    lxw_format* const pHeading = workbook_add_format(pBook);
    format_set_bold(pHeading);
    lxw_format* const pText = workbook_add_format(pBook);
    format_set_num_format(pText, "@");
    worksheet_freeze_panes(pSheet, 1, 0);
    worksheet_set_column(pSheet, 0, static_cast<lxw_col_t>(ColumnLimit - 1), 18, pText);
    for (std::size_t nRow = 0; nRow < vecRows.size(); ++nRow)
        for (std::size_t nColumn = 0; nColumn < vecRows[nRow].size(); ++nColumn)
            worksheet_write_string(pSheet, static_cast<lxw_row_t>(nRow), static_cast<lxw_col_t>(nColumn),
                vecRows[nRow][nColumn].c_str(), nRow == 0 ? pHeading : pText);
    QFile file(folder.filePath(QStringLiteral("sheet.xlsx")));
    if (workbook_close(pBook) != LXW_NO_ERROR || !file.open(QIODevice::ReadOnly))
        throw ServiceError(UICommonMdl::ErrorInternal, "The sheet could not be written");
    return file.readAll();
}

} // namespace Platform::SheetFile

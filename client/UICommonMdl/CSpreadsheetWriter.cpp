#include <UICommonMdl/CSpreadsheetWriter.h>

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QVector>

#include <xlsxwriter.h>

#include <cstdio>

namespace UICommonMdl {

namespace {

constexpr int MaxRows = 1048576;
constexpr int MaxCellCharacters = 32767;
constexpr int MaxColumnWidth = 48;

QString Translate(const char* pszText)
{
    return QCoreApplication::translate("CSpreadsheetWriter", pszText);
}

/// Control characters have no place in XML.
QByteArray CellText(QString sText)
{
    for (QChar& c : sText) {
        if (c.unicode() < 0x20 && c != QLatin1Char('\n') && c != QLatin1Char('\t'))
            c = QChar(QChar::ReplacementCharacter);
    }
    return sText.left(MaxCellCharacters).toUtf8();
}

void WriteRow(lxw_worksheet* pSheet, int nRow, const QStringList& row, lxw_format* pFormat)
{
    for (int nColumn = 0; nColumn < row.size(); ++nColumn)
        worksheet_write_string(
            pSheet, lxw_row_t(nRow), lxw_col_t(nColumn), CellText(row[nColumn]).constData(), pFormat);
}

void SetWidths(lxw_worksheet* pSheet, const QVector<int>& vecWidths)
{
    for (int nColumn = 0; nColumn < vecWidths.size(); ++nColumn)
        worksheet_set_column(pSheet, lxw_col_t(nColumn), lxw_col_t(nColumn),
            qBound(8, vecWidths[nColumn] + 2, MaxColumnWidth), nullptr);
}

/// Puts the written file in the place of the old one in one step.
QString Replace(const QString& sWritten, const QString& sPath)
{
    if (std::rename(QFile::encodeName(sWritten).constData(), QFile::encodeName(sPath).constData()) == 0)
        return {};
    QFile::remove(sWritten);
    return Translate("The file cannot be written.");
}

} // namespace

QString CSpreadsheetWriter::Write(const QString& sPath, const QString& sSheetName,
    const QStringList& listHeader, const std::function<bool(QStringList& row)>& next)
{
    const QString sWritten = sPath + QStringLiteral(".part");
    const QByteArray folder = QFile::encodeName(QFileInfo(sPath).absolutePath());
    lxw_workbook_options options{};
    options.constant_memory = LXW_TRUE;
    options.tmpdir = const_cast<char*>(folder.constData());
    lxw_workbook* pBook = workbook_new_opt(QFile::encodeName(sWritten).constData(), &options);
    if (!pBook)
        return Translate("The file cannot be written.");
    lxw_worksheet* pSheet = workbook_add_worksheet(pBook, sSheetName.toUtf8().constData());
    if (!pSheet) {
        workbook_close(pBook);
        QFile::remove(sWritten);
        return Translate("The file cannot be written.");
    }
    lxw_format* pBold = workbook_add_format(pBook);
    format_set_bold(pBold);

    QVector<int> vecWidths;
    for (const QString& sHeader : listHeader)
        vecWidths.append(sHeader.size());
    WriteRow(pSheet, 0, listHeader, pBold);
    int nRow = 1;
    bool bTooMany = false;
    for (QStringList row; !bTooMany && next(row); ++nRow) {
        bTooMany = nRow >= MaxRows;
        if (bTooMany)
            break;
        WriteRow(pSheet, nRow, row, nullptr);
        for (int i = 0; i < qMin(row.size(), vecWidths.size()); ++i)
            vecWidths[i] = qMax(vecWidths[i], row[i].size());
        row.clear();
    }
    SetWidths(pSheet, vecWidths);
    worksheet_freeze_panes(pSheet, 1, 0);
    if (!listHeader.isEmpty())
        worksheet_autofilter(pSheet, 0, 0, lxw_row_t(nRow - 1), lxw_col_t(listHeader.size() - 1));
    const lxw_error error = workbook_close(pBook);
    if (bTooMany || error != LXW_NO_ERROR) {
        QFile::remove(sWritten);
        return bTooMany ? Translate("A spreadsheet cannot hold so many rows.")
                        : Translate("The file cannot be written.");
    }
    return Replace(sWritten, sPath);
}

} // namespace UICommonMdl

#pragma once

#include <GroupLogical/GroupRecords.h>
#include <RemoteConfigLogical/RemoteConfigRecords.h>

#include <QString>

#include <optional>

class QByteArray;

namespace ResourceManagerUI {

enum class ImportFileKind
{
    Unknown,
    Xml,
    Spreadsheet
};
/// By the ending alone, which has to be in lower case.
ImportFileKind GetImportFileKind(const QString& sPath);

inline constexpr int MaxSpreadsheetKb = 200;
/// Sizes in bytes count in whole kilobytes.
bool IsSpreadsheetTooLarge(qint64 nBytes);

/// Adds the session's token to an address that has none. Addresses come with a query, so that it is always
/// one more part of it; an empty one stays empty.
QString AppendToken(const QString& sUrl, const QString& sToken);

/// What the server found in an uploaded sheet.
struct UploadedSheet
{
    QString sJob; ///< never empty
    int nRows = 0;
    int nExisting = 0; ///< rows of devices that exist already
    bool bIntercom = false;
};
/// None when the answer cannot be read.
std::optional<UploadedSheet> ParseUploadAnswer(const QByteArray& baAnswer);

/// 0 to 100, 100 only when every row is done.
int GetImportPercent(const GroupLogical::ImportState_t& state);

/// Why the list of a cloud account did not come. nCloudCode counts when the account service refused.
QString GetP2PFailureText(int nErrorCode, int nCloudCode);
GroupLogical::ImportRow_t MakeP2PRow(const RemoteConfigLogical::P2PDevice_t& device, int nLine);

/// A row that was sent, or the whole of what is known about one.
struct ImportedRow
{
    int nLine = 0;
    std::string sName;
    std::string sAddress;
};
std::vector<ImportedRow> GetImportedRows(const std::vector<GroupLogical::ImportRow_t>& vecRows);

/// One line of the result.
struct ImportResultRow
{
    ImportedRow row;
    bool bFailed = false;
    std::string sField;
    std::string sReason; ///< translated

    bool operator==(const ImportResultRow& other) const
    {
        return row.nLine == other.row.nLine && row.sName == other.row.sName
            && row.sAddress == other.row.sAddress && bFailed == other.bFailed && sField == other.sField
            && sReason == other.sReason;
    }
};
/// The rows in the order of the file. Rows that are not among the failures went the way of the import as a
/// whole: optRest is its error code, or empty when that is not known, and then they are left out.
std::vector<ImportResultRow> MakeImportResult(const std::vector<ImportedRow>& vecRows,
    const std::vector<GroupLogical::ImportFailure_t>& vecFailed, std::optional<int> optRest);

/// What the result page says. The icon is one of the common set.
struct ImportSummary
{
    QString sTitle;
    QString sText; ///< may be empty
    QString sIcon;
};
ImportSummary GetImportSummary(
    const GroupLogical::ImportState_t& state, int nErrorCode, const QString& sErrorDetail);

/// Rows without a fault so far, while the import runs.
int GetLiveSuccesses(const GroupLogical::ImportState_t& state, bool bAllOrNothing);

/// Whether an answer with that code leaves open what became of the import.
bool IsOutcomeUnknown(int nErrorCode);

} // namespace ResourceManagerUI

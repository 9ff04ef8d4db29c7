#include "ImportRules.h"

#include <UICommonMdl/CErrorCode.h>
#include <common/Prompt.h>

#include <QCoreApplication>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

namespace ResourceManagerUI {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CDevImport)
};

constexpr int CloudListEmpty = 1;

std::string GetReasonText(int nErrorCode, const std::string& sDetail)
{
    QString sText = UICommonMdl::CErrorCode::GetErroCodeInfor(nErrorCode);
    const QString sWords = QString::fromStdString(sDetail);
    if (!sText.isEmpty() && !sWords.isEmpty())
        sText += QLatin1Char(' ');
    sText += sWords;
    return sText.toStdString();
}

} // namespace

ImportFileKind GetImportFileKind(const QString& sPath)
{
    const QString sEnding = QFileInfo(sPath).suffix();
    if (sEnding == QLatin1String("xml"))
        return ImportFileKind::Xml;
    if (sEnding == QLatin1String("xlsx") || sEnding == QLatin1String("xls"))
        return ImportFileKind::Spreadsheet;
    return ImportFileKind::Unknown;
}

bool IsSpreadsheetTooLarge(qint64 nBytes)
{
    return nBytes / 1024 > MaxSpreadsheetKb;
}

QString AppendToken(const QString& sUrl, const QString& sToken)
{
    if (sUrl.isEmpty() || sUrl.contains(QStringLiteral("token=")))
        return sUrl;
    return sUrl + QStringLiteral("&token=") + sToken;
}

std::optional<UploadedSheet> ParseUploadAnswer(const QByteArray& baAnswer)
{
    const QJsonObject answer = QJsonDocument::fromJson(baAnswer).object();
    UploadedSheet sheet;
    sheet.sJob = answer.value(QStringLiteral("sJob")).toString();
    sheet.nRows = answer.value(QStringLiteral("nRows")).toInt(-1);
    sheet.nExisting = answer.value(QStringLiteral("nExisting")).toInt(-1);
    sheet.bIntercom = answer.value(QStringLiteral("bIntercom")).toBool();
    if (sheet.sJob.isEmpty() || sheet.nRows < 0 || sheet.nExisting < 0)
        return std::nullopt;
    return sheet;
}

int GetImportPercent(const GroupLogical::ImportState_t& state)
{
    if (state.nTotal <= 0)
        return 0;
    const auto nPercent = static_cast<qint64>(state.nDone) * 100 / state.nTotal;
    return static_cast<int>(std::clamp<qint64>(nPercent, 0, 100));
}

QString GetP2PFailureText(int nErrorCode, int nCloudCode)
{
    if (nErrorCode != UICommonMdl::ErrorCloudRefused)
        return Common::FailureText(Text::tr("Failed to get P2P device list."), nErrorCode);
    const QString sReason =
        nCloudCode == CloudListEmpty ? Text::tr("Device list is empty") : Text::tr("Password error");
    return Text::tr("Failed to get P2P device list: %1%2")
        .arg(QString::number(nCloudCode) + QLatin1Char(' '), sReason);
}

GroupLogical::ImportRow_t MakeP2PRow(const RemoteConfigLogical::P2PDevice_t& device, int nLine)
{
    GroupLogical::ImportRow_t row;
    row.nLine = nLine;
    row.sName = device.sName.empty() ? device.sSerialNumber : device.sName;
    row.sConnect = std::to_string(GroupLogical::AddByP2P);
    row.sModel = device.sModel;
    row.sSerialNumber = device.sSerialNumber;
    if (device.nCategory != 0)
        row.sCategory = std::to_string(device.nCategory);
    return row;
}

std::vector<ImportedRow> GetImportedRows(const std::vector<GroupLogical::ImportRow_t>& vecRows)
{
    std::vector<ImportedRow> vecResult;
    vecResult.reserve(vecRows.size());
    for (const GroupLogical::ImportRow_t& row : vecRows) {
        // What the device is reached by stands for its address.
        const std::string* pAddress = &row.sAddress;
        for (const std::string* pOther : {&row.sDomain, &row.sRegisterId, &row.sSerialNumber}) {
            if (pAddress->empty())
                pAddress = pOther;
        }
        vecResult.push_back({row.nLine, row.sName, *pAddress});
    }
    return vecResult;
}

std::vector<ImportResultRow> MakeImportResult(const std::vector<ImportedRow>& vecRows,
    const std::vector<GroupLogical::ImportFailure_t>& vecFailed, std::optional<int> optRest)
{
    std::vector<ImportResultRow> vecResult;
    vecResult.reserve(vecRows.size());
    std::vector<int> vecLines;
    for (const GroupLogical::ImportFailure_t& failure : vecFailed) {
        vecResult.push_back({{failure.nLine, failure.sName, failure.sAddress}, true, failure.sField,
            GetReasonText(failure.nErrorCode, failure.sReason)});
        vecLines.push_back(failure.nLine);
    }
    std::sort(vecLines.begin(), vecLines.end());
    if (optRest) {
        const bool bFailed = *optRest != UICommonMdl::ErrorNone;
        const std::string sReason = GetReasonText(*optRest, {});
        for (const ImportedRow& row : vecRows) {
            if (!std::binary_search(vecLines.begin(), vecLines.end(), row.nLine))
                vecResult.push_back({row, bFailed, {}, sReason});
        }
    }
    std::stable_sort(
        vecResult.begin(), vecResult.end(), [](const ImportResultRow& first, const ImportResultRow& second) {
            return first.row.nLine < second.row.nLine;
        });
    return vecResult;
}

ImportSummary GetImportSummary(
    const GroupLogical::ImportState_t& state, int nErrorCode, const QString& sErrorDetail)
{
    if (nErrorCode == UICommonMdl::ErrorNone && state.nFailed == 0)
        return {Text::tr("Imported successfully"), {}, QStringLiteral("success")};
    if (nErrorCode == UICommonMdl::ErrorNone && state.nSucceeded > 0) {
        return {Text::tr("Partly imported"),
            Text::tr("%1 of %2 devices were imported, %3 were not.")
                .arg(state.nSucceeded)
                .arg(state.nTotal)
                .arg(state.nFailed),
            QStringLiteral("warning")};
    }
    QString sText = QString::fromStdString(GetReasonText(nErrorCode, sErrorDetail.toStdString()));
    if (IsOutcomeUnknown(nErrorCode)) {
        sText += QLatin1Char(' ')
            + Text::tr("The server may go on with the import: look at the list of devices later.");
    }
    return {Text::tr("Import Failed"), sText, QStringLiteral("error")};
}

int GetLiveSuccesses(const GroupLogical::ImportState_t& state, bool bAllOrNothing)
{
    if (bAllOrNothing && state.nFailed > 0)
        return 0;
    return std::max({0, state.nSucceeded, state.nDone - state.nFailed});
}

bool IsOutcomeUnknown(int nErrorCode)
{
    return nErrorCode == UICommonMdl::ErrorTimeOut || nErrorCode == UICommonMdl::ErrorDisconnected
        || nErrorCode == UICommonMdl::ErrorBadAnswer;
}

} // namespace ResourceManagerUI

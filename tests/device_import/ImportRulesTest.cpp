#include <ResourceManagerUI/DeviceImport/CImportResultModel.h>
#include <ResourceManagerUI/DeviceImport/ImportRules.h>
#include <UICommonMdl/ErrorCodes.h>

#include <gtest/gtest.h>

using namespace ResourceManagerUI;

namespace {

TEST(ImportRules, KindGoesByTheEndingInLowerCase)
{
    const std::pair<const char*, ImportFileKind> cases[] = {{"/a/devices.xml", ImportFileKind::Xml},
        {"devices.xlsx", ImportFileKind::Spreadsheet}, {"a.b.xls", ImportFileKind::Spreadsheet},
        {"devices.XML", ImportFileKind::Unknown}, {"devices.Xlsx", ImportFileKind::Unknown},
        {"devices.xml.bak", ImportFileKind::Unknown}, {"/xml/devices", ImportFileKind::Unknown}};
    for (const auto& [pszPath, kind] : cases)
        EXPECT_EQ(GetImportFileKind(QString::fromLatin1(pszPath)), kind) << pszPath;
}

TEST(ImportRules, SpreadsheetSizeCountsInWholeKilobytes)
{
    EXPECT_FALSE(IsSpreadsheetTooLarge(204800));
    EXPECT_FALSE(IsSpreadsheetTooLarge(205823));
    EXPECT_TRUE(IsSpreadsheetTooLarge(205824));
}

TEST(ImportRules, TokenIsAddedOnce)
{
    const std::pair<const char*, const char*> cases[] = {{"", ""},
        {"/template?kind=1", "/template?kind=1&token=T"}, {"/template", "/template&token=T"},
        {"/template?token=other", "/template?token=other"}};
    for (const auto& [pszUrl, pszExpected] : cases)
        EXPECT_EQ(AppendToken(QString::fromLatin1(pszUrl), QStringLiteral("T")), QLatin1String(pszExpected));
}

TEST(ImportRules, UploadAnswerHasToBeWhole)
{
    const auto optSheet = ParseUploadAnswer(R"({"sJob":"j1","nRows":5,"nExisting":2,"bIntercom":true})");
    ASSERT_TRUE(optSheet);
    EXPECT_EQ(optSheet->sJob, QStringLiteral("j1"));
    EXPECT_EQ(optSheet->nRows, 5);
    EXPECT_EQ(optSheet->nExisting, 2);
    EXPECT_TRUE(optSheet->bIntercom);
    for (const char* const pszBad : {"", "[]", "<html/>", R"({"sJob":"","nRows":1,"nExisting":0})",
             R"({"sJob":"j","nRows":"1","nExisting":0})", R"({"sJob":"j","nRows":1})"})
        EXPECT_FALSE(ParseUploadAnswer(pszBad)) << pszBad;
}

TEST(ImportRules, AccountFailuresNameTheirReason)
{
    const std::tuple<int, int, const char*> cases[] = {
        {UICommonMdl::ErrorCloudRefused, 1, "Failed to get P2P device list: 1 Device list is empty"},
        {UICommonMdl::ErrorCloudRefused, 7, "Failed to get P2P device list: 7 Password error"},
        {UICommonMdl::ErrorCloudUnreachable, 0,
            "Failed to get P2P device list. The cloud account service cannot be reached."}};
    for (const auto& [nError, nCloud, pszExpected] : cases)
        EXPECT_EQ(GetP2PFailureText(nError, nCloud), QLatin1String(pszExpected));
}

TEST(ImportRules, SummaryClaimsNoSuccessThatIsNotWhole)
{
    const struct
    {
        int nSucceeded;
        int nFailed;
        int nError;
        const char* pszTitle;
        const char* pszPart;
    } cases[] = {{3, 0, 0, "Imported successfully", ""},
        {3, 2, 0, "Partly imported", "3 of 5 devices were imported, 2 were not."},
        {0, 5, 0, "Import Failed", ""},
        {0, 5, UICommonMdl::ErrorImportAborted, "Import Failed", "Nothing was imported"},
        {0, 0, UICommonMdl::ErrorDisconnected, "Import Failed", "The server may go on"}};
    for (const auto& testCase : cases) {
        GroupLogical::ImportState_t state;
        state.nTotal = testCase.nSucceeded + testCase.nFailed;
        state.nSucceeded = testCase.nSucceeded;
        state.nFailed = testCase.nFailed;
        const ImportSummary summary = GetImportSummary(state, testCase.nError, {});
        EXPECT_EQ(summary.sTitle, QLatin1String(testCase.pszTitle));
        EXPECT_TRUE(summary.sText.contains(QLatin1String(testCase.pszPart))) << qPrintable(summary.sText);
    }
}

TEST(ImportRules, RowsWithoutAFailureGoTheWayOfTheWhole)
{
    const std::vector<ImportedRow> vecRows{{3, "a", "1"}, {4, "b", "2"}, {5, "c", "3"}};
    const std::vector<GroupLogical::ImportFailure_t> vecFailed{
        {9, "z", "", "", 0, "own words"}, {4, "b", "2", "Port", UICommonMdl::ErrorInvalidInput, ""}};
    const auto vecGood = MakeImportResult(vecRows, vecFailed, UICommonMdl::ErrorNone);
    ASSERT_EQ(vecGood.size(), 4U);
    EXPECT_FALSE(vecGood[0].bFailed);
    EXPECT_EQ(vecGood[1].row.nLine, 4);
    EXPECT_TRUE(vecGood[1].bFailed);
    EXPECT_EQ(vecGood[1].sField, "Port");
    EXPECT_FALSE(vecGood[2].bFailed);
    EXPECT_EQ(vecGood[3].sReason, "own words");
    const auto vecAborted = MakeImportResult(vecRows, vecFailed, UICommonMdl::ErrorImportAborted);
    ASSERT_EQ(vecAborted.size(), 4U);
    EXPECT_TRUE(vecAborted[0].bFailed && vecAborted[2].bFailed);
    EXPECT_EQ(MakeImportResult(vecRows, vecFailed, std::nullopt).size(), 2U) << "not known: left out";
}

TEST(ImportRules, ResultTableHoldsAllRowsOrTheFailedOnes)
{
    std::vector<ImportResultRow> vecRows(100000);
    for (int i = 0; i < 100000; ++i)
        vecRows[static_cast<std::size_t>(i)] = {{i + 1, "n", "a"}, i % 1000 == 999, {}, {}};
    CImportResultModel model;
    model.SetRows(std::move(vecRows));
    EXPECT_EQ(model.rowCount(), 100000);
    model.SetOnlyFailed(true);
    ASSERT_EQ(model.rowCount(), 100);
    EXPECT_EQ(model.index(1, CImportResultModel::ColumnLine).data().toString(), QStringLiteral("2000"));
    EXPECT_EQ(model.index(1, CImportResultModel::ColumnStatus).data().toString(), QStringLiteral("Failed"));
}

} // namespace

#include "ServiceError.h"
#include "import/DeviceSheet.h"
#include "import/SheetFile.h"

#include <UICommonMdl/ErrorCodes.h>

#include <archive.h>
#include <archive_entry.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <random>

namespace ServerTest {

using namespace UICommonMdl;
using namespace Platform;

namespace {

using Parts = std::vector<std::pair<std::string, std::string>>;

QByteArray Zip(const Parts& parts)
{
    std::string sFile(64 * 1024 * 1024, '\0');
    std::size_t nUsed = 0;
    archive* const pArchive = archive_write_new();
    archive_write_set_format_zip(pArchive);
    archive_write_open_memory(pArchive, sFile.data(), sFile.size(), &nUsed);
    for (const auto& [sName, sContent] : parts) {
        archive_entry* const pEntry = archive_entry_new();
        archive_entry_set_pathname(pEntry, sName.c_str());
        archive_entry_set_size(pEntry, static_cast<la_int64_t>(sContent.size()));
        archive_entry_set_filetype(pEntry, AE_IFREG);
        archive_entry_set_perm(pEntry, 0644);
        archive_write_header(pArchive, pEntry);
        archive_write_data(pArchive, sContent.data(), sContent.size());
        archive_entry_free(pEntry);
    }
    archive_write_close(pArchive);
    archive_write_free(pArchive);
    return QByteArray(sFile.data(), static_cast<int>(nUsed));
}

/// A workbook whose only sheet has that content.
QByteArray Book(const std::string& sRows, const std::string& sStrings = "<sst/>")
{
    return Zip({{"xl/workbook.xml",
                    R"(<workbook xmlns:r="r"><sheets><sheet name="a" r:id="rId1"/></sheets></workbook>)"},
        {"xl/_rels/workbook.xml.rels",
            R"(<Relationships><Relationship Id="rId1" Target="worksheets/sheet1.xml"/></Relationships>)"},
        {"xl/sharedStrings.xml", sStrings},
        {"xl/worksheets/sheet1.xml", "<worksheet><sheetData>" + sRows + "</sheetData></worksheet>"}});
}

int CodeOf(const std::function<void()>& work)
{
    try {
        work();
        return ErrorNone;
    } catch (const ServiceError& error) {
        return error.Code();
    }
}

} // namespace

TEST(SheetTest, CellsOfEveryWritingAreRead)
{
    const auto vecRows = SheetFile::Read(Book(
        R"(<row r="3"><c r="A3" t="s"><v>1</v></c><c r="C3" t="inlineStr"><is><t>in</t></is></c>)"
        R"(<c r="D3"><v>37777</v></c><c r="E3"><f>1+1</f><v>2</v></c></row><row r="4"/>)"
        R"(<row r="9"><c t="s"><v>0</v></c></row>)",
        R"(<sst><si><r><t>ri</t></r><r><t>ch</t></r><rPh><t>no</t></rPh></si><si><t>plain</t></si></sst>)"));
    ASSERT_EQ(vecRows.size(), 2U);
    EXPECT_EQ(vecRows[0].nLine, 3);
    EXPECT_EQ(vecRows[0].vecCells[0].sText, "plain");
    EXPECT_EQ(vecRows[0].vecCells[1].sText, "");
    EXPECT_EQ(vecRows[0].vecCells[2].sText, "in");
    EXPECT_EQ(vecRows[0].vecCells[3].sText, "37777");
    EXPECT_TRUE(vecRows[0].vecCells[4].bFormula);
    EXPECT_EQ(vecRows[1].nLine, 9);
    EXPECT_EQ(vecRows[1].vecCells[0].sText, "rich");
}

TEST(SheetTest, FilesThatAreNoneAndFilesThatSwellAreRefused)
{
    const std::string sMegabyte(1024 * 1024, ' ');
    std::string sSwell;
    for (int n = 0; n < 40; ++n)
        sSwell += sMegabyte;
    std::string sManyRows;
    for (std::size_t n = 0; n <= SheetFile::RowLimit; ++n)
        sManyRows += "<row><c><v>1</v></c></row>";
    std::string sOneTextEverywhere;
    for (int nRow = 0; nRow < 2000; ++nRow) {
        sOneTextEverywhere += "<row>";
        for (int n = 0; n < 20; ++n)
            sOneTextEverywhere += R"(<c t="s"><v>0</v></c>)";
        sOneTextEverywhere += "</row>";
    }
    const QByteArray good = Book("<row><c><v>1</v></c></row>");
    struct Case
    {
        const char* szWhat;
        QByteArray file;
        int nCode = ErrorNotSpreadsheet;
    };
    const std::vector<Case> vecCases{
        {"nothing", ""},
        {"text", "Device Name;Port"},
        {"another zip", Zip({{"readme.txt", "hello"}})},
        {"cut", good.left(good.size() / 2)},
        {"no sheet", Zip({{"xl/workbook.xml", "<workbook/>"}, {"xl/_rels/workbook.xml.rels", "<a/>"}})},
        {"not XML", Book("<row><c></row>")},
        {"entities", Book("<row/>", "<!DOCTYPE a [<!ENTITY x \"y\">]><sst/>")},
        {"swelling part", Book(sSwell)},
        {"a text that is not there", Book(R"(<row><c t="s"><v>5</v></c></row>)")},
        {"one text everywhere", Book(sOneTextEverywhere, "<sst><si><t>" + sMegabyte + "</t></si></sst>")},
        {"rows", Book(sManyRows), ErrorTooManyRows},
        {"old format, cut", QByteArray("\xd0\xcf\x11\xe0\xa1\xb1\x1a\xe1", 8).append(QByteArray(600, '\0'))},
    };
    for (const Case& c : vecCases)
        EXPECT_EQ(CodeOf([&] { SheetFile::Read(c.file); }), c.nCode) << c.szWhat;
    EXPECT_EQ(CodeOf([&] { SheetFile::Read(good); }), ErrorNone);
}

TEST(SheetTest, BytesThatChangedOnTheWayNeverDoMoreThanFail)
{
    GroupLogical::ImportRow_t row;
    row.sName = "Gate";
    row.sAddress = "10.0.0.1";
    const QByteArray good = DeviceSheet::FailureList(DeviceSheet::Kind::Devices, {row, row}, {"x", "y"});
    std::mt19937 random(7);
    for (int nRound = 0; nRound < 300; ++nRound) {
        QByteArray bad = good;
        for (int n = 0; n < 8; ++n)
            bad[int(random() % unsigned(bad.size()))] = char(random());
        const int nCode = CodeOf([&] { DeviceSheet::Read(bad); });
        EXPECT_THAT(
            nCode, testing::AnyOf(ErrorNone, ErrorNotSpreadsheet, ErrorSheetColumns, ErrorTooManyRows));
    }
}

TEST(SheetTest, ColumnsAreFoundByTheirHeadings)
{
    using Rows = std::vector<std::vector<std::string>>;
    const auto read = [](const Rows& vecRows) { return DeviceSheet::Read(SheetFile::Write("a", vecRows)); };
    const auto content = read({{"port", "", "Reason", "PASSWORD ", "User Name", "IP Address", "Device Name"},
        {"80", "note", "old", "pw", "me", "10.0.0.1", "Gate"}});
    ASSERT_EQ(content.vecRows.size(), 1U);
    EXPECT_EQ(content.vecRows[0].sName, "Gate");
    EXPECT_EQ(content.vecRows[0].sPort, "80");
    EXPECT_EQ(content.vecRows[0].nLine, 2);
    const std::vector<Rows> vecBad{{{"Device Name", "IP Address", "Port", "User Name"}},
        {{"Device Name", "IP Address", "Port", "User Name", "Password", "Colour"}},
        {{"Device Name", "IP Address", "Port", "User Name", "Password", "Port"}}, {{"Gate", "10.0.0.1"}}};
    for (const Rows& rows : vecBad)
        EXPECT_EQ(CodeOf([&] { read(rows); }), ErrorSheetColumns) << rows[0].back();
    EXPECT_TRUE(DeviceSheet::Read(DeviceSheet::Template(DeviceSheet::Kind::Intercom)).vecRows.empty());
}

} // namespace ServerTest

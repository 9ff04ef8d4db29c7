#include <UICommonMdl/CSpreadsheetWriter.h>

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QXmlStreamReader>

#include <gtest/gtest.h>

namespace {

using UICommonMdl::CSpreadsheetWriter;
using Table = QVector<QStringList>;

QByteArray Unpack(const QString& sPath, const QString& sMember)
{
    QProcess unzip;
    unzip.start(QStringLiteral("unzip"), {QStringLiteral("-p"), sPath, sMember});
    EXPECT_TRUE(unzip.waitForFinished());
    EXPECT_EQ(unzip.exitCode(), 0) << unzip.readAllStandardError().constData();
    return unzip.readAllStandardOutput();
}

/// The cells of the first sheet as another program reads them; a cell that is no text fails the test.
Table ReadBack(const QString& sPath)
{
    Table table;
    QXmlStreamReader xml(Unpack(sPath, QStringLiteral("xl/worksheets/sheet1.xml")));
    while (!xml.atEnd()) {
        xml.readNext();
        if (!xml.isStartElement())
            continue;
        if (xml.name() == QLatin1String("row"))
            table.append(QStringList());
        else if (xml.name() == QLatin1String("c"))
            EXPECT_EQ(xml.attributes().value(QLatin1String("t")), QLatin1String("inlineStr"));
        else if (xml.name() == QLatin1String("t"))
            table.last().append(xml.readElementText());
        else
            EXPECT_NE(xml.name(), QLatin1String("f")) << "a formula";
    }
    EXPECT_FALSE(xml.hasError()) << qPrintable(xml.errorString());
    return table;
}

class Spreadsheet : public testing::Test
{
protected:
    QString Write(const QString& sPath, const Table& table, const QString& sSheet = QStringLiteral("Device"))
    {
        int nRow = 1;
        return CSpreadsheetWriter::Write(sPath, sSheet, table.first(), [&](QStringList& row) {
            if (nRow >= table.size())
                return false;
            row = table[nRow++];
            return true;
        });
    }
    QStringList Files() const
    {
        return QDir(m_folder.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }

    QTemporaryDir m_folder;
    QString m_sPath = m_folder.filePath(QStringLiteral("list.xlsx"));
};

TEST_F(Spreadsheet, TextsComeBackAsTheyWere)
{
    const Table table = {{QStringLiteral("Name"), QStringLiteral("Value")},
        {QStringLiteral("Markup"), QStringLiteral("<b>\"Tür\" & 'Tor'</b>")},
        {QStringLiteral("Other scripts"), QString::fromUtf8("摄像机 камера 🎥")},
        {QStringLiteral("Formula"), QStringLiteral("=HYPERLINK(\"http://example.com\",\"x\")")},
        {QStringLiteral("Formula"), QStringLiteral("+1+1")},
        {QStringLiteral("Formula"), QStringLiteral("@SUM(A1)")},
        {QStringLiteral("Digits"), QStringLiteral("007")},
        {QStringLiteral("Long digits"), QStringLiteral("12345678901234567890")},
        {QStringLiteral("Blanks"), QStringLiteral("  kept  ")},
        {QStringLiteral("Lines"), QStringLiteral("one\ntwo")}};
    EXPECT_EQ(Write(m_sPath, table), QString());
    EXPECT_EQ(ReadBack(m_sPath), table);
    EXPECT_EQ(Files(), QStringList{QStringLiteral("list.xlsx")});
}

TEST_F(Spreadsheet, CharactersThatXmlForbidsDoNotSpoilTheFile)
{
    const Table table = {{QStringLiteral("Name")},
        {QStringLiteral("a") + QChar(1) + QChar(0x1f) + QStringLiteral("b")}, {QStringLiteral("after")}};
    EXPECT_EQ(Write(m_sPath, table), QString());
    const Table readBack = ReadBack(m_sPath);
    ASSERT_EQ(readBack.size(), 3);
    EXPECT_TRUE(readBack[1].first().startsWith(QLatin1Char('a')));
    EXPECT_TRUE(readBack[1].first().endsWith(QLatin1Char('b')));
    EXPECT_EQ(readBack[2].first(), QStringLiteral("after"));
}

TEST_F(Spreadsheet, ListWithoutRowsIsAHeader)
{
    const Table table = {{QStringLiteral("Device ID"), QStringLiteral("Device Name")}};
    EXPECT_EQ(Write(m_sPath, table), QString());
    EXPECT_EQ(ReadBack(m_sPath), table);
}

TEST_F(Spreadsheet, OldFileIsReplacedOnlyWhenTheNewOneIsComplete)
{
    QFile old(m_sPath);
    ASSERT_TRUE(old.open(QIODevice::WriteOnly));
    old.write("old");
    old.close();
    int nAsked = 0;
    const QString sError = CSpreadsheetWriter::Write(
        m_sPath, QStringLiteral("Device"), {QStringLiteral("Name")}, [&](QStringList& row) {
            EXPECT_TRUE(old.open(QIODevice::ReadOnly));
            EXPECT_EQ(old.readAll(), QByteArray("old"));
            old.close();
            row = QStringList{QStringLiteral("new")};
            return ++nAsked <= 3;
        });
    EXPECT_EQ(sError, QString());
    EXPECT_EQ(ReadBack(m_sPath).size(), 4);
}

TEST_F(Spreadsheet, FailureIsToldAndLeavesNothing)
{
    const Table table = {{QStringLiteral("Name")}, {QStringLiteral("Gate")}};
    EXPECT_NE(Write(m_folder.filePath(QStringLiteral("missing/list.xlsx")), table), QString());
    EXPECT_NE(Write(m_sPath, table, QStringLiteral("a/b")), QString()) << "a sheet cannot have this name";
    EXPECT_EQ(Files(), QStringList());

    const QString sFolder = m_folder.filePath(QStringLiteral("folder.xlsx"));
    ASSERT_TRUE(QDir().mkdir(sFolder));
    EXPECT_NE(Write(sFolder, table), QString()) << "a folder is in the way";
    EXPECT_EQ(Files(), QStringList{QStringLiteral("folder.xlsx")});
}

} // namespace

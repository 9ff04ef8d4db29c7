#include <ResourceManagerUI/DeviceImport/CDeviceImportFile.h>

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace ResourceManagerUI;

namespace {

using File = CDeviceImportFile;
using Status = File::Status;

const QByteArray Head("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<DeviceManager version=\"2.0\">\n");
const QByteArray Foot("</DeviceManager>\n");

class ImportFile : public testing::Test
{
protected:
    Status Load(const QByteArray& baContent)
    {
        const QString sPath = m_folder.filePath(QStringLiteral("devices.xml"));
        QFile file(sPath);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(baContent) == baContent.size());
        file.close();
        m_pFile = std::make_unique<File>();
        return m_pFile->Load(sPath);
    }
    GroupLogical::ImportRow_t Row(std::size_t nRow) const
    {
        return File::MakeImportRow(m_pFile->GetRows().at(nRow));
    }

    QTemporaryDir m_folder;
    std::unique_ptr<File> m_pFile;
};

TEST_F(ImportFile, EveryAttributeGoesToItsField)
{
    ASSERT_EQ(Load(Head
                  + "<Device line=\"9\" reason=\"x\" name=\"n\" connect=\"1\" address=\"a\" domain=\"d\" "
                    "port=\"p\" "
                    "username=\"u\" password=\"pw\" category=\"c\" protocol=\"pr\" manufacturer=\"ma\" "
                    "model=\"mo\" sn=\"s\" registerid=\"r\" organization=\"o\"/>"
                  + Foot),
        Status::Read);
    const GroupLogical::ImportRow_t expected{
        3, "n", "1", "a", "d", "p", "u", "pw", "c", "pr", "ma", "mo", "s", "r", "o"};
    EXPECT_EQ(Row(0), expected);
}

/// What is plain is read in one pass, anything else by a parser: both have to see the same devices.
TEST_F(ImportFile, BothWaysOfReadingSeeTheSame)
{
    const struct
    {
        const char* pszDevice;
        const char* pszName;
        const char* pszAddress;
    } cases[] = {
        {"<Device name=\"Gate\" address=\"10.0.0.1\"/>", "Gate", "10.0.0.1"},
        {"<Device\taddress='10.0.0.1'\n  name='Gate \"A\"' />", "Gate \"A\"", "10.0.0.1"},
        {"<Device name=\"a &amp;&lt;&gt;&quot;&apos; b\" address=\"\"></Device>", "a &<>\"' b", ""},
        {"<Device name=\"&#65;&#x1F4F7;&#xe9;\" address=\" 10.0.0.1 \"/>", "A\xF0\x9F\x93\xB7\xC3\xA9",
            " 10.0.0.1 "},
        {"<Device name=\"Caf\xC3\xA9 \xE9\x97\xA8 \xF0\x9F\x93\xB7\"/>",
            "Caf\xC3\xA9 \xE9\x97\xA8 \xF0\x9F\x93\xB7", ""},
        {"<Device name=\"a\tb\nc\"/>", "a b c", ""},
        {"<!-- <Device name=\"old\"/> -->\n<Device name=\"new\"/>", "new", ""},
        {"<Device brand=\"x\" name=\"known\"/>", "known", ""},
        {"<Device address=\"10.0.0.1\" name=\"a > b\"/>", "a > b", "10.0.0.1"},
    };
    for (const auto& testCase : cases) {
        SCOPED_TRACE(testCase.pszDevice);
        for (const char* const pszBetween : {"", "<?other program?>"}) {
            ASSERT_EQ(Load(Head + "<Device name=\"first\"/>\n" + testCase.pszDevice + pszBetween
                          + "\n<Device name=\"last\"/>" + Foot),
                Status::Read);
            ASSERT_EQ(m_pFile->GetRows().size(), 3U);
            EXPECT_EQ(Row(1).sName, testCase.pszName);
            EXPECT_EQ(Row(1).sAddress, testCase.pszAddress);
            EXPECT_EQ(Row(0).nLine, 3);
            const auto nLines = 5 + QByteArray(testCase.pszDevice).count('\n');
            EXPECT_EQ(Row(2).nLine, nLines);
            EXPECT_TRUE(m_pFile->GetUnreadable().empty());
        }
    }
}

TEST_F(ImportFile, LinesAreCountedAlsoWithWindowsEndings)
{
    ASSERT_EQ(Load("\xEF\xBB\xBF<DeviceManager version=\"2\">\r\n<Device name=\"a\"/>\r\n\r\n<Device "
                   "name=\"b\"/>\r\n</DeviceManager>"),
        Status::Read);
    EXPECT_EQ(Row(0).nLine, 2);
    EXPECT_EQ(Row(1).nLine, 4);
}

TEST_F(ImportFile, WhatIsNoDeviceFileIsRefused)
{
    const QByteArray baDevice("<Device name=\"a\"/>");
    const struct
    {
        const char* pszCase;
        QByteArray baContent;
        Status expected;
    } cases[] = {
        {"nothing", "", Status::Invalid},
        {"no XML", "name,address\n", Status::Invalid},
        {"cut off", Head + baDevice, Status::Invalid},
        {"cut off in a value", Head + "<Device name=\"a", Status::Invalid},
        {"text behind it", Head + baDevice + Foot + "x", Status::Invalid},
        {"second root", Head + baDevice + Foot + "<DeviceManager version=\"2.0\"/>", Status::Invalid},
        {"root of another case", "<devicemanager version=\"2.0\">" + baDevice + "</devicemanager>",
            Status::Invalid},
        {"another root", "<Devices version=\"2.0\">" + baDevice + "</Devices>", Status::Invalid},
        {"no version", "<DeviceManager>" + baDevice + Foot, Status::Invalid},
        {"version without a number", "<DeviceManager version=\"two\">" + baDevice + Foot, Status::Invalid},
        {"old", "<DeviceManager version=\"1.9\">" + baDevice + Foot, Status::TooOld},
        {"old and empty", "<DeviceManager version=\"1.99\"/>", Status::TooOld},
        {"newer", "<DeviceManager version=\"10.1\">" + baDevice + Foot, Status::Read},
        {"empty", Head + Foot, Status::Empty},
        {"empty in short", "<DeviceManager version=\"2.0\"/>", Status::Empty},
        {"only a comment", Head + "<!-- <Device name=\"a\"/> -->" + Foot, Status::Empty},
        {"document type",
            "<!DOCTYPE DeviceManager [<!ENTITY e \"x\">]>" + Head.mid(39) + "<Device name=\"&e;\"/>" + Foot,
            Status::Invalid},
        {"unknown entity", Head + "<Device name=\"&nbsp;\"/>" + Foot, Status::Invalid},
        {"bare ampersand", Head + "<Device name=\"a & b\"/>" + Foot, Status::Invalid},
        {"reference to nothing", Head + "<Device name=\"&#0;\"/>" + Foot, Status::Invalid},
        {"attribute twice", Head + "<Device name=\"a\" name=\"b\"/>" + Foot, Status::Invalid},
        {"unknown attribute twice", Head + "<Device x=\"a\" x=\"b\"/>" + Foot, Status::Invalid},
        {"less-than in a value", Head + "<Device name=\"a<b\"/>" + Foot, Status::Invalid},
        {"no blank between attributes", Head + "<Device name=\"a\"port=\"1\"/>" + Foot, Status::Invalid},
        {"no quotes", Head + "<Device name=a/>" + Foot, Status::Invalid},
        {"control character", Head + "<Device name=\"a\x01\"/>" + Foot, Status::Invalid},
        {"Latin-1 bytes", Head + "<Device name=\"Caf\xE9\"/>" + Foot, Status::Invalid},
        {"overlong UTF-8", Head + "<Device name=\"\xC0\xAF\"/>" + Foot, Status::Invalid},
        {"another encoding", "<?xml version=\"1.0\" encoding=\"GBK\"?>" + Head.mid(39) + baDevice + Foot,
            Status::Invalid},
        {"UTF-16", QByteArray::fromHex("fffe3c0044003e00"), Status::Invalid},
        {"wrong end", Head + "<Device name=\"a\"></Camera>" + Foot, Status::Invalid},
    };
    for (const auto& testCase : cases)
        EXPECT_EQ(static_cast<int>(Load(testCase.baContent)), static_cast<int>(testCase.expected))
            << testCase.pszCase;
    EXPECT_EQ(File().Load(m_folder.filePath(QStringLiteral("missing.xml"))), Status::Unreadable);
    EXPECT_EQ(File().Load(m_folder.path()), Status::Unreadable);
}

TEST_F(ImportFile, WhatIsNoDeviceIsReportedWithItsLine)
{
    ASSERT_EQ(
        Load(Head
            + "<Device name=\"a\"/>\n<Camera name=\"c\" address=\"10.0.0.9\"/>\nwords\n"
              "<Device name=\"d\"><Channel/></Device>\n<Device name=\"b\"/>\n<Device name=\"long\" port=\""
            + QByteArray(70000, '1') + "\" model=\"m\"/>" + Foot),
        Status::Read);
    ASSERT_EQ(m_pFile->GetRows().size(), 2U);
    EXPECT_EQ(Row(1).nLine, 7);
    const auto& vecBad = m_pFile->GetUnreadable();
    ASSERT_EQ(vecBad.size(), 4U);
    EXPECT_EQ(vecBad[0].nLine, 4);
    EXPECT_EQ(vecBad[0].sName, "c");
    EXPECT_EQ(vecBad[0].sAddress, "10.0.0.9");
    EXPECT_EQ(vecBad[0].sReason, "The element \"Camera\" is not known.");
    EXPECT_EQ(vecBad[1].nLine, 5);
    EXPECT_EQ(vecBad[2].nLine, 6);
    EXPECT_EQ(vecBad[2].sName, "d");
    EXPECT_EQ(vecBad[3].nLine, 8);
    EXPECT_EQ(vecBad[3].sReason, "The texts of the device are too long.");
}

TEST_F(ImportFile, LargeFilesAreReadUpToTheLimit)
{
    const auto make = [](int nDevices) {
        std::string sFile = Head.toStdString();
        for (int i = 0; i < nDevices; ++i)
            sFile += "<Device name=\"Camera " + std::to_string(i) + "\" address=\"10.0.0.1\"/>\n";
        return QByteArray::fromStdString(sFile + Foot.toStdString());
    };
    ASSERT_EQ(Load(make(100000)), Status::Read);
    ASSERT_EQ(m_pFile->GetRows().size(), 100000U);
    for (const int nRow : {0, 65535, 99999}) {
        EXPECT_EQ(Row(static_cast<std::size_t>(nRow)).sName, "Camera " + std::to_string(nRow));
        EXPECT_EQ(Row(static_cast<std::size_t>(nRow)).nLine, nRow + 3);
    }
    EXPECT_EQ(Load(make(200000)), Status::Read);
    EXPECT_EQ(Load(make(200001)), Status::TooManyRows);
}

} // namespace

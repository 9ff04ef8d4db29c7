#include "AuditFixture.h"

#include <QProcess>
#include <QTemporaryDir>

using namespace PlatformConfigUI;

class AuditExportTest : public AuditFixture
{
protected:
    QString Path(const char* szName) const { return m_folder.filePath(QLatin1String(szName)); }
    void StartExport(const char* szName)
    {
        m_dialogs.ChooseNextFile(Path(szName));
        Click("btnExport");
    }
    VxGUI::VxWaitDialog* WaitDialog() { return m_pPage->findChild<VxGUI::VxWaitDialog*>(); }
    bool WaitForNotice(const QString& sText)
    {
        return PageDriver::WaitFor([&] { return Notice() == sText; });
    }
    static QByteArray Sheet(const QString& sPath)
    {
        QProcess unzip;
        unzip.start(QStringLiteral("unzip"),
            {QStringLiteral("-p"), sPath, QStringLiteral("xl/worksheets/sheet1.xml")});
        EXPECT_TRUE(unzip.waitForFinished());
        return unzip.readAllStandardOutput();
    }
    std::vector<FakeCall> Pieces() { return m_host.server.Calls<wire::ExportAudit>(); }

    QTemporaryDir m_folder;
};

TEST_F(AuditExportTest, ReadsTheWholeLogPieceByPiece)
{
    Open();
    Type("edtUser", "alice");
    m_pDriver->Key(QStringLiteral("edtUser"), Qt::Key_Return);
    Type("edtUser", "not searched for");
    StartExport("log");
    ASSERT_TRUE(WaitForNotice(QStringLiteral("The audit log is exported.")));
    const auto vecPieces = Pieces();
    ASSERT_EQ(vecPieces.size(), 3U);
    for (std::size_t n = 0; n < vecPieces.size(); ++n) {
        const auto request = vecPieces[n].Request<wire::ExportAudit>();
        EXPECT_EQ(request.nBelowId, n == 0 ? 0 : 2500 - std::int64_t(n) * 1000 + 1);
        EXPECT_EQ(request.nPageSize, 1000);
        EXPECT_EQ(request.sUserName, "alice");
    }
    const QByteArray sheet = Sheet(Path("log.xlsx"));
    EXPECT_EQ(sheet.count("<row "), 2501);
    EXPECT_TRUE(sheet.contains("Name: Gate, Port: 37777"));
    EXPECT_TRUE(sheet.contains("Client Address"));
    EXPECT_TRUE(PageDriver::WaitFor([&] { return !WaitDialog(); }));
}

TEST_F(AuditExportTest, StopsAtTheLimitAndSaysSo)
{
    Serve(120000);
    Open();
    StartExport("log.xlsx");
    ASSERT_TRUE(PageDriver::WaitFor([&] { return !Notice().isEmpty(); }, 240000));
    EXPECT_EQ(Notice(), QStringLiteral("The newest 100000 of 120000 entries are exported."));
    EXPECT_EQ(Pieces().size(), 100U);
}

TEST_F(AuditExportTest, CanBeCancelledBetweenPieces)
{
    m_host.server.Hold<wire::ExportAudit>();
    Open();
    StartExport("log.xlsx");
    ASSERT_TRUE(WaitDialog());
    Request piece;
    piece.nPageSize = 1000;
    m_host.server.AnswerLast<wire::ExportAudit>(MakePage(piece, 2500));
    PageDriver::Settle();
    ASSERT_EQ(Pieces().size(), 2U);
    Screenshot(WaitDialog(), "audit-export");
    QTest::keyClick(WaitDialog(), Qt::Key_Escape);
    EXPECT_TRUE(PageDriver::WaitFor([&] { return !WaitDialog(); }));
    m_host.server.AnswerLast<wire::ExportAudit>(MakePage(Request(), 5));
    PageDriver::Settle();
    EXPECT_EQ(Pieces().size(), 2U) << "a late piece goes nowhere";
    EXPECT_FALSE(QFile::exists(Path("log.xlsx")));

    // The next one begins anew.
    Serve(1000);
    StartExport("again.xlsx");
    ASSERT_TRUE(WaitForNotice(QStringLiteral("The audit log is exported.")));
    EXPECT_EQ(Sheet(Path("again.xlsx")).count("<row "), 1001);
}

TEST_F(AuditExportTest, FailuresAreToldAndLeaveNoFile)
{
    Open();
    m_dialogs.ChooseNextFile(QStringLiteral("/nowhere/at/all.xlsx"));
    Click("btnExport");
    EXPECT_TRUE(PageDriver::WaitFor(
        [&] { return Notice().startsWith(QStringLiteral("Failed to export the audit log: ")); }));

    m_host.server.FailAlways<wire::ExportAudit>(UICommonMdl::ErrorNoRight);
    StartExport("log.xlsx");
    EXPECT_TRUE(PageDriver::WaitFor([&] { return Notice().contains(QStringLiteral("right to do this")); }));
    EXPECT_FALSE(WaitDialog());

    m_host.server.Refuse<wire::ExportAudit>();
    StartExport("log.xlsx");
    EXPECT_EQ(Notice(),
        QStringLiteral("Failed to export the audit log: The request could not be sent to the server."));
    EXPECT_FALSE(QFile::exists(Path("log.xlsx")));
}

TEST_F(AuditExportTest, NeedsItsRight)
{
    m_host.SetMissingRights({"004003"});
    Open();
    EXPECT_FALSE(IsUsable("btnExport"));
    EXPECT_EQ(m_pDriver->Find(QStringLiteral("btnExport"))->toolTip(),
        QStringLiteral("You have no permission to export the audit log."));
    m_host.SetMissingRights({});
    PageDriver::Settle();
    EXPECT_TRUE(IsUsable("btnExport"));
}

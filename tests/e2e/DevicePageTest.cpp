#include "LiveClient.h"

#include <ResourceManagerUI/CBatchDeleteDeviceDlg.h>
#include <ResourceManagerUI/CDevMove.h>
#include <ResourceManagerUI/CDeviceManagerCtrl.h>
#include <ResourceManagerUI/CDeviceModel.h>
#include <ResourceManagerUI/COrganizationTreeCtrl.h>
#include <UICommonMdl/CErrorCode.h>
#include <common/CRowButtonDelegate.h>
#include <wire/Operations.h>

#include <QHeaderView>
#include <QLabel>
#include <QProcess>
#include <QTcpServer>

#include <gmock/gmock.h>

using namespace ResourceManagerUI;
using TestSupport::TestServer;
using TestSupport::TestServerOptions;

namespace {

TestServerOptions Demo()
{
    TestServerOptions options;
    options.bSeedDemo = true;
    return options;
}

class LiveDevicePage : public testing::Test
{
protected:
    explicit LiveDevicePage(const TestServerOptions& options = Demo())
        : m_server(options)
        , m_client(m_server)
    {
    }

    int CountDevices(const QString& sWhere = QStringLiteral("1 = 1"))
    {
        return m_server.QuerySql(QStringLiteral("SELECT COUNT(*) FROM device WHERE ") + sWhere).toInt();
    }

    /// Names of devices that nothing refers to and no task is at work on.
    QStringList FreeDevices(int nCount)
    {
        QStringList listNames;
        for (int i = 0; i < nCount; ++i) {
            listNames << m_server
                             .QuerySql(QStringLiteral(
                                 "SELECT name FROM device WHERE id NOT IN (SELECT device_id FROM "
                                 "device_reference) AND id NOT IN (SELECT device_id FROM "
                                 "device_task) ORDER BY id LIMIT 1 OFFSET %1")
                                           .arg(i))
                             .toString();
        }
        return listNames;
    }

    CBatchDeleteDeviceDlg* DeleteDialog() { return m_client.Page()->findChild<CBatchDeleteDeviceDlg*>(); }

    void CloseDeleteDialog()
    {
        QTest::mouseClick(DeleteDialog()->findChild<QWidget*>(QStringLiteral("btnClose")), Qt::LeftButton);
        m_client.WaitIdle();
    }

    RecordingDialogService m_dialogs;
    TestServer m_server;
    LiveClient m_client;
};

} // namespace

TEST_F(LiveDevicePage, ListsFiltersAndFindsWhatTheServerHolds)
{
    PageDriver& driver = m_client.OpenPage();
    EXPECT_EQ(m_client.Total(), CountDevices());
    EXPECT_EQ(m_client.Column(ColumnId).size(), 20);

    driver.Click(QStringLiteral("btnAccessDevice"));
    m_client.WaitIdle();
    EXPECT_EQ(m_client.Total(), CountDevices(QStringLiteral("category = 8")));
    EXPECT_THAT(m_client.Column(ColumnType), testing::Each(QStringLiteral("Access Control")));

    driver.Click(QStringLiteral("btnAllDevice"));
    m_client.WaitIdle();
    const QString sAddress =
        m_server.QuerySql(QStringLiteral("SELECT address FROM device WHERE address LIKE '127.%' LIMIT 1"))
            .toString();
    m_client.Search(sAddress);
    EXPECT_THAT(m_client.Column(ColumnIp), testing::Contains(sAddress));
    EXPECT_THAT(m_client.Column(ColumnIp),
        testing::Each(testing::ResultOf([&](const QString& sIp) { return sIp.contains(sAddress); }, true)));
    m_client.Search(QStringLiteral("no such device %"));
    EXPECT_EQ(m_client.Total(), 0);
    EXPECT_FALSE(driver.IsShown(QStringLiteral("treeDevice"))) << "an empty list says so";
    m_client.Search(QString());
    EXPECT_EQ(m_client.Total(), CountDevices());
}

TEST_F(LiveDevicePage, PagesFollowOneAnotherWithoutGapOrRepetition)
{
    PageDriver& driver = m_client.OpenPage();
    QStringList listIds = m_client.Column(ColumnId);
    while (driver.IsUsable(QStringLiteral("btnNextPage"))) {
        driver.Click(QStringLiteral("btnNextPage"));
        m_client.WaitIdle();
        listIds << m_client.Column(ColumnId);
    }
    EXPECT_EQ(listIds.size(), CountDevices());
    EXPECT_EQ(listIds.removeDuplicates(), 0);
}

TEST_F(LiveDevicePage, DeletedDevicesStayDeletedOverARestart)
{
    const int nBefore = CountDevices();
    const QStringList listNames = FreeDevices(7);
    m_client.OpenPage();
    m_client.Search(listNames[0]);
    m_client.CheckRow(listNames[0]);
    m_dialogs.AnswerNext(true);
    m_client.Driver().Click(QStringLiteral("btnDelete"));
    ASSERT_TRUE(DeleteDialog());
    PageDriver::WaitFor([&] {
        return DeleteDialog()->findChild<QLabel*>(QStringLiteral("lbResult"))->text()
            == QStringLiteral("Delete device complete!");
    });
    CloseDeleteDialog();
    EXPECT_EQ(m_client.Total(), 0) << "the page asks again when the dialog closes";

    m_server.Restart();
    m_client.WaitReconnected();
    m_client.Search(QString());
    EXPECT_EQ(m_client.Total(), nBefore - 1);
}

TEST_F(LiveDevicePage, AReferredDeviceIsRefusedAndGoesByForce)
{
    const QString sName =
        m_server
            .QuerySql(QStringLiteral("SELECT d.name FROM device d JOIN device_reference r ON "
                                     "r.device_id = d.id WHERE r.kind = 12 AND d.id NOT IN (SELECT "
                                     "device_id FROM device_task) ORDER BY d.id LIMIT 1"))
            .toString();
    m_client.OpenPage();
    m_client.Search(sName);
    m_client.CheckRow(sName);
    m_dialogs.AnswerNext(true);
    m_client.Driver().Click(QStringLiteral("btnDelete"));
    auto* pFailed = DeleteDialog()->findChild<QTreeView*>(QStringLiteral("tableFailed"));
    PageDriver::WaitFor([&] { return pFailed->model()->rowCount() == 1; });
    const QModelIndex reason = m_client.Driver().FindRow(
        pFailed, 1, sName + QStringLiteral(" Used by record plan, you cannot delete!"));
    ASSERT_TRUE(reason.isValid());
    EXPECT_EQ(CountDevices(QStringLiteral("name = '%1'").arg(sName)), 1);

    m_dialogs.AnswerNext(true);
    m_client.Driver().ClickIndex(pFailed, reason.siblingAtColumn(2));
    PageDriver::WaitFor([&] { return pFailed->model()->rowCount() == 0; });
    CloseDeleteDialog();
    EXPECT_EQ(CountDevices(QStringLiteral("name = '%1'").arg(sName)), 0);
}

TEST_F(LiveDevicePage, AServerKilledInABatchLeavesWholeDevicesAndThePageRecovers)
{
    const int nBefore = CountDevices();
    m_client.OpenPage();
    const QStringList listNames = m_client.Column(ColumnName);
    for (int i = 0; i < 12; ++i)
        m_client.Driver().ClickIndex(m_client.Table(), m_client.Table()->model()->index(i, ColumnCheck));
    m_server.Hold(std::string(wire::DeleteDevice::Name));
    m_dialogs.AnswerNext(true);
    m_client.Driver().Click(QStringLiteral("btnDelete"));
    PageDriver::WaitFor([&] { return m_server.RequestCount(std::string(wire::DeleteDevice::Name)) == 1; });
    m_server.Kill();
    PageDriver::WaitFor([&] { return !m_client.Driver().IsUsable(QStringLiteral("btnRefresh")); });
    PageDriver::WaitFor([&] {
        return DeleteDialog()->findChild<QTreeView*>(QStringLiteral("tableFailed"))->model()->rowCount() > 0;
    });
    m_server.Start();
    // The batches that still waited are sent and answered, one way or the other, before the dialog ends.
    PageDriver::WaitFor(
        [&] { return !DeleteDialog()->findChild<QLabel*>(QStringLiteral("lbResult"))->text().isEmpty(); });
    CloseDeleteDialog();
    m_client.WaitReconnected();
    EXPECT_EQ(m_client.Total(), CountDevices());
    EXPECT_LE(CountDevices(), nBefore);
    EXPECT_EQ(
        m_server
            .QuerySql(QStringLiteral("SELECT COUNT(*) FROM device_reference WHERE device_id NOT IN (SELECT "
                                     "id FROM device)"))
            .toInt(),
        0);
}

TEST_F(LiveDevicePage, OnlyTheLastOfSeveralSlowPagesIsShown)
{
    PageDriver& driver = m_client.OpenPage();
    m_server.Hold(std::string(wire::QueryDevicePage::Name));
    driver.Click(QStringLiteral("btnRaderDevice"));
    driver.Click(QStringLiteral("btnPOSDevice"));
    driver.Click(QStringLiteral("btnLedDevice"));
    m_server.Release(std::string(wire::QueryDevicePage::Name));
    m_client.WaitIdle();
    EXPECT_EQ(m_client.Total(), CountDevices(QStringLiteral("category = 16")));
    EXPECT_THAT(m_client.Column(ColumnType), testing::Each(QStringLiteral("LED Device")));
}

TEST_F(LiveDevicePage, FailuresOfTheServerAreToldAndTheNextTryWorks)
{
    m_client.OpenPage();
    const int nCodes[] = {
        UICommonMdl::ErrorDatabaseBusy, UICommonMdl::ErrorDatabaseFull, UICommonMdl::ErrorInternal};
    for (const int nCode : nCodes) {
        m_server.FailNext(std::string(wire::QueryDevicePage::Name), nCode);
        m_client.Driver().Click(QStringLiteral("btnRefresh"));
        m_client.WaitIdle();
        EXPECT_TRUE(m_client.Notice().contains(QStringLiteral("Failed to get device list")))
            << qPrintable(m_client.Notice());
        EXPECT_TRUE(m_client.Notice().contains(UICommonMdl::CErrorCode::GetErroCodeInfor(nCode)))
            << qPrintable(m_client.Notice());
        m_client.Driver().Click(QStringLiteral("btnRefresh"));
        m_client.WaitIdle();
        EXPECT_EQ(m_client.Total(), CountDevices());
    }
}

TEST_F(LiveDevicePage, APageThatClosesWithAnswersUnderWayIsGone)
{
    for (int i = 0; i < 10; ++i) {
        m_client.OpenPage();
        m_server.Hold(std::string(wire::QueryDevicePage::Name));
        m_client.Driver().Click(QStringLiteral("btnRefresh"));
        m_server.Release(std::string(wire::QueryDevicePage::Name));
        m_client.ClosePage();
    }
    PageDriver::WaitFor([&] { return m_client.Client().GetOpenRequestCount() == 0; });
}

TEST_F(LiveDevicePage, MovedDevicesLieInTheirNewOrganizationForEveryClient)
{
    LiveClient other(m_server);
    other.OpenPage();
    const QString sOrg = m_server
                             .QuerySql(QStringLiteral(
                                 "SELECT name FROM organization GROUP BY name HAVING COUNT(*) = 1 ORDER BY "
                                 "name LIMIT 1"))
                             .toString();
    const QString sCode =
        m_server.QuerySql(QStringLiteral("SELECT code FROM organization WHERE name = '%1'").arg(sOrg))
            .toString();
    const QString sName =
        m_server
            .QuerySql(QStringLiteral("SELECT name FROM device WHERE org_code <> '%1' ORDER BY id LIMIT 1")
                          .arg(sCode))
            .toString();
    other.SelectOrganization(sOrg);
    const int nBefore = other.Total();

    m_client.OpenPage();
    m_client.Search(sName);
    m_client.CheckRow(sName);
    const QString sId = m_client.Column(ColumnId)[0];
    Q_EMIT m_client.Tree()->SignalModifyDeviceOrg({sId}, sCode);
    m_client.WaitIdle();
    EXPECT_EQ(m_client.Column(ColumnOrganization), QStringList{sOrg});
    PageDriver::WaitFor([&] { return other.Total() == nBefore + 1; });
}

TEST_F(LiveDevicePage, ExportHoldsEveryRowOfTheFilter)
{
    QTemporaryDir folder;
    const QString sPath = folder.filePath(QStringLiteral("devices.xlsx"));
    m_client.OpenPage();
    m_client.Driver().Click(QStringLiteral("btnEncodeDevice"));
    m_client.WaitIdle();
    m_dialogs.ChooseNextFile(sPath);
    m_client.Driver().Click(QStringLiteral("btnExport"));
    PageDriver::WaitFor([&] { return QFile::exists(sPath); });
    m_client.WaitIdle();
    PageDriver::WaitFor([&] { return !m_client.Notice().isEmpty(); });
    QProcess unzip;
    unzip.start(
        QStringLiteral("unzip"), {QStringLiteral("-p"), sPath, QStringLiteral("xl/worksheets/sheet1.xml")});
    ASSERT_TRUE(unzip.waitForFinished());
    EXPECT_EQ(unzip.readAllStandardOutput().count("<row "), 1 + m_client.Total());
}

namespace {

class ProbedDevicePage : public LiveDevicePage
{
protected:
    ProbedDevicePage()
        : LiveDevicePage([] {
            TestServerOptions options;
            options.nSeedDevices = 3;
            options.nProbeIntervalSeconds = 1;
            return options;
        }())
    {
    }
};

} // namespace

TEST_F(ProbedDevicePage, ADeviceComesAndGoesWithoutAReload)
{
    QTcpServer device;
    ASSERT_TRUE(device.listen(QHostAddress::LocalHost));
    m_server.RunSql(
        QStringLiteral("UPDATE device SET address = '127.0.0.1', port = %1 WHERE id = (SELECT MIN(id) FROM "
                       "device)")
            .arg(device.serverPort()));
    m_client.OpenPage();
    const int nQueries = m_server.RequestCount(std::string(wire::QueryDevicePage::Name));
    PageDriver::WaitFor(
        [&] { return m_client.Column(ColumnOnline).contains(QStringLiteral("Online")); }, 20000);
    device.close();
    PageDriver::WaitFor(
        [&] { return !m_client.Column(ColumnOnline).contains(QStringLiteral("Online")); }, 20000);
    EXPECT_THAT(
        m_client.Column(ColumnOfflineReason), testing::Contains(QStringLiteral("Connection refused")));
    EXPECT_EQ(m_server.RequestCount(std::string(wire::QueryDevicePage::Name)), nQueries);
}

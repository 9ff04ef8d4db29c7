#include "LiveClient.h"

#include <ResourceManagerUI/CDeviceManagerCtrl.h>
#include <ResourceManagerUI/CDeviceModel.h>
#include <ResourceManagerUI/DeviceImport/CDevImport.h>
#include <ResourceManagerUI/DeviceSettings/CBulkResetPassword.h>
#include <ResourceManagerUI/DeviceSettings/CDevTimeZone.h>
#include <ResourceManagerUI/DeviceSettings/CTimeZoneDeviceList.h>
#include <ResourceManagerUI/Discovery/CBatchAddDiscoverDeviceDlg.h>
#include <ResourceManagerUI/Discovery/CDeviceInitialize.h>
#include <ResourceManagerUI/Discovery/COnlineDeviceModel.h>
#include <VxGUI/VxLineEdit.h>
#include <tests/support/server/FieldDevices.h>

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFile>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>

#include <gmock/gmock.h>
#include <pugixml.hpp>
#include <xlsxwriter.h>

using namespace ResourceManagerUI;
using TestSupport::FieldDevices;
using TestSupport::TestServer;
using TestSupport::TestServerOptions;

namespace {

TestServerOptions With(const FieldDevices& devices)
{
    TestServerOptions options;
    options.nDiscoveryPort = devices.DiscoveryPort();
    options.nOnvifDiscoveryPort = devices.OnvifDiscoveryPort();
    options.nSearchTimeoutMs = 800;
    // Only devices that are added are looked at.
    options.nProbeIntervalSeconds = 3600;
    return options;
}

std::vector<nlohmann::json> Site()
{
    std::vector<nlohmann::json> vecChanges(12, nlohmann::json::object());
    vecChanges[3]["refuse_password"] = true;
    vecChanges[5]["time_zone_support"] = false;
    vecChanges[11]["protocol"] = "ONVIF";
    return vecChanges;
}

/// The device page on a server beside a dozen simulated devices.
class LiveDeviceWork : public testing::Test
{
protected:
    LiveDeviceWork()
        : m_devices(12, Site())
        , m_server(With(m_devices))
        , m_client(m_server)
    {
    }

    template <class Dialog>
    Dialog* FindDialog()
    {
        return m_client.Page()->findChild<Dialog*>();
    }
    template <class Dialog>
    std::unique_ptr<PageDriver> Drive()
    {
        Dialog* const pDialog = FindDialog<Dialog>();
        EXPECT_TRUE(pDialog);
        return pDialog ? std::make_unique<PageDriver>(*pDialog, pDialog->size()) : nullptr;
    }
    static void PressOk(QDialog* pDialog)
    {
        QTest::mouseClick(
            pDialog->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok), Qt::LeftButton);
    }

    /// Puts the simulated devices under management without the page.
    void ManageAll()
    {
        GroupLogical::ImportRequest_t request;
        request.sSource = "xml";
        for (int n = 0; n < 12; ++n) {
            GroupLogical::ImportRow_t row;
            row.nLine = n + 1;
            row.sName = "Device " + std::to_string(n + 1);
            row.sAddress = m_devices.Address(n);
            row.sPort = std::to_string(FieldDevices::Port);
            row.sUserName = "admin";
            row.sPassword = FieldDevices::Password;
            row.sProtocol = n == 11 ? "ONVIF" : "Private";
            request.vecRows.push_back(row);
        }
        m_client.Interfaces()->GetGroupManager()->ImportDevice(request);
        m_client.WaitIdle();
        ASSERT_EQ(CountDevices(), 12);
    }
    int CountDevices(const QString& sWhere = QStringLiteral("1 = 1"))
    {
        return m_server.QuerySql(QStringLiteral("SELECT COUNT(*) FROM device WHERE ") + sWhere).toInt();
    }
    std::string IdOf(int nDevice)
    {
        return m_server
            .QuerySql(QStringLiteral("SELECT id FROM device WHERE address = '%1'")
                          .arg(QString::fromStdString(m_devices.Address(nDevice))))
            .toString()
            .toStdString();
    }

    QAbstractItemModel* StartSearch()
    {
        PageDriver& driver = m_client.Driver();
        if (!driver.IsShown(QStringLiteral("btnAutoSearch")))
            driver.Click(QStringLiteral("btnExpand"));
        driver.Type(QStringLiteral("edtNetSectionStart"), QString::fromStdString(m_devices.Address(0)));
        driver.Type(QStringLiteral("edtNetSectionEnd"), QString::fromStdString(m_devices.Address(19)));
        driver.Click(QStringLiteral("btnAutoSearch"));
        m_client.WaitIdle();
        return driver.Find<QTreeView>(QStringLiteral("tabViewOnlineDev"))->model();
    }

    QString WriteXml(const std::vector<std::array<const char*, 3>>& vecDevices)
    {
        pugi::xml_document document;
        pugi::xml_node root = document.append_child("DeviceManager");
        root.append_attribute("version") = "2.0";
        for (const auto& [szName, szAddress, szPort] : vecDevices) {
            pugi::xml_node device = root.append_child("Device");
            device.append_attribute("name") = szName;
            device.append_attribute("connect") = 1;
            device.append_attribute("address") = szAddress;
            device.append_attribute("port") = szPort;
            device.append_attribute("username") = "admin";
            device.append_attribute("password") = "Pass-1234";
        }
        const QString sPath = m_folder.filePath(QStringLiteral("devices.xml"));
        document.save_file(qPrintable(sPath));
        return sPath;
    }
    QString WriteSheet(const std::vector<std::array<const char*, 3>>& vecDevices)
    {
        const QString sPath = m_folder.filePath(QStringLiteral("devices.xlsx"));
        lxw_workbook* const pBook = workbook_new(qPrintable(sPath));
        lxw_worksheet* const pSheet = workbook_add_worksheet(pBook, nullptr);
        const std::array<const char*, 5> headings{
            "Device Name", "IP Address", "Port", "User Name", "Password"};
        for (std::size_t n = 0; n < headings.size(); ++n)
            worksheet_write_string(pSheet, 0, static_cast<lxw_col_t>(n), headings[n], nullptr);
        for (std::size_t nRow = 0; nRow < vecDevices.size(); ++nRow) {
            for (std::size_t n = 0; n < 3; ++n)
                worksheet_write_string(pSheet, static_cast<lxw_row_t>(nRow + 1), static_cast<lxw_col_t>(n),
                    vecDevices[nRow][n], nullptr);
            worksheet_write_string(pSheet, static_cast<lxw_row_t>(nRow + 1), 3, "admin", nullptr);
            worksheet_write_string(pSheet, static_cast<lxw_row_t>(nRow + 1), 4, "Pass-1234", nullptr);
        }
        workbook_close(pBook);
        return sPath;
    }
    /// Chooses a file in the import dialog and waits for the end of the import.
    void Import(PageDriver& dialog, const QString& sPath)
    {
        m_dialogs.ChooseNextFile(sPath);
        dialog.Click(QStringLiteral("btnBrowse"));
        PageDriver::WaitFor([&] { return dialog.IsShown(QStringLiteral("lbResult")); });
        m_client.WaitIdle();
    }
    static QString Label(PageDriver& driver, const char* pszName)
    {
        return driver.Find<QLabel>(QLatin1String(pszName))->text();
    }
    /// Downloads the failure list of the import that ended.
    QString TakeFailureList(PageDriver& dialog, const char* pszName)
    {
        const QString sPath = m_folder.filePath(QLatin1String(pszName));
        m_dialogs.ChooseNextFile(sPath);
        dialog.Click(QStringLiteral("btnFailList"));
        PageDriver::WaitFor([&] { return QFile::exists(sPath); });
        PageDriver::Settle();
        return sPath;
    }

    QTemporaryDir m_folder;
    RecordingDialogService m_dialogs;
    FieldDevices m_devices;
    TestServer m_server;
    LiveClient m_client;
};

} // namespace

TEST_F(LiveDeviceWork, FoundDevicesAreAddedAndComeOnline)
{
    m_client.OpenPage();
    QAbstractItemModel* const pFound = StartSearch();
    ASSERT_EQ(pFound->rowCount(), 12);
    PageDriver& driver = m_client.Driver();
    driver.Click(QStringLiteral("chkAllOnline"));
    driver.Click(QStringLiteral("btnAddToManagement"));
    {
        const auto pDialog = Drive<CBatchAddDiscoverDeviceDlg>();
        pDialog->Type(QStringLiteral("editBatchPassword"), QLatin1String(FieldDevices::Password));
        pDialog->Click(QStringLiteral("btnBatchAdd"));
        m_client.WaitIdle();
        const auto* pRows = pDialog->Find<QTreeView>(QStringLiteral("tableBatch"))->model();
        for (int nRow = 0; nRow < 12; ++nRow)
            EXPECT_EQ(pRows->index(nRow, 4).data().toString(), QStringLiteral("Added"));
        pDialog->Click(QStringLiteral("btnBatchClose"));
    }
    PageDriver::WaitFor([this] { return m_client.Total() == 12; });
    PageDriver::WaitFor(
        [this] { return m_client.Column(ColumnOnline).count(QStringLiteral("Online")) == 12; });
    // Devices tell their channels once they are online.
    PageDriver::WaitFor([this] { return CountDevices(QStringLiteral("video_channels = 4")) == 12; });
    for (int nRow = 0; nRow < 12; ++nRow)
        EXPECT_EQ(pFound->index(nRow, OnlineColumnOperation).data().toString(), QStringLiteral("Managed"));
    driver.Screenshot(QStringLiteral("e2e-discovered"));

    m_server.Restart();
    m_client.WaitReconnected();
    EXPECT_EQ(m_client.Total(), 12);
    StartSearch();
    EXPECT_EQ(pFound->rowCount(), 12);
    EXPECT_EQ(pFound->index(0, OnlineColumnOperation).data().toString(), QStringLiteral("Managed"))
        << "the server says which ones it has";
}

TEST_F(LiveDeviceWork, TwelvePasswordsAtOnceWithOneDeviceThatRefuses)
{
    ManageAll();
    m_client.OpenPage();
    for (int n = 1; n <= 12; ++n)
        m_client.CheckRow(QStringLiteral("Device %1").arg(n));
    m_client.Driver().Click(QStringLiteral("btnResetPwd"));
    const auto pDialog = Drive<CBulkResetPassword>();
    const QString sNew = QStringLiteral("Brand-new-7");
    pDialog->Type(QStringLiteral("m_leInputOldPwd"), QLatin1String(FieldDevices::Password));
    pDialog->Type(QStringLiteral("m_leInputPwd"), sNew);
    pDialog->Type(QStringLiteral("m_leConfirmPwd"), sNew);
    PressOk(FindDialog<CBulkResetPassword>());
    m_client.WaitIdle();
    const auto* pFailed = pDialog->Find<QListWidget>(QStringLiteral("listFailed"));
    ASSERT_EQ(pFailed->count(), 1);
    EXPECT_TRUE(pFailed->item(0)->text().contains(QStringLiteral("Device 4")))
        << qPrintable(pFailed->item(0)->text());
    pDialog->Screenshot(QStringLiteral("e2e-passwords"));
    for (int n = 0; n < 12; ++n)
        EXPECT_EQ(m_devices.State(n).at("password"), n == 3 ? FieldDevices::Password : sNew.toStdString())
            << n;
    FindDialog<CBulkResetPassword>()->reject();
}

TEST_F(LiveDeviceWork, TimeZonesEndInTheStateOfEachDevice)
{
    ManageAll();
    m_devices.Change(8, {{"present", false}});
    m_client.OpenPage();
    for (const int n : {1, 6, 9, 12})
        m_client.CheckRow(QStringLiteral("Device %1").arg(n));
    m_client.Driver().Click(QStringLiteral("btnTimeZone"));
    m_client.WaitIdle();
    const auto pDialog = Drive<CDevTimeZone>();
    auto* const pZones = pDialog->Find<QComboBox>(QStringLiteral("cmbZone"));
    pZones->setCurrentIndex(pZones->findText(QStringLiteral("Europe/Berlin"), Qt::MatchContains));
    PressOk(FindDialog<CDevTimeZone>());
    const auto* pList = pDialog->Find<CTimeZoneDeviceList>(QStringLiteral("treeDevices"));
    EXPECT_EQ(pList->CountState(RemoteConfigLogical::TimeZoneSending), 4);
    m_client.WaitIdle();
    pDialog->Screenshot(QStringLiteral("e2e-time-zones"));
    const auto state = [&](int nDevice) { return pList->GetState(QString::fromStdString(IdOf(nDevice))); };
    EXPECT_EQ(state(0), RemoteConfigLogical::TimeZoneDone);
    EXPECT_EQ(state(5), RemoteConfigLogical::TimeZoneNotSupported);
    EXPECT_EQ(state(8), RemoteConfigLogical::TimeZoneFailed);
    EXPECT_EQ(state(11), RemoteConfigLogical::TimeZoneDone) << "by ONVIF";
    EXPECT_THAT(m_devices.State(0).dump(), testing::HasSubstr("Europe/Berlin"));
    FindDialog<CDevTimeZone>()->reject();
}

TEST_F(LiveDeviceWork, AnXmlFileWithBadRowsIsImportedMendedAndImportedAgain)
{
    PageDriver& page = m_client.OpenPage();
    page.Click(QStringLiteral("btnImport"));
    const auto pDialog = Drive<CDevImport>();
    m_client.WaitIdle();
    Import(*pDialog,
        WriteXml({{"North", "10.0.0.1", "37777"}, {"South", "10.0.0.2", "none"}, {"West", "10.0.0", "80"},
            {"North", "10.0.0.4", "80"}}));
    EXPECT_EQ(Label(*pDialog, "lbResultSuccess"), QStringLiteral("1"));
    EXPECT_EQ(Label(*pDialog, "lbResultFail"), QStringLiteral("3"));
    EXPECT_NE(Label(*pDialog, "lbResult"), QStringLiteral("Imported successfully"));
    pDialog->Screenshot(QStringLiteral("e2e-import-result"));
    EXPECT_EQ(CountDevices(), 1);

    const QString sList = TakeFailureList(*pDialog, "faillist.xml");
    pugi::xml_document document;
    ASSERT_TRUE(document.load_file(qPrintable(sList)));
    int nRow = 0;
    for (pugi::xml_node device : document.child("DeviceManager").children("Device")) {
        device.attribute("port") = 80;
        device.attribute("address") = ("10.1.0." + std::to_string(++nRow)).c_str();
        device.attribute("name") = ("Mended " + std::to_string(nRow)).c_str();
    }
    ASSERT_EQ(nRow, 3);
    document.save_file(qPrintable(sList));
    pDialog->Click(QStringLiteral("btnAgain"));
    Import(*pDialog, sList);
    EXPECT_EQ(Label(*pDialog, "lbResult"), QStringLiteral("Imported successfully"));
    pDialog->Click(QStringLiteral("btnClose"));
    m_client.WaitIdle();
    PageDriver::WaitFor([this] { return m_client.Total() == 4; });
    m_server.Restart();
    m_client.WaitReconnected();
    EXPECT_EQ(m_client.Total(), 4);
}

TEST_F(LiveDeviceWork, ASheetWithBadRowsGivesASheetToMend)
{
    PageDriver& page = m_client.OpenPage();
    page.Click(QStringLiteral("btnImport"));
    const auto pDialog = Drive<CDevImport>();
    m_client.WaitIdle();
    Import(*pDialog, WriteSheet({{"North", "10.0.0.1", "37777"}, {"South", "10.0.0.2", "none"}}));
    EXPECT_EQ(Label(*pDialog, "lbResultSuccess"), QStringLiteral("1"));
    EXPECT_EQ(Label(*pDialog, "lbResultFail"), QStringLiteral("1"));
    const QString sList = TakeFailureList(*pDialog, "faillist.xlsx");
    pDialog->Click(QStringLiteral("btnAgain"));
    // As it is it fails with the same row.
    Import(*pDialog, sList);
    EXPECT_EQ(Label(*pDialog, "lbResultFail"), QStringLiteral("1"));
    pDialog->Click(QStringLiteral("btnAgain"));
    Import(*pDialog, WriteSheet({{"South", "10.0.0.2", "80"}}));
    EXPECT_EQ(Label(*pDialog, "lbResult"), QStringLiteral("Imported successfully"));
    EXPECT_EQ(CountDevices(), 2);

    const QString sTemplate = m_folder.filePath(QStringLiteral("template.xlsx"));
    pDialog->Click(QStringLiteral("btnAgain"));
    m_dialogs.ChooseNextFile(sTemplate);
    pDialog->Click(QStringLiteral("btnTemplate"));
    PageDriver::WaitFor([&] { return QFile::exists(sTemplate); });
    QFile file(sTemplate);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.read(2), QByteArray("PK"));
    FindDialog<CDevImport>()->reject();
}

TEST_F(LiveDeviceWork, AFormThatTheServerRefusesShowsItUnderTheField)
{
    ManageAll();
    PageDriver& page = m_client.OpenPage();
    const auto fill = [&](const std::string& sAddress, const char* pszName) {
        page.Type(QStringLiteral("editTxtIP"), QString::fromStdString(sAddress));
        page.Type(QStringLiteral("editPassWord"), QStringLiteral("Pass-1234"));
        page.Click(QStringLiteral("btnNext"));
        page.Type(QStringLiteral("editDevName"), QLatin1String(pszName));
        page.Click(QStringLiteral("btnFinish"));
        m_client.WaitIdle();
    };
    const auto hint = [&](const char* pszField) {
        return page.Find<VxGUI::VxLineEdit>(QLatin1String(pszField))->GetErrorHint();
    };
    page.Click(QStringLiteral("btnAdd"));
    m_client.WaitIdle();
    fill("10.5.5.5", "device 1");
    EXPECT_EQ(hint("editDevName"), QStringLiteral("The name exists already."));
    page.Screenshot(QStringLiteral("e2e-form-refused"));
    page.Type(QStringLiteral("editDevName"), QStringLiteral("New"));
    page.Click(QStringLiteral("btnFinish"));
    m_client.WaitIdle();
    PageDriver::WaitFor([this] { return m_client.Total() == 13; });

    page.Click(QStringLiteral("btnAdd"));
    m_client.WaitIdle();
    fill(m_devices.Address(0), "Another");
    EXPECT_EQ(hint("editTxtIP"), QStringLiteral("A device with this address and port exists already."));
    EXPECT_TRUE(page.IsShown(QStringLiteral("editTxtIP"))) << "the step with the field comes up";
    EXPECT_EQ(CountDevices(), 13);
    m_dialogs.AnswerNext(true);
    page.Click(QStringLiteral("btnDevAddBack"));

    // Somebody else was faster.
    m_client.Search(QStringLiteral("New"));
    QTreeView* const pTable = m_client.Table();
    pTable->setFocus();
    pTable->setCurrentIndex(page.FindRow(pTable, ColumnName, QStringLiteral("New")));
    page.Key(QStringLiteral("treeDevice"), Qt::Key_F2);
    m_client.WaitIdle();
    m_server.RunSql(QStringLiteral("UPDATE device SET version = version + 1 WHERE name = 'New'"));
    page.Click(QStringLiteral("btnNext"));
    page.Type(QStringLiteral("editDevName"), QStringLiteral("Mine"));
    m_dialogs.ClickNext(QStringLiteral("btnGoOn"));
    page.Click(QStringLiteral("btnFinish"));
    m_client.WaitIdle();
    EXPECT_EQ(CountDevices(QStringLiteral("name = 'Mine'")), 0);
    EXPECT_TRUE(page.IsShown(QStringLiteral("editDevName"))) << "the input stays";
}

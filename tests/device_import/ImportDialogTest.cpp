#include "DialogFixture.h"

#include <DeviceImport/CDevImport.h>
#include <UICommonMdl/ErrorCodes.h>
#include <VxGUI/VxEmptyState.h>
#include <VxGUI/VxNotification.h>
#include <VxGUI/VxWaitDialog.h>

#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QStackedWidget>
#include <QTabBar>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTreeView>

using namespace ResourceManagerUI;
using namespace RemoteConfigLogical;
using namespace GroupLogical;

namespace {

class ImportDialog : public DialogFixture<CDevImport>
{
protected:
    void SetUp() override
    {
        m_features = {true, "cloud.example", "/template?kind=1", "/template?kind=2", "/upload?x=1"};
        m_host.server.AnswerAlways<wire::GetFeatures>(
            [this](const auto&, auto& answer) { answer = m_features; });
        m_pDialog = new CDevImport(&m_host.interfaceSet, &m_window);
        QObject::connect(m_pDialog, &CDevImport::SignalShowNotify, &m_window,
            [this](const QString& sText) { m_listNotices << sText; });
        QObject::connect(m_pDialog, &CDevImport::SignalImportStatue, &m_window,
            [this](bool bRunning) { m_vecStatues.push_back(bRunning); });
        QObject::connect(m_pDialog, &CDevImport::SignalImported, &m_window, [this] { ++m_nImported; });
        m_pDialog->SetOrganization(QStringLiteral("001002"), QStringLiteral("North"));
        Open();
    }
    void Open()
    {
        m_pDialog->open();
        PageDriver::Settle();
    }
    QString Write(const char* pszName, const QByteArray& baContent)
    {
        QFile file(m_folder.filePath(QLatin1String(pszName)));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(baContent) == baContent.size());
        return file.fileName();
    }
    QString WriteDevices(int nDevices, const QByteArray& baMore = {})
    {
        QByteArray baFile("<DeviceManager version=\"2.0\">\n");
        for (int i = 1; i <= nDevices; ++i)
            baFile += "<Device name=\"Camera " + QByteArray::number(i) + "\" address=\"10.0.0."
                + QByteArray::number(i) + "\"/>\n";
        return Write("devices.xml", baFile + baMore + "</DeviceManager>");
    }
    void Browse(const QString& sPath)
    {
        m_dialogs.ChooseNextFile(sPath);
        m_driver.Click(QStringLiteral("btnBrowse"));
    }
    void BrowseXml(const QString& sPath)
    {
        Browse(sPath);
        PageDriver::WaitFor([this] {
            return m_host.server.Count<wire::BeginImport>() > 0 || Page() != QStringLiteral("pageProgress");
        });
    }
    QString Page()
    {
        return m_pDialog->findChild<QStackedWidget*>(QStringLiteral("stackImport"))
            ->currentWidget()
            ->objectName();
    }
    QString Notice() { return VxGUI::VxNotification::CurrentText(m_pDialog); }
    QString Label(const char* pszName) { return TextOf<QLabel>(pszName); }
    void Report(bool bFinal, const ImportState_t& state, int nErrorCode = 0)
    {
        const std::string sJob = m_host.server.LastRequest<wire::RunImport>().sJob;
        m_host.server.ReportJob(sJob, MakeImportReport(state, bFinal, nErrorCode));
        PageDriver::Settle();
    }
    QAbstractItemModel* Result() { return m_driver.Find<QTreeView>(QStringLiteral("treeResult"))->model(); }
    void ShowTab(int nTab)
    {
        auto* const pBar = m_driver.Find<QTabWidget>(QStringLiteral("tabSource"))->tabBar();
        QTest::mouseClick(pBar, Qt::LeftButton, {}, pBar->tabRect(nTab).center());
    }

    Features_t m_features;
    QTemporaryDir m_folder;
    std::vector<bool> m_vecStatues;
    int m_nImported = 0;
};

const ImportState_t AllGood{3, 3, 3, 0, {}, {}, {}};

TEST_F(ImportDialog, XmlFileIsImportedAsItStands)
{
    Screenshot("import-choose");
    BrowseXml(WriteDevices(3));
    EXPECT_EQ(
        m_dialogs.Shown().last(), QStringLiteral("Select a XML or Excel file: Files (*.xml *.xlsx *.xls)"));
    const auto request = m_host.server.LastImport();
    ASSERT_EQ(request.vecRows.size(), 3U);
    EXPECT_EQ(request.vecRows[1].sName, "Camera 2");
    EXPECT_EQ(request.vecRows[1].nLine, 3);
    EXPECT_EQ(request.sOrgCode, "001002");
    EXPECT_EQ(request.sSource, "xml");
    EXPECT_FALSE(request.bAllOrNothing);
    EXPECT_EQ(m_vecStatues, std::vector<bool>{true});
    Report(false, {3, 1, 0, 0, {}, {}, {}});
    EXPECT_EQ(Label("lbPercent"), QStringLiteral("33%"));
    EXPECT_EQ(Label("lbLiveSuccess"), QStringLiteral("1"));
    Screenshot("import-running");
    Report(true, AllGood);
    EXPECT_EQ(Label("lbResult"), QStringLiteral("Imported successfully"));
    EXPECT_EQ(Label("lbPercent"), QStringLiteral("100%"));
    EXPECT_EQ(Label("lbResultSuccess"), QStringLiteral("3"));
    EXPECT_EQ(Result()->index(2, 3).data().toString(), QStringLiteral("Success"));
    EXPECT_EQ(m_vecStatues, (std::vector<bool>{true, false}));
    EXPECT_EQ(m_nImported, 1);
    EXPECT_FALSE(m_driver.IsShown(QStringLiteral("btnFailList")));
}

TEST_F(ImportDialog, FilesThatCannotBeImportedAreRefusedWithTheReason)
{
    const QByteArray baHead("<DeviceManager version=\"2.0\">");
    const struct
    {
        QString sPath;
        const char* pszNotice;
    } cases[] = {{Write("a.xml", "words"), "InValid XML file!"},
        {Write("old.xml", "<DeviceManager version=\"1.9\"/>"), "Only support more than 2.0 version."},
        {Write("none.xml", baHead + "</DeviceManager>"), "The file holds no device."},
        {m_folder.filePath(QStringLiteral("missing.xml")), "The file cannot be read."},
        {Write("upper.XML", baHead + "<Device name=\"a\"/></DeviceManager>"),
            "Supported file type: *.xls,*.xml"},
        {Write("big.xlsx", QByteArray(205824, 'x')), "Import file size can not exceed 200K!"}};
    for (const auto& testCase : cases) {
        Browse(testCase.sPath);
        PageDriver::WaitFor([&] { return Notice() == QLatin1String(testCase.pszNotice); });
        EXPECT_EQ(Page(), QStringLiteral("pageChoose"));
    }
    EXPECT_EQ(m_host.server.Count<wire::BeginImport>(), 0);
    EXPECT_TRUE(m_host.transfer.vecTransfers.empty());

    m_host.server.Refuse<wire::BeginImport>();
    Browse(WriteDevices(1));
    PageDriver::WaitFor([this] { return Notice() == QStringLiteral("Failed to import device!"); });
    EXPECT_EQ(Page(), QStringLiteral("pageChoose"));
    EXPECT_FALSE(m_vecStatues.back());
}

TEST_F(ImportDialog, PartOfTheRowsSaysSoAndListsTheOthers)
{
    BrowseXml(WriteDevices(3, "<Camera name=\"odd\"/>\n"));
    EXPECT_EQ(m_host.server.LastImport().vecRows.size(), 3U);
    Report(false,
        {3, 2, 0, 1, {{3, "Camera 2", "10.0.0.2", "Address", UICommonMdl::ErrorAddressExists, {}}}, {}, {}});
    EXPECT_EQ(Label("lbLiveSuccess"), QStringLiteral("1"));
    EXPECT_EQ(Label("lbLiveFail"), QStringLiteral("2")) << "one row was refused, one could not be read";
    Report(true, {3, 3, 2, 1, {}, "/faillist?job=1", "faillist_1.xml"});
    EXPECT_EQ(Label("lbResult"), QStringLiteral("Partly imported"));
    EXPECT_EQ(Label("lbResultText"), QStringLiteral("2 of 4 devices were imported, 2 were not."));
    EXPECT_EQ(Label("lbResultFail"), QStringLiteral("2"));
    ASSERT_EQ(Result()->rowCount(), 2);
    EXPECT_EQ(Result()->index(0, 5).data().toString(),
        QStringLiteral("A device with this address and port exists already."));
    EXPECT_EQ(Result()->index(1, 0).data().toString(), QStringLiteral("5"));
    Screenshot("import-partly");
    m_driver.Click(QStringLiteral("chkOnlyFailed"));
    EXPECT_EQ(Result()->rowCount(), 4);

    m_dialogs.ChooseNextFile(m_folder.filePath(QStringLiteral("missing/list.xml")));
    m_driver.Click(QStringLiteral("btnFailList"));
    EXPECT_TRUE(Notice().startsWith(QStringLiteral("Download path does not exist")));
    m_dialogs.ChooseNextFile(m_folder.filePath(QStringLiteral("list.xml")));
    m_driver.Click(QStringLiteral("btnFailList"));
    EXPECT_EQ(m_dialogs.Shown().last(), QStringLiteral("Save As: *.xml"));
    EXPECT_EQ(
        m_host.transfer.vecTransfers.back().sUrl, QStringLiteral("/faillist?job=1&token=0123456789abcdef"));
    m_driver.Click(QStringLiteral("btnAgain"));
    EXPECT_EQ(Page(), QStringLiteral("pageChoose"));
}

TEST_F(ImportDialog, AllOrNothingImportsNothing)
{
    m_driver.Click(QStringLiteral("rbAllOrNothing"));
    BrowseXml(WriteDevices(2));
    EXPECT_TRUE(m_host.server.LastImport().bAllOrNothing);
    Report(true,
        {2, 2, 0, 1, {{3, "Camera 2", "10.0.0.2", "Port", UICommonMdl::ErrorInvalidInput, {}}}, {}, {}},
        UICommonMdl::ErrorImportAborted);
    EXPECT_EQ(Label("lbResult"), QStringLiteral("Import Failed"));
    EXPECT_EQ(Label("lbResultFail"), QStringLiteral("2"));
    ASSERT_EQ(Result()->rowCount(), 2);
    EXPECT_EQ(Result()->index(1, 4).data().toString(), QStringLiteral("Port"));
    EXPECT_EQ(m_nImported, 0);

    // A row that cannot even be read is a fault too, and the server is not asked.
    m_driver.Click(QStringLiteral("btnAgain"));
    Browse(WriteDevices(2, "<Camera/>"));
    PageDriver::WaitFor([this] { return Page() == QStringLiteral("pageResult"); });
    EXPECT_EQ(m_host.server.Count<wire::BeginImport>(), 1);
    EXPECT_EQ(Label("lbResultFail"), QStringLiteral("3"));
}

TEST_F(ImportDialog, LostConnectionLeavesTheOutcomeOpen)
{
    BrowseXml(WriteDevices(3));
    Report(false, {3, 2, 0, 0, {}, {}, {}});
    Connect(false);
    PageDriver::Settle();
    EXPECT_EQ(Label("lbResult"), QStringLiteral("Import Failed"));
    EXPECT_TRUE(Label("lbResultText").contains(QStringLiteral("The server may go on with the import")));
    EXPECT_EQ(Result()->rowCount(), 0) << "nothing is claimed of any row";
    EXPECT_EQ(m_nImported, 1) << "the page has to look";
    m_driver.Click(QStringLiteral("btnAgain"));
    EXPECT_TRUE(m_driver.IsShown(QStringLiteral("lbConnection")));
    EXPECT_FALSE(m_driver.IsUsable(QStringLiteral("btnBrowse")));
    Connect(true);
    EXPECT_TRUE(m_driver.IsUsable(QStringLiteral("btnBrowse")));
}

TEST_F(ImportDialog, ClosingHidesARunningImportAndOpeningShowsIt)
{
    BrowseXml(WriteDevices(3));
    m_driver.Click(QStringLiteral("btnClose"));
    EXPECT_FALSE(m_pDialog->isVisible());
    EXPECT_EQ(m_vecStatues, std::vector<bool>{true});
    Report(false, {3, 2, 0, 0, {}, {}, {}});
    Open();
    EXPECT_EQ(Label("lbPercent"), QStringLiteral("66%"));
    m_driver.Click(QStringLiteral("btnClose"));
    Report(true, AllGood);
    EXPECT_EQ(m_vecStatues, (std::vector<bool>{true, false}));
    ASSERT_EQ(m_listNotices.size(), 1);
    EXPECT_TRUE(m_listNotices.first().startsWith(QStringLiteral("Imported successfully")));
    Open();
    EXPECT_EQ(Page(), QStringLiteral("pageResult")) << "the result waits for its reader";
    m_driver.Click(QStringLiteral("btnClose"));
    Open();
    EXPECT_EQ(Page(), QStringLiteral("pageChoose"));
}

TEST_F(ImportDialog, DestroyedInTheMiddleItTakesNothingAlong)
{
    Browse(WriteDevices(3));
    delete m_pDialog;
    PageDriver::Settle();
    SetUp();
    Browse(Write("sheet.xlsx", "x"));
    const int nUpload = m_host.transfer.vecTransfers.back().nTransfer;
    delete m_pDialog;
    EXPECT_EQ(m_host.transfer.vecCancelled, std::vector<int>{nUpload});
    EXPECT_EQ(m_host.CountObservers(), 0);
    SetUp();
    BrowseXml(WriteDevices(3));
    delete m_pDialog;
    Report(true, {}, UICommonMdl::ErrorTimeOut);
}

TEST_F(ImportDialog, SheetIsUploadedAndImported)
{
    Browse(Write("sheet.xlsx", QByteArray(204800, 'x')));
    EXPECT_EQ(m_host.transfer.vecTransfers.back().sUrl, QStringLiteral("/upload?x=1&token=0123456789abcdef"));
    Q_EMIT m_host.transfer.SignalProgress(m_host.transfer.vecTransfers.back().nTransfer, 45, 100);
    EXPECT_EQ(Label("m_pUploadRate"), QStringLiteral("45%"));
    Screenshot("import-uploading");
    m_host.transfer.Finish(0, R"({"sJob":"j7","nRows":2,"nExisting":1,"bIntercom":false})");
    EXPECT_EQ(m_host.server.Count<wire::RunImport>(), 1);
    const auto run = m_host.server.LastRequest<wire::RunImport>();
    EXPECT_EQ(run.sJob, "j7");
    EXPECT_FALSE(run.bAllOrNothing || run.bOverwrite)
        << "only intercom devices are overwritten, and only when asked";
    Report(true, {2, 2, 2, 0, {}, {}, {}});
    EXPECT_EQ(Label("lbResult"), QStringLiteral("Imported successfully"));
}

TEST_F(ImportDialog, UploadFailuresNameTheirReason)
{
    const QString sSheet = Write("sheet.xls", "x");
    const struct
    {
        int nErrorCode;
        const char* pszAnswer;
        const char* pszDetail;
        const char* pszReason;
    } cases[] = {
        {UICommonMdl::ErrorSheetColumns, "", "Port", "The columns are not those of the template. Port"},
        {UICommonMdl::ErrorNone, "<html>", "", "The server's answer could not be read."},
        {UICommonMdl::ErrorDisconnected, "", "", "The server cannot be reached."}};
    for (const auto& testCase : cases) {
        Browse(sSheet);
        m_host.transfer.Finish(testCase.nErrorCode, testCase.pszAnswer, QLatin1String(testCase.pszDetail));
        EXPECT_EQ(Label("lbUpload"), QStringLiteral("Failed to upload file"));
        EXPECT_EQ(Label("lbUploadReason"), QLatin1String(testCase.pszReason));
        EXPECT_TRUE(m_driver.IsShown(QStringLiteral("lbUploadIcon")));
        EXPECT_FALSE(m_vecStatues.back());
        Screenshot("import-upload-failed");
        m_driver.Click(QStringLiteral("btnUploadBack"));
    }
    m_host.transfer.bRefuse = true;
    Browse(sSheet);
    EXPECT_EQ(Label("lbUpload"), QStringLiteral("Failed to upload file"));
    EXPECT_EQ(m_host.server.Count<wire::RunImport>(), 0);
}

TEST_F(ImportDialog, IntercomDevicesAreOverwrittenOnlyWhenTheUserSaysSo)
{
    const QString sSheet = Write("sheet.xlsx", "x");
    const QByteArray baExisting(R"({"sJob":"j","nRows":5,"nExisting":2,"bIntercom":true})");
    Browse(sSheet);
    m_dialogs.AnswerNext(false);
    m_host.transfer.Finish(0, baExisting);
    EXPECT_EQ(m_dialogs.Shown().last(),
        QStringLiteral("Prompt: Import intercom device result: 2 devices already exist. Are you sure to "
                       "overwrite these devices?"));
    EXPECT_EQ(m_host.server.Count<wire::RunImport>(), 0);
    EXPECT_EQ(Page(), QStringLiteral("pageChoose"));

    Browse(sSheet);
    m_driver.Click(QStringLiteral("btnClose"));
    m_dialogs.AnswerNext(true);
    m_host.transfer.Finish(0, baExisting);
    EXPECT_TRUE(m_pDialog->isVisible()) << "a question brings its window back";
    EXPECT_TRUE(m_host.server.LastRequest<wire::RunImport>().bOverwrite);
    Report(true, {5, 5, 5, 0, {}, {}, {}});
    m_driver.Click(QStringLiteral("btnAgain"));

    const std::pair<const char*, const char*> empties[] = {
        {R"({"sJob":"j","nRows":0,"nExisting":0,"bIntercom":true})",
            "The number of intercom device is 0. Please check Excel content."},
        {R"({"sJob":"j","nRows":0,"nExisting":0,"bIntercom":false})", "The file holds no device."}};
    for (const auto& [pszAnswer, pszNotice] : empties) {
        Browse(sSheet);
        m_host.transfer.Finish(0, pszAnswer);
        EXPECT_EQ(Notice(), QLatin1String(pszNotice));
        EXPECT_EQ(Page(), QStringLiteral("pageChoose"));
    }
}

TEST_F(ImportDialog, TemplatesAreDownloadedWhereTheUserSays)
{
    m_dialogs.ChooseNextFile(m_folder.filePath(QStringLiteral("sheet")));
    m_driver.Click(QStringLiteral("btnTemplate"));
    EXPECT_EQ(m_dialogs.Shown().last(), QStringLiteral("Save As: *.xlsx"));
    EXPECT_EQ(
        m_host.transfer.vecTransfers.back().sUrl, QStringLiteral("/template?kind=1&token=0123456789abcdef"));
    EXPECT_EQ(m_host.transfer.vecTransfers.back().sFilePath, m_folder.filePath(QStringLiteral("sheet.xlsx")));
    m_host.transfer.Finish(UICommonMdl::ErrorNone);
    EXPECT_EQ(Notice(), QStringLiteral("Successfully download template!"));

    const QString sExisting = Write("there.xlsx", "x");
    m_dialogs.ChooseNextFile(sExisting.chopped(5));
    m_dialogs.AnswerNext(false);
    m_driver.Click(QStringLiteral("btnIntercomTemplate"));
    EXPECT_EQ(m_host.transfer.vecTransfers.size(), 1U) << "nobody agreed to replace that file";
    m_dialogs.ChooseNextFile(sExisting);
    m_driver.Click(QStringLiteral("btnIntercomTemplate"));
    EXPECT_TRUE(m_host.transfer.vecTransfers.back().sUrl.startsWith(QStringLiteral("/template?kind=2&")));
    m_host.transfer.Finish(UICommonMdl::ErrorNoRight);
    EXPECT_TRUE(Notice().startsWith(QStringLiteral("Failed to download template!")));

    m_dialogs.ChooseNextFile(m_folder.filePath(QStringLiteral("given-up.xlsx")));
    m_driver.Click(QStringLiteral("btnTemplate"));
    QTest::keyClick(m_pDialog->findChild<VxGUI::VxWaitDialog*>(), Qt::Key_Escape);
    EXPECT_EQ(m_host.transfer.vecCancelled, std::vector<int>{m_host.transfer.vecTransfers.back().nTransfer});
    const QString sBefore = Notice();
    m_host.transfer.Finish(UICommonMdl::ErrorCancelled);
    EXPECT_EQ(Notice(), sBefore) << "who gave it up knows";

    m_dialogs.ChooseNextFile(m_folder.filePath(QStringLiteral("missing/sheet.xlsx")));
    m_driver.Click(QStringLiteral("btnTemplate"));
    EXPECT_EQ(Notice(), QStringLiteral("Download path does not exist, failed to download template!"));
    m_host.transfer.bRefuse = true;
    m_dialogs.ChooseNextFile(m_folder.filePath(QStringLiteral("a.xlsx")));
    m_driver.Click(QStringLiteral("btnTemplate"));
    EXPECT_EQ(Notice(), QStringLiteral("Failed to download template!"));
}

TEST_F(ImportDialog, CheckedDevicesOfTheAccountAreImported)
{
    ShowTab(1);
    EXPECT_EQ(Label("lbCloud"), QStringLiteral("From cloud.example"));
    m_driver.Type(QStringLiteral("leP2PUser"), QStringLiteral("me"));
    m_driver.Click(QStringLiteral("btnP2PQuery"));
    EXPECT_EQ(Notice(), QStringLiteral("Please enter user name and password!"));
    m_driver.Type(QStringLiteral("leP2PPassword"), QStringLiteral("a<b"));
    m_driver.Click(QStringLiteral("btnP2PQuery"));
    EXPECT_EQ(m_host.server.Count<wire::QueryCloudDevices>(), 0);
    m_driver.Type(QStringLiteral("leP2PPassword"), QStringLiteral("secret"));
    m_driver.Key(QStringLiteral("leP2PPassword"), Qt::Key_Return);
    EXPECT_FALSE(m_driver.IsUsable(QStringLiteral("btnP2PQuery")));
    m_host.server.AnswerLast<wire::QueryCloudDevices>(
        {0, {{"SN1", "Gate", "M1", 1}, {"SN2", "", "", 0}, {"SN3", "Yard", "M3", 0}}});
    PageDriver::Settle();
    auto* const pTree = m_driver.Find<QTreeView>(QStringLiteral("treeP2P"));
    ASSERT_EQ(pTree->model()->rowCount(), 3);
    m_driver.ClickIndex(pTree, pTree->model()->index(0, 0));
    EXPECT_EQ(Label("lbP2PCount"), QStringLiteral("2 of 3 selected"));
    Screenshot("import-account");
    m_driver.Click(QStringLiteral("btnP2PImport"));
    const auto request = m_host.server.LastImport();
    ASSERT_EQ(request.vecRows.size(), 2U);
    EXPECT_EQ(request.sSource, "p2p");
    EXPECT_EQ(request.vecRows[0].sName, "SN2") << "a device without a name gets its serial number";
    EXPECT_EQ(request.vecRows[0].sConnect, "5");
    EXPECT_EQ(request.vecRows[1].sSerialNumber, "SN3");
    Report(true, {2, 2, 2, 0, {}, {}, {}});
    EXPECT_EQ(Label("lbResult"), QStringLiteral("Imported successfully"));
}

TEST_F(ImportDialog, AccountFailuresReleaseTheSection)
{
    ShowTab(1);
    m_driver.Type(QStringLiteral("leP2PUser"), QStringLiteral("me"));
    m_driver.Type(QStringLiteral("leP2PPassword"), QStringLiteral("secret"));
    const auto ask = [this](int nCloudCode) {
        m_driver.Click(QStringLiteral("btnP2PQuery"));
        m_host.server.AnswerLast<wire::QueryCloudDevices>({nCloudCode, {}});
        PageDriver::Settle();
        EXPECT_TRUE(m_driver.IsUsable(QStringLiteral("btnP2PQuery")));
        EXPECT_FALSE(m_driver.IsUsable(QStringLiteral("btnP2PImport")));
        return Notice();
    };
    EXPECT_EQ(ask(2), QStringLiteral("Failed to get P2P device list: 2 Password error"));
    EXPECT_EQ(ask(0), QStringLiteral("Import P2P device list is empty."));
    m_host.server.Refuse<wire::QueryCloudDevices>();
    m_driver.Click(QStringLiteral("btnP2PQuery"));
    EXPECT_EQ(Notice(),
        QStringLiteral("Failed to get P2P device list. The request could not be sent to the server."));
}

TEST_F(ImportDialog, WithoutAnAccountServiceTheSectionSaysSo)
{
    m_driver.Click(QStringLiteral("btnClose"));
    m_features = {};
    Open();
    ShowTab(1);
    EXPECT_EQ(m_driver.Find<VxGUI::VxEmptyState>(QStringLiteral("wgtP2PState"))->GetTitle(),
        QStringLiteral("The platform has no cloud account service configured."));
    EXPECT_FALSE(m_driver.IsShown(QStringLiteral("leP2PUser")));

    m_driver.Click(QStringLiteral("btnClose"));
    m_host.server.FailAlways<wire::GetFeatures>(UICommonMdl::ErrorTimeOut);
    Open();
    EXPECT_TRUE(Notice().startsWith(QStringLiteral("Failed to query features.")));
    m_features.bCloudAccount = true;
    m_host.server.AnswerAlways<wire::GetFeatures>([this](const auto&, auto& answer) { answer = m_features; });
    Q_EMIT m_driver.Find<VxGUI::VxEmptyState>(QStringLiteral("wgtP2PState"))->SignalAction();
    PageDriver::Settle();
    EXPECT_TRUE(m_driver.IsShown(QStringLiteral("leP2PUser")));
    EXPECT_FALSE(m_pDialog->findChild<QWidget*>(QStringLiteral("btnTemplate"))->isEnabled()) << "no address";
}

} // namespace

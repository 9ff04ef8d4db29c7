#include "DevicePageFixture.h"

#include <ResourceManagerUI/CDevMove.h>
#include <ResourceManagerUI/CDeviceTableHeader.h>
#include <ResourceManagerUI/DeviceSettings/CBulkResetPassword.h>
#include <ResourceManagerUI/DeviceSettings/CDevTimeZone.h>
#include <UICommonMdl/CNumberPageCtrl.h>
#include <UICommonMdl/ErrorCodes.h>
#include <VxGUI/VxEmptyState.h>
#include <tests/support/core/QtWarnings.h>

#include <QDialogButtonBox>
#include <QLabel>
#include <QTemporaryDir>

using namespace ResourceManagerUI;

namespace {
// Without a display a pop-up can be shown, but neither raised nor given the keyboard.
const QString PopUpWarning = QStringLiteral("This plugin does not support");
} // namespace

class DevicePage : public DevicePageFixture
{
};

TEST_F(DevicePage, FirstQueryAsksForTheFirstPageByDescendingAddress)
{
    Open();
    const auto vecCalls = m_host.server.Calls<wire::QueryDevicePage>();
    ASSERT_FALSE(vecCalls.empty());
    const auto request = vecCalls.front().Request<wire::QueryDevicePage>();
    EXPECT_EQ(request.nPage, 1);
    EXPECT_FALSE(request.bAscending);
    EXPECT_EQ(request.nSortField, GroupLogical::SortByIp);
    EXPECT_EQ(request.nOnlineState, GroupLogical::StateAll);
    EXPECT_EQ(request.nCategory, 0);
    EXPECT_EQ(LastRequest().sOrgCode, "001");
    EXPECT_EQ(Model()->rowCount(), 12);
    m_pDriver->Screenshot(QStringLiteral("devices"));
    EXPECT_EQ(Cell(2, ColumnOnline), QStringLiteral("Offline"));
    EXPECT_EQ(Cell(2, ColumnOfflineReason), QStringLiteral("Connection refused"));
}

TEST_F(DevicePage, FiltersCombineIntoOneQueryOfTheFirstPage)
{
    const ExpectWarning popUp(PopUpWarning);
    Open();
    m_pDriver->Find<UICommonMdl::CNumberPageCtrl>(QStringLiteral("wgtTableFlip"))->SetCurrentPage(3);
    m_pDriver->Click(QStringLiteral("btnLiftControllerDevice"));
    EXPECT_EQ(LastRequest().nCategory, 50);
    EXPECT_EQ(LastRequest().nPage, 1);
    m_pDriver->Type(QStringLiteral("editSearch"), QStringLiteral("Gate 1"));
    m_pDriver->Key(QStringLiteral("editSearch"), Qt::Key_Return);
    auto* pHeader = m_pDriver->Find<CDeviceTableHeader>(QStringLiteral("headerDevice"));
    QTest::mouseClick(pHeader->viewport(), Qt::LeftButton, {}, pHeader->GetFilterRect(ColumnOnline).center());
    Trigger(QStringLiteral("menuFilter"), QStringLiteral("Offline"));
    PageDriver::Settle();
    const Request request = LastRequest();
    EXPECT_EQ(request.nCategory, 50);
    EXPECT_EQ(request.sSearchText, "Gate%201");
    EXPECT_EQ(request.nOnlineState, GroupLogical::StateOffline);
    EXPECT_FALSE(m_pDriver->IsShown(QStringLiteral("btnRaderDevice")));

    QTest::mouseClick(pHeader->viewport(), Qt::LeftButton, {}, pHeader->GetFilterRect(ColumnType).center());
    Trigger(QStringLiteral("menuFilter"), QStringLiteral("Access Control"));
    EXPECT_EQ(LastRequest().nCategory, 8);
    EXPECT_TRUE(m_pDriver->Find<QPushButton>(QStringLiteral("btnAccessDevice"))->isChecked());
}

TEST_F(DevicePage, AddressAndNameSortOnTheServer)
{
    Open();
    auto* pHeader = m_pDriver->Find<CDeviceTableHeader>(QStringLiteral("headerDevice"));
    const auto click = [&](int nColumn) {
        QTest::mouseClick(pHeader->viewport(), Qt::LeftButton, {},
            QPoint(pHeader->sectionViewportPosition(nColumn) + 20, pHeader->height() / 2));
        PageDriver::Settle();
    };
    click(ColumnName);
    EXPECT_EQ(LastRequest().nSortField, GroupLogical::SortByName);
    EXPECT_FALSE(LastRequest().bAscending) << "the order in use stays";
    click(ColumnName);
    EXPECT_TRUE(LastRequest().bAscending);
    click(ColumnIp);
    EXPECT_EQ(LastRequest().nSortField, GroupLogical::SortByIp);
    click(ColumnOrganization);
    EXPECT_EQ(LastRequest().nSortField, GroupLogical::SortByName);
    EXPECT_TRUE(LastRequest().bAscending);
    EXPECT_EQ(pHeader->sortIndicatorSection(), int(ColumnOrganization));
    const int nQueries = m_host.server.Count<wire::QueryDevicePage>();
    click(ColumnOperation);
    EXPECT_EQ(m_host.server.Count<wire::QueryDevicePage>(), nQueries);
    EXPECT_EQ(pHeader->sortIndicatorSection(), int(ColumnOrganization));
}

TEST_F(DevicePage, AnswersThatAreNotPendingAreDropped)
{
    Open();
    m_host.server.Hold<wire::QueryDevicePage>();
    m_pDriver->Click(QStringLiteral("btnEncodeDevice"));
    const FakeCall first = m_host.server.Last<wire::QueryDevicePage>();
    m_pDriver->Click(QStringLiteral("btnAccessDevice"));
    const FakeCall second = m_host.server.Last<wire::QueryDevicePage>();
    const auto answer = [this](const FakeCall& call, const char* pszName) {
        GroupLogical::DeviceInfo_t device;
        device.sDeviceId = device.sName = pszName;
        m_host.server.Answer<wire::QueryDevicePage>(call, {{device}, 1, 1});
    };
    answer(second, "second");
    answer(first, "late");
    PageDriver::Settle();
    ASSERT_EQ(Model()->rowCount(), 1);
    EXPECT_EQ(Cell(0, ColumnName), QStringLiteral("second"));
}

TEST_F(DevicePage, PushesAreGatheredIntoOneQuery)
{
    Open();
    CheckRows(2);
    m_host.site.vecDevices.erase(m_host.site.vecDevices.begin());
    m_host.site.vecOrganizations.pop_back();
    const int nQueries = m_host.server.Count<wire::QueryDevicePage>();
    m_host.server.Push(wire::event::DevicesChanged);
    m_host.server.Push(wire::event::OrganizationsChanged);
    m_host.server.Push(wire::event::OrganizationsChanged);
    EXPECT_TRUE(PageDriver::WaitFor([&] { return Model()->rowCount() == 11; }));
    PageDriver::Settle();
    EXPECT_EQ(m_host.server.Count<wire::QueryDevicePage>(), nQueries + 1);
    EXPECT_EQ(m_host.server.Count<wire::QueryOrganizations>(), 2);
    EXPECT_EQ(Model()->GetCheckedCount(), 2);
}

TEST_F(DevicePage, StatePushChangesTheRowInPlace)
{
    Open();
    const int nQueries = m_host.server.Count<wire::QueryDevicePage>();
    m_host.server.Push(wire::event::DeviceStates,
        wire::DeviceStates{{{"1001", GroupLogical::StateOffline, GroupLogical::ReasonTimeOut},
            {"1003", GroupLogical::StateOnline, GroupLogical::ReasonNone}, {"9999", 1, 0}}});
    PageDriver::Settle();
    EXPECT_EQ(Cell(0, ColumnOnline), QStringLiteral("Offline"));
    EXPECT_EQ(Cell(0, ColumnOfflineReason), QStringLiteral("Connection timed out"));
    EXPECT_EQ(Cell(2, ColumnOnline), QStringLiteral("Online"));
    EXPECT_EQ(Cell(2, ColumnOfflineReason), QString());
    EXPECT_EQ(m_host.server.Count<wire::QueryDevicePage>(), nQueries);
}

TEST_F(DevicePage, FailedQueriesShowTheirState)
{
    using Kind = VxGUI::VxEmptyState::Kind;
    const std::pair<int, Kind> cases[] = {{UICommonMdl::ErrorNoRight, Kind::NoPermission},
        {UICommonMdl::ErrorDatabaseBusy, Kind::Failed}, {UICommonMdl::ErrorTimeOut, Kind::Failed}};
    for (const auto& [nErrorCode, kind] : cases) {
        m_host.server.FailAlways<wire::QueryDevicePage>(nErrorCode);
        Open();
        EXPECT_EQ(m_pDriver->Find<VxGUI::VxEmptyState>(QStringLiteral("wgtTableState"))->GetKind(), kind);
        EXPECT_TRUE(m_pDriver->IsShown(QStringLiteral("wgtTableState"))) << nErrorCode;
        Close();
    }
    m_host.server.Refuse<wire::QueryDevicePage>();
    Open();
    EXPECT_EQ(
        Notice(), QStringLiteral("Failed to get device list: The request could not be sent to the server."));
}

TEST_F(DevicePage, MoveSendsTheCheckedDevicesOfAllPagesAndListsFailures)
{
    CheckOnTwoPages();
    m_pDriver->Click(QStringLiteral("btnMoveTo"));
    auto* pDialog = FindDialog<CDevMove>();
    ASSERT_TRUE(pDialog);
    auto* pTree = pDialog->findChild<QTreeView*>();
    pTree->setCurrentIndex(pTree->model()->index(0, 0, pTree->model()->index(0, 0)));
    auto* pButtons = pDialog->findChild<QDialogButtonBox*>();
    QTest::mouseClick(pButtons->button(QDialogButtonBox::Ok), Qt::LeftButton);
    const auto moved = m_host.server.LastRequest<wire::MoveDevice>();
    EXPECT_EQ(moved.vecDeviceIds, (Ids{"2001", "1001", "1002"}));
    EXPECT_EQ(moved.sOrgCode, "001001");
    m_host.server.AnswerLast<wire::MoveDevice>({{{"1002", {}, UICommonMdl::ErrorNotFound, {}}}});
    PageDriver::Settle();
    EXPECT_TRUE(m_dialogs.LastText().contains(QStringLiteral("Result of failure is shown below:")));
    EXPECT_TRUE(m_dialogs.LastDetails().startsWith(QStringLiteral("Camera 2: ")))
        << "named also while it is on another page";
}

TEST_F(DevicePage, PasswordsAndTimeZonesAreSetOnAllPages)
{
    CheckOnTwoPages();
    m_pDriver->Click(QStringLiteral("btnResetPwd"));
    auto* const pPasswords = FindDialog<CBulkResetPassword>();
    ASSERT_TRUE(pPasswords);
    EXPECT_TRUE(
        pPasswords->findChild<QLabel*>(QStringLiteral("lbDevices"))->text().endsWith(QLatin1Char('3')));
    pPasswords->reject();
    PageDriver::Settle();
    m_pDriver->Click(QStringLiteral("btnTimeZone"));
    auto* const pZones = FindDialog<CDevTimeZone>();
    ASSERT_TRUE(pZones);
    const auto* const pList = pZones->findChild<QTreeView*>(QStringLiteral("treeDevices"))->model();
    QStringList listNames;
    for (int nRow = 0; nRow < pList->rowCount(); ++nRow)
        listNames.append(pList->index(nRow, 0).data().toString());
    EXPECT_EQ(listNames.join(QLatin1Char('/')).toStdString(), "Door 1/Camera 1/Camera 2");
    pZones->reject();
}

TEST_F(DevicePage, WithoutTheRightExportSaysWhyItCannotBeUsed)
{
    m_host.SetMissingRights({"004002"});
    Open();
    const auto* const pExport = m_pDriver->Find(QStringLiteral("btnExport"));
    EXPECT_FALSE(pExport->isEnabled());
    EXPECT_EQ(pExport->toolTip(), QStringLiteral("You have no permission to export devices."));
    m_host.SetMissingRights({});
    PageDriver::Settle();
    EXPECT_TRUE(pExport->isEnabled());
}

TEST_F(DevicePage, ExportWritesTheListAndReportsFailures)
{
    QTemporaryDir folder;
    Open();
    m_dialogs.ChooseNextFile(folder.filePath(QStringLiteral("list")));
    m_pDriver->Click(QStringLiteral("btnExport"));
    EXPECT_TRUE(PageDriver::WaitFor([&] { return Notice() == QStringLiteral("Devices are exported."); }));
    EXPECT_GT(QFileInfo(folder.filePath(QStringLiteral("list.xlsx"))).size(), 1000);

    m_dialogs.ChooseNextFile(QStringLiteral("/nowhere/at/all.xlsx"));
    m_pDriver->Click(QStringLiteral("btnExport"));
    EXPECT_TRUE(PageDriver::WaitFor(
        [&] { return Notice().startsWith(QStringLiteral("Failed to export device info")); }));
}

TEST_F(DevicePage, TabGoesAsTheEyeDoes)
{
    Open();
    const QStringList listWay{QStringLiteral("treeOrg"), QStringLiteral("btnAdd"),
        QStringLiteral("btnRefresh"), QStringLiteral("editSearch"), QStringLiteral("btnAllDevice"),
        QStringLiteral("treeDevice"), QStringLiteral("btnNextPage"), QStringLiteral("btnExpand")};
    QStringList listSeen;
    QWidget* pWidget = Table()->window();
    do {
        pWidget = pWidget->nextInFocusChain();
        if (listWay.contains(pWidget->objectName()))
            listSeen.append(pWidget->objectName());
    } while (pWidget != Table()->window());
    EXPECT_EQ(listSeen.join(QLatin1Char(' ')).toStdString(), listWay.join(QLatin1Char(' ')).toStdString());
}

TEST_F(DevicePage, PageGoneWhilePushesComeFromAnotherThread)
{
    m_host.server.Hold<wire::QueryDevicePage>();
    for (int n = 0; n < 20; ++n) {
        Open();
        m_host.server.PushUntilJoin(wire::event::DevicesChanged);
        PageDriver::Settle();
        Close();
        EXPECT_EQ(m_host.CountObservers(), 0);
        m_host.server.Join();
    }
    PageDriver::Settle();
}

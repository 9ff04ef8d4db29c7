#include "LiveClient.h"

#include <PlatformConfigUI/CUserManagerWidget.h>
#include <RoleManager/CRoleManagerEditDlg.h>
#include <UserManager/CRoleSelectPopView.h>
#include <UserManager/CUserManagerUserEditDlg.h>
#include <VxGUI/VxLineEdit.h>
#include <client/app/CMainWindow.h>
#include <client/app/CPluginHost.h>
#include <tests/support/core/QtWarnings.h>

#include <QCheckBox>
#include <QPushButton>
#include <QTabBar>
#include <QTabWidget>
#include <QToolButton>

using namespace PlatformConfigUI;
using TestSupport::TestServer;
using TestSupport::TestServerOptions;

namespace {

/// What a role's dialog has to show before it is used.
QTreeView* Tree(QWidget* pDialog, const char* pszName)
{
    auto* const pTree = pDialog->findChild<QTreeView*>(QLatin1String(pszName));
    EXPECT_TRUE(pTree) << pszName;
    return pTree;
}

QModelIndex FindNode(const QTreeView* pTree, const QString& sText)
{
    const QModelIndexList list = pTree->model()->match(
        pTree->model()->index(0, 0), Qt::DisplayRole, sText, 1, Qt::MatchExactly | Qt::MatchRecursive);
    return list.isEmpty() ? QModelIndex() : list.first();
}

/// The page of users and roles of an administrator, on the real server.
class Accounts : public testing::Test
{
protected:
    void SetUp() override
    {
        m_pClient = std::make_unique<LiveClient>(m_server);
        m_pPage.reset(CUserManagerWidget(m_pClient->Interfaces()).GetWidget(nullptr));
        m_pDriver = std::make_unique<PageDriver>(*m_pPage, QSize(1280, 800));
        m_pClient->WaitIdle();
    }
    void TearDown() override
    {
        CloseGuard();
        m_pDriver.reset();
        m_pPage.reset();
    }

    void ShowTab(int nTab)
    {
        m_pPage->findChild<QTabBar*>(QStringLiteral("tabPages"))->setCurrentIndex(nTab);
        m_pClient->WaitIdle();
    }
    /// A button of the page that is shown, or of a dialog.
    static void Press(QWidget* pParent, const char* pszName)
    {
        for (QAbstractButton* pButton : pParent->findChildren<QAbstractButton*>(QLatin1String(pszName))) {
            if (!pButton->isVisible())
                continue;
            EXPECT_TRUE(pButton->isEnabled()) << pszName;
            QTest::mouseClick(pButton, Qt::LeftButton);
            PageDriver::Settle();
            return;
        }
        ADD_FAILURE() << pszName << " is not shown";
    }
    static void Type(QWidget* pDialog, const char* pszName, const QString& sText)
    {
        auto* const pEdit = pDialog->findChild<VxGUI::VxLineEdit*>(QLatin1String(pszName));
        ASSERT_TRUE(pEdit) << pszName;
        pEdit->GetLineEdit()->setFocus();
        pEdit->GetLineEdit()->selectAll();
        QTest::keyClicks(pEdit->GetLineEdit(), sText);
    }
    static void ClickBox(QTreeView* pTree, const QString& sText)
    {
        ASSERT_TRUE(PageDriver::WaitFor([&] { return FindNode(pTree, sText).isValid(); }))
            << qPrintable(sText);
        const QModelIndex index = FindNode(pTree, sText);
        pTree->scrollTo(index);
        const QRect cell = pTree->visualRect(index);
        QTest::mouseClick(
            pTree->viewport(), Qt::LeftButton, Qt::NoModifier, {cell.left() + 12, cell.center().y()});
        PageDriver::Settle();
    }
    /// Opens the list's row by a double click and waits for the dialog's trees.
    template <class Dialog>
    Dialog* OpenRow(const char* pszList, const QString& sText)
    {
        auto* const pList = m_pPage->findChild<QTreeView*>(QLatin1String(pszList));
        QModelIndex index;
        EXPECT_TRUE(PageDriver::WaitFor([&] {
            const QModelIndexList list = pList->model()->match(pList->model()->index(0, 1), Qt::DisplayRole,
                sText, 1, Qt::MatchExactly | Qt::MatchRecursive);
            index = list.isEmpty() ? QModelIndex() : list.first();
            return index.isValid();
        })) << qPrintable(sText);
        const QPoint place = pList->visualRect(index).center();
        QTest::mouseClick(pList->viewport(), Qt::LeftButton, Qt::NoModifier, place);
        QTest::mouseDClick(pList->viewport(), Qt::LeftButton, Qt::NoModifier, place);
        PageDriver::Settle();
        m_pClient->WaitIdle();
        return m_pPage->findChild<Dialog*>();
    }
    template <class Dialog>
    void WaitClosed()
    {
        EXPECT_TRUE(PageDriver::WaitFor([this] {
            const auto* const pDialog = m_pPage->findChild<Dialog*>();
            return !pDialog || !pDialog->isVisible();
        }));
        m_pClient->WaitIdle();
    }
    void AddRole(const QString& sName, const QStringList& listMenu, const QStringList& listOrganizations)
    {
        ShowTab(1);
        Press(m_pPage.get(), "btnAdd");
        m_pClient->WaitIdle();
        auto* const pDialog = m_pPage->findChild<CRoleManagerEditDlg*>();
        ASSERT_TRUE(pDialog);
        Type(pDialog, "editRoleName", sName);
        for (const QString& sRight : listMenu)
            ClickBox(Tree(pDialog, "treeMenu"), sRight);
        pDialog->findChild<QTabWidget*>(QStringLiteral("tabRights"))->setCurrentIndex(2);
        QTreeView* const pTree = Tree(pDialog, "treeDevice");
        ASSERT_TRUE(PageDriver::WaitFor([&] { return FindNode(pTree, QStringLiteral("Root")).isValid(); }));
        pTree->expand(FindNode(pTree, QStringLiteral("Root")));
        for (const QString& sOrganization : listOrganizations)
            ClickBox(pTree, sOrganization);
        Shoot(pDialog, "role");
        Press(pDialog, "btnOk");
        WaitClosed<CRoleManagerEditDlg>();
    }
    void AddUser(const QString& sName, const QString& sRole)
    {
        ShowTab(0);
        Press(m_pPage.get(), "btnAdd");
        m_pClient->WaitIdle();
        auto* const pDialog = m_pPage->findChild<CUserManagerUserEditDlg*>();
        ASSERT_TRUE(pDialog);
        Type(pDialog, "edtUserName", sName);
        Type(pDialog, "edtPassword", QString::fromStdString(TestServer::AdminPassword()));
        Type(pDialog, "edtConfirmPassword", QString::fromStdString(TestServer::AdminPassword()));
        pDialog->findChild<QTabWidget*>(QStringLiteral("tabUser"))->setCurrentIndex(1);
        m_pClient->WaitIdle();
        {
            const ExpectWarning warning(QStringLiteral("This plugin does not support"));
            Press(pDialog, "btnAddRole");
        }
        auto* const pPopup = pDialog->findChild<CRoleSelectPopView*>();
        ASSERT_TRUE(pPopup);
        auto* const pTable = Tree(pPopup, "tableRoles");
        for (int nRow = 0; nRow < pTable->model()->rowCount(); ++nRow) {
            const QModelIndex index = pTable->model()->index(nRow, 1);
            if (index.data().toString() != sRole)
                continue;
            pTable->setFocus();
            pTable->setCurrentIndex(index);
            QTest::keyClick(pTable, Qt::Key_Space);
        }
        pPopup->close();
        PageDriver::Settle();
        Shoot(pDialog, "user");
        Press(pDialog, "btnOk");
        WaitClosed<CUserManagerUserEditDlg>();
    }

    /// A second client with its home page.
    void OpenGuard(const std::string& sUser)
    {
        m_pGuard = std::make_unique<LiveClient>(m_server, sUser);
        m_pPlugin = std::make_unique<ClientApp::CPluginHost>();
        const QString sError = m_pPlugin->Load(qEnvironmentVariable("PRODUCT_BINARY_DIR")
                + QStringLiteral("/lib/plugins/libConfigManagerPlugin.so"),
            &m_pGuard->Client());
        ASSERT_TRUE(sError.isEmpty()) << qPrintable(sError);
        m_pWindow =
            std::make_unique<ClientApp::CMainWindow>(m_pGuard->Client(), m_pPlugin->GetTopLevelWidget());
        m_pWindow->resize(1280, 800);
        m_pWindow->show();
        PageDriver::Settle();
    }
    void CloseGuard()
    {
        m_pWindow.reset();
        m_pPlugin.reset();
        m_pGuard.reset();
    }
    QStringList Tabs()
    {
        QStringList listNames;
        for (const QToolButton* pTab : m_pWindow->findChildren<QToolButton*>()) {
            if (pTab->property("tab").toBool() && pTab->isVisible())
                listNames << pTab->objectName();
        }
        listNames.sort();
        return listNames;
    }
    static void Shoot(QWidget* pWidget, const char* pszName)
    {
        const QString sFolder = qEnvironmentVariable("PRODUCT_SCREENSHOT_DIR");
        if (!sFolder.isEmpty())
            pWidget->grab().save(
                sFolder + QStringLiteral("/account-") + QLatin1String(pszName) + QStringLiteral(".png"));
    }
    int Count(const char* pszSql) { return m_server.QuerySql(QString::fromLatin1(pszSql)).toInt(); }

    TestServer m_server{[] {
        TestServerOptions options;
        options.bSeedDemo = true;
        return options;
    }()};
    RecordingDialogService m_dialogs;
    std::unique_ptr<LiveClient> m_pClient;
    std::unique_ptr<QWidget> m_pPage;
    std::unique_ptr<PageDriver> m_pDriver;
    std::unique_ptr<LiveClient> m_pGuard;
    std::unique_ptr<ClientApp::CPluginHost> m_pPlugin;
    std::unique_ptr<ClientApp::CMainWindow> m_pWindow;
};

} // namespace

TEST_F(Accounts, ANewUserSeesJustWhatHisRoleReachesAndFollowsItsChanges)
{
    AddRole(QStringLiteral("Two regions"), {QStringLiteral("Device"), QStringLiteral("Event")},
        {QStringLiteral("Northern Region"), QStringLiteral("Central Region")});
    AddUser(QStringLiteral("gus"), QStringLiteral("Two regions"));
    const int nReached = Count(
        "SELECT COUNT(*) FROM device WHERE org_code IN (SELECT a.code FROM organization_ancestor a "
        "JOIN organization o ON o.code = a.ancestor WHERE o.name IN ('Northern Region', 'Central Region'))");
    ASSERT_GT(nReached, 0);
    ASSERT_LT(nReached, Count("SELECT COUNT(*) FROM device"));
    m_server.Restart();
    m_pClient->WaitIdle();

    ASSERT_NO_FATAL_FAILURE(OpenGuard("gus"));
    EXPECT_EQ(
        Tabs(), (QStringList{QStringLiteral("EventConfigWidget"), QStringLiteral("ResourceManagerWidget")}));
    Shoot(m_pWindow.get(), "second-client");
    m_pGuard->OpenPage();
    EXPECT_EQ(m_pGuard->Total(), nReached);
    m_pGuard->ClosePage();

    // The right is taken away while his client is open, and given back.
    for (const bool bGiven : {false, true}) {
        ShowTab(1);
        auto* const pDialog = OpenRow<CRoleManagerEditDlg>("treeRole", QStringLiteral("Two regions"));
        ASSERT_TRUE(pDialog);
        ClickBox(Tree(pDialog, "treeMenu"), QStringLiteral("Event"));
        Press(pDialog, "btnOk");
        WaitClosed<CRoleManagerEditDlg>();
        EXPECT_TRUE(PageDriver::WaitFor([&] { return Tabs().size() == (bGiven ? 2 : 1); }));
    }
    Shoot(m_pPage.get(), "roles");

    // What he sees of the devices changes just so.
    m_pGuard->OpenPage();
    auto* const pDialog = OpenRow<CRoleManagerEditDlg>("treeRole", QStringLiteral("Two regions"));
    ASSERT_TRUE(pDialog);
    pDialog->findChild<QTabWidget*>(QStringLiteral("tabRights"))->setCurrentIndex(2);
    QTreeView* const pTree = Tree(pDialog, "treeDevice");
    ASSERT_TRUE(PageDriver::WaitFor([&] { return FindNode(pTree, QStringLiteral("Root")).isValid(); }));
    pTree->expand(FindNode(pTree, QStringLiteral("Root")));
    ClickBox(pTree, QStringLiteral("Central Region"));
    Press(pDialog, "btnOk");
    WaitClosed<CRoleManagerEditDlg>();
    EXPECT_TRUE(PageDriver::WaitFor([&] { return m_pGuard->Total() < nReached; }));
    m_pGuard->ClosePage();

    // And the log says who did all that.
    ShowTab(2);
    auto* const pLog = m_pPage->findChild<QTreeView*>(QStringLiteral("treeAudit"));
    ASSERT_TRUE(pLog);
    EXPECT_TRUE(PageDriver::WaitFor([&] { return pLog->model()->rowCount() >= 6; }));
    Shoot(m_pPage.get(), "log");
}

TEST_F(Accounts, ALockedUserIsSentToTheSignIn)
{
    m_server.AddAccount("gus", {"001001"});
    ASSERT_NO_FATAL_FAILURE(OpenGuard("gus"));
    bool bEnded = false;
    QObject context;
    QObject::connect(&m_pGuard->Client(), &PlatformLogic::CPlatformClient::SignalSessionEnded, &context,
        [&] { bEnded = true; });
    ASSERT_GT(m_pClient->Client().GetUserManager()->LockUser("gus"), 0);
    EXPECT_TRUE(PageDriver::WaitFor([&] { return bEnded; }));
    EXPECT_FALSE(m_pGuard->Client().IsSignedIn());
}

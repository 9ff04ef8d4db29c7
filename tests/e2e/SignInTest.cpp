#include "LiveClient.h"

#include <UICommonMdl/CErrorCode.h>
#include <VxGUI/VxEmptyState.h>
#include <VxGUI/VxLineEdit.h>
#include <VxPluginAPI/IAbstractUI.h>
#include <VxPluginAPI/IAbstractWidget.h>
#include <VxPluginAPI/IPluginAPI.h>
#include <client/app/CClientApp.h>
#include <client/app/CMainWindow.h>
#include <client/app/CPluginHost.h>
#include <client/app/CSignInDlg.h>
#include <server/services/RightsService.h>

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPluginLoader>
#include <QPointer>
#include <QToolButton>

using ClientApp::CSignInDlg;
using TestSupport::TestServer;
using TestSupport::TestServerOptions;

namespace {

class SignIn : public testing::Test
{
protected:
    void Open(bool bSetUp)
    {
        TestServerOptions options;
        options.bSetUp = bSetUp;
        m_pServer = std::make_unique<TestServer>(options);
        m_client.SetServer(m_pServer->Url());
        m_pDialog = std::make_unique<CSignInDlg>(m_client);
        m_pDriver = std::make_unique<PageDriver>(*m_pDialog, QSize(420, 520));
        m_pDialog->Connect();
        PageDriver::WaitFor([&] { return m_pDriver->IsUsable(QStringLiteral("btnSignIn")); });
    }

    void Submit(const QString& sUser, const QString& sPassword)
    {
        m_pDriver->Type(QStringLiteral("edtUserName"), sUser);
        m_pDriver->Type(QStringLiteral("edtPassword"), sPassword);
        m_pDriver->Key(QStringLiteral("edtPassword"), Qt::Key_Return);
        PageDriver::WaitFor([&] { return m_client.GetOpenRequestCount() == 0; });
        PageDriver::Settle();
    }

    QString Error() { return m_pDriver->Find<QLabel>(QStringLiteral("lbError"))->text(); }

    QTemporaryDir m_folder;
    std::unique_ptr<TestServer> m_pServer;
    PlatformLogic::CPlatformClient m_client{m_folder.path()};
    std::unique_ptr<CSignInDlg> m_pDialog;
    std::unique_ptr<PageDriver> m_pDriver;
};

} // namespace

TEST_F(SignIn, TheFirstStartAsksForThePasswordOfTheBuiltInAccount)
{
    Open(false);
    struct
    {
        const char* pszPassword;
        const char* pszConfirm;
        const char* pszField; ///< that shows the fault
    } const faults[] = {{"short1", "short1", "edtPassword"}, {"aaaaaaaaaa", "aaaaaaaaaa", "edtPassword"},
        {"password123", "password123", "edtPassword"}, {"Lantern-42", "Lantern-43", "edtConfirm"}};
    for (const auto& fault : faults) {
        m_pDriver->Type(QStringLiteral("edtPassword"), QLatin1String(fault.pszPassword));
        m_pDriver->Type(QStringLiteral("edtConfirm"), QLatin1String(fault.pszConfirm));
        m_pDriver->Click(QStringLiteral("btnSignIn"));
        EXPECT_FALSE(
            m_pDriver->Find<VxGUI::VxLineEdit>(QLatin1String(fault.pszField))->GetErrorHint().isEmpty())
            << fault.pszPassword;
        EXPECT_EQ(m_client.GetOpenRequestCount(), 0);
    }
    m_pDriver->Type(QStringLiteral("edtPassword"), QStringLiteral("Lantern-42"));
    m_pDriver->Type(QStringLiteral("edtConfirm"), QStringLiteral("Lantern-42"));
    m_pDriver->Click(QStringLiteral("btnSignIn"));
    PageDriver::WaitFor([&] { return m_pDialog->result() == QDialog::Accepted; });
    EXPECT_TRUE(m_client.IsSignedIn());
    EXPECT_EQ(m_client.GetUserManager()->GetMenuRights().size(), 15U);
}

TEST_F(SignIn, WrongPasswordsLockTheAccountAndSaySo)
{
    Open(true);
    for (int i = 0; i < 5; ++i) {
        Submit(QStringLiteral("system"), QStringLiteral("Wrong-1234"));
        EXPECT_FALSE(Error().isEmpty());
        EXPECT_FALSE(m_client.IsSignedIn());
    }
    Submit(QStringLiteral("system"), QString::fromStdString(TestServer::AdminPassword()));
    EXPECT_EQ(Error(), UICommonMdl::CErrorCode::GetErroCodeInfor(UICommonMdl::ErrorAccountLocked));
    m_pServer->AdvanceClock(5 * 60 * 1000 + 1);
    Submit(QStringLiteral("system"), QString::fromStdString(TestServer::AdminPassword()));
    EXPECT_TRUE(m_client.IsSignedIn());
}

TEST_F(SignIn, APasswordThatIsDueIsChangedWithTheSignIn)
{
    Open(true);
    m_pServer->AddAccount("guard", {"001001"});
    m_pServer->RunSql(QStringLiteral("UPDATE account SET force_change = 1 WHERE name = 'guard'"));
    Submit(QStringLiteral("guard"), QString::fromStdString(TestServer::AdminPassword()));
    EXPECT_FALSE(m_client.IsSignedIn());
    ASSERT_TRUE(m_pDriver->IsShown(QStringLiteral("edtNewPassword")));
    EXPECT_FALSE(m_pDriver->IsShown(QStringLiteral("edtPassword")));
    m_pDriver->Screenshot(QStringLiteral("sign-in-new-password"));
    const auto choose = [&](const char* pszPassword) {
        m_pDriver->Type(QStringLiteral("edtNewPassword"), QLatin1String(pszPassword));
        m_pDriver->Type(QStringLiteral("edtConfirm"), QLatin1String(pszPassword));
        m_pDriver->Click(QStringLiteral("btnSignIn"));
        PageDriver::WaitFor([&] { return m_client.GetOpenRequestCount() == 0; });
        PageDriver::Settle();
    };
    for (const char* pszBad : {"short1", "guard", "Lantern-42"}) {
        choose(pszBad);
        EXPECT_FALSE(
            m_pDriver->Find<VxGUI::VxLineEdit>(QStringLiteral("edtNewPassword"))->GetErrorHint().isEmpty())
            << pszBad;
        EXPECT_FALSE(m_client.IsSignedIn());
    }
    choose("Windmill-23");
    EXPECT_TRUE(m_client.IsSignedIn());
}

TEST_F(SignIn, AServerThatIsDownCanBeTriedAgain)
{
    Open(true);
    m_pServer->Stop();
    m_pDialog->Connect();
    PageDriver::WaitFor([&] { return m_pDriver->IsUsable(QStringLiteral("btnStateAction")); });
    EXPECT_EQ(m_pDialog->findChild<VxGUI::VxEmptyState*>()->GetKind(), VxGUI::VxEmptyState::Kind::Failed);
    m_pServer->Start();
    m_pDriver->Click(QStringLiteral("btnStateAction"));
    PageDriver::WaitFor([&] { return m_pDriver->IsUsable(QStringLiteral("btnSignIn")); });
}

namespace {

QString PluginPath()
{
    return qEnvironmentVariable("PRODUCT_BINARY_DIR")
        + QStringLiteral("/lib/plugins/libConfigManagerPlugin.so");
}

/// The client's window on the plug-in library itself.
class MainWindow : public testing::Test
{
protected:
    void Open(const std::string& sUser)
    {
        m_pClient = std::make_unique<LiveClient>(m_server, sUser);
        m_pPlugin = std::make_unique<ClientApp::CPluginHost>();
        const QString sError = m_pPlugin->Load(PluginPath(), &m_pClient->Client());
        ASSERT_TRUE(sError.isEmpty()) << qPrintable(sError);
        m_pWindow =
            std::make_unique<ClientApp::CMainWindow>(m_pClient->Client(), m_pPlugin->GetTopLevelWidget());
        m_pDriver = std::make_unique<PageDriver>(*m_pWindow, QSize(1280, 800));
    }

    void TearDown() override
    {
        m_pDriver.reset();
        m_pWindow.reset();
        m_pPlugin.reset();
        m_pClient.reset();
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

    TestServer m_server{[] {
        TestServerOptions options;
        options.bSeedDemo = true;
        return options;
    }()};
    std::unique_ptr<LiveClient> m_pClient;
    std::unique_ptr<ClientApp::CPluginHost> m_pPlugin;
    std::unique_ptr<ClientApp::CMainWindow> m_pWindow;
    std::unique_ptr<PageDriver> m_pDriver;
};

} // namespace

TEST_F(MainWindow, RightsThatChangeOnTheServerRebuildTheHomePage)
{
    m_server.AddAccount("guard", {"001001", "001001001", "002001"});
    Open("guard");
    EXPECT_EQ(
        Tabs(), (QStringList{QStringLiteral("EventConfigWidget"), QStringLiteral("ResourceManagerWidget")}));
    m_pDriver->Click(QStringLiteral("EventConfigWidget"));
    EXPECT_NE(m_pWindow->GetShownPage()->objectName(), QStringLiteral("pageHome"));

    m_server.RunSql(QStringLiteral(
        "DELETE FROM role_right WHERE code = '002001' AND role_id = (SELECT MAX(id) FROM role)"));
    m_server.Server().Rights().Reload();
    PageDriver::WaitFor(
        [&] { return m_pWindow->GetShownPage()->objectName() == QStringLiteral("pageHome"); });
    EXPECT_EQ(Tabs(), QStringList{QStringLiteral("ResourceManagerWidget")});
}

TEST_F(MainWindow, EveryEntryOpensItsPageAndHomeLeadsBack)
{
    Open("system");
    const QStringList listTabs = Tabs();
    ASSERT_EQ(listTabs.size(), 15);
    const QStringList listThere{QStringLiteral("ResourceManagerWidget"), QStringLiteral("BasicInfoManagerUI"),
        QStringLiteral("UserManagerWidget")};
    for (const QString& sTab : listTabs) {
        m_pDriver->Click(sTab);
        QWidget* pPage = m_pWindow->GetShownPage();
        EXPECT_NE(pPage->objectName(), QStringLiteral("pageHome")) << qPrintable(sTab);
        const auto* pState = pPage->findChild<VxGUI::VxEmptyState*>();
        const bool bNotAvailable = pState && pState->GetKind() == VxGUI::VxEmptyState::Kind::NotAvailable;
        EXPECT_EQ(bNotAvailable && pState->isVisible(), !listThere.contains(sTab)) << qPrintable(sTab);
        m_pDriver->Click(QStringLiteral("btnHome"));
        EXPECT_EQ(m_pWindow->GetShownPage()->objectName(), QStringLiteral("pageHome"));
    }
    m_pClient->WaitIdle();

    // The plug-in asks for the rights that the server gives for its entries.
    QPluginLoader loader(PluginPath());
    auto* const pPlugin = qobject_cast<VxPluginAPI::IClientUIPluginAPI*>(loader.instance());
    ASSERT_TRUE(pPlugin);
    for (const UserLogical::MenuRight_t& right : m_pClient->Client().GetUserManager()->GetMenuRights()) {
        auto* const pEntry = pPlugin->GetAbstractUI()->GetAbstractWidget(right.sWidgetName);
        ASSERT_TRUE(pEntry) << right.sWidgetName;
        EXPECT_EQ(pEntry->GetWidgetRight(), right.sCode) << right.sWidgetName;
    }
}

TEST_F(MainWindow, EveryWayOutAsksTheFormThatHoldsInput)
{
    Open("system");
    m_pDriver->Click(QStringLiteral("BasicInfoManagerUI"));
    m_pClient->WaitIdle();
    PageDriver::WaitFor([&] { return m_pDriver->IsUsable(QStringLiteral("m_btnAdd")); });
    m_pDriver->Click(QStringLiteral("m_btnAdd"));
    m_pDriver->Type(QStringLiteral("m_pEditName"), QStringLiteral("Ada"));
    QStringList listLeft;
    QObject::connect(m_pWindow.get(), &ClientApp::CMainWindow::SignalSwitchSkin, m_pWindow.get(),
        [&] { listLeft << QStringLiteral("look"); });
    QObject::connect(m_pWindow.get(), &ClientApp::CMainWindow::SignalSignOut, m_pWindow.get(),
        [&] { listLeft << QStringLiteral("sign out"); });
    const std::function<void()> ways[] = {[&] { m_pDriver->Click(QStringLiteral("btnHome")); },
        [&] { m_pDriver->Key(QStringLiteral("m_pEditName"), Qt::Key_Home, Qt::AltModifier); },
        [&] { m_pDriver->Click(QStringLiteral("btnSkin")); },
        [&] {
            m_pWindow->findChild<QToolButton*>(QStringLiteral("btnUser"))
                ->menu()
                ->actions()
                .last()
                ->trigger();
        },
        [&] { m_pWindow->close(); }};
    RecordingDialogService dialogs;
    for (const auto& leave : ways) {
        dialogs.AnswerNext(false);
        leave();
    }
    EXPECT_EQ(dialogs.Shown().size(), int(std::size(ways)));
    EXPECT_TRUE(listLeft.isEmpty());
    EXPECT_TRUE(m_pDriver->IsShown(QStringLiteral("m_pEditName")));
    dialogs.AnswerNext(true);
    m_pWindow->close();
    EXPECT_FALSE(m_pWindow->isVisible());
}

TEST_F(MainWindow, ALostConnectionIsShownUntilItIsBack)
{
    Open("system");
    EXPECT_FALSE(m_pDriver->IsShown(QStringLiteral("lbConnection")));
    m_server.Stop();
    PageDriver::WaitFor([&] { return m_pDriver->IsShown(QStringLiteral("lbConnection")); });
    m_server.Start();
    PageDriver::WaitFor([&] { return !m_pDriver->IsShown(QStringLiteral("lbConnection")); });
}

namespace {

template <class Window>
Window* FindWindow()
{
    for (QWidget* const pWindow : QApplication::topLevelWidgets()) {
        if (auto* const pFound = qobject_cast<Window*>(pWindow))
            return pFound;
    }
    return nullptr;
}

} // namespace

TEST(ClientRun, WhoGivesUpTheSignInAfterTheSessionIsAskedAboutHisForms)
{
    TestServer server;
    server.AddAccount("guard", {"002", "002003", "002003001"});
    LiveClient admin(server);
    RecordingDialogService dialogs;
    const QTemporaryDir folder;
    ClientApp::ClientOptions options;
    options.server = server.Url();
    options.sDataDir = folder.path();
    options.sPluginPath = PluginPath();
    ClientApp::CClientApp client(options);
    ASSERT_TRUE(client.Start());
    const QPointer<CSignInDlg> pSignIn(FindWindow<CSignInDlg>());
    {
        PageDriver driver(*pSignIn, QSize(420, 520));
        PageDriver::WaitFor([&] { return driver.IsUsable(QStringLiteral("btnSignIn")); });
        driver.Type(QStringLiteral("edtUserName"), QStringLiteral("guard"));
        driver.Type(QStringLiteral("edtPassword"), QString::fromStdString(TestServer::AdminPassword()));
        driver.Key(QStringLiteral("edtPassword"), Qt::Key_Return);
        PageDriver::WaitFor([] { return FindWindow<ClientApp::CMainWindow>() != nullptr; });
    }
    const QPointer<ClientApp::CMainWindow> pWindow(FindWindow<ClientApp::CMainWindow>());
    PageDriver driver(*pWindow, QSize(1280, 800));
    driver.Click(QStringLiteral("BasicInfoManagerUI"));
    PageDriver::WaitFor([&] { return driver.IsUsable(QStringLiteral("m_btnAdd")); });
    driver.Click(QStringLiteral("m_btnAdd"));
    driver.Type(QStringLiteral("m_pEditName"), QStringLiteral("Ada"));

    ASSERT_GT(admin.Client().GetUserManager()->LockUser("guard"), 0);
    PageDriver::WaitFor([&] { return pSignIn->isVisible(); });
    const auto* const pUserName = pSignIn->findChild<VxGUI::VxLineEdit*>(QStringLiteral("edtUserName"));
    EXPECT_TRUE(pUserName->GetLineEdit()->isReadOnly()) << "the forms are those of one account";
    dialogs.AnswerNext(false);
    pSignIn->reject();
    PageDriver::WaitFor([&] { return dialogs.Shown().size() == 1 && pSignIn->isVisible(); });
    ASSERT_TRUE(pWindow);
    EXPECT_TRUE(driver.IsShown(QStringLiteral("m_pEditName"))) << "it waits for him";
    dialogs.AnswerNext(true);
    pSignIn->reject();
    PageDriver::WaitFor([&] { return !pWindow && pSignIn->isVisible(); });
    PageDriver::WaitFor([&] { return !pUserName->GetLineEdit()->isReadOnly(); });
}

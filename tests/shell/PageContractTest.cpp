// What holds for every page: it is true of a new one as soon as it stands in the table.

#include <AuditLog/CAuditLogCtrl.h>
#include <CBasicInfoManagerWidget.h>
#include <CUserManagerWidget.h>
#include <PersonManager/CPersonManagerCtrl.h>
#include <ResourceManagerUI/CDeviceManagerCtrl.h>
#include <ResourceManagerUI/CResourceManagerWidget.h>
#include <RoleManager/CRoleManagerCtrl.h>
#include <UICommonMdl/ErrorCodes.h>
#include <UserManager/CUserManagerUserCtrl.h>
#include <VxGUI/VxNotification.h>
#include <VxPluginAPI/IAbstractWidget.h>
#include <common/CConnectionNotice.h>
#include <common/CInputGuard.h>
#include <common/CPage.h>
#include <tests/support/core/QtWarnings.h>
#include <tests/support/fakes/FakeHost.h>
#include <tests/support/gui/PageDriver.h>
#include <tests/support/gui/RecordingDialogService.h>

#include <QAbstractButton>
#include <QDialog>
#include <QMenu>

#include <gtest/gtest.h>

#include <memory>

namespace {

template <class Page>
std::unique_ptr<Common::CPage> Make(UICommonMdl::CInterfaceSetManager* pInterfaceSet)
{
    return std::make_unique<Page>(pInterfaceSet);
}

/// What that entry of the home page opens.
template <class Entry>
std::unique_ptr<Common::CPage> Open(UICommonMdl::CInterfaceSetManager* pInterfaceSet)
{
    return std::unique_ptr<Common::CPage>(
        qobject_cast<Common::CPage*>(Entry(pInterfaceSet).GetWidget(nullptr)));
}

struct PageCase
{
    const char* pszName;
    std::unique_ptr<Common::CPage> (*make)(UICommonMdl::CInterfaceSetManager*);
    const char* pszOpener; ///< a button that opens a dialog or an editor; null: none
};

const PageCase Pages[] = {{"Devices", &Make<ResourceManagerUI::CDeviceManagerCtrl>, "btnImport"},
    {"DeviceModule", &Open<ResourceManagerUI::CResourceManagerWidget>, "btnImport"},
    {"Persons", &Make<BasicInfoManagerUI::CPersonManagerCtrl>, "m_btnAdd"},
    {"PersonModule", &Open<BasicInfoManagerUI::CBasicInfoManagerWidget>, "m_btnAdd"},
    {"Users", &Make<PlatformConfigUI::CUserManagerUserCtrl>, "btnAdd"},
    {"Roles", &Make<PlatformConfigUI::CRoleManagerCtrl>, "btnAdd"},
    {"AuditLog", &Make<PlatformConfigUI::CAuditLogCtrl>, nullptr},
    {"UserModule", &Open<PlatformConfigUI::CUserManagerWidget>, "btnAdd"}};

class PageContract : public testing::TestWithParam<PageCase>
{
protected:
    void SetUp() override
    {
        m_host.site.ServeDevices();
        m_host.site.ServePersons();
        m_host.site.ServeUsers();
        m_pPage = GetParam().make(&m_host.interfaceSet);
    }
    void TearDown() override
    {
        m_pPage.reset();
        EXPECT_EQ(m_host.CountObservers(), 0) << "a page that is gone leaves no registration";
    }

    void Show()
    {
        m_pPage->resize(1280, 800);
        m_pPage->show();
        PageDriver::Settle();
    }
    /// What the page asked; the host itself asks for the session anew.
    int CountCalls() { return int(m_host.server.Calls().size()) - m_host.server.Count<wire::GetSession>(); }
    /// Answers every call that is open with that error.
    void AnswerAll(int nErrorCode)
    {
        for (const FakeCall& call : m_host.server.OpenCalls())
            m_host.server.Fail(call, nErrorCode);
        PageDriver::Settle();
    }
    void PushAll()
    {
        using namespace wire::event;
        for (const char* const pszEvent : {DevicesChanged, OrganizationsChanged, DepartmentsChanged,
                 PersonsChanged, UsersChanged, RolesChanged})
            m_host.server.Push(pszEvent);
        m_host.session.vecRights.push_back("right of another page");
        m_host.ApplySession();
    }
    void OpenSomething()
    {
        if (!GetParam().pszOpener)
            return;
        auto* const pButton = m_pPage->findChild<QAbstractButton*>(QLatin1String(GetParam().pszOpener));
        ASSERT_TRUE(pButton && pButton->isEnabled()) << GetParam().pszOpener;
        pButton->click();
        PageDriver::Settle();
    }

    FakeHost m_host;
    RecordingDialogService m_dialogs;
    std::unique_ptr<Common::CPage> m_pPage;
};

TEST_P(PageContract, TheEndLeavesNothingBehindAndAsksForNothing)
{
    Show();
    OpenSomething();
    m_host.server.HoldAll();
    PushAll();
    m_pPage->UninitUI();
    EXPECT_EQ(m_host.CountObservers(), 0);
    for (const QDialog* const pDialog : m_pPage->findChildren<QDialog*>())
        EXPECT_FALSE(pDialog->isVisible()) << pDialog->metaObject()->className();
    const int nCalls = CountCalls();
    PushAll();
    m_host.PushConnected(false);
    m_host.PushConnected(true);
    AnswerAll(UICommonMdl::ErrorNone);
    m_pPage->hide();
    m_pPage->show();
    // A query that pushes were gathered for would come by now.
    QElapsedTimer clock;
    clock.start();
    PageDriver::WaitFor([&] { return clock.elapsed() > 300; });
    EXPECT_EQ(CountCalls(), nCalls) << "what has ended asks for nothing";
    EXPECT_TRUE(m_dialogs.Shown().isEmpty());
    m_pPage->UninitUI();
}

TEST_P(PageContract, LateAnswersOfAPageThatIsGoneAreDropped)
{
    m_host.server.HoldAll();
    for (const int nErrorCode : {UICommonMdl::ErrorNone, UICommonMdl::ErrorTimeOut}) {
        m_pPage = GetParam().make(&m_host.interfaceSet);
        Show();
        PushAll();
        OpenSomething();
        m_pPage.reset();
        AnswerAll(nErrorCode);
    }
}

TEST_P(PageContract, AHiddenPagePopsUpNothing)
{
    Show();
    AnswerAll(UICommonMdl::ErrorNone);
    m_host.server.HoldAll();
    // Everything is asked for anew.
    m_host.PushConnected(false);
    m_host.PushConnected(true);
    PageDriver::Settle();
    ASSERT_FALSE(m_host.server.OpenCalls().empty());
    m_pPage->hide();
    PageDriver::Settle();
    AnswerAll(UICommonMdl::ErrorServerBusy);
    EXPECT_EQ(VxGUI::VxNotification::CurrentText(m_pPage.get()), QString());
    EXPECT_TRUE(m_dialogs.Shown().isEmpty());
}

TEST_P(PageContract, ALostConnectionIsToldAndItsReturnAsksAnew)
{
    Show();
    const auto* const pNotice = m_pPage->findChild<Common::CConnectionNotice*>();
    ASSERT_TRUE(pNotice);
    EXPECT_TRUE(pNotice->isHidden());
    m_host.PushConnected(false);
    PageDriver::Settle();
    EXPECT_FALSE(pNotice->isHidden());
    const int nCalls = CountCalls();
    PushAll();
    PageDriver::Settle();
    EXPECT_EQ(CountCalls(), nCalls) << "nobody would answer";
    m_host.PushConnected(true);
    PageDriver::Settle();
    EXPECT_TRUE(pNotice->isHidden());
    EXPECT_GT(CountCalls(), nCalls);
}

TEST_P(PageContract, TheHostAsksTheFormsBeforeItLeaves)
{
    Show();
    const auto mayLeave = [this] {
        QVariant vMayLeave(true);
        EXPECT_TRUE(m_pPage->OnMsg(VxPluginAPI::MessageLeave, &vMayLeave, nullptr));
        return vMayLeave.toBool();
    };
    EXPECT_TRUE(mayLeave()) << "nobody holds input";
    // A page of pages passes the question on to them.
    auto* const pInner = m_pPage->findChild<Common::CPage*>();
    Common::CInputGuard form(pInner ? pInner : m_pPage.get());
    bool bDirty = true;
    form.SetDirtyCheck([&bDirty] { return bDirty; });
    form.SetClose([&bDirty] { bDirty = false; });
    m_dialogs.AnswerNext(false);
    EXPECT_FALSE(mayLeave());
    m_dialogs.AnswerNext(true);
    EXPECT_TRUE(mayLeave());
    EXPECT_FALSE(bDirty) << "what is given up is closed";
}

TEST_P(PageContract, ItRestsWhenNothingHappens)
{
    Show();
    for (const QSize size : {QSize(1280, 800), QSize(800, 700)}) {
        m_pPage->resize(size);
        EXPECT_TRUE(PageDriver::ComesToRest()) << size.width();
    }
}

TEST_P(PageContract, RefusedCallsAndAHostWithoutManagersLeaveItUsable)
{
    UICommonMdl::CInterfaceSetManager empty;
    const auto pPage = GetParam().make(&empty);
    pPage->resize(1024, 700);
    pPage->show();
    PageDriver::Settle();
    pPage->UninitUI();
}

INSTANTIATE_TEST_SUITE_P(All, PageContract, testing::ValuesIn(Pages),
    [](const testing::TestParamInfo<PageCase>& info) { return std::string(info.param.pszName); });

} // namespace

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
#include <common/CConnectionNotice.h>
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
        m_nRest = CountObservers();
        m_host.group.ServeSite();
        m_host.access.ServeSite();
        m_host.user.ServePlatform();
        m_pPage = GetParam().make(&m_host.interfaceSet);
    }
    void TearDown() override
    {
        m_pPage.reset();
        EXPECT_EQ(CountObservers(), m_nRest) << "a page that is gone leaves no registration";
    }

    void Show()
    {
        m_pPage->resize(1280, 800);
        m_pPage->show();
        PageDriver::Settle();
    }
    std::size_t CountObservers()
    {
        return m_host.group.ObserverCount() + m_host.access.departments.ObserverCount()
            + m_host.access.persons.ObserverCount() + m_host.access.records.ObserverCount()
            + m_host.remote.devices.ObserverCount() + m_host.remote.system.ObserverCount()
            + m_host.user.users.ObserverCount() + m_host.user.login.ObserverCount();
    }
    int CountCalls()
    {
        return int(m_host.group.Calls().size() + m_host.access.departments.Calls().size()
            + m_host.access.persons.Calls().size() + m_host.access.records.Calls().size()
            + m_host.remote.devices.Calls().size() + m_host.remote.system.Calls().size()
            + m_host.user.users.Calls().size());
    }
    /// Leaves every call that is made from now on without an answer.
    void HoldAll()
    {
        for (const char* const pszQuery : {"QueryOrganizations", "QueryDevicePage", "QueryDeviceTypes"})
            m_host.group.Hold(pszQuery);
        m_host.access.departments.Hold("QueryDepartmentTree");
        m_host.access.persons.Hold("QueryPersonList");
        for (const char* const pszQuery : {"QueryUserPage", "QueryRoleList", "QueryAuditPage"})
            m_host.user.users.Hold(pszQuery);
    }
    /// Answers every call that was made so far with that error, again.
    void AnswerAll(int nErrorCode)
    {
        const auto answer = [nErrorCode](auto& manager) {
            const auto vecCalls = manager.Calls();
            for (const FakeCall& call : vecCalls)
                manager.Fail(call, nErrorCode);
        };
        answer(m_host.group);
        answer(m_host.access.departments);
        answer(m_host.access.persons);
        answer(m_host.user.users);
        PageDriver::Settle();
    }
    void PushAll()
    {
        const auto push = [](auto& manager, auto param, int nResultCode) {
            param.nResultCode = nResultCode;
            manager.Send(param);
        };
        using namespace AccessControlLogical;
        using GroupLogical::IGroupManagerObserver;
        using UserLogical::IUserManagerObserve;
        push(m_host.group, IGroupManagerObserver::Param(), IGroupManagerObserver::ResultDevicesChanged);
        push(m_host.group, IGroupManagerObserver::Param(), IGroupManagerObserver::ResultOrganizationsChanged);
        push(m_host.access.departments, IDepartmentManagerObserver::Param(),
            IDepartmentManagerObserver::ResultDepartmentsChanged);
        push(m_host.access.persons, IPersonManagerObserver::Param(),
            IPersonManagerObserver::ResultPersonsChanged);
        push(m_host.user.users, IUserManagerObserve::Param(), IUserManagerObserve::ResultUsersChanged);
        push(m_host.user.users, IUserManagerObserve::Param(), IUserManagerObserve::ResultRolesChanged);
        push(m_host.user.login, UserLogical::ILoginManagerObserver::Param(),
            UserLogical::ILoginManagerObserver::ResultRightsChanged);
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
    std::size_t m_nRest = 0; ///< registrations of others
    std::unique_ptr<Common::CPage> m_pPage;
};

TEST_P(PageContract, TheEndLeavesNothingBehindAndAsksForNothing)
{
    Show();
    OpenSomething();
    HoldAll();
    PushAll();
    m_pPage->UninitUI();
    EXPECT_EQ(CountObservers(), m_nRest);
    for (const QDialog* const pDialog : m_pPage->findChildren<QDialog*>())
        EXPECT_FALSE(pDialog->isVisible()) << pDialog->metaObject()->className();
    const int nCalls = CountCalls();
    PushAll();
    m_host.remote.PushConnected(false);
    m_host.remote.PushConnected(true);
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
    HoldAll();
    Show();
    PushAll();
    OpenSomething();
    m_pPage.reset();
    AnswerAll(UICommonMdl::ErrorNone);
    AnswerAll(UICommonMdl::ErrorTimeOut);
}

TEST_P(PageContract, AHiddenPagePopsUpNothing)
{
    Show();
    HoldAll();
    PushAll();
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
    m_host.remote.PushConnected(false);
    PageDriver::Settle();
    EXPECT_FALSE(pNotice->isHidden());
    const int nCalls = CountCalls();
    PushAll();
    PageDriver::Settle();
    EXPECT_EQ(CountCalls(), nCalls) << "nobody would answer";
    m_host.remote.PushConnected(true);
    PageDriver::Settle();
    EXPECT_TRUE(pNotice->isHidden());
    EXPECT_GT(CountCalls(), nCalls);
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

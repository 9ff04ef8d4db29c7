// What holds for every editor: it is true of a new one as soon as it stands in the table.

#include <DeviceEdit/CDevAdd.h>
#include <PersonEdit/CPersonnelInfoUI.h>
#include <PersonManager/CPersonGroupEditUI.h>
#include <ResourceManagerUI/COrganizationEditPage.h>
#include <RoleManager/CRoleManagerEditDlg.h>
#include <UICommonMdl/ErrorCodes.h>
#include <UserManager/CUserManagerUserEditDlg.h>
#include <common/CEditorBase.h>
#include <tests/support/fakes/FakeHost.h>
#include <tests/support/gui/PageDriver.h>
#include <tests/support/gui/RecordingDialogService.h>

#include <QLabel>
#include <QLineEdit>

#include <gtest/gtest.h>

namespace {

using namespace UICommonMdl;

/// Opens the editor of a record that is there; its answers come at once.
using Opener = QWidget* (*)(FakeHost& host);

QWidget* OpenOrganization(FakeHost& host)
{
    auto* const pPage = new ResourceManagerUI::COrganizationEditPage(&host.interfaceSet);
    pPage->show();
    pPage->BeginModify(host.site.vecOrganizations[1], QStringLiteral("Site"));
    return pPage;
}

QWidget* OpenGroup(FakeHost& host)
{
    host.access.QueryDepartmentTree();
    PageDriver::Settle();
    auto* const pDialog = new BasicInfoManagerUI::CPersonGroupEditUI(&host.interfaceSet, nullptr);
    pDialog->BeginModify(host.site.vecDepartments[1]);
    pDialog->open();
    return pDialog;
}

QWidget* OpenRole(FakeHost& host)
{
    auto* const pDialog = new PlatformConfigUI::CRoleManagerEditDlg(&host.interfaceSet, nullptr);
    pDialog->open();
    pDialog->BeginModify(QStringLiteral("2"));
    return pDialog;
}

QWidget* OpenUser(FakeHost& host)
{
    auto* const pDialog = new PlatformConfigUI::CUserManagerUserEditDlg(&host.interfaceSet, nullptr);
    pDialog->open();
    pDialog->BeginModify(QStringLiteral("alice"));
    return pDialog;
}

QWidget* OpenPerson(FakeHost& host)
{
    AccessControlLogical::Person_t person;
    person.sPersonId = "12";
    person.sName = "Grace";
    person.sGroupCode = "1001";
    person.nVersion = 3;
    host.site.vecDetails = {person};
    auto* const pPage = new BasicInfoManagerUI::CPersonnelInfoUI(&host.interfaceSet);
    pPage->show();
    pPage->EditPerson(QStringLiteral("12"));
    return pPage;
}

QWidget* OpenDevice(FakeHost& host)
{
    RemoteConfigLogical::Dictionary_t dictionary;
    dictionary.vecCategories = {{"1", "Encoder", 0, ""}};
    dictionary.vecManufacturers = {{"Other", "Other", 0, ""}};
    dictionary.vecProtocols = {{"Private", "Private", 1, ""}};
    host.server.AnswerAlways<wire::GetDictionary>(dictionary);
    host.server.AnswerAlways<wire::QueryVideoServers>({});
    GroupLogical::DeviceAddInfo_t device;
    device.sDeviceId = "1001";
    device.sName = "Gate";
    device.sIp = "10.0.0.9";
    device.nPort = 37777;
    device.nCategory = 1;
    device.sOrgCode = "001";
    device.sManufacturer = "Other";
    device.sProtocol = "Private";
    device.sUserName = "admin";
    device.nVersion = 3;
    host.server.AnswerAlways<wire::QueryDeviceDetail>(device);
    auto* const pForm = new ResourceManagerUI::CDevAdd(&host.interfaceSet);
    pForm->show();
    pForm->StartEdit(QStringLiteral("1001"), host.site.vecOrganizations);
    return pForm;
}

struct EditorCase
{
    const char* pszName;
    Opener open;
    const char* pszNext; ///< button that leads to the field; null: none
    const char* pszField;
    const char* pszOk;
};

const EditorCase Editors[] = {{"Organization", &OpenOrganization, nullptr, "editName", "btnOk"},
    {"PersonGroup", &OpenGroup, nullptr, "m_pEditGroupName", "m_pBtnAdd"},
    {"Role", &OpenRole, nullptr, "editRoleName", "btnOk"}, {"User", &OpenUser, nullptr, "edtRemark", "btnOk"},
    {"Person", &OpenPerson, nullptr, "m_pEditName", "m_pBtnOk"},
    {"Device", &OpenDevice, "btnNext", "editDevName", "btnFinish"}};

class EditorContract : public testing::TestWithParam<EditorCase>
{
protected:
    void SetUp() override
    {
        m_host.site.ServeDevices();
        m_host.site.ServePersons();
        m_host.site.ServeUsers();
        m_pForm = GetParam().open(m_host);
        m_pDriver = std::make_unique<PageDriver>(*m_pForm, QSize(1000, 760));
        PageDriver::Settle();
        m_pEditor = m_pForm->findChild<Common::CEditorBase*>();
        ASSERT_TRUE(m_pEditor);
        m_pEditor->SetSecondLook({});
        m_nRequests = int(m_host.server.OpenCalls().size());
        if (GetParam().pszNext)
            m_pDriver->Click(QLatin1String(GetParam().pszNext));
    }
    void TearDown() override
    {
        m_pDriver.reset();
        delete m_pForm;
    }

    QString Input() const
    {
        return m_pForm->findChild<QWidget*>(QLatin1String(GetParam().pszField))
            ->findChild<QLineEdit*>()
            ->text();
    }
    void Change() { m_pDriver->Type(QLatin1String(GetParam().pszField), QStringLiteral("Mine")); }
    /// The save is answered with that code; all that is asked then is answered at once.
    void SaveFails(int nErrorCode)
    {
        m_pDriver->Click(QLatin1String(GetParam().pszOk));
        const std::vector<FakeCall> vecOpen = m_host.server.OpenCalls();
        ASSERT_EQ(int(vecOpen.size()), m_nRequests + 1) << "one save, and nothing else";
        EXPECT_FALSE(m_pDriver->IsUsable(QLatin1String(GetParam().pszOk))) << "one at a time";
        m_host.server.Fail(vecOpen.back(), nErrorCode);
        for (int n = 0; n < 4; ++n)
            PageDriver::Settle();
    }
    QString Notice() const { return m_pDriver->Find<QLabel>(QStringLiteral("lbSaveNotice"))->text(); }

    static bool IsTabStop(const QWidget* pControl)
    {
        // A radio button of a group, a tab of a bar and the like are reached by arrows.
        return (pControl->focusPolicy() & Qt::TabFocus) && !pControl->focusProxy() && pControl->isVisible()
            && pControl->isEnabled();
    }
    static QString PathOf(const QWidget* pControl)
    {
        QString sPath;
        for (; pControl && !pControl->isWindow(); pControl = pControl->parentWidget()) {
            if (!pControl->objectName().isEmpty() && !pControl->objectName().startsWith(QLatin1String("qt_")))
                sPath = QLatin1Char('/') + pControl->objectName() + sPath;
        }
        return sPath;
    }
    /// Where so many presses of the key lead, from the first field on.
    QStringList Walk(Qt::Key key, int nPresses)
    {
        m_pFirst = m_pForm->findChild<QWidget*>(QLatin1String(GetParam().pszField))->findChild<QLineEdit*>();
        m_pFirst->setFocus();
        QStringList listWalk;
        for (int n = 0; n < nPresses; ++n) {
            QTest::keyClick(m_pForm->window()->focusWidget(), key);
            listWalk << PathOf(m_pForm->window()->focusWidget());
        }
        return listWalk;
    }

    FakeHost m_host;
    RecordingDialogService m_dialogs;
    QWidget* m_pFirst = nullptr;
    QPointer<QWidget> m_pForm;
    std::unique_ptr<PageDriver> m_pDriver;
    QPointer<Common::CEditorBase> m_pEditor;
    int m_nRequests = 0;
};

TEST_P(EditorContract, AConflictShowsWhatDiffersAndLoadsAgain)
{
    const QString sLoaded = Input();
    EXPECT_FALSE(m_pEditor->IsDirty()) << "showing changes nothing";
    Change();
    m_dialogs.ClickNext(QStringLiteral("btnGoOn"));
    SaveFails(ErrorVersionConflict);
    EXPECT_TRUE(m_dialogs.LastDetails().contains(QStringLiteral("| Mine")))
        << qPrintable(m_dialogs.LastDetails());
    EXPECT_EQ(m_dialogs.LastDetails().count(QLatin1Char('\n')), 0) << "nothing else differs";
    EXPECT_EQ(Input(), QStringLiteral("Mine"));
    m_dialogs.ClickNext(QStringLiteral("btnLoadAgain"));
    SaveFails(ErrorVersionConflict);
    EXPECT_EQ(Input(), sLoaded);
    EXPECT_FALSE(m_pEditor->IsDirty());
}

TEST_P(EditorContract, ASaveThatIsNotAnsweredIsLookedUpAndTold)
{
    Change();
    SaveFails(ErrorTimeOut);
    EXPECT_TRUE(Notice().startsWith(QStringLiteral("This was not saved."))) << qPrintable(Notice());
    EXPECT_EQ(Input(), QStringLiteral("Mine"));
    EXPECT_TRUE(m_pDriver->IsUsable(QLatin1String(GetParam().pszOk))) << "it can be tried again";
    m_pDriver->Screenshot(QStringLiteral("editor-%1-not-saved").arg(QLatin1String(GetParam().pszName)));
}

TEST_P(EditorContract, ALostConnectionKeepsTheInput)
{
    Change();
    m_host.PushConnected(false);
    PageDriver::Settle();
    EXPECT_FALSE(m_pDriver->IsUsable(QLatin1String(GetParam().pszOk)));
    m_host.PushConnected(true);
    PageDriver::Settle();
    EXPECT_EQ(Input(), QStringLiteral("Mine"));
    EXPECT_TRUE(m_pDriver->IsUsable(QLatin1String(GetParam().pszOk)));
}

TEST_P(EditorContract, AConnectionThatIsLostWithinASaveIsLookedUpWhenItIsBack)
{
    Change();
    m_pDriver->Click(QLatin1String(GetParam().pszOk));
    m_host.PushConnected(false);
    for (int n = 0; n < 4; ++n)
        PageDriver::Settle();
    EXPECT_TRUE(Notice().startsWith(QStringLiteral("It is not known whether this was saved.")))
        << qPrintable(Notice());
    EXPECT_EQ(Input(), QStringLiteral("Mine"));
    m_host.PushConnected(true);
    for (int n = 0; n < 4; ++n)
        PageDriver::Settle();
    EXPECT_TRUE(Notice().startsWith(QStringLiteral("This was not saved."))) << qPrintable(Notice());
    EXPECT_EQ(Input(), QStringLiteral("Mine"));
    EXPECT_TRUE(m_pDriver->IsUsable(QLatin1String(GetParam().pszOk)));
}

TEST_P(EditorContract, ARightThatIsTakenAwayIsToldAndKeepsTheInput)
{
    const std::set<std::string> setChanging{"001001001", "001002001", "001002002", "002003001"};
    Change();
    m_host.SetMissingRights(setChanging);
    PageDriver::Settle();
    EXPECT_FALSE(m_pDriver->IsUsable(QLatin1String(GetParam().pszOk)));
    EXPECT_TRUE(Notice().startsWith(QStringLiteral("You have no permission to "))) << qPrintable(Notice());
    EXPECT_EQ(Input(), QStringLiteral("Mine"));
    m_host.SetMissingRights({});
    PageDriver::Settle();
    EXPECT_EQ(Notice(), QString());
    EXPECT_TRUE(m_pDriver->IsUsable(QLatin1String(GetParam().pszOk)));
}

TEST_P(EditorContract, TabReachesEveryControlAndComesBackTheSameWay)
{
    m_pForm->activateWindow();
    QStringList listAll;
    for (const QWidget* const pControl : m_pForm->findChildren<QWidget*>()) {
        if (IsTabStop(pControl))
            listAll << PathOf(pControl);
    }
    QStringList listForth = Walk(Qt::Key_Tab, listAll.size());
    QStringList listBack = Walk(Qt::Key_Backtab, listAll.size());
    std::reverse(listBack.begin(), listBack.end());
    EXPECT_EQ(listForth.last(), PathOf(m_pFirst)) << "it ends where it began";
    EXPECT_EQ(listForth.mid(0, listForth.size() - 1).join(QLatin1Char('\n')).toStdString(),
        listBack.mid(1).join(QLatin1Char('\n')).toStdString());
    listForth.sort();
    listAll.sort();
    EXPECT_EQ(listForth.join(QLatin1Char('\n')).toStdString(), listAll.join(QLatin1Char('\n')).toStdString());
}

TEST_P(EditorContract, WhoLeavesAsksForInputOnly)
{
    EXPECT_TRUE(Common::CInputGuard::LeaveBelow(m_pForm)) << "nothing was changed";
    Change();
    m_dialogs.AnswerNext(false);
    EXPECT_FALSE(Common::CInputGuard::LeaveBelow(m_pForm));
    EXPECT_EQ(Input(), QStringLiteral("Mine"));
    m_dialogs.AnswerNext(true);
    EXPECT_TRUE(Common::CInputGuard::LeaveBelow(m_pForm));
}

INSTANTIATE_TEST_SUITE_P(All, EditorContract, testing::ValuesIn(Editors),
    [](const auto& info) { return std::string(info.param.pszName); });

} // namespace

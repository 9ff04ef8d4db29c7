#include "UserPageFixture.h"

#include <UserManager/CDlgUserType.h>
#include <UserManager/CImportDominUserDlg.h>
#include <UserManager/CRoleSelectPopView.h>
#include <UserManager/CSyncDominUserDlg.h>
#include <tests/support/gui/Look.h>

#include <QApplication>
#include <QScrollArea>
#include <QScrollBar>
#include <QTabWidget>

using namespace PlatformConfigUI;
using namespace UserLogical;
using UserPageTest::Part;
using UserPageTest::PopUpWarning;
using UserPageTest::Press;

namespace {

class UserLook : public UserPageTest::Fixture, public testing::WithParamInterface<Look>
{
protected:
    void OpenPage()
    {
        Open();
        m_pPage->window()->resize(m_look.Scaled(m_pPage->window()->size()));
        PageDriver::Settle();
    }
    /// Nothing has to be scrolled sideways to be read.
    void ExpectReadable(QWidget* pWidget, const char* pszPicture)
    {
        m_look.ExpectReadable(*pWidget, pszPicture);
        for (const auto* const pArea : pWidget->findChildren<QScrollArea*>()) {
            if (pArea->isVisible()) {
                EXPECT_EQ(pArea->horizontalScrollBar()->maximum(), 0) << qPrintable(pArea->objectName());
            }
        }
    }
    void ShowPermissions()
    {
        Part<QTabWidget>(Form(), "tabUser")->setCurrentIndex(1);
        PageDriver::Settle();
    }

    LookScope m_look{GetParam()};
};

/// Its captions have no room for larger texts.
class UserFormLook : public UserLook
{
};

TEST_P(UserLook, PageAndItsStates)
{
    OpenPage();
    Tick("bob");
    ExpectReadable(m_pPage.get(), "page");
    m_look.ExpectFocusSeen(*m_pPage);
    {
        const ExpectWarning warning(PopUpWarning);
        List()->GetHeader()->OpenFilter(UserColumnType);
        auto* const pPopup = List()->GetHeader()->findChild<CDlgUserType*>();
        ExpectReadable(pPopup, "filter");
        pPopup->close();
        PageDriver::Settle();
    }
    Connect(false);
    ExpectReadable(m_pPage.get(), "page-disconnected");
    Connect(true);
    Users().FailAlways<wire::QueryUserPage>(UICommonMdl::ErrorNoRight);
    m_host.SetMissingRights({"001002001"});
    Close();
    OpenPage();
    ExpectReadable(m_pPage.get(), "page-no-right");
}

TEST_P(UserFormLook, ShowsItsTextsWhole)
{
    OpenPage();
    Click("btnAdd");
    auto* const pName = UserPageTest::Field(Form(), "edtUserName");
    Press(Form(), "btnOk");
    UserPageTest::Type(UserPageTest::Field(Form(), "edtPassword")->GetLineEdit(), QStringLiteral("Secret1x"));
    Press(Form(), "swPasswordInterval");
    Press(Form(), "swBindMac");
    for (int nRow = 0; nRow < 2; ++nRow) {
        Press(Form(), "btnAddMac");
        auto* const pEdit = qobject_cast<QLineEdit*>(qApp->focusWidget());
        UserPageTest::Type(pEdit, nRow == 0 ? QStringLiteral("00:11:22:33:44:55") : QStringLiteral("0g"));
    }
    EXPECT_EQ(pName->GetErrorHint(), QStringLiteral("Username cannot be empty."));
    ExpectReadable(Form(), "form-add");
    m_dialogs.AnswerNext(true);
    Press(Form(), "btnCancel");

    ClickRowButton("alice", ButtonEdit);
    ExpectReadable(Form(), "form-modify");
    ShowPermissions();
    ExpectReadable(Form(), "form-permissions");
    m_look.ExpectFocusSeen(*Form());
    {
        const ExpectWarning warning(PopUpWarning);
        Press(Form(), "btnAddRole");
        auto* const pPopup = Form()->findChild<CRoleSelectPopView*>();
        ExpectReadable(pPopup, "roles");
        pPopup->close();
        PageDriver::Settle();
    }
    Press(Form(), "btnCancel");

    OpenDetails("bob");
    ExpectReadable(Form(), "details");
    ShowPermissions();
    ExpectReadable(Form(), "details-permissions");
}

TEST_P(UserLook, DirectoryWindows)
{
    wire::DomainUsers users;
    for (const char* pszName : {"jane.doe", "john.smith", "mary.major"})
        users.vecDomainUsers.push_back(
            {pszName, std::string("uid=") + pszName + ",ou=people,dc=example,dc=org"});
    users.bTruncated = true;
    Users().AnswerAlways<wire::QueryDomainUsers>(users);
    Users().AnswerAlways<wire::QueryInvalidDomainUsers>(users);
    OpenPage();
    Click("btnImportDomain");
    auto* const pImport = FindDialog<CImportDominUserDlg>();
    Press(pImport, "chkAllUsers");
    ExpectReadable(pImport, "import");
    Press(pImport, "btnNext");
    ExpectReadable(pImport, "import-roles");
    Press(pImport, "btnCancel");
    Users().FailAlways<wire::QueryDomainUsers>(UICommonMdl::ErrorDirectoryNotConfigured);
    Click("btnImportDomain");
    ExpectReadable(FindDialog<CImportDominUserDlg>(), "import-none");
    Press(FindDialog<CImportDominUserDlg>(), "btnCancel");
    Click("btnSyncDomain");
    ExpectReadable(FindDialog<CSyncDominUserDlg>(), "sync");
}

INSTANTIATE_TEST_SUITE_P(Every, UserLook, EveryLook, NameOf);
INSTANTIATE_TEST_SUITE_P(Every, UserFormLook, EverySkin, NameOf);

} // namespace

// Pictures of the page and its windows in both skins, and what a picture would show as wrong: cut texts.

#include "UserPageFixture.h"

#include <Trv/QSkin.h>
#include <UserManager/CDlgUserType.h>
#include <UserManager/CImportDominUserDlg.h>
#include <UserManager/CRoleSelectPopView.h>
#include <UserManager/CSyncDominUserDlg.h>

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

class UserLook : public UserPageTest::Fixture, public testing::WithParamInterface<const char*>
{
protected:
    void SetUp() override
    {
        Fixture::SetUp();
        m_sSkin = Trv::GetSkin();
        m_sSheet = qApp->styleSheet();
        ASSERT_TRUE(Trv::SetSkin(QLatin1String(GetParam())));
        QString sSheet;
        ASSERT_TRUE(Trv::loadStyleSheet(Trv::GetSkinPath(QStringLiteral("Client.qss"), QString()), sSheet));
        qApp->setStyleSheet(sSheet);
    }
    void TearDown() override
    {
        Fixture::TearDown();
        Trv::SetSkin(m_sSkin);
        qApp->setStyleSheet(m_sSheet);
    }

    /// Every text that is shown has its place, and nothing has to be scrolled sideways.
    static void ExpectNothingCut(QWidget* pWidget, const char* pszPicture)
    {
        PageDriver::Settle();
        for (const auto* const pButton : pWidget->findChildren<QPushButton*>()) {
            if (pButton->isVisible()) {
                EXPECT_GE(pButton->width(), pButton->minimumSizeHint().width())
                    << qPrintable(pButton->objectName()) << ": " << qPrintable(pButton->text());
            }
        }
        for (const auto* const pLabel : pWidget->findChildren<QLabel*>()) {
            if (pLabel->isVisible() && !pLabel->text().isEmpty()) {
                EXPECT_GE(pLabel->height(), pLabel->heightForWidth(pLabel->width()))
                    << qPrintable(pLabel->text());
            }
        }
        for (const auto* const pArea : pWidget->findChildren<QScrollArea*>()) {
            if (pArea->isVisible()) {
                EXPECT_EQ(pArea->horizontalScrollBar()->maximum(), 0) << qPrintable(pArea->objectName());
            }
        }
        UserPageTest::Screenshot(
            pWidget, QLatin1String(GetParam()) + QLatin1Char('-') + QLatin1String(pszPicture));
    }
    void ShowPermissions()
    {
        Part<QTabWidget>(Form(), "tabUser")->setCurrentIndex(1);
        PageDriver::Settle();
    }

private:
    QString m_sSkin;
    QString m_sSheet;
};

TEST_P(UserLook, PageAndItsStates)
{
    Open();
    Tick("bob");
    ExpectNothingCut(m_pPage.get(), "page");
    {
        const ExpectWarning warning(PopUpWarning);
        List()->GetHeader()->OpenFilter(UserColumnType);
        auto* const pPopup = List()->GetHeader()->findChild<CDlgUserType*>();
        ExpectNothingCut(pPopup, "filter");
        pPopup->close();
        PageDriver::Settle();
    }
    Connect(false);
    ExpectNothingCut(m_pPage.get(), "page-disconnected");
    Connect(true);
    Users().FailAlways("QueryUserPage", UICommonMdl::ErrorNoRight);
    m_host.user.setMissing = {"001002001"};
    Close();
    Open();
    ExpectNothingCut(m_pPage.get(), "page-no-right");
}

TEST_P(UserLook, FormsShowTheirTextsWhole)
{
    Open();
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
    ExpectNothingCut(Form(), "form-add");
    m_dialogs.AnswerNext(true);
    Press(Form(), "btnCancel");

    ClickRowButton("alice", ButtonEdit);
    ExpectNothingCut(Form(), "form-modify");
    ShowPermissions();
    ExpectNothingCut(Form(), "form-permissions");
    {
        const ExpectWarning warning(PopUpWarning);
        Press(Form(), "btnAddRole");
        auto* const pPopup = Form()->findChild<CRoleSelectPopView*>();
        ExpectNothingCut(pPopup, "roles");
        pPopup->close();
        PageDriver::Settle();
    }
    m_dialogs.AnswerNext(true);
    Press(Form(), "btnCancel");

    OpenDetails("bob");
    ExpectNothingCut(Form(), "details");
    ShowPermissions();
    ExpectNothingCut(Form(), "details-permissions");
}

TEST_P(UserLook, DirectoryWindows)
{
    const auto serve = [](const FakeCall&, Param& param) {
        for (const char* pszName : {"jane.doe", "john.smith", "mary.major"})
            param.vecDomainUsers.push_back(
                {pszName, std::string("uid=") + pszName + ",ou=people,dc=example,dc=org"});
        param.bTruncated = true;
    };
    Users().AnswerAlways("QueryDomainUsers", serve);
    Users().AnswerAlways("QueryInvalidDomainUsers", serve);
    Open();
    Click("btnImportDomain");
    auto* const pImport = FindDialog<CImportDominUserDlg>();
    Press(pImport, "chkAllUsers");
    ExpectNothingCut(pImport, "import");
    Press(pImport, "btnNext");
    ExpectNothingCut(pImport, "import-roles");
    Press(pImport, "btnCancel");
    Users().FailAlways("QueryDomainUsers", UICommonMdl::ErrorDirectoryNotConfigured);
    Click("btnImportDomain");
    ExpectNothingCut(FindDialog<CImportDominUserDlg>(), "import-none");
    Press(FindDialog<CImportDominUserDlg>(), "btnCancel");
    Click("btnSyncDomain");
    ExpectNothingCut(FindDialog<CSyncDominUserDlg>(), "sync");
}

INSTANTIATE_TEST_SUITE_P(Skins, UserLook, testing::Values("light", "dark"));

} // namespace

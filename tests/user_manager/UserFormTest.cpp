#include "UserPageFixture.h"

#include <Trv/QCommon.h>

#include <QCheckBox>
#include <QDateTimeEdit>
#include <QTabWidget>

using namespace PlatformConfigUI;
using namespace UserLogical;
using UserPageTest::Field;
using UserPageTest::Hint;
using UserPageTest::IsUsable;
using UserPageTest::Part;
using UserPageTest::Press;
using UserPageTest::Screenshot;
using UserPageTest::StateTitle;
using UserPageTest::Type;

class UserForm : public UserPageTest::Fixture
{
protected:
    void OpenAdd()
    {
        Open();
        Click("btnAdd");
    }
    void OpenModify(const char* pszUser)
    {
        Open();
        ClickRowButton(pszUser, ButtonEdit);
    }
    void Fill(const char* pszField, const QString& sText)
    {
        Type(Field(Form(), pszField)->GetLineEdit(), sText);
    }
    void FillPassword(const char* pszPassword, const char* pszConfirm)
    {
        Fill("edtPassword", QLatin1String(pszPassword));
        Fill("edtConfirmPassword", QLatin1String(pszConfirm));
    }
    void Switch(const char* pszSwitch, bool bOn)
    {
        if (Part<QAbstractButton>(Form(), pszSwitch)->isChecked() != bOn)
            Press(Form(), pszSwitch);
    }
    void ShowTab(int nTab)
    {
        auto* const pBar = Part<QTabWidget>(Form(), "tabUser")->tabBar();
        QTest::mouseClick(pBar, Qt::LeftButton, Qt::NoModifier, pBar->tabRect(nTab).center());
        PageDriver::Settle();
    }
    int Tab() { return Part<QTabWidget>(Form(), "tabUser")->currentIndex(); }
    void ChooseRole(const char* pszName)
    {
        const ExpectWarning warning(UserPageTest::PopUpWarning);
        ShowTab(1);
        Press(Form(), "btnAddRole");
        auto* const pTable = Part<QTreeView>(Form(), "tableRoles");
        const QModelIndexList listFound =
            pTable->model()->match(pTable->model()->index(0, 1), Qt::DisplayRole, QLatin1String(pszName));
        ASSERT_FALSE(listFound.isEmpty());
        QTest::mouseClick(pTable->viewport(), Qt::LeftButton, Qt::NoModifier,
            pTable->visualRect(listFound.first()).center());
        QTest::keyClick(pTable->window(), Qt::Key_Escape);
        PageDriver::Settle();
        ShowTab(0);
    }
    void FillAll()
    {
        Fill("edtUserName", QStringLiteral("carol"));
        FillPassword("Secret#1", "Secret#1");
        ChooseRole("Guard");
    }
    int Saves() { return Users().Count<wire::AddUser>() + Users().Count<wire::ModifyUser>(); }
    void PressOk() { Press(Form(), "btnOk"); }
    bool HasFocus(const char* pszField) { return Field(Form(), pszField)->GetLineEdit()->hasFocus(); }
};

TEST_F(UserForm, ChecksStopAtTheFirstFailureInTheirOrder)
{
    OpenAdd();
    const auto fails = [this](const char* pszField, const QString& sHint) {
        PressOk();
        EXPECT_EQ(Hint(Form(), pszField), sHint);
        EXPECT_TRUE(HasFocus(pszField)) << pszField;
        EXPECT_EQ(Saves(), 0);
    };
    const auto tells = [this](const char* pszNotice) {
        PressOk();
        EXPECT_EQ(FormNotice(), QLatin1String(pszNotice));
        EXPECT_EQ(Saves(), 0);
    };
    // Everything that can be wrong is; each step mends what failed before.
    Fill("edtPtzLevel", QString());
    Fill("edtEmail", QStringLiteral("first.last@host"));
    Switch("swPasswordInterval", true);
    Fill("edtPasswordDays", QString());
    Part<QAbstractButton>(Form(), "ckDate")->click();
    Part<QDateTimeEdit>(Form(), "dtDate")->setDateTime(QDateTime::currentDateTime().addSecs(-120));
    Switch("swBindMac", true);

    fails("edtUserName", QStringLiteral("Username cannot be empty."));
    Fill("edtUserName", QStringLiteral("  carol  "));
    fails("edtPassword", QStringLiteral("Please enter password."));
    EXPECT_EQ(Field(Form(), "edtUserName")->text(), QStringLiteral("carol")) << "trimmed";
    Fill("edtPassword", QStringLiteral("short"));
    fails("edtConfirmPassword", QStringLiteral("Please enter confirming password."));
    Fill("edtConfirmPassword", QStringLiteral("other"));
    QString sRule;
    ASSERT_FALSE(Trv::QCommon::CheckPasswordVaild(QStringLiteral("short"), QStringLiteral("carol"), sRule));
    fails("edtPassword", sRule);
    FillPassword("Secret#1", "secret#1");
    fails("edtConfirmPassword", QStringLiteral("The passwords do not match."));
    FillPassword("Secret#1", "Secret#1");
    fails("edtPasswordDays", QStringLiteral("Password validity period cannot be empty."));
    Fill("edtPasswordDays", QStringLiteral("365"));
    fails("edtPtzLevel", QStringLiteral("PTZ control permission cannot be empty."));
    Fill("edtPtzLevel", QStringLiteral("10"));
    tells("Expiration time cannot be earlier than the current time.");
    Part<QDateTimeEdit>(Form(), "dtDate")->setDateTime(QDateTime::currentDateTime().addDays(1));
    fails("edtEmail", QStringLiteral("Invalid mail address."));
    Fill("edtEmail", QString());
    tells("Please select role.");
    EXPECT_EQ(Tab(), 1);
    ChooseRole("Guard");
    tells("Please enter MAC address.");
    Switch("swBindMac", false);
    PressOk();
    const auto user = Users().LastRequest<wire::AddUser>();
    EXPECT_EQ(user.sUserName, "carol");
    EXPECT_EQ(user.sPassword, "Secret#1");
    EXPECT_EQ(user.nPasswordDays, 365);
    EXPECT_EQ(user.nPtzLevel, 10);
    EXPECT_EQ(user.vecRoleIds, Names{"2"});
}

TEST_F(UserForm, FieldsRefuseWhatTheyCannotTake)
{
    OpenAdd();
    Switch("swPasswordInterval", true);
    const struct
    {
        const char* pszField;
        QString sTyped;
        QString sTaken;
        const char* pszHint;
    } cases[] = {
        {"edtUserName", QString(51, QLatin1Char('n')), QString(50, QLatin1Char('n')),
            "User name cannot exceed 50 character(s)."},
        {"edtUserName", QStringLiteral("a>"), QStringLiteral("a"),
            "Special characters < and > are not allowed."},
        {"edtUserName", QString(50, QLatin1Char('n')), QString(50, QLatin1Char('n')), ""},
        {"edtEmail", QString(51, QLatin1Char('m')), QString(50, QLatin1Char('m')),
            "The e-mail length cannot exceed 50 characters."},
        {"edtRemark", QString(256, QLatin1Char('r')), QString(255, QLatin1Char('r')),
            "The remark length cannot exceed 255 characters."},
        {"edtRemark", QStringLiteral("b<"), QStringLiteral("b"),
            "Special characters < and > are not allowed."},
        {"edtPasswordDays", QStringLiteral("366"), QStringLiteral("36"), ""},
        {"edtPasswordDays", QStringLiteral("0365x"), QStringLiteral("365"), ""},
        {"edtPtzLevel", QStringLiteral("110"), QStringLiteral("10"), ""},
    };
    for (const auto& c : cases) {
        Fill(c.pszField, c.sTyped);
        EXPECT_EQ(Field(Form(), c.pszField)->text(), c.sTaken) << c.pszField;
        EXPECT_EQ(Hint(Form(), c.pszField), QLatin1String(c.pszHint)) << c.pszField;
    }
}

TEST_F(UserForm, RefusalsOfTheServerKeepTheInput)
{
    const struct
    {
        int nErrorCode;
        const char* pszField; ///< null: told as a notification
    } cases[] = {{UICommonMdl::ErrorNameExists, "edtUserName"},
        {UICommonMdl::ErrorPasswordRule, "edtPassword"}, {UICommonMdl::ErrorRightNotOwn, nullptr},
        {UICommonMdl::ErrorLastManager, nullptr}};
    OpenAdd();
    FillAll();
    for (const auto& c : cases) {
        PressOk();
        EXPECT_FALSE(IsUsable(Form(), "btnOk")) << "one at a time";
        Answer<wire::AddUser>(c.nErrorCode);
        ASSERT_TRUE(Form());
        const QString sError = UICommonMdl::CErrorCode::GetErroCodeInfor(c.nErrorCode);
        if (c.pszField) {
            EXPECT_EQ(Hint(Form(), c.pszField), sError);
            EXPECT_TRUE(HasFocus(c.pszField));
        } else {
            EXPECT_EQ(FormNotice(), QStringLiteral("Failed to add user. ") + sError);
        }
        EXPECT_EQ(Field(Form(), "edtPassword")->text(), QStringLiteral("Secret#1"));
    }
    const int nQueries = Queries();
    PressOk();
    Answer<wire::AddUser>();
    EXPECT_FALSE(Form());
    EXPECT_EQ(Notice(), QStringLiteral("The user was added."));
    EXPECT_EQ(Queries(), nQueries + 1);
    Users().Refuse<wire::AddUser>();
    Click("btnAdd");
    FillAll();
    PressOk();
    EXPECT_EQ(
        FormNotice(), QStringLiteral("Failed to add user. The request could not be sent to the server."));
    EXPECT_TRUE(IsUsable(Form(), "btnOk"));
}

TEST_F(UserForm, ModifyingSendsTheRecordWithWhatWasChangedOnly)
{
    User user;
    user.sUserName = "alice";
    user.nPasswordChanged = 1767225600000;
    user.nPasswordDays = 30;
    user.bExpiry = true;
    user.nExpiry = 4102444800123;
    user.vecRoleIds = {"3", "2"};
    user.vecMacAddresses = {"00:11:22:33:44:55"};
    user.nVersion = 7;
    Users().AnswerAlways<wire::QueryUserInfo>(user);
    OpenModify("alice");
    EXPECT_TRUE(Field(Form(), "edtUserName")->GetLineEdit()->isReadOnly());
    EXPECT_FALSE(IsUsable(Form(), "edtPassword"));
    EXPECT_FALSE(Form()->findChild<Common::CEditorBase*>()->IsDirty()) << "showing changes nothing";
    EXPECT_EQ(Part<QLabel>(Form(), "lbPasswordExpiration")->text(), QStringLiteral("Never"));
    Fill("edtRemark", QStringLiteral(" night shift "));
    Switch("swMultiLogin", true);
    Press(Form(), "chkChangePassword");
    PressOk();
    EXPECT_EQ(Hint(Form(), "edtPassword"), QStringLiteral("Please enter password."));
    FillPassword("Secret#1", "Secret#1");
    PressOk();
    user.sRemark = "night shift";
    user.bMultiLogin = true;
    user.sPassword = "Secret#1";
    EXPECT_EQ(Users().LastRequest<wire::ModifyUser>(), user);
    Answer<wire::ModifyUser>();

    // A password that is not changed is not sent, and nothing is sent when nothing is changed.
    ClickRowButton("alice", ButtonEdit);
    Press(Form(), "chkChangePassword");
    Fill("edtPassword", QStringLiteral("Secret#1"));
    Press(Form(), "chkChangePassword");
    PressOk();
    EXPECT_FALSE(Form());
    EXPECT_EQ(Users().Count<wire::ModifyUser>(), 1);
}

TEST_F(UserForm, LateAnswersOfAClosedDialogAreNotItsSuccessorsOnes)
{
    OpenAdd();
    FillAll();
    PressOk();
    const FakeCall late = Users().Last<wire::AddUser>();
    m_dialogs.AnswerNext(true);
    Press(Form(), "btnCancel");
    Click("btnAdd");
    Fill("edtUserName", QStringLiteral("dora"));
    Users().Fail(late, UICommonMdl::ErrorNameExists);
    PageDriver::Settle();
    EXPECT_EQ(Hint(Form(), "edtUserName"), QString());
    EXPECT_EQ(FormNotice(), QString());
    m_dialogs.AnswerNext(false);
    Press(Form(), "btnCancel");
    ASSERT_TRUE(Form()) << "not confirmed";
    EXPECT_EQ(Field(Form(), "edtUserName")->text(), QStringLiteral("dora"));
    Fill("edtUserName", QString());
    Press(Form(), "btnCancel");
    EXPECT_FALSE(Form()) << "as it was opened: no question";
}

TEST_F(UserForm, DetailsAreReadAndCanBecomeEditing)
{
    Open();
    OpenDetails("bob");
    EXPECT_EQ(
        Part<QLabel>(Form(), "lbDomainName")->text(), QStringLiteral("uid=bob,ou=people,dc=example,dc=org"));
    EXPECT_TRUE(Field(Form(), "edtEmail")->GetLineEdit()->isReadOnly());
    const bool bMulti = Part<QAbstractButton>(Form(), "swMultiLogin")->isChecked();
    QTest::mouseClick(
        Form(), Qt::LeftButton, Qt::NoModifier, Part(Form(), "swMultiLogin")->mapTo(Form(), QPoint(10, 16)));
    EXPECT_EQ(Part<QAbstractButton>(Form(), "swMultiLogin")->isChecked(), bMulti);
    EXPECT_FALSE(IsUsable(Form(), "btnOk"));
    Press(Form(), "btnEdit");
    EXPECT_EQ(Form()->windowTitle(), QStringLiteral("Modify User"));
    // The directory checks the password of its users.
    for (const char* pszName : {"edtPassword", "edtConfirmPassword", "swForceChange", "swPasswordInterval"})
        EXPECT_FALSE(Part(Form(), pszName)->isVisible()) << pszName;
    Fill("edtEmail", QStringLiteral("bob@example.com"));
    PressOk();
    EXPECT_EQ(Users().LastRequest<wire::ModifyUser>().sEmail, "bob@example.com");
}

TEST_F(UserForm, LoadingCanFailAndBeTriedAgain)
{
    Users().FailAlways<wire::QueryUserInfo>(UICommonMdl::ErrorServerBusy);
    OpenModify("alice");
    EXPECT_EQ(StateTitle(Form(), "wgtLoadState"), QStringLiteral("Failed to get user info."));
    EXPECT_FALSE(IsUsable(Form(), "btnOk"));
    Users().Hold<wire::QueryUserInfo>();
    Connect(false);
    Connect(true);
    EXPECT_EQ(StateTitle(Form(), "wgtLoadState"), QStringLiteral("Loading user"));
    User alice;
    alice.sUserName = "alice";
    Answer<wire::QueryUserInfo>(alice);
    EXPECT_TRUE(IsUsable(Form(), "btnOk"));
}

TEST_F(UserForm, EnterInAFieldSaves)
{
    OpenAdd();
    FillAll();
    QTest::keyClick(Field(Form(), "edtRemark")->GetLineEdit(), Qt::Key_Return);
    EXPECT_EQ(Users().Count<wire::AddUser>(), 1);
}

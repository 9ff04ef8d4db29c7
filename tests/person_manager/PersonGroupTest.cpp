#include "PersonPageFixture.h"

#include <PersonEdit/CPersonnelInfoUI.h>
#include <PersonManager/CPersonGroupEditUI.h>
#include <VxGUI/VxLineEdit.h>
#include <common/CTreeChoice.h>
#include <common/CTreeComboBox.h>

using namespace BasicInfoManagerUI;
using AccessControlLogical::Department_t;
using PersonPageTest::PopUpWarning;

class PersonGroups : public PersonPageTest::Fixture
{
protected:
    CPersonGroupEditUI* Dialog() { return m_pPage->findChild<CPersonGroupEditUI*>(); }
    template <class Widget = QWidget>
    Widget* Field(const char* pszName)
    {
        return Dialog()->findChild<Widget*>(QLatin1String(pszName));
    }
    void Type(const char* pszField, const QString& sText)
    {
        QLineEdit* pEdit = Field<VxGUI::VxLineEdit>(pszField)->GetLineEdit();
        pEdit->selectAll();
        QTest::keyClicks(pEdit, sText);
    }
    QString Hint(const char* pszField) { return Field<VxGUI::VxLineEdit>(pszField)->GetErrorHint(); }
    void Press(const char* pszButton)
    {
        ASSERT_TRUE(Field(pszButton)->isVisible() && Field(pszButton)->isEnabled()) << pszButton;
        QTest::mouseClick(Field(pszButton), Qt::LeftButton);
        PageDriver::Settle();
    }
    template <class Op>
    void Fail(int nErrorCode)
    {
        m_host.server.FailLast<Op>(nErrorCode);
        PageDriver::Settle();
    }
    void AnswerAdd(const Department_t& group)
    {
        m_host.server.AnswerLast<wire::AddDepartment>(group);
        PageDriver::Settle();
    }
    QString DialogNotice() { return VxGUI::VxNotification::CurrentText(Dialog()); }
    template <class Op>
    int Sent()
    {
        return m_host.server.Count<Op>();
    }
    template <class Op>
    Department_t Last()
    {
        return m_host.server.LastRequest<Op>();
    }
};

TEST_F(PersonGroups, AddingChecksTheInputAndSelectsTheNewGroup)
{
    Open();
    Click("m_btnAddOrg");
    EXPECT_EQ(Notice(), QStringLiteral("Please select a person group."));
    SelectGroup("1001");
    Click("m_btnAddOrg");
    ASSERT_TRUE(Dialog());
    Press("m_pBtnAdd");
    EXPECT_EQ(Hint("m_pEditGroupName"), QStringLiteral("Please enter person group name."));
    PersonPageTest::Screenshot(Dialog(), QStringLiteral("person-group-add"));
    Type("m_pEditGroupName", QString(51, QLatin1Char('x')));
    EXPECT_EQ(Hint("m_pEditGroupName"), QStringLiteral("The max length of group name is 50!"));
    const struct
    {
        const char* pszField;
        QString sText;
        QString sHint;
    } cases[] = {
        {"m_pEditGroupName", QStringLiteral("a/b"),
            QStringLiteral("Special characters < > / are not allowed.")},
        {"m_pEditRemark", QStringLiteral("a<b"),
            QStringLiteral("Special characters < and > are not allowed.")},
        {"m_pEditRemark", QString(256, QLatin1Char('r')),
            QStringLiteral("The remark length cannot exceed 255 characters.")},
    };
    for (const auto& c : cases) {
        Type("m_pEditGroupName", QStringLiteral("Welding"));
        Type(c.pszField, c.sText);
        EXPECT_EQ(Hint(c.pszField), c.sHint);
        if (!c.sText.startsWith(QLatin1Char('r'))) {
            Press("m_pBtnAdd");
            EXPECT_EQ(Sent<wire::AddDepartment>(), 0);
        }
    }
    Type("m_pEditRemark", QStringLiteral("a/b"));
    Press("m_pBtnAdd");
    EXPECT_EQ(Last<wire::AddDepartment>(), (Department_t{"", "1001", "Welding", "a/b", 0}));
    EXPECT_FALSE(Field("m_pBtnAdd")->isEnabled()) << "one save at a time";
    Fail<wire::AddDepartment>(UICommonMdl::ErrorNameExists);
    EXPECT_EQ(Hint("m_pEditGroupName"), QStringLiteral("The person group name already exists."));

    Press("m_pBtnAdd");
    const Department_t added{"1004", "1001", "Welding", "a/b", 1};
    m_host.site.vecDepartments.push_back(added);
    AnswerAdd(added);
    EXPECT_FALSE(Dialog());
    EXPECT_EQ(Tree()->GetCurrentCode(), QStringLiteral("1004"));
    EXPECT_EQ(LastRequest().sGroupCode, "1004");
}

TEST_F(PersonGroups, TheNewGroupMayGetItsFirstPersonAtOnce)
{
    Open();
    SelectGroup("1002");
    Click("m_btnAddOrg");
    Type("m_pEditGroupName", QStringLiteral("Abroad"));
    Press("m_pAddAndPerson");
    m_host.site.vecDepartments.push_back({"1005", "1002", "Abroad", "", 1});
    AnswerAdd(m_host.site.vecDepartments.back());
    EXPECT_TRUE(qobject_cast<CPersonnelInfoUI*>(CurrentPage()));
}

TEST_F(PersonGroups, TheLevelLimitIsKept)
{
    m_host.site.vecDepartments.resize(1);
    for (int n = 2; n <= 10; ++n)
        m_host.site.vecDepartments.push_back(
            {"L" + std::to_string(n), n == 2 ? "001" : "L" + std::to_string(n - 1), "Level", "", 1});
    Open();
    SelectGroup("L10");
    Click("m_btnAddOrg");
    EXPECT_EQ(Notice(), QStringLiteral("Failed to add. Person group level must not exceed 10."));
    EXPECT_FALSE(Dialog());
    SelectGroup("L9");
    Click("m_btnAddOrg");
    EXPECT_TRUE(Dialog());
    Press("m_pBtnCancel");
}

TEST_F(PersonGroups, EditingMovesTheGroupButNotUnderItself)
{
    const ExpectWarning popUp(PopUpWarning);
    Open();
    SelectGroup("1001");
    m_pDriver->Key(QStringLiteral("m_pTreeWnd"), Qt::Key_F2);
    PageDriver::Settle();
    ASSERT_TRUE(Dialog());
    EXPECT_FALSE(Field("m_pAddAndPerson")->isVisible());
    auto* pParent = Field<Common::CTreeComboBox>("m_pCmbParent");
    QTest::mouseClick(pParent, Qt::LeftButton);
    auto* pChoice = pParent->findChild<Common::CTreeChoice*>();
    ASSERT_TRUE(pChoice && pChoice->isVisible());
    PersonPageTest::Screenshot(pChoice->window(), QStringLiteral("person-group-parents"));
    auto* pGroups = pChoice->GetTree();
    for (const char* pszCode : {"1001", "1003"}) {
        m_pDriver->ClickIndex(pGroups, pGroups->FindCode(QLatin1String(pszCode)));
        EXPECT_EQ(pParent->GetCode(), QStringLiteral("001")) << pszCode;
    }
    m_pDriver->ClickIndex(pGroups, pGroups->FindCode(QStringLiteral("1002")));
    EXPECT_FALSE(pChoice->isVisible());
    EXPECT_EQ(pParent->currentText(), QStringLiteral("Sales"));
    Press("m_pBtnAdd");
    EXPECT_EQ(
        Last<wire::ModifyDepartment>(), (Department_t{"1001", "1002", "Engineering", "second floor", 3}));

    const int nTrees = Sent<wire::QueryDepartmentTree>();
    m_dialogs.ClickNext(QStringLiteral("btnGoOn"));
    Fail<wire::ModifyDepartment>(UICommonMdl::ErrorVersionConflict);
    EXPECT_TRUE(m_dialogs.LastDetails().startsWith(QStringLiteral("Parent Group: All Persons | Sales")))
        << qPrintable(m_dialogs.LastDetails());
    EXPECT_EQ(pParent->GetCode(), QStringLiteral("1002")) << "the input stays";
    EXPECT_EQ(Sent<wire::QueryDepartmentTree>(), nTrees + 1);
}

TEST_F(PersonGroups, CancelAsksOnlyWhenSomethingWasChanged)
{
    const auto cancels = [](const char* pszWay, CPersonGroupEditUI* pDialog) {
        if (QLatin1String(pszWay) == QLatin1String("Esc"))
            QTest::keyClick(pDialog, Qt::Key_Escape);
        else if (QLatin1String(pszWay) == QLatin1String("window"))
            pDialog->close();
        else
            QTest::mouseClick(
                pDialog->findChild<QPushButton*>(QStringLiteral("m_pBtnCancel")), Qt::LeftButton);
        PageDriver::Settle();
    };
    Open();
    SelectGroup("1001");
    for (const char* const pszOpener : {"m_btnAddOrg", "m_btnModifyOrg"}) {
        for (const char* const pszWay : {"button", "Esc", "window"}) {
            SCOPED_TRACE(testing::Message() << pszOpener << " " << pszWay);
            Click(pszOpener);
            cancels(pszWay, Dialog());
            EXPECT_FALSE(Dialog()) << "nothing was changed";
            Click(pszOpener);
            Type("m_pEditRemark", QStringLiteral("third floor"));
            m_dialogs.AnswerNext(false);
            cancels(pszWay, Dialog());
            ASSERT_TRUE(Dialog());
            EXPECT_EQ(m_dialogs.Shown().last(), QStringLiteral("Prompt: Are you sure to cancel?"));
            EXPECT_EQ(Field<VxGUI::VxLineEdit>("m_pEditRemark")->text(), QStringLiteral("third floor"));
            m_dialogs.AnswerNext(true);
            cancels(pszWay, Dialog());
            EXPECT_FALSE(Dialog());
        }
    }
}

TEST_F(PersonGroups, AParentThatIsGoneMustBeChosenAnew)
{
    Open();
    SelectGroup("1002");
    Click("m_btnAddOrg");
    Type("m_pEditGroupName", QStringLiteral("Abroad"));
    m_host.site.vecDepartments.erase(m_host.site.vecDepartments.begin() + 2);
    Click("btnRefresh");
    Press("m_pBtnAdd");
    EXPECT_EQ(Field<QLabel>("lbParentHint")->text(), QStringLiteral("Please enter parent group name."));
    EXPECT_EQ(Sent<wire::AddDepartment>(), 0);
    EXPECT_EQ(Tree()->GetCurrentCode(), QString());
    EXPECT_EQ(LastRequest().sGroupCode, "");
}

TEST_F(PersonGroups, TheRootIsRenamedWithoutAParent)
{
    Open();
    SelectGroup("001");
    EXPECT_FALSE(IsUsable("m_btnDelOrg"));
    Click("m_btnModifyOrg");
    EXPECT_FALSE(Field("m_pCmbParent")->isVisible());
    Type("m_pEditGroupName", QStringLiteral("Everybody"));
    QTest::keyClick(Field<VxGUI::VxLineEdit>("m_pEditGroupName")->GetLineEdit(), Qt::Key_Return);
    EXPECT_EQ(Last<wire::ModifyDepartment>(), (Department_t{"001", "", "Everybody", "", 1}));
}

TEST_F(PersonGroups, LostConnectionAndARefusedCallKeepTheInput)
{
    Open();
    SelectGroup("1001");
    Click("m_btnAddOrg");
    Type("m_pEditGroupName", QStringLiteral("Welding"));
    m_host.PushConnected(false);
    PageDriver::Settle();
    EXPECT_FALSE(Field("m_pBtnAdd")->isEnabled());
    EXPECT_TRUE(Field("m_pEditGroupName")->isEnabled()) << "the tree is disabled, not its dialog";
    EXPECT_EQ(Field<VxGUI::VxLineEdit>("m_pEditGroupName")->text(), QStringLiteral("Welding"));
    m_host.PushConnected(true);
    PageDriver::Settle();
    m_host.server.Refuse<wire::AddDepartment>();
    Press("m_pBtnAdd");
    EXPECT_EQ(DialogNotice(),
        QStringLiteral("Failed to add person group: The request could not be sent to the server."));
    EXPECT_TRUE(Field("m_pBtnAdd")->isEnabled());
}

TEST_F(PersonGroups, DeletingAsksAndGoesToTheParent)
{
    Open();
    EXPECT_FALSE(IsUsable("m_btnDelOrg"));
    Tree()->setFocus();
    m_pDriver->Key(QStringLiteral("m_pTreeWnd"), Qt::Key_Delete);
    EXPECT_EQ(Notice(), QStringLiteral("Please select a person group."));
    SelectGroup("1003");
    m_dialogs.AnswerNext(true);
    Click("m_btnDelOrg");
    EXPECT_EQ(m_dialogs.LastText(),
        QStringLiteral("Are you sure you want to delete the person group? After deletion, the people in this "
                       "group and sub group(s) will be deleted."));
    EXPECT_EQ(m_dialogs.LastDetails(), QStringLiteral("Testing"));
    EXPECT_EQ(m_host.server.LastRequest<wire::DeleteDepartment>().sCode, "1003");
    Fail<wire::DeleteDepartment>(UICommonMdl::ErrorServerBusy);
    EXPECT_EQ(
        Notice(), QStringLiteral("Failed to delete person group: The server is busy. Please try again."));
    EXPECT_EQ(Tree()->GetCurrentCode(), QStringLiteral("1003"));

    m_dialogs.AnswerNext(true);
    Click("m_btnDelOrg");
    m_host.site.vecDepartments.pop_back();
    Fail<wire::DeleteDepartment>(0);
    EXPECT_EQ(Tree()->GetCurrentCode(), QStringLiteral("1001"));
    EXPECT_EQ(LastRequest().sGroupCode, "1001");
}

TEST_F(PersonGroups, SearchNarrowsTheTreeAndNotTheList)
{
    Open();
    SelectGroup("1002");
    const int nQueries = Queries();
    m_pDriver->Type(QStringLiteral("m_pSearchOrg"), QStringLiteral("test"));
    EXPECT_TRUE(Tree()->FindCode(QStringLiteral("1003")).isValid());
    EXPECT_FALSE(Tree()->FindCode(QStringLiteral("1002")).isValid());
    EXPECT_EQ(Queries(), nQueries);
    EXPECT_EQ(m_pDriver->Find<QLabel>(QStringLiteral("lbPersonGroupName"))->text(), QStringLiteral("Sales"));
}

TEST_F(PersonGroups, AFailedTreeIsToldAndTriedAgain)
{
    m_host.server.FailAlways<wire::QueryDepartmentTree>(UICommonMdl::ErrorServerBusy);
    Open();
    auto* pState = m_pDriver->Find<VxGUI::VxEmptyState>(QStringLiteral("wgtTreeState"));
    EXPECT_EQ(pState->GetKind(), VxGUI::VxEmptyState::Kind::Failed);
    m_host.server.AnswerAlways<wire::QueryDepartmentTree>({m_host.site.vecDepartments});
    QTest::mouseClick(pState->findChild<QPushButton*>(), Qt::LeftButton);
    PageDriver::Settle();
    EXPECT_TRUE(Tree()->isVisible());
}

#include "RolePageFixture.h"

#include <QComboBox>
#include <QLineEdit>

using namespace RolePageTest;

namespace {

class RoleDialog : public Fixture
{
protected:
    template <class Save>
    void FailSave(int nError, const char* pszDetail = "")
    {
        Users().FailLast<Save>(nError, pszDetail);
        PageDriver::Settle();
    }
};

TEST_F(RoleDialog, AddsARoleWithItsRights)
{
    OpenNew();
    EXPECT_EQ(Dialog()->windowTitle(), QStringLiteral("Add Role"));
    Type("editRoleName", QStringLiteral("  Night  "));
    Type("editRemark", QStringLiteral("22 to 6"));
    ClickBox("treeMenu", "Role Management");
    ShowTab(1);
    ClickBox("treeFunc", "Privacy Masking");
    ShowTab(2);
    ClickBox("treeDevice", "South");
    ClickSwitch("South");
    Click("btnOk");
    const RoleEdit_t expected{
        {"", "Night", "22 to 6", false, {"001", "001002", "001002002"}, {"004", "004001"}, 0}, "",
        {{DeviceNodeOrganization, "1002", 0, 0, Change::On, Change::On}}};
    EXPECT_EQ(Added(), expected);
    EXPECT_FALSE(IsUsable("btnOk")) << "it is being saved";
    FailSave<wire::AddRole>(UICommonMdl::ErrorNone);
    EXPECT_FALSE(Dialog());
    EXPECT_EQ(Notice(), QStringLiteral("The role was added."));
}

struct CheckCase
{
    QString sName;
    QString sRemark;
    QString sNameHint;
    QString sRemarkHint;
};

TEST_F(RoleDialog, ChecksTheNameThenTheRemark)
{
    const QString sSpecial = QStringLiteral("Special characters < and > are not allowed.");
    const CheckCase cases[] = {
        {QStringLiteral("  "), QString(), QStringLiteral("Role name cannot be empty."), {}},
        {QString(51, QLatin1Char('n')), QString(), QStringLiteral("Role name cannot exceed 50 characters."),
            {}},
        {QStringLiteral("a<b"), QStringLiteral(">"), sSpecial, {}},
        {QStringLiteral("ok"), QStringLiteral("a>b"), QString(), sSpecial},
        {QStringLiteral("ok"), QString(256, QLatin1Char('r')), QString(),
            QStringLiteral("The remark length cannot exceed 255 characters.")}};
    OpenNew();
    for (const CheckCase& check : cases) {
        SCOPED_TRACE(qPrintable(check.sName.left(4) + check.sRemark.left(4)));
        // Pasted by a program, past the limit while typing.
        m_pDriver->Find<VxGUI::VxLineEdit>(QStringLiteral("editRoleName"))->setText(check.sName);
        m_pDriver->Find<VxGUI::VxLineEdit>(QStringLiteral("editRemark"))->setText(check.sRemark);
        Click("btnOk");
        EXPECT_EQ(Hint("editRoleName"), check.sNameHint);
        EXPECT_EQ(Hint("editRemark"), check.sRemarkHint);
        const QString sFocus =
            check.sNameHint.isEmpty() ? QStringLiteral("editRemark") : QStringLiteral("editRoleName");
        EXPECT_TRUE(m_pDriver->Find<VxGUI::VxLineEdit>(sFocus)->GetLineEdit()->hasFocus());
    }
    EXPECT_EQ(Users().Count<wire::AddRole>(), 0);
}

TEST_F(RoleDialog, ChangesAreAddedToWhatTheRoleHas)
{
    OpenDialog("2");
    EXPECT_EQ(Dialog()->windowTitle(), QStringLiteral("Modify Role"));
    ClickBox("treeMenu", "Event");
    ShowTab(2);
    Expand("North");
    ClickBox("treeDevice", "Gate");
    Click("btnOk");
    Role_t role = m_host.site.vecRoles[1];
    role.vecMenuRights = {"001001"};
    EXPECT_EQ(Saved(), (RoleEdit_t{role, "", {{DeviceNodeDevice, "1", 0, 0, Change::Off, Change::Keep}}}));
}

TEST_F(RoleDialog, CopiesTheRightsOfAnotherRole)
{
    OpenDialog("3");
    ASSERT_EQ(
        m_pDriver->Find<QComboBox>(QStringLiteral("cmbCopyFrom"))->findText(QStringLiteral("Reception")), -1)
        << "not of itself";
    ShowTab(2);
    ClickBox("treeDevice", "South");
    Users().Hold<wire::QueryRoleInfo>();
    m_pDriver->Choose(QStringLiteral("cmbCopyFrom"), QStringLiteral("Guard"));
    EXPECT_FALSE(IsUsable("btnOk"));
    // Chosen on the way: its rights come late and are nobody's.
    const std::vector<FakeCall> vecCalls = Users().Calls<wire::QueryRoleInfo>();
    ASSERT_EQ(vecCalls.back().Request<wire::QueryRoleInfo>().sRoleId, "2");
    Users().Answer<wire::QueryRoleInfo>(vecCalls.back(), m_host.site.vecRoles[1]);
    Users().Answer<wire::QueryRoleInfo>(vecCalls[vecCalls.size() - 2], m_host.site.vecRoles[0]);
    PageDriver::Settle();
    EXPECT_EQ(Users().LastRequest<wire::QueryDeviceRights>().vecRoleIds, (Names{"2"}));
    EXPECT_EQ(CheckOf("treeDevice", "North"), Qt::PartiallyChecked);
    ClickBox("treeDevice", "South");
    Click("btnOk");
    Role_t role = m_host.site.vecRoles[2];
    role.vecMenuRights = m_host.site.vecRoles[1].vecMenuRights;
    role.vecFuncRights = m_host.site.vecRoles[1].vecFuncRights;
    EXPECT_EQ(
        Saved(), (RoleEdit_t{role, "2", {{DeviceNodeOrganization, "1002", 0, 0, Change::On, Change::Keep}}}));
}

TEST_F(RoleDialog, ACopyThatFailsLeavesTheRights)
{
    OpenDialog("3");
    ClickBox("treeMenu", "Event");
    Users().FailAlways<wire::QueryRoleInfo>(UICommonMdl::ErrorTimeOut);
    m_pDriver->Choose(QStringLiteral("cmbCopyFrom"), QStringLiteral("Administrator"));
    PageDriver::Settle();
    EXPECT_TRUE(DialogNotice().startsWith(QStringLiteral("Failed to get role info.")));
    EXPECT_EQ(
        m_pDriver->Find<QComboBox>(QStringLiteral("cmbCopyFrom"))->currentText(), QStringLiteral("None"));
    Click("btnOk");
    EXPECT_EQ(Saved().sCopyFrom, "");
    EXPECT_EQ(Saved().role.vecMenuRights, (Names{"002", "002001", "002003", "002003001"}));
}

TEST_F(RoleDialog, CancelAsksWhenSomethingIsChangedAndKeepsTheInput)
{
    OpenDialog("2");
    Click("btnCancel");
    EXPECT_FALSE(Dialog()) << "nothing is lost: no question";
    OpenDialog("2");
    Type("editRemark", QStringLiteral("x"));
    m_dialogs.AnswerNext(false);
    Click("btnCancel");
    ASSERT_TRUE(Dialog());
    EXPECT_EQ(m_dialogs.Shown().last(), QStringLiteral("Prompt: Are you sure to cancel?"));
    ShowTab(2);
    ClickSwitch("North");
    m_dialogs.AnswerNext(true);
    QTest::keyClick(Dialog(), Qt::Key_Escape);
    PageDriver::Settle();
    EXPECT_FALSE(Dialog());
    EXPECT_EQ(Users().Count<wire::ModifyRole>(), 0);
}

TEST_F(RoleDialog, RefusalsKeepTheInput)
{
    OpenDialog("2");
    Type("editRoleName", QStringLiteral("Other"));
    Click("btnOk");
    FailSave<wire::ModifyRole>(UICommonMdl::ErrorNameExists);
    EXPECT_EQ(Hint("editRoleName"), QStringLiteral("The role name already exists."));
    EXPECT_TRUE(
        m_pDriver->Find<VxGUI::VxLineEdit>(QStringLiteral("editRoleName"))->GetLineEdit()->hasFocus());
    Click("btnOk");
    FailSave<wire::ModifyRole>(UICommonMdl::ErrorRightNotOwn, "001001");
    EXPECT_TRUE(DialogNotice().startsWith(QStringLiteral("Failed to modify role: ")));
    EXPECT_TRUE(DialogNotice().endsWith(QStringLiteral("(Device)")));
    Users().Refuse<wire::ModifyRole>();
    Click("btnOk");
    EXPECT_EQ(DialogNotice(),
        QStringLiteral("Failed to modify role: The request could not be sent to the server."));
    EXPECT_TRUE(IsUsable("btnOk"));
    EXPECT_EQ(
        m_pDriver->Find<VxGUI::VxLineEdit>(QStringLiteral("editRoleName"))->text(), QStringLiteral("Other"));
}

TEST_F(RoleDialog, AChangeBySomebodyElseIsOfferedToBeLoaded)
{
    OpenDialog("2");
    Type("editRemark", QStringLiteral("mine"));
    Click("btnOk");
    m_dialogs.AnswerNext(false);
    FailSave<wire::ModifyRole>(UICommonMdl::ErrorVersionConflict);
    EXPECT_EQ(
        m_pDriver->Find<VxGUI::VxLineEdit>(QStringLiteral("editRemark"))->text(), QStringLiteral("mine"));
    m_host.site.vecRoles[1].sRemark = "theirs";
    m_host.site.vecRoles[1].nVersion = 9;
    Click("btnOk");
    m_dialogs.ClickNext(QStringLiteral("btnLoadAgain"));
    FailSave<wire::ModifyRole>(UICommonMdl::ErrorVersionConflict);
    EXPECT_EQ(
        m_pDriver->Find<VxGUI::VxLineEdit>(QStringLiteral("editRemark"))->text(), QStringLiteral("theirs"));
    Click("btnOk");
    EXPECT_EQ(Saved().role.nVersion, 9);
}

TEST_F(RoleDialog, DeviceRightsThatTheRecordDoesNotShowAreNeverTakenForSaved)
{
    OpenDialog("2");
    ShowTab(2);
    ClickBox("treeDevice", "South");
    Click("btnOk");
    m_host.site.vecRoles[1].nVersion = 9;
    m_dialogs.ClickNext(QStringLiteral("btnSaveMine"));
    FailSave<wire::ModifyRole>(UICommonMdl::ErrorVersionConflict);
    EXPECT_TRUE(m_dialogs.LastDetails().startsWith(QStringLiteral("Device Rights:")));
    EXPECT_EQ(Saved().role.nVersion, 9);
    EXPECT_EQ(Saved().vecChanges.size(), 1U);
}

TEST_F(RoleDialog, ARoleThatIsGoneIsNotOpened)
{
    Open();
    m_host.site.vecRoles.pop_back();
    DoubleClick("3");
    EXPECT_FALSE(Dialog());
    EXPECT_EQ(Notice(), QStringLiteral("The role does not exist any more."));
}

TEST_F(RoleDialog, DetailsGoOnToEditing)
{
    Open();
    List()->setCurrentIndex(RowOf("2"));
    ListKey(Qt::Key_Return);
    ASSERT_TRUE(Dialog());
    EXPECT_FALSE(m_pDriver->IsShown(QStringLiteral("btnOk")));
    EXPECT_FALSE(m_pDriver->IsShown(QStringLiteral("cmbCopyFrom")));
    EXPECT_EQ(Node("treeMenu", "Event", CRightModel::ColumnRole).data().toString(), QStringLiteral("Guard"));
    const int nBefore = CheckOf("treeMenu", "Event");
    ClickBox("treeMenu", "Event");
    EXPECT_EQ(CheckOf("treeMenu", "Event"), nBefore);
    Click("btnEdit");
    EXPECT_EQ(Dialog()->windowTitle(), QStringLiteral("Modify Role"));
    ClickBox("treeMenu", "Event");
    EXPECT_EQ(CheckOf("treeMenu", "Event"), Qt::Unchecked);
}

TEST_F(RoleDialog, ALostConnectionKeepsTheInput)
{
    OpenDialog("2");
    Type("editRemark", QStringLiteral("kept"));
    ShowTab(2);
    Users().FailAlways<wire::QueryDeviceRights>(UICommonMdl::ErrorDisconnected);
    Connect(false);
    EXPECT_FALSE(IsUsable("btnOk"));
    Tree("treeDevice")->setFocus();
    Expand("North");
    EXPECT_TRUE(DialogNotice().startsWith(QStringLiteral(
        "Failed to get organizations or devices. Please double-click organization node again.")));
    EXPECT_FALSE(Tree("treeDevice")->isExpanded(Node("treeDevice", "North")));
    m_host.site.ServeUsers();
    Connect(true);
    EXPECT_TRUE(IsUsable("btnOk"));
    const QPoint place = Tree("treeDevice")->visualRect(Node("treeDevice", "North")).center();
    m_pDriver->ClickAt(Tree("treeDevice"), place);
    QTest::mouseDClick(Tree("treeDevice")->viewport(), Qt::LeftButton, Qt::NoModifier, place);
    PageDriver::Settle();
    EXPECT_TRUE(Node("treeDevice", "Gate").isValid()) << "asked for again";
    Click("btnOk");
    EXPECT_EQ(Saved().role.sRemark, "kept");
}

TEST_F(RoleDialog, ASearchUnfoldsItsMatchesAndEndsAsItWas)
{
    OpenDialog("2");
    Tree("treeMenu")->collapse(Node("treeMenu", "User"));
    Type("editSearchMenu", QStringLiteral("audit"));
    EXPECT_TRUE(Tree("treeMenu")->isExpanded(Node("treeMenu", "User")));
    ClickBox("treeMenu", "Audit Log");
    Type("editSearchMenu", QString());
    EXPECT_FALSE(Tree("treeMenu")->isExpanded(Node("treeMenu", "User")));
    EXPECT_TRUE(Tree("treeMenu")->isExpanded(Node("treeMenu", "Applications")));

    ShowTab(2);
    Expand("North");
    const int nQueries = Users().Count<wire::QueryDeviceRights>();
    Type("editSearchDevice", QStringLiteral("gate"));
    EXPECT_FALSE(Tree("treeDevice")
                     ->model()
                     ->match(Tree("treeDevice")->model()->index(0, 0), Qt::DisplayRole,
                         QStringLiteral("South"), 1, Qt::MatchRecursive)
                     .size());
    ClickBox("treeDevice", "Gate");
    Type("editSearchDevice", QStringLiteral("nothing"));
    EXPECT_EQ(State("wgtStateDevice"), QStringLiteral("Nothing matches the search."));
    Type("editSearchDevice", QString());
    EXPECT_TRUE(Tree("treeDevice")->isExpanded(Node("treeDevice", "North")));
    EXPECT_EQ(Users().Count<wire::QueryDeviceRights>(), nQueries) << "a search asks for nothing";
    Click("btnOk");
    EXPECT_EQ(Saved().role.vecMenuRights, (Names{"001", "001001", "001002", "001002003", "002001"}));
    EXPECT_EQ(Saved().vecChanges.size(), 1u);
}

TEST_F(RoleDialog, KeysAloneMakeARole)
{
    OpenNew();
    QTest::keyClicks(Dialog()->focusWidget(), QStringLiteral("Keys"));
    Tree("treeMenu")->setFocus();
    Tree("treeMenu")->setCurrentIndex(Node("treeMenu", "Event"));
    QTest::keyClick(Tree("treeMenu"), Qt::Key_Space);
    ShowTab(2);
    Tree("treeDevice")->setFocus();
    Tree("treeDevice")->setCurrentIndex(Node("treeDevice", "North"));
    QTest::keyClick(Tree("treeDevice"), Qt::Key_Right);
    PageDriver::Settle();
    QTest::keyClick(Tree("treeDevice"), Qt::Key_F4);
    QTest::keyClick(Tree("treeDevice"), Qt::Key_Down);
    QTest::keyClick(Tree("treeDevice"), Qt::Key_Down);
    QTest::keyClick(Tree("treeDevice"), Qt::Key_Space);
    QTest::keyClick(Tree("treeDevice"), Qt::Key_Return);
    EXPECT_EQ(Added().role.sName, "Keys");
    EXPECT_EQ(Added().role.vecMenuRights, (Names{"002", "002001"}));
    EXPECT_EQ(Added().vecChanges,
        (std::vector<Change>{{DeviceNodeOrganization, "1001", 0, 0, Change::Keep, Change::On},
            {DeviceNodeDevice, "1", 0, 0, Change::On, Change::Keep}}));
}

TEST_F(RoleDialog, AnAnswerAfterItIsGoneHarmsNobody)
{
    OpenDialog("2");
    Type("editRemark", QStringLiteral("x"));
    Click("btnOk");
    const FakeCall save = Users().Last<wire::ModifyRole>();
    m_dialogs.AnswerNext(true);
    Click("btnCancel");
    ASSERT_FALSE(Dialog());
    Users().Fail(save, UICommonMdl::ErrorVersionConflict);
    PageDriver::Settle();
    DoubleClick("2");
    Close();
    PushRoles();
}

} // namespace

#include "RolePageFixture.h"

#include <QLineEdit>
#include <QMenu>

using namespace RolePageTest;

namespace {

class RolePage : public Fixture
{
};

TEST_F(RolePage, DeletesWhatIsCheckedAfterAsking)
{
    Open();
    Click("btnDelete");
    EXPECT_EQ(Notice(), QStringLiteral("Please select one or more roles to be deleted."));
    Check("2");
    Check("3");
    m_dialogs.AnswerNext(false);
    Click("btnDelete");
    EXPECT_EQ(m_dialogs.Shown(), QStringList{QStringLiteral("Prompt: Are you sure to delete role?")});
    EXPECT_EQ(Users().Count<wire::DeleteRoles>(), 0);
    m_dialogs.AnswerNext(true);
    Click("btnDelete");
    EXPECT_EQ(Users().LastRequest<wire::DeleteRoles>().vecRoleIds, (Names{"2", "3"}));

    // A role that users hold stays; the list is asked for anew in any case.
    const int nQueries = Users().Count<wire::QueryRoleList>();
    Users().AnswerLast<wire::DeleteRoles>({{{"Guard", UICommonMdl::ErrorReferenced}}});
    PageDriver::Settle();
    EXPECT_TRUE(m_dialogs.LastText().startsWith(QStringLiteral("Failed to delete role")));
    EXPECT_TRUE(m_dialogs.LastText().contains(QStringLiteral("Guard: ")));
    EXPECT_EQ(Users().Count<wire::QueryRoleList>(), nQueries + 1);

    m_dialogs.AnswerNext(true);
    ClickRowButton("3", 1);
    EXPECT_EQ(Users().LastRequest<wire::DeleteRoles>().vecRoleIds, (Names{"3"}));
    Users().FailLast<wire::DeleteRoles>(UICommonMdl::ErrorTimeOut);
    PageDriver::Settle();
    EXPECT_TRUE(Notice().startsWith(QStringLiteral("Failed to delete role: ")));
}

TEST_F(RolePage, TheBuiltInRoleCanOnlyBeLookedAt)
{
    Open();
    EXPECT_TRUE(RowButton("1", 0).isNull());
    EXPECT_TRUE(RowButton("1", 1).isNull());
    Check("1");
    EXPECT_FALSE(RowOf("1", RoleColumnCheck).data(Qt::CheckStateRole).isValid());
    Click("btnDelete");
    EXPECT_EQ(Users().Count<wire::DeleteRoles>(), 0);
    ClickRowButton("1", 2);
    ASSERT_TRUE(Dialog());
    EXPECT_EQ(Dialog()->windowTitle(), QStringLiteral("Role Details"));
    EXPECT_FALSE(m_pDriver->IsShown(QStringLiteral("btnEdit")));
}

TEST_F(RolePage, WithoutTheRightNothingCanBeChanged)
{
    m_host.SetMissingRights({"001002002"});
    Open();
    for (const char* pszName : {"btnAdd", "btnDelete"}) {
        EXPECT_FALSE(IsUsable(pszName));
        EXPECT_FALSE(m_pDriver->Find<QPushButton>(QLatin1String(pszName))->toolTip().isEmpty());
    }
    EXPECT_TRUE(RowButton("2", 0).isNull());
    DoubleClick("2");
    ASSERT_TRUE(Dialog());
    EXPECT_EQ(Dialog()->windowTitle(), QStringLiteral("Role Details"));
    EXPECT_FALSE(m_pDriver->IsShown(QStringLiteral("btnEdit")));
    // The right comes while the page is open.
    m_host.SetMissingRights({});
    PageDriver::Settle();
    EXPECT_TRUE(IsUsable("btnAdd"));
    EXPECT_FALSE(RowButton("2", 0).isNull());
}

TEST_F(RolePage, WhatTheSearchHidesStaysCheckedAndIsNamed)
{
    Open();
    Check("2");
    Type("editSearch", QStringLiteral("RECEP"));
    EXPECT_EQ(List()->model()->rowCount(), 1);
    m_dialogs.AnswerNext(true);
    Click("btnDelete");
    EXPECT_TRUE(m_dialogs.LastDetails().contains(QStringLiteral("Guard")));
    EXPECT_EQ(Users().LastRequest<wire::DeleteRoles>().vecRoleIds, Names{"2"});
    Users().AnswerLast<wire::DeleteRoles>();
    PageDriver::Settle();
    EXPECT_FALSE(m_pDriver->IsShown(QStringLiteral("lbChecked"))) << "what is gone is forgotten";
    Type("editSearch", QStringLiteral("nobody"));
    EXPECT_EQ(State("wgtListState"), QStringLiteral("No role matches the search."));
    Type("editSearch", QString());
    EXPECT_EQ(List()->model()->rowCount(), 3);
}

TEST_F(RolePage, ManyPushesAreOneQueryAndChecksStay)
{
    Open();
    Check("3");
    const int nQueries = Users().Count<wire::QueryRoleList>();
    m_host.site.vecRoles.push_back({"4", "Visitor", "", false, {}, {}, 1});
    for (int n = 0; n < 5; ++n)
        PushRoles();
    PageDriver::WaitFor([&] { return List()->model()->rowCount() == 4; });
    EXPECT_EQ(Users().Count<wire::QueryRoleList>(), nQueries + 1);
    EXPECT_EQ(RowOf("3", RoleColumnCheck).data(Qt::CheckStateRole).toInt(), Qt::Checked);
}

TEST_F(RolePage, TellsWhyThereIsNoList)
{
    const struct
    {
        int nError;
        QString sTitle;
    } cases[] = {{UICommonMdl::ErrorNoRight, QStringLiteral("You have no permission to see roles.")},
        {UICommonMdl::ErrorTimeOut, QStringLiteral("Failed to get role list")}};
    for (const auto& failure : cases) {
        Users().FailAlways<wire::QueryRoleList>(failure.nError);
        Open();
        EXPECT_EQ(State("wgtListState"), failure.sTitle);
    }
    m_host.site.ServeUsers();
    Click("btnStateAction");
    EXPECT_TRUE(m_pDriver->IsShown(QStringLiteral("treeRole")));
}

TEST_F(RolePage, ALostConnectionKeepsTheListAndComesBack)
{
    Open();
    Check("2");
    Connect(false);
    for (const char* pszName : {"btnAdd", "btnDelete", "btnRefresh", "treeRole"})
        EXPECT_FALSE(IsUsable(pszName)) << pszName;
    EXPECT_TRUE(m_pDriver->IsShown(QStringLiteral("lbConnection")));
    const int nQueries = Users().Count<wire::QueryRoleList>();
    PushRoles();
    Connect(true);
    EXPECT_EQ(Users().Count<wire::QueryRoleList>(), nQueries + 1);
    EXPECT_EQ(RowOf("2", RoleColumnCheck).data(Qt::CheckStateRole).toInt(), Qt::Checked);
    m_pPage->UninitUI();
    PushRoles();
    Connect(false);
    EXPECT_EQ(m_host.CountObservers(), 0);
    EXPECT_TRUE(IsUsable("btnAdd")) << "the page is left alone";
}

TEST_F(RolePage, KeysReachEveryOperationOfTheList)
{
    Open();
    List()->setCurrentIndex(RowOf("2"));
    ListKey(Qt::Key_Space);
    EXPECT_EQ(RowOf("2", RoleColumnCheck).data(Qt::CheckStateRole).toInt(), Qt::Checked);
    m_dialogs.AnswerNext(true);
    ListKey(Qt::Key_Delete);
    EXPECT_EQ(Users().LastRequest<wire::DeleteRoles>().vecRoleIds, (Names{"2"}));
    const std::pair<Qt::Key, const char*> keys[] = {
        {Qt::Key_F2, "Modify Role"}, {Qt::Key_Return, "Role Details"}};
    for (const auto& [key, pszTitle] : keys) {
        ListKey(key);
        ASSERT_TRUE(Dialog());
        EXPECT_EQ(Dialog()->windowTitle(), QLatin1String(pszTitle));
        QTest::keyClick(Dialog(), Qt::Key_Escape);
        PageDriver::Settle();
        EXPECT_FALSE(Dialog()) << "nothing was changed, so nothing is asked";
    }
    m_pPage->activateWindow();
    PageDriver::Settle();
    QTest::keyClick(List(), Qt::Key_F, Qt::ControlModifier);
    EXPECT_TRUE(m_pDriver->Find<QLineEdit>(QStringLiteral("editSearch"))->hasFocus());
}

} // namespace

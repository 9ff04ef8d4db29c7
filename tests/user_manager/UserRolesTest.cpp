#include "UserPageFixture.h"

#include <RoleManager/CRightsView.h>
#include <UserManager/CRoleCheckButton.h>
#include <UserManager/CRoleSelectPopView.h>
#include <UserManager/CUserDetailPermission.h>

#include <QCheckBox>
#include <QTreeView>

using namespace PlatformConfigUI;
using namespace UserLogical;
using UserPageTest::IsUsable;
using UserPageTest::Part;
using UserPageTest::PopUpWarning;
using UserPageTest::Press;
using UserPageTest::StateTitle;
using UserPageTest::Type;

/// The permission tab alone.
class UserRoles : public testing::Test
{
protected:
    using Names = std::vector<std::string>;

    void SetUp() override
    {
        m_host.site.ServeUsers();
        m_permission.resize(900, 500);
        m_permission.show();
    }
    FakeServer& Users() { return m_host.server; }
    QTreeView* List() { return Part<QTreeView>(&m_permission, "listRoles"); }
    QStringList Listed()
    {
        QStringList listNames;
        for (int nRow = 0; nRow < List()->model()->rowCount(); ++nRow)
            listNames.append(List()->model()->index(nRow, 0).data().toString());
        return listNames;
    }
    void ClickRole(int nRow)
    {
        QTest::mouseClick(List()->viewport(), Qt::LeftButton, Qt::NoModifier,
            List()->visualRect(List()->model()->index(nRow, 0)).center());
        PageDriver::Settle();
    }
    bool AreRightsShown() { return m_permission.findChild<CRightsView*>()->isVisible(); }
    void PushRoles()
    {
        Users().Push(wire::event::RolesChanged);
        PageDriver::Settle();
    }

    FakeHost m_host;
    CUserDetailPermission m_permission{&m_host.interfaceSet};
};

TEST_F(UserRoles, ArePickedInThePopUpAndListedWithAButtonEach)
{
    m_permission.StartChoice({"2"});
    PageDriver::Settle();
    EXPECT_EQ(Listed(), QStringList{QStringLiteral("Guard")});
    {
        const ExpectWarning warning(PopUpWarning);
        Press(&m_permission, "btnAddRole");
    }
    auto* const pPopup = m_permission.findChild<CRoleSelectPopView*>();
    ASSERT_TRUE(pPopup);
    auto* const pAll = Part<QCheckBox>(pPopup, "chkAllRoles");
    auto* const pTable = Part<QTreeView>(pPopup, "tableRoles");
    EXPECT_EQ(pAll->checkState(), Qt::PartiallyChecked);
    // What the search hides is left alone.
    Type(Part<QLineEdit>(pPopup, "edtSearchRole"), QStringLiteral("REC"));
    Press(pPopup, "chkAllRoles");
    EXPECT_EQ(m_permission.GetChosen(), (Names{"2", "3"}));
    Press(pPopup, "chkAllRoles");
    EXPECT_EQ(m_permission.GetChosen(), Names{"2"});
    Type(Part<QLineEdit>(pPopup, "edtSearchRole"), QStringLiteral("no such role"));
    EXPECT_FALSE(IsUsable(pPopup, "chkAllRoles"));
    EXPECT_TRUE(Part(pPopup, "lbNoRole")->isVisible());
    Type(Part<QLineEdit>(pPopup, "edtSearchRole"), QString());
    Press(pPopup, "chkAllRoles");
    EXPECT_EQ(m_permission.GetChosen(), (Names{"1", "2", "3"}));
    pTable->setFocus();
    pTable->setCurrentIndex(pTable->model()->index(0, 1));
    QTest::keyClick(pTable, Qt::Key_Space);
    EXPECT_EQ(m_permission.GetChosen(), (Names{"2", "3"}));
    EXPECT_EQ(pAll->checkState(), Qt::PartiallyChecked);
    pPopup->close();
    PageDriver::Settle();
    UserPageTest::ClickCellButton(List(), List()->model()->index(0, 1), 0);
    EXPECT_EQ(Listed(), QStringList{QStringLiteral("Reception")});
    List()->setFocus();
    List()->setCurrentIndex(List()->model()->index(0, 0));
    QTest::keyClick(List(), Qt::Key_Delete);
    EXPECT_TRUE(m_permission.GetChosen().empty());
    EXPECT_EQ(StateTitle(&m_permission, "wgtRolesState"), QStringLiteral("No role is chosen."));
}

TEST_F(UserRoles, AClickShowsTheRightsOfTheRole)
{
    m_permission.StartChoice({"2", "3"});
    PageDriver::Settle();
    EXPECT_FALSE(AreRightsShown());
    ClickRole(1);
    EXPECT_EQ(Users().LastRequest<wire::QueryRoleInfo>().sRoleId, "3");
    EXPECT_TRUE(AreRightsShown());
    Users().Hold<wire::QueryRoleInfo>();
    ClickRole(0);
    const FakeCall stale = Users().Last<wire::QueryRoleInfo>();
    ClickRole(1);
    Users().Fail(stale, UICommonMdl::ErrorInternal);
    PageDriver::Settle();
    EXPECT_EQ(StateTitle(&m_permission, "wgtRightsState"), QStringLiteral("Loading rights"));
    Users().FailLast<wire::QueryRoleInfo>(UICommonMdl::ErrorServerBusy);
    PageDriver::Settle();
    EXPECT_TRUE(VxGUI::VxNotification::CurrentText(&m_permission)
                    .startsWith(QStringLiteral("Failed to get role info. ")));
    EXPECT_EQ(StateTitle(&m_permission, "wgtRightsState"), QStringLiteral("Failed to get role info."));
}

TEST_F(UserRoles, ARoleThatIsGoneIsTakenOffWithANotice)
{
    m_permission.StartChoice({"2", "9"});
    PageDriver::Settle();
    EXPECT_EQ(m_permission.GetChosen(), Names{"2"});
    EXPECT_TRUE(VxGUI::VxNotification::CurrentText(&m_permission)
                    .contains(QStringLiteral("does not exist any more")));
    ClickRole(0);
    EXPECT_TRUE(AreRightsShown());
    m_host.site.vecRoles.erase(m_host.site.vecRoles.begin() + 1);
    PushRoles();
    EXPECT_TRUE(m_permission.GetChosen().empty());
    EXPECT_FALSE(AreRightsShown());
}

TEST_F(UserRoles, OfAUserAreShownTogetherUntilOneIsClicked)
{
    m_permission.ShowUser(QStringLiteral("bob"));
    PageDriver::Settle();
    EXPECT_EQ(Listed(), (QStringList{QStringLiteral("Guard"), QStringLiteral("Reception")}));
    EXPECT_TRUE(AreRightsShown());
    EXPECT_EQ(Users().Count<wire::QueryRoleInfo>(), 0);
    EXPECT_FALSE(Part(&m_permission, "btnAddRole")->isVisible());
    ClickRole(0);
    EXPECT_EQ(Users().LastRequest<wire::QueryRoleInfo>().sRoleId, "2");
    Press(&m_permission, "btnAllRoles");
    EXPECT_TRUE(AreRightsShown());
    ClickRole(0);
    EXPECT_EQ(Users().Count<wire::QueryRoleInfo>(), 2) << "the same role can be looked at again";
}

TEST_F(UserRoles, AFailedListCanBeReadAgain)
{
    Users().FailAlways<wire::QueryUserRole>(UICommonMdl::ErrorServerBusy);
    m_permission.ShowUser(QStringLiteral("bob"));
    PageDriver::Settle();
    EXPECT_EQ(StateTitle(&m_permission, "wgtRolesState"), QStringLiteral("Failed to get user role."));
    m_host.PushConnected(false);
    PageDriver::Settle();
    m_host.site.ServeUsers();
    m_host.PushConnected(true);
    PageDriver::Settle();
    EXPECT_EQ(Listed().size(), 2);
    Users().Refuse<wire::QueryRoleList>();
    m_permission.StartChoice({});
    PageDriver::Settle();
    EXPECT_EQ(StateTitle(&m_permission, "wgtRolesState"), QStringLiteral("Failed to get roles."));
    EXPECT_FALSE(IsUsable(&m_permission, "btnAddRole"));
}

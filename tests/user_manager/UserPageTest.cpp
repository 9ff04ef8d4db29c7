#include "UserPageFixture.h"

#include <UserManager/CDlgUserType.h>
#include <VxGUI/VxWaitDialog.h>

#include <QListWidget>
#include <QMenu>

using namespace PlatformConfigUI;
using namespace UserLogical;
using UserPageTest::IsUsable;
using UserPageTest::Part;
using UserPageTest::PopUpWarning;
using UserPageTest::Press;
using UserPageTest::StateTitle;

class UserPage : public UserPageTest::Fixture
{
protected:
    /// Chooses in the pop-up of a header by the mouse.
    void Filter(int nColumn, const char* pszChoice)
    {
        const ExpectWarning warning(PopUpWarning);
        CUserListHeader* const pHeader = List()->GetHeader();
        const QPoint place(pHeader->sectionViewportPosition(nColumn) + 20, pHeader->height() / 2);
        QTest::mouseClick(pHeader->viewport(), Qt::LeftButton, Qt::NoModifier, place);
        auto* const pPopup = pHeader->findChild<CDlgUserType*>();
        ASSERT_TRUE(pPopup);
        auto* const pChoices = Part<QListWidget>(pPopup, "listChoices");
        const auto listFound = pChoices->findItems(QLatin1String(pszChoice), Qt::MatchExactly);
        ASSERT_EQ(listFound.size(), 1) << pszChoice;
        QTest::mouseClick(pChoices->viewport(), Qt::LeftButton, Qt::NoModifier,
            pChoices->visualItemRect(listFound.first()).center());
        PageDriver::Settle();
    }
};

TEST_F(UserPage, RowsShowTheUsersAndCarryTheirData)
{
    Open();
    const struct
    {
        const char* pszUser;
        const char* pszRoles;
        const char* pszStatus;
        const char* pszType;
        bool bAllowed;
        int nLockState;
    } cases[] = {{"alice", "Guard", "Online", "Normal User", true, 1},
        {"bob", "Guard,Reception", "Offline", "Domain User", true, 2},
        {"system", "Administrator", "Online", "Normal User", false, 1}};
    for (const auto& c : cases) {
        EXPECT_EQ(Cell(c.pszUser, UserColumnRole).data().toString(), QLatin1String(c.pszRoles));
        EXPECT_EQ(Cell(c.pszUser, UserColumnStatus).data().toString(), QLatin1String(c.pszStatus));
        EXPECT_EQ(Cell(c.pszUser, UserColumnType).data().toString(), QLatin1String(c.pszType));
        const QModelIndex cell = Cell(c.pszUser, UserColumnOperation);
        EXPECT_EQ(cell.data(Qt::UserRole).toString(), QLatin1String(c.pszUser));
        EXPECT_EQ(cell.data(Qt::UserRole + 1).toBool(), c.bAllowed) << c.pszUser;
        EXPECT_EQ(cell.data(Qt::UserRole + 2).toInt(), c.nLockState) << c.pszUser;
    }
    EXPECT_TRUE(ButtonRect("bob", ButtonLock).isNull());
    EXPECT_FALSE(ButtonRect("system", ButtonEdit).isNull());
    for (const int nButton : {ButtonLock, ButtonUnlock, ButtonDelete})
        EXPECT_TRUE(ButtonRect("system", nButton).isNull());
}

TEST_F(UserPage, SearchFiltersAndPagesChangeTheQuery)
{
    Open();
    Search(QStringLiteral("  ali "));
    Filter(UserColumnType, "Domain User");
    Filter(UserColumnStatus, "Offline");
    EXPECT_EQ(LastRequest(), (Request{"ali", UserTypeDomain, OnlineFilterOffline, 1, 20}));
    const int nQueries = Queries();
    Filter(UserColumnStatus, "Offline");
    EXPECT_EQ(Queries(), nQueries) << "the choice in use changes nothing";
    Click("btnNextPage");
    EXPECT_EQ(LastRequest().nPage, 2);
    Filter(UserColumnStatus, "All");
    EXPECT_EQ(LastRequest(), (Request{"ali", UserTypeDomain, OnlineFilterAll, 1, 20}));

    // An empty list has no header; it offers the way back.
    m_host.site.vecUsers.clear();
    Click("btnRefresh");
    EXPECT_EQ(StateTitle(m_pPage.get(), "wgtListState"), QStringLiteral("No user matches the search."));
    Click("btnStateAction");
    EXPECT_EQ(LastRequest(), (Request{"", UserTypeAll, OnlineFilterAll, 1, 20}));
}

TEST_F(UserPage, LockingAsksAndSendsWhatTheStateSays)
{
    const struct
    {
        const char* pszUser;
        int nButton;
        const char* pszQuestion;
        std::string_view sOperation;
        const char* pszFailure;
    } cases[] = {{"alice", ButtonLock, "Are you sure to lock the user?", wire::LockUser::Name,
                     "Failed to lock user. "},
        {"bob", ButtonUnlock, "Are you sure to unlock the user?", wire::UnlockUser::Name,
            "Failed to unlock user. "}};
    Open();
    for (const auto& c : cases) {
        m_dialogs.AnswerNext(false);
        ClickRowButton(c.pszUser, c.nButton);
        EXPECT_EQ(m_dialogs.Shown().last(), QStringLiteral("Prompt: ") + QLatin1String(c.pszQuestion));
        EXPECT_EQ(Users().Count(c.sOperation), 0);
        m_dialogs.AnswerNext(true);
        ClickRowButton(c.pszUser, c.nButton);
        EXPECT_EQ(Users().Last(c.sOperation).Request<wire::LockUser>().sUserName, c.pszUser);
        const int nQueries = Queries();
        Users().Fail(Users().Last(c.sOperation), UICommonMdl::ErrorOwnAccount);
        PageDriver::Settle();
        EXPECT_TRUE(Notice().startsWith(QLatin1String(c.pszFailure))) << qPrintable(Notice());
        EXPECT_EQ(Queries(), nQueries + 1);
    }
}

TEST_F(UserPage, DeletingTakesOneOrTheTickedOnesAndTellsWhatFailed)
{
    Open();
    Click("btnDelete");
    EXPECT_EQ(Notice(), QStringLiteral("Please select at least one user."));
    m_dialogs.AnswerNext(true);
    ClickRowButton("bob", ButtonDelete);
    EXPECT_EQ(m_dialogs.LastText(), QStringLiteral("Are you sure to delete the user?"));
    EXPECT_EQ(Users().LastRequest<wire::DeleteUsers>().vecUserNames, Names{"bob"});
    EXPECT_FALSE(IsPageUsable("btnDelete")) << "one at a time";
    Answer<wire::DeleteUsers>();
    EXPECT_TRUE(IsPageUsable("btnDelete"));

    Tick("alice");
    Tick("system");
    m_dialogs.AnswerNext(true);
    Click("btnDelete");
    EXPECT_EQ(Users().LastRequest<wire::DeleteUsers>().vecUserNames, (Names{"alice", "system"}));
    Answer<wire::DeleteUsers>({{{"system", UICommonMdl::ErrorBuiltInAccount}}});
    const QString sReason = UICommonMdl::CErrorCode::GetErroCodeInfor(UICommonMdl::ErrorBuiltInAccount);
    EXPECT_TRUE(m_dialogs.LastText().endsWith(QStringLiteral("\nsystem: ") + sReason));

    Users().Refuse<wire::DeleteUsers>();
    m_dialogs.AnswerNext(true);
    Click("btnDelete");
    EXPECT_EQ(
        Notice(), QStringLiteral("Failed to delete user. The request could not be sent to the server."));
    EXPECT_TRUE(IsPageUsable("btnDelete"));
}

TEST_F(UserPage, LongWorkShowsTheWaitDialogUntilItsAnswerOrTheLossOfTheConnection)
{
    Open();
    for (const bool bAnswered : {true, false}) {
        m_dialogs.AnswerNext(true);
        ClickRowButton("alice", ButtonDelete);
        PageDriver::WaitFor([this] { return FindDialog<VxGUI::VxWaitDialog>() != nullptr; });
        if (bAnswered)
            Answer<wire::DeleteUsers>();
        else
            Connect(false);
        EXPECT_FALSE(FindDialog<VxGUI::VxWaitDialog>());
    }
}

TEST_F(UserPage, AQueryThatIsNotAnsweredTakesTheRowsOnlyFromWhoAsked)
{
    Open();
    Users().FailAlways<wire::QueryUserPage>(UICommonMdl::ErrorTimeOut);
    const int nQueries = Queries();
    Push(wire::event::UsersChanged);
    PageDriver::WaitFor([&] { return Queries() == nQueries + 1; });
    PageDriver::Settle();
    EXPECT_TRUE(Cell("alice").isValid()) << "the user has asked for nothing";
    Users().Hold<wire::QueryUserPage>();
    Click("btnRefresh");
    Push(wire::event::UsersChanged);
    PageDriver::WaitFor([&] { return Queries() == nQueries + 3; });
    Users().FailLast<wire::QueryUserPage>(UICommonMdl::ErrorTimeOut);
    PageDriver::Settle();
    EXPECT_FALSE(Cell("alice").isValid()) << "the push came in between";
}

TEST_F(UserPage, ChangesOfOthersAreGatheredIntoOneQueryAndChecksStay)
{
    Open();
    Tick("bob");
    m_host.site.vecUsers.insert(m_host.site.vecUsers.begin(), {"aaron", {}, true, 1, 1});
    const int nQueries = Queries();
    for (int n = 0; n < 5; ++n)
        Push(n % 2 == 0 ? wire::event::UsersChanged : wire::event::RolesChanged);
    PageDriver::WaitFor([&] { return Cell("aaron").isValid(); });
    EXPECT_EQ(Queries(), nQueries + 1);
    EXPECT_EQ(List()->GetUsers()->GetCheckedIds(), QStringList{QStringLiteral("bob")});

    // Only the answer to the last query counts.
    Users().Hold<wire::QueryUserPage>();
    Click("btnRefresh");
    const FakeCall stale = Users().Last<wire::QueryUserPage>();
    Click("btnRefresh");
    Answer<wire::QueryUserPage>();
    Users().Fail(stale, UICommonMdl::ErrorInternal);
    PageDriver::Settle();
    EXPECT_EQ(Notice(), QString());
}

TEST_F(UserPage, ListStatesAreTold)
{
    const std::pair<int, VxGUI::VxEmptyState::Kind> cases[] = {
        {UICommonMdl::ErrorNoRight, VxGUI::VxEmptyState::Kind::NoPermission},
        {UICommonMdl::ErrorTimeOut, VxGUI::VxEmptyState::Kind::Failed}};
    for (const auto& [nErrorCode, kind] : cases) {
        Users().FailAlways<wire::QueryUserPage>(nErrorCode);
        Open();
        EXPECT_EQ(Part<VxGUI::VxEmptyState>(m_pPage.get(), "wgtListState")->GetKind(), kind);
        EXPECT_TRUE(Notice().startsWith(QStringLiteral("Failed to get users. ")));
        EXPECT_FALSE(IsPageUsable("btnDelete"));
        Close();
    }
    Users().Hold<wire::QueryUserPage>();
    Open();
    EXPECT_EQ(StateTitle(m_pPage.get(), "wgtListState"), QStringLiteral("Loading users"));
    Users().Refuse<wire::QueryUserPage>();
    Click("btnRefresh");
    EXPECT_EQ(StateTitle(m_pPage.get(), "wgtListState"), QStringLiteral("Failed to get users."));
}

TEST_F(UserPage, WithoutTheRightUsersCanOnlyBeLookedAt)
{
    const char* const buttons[] = {"btnAdd", "btnDelete", "btnImportDomain", "btnSyncDomain"};
    Open();
    for (const char* pszButton : buttons)
        EXPECT_TRUE(IsPageUsable(pszButton)) << pszButton;
    m_host.SetMissingRights({"001002001"});
    PageDriver::Settle();
    EXPECT_EQ(Notice(), QStringLiteral("Your permissions were changed."));
    for (const char* pszButton : buttons) {
        EXPECT_FALSE(IsPageUsable(pszButton)) << pszButton;
        EXPECT_EQ(Part(m_pPage.get(), pszButton)->toolTip(),
            QStringLiteral("You have no permission to change users."));
    }
    EXPECT_TRUE(ButtonRect("alice", ButtonEdit).isNull());
    const QPoint place = List()->visualRect(Cell("alice")).center();
    QTest::mouseClick(List()->viewport(), Qt::LeftButton, Qt::NoModifier, place);
    QTest::mouseDClick(List()->viewport(), Qt::LeftButton, Qt::NoModifier, place);
    PageDriver::Settle();
    ASSERT_TRUE(Form());
    EXPECT_EQ(Form()->windowTitle(), QStringLiteral("User Details"));
    EXPECT_FALSE(IsUsable(Form(), "btnEdit"));
    ClickRowButton("bob", ButtonDetails);
}

TEST_F(UserPage, LostConnectionDisablesAndItsReturnQueriesAgainOnce)
{
    Open();
    Click("btnAdd");
    UserPageTest::Type(UserPageTest::Field(Form(), "edtUserName")->GetLineEdit(), QStringLiteral("carol"));
    Connect(false);
    EXPECT_TRUE(Part<QLabel>(m_pPage.get(), "lbConnection")->isVisible());
    for (const char* pszName : {"btnAdd", "btnDelete", "btnRefresh", "listUsers", "edtSearchUser"})
        EXPECT_FALSE(IsPageUsable(pszName)) << pszName;
    EXPECT_FALSE(IsUsable(Form(), "btnOk"));
    const int nQueries = Queries();
    Push(wire::event::UsersChanged);
    Connect(true);
    EXPECT_EQ(Queries(), nQueries + 1);
    EXPECT_TRUE(IsPageUsable("btnAdd"));
    EXPECT_TRUE(IsUsable(Form(), "btnOk"));
    EXPECT_EQ(UserPageTest::Field(Form(), "edtUserName")->text(), QStringLiteral("carol"));
}

TEST_F(UserPage, EverythingCanBeDoneByKeys)
{
    Open();
    List()->setCurrentIndex(Cell("alice"));
    const auto key = [this](Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        // Without a window manager the page does not become active by itself when its window is closed.
        QApplication::setActiveWindow(m_pPage.get());
        List()->setFocus();
        QTest::keyClick(List(), key, modifiers);
        PageDriver::Settle();
    };
    key(Qt::Key_Space);
    EXPECT_EQ(List()->GetUsers()->GetCheckedIds(), QStringList{QStringLiteral("alice")});
    m_dialogs.AnswerNext(false);
    key(Qt::Key_Delete);
    EXPECT_EQ(m_dialogs.LastText(), QStringLiteral("Are you sure to delete the user?"));
    key(Qt::Key_Return);
    ASSERT_TRUE(Form());
    EXPECT_EQ(Form()->windowTitle(), QStringLiteral("User Details"));
    QTest::keyClick(Form(), Qt::Key_Escape);
    PageDriver::Settle();
    EXPECT_FALSE(Form()) << "nothing is lost: no question";
    key(Qt::Key_F2);
    ASSERT_TRUE(Form());
    EXPECT_EQ(Form()->windowTitle(), QStringLiteral("Modify User"));
    QTest::keyClick(Form(), Qt::Key_Escape);
    PageDriver::Settle();
    EXPECT_FALSE(Form()) << "nothing is lost: no question";
    {
        const ExpectWarning warning(PopUpWarning);
        key(Qt::Key_T, Qt::AltModifier);
        auto* const pChoices = List()->GetHeader()->findChild<QListWidget*>();
        QTest::keyClick(pChoices, Qt::Key_Down);
        QTest::keyClick(pChoices, Qt::Key_Return);
        PageDriver::Settle();
    }
    EXPECT_EQ(LastRequest().nUserType, int(UserTypeNormal));
    // A key on the built-in account does nothing that its row does not offer.
    List()->setCurrentIndex(Cell("system"));
    key(Qt::Key_Delete);
    EXPECT_EQ(m_dialogs.Shown().size(), 1);
}

TEST_F(UserPage, TheContextMenuMeansTheUserThatItWasOpenedOn)
{
    const ExpectWarning warning(PopUpWarning);
    Open();
    Q_EMIT List()->customContextMenuRequested(List()->visualRect(Cell("bob")).center());
    auto* const pMenu = Part<QMenu>(List(), "menuUser");
    QStringList listTexts;
    for (const QAction* pAction : pMenu->actions())
        listTexts.append(pAction->text());
    EXPECT_EQ(listTexts.join(QLatin1Char(',')), QStringLiteral("User Details,Edit,Unlock,Delete"));
    // The rows change while the menu is open.
    m_host.site.vecUsers.erase(m_host.site.vecUsers.begin());
    Click("btnRefresh");
    m_dialogs.AnswerNext(true);
    pMenu->actions().at(2)->trigger();
    pMenu->close();
    PageDriver::Settle();
    EXPECT_EQ(Users().LastRequest<wire::UnlockUser>().sUserName, "bob");
}

TEST_F(UserPage, AnswersAfterTheEndAreHarmless)
{
    Open();
    Click("btnAdd");
    m_pPage->UninitUI();
    EXPECT_FALSE(Form());
    EXPECT_EQ(m_host.CountObservers(), 0);
    const int nQueries = Queries();
    Click("btnRefresh");
    EXPECT_EQ(Queries(), nQueries);
    Close();
    Open();
    Users().PushUntilJoin(wire::event::UsersChanged);
    Close();
    Users().Join();
}

#include "PersonPageFixture.h"

#include <Credentials/CBatchIssueCard.h>
#include <PersonEdit/CPersonBatchSelectUI.h>
#include <PersonEdit/CPersonnelBatchAuthorizeUI.h>
#include <PersonEdit/CPersonnelInfoUI.h>
#include <PersonManager/CMovePersonTree.h>
#include <PersonManager/CPersonAuthorizeAbnormalDlg.h>
#include <common/CTreeChoice.h>

#include <QDialogButtonBox>

using namespace BasicInfoManagerUI;
using namespace AccessControlLogical;
using PersonPageTest::PopUpWarning;

class PersonPage : public PersonPageTest::Fixture
{
protected:
    CMovePersonTree* MoveTree() { return m_pPage->findChild<CMovePersonTree*>(); }
    static void Confirm(CMovePersonTree* pTree)
    {
        auto* pButtons = pTree->findChild<QDialogButtonBox*>();
        QTest::mouseClick(pButtons->button(QDialogButtonBox::Ok), Qt::LeftButton);
        PageDriver::Settle();
    }
};

TEST_F(PersonPage, FirstPageIsThatOfTheRootUntilAGroupIsChosen)
{
    Open();
    EXPECT_EQ(Queries(), 1);
    EXPECT_EQ(LastRequest().sGroupCode, "");
    EXPECT_EQ(LastRequest().nPage, 1);
    const auto* pTitle = m_pDriver->Find<QLabel>(QStringLiteral("lbPersonGroupName"));
    EXPECT_EQ(pTitle->text(), QStringLiteral("All Persons"));
    EXPECT_EQ(Cell(2, PersonColumnGender), QStringLiteral("Unknown"));
    EXPECT_EQ(Cell(5, PersonColumnType), QString());
    m_pDriver->Find<UICommonMdl::CNumberPageCtrl>(QStringLiteral("m_pPageFileCtrl"))->SetCurrentPage(3);

    SelectGroup("1003");
    EXPECT_EQ(pTitle->text(), QStringLiteral("Testing"));
    EXPECT_EQ(LastRequest().sGroupCode, "1003");
    EXPECT_EQ(LastRequest().nPage, 1);
    EXPECT_TRUE(LastRequest().bSubGroups);
    Click("cbContainSub");
    EXPECT_FALSE(LastRequest().bSubGroups);
    m_pDriver->Type(QStringLiteral("m_pSearchPerson"), QString(40, QLatin1Char('7')));
    m_pDriver->Key(QStringLiteral("m_pSearchPerson"), Qt::Key_Return);
    EXPECT_EQ(LastRequest().sSearchKey, std::string(30, '7'));
    m_pDriver->Choose(QStringLiteral("cmbPageSize"), QStringLiteral("50 / page"));
    PageDriver::Settle();
    EXPECT_EQ(
        m_host.config.mapValues[QStringLiteral("PersonManager/PageSize")].toInt(), LastRequest().nPageSize);
}

TEST_F(PersonPage, OnlyTheAnswerToTheLastQueryIsShown)
{
    Open();
    m_host.server.Hold<wire::QueryPersonList>();
    SelectGroup("1001");
    const FakeCall stale = m_host.server.Last<wire::QueryPersonList>();
    SelectGroup("1002");
    const auto answer = [&](const FakeCall& call, const char* pszName) {
        PersonInfo_t person;
        person.sPersonId = "900";
        person.sName = pszName;
        m_host.server.Answer<wire::QueryPersonList>(call, {{person}, 1, 1});
        PageDriver::Settle();
    };
    answer(m_host.server.Last<wire::QueryPersonList>(), "Right");
    answer(stale, "Wrong");
    ASSERT_EQ(List()->model()->rowCount(), 1);
    EXPECT_EQ(Cell(0, PersonColumnName), QStringLiteral("Right"));
}

TEST_F(PersonPage, ListStatesAreTold)
{
    const struct
    {
        int nErrorCode;
        VxGUI::VxEmptyState::Kind kind;
    } cases[] = {{UICommonMdl::ErrorNoRight, VxGUI::VxEmptyState::Kind::NoPermission},
        {UICommonMdl::ErrorServerBusy, VxGUI::VxEmptyState::Kind::Failed},
        {UICommonMdl::ErrorTimeOut, VxGUI::VxEmptyState::Kind::Failed}};
    for (const auto& c : cases) {
        m_host.server.FailAlways<wire::QueryPersonList>(c.nErrorCode);
        Open();
        EXPECT_EQ(m_pDriver->Find<VxGUI::VxEmptyState>(QStringLiteral("wgtListState"))->GetKind(), c.kind);
        EXPECT_TRUE(Notice().startsWith(QStringLiteral("Failed to search for people list: ")));
        EXPECT_FALSE(IsUsable("m_btnDel"));
        Close();
    }
    m_host.site.ServePersons();
    m_host.site.vecPersons.clear();
    Open();
    EXPECT_EQ(ListState(), QStringLiteral("There is no person in this group."));
    m_host.server.Refuse<wire::QueryPersonList>();
    Click("btnRefresh");
    EXPECT_EQ(Notice(),
        QStringLiteral("Failed to search for people list: The request could not be sent to the server."));
}

TEST_F(PersonPage, DeletingTakesTheCheckedOnesAfterTheQuestion)
{
    Open();
    Click("m_btnDel");
    EXPECT_EQ(Notice(), QStringLiteral("Please select at least one person."));
    EXPECT_EQ(m_host.server.Count<wire::DeletePersons>(), 0);
    EXPECT_FALSE(IsUsable("btnMoveTo"));

    Check("101");
    Check("104");
    EXPECT_TRUE(IsUsable("btnMoveTo"));
    m_dialogs.AnswerNext(false);
    Click("m_btnDel");
    EXPECT_EQ(m_dialogs.LastText(),
        QStringLiteral(
            "Are you sure you want to delete the selected person(s)? After deletion, the person(s) "
            "in the group and the related permissions will be deleted."));
    EXPECT_EQ(m_host.server.Count<wire::DeletePersons>(), 0);

    EXPECT_EQ(m_dialogs.LastDetails(), QStringLiteral("Person 1\nPerson 4"));

    m_dialogs.AnswerNext(true);
    Click("m_btnDel");
    EXPECT_EQ(m_host.server.LastRequest<wire::DeletePersons>().vecPersonIds, (Ids{"101", "104"}));
    const int nQueries = Queries();
    m_host.server.AnswerLast<wire::DeletePersons>({{{"104", "Person 4", UICommonMdl::ErrorReferenced, {}}}});
    PageDriver::Settle();
    EXPECT_TRUE(m_dialogs.Shown().last().contains(QStringLiteral("Failed to delete person")));
    EXPECT_EQ(Queries(), nQueries + 1);
    EXPECT_EQ(List()->GetPersons()->GetCheckedIds(), QStringList{QStringLiteral("104")}) << "still there";
}

TEST_F(PersonPage, ABatchReachesTheCheckedOnesOfAllPagesAndNamesThem)
{
    const ExpectWarning popUp(PopUpWarning);
    Open();
    Check("101");
    for (int n = 0; n < 6; ++n)
        m_host.site.vecPersons[std::size_t(n)].sPersonId = std::to_string(201 + n);
    Click("btnNextPage");
    Check("203");
    SelectGroup("1002");
    m_dialogs.AnswerNext(false);
    Click("m_btnDel");
    EXPECT_EQ(m_dialogs.LastDetails(), QStringLiteral("Person 3\nPerson 1"));
    Click("btnMoveTo");
    auto* const pGroups = MoveTree()->findChild<Common::CTreeChoice*>()->GetTree();
    m_pDriver->ClickIndex(pGroups, pGroups->FindCode(QStringLiteral("1003")));
    Confirm(MoveTree());
    EXPECT_EQ(m_host.server.LastRequest<wire::MovePersons>().vecPersonIds, (Ids{"203", "101"}));
    EXPECT_EQ(m_host.server.LastRequest<wire::MovePersons>().sGroupCode, "1003");
    Click("m_btnBatchIssuCard");
    const auto* const pCards =
        CurrentPage()->findChild<QTreeView*>(QStringLiteral("tableIssueCard"))->model();
    ASSERT_EQ(pCards->rowCount(), 2);
    QTest::keyClick(m_pPage.get(), Qt::Key_Escape);
    Click("btnBatchAuthorize");
    EXPECT_EQ(CurrentPage()->findChild<CPersonBatchSelectUI*>()->GetPersonIds(), (Ids{"203", "101"}));
}

TEST_F(PersonPage, WhatIsTooMuchForOneRequestGoesInPieces)
{
    m_host.site.vecPersons.clear();
    for (int n = 0; n < 1200; ++n) {
        PersonInfo_t person;
        person.sPersonId = std::to_string(5000 + n);
        m_host.site.vecPersons.push_back(person);
    }
    Open();
    m_host.site.vecPersons.erase(m_host.site.vecPersons.begin() + 6, m_host.site.vecPersons.end());
    List()->GetPersons()->SetAllChecked(true);
    m_dialogs.AnswerNext(true);
    Click("m_btnDel");
    EXPECT_EQ(m_host.server.LastRequest<wire::DeletePersons>().vecPersonIds.size(), PersonBatchLimit);
    m_host.server.AnswerLast<wire::DeletePersons>({{{"5003", "Somebody", UICommonMdl::ErrorReferenced, {}}}});
    PageDriver::Settle();
    EXPECT_EQ(m_host.server.LastRequest<wire::DeletePersons>().vecPersonIds.size(), 200u);
    EXPECT_EQ(m_dialogs.Shown().size(), 1) << "told at the end";
    m_host.server.FailLast<wire::DeletePersons>(UICommonMdl::ErrorServerBusy);
    PageDriver::Settle();
    EXPECT_TRUE(Notice().startsWith(QStringLiteral("Failed to delete person: ")));
    EXPECT_TRUE(m_dialogs.LastDetails().startsWith(QStringLiteral("Somebody (5003): ")));
    EXPECT_EQ(List()->GetPersons()->GetCheckedCount(), 201) << "what was not deleted can be tried again";
    EXPECT_EQ(m_host.server.Count<wire::DeletePersons>(), 2);
}

TEST_F(PersonPage, WithoutTheRightPersonsAndGroupsAreLookedAtOnly)
{
    m_host.SetMissingRights({"002003001"});
    Open();
    SelectGroup("1001");
    Check("102");
    for (const char* pszName : {"m_btnAdd", "m_btnDel", "m_btnBatchIssuCard", "btnMoveTo",
             "btnBatchAuthorize", "m_btnAddOrg", "m_btnModifyOrg", "m_btnDelOrg"}) {
        EXPECT_FALSE(IsUsable(pszName)) << pszName;
        EXPECT_EQ(m_pDriver->Find(QLatin1String(pszName))->toolTip(),
            QStringLiteral("You have no permission to change persons."))
            << pszName;
    }
    EXPECT_FALSE(m_pPage->findChild<QMenu*>(QStringLiteral("menuDelete"))->actions().first()->isEnabled());
    m_pDriver->Key(QStringLiteral("m_pTreeWnd"), Qt::Key_F2);
    EXPECT_FALSE(m_pPage->findChild<QDialog*>(QStringLiteral("CPersonGroupEditUI")));
    EXPECT_EQ(OfferedButtons("102"), (std::vector<int>{2, 4, 5, 6})) << "history, QR code, report, details";
    m_pDriver->ClickIndex(List(), RowOf("102"));
    for (const auto key : {Qt::Key_F2, Qt::Key_Delete})
        m_pDriver->Key(QStringLiteral("m_pPersonnelListView"), key);
    EXPECT_EQ(CurrentPage()->objectName(), QStringLiteral("pagePersons"));
    EXPECT_TRUE(m_dialogs.Shown().isEmpty());
    m_pDriver->Key(QStringLiteral("m_pPersonnelListView"), Qt::Key_Return);
    PageDriver::Settle();
    const auto* const pEdit = CurrentPage()->findChild<QPushButton*>(QStringLiteral("m_pBtnEdit"));
    EXPECT_TRUE(pEdit->isVisible() && !pEdit->isEnabled()) << "its details";
    // The right comes while the page is open.
    m_host.SetMissingRights({});
    PageDriver::Settle();
    EXPECT_TRUE(pEdit->isEnabled());
    QTest::keyClick(m_pPage.get(), Qt::Key_Escape);
    EXPECT_TRUE(IsUsable("btnMoveTo") && IsUsable("m_btnDelOrg"));
    EXPECT_EQ(OfferedButtons("102"), (std::vector<int>{0, 1, 2, 3, 4, 5}));
}

TEST_F(PersonPage, DeleteAllTakesTheGroupAndWhetherItsSubGroupsToo)
{
    Open();
    const auto* pMenu = m_pPage->findChild<QMenu*>(QStringLiteral("menuDelete"));
    EXPECT_EQ(pMenu->height(), 34);
    Trigger(QStringLiteral("menuDelete"), QStringLiteral("Delete All"));
    EXPECT_EQ(Notice(), QStringLiteral("Please select a person group."));
    m_host.site.vecPersons[5].sGroupCode = "1002";
    m_host.site.vecPersons[4].sGroupCode = "1003";
    SelectGroup("1001");
    for (const char* const pszId : {"101", "105", "106"})
        Check(pszId);
    m_dialogs.AnswerNext(true);
    Trigger(QStringLiteral("menuDelete"), QStringLiteral("Delete All"));
    EXPECT_EQ(m_dialogs.LastDetails(), QStringLiteral("Engineering"));
    EXPECT_EQ(m_dialogs.Shown().last(),
        QStringLiteral(
            "Prompt: Are you sure you want to delete all persons? After deletion, all group members "
            "and related permissions will be deleted."));
    EXPECT_EQ(m_host.server.LastRequest<wire::DeleteAllPersons>().sGroupCode, "1001");
    EXPECT_TRUE(m_host.server.LastRequest<wire::DeleteAllPersons>().bSubGroups);
    m_host.server.FailLast<wire::DeleteAllPersons>(UICommonMdl::ErrorServerBusy);
    PageDriver::Settle();
    EXPECT_TRUE(Notice().startsWith(QStringLiteral("Failed to delete person: ")));
    EXPECT_EQ(List()->GetPersons()->GetCheckedCount(), 3);
    m_dialogs.AnswerNext(true);
    Trigger(QStringLiteral("menuDelete"), QStringLiteral("Delete All"));
    m_host.server.AnswerLast<wire::DeleteAllPersons>();
    PageDriver::Settle();
    EXPECT_EQ(List()->GetPersons()->GetCheckedIds(), QStringList{QStringLiteral("106")})
        << "of another group";
}

TEST_F(PersonPage, MovingAsksForTheGroup)
{
    const ExpectWarning popUp(PopUpWarning);
    Open();
    Check("102");
    Click("btnMoveTo");
    CMovePersonTree* pTree = MoveTree();
    ASSERT_TRUE(pTree);
    Confirm(pTree);
    EXPECT_EQ(Notice(), QStringLiteral("Please select a department."));
    ASSERT_TRUE(pTree->isVisible());
    PersonPageTest::Screenshot(pTree, QStringLiteral("person-move"));
    auto* pGroups = pTree->findChild<Common::CTreeChoice*>()->GetTree();
    m_pDriver->ClickIndex(pGroups, pGroups->FindCode(QStringLiteral("1002")));
    Confirm(pTree);
    EXPECT_EQ(m_host.server.LastRequest<wire::MovePersons>().vecPersonIds, Ids{"102"});
    EXPECT_EQ(m_host.server.LastRequest<wire::MovePersons>().sGroupCode, "1002");
    EXPECT_FALSE(MoveTree());
    m_host.server.FailLast<wire::MovePersons>(UICommonMdl::ErrorNotFound);
    PageDriver::Settle();
    EXPECT_TRUE(Notice().startsWith(QStringLiteral("Failed to move departments in batches. ")));

    QTest::mouseClick(List()->viewport(), Qt::RightButton, {}, List()->visualRect(RowOf("105")).center());
    Q_EMIT List()->customContextMenuRequested(List()->visualRect(RowOf("105")).center());
    Trigger(QStringLiteral("menuPerson"), QStringLiteral("Move To"));
    ASSERT_TRUE(MoveTree());
    QTest::keyClick(MoveTree(), Qt::Key_Escape);
    PageDriver::Settle();
    EXPECT_FALSE(MoveTree());
    EXPECT_EQ(m_host.server.Count<wire::MovePersons>(), 1);
}

TEST_F(PersonPage, RowButtonsAreThoseOfTheRow)
{
    Open();
    const auto* pButtons = List()->findChild<Common::CRowButtonDelegate*>(QStringLiteral("rowButtons"));
    const int nAbnormal = 5;
    EXPECT_TRUE(pButtons->GetButtonRect(QRect(0, 0, 300, 40), List()->fontMetrics(), nAbnormal, RowOf("101"))
                    .isNull());
    m_pDriver->Screenshot(QStringLiteral("persons"));
    ClickRowButton("102", nAbnormal);
    EXPECT_EQ(m_host.server.LastRequest<wire::QueryAuthorizeException>().sPersonId, "102");
    m_pPage->findChild<CPersonAuthorizeAbnormalDlg*>()->reject();
    PageDriver::Settle();

    m_dialogs.AnswerNext(true);
    ClickRowButton("103", 1);
    EXPECT_EQ(m_host.server.LastRequest<wire::DeletePersons>().vecPersonIds, (Ids{"103"}));

    ClickRowButton("104", 3);
    EXPECT_EQ(m_host.server.LastRequest<wire::ReissuePersonRight>().sPersonId, "104");
    m_host.server.ReportLast<wire::ReissuePersonRight>(
        MakeReport(std::vector<AuthorizeException_t>(1), true));
    PageDriver::Settle();
    EXPECT_EQ(Notice(), QStringLiteral("Failed to sync personnel"));
    EXPECT_TRUE(m_dialogs.LastText().startsWith(QStringLiteral("Details of authorization failure")));
    m_host.server.Refuse<wire::ReissuePersonRight>();
    ClickRowButton("104", 3);
    EXPECT_EQ(
        Notice(), QStringLiteral("Failed to re-release right: The request could not be sent to the server."));
}

TEST_F(PersonPage, TheEditorOpensAndComesBack)
{
    Open();
    const auto expectEditor = [&](const char* pszId) {
        PageDriver::Settle();
        EXPECT_TRUE(qobject_cast<CPersonnelInfoUI*>(CurrentPage()));
        EXPECT_EQ(m_host.server.LastRequest<wire::QueryPersonDetail>().sPersonId, pszId);
        QTest::keyClick(m_pPage.get(), Qt::Key_Escape);
        EXPECT_EQ(CurrentPage()->objectName(), QStringLiteral("pagePersons"));
    };
    m_pDriver->ClickIndex(List(), RowOf("103"));
    QTest::mouseDClick(List()->viewport(), Qt::LeftButton, {}, List()->visualRect(RowOf("103")).center());
    expectEditor("103");
    m_pDriver->ClickIndex(List(), RowOf("104"));
    m_pDriver->Key(QStringLiteral("m_pPersonnelListView"), Qt::Key_Return);
    expectEditor("104");

    Click("m_btnAdd");
    auto* pEditor = qobject_cast<CPersonnelInfoUI*>(CurrentPage());
    ASSERT_TRUE(pEditor);
    const int nQueries = Queries();
    Q_EMIT pEditor->SignalPersonSaved(QStringLiteral("200"));
    EXPECT_EQ(Queries(), nQueries + 1);
    EXPECT_EQ(CurrentPage(), pEditor) << "the next one may follow";
    Q_EMIT pEditor->SignalBack();
    EXPECT_EQ(CurrentPage()->objectName(), QStringLiteral("pagePersons"));
}

TEST_F(PersonPage, AChangedEditorIsLeftOnlyAfterTheQuestion)
{
    Open();
    Click("m_btnAdd");
    auto* pEditor = qobject_cast<CPersonnelInfoUI*>(CurrentPage());
    const auto listFields = pEditor->findChildren<QLineEdit*>();
    for (QLineEdit* pField : listFields) {
        if (pField->isVisible() && pField->isEnabled() && !pField->isReadOnly() && !pEditor->IsDirty())
            QTest::keyClicks(pField, QStringLiteral("77"));
    }
    ASSERT_TRUE(pEditor->IsDirty());
    m_dialogs.AnswerNext(false);
    QTest::keyClick(m_pPage.get(), Qt::Key_Escape);
    EXPECT_EQ(m_dialogs.Shown().last(),
        QStringLiteral("Prompt: Current page data are changed, are you sure to leave?"));
    EXPECT_EQ(CurrentPage(), pEditor);
    m_dialogs.AnswerNext(true);
    QTest::keyClick(m_pPage.get(), Qt::Key_Escape);
    EXPECT_EQ(CurrentPage()->objectName(), QStringLiteral("pagePersons"));
}

TEST_F(PersonPage, BatchPagesGetTheCheckedPersonsAndRefreshTheList)
{
    Open();
    Check("101");
    Check("103");
    Click("m_btnBatchIssuCard");
    auto* pIssue = qobject_cast<CBatchIssueCard*>(CurrentPage());
    ASSERT_TRUE(pIssue);
    int nQueries = Queries();
    Q_EMIT pIssue->SignalBack(true);
    EXPECT_EQ(Queries(), nQueries + 1);
    Click("btnBatchAuthorize");
    auto* pAuthorize = qobject_cast<CPersonnelBatchAuthorizeUI*>(CurrentPage());
    ASSERT_TRUE(pAuthorize);
    nQueries = Queries();
    Q_EMIT pAuthorize->SignalBack(false);
    EXPECT_EQ(Queries(), nQueries) << "nothing changed";
    EXPECT_EQ(CurrentPage()->objectName(), QStringLiteral("pagePersons"));
}

TEST_F(PersonPage, PushesAreGatheredIntoOneQueryThatKeepsTheChecks)
{
    Open();
    Check("102");
    const int nQueries = Queries();
    const int nTrees = m_host.server.Count<wire::QueryDepartmentTree>();
    for (int n = 0; n < 5; ++n)
        m_host.server.Push(wire::event::PersonsChanged);
    PageDriver::Settle();
    EXPECT_EQ(Queries(), nQueries);
    PageDriver::WaitFor([&] { return Queries() > nQueries; });
    PageDriver::Settle();
    EXPECT_EQ(Queries(), nQueries + 1);
    EXPECT_EQ(List()->GetPersons()->GetCheckedIds(), QStringList{QStringLiteral("102")});
    EXPECT_EQ(m_host.server.Count<wire::QueryDepartmentTree>(), nTrees);

    PushDepartments();
    PageDriver::WaitFor([&] { return m_host.server.Count<wire::QueryDepartmentTree>() > nTrees; });
}

TEST_F(PersonPage, TheTabKeyGoesFromTheGroupsOverTheToolsToTheListAndOut)
{
    Open();
    SelectGroup("1001");
    Check("102");
    m_pDriver->Find(QStringLiteral("m_btnAddOrg"))->setFocus();
    QStringList listWay;
    while (listWay.size() < 30 && !listWay.contains(QApplication::focusWidget()->objectName())) {
        listWay.append(QApplication::focusWidget()->objectName());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    EXPECT_EQ(listWay.mid(0, 15).join(QLatin1Char(' ')).toStdString(),
        "m_btnAddOrg m_btnModifyOrg m_btnDelOrg m_pSearchOrg m_pTreeWnd cbContainSub m_btnAdd m_btnDel "
        "m_btnBatchIssuCard btnMoveTo btnBatchAuthorize btnRefresh m_pSearchPerson m_pPersonnelListView "
        "btnClearChecks");
}

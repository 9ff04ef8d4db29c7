#include "PersonEditFixture.h"

#include <PersonEdit/CSectionNavigator.h>
#include <UICommonMdl/CDepartmentModelManager.h>
#include <VxGUI/VxEmptyState.h>
#include <tests/support/core/QtWarnings.h>

#include <QComboBox>
#include <QScrollArea>
#include <QScrollBar>
#include <QTreeView>

using namespace AccessControlLogical;
using namespace BasicInfoManagerUI;

namespace {

class PersonEditor : public PersonEditorFixture
{
protected:
    VxGUI::VxEmptyState* State()
    {
        return m_pDriver->Find<VxGUI::VxEmptyState>(QStringLiteral("wgtPersonState"));
    }
};

TEST_F(PersonEditor, NewPersonGoesToTheServerAsItWasEntered)
{
    OpenAdd();
    EXPECT_EQ(LabelText("lbPersonTitle"), "Add Person");
    EXPECT_EQ(m_pPage->findChild<QWidget*>(QStringLiteral("m_pBtnOk"))->toolTip(), QStringLiteral("Ctrl+S"));
    FillRequired();
    Choose("m_pCmbGender", "Male");
    Type("m_pEditTelephone", "555");
    Type("m_pEditNickname", "G");
    Choose("m_pCmbAccessType", "Patrol");
    Type("m_pEditPlate", "B-1");
    Click("m_pBtnAddPlate");
    Type("m_pEditPlate", "B-2");
    EXPECT_TRUE(m_pPage->IsDirty());
    Click("m_pBtnOk");

    const Person sent = Sent<wire::AddPerson>();
    EXPECT_EQ(sent.sPersonId, "12");
    EXPECT_EQ(sent.sName, "Grace");
    EXPECT_EQ(sent.nGender, GenderMale);
    EXPECT_EQ(sent.sGroupCode, "1001");
    EXPECT_EQ(sent.nPersonType, PersonPatrol);
    EXPECT_EQ(sent.vecPlates, (std::vector<std::string>{"B-1", "B-2"})) << "typed but not added counts too";
    EXPECT_FALSE(IsUsable("m_pBtnOk")) << "waits for its answer";
    AnswerSave<wire::AddPerson>();
    EXPECT_EQ(m_vecSaved, std::vector<std::string>{"12"});
    EXPECT_EQ(m_nBack, 1);
    EXPECT_EQ(Notice(), "Person 12 was added.");
}

TEST_F(PersonEditor, LoadedPersonComesBackAsItWasExceptWhatWasChanged)
{
    Person person = MakePerson();
    person.nValidTo = person.nValidFrom + 1;
    OpenEdit(person);
    EXPECT_EQ(LabelText("lbPersonTitle"), "Edit Person");
    EXPECT_FALSE(m_pPage->IsDirty());
    EXPECT_TRUE(Field("m_pEditId")->GetLineEdit()->isReadOnly());
    EXPECT_FALSE(IsShown("m_pAddAndContinue"));
    Type("m_pEditName", "Ada Writer");
    Click("m_pBtnOk");
    person.sName = "Ada Writer";
    EXPECT_EQ(Sent<wire::ModifyPerson>(), person);
    AnswerSave<wire::ModifyPerson>();
    EXPECT_EQ(m_nBack, 1);
}

TEST_F(PersonEditor, FirstFailureStopsTheSaveAndIsScrolledTo)
{
    OpenAdd();
    Type("m_pEditExtendTime", "0");
    Click("m_pBtnOk");
    EXPECT_EQ(Hint("m_pEditId"), "User ID cannot be null.");
    EXPECT_TRUE(HasFocus("m_pEditId"));
    Screenshot("editor-refused");
    FillRequired();
    Type("m_pEditEmail", "nowhere");
    Click("m_pBtnOk");
    EXPECT_EQ(Hint("m_pEditEmail"), "Invalid mail address.");
    Type("m_pEditEmail", "");
    Click("m_pBtnOk");
    EXPECT_TRUE(HasFocus("m_pEditExtendTime"));
    EXPECT_EQ(Notice(), "Please enter a positive integer from 1 through 200.");
    EXPECT_EQ(m_pDriver->Find<CSectionNavigator>(QStringLiteral("wgtNavPage"))->GetCurrentTitle(),
        QStringLiteral("Access Control Permission"));
    EXPECT_FALSE(Field("m_pEditExtendTime")->visibleRegion().isEmpty());
    EXPECT_EQ(m_host.server.Count<wire::AddPerson>(), 0);
}

TEST_F(PersonEditor, AddAndContinueEmptiesTheFormForTheSameGroup)
{
    OpenAdd();
    FillRequired();
    Type("m_pEditPlate", "B-1");
    Click("m_pAddAndContinue");
    AnswerSave<wire::AddPerson>();
    EXPECT_EQ(m_vecSaved.size(), 1U);
    EXPECT_EQ(m_nBack, 0);
    EXPECT_EQ(Content("m_pEditId"), "");
    EXPECT_TRUE(Rows("m_pPlates").empty());
    EXPECT_FALSE(m_pPage->IsDirty());
    EXPECT_TRUE(HasFocus("m_pEditId"));
    FillRequired();
    Click("m_pBtnOk");
    EXPECT_EQ(Sent<wire::AddPerson>().sGroupCode, "1001");
}

TEST_F(PersonEditor, RefusalsKeepTheInputAndAreToldWhereTheyBelong)
{
    const struct
    {
        int nErrorCode;
        const char* pszDetail;
        const char* pszField;
    } cases[] = {{UICommonMdl::ErrorInvalidInput, "sTelephone", "m_pEditTelephone"},
        {UICommonMdl::ErrorInvalidInput, "sNickname", "m_pEditNickname"},
        {UICommonMdl::ErrorInvalidInput, "nExtendTime", "m_pEditExtendTime"},
        {UICommonMdl::ErrorInvalidInput, "nothing known", nullptr}};
    OpenEdit(MakePerson());
    Type("m_pEditName", "Changed");
    for (const auto& testCase : cases) {
        Click("m_pBtnOk");
        AnswerSave<wire::ModifyPerson>(testCase.nErrorCode, testCase.pszDetail);
        EXPECT_EQ(Notice().rfind("Failed to modify user: ", 0), 0U) << Notice();
        if (testCase.pszField) {
            EXPECT_FALSE(Hint(testCase.pszField).empty()) << testCase.pszField;
            EXPECT_TRUE(HasFocus(testCase.pszField)) << testCase.pszField;
        }
        EXPECT_EQ(Content("m_pEditName"), "Changed");
        EXPECT_TRUE(IsUsable("m_pBtnOk"));
    }
    EXPECT_EQ(m_nBack, 0);
    m_host.server.Refuse<wire::ModifyPerson>();
    Click("m_pBtnOk");
    EXPECT_EQ(Notice(), "Failed to modify user: The request could not be sent to the server.");
    EXPECT_TRUE(IsUsable("m_pBtnOk"));
}

TEST_F(PersonEditor, ClashesListIdsCardsAndPlates)
{
    OpenAdd();
    FillRequired();
    Type("m_pEditPlate", "b-1");
    Click("m_pBtnOk");
    AnswerSave<wire::AddPerson>(UICommonMdl::ErrorPersonDuplicate,
        wire::ClashText({{ClashPersonId, "12"}, {ClashCardNo, "AB"}, {ClashPlate, "B-1"}}));
    ASSERT_EQ(m_dialogs.Shown().size(), 2);
    EXPECT_EQ(m_dialogs.Shown()[0],
        QStringLiteral("Prompt: Person IDor card number is repeated:\nID: 12\nCard Number: AB"));
    EXPECT_EQ(m_dialogs.Shown()[1],
        QStringLiteral("Prompt: License plate number already exists.\nExisted Plate:\nB-1\n"
                       "Repeat license plate number list:\nb-1"));
    EXPECT_EQ(Hint("m_pEditId"), "The ID already exists.");
    EXPECT_EQ(m_nBack, 0);
}

TEST_F(PersonEditor, LeavingWithChangesAsks)
{
    OpenEdit(MakePerson());
    EXPECT_FALSE(IsShown("lbUnsaved"));
    Type("m_pEditRemark", "other");
    EXPECT_TRUE(IsShown("lbUnsaved"));
    m_dialogs.AnswerNext(false);
    QTest::keyClick(m_pPage.get(), Qt::Key_Escape);
    EXPECT_EQ(m_nBack, 0);
    EXPECT_EQ(m_dialogs.LastText(), QStringLiteral("Current page data are changed, are you sure to leave?"));
    m_dialogs.AnswerNext(true);
    Click("m_pBtnCancel");
    EXPECT_EQ(m_nBack, 1);
    EXPECT_FALSE(m_pPage->IsDirty());
    Type("m_pEditRemark", "x");
    Type("m_pEditRemark", "Day shift");
    Click("m_pBtnCancel");
    EXPECT_EQ(m_nBack, 2) << "changed and changed back";
}

TEST_F(PersonEditor, DetailsAreReadOnlyUntilEditing)
{
    m_host.site.vecDetails = {MakePerson()};
    Open().ShowPerson(QStringLiteral("4711"));
    PageDriver::Settle();
    EXPECT_EQ(LabelText("lbPersonTitle"), "Person Details");
    for (const char* const pszHidden : {"m_pBtnOk", "m_pAddAndContinue", "m_pBtnExtract", "m_pBtnUpload",
             "m_pBtnAddAccessGroup", "m_pBtnAddLift", "m_pBtnAddFaceGroup", "m_pBtnAddPlate"})
        EXPECT_FALSE(IsShown(pszHidden)) << pszHidden;
    Type("m_pEditName", "No");
    EXPECT_EQ(Content("m_pEditName"), "Ada Reader");
    EXPECT_FALSE(IsUsable("m_pCmbGender"));
    Screenshot("editor-details");
    Click("m_pBtnEdit");
    EXPECT_EQ(LabelText("lbPersonTitle"), "Edit Person");
    Type("m_pEditName", "Yes");
    m_pDriver->Key(QStringLiteral("m_pEditName"), Qt::Key_Return);
    EXPECT_EQ(Sent<wire::ModifyPerson>().sName, "Yes");
    EXPECT_EQ(Sent<wire::ModifyPerson>().nVersion, 8);
}

TEST_F(PersonEditor, FailedDetailIsToldAndAskedForAgain)
{
    m_host.server.FailAlways<wire::QueryPersonDetail>(UICommonMdl::ErrorNotFound);
    Open().EditPerson(QStringLiteral("4711"));
    PageDriver::Settle();
    EXPECT_EQ(State()->GetKind(), VxGUI::VxEmptyState::Kind::Failed);
    EXPECT_EQ(State()->GetTitle(), QStringLiteral("Failed to search user detail"));
    EXPECT_FALSE(IsUsable("m_pBtnOk"));
    Screenshot("editor-failed");
    m_host.server.Refuse<wire::QueryPersonDetail>();
    Click("btnStateAction");
    EXPECT_EQ(Notice(), "Failed to search user detail: The request could not be sent to the server.");
}

TEST_F(PersonEditor, LateAnswersOfAnotherPersonAreDropped)
{
    m_host.server.Hold<wire::QueryPersonDetail>();
    Open().EditPerson(QStringLiteral("4711"));
    EXPECT_EQ(State()->GetKind(), VxGUI::VxEmptyState::Kind::Loading);
    const FakeCall first = m_host.server.Last<wire::QueryPersonDetail>();
    m_pPage->AddPerson(QStringLiteral("1002"));
    m_host.server.Answer<wire::QueryPersonDetail>(first, MakePerson());
    PageDriver::Settle();
    EXPECT_EQ(Content("m_pEditName"), "");

    FillRequired();
    Click("m_pBtnOk");
    const FakeCall save = m_host.server.Last<wire::AddPerson>();
    m_dialogs.AnswerNext(true);
    Click("m_pBtnCancel");
    m_host.server.Answer<wire::AddPerson>(save);
    m_pPage->AddPerson(QStringLiteral("1002"));
    PageDriver::Settle();
    EXPECT_TRUE(m_vecSaved.empty());
    FillRequired();
    Click("m_pBtnOk");
    const FakeCall last = m_host.server.Last<wire::AddPerson>();
    TearDown();
    m_host.server.Answer<wire::AddPerson>(last); // the editor is gone
    EXPECT_TRUE(m_vecSaved.empty());
}

TEST_F(PersonEditor, LostConnectionKeepsTheInputAndAsksAgainAfterwards)
{
    m_host.server.FailAlways<wire::QueryPermissionChoices>(UICommonMdl::ErrorDisconnected);
    m_host.server.FailAlways<wire::QueryResidenceScenario>(UICommonMdl::ErrorDisconnected);
    OpenAdd();
    FillRequired();
    EXPECT_NE(LabelText("lbChoicesFailed").find("Failed to get residence scenario"), std::string::npos);
    m_host.PushConnected(false);
    PageDriver::Settle();
    EXPECT_FALSE(IsUsable("m_pBtnOk"));
    EXPECT_FALSE(IsUsable("btnChoicesAgain"));
    Screenshot("editor-choices-failed");
    m_host.server.AnswerAlways<wire::QueryPermissionChoices>({{{"1", "Day shift"}}, {}, {}});
    m_host.server.AnswerAlways<wire::QueryResidenceScenario>({});
    m_host.PushConnected(true);
    PageDriver::Settle();
    PageDriver::Settle();
    EXPECT_FALSE(IsShown("wgtChoicesFailed"));
    EXPECT_EQ(Content("m_pEditName"), "Grace");
    EXPECT_TRUE(IsUsable("m_pBtnOk"));
}

TEST_F(PersonEditor, NavigationScrollsToASectionAndFollowsScrolling)
{
    OpenAdd();
    auto* const pNavigator = m_pDriver->Find<CSectionNavigator>(QStringLiteral("wgtNavPage"));
    auto* const pBar = m_pDriver->Find<QScrollArea>(QStringLiteral("scrollPerson"))->verticalScrollBar();
    for (QPushButton* const pButton : pNavigator->findChildren<QPushButton*>()) {
        if (!pButton->isVisible())
            continue;
        QTest::mouseClick(pButton, Qt::LeftButton);
        EXPECT_EQ(pNavigator->GetCurrentTitle(), pButton->text());
    }
    EXPECT_GT(pBar->value(), 0);
    pBar->setValue(0);
    EXPECT_EQ(pNavigator->GetCurrentTitle(), QStringLiteral("Basic Information"));
    pBar->setValue(pBar->maximum());
    EXPECT_EQ(pNavigator->GetCurrentTitle(), QStringLiteral("Vehicle Information"));
}

TEST_F(PersonEditor, TabGoesFromTheTitleThroughTheSectionsToTheButtons)
{
    OpenAdd();
    QStringList listNames;
    QWidget* pWidget = m_pDriver->Find<QWidget>(QStringLiteral("btnPersonBack"));
    for (int n = 0; n < 400; ++n, pWidget = pWidget->nextInFocusChain())
        listNames << pWidget->objectName();
    int nBefore = -1;
    for (const char* const pszName : {"m_pBtnExtract", "m_pEditId", "m_pEditName", "m_pCmbGroup",
             "m_pBtnUpload", "m_pEditNickname", "m_pCmbAccessType", "m_pBtnAddLift", "m_pBtnAddFaceGroup",
             "m_pCmbRoom", "m_pEditPlate", "m_pBtnOk", "m_pAddAndContinue", "m_pBtnCancel"}) {
        const int nPlace = listNames.indexOf(QLatin1String(pszName));
        EXPECT_GT(nPlace, nBefore) << pszName;
        nBefore = nPlace;
    }
}

TEST_F(PersonEditor, GroupIsChosenInTheTreeAndSurvivesANewTree)
{
    OpenAdd();
    const ExpectWarning popup(QStringLiteral("This plugin does not support"));
    auto* const pCombo = m_pDriver->Find<Common::CTreeComboBox>(QStringLiteral("m_pCmbGroup"));
    EXPECT_EQ(pCombo->currentText(), QStringLiteral("Engineering"));
    pCombo->setFocus();
    QTest::keyClick(pCombo, Qt::Key_Down);
    auto* const pTree = m_pDriver->Find<QTreeView>(QStringLiteral("treeTarget"));
    m_pDriver->ClickIndex(pTree, m_pDriver->FindRow(pTree, 0, QStringLiteral("Sales")));
    EXPECT_EQ(pCombo->currentText(), QStringLiteral("Sales"));
    EXPECT_FALSE(pTree->isVisible());
    m_host.site.vecDepartments.erase(m_host.site.vecDepartments.begin() + 2);
    m_host.site.vecDepartments[1].sName = "Research";
    m_host.access.QueryDepartmentTree();
    PageDriver::Settle();
    EXPECT_EQ(pCombo->GetCode(), QStringLiteral("1002")) << "the group is gone, the choice is not";
    FillRequired();
    Click("m_pBtnOk");
    AnswerSave<wire::AddPerson>(UICommonMdl::ErrorNotFound, "sGroupCode");
    EXPECT_TRUE(IsShown("lbGroupHint"));
    QTest::keyClick(pCombo, Qt::Key_Down);
    pTree->setCurrentIndex(m_pDriver->FindRow(pTree, 0, QStringLiteral("Research")));
    QTest::keyClick(pTree, Qt::Key_Return);
    EXPECT_EQ(pCombo->GetCode(), QStringLiteral("1001"));
    EXPECT_FALSE(IsShown("lbGroupHint"));
}

} // namespace

#include "PersonEditFixture.h"

#include <PersonEdit/CPersonnelBatchAuthorizeUI.h>
#include <common/CInputGuard.h>

#include <QComboBox>

using namespace AccessControlLogical;
using namespace BasicInfoManagerUI;

namespace {

class BatchAuthorize : public PersonPageFixture<CPersonnelBatchAuthorizeUI>
{
protected:
    using Ids = std::vector<std::string>;

    void Open(int nPersons)
    {
        CPersonnelBatchAuthorizeUI& page = MakePage();
        QObject::connect(&page, &CPersonnelBatchAuthorizeUI::SignalBack, &page,
            [this](bool bAuthorized) { m_vecBack.push_back(bAuthorized); });
        std::vector<PersonInfo_t> vecPersons;
        for (int n = 0; n < nPersons; ++n) {
            vecPersons.emplace_back();
            vecPersons.back().sPersonId = std::to_string(100 + n);
            vecPersons.back().sName = "Person " + std::to_string(n);
        }
        page.SetPersons(vecPersons);
        PageDriver::Settle();
    }
    void ChooseGroups()
    {
        Click("m_pBtnAddAccessGroup");
        CheckInAdder({"Night shift", "Day shift"});
        ClickInDialog("CChoiceDlg", QDialogButtonBox::Ok);
        Click("m_pBtnAddFaceGroup");
        Choose("m_pCmbFaceGroup", "Staff");
        ClickInDialog("CAddFaceGroupDlg", QDialogButtonBox::Ok);
    }
    Ids LastPersons() { return m_host.server.LastRequest<wire::AuthorizePersons>().vecPersonIds; }
    Ids LastGroups()
    {
        const auto request = m_host.server.LastRequest<wire::AuthorizePersons>();
        Ids vecGroups = request.vecAccessGroups;
        vecGroups.insert(vecGroups.end(), request.vecFaceGroups.begin(), request.vecFaceGroups.end());
        return vecGroups;
    }
    int Requests() { return m_host.server.Count<wire::AuthorizePersons>(); }
    void Answer(const wire::PersonBatchAnswer& answer = {})
    {
        m_host.server.AnswerLast<wire::AuthorizePersons>(answer);
        PageDriver::Settle();
    }

    std::vector<bool> m_vecBack;
};

TEST_F(BatchAuthorize, ChosenPermissionsGoToThePersonsThatAreLeft)
{
    Open(3);
    EXPECT_EQ(LabelText("lbSelectedCount"), "(3)");
    RemoveRow("m_pSelected", 1);
    EXPECT_EQ(LabelText("lbSelectedCount"), "(2)");
    EXPECT_FALSE(m_pPage->IsDirty());
    ChooseGroups();
    EXPECT_TRUE(m_pPage->IsDirty());
    Click("m_pBtnOk");
    EXPECT_EQ(LastPersons(), (Ids{"100", "102"}));
    EXPECT_EQ(LastGroups(), (Ids{"1", "2", "1"}));
    EXPECT_FALSE(IsUsable("m_pBtnOk"));
    Answer();
    EXPECT_EQ(Notice(), "Batch authorize person succeed");
    EXPECT_EQ(m_vecBack, std::vector<bool>{true});
    EXPECT_FALSE(m_pPage->IsDirty());
}

TEST_F(BatchAuthorize, WhoLeavesWhileItRunsIsAskedAlsoWithoutAChoice)
{
    Open(3);
    m_dialogs.AnswerNext(true); // all lose their permissions
    Click("m_pBtnOk");
    m_dialogs.AnswerNext(false);
    EXPECT_FALSE(Common::CInputGuard::LeaveBelow(m_pPage.get()));
    EXPECT_TRUE(m_vecBack.empty());
    m_host.SetMissingRights({"002003001"});
    Answer();
    EXPECT_FALSE(IsUsable("m_pBtnOk"));
}

TEST_F(BatchAuthorize, ManyPersonsGoOneBatchAfterTheOther)
{
    Open(2500);
    ChooseGroups();
    Click("m_pBtnOk");
    for (const std::size_t nExpected : {1000U, 1000U, 500U}) {
        EXPECT_EQ(LastPersons().size(), nExpected);
        EXPECT_TRUE(m_vecBack.empty());
        Answer();
    }
    EXPECT_EQ(Requests(), 3);
    EXPECT_EQ(m_vecBack, std::vector<bool>{true});
}

TEST_F(BatchAuthorize, PartialFailuresAreListedAndTriedAgainAlone)
{
    Open(3);
    ChooseGroups();
    Click("m_pBtnOk");
    Answer({{{"101", "Person 1", UICommonMdl::ErrorNotFound, ""},
        {"102", "Person 2", UICommonMdl::ErrorPersonDuplicate, wire::ClashText({{ClashPlate, "AB 1"}})}}});
    ASSERT_EQ(m_dialogs.Shown().size(), 2);
    EXPECT_TRUE(m_dialogs.Shown()[0].contains(
        QStringLiteral("License plate number already exists.\nExisted Plate:\nAB 1")));
    EXPECT_TRUE(m_dialogs.Shown()[1].startsWith(
        QStringLiteral("Prompt: Batch authorize person failed\nResult of failure is shown below:\nPerson 1 "
                       "(101): Failed to modify user")));
    EXPECT_TRUE(
        m_dialogs.Shown()[1].endsWith(QStringLiteral("Failed to authorize some plate number of Person 2.")));
    EXPECT_EQ(LabelText("lbSelectedCount"), "(2)");
    Click("m_pBtnOk");
    EXPECT_EQ(LastPersons(), (Ids{"101", "102"}));
    m_dialogs.AnswerNext(true);
    Click("m_pBtnCancel");
    EXPECT_EQ(m_vecBack, std::vector<bool>{true}) << "the first person has new permissions";
}

TEST_F(BatchAuthorize, FailureReleasesThePage)
{
    Open(2);
    ChooseGroups();
    Click("m_pBtnOk");
    m_host.server.FailLast<wire::AuthorizePersons>(UICommonMdl::ErrorTimeOut);
    PageDriver::Settle();
    EXPECT_EQ(Notice().rfind("Batch authorize person failed: ", 0), 0U);
    EXPECT_TRUE(m_pPage->IsDirty());
    m_host.server.Refuse<wire::AuthorizePersons>();
    Click("m_pBtnOk");
    EXPECT_EQ(Notice(), "Batch authorize person failed: The request could not be sent to the server.");
    m_host.PushConnected(false);
    PageDriver::Settle();
    EXPECT_FALSE(IsUsable("m_pBtnOk"));
    m_host.PushConnected(true);
    PageDriver::Settle();
    EXPECT_TRUE(IsUsable("m_pBtnOk"));
    EXPECT_TRUE(m_vecBack.empty());
}

TEST_F(BatchAuthorize, NothingSelectedOrNothingChosenIsNotSentUnasked)
{
    Open(1);
    m_dialogs.AnswerNext(false);
    Click("m_pBtnOk");
    EXPECT_EQ(Requests(), 0);
    RemoveRow("m_pSelected", 0);
    Click("m_pBtnOk");
    EXPECT_EQ(Notice(), "Please select at least one person.");
    Screenshot("batch-nobody");
    Click("m_pBtnCancel");
    EXPECT_EQ(m_vecBack, std::vector<bool>{false});
}

TEST_F(BatchAuthorize, ChoicesThatFailAreAskedForAgain)
{
    m_host.server.FailAlways<wire::QueryPermissionChoices>(UICommonMdl::ErrorServerBusy);
    Open(1);
    EXPECT_TRUE(IsShown("wgtChoicesFailed"));
    m_host.site.ServePersons();
    Click("btnChoicesAgain");
    EXPECT_FALSE(IsShown("wgtChoicesFailed"));
    ChooseGroups();
    EXPECT_EQ(Rows("m_pAccessGroups"), (std::vector<std::string>{"Day shift", "Night shift"}));
}

} // namespace

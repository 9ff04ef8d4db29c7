#include "PersonEditFixture.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateTimeEdit>

using namespace AccessControlLogical;

namespace {

class PersonSections : public PersonEditorFixture
{
protected:
    QComboBox* Combo(const char* pszName) { return m_pDriver->Find<QComboBox>(QLatin1String(pszName)); }
};

TEST_F(PersonSections, AccessTypeKeepsACodeThatItDoesNotOffer)
{
    const struct
    {
        int nLoaded;
        const char* pszChosen;
        int nSent;
    } cases[] = {{PersonOther, nullptr, PersonOther}, {PersonBlocklist, nullptr, PersonBlocklist},
        {PersonOther, "VIP", PersonVip}, {PersonGeneral, "Blocklist", PersonBlocklist},
        {PersonGeneral, "Guest", PersonGuest}};
    for (const auto& testCase : cases) {
        Person person = MakePerson();
        person.nPersonType = testCase.nLoaded;
        OpenEdit(person);
        EXPECT_EQ(Combo("m_pCmbAccessType")->count(), 5);
        if (testCase.pszChosen)
            Choose("m_pCmbAccessType", testCase.pszChosen);
        else
            Type("m_pEditRemark", "changed");
        Click("m_pBtnOk");
        EXPECT_EQ(Sent<wire::ModifyPerson>().nPersonType, testCase.nSent) << testCase.nLoaded;
        TearDown();
    }
}

TEST_F(PersonSections, AccessGroupsAreAddedFromThoseThatAreLeftAndRemoved)
{
    OpenEdit(MakePerson());
    EXPECT_EQ(Rows("m_pAccessGroups"), (std::vector<std::string>{"Night shift", "99"}))
        << "what no longer exists is shown by its id";
    RemoveRow("m_pAccessGroups", 1);
    Click("m_pBtnAddAccessGroup");
    auto* const pView = m_pDriver->Find<QTreeView>(QStringLiteral("tblChoices"));
    EXPECT_EQ(pView->model()->rowCount(), 2);
    Type("editChoiceSearch", "LAB");
    EXPECT_EQ(pView->model()->rowCount(), 1);
    CheckInAdder({"Laboratories"});
    Type("editChoiceSearch", "zzz");
    Screenshot("choices-none");
    Type("editChoiceSearch", "");
    CheckInAdder({"Day shift"});
    ClickInDialog("CChoiceDlg", QDialogButtonBox::Ok);
    EXPECT_EQ(
        Rows("m_pAccessGroups"), (std::vector<std::string>{"Night shift", "Day shift", "Laboratories"}));
    Click("m_pBtnOk");
    EXPECT_EQ(Sent<wire::ModifyPerson>().vecAccessGroups, (std::vector<std::string>{"2", "1", "3"}));
}

TEST_F(PersonSections, LiftFloorsAreChosenByDeviceChannelAndFloor)
{
    OpenEdit(MakePerson());
    EXPECT_EQ(Rows("m_pLiftFloors"), std::vector<std::string>{"Lift Controller 1|Lift A|1"});
    Click("m_pBtnAddLift");
    auto* const pView = m_pDriver->Find<QTreeView>(QStringLiteral("tblChoices"));
    m_pDriver->ClickIndex(pView, pView->model()->index(0, 0));
    ClickInDialog("CChoiceDlg", QDialogButtonBox::Ok);
    EXPECT_EQ(Rows("m_pLiftFloors").size(), 2U);
    RemoveRow("m_pLiftFloors", 0);
    Click("m_pBtnOk");
    EXPECT_EQ(Sent<wire::ModifyPerson>().vecLiftFloors, std::vector<std::string>{"2"});
}

TEST_F(PersonSections, FaceGroupMustBeChosen)
{
    OpenEdit(MakePerson());
    Click("m_pBtnAddFaceGroup");
    EXPECT_EQ(Combo("m_pCmbFaceGroup")->count(), 1) << "those that are not chosen yet";
    ClickInDialog("CAddFaceGroupDlg", QDialogButtonBox::Ok);
    auto* const pDialog = m_pDriver->Find<QDialog>(QStringLiteral("CAddFaceGroupDlg"));
    EXPECT_EQ(pDialog->findChild<QLabel*>(QStringLiteral("lbHint"))->text(),
        QStringLiteral("Please select a face comparison group."));
    Choose("m_pCmbFaceGroup", "Contractors");
    ClickInDialog("CAddFaceGroupDlg", QDialogButtonBox::Ok);
    EXPECT_EQ(Rows("m_pFaceGroups"), (std::vector<std::string>{"Staff", "Contractors"}));
    QTableView* const pView = Table("m_pFaceGroups")->GetView();
    m_pDriver->ClickIndex(pView, pView->model()->index(0, 1));
    QTest::keyClick(pView, Qt::Key_Delete);
    Click("m_pBtnOk");
    EXPECT_EQ(Sent<wire::ModifyPerson>().vecFaceGroups, std::vector<std::string>{"2"});
}

TEST_F(PersonSections, RoomBelongsToTheResidenceScenario)
{
    Person person = MakePerson();
    person.sRoomNo = "999";
    OpenEdit(person);
    EXPECT_EQ(Combo("m_pCmbRoom")->currentText(), QStringLiteral("999")) << "gone, but still the person's";
    Choose("m_pCmbRoom", "201");
    Click("m_pBtnOk");
    EXPECT_EQ(Sent<wire::ModifyPerson>().sRoomNo, "201");
    TearDown();

    m_host.server.AnswerAlways<wire::QueryResidenceScenario>({});
    OpenEdit(person);
    EXPECT_FALSE(IsShown("m_pCmbRoom"));
    Type("m_pEditRemark", "x");
    Click("m_pBtnOk");
    EXPECT_EQ(Sent<wire::ModifyPerson>().sRoomNo, "999") << "hidden is not emptied";
}

TEST_F(PersonSections, PlatesAreAddedOnceAndRemoved)
{
    OpenEdit(MakePerson());
    Click("m_pBtnAddPlate");
    EXPECT_EQ(Hint("m_pEditPlate"), "Please fill in plate number");
    Type("m_pEditPlate", "ab 123");
    m_pDriver->Key(QStringLiteral("m_pEditPlate"), Qt::Key_Return);
    EXPECT_EQ(Hint("m_pEditPlate"), "Plate Number is repeated.");
    Click("m_pBtnOk");
    EXPECT_EQ(m_host.server.Count<wire::ModifyPerson>(), 0) << "what stands in the field counts";
    Type("m_pEditPlate", "CD 456");
    m_pDriver->Key(QStringLiteral("m_pEditPlate"), Qt::Key_Return);
    RemoveRow("m_pPlates", 0);
    Click("m_pBtnOk");
    EXPECT_EQ(Sent<wire::ModifyPerson>().vecPlates, std::vector<std::string>{"CD 456"});
}

TEST_F(PersonSections, DatesMayBeLeftOpen)
{
    Person person = MakePerson();
    person.nValidTo = person.nValidFrom + 3600;
    OpenEdit(person);
    const auto date = [this](const char* pszName) {
        return m_pDriver->Find<QWidget>(QLatin1String(pszName))->findChild<QDateTimeEdit*>();
    };
    const auto clickBox = [this](const char* pszName) {
        auto* const pBox = m_pDriver->Find<QWidget>(QLatin1String(pszName))->findChild<QCheckBox*>();
        QTest::mouseClick(pBox, Qt::LeftButton, Qt::NoModifier, QPoint(8, pBox->height() / 2));
    };
    date("m_pValidTo")->setDateTime(QDateTime::fromSecsSinceEpoch(person.nValidFrom - 1));
    Click("m_pBtnOk");
    EXPECT_EQ(Notice(), "The end time must be later than the start time.");
    EXPECT_EQ(m_host.server.Count<wire::ModifyPerson>(), 0);
    clickBox("m_pValidTo");
    clickBox("m_pBirthday");
    clickBox("m_pEntryDate");
    date("m_pEntryDate")->setDate(QDate(2020, 2, 29));
    Click("m_pBtnOk");
    const Person sent = Sent<wire::ModifyPerson>();
    EXPECT_EQ(sent.nValidFrom, person.nValidFrom);
    EXPECT_EQ(sent.nValidTo, 0);
    EXPECT_EQ(sent.sBirthday, "");
    EXPECT_EQ(sent.sEntryDate, "2020-02-29");
}

} // namespace

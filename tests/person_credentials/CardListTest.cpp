#include "CredentialFixture.h"

#include <CardReader/SimulatedCardReader.h>
#include <Credentials/CPersonAuthenticationInfo.h>

using namespace BasicInfoManagerUI;
using namespace AccessControlLogical;
namespace Simulation = CardReader::Simulation;

namespace {

/// The operations of a card, in their order.
enum Button : int
{
    MainCard,
    DuressCard,
    Freeze,
    Unlock,
    Change,
    Delete
};

class CardList : public CredentialFixture<CPersonAuthenticationInfo>
{
protected:
    void Show(const std::vector<Card_t>& vecCards)
    {
        Person_t person;
        person.vecCards = vecCards;
        m_page.SetPerson(person);
        PageDriver::Settle();
    }
    std::vector<Card_t> Cards()
    {
        Person_t person;
        m_page.FillPerson(person);
        return person.vecCards;
    }
    std::vector<std::string> Numbers()
    {
        std::vector<std::string> vecNumbers;
        for (const Card_t& card : Cards())
            vecNumbers.push_back(card.sCardNo);
        return vecNumbers;
    }
    /// Presses that row action of a card; the question is answered with bOk.
    void Press(const char* pszCardNo, int nButton, bool bAsked = true, bool bOk = true)
    {
        auto* const pTable = m_driver.Find<QTreeView>(QStringLiteral("tableCards"));
        pTable->setCurrentIndex(m_driver.FindRow(pTable, 0, QLatin1String(pszCardNo)));
        if (bAsked)
            m_dialogs.AnswerNext(bOk);
        PressRowButton(pTable, QLatin1String(pszCardNo), nButton);
    }
    QString Hint() { return HintOf("m_pEditCardNo"); }
    void Enter(const char* pszText)
    {
        m_driver.Type(QStringLiteral("m_pEditCardNo"), QLatin1String(pszText));
        m_driver.Click(QStringLiteral("m_pBtnConfirmCard"));
    }
};

TEST_F(CardList, TypedNumbersAreTakenUpperCaseAndNoneTwice)
{
    Enter("");
    EXPECT_EQ(Hint(), "Please enter card number.");
    Enter("ab1F");
    EXPECT_EQ(m_driver.Find<VxGUI::VxLineEdit>(QStringLiteral("m_pEditCardNo"))->text(), QString());
    Enter("AB1f");
    EXPECT_EQ(Hint(), "Card No. exists already!");
    m_driver.Type(QStringLiteral("m_pEditCardNo"), QStringLiteral("12g"));
    EXPECT_EQ(Hint(), "Only allow letters and numbers.");
    m_driver.Type(QStringLiteral("m_pEditCardNo"), QStringLiteral("0123456789abcdef0"));
    EXPECT_EQ(Hint(), "The card number length cannot exceed 16 characters.");
    m_driver.Key(QStringLiteral("m_pEditCardNo"), Qt::Key_Return);
    EXPECT_THAT(Numbers(), testing::ElementsAre("AB1F", "0123456789ABCDEF"));
}

TEST_F(CardList, MarksAreAskedForAndKeptOne)
{
    Show({{"A1", true}, {"B2", false, true}, {"C3"}});
    const struct
    {
        const char* pszCard;
        int nButton;
        bool bOk;
        const char* pszQuestion;
    } cases[] = {{"B2", MainCard, false, "Are you sure to set this card as main card?"},
        {"B2", MainCard, true, "Are you sure to set this card as main card?"},
        {"B2", MainCard, true, "Are you sure to cancel main card?"},
        {"B2", DuressCard, true, "Are you sure to cancel duress card?"},
        {"C3", DuressCard, true, "Are you sure to set this card as duress card?"},
        {"C3", Freeze, true, "The card will not be used after it is locked, are sure to lock card?"},
        {"A1", Freeze, true, "The card will not be used after it is locked, are sure to lock card?"},
        {"A1", Unlock, true, "The card can be used after it is unlocked, are sure to unlock card?"},
        {"A1", Delete, true, "Are sure to delete the card?"}};
    const std::vector<std::vector<Card_t>> vecAfter{{{"A1", true}, {"B2", false, true}, {"C3"}},
        {{"A1"}, {"B2", true, true}, {"C3"}}, {{"A1"}, {"B2", false, true}, {"C3"}}, {{"A1"}, {"B2"}, {"C3"}},
        {{"A1"}, {"B2"}, {"C3", false, true}}, {{"A1"}, {"B2"}, {"C3", false, true, true}},
        {{"A1", false, false, true}, {"B2"}, {"C3", false, true, true}},
        {{"A1"}, {"B2"}, {"C3", false, true, true}}, {{"B2"}, {"C3", false, true, true}}};
    for (std::size_t n = 0; n < vecAfter.size(); ++n) {
        SCOPED_TRACE(n);
        Press(cases[n].pszCard, cases[n].nButton, true, cases[n].bOk);
        EXPECT_EQ(m_dialogs.Shown().last(), QStringLiteral("Prompt: ") + cases[n].pszQuestion);
        EXPECT_EQ(Cards(), vecAfter[n]);
    }
    Press("B2", DuressCard, false);
    EXPECT_EQ(Notice(), "Duress card exists already!");
    EXPECT_FALSE(Cards().front().bDuress);
}

TEST_F(CardList, ChangedNumberKeepsTheMarksAndItsPlace)
{
    Show({{"A1", true, true, true}, {"B2"}});
    Press("A1", Change, false);
    Enter("b2");
    EXPECT_EQ(Hint(), "Card No. exists already!");
    Enter("a1");
    Press("A1", Change, false);
    Enter("c3");
    EXPECT_EQ(Cards(), (std::vector<Card_t>{{"C3", true, true, true}, {"B2"}}));
    Press("B2", Change, false);
    m_driver.Key(QStringLiteral("m_pEditCardNo"), Qt::Key_Escape);
    Enter("D4");
    EXPECT_THAT(Numbers(), testing::ElementsAre("C3", "B2", "D4"));
    // The card that is being changed is deleted meanwhile: what is entered then is a new one.
    Press("D4", Change, false);
    Press("D4", Delete);
    Enter("E5");
    EXPECT_THAT(Numbers(), testing::ElementsAre("C3", "B2", "E5"));
}

TEST_F(CardList, NumberInTheFieldIsTakenBySavingOrKeepsIt)
{
    Show({{"A1"}});
    m_driver.Type(QStringLiteral("m_pEditCardNo"), QStringLiteral("a1"));
    EXPECT_EQ(m_page.CheckInput(), "Card No. exists already!");
    EXPECT_TRUE(m_driver.Find<VxGUI::VxLineEdit>(QStringLiteral("m_pEditCardNo"))->GetLineEdit()->hasFocus());
    m_driver.Type(QStringLiteral("m_pEditCardNo"), QStringLiteral("a2"));
    EXPECT_EQ(m_page.CheckInput(), QString());
    EXPECT_THAT(Numbers(), testing::ElementsAre("A1", "A2"));
}

TEST_F(CardList, ClashingCardsAreMarkedUntilThePersonIsShownAnew)
{
    Show({{"A1"}, {"B2"}});
    m_page.ShowClashes({{ClashPlate, "A1"}, {ClashCardNo, "b2"}});
    auto* const pTable = m_driver.Find<QTreeView>(QStringLiteral("tableCards"));
    const auto isMarked = [&](int nRow) {
        return pTable->model()->index(nRow, 0).data(Qt::ForegroundRole).isValid();
    };
    EXPECT_FALSE(isMarked(0));
    EXPECT_TRUE(isMarked(1));
    m_driver.Screenshot(QStringLiteral("cards-clash"));
    Show({{"B2"}});
    EXPECT_FALSE(isMarked(0));
}

TEST_F(CardList, ReadOnlyShowsCardsWithoutAnyAction)
{
    Show({{"A1", true}});
    m_page.SetReadOnly(true);
    EXPECT_FALSE(m_driver.IsShown(QStringLiteral("m_pEditCardNo")));
    EXPECT_FALSE(m_driver.IsShown(QStringLiteral("m_pBtnReadCard")));
    auto* const pTable = m_driver.Find<QTreeView>(QStringLiteral("tableCards"));
    EXPECT_TRUE(pTable->isColumnHidden(2));
    pTable->setCurrentIndex(pTable->model()->index(0, 0));
    QTest::keyClick(pTable, Qt::Key_Delete);
    EXPECT_THAT(Numbers(), testing::ElementsAre("A1"));
}

TEST_F(CardList, ReadNumberWaitsInTheFieldUntilItIsConfirmed)
{
    m_host.config.mapValues[QStringLiteral("AuthenCard/type")] = 2;
    Simulation::StopOwnCards();
    m_driver.Click(QStringLiteral("m_pBtnReadCard"));
    Simulation::PutCard(QStringLiteral("04-A1"));
    ASSERT_TRUE(PageDriver::WaitFor([&] { return Hint() == "Only allow letters and numbers."; }));
    Simulation::PutCard(QStringLiteral("04a1b2"));
    Simulation::PutCard(QStringLiteral("FF"));
    auto* const pField = m_driver.Find<VxGUI::VxLineEdit>(QStringLiteral("m_pEditCardNo"));
    ASSERT_TRUE(PageDriver::WaitFor([&] { return pField->text() == "04A1B2"; }));
    EXPECT_EQ(Simulation::GetPromptCount(), 2);
    m_driver.Click(QStringLiteral("m_pBtnConfirmCard"));
    ASSERT_TRUE(PageDriver::WaitFor([&] { return pField->text() == "FF"; }));
    m_driver.Click(QStringLiteral("m_pBtnConfirmCard"));
    EXPECT_THAT(Numbers(), testing::ElementsAre("04A1B2", "FF"));
    // Another person: the reader is let go.
    Show({});
    EXPECT_EQ(Simulation::GetOpenCount(), 0);
}

} // namespace

#include "CredentialFixture.h"

#include <Credentials/CBatchIssueCard.h>
#include <UICommonMdl/ErrorCodes.h>

#include <QDateTimeEdit>
#include <QSignalSpy>

using namespace BasicInfoManagerUI;
using namespace AccessControlLogical;
using UICommonMdl::ErrorCode;
namespace Simulation = CardReader::Simulation;

namespace {

class BatchIssue : public CredentialFixture<CBatchIssueCard>
{
protected:
    void SetUp() override
    {
        m_host.site.ServePersons();
        m_host.config.mapValues[QStringLiteral("AuthenCard/type")] = 2;
        Simulation::StopOwnCards();
        ShowPersons(3);
    }
    void ShowPersons(int nCount)
    {
        const auto& vecAll = m_host.site.vecPersons;
        m_page.SetPersons({vecAll.begin(), vecAll.begin() + nCount});
        PageDriver::Settle();
    }
    QTreeView* Table() { return m_driver.Find<QTreeView>(QStringLiteral("tableIssueCard")); }
    QString CardNo(int nRow) { return Table()->model()->index(nRow, 1).data().toString(); }
    bool IsMarked(int nRow) { return Table()->model()->index(nRow, 1).data(Qt::ForegroundRole).isValid(); }
    /// Types into the cell as it is clicked, and leaves it open.
    void Type(int nRow, const char* pszText)
    {
        m_driver.ClickIndex(Table(), Table()->model()->index(nRow, 1));
        m_driver.Type(QStringLiteral("edtCardNo"), QLatin1String(pszText));
    }
    void TypeAll(const std::vector<const char*>& vecTexts)
    {
        for (std::size_t n = 0; n < vecTexts.size(); ++n) {
            Type(int(n), vecTexts[n]);
            QTest::keyClick(m_driver.Find<QLineEdit>(QStringLiteral("edtCardNo")), Qt::Key_Return);
            PageDriver::Settle();
        }
    }
    void Save()
    {
        m_driver.Click(QStringLiteral("m_pBtnSaveBatch"));
        PageDriver::Settle();
    }
    wire::IssueCardsRequest Sent() { return m_host.server.LastRequest<wire::IssueCards>(); }
    int Requests() { return m_host.server.Count<wire::IssueCards>(); }
    void Answer(int nErrorCode, const std::vector<PersonClash_t>& vecClashes = {})
    {
        m_host.server.FailLast<wire::IssueCards>(nErrorCode, wire::ClashText(vecClashes));
        PageDriver::Settle();
    }
};

TEST_F(BatchIssue, TypedNumbersAreCheckedAndSentWithThePeriodThatWasChosen)
{
    Save();
    EXPECT_EQ(Notice(), "Some user(s) has no card.");
    TypeAll({"a1", "b2xyz-", "A1"});
    EXPECT_EQ(CardNo(1), "B2");
    Save();
    EXPECT_EQ(Notice(), "Card No. exist");
    EXPECT_TRUE(IsMarked(0) && !IsMarked(1) && IsMarked(2));
    EXPECT_EQ(Requests(), 0);
    m_driver.Screenshot(QStringLiteral("batch-duplicate"));
    // The field is still open when it is saved.
    Type(2, "0123456789abcdef0");
    Save();
    const std::vector<IssueCard_t> vecCards{{"101", "A1"}, {"102", "B2"}, {"103", "0123456789ABCDEF"}};
    EXPECT_EQ(Sent().vecCards, vecCards);
    EXPECT_EQ(Sent().nValidFrom + Sent().nValidTo, 0);
    Answer(ErrorCode::ErrorTimeOut);
    EXPECT_TRUE(Notice().startsWith(QLatin1String("It is not known whether the cards were issued.")));
    Save();
    Answer(ErrorCode::ErrorDatabaseBusy);
    EXPECT_TRUE(Notice().startsWith(QLatin1String("Failed to batch issue card. ")));

    m_driver.Click(QStringLiteral("m_ckEffective"));
    auto* const pFrom = m_driver.Find<QDateTimeEdit>(QStringLiteral("m_dtEffectiveFrom"));
    auto* const pTo = m_driver.Find<QDateTimeEdit>(QStringLiteral("m_dtEffectiveTo"));
    pTo->setDateTime(pFrom->dateTime());
    Save();
    EXPECT_EQ(Requests(), 2) << "a period without a length was sent";
    pTo->setDateTime(pFrom->dateTime().addSecs(60));
    Save();
    const std::int64_t nFrom = pFrom->dateTime().toSecsSinceEpoch();
    EXPECT_EQ(Sent().nValidFrom, nFrom);
    EXPECT_EQ(Sent().nValidTo, nFrom + 60);
}

TEST_F(BatchIssue, ServersClashesAreNamedMarkedAndCanBeMended)
{
    QSignalSpy back(&m_page, &CBatchIssueCard::SignalBack);
    TypeAll({"A1", "B2", "C3"});
    Save();
    EXPECT_FALSE(m_driver.IsUsable(QStringLiteral("m_pBtnSaveBatch")));
    m_dialogs.AnswerNext(false);
    m_driver.Click(QStringLiteral("m_pBtnBack"));
    EXPECT_EQ(m_dialogs.LastText(),
        QStringLiteral("It is not known yet whether the cards are issued. Are you sure to leave?"));
    EXPECT_EQ(back.count(), 0);
    Answer(ErrorCode::ErrorPersonDuplicate, {{ClashCardNo, "B2"}, {ClashCardNo, "C3"}});
    EXPECT_EQ(Notice(), "The card number already exists: B2, C3");
    EXPECT_TRUE(!IsMarked(0) && IsMarked(1) && IsMarked(2));
    Type(1, "D4");
    Save();
    EXPECT_FALSE(IsMarked(1));
    Answer(ErrorCode::ErrorNone);
    ASSERT_EQ(back.count(), 1);
    EXPECT_TRUE(back.first().first().toBool());
    EXPECT_FALSE(m_page.IsDirty());
}

TEST_F(BatchIssue, ReadNumbersGoFromRowToRowAndStopAtTheLast)
{
    Type(1, "bb");
    Table()->setCurrentIndex(Table()->model()->index(0, 1));
    m_driver.Click(QStringLiteral("m_pBtnReadCard"));
    Simulation::PutCard(QStringLiteral("BB"));
    ASSERT_TRUE(PageDriver::WaitFor([this] { return Notice() == "Card No. exist"; }));
    Simulation::PutCard(QStringLiteral("a1"));
    Simulation::PutCard(QStringLiteral("C3"));
    ASSERT_TRUE(PageDriver::WaitFor([this] { return CardNo(0) == "A1"; }));
    EXPECT_EQ(Table()->currentIndex().row(), 0) << "the next row is current at once";
    ASSERT_TRUE(PageDriver::WaitFor([this] { return CardNo(2) == "C3"; }));
    EXPECT_EQ(CardNo(1), "BB");
    ASSERT_TRUE(PageDriver::WaitFor([] { return Simulation::GetOpenCount() == 0; }));
}

TEST_F(BatchIssue, PersonsAreTakenOffAndNumbersAreNotLeftBehindUnasked)
{
    QSignalSpy back(&m_page, &CBatchIssueCard::SignalBack);
    TypeAll({"A1", "B2"});
    PressRowButton(Table(), QStringLiteral("Person 3"), 0);
    m_host.server.Hold<wire::IssueCards>();
    m_dialogs.AnswerNext(false);
    m_driver.Click(QStringLiteral("m_pBtnCancelBatch"));
    EXPECT_EQ(back.count(), 0);
    m_host.PushConnected(false);
    PageDriver::Settle();
    EXPECT_FALSE(m_driver.IsUsable(QStringLiteral("m_pBtnSaveBatch")));
    EXPECT_EQ(CardNo(0), "A1");
    m_host.PushConnected(true);
    PageDriver::Settle();
    Save();
    EXPECT_EQ(Sent().vecCards.size(), 2u);
    // The answer to other persons' cards comes after the page has got new persons.
    ShowPersons(2);
    Answer(ErrorCode::ErrorNone);
    EXPECT_EQ(back.count(), 0);
    m_host.server.Refuse<wire::IssueCards>();
    TypeAll({"A1", "B2"});
    Save();
    EXPECT_EQ(Notice(), "Failed to batch issue card. The request could not be sent to the server.");
    m_dialogs.AnswerNext(true);
    m_driver.Click(QStringLiteral("m_pBtnBack"));
    ASSERT_EQ(back.count(), 1);
    EXPECT_FALSE(back.first().first().toBool());
}

} // namespace

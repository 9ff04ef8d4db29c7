#include "PersonPageFixture.h"

#include <PersonManager/CHistoryLogDlg.h>
#include <PersonManager/CTrackView.h>

#include <QDateTimeEdit>

using namespace BasicInfoManagerUI;
using namespace AccessControlLogical;

class History : public PersonPageTest::Fixture
{
protected:
    void OpenHistory()
    {
        Open();
        ClickRowButton("103", 2);
        m_pDialog = m_pPage->findChild<CHistoryLogDlg*>();
        ASSERT_TRUE(m_pDialog);
        m_pDialogDriver = std::make_unique<PageDriver>(*m_pDialog, QSize(900, 560));
    }
    void TearDown() override
    {
        m_pDialogDriver.reset();
        delete m_pDialog;
        Fixture::TearDown();
    }
    static std::vector<AccessRecord_t> MakeRecords(int nCount)
    {
        std::vector<AccessRecord_t> vecRecords;
        const std::int64_t nNow = 1750000000;
        for (int n = 0; n < nCount; ++n) {
            AccessRecord_t record;
            record.nTime = nNow - n * 1700 - n % 3 * 400;
            record.sDeviceName = n % 5 < 3 ? "Lobby" : "Laboratory Wing";
            record.sChannelName = "Door " + std::to_string(n % 4 + 1);
            record.sCardNo = "00A1B2C3";
            record.bEntry = n % 2 == 0;
            record.bOpened = n % 7 != 3;
            vecRecords.push_back(record);
        }
        return vecRecords;
    }
    void Serve(int nTotal)
    {
        m_host.server.AnswerAlways<wire::QueryRecordTotal>({nTotal});
        m_host.server.AnswerAlways<wire::QueryRecords>([nTotal](const auto& request, auto& answer) {
            answer.vecRecords = MakeRecords(qMin(nTotal, request.nPageSize));
        });
    }
    void Press(const char* pszName)
    {
        m_pDialogDriver->Click(QLatin1String(pszName));
        PageDriver::Settle();
    }
    AccessRecordRequest_t LastRecords() { return m_host.server.LastRequest<wire::QueryRecords>(); }
    QString DialogNotice() { return VxGUI::VxNotification::CurrentText(m_pDialog); }
    CTrackView* View() { return m_pDialogDriver->Find<CTrackView>(QStringLiteral("m_pTrackView")); }

    QPointer<CHistoryLogDlg> m_pDialog;
    std::unique_ptr<PageDriver> m_pDialogDriver;
};

TEST_F(History, AsksForThePeriodPageByPage)
{
    Serve(45);
    OpenHistory();
    PageDriver::Settle();
    EXPECT_EQ(LastRecords().sPersonId, "103");
    const auto* pPages = m_pDialog->findChild<UICommonMdl::CNumberPageCtrl*>();
    EXPECT_EQ(pPages->GetTotalCount(), 45);
    EXPECT_EQ(m_pDialog->findChild<QTreeView*>()->model()->rowCount(), 20);
    PersonPageTest::Screenshot(m_pDialog, QStringLiteral("person-history"));
    Press("btnNextPage");
    EXPECT_EQ(LastRecords().nPage, 2);

    auto* pFrom = m_pDialogDriver->Find<QDateTimeEdit>(QStringLiteral("m_dtFrom"));
    auto* pTo = m_pDialogDriver->Find<QDateTimeEdit>(QStringLiteral("m_dtTo"));
    const int nQueries = m_host.server.Count<wire::QueryRecords>();
    pFrom->setDateTime(pTo->dateTime().addSecs(1));
    Press("btnSearch");
    EXPECT_EQ(DialogNotice(), QStringLiteral("The start time must be before the end time."));
    EXPECT_EQ(m_host.server.Count<wire::QueryRecords>(), nQueries);
    pFrom->setDateTime(pTo->dateTime().addDays(-30));
    Press("btnSearch");
    EXPECT_EQ(LastRecords().nPage, 1);
    EXPECT_EQ(LastRecords().nTo - LastRecords().nFrom, 30 * 86400);
    EXPECT_EQ(m_host.server.LastRequest<wire::QueryRecordTotal>().nFrom, LastRecords().nFrom);
}

TEST_F(History, FailuresAreTold)
{
    Serve(5);
    m_host.server.FailAlways<wire::QueryRecordTotal>(UICommonMdl::ErrorServerBusy);
    OpenHistory();
    PageDriver::Settle();
    EXPECT_TRUE(DialogNotice().startsWith(QStringLiteral("Failed to search total record(s): ")));
    m_host.server.FailAlways<wire::QueryRecords>(UICommonMdl::ErrorTimeOut);
    Press("btnSearch");
    EXPECT_TRUE(DialogNotice().startsWith(QStringLiteral("Failed to search log: ")));
    EXPECT_FALSE(m_pDialogDriver->IsUsable(QStringLiteral("btnTrack")));
    Serve(0);
    Press("btnSearch");
    EXPECT_EQ(m_pDialogDriver->Find<VxGUI::VxEmptyState>(QStringLiteral("wgtRecordState"))->GetTitle(),
        QStringLiteral("There is no record in this period."));
    m_host.server.Refuse<wire::QueryRecords>();
    Press("btnSearch");
    EXPECT_EQ(
        DialogNotice(), QStringLiteral("Failed to search log: The request could not be sent to the server."));
}

TEST_F(History, TheTrackHoldsAtMostAThousandRecords)
{
    Serve(1200);
    OpenHistory();
    PageDriver::Settle();
    m_host.server.Hold<wire::QueryRecords>();
    Press("btnTrack");
    EXPECT_EQ(LastRecords().nPageSize, 1000);
    EXPECT_EQ(LastRecords().nPage, 1);
    EXPECT_FALSE(m_pDialogDriver->IsUsable(QStringLiteral("btnTrack"))) << "one track at a time";
    m_host.server.AnswerLast<wire::QueryRecords>({MakeRecords(1000), 0});
    PageDriver::Settle();
    EXPECT_EQ(DialogNotice(), QStringLiteral("Support up to 1000 records generate tracks"));
    EXPECT_EQ(View()->GetTrack().vecStops.size(), 1000);
    m_pDialogDriver->Key(QStringLiteral("m_pTrackView"), Qt::Key_Home);
    EXPECT_TRUE(View()->viewport()->rect().contains(View()->GetStopPlace(0)))
        << "keys bring the stop into view";
}

TEST_F(History, TheTrackIsWalkedStopByStop)
{
    Serve(24);
    OpenHistory();
    PageDriver::Settle();
    Press("btnTrack");
    ASSERT_EQ(View()->GetTrack().vecStops.size(), 24);
    EXPECT_EQ(View()->GetCurrentStop(), 23);
    m_pDialogDriver->Key(QStringLiteral("m_pTrackView"), Qt::Key_Left);
    EXPECT_EQ(View()->GetCurrentStop(), 22);
    PersonPageTest::Screenshot(m_pDialog, QStringLiteral("person-track"));
    QTest::mouseClick(View()->viewport(), Qt::LeftButton, {}, View()->GetStopPlace(20));
    EXPECT_EQ(View()->GetCurrentStop(), 20);
    const auto* pStop = m_pDialogDriver->Find<QLabel>(QStringLiteral("lbStop"));
    EXPECT_TRUE(pStop->text().contains(View()->GetTrack().listLanes[View()->GetTrack().vecStops[20].nLane]));
    Press("btnRecords");
    EXPECT_TRUE(m_pDialogDriver->IsShown(QStringLiteral("m_pRecordView")));
}

TEST_F(History, AnswersAfterItIsClosedAreDropped)
{
    OpenHistory();
    const FakeCall call = m_host.server.Last<wire::QueryRecords>();
    const int nObservers = m_host.CountObservers();
    m_pDialogDriver.reset();
    m_pDialog->reject();
    PageDriver::Settle();
    EXPECT_FALSE(m_pDialog);
    m_host.server.Fail(call, UICommonMdl::ErrorInternal);
    PageDriver::Settle();
    EXPECT_EQ(m_host.CountObservers(), nObservers - 1);
}

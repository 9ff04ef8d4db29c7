#include "DialogFixture.h"

#include <DeviceSettings/CDevTimeZone.h>
#include <DeviceSettings/CTimeZoneDeviceList.h>
#include <DeviceSettings/TimeZoneRules.h>
#include <UICommonMdl/ErrorCodes.h>

#include <QComboBox>
#include <QLabel>

using namespace ResourceManagerUI;
using namespace RemoteConfigLogical;

namespace {

const TimeZoneSetting_t Berlin{"Europe/Berlin", 60, true, {3, 5, 7, 2}, {10, 5, 7, 3}};
const TimeZoneSetting_t Tokyo{"Asia/Tokyo", 540, false, {}, {}};
const TimeZoneSetting_t Utc{"UTC", 0, false, {}, {}};

TEST(TimeZoneRules, MarkFollowsTheState)
{
    const QString sManual =
        QStringLiteral("Please manually change time zone and DST and make them the same as those on the "
                       "management platform.");
    const std::pair<int, StatusMark> cases[] = {{-1, {QStringLiteral("Normal"), {}}},
        {0, {QStringLiteral("Failed"), sManual}}, {1, {QStringLiteral("Success"), {}}},
        {2, {QStringLiteral("Failed"), QStringLiteral("Sending...")}},
        {3,
            {QStringLiteral("Failed"),
                QStringLiteral("Time zone and DST sync are not supported by the device. ") + sManual}}};
    for (const auto& [nState, mark] : cases)
        EXPECT_EQ(GetStatusMark(nState), mark) << nState;
    EXPECT_FALSE(GetStatusMark(4));
    EXPECT_FALSE(GetStatusMark(-2));
}

TEST(TimeZoneRules, DateReadsHourMonthWeekWeekday)
{
    EXPECT_EQ(GetDstDateText({3, 5, 7, 2}), QStringLiteral("2:00, Mar/Last week/Sunday"));
    EXPECT_EQ(GetDstDateText({12, 1, 1, 23}), QStringLiteral("23:00, Dec/1st/Monday"));
}

class TimeZoneDialog : public DialogFixture<CDevTimeZone>
{
protected:
    void SetUp() override
    {
        m_host.server.AnswerAlways<wire::QueryVideoServers>({{{"s1", "Server 1"}, {"s2", "Server 2"}}});
        m_host.server.AnswerAlways<wire::GetTimeZone>({Berlin,
            {{"(UTC) UTC", Utc}, {"(UTC+01:00) Europe/Berlin", {"Europe/Berlin", 60, false, {}, {}}},
                {"(UTC+09:00) Asia/Tokyo", Tokyo}}});
    }
    void Open()
    {
        m_pDialog = new CDevTimeZone(&m_host.interfaceSet,
            {{QStringLiteral("1"), QStringLiteral("Gate")}, {QStringLiteral("2"), QStringLiteral("Yard")},
                {QStringLiteral("3"), QStringLiteral("Dock")}},
            &m_window);
        QObject::connect(m_pDialog, &CDevTimeZone::SignalShowNotify, &m_window,
            [this](const QString& sText) { m_listNotices << sText; });
        m_pDialog->Start();
        PageDriver::Settle();
    }
    wire::SetTimeZoneRequest LastSent() { return m_host.server.LastRequest<wire::SetDeviceTimeZone>(); }
    void Report(bool bFinal, const std::vector<TimeZoneResult_t>& vecResults, int nErrorCode = 0)
    {
        m_host.server.ReportLast<wire::SetDeviceTimeZone>(MakeReport(vecResults, bFinal, nErrorCode));
        PageDriver::Settle();
    }
    /// Status and tool tip of the marks, as they are shown.
    QString Mark(const char* pszId)
    {
        const auto* const pMark =
            m_driver.Find<QLabel>(QStringLiteral("lbStatusMark_") + QLatin1String(pszId));
        return pMark->property("Status").toString() + QLatin1Char('|') + pMark->toolTip().left(10);
    }
    int State(const char* pszId)
    {
        return m_driver.Find<CTimeZoneDeviceList>(QStringLiteral("treeDevices"))
            ->GetState(QLatin1String(pszId));
    }
};

TEST_F(TimeZoneDialog, PlatformZoneAndRuleArePresetAndPushed)
{
    Open();
    EXPECT_EQ(m_driver.Find<QComboBox>(QStringLiteral("cmbZone"))->currentText(),
        QStringLiteral("(UTC+01:00) Europe/Berlin"));
    EXPECT_EQ(TextOf<QLabel>("lbEndText"), QStringLiteral("3:00, Oct/Last week/Sunday"));
    EXPECT_EQ(m_driver.Find<QComboBox>(QStringLiteral("cbxHomeSvrSel"))->count(), 2);
    EXPECT_EQ(Mark("1"), QStringLiteral("Normal|"));
    ClickOk();
    EXPECT_EQ(LastSent().vecDeviceIds, (std::vector<std::string>{"1", "2", "3"}));
    EXPECT_EQ(LastSent().setting, Berlin);
    for (const char* const pszId : {"1", "2", "3"})
        EXPECT_EQ(Mark(pszId), QStringLiteral("Failed|Sending...")) << pszId;
    EXPECT_FALSE(Ok()->isEnabled());
    Report(false, {{"2", TimeZoneDone, 0}});
    EXPECT_EQ(Mark("2"), QStringLiteral("Success|"));
    EXPECT_EQ(Mark("1"), QStringLiteral("Failed|Sending..."));
    Report(true, {{"1", TimeZoneNotSupported, UICommonMdl::ErrorDeviceNotSupported}});
    EXPECT_EQ(Mark("1"), QStringLiteral("Failed|Time zone "));
    EXPECT_EQ(State("3"), TimeZoneFailed) << "no word of it came";
    Screenshot("time-zone-mixed");
    ClickOk();
    EXPECT_EQ(LastSent().vecDeviceIds, (std::vector<std::string>{"1", "3"})) << "what has it is left alone";
    Report(true, {{"1", TimeZoneDone, 0}, {"3", TimeZoneDone, 0}});
    ClickOk();
    EXPECT_EQ(LastSent().vecDeviceIds.size(), 3U);
}

TEST_F(TimeZoneDialog, ChosenZoneBringsItsRuleAndCanBeEdited)
{
    Open();
    m_driver.Choose(QStringLiteral("cmbZoneDisplay"), QStringLiteral("Asia"));
    EXPECT_EQ(m_driver.Find<QComboBox>(QStringLiteral("cmbZone"))->count(), 1);
    EXPECT_FALSE(m_driver.IsUsable(QStringLiteral("cmbEndMonth"))) << "no daylight saving there";
    m_driver.Click(QStringLiteral("chkDst"));
    ClickOk();
    EXPECT_EQ(m_host.server.Count<wire::SetDeviceTimeZone>(), 0) << "start and end are the same day";
    EXPECT_TRUE(m_driver.IsShown(QStringLiteral("lbHint")));
    m_driver.Choose(QStringLiteral("cmbEndMonth"), QStringLiteral("Nov"));
    m_driver.Choose(QStringLiteral("cmbEndWeek"), QStringLiteral("Last week"));
    m_driver.Choose(QStringLiteral("cmbEndWeekday"), QStringLiteral("Friday"));
    m_driver.Choose(QStringLiteral("cmbEndHour"), QStringLiteral("4:00"));
    m_driver.Choose(QStringLiteral("cmbZoneDisplay"), QStringLiteral("All"));
    ClickOk();
    TimeZoneSetting_t expected = Tokyo;
    expected.bDst = true;
    expected.dstEnd = {11, 5, 5, 4};
    EXPECT_EQ(LastSent().setting, expected) << "the list alone changed, the rule stays";
    Screenshot("time-zone-sending");
}

TEST_F(TimeZoneDialog, PlatformZoneThatCannotBeReadIsToldToThePage)
{
    m_host.server.FailAlways<wire::GetTimeZone>(UICommonMdl::ErrorNoRight);
    Open();
    EXPECT_FALSE(m_pDialog);
    EXPECT_EQ(m_listNotices,
        QStringList{
            QStringLiteral("Failed to get service time zone. You do not have the right to do this.")});
    m_host.server.Refuse<wire::GetTimeZone>();
    Open();
    EXPECT_FALSE(m_pDialog);
    EXPECT_EQ(m_listNotices.size(), 2);
}

TEST_F(TimeZoneDialog, FailedPushReleasesTheDialog)
{
    Open();
    ClickOk();
    Report(true, {{"1", TimeZoneDone, 0}}, UICommonMdl::ErrorDisconnected);
    EXPECT_EQ(State("1"), TimeZoneDone);
    EXPECT_EQ(State("2"), TimeZoneFailed);
    EXPECT_EQ(m_listNotices.size(), 1);
    Connect(false);
    EXPECT_FALSE(Ok()->isEnabled());
    Connect(true);
    m_host.server.Refuse<wire::SetDeviceTimeZone>();
    ClickOk();
    PageDriver::Settle();
    EXPECT_EQ(State("2"), TimeZoneFailed);
    EXPECT_EQ(m_listNotices.size(), 2);
    EXPECT_TRUE(Ok()->isEnabled());
}

TEST_F(TimeZoneDialog, ServerChoiceReadsTheZoneAgain)
{
    Open();
    m_driver.Click(QStringLiteral("chkDst"));
    m_driver.Key(QStringLiteral("cbxHomeSvrSel"), Qt::Key_Down);
    PageDriver::Settle();
    EXPECT_EQ(m_host.server.Count<wire::GetTimeZone>(), 2);
    ClickOk();
    EXPECT_EQ(LastSent().setting, Berlin);
}

TEST_F(TimeZoneDialog, ClosingInTheMiddleIsSafe)
{
    Open();
    ClickOk();
    m_pDialog->reject();
    PageDriver::Settle();
    EXPECT_FALSE(m_pDialog);
    Report(true, {}, UICommonMdl::ErrorTimeOut);
    EXPECT_TRUE(m_listNotices.isEmpty());
}

} // namespace

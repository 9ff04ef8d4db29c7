#include "AuditFixture.h"

#include <tests/support/gui/Look.h>

#include <QComboBox>
#include <QDateTimeEdit>
#include <QLabel>
#include <QTreeWidget>

using namespace PlatformConfigUI;
using SystemObserver = RemoteConfigLogical::ISystemConfigObserver;

using AuditPage = AuditFixture;

TEST_F(AuditPage, ShowsTheNewestEntriesAsReadableDifferences)
{
    Open();
    ASSERT_EQ(List()->model()->rowCount(), 20);
    EXPECT_EQ(Queries(), 1);
    EXPECT_EQ(LastRequest().nFrom, QDate::currentDate().addDays(-6).startOfDay().toMSecsSinceEpoch());
    EXPECT_EQ(LastRequest().nTo, 0);
    EXPECT_EQ(Cell(0, AuditColumnTime), GetTimeText(MakeEntry(2500).nTime));
    EXPECT_EQ(Cell(0, AuditColumnOperation), QStringLiteral("Modify Device"));
    EXPECT_EQ(Cell(0, AuditColumnBefore), QStringLiteral("Name: Gate, Port: 37777"));
    EXPECT_EQ(Cell(0, AuditColumnAfter), QStringLiteral("Name: Gate North, Port: 37778, Remark: moved"));
    const QString sToolTip = List()->model()->index(0, AuditColumnAfter).data(Qt::ToolTipRole).toString();
    EXPECT_TRUE(sToolTip.contains(QString::fromUtf8("Port: 37777 → 37778"))) << qPrintable(sToolTip);
    const QString sStranger = List()->model()->index(3, AuditColumnUser).data(Qt::ToolTipRole).toString();
    EXPECT_TRUE(sStranger.contains(QStringLiteral("&lt;b&gt;mallory"))) << qPrintable(sStranger);
    Screenshot(m_pPage.get(), "audit");
}

TEST_F(AuditPage, FiltersGoIntoOneQueryOfTheFirstPage)
{
    Open();
    m_pDriver->Find<UICommonMdl::CNumberPageCtrl>(QStringLiteral("m_pPageCtrl"))->SetCurrentPage(3);
    Choose("cmbPeriod", QStringLiteral("All"));
    Choose("cmbOperation", QStringLiteral("Device"));
    Type("edtUser", " alice ");
    Type("edtAddress", "192.168");
    Type("edtObject", "12");
    EXPECT_EQ(Queries(), 1) << "nothing is asked for before Enter or the button";
    m_pDriver->Key(QStringLiteral("edtObject"), Qt::Key_Return);
    Request expected;
    expected.sUserName = "alice";
    expected.sClientAddress = "192.168";
    expected.sOperation = "device/";
    expected.sObject = "12";
    EXPECT_EQ(LastRequest(), expected);

    Choose("cmbPeriod", QStringLiteral("Own Range"));
    auto* const pFrom = m_pDriver->Find<QDateTimeEdit>(QStringLiteral("m_dtFrom"));
    auto* const pTo = m_pDriver->Find<QDateTimeEdit>(QStringLiteral("m_dtTo"));
    pFrom->setDateTime(QDateTime::fromSecsSinceEpoch(1750000000));
    pTo->setDateTime(QDateTime::fromSecsSinceEpoch(1750000059));
    pTo->setFocus();
    m_pDriver->Key(QStringLiteral("m_dtTo"), Qt::Key_Return);
    EXPECT_EQ(LastRequest().nFrom, 1750000000000);
    EXPECT_EQ(LastRequest().nTo, 1750000060000) << "the last second belongs to the range";
    const int nQueries = Queries();
    pFrom->setDateTime(pTo->dateTime().addSecs(1));
    Click("btnSearch");
    EXPECT_EQ(Queries(), nQueries);
    EXPECT_EQ(Notice(), QStringLiteral("The start time must be before the end time."));

    Click("btnReset");
    expected = Request();
    expected.nFrom = QDate::currentDate().addDays(-6).startOfDay().toMSecsSinceEpoch();
    EXPECT_EQ(LastRequest(), expected);
    EXPECT_FALSE(IsUsable("m_dtFrom"));
}

TEST_F(AuditPage, TurnsPagesWithTheFiltersOfTheSearch)
{
    Open();
    Type("edtUser", "alice");
    m_pDriver->Key(QStringLiteral("edtUser"), Qt::Key_Return);
    PageDriver::Settle();
    Type("edtUser", "not searched for");
    auto* const pPages = m_pDriver->Find<UICommonMdl::CNumberPageCtrl>(QStringLiteral("m_pPageCtrl"));
    EXPECT_EQ(pPages->GetPageCount(), 125);
    pPages->SetCurrentPage(125);
    Q_EMIT pPages->SignalCurrentPageChanged(125);
    PageDriver::Settle();
    EXPECT_EQ(LastRequest().nPage, 125);
    EXPECT_EQ(LastRequest().sUserName, "alice");
    EXPECT_EQ(Cell(19, AuditColumnTime), GetTimeText(MakeEntry(1).nTime));
}

TEST_F(AuditPage, EachStateOfTheListHasItsText)
{
    const struct
    {
        int nErrorCode;
        const char* szText;
        bool bNotice;
    } cases[] = {{UICommonMdl::ErrorNoRight, "You have no permission to see the audit log.", true},
        {UICommonMdl::ErrorTimeOut, "Failed to get the audit log", true},
        {UICommonMdl::ErrorNone, "No entry matches the filters.", false}};
    for (const auto& test : cases) {
        m_host.server.FailAlways<wire::QueryAuditPage>(test.nErrorCode);
        Open();
        EXPECT_EQ(State(), QLatin1String(test.szText));
        EXPECT_EQ(Notice().startsWith(QStringLiteral("Failed to get the audit log")), test.bNotice);
        EXPECT_FALSE(IsUsable("btnExport"));
        Screenshot(m_pPage.get(), test.bNotice ? "audit-failed" : "audit-empty");
        Close();
    }
    m_host.server.Hold<wire::QueryAuditPage>();
    Open();
    EXPECT_EQ(State(), QStringLiteral("Loading the audit log"));
    Close();
    m_host.server.Refuse<wire::QueryAuditPage>();
    Open();
    EXPECT_EQ(State(), QStringLiteral("Failed to get the audit log"));
}

TEST_F(AuditPage, LateAnswersAreDropped)
{
    Open();
    m_host.server.Hold<wire::QueryAuditPage>();
    Click("btnSearch");
    const FakeCall first = m_host.server.Last<wire::QueryAuditPage>();
    Click("btnSearch");
    const FakeCall second = m_host.server.Last<wire::QueryAuditPage>();
    m_host.server.Answer<wire::QueryAuditPage>(second, MakePage(Request(), 2));
    m_host.server.Answer<wire::QueryAuditPage>(first, MakePage(Request(), 9));
    PageDriver::Settle();
    EXPECT_EQ(List()->model()->rowCount(), 2);
    Click("btnSearch");
    const FakeCall last = m_host.server.Last<wire::QueryAuditPage>();
    Close();
    m_host.server.Answer<wire::QueryAuditPage>(last);
    PageDriver::Settle();
    EXPECT_EQ(m_host.CountObservers(), 0);
}

TEST_F(AuditPage, WithoutAConnectionTheRowsStay)
{
    Open();
    const int nQueries = Queries();
    Type("edtUser", "alice");
    Connect(false);
    EXPECT_TRUE(m_pDriver->IsShown(QStringLiteral("lbConnection")));
    for (const char* szName : {"edtUser", "btnSearch", "btnReset", "btnRefresh", "btnExport", "m_pPageCtrl"})
        EXPECT_FALSE(IsUsable(szName)) << szName;
    EXPECT_EQ(Queries(), nQueries);
    EXPECT_EQ(List()->model()->rowCount(), 20);
    Connect(true);
    EXPECT_EQ(Queries(), nQueries + 1);
    EXPECT_TRUE(IsUsable("btnExport"));
    EXPECT_EQ(m_pDriver->Find<QLineEdit>(QStringLiteral("edtUser"))->text(), QStringLiteral("alice"));

    m_pPage->UninitUI();
    Connect(false);
    Connect(true);
    EXPECT_EQ(Queries(), nQueries + 1) << "after the end nothing is asked for";
}

TEST_F(AuditPage, AnEntryOpensByEnterAndDoubleClickFieldByField)
{
    Open();
    m_pDriver->ClickIndex(List(), List()->model()->index(0, 0));
    m_pDriver->Key(QStringLiteral("treeAudit"), Qt::Key_Return);
    QPointer<CAuditDetailsDlg> pDialog = m_pPage->findChild<CAuditDetailsDlg*>();
    ASSERT_TRUE(pDialog);
    const auto* pChanges = pDialog->findChild<QTreeWidget*>(QStringLiteral("treeChanges"));
    ASSERT_EQ(pChanges->topLevelItemCount(), 3);
    EXPECT_EQ(pChanges->topLevelItem(1)->text(0), QStringLiteral("Port"));
    EXPECT_EQ(pChanges->topLevelItem(1)->text(1), QStringLiteral("37777"));
    EXPECT_EQ(pChanges->topLevelItem(1)->text(2), QStringLiteral("37778"));
    Screenshot(pDialog, "audit-details");
    QTest::keyClick(pDialog, Qt::Key_Escape);
    PageDriver::Settle();
    EXPECT_FALSE(pDialog);

    const QModelIndex signOut = List()->model()->index(1, AuditColumnUser);
    ASSERT_EQ(Cell(1, AuditColumnOperation), QStringLiteral("Sign Out"));
    m_pDriver->ClickIndex(List(), signOut);
    QTest::mouseDClick(List()->viewport(), Qt::LeftButton, {}, List()->visualRect(signOut).center());
    pDialog = m_pPage->findChild<CAuditDetailsDlg*>();
    ASSERT_TRUE(pDialog);
    EXPECT_TRUE(pDialog->findChild<QWidget*>(QStringLiteral("wgtNoChange"))->isVisible());
    pDialog->close();
    PageDriver::Settle();
}

class AuditLooks : public AuditFixture, public testing::WithParamInterface<Look>
{
protected:
    LookScope m_look{GetParam()};
};

TEST_P(AuditLooks, PageIsReadable)
{
    Open();
    m_pPage->window()->resize(m_look.Scaled(m_pPage->window()->size()));
    m_look.ExpectReadable(*m_pPage, "audit");
    m_look.ExpectFocusSeen(*m_pPage);
}

INSTANTIATE_TEST_SUITE_P(Every, AuditLooks, EveryLook, NameOf);

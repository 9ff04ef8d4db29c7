#include "SearchPanelFixture.h"

#include <ResourceManagerUI/Discovery/CModifyIP.h>

using namespace ResourceManagerUI;

class SearchPanel : public SearchPanelFixture
{
protected:
    QString StateTitle()
    {
        return m_pDriver->Find<VxGUI::VxEmptyState>(QStringLiteral("wgtOnlineState"))->GetTitle();
    }
};

TEST_F(SearchPanel, RangeIsCheckedBeforeItIsKeptAndSearched)
{
    Open();
    const struct
    {
        const char* pszStart;
        const char* pszEnd;
        const char* pszNotice; ///< null: a hint under the field instead
    } cases[] = {
        {"10.0.0.1", "", "IP address must be all empty or not empty!"},
        {"192.168.1.10", "192.168.1.9", "Start ip can not be larger than end ip!"},
        {"192.168.1", "192.168.1.9", nullptr},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.pszStart);
        m_listNotices.clear();
        Type("edtNetSectionStart", c.pszStart);
        Type("edtNetSectionEnd", c.pszEnd);
        Click("btnAutoSearch");
        EXPECT_EQ(LastNotice(), c.pszNotice ? c.pszNotice : "");
        EXPECT_EQ(m_pDriver->Find<VxGUI::VxLineEdit>(QStringLiteral("edtNetSectionStart"))->GetErrorHint(),
            c.pszNotice ? QString() : QStringLiteral("Please enter correct IP address."));
    }
    EXPECT_EQ(Searches(), 0);
    EXPECT_EQ(m_host.config.mapValues[QStringLiteral("AutoSearchIP/StartIP")], QStringLiteral("10.0.0.1"));

    Type("edtNetSectionStart", "10.0.0.");
    m_pDriver->Key(QStringLiteral("edtNetSectionStart"), Qt::Key_0);
    EXPECT_EQ(m_pDriver->Find<VxGUI::VxLineEdit>(QStringLiteral("edtNetSectionStart"))->text(),
        QStringLiteral("10.0.0."))
        << "the last part is never 0";
    Type("edtNetSectionStart", "");
    Type("edtNetSectionEnd", "");
    m_pDriver->Key(QStringLiteral("edtNetSectionEnd"), Qt::Key_Return);
    ASSERT_EQ(Searches(), 1);
    const auto range = m_host.server.LastRequest<wire::SearchOnlineDevice>();
    EXPECT_EQ(range.sStartIp + range.sEndIp, "");
    Close();
    Open();
    EXPECT_TRUE(m_pDriver->Find<VxGUI::VxLineEdit>(QStringLiteral("edtNetSectionStart"))->text().isEmpty())
        << "an empty range is kept like any other";
}

TEST_F(SearchPanel, FirstRangeIsTheMachinesNetwork)
{
    m_host.config.mapValues.clear();
    Open();
    const QString sStart = m_pDriver->Find<VxGUI::VxLineEdit>(QStringLiteral("edtNetSectionStart"))->text();
    const QString sEnd = m_pDriver->Find<VxGUI::VxLineEdit>(QStringLiteral("edtNetSectionEnd"))->text();
    EXPECT_EQ(sStart.section(QLatin1Char('.'), 0, 2), sEnd.section(QLatin1Char('.'), 0, 2));
    EXPECT_TRUE(sEnd.endsWith(QStringLiteral(".255"))) << qPrintable(sEnd);
    Click("btnAutoSearch");
    EXPECT_EQ(Searches(), 1) << "what is proposed can be searched";
}

TEST_F(SearchPanel, RowsComeWhileItSearches)
{
    Open();
    m_pDriver->Screenshot(QStringLiteral("search-empty"));
    EXPECT_EQ(StateTitle(), QStringLiteral("Search the network for devices"));
    Click("btnAutoSearch");
    EXPECT_EQ(StateTitle(), QStringLiteral("Searching"));
    auto* pButton = m_pDriver->Find<QPushButton>(QStringLiteral("btnAutoSearch"));
    EXPECT_EQ(pButton->text(), QStringLiteral("Stop"));
    Report(LastSearch(), {MakeFound(10), MakeFound(9, RemoteConfigLogical::InitMissing)}, false);
    EXPECT_EQ(Table()->model()->rowCount(), 2);
    EXPECT_EQ(Cell("10.0.0.9", 0).row(), 0) << "by address, whatever the order they come in";
    EXPECT_EQ(CellText("10.0.0.9", OnlineColumnInit), "Uninitialized");
    Check("10.0.0.10");
    Found again = MakeFound(10);
    again.sModel = "M10 v2";
    Report(LastSearch(), {again, MakeFound(12, RemoteConfigLogical::InitUnknown)}, false);
    EXPECT_EQ(Table()->model()->rowCount(), 3) << "a device that is told twice is one row";
    EXPECT_EQ(CellText("10.0.0.10", OnlineColumnModel), "M10 v2");
    EXPECT_TRUE(IsChecked("10.0.0.10"));
    EXPECT_EQ(CellText("10.0.0.12", OnlineColumnInit), "Unknown");
    Report(LastSearch(), {}, true);
    EXPECT_EQ(pButton->text(), QStringLiteral("Auto Search"));
    EXPECT_EQ(
        m_pDriver->Find<QLabel>(QStringLiteral("lbOnlineStatus"))->text(), QStringLiteral("3 devices found"));
}

TEST_F(SearchPanel, StopEndsTheSearchAndStillTakesWhatIsOnItsWay)
{
    Open();
    Click("btnAutoSearch");
    const FakeCall first = LastSearch();
    Report(first, {MakeFound(10)}, false);
    Click("btnAutoSearch");
    EXPECT_EQ(m_host.server.LastRequest<wire::CancelJob>().sJob, FakeServer::JobOf(first));
    Report(first, {MakeFound(11)}, true, UICommonMdl::ErrorCancelled);
    EXPECT_EQ(Table()->model()->rowCount(), 2);
    EXPECT_TRUE(m_listNotices.isEmpty()) << "that it was stopped is no failure";

    Click("btnAutoSearch");
    Report(LastSearch(), {MakeFound(20)}, false);
    EXPECT_EQ(Table()->model()->rowCount(), 1) << "a new search begins with an empty list";
    Close();
    EXPECT_EQ(m_host.server.Count<wire::CancelJob>(), 2) << "closing stops the search";
    Report(LastSearch(), {MakeFound(21)}, true);
}

TEST_F(SearchPanel, ASearchIsStoppedAlsoBeforeTheServerHasNamedIt)
{
    Open();
    m_host.server.Hold<wire::SearchOnlineDevice>();
    Click("btnAutoSearch");
    Click("btnAutoSearch");
    EXPECT_EQ(m_host.server.Count<wire::CancelJob>(), 0) << "nobody knows yet what to cancel";
    m_host.server.AnswerLast<wire::SearchOnlineDevice>({"job-7"});
    EXPECT_EQ(m_host.server.LastRequest<wire::CancelJob>().sJob, "job-7");
    m_host.server.ReportJob("job-7", MakeReport(FoundVec(), true, UICommonMdl::ErrorCancelled));
    PageDriver::Settle();
    EXPECT_TRUE(m_listNotices.isEmpty());
}

TEST_F(SearchPanel, FailuresAndNothingFoundLookDifferent)
{
    Open();
    Click("btnAutoSearch");
    Report(LastSearch(), {}, true);
    EXPECT_EQ(StateTitle(), QStringLiteral("No device found"));
    Click("btnAutoSearch");
    Report(LastSearch(), {}, true, UICommonMdl::ErrorDisconnected);
    EXPECT_EQ(StateTitle(), QStringLiteral("Failed to search device"));
    EXPECT_EQ(LastNotice(), "Failed to search device: The server cannot be reached.");
    m_host.server.Refuse<wire::SearchOnlineDevice>();
    Click("btnStateAction");
    EXPECT_EQ(LastNotice(), "Failed to search device: The request could not be sent to the server.");
    EXPECT_EQ(
        m_pDriver->Find<QPushButton>(QStringLiteral("btnAutoSearch"))->text(), QStringLiteral("Auto Search"));
    m_pPanel->SetConnected(false);
    EXPECT_FALSE(m_pDriver->IsUsable(QStringLiteral("btnAutoSearch")));
    EXPECT_FALSE(m_pDriver->IsUsable(QStringLiteral("edtNetSectionStart")));
    m_pPanel->SetConnected(true);
    EXPECT_TRUE(m_pDriver->IsUsable(QStringLiteral("btnAutoSearch")));
}

TEST_F(SearchPanel, ResultsBeforeThePanelIsShownAreDropped)
{
    Make();
    m_pPanel->findChild<QPushButton*>(QStringLiteral("btnAutoSearch"))->click();
    Report(LastSearch(), {MakeFound(10)}, true);
    EXPECT_EQ(m_pPanel->findChild<QTreeView*>()->model()->rowCount(), 0);
}

TEST_F(SearchPanel, ManagedDevicesCannotBeChecked)
{
    OpenAndFind();
    m_pDriver->Screenshot(QStringLiteral("search-found"));
    EXPECT_EQ(CellText("10.0.0.11", OnlineColumnOperation), "Managed");
    Check("10.0.0.11");
    EXPECT_FALSE(IsChecked("10.0.0.11"));
    Click("chkAllOnline");
    EXPECT_FALSE(IsChecked("10.0.0.11"));
    EXPECT_TRUE(IsChecked("10.0.0.9"));
    EXPECT_TRUE(IsChecked("10.0.0.12"));
    Click("chkAllOnline");
    EXPECT_FALSE(IsChecked("10.0.0.9"));
    Table()->setFocus();
    for (const char* pszAddress : {"10.0.0.9", "10.0.0.11"}) {
        Table()->setCurrentIndex(Cell(pszAddress, OnlineColumnAddress));
        m_pDriver->Key(QStringLiteral("tabViewOnlineDev"), Qt::Key_Space);
    }
    EXPECT_TRUE(IsChecked("10.0.0.9")) << "by keys too";
    EXPECT_FALSE(IsChecked("10.0.0.11"));
}

TEST_F(SearchPanel, NothingCheckedIsSaid)
{
    OpenAndFind();
    const std::pair<const char*, const char*> cases[] = {{"btnAddToManagement", "No device selected."},
        {"btnModifyIp", "No device selected."}, {"btnInitialize", "No uninitialized device selected!"}};
    for (const auto& [pszButton, pszNotice] : cases) {
        m_listNotices.clear();
        Click(pszButton);
        EXPECT_EQ(LastNotice(), pszNotice);
    }
    EXPECT_FALSE(FindDialog<QDialog>());
}

TEST_F(SearchPanel, EditedAddressAsksForItsChange)
{
    OpenAndFind();
    const QModelIndex index = Cell("10.0.0.10", OnlineColumnAddress);
    Table()->setCurrentIndex(index);
    Table()->edit(index);
    auto* pEdit = Table()->findChild<QLineEdit*>(QStringLiteral("edtOnlineAddress"));
    ASSERT_TRUE(pEdit);
    pEdit->selectAll();
    QTest::keyClicks(pEdit, QStringLiteral("10.0.0.x300"));
    EXPECT_EQ(pEdit->text(), QStringLiteral("10.0.0.30")) << "IPv4 alone";
    QTest::keyClick(pEdit, Qt::Key_Return);
    PageDriver::Settle();
    auto* pDialog = FindDialog<CModifyIP>();
    ASSERT_TRUE(pDialog);
    EXPECT_EQ(CellText("10.0.0.10", OnlineColumnAddress), "10.0.0.10") << "the device has not moved yet";
    EXPECT_EQ(pDialog->findChild<VxGUI::VxLineEdit*>(QStringLiteral("editNewIp"))->text(),
        QStringLiteral("10.0.0.30"));
    pDialog->reject();
}

TEST_F(SearchPanel, ThousandRowsInTheirReports)
{
    Open();
    Click("btnAutoSearch");
    int nInserts = 0;
    QObject::connect(m_pPanel->findChild<COnlineDeviceModel*>(), &QAbstractItemModel::rowsInserted,
        m_pPanel.get(), [&nInserts] { ++nInserts; });
    for (int nReport = 0; nReport < 4; ++nReport) {
        FoundVec vecFound;
        for (int n = 0; n < 256; ++n) {
            vecFound.push_back(MakeFound(n));
            vecFound.back().nPort = 1000 + nReport;
        }
        Report(LastSearch(), vecFound, nReport == 3);
    }
    EXPECT_EQ(Table()->model()->rowCount(), 1024);
    EXPECT_EQ(nInserts, 4) << "one notice a report, not one a row";
}

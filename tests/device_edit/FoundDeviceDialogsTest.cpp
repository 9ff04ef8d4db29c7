#include "SearchPanelFixture.h"

#include <ResourceManagerUI/Discovery/CBatchAddDiscoverDeviceDlg.h>
#include <ResourceManagerUI/Discovery/CDeviceInitialize.h>
#include <ResourceManagerUI/Discovery/CModifyIP.h>
#include <VxGUI/VxNotification.h>

#include <QComboBox>

using namespace ResourceManagerUI;

class FoundDeviceDialogs : public SearchPanelFixture
{
protected:
    using Request = GroupLogical::ImportRequest_t;

    /// The dialog that stands open, driven like a page.
    template <class Dialog>
    std::unique_ptr<PageDriver> Drive()
    {
        auto* pDialog = FindDialog<Dialog>();
        EXPECT_TRUE(pDialog);
        return pDialog ? std::make_unique<PageDriver>(*pDialog, pDialog->size()) : nullptr;
    }
    static std::string Text(PageDriver& driver, const char* pszTable, int nRow, int nColumn)
    {
        const auto* pTable = driver.Find<QTreeView>(QLatin1String(pszTable));
        return pTable->model()->index(nRow, nColumn).data().toString().toStdString();
    }
    static std::string Hint(PageDriver& driver, const char* pszField)
    {
        return driver.Find<VxGUI::VxLineEdit>(QLatin1String(pszField))->GetErrorHint().toStdString();
    }
    void ReportImport(const GroupLogical::ImportState_t& state, bool bFinal, int nErrorCode = 0)
    {
        m_host.server.ReportLast<wire::BeginImport>(MakeImportReport(state, bFinal, nErrorCode));
        PageDriver::Settle();
    }
    static GroupLogical::ImportState_t Failed(int nLine, int nErrorCode)
    {
        GroupLogical::ImportState_t state;
        GroupLogical::ImportFailure_t failure;
        failure.nLine = nLine;
        failure.nErrorCode = nErrorCode;
        state.vecFailed.push_back(failure);
        return state;
    }
};

TEST_F(FoundDeviceDialogs, AddingWithAFailingRowThatIsCorrected)
{
    OpenAndFind();
    Check("10.0.0.10");
    Check("10.0.0.12");
    Click("btnAddToManagement");
    const auto pDialog = Drive<CBatchAddDiscoverDeviceDlg>();
    ASSERT_TRUE(pDialog);
    EXPECT_EQ(Text(*pDialog, "tableBatch", 0, 0), "Gate");
    EXPECT_EQ(Text(*pDialog, "tableBatch", 1, 0), "M12 10.0.0.12");
    EXPECT_EQ(pDialog->Find<QComboBox>(QStringLiteral("cmbBatchOrg"))->currentText().trimmed(),
        QStringLiteral("South"));
    pDialog->Click(QStringLiteral("btnBatchAdd"));
    EXPECT_EQ(Hint(*pDialog, "editBatchPassword"), "Please enter password.");
    EXPECT_EQ(m_host.server.Count<wire::BeginImport>(), 0);
    pDialog->Type(QStringLiteral("editBatchPassword"), QStringLiteral("Field-2024"));
    pDialog->Click(QStringLiteral("btnBatchAdd"));
    const auto request = m_host.server.LastImport();
    ASSERT_EQ(request.vecRows.size(), 2U);
    EXPECT_EQ(request.sSource, "discovery");
    EXPECT_EQ(request.sOrgCode, "001002");
    EXPECT_EQ(request.vecRows[1].nLine, 2);
    EXPECT_EQ(request.vecRows[1].sAddress, "10.0.0.12");
    EXPECT_EQ(request.vecRows[1].sPassword, "Field-2024");
    EXPECT_EQ(CellText("10.0.0.10", OnlineColumnOperation), "Adding");
    EXPECT_FALSE(pDialog->IsUsable(QStringLiteral("btnBatchAdd")));

    ReportImport(Failed(2, UICommonMdl::ErrorNameExists), false);
    EXPECT_EQ(Text(*pDialog, "tableBatch", 1, 4), "The name exists already.");
    EXPECT_EQ(Text(*pDialog, "tableBatch", 0, 4), "In progress");
    ReportImport({}, true);
    EXPECT_EQ(Text(*pDialog, "tableBatch", 0, 4), "Added");
    EXPECT_EQ(CellText("10.0.0.10", OnlineColumnOperation), "Managed");
    EXPECT_EQ(CellText("10.0.0.12", OnlineColumnOperation), "");
    EXPECT_EQ(m_nAdded, 1);
    pDialog->Screenshot(QStringLiteral("search-batch-add"));

    auto* pTable = pDialog->Find<QTreeView>(QStringLiteral("tableBatch"));
    const auto rename = [&](const char* pszName) {
        pTable->edit(pTable->model()->index(1, 0));
        auto* pEdit = pTable->viewport()->findChild<QLineEdit*>();
        ASSERT_TRUE(pEdit);
        pEdit->selectAll();
        QTest::keyClicks(pEdit, QLatin1String(pszName));
        QTest::keyClick(pEdit, Qt::Key_Return);
        PageDriver::Settle();
    };
    rename("gate");
    pDialog->Click(QStringLiteral("btnBatchAdd"));
    EXPECT_EQ(Text(*pDialog, "tableBatch", 1, 4), "Another device of the list has this name.");
    EXPECT_EQ(m_host.server.Count<wire::BeginImport>(), 1);
    rename("Hall");
    pDialog->Click(QStringLiteral("btnBatchAdd"));
    const auto again = m_host.server.LastImport();
    ASSERT_EQ(again.vecRows.size(), 1U) << "only what is not added yet";
    EXPECT_EQ(again.vecRows[0].sName, "Hall");
    EXPECT_EQ(again.vecRows[0].nLine, 2);
    ReportImport({}, true);
    EXPECT_EQ(CellText("10.0.0.12", OnlineColumnOperation), "Managed");
    EXPECT_FALSE(pDialog->IsUsable(QStringLiteral("btnBatchAdd"))) << "nothing is left to add";
    FindDialog<CBatchAddDiscoverDeviceDlg>()->reject();
}

TEST_F(FoundDeviceDialogs, ClosingWhileItAddsAsksAndTheRowsStillTurn)
{
    OpenAndFind();
    ClickOperation("10.0.0.10", OperationAdd);
    auto pDialog = Drive<CBatchAddDiscoverDeviceDlg>();
    ASSERT_TRUE(pDialog);
    pDialog->Type(QStringLiteral("editBatchPassword"), QStringLiteral("Field-2024"));
    pDialog->Click(QStringLiteral("btnBatchAdd"));
    m_dialogs.AnswerNext(false);
    pDialog->Click(QStringLiteral("btnBatchClose"));
    EXPECT_TRUE(FindDialog<CBatchAddDiscoverDeviceDlg>()->isVisible());
    m_dialogs.AnswerNext(true);
    FindDialog<CBatchAddDiscoverDeviceDlg>()->close();
    pDialog.reset();
    PageDriver::Settle();
    ASSERT_TRUE(FindDialog<CBatchAddDiscoverDeviceDlg>()) << "out of sight, but still at it";
    EXPECT_FALSE(FindDialog<CBatchAddDiscoverDeviceDlg>()->isVisible());
    EXPECT_EQ(CellText("10.0.0.10", OnlineColumnOperation), "Adding");
    ReportImport({}, true);
    EXPECT_EQ(CellText("10.0.0.10", OnlineColumnOperation), "Managed");
    EXPECT_EQ(m_nAdded, 1);
    EXPECT_FALSE(FindDialog<CBatchAddDiscoverDeviceDlg>());
}

TEST_F(FoundDeviceDialogs, AddingThatFailsAsAWholeLeavesTheRowsNew)
{
    OpenAndFind();
    ClickOperation("10.0.0.10", OperationAdd);
    const auto pDialog = Drive<CBatchAddDiscoverDeviceDlg>();
    ASSERT_TRUE(pDialog);
    pDialog->Type(QStringLiteral("editBatchPassword"), QStringLiteral("Field-2024"));
    pDialog->Click(QStringLiteral("btnBatchAdd"));
    ReportImport({}, true, UICommonMdl::ErrorNoRight);
    EXPECT_EQ(Text(*pDialog, "tableBatch", 0, 4), "You do not have the right to do this.");
    EXPECT_EQ(CellText("10.0.0.10", OnlineColumnOperation), "");
    EXPECT_EQ(m_nAdded, 0);
    m_host.server.Refuse<wire::BeginImport>();
    pDialog->Click(QStringLiteral("btnBatchAdd"));
    EXPECT_EQ(Text(*pDialog, "tableBatch", 0, 4), "The request could not be sent to the server.");
    EXPECT_TRUE(pDialog->IsUsable(QStringLiteral("btnBatchAdd")));
    FindDialog<CBatchAddDiscoverDeviceDlg>()->reject();
}

TEST_F(FoundDeviceDialogs, InitialisesTheUninitialisedOnly)
{
    OpenAndFind();
    Check("10.0.0.10");
    Check("10.0.0.12");
    Click("btnInitialize");
    EXPECT_EQ(LastNotice(), "The device Gate has been Initialized!");
    EXPECT_FALSE(FindDialog<CDeviceInitialize>()) << "neither that one nor the unknown one takes part";
    Check("10.0.0.9");
    Click("btnInitialize");
    const auto pDialog = Drive<CDeviceInitialize>();
    ASSERT_TRUE(pDialog);
    const struct
    {
        const char* pszField;
        const char* pszText;
        const char* pszHinted;
        const char* pszHint;
    } steps[] = {
        {"editInitPassword", "abc", "editInitPassword", "The password must have 8 to 16 characters."},
        {"editInitPassword", "Field-2024", "editInitConfirm", "The two passwords are not the same."},
        {"editInitConfirm", "Field-2024", "editInitContact", ""},
        {"editInitContact", "nobody", "editInitContact", "Please enter a correct email address."},
    };
    for (const auto& step : steps) {
        pDialog->Type(QLatin1String(step.pszField), QLatin1String(step.pszText));
        if (*step.pszHint == 0)
            continue;
        pDialog->Click(QStringLiteral("btnInitOk"));
        EXPECT_EQ(Hint(*pDialog, step.pszHinted), step.pszHint);
    }
    EXPECT_EQ(pDialog->Find<QLabel>(QStringLiteral("lbStrength"))->text(), QStringLiteral("Strong"));
    EXPECT_EQ(m_host.server.Count<wire::InitializeDevice>(), 0);
    pDialog->Type(QStringLiteral("editInitContact"), QStringLiteral("ops@example.org"));
    pDialog->Screenshot(QStringLiteral("search-initialize"));
    pDialog->Click(QStringLiteral("btnInitOk"));
    const auto [vecSent, sPassword, sContact] = m_host.server.LastRequest<wire::InitializeDevice>();
    ASSERT_EQ(vecSent.size(), 1U);
    EXPECT_EQ(vecSent[0].sIp, "10.0.0.9");
    EXPECT_EQ(vecSent[0].sProtocol, "Private");
    EXPECT_EQ(sPassword, "Field-2024");
    EXPECT_EQ(sContact, "ops@example.org");
    ReportResults<wire::InitializeDevice>(
        {{"10.0.0.9:37777", "", UICommonMdl::ErrorDeviceRefused, "busy"}}, true);
    EXPECT_EQ(Text(*pDialog, "tableInit", 0, 2), "The device refused the change. (busy)");
    EXPECT_EQ(CellText("10.0.0.9", OnlineColumnInit), "Uninitialized");
    pDialog->Click(QStringLiteral("btnInitOk"));
    ReportResults<wire::InitializeDevice>({{"10.0.0.9:37777", "", 0, ""}}, true);
    EXPECT_EQ(CellText("10.0.0.9", OnlineColumnInit), "Initialized");
    FindDialog<CDeviceInitialize>()->reject();
}

TEST_F(FoundDeviceDialogs, AddressesAreCountedUpAndFailedOnesTriedAgain)
{
    OpenAndFind();
    for (const char* pszAddress : {"10.0.0.9", "10.0.0.10", "10.0.0.12"})
        Check(pszAddress);
    Click("btnModifyIp");
    auto pDialog = Drive<CModifyIP>();
    ASSERT_TRUE(pDialog);
    pDialog->Type(QStringLiteral("editModifyPassword"), QStringLiteral("Field-2024"));
    pDialog->Type(QStringLiteral("editNewIp"), QStringLiteral("10.0.0.11"));
    pDialog->Click(QStringLiteral("btnModifyOk"));
    EXPECT_EQ(Hint(*pDialog, "editNewIp"), "The address 10.0.0.11 is used by another device.");
    pDialog->Type(QStringLiteral("editNewIp"), QStringLiteral("10.0.0.50"));
    EXPECT_EQ(Text(*pDialog, "tableModify", 2, 2), "10.0.0.52");
    pDialog->Type(QStringLiteral("editNewGateway"), QStringLiteral("10.0.0.1"));
    pDialog->Screenshot(QStringLiteral("search-modify-ip"));
    pDialog->Click(QStringLiteral("btnModifyOk"));
    const auto vecSent = m_host.server.LastRequest<wire::ModifyAddress>().vecDevices;
    ASSERT_EQ(vecSent.size(), 3U);
    EXPECT_EQ(vecSent[1].sNewIp, "10.0.0.51");
    EXPECT_EQ(vecSent[1].sMask, "255.255.255.0");
    EXPECT_EQ(vecSent[1].sGateway, "10.0.0.1");
    EXPECT_EQ(vecSent[1].sUserName, "admin");
    ReportResults<wire::ModifyAddress>({{"10.0.0.10:37777", "", 0, ""}}, false);
    EXPECT_EQ(CellText("10.0.0.51", OnlineColumnModel), "M10") << "live, the row has moved";
    ReportResults<wire::ModifyAddress>(
        {{"10.0.0.9:37777", "", UICommonMdl::ErrorDevicePassword, ""}}, true, UICommonMdl::ErrorTimeOut);
    EXPECT_EQ(Text(*pDialog, "tableModify", 0, 3), "The device does not accept the user name and password.");
    EXPECT_EQ(Text(*pDialog, "tableModify", 2, 3), "The server did not answer in time.");
    pDialog->Click(QStringLiteral("btnModifyOk"));
    const auto vecAgain = m_host.server.LastRequest<wire::ModifyAddress>().vecDevices;
    ASSERT_EQ(vecAgain.size(), 2U);
    EXPECT_EQ(vecAgain[0].sNewIp, "10.0.0.50") << "each keeps its place";
    EXPECT_EQ(vecAgain[1].sNewIp, "10.0.0.52");
    pDialog.reset();
    m_dialogs.AnswerNext(true);
    FindDialog<CModifyIP>()->reject();
    Close();
    ReportResults<wire::ModifyAddress>({{"10.0.0.9:37777", "", 0, ""}}, true);
}

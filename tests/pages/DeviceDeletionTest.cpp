#include "DevicePageFixture.h"

#include <ResourceManagerUI/CBatchDeleteDeviceDlg.h>
#include <UICommonMdl/ErrorCodes.h>
#include <common/CRowButtonDelegate.h>

#include <QLabel>

using namespace ResourceManagerUI;

class DeviceDeletion : public DevicePageFixture
{
protected:
    void DeleteChecked(int nRows)
    {
        Open();
        CheckRows(nRows);
        m_dialogs.AnswerNext(true);
        m_pDriver->Click(QStringLiteral("btnDelete"));
    }
    /// Answers the last delete request with those failures.
    void AnswerLast(std::vector<GroupLogical::FailedItem_t> vecFailed = {})
    {
        m_host.server.AnswerLast<wire::DeleteDevice>({std::move(vecFailed)});
        PageDriver::Settle();
    }
    QString Label(const char* pszName)
    {
        return FindDialog<CBatchDeleteDeviceDlg>()->findChild<QLabel*>(QString::fromLatin1(pszName))->text();
    }
    QTreeView* Failures() { return FindDialog<CBatchDeleteDeviceDlg>()->findChild<QTreeView*>(); }
};

TEST_F(DeviceDeletion, QuestionCountsTheDevices)
{
    const std::pair<int, const char*> cases[] = {{1, "Prompt: Are you sure to delete the device?"},
        {2, "Prompt: Are you sure to delete these devices?"}};
    for (const auto& [nRows, pszText] : cases) {
        Open();
        CheckRows(nRows);
        m_dialogs.AnswerNext(false);
        m_pDriver->Click(QStringLiteral("btnDelete"));
        EXPECT_EQ(m_dialogs.Shown().last().toStdString(), pszText);
        EXPECT_FALSE(FindDialog<CBatchDeleteDeviceDlg>()) << "only OK goes on";
        Close();
    }
    EXPECT_EQ(m_host.server.Count<wire::DeleteDevice>(), 0);
}

TEST_F(DeviceDeletion, NamesAndDeletesWhatIsCheckedOnTwoPagesAndForgetsWhatIsGone)
{
    CheckOnTwoPages();
    m_dialogs.AnswerNext(true);
    m_pDriver->Click(QStringLiteral("btnDelete"));
    EXPECT_EQ(m_dialogs.LastText(), QStringLiteral("Are you sure to delete these devices?"));
    EXPECT_EQ(m_dialogs.LastDetails(), QStringLiteral("Door 1\nCamera 1\nCamera 2"));
    EXPECT_EQ(m_host.server.LastRequest<wire::DeleteDevice>().vecDeviceIds, (Ids{"2001", "1001", "1002"}));
    AnswerLast({{"1001", "Camera 1", UICommonMdl::ErrorDeviceUpdating, {}},
        {"1002", {}, UICommonMdl::ErrorNotFound, {}}});
    EXPECT_EQ(Model()->GetCheckedIds(), QStringList{QStringLiteral("1001")})
        << "what is still there stays checked";
    FindDialog<CBatchDeleteDeviceDlg>()->reject();
}

TEST_F(DeviceDeletion, TwelveDevicesGoInThreeBatchesOneAfterTheOther)
{
    DeleteChecked(12);
    EXPECT_EQ(m_host.server.Count<wire::DeleteDevice>(), 1);
    EXPECT_EQ(Label("lbProgress"), QStringLiteral("0% 0/12"));
    std::vector<std::size_t> vecSizes;
    for (int nBatch = 1; nBatch <= 3; ++nBatch) {
        ASSERT_EQ(m_host.server.Count<wire::DeleteDevice>(), nBatch);
        const auto deleted = m_host.server.LastRequest<wire::DeleteDevice>();
        vecSizes.push_back(deleted.vecDeviceIds.size());
        EXPECT_EQ(deleted.nMode, GroupLogical::DeleteNormal);
        AnswerLast();
    }
    EXPECT_EQ(vecSizes, (std::vector<std::size_t>{5, 5, 2}));
    EXPECT_EQ(Label("lbProgress"), QStringLiteral("100% 12/12"));
    EXPECT_EQ(Label("lbResult"), QStringLiteral("Delete device complete!"));
    const int nQueries = m_host.server.Count<wire::QueryDevicePage>();
    FindDialog<CBatchDeleteDeviceDlg>()->reject();
    EXPECT_EQ(m_host.server.Count<wire::QueryDevicePage>(), nQueries + 1);
}

TEST_F(DeviceDeletion, RefusedDevicesAreListedAndCanBeForced)
{
    DeleteChecked(2);
    AnswerLast({{"1001", "Camera 1", UICommonMdl::ErrorDeviceUsedByRecordPlan, {}},
        {"1002", "Camera 2", UICommonMdl::ErrorDeviceUpdating, {}}});
    EXPECT_EQ(Label("lbResult"),
        QStringLiteral("Failed to delete device\nCamera 1 Used by record plan, you cannot delete!"));
    QTreeView* pFailures = Failures();
    ASSERT_EQ(pFailures->model()->rowCount(), 2);
    EXPECT_EQ(pFailures->model()->index(1, 1).data().toString(),
        QStringLiteral("The platform is updating device. Please delete later."));

    pFailures->setCurrentIndex(pFailures->model()->index(0, 0));
    EXPECT_EQ(m_host.server.LastRequest<wire::QueryDeviceReferences>().sDeviceId, "1001");

    const QModelIndex operation = pFailures->model()->index(0, 2);
    auto* pButtons = qobject_cast<Common::CRowButtonDelegate*>(pFailures->itemDelegateForColumn(2));
    const QPoint place =
        pButtons->GetButtonRect(pFailures->visualRect(operation), pFailures->fontMetrics(), 0).center();
    m_dialogs.AnswerNext(false);
    QTest::mouseClick(pFailures->viewport(), Qt::LeftButton, {}, place);
    EXPECT_EQ(m_host.server.Count<wire::DeleteDevice>(), 1) << "only OK goes on";
    m_dialogs.AnswerNext(true);
    QTest::mouseClick(pFailures->viewport(), Qt::LeftButton, {}, place);
    const auto forced = m_host.server.LastRequest<wire::DeleteDevice>();
    EXPECT_EQ(forced.vecDeviceIds, Ids{"1001"});
    EXPECT_EQ(forced.nMode, GroupLogical::DeleteForced);
    AnswerLast();
    EXPECT_EQ(pFailures->model()->rowCount(), 1);
}

TEST_F(DeviceDeletion, ServerGoneInTheMiddleFailsTheRest)
{
    DeleteChecked(12);
    AnswerLast();
    m_host.server.Refuse<wire::DeleteDevice>();
    m_host.server.FailLast<wire::DeleteDevice>(UICommonMdl::ErrorDisconnected);
    PageDriver::Settle();
    EXPECT_EQ(Failures()->model()->rowCount(), 7);
    EXPECT_EQ(Label("lbProgress"), QStringLiteral("100% 12/12"));
    EXPECT_TRUE(Label("lbResult").startsWith(QStringLiteral("Failed to delete device")));
}

TEST_F(DeviceDeletion, ClosingWhileItDeletesAsksAndStopsTheRest)
{
    DeleteChecked(12);
    auto* pDialog = FindDialog<CBatchDeleteDeviceDlg>();
    m_dialogs.AnswerNext(false);
    pDialog->reject();
    EXPECT_TRUE(pDialog->isVisible());
    EXPECT_EQ(m_dialogs.LastText(), QStringLiteral("Deleting device. Are you sure to close it?"));
    const int nQueries = m_host.server.Count<wire::QueryDevicePage>();
    m_dialogs.AnswerNext(true);
    pDialog->reject();
    AnswerLast();
    EXPECT_EQ(m_host.server.Count<wire::DeleteDevice>(), 1);
    EXPECT_EQ(m_host.server.Count<wire::QueryDevicePage>(), nQueries + 1);
}

TEST_F(DeviceDeletion, RowButtonDeletesThatOneDevice)
{
    Open();
    const QModelIndex operation = Model()->index(3, ColumnOperation);
    auto* pButtons = m_pPage->findChild<Common::CRowButtonDelegate*>(QStringLiteral("rowButtons"));
    const QPoint place =
        pButtons->GetButtonRect(Table()->visualRect(operation), Table()->fontMetrics(), 3).center();
    m_dialogs.AnswerNext(true);
    m_pDriver->ClickAt(Table(), place);
    EXPECT_EQ(m_host.server.LastRequest<wire::DeleteDevice>().vecDeviceIds, Ids{"1004"});
    AnswerLast();
}

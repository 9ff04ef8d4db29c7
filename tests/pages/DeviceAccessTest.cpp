#include "DevicePageFixture.h"

#include <ResourceManagerUI/CDeviceAccessDlg.h>
#include <UICommonMdl/ErrorCodes.h>
#include <VxGUI/VxEmptyState.h>
#include <tests/support/core/QtWarnings.h>

#include <QMenu>

using namespace ResourceManagerUI;

namespace {
// Without a display a pop-up can be shown, but neither raised nor given the keyboard.
const QString PopUpWarning = QStringLiteral("This plugin does not support");
const QString Action = QStringLiteral("Who Has Access");
} // namespace

class DeviceAccess : public DevicePageFixture
{
protected:
    void TearDown() override
    {
        m_pDialogDriver.reset();
        delete m_pDialog;
        DevicePageFixture::TearDown();
    }
    void OpenMenu()
    {
        const QModelIndex index = Model()->index(0, ColumnName);
        Q_EMIT Table()->customContextMenuRequested(Table()->visualRect(index).center());
    }
    void OpenDialog()
    {
        OpenMenu();
        Trigger(QStringLiteral("menuDevice"), Action);
        m_pDialog = FindDialog<CDeviceAccessDlg>();
        ASSERT_TRUE(m_pDialog);
        m_pDialogDriver = std::make_unique<PageDriver>(*m_pDialog, QSize(600, 460));
    }
    void Answer(int nErrorCode)
    {
        if (nErrorCode == UICommonMdl::ErrorNone)
            m_host.server.AnswerLast<wire::QueryDeviceAccess>({{{"alice", {"Guard", "Reception"}, true},
                {"bob", {"Guard"}, false}, {"system", {"Administrator"}, true}}});
        else
            m_host.server.FailLast<wire::QueryDeviceAccess>(nErrorCode);
        PageDriver::Settle();
    }
    QStringList Users()
    {
        const auto* pModel = m_pDialogDriver->Find<QTreeView>(QStringLiteral("treeAccess"))->model();
        QStringList listUsers;
        for (int nRow = 0; nRow < pModel->rowCount(); ++nRow)
            listUsers.append(pModel->index(nRow, 0).data().toString() + QLatin1Char('/')
                + pModel->index(nRow, 1).data().toString() + QLatin1Char('/')
                + pModel->index(nRow, 2).data().toString());
        return listUsers;
    }
    QString State()
    {
        return m_pDialogDriver->Find<VxGUI::VxEmptyState>(QStringLiteral("wgtAccessState"))->GetTitle();
    }

    QPointer<CDeviceAccessDlg> m_pDialog;
    std::unique_ptr<PageDriver> m_pDialogDriver;
};

TEST_F(DeviceAccess, ListsUsersWithTheirRolesAndFindsByBoth)
{
    const ExpectWarning popUp(PopUpWarning);
    Open();
    OpenDialog();
    EXPECT_EQ(
        m_host.server.LastRequest<wire::QueryDeviceAccess>().sDeviceId, Model()->GetId(0).toStdString());
    EXPECT_EQ(State(), QStringLiteral("Loading users"));
    Answer(UICommonMdl::ErrorNone);
    EXPECT_EQ(Users(),
        (QStringList{QStringLiteral("alice/Guard, Reception/All channels"),
            QStringLiteral("bob/Guard/Some channels"), QStringLiteral("system/Administrator/All channels")}));
    m_pDialogDriver->Screenshot(QStringLiteral("device-access"));
    const std::pair<const char*, int> searches[] = {{"GUARD", 2}, {"bob", 1}, {"nobody", 0}, {"", 3}};
    for (const auto& [szText, nUsers] : searches) {
        m_pDialogDriver->Type(QStringLiteral("edtSearchUser"), QLatin1String(szText));
        EXPECT_EQ(Users().size(), nUsers) << szText;
        EXPECT_EQ(m_pDialogDriver->IsShown(QStringLiteral("treeAccess")), nUsers > 0) << szText;
    }
}

TEST_F(DeviceAccess, FailuresAreShownAndCanBeTriedAgain)
{
    const ExpectWarning popUp(PopUpWarning);
    Open();
    OpenDialog();
    Answer(UICommonMdl::ErrorTimeOut);
    EXPECT_EQ(State(), QStringLiteral("Failed to get who has access"));
    Q_EMIT m_pDialogDriver->Find<VxGUI::VxEmptyState>(QStringLiteral("wgtAccessState"))->SignalAction();
    EXPECT_EQ(State(), QStringLiteral("Loading users"));
    Answer(UICommonMdl::ErrorNoRight);
    EXPECT_EQ(State(), QStringLiteral("You have no permission to see who has access."));

    m_host.PushConnected(false);
    PageDriver::Settle();
    EXPECT_TRUE(m_pDialogDriver->IsShown(QStringLiteral("lbConnection")));
    m_host.PushConnected(true);
    PageDriver::Settle();
    m_host.server.AnswerLast<wire::QueryDeviceAccess>();
    PageDriver::Settle();
    EXPECT_EQ(State(), QStringLiteral("No user has access to this device."));
    EXPECT_EQ(m_host.server.Count<wire::QueryDeviceAccess>(), 3);
}

TEST_F(DeviceAccess, IsOfferedToWhoSeesUsersOnly)
{
    const ExpectWarning popUp(PopUpWarning);
    for (const bool bMay : {true, false}) {
        if (!bMay)
            m_host.SetMissingRights({"001002"});
        Open();
        OpenMenu();
        auto* const pMenu = m_pPage->findChild<QMenu*>(QStringLiteral("menuDevice"));
        ASSERT_TRUE(pMenu);
        const auto listActions = pMenu->actions();
        EXPECT_EQ(std::any_of(listActions.begin(), listActions.end(),
                      [](const QAction* pAction) { return pAction->text() == Action; }),
            bMay);
        pMenu->close();
        const QModelIndex index = Model()->index(1, ColumnName);
        m_pDriver->ClickIndex(Table(), index);
        QTest::mouseDClick(Table()->viewport(), Qt::LeftButton, {}, Table()->visualRect(index).center());
        EXPECT_EQ(m_pDriver->IsUsable(QStringLiteral("btnAccess")), bMay);
        if (bMay) {
            m_pDriver->Click(QStringLiteral("btnAccess"));
            EXPECT_EQ(m_host.server.LastRequest<wire::QueryDeviceAccess>().sDeviceId,
                Model()->GetId(1).toStdString());
            m_pDriver->Screenshot(QStringLiteral("device-details"));
            delete FindDialog<CDeviceAccessDlg>();
        }
        Close();
    }
}

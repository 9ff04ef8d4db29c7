#include "LiveClient.h"

#include <ResourceManagerUI/CDeviceManagerCtrl.h>
#include <ResourceManagerUI/COrganizationTreeCtrl.h>
#include <UICommonMdl/CErrorCode.h>
#include <VxGUI/VxLineEdit.h>

#include <QApplication>
#include <QClipboard>
#include <QLineEdit>

using TestSupport::TestServer;
using TestSupport::TestServerOptions;

namespace {

class LiveOrganizations : public testing::Test
{
protected:
    LiveOrganizations()
        : m_server([] {
            TestServerOptions options;
            options.bSeedDemo = true;
            return options;
        }())
        , m_client(m_server)
    {
        m_client.OpenPage();
        m_sName = m_server
                      .QuerySql(QStringLiteral(
                          "SELECT name FROM organization WHERE parent_code <> '' GROUP BY name "
                          "HAVING COUNT(*) = 1 ORDER BY name LIMIT 1"))
                      .toString();
    }

    static void Rename(LiveClient& client, const QString& sNewName)
    {
        client.Driver().Type(QStringLiteral("editName"), sNewName);
        client.Driver().Click(QStringLiteral("btnOk"));
        client.WaitIdle();
    }

    static void OpenEditor(LiveClient& client, const QString& sName)
    {
        client.SelectOrganization(sName);
        client.Driver().Click(QStringLiteral("btnEditOrg"));
    }

    bool Exists(const QString& sName)
    {
        return m_server
                   .QuerySql(QStringLiteral("SELECT COUNT(*) FROM organization WHERE name = '%1'").arg(sName))
                   .toInt()
            == 1;
    }

    RecordingDialogService m_dialogs;
    TestServer m_server;
    LiveClient m_client;
    QString m_sName;
};

} // namespace

TEST_F(LiveOrganizations, AddedRenamedAndDeletedOnTheServer)
{
    m_client.SelectOrganization(m_sName);
    m_client.Driver().Click(QStringLiteral("btnAddOrg"));
    Rename(m_client, QStringLiteral("Annex"));
    ASSERT_TRUE(Exists(QStringLiteral("Annex")));
    OpenEditor(m_client, QStringLiteral("Annex"));
    Rename(m_client, QStringLiteral("Annex East"));
    EXPECT_TRUE(Exists(QStringLiteral("Annex East")));

    m_server.Restart();
    m_client.WaitReconnected();
    m_client.SelectOrganization(QStringLiteral("Annex East"));
    m_dialogs.AnswerNext(true);
    m_client.Driver().Click(QStringLiteral("btnDeleteOrg"));
    m_client.WaitIdle();
    EXPECT_EQ(m_dialogs.LastText(), QStringLiteral("Are you sure to delete organization?"));
    EXPECT_FALSE(Exists(QStringLiteral("Annex East")));
}

TEST_F(LiveOrganizations, ANameOfFiftyPicturesIsSavedLoadedAndSavedAgain)
{
    const QString sPictures = QString::fromUtf8("\U0001F6AA").repeated(GroupLogical::OrganizationName.nMax);
    const auto paste = [this](const char* pszField, const QString& sText) {
        auto* const pField = m_client.Driver().Find<VxGUI::VxLineEdit>(QLatin1String(pszField));
        QApplication::clipboard()->setText(sText);
        QTest::keyClick(pField->GetLineEdit(), Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(pField->GetLineEdit(), Qt::Key_V, Qt::ControlModifier);
    };
    m_client.SelectOrganization(m_sName);
    m_client.Driver().Click(QStringLiteral("btnAddOrg"));
    paste("editName", sPictures + sPictures);
    m_client.Driver().Click(QStringLiteral("btnOk"));
    m_client.WaitIdle();
    ASSERT_TRUE(Exists(sPictures));
    OpenEditor(m_client, sPictures);
    paste("editRemark", QStringLiteral("doors"));
    m_client.Driver().Click(QStringLiteral("btnOk"));
    m_client.WaitIdle();
    EXPECT_EQ(
        m_server.QuerySql(QStringLiteral("SELECT name FROM organization WHERE remark = 'doors'")).toString(),
        sPictures);
}

TEST_F(LiveOrganizations, TheSecondOfTwoEditorsIsToldAndKeepsItsInput)
{
    LiveClient other(m_server);
    other.OpenPage();
    OpenEditor(m_client, m_sName);
    OpenEditor(other, m_sName);
    Rename(other, QStringLiteral("First Come"));
    ASSERT_TRUE(Exists(QStringLiteral("First Come")));
    m_client.WaitIdle();

    m_dialogs.ClickNext(QStringLiteral("btnGoOn"));
    Rename(m_client, QStringLiteral("Too Late"));
    EXPECT_FALSE(Exists(QStringLiteral("Too Late")));
    EXPECT_TRUE(Exists(QStringLiteral("First Come")));
    EXPECT_TRUE(m_dialogs.LastDetails().contains(QStringLiteral("First Come | Too Late")));
    EXPECT_TRUE(m_client.Driver().IsShown(QStringLiteral("editName")));
    EXPECT_EQ(m_client.Driver().Find<VxGUI::VxLineEdit>(QStringLiteral("editName"))->text(),
        QStringLiteral("Too Late"));
    m_dialogs.ClickNext(QStringLiteral("btnSaveMine"));
    m_client.Driver().Click(QStringLiteral("btnOk"));
    m_client.WaitIdle();
    EXPECT_TRUE(Exists(QStringLiteral("Too Late"))) << "who knows of the other change can save over it";
}

TEST_F(LiveOrganizations, WhatOneOperatorAddsTheOtherSees)
{
    LiveClient other(m_server);
    other.OpenPage();
    other.SelectOrganization(m_sName);
    other.Driver().Click(QStringLiteral("btnAddOrg"));
    Rename(other, QStringLiteral("New Wing"));
    auto* pTree = m_client.Tree()->findChild<QTreeView*>(QStringLiteral("treeOrg"));
    PageDriver::WaitFor([&] {
        return !pTree->model()
                    ->match(pTree->model()->index(0, 0), Qt::DisplayRole, QStringLiteral("New Wing"), 1,
                        Qt::MatchExactly | Qt::MatchRecursive)
                    .isEmpty();
    });
}

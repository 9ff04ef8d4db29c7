#include "DevicePageFixture.h"

#include <ResourceManagerUI/COrganizationTreeCtrl.h>
#include <UICommonMdl/ErrorCodes.h>
#include <VxGUI/VxLineEdit.h>
#include <common/CSearchTreeView.h>

#include <QDropEvent>
#include <QMimeData>

using namespace ResourceManagerUI;
using GroupLogical::Organization_t;

class OrganizationTree : public DevicePageFixture
{
protected:
    Common::COrganizationModel* Organizations()
    {
        auto* pFilter = qobject_cast<QAbstractProxyModel*>(Tree()->model());
        return static_cast<Common::COrganizationModel*>(pFilter->sourceModel());
    }
    Common::CSearchTreeView* Tree()
    {
        return m_pDriver->Find<Common::CSearchTreeView>(QStringLiteral("treeOrg"));
    }
    void Select(const char* pszCode)
    {
        Tree()->expandAll();
        m_pDriver->ClickIndex(Tree(), Tree()->FindCode(QString::fromLatin1(pszCode)));
        PageDriver::Settle();
    }
    QString NameHint()
    {
        return m_pDriver->Find<VxGUI::VxLineEdit>(QStringLiteral("editName"))->GetErrorHint();
    }
};

TEST_F(OrganizationTree, SelectionListsItsDevices)
{
    Open();
    Select("001002");
    EXPECT_EQ(LastRequest().sOrgCode, "001002");
    EXPECT_EQ(LastRequest().nPage, 1);
}

TEST_F(OrganizationTree, AddingChecksTheInputAndShowsTheNewNode)
{
    Open();
    Select("001001");
    m_pDriver->Click(QStringLiteral("btnAddOrg"));
    m_pDriver->Click(QStringLiteral("btnOk"));
    EXPECT_EQ(NameHint(), QStringLiteral("Organization name cannot be empty."));
    m_pDriver->Type(QStringLiteral("editName"), QStringLiteral("<b>"));
    m_pDriver->Click(QStringLiteral("btnOk"));
    EXPECT_EQ(NameHint(), QStringLiteral("Special characters < and > are not allowed."));
    EXPECT_EQ(m_host.server.Count<wire::AddOrganization>(), 0);

    m_pDriver->Type(QStringLiteral("editName"), QStringLiteral("Yard"));
    m_pDriver->Click(QStringLiteral("btnOk"));
    const auto sent = m_host.server.LastRequest<wire::AddOrganization>();
    EXPECT_EQ(sent.sName, "Yard");
    EXPECT_EQ(sent.sParentCode, "001001");
    m_host.server.FailLast<wire::AddOrganization>(UICommonMdl::ErrorNameExists);
    PageDriver::Settle();
    EXPECT_TRUE(Notice().startsWith(QStringLiteral("Failed to add organization")));
    EXPECT_TRUE(m_pDriver->IsShown(QStringLiteral("pageOrg"))) << "the input stays";

    m_pDriver->Click(QStringLiteral("btnOk"));
    const Organization_t added{"001001002", "001001", "Yard", "", 1, 1};
    m_host.site.vecOrganizations.push_back(added);
    m_host.server.AnswerLast<wire::AddOrganization>(added);
    PageDriver::Settle();
    EXPECT_TRUE(m_pDriver->IsShown(QStringLiteral("pageDevice")));
    EXPECT_EQ(Tree()->currentIndex().data().toString(), QStringLiteral("Yard"));
}

TEST_F(OrganizationTree, RenamingSendsTheRecordWithItsVersion)
{
    Open();
    Select("001001");
    m_pDriver->Key(QStringLiteral("treeOrg"), Qt::Key_F2);
    m_pDriver->Type(QStringLiteral("editName"), QStringLiteral("East"));
    m_pDriver->Key(QStringLiteral("editName"), Qt::Key_Return);
    EXPECT_EQ(m_host.server.LastRequest<wire::ModifyOrganization>(),
        (Organization_t{"001001", "001", "East", "gate", 0, 4}));
    m_dialogs.AnswerNext(true);
    m_pDriver->Click(QStringLiteral("btnCancel"));
    EXPECT_TRUE(
        m_dialogs.LastText().startsWith(QStringLiteral("It is not known yet whether this is saved.")));
}

TEST_F(OrganizationTree, LeavingAsksOnlyWhenSomethingWasChanged)
{
    Open();
    const auto openEditor = [this] {
        Select("001001");
        m_pDriver->Key(QStringLiteral("treeOrg"), Qt::Key_F2);
        EXPECT_TRUE(m_pDriver->IsShown(QStringLiteral("pageOrg")));
    };
    const std::function<void()> ways[] = {[this] { m_pDriver->Click(QStringLiteral("btnCancel")); },
        [this] {
            QTest::mouseClick(m_pPage->findChild<QWidget*>(QStringLiteral("pageOrg"))
                                  ->findChild<QWidget*>(QStringLiteral("btnBack")),
                Qt::LeftButton);
        },
        [this] { m_pDriver->Key(QStringLiteral("editName"), Qt::Key_Escape); }};
    for (const auto& leave : ways) {
        openEditor();
        leave();
        EXPECT_TRUE(m_dialogs.Shown().isEmpty());
        EXPECT_TRUE(m_pDriver->IsShown(QStringLiteral("pageDevice")));
    }
    for (const auto& leave : ways) {
        openEditor();
        m_pDriver->Type(QStringLiteral("editRemark"), QStringLiteral("changed"));
        m_dialogs.AnswerNext(false);
        leave();
        EXPECT_TRUE(m_pDriver->IsShown(QStringLiteral("pageOrg")));
        m_dialogs.AnswerNext(true);
        leave();
        EXPECT_TRUE(m_pDriver->IsShown(QStringLiteral("pageDevice")));
    }
}

TEST_F(OrganizationTree, LevelLimitIsSaid)
{
    m_host.session.nOrganizationLevelLimit = 3;
    m_host.ApplySession();
    Open();
    Select("001001001");
    m_pDriver->Click(QStringLiteral("btnAddOrg"));
    EXPECT_EQ(Notice(), QStringLiteral("Can not add, group level limits 3"));
}

TEST_F(OrganizationTree, DeletingAsksAndSparesTheRoot)
{
    Open();
    Select("001");
    m_pDriver->Click(QStringLiteral("btnDeleteOrg"));
    EXPECT_EQ(Notice(), QStringLiteral("You cannot delete root node."));
    Select("001002");
    m_dialogs.AnswerNext(true);
    m_pDriver->Key(QStringLiteral("treeOrg"), Qt::Key_Delete);
    EXPECT_EQ(m_dialogs.LastText(), QStringLiteral("Are you sure to delete organization?"));
    EXPECT_EQ(m_host.server.LastRequest<wire::DeleteOrganization>().sCode, "001002");
    m_host.server.FailLast<wire::DeleteOrganization>(UICommonMdl::ErrorOrganizationNotEmpty);
    PageDriver::Settle();
    EXPECT_TRUE(Notice().startsWith(QStringLiteral("Failed to delete the organization ")));
}

TEST_F(OrganizationTree, DropsAskForTheMove)
{
    Open();
    Select("001");
    const QModelIndex tower = Organizations()->FindCode(QStringLiteral("001001001"));
    const QModelIndex north = Organizations()->FindCode(QStringLiteral("001001"));
    const QModelIndex south = Organizations()->FindCode(QStringLiteral("001002"));
    const std::unique_ptr<QMimeData> pNorth(Organizations()->mimeData({north}));
    EXPECT_FALSE(Organizations()->canDropMimeData(pNorth.get(), Qt::MoveAction, -1, -1, tower))
        << "not below itself";
    EXPECT_FALSE(Organizations()->canDropMimeData(pNorth.get(), Qt::MoveAction, -1, -1, QModelIndex()));
    Organizations()->dropMimeData(pNorth.get(), Qt::MoveAction, -1, -1, south);
    const auto sent = m_host.server.LastRequest<wire::MoveOrganization>();
    EXPECT_EQ(sent.sCode + ' ' + sent.sNewParentCode, "001001 001002");

    CheckRows(2);
    const std::unique_ptr<QMimeData> pDevices(Model()->mimeData({Model()->index(1, ColumnName)}));
    const QPoint place = Tree()->visualRect(Tree()->FindCode(QStringLiteral("001002"))).center();
    QDragEnterEvent enter(place, Qt::MoveAction, pDevices.get(), Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(Tree()->viewport(), &enter);
    QDragMoveEvent move(place, Qt::MoveAction, pDevices.get(), Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(Tree()->viewport(), &move);
    QDropEvent drop(place, Qt::MoveAction, pDevices.get(), Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(Tree()->viewport(), &drop);
    const auto moved = m_host.server.LastRequest<wire::MoveDevice>();
    EXPECT_EQ(moved.vecDeviceIds, (Ids{"1001", "1002"}));
    EXPECT_EQ(moved.sOrgCode, "001002");
}

TEST_F(OrganizationTree, FilterKeepsTheWayToAMatch)
{
    Open();
    m_pDriver->Type(QStringLiteral("editFilter"), QStringLiteral("tow"));
    EXPECT_TRUE(Tree()->FindCode(QStringLiteral("001001")).isValid()) << "North holds Tower";
    EXPECT_FALSE(Tree()->FindCode(QStringLiteral("001002")).isValid());
}

#pragma once

#include <RoleManager/CDeviceRightModel.h>
#include <RoleManager/CRightModel.h>
#include <RoleManager/CRoleManagerCtrl.h>
#include <RoleManager/CRoleManagerEditDlg.h>
#include <RoleManager/CRoleModel.h>
#include <UICommonMdl/ErrorCodes.h>
#include <VxGUI/VxEmptyState.h>
#include <VxGUI/VxLineEdit.h>
#include <VxGUI/VxNotification.h>
#include <common/CRowButtonDelegate.h>
#include <tests/support/fakes/FakeHost.h>
#include <tests/support/gui/PageDriver.h>
#include <tests/support/gui/RecordingDialogService.h>

#include <QPushButton>
#include <QStackedWidget>
#include <QTabWidget>
#include <QTreeView>

#include <gtest/gtest.h>

#include <memory>

namespace RolePageTest {

using namespace PlatformConfigUI;
using namespace UserLogical;
using Change = DeviceRightChange_t;

/// The role page of a host that serves a small platform.
class Fixture : public testing::Test
{
protected:
    using Names = std::vector<std::string>;

    void SetUp() override { m_host.site.ServeUsers(); }
    void TearDown() override { Close(); }
    void Close()
    {
        m_pDriver.reset();
        m_pPage.reset();
    }

    void Open()
    {
        Close();
        m_pPage = std::make_unique<CRoleManagerCtrl>(&m_host.interfaceSet);
        m_pDriver = std::make_unique<PageDriver>(*m_pPage, QSize(1100, 640));
        PageDriver::Settle();
    }
    void OpenDialog(const char* pszRoleId)
    {
        Open();
        DoubleClick(pszRoleId);
        ASSERT_TRUE(Dialog());
    }
    void OpenNew()
    {
        Open();
        Click("btnAdd");
        ASSERT_TRUE(Dialog());
    }

    void Click(const char* pszName)
    {
        m_pDriver->Click(QLatin1String(pszName));
        PageDriver::Settle();
    }
    void Type(const char* pszName, const QString& sText)
    {
        m_pDriver->Type(QLatin1String(pszName), sText);
        PageDriver::Settle();
    }
    bool IsUsable(const char* pszName) { return m_pDriver->IsUsable(QLatin1String(pszName)); }
    QString Notice() { return VxGUI::VxNotification::CurrentText(m_pPage.get()); }
    QString State(const char* pszName)
    {
        return m_pDriver->Find<VxGUI::VxEmptyState>(QLatin1String(pszName))->GetTitle();
    }
    FakeServer& Users() { return m_host.server; }

    // The list.
    QTreeView* List() { return m_pDriver->Find<QTreeView>(QStringLiteral("treeRole")); }
    QModelIndex RowOf(const char* pszId, int nColumn = RoleColumnName)
    {
        const auto* const pModel = qobject_cast<CRoleModel*>(List()->model());
        return pModel->index(pModel->FindRow(QLatin1String(pszId)), nColumn);
    }
    /// Keys for the list; it has the focus again only when its window is in front again.
    void ListKey(Qt::Key key)
    {
        m_pPage->activateWindow();
        List()->setFocus();
        PageDriver::Settle();
        QTest::keyClick(List(), key);
        PageDriver::Settle();
    }
    void Check(const char* pszId)
    {
        m_pDriver->ClickIndex(List(), RowOf(pszId, RoleColumnCheck));
        PageDriver::Settle();
    }
    void DoubleClick(const char* pszId)
    {
        const QPoint place = List()->visualRect(RowOf(pszId)).center();
        m_pDriver->ClickAt(List(), place);
        QTest::mouseDClick(List()->viewport(), Qt::LeftButton, Qt::NoModifier, place);
        PageDriver::Settle();
    }
    /// nButton: the place among the buttons of a row with all of them; null when the row lacks it.
    QRect RowButton(const char* pszId, int nButton)
    {
        const auto* const pButtons =
            List()->findChild<Common::CRowButtonDelegate*>(QStringLiteral("rowButtons"));
        const QModelIndex index = RowOf(pszId, RoleColumnOperation);
        return pButtons->GetButtonRect(List()->visualRect(index), List()->fontMetrics(), nButton, index);
    }
    void ClickRowButton(const char* pszId, int nButton)
    {
        ASSERT_FALSE(RowButton(pszId, nButton).isNull());
        m_pDriver->ClickAt(List(), RowButton(pszId, nButton).center());
        PageDriver::Settle();
    }
    void PushRoles()
    {
        m_host.server.Push(wire::event::RolesChanged);
        PageDriver::Settle();
    }
    void Connect(bool bConnected)
    {
        m_host.PushConnected(bConnected);
        PageDriver::Settle();
    }

    // The dialog.
    CRoleManagerEditDlg* Dialog() { return m_pPage->findChild<CRoleManagerEditDlg*>(); }
    QString DialogNotice() { return VxGUI::VxNotification::CurrentText(Dialog()); }
    QString Hint(const char* pszName)
    {
        return m_pDriver->Find<VxGUI::VxLineEdit>(QLatin1String(pszName))->GetErrorHint();
    }
    void ShowTab(int nTab)
    {
        m_pDriver->Find<QTabWidget>(QStringLiteral("tabRights"))->setCurrentIndex(nTab);
        PageDriver::Settle();
    }
    QTreeView* Tree(const char* pszName) { return m_pDriver->Find<QTreeView>(QLatin1String(pszName)); }
    QModelIndex Node(const char* pszTree, const char* pszText, int nColumn = 0)
    {
        return m_pDriver->FindRow(Tree(pszTree), 0, QLatin1String(pszText)).siblingAtColumn(nColumn);
    }
    int CheckOf(const char* pszTree, const char* pszText)
    {
        return Node(pszTree, pszText).data(Qt::CheckStateRole).toInt();
    }
    /// Clicks the box in front of a node.
    void ClickBox(const char* pszTree, const char* pszText)
    {
        QTreeView* const pTree = Tree(pszTree);
        const QModelIndex index = Node(pszTree, pszText);
        pTree->scrollTo(index);
        const QRect cell = pTree->visualRect(index);
        m_pDriver->ClickAt(pTree, {cell.left() + 12, cell.center().y()});
        PageDriver::Settle();
    }
    void Expand(const char* pszText)
    {
        Tree("treeDevice")->expand(Node("treeDevice", pszText));
        PageDriver::Settle();
    }
    void ClickSwitch(const char* pszText)
    {
        const QModelIndex index = Node("treeDevice", pszText, CDeviceRightModel::ColumnAuto);
        const QRect cell = Tree("treeDevice")->visualRect(index);
        m_pDriver->ClickAt(Tree("treeDevice"), {cell.left() + 20, cell.center().y()});
        PageDriver::Settle();
    }
    RoleEdit_t Saved() { return Users().LastRequest<wire::ModifyRole>(); }
    RoleEdit_t Added() { return Users().LastRequest<wire::AddRole>(); }

    FakeHost m_host;
    RecordingDialogService m_dialogs;
    std::unique_ptr<CRoleManagerCtrl> m_pPage;
    std::unique_ptr<PageDriver> m_pDriver;
};

} // namespace RolePageTest

#include "ListTestView.h"

#include <UICommonMdl/CNumberPageCtrl.h>
#include <common/CListFrame.h>
#include <common/CListStatus.h>
#include <tests/support/core/QtWarnings.h>
#include <tests/support/fakes/FakeHost.h>
#include <tests/support/gui/PageDriver.h>

#include <QAbstractButton>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QScrollBar>
#include <QSplitter>
#include <QToolTip>

#include <gtest/gtest.h>

#include <memory>

namespace {

// Without a display a pop-up can be shown, but neither raised nor given the keyboard.
const QString PopUpWarning = QStringLiteral("This plugin does not support");

/// A list with a tree and two actions in its frame, as a page has it.
class ListFrame : public testing::Test
{
protected:
    void SetUp() override { Open(); }
    void TearDown() override { Close(); }
    void Open()
    {
        Close();
        m_pFrame = std::make_unique<Common::CListFrame>();
        m_pList = new ListTestView;
        m_pList->m_model.KeepChecks(ListTestModel::ColumnName);
        m_pFrame->SetList(m_pList);
        m_pFrame->SetTree(new QLabel(QStringLiteral("Tree")));
        m_pFrame->GetToolBar()->AddAction({"btnDelete", "delete", QStringLiteral("Delete"), [] {},
            {m_pFrame->NeedsConnection(), m_pFrame->NeedsChecked(QStringLiteral("Select one first."))}});
        auto* const pSearch = new QLineEdit;
        pSearch->setObjectName(QStringLiteral("editSearch"));
        m_pFrame->SetSearch(pSearch);
        m_pFrame->Remember(&m_config, QStringLiteral("Test"));
        m_pList->Replace(1, 20);
        m_pFrame->SetTotal(3412, 2);
        m_pDriver = std::make_unique<PageDriver>(*m_pFrame, QSize(1000, 400));
    }
    void Close()
    {
        m_pDriver.reset();
        m_pFrame.reset();
    }
    void ClickRow(int nId, int nColumn = ListTestModel::ColumnName, Qt::KeyboardModifiers modifiers = {})
    {
        m_pDriver->ClickIndex(m_pList, m_pList->Cell(nId, nColumn), modifiers);
    }
    int TopRow() { return m_pList->indexAt(QPoint(0, 0)).row(); }

    FakeLocalConfig m_config;
    std::unique_ptr<Common::CListFrame> m_pFrame;
    std::unique_ptr<PageDriver> m_pDriver;
    ListTestView* m_pList = nullptr;
};

} // namespace

TEST_F(ListFrame, ChecksOfOtherPagesKeepActionsUsable)
{
    EXPECT_EQ(m_pDriver->Find<QLabel>(QStringLiteral("lbStatus"))->text(), QStringLiteral("Total: 3,412"));
    int nTotals = 0;
    for (const QLabel* pLabel : m_pFrame->findChildren<QLabel*>())
        nTotals += pLabel->isVisible() && pLabel->text().contains(QStringLiteral("3,412")) ? 1 : 0;
    EXPECT_EQ(nTotals, 1) << "told once";
    const QAbstractButton* const pDelete = m_pFrame->GetToolBar()->FindButton(QStringLiteral("btnDelete"));
    EXPECT_EQ(pDelete->toolTip(), QStringLiteral("Select one first."));
    ClickRow(3, ListTestModel::ColumnCheck);
    EXPECT_TRUE(pDelete->isEnabled());
    m_pList->Replace(21, 20);
    EXPECT_TRUE(pDelete->isEnabled());
    m_pFrame->SetConnected(false);
    EXPECT_FALSE(pDelete->isEnabled());
    EXPECT_FALSE(m_pList->isEnabled());
    m_pFrame->SetConnected(true);
    m_pDriver->Click(QStringLiteral("btnClearChecks"));
    EXPECT_FALSE(pDelete->isEnabled());
    m_pFrame->activateWindow();
    m_pList->setFocus();
    PageDriver::Settle();
    QTest::keyClick(m_pList, Qt::Key_F, Qt::ControlModifier);
    EXPECT_TRUE(m_pDriver->Find(QStringLiteral("editSearch"))->hasFocus());
}

TEST_F(ListFrame, TreeWidthAndPageSizeAreRemembered)
{
    QSplitterHandle* const pHandle = m_pFrame->GetSplitter()->handle(1);
    const QPoint place = pHandle->rect().center();
    QTest::mousePress(pHandle, Qt::LeftButton, {}, place);
    QMouseEvent move(QEvent::MouseMove, place + QPoint(90, 0), pHandle->mapToGlobal(place + QPoint(90, 0)),
        Qt::LeftButton, Qt::LeftButton, {});
    QApplication::sendEvent(pHandle, &move);
    QTest::mouseRelease(pHandle, Qt::LeftButton, {}, place);
    const int nTree = m_pFrame->GetSplitter()->sizes().first();
    EXPECT_GT(nTree, 250);
    int nWanted = 0;
    QObject::connect(
        m_pFrame.get(), &Common::CListFrame::SignalPageWanted, m_pFrame.get(), [&nWanted] { ++nWanted; });
    auto* const pSize = m_pDriver->Find<QComboBox>(QStringLiteral("cmbPageSize"));
    pSize->setFocus();
    QTest::keyClick(pSize, Qt::Key_Down);
    m_pDriver->Click(QStringLiteral("btnNextPage"));
    EXPECT_EQ(nWanted, 2);
    const int nPageSize = m_pFrame->GetPager()->GetPageSize();
    Open();
    EXPECT_EQ(m_pFrame->GetPager()->GetPageSize(), nPageSize);
    EXPECT_EQ(m_pFrame->GetSplitter()->sizes().first(), nTree);
}

TEST_F(ListFrame, TabWalksThePartsAsTheyStand)
{
    Close();
    m_pFrame = std::make_unique<Common::CListFrame>();
    m_pList = new ListTestView;
    m_pFrame->SetList(m_pList);
    auto* const pRow = new QLineEdit;
    pRow->setObjectName(QStringLiteral("editRow"));
    m_pFrame->AddRow(pRow);
    auto* const pSearch = new QLineEdit;
    pSearch->setObjectName(QStringLiteral("editSearch"));
    m_pFrame->SetSearch(pSearch);
    m_pFrame->GetToolBar()->AddAction({"btnAdd", "add", QStringLiteral("Add"), [] {}});
    m_pFrame->GetToolBar()->AddAction({"btnRefresh", "refresh", QStringLiteral("Refresh"), [] {}});
    auto* const pTree = new QTreeView;
    pTree->setObjectName(QStringLiteral("treeGroups"));
    m_pFrame->SetTree(pTree);
    m_pFrame->SetTotal(100, 2);
    m_pDriver = std::make_unique<PageDriver>(*m_pFrame, QSize(1000, 400));
    pTree->setFocus();
    QStringList listWalk;
    for (int n = 0; n < 7; ++n) {
        listWalk.append(m_pFrame->focusWidget()->objectName());
        QTest::keyClick(m_pFrame->focusWidget(), Qt::Key_Tab);
    }
    EXPECT_EQ(listWalk.join(QLatin1Char(' ')).toStdString(),
        "treeGroups btnAdd btnRefresh editSearch editRow treeTest cmbPageSize");
}

TEST_F(ListFrame, RowsAreReplacedBelowTheUsersHands)
{
    ClickRow(12);
    ClickRow(14, ListTestModel::ColumnName, Qt::ControlModifier);
    m_pList->scrollTo(m_pList->Cell(6, ListTestModel::ColumnName), QAbstractItemView::PositionAtTop);
    PageDriver::Settle();
    const int nTop = TopRow();
    ASSERT_GT(nTop, 0);
    m_pList->Replace(3, 20); // two rows above have been deleted elsewhere
    PageDriver::Settle();
    EXPECT_EQ(TopRow(), nTop - 2);
    EXPECT_EQ(m_pList->currentIndex(), m_pList->Cell(14, ListTestModel::ColumnName));
    EXPECT_EQ(m_pList->selectionModel()->selectedRows().size(), 2);
    m_pList->Replace(100, 20);
    PageDriver::Settle();
    EXPECT_EQ(TopRow(), 0) << "another page starts at its top";
    EXPECT_FALSE(m_pList->selectionModel()->hasSelection());
}

TEST_F(ListFrame, SpaceChecksTheSelectedRowsThatHaveABox)
{
    m_pList->Replace(-1, 5);
    ClickRow(-1);
    ClickRow(2, ListTestModel::ColumnName, Qt::ShiftModifier);
    m_pDriver->Key(QStringLiteral("treeTest"), Qt::Key_Space);
    EXPECT_EQ(m_pList->m_model.GetCheckedIds(), (QStringList{QStringLiteral("1"), QStringLiteral("2")}));
    m_pDriver->Key(QStringLiteral("treeTest"), Qt::Key_Space);
    EXPECT_EQ(m_pList->m_model.GetCheckedCount(), 0);
    ClickRow(-1, ListTestModel::ColumnCheck);
    EXPECT_EQ(m_pList->m_model.GetCheckedCount(), 0) << "there is no box to click";
}

TEST_F(ListFrame, AnOperationThatCannotBeDoneSaysWhy)
{
    const ExpectWarning popUp(PopUpWarning);
    m_pList->m_sObstacle = QStringLiteral("You have no permission to delete devices.");
    QTest::mouseClick(m_pList->viewport(), Qt::LeftButton, {}, m_pList->ButtonPlace(3, 1));
    const QPoint place = m_pList->ButtonPlace(3, 1);
    QHelpEvent help(QEvent::ToolTip, place, m_pList->viewport()->mapToGlobal(place));
    QApplication::sendEvent(m_pList->viewport(), &help);
    EXPECT_TRUE(QToolTip::text().endsWith(m_pList->m_sObstacle));
    QToolTip::hideText();
    ClickRow(3);
    m_pDriver->Key(QStringLiteral("treeTest"), Qt::Key_Delete);
    EXPECT_EQ(QToolTip::text(), m_pList->m_sObstacle) << "a key that does nothing is no answer";
    QToolTip::hideText();
    const QPoint row = m_pList->visualRect(m_pList->Cell(3, ListTestModel::ColumnName)).center();
    Q_EMIT m_pList->customContextMenuRequested(row);
    auto* const pMenu = m_pList->findChild<QMenu*>(QStringLiteral("menuTest"));
    EXPECT_TRUE(pMenu->actions()[0]->isEnabled());
    EXPECT_FALSE(pMenu->actions()[1]->isEnabled());
    EXPECT_EQ(pMenu->actions()[1]->toolTip(), m_pList->m_sObstacle);
    pMenu->close();
    EXPECT_TRUE(m_pList->m_listAsked.isEmpty());
    m_pList->m_sObstacle.clear();
    m_pDriver->Key(QStringLiteral("treeTest"), Qt::Key_Delete);
    EXPECT_EQ(m_pList->m_listAsked, QStringList{QStringLiteral("2 3")});
}

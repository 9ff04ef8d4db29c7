#include "ListTestView.h"

#include <common/ColumnFit.h>
#include <tests/support/core/QtWarnings.h>
#include <tests/support/fakes/FakeHost.h>
#include <tests/support/gui/PageDriver.h>

#include <QMenu>
#include <QScrollBar>

#include <gtest/gtest.h>

#include <memory>
#include <numeric>

namespace {

// Without a display a pop-up can be shown, but neither raised nor given the keyboard.
const QString PopUpWarning = QStringLiteral("This plugin does not support");
const QString LongRemark = QString(60, QLatin1Char('m'));
constexpr int Slack = 20; ///< of a column that fits its content
constexpr int Narrow = 320;
constexpr int Wide = 1200;

/// A list in a window of its own, with settings that outlive it.
class ListColumns : public testing::Test
{
protected:
    void TearDown() override { Close(); }
    void Open(int nWidth)
    {
        Close();
        m_pView = std::make_unique<ListTestView>();
        m_pView->RememberColumns(&m_config, QStringLiteral("Test"));
        m_pView->Replace(1, 30, LongRemark);
        m_pDriver = std::make_unique<PageDriver>(*m_pView, QSize(nWidth, 300));
    }
    void Close()
    {
        m_pDriver.reset();
        m_pView.reset();
    }
    int Width(int nColumn) { return m_pView->m_pHeader->sectionSize(nColumn); }
    /// What the cells of that column need.
    int Need(int nColumn) { return m_pView->sizeHintForIndex(m_pView->m_model.index(29, nColumn)).width(); }
    bool IsScrolled() { return m_pView->horizontalScrollBar()->maximum() > 0; }
    /// Drags the right border of a column by real mouse events.
    void Drag(int nColumn, int nBy)
    {
        QWidget* const pViewport = m_pView->m_pHeader->viewport();
        const QPoint border(m_pView->m_pHeader->sectionViewportPosition(nColumn) + Width(nColumn) - 1,
            pViewport->height() / 2);
        QTest::mouseMove(pViewport, border);
        QTest::mousePress(pViewport, Qt::LeftButton, {}, border);
        QMouseEvent move(QEvent::MouseMove, border + QPoint(nBy, 0), Qt::LeftButton, Qt::LeftButton, {});
        QApplication::sendEvent(pViewport, &move);
        QTest::mouseRelease(pViewport, Qt::LeftButton, {}, border + QPoint(nBy, 0));
        PageDriver::Settle();
    }
    void Choose(const QString& sText)
    {
        m_pView->m_pHeader->OpenMenu();
        auto* const pMenu = m_pView->findChild<QMenu*>(QStringLiteral("menuColumns"));
        for (QAction* pAction : pMenu->actions() + pMenu->findChildren<QAction*>()) {
            if (pAction->text() == sText && pAction->isEnabled()) {
                pAction->trigger();
                break;
            }
        }
        pMenu->close();
        PageDriver::Settle();
    }
    void ClickHeader(int nColumn)
    {
        QTest::mouseClick(m_pView->m_pHeader->viewport(), Qt::LeftButton, {},
            m_pView->m_pHeader->GetSectionRect(nColumn).center());
    }

    FakeLocalConfig m_config;
    std::unique_ptr<ListTestView> m_pView;
    std::unique_ptr<PageDriver> m_pDriver;
};

} // namespace

TEST(ColumnFit, LongTextsGiveWayFirstAndTheRestStretches)
{
    const std::vector<Common::ColumnNeed> vecNeeds{
        {40, 40, false, false}, {300, 60, true, false}, {100, 100, false, false}, {200, 80, true, true}};
    const struct
    {
        int nRoom;
        std::vector<int> vecWidths;
    } cases[] = {{1000, {40, 300, 100, 560}}, {640, {40, 300, 100, 200}}, {540, {40, 200, 100, 200}},
        {441, {40, 151, 100, 150}}, {280, {40, 60, 100, 80}}, {279, {40, 280, 100, 200}},
        {100, {40, 280, 100, 200}}};
    for (const auto& c : cases)
        EXPECT_EQ(Common::FitColumns(vecNeeds, c.nRoom), c.vecWidths) << c.nRoom;
}

TEST_F(ListColumns, FitTheirContentAndFillTheRoom)
{
    for (const int nWidth : {Wide, 700, 560}) {
        Open(nWidth);
        SCOPED_TRACE(nWidth);
        EXPECT_GE(Width(ListTestModel::ColumnName), Need(ListTestModel::ColumnName));
        EXPECT_GE(Width(ListTestModel::ColumnAddress), Need(ListTestModel::ColumnAddress));
        EXPECT_EQ(m_pView->m_pHeader->length(), m_pView->viewport()->width());
        EXPECT_FALSE(IsScrolled());
    }
    Open(Narrow);
    EXPECT_TRUE(IsScrolled());
    EXPECT_GE(Width(ListTestModel::ColumnAddress), Need(ListTestModel::ColumnAddress)) << "never cut";
    EXPECT_GE(Width(ListTestModel::ColumnName), Need(ListTestModel::ColumnName));
    EXPECT_EQ(Width(ListTestModel::ColumnRemark), 280) << "a long text is still cut";
    m_pView->resize(Wide, 300);
    PageDriver::Settle();
    EXPECT_FALSE(IsScrolled());
    m_pView->m_model.item(3, ListTestModel::ColumnAddress)->setText(QString(40, QLatin1Char('8')));
    EXPECT_GE(Width(ListTestModel::ColumnAddress),
        m_pView->fontMetrics().horizontalAdvance(QString(40, QLatin1Char('8'))))
        << "a text that changes is not cut";
}

TEST_F(ListColumns, ADraggedColumnKeepsItsWidthAlsoNextTime)
{
    Open(Wide);
    const int nBefore = Width(ListTestModel::ColumnName);
    Drag(ListTestModel::ColumnName, 77);
    EXPECT_EQ(Width(ListTestModel::ColumnName), nBefore + 77);
    EXPECT_FALSE(IsScrolled()) << "the others make room";
    m_pView->Replace(100, 30, QStringLiteral("short"));
    m_pView->resize(900, 300);
    PageDriver::Settle();
    EXPECT_EQ(Width(ListTestModel::ColumnName), nBefore + 77);
    Drag(ListTestModel::ColumnRemark, -50);
    const int nRemark = Width(ListTestModel::ColumnRemark);
    Open(700);
    EXPECT_EQ(Width(ListTestModel::ColumnName), nBefore + 77);
    EXPECT_EQ(Width(ListTestModel::ColumnRemark), nRemark);

    const ExpectWarning popUp(PopUpWarning);
    Choose(QStringLiteral("Reset Columns"));
    EXPECT_EQ(Width(ListTestModel::ColumnName), nBefore);
    Open(700);
    EXPECT_EQ(Width(ListTestModel::ColumnName), nBefore) << "remembered as well";
}

TEST_F(ListColumns, ADoubleClickOnTheBorderFitsTheContentOfAllRows)
{
    Open(Wide);
    Drag(ListTestModel::ColumnRemark, -300);
    const QPoint border(m_pView->m_pHeader->sectionViewportPosition(ListTestModel::ColumnRemark)
            + Width(ListTestModel::ColumnRemark) - 1,
        10);
    QTest::mouseMove(m_pView->m_pHeader->viewport(), border);
    QTest::mouseDClick(m_pView->m_pHeader->viewport(), Qt::LeftButton, {}, border);
    EXPECT_GE(Width(ListTestModel::ColumnRemark), Need(ListTestModel::ColumnRemark));
    EXPECT_LE(Width(ListTestModel::ColumnRemark), Need(ListTestModel::ColumnRemark) + Slack);
}

TEST_F(ListColumns, HiddenOnesAreRememberedAndThoseOfBeforeTakenOverOnce)
{
    const ExpectWarning popUp(PopUpWarning);
    m_config.SetValue(QStringLiteral("Test/HiddenColumns"), QStringLiteral("1,2"));
    Open(Wide);
    EXPECT_TRUE(m_pView->isColumnHidden(ListTestModel::ColumnAddress));
    EXPECT_FALSE(m_pView->isColumnHidden(ListTestModel::ColumnName)) << "may not be hidden";
    Choose(QStringLiteral("Address"));
    Choose(QStringLiteral("Remark"));
    Open(Wide);
    EXPECT_FALSE(m_pView->isColumnHidden(ListTestModel::ColumnAddress)) << "taken over once only";
    EXPECT_TRUE(m_pView->isColumnHidden(ListTestModel::ColumnRemark));
    EXPECT_TRUE(m_pView->isColumnHidden(ListTestModel::ColumnId));
    Choose(QStringLiteral("Reset Columns"));
    EXPECT_FALSE(m_pView->isColumnHidden(ListTestModel::ColumnRemark));
}

TEST_F(ListColumns, SortingKeepsTheOrderForAnotherColumnAndTurnsItForTheSame)
{
    const ExpectWarning popUp(PopUpWarning);
    Open(Wide);
    m_pView->SetSort(ListTestModel::SortByAddress, Qt::DescendingOrder);
    QStringList listSorts;
    QObject::connect(m_pView.get(), &Common::CListView::SignalSortChanged, m_pView.get(),
        [&listSorts](int nKey, Qt::SortOrder order) {
            listSorts.append(QStringLiteral("%1 %2").arg(nKey).arg(int(order)));
        });
    ClickHeader(ListTestModel::ColumnName);
    ClickHeader(ListTestModel::ColumnName);
    ClickHeader(ListTestModel::ColumnRemark);
    ClickHeader(ListTestModel::ColumnAddress);
    EXPECT_EQ(m_pView->m_pHeader->sortIndicatorSection(), int(ListTestModel::ColumnAddress));
    EXPECT_EQ(m_pView->m_pHeader->sortIndicatorOrder(), Qt::AscendingOrder);
    Choose(QStringLiteral("Descending"));
    EXPECT_EQ(listSorts,
        (QStringList{
            QStringLiteral("7 1"), QStringLiteral("7 0"), QStringLiteral("9 0"), QStringLiteral("9 1")}));
}

TEST_F(ListColumns, RowOperationsStayInSightAndTakeTheirClicks)
{
    Open(Narrow);
    for (const int nPlace : {0, 40, m_pView->horizontalScrollBar()->maximum()}) {
        m_pView->horizontalScrollBar()->setValue(nPlace);
        SCOPED_TRACE(nPlace);
        const QRect cell = m_pView->visualRect(m_pView->Cell(2, ListTestModel::ColumnOperation));
        EXPECT_EQ(cell.right() + 1, m_pView->viewport()->width());
        const QPoint button = m_pView->ButtonPlace(2, 1);
        EXPECT_EQ(m_pView->indexAt(button), m_pView->Cell(2, ListTestModel::ColumnOperation));
        QTest::mouseClick(m_pView->viewport(), Qt::LeftButton, {}, button);
        EXPECT_EQ(m_pView->horizontalScrollBar()->value(), nPlace) << "nothing has to be scrolled to";
    }
    EXPECT_EQ(m_pView->m_listAsked.count(QStringLiteral("2 2")), 3);
    // At the end of the way nothing is below it, and on the way to a cell it is scrolled out from below.
    const QRect last = m_pView->visualRect(m_pView->Cell(2, ListTestModel::ColumnRemark));
    EXPECT_LE(last.right(), m_pView->ButtonPlace(2, 0).x());
    m_pView->horizontalScrollBar()->setValue(0);
    m_pView->scrollTo(m_pView->Cell(2, ListTestModel::ColumnAddress));
    EXPECT_LT(m_pView->visualRect(m_pView->Cell(2, ListTestModel::ColumnAddress)).right(),
        m_pView->visualRect(m_pView->Cell(2, ListTestModel::ColumnOperation)).left());
    Open(Wide);
    EXPECT_EQ(m_pView->visualRect(m_pView->Cell(2, ListTestModel::ColumnOperation)).left(),
        m_pView->visualRect(m_pView->Cell(2, ListTestModel::ColumnRemark)).right() + 1);
}

TEST_F(ListColumns, TheHeaderOfTheOperationsHidesTheBordersBelowIt)
{
    Open(Narrow);
    QWidget* const pViewport = m_pView->m_pHeader->viewport();
    const QRect frozen = m_pView->m_pHeader->GetSectionRect(ListTestModel::ColumnOperation);
    EXPECT_EQ(frozen.right() + 1, pViewport->width());
    const int nAll = m_pView->m_pHeader->length();
    for (int nX = frozen.left(); nX < frozen.right(); nX += 3) {
        QTest::mouseMove(pViewport, {nX, 8});
        QTest::mousePress(pViewport, Qt::LeftButton, {}, {nX, 8});
        QMouseEvent move(QEvent::MouseMove, QPointF(nX + 60, 8), Qt::LeftButton, Qt::LeftButton, {});
        QApplication::sendEvent(pViewport, &move);
        QTest::mouseRelease(pViewport, Qt::LeftButton, {}, {nX + 60, 8});
    }
    EXPECT_EQ(m_pView->m_pHeader->length(), nAll);
}

namespace {

/// A list that is only read: no boxes, no buttons.
class ReadOnlyList : public Common::CListView
{
public:
    ReadOnlyList()
        : m_model({{QStringLiteral("Time"), true},
                      {QStringLiteral("Text"), true, Common::ColumnWidth::Stretch}, {QString(), false}},
            2, -1)
    {
        SetUp(&m_model, new Common::CFilterHeaderView(this), {-1, 0, -1}, {});
        ReplaceRows([this] {
            m_model.SetRows({{Common::CTableModel::MakeItem(QStringLiteral("10:00")),
                Common::CTableModel::MakeItem(QStringLiteral("Started")),
                Common::CTableModel::MakeItem(QStringLiteral("1"))}});
        });
    }

    Common::CTableModel m_model;
    int m_nOpened = 0;

protected:
    void RaiseOperation(int, const QModelIndex&) override { }
    void OpenRow(const QModelIndex&) override { ++m_nOpened; }
};

} // namespace

TEST(ReadOnlyList, FillsItsRoomAndOpensRows)
{
    ReadOnlyList list;
    PageDriver driver(list, QSize(500, 200));
    EXPECT_EQ(list.header()->length(), list.viewport()->width());
    const QPoint place = list.visualRect(list.m_model.index(0, 1)).center();
    driver.ClickAt(&list, place);
    QTest::keyClick(&list, Qt::Key_Space);
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, place);
    EXPECT_EQ(list.m_nOpened, 1);
    EXPECT_EQ(list.m_model.GetCheckedCount(), 0);
}

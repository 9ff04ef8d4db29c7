#include "PageDriver.h"

#include <VxGUI/VxSwitchButton.h>
#include <VxGUI/VxTabPanel.h>

#include <QApplication>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>

#include <gtest/gtest.h>

namespace {

class TabPanel : public testing::Test
{
protected:
    TabPanel()
    {
        for (const char* const pszName : {"a", "b", "c", "d", "e"})
            m_panel.AddTab(QLatin1String(pszName), QLatin1String(pszName), QIcon());
        m_pDriver = std::make_unique<PageDriver>(m_panel, QSize(500, 400));
        m_panel.activateWindow();
        PageDriver::Settle();
    }

    QVector<QToolButton*> Tabs() const { return m_panel.findChildren<QToolButton*>().toVector(); }
    QToolButton* Tab(const char* pszName) const
    {
        return m_pDriver->Find<QToolButton>(QLatin1String(pszName));
    }
    QString Focused() const
    {
        return QApplication::focusWidget() ? QApplication::focusWidget()->objectName() : QString();
    }
    int Columns() const
    {
        int nColumns = 0;
        for (const QToolButton* pTab : Tabs())
            nColumns += pTab->y() == Tabs().first()->y() ? 1 : 0;
        return nColumns;
    }

    VxGUI::VxTabPanel m_panel;
    std::unique_ptr<PageDriver> m_pDriver;
};

TEST_F(TabPanel, FlowsOverRowsAtEveryWidthWithoutOverlapOrCut)
{
    for (const bool bAutoResize : {false, true}) {
        m_panel.SetAutoResize(bAutoResize);
        for (const int nWidth : {160, 330, 500, 700, 1200}) {
            SCOPED_TRACE(testing::Message() << "width " << nWidth << ", auto-resize " << bAutoResize);
            m_panel.resize(nWidth, 700);
            m_panel.LayoutTabs();
            const QRect room(0, 0, nWidth, m_panel.heightForWidth(nWidth));
            QRegion taken;
            for (const QToolButton* pTab : Tabs()) {
                EXPECT_TRUE(room.contains(pTab->geometry())) << qPrintable(pTab->objectName());
                EXPECT_FALSE(taken.intersects(pTab->geometry())) << qPrintable(pTab->objectName());
                taken += pTab->geometry();
            }
        }
    }
}

TEST_F(TabPanel, AutoResizeSharesTheWidth)
{
    const int nNatural = Tab("a")->width();
    m_panel.SetAutoResize(true);
    m_panel.LayoutTabs();
    EXPECT_GT(Tab("a")->width(), nNatural);
    EXPECT_GE(Tab("c")->geometry().right(), m_panel.width() - 3);
    m_panel.SetAutoResize(false);
    m_panel.LayoutTabs();
    EXPECT_EQ(Tab("a")->width(), nNatural);
}

TEST_F(TabPanel, ArrowKeysWalkOverRowsAndStopAtTheEnds)
{
    ASSERT_EQ(Columns(), 3);
    Tab("a")->setFocus();
    const struct
    {
        Qt::Key key;
        const char* pszFocused;
    } steps[] = {{Qt::Key_Left, "a"}, {Qt::Key_Up, "a"}, {Qt::Key_Right, "b"}, {Qt::Key_Down, "e"},
        {Qt::Key_Down, "e"}, {Qt::Key_Right, "e"}, {Qt::Key_Left, "d"}, {Qt::Key_Left, "c"},
        {Qt::Key_Down, "c"}, {Qt::Key_Tab, "d"}, {Qt::Key_Up, "a"}};
    for (const auto& step : steps) {
        QTest::keyClick(QApplication::focusWidget(), step.key);
        EXPECT_EQ(Focused(), QLatin1String(step.pszFocused)) << "key " << step.key;
    }
}

TEST_F(TabPanel, MouseAndKeysOpenTheTab)
{
    const QSignalSpy opened(&m_panel, &VxGUI::VxTabPanel::SignalTabClicked);
    m_pDriver->Click(QStringLiteral("d"));
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space})
        m_pDriver->Key(QStringLiteral("b"), key);
    QStringList listNames;
    for (const auto& arguments : opened)
        listNames.append(arguments.first().toString());
    EXPECT_EQ(listNames.join(QLatin1Char(' ')), QStringLiteral("d b b b"));
}

TEST_F(TabPanel, MayBeFilledAgainFromItsOwnClick)
{
    QObject::connect(&m_panel, &VxGUI::VxTabPanel::SignalTabClicked, &m_panel, [this] {
        m_panel.RemoveAllTab();
        m_panel.AddTab(QStringLiteral("f"), QStringLiteral("f"), QIcon());
    });
    m_pDriver->Click(QStringLiteral("c"));
    PageDriver::Settle();
    ASSERT_EQ(Tabs().size(), 1);
    EXPECT_EQ(m_panel.GetTabCount(), 1);
    EXPECT_TRUE(Tab("f")->isVisible());
    EXPECT_EQ(Tab("f")->pos(), QPoint(0, 0));
}

TEST(SwitchButton, TogglesByMouseAndSpaceAndShowsIt)
{
    VxGUI::VxSwitchButton button;
    const PageDriver driver(button, {60, 40});
    const QImage off = button.grab().toImage();
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_TRUE(button.isChecked());
    EXPECT_NE(button.grab().toImage(), off);
    QTest::keyClick(&button, Qt::Key_Space);
    EXPECT_FALSE(button.isChecked());
}

} // namespace

#include <common/CFilterBar.h>
#include <common/CToolBar.h>
#include <tests/support/core/QtWarnings.h>
#include <tests/support/gui/PageDriver.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QAction>
#include <QHelpEvent>
#include <QLineEdit>
#include <QMenu>
#include <QToolTip>
#include <QVBoxLayout>

#include <gtest/gtest.h>

#include <memory>

using Common::CFilterBar;
using Common::CToolBar;

namespace {

// Without a display a pop-up can be shown, but neither raised nor given the keyboard.
const QString PopUpWarning = QStringLiteral("This plugin does not support");
const QString NothingChosen = QStringLiteral("Select one or more devices first.");
const QString NoConnection = QStringLiteral("No connection to the server.");
constexpr const char* Names[] = {"btnAdd", "btnDelete", "btnImport", "btnExport", "btnMoveTo", "btnRefresh"};
constexpr int Wide = 1200;
constexpr int FieldMinimum = 160;

/// A bar with a search field in a window that can be made narrow.
class ToolBar : public testing::Test
{
protected:
    void SetUp() override
    {
        m_pBar = new CToolBar(&m_window);
        const Common::Need connected = [this] { return m_bConnected ? QString() : NoConnection; };
        const Common::Need chosen = [this] { return m_bChosen ? QString() : NothingChosen; };
        for (const char* pszName : Names) {
            const bool bDelete = pszName == Names[1];
            m_pBar->AddAction({pszName, bDelete ? "delete" : "add", QStringLiteral("Do it: ") + pszName,
                [this, pszName] { m_listRun.append(QLatin1String(pszName)); },
                bDelete ? QVector<Common::Need>{connected, chosen} : QVector<Common::Need>{connected},
                bDelete ? QKeySequence(QStringLiteral("Ctrl+D")) : QKeySequence()});
        }
        m_pField = new QLineEdit;
        m_pField->setObjectName(QStringLiteral("editSearch"));
        m_pField->setMinimumWidth(FieldMinimum);
        m_pField->setMaximumWidth(260);
        m_pBar->AddField(m_pField);
        auto* const pLayout = new QVBoxLayout(&m_window);
        pLayout->addWidget(m_pBar);
        pLayout->addStretch();
        m_pDriver = std::make_unique<PageDriver>(m_window, QSize(Wide, 120));
    }
    void Resize(int nWidth)
    {
        m_window.resize(nWidth, 120);
        PageDriver::Settle();
    }
    QMenu* OpenMore()
    {
        m_pDriver->Click(QStringLiteral("btnMore"));
        return m_window.findChild<QMenu*>(QStringLiteral("menuMore"));
    }
    QString ToolTipOf(QWidget* pWidget)
    {
        const QPoint place = pWidget->rect().center();
        QHelpEvent help(QEvent::ToolTip, place, pWidget->mapToGlobal(place));
        QApplication::sendEvent(pWidget, &help);
        const QString sText = QToolTip::isVisible() ? QToolTip::text() : QString();
        QToolTip::hideText();
        return sText;
    }

    QWidget m_window;
    CToolBar* m_pBar = nullptr;
    QLineEdit* m_pField = nullptr;
    std::unique_ptr<PageDriver> m_pDriver;
    QStringList m_listRun;
    bool m_bConnected = true;
    bool m_bChosen = false;
};

} // namespace

TEST_F(ToolBar, WhatDoesNotFitIsInTheMenuAndNothingIsLost)
{
    const ExpectWarning popUp(PopUpWarning);
    EXPECT_FALSE(m_pDriver->IsShown(QStringLiteral("btnMore")));
    const int nHeight = m_pBar->height();
    for (const int nWidth : {900, 620, 420, m_window.minimumSizeHint().width()}) {
        SCOPED_TRACE(nWidth);
        Resize(nWidth);
        EXPECT_EQ(m_pBar->height(), nHeight) << "one row";
        EXPECT_GE(m_pField->width(), FieldMinimum);
        EXPECT_LE(m_pField->geometry().right(), m_pBar->rect().right());
        QMenu* const pMenu = OpenMore();
        int nRight = -1;
        for (const char* pszName : Names) {
            const QString sName = QLatin1String(pszName);
            const QWidget* const pButton = m_pBar->FindButton(sName);
            const bool bInMenu = pMenu->actions().contains(m_pBar->FindAction(sName));
            EXPECT_NE(pButton->isVisible(), bInMenu) << pszName;
            if (!pButton->isVisible())
                continue;
            EXPECT_GT(pButton->geometry().left(), nRight) << pszName;
            nRight = pButton->geometry().right();
        }
        EXPECT_LT(nRight, m_pField->geometry().left());
        pMenu->close();
    }
    QMenu* const pMenu = OpenMore();
    QTest::keyClick(pMenu, Qt::Key_Down);
    QTest::keyClick(pMenu, Qt::Key_Return);
    EXPECT_EQ(m_listRun, QStringList{QStringLiteral("btnAdd")});
    m_pBar->FindAction(QStringLiteral("btnAdd"))->setVisible(false);
    Resize(Wide);
    EXPECT_FALSE(m_pDriver->IsShown(QStringLiteral("btnAdd")));
    EXPECT_TRUE(m_pDriver->IsShown(QStringLiteral("btnRefresh")));
}

TEST_F(ToolBar, WhatIsMissingIsToldWhereverTheActionIs)
{
    const ExpectWarning popUp(PopUpWarning);
    QAbstractButton* const pDelete = m_pBar->FindButton(QStringLiteral("btnDelete"));
    EXPECT_FALSE(pDelete->isEnabled());
    EXPECT_EQ(ToolTipOf(pDelete), NothingChosen);
    EXPECT_EQ(pDelete->accessibleDescription(), NothingChosen);
    m_window.activateWindow();
    m_pField->setFocus();
    PageDriver::Settle();
    ASSERT_TRUE(m_pField->hasFocus());
    QTest::keyClick(m_pField, Qt::Key_D, Qt::ControlModifier);
    EXPECT_TRUE(m_listRun.isEmpty()) << "its shortcut is as dead as its button";

    m_bConnected = false;
    m_pBar->UpdateNeeds();
    EXPECT_EQ(ToolTipOf(pDelete), NoConnection) << "the first need that is not met";
    Resize(m_window.minimumSizeHint().width());
    QMenu* const pMenu = OpenMore();
    const QAction* const pAction = m_pBar->FindAction(QStringLiteral("btnDelete"));
    EXPECT_TRUE(pMenu->actions().contains(const_cast<QAction*>(pAction)));
    EXPECT_FALSE(pAction->isEnabled());
    EXPECT_EQ(pAction->toolTip(), NoConnection);
    EXPECT_TRUE(pMenu->toolTipsVisible());
    pMenu->close();

    m_bConnected = true;
    m_bChosen = true;
    m_pBar->UpdateNeeds();
    Resize(Wide);
    EXPECT_TRUE(ToolTipOf(pDelete).contains(QStringLiteral("Ctrl+D")));
    EXPECT_EQ(pDelete->accessibleDescription(), QString());
    // Without a window manager the window is not active by itself when its menu is closed.
    m_window.activateWindow();
    m_pField->setFocus();
    PageDriver::Settle();
    QTest::keyClick(m_pField, Qt::Key_D, Qt::ControlModifier);
    m_pDriver->Click(QStringLiteral("btnDelete"));
    EXPECT_EQ(m_listRun.count(QStringLiteral("btnDelete")), 2);
}

TEST_F(ToolBar, TheDropDownOfAnActionGoesIntoTheMenuWithIt)
{
    const ExpectWarning popUp(PopUpWarning);
    QMenu all;
    all.addAction(QStringLiteral("Delete All"));
    QAction* const pAction = m_pBar->AddAction({"btnSplit", "delete", QStringLiteral("Delete"),
        [this] { m_listRun.append(QStringLiteral("btnSplit")); }});
    m_pBar->SetMenu(pAction, &all);
    m_pDriver->Click(QStringLiteral("btnSplit"));
    EXPECT_EQ(m_listRun, QStringList{QStringLiteral("btnSplit")});
    Resize(420);
    QMenu* const pMenu = OpenMore();
    EXPECT_TRUE(pMenu->actions().contains(pAction));
    EXPECT_TRUE(pMenu->actions().contains(all.actions().first()));
    pMenu->close();
}

namespace {

/// Eight choices of which all but the last are offered.
class FilterBar : public testing::Test
{
protected:
    void SetUp() override
    {
        m_pBar = new CFilterBar(QStringLiteral("Category"), &m_window);
        QVector<Common::FilterChoice> vecChoices;
        for (int n = 0; n < 8; ++n)
            vecChoices.append(
                {n, QStringLiteral("Category %1").arg(n), QStringLiteral("btnChoice%1").arg(n)});
        m_pBar->SetChoices(vecChoices);
        m_pBar->SetOffered({0, 1, 2, 3, 4, 5, 6});
        m_pBar->SetValue(0);
        QObject::connect(
            m_pBar, &CFilterBar::SignalChosen, m_pBar, [this](int nValue) { m_vecChosen.append(nValue); });
        auto* const pLayout = new QVBoxLayout(&m_window);
        pLayout->addWidget(m_pBar);
        pLayout->addWidget(new QLineEdit(&m_window));
        m_pDriver = std::make_unique<PageDriver>(m_window, QSize(Wide, 120));
    }
    QPushButton* Button(int nChoice)
    {
        return m_pDriver->Find<QPushButton>(QStringLiteral("btnChoice%1").arg(nChoice));
    }
    QPushButton* More() { return m_pDriver->Find<QPushButton>(QStringLiteral("btnMoreFilters")); }
    int CountPressed()
    {
        int nPressed = More()->isVisible() && More()->isChecked() ? 1 : 0;
        for (int n = 0; n < 8; ++n)
            nPressed += Button(n)->isVisible() && Button(n)->isChecked() ? 1 : 0;
        return nPressed;
    }

    QWidget m_window;
    CFilterBar* m_pBar = nullptr;
    std::unique_ptr<PageDriver> m_pDriver;
    QVector<int> m_vecChosen;
};

} // namespace

TEST_F(FilterBar, OneIsPressedByMouseAndByArrows)
{
    m_window.activateWindow();
    m_pDriver->Click(QStringLiteral("btnChoice2"));
    m_pDriver->Click(QStringLiteral("btnChoice2"));
    EXPECT_EQ(m_vecChosen, QVector<int>{2}) << "a choice in use is none";
    EXPECT_EQ(CountPressed(), 1);
    Button(2)->setFocus();
    QTest::keyClick(Button(2), Qt::Key_Right);
    QTest::keyClick(Button(3), Qt::Key_Right);
    QTest::keyClick(Button(4), Qt::Key_Left);
    EXPECT_EQ(m_vecChosen, (QVector<int>{2, 3, 4, 3}));
    EXPECT_TRUE(Button(3)->hasFocus());
    QTest::keyClick(Button(3), Qt::Key_Tab);
    EXPECT_FALSE(m_pBar->isAncestorOf(QApplication::focusWidget())) << "one stop on the way of Tab";
    const QAccessibleInterface* const pAccessible = QAccessible::queryAccessibleInterface(Button(3));
    EXPECT_EQ(pAccessible->role(), QAccessible::RadioButton);
    EXPECT_TRUE(pAccessible->state().checked);
    EXPECT_EQ(pAccessible->text(QAccessible::Name), QStringLiteral("Category 3"));
}

TEST_F(FilterBar, WhatDoesNotFitIsInADropDownThatShowsTheChoice)
{
    const ExpectWarning popUp(PopUpWarning);
    EXPECT_FALSE(More()->isVisible());
    const int nHeight = m_pBar->height();
    m_window.resize(420, 120);
    PageDriver::Settle();
    EXPECT_EQ(m_pBar->height(), nHeight) << "one row";
    EXPECT_FALSE(Button(5)->isVisible());
    EXPECT_LE(More()->geometry().right(), m_pBar->width());
    EXPECT_EQ(More()->text(), QStringLiteral("More"));
    EXPECT_TRUE(PageDriver::ComesToRest());
    m_pDriver->Click(QStringLiteral("btnMoreFilters"));
    auto* const pMenu = m_window.findChild<QMenu*>(QStringLiteral("menuMoreFilters"));
    EXPECT_EQ(pMenu->actions().last()->text(), QStringLiteral("Category 6")) << "7 is not offered";
    pMenu->actions().last()->trigger();
    pMenu->close();
    EXPECT_EQ(m_vecChosen, QVector<int>{6});
    EXPECT_EQ(More()->text(), QStringLiteral("Category 6"));
    EXPECT_EQ(CountPressed(), 1);
    EXPECT_LE(More()->geometry().right(), m_pBar->width());
    m_window.resize(Wide, 120);
    PageDriver::Settle();
    EXPECT_TRUE(Button(6)->isVisible() && Button(6)->isChecked());
    m_pBar->SetValue(7);
    EXPECT_TRUE(Button(7)->isVisible()) << "the choice in use is always shown";
    m_pBar->SetValue(99);
    EXPECT_EQ(CountPressed(), 0);
}

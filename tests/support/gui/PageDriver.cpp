#include "PageDriver.h"

#include <VxGUI/VxLineEdit.h>

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QPixmap>

#include <gtest/gtest.h>

PageDriver::PageDriver(QWidget& page, QSize size)
    : m_pPage(&page)
{
    page.window()->resize(size);
    page.window()->show();
    page.show();
    Settle();
}

PageDriver::~PageDriver()
{
    // A dialog that closed itself may be gone.
    if (m_pPage)
        m_pPage->window()->hide();
}

void PageDriver::Fail(const QString& sName, const char* pszReason)
{
    ADD_FAILURE() << qPrintable(sName) << ": " << pszReason;
}

QWidget* PageDriver::FindWidget(const QString& sName) const
{
    const auto listFound = m_pPage->findChildren<QWidget*>(sName);
    if (listFound.size() > 1)
        Fail(sName, "more than one widget has this name");
    return listFound.isEmpty() ? nullptr : listFound.first();
}

QWidget* PageDriver::Usable(const QString& sName) const
{
    QWidget* pWidget = FindWidget(sName);
    if (!pWidget)
        Fail(sName, "not found");
    else if (!pWidget->isVisible())
        Fail(sName, "is not shown");
    else if (!pWidget->isEnabled())
        Fail(sName, "is disabled");
    else
        return pWidget;
    return nullptr;
}

bool PageDriver::IsShown(const QString& sName) const
{
    const QWidget* pWidget = FindWidget(sName);
    return pWidget && pWidget->isVisible();
}

bool PageDriver::IsUsable(const QString& sName) const
{
    const QWidget* pWidget = FindWidget(sName);
    return pWidget && pWidget->isVisible() && pWidget->isEnabled();
}

void PageDriver::Click(const QString& sName)
{
    if (QWidget* pWidget = Usable(sName))
        QTest::mouseClick(pWidget, Qt::LeftButton);
    Settle();
}

void PageDriver::Type(const QString& sName, const QString& sText)
{
    QWidget* pWidget = Usable(sName);
    if (auto* pField = qobject_cast<VxGUI::VxLineEdit*>(pWidget))
        pWidget = pField->GetLineEdit();
    auto* pEdit = qobject_cast<QLineEdit*>(pWidget);
    if (!pEdit) {
        Fail(sName, "is no line edit");
        return;
    }
    pEdit->setFocus();
    pEdit->selectAll();
    if (sText.isEmpty())
        QTest::keyClick(pEdit, Qt::Key_Delete);
    else
        QTest::keyClicks(pEdit, sText);
}

void PageDriver::Key(const QString& sName, Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QWidget* pWidget = Usable(sName);
    if (auto* pField = qobject_cast<VxGUI::VxLineEdit*>(pWidget))
        pWidget = pField->GetLineEdit();
    if (pWidget)
        QTest::keyClick(pWidget, key, modifiers);
}

void PageDriver::Choose(const QString& sComboName, const QString& sText)
{
    auto* pCombo = qobject_cast<QComboBox*>(Usable(sComboName));
    if (!pCombo)
        return;
    const int nIndex = pCombo->findText(sText);
    if (nIndex < 0) {
        Fail(sComboName, "has no such choice");
        return;
    }
    pCombo->setFocus();
    while (pCombo->currentIndex() != nIndex)
        QTest::keyClick(pCombo, pCombo->currentIndex() < nIndex ? Qt::Key_Down : Qt::Key_Up);
}

QModelIndex PageDriver::FindRow(QAbstractItemView* pView, int nColumn, const QString& sText) const
{
    const QAbstractItemModel* pModel = pView->model();
    const auto listFound = pModel->match(pModel->index(0, nColumn), Qt::DisplayRole, sText, 1,
        Qt::MatchExactly | Qt::MatchRecursive | Qt::MatchCaseSensitive);
    if (listFound.isEmpty()) {
        Fail(sText, "no row has this text");
        return {};
    }
    return listFound.first();
}

void PageDriver::ClickIndex(
    QAbstractItemView* pView, const QModelIndex& index, Qt::KeyboardModifiers modifiers)
{
    pView->scrollTo(index);
    QTest::mouseClick(pView->viewport(), Qt::LeftButton, modifiers, pView->visualRect(index).center());
}

void PageDriver::ClickAt(QAbstractItemView* pView, const QPoint& place, Qt::MouseButton button)
{
    QTest::mouseClick(pView->viewport(), button, Qt::NoModifier, place);
}

bool PageDriver::WaitFor(const std::function<bool()>& condition, int nDeadlineMs)
{
    QElapsedTimer clock;
    clock.start();
    while (!condition()) {
        if (clock.elapsed() > nDeadlineMs) {
            ADD_FAILURE() << "waited " << nDeadlineMs << " ms in vain";
            return false;
        }
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents, 20);
        // Outside of an event loop nobody else does.
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    return true;
}

void PageDriver::Settle()
{
    for (int i = 0; i < 5; ++i) {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

bool PageDriver::ComesToRest()
{
    class Counter : public QObject
    {
    public:
        bool eventFilter(QObject*, QEvent* pEvent) override
        {
            m_nLayouts += pEvent->type() == QEvent::LayoutRequest ? 1 : 0;
            return false;
        }
        int m_nLayouts = 0;
    };
    Settle();
    Settle();
    Counter counter;
    qApp->installEventFilter(&counter);
    Settle();
    return counter.m_nLayouts == 0;
}

void PageDriver::Screenshot(const QString& sName) const
{
    const QString sFolder = qEnvironmentVariable("PRODUCT_SCREENSHOT_DIR");
    if (sFolder.isEmpty())
        return;
    QDir().mkpath(sFolder);
    EXPECT_TRUE(m_pPage->grab().save(sFolder + QLatin1Char('/') + sName + QStringLiteral(".png")));
}

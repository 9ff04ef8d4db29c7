#include "PersonEditFixture.h"

#include <QApplication>
#include <QDateTimeEdit>
#include <QSet>

namespace {

constexpr int DateParts = 6;

QString NameOf(const QWidget* pWidget)
{
    QString sName;
    for (; pWidget && sName.count(QLatin1Char('/')) < 3; pWidget = pWidget->parentWidget())
        sName.prepend(QLatin1Char('/')
            + (pWidget->objectName().isEmpty() ? QLatin1String(pWidget->metaObject()->className())
                                               : pWidget->objectName()));
    return sName;
}

/// Everything in the page that takes the focus by the Tab key.
QSet<QWidget*> Reachable(const QWidget* pPage)
{
    QSet<QWidget*> setWidgets;
    for (QWidget* const pWidget : pPage->findChildren<QWidget*>()) {
        const bool bTab = (pWidget->focusPolicy() & Qt::TabFocus) == Qt::TabFocus;
        if (bTab && !pWidget->focusProxy() && pWidget->isVisible() && pWidget->isEnabled()
            && pWidget->window() == pPage->window())
            setWidgets.insert(pWidget);
    }
    return setWidgets;
}

class PersonTab : public PersonEditorFixture
{
protected:
    /// From the focus on until it is there again, or somewhere for a second time.
    std::vector<QWidget*> Walk(Qt::KeyboardModifiers modifiers)
    {
        std::vector<QWidget*> vecWay{QApplication::focusWidget()};
        for (;;) {
            QTest::keyClick(vecWay.back(), Qt::Key_Tab, modifiers);
            QWidget* pNext = QApplication::focusWidget();
            // A date has a stop at each of its parts.
            for (int n = 1; n < DateParts && pNext == vecWay.back() && qobject_cast<QDateTimeEdit*>(pNext);
                 ++n) {
                QTest::keyClick(pNext, Qt::Key_Tab, modifiers);
                pNext = QApplication::focusWidget();
            }
            if (pNext == vecWay.front())
                return vecWay;
            if (!pNext || std::find(vecWay.begin(), vecWay.end(), pNext) != vecWay.end()) {
                ADD_FAILURE() << qPrintable(NameOf(vecWay.back())) << " leads back to "
                              << qPrintable(NameOf(pNext));
                return vecWay;
            }
            vecWay.push_back(pNext);
        }
    }
    void ExpectWholeWalk()
    {
        std::vector<QWidget*> vecWay = Walk(Qt::NoModifier);
        QSet<QWidget*> setMissing = Reachable(m_pPage.get());
        for (QWidget* const pWidget : vecWay)
            setMissing.remove(pWidget);
        for (const QWidget* const pWidget : qAsConst(setMissing))
            ADD_FAILURE() << qPrintable(NameOf(pWidget)) << " is not reached";
        std::vector<QWidget*> vecBack = Walk(Qt::ShiftModifier);
        std::reverse(vecBack.begin() + 1, vecBack.end());
        EXPECT_EQ(vecBack, vecWay) << "the same way back";
    }
};

} // namespace

TEST_F(PersonTab, TheWholeEditorIsWalkedThereAndBack)
{
    Person full = MakePerson();
    full.vecCards = {{"A1"}, {"B2"}};
    full.vecFingerprints.resize(1);
    full.vecFingerprints[0].sName = "Thumb";
    for (const bool bFull : {false, true}) {
        SCOPED_TRACE(bFull ? "rows in every list" : "empty lists");
        if (bFull)
            OpenEdit(full);
        else
            OpenAdd();
        ExpectWholeWalk();
    }
}

// The main program of every test with widgets: no display, the built skin, and Qt's warnings taken as
// failures.

#include "QtWarnings.h"

#include <Trv/QSkin.h>
#include <VxGUI/VxDialogService.h>

#include <QApplication>
#include <QSet>
#include <QStandardPaths>
#include <QTimer>
#include <QWidget>

#include <gtest/gtest.h>

namespace {

/// What a test leaves behind would work on in the next one. Qt keeps a list of all widgets, so that the leak
/// check does not see those that nobody deletes.
class Leftovers : public testing::EmptyTestEventListener
{
    /// One tool tip serves all widgets.
    static bool IsOfQt(const QWidget& widget) { return widget.inherits("QTipLabel"); }

    void OnTestEnd(const testing::TestInfo&) override
    {
        if (VxGUI::VxDialogService* pLeft = VxGUI::VxDialogService::SetCurrent(nullptr))
            ADD_FAILURE() << "a dialog service was left in place: " << pLeft;
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        const auto listWidgets = QApplication::topLevelWidgets();
        for (QWidget* pWidget : listWidgets) {
            if (!pWidget->isVisible()
                && (pWidget->parent() || m_setTold.contains(pWidget) || IsOfQt(*pWidget)))
                continue;
            ADD_FAILURE() << (pWidget->isVisible() ? "a window was left open: " : "nobody deleted: ")
                          << pWidget->metaObject()->className() << ' ' << qPrintable(pWidget->objectName());
            m_setTold.insert(pWidget);
            pWidget->hide();
        }
    }

    QSet<const QWidget*> m_setTold;
};

/// Animations that Qt's widgets started free themselves when they end.
void LetAnimationsEnd()
{
    QTimer::singleShot(250, qApp, &QCoreApplication::quit);
    QApplication::exec();
}

} // namespace

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QStandardPaths::setTestModeEnabled(true);
    QApplication application(argc, argv);
    Trv::SetSkinRoot(qEnvironmentVariable("PRODUCT_BINARY_DIR") + QStringLiteral("/skin"));
    QString sStyleSheet;
    if (Trv::loadStyleSheet(Trv::GetSkinPath(QStringLiteral("Client.qss"), QString()), sStyleSheet))
        application.setStyleSheet(sStyleSheet);
    testing::UnitTest::GetInstance()->listeners().Append(new Leftovers);
    InstallWarningHandler();
    const int nResult = RUN_ALL_TESTS();
    LetAnimationsEnd();
    RemoveWarningHandler();
    return nResult;
}

// The main program of every test with widgets: no display, the built skin, and Qt's warnings taken as
// failures.

#include "TestMain.h"

#include <Trv/QSkin.h>
#include <VxGUI/VxDialogService.h>

#include <QApplication>
#include <QMutex>
#include <QStandardPaths>
#include <QWidget>

#include <gtest/gtest.h>

#include <atomic>
#include <cstdio>

namespace {

struct Expectation
{
    QMutex mutex;
    QString sPart;
    int nSeen = 0;
};

Expectation& Expected()
{
    static Expectation s_expectation;
    return s_expectation;
}

bool TakeExpected(const QString& sText)
{
    const QMutexLocker lock(&Expected().mutex);
    if (Expected().sPart.isEmpty() || !sText.contains(Expected().sPart))
        return false;
    ++Expected().nSeen;
    return true;
}

void OnMessage(QtMsgType type, const QMessageLogContext& context, const QString& sText)
{
    if (type == QtDebugMsg || type == QtInfoMsg || TakeExpected(sText))
        return;
    ADD_FAILURE() << "Qt warned: " << qPrintable(sText) << " (" << (context.category ? context.category : "")
                  << ')';
    if (type == QtFatalMsg)
        fprintf(stderr, "%s\n", qPrintable(sText));
}

/// What a test leaves behind would work on in the next one.
class Leftovers : public testing::EmptyTestEventListener
{
    void OnTestEnd(const testing::TestInfo&) override
    {
        if (VxGUI::VxDialogService* pLeft = VxGUI::VxDialogService::SetCurrent(nullptr))
            ADD_FAILURE() << "a dialog service was left in place: " << pLeft;
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        const auto listWidgets = QApplication::topLevelWidgets();
        for (QWidget* pWidget : listWidgets) {
            if (!pWidget->isVisible())
                continue;
            ADD_FAILURE() << "a window was left open: " << pWidget->metaObject()->className() << ' '
                          << qPrintable(pWidget->objectName());
            pWidget->hide();
        }
    }
};

} // namespace

ExpectWarning::ExpectWarning(const QString& sPart)
{
    const QMutexLocker lock(&Expected().mutex);
    Expected().sPart = sPart;
    Expected().nSeen = 0;
}

ExpectWarning::~ExpectWarning()
{
    const QMutexLocker lock(&Expected().mutex);
    EXPECT_GT(Expected().nSeen, 0) << "no warning with: " << qPrintable(Expected().sPart);
    Expected().sPart.clear();
}

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
    qInstallMessageHandler(&OnMessage);
    const int nResult = RUN_ALL_TESTS();
    qInstallMessageHandler(nullptr);
    return nResult;
}

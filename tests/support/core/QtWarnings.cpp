#include "QtWarnings.h"

#include <QMutex>

#include <gtest/gtest.h>

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
    // The platform without a display says this of every window with a least size.
    static const QString s_sNoDisplay = QStringLiteral("This plugin does not support propagateSizeHints()");
    if (type == QtDebugMsg || type == QtInfoMsg || sText == s_sNoDisplay || TakeExpected(sText))
        return;
    ADD_FAILURE() << "Qt warned: " << qPrintable(sText) << " (" << (context.category ? context.category : "")
                  << ')';
    if (type == QtFatalMsg)
        fprintf(stderr, "%s\n", qPrintable(sText));
}

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

void InstallWarningHandler()
{
    qInstallMessageHandler(&OnMessage);
}

void RemoveWarningHandler()
{
    qInstallMessageHandler(nullptr);
}

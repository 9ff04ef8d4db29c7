#include "CClientApp.h"

#include <QApplication>

#include <cstdio>

int main(int argc, char** argv)
{
    QCoreApplication::setApplicationName(QStringLiteral("securityclient"));
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);

    // The options are read before there is a display, so that --help works without one.
    QStringList listArguments;
    for (int i = 0; i < argc; ++i)
        listArguments << QString::fromLocal8Bit(argv[i]);
    int nExitCode = 0;
    QString sOutput;
    const auto options = ClientApp::ParseOptions(listArguments, nExitCode, sOutput);
    if (!options) {
        fputs(qPrintable(sOutput), nExitCode == 0 ? stdout : stderr);
        return nExitCode;
    }

    QApplication application(argc, argv);
    ClientApp::CClientApp client(*options);
    if (!client.Start())
        return 1;
    return QApplication::exec();
}

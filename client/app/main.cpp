#include "CClientApp.h"

#include <QApplication>

#include <cstdio>

int main(int argc, char** argv)
{
    QCoreApplication::setApplicationName(QStringLiteral("securityclient"));
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);

    // The options are read without a display, so that --help works without one.
    int nExitCode = 0;
    QString sOutput;
    std::optional<ClientApp::ClientOptions> options;
    {
        const QCoreApplication console(argc, argv);
        options = ClientApp::ParseOptions(QCoreApplication::arguments(), nExitCode, sOutput);
    }
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

#include "Log.h"
#include "PlatformServer.h"
#include "ServiceError.h"
#include "services/SessionService.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QSocketNotifier>
#include <QStandardPaths>

#include <csignal>
#include <cstdio>
#include <fstream>
#include <iostream>
#include <unistd.h>

namespace {

int s_signalPipe[2] = {-1, -1};

void OnSignal(int)
{
    const char byte = 0;
    // Nothing can be done about a full pipe: it means that a signal waits already.
    [[maybe_unused]] const auto nWritten = write(s_signalPipe[1], &byte, 1);
}

void LogQtMessage(QtMsgType type, const QMessageLogContext&, const QString& sText)
{
    if (type == QtDebugMsg || type == QtInfoMsg)
        Platform::Log::Info("qt", sText.toStdString());
    else
        Platform::Log::Warning("qt", sText.toStdString());
}

struct CommandLine
{
    Platform::ServerOptions options;
    bool bSetPassword = false;
    bool bExitWithParent = false;
};

[[noreturn]] void Refuse(const std::string& sMessage)
{
    throw Platform::StartError(Platform::ExitUsage, sMessage);
}

int Number(const QCommandLineParser& parser, const QString& sOption, int nMin, int nMax)
{
    bool bNumber = false;
    const int nValue = parser.value(sOption).toInt(&bNumber);
    if (!bNumber || nValue < nMin || nValue > nMax)
        Refuse("--" + sOption.toStdString() + " takes a number from " + std::to_string(nMin) + " to "
            + std::to_string(nMax));
    return nValue;
}

std::string CloudUrl(const QString& sUrl)
{
    if (!sUrl.isEmpty() && !sUrl.startsWith(QLatin1String("http://"))
        && !sUrl.startsWith(QLatin1String("https://")))
        Refuse("--cloud-url takes an address that begins with http:// or https://");
    return sUrl.toStdString();
}

void SetListen(Platform::ServerOptions& options, const QString& sListen)
{
    const int nColon = sListen.lastIndexOf(QLatin1Char(':'));
    bool bNumber = false;
    const int nPort = sListen.mid(nColon + 1).toInt(&bNumber);
    QString sHost = sListen.left(nColon);
    if (sHost.startsWith(QLatin1Char('[')) && sHost.endsWith(QLatin1Char(']')))
        sHost = sHost.mid(1, sHost.size() - 2);
    if (nColon < 1 || sHost.isEmpty() || !bNumber || nPort < 0 || nPort > 65535)
        Refuse("--listen takes an address and a port, as in 127.0.0.1:8420");
    options.sListenHost = sHost.toStdString();
    options.nListenPort = nPort;
}

void AddOptions(QCommandLineParser& parser)
{
    parser.setApplicationDescription(QStringLiteral("The central server of the security platform."));
    parser.addHelpOption();
    parser.addVersionOption();
    const auto value = [&parser](const char* szName, const char* szText, const char* szValue,
                           const QString& sDefault) {
        parser.addOption({QString::fromLatin1(szName), QString::fromLatin1(szText),
            QString::fromLatin1(szValue), sDefault});
    };
    const auto flag = [&parser](const char* szName, const char* szText) {
        parser.addOption({QString::fromLatin1(szName), QString::fromLatin1(szText)});
    };
    value(
        "listen", "Address to serve on; port 0: a free one.", "HOST:PORT", QStringLiteral("127.0.0.1:8420"));
    value("data-dir", "Folder of the server's files.", "FOLDER",
        QStandardPaths::writableLocation(QStandardPaths::AppDataLocation));
    value("database", "SQLite file (by default platform.db in the data folder) or postgresql:// URL.",
        "DATABASE", {});
    value("tls-cert", "PEM file of the certificate; with --tls-key the server speaks HTTPS.", "FILE", {});
    value("tls-key", "PEM file of the certificate's key.", "FILE", {});
    flag("seed-demo", "Fill an empty database with a demonstration site.");
    value("seed-devices", "Fill an empty database with that many devices.", "NUMBER", QStringLiteral("0"));
    value("seed-persons", "Fill a database without persons with that many.", "NUMBER", QStringLiteral("0"));
    value("seed-person-groups", "Groups of --seed-persons.", "NUMBER", QStringLiteral("100"));
    value("probe-interval", "Seconds between two looks at the devices; 0: never.", "SECONDS",
        QStringLiteral("15"));
    value("probe-concurrency", "Devices that are tried at a time.", "NUMBER", QStringLiteral("256"));
    value(
        "probe-timeout", "Milliseconds after which a device counts as silent.", "MS", QStringLiteral("2000"));
    value("cloud-url", "Account service of P2P devices; without one there are no cloud accounts.", "URL", {});
    value("ldap-url",
        "Directory of domain users (ldap:// or ldaps://); without one there are no domain users.", "URL", {});
    value("ldap-base", "Distinguished name below which the directory's users are.", "DN", {});
    value("ldap-bind-dn", "The server's own login to the directory; without one it reads anonymously.", "DN",
        {});
    value("ldap-password-file", "File whose first line is the password of --ldap-bind-dn.", "FILE", {});
    value("ldap-user-filter", "Which entries of the directory are users.", "FILTER",
        QStringLiteral("(objectClass=person)"));
    value("ldap-name-attribute", "Attribute that holds the name to sign in with.", "NAME",
        QStringLiteral("uid"));
    value("ldap-ca", "PEM file of the certificates that the directory may have.", "FILE", {});
    flag("ldap-start-tls", "Encrypt the connection to an ldap:// directory.");
    value("search-timeout", "Milliseconds that a search for devices waits for answers.", "MS",
        QStringLiteral("3000"));
    value("device-timeout", "Milliseconds after which a question to a device is given up.", "MS",
        QStringLiteral("5000"));
    value("discovery-port", "UDP port that the platform's own devices are searched on.", "PORT",
        QStringLiteral("37810"));
    value("onvif-discovery-port", "UDP port that ONVIF devices are searched on.", "PORT",
        QStringLiteral("3702"));
    value("token-lifetime", "Minutes that an unused session lasts.", "MINUTES", QStringLiteral("720"));
    flag("set-password", "Read the built-in account's password from the standard input, set it and end.");
    flag("exit-with-parent", "End when the standard input is closed.");
}

Platform::DirectoryOptions ReadDirectory(const QCommandLineParser& parser)
{
    const auto text = [&parser](const char* szName) {
        return parser.value(QString::fromLatin1(szName)).toStdString();
    };
    Platform::DirectoryOptions directory;
    directory.sUrl = text("ldap-url");
    if (!directory.sUrl.empty() && directory.sUrl.rfind("ldap://", 0) != 0
        && directory.sUrl.rfind("ldaps://", 0) != 0)
        Refuse("--ldap-url takes an address that begins with ldap:// or ldaps://");
    directory.sBaseDn = text("ldap-base");
    if (directory.sUrl.empty() != directory.sBaseDn.empty())
        Refuse("--ldap-url and --ldap-base go together");
    directory.sBindDn = text("ldap-bind-dn");
    directory.sUserFilter = text("ldap-user-filter");
    directory.sNameAttribute = text("ldap-name-attribute");
    directory.sCaFile = text("ldap-ca");
    directory.bStartTls = parser.isSet(QStringLiteral("ldap-start-tls"));
    if (const std::string sFile = text("ldap-password-file"); !sFile.empty()) {
        std::ifstream file(sFile);
        if (!std::getline(file, directory.sBindPassword))
            Refuse("The password file " + sFile + " cannot be read");
    }
    return directory;
}

CommandLine Read(const QCoreApplication& application)
{
    QCommandLineParser parser;
    AddOptions(parser);
    if (!parser.parse(application.arguments()))
        Refuse(parser.errorText().toStdString());
    if (parser.isSet(QStringLiteral("help")))
        parser.showHelp();
    if (parser.isSet(QStringLiteral("version")))
        parser.showVersion();
    if (!parser.positionalArguments().isEmpty())
        Refuse("Not an option: " + parser.positionalArguments().first().toStdString());

    CommandLine line;
    Platform::ServerOptions& options = line.options;
    SetListen(options, parser.value(QStringLiteral("listen")));
    options.sDataDir = parser.value(QStringLiteral("data-dir"));
    options.database.sText = parser.value(QStringLiteral("database"));
    options.sCertificate = parser.value(QStringLiteral("tls-cert"));
    options.sKey = parser.value(QStringLiteral("tls-key"));
    if (options.sCertificate.isEmpty() != options.sKey.isEmpty())
        Refuse("--tls-cert and --tls-key go together");
    options.bSeedDemo = parser.isSet(QStringLiteral("seed-demo"));
    options.nSeedDevices = Number(parser, QStringLiteral("seed-devices"), 0, 1000000);
    options.nSeedPersons = Number(parser, QStringLiteral("seed-persons"), 0, 10000000);
    options.nSeedPersonGroups = Number(parser, QStringLiteral("seed-person-groups"), 1, 100000);
    options.nProbeIntervalSeconds = Number(parser, QStringLiteral("probe-interval"), 0, 86400);
    options.nProbeConcurrency = Number(parser, QStringLiteral("probe-concurrency"), 1, 10000);
    options.nProbeTimeoutMs = Number(parser, QStringLiteral("probe-timeout"), 1, 60000);
    options.directory = ReadDirectory(parser);
    options.sCloudUrl = CloudUrl(parser.value(QStringLiteral("cloud-url")));
    options.nSearchTimeoutMs = Number(parser, QStringLiteral("search-timeout"), 100, 60000);
    options.nDeviceTimeoutMs = Number(parser, QStringLiteral("device-timeout"), 100, 60000);
    options.nDiscoveryPort = Number(parser, QStringLiteral("discovery-port"), 1, 65535);
    options.nOnvifDiscoveryPort = Number(parser, QStringLiteral("onvif-discovery-port"), 1, 65535);
    options.nTokenLifetimeMinutes = Number(parser, QStringLiteral("token-lifetime"), 2, 525600);
    line.bSetPassword = parser.isSet(QStringLiteral("set-password"));
    line.bExitWithParent = parser.isSet(QStringLiteral("exit-with-parent"));
    return line;
}

int SetPassword(Platform::PlatformServer& server)
{
    std::string sPassword;
    std::getline(std::cin, sPassword);
    server.Open();
    try {
        server.Sessions().SetPassword(sPassword);
    } catch (const Platform::ServiceError& error) {
        throw Platform::StartError(
            Platform::ExitPassword, "The password was not set. It has to be: " + error.Detail());
    }
    return Platform::ExitOk;
}

int Serve(QCoreApplication& application, Platform::PlatformServer& server, bool bExitWithParent)
{
    if (pipe(s_signalPipe) != 0)
        throw Platform::StartError(Platform::ExitUsage, "No descriptor is left");
    QSocketNotifier onSignal(s_signalPipe[0], QSocketNotifier::Read);
    QObject::connect(&onSignal, &QSocketNotifier::activated, &application, &QCoreApplication::quit);
    std::signal(SIGTERM, OnSignal);
    std::signal(SIGINT, OnSignal);

    QSocketNotifier onInput(STDIN_FILENO, QSocketNotifier::Read);
    onInput.setEnabled(bExitWithParent);
    QObject::connect(&onInput, &QSocketNotifier::activated, &application, [&application, &onInput] {
        char buffer[256];
        if (read(STDIN_FILENO, buffer, sizeof(buffer)) > 0)
            return;
        onInput.setEnabled(false);
        application.quit();
    });

    server.Start();
    std::printf("listening on %s\n", server.Url().c_str());
    std::fflush(stdout);
    const int nResult = QCoreApplication::exec();
    server.Stop();
    return nResult;
}

} // namespace

int main(int argc, char** argv)
{
    std::signal(SIGPIPE, SIG_IGN);
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("platformd"));
    QCoreApplication::setApplicationVersion(QStringLiteral(PLATFORM_VERSION));
    qInstallMessageHandler(LogQtMessage);
    try {
        const CommandLine line = Read(application);
        Platform::PlatformServer server(line.options);
        if (line.bSetPassword)
            return SetPassword(server);
        return Serve(application, server, line.bExitWithParent);
    } catch (const Platform::StartError& error) {
        Platform::Log::Error("server", error.what());
        return error.Exit();
    } catch (const std::exception& error) {
        Platform::Log::Error("server", error.what());
        return 1;
    }
}

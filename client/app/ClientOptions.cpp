#include "ClientOptions.h"

#include <QCommandLineParser>

namespace ClientApp {

namespace {

bool IsServerUrl(const QUrl& url)
{
    return url.isValid() && !url.host().isEmpty()
        && (url.scheme() == QLatin1String("http") || url.scheme() == QLatin1String("https"));
}

} // namespace

std::optional<ClientOptions> ParseOptions(const QStringList& listArguments, int& nExitCode, QString& sOutput)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Security management client with its configuration module.\n"
        "Without options it starts a server of its own, with its data in the user's data folder."));
    const QCommandLineOption help(
        {QStringLiteral("h"), QStringLiteral("help")}, QStringLiteral("Shows this text."));
    const QCommandLineOption demo(QStringLiteral("demo"),
        QStringLiteral(
            "Throwaway data folder with a believable site and simulated devices, signed in at once."));
    const QCommandLineOption server(QStringLiteral("server"),
        QStringLiteral("Uses the server at <url> (http or https)."), QStringLiteral("url"));
    const QCommandLineOption ca(QStringLiteral("ca"),
        QStringLiteral("Trusts the certificates in <file> (PEM) besides the system's."),
        QStringLiteral("file"));
    const QCommandLineOption data(QStringLiteral("data-dir"),
        QStringLiteral("Keeps data and settings in <folder>."), QStringLiteral("folder"));
    const QCommandLineOption screenshots(QStringLiteral("screenshots"),
        QStringLiteral("Opens every page on demo data, writes one PNG a page to <folder> and ends."),
        QStringLiteral("folder"));
    const QCommandLineOption skin(
        QStringLiteral("skin"), QStringLiteral("Look: light or dark."), QStringLiteral("name"));
    const QCommandLineOption plugin(QStringLiteral("plugin"),
        QStringLiteral("Loads the configuration module from <file>."), QStringLiteral("file"));
    parser.addOptions({help, demo, server, ca, data, screenshots, skin, plugin});

    const auto refuse = [&](const QString& sReason) {
        nExitCode = 2;
        sOutput = sReason + QStringLiteral("\nTry --help.\n");
        return std::nullopt;
    };
    if (!parser.parse(listArguments))
        return refuse(parser.errorText());
    if (parser.isSet(help)) {
        nExitCode = 0;
        sOutput = parser.helpText();
        return std::nullopt;
    }
    if (!parser.positionalArguments().isEmpty())
        return refuse(QStringLiteral("Unexpected argument: ") + parser.positionalArguments().first());

    ClientOptions options;
    options.sScreenshotDir = parser.value(screenshots);
    options.bDemo = parser.isSet(demo) || parser.isSet(screenshots);
    options.server = QUrl(parser.value(server));
    options.sCaFile = parser.value(ca);
    options.sDataDir = parser.value(data);
    options.sPluginPath = parser.value(plugin);
    options.sSkin = parser.value(skin);
    if (parser.isSet(server) && !IsServerUrl(options.server))
        return refuse(QStringLiteral("Not a server address: ") + parser.value(server));
    if (parser.isSet(server) && options.bDemo)
        return refuse(QStringLiteral("--server goes with neither --demo nor --screenshots."));
    if (parser.isSet(skin) && options.sSkin != QLatin1String("light")
        && options.sSkin != QLatin1String("dark"))
        return refuse(QStringLiteral("Not a look: ") + options.sSkin);
    return options;
}

} // namespace ClientApp

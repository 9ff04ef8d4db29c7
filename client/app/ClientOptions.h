#pragma once

#include <QSize>
#include <QString>
#include <QStringList>
#include <QUrl>

#include <optional>

namespace ClientApp {

/// What the command line asks for.
struct ClientOptions
{
    bool bDemo = false; ///< throwaway data, seeded, signed in at once
    QUrl server; ///< empty: the client's own server
    QString sCaFile; ///< certificates to trust besides the system's
    QString sDataDir; ///< data of the own server and settings; empty: the user's folders
    QString sScreenshotDir; ///< empty: none
    QString sSkin; ///< empty: the one chosen last
    QString sPluginPath; ///< empty: beside the program
};

/// Reads the command line. Nothing when the program is to end at once: nExitCode and sOutput then say how.
std::optional<ClientOptions> ParseOptions(const QStringList& listArguments, int& nExitCode, QString& sOutput);

} // namespace ClientApp

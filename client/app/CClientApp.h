#pragma once

#include "ClientOptions.h"

#include <QObject>
#include <QSslConfiguration>
#include <QTemporaryDir>

#include <memory>

namespace PlatformLogic {
class CPlatformClient;
}

namespace ClientApp {

class CEmbeddedServer;
class CMainWindow;
class CPluginHost;
class CScreenshotTour;
class CSignInDlg;

/// The run of the client from its start to its end: server, sign-in, plug-in, window. User-interface thread.
class CClientApp : public QObject
{
    Q_OBJECT

public:
    explicit CClientApp(const ClientOptions& options);
    ~CClientApp() override;

    /// Starts; false with a message on the standard error when the client cannot run at all.
    bool Start();

private:
    bool SetUpFolders();
    bool SetUpTls(QSslConfiguration& tls) const;
    void StartServer();
    void OnServerReady(const QUrl& url);
    void StartDemoDevices();
    void OnServerFailed(const QString& sReason);
    void AskForSignIn();
    void OnSignedIn();
    void OnSignInGivenUp();
    void OnSessionEnded();
    void OnSignOut();
    void OpenWindow();
    void CloseWindow();
    void ApplySkin(const QString& sSkin);
    void SwitchSkin();

    ClientOptions m_options;
    QTemporaryDir m_demoDir;
    QString m_sDataDir;
    QString m_sConfigDir;
    // Destroyed from the last to the first: the window before the plug-in, the plug-in before the managers.
    std::unique_ptr<CEmbeddedServer> m_pServer;
    std::unique_ptr<PlatformLogic::CPlatformClient> m_pClient;
    std::unique_ptr<CPluginHost> m_pPlugin;
    std::unique_ptr<CMainWindow> m_pWindow;
    std::unique_ptr<CSignInDlg> m_pSignIn;
    std::unique_ptr<CScreenshotTour> m_pTour;
    std::string m_sWindowUser; ///< account whose pages the window shows
};

} // namespace ClientApp

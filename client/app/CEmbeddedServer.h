#pragma once

#include <QObject>
#include <QProcess>
#include <QUrl>

namespace ClientApp {

/// The client's own server: "platformd" as a child process on a free loopback port. It ends with the client,
/// also when the client is killed. User-interface thread.
class CEmbeddedServer : public QObject
{
    Q_OBJECT

public:
    explicit CEmbeddedServer(QObject* pParent = nullptr);
    /// Stops the server and waits for it, at most ten seconds.
    ~CEmbeddedServer() override;

    /// Starts the server on that data folder; answered by one of the two signals.
    void Start(const QString& sDataDir, bool bSeedDemo);
    /// Starts the simulated devices of a demo data folder.
    void StartFieldDevices(const QString& sDataDir);

Q_SIGNALS:
    void SignalReady(const QUrl& url);
    /// The server could not start, or ended by itself.
    void SignalFailed(const QString& sReason);

private:
    void OnOutput();
    void OnLog();
    void OnFinished();
    static void StopProcess(QProcess& process);
    static QString ProgramPath(const QString& sName);

    QProcess m_server;
    QProcess m_fieldDevices;
    QByteArray m_lastLog;
    bool m_bReady = false;
    int m_nDiscoveryPort = 0; ///< of the demonstration: what its server searches and its devices answer on
    int m_nOnvifDiscoveryPort = 0;
    bool m_bStopping = false;
};

} // namespace ClientApp

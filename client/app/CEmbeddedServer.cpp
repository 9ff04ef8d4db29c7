#include "CEmbeddedServer.h"

#include <QCoreApplication>
#include <QJsonDocument>
#include <QJsonObject>
#include <QUdpSocket>

namespace ClientApp {

namespace {
constexpr int StopTimeOutMs = 10000;
const char* const ReadyPrefix = "listening on ";

int FreeUdpPort()
{
    QUdpSocket socket;
    socket.bind(QHostAddress(QHostAddress::LocalHost), 0);
    return socket.localPort();
}
} // namespace

CEmbeddedServer::CEmbeddedServer(QObject* pParent)
    : QObject(pParent)
{
    // The log is read here to tell the reason of a failed start, and passed on to the terminal.
    connect(&m_server, &QProcess::readyReadStandardOutput, this, &CEmbeddedServer::OnOutput);
    connect(&m_server, &QProcess::readyReadStandardError, this, &CEmbeddedServer::OnLog);
    connect(&m_server, qOverload<int, QProcess::ExitStatus>(&QProcess::finished), this,
        &CEmbeddedServer::OnFinished);
    connect(&m_server, &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart)
            Q_EMIT SignalFailed(
                tr("The server program could not be started: %1").arg(m_server.errorString()));
    });
    m_fieldDevices.setProcessChannelMode(QProcess::ForwardedErrorChannel);
}

CEmbeddedServer::~CEmbeddedServer()
{
    m_bStopping = true;
    StopProcess(m_fieldDevices);
    StopProcess(m_server);
}

void CEmbeddedServer::StopProcess(QProcess& process)
{
    if (process.state() == QProcess::NotRunning)
        return;
    process.terminate();
    process.closeWriteChannel();
    if (!process.waitForFinished(StopTimeOutMs))
        process.kill();
    process.waitForFinished(StopTimeOutMs);
}

QString CEmbeddedServer::ProgramPath(const QString& sName)
{
    return QCoreApplication::applicationDirPath() + QLatin1Char('/') + sName;
}

void CEmbeddedServer::Start(const QString& sDataDir, bool bSeedDemo)
{
    QStringList listArguments{QStringLiteral("--listen"), QStringLiteral("127.0.0.1:0"),
        QStringLiteral("--data-dir"), sDataDir, QStringLiteral("--exit-with-parent")};
    if (bSeedDemo) {
        // Ports of their own, so that demonstrations can run side by side.
        m_nDiscoveryPort = FreeUdpPort();
        m_nOnvifDiscoveryPort = FreeUdpPort();
        listArguments << QStringLiteral("--seed-demo") << QStringLiteral("--probe-interval")
                      << QStringLiteral("5") << QStringLiteral("--discovery-port")
                      << QString::number(m_nDiscoveryPort) << QStringLiteral("--onvif-discovery-port")
                      << QString::number(m_nOnvifDiscoveryPort);
    }
    m_server.start(ProgramPath(QStringLiteral("platformd")), listArguments);
}

void CEmbeddedServer::StartFieldDevices(const QString& sDataDir)
{
    m_fieldDevices.start(ProgramPath(QStringLiteral("fielddevice")),
        {QStringLiteral("--devices"), sDataDir + QStringLiteral("/field-devices.json"),
            QStringLiteral("--dozen"), QStringLiteral("--state"),
            sDataDir + QStringLiteral("/field-state.json"), QStringLiteral("--discovery-port"),
            QString::number(m_nDiscoveryPort), QStringLiteral("--onvif-discovery-port"),
            QString::number(m_nOnvifDiscoveryPort), QStringLiteral("--exit-with-parent")});
}

void CEmbeddedServer::OnOutput()
{
    while (m_server.canReadLine()) {
        const QByteArray line = m_server.readLine().trimmed();
        if (m_bReady || !line.startsWith(ReadyPrefix))
            continue;
        m_bReady = true;
        Q_EMIT SignalReady(QUrl(QString::fromLatin1(line.mid(int(qstrlen(ReadyPrefix))))));
    }
}

void CEmbeddedServer::OnLog()
{
    const QByteArray log = m_server.readAllStandardError();
    fwrite(log.constData(), 1, size_t(log.size()), stderr);
    m_lastLog += log;
    m_lastLog = m_lastLog.right(8192);
}

void CEmbeddedServer::OnFinished()
{
    if (m_bStopping)
        return;
    QString sReason;
    const QList<QByteArray> listLines = m_lastLog.trimmed().split('\n');
    if (!listLines.isEmpty())
        sReason =
            QJsonDocument::fromJson(listLines.last()).object().value(QStringLiteral("message")).toString();
    Q_EMIT SignalFailed(
        sReason.isEmpty() ? tr("The server ended unexpectedly.") : tr("The server ended: %1").arg(sReason));
}

} // namespace ClientApp

#pragma once

#include <QPointer>
#include <QTcpServer>
#include <QTcpSocket>
#include <QUrl>

#include <functional>
#include <map>

/// A server on a free loopback port that answers each path with scripted bytes, badly on purpose where a test
/// asks.
class ScriptedServer : public QObject
{
    Q_OBJECT

public:
    /// Answers one request that was read whole; the socket stays open unless the script closes it.
    using Script = std::function<void(QTcpSocket& socket, const QByteArray& body)>;

    ScriptedServer();
    ~ScriptedServer() override { CutAll(); }

    QUrl Url() const;
    void SetScript(const QString& sPath, Script script) { m_mapScripts[sPath] = std::move(script); }
    /// Script for "200 OK" with that body.
    static Script Answer(const QByteArray& body, const QByteArray& status = "200 OK");
    int RequestCount(const QString& sPath) const;
    /// Cuts every connection and takes no more until Listen.
    void CutAll();
    void Listen();

private:
    void OnConnection();
    void OnReadable(QTcpSocket* pSocket);

    QTcpServer m_server;
    quint16 m_nPort = 0;
    std::map<QString, Script> m_mapScripts;
    std::map<QString, int> m_mapCounts;
    std::map<QTcpSocket*, QByteArray> m_mapPending;
    std::vector<QPointer<QTcpSocket>> m_vecSockets;
};

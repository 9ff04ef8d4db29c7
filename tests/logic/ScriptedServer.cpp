#include "ScriptedServer.h"

#include <QRegularExpression>

#include <gtest/gtest.h>

ScriptedServer::ScriptedServer()
{
    connect(&m_server, &QTcpServer::newConnection, this, &ScriptedServer::OnConnection);
    Listen();
}

void ScriptedServer::Listen()
{
    EXPECT_TRUE(m_server.listen(QHostAddress::LocalHost, m_nPort)) << qPrintable(m_server.errorString());
    m_nPort = m_server.serverPort();
}

QUrl ScriptedServer::Url() const
{
    return QUrl(QStringLiteral("http://127.0.0.1:%1").arg(m_nPort));
}

ScriptedServer::Script ScriptedServer::Answer(const QByteArray& body, const QByteArray& status)
{
    return [=](QTcpSocket& socket, const QByteArray&) {
        socket.write("HTTP/1.1 " + status + "\r\nContent-Type: application/json\r\nContent-Length: "
            + QByteArray::number(body.size()) + "\r\n\r\n" + body);
    };
}

int ScriptedServer::RequestCount(const QString& sPath) const
{
    const auto it = m_mapCounts.find(sPath);
    return it == m_mapCounts.end() ? 0 : it->second;
}

void ScriptedServer::CutAll()
{
    m_server.close();
    for (const QPointer<QTcpSocket>& pSocket : m_vecSockets) {
        if (pSocket)
            pSocket->abort();
    }
    m_vecSockets.clear();
}

void ScriptedServer::OnConnection()
{
    while (QTcpSocket* pSocket = m_server.nextPendingConnection()) {
        m_vecSockets.emplace_back(pSocket);
        connect(pSocket, &QTcpSocket::readyRead, this, [this, pSocket] { OnReadable(pSocket); });
        connect(pSocket, &QTcpSocket::disconnected, this, [this, pSocket] {
            m_mapPending.erase(pSocket);
            pSocket->deleteLater();
        });
    }
}

void ScriptedServer::OnReadable(QTcpSocket* pSocket)
{
    QByteArray& pending = m_mapPending[pSocket];
    pending += pSocket->readAll();
    const int nHead = pending.indexOf("\r\n\r\n");
    if (nHead < 0)
        return;
    const QString sHead = QString::fromLatin1(pending.left(nHead));
    static const QRegularExpression s_length(
        QStringLiteral("content-length: *(\\d+)"), QRegularExpression::CaseInsensitiveOption);
    const int nLength = s_length.match(sHead).captured(1).toInt();
    if (pending.size() < nHead + 4 + nLength)
        return;
    const QByteArray body = pending.mid(nHead + 4, nLength);
    pending.clear();
    const QString sPath = sHead.section(QLatin1Char(' '), 1, 1);
    ++m_mapCounts[sPath];
    const auto it = m_mapScripts.find(sPath);
    if (it != m_mapScripts.end())
        it->second(*pSocket, body);
    else
        Answer("{\"code\":5}", "404 Not Found")(*pSocket, body);
}

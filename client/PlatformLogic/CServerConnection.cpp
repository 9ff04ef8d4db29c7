#include "CServerConnection.h"

#include "AnswerReader.h"

#include <UICommonMdl/ErrorCodes.h>

namespace PlatformLogic {

CServerConnection::CServerConnection()
    : m_pWorker(new CNetworkWorker)
{
    m_pWorker->moveToThread(&m_thread);
    connect(&m_thread, &QThread::finished, m_pWorker, &QObject::deleteLater);
    connect(m_pWorker, &CNetworkWorker::SignalStreamState, m_pWorker,
        [this](CNetworkWorker::StreamState state) { OnStreamState(state); });
    connect(m_pWorker, &CNetworkWorker::SignalEvent, m_pWorker,
        [this](const std::string& sName, const std::string& sData) {
            if (m_eventHandler)
                m_eventHandler(sName, sData);
        });
    m_thread.setObjectName(QStringLiteral("network"));
    m_thread.start();
}

CServerConnection::~CServerConnection()
{
    Stop();
}

void CServerConnection::Stop()
{
    if (!m_thread.isRunning())
        return;
    // Every request that was accepted is answered, also when the client ends.
    QMetaObject::invokeMethod(
        m_pWorker,
        [this] {
            m_pWorker->CancelAll();
            m_pWorker->CloseStream();
        },
        Qt::BlockingQueuedConnection);
    m_thread.quit();
    m_thread.wait();
}

void CServerConnection::SetServer(const QUrl& url, const QSslConfiguration& tls)
{
    m_server = url;
    QMetaObject::invokeMethod(m_pWorker, [this, url, tls] { m_pWorker->SetServer(url, tls); });
}

int CServerConnection::Send(const std::string& sOperation, const QByteArray& body, DataHandler onData,
    AnswerHandler onEnd, int nDelayMs)
{
    const int nSequence = ++m_nSequence;
    const int nTimeOutMs = m_nTimeOutMs;
    const int nSession = m_nSession;
    ++m_nOpenRequests;
    const auto pReader = std::make_shared<AnswerReader>(
        nSequence, std::move(onData), [this, nSession, onEnd = std::move(onEnd)](const ServerAnswer& answer) {
            onEnd(answer);
            --m_nOpenRequests;
            if (answer.nErrorCode == UICommonMdl::ErrorNotSignedIn && nSession == m_nSession
                && m_stateHandler)
                m_stateHandler(State::SessionRefused);
        });
    QMetaObject::invokeMethod(m_pWorker, [=, this] {
        if (nDelayMs > 0)
            m_pWorker->PostLater(nDelayMs, sOperation, body, nTimeOutMs, pReader);
        else
            m_pWorker->Post(sOperation, body, nTimeOutMs, pReader);
    });
    return nSequence;
}

void CServerConnection::OpenSession(const std::string& sToken)
{
    ++m_nSession;
    QMetaObject::invokeMethod(m_pWorker, [this, sToken] {
        m_pWorker->SetToken(sToken);
        m_pWorker->OpenStream();
    });
}

void CServerConnection::CloseSession(OpenRequests openRequests)
{
    QMetaObject::invokeMethod(m_pWorker, [this, openRequests] {
        if (openRequests == OpenRequests::Cancel)
            m_pWorker->CancelAll();
        m_pWorker->CloseStream();
        m_pWorker->SetToken({});
    });
}

void CServerConnection::OnStreamState(CNetworkWorker::StreamState state)
{
    if (!m_stateHandler)
        return;
    switch (state) {
    case CNetworkWorker::StreamState::Closed:
        return m_stateHandler(State::Disconnected);
    case CNetworkWorker::StreamState::Connected:
        return m_stateHandler(State::Connected);
    case CNetworkWorker::StreamState::Lost:
        return m_stateHandler(State::Lost);
    case CNetworkWorker::StreamState::Refused:
        return m_stateHandler(State::SessionRefused);
    }
}

} // namespace PlatformLogic

#pragma once

#include "CNetworkWorker.h"
#include "IServerConnection.h"

#include <QSslConfiguration>
#include <QThread>
#include <QUrl>

#include <atomic>
#include <functional>
#include <string>

namespace PlatformLogic {

/// The one connection to the server: requests and the event stream run on a network thread of its own. Calls
/// from any thread; handlers are called on the network thread.
class CServerConnection : public QObject, public IServerConnection
{
    Q_OBJECT

public:
    using EventHandler = std::function<void(const std::string& sName, const std::string& sData)>;
    /// What became of the event stream, and with it of the connection.
    enum class State
    {
        Disconnected,
        Connected,
        Lost,
        SessionRefused
    };
    using StateHandler = std::function<void(State state)>;

    /// Time-out of a request without traffic, in milliseconds.
    static constexpr int DefaultTimeOutMs = 30000;

    CServerConnection();
    ~CServerConnection() override;

    /// Answers what is open with ErrorCancelled and ends the network thread: no handler is called after it
    /// returned.
    void Stop();

    void SetServer(const QUrl& url, const QSslConfiguration& tls);
    QUrl GetServer() const { return m_server; }
    void SetTimeOut(int nMilliseconds) { m_nTimeOutMs = nMilliseconds; }

    int Send(const std::string& sOperation, const QByteArray& body, DataHandler onData, AnswerHandler onEnd,
        int nDelayMs) override;
    /// Requests that are not answered yet.
    int GetOpenRequestCount() const { return m_nOpenRequests; }

    /// From now on requests carry this token and the event stream is kept open.
    void OpenSession(const std::string& sToken);
    void CloseSession(OpenRequests openRequests) override;

    /// Handlers are set before the session is opened.
    void SetEventHandler(EventHandler handler) { m_eventHandler = std::move(handler); }
    void SetStateHandler(StateHandler handler) { m_stateHandler = std::move(handler); }

private:
    void OnStreamState(CNetworkWorker::StreamState state);

    QThread m_thread;
    CNetworkWorker* m_pWorker;
    QUrl m_server;
    std::atomic<int> m_nSequence{0};
    std::atomic<int> m_nOpenRequests{0};
    /// Raised by every new session: a late refusal of an older one says nothing about the present one.
    std::atomic<int> m_nSession{0};
    std::atomic<int> m_nTimeOutMs{DefaultTimeOutMs};
    EventHandler m_eventHandler;
    StateHandler m_stateHandler;
};

} // namespace PlatformLogic

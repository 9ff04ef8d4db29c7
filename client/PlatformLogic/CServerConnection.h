#pragma once

#include "CNetworkWorker.h"

#include <QSslConfiguration>
#include <QThread>
#include <QUrl>

#include <nlohmann/json.hpp>

#include <atomic>
#include <functional>
#include <string>

namespace PlatformLogic {

/// What a request was answered.
struct ServerAnswer
{
    int nSequence = 0;
    int nErrorCode = 0; ///< UICommonMdl::ErrorCode
    std::string sDetail;
    nlohmann::json data; ///< null on an error
};

/// The one connection to the server: requests and the event stream run on a network thread of its own. Calls
/// from any thread; handlers are called on the network thread.
class CServerConnection : public QObject
{
    Q_OBJECT

public:
    using AnswerHandler = std::function<void(const ServerAnswer& answer)>;
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

    /// Sends the operation with that JSON body. The number is above 0, and the handler is called exactly once
    /// with it. With a delay it is sent after so many milliseconds.
    int Send(const std::string& sOperation, const QByteArray& body, AnswerHandler handler, int nDelayMs = 0);
    /// Requests that are not answered yet.
    int GetOpenRequestCount() const { return m_nOpenRequests; }

    /// From now on requests carry this token and the event stream is kept open.
    void OpenSession(const std::string& sToken);
    /// Drops token and stream. Requests under way end with ErrorCancelled, or with their own answer when they
    /// are kept.
    enum class OpenRequests
    {
        Cancel,
        Keep
    };
    void CloseSession(OpenRequests openRequests = OpenRequests::Cancel);

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

#pragma once

#include "EventStreamParser.h"

#include <QHash>
#include <QNetworkAccessManager>
#include <QObject>
#include <QSslConfiguration>
#include <QTimer>
#include <QUrl>

#include <atomic>
#include <functional>
#include <memory>
#include <string>

class QNetworkReply;

namespace PlatformLogic {

/// The raw answer of one request.
struct RawAnswer
{
    int nErrorCode = 0; ///< of the connection: 0 when a body was read
    QByteArray body;
};

/// The network side of the connection: lives on the network thread, all of it is called there.
class CNetworkWorker : public QObject
{
    Q_OBJECT

public:
    using AnswerHandler = std::function<void(const RawAnswer& answer)>;
    enum class StreamState
    {
        Closed,
        Connected,
        Lost,
        Refused
    };

    explicit CNetworkWorker(QObject* pParent = nullptr);
    ~CNetworkWorker() override;

    void SetServer(const QUrl& url, const QSslConfiguration& tls);
    void SetToken(const std::string& sToken);
    /// Sends one request; the handler is called exactly once, here or from the event loop.
    void Post(
        const std::string& sOperation, const QByteArray& body, int nTimeOutMs, const AnswerHandler& handler);
    /// As Post, after a while.
    void PostLater(int nDelayMs, const std::string& sOperation, const QByteArray& body, int nTimeOutMs,
        const AnswerHandler& handler);
    /// Opens the event stream and keeps it open, with a new attempt after each loss, until CloseStream.
    void OpenStream();
    void CloseStream();
    /// Ends every open request, and those that wait, with ErrorCancelled.
    void CancelAll();

Q_SIGNALS:
    void SignalStreamState(PlatformLogic::CNetworkWorker::StreamState state);
    void SignalEvent(const std::string& sName, const std::string& sData);

private:
    QNetworkRequest MakeRequest(const QString& sPath) const;
    void OnAnswered(QNetworkReply* pReply);
    void Drop(QNetworkReply* pReply);
    void OnStreamReadable();
    void OnStreamFinished();
    void OnStreamSilent();
    void SetStreamState(StreamState state);
    void DropStream();

    QNetworkAccessManager m_network;
    QUrl m_server;
    QSslConfiguration m_tls;
    QByteArray m_token;
    QHash<QNetworkReply*, AnswerHandler> m_hashOpen;
    QHash<QTimer*, AnswerHandler> m_hashWaiting;
    QNetworkReply* m_pStream = nullptr;
    std::unique_ptr<EventStreamParser> m_pParser;
    StreamState m_streamState = StreamState::Closed;
    bool m_bStreamWanted = false;
    int m_nRetryDelayMs = 0;
    QTimer m_retry;
    QTimer m_silence;
};

} // namespace PlatformLogic

Q_DECLARE_METATYPE(PlatformLogic::CNetworkWorker::StreamState)

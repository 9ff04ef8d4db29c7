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

class AnswerReader;

/// The network side of the connection: lives on the network thread, all of it is called there.
class CNetworkWorker : public QObject
{
    Q_OBJECT

public:
    using Reader = std::shared_ptr<AnswerReader>;
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
    /// Sends one request; the reader is fed and ended, exactly once, here or from the event loop.
    void Post(const std::string& sOperation, const QByteArray& body, int nTimeOutMs, const Reader& pReader);
    /// As Post, after a while.
    void PostLater(int nDelayMs, const std::string& sOperation, const QByteArray& body, int nTimeOutMs,
        const Reader& pReader);
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
    void OnReadable(QNetworkReply* pReply);
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
    QHash<QNetworkReply*, Reader> m_hashOpen;
    QHash<QTimer*, Reader> m_hashWaiting;
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

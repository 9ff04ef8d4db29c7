#include "CNetworkWorker.h"

#include "AnswerReader.h"

#include <UICommonMdl/ErrorCodes.h>
#include <wire/Operation.h>

#include <QNetworkReply>

#include <algorithm>
#include <utility>

namespace PlatformLogic {

namespace {

constexpr int FirstRetryMs = 250;
constexpr int LastRetryMs = 5000;
// The server sends at least a comment every ten seconds; a stream that is silent for longer than two of them
// is dead.
constexpr int SilenceMs = 25000;

// What of an answer waits to be read, in bytes: a long one is read as it comes, and held back meanwhile.
constexpr qint64 ReadBufferSize = 262144;

int ConnectionError(QNetworkReply::NetworkError error)
{
    switch (error) {
    case QNetworkReply::SslHandshakeFailedError:
        return UICommonMdl::ErrorTlsFailed;
    // The transfer time-out of a request ends it as cancelled.
    case QNetworkReply::TimeoutError:
    case QNetworkReply::OperationCanceledError:
        return UICommonMdl::ErrorTimeOut;
    default:
        return UICommonMdl::ErrorDisconnected;
    }
}

/// A body that is sent once. The library sends a request again by itself when the connection ends without a
/// byte of its answer, though the server may have carried it out; with a body that cannot be read again it
/// fails instead.
class OnceBuffer : public QIODevice
{
public:
    OnceBuffer(const QByteArray& body, QObject* pParent)
        : QIODevice(pParent)
        , m_body(body)
    {
        open(QIODevice::ReadOnly | QIODevice::Unbuffered);
    }
    bool isSequential() const override { return true; }
    bool atEnd() const override { return m_nRead == m_body.size(); }
    qint64 bytesAvailable() const override { return m_body.size() - m_nRead; }
    bool reset() override { return m_nRead == 0; }

protected:
    qint64 readData(char* pData, qint64 nMaximum) override
    {
        const qint64 nBytes = std::min<qint64>(nMaximum, bytesAvailable());
        std::copy_n(m_body.constData() + m_nRead, nBytes, pData);
        m_nRead += nBytes;
        return nBytes > 0 || nMaximum == 0 ? nBytes : -1;
    }
    qint64 writeData(const char*, qint64) override { return -1; }

private:
    QByteArray m_body;
    qint64 m_nRead = 0;
};

} // namespace

CNetworkWorker::CNetworkWorker(QObject* pParent)
    : QObject(pParent)
    , m_network(this)
    , m_retry(this)
    , m_silence(this)
{
    m_network.setRedirectPolicy(QNetworkRequest::ManualRedirectPolicy);
    m_retry.setSingleShot(true);
    m_silence.setSingleShot(true);
    connect(&m_retry, &QTimer::timeout, this, &CNetworkWorker::OpenStream);
    connect(&m_silence, &QTimer::timeout, this, &CNetworkWorker::OnStreamSilent);
}

CNetworkWorker::~CNetworkWorker()
{
    DropStream();
}

void CNetworkWorker::SetServer(const QUrl& url, const QSslConfiguration& tls)
{
    m_server = url;
    m_tls = tls;
}

void CNetworkWorker::SetToken(const std::string& sToken)
{
    m_token = QByteArray::fromStdString(sToken);
}

QNetworkRequest CNetworkWorker::MakeRequest(const QString& sPath) const
{
    QUrl url = m_server;
    QString sBase = url.path();
    if (sBase.endsWith(QLatin1Char('/')))
        sBase.chop(1);
    url.setPath(sBase + sPath);
    QNetworkRequest request(url);
    if (url.scheme() == QLatin1String("https"))
        request.setSslConfiguration(m_tls);
    request.setRawHeader(wire::ProtocolVersionHeader, QByteArray::number(wire::ProtocolVersion));
    if (!m_token.isEmpty())
        request.setRawHeader("Authorization", "Bearer " + m_token);
    return request;
}

void CNetworkWorker::Post(
    const std::string& sOperation, const QByteArray& body, int nTimeOutMs, const Reader& pReader)
{
    QNetworkRequest request =
        MakeRequest(QString::fromLatin1(wire::OperationPrefix) + QString::fromStdString(sOperation));
    request.setHeader(QNetworkRequest::ContentTypeHeader, QByteArrayLiteral("application/json"));
    // The library sends head and body of a request apart, and the operating systems would hold the body back
    // on a connection that was used before (Nagle's algorithm against delayed acknowledgements, 40 ms). A new
    // connection costs less.
    request.setRawHeader("Connection", "close");
    request.setTransferTimeout(nTimeOutMs);
    // Or else the library keeps a copy that can be read again.
    request.setAttribute(QNetworkRequest::DoNotBufferUploadDataAttribute, true);
    request.setHeader(QNetworkRequest::ContentLengthHeader, body.size());
    auto* const pBody = new OnceBuffer(body, this);
    QNetworkReply* pReply = m_network.post(request, pBody);
    pBody->setParent(pReply);
    // The library hears of it only once the request was started, which it does from the event loop.
    QMetaObject::invokeMethod(
        pReply, [pReply] { pReply->setReadBufferSize(ReadBufferSize); }, Qt::QueuedConnection);
    m_hashOpen.insert(pReply, pReader);
    connect(pReply, &QNetworkReply::readyRead, this, [this, pReply] { OnReadable(pReply); });
    connect(pReply, &QNetworkReply::finished, this, [this, pReply] { OnAnswered(pReply); });
}

void CNetworkWorker::PostLater(int nDelayMs, const std::string& sOperation, const QByteArray& body,
    int nTimeOutMs, const Reader& pReader)
{
    auto* const pTimer = new QTimer(this);
    pTimer->setSingleShot(true);
    m_hashWaiting.insert(pTimer, pReader);
    connect(pTimer, &QTimer::timeout, this, [=, this] {
        m_hashWaiting.remove(pTimer);
        pTimer->deleteLater();
        Post(sOperation, body, nTimeOutMs, pReader);
    });
    pTimer->start(nDelayMs);
}

void CNetworkWorker::OnReadable(QNetworkReply* pReply)
{
    const QByteArray bytes = pReply->readAll();
    m_hashOpen.value(pReply)->Feed({bytes.constData(), static_cast<std::size_t>(bytes.size())},
        pReply->header(QNetworkRequest::ContentLengthHeader).toULongLong());
}

void CNetworkWorker::OnAnswered(QNetworkReply* pReply)
{
    if (pReply->isOpen())
        OnReadable(pReply);
    // Error statuses of the server carry a readable body all the same; without one the connection failed.
    const bool bAnswered = pReply->attribute(QNetworkRequest::HttpStatusCodeAttribute).isValid();
    const bool bCut =
        pReply->error() != QNetworkReply::NoError && pReply->error() < QNetworkReply::ContentAccessDenied;
    const Reader pReader = m_hashOpen.take(pReply);
    pReply->deleteLater();
    pReader->End(!bAnswered || bCut ? ConnectionError(pReply->error()) : UICommonMdl::ErrorNone);
}

void CNetworkWorker::CancelAll()
{
    const auto hashWaiting = std::exchange(m_hashWaiting, {});
    for (auto it = hashWaiting.begin(); it != hashWaiting.end(); ++it) {
        delete it.key();
        it.value()->End(UICommonMdl::ErrorCancelled);
    }
    const auto hashOpen = std::exchange(m_hashOpen, {});
    for (auto it = hashOpen.begin(); it != hashOpen.end(); ++it) {
        Drop(it.key());
        it.value()->End(UICommonMdl::ErrorCancelled);
    }
}

void CNetworkWorker::Drop(QNetworkReply* pReply)
{
    // Its destruction closes the connection; aborting it first would make an error cross with one that is
    // under way.
    pReply->disconnect(this);
    pReply->deleteLater();
}

void CNetworkWorker::OpenStream()
{
    m_bStreamWanted = true;
    DropStream();
    m_pParser =
        std::make_unique<EventStreamParser>([this](const std::string& sName, const std::string& sData) {
            // The first event tells that the server accepted the stream.
            m_nRetryDelayMs = 0;
            SetStreamState(StreamState::Connected);
            Q_EMIT SignalEvent(sName, sData);
        });
    QNetworkRequest request = MakeRequest(QString::fromLatin1(wire::EventPath));
    request.setRawHeader("Accept", "text/event-stream");
    m_pStream = m_network.get(request);
    connect(m_pStream, &QNetworkReply::readyRead, this, &CNetworkWorker::OnStreamReadable);
    connect(m_pStream, &QNetworkReply::finished, this, &CNetworkWorker::OnStreamFinished);
    m_silence.start(SilenceMs);
}

void CNetworkWorker::CloseStream()
{
    m_bStreamWanted = false;
    m_retry.stop();
    DropStream();
    SetStreamState(StreamState::Closed);
}

void CNetworkWorker::DropStream()
{
    m_silence.stop();
    if (!m_pStream)
        return;
    Drop(std::exchange(m_pStream, nullptr));
}

void CNetworkWorker::OnStreamReadable()
{
    if (m_pStream->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt() != 200)
        return;
    m_silence.start(SilenceMs);
    QNetworkReply* const pStream = m_pStream;
    if (!m_pParser->Feed(pStream->readAll()) && pStream == m_pStream)
        OnStreamSilent();
}

void CNetworkWorker::OnStreamFinished()
{
    const bool bRefused = m_pStream->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt() == 401;
    DropStream();
    if (!m_bStreamWanted)
        return;
    if (bRefused) {
        m_bStreamWanted = false;
        SetStreamState(StreamState::Refused);
        return;
    }
    SetStreamState(StreamState::Lost);
    m_nRetryDelayMs = qBound(FirstRetryMs, m_nRetryDelayMs * 2, LastRetryMs);
    m_retry.start(m_nRetryDelayMs);
}

void CNetworkWorker::OnStreamSilent()
{
    if (m_pStream)
        OnStreamFinished();
}

void CNetworkWorker::SetStreamState(StreamState state)
{
    if (state == m_streamState)
        return;
    m_streamState = state;
    Q_EMIT SignalStreamState(state);
}

} // namespace PlatformLogic

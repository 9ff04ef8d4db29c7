#include "CTransferManager.h"

#include <UICommonMdl/ErrorCodes.h>
#include <wire/Records.h>

#include <QFile>
#include <QNetworkReply>
#include <QTimer>

namespace PlatformLogic {

namespace {

constexpr int TimeOutMs = 60000;

/// The server's error in an answer's body; ErrorDisconnected for one that is not the server's.
std::pair<int, QString> FailureOf(const QByteArray& baBody)
{
    const auto json = nlohmann::json::parse(baBody.begin(), baBody.end(), nullptr, false);
    if (!json.is_object() || !json.contains(wire::AnswerCode) || !json[wire::AnswerCode].is_number_integer())
        return {UICommonMdl::ErrorDisconnected, {}};
    const auto it = json.find(wire::AnswerDetail);
    return {json[wire::AnswerCode].get<int>(),
        it != json.end() && it->is_string() ? QString::fromStdString(it->get<std::string>()) : QString()};
}

bool IsAnswered(QNetworkReply* pReply)
{
    return pReply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt() == 200;
}

} // namespace

CTransferManager::CTransferManager()
    : m_network(this)
{
    m_network.setRedirectPolicy(QNetworkRequest::ManualRedirectPolicy);
}

CTransferManager::~CTransferManager()
{
    for (const auto& [nTransfer, transfer] : m_mapOpen) {
        transfer.pReply->disconnect(this);
        transfer.pReply->abort();
    }
}

void CTransferManager::SetServer(const QUrl& url, const QSslConfiguration& tls)
{
    m_server = url;
    m_tls = tls;
}

QNetworkRequest CTransferManager::MakeRequest(const QString& sUrl) const
{
    QUrl url(sUrl);
    if (url.isRelative()) {
        QString sBase = m_server.toString(QUrl::RemovePath | QUrl::RemoveQuery) + m_server.path();
        if (sBase.endsWith(QLatin1Char('/')))
            sBase.chop(1);
        url = QUrl(sBase + sUrl);
    }
    QNetworkRequest request(url);
    if (url.scheme() == QLatin1String("https"))
        request.setSslConfiguration(m_tls);
    request.setRawHeader("Connection", "close");
    // The library takes a packed body that was cut for a whole one.
    request.setRawHeader("Accept-Encoding", "identity");
    request.setTransferTimeout(TimeOutMs);
    return request;
}

int CTransferManager::Keep(Transfer transfer)
{
    const int nTransfer = ++m_nLast;
    QNetworkReply* const pReply = transfer.pReply;
    const auto report = [this, nTransfer](qint64 nDone, qint64 nTotal) {
        Q_EMIT SignalProgress(nTransfer, nDone, qMax<qint64>(nTotal, 0));
    };
    connect(pReply, transfer.pFile ? &QNetworkReply::downloadProgress : &QNetworkReply::uploadProgress, this,
        report);
    if (transfer.pFile)
        connect(pReply, &QNetworkReply::readyRead, this, [this, nTransfer] { OnReadable(nTransfer); });
    m_mapOpen.emplace(nTransfer, std::move(transfer));
    connect(pReply, &QNetworkReply::finished, this, [this, nTransfer] { OnFinished(nTransfer); });
    return nTransfer;
}

int CTransferManager::Upload(const QString& sUrl, const QString& sFilePath)
{
    auto* const pFile = new QFile(sFilePath, this);
    if (m_server.isEmpty() || !pFile->open(QIODevice::ReadOnly)) {
        delete pFile;
        return 0;
    }
    QNetworkRequest request = MakeRequest(sUrl);
    request.setHeader(QNetworkRequest::ContentTypeHeader, QByteArrayLiteral("application/octet-stream"));
    QNetworkReply* const pReply = m_network.post(request, pFile);
    pFile->setParent(pReply);
    return Keep({pReply, nullptr});
}

int CTransferManager::Download(const QString& sUrl, const QString& sFilePath)
{
    if (m_server.isEmpty() || sUrl.isEmpty())
        return 0;
    auto pFile = std::make_unique<QSaveFile>(sFilePath);
    if (!pFile->open(QIODevice::WriteOnly)) {
        const int nTransfer = ++m_nLast;
        QTimer::singleShot(
            0, this, [this, nTransfer] { Q_EMIT SignalFinished(nTransfer, UICommonMdl::ErrorFile, {}, {}); });
        return nTransfer;
    }
    return Keep({m_network.get(MakeRequest(sUrl)), std::move(pFile)});
}

void CTransferManager::Cancel(int nTransfer)
{
    const auto it = m_mapOpen.find(nTransfer);
    if (it == m_mapOpen.end())
        return;
    it->second.pReply->disconnect(this);
    it->second.pReply->abort();
    QTimer::singleShot(0, this, [this, nTransfer] { Finish(nTransfer, UICommonMdl::ErrorCancelled); });
}

void CTransferManager::OnReadable(int nTransfer)
{
    const auto it = m_mapOpen.find(nTransfer);
    // The body of a refusal is read at its end.
    if (it != m_mapOpen.end() && IsAnswered(it->second.pReply))
        it->second.pFile->write(it->second.pReply->readAll());
}

void CTransferManager::OnFinished(int nTransfer)
{
    Transfer& transfer = m_mapOpen.at(nTransfer);
    QNetworkReply* const pReply = transfer.pReply;
    if (!IsAnswered(pReply) || pReply->error() != QNetworkReply::NoError) {
        const bool bTimeOut = pReply->error() == QNetworkReply::OperationCanceledError;
        const auto [nErrorCode, sDetail] = FailureOf(pReply->isOpen() ? pReply->readAll() : QByteArray());
        Finish(nTransfer, bTimeOut ? UICommonMdl::ErrorTimeOut : nErrorCode, sDetail);
        return;
    }
    if (transfer.pFile) {
        OnReadable(nTransfer);
        Finish(nTransfer, transfer.pFile->commit() ? UICommonMdl::ErrorNone : UICommonMdl::ErrorFile);
        return;
    }
    const QByteArray baBody = pReply->readAll();
    const auto json = nlohmann::json::parse(baBody.begin(), baBody.end(), nullptr, false);
    if (!json.is_object() || !json.contains(wire::AnswerData))
        Finish(nTransfer, UICommonMdl::ErrorBadAnswer);
    else
        Finish(
            nTransfer, UICommonMdl::ErrorNone, {}, QByteArray::fromStdString(json[wire::AnswerData].dump()));
}

void CTransferManager::Finish(
    int nTransfer, int nErrorCode, const QString& sDetail, const QByteArray& baAnswer)
{
    const auto it = m_mapOpen.find(nTransfer);
    if (it == m_mapOpen.end())
        return;
    it->second.pReply->deleteLater();
    m_mapOpen.erase(it);
    Q_EMIT SignalFinished(nTransfer, nErrorCode, sDetail, baAnswer);
}

} // namespace PlatformLogic

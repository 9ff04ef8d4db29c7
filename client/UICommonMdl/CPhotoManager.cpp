#include <UICommonMdl/CPhotoManager.h>

#include <UICommonMdl/ErrorCodes.h>
#include <UICommonMdl/ITransferManager.h>

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>

namespace UICommonMdl {

namespace {

constexpr int DownloadLimit = 6; ///< at a time
constexpr qint64 CacheLimit = qint64(256) * 1024 * 1024;

void RemoveOldest(const QDir& folder)
{
    qint64 nSize = 0;
    const QFileInfoList listFiles = folder.entryInfoList(QDir::Files, QDir::Time);
    for (const QFileInfo& file : listFiles) {
        nSize += file.size();
        if (nSize > CacheLimit)
            QFile::remove(file.filePath());
    }
}

} // namespace

QString CPhotoManager::PathOf(const QString& sUrl) const
{
    const QByteArray baHash = QCryptographicHash::hash(sUrl.toUtf8(), QCryptographicHash::Sha256);
    return m_sFolder + QLatin1Char('/') + QString::fromLatin1(baHash.toHex()) + QStringLiteral(".jpg");
}

QString CPhotoManager::GetLocalPathByUrl(const QString& sUrl) const
{
    if (sUrl.isEmpty() || m_sFolder.isEmpty())
        return {};
    const QString sPath = PathOf(sUrl);
    return QFileInfo::exists(sPath) ? sPath : QString();
}

int CPhotoManager::DownloadPictureByUrl(const QString& sUrl)
{
    if (!m_pTransfers || sUrl.isEmpty() || m_token().isEmpty())
        return 0;
    for (const Download& download : qAsConst(m_mapRunning)) {
        if (download.sUrl == sUrl)
            return download.nId;
    }
    for (const Download& download : qAsConst(m_queWaiting)) {
        if (download.sUrl == sUrl)
            return download.nId;
    }
    m_queWaiting.enqueue({++m_nLast, sUrl});
    QMetaObject::invokeMethod(this, &CPhotoManager::StartNext, Qt::QueuedConnection);
    return m_nLast;
}

void CPhotoManager::StartNext()
{
    while (m_pTransfers && !m_queWaiting.isEmpty() && m_mapRunning.size() < DownloadLimit) {
        const Download download = m_queWaiting.dequeue();
        const QLatin1Char separator(download.sUrl.contains(QLatin1Char('?')) ? '&' : '?');
        const int nTransfer = m_pTransfers->Download(
            download.sUrl + separator + QStringLiteral("token=") + m_token(), PathOf(download.sUrl));
        if (nTransfer > 0)
            m_mapRunning.insert(nTransfer, download);
        else
            Q_EMIT SignalDownLoadFinish(download.nId, ErrorNotSignedIn, download.sUrl);
    }
}

void CPhotoManager::OnFinished(int nTransfer, int nErrorCode)
{
    const auto it = m_mapRunning.find(nTransfer);
    if (it == m_mapRunning.end())
        return;
    const Download download = *it;
    m_mapRunning.erase(it);
    StartNext();
    Q_EMIT SignalDownLoadFinish(download.nId, nErrorCode, download.sUrl);
}

void CPhotoManager::SetSource(
    ITransferManager* pTransfers, std::function<QString()> token, const QString& sFolder)
{
    if (m_pTransfers)
        m_pTransfers->disconnect(this);
    m_queWaiting.clear();
    m_mapRunning.clear();
    m_pTransfers = pTransfers;
    m_token = std::move(token);
    m_sFolder = sFolder;
    if (!pTransfers)
        return;
    QDir().mkpath(sFolder);
    RemoveOldest(QDir(sFolder));
    connect(pTransfers, &ITransferManager::SignalFinished, this,
        [this](int nTransfer, int nErrorCode) { OnFinished(nTransfer, nErrorCode); });
}

CPhotoManager* CGlobalPhotoManager::GetPhotoManager()
{
    static CPhotoManager s_manager;
    return &s_manager;
}

} // namespace UICommonMdl

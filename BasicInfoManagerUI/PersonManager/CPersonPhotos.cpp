#include "CPersonPhotos.h"

#include <UICommonMdl/CPhotoManager.h>
#include <UICommonMdl/ErrorCodes.h>

#include <QFutureWatcher>
#include <QImageReader>
#include <QtConcurrent>

namespace BasicInfoManagerUI {

namespace {

constexpr int PictureLimit = 600; ///< a few pages
constexpr int DecoderLimit = 2;

/// Any thread. Null for what is no JPEG picture.
QImage ReadPicture(const QString& sPath, int nSide)
{
    QImageReader reader(sPath, "jpg");
    if (!reader.canRead())
        return {};
    reader.setAutoTransform(true);
    const QSize size = reader.size();
    if (size.width() > nSide || size.height() > nSide)
        reader.setScaledSize(size.scaled(nSide, nSide, Qt::KeepAspectRatio));
    return reader.read();
}

} // namespace

CPersonPhotos::CPersonPhotos(int nSide, QObject* pParent)
    : QObject(pParent)
    , m_nSide(nSide)
    , m_cache(PictureLimit)
{
    m_pool.setMaxThreadCount(DecoderLimit);
    connect(UICommonMdl::CGlobalPhotoManager::GetPhotoManager(),
        &UICommonMdl::CPhotoManager::SignalDownLoadFinish, this,
        [this](int, int nErrorCode, const QString& sUrl) { OnDownloaded(sUrl, nErrorCode); });
}

CPersonPhotos::~CPersonPhotos()
{
    m_pool.clear();
    m_pool.waitForDone();
}

QPixmap CPersonPhotos::GetPicture(const QString& sUrl) const
{
    const QPixmap* pPicture = m_cache.object(sUrl);
    return pPicture ? *pPicture : QPixmap();
}

void CPersonPhotos::Request(const QString& sUrl)
{
    if (sUrl.isEmpty() || m_cache.contains(sUrl) || m_setPending.contains(sUrl))
        return;
    const QString sPath = UICommonMdl::CGlobalPhotoManager::GetPhotoManager()->GetLocalPathByUrl(sUrl);
    if (sPath.isEmpty())
        Download(sUrl);
    else
        Decode(sUrl, sPath);
}

void CPersonPhotos::Decode(const QString& sUrl, const QString& sPath)
{
    m_setPending.insert(sUrl);
    auto* pWatcher = new QFutureWatcher<QImage>(this);
    connect(pWatcher, &QFutureWatcher<QImage>::finished, this, [this, pWatcher, sUrl] {
        pWatcher->deleteLater();
        OnDecoded(sUrl, pWatcher->result());
    });
    pWatcher->setFuture(QtConcurrent::run(&m_pool, ReadPicture, sPath, m_nSide));
}

void CPersonPhotos::OnDecoded(const QString& sUrl, const QImage& image)
{
    m_setPending.remove(sUrl);
    if (image.isNull()) {
        // A damaged copy; what the server sends now is as good as it gets.
        if (!m_setDownloaded.contains(sUrl))
            Download(sUrl);
        return;
    }
    m_cache.insert(sUrl, new QPixmap(QPixmap::fromImage(image)));
    Q_EMIT SignalPicture(sUrl);
}

void CPersonPhotos::Download(const QString& sUrl)
{
    if (UICommonMdl::CGlobalPhotoManager::GetPhotoManager()->DownloadPictureByUrl(sUrl) > 0)
        m_setPending.insert(sUrl);
}

void CPersonPhotos::OnDownloaded(const QString& sUrl, int nErrorCode)
{
    if (!m_setPending.remove(sUrl) || nErrorCode != UICommonMdl::ErrorNone)
        return;
    m_setDownloaded.insert(sUrl);
    const QString sPath = UICommonMdl::CGlobalPhotoManager::GetPhotoManager()->GetLocalPathByUrl(sUrl);
    if (!sPath.isEmpty())
        Decode(sUrl, sPath);
}

} // namespace BasicInfoManagerUI

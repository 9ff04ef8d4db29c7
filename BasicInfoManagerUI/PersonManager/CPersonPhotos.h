#pragma once

#include <QCache>
#include <QImage>
#include <QObject>
#include <QPixmap>
#include <QSet>
#include <QThreadPool>

namespace BasicInfoManagerUI {

/// Small pictures of persons' photos: fetched through the host, decoded in the background and kept while
/// there is room. User-interface thread.
class CPersonPhotos : public QObject
{
    Q_OBJECT

public:
    /// nSide: pixels that a picture has at most on each side.
    explicit CPersonPhotos(int nSide, QObject* pParent = nullptr);
    /// Waits for the pictures that are being decoded.
    ~CPersonPhotos() override;

    /// Null when it is not there (yet).
    QPixmap GetPicture(const QString& sUrl) const;
    /// Sees to it that the picture comes; SignalPicture tells that it is there.
    void Request(const QString& sUrl);

Q_SIGNALS:
    void SignalPicture(const QString& sUrl);

private:
    void Decode(const QString& sUrl, const QString& sPath);
    void OnDecoded(const QString& sUrl, const QImage& image);
    void OnDownloaded(const QString& sUrl, int nErrorCode);
    void Download(const QString& sUrl);

    int m_nSide;
    QCache<QString, QPixmap> m_cache;
    QSet<QString> m_setPending; ///< being decoded or downloaded
    QSet<QString> m_setDownloaded; ///< came from the server in this session: not asked for again
    QThreadPool m_pool;
};

} // namespace BasicInfoManagerUI

#pragma once

#include <UICommonMdl/UICommonMdlExport.h>

#include <QHash>
#include <QObject>
#include <QPointer>
#include <QQueue>
#include <QString>

#include <functional>

namespace UICommonMdl {

class ITransferManager;

/// Local copies of pictures that the server keeps. A picture under another address is another picture, so
/// copies never grow old. User-interface thread; signals come from its event loop, never from within a call.
class UICOMMONMDL_EXPORT CPhotoManager : public QObject
{
    Q_OBJECT

public:
    /// Path of the local copy; empty when there is none.
    QString GetLocalPathByUrl(const QString& sUrl) const;
    /// Fetches a picture. Answers the number of the download (above 0), that of the one under way when there
    /// is one; 0 when nobody is signed in. It ends in exactly one SignalDownLoadFinish.
    int DownloadPictureByUrl(const QString& sUrl);

    /// For the host: what downloads, whose token is added to addresses, and where copies are kept. pTransfers
    /// is borrowed; null: nothing is downloaded. The oldest copies beyond the size of the cache are removed.
    void SetSource(ITransferManager* pTransfers, std::function<QString()> token, const QString& sFolder);

Q_SIGNALS:
    /// nErrorCode is a UICommonMdl::ErrorCode.
    void SignalDownLoadFinish(int nDownload, int nErrorCode, QString sUrl);

private:
    friend class CGlobalPhotoManager;
    CPhotoManager() = default;
    QString PathOf(const QString& sUrl) const;
    void StartNext();
    void OnFinished(int nTransfer, int nErrorCode);

    struct Download
    {
        int nId;
        QString sUrl;
    };
    QPointer<ITransferManager> m_pTransfers;
    std::function<QString()> m_token;
    QString m_sFolder;
    int m_nLast = 0;
    QQueue<Download> m_queWaiting;
    QHash<int, Download> m_mapRunning; ///< by transfer
};

class UICOMMONMDL_EXPORT CGlobalPhotoManager
{
public:
    static CPhotoManager* GetPhotoManager();
};

} // namespace UICommonMdl

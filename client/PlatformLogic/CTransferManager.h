#pragma once

#include <UICommonMdl/ITransferManager.h>

#include <QNetworkAccessManager>
#include <QSaveFile>
#include <QSslConfiguration>
#include <QUrl>

#include <map>
#include <memory>

class QNetworkReply;

namespace PlatformLogic {

/// Files from and to the server, on connections of their own.
class CTransferManager : public UICommonMdl::ITransferManager
{
public:
    CTransferManager();
    /// Gives up what is under way, without a signal.
    ~CTransferManager() override;

    void SetServer(const QUrl& url, const QSslConfiguration& tls);

    int Upload(const QString& sUrl, const QString& sFilePath) override;
    int Download(const QString& sUrl, const QString& sFilePath) override;
    void Cancel(int nTransfer) override;

private:
    struct Transfer
    {
        QNetworkReply* pReply = nullptr;
        std::unique_ptr<QSaveFile> pFile; ///< of a download
    };

    QNetworkRequest MakeRequest(const QString& sUrl) const;
    int Keep(Transfer transfer);
    void OnReadable(int nTransfer);
    void OnFinished(int nTransfer);
    void Finish(int nTransfer, int nErrorCode, const QString& sDetail = {}, const QByteArray& baAnswer = {});

    QNetworkAccessManager m_network;
    QUrl m_server;
    QSslConfiguration m_tls;
    int m_nLast = 0;
    std::map<int, Transfer> m_mapOpen;
};

} // namespace PlatformLogic

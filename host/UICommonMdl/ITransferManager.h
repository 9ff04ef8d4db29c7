#pragma once

#include <UICommonMdl/UICommonMdlExport.h>
#include <VxPluginAPI/IAbstractResourceManager.h>

#include <QObject>
#include <QString>

namespace UICommonMdl {

/// Uploads files to the server and downloads them. User-interface thread; signals come from its event loop,
/// never from within a call. Relative addresses ("/api/v1/…") are those of the signed-in server; the token is
/// part of the address. A transfer ends in exactly one SignalFinished.
class UICOMMONMDL_EXPORT ITransferManager : public QObject, public VxPluginAPI::IManager
{
    Q_OBJECT

public:
    static constexpr const char* InterfaceId = "UICommonMdl.ITransferManager(1.0)";

    /// Sends a file as the body of a POST. Answers the transfer's number (above 0), or 0 when the file cannot
    /// be read.
    virtual int Upload(const QString& sUrl, const QString& sFilePath) = 0;
    /// Writes what the address answers to a file, which is there when the download has succeeded, and only
    /// then; one of that name is replaced. Answers the transfer's number, or 0 when nobody is signed in.
    virtual int Download(const QString& sUrl, const QString& sFilePath) = 0;
    /// The transfer ends with ErrorCancelled.
    virtual void Cancel(int nTransfer) = 0;

Q_SIGNALS:
    /// nTotal is 0 while the size is not known.
    void SignalProgress(int nTransfer, qint64 nDone, qint64 nTotal);
    /// nErrorCode is a UICommonMdl::ErrorCode, sDetail the server's own words; baAnswer is the data (JSON)
    /// that an upload was answered.
    void SignalFinished(int nTransfer, int nErrorCode, const QString& sDetail, const QByteArray& baAnswer);
};

} // namespace UICommonMdl

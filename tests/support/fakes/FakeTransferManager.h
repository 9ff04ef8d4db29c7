#pragma once

#include <UICommonMdl/ITransferManager.h>

#include <QString>

#include <vector>

/// Keeps every transfer; the test says how it goes on by emitting the signals, or by Finish.
class FakeTransferManager : public UICommonMdl::ITransferManager
{
public:
    struct Transfer
    {
        int nTransfer = 0;
        bool bUpload = false;
        QString sUrl;
        QString sFilePath;
    };

    int Upload(const QString& sUrl, const QString& sFilePath) override { return Keep(true, sUrl, sFilePath); }
    int Download(const QString& sUrl, const QString& sFilePath) override
    {
        return Keep(false, sUrl, sFilePath);
    }
    void Cancel(int nTransfer) override { vecCancelled.push_back(nTransfer); }

    void Finish(int nErrorCode, const QByteArray& baAnswer = {}, const QString& sDetail = {})
    {
        Q_EMIT SignalFinished(vecTransfers.back().nTransfer, nErrorCode, sDetail, baAnswer);
    }

    std::vector<Transfer> vecTransfers;
    std::vector<int> vecCancelled;
    bool bRefuse = false;

private:
    int Keep(bool bUpload, const QString& sUrl, const QString& sFilePath)
    {
        if (bRefuse)
            return 0;
        vecTransfers.push_back({static_cast<int>(vecTransfers.size()) + 1, bUpload, sUrl, sFilePath});
        return vecTransfers.back().nTransfer;
    }
};

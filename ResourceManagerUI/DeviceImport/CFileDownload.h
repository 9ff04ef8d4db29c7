#pragma once

#include <common/CTransfer.h>

class QWidget;
namespace UICommonMdl {
class CInterfaceSetManager;
class ITransferManager;
} // namespace UICommonMdl

namespace ResourceManagerUI {

/// Lets the user choose where a file of the server goes and downloads it there, one at a time. User-interface
/// thread.
class CFileDownload : public QObject
{
    Q_OBJECT

public:
    struct Request
    {
        QString sUrl; ///< the session's token is added when it has none
        QString sProposal; ///< for the file's name
        QString sEnding; ///< ".xlsx": the filter, and added to a name without it
        QString sDone; ///< the messages, translated
        QString sFailed;
        QString sNoFolder;
    };

    /// pInterfaceSet and pWindow are borrowed.
    CFileDownload(UICommonMdl::CInterfaceSetManager* pInterfaceSet, QWidget* pWindow);

    void Start(const Request& request);

Q_SIGNALS:
    void SignalEnded(const QString& sText, bool bGood);

private:
    void OnFinished(int nTransfer, int nErrorCode);

    UICommonMdl::CInterfaceSetManager* m_pInterfaceSet;
    UICommonMdl::ITransferManager* m_pTransfers;
    QWidget* m_pWindow;
    int m_nTransfer = 0; ///< that runs; 0: none
    Request m_request; ///< of that
    Common::CTransfer m_transfer;
};

} // namespace ResourceManagerUI

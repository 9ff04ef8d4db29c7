#pragma once

#include <common/CPageWork.h>

#include <QHash>
#include <QPointer>
#include <QString>

class QWidget;
namespace UICommonMdl {
class CInterfaceSetManager;
class ITransferManager;
} // namespace UICommonMdl

namespace ResourceManagerUI {

/// Lets the user choose where a file of the server goes and downloads it there. Several may run at once; they
/// go on when this object is destroyed. User-interface thread.
class CFileDownload : public Common::CPageWork
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
    /// Cancels the downloads that run.
    void End() override;

Q_SIGNALS:
    void SignalEnded(const QString& sText, bool bGood);

private:
    QString ChoosePath(const Request& request);
    void OnFinished(int nTransfer, int nErrorCode);

    UICommonMdl::CInterfaceSetManager* m_pInterfaceSet;
    UICommonMdl::ITransferManager* m_pTransfers;
    QPointer<QWidget> m_pWindow;
    QHash<int, Request> m_mapRequests;
};

} // namespace ResourceManagerUI

#include "CFileDownload.h"

#include "ImportRules.h"

#include <UICommonMdl/CInterfaceSetManager.h>
#include <UICommonMdl/ErrorCodes.h>
#include <UICommonMdl/ITransferManager.h>
#include <UserLogical/IUserManager.h>
#include <common/Prompt.h>

#include <QCoreApplication>
#include <QFileInfo>
#include <QPointer>

namespace ResourceManagerUI {

namespace {
struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CDevImport)
};
} // namespace

CFileDownload::CFileDownload(UICommonMdl::CInterfaceSetManager* pInterfaceSet, QWidget* pWindow)
    : QObject(pWindow)
    , m_pInterfaceSet(pInterfaceSet)
    , m_pTransfers(pInterfaceSet->GetTransferManager())
    , m_pWindow(pWindow)
    , m_transfer(pWindow, this)
{
    using UICommonMdl::ITransferManager;
    if (!m_pTransfers)
        return;
    connect(m_pTransfers, &ITransferManager::SignalFinished, this, &CFileDownload::OnFinished);
    connect(m_pTransfers, &ITransferManager::SignalProgress, this,
        [this](int nTransfer, qint64 nDone, qint64 nTotal) {
            if (nTransfer == m_nTransfer)
                m_transfer.SetProgress(nDone, nTotal);
        });
}

void CFileDownload::Start(const Request& request)
{
    UserLogical::IUserManager* const pUser = m_pInterfaceSet->GetUserManager();
    const QString sUrl =
        AppendToken(request.sUrl, pUser ? QString::fromStdString(pUser->GetToken()) : QString());
    if (!m_pTransfers || sUrl.isEmpty()) {
        Q_EMIT SignalEnded(request.sFailed, false);
        return;
    }
    // The chooser runs for as long as the user likes; the dialog may be gone after it.
    const QPointer<CFileDownload> guard(this);
    const QString sPath =
        Common::AskSaveFile(m_pWindow, Text::tr("Save As"), request.sProposal, request.sEnding);
    if (!guard || sPath.isEmpty())
        return;
    const QFileInfo target(sPath);
    if (!QFileInfo(target.absolutePath()).isDir()) {
        Q_EMIT SignalEnded(request.sNoFolder, false);
        return;
    }
    if (target.exists())
        qInfo("file %s is exists", qPrintable(sPath));
    m_nTransfer = m_pTransfers->Download(sUrl, sPath);
    if (m_nTransfer <= 0) {
        Q_EMIT SignalEnded(request.sFailed, false);
        return;
    }
    m_request = request;
    m_transfer.Start(
        Text::tr("Downloading the file"), [this] { m_pTransfers->Cancel(std::exchange(m_nTransfer, 0)); });
}

void CFileDownload::OnFinished(int nTransfer, int nErrorCode)
{
    if (nTransfer != m_nTransfer)
        return;
    m_nTransfer = 0;
    m_transfer.Finish();
    if (nErrorCode == UICommonMdl::ErrorNone)
        Q_EMIT SignalEnded(m_request.sDone, true);
    else
        Q_EMIT SignalEnded(Common::FailureText(m_request.sFailed, nErrorCode), false);
}

} // namespace ResourceManagerUI

#include "CFileDownload.h"

#include "ImportRules.h"

#include <UICommonMdl/CInterfaceSetManager.h>
#include <UICommonMdl/ErrorCodes.h>
#include <UICommonMdl/ITransferManager.h>
#include <UserLogical/IUserManager.h>
#include <VxGUI/VxDialogService.h>
#include <common/Prompt.h>

#include <QCoreApplication>
#include <QFileInfo>
#include <QWidget>

namespace ResourceManagerUI {

namespace {
struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CDevImport)
};
} // namespace

CFileDownload::CFileDownload(UICommonMdl::CInterfaceSetManager* pInterfaceSet, QWidget* pWindow)
    : CPageWork(pWindow)
    , m_pInterfaceSet(pInterfaceSet)
    , m_pTransfers(pInterfaceSet->GetTransferManager())
    , m_pWindow(pWindow)
{
    if (m_pTransfers) {
        connect(
            m_pTransfers, &UICommonMdl::ITransferManager::SignalFinished, this, &CFileDownload::OnFinished);
    }
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
    const QString sPath = ChoosePath(request);
    if (!guard || sPath.isEmpty())
        return;
    const QFileInfo target(sPath);
    if (!QFileInfo(target.absolutePath()).isDir()) {
        Q_EMIT SignalEnded(request.sNoFolder, false);
        return;
    }
    if (target.exists())
        qInfo("file %s is exists", qPrintable(sPath));
    const int nTransfer = m_pTransfers->Download(sUrl, sPath);
    if (nTransfer > 0)
        m_mapRequests.insert(nTransfer, request);
    else
        Q_EMIT SignalEnded(request.sFailed, false);
}

void CFileDownload::End()
{
    const QHash<int, Request> mapRunning = std::exchange(m_mapRequests, {});
    for (auto it = mapRunning.begin(); it != mapRunning.end(); ++it)
        m_pTransfers->Cancel(it.key());
    m_pTransfers = nullptr;
}

QString CFileDownload::ChoosePath(const Request& request)
{
    QString sPath = VxGUI::VxDialogService::Current()->SaveFile(
        m_pWindow, Text::tr("Save As"), request.sProposal, QLatin1Char('*') + request.sEnding);
    if (sPath.isEmpty() || sPath.endsWith(request.sEnding, Qt::CaseInsensitive))
        return sPath;
    // The chooser asked about the name without the ending.
    QString sWhole = sPath + request.sEnding;
    if (QFileInfo::exists(sWhole)
        && !Common::AskPrompt(m_pWindow,
            Text::tr("The file %1 exists already. Are you sure to replace it?")
                .arg(QFileInfo(sWhole).fileName())))
        return {};
    return sWhole;
}

void CFileDownload::OnFinished(int nTransfer, int nErrorCode)
{
    const auto it = m_mapRequests.find(nTransfer);
    if (it == m_mapRequests.end())
        return;
    const Request request = *it;
    m_mapRequests.erase(it);
    if (nErrorCode == UICommonMdl::ErrorNone)
        Q_EMIT SignalEnded(request.sDone, true);
    else
        Q_EMIT SignalEnded(Common::FailureText(request.sFailed, nErrorCode), false);
}

} // namespace ResourceManagerUI

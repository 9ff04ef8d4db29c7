#include "CAuditExport.h"
#include "CAuditLogCtrl.h"

#include <VxGUI/VxDialogService.h>
#include <VxGUI/VxNotification.h>
#include <VxGUI/VxWaitDialog.h>
#include <common/Prompt.h>

namespace PlatformConfigUI {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CAuditLogCtrl)
};

} // namespace

void CAuditLogCtrl::SetUpExport()
{
    connect(m_pExport, &CAuditExport::SignalProgress, this, [this](int nRead, int nTotal) {
        if (m_pWaitDialog)
            m_pWaitDialog->SetProgress(nTotal > 0 ? int(qint64(nRead) * 100 / nTotal) : 100);
    });
    connect(m_pExport, &CAuditExport::SignalWriting, this, [this] {
        if (!m_pWaitDialog)
            return;
        m_pWaitDialog->SetText(Text::tr("Writing the file"));
        m_pWaitDialog->SetProgress(-1);
        m_pWaitDialog->SetCancellable(false);
    });
    connect(m_pExport, &CAuditExport::SignalFinished, this, &CAuditLogCtrl::OnExportFinished);
}

void CAuditLogCtrl::OnExport()
{
    QString sPath = VxGUI::VxDialogService::Current()->SaveFile(
        this, Text::tr("Export"), QStringLiteral("audit-log.xlsx"), QStringLiteral("*.xlsx"));
    if (sPath.isEmpty())
        return;
    if (!sPath.endsWith(QStringLiteral(".xlsx"), Qt::CaseInsensitive))
        sPath += QStringLiteral(".xlsx");
    m_pExport->Start(m_request, sPath);
    m_pWaitDialog = new VxGUI::VxWaitDialog(Text::tr("Exporting the audit log"), this);
    m_pWaitDialog->setAttribute(Qt::WA_DeleteOnClose);
    m_pWaitDialog->SetProgress(0);
    m_pWaitDialog->SetCancellable(true);
    connect(m_pWaitDialog, &VxGUI::VxWaitDialog::SignalCancelled, this, [this] {
        m_pExport->Cancel();
        EndExport();
    });
    m_pWaitDialog->open();
}

void CAuditLogCtrl::OnExportFinished(int nErrorCode, const QString& sError, int nWritten, int nFound)
{
    using Kind = VxGUI::NotificationKind;
    EndExport();
    const QString sFailed = Text::tr("Failed to export the audit log");
    if (nErrorCode != UICommonMdl::ErrorNone)
        NotifyFailure(sFailed, nErrorCode);
    else if (!sError.isEmpty())
        Notify(sFailed + QStringLiteral(": ") + sError, Kind::Error);
    else if (nWritten < nFound)
        Notify(
            Text::tr("The newest %1 of %2 entries are exported.").arg(nWritten).arg(nFound), Kind::Warning);
    else
        Notify(Text::tr("The audit log is exported."), Kind::Success);
}

void CAuditLogCtrl::EndExport()
{
    if (m_pWaitDialog)
        m_pWaitDialog->accept();
}

} // namespace PlatformConfigUI

#include "CAuditExport.h"

#include "AuditRules.h"

#include <UICommonMdl/CSpreadsheetWriter.h>
#include <common/CPage.h>
#include <common/Prompt.h>

#include <QCoreApplication>
#include <QPointer>

namespace PlatformConfigUI {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CAuditExport)
};

} // namespace

CAuditExport::CAuditExport(Common::CPage* pPage)
    : QObject(pPage)
    , m_pPage(pPage)
    , m_calls(pPage->GetInterfaceSet(), this)
    , m_transfer(pPage, this)
{
}

void CAuditExport::Start(const UserLogical::AuditRequest_t& request)
{
    const QPointer<CAuditExport> guard(this);
    m_request = request;
    const QString sPath = Common::AskSaveFile(
        m_pPage, Text::tr("Export"), QStringLiteral("audit-log.xlsx"), QStringLiteral(".xlsx"));
    if (!guard || sPath.isEmpty())
        return;
    m_sPath = sPath;
    m_request.nPage = 1;
    m_request.nPageSize = PieceSize;
    m_request.nBelowId = 0;
    m_vecEntries.clear();
    m_nFound = 0;
    m_transfer.Start(Text::tr("Exporting the audit log"), [this] { m_calls.ForgetAll(); });
    QueryPiece();
}

void CAuditExport::QueryPiece()
{
    m_calls.Latest<&UserLogical::IUserManager::ExportAudit>(
        m_request, [this](const Param& param) { OnPiece(param); });
}

void CAuditExport::OnPiece(const Param& param)
{
    if (param.nErrorCode != UICommonMdl::ErrorNone) {
        m_transfer.Finish();
        m_pPage->NotifyFailure(Text::tr("Failed to export the audit log"), param.nErrorCode);
        return;
    }
    const std::vector<UserLogical::AuditEntry_t>& vecPiece = param.auditPage.vecEntries;
    if (m_request.nBelowId == 0)
        m_nFound = param.auditPage.nTotal;
    const std::size_t nRoom = std::size_t(Limit) - m_vecEntries.size();
    m_vecEntries.insert(m_vecEntries.end(), vecPiece.begin(),
        vecPiece.begin() + std::ptrdiff_t(qMin(nRoom, vecPiece.size())));
    const int nRead = int(m_vecEntries.size());
    // Entries that came in the meantime are newer than the first piece.
    m_nFound = qMax(m_nFound, nRead);
    m_transfer.SetProgress(nRead, qMin(m_nFound, Limit));
    if (vecPiece.size() < std::size_t(PieceSize) || nRead >= Limit) {
        Write();
        return;
    }
    m_request.nBelowId = vecPiece.back().nId;
    QueryPiece();
}

void CAuditExport::Write()
{
    const auto pEntries =
        std::make_shared<const std::vector<UserLogical::AuditEntry_t>>(std::exchange(m_vecEntries, {}));
    const auto write = [pEntries, sPath = m_sPath] {
        std::size_t nNext = 0;
        const auto next = [&](QStringList& row) {
            if (nNext == pEntries->size())
                return false;
            row = GetAuditTexts((*pEntries)[nNext++]);
            return true;
        };
        return UICommonMdl::CSpreadsheetWriter::Write(sPath, Text::tr("Audit Log"), GetAuditHeader(), next);
    };
    m_transfer.Write(write,
        [this, nWritten = int(pEntries->size())](const QString& sError) { OnWritten(nWritten, sError); });
}

void CAuditExport::OnWritten(int nWritten, const QString& sError)
{
    using Kind = VxGUI::NotificationKind;
    if (!sError.isEmpty())
        m_pPage->Notify(
            Text::tr("Failed to export the audit log") + QStringLiteral(": ") + sError, Kind::Error);
    else if (nWritten < m_nFound)
        m_pPage->Notify(
            Text::tr("The newest %1 of %2 entries are exported.").arg(nWritten).arg(m_nFound), Kind::Warning);
    else
        m_pPage->Notify(Text::tr("The audit log is exported."), Kind::Success);
}

} // namespace PlatformConfigUI

#include "CAuditExport.h"

#include "AuditRules.h"

#include <UICommonMdl/CSpreadsheetWriter.h>

#include <QCoreApplication>
#include <QtConcurrent>

namespace PlatformConfigUI {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CAuditExport)
};

} // namespace

CAuditExport::CAuditExport(const UICommonMdl::CInterfaceSetManager* pInterfaceSet, QObject* pParent)
    : QObject(pParent)
    , m_calls(pInterfaceSet, this)
{
    connect(this, &CAuditExport::SignalWritten, this, &CAuditExport::OnWritten, Qt::QueuedConnection);
}

CAuditExport::~CAuditExport()
{
    m_future.waitForFinished();
}

void CAuditExport::Start(const UserLogical::AuditRequest_t& request, const QString& sPath)
{
    m_request = request;
    m_request.nPage = 1;
    m_request.nPageSize = PieceSize;
    m_request.nBelowId = 0;
    m_sPath = sPath;
    m_vecEntries.clear();
    m_nFound = 0;
    QueryPiece();
}

void CAuditExport::Cancel()
{
    m_calls.ForgetAll();
    m_vecEntries.clear();
}

void CAuditExport::QueryPiece()
{
    m_calls.Latest<&UserLogical::IUserManager::ExportAudit>(
        m_request, [this](const Param& param) { OnPiece(param); });
}

void CAuditExport::OnPiece(const Param& param)
{
    if (param.nErrorCode != UICommonMdl::ErrorNone) {
        Cancel();
        Q_EMIT SignalFinished(param.nErrorCode, QString(), 0, m_nFound);
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
    Q_EMIT SignalProgress(nRead, qMin(m_nFound, Limit));
    if (vecPiece.size() < std::size_t(PieceSize) || nRead >= Limit) {
        Write();
        return;
    }
    m_request.nBelowId = vecPiece.back().nId;
    QueryPiece();
}

void CAuditExport::Write()
{
    Q_EMIT SignalWriting();
    m_future = QtConcurrent::run([this] {
        std::size_t nNext = 0;
        const auto next = [this, &nNext](QStringList& row) {
            if (nNext == m_vecEntries.size())
                return false;
            row = GetAuditTexts(m_vecEntries[nNext++]);
            return true;
        };
        Q_EMIT SignalWritten(
            UICommonMdl::CSpreadsheetWriter::Write(m_sPath, Text::tr("Audit Log"), GetAuditHeader(), next));
    });
}

void CAuditExport::OnWritten(const QString& sError)
{
    const int nWritten = int(m_vecEntries.size());
    m_vecEntries.clear();
    Q_EMIT SignalFinished(UICommonMdl::ErrorNone, sError, nWritten, m_nFound);
}

} // namespace PlatformConfigUI

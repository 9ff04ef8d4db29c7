#pragma once

#include <common/CCalls.h>
#include <common/CTransfer.h>

namespace Common {
class CPage;
}

namespace PlatformConfigUI {

/// Exports the log to a spreadsheet: asks where to, reads it piece by piece, from the newest entry on, writes
/// it and tells the outcome. User-interface thread.
class CAuditExport : public QObject
{
    Q_OBJECT

public:
    static constexpr int PieceSize = 1000;
    static constexpr int Limit = 100000; ///< of one file

    /// The page owns this object.
    explicit CAuditExport(Common::CPage* pPage);

    /// The entries that the filters of the request find.
    void Start(const UserLogical::AuditRequest_t& request);

private:
    using Param = UserLogical::IUserManagerObserve::Param;
    void QueryPiece();
    void OnPiece(const Param& param);
    void Write();
    void OnWritten(int nWritten, const QString& sError);

    Common::CPage* m_pPage;
    UserLogical::AuditRequest_t m_request;
    QString m_sPath;
    std::vector<UserLogical::AuditEntry_t> m_vecEntries;
    int m_nFound = 0;
    Common::CCalls<UserLogical::IUserManagerObserve> m_calls;
    Common::CTransfer m_transfer;
};

} // namespace PlatformConfigUI

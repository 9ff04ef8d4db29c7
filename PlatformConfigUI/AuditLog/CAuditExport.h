#pragma once

#include <common/CCalls.h>

#include <QFuture>

namespace PlatformConfigUI {

/// Reads the log piece by piece, from the newest entry on, and writes it to a spreadsheet. One export at a
/// time. User-interface thread; the file is written on another one.
class CAuditExport : public QObject
{
    Q_OBJECT

public:
    static constexpr int PieceSize = 1000;
    static constexpr int Limit = 100000; ///< of one file

    /// pInterfaceSet is borrowed.
    explicit CAuditExport(const UICommonMdl::CInterfaceSetManager* pInterfaceSet, QObject* pParent = nullptr);
    /// Waits for a file that is being written.
    ~CAuditExport() override;

    /// The entries that the filters of the request find.
    void Start(const UserLogical::AuditRequest_t& request, const QString& sPath);
    /// Gives the reading up; nothing is written and no signal comes any more.
    void Cancel();

Q_SIGNALS:
    /// nTotal: of the entries that are going to be read.
    void SignalProgress(int nRead, int nTotal);
    /// All is read; from here on it cannot be given up.
    void SignalWriting();
    /// nErrorCode of the server; else sError, empty on success. nWritten is below nFound when the limit was
    /// reached.
    void SignalFinished(int nErrorCode, const QString& sError, int nWritten, int nFound);
    /// Emitted on the writing thread.
    void SignalWritten(const QString& sError);

private:
    using Param = UserLogical::IUserManagerObserve::Param;
    void QueryPiece();
    void OnPiece(const Param& param);
    void Write();
    void OnWritten(const QString& sError);

    UserLogical::AuditRequest_t m_request;
    QString m_sPath;
    std::vector<UserLogical::AuditEntry_t> m_vecEntries;
    int m_nFound = 0;
    QFuture<void> m_future;
    Common::CCalls<UserLogical::IUserManagerObserve> m_calls;
};

} // namespace PlatformConfigUI

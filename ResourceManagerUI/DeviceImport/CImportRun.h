#pragma once

#include "CDeviceImportFile.h"
#include "ImportRules.h"

#include <common/CCalls.h>

#include <QFutureWatcher>
#include <QObject>

#include <memory>

namespace UICommonMdl {
class CInterfaceSetManager;
class ITransferManager;
} // namespace UICommonMdl

namespace ResourceManagerUI {

/// One import from its source to its outcome, without a widget. User-interface thread; files are read on a
/// thread of the pool.
class CImportRun : public QObject
{
    Q_OBJECT

public:
    enum class Stage
    {
        Idle,
        Reading,
        Uploading,
        Uploaded, ///< waits for ImportUploaded or Reset
        Importing,
        Done
    };
    /// Where devices go, and what a bad row does to the others.
    struct Options
    {
        QString sOrgCode;
        bool bAllOrNothing = false;
    };

    /// pInterfaceSet is borrowed.
    CImportRun(UICommonMdl::CInterfaceSetManager* pInterfaceSet, QObject* pParent);
    ~CImportRun() override;

    Stage GetStage() const { return m_stage; }
    /// True from the start to the outcome.
    bool IsRunning() const { return m_stage != Stage::Idle && m_stage != Stage::Done; }

    // Each begins an import; does nothing while one runs.
    void StartXml(const QString& sPath, const Options& options);
    void StartUpload(const QString& sUrl, const QString& sPath, const Options& options);
    void StartRows(
        std::vector<GroupLogical::ImportRow_t> vecRows, const QString& sSource, const Options& options);

    /// Goes on with the sheet that was uploaded.
    void ImportUploaded(bool bOverwrite);
    /// Forgets the import; one that the server works on goes on there.
    void Reset();

    /// Figures and failures so far.
    const GroupLogical::ImportState_t& GetState() const { return m_state; }
    bool IsAllOrNothing() const { return m_options.bAllOrNothing; }
    int GetErrorCode() const { return m_nErrorCode; }
    QString GetErrorDetail() const { return m_sErrorDetail; }
    const UploadedSheet& GetSheet() const { return m_sheet; }
    /// The lines of the result, as far as they are known; of a sheet only those that failed.
    std::vector<ImportResultRow> MakeResult() const;

Q_SIGNALS:
    void SignalStageChanged();
    /// The import did not begin; the stage is Idle again.
    void SignalRefused(const QString& sText);
    void SignalUploadRate(int nPercent);
    /// sReason is translated, may be empty; the stage is Idle again.
    void SignalUploadFailed(const QString& sReason);
    void SignalUploaded();
    void SignalProgress();
    void SignalFinished();

private:
    using Param = GroupLogical::IGroupManagerObserver::Param;
    /// What reading a file in the background answers.
    struct Loaded
    {
        CDeviceImportFile::Status status = CDeviceImportFile::Status::Unreadable;
        GroupLogical::ImportRequest_t request;
        std::vector<ImportedRow> vecRows;
        std::vector<GroupLogical::ImportFailure_t> vecUnreadable;
    };
    static std::shared_ptr<Loaded> Load(const QString& sPath);

    void Begin(Stage stage, const Options& options);
    void SetStage(Stage stage);
    void Refuse(const QString& sText);
    void OnLoaded();
    void Send(GroupLogical::ImportRequest_t request);
    void Wait();
    void OnUploadProgress(int nTransfer, qint64 nDone, qint64 nTotal);
    void OnUploadFinished(int nTransfer, int nErrorCode, const QString& sDetail, const QByteArray& baAnswer);
    void OnReport(const Param& param);
    void Finish(int nErrorCode, const QString& sDetail);

    UICommonMdl::CInterfaceSetManager* m_pInterfaceSet;
    UICommonMdl::ITransferManager* m_pTransfers;
    Stage m_stage = Stage::Idle;
    Options m_options;
    int m_nUpload = 0;
    UploadedSheet m_sheet;
    std::vector<ImportedRow> m_vecRows;
    int m_nUnreadable = 0; ///< rows of the file that the server never saw
    GroupLogical::ImportState_t m_state;
    int m_nErrorCode = 0;
    QString m_sErrorDetail;
    QFutureWatcher<std::shared_ptr<Loaded>> m_reading;
    Common::CCalls<GroupLogical::IGroupManagerObserver> m_calls;
};

} // namespace ResourceManagerUI

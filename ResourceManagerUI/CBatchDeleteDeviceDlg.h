#pragma once

#include <common/CCalls.h>

#include <QDialog>

#include <memory>

namespace Ui {
class CBatchDeleteDeviceDlg;
}
namespace Common {
class CTableModel;
}

namespace ResourceManagerUI {

/// Deletes devices batch by batch, shows how far it is, lists those that the platform refused, and deletes
/// one of these by force when the user wants it. User-interface thread.
class CBatchDeleteDeviceDlg : public QDialog
{
    Q_OBJECT

public:
    /// pInterfaceSet is borrowed. nMode is a GroupLogical::DeleteMode.
    CBatchDeleteDeviceDlg(const UICommonMdl::CInterfaceSetManager* pInterfaceSet, int nMode,
        const QVector<QString>& vecDeviceIds, const QHash<QString, QString>& mapNames, QWidget* pParent);
    ~CBatchDeleteDeviceDlg() override;

    /// Sends the first batch.
    void Start();
    /// Closing while it deletes asks first.
    void reject() override;

Q_SIGNALS:
    /// These devices do not exist any more.
    void SignalGone(const QStringList& listIds);

private:
    using Param = GroupLogical::IGroupManagerObserver::Param;
    void SendNextBatch();
    void OnBatchAnswer(const std::vector<std::string>& vecBatch, const Param& param);
    void TellGone(const std::vector<std::string>& vecBatch, const Param& param);
    void AddFailures(const std::vector<std::string>& vecIds, int nErrorCode);
    void AddFailure(GroupLogical::FailedItem_t item);
    void ShowProgress();
    void OnFinished();
    void ForceDelete(const QString& sDeviceId);
    void OnForceAnswer(const QString& sDeviceId, const Param& param);
    void OnFailureSelected(const QString& sDeviceId);
    void RebuildFailures();
    void ShowResult();

    std::unique_ptr<Ui::CBatchDeleteDeviceDlg> m_pUi;
    int m_nMode;
    std::vector<std::string> m_vecWaiting;
    QHash<QString, QString> m_mapNames;
    int m_nTotal;
    int m_nDone = 0;
    bool m_bBatch = false; ///< a batch is under way
    bool m_bForced = false; ///< a forced deletion is
    std::vector<GroupLogical::FailedItem_t> m_vecFailed;
    Common::CTableModel* m_pModel;
    Common::CCalls<GroupLogical::IGroupManagerObserver> m_calls;
};

} // namespace ResourceManagerUI

#pragma once

#include <RemoteConfigLogical/RemoteConfigRecords.h>

#include <QDialog>
#include <QPointer>

class QAbstractButton;
class QLabel;
class QProgressBar;
class QTreeView;
namespace Common {
class CTableModel;
struct Column;
} // namespace Common

namespace ResourceManagerUI {

/// What the dialogs have in common that work on found devices: a row a device with its result, failed rows
/// that can be tried again, and closing in the middle, which asks and lets the work end out of sight.
/// User-interface thread.
class CFoundDeviceDlg : public QDialog
{
    Q_OBJECT

public:
    ~CFoundDeviceDlg() override;
    void reject() override;

protected:
    using Devices = RemoteConfigLogical::SearchDeviceInfoVec;
    enum class Result
    {
        None,
        Running,
        Done,
        Failed
    };

    CFoundDeviceDlg(Devices vecDevices, QWidget* pParent);

    /// The widgets of the dialog; all are borrowed.
    struct Controls
    {
        QWidget* pForm; ///< locked while the work runs
        QAbstractButton* pStart;
        QTreeView* pTable;
        QProgressBar* pBar;
        QLabel* pSummary;
    };
    /// vecColumns are those before the result.
    void SetUp(
        const Controls& controls, const QVector<Common::Column>& vecColumns, const QVector<int>& vecWidths);
    const Devices& GetDevices() const { return m_vecDevices; }
    Common::CTableModel* GetModel() const { return m_pModel; }
    /// -1 when there is none.
    int FindRow(const QString& sKey) const;
    QString GetKey(int nRow) const;

    void SetResult(int nRow, Result result, const QString& sText = QString());
    /// The text of the code, and the device's own words behind it.
    void SetError(int nRow, int nErrorCode, const std::string& sDetail);
    /// Results that name devices by their keys; answers the keys of those that are done now, shown as sDone.
    QStringList TakeResults(
        const RemoteConfigLogical::ModifyDevicePasswordResultInfoVec& vecResults, const QString& sDone);
    Result GetResult(int nRow) const { return m_vecResults[nRow]; }
    /// Rows that are not done.
    QVector<int> GetOpenRows() const;

    /// Work on these rows begins: the form is locked until EndWork.
    void BeginWork(const QVector<int>& vecRows);
    /// The work has ended; rows that still run get the error.
    void EndWork(int nErrorCode, const std::string& sDetail);
    bool IsBusy() const { return m_bBusy; }

    /// What closing in the middle asks.
    virtual QString GetClosingQuestion() const = 0;
    /// Locks and unlocks the form.
    virtual void ShowBusy(bool bBusy);

private:
    void ShowProgress();

    Devices m_vecDevices;
    QVector<Result> m_vecResults;
    QVector<int> m_vecRunning; ///< rows of the work that runs
    Common::CTableModel* m_pModel = nullptr;
    Controls m_controls{};
    int m_nResultColumn = 0;
    bool m_bBusy = false;
    bool m_bClosed = false; ///< the user has closed it in the middle
};

} // namespace ResourceManagerUI

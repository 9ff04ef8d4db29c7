#pragma once

#include <AccessControlLogical/IAccessControlManager.h>
#include <common/CRequests.h>
#include <common/ObserverAdapters.h>

#include <QDialog>

#include <memory>

namespace Common {
class CTableModel;
}
namespace Ui {
class CHistoryLogDlg;
}

namespace BasicInfoManagerUI {

/// The access records of one person in a period, as a paged list and as a track. Deletes itself when it is
/// closed. User-interface thread.
class CHistoryLogDlg : public QDialog
{
    Q_OBJECT

public:
    /// pManager is borrowed; null: every query is refused.
    CHistoryLogDlg(AccessControlLogical::IAccessControlManager* pManager, const QString& sPersonId,
        const QString& sPersonName, QWidget* pParent);
    ~CHistoryLogDlg() override;

    /// Asks for the records of the last days.
    void Start();
    void SetConnected(bool bConnected);

private:
    using Param = AccessControlLogical::IAccessControlManagerObserver::Param;
    void SetUpList();
    void SetUpTrack();
    void Search();
    void QueryPage();
    void OnTotal(const Param& param);
    void OnPage(const Param& param);
    void ShowListState(int nErrorCode);
    void QueryTrack();
    void OnTrack(const Param& param);
    void OnStopChanged(int nStop);
    void UpdateButtons();

    std::unique_ptr<Ui::CHistoryLogDlg> m_pUi;
    AccessControlLogical::IAccessControlManager* m_pManager;
    AccessControlLogical::AccessRecordRequest_t m_request; ///< whose records are shown
    Common::CTableModel* m_pModel;
    bool m_bConnected = true;
    Common::CRequests<Param> m_requests;
    Common::CAccessControlAdapter m_adapter;
};

} // namespace BasicInfoManagerUI

#pragma once

#include <common/CCalls.h>
#include <common/CSession.h>

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
    /// pInterfaceSet is borrowed.
    CHistoryLogDlg(const UICommonMdl::CInterfaceSetManager* pInterfaceSet, const QString& sPersonId,
        const QString& sPersonName, QWidget* pParent);
    ~CHistoryLogDlg() override;

    /// Asks for the records of the last days.
    void Start();

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
    void OnConnectionChanged(bool bConnected);
    void UpdateButtons();

    std::unique_ptr<Ui::CHistoryLogDlg> m_pUi;
    AccessControlLogical::AccessRecordRequest_t m_request; ///< whose records are shown
    Common::CTableModel* m_pModel;
    Common::CSession m_session;
    Common::CCalls<AccessControlLogical::IAccessControlManagerObserver> m_calls;
    Common::CCalls<AccessControlLogical::IAccessControlManagerObserver> m_trackCalls;
};

} // namespace BasicInfoManagerUI

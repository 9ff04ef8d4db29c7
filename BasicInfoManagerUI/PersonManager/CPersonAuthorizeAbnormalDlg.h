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
class CPersonAuthorizeAbnormalDlg;
}

namespace BasicInfoManagerUI {

/// The rights of one person that could not be sent to devices, by the credential that they are about, and
/// sending them again. Deletes itself when it is closed. User-interface thread.
class CPersonAuthorizeAbnormalDlg : public QDialog
{
    Q_OBJECT

public:
    /// pManager is borrowed; null: every request is refused.
    CPersonAuthorizeAbnormalDlg(
        AccessControlLogical::IAccessControlManager* pManager, const QString& sPersonId, QWidget* pParent);
    ~CPersonAuthorizeAbnormalDlg() override;

    void Start();
    void SetConnected(bool bConnected);

private:
    using Param = AccessControlLogical::IPersonManagerObserver::Param;
    void SetUpTabs();
    void Query(bool bTold);
    void OnQueryAnswer(const Param& param, bool bTold);
    void Resend();
    void OnResendAnswer(const Param& param);
    void ShowExceptions(const std::vector<AccessControlLogical::AuthorizeException_t>& vecExceptions);
    void ShowRows();
    void ShowFailed(int nErrorCode);
    void UpdateButtons();

    std::unique_ptr<Ui::CPersonAuthorizeAbnormalDlg> m_pUi;
    AccessControlLogical::IAccessControlManager* m_pManager;
    QString m_sPersonId;
    std::vector<Common::CTableModel*> m_vecModels; ///< by credential
    std::vector<AccessControlLogical::AuthorizeException_t> m_vecExceptions;
    bool m_bConnected = true;
    bool m_bResending = false;
    Common::CRequests<Param> m_requests;
    Common::CPersonManagerAdapter m_adapter;
};

} // namespace BasicInfoManagerUI

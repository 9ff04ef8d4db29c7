#pragma once

#include <common/CCalls.h>
#include <common/CSession.h>

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
    /// pInterfaceSet is borrowed.
    CPersonAuthorizeAbnormalDlg(
        const UICommonMdl::CInterfaceSetManager* pInterfaceSet, const QString& sPersonId, QWidget* pParent);
    ~CPersonAuthorizeAbnormalDlg() override;

    void Start();

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
    void OnConnectionChanged(bool bConnected);
    void UpdateButtons();

    std::unique_ptr<Ui::CPersonAuthorizeAbnormalDlg> m_pUi;
    QString m_sPersonId;
    std::vector<Common::CTableModel*> m_vecModels; ///< by credential
    std::vector<AccessControlLogical::AuthorizeException_t> m_vecExceptions;
    bool m_bResending = false;
    Common::CSession m_session;
    Common::CCalls<AccessControlLogical::IPersonManagerObserver> m_calls;
};

} // namespace BasicInfoManagerUI

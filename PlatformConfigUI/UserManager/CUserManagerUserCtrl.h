#pragma once

#include <common/CPage.h>

#include <QPointer>
#include <QTimer>
#include <QWidget>

#include <memory>

namespace Ui {
class CUserManagerUserCtrl;
}
namespace UICommonMdl {
class ILocalConfig;
} // namespace UICommonMdl
namespace VxGUI {
class VxWaitDialog;
}

namespace PlatformConfigUI {

class CUserManagerUserEditDlg;

/// The user page: paged list of accounts and the operations on them. User-interface thread.
class CUserManagerUserCtrl : public Common::CPage
{
    Q_OBJECT

public:
    using Param = UserLogical::IUserManagerObserve::Param;

    /// pInterfaceSet is borrowed and outlives the page. Without a user manager the page stays in the failed
    /// state.
    explicit CUserManagerUserCtrl(
        UICommonMdl::CInterfaceSetManager* pInterfaceSet, QWidget* pParent = nullptr);
    ~CUserManagerUserCtrl() override;

private:
    void OnConnectionChanged(bool bConnected) override;
    void OnRightsChanged() override;
    void UpdateRights();

    // Building the page.
    void SetUpToolBar();
    void SetUpList();
    void SetUpShortcuts();
    void SetUpTimers();

    // Queries.
    void QueryFirstPage();
    void OnQueryCurrentPage();
    void OnUserPage(const Param& param);
    void ShowListState(int nErrorCode);
    void OnStateAction();
    UserLogical::UserPageRequest_t MakeRequest() const;

    // Operations.
    void OnOperation(int nRole, const QString& sUserName);
    void OnBtnAddClicked();
    void OnBtnDeleteClicked();
    void OnBtnImportClicked();
    void OnBtnSyncClicked();
    void LockUser(const QString& sUserName, bool bLock);
    void DeleteUsers(const QStringList& listNames);
    CUserManagerUserEditDlg* OpenDialog();
    void OnSaveUser(CUserManagerUserEditDlg* pDialog, const UserLogical::User_t& user, bool bNew);
    /// Shows the wait dialog when the work is not done in a moment.
    void WaitFor(const QString& sText);
    void OnStopWaitImmediately();
    void UpdateButtons();

    UICommonMdl::ILocalConfig* m_pLocalConfig;
    std::unique_ptr<Ui::CUserManagerUserCtrl> m_pUi;

    QString m_sSearchText;
    QString m_sWaitText;
    bool m_bChangeable = true;

    Common::CCalls<UserLogical::IUserManagerObserve> m_calls;
    QTimer m_queryTimer; ///< gathers pushes into one query
    QTimer m_waitTimer;
    QPointer<VxGUI::VxWaitDialog> m_pWaitDialog;
};

} // namespace PlatformConfigUI

#pragma once

#include <RemoteConfigLogical/IRemoteConfigManager.h>
#include <UserLogical/IUserManager.h>
#include <common/CRequests.h>
#include <common/IConfigPage.h>
#include <common/ObserverAdapters.h>

#include <QPointer>
#include <QTimer>
#include <QWidget>

#include <memory>

namespace Ui {
class CUserManagerUserCtrl;
}
namespace UICommonMdl {
class CInterfaceSetManager;
class ILocalConfig;
} // namespace UICommonMdl
namespace VxGUI {
class VxWaitDialog;
}

namespace PlatformConfigUI {

class CUserManagerUserEditDlg;

/// The user page: paged list of accounts and the operations on them. User-interface thread; the signals of
/// the observers come on threads of the host.
class CUserManagerUserCtrl : public QWidget, public Common::IConfigPage
{
    Q_OBJECT

public:
    using Param = UserLogical::IUserManagerObserve::Param;

    /// pInterfaceSet is borrowed and outlives the page. Without a user manager the page stays in the failed
    /// state.
    explicit CUserManagerUserCtrl(
        UICommonMdl::CInterfaceSetManager* pInterfaceSet, QWidget* pParent = nullptr);
    ~CUserManagerUserCtrl() override;

    bool OnMsg(int nMsg, QVariant* pValue, void* pArgument) override;
    /// Ends all registrations and closes what is open; the page asks for nothing any more.
    void UninitUI() override;

Q_SIGNALS:
    void SignalNotifyUserManagerState(const UserLogical::IUserManagerObserve::Param& param);
    /// The connection to the central server is lost, or is back.
    void SignalDisconnectCms();
    void SignalReconnectCms();
    /// The host has something to say to the operator.
    void SignalShowNotify(const QString& sText);
    /// As the dialogs of the page hear of the connection and of the operator's right to change accounts.
    void SignalConnected(bool bConnected);
    void SignalChangeable(bool bChangeable);

protected:
    void showEvent(QShowEvent* pEvent) override;

private:
    // Building the page.
    void SetUpToolBar();
    void SetUpList();
    void SetUpShortcuts();
    void SetUpObservers();

    // Answers and pushes.
    void OnLoginState(const UserLogical::ILoginManagerObserver::Param& param);
    void OnSystemState(const RemoteConfigLogical::ISystemConfigObserver::Param& param);
    void OnNotifyUserManagerState(const UserLogical::IUserManagerObserve::Param& param);
    void OnDisconnectCms();
    void OnReconnectCms();
    void OnShowNotify(const QString& sText);
    void SetConnected(bool bConnected);
    void UpdateRights();

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
    void ShowFailure(const QString& sPrefix, int nErrorCode);

    UserLogical::IUserManager* m_pManager;
    RemoteConfigLogical::IRemoteConfigManager* m_pRemoteManager;
    UICommonMdl::ILocalConfig* m_pLocalConfig;
    std::unique_ptr<Ui::CUserManagerUserCtrl> m_pUi;

    QString m_sSearchText;
    QString m_sWaitText;
    bool m_bConnected = true;
    bool m_bChangeable = true;
    bool m_bReleased = false; ///< UninitUI was called

    Common::CRequests<Param> m_requests;
    QTimer m_queryTimer; ///< gathers pushes into one query
    QTimer m_waitTimer;
    QPointer<VxGUI::VxWaitDialog> m_pWaitDialog;

    std::unique_ptr<Common::CSystemConfigAdapter> m_pSystemAdapter;
    std::unique_ptr<Common::CLoginManagerAdapter> m_pLoginAdapter;
    std::unique_ptr<Common::CUserManagerAdapter> m_pUserAdapter;
};

} // namespace PlatformConfigUI

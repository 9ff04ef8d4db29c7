#pragma once

#include <UserLogical/IUserManager.h>
#include <common/CRequests.h>
#include <common/IConfigPage.h>
#include <common/ObserverAdapters.h>

#include <QPointer>
#include <QTimer>
#include <QWidget>

#include <memory>

namespace Common {
class CFilterHeaderView;
class CRowButtonDelegate;
} // namespace Common
namespace Ui {
class CRoleManagerCtrl;
}
namespace UICommonMdl {
class CInterfaceSetManager;
}

namespace PlatformConfigUI {

class CRoleManagerEditDlg;
class CRoleModel;

/// The role page: list of roles and the operations on them. User-interface thread; the observer callbacks
/// come on threads of the host.
class CRoleManagerCtrl : public QWidget,
                         public Common::IConfigPage,
                         private UserLogical::IUserManagerObserve,
                         private UserLogical::ILoginManagerObserver
{
    Q_OBJECT

public:
    /// What the buttons of a row do.
    enum RowRole : int
    {
        RoleEdit = 1,
        RoleDelete,
        RoleDetails
    };
    using UserParam = UserLogical::IUserManagerObserve::Param;
    using LoginParam = UserLogical::ILoginManagerObserver::Param;

    /// pInterfaceSet is borrowed and outlives the page. Without a user manager the page stays in the failed
    /// state.
    explicit CRoleManagerCtrl(UICommonMdl::CInterfaceSetManager* pInterfaceSet, QWidget* pParent = nullptr);
    ~CRoleManagerCtrl() override;

    bool OnMsg(int nMsg, QVariant* pValue, void* pArgument) override;
    /// Ends all registrations; the page asks for nothing any more.
    void UninitUI() override;

Q_SIGNALS:
    void SignalNotifyUserManagerState(const UserLogical::IUserManagerObserve::Param& param);
    void SignalNotifyLoginManagerState(const UserLogical::ILoginManagerObserver::Param& param);

protected:
    void showEvent(QShowEvent* pEvent) override;

private:
    void OnNotifyUserManagerState(const UserParam& param) override;
    void OnNotifyLoginManagerState(const LoginParam& param) override;

    // Building the page.
    void SetUpToolBar();
    void SetUpList();
    void SetUpKeys();
    void SetUpObservers();

    // Answers and pushes, on the user-interface thread.
    void OnUserState(const UserParam& param);
    void OnLoginState(const LoginParam& param);
    void SetConnected(bool bConnected);
    void UpdateRights();

    // The list.
    void QueryRoles();
    void OnRoleList(const UserParam& param);
    void ShowRoles();
    void ShowListState(int nErrorCode);
    void UpdateButtons();
    void OnToggleChecks();
    void OnContextMenu(const QPoint& pos);
    QString GetCurrentId() const;
    bool IsOffered(const QString& sId, int nRole) const;

    // Operations.
    void OnOperation(int nRole, const QString& sId);
    void OnBtnAddClicked();
    void OnBtnDeleteClicked();
    void DeleteRoles(const QStringList& listIds);
    void OnDeleteAnswer(const UserParam& param);
    CRoleManagerEditDlg* MakeDialog();
    void OnSave(const UserLogical::RoleEdit_t& edit);
    void ShowFailure(const QString& sPrefix, int nErrorCode);

    UserLogical::IUserManager* m_pManager;
    std::unique_ptr<Ui::CRoleManagerCtrl> m_pUi;
    CRoleModel* m_pModel;
    Common::CFilterHeaderView* m_pHeader = nullptr;
    Common::CRowButtonDelegate* m_pRowButtons = nullptr;
    QPointer<CRoleManagerEditDlg> m_pDialog;

    std::vector<UserLogical::Role_t> m_vecRoles; ///< all, also those that the search hides
    QString m_sSearchText;
    bool m_bMayChange = false;
    bool m_bConnected = true;
    bool m_bReleased = false; ///< UninitUI was called
    Common::CRequests<UserParam> m_requests;
    QTimer m_queryTimer; ///< gathers pushes into one query

    Common::CObserverRegistration<UserLogical::IUserManager, UserLogical::IUserManagerObserve>
        m_userRegistration;
    Common::CObserverRegistration<UserLogical::IUserManager, UserLogical::ILoginManagerObserver>
        m_loginRegistration;
};

} // namespace PlatformConfigUI

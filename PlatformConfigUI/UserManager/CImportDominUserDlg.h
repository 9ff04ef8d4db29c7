#pragma once

#include <UserLogical/IUserManager.h>
#include <common/CRequests.h>
#include <common/ObserverAdapters.h>

#include <QDialog>

#include <memory>

namespace Ui {
class CImportDominUserDlg;
}

namespace PlatformConfigUI {

class CUserDetailPermission;

/// Adds users of the directory to the platform: first the users, then their roles. Deletes itself when it is
/// closed. User-interface thread.
class CImportDominUserDlg : public QDialog
{
    Q_OBJECT

public:
    /// The manager is borrowed; null: every request is refused.
    CImportDominUserDlg(UserLogical::IUserManager* pManager, QWidget* pParent);
    ~CImportDominUserDlg() override;

    void Start();
    void SetConnected(bool bConnected);

Q_SIGNALS:
    /// Users were added, all that were chosen or some of them.
    void SignalUsersAdded();

private:
    using Param = UserLogical::IUserManagerObserve::Param;
    void Query();
    void OnUsers(const Param& param);
    void ShowListState(int nErrorCode);
    void ShowStep(QWidget* pPage);
    void OnNextClicked();
    void AddUsers();
    void OnAddAnswer(const Param& param);
    void ShowFailed(const std::vector<UserLogical::UserFailure_t>& vecFailed);
    void UpdateTicks();
    void UpdateButtons();

    std::unique_ptr<Ui::CImportDominUserDlg> m_pUi;
    UserLogical::IUserManager* m_pManager;
    CUserDetailPermission* m_pPermission;
    QString m_sSearchText;
    bool m_bConnected = true;
    bool m_bAdding = false;
    Common::CRequests<Param> m_requests;
    Common::CUserManagerAdapter m_adapter;
};

} // namespace PlatformConfigUI

#pragma once

#include <UserLogical/IUserManager.h>
#include <common/CRequests.h>
#include <common/ObserverAdapters.h>

#include <QDialog>

#include <memory>

namespace Ui {
class CSyncDominUserDlg;
}

namespace PlatformConfigUI {

/// The platform's domain users that the directory no longer holds, and deleting them. Deletes itself when it
/// is closed. User-interface thread.
class CSyncDominUserDlg : public QDialog
{
    Q_OBJECT

public:
    /// The manager is borrowed; null: every request is refused.
    CSyncDominUserDlg(UserLogical::IUserManager* pManager, QWidget* pParent);
    ~CSyncDominUserDlg() override;

    void Start();
    void SetConnected(bool bConnected);

Q_SIGNALS:
    /// Users were deleted, all that were listed or some of them.
    void SignalUsersDeleted();

private:
    using Param = UserLogical::IUserManagerObserve::Param;
    void Query();
    void OnUsers(const Param& param);
    void ShowListState(int nErrorCode);
    void OnDeleteClicked();
    void OnDeleteAnswer(const Param& param);
    void UpdateButtons();

    std::unique_ptr<Ui::CSyncDominUserDlg> m_pUi;
    UserLogical::IUserManager* m_pManager;
    bool m_bConnected = true;
    bool m_bDeleting = false;
    Common::CRequests<Param> m_requests;
    Common::CUserManagerAdapter m_adapter;
};

} // namespace PlatformConfigUI

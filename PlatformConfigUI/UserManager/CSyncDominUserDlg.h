#pragma once

#include <common/CCalls.h>
#include <common/CSession.h>

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
    /// pInterfaceSet is borrowed.
    CSyncDominUserDlg(const UICommonMdl::CInterfaceSetManager* pInterfaceSet, QWidget* pParent);
    ~CSyncDominUserDlg() override;

    void Start();

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
    void OnConnectionChanged(bool bConnected);
    void UpdateButtons();

    std::unique_ptr<Ui::CSyncDominUserDlg> m_pUi;
    bool m_bDeleting = false;
    Common::CSession m_session;
    Common::CCalls<UserLogical::IUserManagerObserve> m_calls;
};

} // namespace PlatformConfigUI

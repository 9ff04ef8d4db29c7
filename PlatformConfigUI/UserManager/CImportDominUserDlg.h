#pragma once

#include <common/CCalls.h>
#include <common/CSession.h>

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
    /// pInterfaceSet is borrowed.
    CImportDominUserDlg(const UICommonMdl::CInterfaceSetManager* pInterfaceSet, QWidget* pParent);
    ~CImportDominUserDlg() override;

    void Start();

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
    void OnConnectionChanged(bool bConnected);
    void UpdateButtons();

    std::unique_ptr<Ui::CImportDominUserDlg> m_pUi;
    CUserDetailPermission* m_pPermission;
    QString m_sSearchText;
    bool m_bAdding = false;
    Common::CSession m_session;
    Common::CCalls<UserLogical::IUserManagerObserve> m_calls;
};

} // namespace PlatformConfigUI

#pragma once

#include <common/CListPage.h>
#include <common/CTransfer.h>

namespace VxGUI {
class VxSearchBox;
}

namespace PlatformConfigUI {

class CUserListView;
class CUserManagerUserEditDlg;

/// The user page: paged list of accounts and the operations on them. User-interface thread.
class CUserManagerUserCtrl : public Common::CListPage
{
    Q_OBJECT

public:
    using Param = UserLogical::IUserManagerObserve::Param;

    /// pInterfaceSet is borrowed and outlives the page's work.
    explicit CUserManagerUserCtrl(
        UICommonMdl::CInterfaceSetManager* pInterfaceSet, QWidget* pParent = nullptr);

private:
    void Query() override;
    bool IsFiltered() const override;
    bool CanClearFilters() const override { return true; }
    void ClearFilters() override;
    void OnConnectionChanged(bool bConnected) override;
    void OnRightsChanged() override;
    void ApplyRights() override;

    void SetUpToolBar();
    void OnUserPage(const Param& param);

    void OnOperation(int nRole, const QString& sUserName);
    void OnBtnDeleteClicked();
    void OnBtnImportClicked();
    void OnBtnSyncClicked();
    void LockUser(const QString& sUserName, bool bLock);
    void DeleteUsers(const QStringList& listNames);
    void OnDeleteAnswer(const QStringList& listNames, const Param& param);
    CUserManagerUserEditDlg* OpenDialog();
    /// Shows the wait dialog when the work is not done in a moment.
    void WaitFor(const QString& sText);
    void OnStopWaitImmediately();

    CUserListView* m_pList;
    VxGUI::VxSearchBox* m_pSearch;
    QString m_sSearchText;
    Common::CCalls<UserLogical::IUserManagerObserve> m_calls;
    Common::CTransfer m_transfer;
};

} // namespace PlatformConfigUI

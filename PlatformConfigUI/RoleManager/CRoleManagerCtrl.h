#pragma once

#include <common/CPage.h>

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

namespace PlatformConfigUI {

class CRoleManagerEditDlg;
class CRoleModel;

/// The role page: list of roles and the operations on them. User-interface thread.
class CRoleManagerCtrl : public Common::CPage
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

    /// pInterfaceSet is borrowed and outlives the page. Without a user manager the page stays in the failed
    /// state.
    explicit CRoleManagerCtrl(UICommonMdl::CInterfaceSetManager* pInterfaceSet, QWidget* pParent = nullptr);
    ~CRoleManagerCtrl() override;

private:
    void OnConnectionChanged(bool bConnected) override;
    void OnRightsChanged() override;

    // Building the page.
    void SetUpToolBar();
    void SetUpList();
    void SetUpKeys();

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

    std::unique_ptr<Ui::CRoleManagerCtrl> m_pUi;
    CRoleModel* m_pModel;
    Common::CFilterHeaderView* m_pHeader = nullptr;
    Common::CRowButtonDelegate* m_pRowButtons = nullptr;
    QPointer<CRoleManagerEditDlg> m_pDialog;

    std::vector<UserLogical::Role_t> m_vecRoles; ///< all, also those that the search hides
    QString m_sSearchText;
    bool m_bMayChange = false;
    Common::CCalls<UserLogical::IUserManagerObserve> m_calls;
    QTimer m_queryTimer; ///< gathers pushes into one query
};

} // namespace PlatformConfigUI

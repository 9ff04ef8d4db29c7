#pragma once

#include <common/CListPage.h>

#include <QPointer>

namespace VxGUI {
class VxSearchBox;
}

namespace PlatformConfigUI {

class CRoleListView;
class CRoleManagerEditDlg;

/// The role page: list of roles and the operations on them. User-interface thread.
class CRoleManagerCtrl : public Common::CListPage
{
    Q_OBJECT

public:
    using Param = UserLogical::IUserManagerObserve::Param;

    /// pInterfaceSet is borrowed and outlives the page's work.
    explicit CRoleManagerCtrl(UICommonMdl::CInterfaceSetManager* pInterfaceSet, QWidget* pParent = nullptr);

private:
    void Query() override;
    bool IsFiltered() const override;
    void ApplyRights() override;

    void SetUpToolBar();
    void OnRoleList(const Param& param);
    void ShowRoles();
    void OnOperation(int nRole, const QString& sId);
    CRoleManagerEditDlg* MakeDialog();
    void OnBtnDeleteClicked();
    void DeleteRoles(const QStringList& listIds);
    void OnDeleteAnswer(const QStringList& listIds, const Param& param);

    CRoleListView* m_pList;
    VxGUI::VxSearchBox* m_pSearch;
    QPointer<CRoleManagerEditDlg> m_pDialog;
    std::vector<UserLogical::Role_t> m_vecRoles; ///< all, also those that the search hides
    Common::CCalls<UserLogical::IUserManagerObserve> m_calls;
};

} // namespace PlatformConfigUI

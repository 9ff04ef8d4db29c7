#pragma once

#include <common/CCalls.h>
#include <common/CSession.h>

#include <QWidget>

#include <memory>

namespace Common {
class CRowButtonDelegate;
class CTableModel;
} // namespace Common
namespace Ui {
class CUserDetailPermission;
}

namespace PlatformConfigUI {

class CRightsView;

/// The roles of an account, to be chosen or to be looked at, and the rights that they give. User-interface
/// thread.
class CUserDetailPermission : public QWidget
{
    Q_OBJECT

public:
    /// pInterfaceSet is borrowed.
    explicit CUserDetailPermission(
        const UICommonMdl::CInterfaceSetManager* pInterfaceSet, QWidget* pParent = nullptr);
    ~CUserDetailPermission() override;

    /// Roles are chosen from all that there are, beginning with these.
    void StartChoice(const std::vector<std::string>& vecRoleIds);
    /// The roles of that user are looked at; without a single one clicked, their rights together.
    void ShowUser(const QString& sUserName);
    /// IDs, in the order of the list.
    std::vector<std::string> GetChosen() const;
    /// What the roles with those IDs are called, an unknown one by its ID.
    QString GetRoleNames(const std::vector<std::string>& vecRoleIds) const;
    /// Puts the keyboard where a role can be chosen.
    void StartInput();

private:
    using Param = UserLogical::IUserManagerObserve::Param;
    void SetUpList();
    void OnConnectionChanged(bool bConnected);
    void Query();
    void QueryRoles();
    void QueryUserRoles();
    void OnRoles(const Param& param, const QString& sFailure);
    void DropUnknown();
    void SetChosen(const QStringList& listIds);
    void ShowChosen();
    void ShowRolesState(int nErrorCode, const QString& sFailure);
    void OnRoleClicked(const QString& sRoleId);
    void QueryRole();
    void ShowTogether();
    void ShowRights(const std::vector<UserLogical::Role_t>& vecRoles);
    const UserLogical::Role_t* FindRole(const QString& sRoleId) const;

    std::unique_ptr<Ui::CUserDetailPermission> m_pUi;
    Common::CTableModel* m_pModel;
    Common::CRowButtonDelegate* m_pRowButtons;
    CRightsView* m_pRights;
    bool m_bReadOnly = false;
    bool m_bLoaded = false; ///< m_vecRoles is what the server answered
    QString m_sUserName; ///< whose roles are looked at
    std::vector<UserLogical::Role_t> m_vecRoles; ///< all of them, or those of the user with their rights
    QStringList m_listChosen; ///< IDs
    QString m_sCurrent; ///< role whose rights are shown; empty: none
    Common::CSession m_session;
    Common::CCalls<UserLogical::IUserManagerObserve> m_calls;
};

} // namespace PlatformConfigUI

#pragma once

#include <common/CCalls.h>
#include <common/CSession.h>

#include <QDialog>

#include <memory>

namespace Ui {
class CRoleManagerEditDlg;
}

namespace PlatformConfigUI {

class CRightsView;

/// Adds a role, changes one or shows one. It gives the record to its page, which saves it and tells what
/// became of that; on a refusal the dialog stays open with the input. Deletes itself when it is closed.
/// User-interface thread.
class CRoleManagerEditDlg : public QDialog
{
    Q_OBJECT

public:
    /// pInterfaceSet is borrowed and outlives the dialog's work.
    CRoleManagerEditDlg(UICommonMdl::CInterfaceSetManager* pInterfaceSet, QWidget* pParent);
    ~CRoleManagerEditDlg() override;

    /// The roles that can be copied from, with the host's list.
    void SetRoles(const std::vector<UserLogical::Role_t>& vecRoles);
    void BeginAdd();
    void BeginModify(const QString& sRoleId);
    /// bMayEdit: the button "Edit" goes on to changing the role.
    void BeginDetails(const QString& sRoleId, bool bMayEdit);

    /// The record of SignalSave was taken: closes.
    void OnSaved();
    /// It was refused, or could not be sent; both as the answer has them.
    void OnSaveFailed(int nErrorCode, const QString& sDetail);

    void accept() override;
    /// Asks first when something was changed.
    void reject() override;

Q_SIGNALS:
    /// All checks have passed.
    void SignalSave(const UserLogical::RoleEdit_t& edit);

private:
    using Param = UserLogical::IUserManagerObserve::Param;
    enum class Purpose
    {
        Add,
        Modify,
        Details
    };
    void SetUpFields();
    void Begin(Purpose purpose, const QString& sRoleId);
    void QueryRole();
    void OnRoleInfo(const Param& param);
    void ShowRecord();
    void ShowRoles();
    void OnCopyChosen(int nIndex);
    void OnCopyInfo(const QString& sRoleId, const Param& param);
    bool CheckFields();
    UserLogical::RoleEdit_t GetEdited() const;
    bool IsDirty() const;
    void CloseBecauseGone();
    void OfferReload();
    void OnConnectionChanged(bool bConnected);
    void UpdateButtons();

    UICommonMdl::CInterfaceSetManager* m_pInterfaceSet;
    std::unique_ptr<Ui::CRoleManagerEditDlg> m_pUi;
    CRightsView* m_pRights = nullptr;
    Purpose m_purpose = Purpose::Add;
    QString m_sRoleId;
    UserLogical::Role_t m_loaded; ///< its rights sorted
    QString m_sCopyFrom;
    std::vector<UserLogical::Role_t> m_vecRoles;
    bool m_bMayEdit = false;
    bool m_bLoaded = false;
    bool m_bSaving = false;
    Common::CSession m_session;
    Common::CCalls<UserLogical::IUserManagerObserve> m_calls; ///< the role itself
    Common::CCalls<UserLogical::IUserManagerObserve> m_copyCalls; ///< the role to copy from
};

} // namespace PlatformConfigUI

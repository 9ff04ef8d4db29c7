#pragma once

#include <common/CCalls.h>
#include <common/CEditor.h>
#include <common/CFormBinding.h>
#include <common/CSession.h>

#include <QDialog>

#include <memory>

namespace Ui {
class CRoleManagerEditDlg;
}

namespace PlatformConfigUI {

class CRightsView;

/// Adds a role, changes one or shows one. On a refusal it stays open with the input. Deletes itself when it
/// is closed. User-interface thread.
class CRoleManagerEditDlg : public QDialog, private Common::IRecordForm<UserLogical::Role_t>
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

    void accept() override;
    /// Asks first when something was changed.
    void reject() override;

Q_SIGNALS:
    /// The server took the role.
    void SignalSaved();

private:
    using Role = UserLogical::Role_t;
    using Param = UserLogical::IUserManagerObserve::Param;
    void SetUpFields();
    void SetUpEditor();
    using Purpose = Common::CEditorBase::Purpose;
    void Load(Purpose purpose, const QString& sRoleId);
    /// Makes the fields and the rights editable, or not.
    void ShowPurpose();
    void ShowRoles();
    void OnCopyChosen(int nIndex);
    void OnCopyInfo(const QString& sRoleId, const Param& param);
    void QueryRole(const std::string& sRoleId);
    void FindRole(const std::string& sName);
    void CloseBecauseGone();
    void UpdateButtons();

    void ShowRecord(const Role& record) override;
    Role GetEdited() const override;
    QString GetOtherChange() const override;
    bool CheckInput() override;
    void Send(const Role& record, bool bNew) override;
    void Fetch(const Role& record, bool bNew) override;
    void OnSaved(const Role& record) override;
    bool ShowRefusal(int nErrorCode, const std::string& sDetail) override;
    bool OnLoadFailed(int nErrorCode) override;

    UICommonMdl::CInterfaceSetManager* m_pInterfaceSet;
    std::unique_ptr<Ui::CRoleManagerEditDlg> m_pUi;
    CRightsView* m_pRights = nullptr;
    bool m_bRightsReadOnly = false; ///< what m_pRights was made for
    QString m_sCopyFrom;
    std::vector<UserLogical::Role_t> m_vecRoles;
    Common::CSession m_session;
    Common::CCalls<UserLogical::IUserManagerObserve> m_calls; ///< the role itself
    Common::CCalls<UserLogical::IUserManagerObserve> m_copyCalls; ///< the role to copy from
    Common::CEditor<Role> m_editor;
    Common::CFormBinding<Role> m_fields;
};

} // namespace PlatformConfigUI

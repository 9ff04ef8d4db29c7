#pragma once

#include <common/CCalls.h>
#include <common/CEditor.h>
#include <common/CSession.h>

#include <QDialog>

#include <memory>

namespace Ui {
class CUserManagerUserEditDlg;
}

namespace PlatformConfigUI {

class CUserDetailPermission;

/// Adds an account, changes one or shows one. On a refusal it stays open with the input. Deletes itself when
/// it is closed. User-interface thread.
class CUserManagerUserEditDlg : public QDialog, private Common::IRecordForm<UserLogical::User_t>
{
    Q_OBJECT

public:
    /// pInterfaceSet is borrowed.
    CUserManagerUserEditDlg(const UICommonMdl::CInterfaceSetManager* pInterfaceSet, QWidget* pParent);
    ~CUserManagerUserEditDlg() override;

    void BeginAdd();
    void BeginModify(const QString& sUserName);
    /// Read-only, until the operator chooses to edit.
    void BeginDetails(const QString& sUserName);

    void accept() override;
    void reject() override;

Q_SIGNALS:
    /// The server took the account.
    void SignalSaved();

private:
    using User = UserLogical::User_t;
    using Param = UserLogical::IUserManagerObserve::Param;
    void SetUpEditor();
    void Load(Common::CEditorBase::Purpose purpose, const QString& sUserName);

    void ShowRecord(const User& record) override;
    User GetEdited() const override;
    bool CheckInput() override;
    void Send(const User& record, bool bNew) override;
    void Fetch(const User& record, bool bNew) override;
    void OnSaved(const User& record) override;
    bool ShowRefusal(int nErrorCode, const std::string& sDetail) override;

    std::unique_ptr<Ui::CUserManagerUserEditDlg> m_pUi;
    CUserDetailPermission* m_pPermission;
    Common::CSession m_session;
    Common::CCalls<UserLogical::IUserManagerObserve> m_calls;
    Common::CEditor<User> m_editor;
};

} // namespace PlatformConfigUI

#pragma once

#include <common/CCalls.h>
#include <common/CSession.h>

#include <QDialog>

#include <memory>

namespace Ui {
class CUserManagerUserEditDlg;
}

namespace PlatformConfigUI {

class CUserDetailPermission;

/// Adds an account, changes one or shows one. What is to be saved it reports to the page, and stays open with
/// the input until the page says that it is saved. Deletes itself when it is closed. User-interface thread.
class CUserManagerUserEditDlg : public QDialog
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

    bool IsDirty() const;
    /// The page waits for the answer to its request, or it is there.
    void SetSaving(bool bSaving);
    /// The record was refused.
    void ShowFailure(int nErrorCode, const QString& sDetail);

    void accept() override;
    void reject() override;

Q_SIGNALS:
    void SignalSaveUser(const UserLogical::User_t& user, bool bNew);

private:
    using Param = UserLogical::IUserManagerObserve::Param;
    enum class Mode
    {
        Add,
        Modify,
        Details
    };
    void Begin(Mode mode, const QString& sUserName);
    void Load();
    void OnUserInfo(const Param& param);
    void ShowRecord();
    void ShowLoadState(int nErrorCode);
    UserLogical::User_t GetEdited() const;
    bool CheckInput();
    void Save();
    void OnVersionConflict();
    void OnEditClicked();
    void OnConnectionChanged(bool bConnected);
    void UpdateButtons();

    std::unique_ptr<Ui::CUserManagerUserEditDlg> m_pUi;
    CUserDetailPermission* m_pPermission;
    Mode m_mode = Mode::Add;
    QString m_sUserName;
    UserLogical::User_t m_loaded;
    bool m_bLoaded = false;
    bool m_bSaving = false;
    Common::CSession m_session;
    Common::CCalls<UserLogical::IUserManagerObserve> m_calls;
};

} // namespace PlatformConfigUI

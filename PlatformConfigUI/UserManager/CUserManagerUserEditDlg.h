#pragma once

#include <UserLogical/IUserManager.h>
#include <common/CRequests.h>
#include <common/ObserverAdapters.h>

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
    /// The manager is borrowed; null: every request is refused.
    CUserManagerUserEditDlg(UserLogical::IUserManager* pManager, QWidget* pParent);
    ~CUserManagerUserEditDlg() override;

    void BeginAdd();
    void BeginModify(const QString& sUserName);
    /// Read-only, until the operator chooses to edit.
    void BeginDetails(const QString& sUserName);

    bool IsDirty() const;
    void SetConnected(bool bConnected);
    /// Whether the signed-in user may change accounts.
    void SetChangeable(bool bChangeable);
    /// The page's request was taken and waits for its answer, or its answer is there.
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
    void UpdateButtons();

    std::unique_ptr<Ui::CUserManagerUserEditDlg> m_pUi;
    UserLogical::IUserManager* m_pManager;
    CUserDetailPermission* m_pPermission;
    Mode m_mode = Mode::Add;
    QString m_sUserName;
    UserLogical::User_t m_loaded;
    bool m_bLoaded = false;
    bool m_bConnected = true;
    bool m_bChangeable = true;
    bool m_bSaving = false;
    Common::CRequests<Param> m_requests;
    Common::CUserManagerAdapter m_adapter;
};

} // namespace PlatformConfigUI

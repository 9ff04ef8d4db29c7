#pragma once

#include <QDialog>

#include <memory>

namespace Ui {
class CSignInDlg;
}
namespace PlatformLogic {
class CPlatformClient;
}

namespace VxGUI {
class VxLineEdit;
}

namespace ClientApp {

/// Signs the user in; on the first start of a server it asks for the password of the built-in account before,
/// and for a new password where the server wants one.
/// Accepted when the user is signed in. User-interface thread.
class CSignInDlg : public QDialog
{
    Q_OBJECT

public:
    enum class Mode
    {
        SignIn,
        SetUp, ///< first start: the password of the built-in account is chosen
        NewPassword ///< name and password are right, but a new password has to be chosen
    };

    /// client is borrowed and outlives the dialog.
    explicit CSignInDlg(PlatformLogic::CPlatformClient& client, QWidget* pParent = nullptr);
    ~CSignInDlg() override;

    /// The server is not ready yet.
    void ShowWaiting(const QString& sText);
    /// The server could not be started; with no server to ask there is nothing to try again.
    void ShowFailure(const QString& sText);
    void ShowForm(Mode mode);
    /// Asks the server and goes on with what it answers.
    void Connect();
    /// Shows why the user has to sign in again; it is for that account alone, until Connect.
    void AskAgain(const QString& sUserName, const QString& sReason);
    /// Signs in without asking; on a server without a password this one becomes it.
    void SignInAtOnce(const QString& sUserName, const QString& sPassword);

protected:
    void showEvent(QShowEvent* pEvent) override;

private:
    void LoadStyleSheet();
    void SetBusy(bool bBusy);
    void ShowError(const QString& sText);
    void OnSubmit();
    void ShowFields();
    void ShowPasswordError(const QString& sText);
    VxGUI::VxLineEdit* NewPasswordEdit() const;
    bool CheckFields();
    bool CheckNewPassword();
    void OnNewPasswordRefused(int nErrorCode, const QString& sDetail);
    void OnServerState(int nErrorCode, bool bSetupNeeded);
    void OnSetUp(int nErrorCode, const QString& sDetail);
    void OnSignIn(int nErrorCode, const QString& sDetail);

    std::unique_ptr<Ui::CSignInDlg> m_pUi;
    PlatformLogic::CPlatformClient& m_client;
    Mode m_mode = Mode::SignIn;
    bool m_bAtOnce = false;
};

} // namespace ClientApp

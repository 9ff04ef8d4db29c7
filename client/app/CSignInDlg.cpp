#include "CSignInDlg.h"

#include "ui_CSignInDlg.h"

#include <PlatformLogic/CPlatformClient.h>
#include <Trv/QCommon.h>
#include <Trv/QSkin.h>
#include <UICommonMdl/CErrorCode.h>
#include <UICommonMdl/CGlobalInfo.h>
#include <UserLogical/UserRecords.h>
#include <VxGUI/RequiredMark.h>
#include <VxGUI/VxEmptyState.h>

namespace ClientApp {

namespace {
const QString BuiltInAccount = QStringLiteral("system");
/// Passwords of a directory may be longer than those of the platform.
constexpr UICommonMdl::TextRule AnyPassword{1, 128};

/// Refusals that another new password does not mend.
bool IsAboutAccount(int nErrorCode)
{
    switch (nErrorCode) {
    case UICommonMdl::ErrorWrongPassword:
    case UICommonMdl::ErrorAccountLocked:
    case UICommonMdl::ErrorAccountDisabled:
    case UICommonMdl::ErrorAccountExpired:
    case UICommonMdl::ErrorMacAddress:
        return true;
    default:
        return false;
    }
}
} // namespace

CSignInDlg::CSignInDlg(PlatformLogic::CPlatformClient& client, QWidget* pParent)
    : QDialog(pParent)
    , m_pUi(std::make_unique<Ui::CSignInDlg>())
    , m_client(client)
{
    m_pUi->setupUi(this);
    setWindowTitle(tr("Sign In"));
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    m_pUi->lbTitle->setText(tr("Security Management"));
    m_pUi->edtUserName->SetRequired(tr("Please enter the user name."));
    m_pUi->edtUserName->SetLimit(UserLogical::UserName, tr("The user name cannot exceed %1 characters."));
    const std::pair<VxGUI::VxLineEdit*, UICommonMdl::TextRule> passwords[] = {
        {m_pUi->edtPassword, AnyPassword}, {m_pUi->edtNewPassword, UserLogical::UserPassword},
        {m_pUi->edtConfirm, UserLogical::UserPassword}};
    for (const auto& [pEdit, rule] : passwords) {
        pEdit->setPassword(true);
        pEdit->SetLimit(rule, tr("The password cannot exceed %1 characters."));
    }
    m_pUi->edtPassword->SetRequired(tr("Please enter the password."));
    m_pUi->edtNewPassword->SetRequired(tr("Please enter the new password."));
    m_pUi->lbUserName->setBuddy(m_pUi->edtUserName->GetLineEdit());
    m_pUi->lbPassword->setBuddy(m_pUi->edtPassword->GetLineEdit());
    m_pUi->lbNewPassword->setBuddy(m_pUi->edtNewPassword->GetLineEdit());
    m_pUi->lbConfirm->setBuddy(m_pUi->edtConfirm->GetLineEdit());
    VxGUI::MarkRequired(m_pUi->edtConfirm);

    connect(m_pUi->btnSignIn, &QPushButton::clicked, this, &CSignInDlg::OnSubmit);
    connect(m_pUi->btnBack, &QPushButton::clicked, this, [this] { ShowForm(Mode::SignIn); });
    connect(m_pUi->pageState, &VxGUI::VxEmptyState::SignalAction, this, &CSignInDlg::Connect);
    connect(&client, &PlatformLogic::CPlatformClient::SignalServerState, this, &CSignInDlg::OnServerState);
    connect(&client, &PlatformLogic::CPlatformClient::SignalSetUp, this, &CSignInDlg::OnSetUp);
    connect(&client, &PlatformLogic::CPlatformClient::SignalSignIn, this, &CSignInDlg::OnSignIn);
    LoadStyleSheet();
}

CSignInDlg::~CSignInDlg() = default;

void CSignInDlg::LoadStyleSheet()
{
    setObjectName(QStringLiteral("CSignInDlg"));
    QString sStyleSheet;
    if (Trv::loadStyleSheet(
            Trv::GetSkinPath(QStringLiteral("CSignInDlg.qss"), QStringLiteral("Client")), sStyleSheet))
        setStyleSheet(sStyleSheet);
    m_pUi->lbLogo->setPixmap(Trv::GetIcon(QStringLiteral("product")).pixmap(QSize(48, 48)));
}

void CSignInDlg::showEvent(QShowEvent* pEvent)
{
    QDialog::showEvent(pEvent);
    LoadStyleSheet();
}

void CSignInDlg::ShowWaiting(const QString& sText)
{
    m_pUi->pageState->SetState(VxGUI::VxEmptyState::Kind::Loading, sText);
    m_pUi->stackPages->setCurrentWidget(m_pUi->pageState);
}

void CSignInDlg::ShowFailure(const QString& sText)
{
    m_pUi->pageState->SetState(VxGUI::VxEmptyState::Kind::Failed, tr("The server is not available."), sText);
    m_pUi->stackPages->setCurrentWidget(m_pUi->pageState);
}

void CSignInDlg::Connect()
{
    m_pUi->lbServer->setText(m_client.GetServer().toDisplayString());
    m_pUi->edtUserName->setReadOnly(false);
    ShowWaiting(tr("Connecting to the server..."));
    m_client.QueryServerState();
}

void CSignInDlg::AskAgain(const QString& sUserName, const QString& sReason)
{
    ShowForm(Mode::SignIn);
    m_pUi->edtUserName->setText(sUserName);
    m_pUi->edtUserName->setReadOnly(true);
    m_pUi->edtPassword->setText(QString());
    m_pUi->edtPassword->GetLineEdit()->setFocus();
    ShowError(sReason);
}

void CSignInDlg::SignInAtOnce(const QString& sUserName, const QString& sPassword)
{
    m_bAtOnce = true;
    m_pUi->edtUserName->setText(sUserName);
    m_pUi->edtPassword->setText(sPassword);
    m_pUi->edtConfirm->setText(sPassword);
    Connect();
}

void CSignInDlg::OnServerState(int nErrorCode, bool bSetupNeeded)
{
    if (nErrorCode != UICommonMdl::ErrorNone) {
        m_pUi->pageState->SetState(VxGUI::VxEmptyState::Kind::Failed, tr("The server is not available."),
            UICommonMdl::CErrorCode::GetErroCodeInfor(nErrorCode), tr("Try Again"));
        m_pUi->stackPages->setCurrentWidget(m_pUi->pageState);
        return;
    }
    if (m_bAtOnce) {
        m_mode = bSetupNeeded ? Mode::SetUp : Mode::SignIn;
        OnSubmit();
        return;
    }
    ShowForm(bSetupNeeded ? Mode::SetUp : Mode::SignIn);
}

void CSignInDlg::ShowForm(Mode mode)
{
    m_mode = mode;
    m_pUi->lbServer->setText(m_client.GetServer().toDisplayString());
    if (mode == Mode::SetUp)
        m_pUi->edtUserName->setText(BuiltInAccount);
    for (VxGUI::VxLineEdit* pEdit : {m_pUi->edtNewPassword, m_pUi->edtConfirm})
        pEdit->setText(QString());
    ShowFields();
    m_pUi->stackPages->setCurrentWidget(m_pUi->pageForm);
    SetBusy(false);
    ShowError(QString());
    const bool bNameKnown = !m_pUi->edtUserName->text().isEmpty();
    VxGUI::VxLineEdit* const pFirst = mode == Mode::NewPassword ? m_pUi->edtNewPassword : m_pUi->edtPassword;
    (bNameKnown ? pFirst : m_pUi->edtUserName)->GetLineEdit()->setFocus();
}

void CSignInDlg::ShowFields()
{
    const bool bSetUp = m_mode == Mode::SetUp;
    const bool bNew = m_mode == Mode::NewPassword;
    if (bSetUp)
        m_pUi->lbExplanation->setText(
            tr("This server is new. Choose the password of its built-in account \"system\"."));
    else if (bNew)
        m_pUi->lbExplanation->setText(
            UICommonMdl::CErrorCode::GetErroCodeInfor(UICommonMdl::ErrorPasswordChangeNeeded));
    m_pUi->lbUserName->setText(tr("&Username:"));
    m_pUi->lbPassword->setText(bSetUp ? tr("New &Password:") : tr("&Password:"));
    m_pUi->lbNewPassword->setText(tr("New &Password:"));
    m_pUi->lbConfirm->setText(tr("&Confirm Password:"));
    m_pUi->btnSignIn->setText(m_mode == Mode::SignIn ? tr("Sign In") : tr("Set Password and Sign In"));
    m_pUi->edtUserName->setReadOnly(m_mode != Mode::SignIn);

    const std::pair<QWidget*, bool> shown[] = {{m_pUi->lbExplanation, bSetUp || bNew},
        {m_pUi->lbPassword, !bNew}, {m_pUi->edtPassword, !bNew}, {m_pUi->lbNewPassword, bNew},
        {m_pUi->edtNewPassword, bNew}, {m_pUi->lbConfirm, bSetUp || bNew},
        {m_pUi->edtConfirm, bSetUp || bNew}, {m_pUi->btnBack, bNew}};
    for (const auto& [pWidget, bShown] : shown)
        pWidget->setVisible(bShown);
}

void CSignInDlg::SetBusy(bool bBusy)
{
    for (QWidget* pWidget :
        {static_cast<QWidget*>(m_pUi->edtUserName), static_cast<QWidget*>(m_pUi->edtPassword),
            static_cast<QWidget*>(m_pUi->edtNewPassword), static_cast<QWidget*>(m_pUi->edtConfirm),
            static_cast<QWidget*>(m_pUi->btnSignIn), static_cast<QWidget*>(m_pUi->btnBack)})
        pWidget->setEnabled(!bBusy);
}

void CSignInDlg::ShowError(const QString& sText)
{
    m_pUi->lbError->setText(sText);
    m_pUi->lbError->setVisible(!sText.isEmpty());
}

VxGUI::VxLineEdit* CSignInDlg::NewPasswordEdit() const
{
    return m_mode == Mode::SetUp ? m_pUi->edtPassword : m_pUi->edtNewPassword;
}

void CSignInDlg::ShowPasswordError(const QString& sText)
{
    NewPasswordEdit()->SetErrorHint(sText);
    NewPasswordEdit()->GetLineEdit()->selectAll();
    NewPasswordEdit()->GetLineEdit()->setFocus();
}

bool CSignInDlg::CheckFields()
{
    QVector<VxGUI::VxLineEdit*> vecEdits{m_pUi->edtUserName, m_pUi->edtPassword};
    if (m_mode == Mode::NewPassword)
        vecEdits.append(m_pUi->edtNewPassword);
    for (VxGUI::VxLineEdit* pEdit : qAsConst(vecEdits)) {
        if (!pEdit->CheckInput().isEmpty()) {
            pEdit->GetLineEdit()->setFocus();
            return false;
        }
    }
    return m_mode == Mode::SignIn || CheckNewPassword();
}

bool CSignInDlg::CheckNewPassword()
{
    const QString sPassword = NewPasswordEdit()->text();
    QString sMessage;
    if (Trv::QCommon::CheckPasswordVaild(sPassword, m_pUi->edtUserName->text().trimmed(), sMessage)) {
        if (UICommonMdl::CGlobalInfo::Instance()->CheckWeakPassword(sPassword))
            sMessage = tr("This password is widely known. Please choose another one.");
        else if (m_mode == Mode::NewPassword && sPassword == m_pUi->edtPassword->text())
            sMessage = tr("The new password must differ from the present one.");
    }
    if (!sMessage.isEmpty()) {
        ShowPasswordError(sMessage);
        return false;
    }
    if (sPassword != m_pUi->edtConfirm->text()) {
        m_pUi->edtConfirm->SetErrorHint(tr("The passwords do not match."));
        m_pUi->edtConfirm->GetLineEdit()->setFocus();
        return false;
    }
    return true;
}

void CSignInDlg::OnSubmit()
{
    ShowError(QString());
    if (!CheckFields())
        return;
    SetBusy(true);
    if (m_mode == Mode::SetUp)
        m_client.SetUp(m_pUi->edtPassword->text());
    else
        m_client.SignIn(m_pUi->edtUserName->text().trimmed(), m_pUi->edtPassword->text(),
            m_mode == Mode::NewPassword ? m_pUi->edtNewPassword->text() : QString());
}

void CSignInDlg::OnSetUp(int nErrorCode, const QString& sDetail)
{
    if (nErrorCode == UICommonMdl::ErrorNone) {
        m_client.SignIn(BuiltInAccount, m_pUi->edtPassword->text());
        return;
    }
    // Somebody else was faster: the account has its password, so this one signs in like any other.
    if (nErrorCode == UICommonMdl::ErrorSetupDone)
        ShowForm(Mode::SignIn);
    OnNewPasswordRefused(nErrorCode, sDetail);
}

void CSignInDlg::OnSignIn(int nErrorCode, const QString& sDetail)
{
    m_bAtOnce = false;
    switch (nErrorCode) {
    case UICommonMdl::ErrorNone:
        for (VxGUI::VxLineEdit* pEdit : {m_pUi->edtPassword, m_pUi->edtNewPassword, m_pUi->edtConfirm})
            pEdit->setText(QString());
        SetBusy(false);
        accept();
        return;
    case UICommonMdl::ErrorSetupNeeded:
        ShowForm(Mode::SetUp);
        return;
    case UICommonMdl::ErrorPasswordChangeNeeded:
        ShowForm(Mode::NewPassword);
        return;
    default:
        break;
    }
    if (m_mode == Mode::NewPassword && !IsAboutAccount(nErrorCode)) {
        OnNewPasswordRefused(nErrorCode, sDetail);
        return;
    }
    ShowForm(Mode::SignIn);
    m_pUi->edtPassword->GetLineEdit()->selectAll();
    m_pUi->edtPassword->GetLineEdit()->setFocus();
    ShowError(UICommonMdl::CErrorCode::GetErroCodeInfor(nErrorCode));
}

void CSignInDlg::OnNewPasswordRefused(int nErrorCode, const QString& sDetail)
{
    SetBusy(false);
    QString sText = UICommonMdl::CErrorCode::GetErroCodeInfor(nErrorCode);
    if (!sDetail.isEmpty())
        sText += QStringLiteral(" (") + sDetail + QLatin1Char(')');
    if (nErrorCode == UICommonMdl::ErrorPasswordRule)
        ShowPasswordError(sText);
    else
        ShowError(sText);
}

} // namespace ClientApp

#include "CSignInDlg.h"

#include "ui_CSignInDlg.h"

#include <PlatformLogic/CPlatformClient.h>
#include <Trv/QCommon.h>
#include <Trv/QSkin.h>
#include <UICommonMdl/CErrorCode.h>
#include <UICommonMdl/CGlobalInfo.h>
#include <VxGUI/VxEmptyState.h>

namespace ClientApp {

namespace {
const QString BuiltInAccount = QStringLiteral("system");
constexpr int MaxUserName = 50;
constexpr int MaxPassword = 32;
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
    m_pUi->edtUserName->SetMaxLimit(
        MaxUserName, tr("The user name cannot exceed %1 characters.").arg(MaxUserName));
    for (VxGUI::VxLineEdit* pEdit : {m_pUi->edtPassword, m_pUi->edtConfirm}) {
        pEdit->setPassword(true);
        pEdit->SetMaxLimit(MaxPassword, tr("The password cannot exceed %1 characters.").arg(MaxPassword));
    }
    m_pUi->edtPassword->SetRequired(tr("Please enter the password."));
    m_pUi->lbUserName->setBuddy(m_pUi->edtUserName->GetLineEdit());
    m_pUi->lbPassword->setBuddy(m_pUi->edtPassword->GetLineEdit());
    m_pUi->lbConfirm->setBuddy(m_pUi->edtConfirm->GetLineEdit());

    connect(m_pUi->btnSignIn, &QPushButton::clicked, this, &CSignInDlg::OnSubmit);
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
    ShowWaiting(tr("Connecting to the server..."));
    m_client.QueryServerState();
}

void CSignInDlg::AskAgain(const QString& sUserName, const QString& sReason)
{
    ShowForm(Mode::SignIn);
    m_pUi->edtUserName->setText(sUserName);
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
    const bool bSetUp = mode == Mode::SetUp;
    m_pUi->lbServer->setText(m_client.GetServer().toDisplayString());
    m_pUi->lbExplanation->setText(bSetUp
            ? tr("This server is new. Choose the password of its built-in account \"system\".")
            : QString());
    m_pUi->lbExplanation->setVisible(bSetUp);
    m_pUi->lbUserName->setText(tr("&Username:"));
    m_pUi->lbPassword->setText(bSetUp ? tr("New &Password:") : tr("&Password:"));
    m_pUi->lbConfirm->setText(tr("&Confirm Password:"));
    m_pUi->lbConfirm->setVisible(bSetUp);
    m_pUi->edtConfirm->setVisible(bSetUp);
    m_pUi->btnSignIn->setText(bSetUp ? tr("Set Password and Sign In") : tr("Sign In"));
    if (bSetUp)
        m_pUi->edtUserName->setText(BuiltInAccount);
    m_pUi->edtUserName->setReadOnly(bSetUp);
    m_pUi->stackPages->setCurrentWidget(m_pUi->pageForm);
    SetBusy(false);
    ShowError(QString());
    const bool bNameKnown = !m_pUi->edtUserName->text().isEmpty();
    (bNameKnown ? m_pUi->edtPassword : m_pUi->edtUserName)->GetLineEdit()->setFocus();
}

void CSignInDlg::SetBusy(bool bBusy)
{
    m_pUi->btnSignIn->setEnabled(!bBusy);
    for (QWidget* pEdit : {m_pUi->edtUserName, m_pUi->edtPassword, m_pUi->edtConfirm})
        pEdit->setEnabled(!bBusy);
}

void CSignInDlg::ShowError(const QString& sText)
{
    m_pUi->lbError->setText(sText);
    m_pUi->lbError->setVisible(!sText.isEmpty());
}

bool CSignInDlg::CheckSetUp()
{
    const QString sPassword = m_pUi->edtPassword->text();
    QString sMessage;
    if (!Trv::QCommon::CheckPasswordVaild(sPassword, BuiltInAccount, sMessage)) {
        m_pUi->edtPassword->SetErrorHint(sMessage);
        return false;
    }
    if (UICommonMdl::CGlobalInfo::Instance()->CheckWeakPassword(sPassword)) {
        m_pUi->edtPassword->SetErrorHint(tr("This password is widely known. Please choose another one."));
        return false;
    }
    if (sPassword != m_pUi->edtConfirm->text()) {
        m_pUi->edtConfirm->SetErrorHint(tr("The passwords do not match."));
        return false;
    }
    return true;
}

void CSignInDlg::OnSubmit()
{
    ShowError(QString());
    for (VxGUI::VxLineEdit* pEdit : {m_pUi->edtUserName, m_pUi->edtPassword}) {
        if (!pEdit->CheckInput().isEmpty()) {
            pEdit->GetLineEdit()->setFocus();
            return;
        }
    }
    if (m_mode == Mode::SetUp && !CheckSetUp())
        return;
    SetBusy(true);
    if (m_mode == Mode::SetUp)
        m_client.SetUp(m_pUi->edtPassword->text());
    else
        m_client.SignIn(m_pUi->edtUserName->text().trimmed(), m_pUi->edtPassword->text());
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
    SetBusy(false);
    ShowError(sDetail.isEmpty() ? UICommonMdl::CErrorCode::GetErroCodeInfor(nErrorCode) : sDetail);
}

void CSignInDlg::OnSignIn(int nErrorCode, const QString&)
{
    m_bAtOnce = false;
    if (nErrorCode == UICommonMdl::ErrorNone) {
        m_pUi->edtPassword->setText(QString());
        m_pUi->edtConfirm->setText(QString());
        SetBusy(false);
        accept();
        return;
    }
    if (nErrorCode == UICommonMdl::ErrorSetupNeeded) {
        ShowForm(Mode::SetUp);
        return;
    }
    ShowForm(Mode::SignIn);
    m_pUi->edtPassword->GetLineEdit()->selectAll();
    m_pUi->edtPassword->GetLineEdit()->setFocus();
    ShowError(UICommonMdl::CErrorCode::GetErroCodeInfor(nErrorCode));
}

} // namespace ClientApp

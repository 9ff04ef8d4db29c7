#include "CUserBasicInfoWidget.h"

#include "UserRules.h"
#include "ui_CUserBasicInfoWidget.h"

#include <Trv/QCommon.h>
#include <Trv/QSkin.h>
#include <VxGUI/RequiredMark.h>
#include <VxGUI/VxNotification.h>

#include <QLineEdit>

namespace PlatformConfigUI {

using UserLogical::User_t;
using VxGUI::VxLineEdit;

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CUserBasicInfoWidget)
};

constexpr int TipIconSize = 16;

/// Details are read, not entered, and so not greyed.
void SetReadOnly(QWidget* pControl, bool bReadOnly)
{
    pControl->setAttribute(Qt::WA_TransparentForMouseEvents, bReadOnly);
    pControl->setFocusPolicy(bReadOnly ? Qt::NoFocus : Qt::StrongFocus);
}

void SetText(VxLineEdit* pField, const QString& sText)
{
    if (pField->text() != sText)
        pField->setText(sText);
    pField->ClearErrorHint();
    pField->GetLineEdit()->setCursorPosition(0);
}

} // namespace

CUserBasicInfoWidget::CUserBasicInfoWidget(QWidget* pParent)
    : QWidget(pParent)
    , m_pUi(std::make_unique<Ui::CUserBasicInfoWidget>())
{
    m_pUi->setupUi(this);
    SetUpChecks();
    SetUpFields();
    ShowUser({}, Mode::Add);
}

CUserBasicInfoWidget::~CUserBasicInfoWidget() = default;

void CUserBasicInfoWidget::SetUpChecks()
{
    const QRegularExpression noBrackets(QStringLiteral("[^<>]*"));
    const QString sBrackets = Text::tr("Special characters < and > are not allowed.");
    m_pUi->edtUserName->SetRequired(Text::tr("Username cannot be empty."));
    m_pUi->edtUserName->SetRule(
        UserLogical::UserName, Text::tr("User name cannot exceed %1 character(s)."), sBrackets);
    m_pUi->edtUserName->SetTyped(noBrackets, sBrackets);
    m_pUi->edtRemark->SetRule(
        UserLogical::UserRemark, Text::tr("The remark length cannot exceed %1 characters."), sBrackets);
    m_pUi->edtRemark->SetTyped(noBrackets, sBrackets);
    m_pUi->edtPassword->SetRequired(Text::tr("Please enter password."));
    m_pUi->edtConfirmPassword->SetRequired(Text::tr("Please enter confirming password."));
    m_pUi->edtPasswordDays->SetRequired(Text::tr("Password validity period cannot be empty."));
    m_pUi->edtPasswordDays->SetTyped(UserLogical::PasswordDays);
    m_pUi->edtPtzLevel->SetRequired(Text::tr("PTZ control permission cannot be empty."));
    m_pUi->edtPtzLevel->SetTyped(UserLogical::PtzLevel);
    m_pUi->edtEmail->SetLimit(
        UserLogical::UserEmail, Text::tr("The e-mail length cannot exceed %1 characters."));
}

void CUserBasicInfoWidget::SetUpFields()
{
    for (VxLineEdit* pField : {m_pUi->edtUserName, m_pUi->edtPassword, m_pUi->edtConfirmPassword,
             m_pUi->edtPasswordDays, m_pUi->edtPtzLevel, m_pUi->edtEmail, m_pUi->edtRemark})
        pField->GetLineEdit()->setAccessibleName(pField->accessibleName());
    m_pUi->lbMultiLoginTip->setPixmap(
        Trv::GetIcon(QStringLiteral("information")).pixmap(QSize(TipIconSize, TipIconSize)));
    connect(
        m_pUi->edtPassword, &VxLineEdit::textChanged, m_pUi->wgtStrength, &CPwdStrengthWidget::SetPassword);
    connect(m_pUi->chkChangePassword, &QAbstractButton::toggled, this, [this](bool bChange) {
        if (!bChange) {
            m_pUi->edtPassword->setText(QString());
            m_pUi->edtConfirmPassword->setText(QString());
        }
        UpdateFields();
        if (bChange)
            m_pUi->edtPassword->setFocus();
    });
    connect(m_pUi->swPasswordInterval, &QAbstractButton::toggled, this, &CUserBasicInfoWidget::UpdateFields);
    m_pUi->dteExpiry->UseSwitch();
    m_pUi->dteExpiry->SetCaption(Text::tr("Expiry Date"));
    m_pUi->dteExpiry->SetPrecision(Common::COptionalDateEdit::Precision::Minute);
    connect(m_pUi->edtPasswordDays, &VxLineEdit::textChanged, this, &CUserBasicInfoWidget::UpdateExpiration);
}

void CUserBasicInfoWidget::Describe(Common::RecordFields<User_t>& fields) const
{
    const auto add = [&](QWidget* pField, auto pMember) { fields.Add(VxGUI::GetFieldName(pField), pMember); };
    add(m_pUi->swMultiLogin, &User_t::bMultiLogin);
    fields.AddSecret(VxGUI::GetFieldName(m_pUi->edtPassword), &User_t::sPassword);
    add(m_pUi->swForceChange, &User_t::bForceChange);
    add(m_pUi->swPasswordInterval, &User_t::bPasswordInterval);
    add(m_pUi->edtPasswordDays, &User_t::nPasswordDays);
    fields.AddText(
        Text::tr("Expiry Date"),
        [](const User_t& user) {
            return user.bExpiry
                ? QDateTime::fromMSecsSinceEpoch(user.nExpiry).toString(QStringLiteral("yyyy-MM-dd HH:mm"))
                : Text::tr("Never");
        },
        [](User_t& to, const User_t& from) {
            to.bExpiry = from.bExpiry;
            to.nExpiry = from.nExpiry;
        });
    add(m_pUi->edtPtzLevel, &User_t::nPtzLevel);
    add(m_pUi->edtEmail, &User_t::sEmail);
    add(m_pUi->edtRemark, &User_t::sRemark);
    fields.Add(Text::tr("MAC address binding"), &User_t::bBindMac);
    fields.Add(Text::tr("MAC addresses"), &User_t::vecMacAddresses);
}

void CUserBasicInfoWidget::ShowUser(const User_t& user, Mode mode)
{
    m_loaded = user;
    m_mode = mode;
    SetText(m_pUi->edtUserName, QString::fromStdString(user.sUserName));
    m_pUi->swMultiLogin->setChecked(user.bMultiLogin);
    m_pUi->lbDomainName->setText(QString::fromStdString(user.sDomainUser));
    m_pUi->chkChangePassword->setChecked(false);
    SetText(m_pUi->edtPassword, QString());
    SetText(m_pUi->edtConfirmPassword, QString());
    m_pUi->swForceChange->setChecked(user.bForceChange);
    m_pUi->swPasswordInterval->setChecked(user.bPasswordInterval);
    SetText(m_pUi->edtPasswordDays,
        QString::number(user.nPasswordDays > 0 ? user.nPasswordDays : DefaultPasswordDays));
    m_pUi->dteExpiry->SetProposal(
        user.nExpiry > 0 ? QDateTime::fromMSecsSinceEpoch(user.nExpiry) : GetDefaultExpiry());
    m_pUi->dteExpiry->SetSeconds(user.bExpiry ? user.nExpiry / 1000 : 0);
    SetText(m_pUi->edtPtzLevel, QString::number(user.nPtzLevel));
    SetText(m_pUi->edtEmail, QString::fromStdString(user.sEmail));
    SetText(m_pUi->edtRemark, QString::fromStdString(user.sRemark));
    m_pUi->wgtMac->SetRecord(user.bBindMac, user.vecMacAddresses);
    UpdateFields();
}

void CUserBasicInfoWidget::UpdateFields()
{
    const bool bDetails = m_mode == Mode::Details;
    const bool bDomain = m_loaded.nUserType == UserLogical::UserTypeDomain;
    // The directory checks the passwords of its users.
    for (QWidget* pRow : {static_cast<QWidget*>(m_pUi->lbForceChange),
             static_cast<QWidget*>(m_pUi->swForceChange), static_cast<QWidget*>(m_pUi->lbPasswordInterval),
             static_cast<QWidget*>(m_pUi->swPasswordInterval), static_cast<QWidget*>(m_pUi->lbPasswordCycle),
             static_cast<QWidget*>(m_pUi->wgtPasswordCycle), static_cast<QWidget*>(m_pUi->lbExpiration),
             static_cast<QWidget*>(m_pUi->lbPasswordExpiration)})
        pRow->setVisible(!bDomain);
    for (QWidget* pRow : {static_cast<QWidget*>(m_pUi->lbPassword), static_cast<QWidget*>(m_pUi->wgtPassword),
             static_cast<QWidget*>(m_pUi->lbConfirmPassword),
             static_cast<QWidget*>(m_pUi->edtConfirmPassword)})
        pRow->setVisible(!bDomain && !bDetails);
    m_pUi->lbDomain->setVisible(bDomain);
    m_pUi->lbDomainName->setVisible(bDomain);
    m_pUi->chkChangePassword->setVisible(m_mode == Mode::Modify);
    m_pUi->edtPassword->SetRequiredNow(IsPasswordUsed());
    m_pUi->edtConfirmPassword->SetRequiredNow(IsPasswordUsed());
    m_pUi->edtPasswordDays->SetRequiredNow(m_pUi->swPasswordInterval->isChecked());
    m_pUi->edtPassword->setEnabled(IsPasswordUsed());
    m_pUi->edtConfirmPassword->setEnabled(IsPasswordUsed());
    m_pUi->wgtStrength->setVisible(IsPasswordUsed());

    // The name is the key of the account.
    m_pUi->edtUserName->setReadOnly(m_mode != Mode::Add);
    for (VxLineEdit* pField : {m_pUi->edtPasswordDays, m_pUi->edtPtzLevel, m_pUi->edtEmail, m_pUi->edtRemark})
        pField->setReadOnly(bDetails);
    for (QWidget* pSwitch : {m_pUi->swMultiLogin, m_pUi->swForceChange, m_pUi->swPasswordInterval})
        SetReadOnly(pSwitch, bDetails);
    m_pUi->dteExpiry->SetReadOnly(bDetails);
    m_pUi->wgtMac->SetReadOnly(bDetails);
    m_pUi->wgtPasswordCycle->setEnabled(m_pUi->swPasswordInterval->isChecked());
    UpdateExpiration();
}

void CUserBasicInfoWidget::UpdateExpiration()
{
    // A password that is being set is new.
    const bool bNew = IsPasswordUsed() || m_loaded.nPasswordChanged == 0;
    const qint64 nChanged = bNew ? QDateTime::currentMSecsSinceEpoch() : m_loaded.nPasswordChanged;
    m_pUi->lbPasswordExpiration->setText(GetPasswordExpirationText(
        m_pUi->swPasswordInterval->isChecked(), nChanged, m_pUi->edtPasswordDays->text().toInt()));
}

bool CUserBasicInfoWidget::IsPasswordUsed() const
{
    if (m_loaded.nUserType == UserLogical::UserTypeDomain)
        return false;
    return m_mode == Mode::Add || (m_mode == Mode::Modify && m_pUi->chkChangePassword->isChecked());
}

User_t CUserBasicInfoWidget::GetEdited() const
{
    User_t edited = m_loaded;
    if (m_mode == Mode::Add)
        edited.sUserName = m_pUi->edtUserName->text().trimmed().toStdString();
    edited.bMultiLogin = m_pUi->swMultiLogin->isChecked();
    if (IsPasswordUsed())
        edited.sPassword = m_pUi->edtPassword->text().trimmed().toStdString();
    edited.bForceChange = m_pUi->swForceChange->isChecked();
    edited.bPasswordInterval = m_pUi->swPasswordInterval->isChecked();
    if (edited.bPasswordInterval)
        edited.nPasswordDays = m_pUi->edtPasswordDays->text().toInt();
    const std::int64_t nExpiry = m_pUi->dteExpiry->GetSeconds();
    edited.bExpiry = nExpiry != 0;
    // The field knows fewer digits of the time than the record.
    if (edited.bExpiry && (!m_loaded.bExpiry || nExpiry != m_loaded.nExpiry / 1000))
        edited.nExpiry = nExpiry * 1000;
    edited.nPtzLevel = m_pUi->edtPtzLevel->text().toInt();
    edited.sEmail = m_pUi->edtEmail->text().trimmed().toStdString();
    edited.sRemark = m_pUi->edtRemark->text().trimmed().toStdString();
    edited.bBindMac = m_pUi->wgtMac->IsBound();
    edited.vecMacAddresses = m_pUi->wgtMac->GetAddresses();
    return edited;
}

void CUserBasicInfoWidget::TrimTexts()
{
    for (VxLineEdit* pField : {m_pUi->edtUserName, m_pUi->edtRemark, m_pUi->edtPassword,
             m_pUi->edtConfirmPassword, m_pUi->edtEmail}) {
        const QString sTrimmed = pField->text().trimmed();
        if (sTrimmed != pField->text())
            pField->setText(sTrimmed);
    }
}

bool CUserBasicInfoWidget::FailsAt(VxLineEdit* pField) const
{
    if (pField->CheckInput().isEmpty())
        return false;
    pField->setFocus();
    return true;
}

bool CUserBasicInfoWidget::CheckPassword()
{
    if (!IsPasswordUsed())
        return true;
    if (FailsAt(m_pUi->edtPassword) || FailsAt(m_pUi->edtConfirmPassword))
        return false;
    QString sMessage;
    if (!Trv::QCommon::CheckPasswordVaild(m_pUi->edtPassword->text(), m_pUi->edtUserName->text(), sMessage)) {
        ShowPasswordRefused(sMessage);
        return false;
    }
    if (m_pUi->edtPassword->text() != m_pUi->edtConfirmPassword->text()) {
        m_pUi->edtConfirmPassword->SetErrorHint(Text::tr("The passwords do not match."));
        m_pUi->edtConfirmPassword->setFocus();
        return false;
    }
    return true;
}

bool CUserBasicInfoWidget::CheckFields()
{
    TrimTexts();
    if (FailsAt(m_pUi->edtUserName) || FailsAt(m_pUi->edtRemark) || !CheckPassword())
        return false;
    const bool bDomain = m_loaded.nUserType == UserLogical::UserTypeDomain;
    if (!bDomain && m_pUi->swPasswordInterval->isChecked() && FailsAt(m_pUi->edtPasswordDays))
        return false;
    if (FailsAt(m_pUi->edtPtzLevel))
        return false;
    const std::int64_t nExpiry = m_pUi->dteExpiry->GetSeconds();
    if (nExpiry != 0 && nExpiry < QDateTime::currentSecsSinceEpoch()) {
        VxGUI::VxNotification::Show(this,
            Text::tr("Expiration time cannot be earlier than the current time."),
            VxGUI::NotificationKind::Warning);
        m_pUi->dteExpiry->FocusDate();
        return false;
    }
    if (FailsAt(m_pUi->edtEmail))
        return false;
    const QString sEmail = m_pUi->edtEmail->text();
    if (!sEmail.isEmpty() && !UICommonMdl::IsMailAddress(sEmail.toStdString())) {
        m_pUi->edtEmail->SetErrorHint(Text::tr("Invalid mail address."));
        m_pUi->edtEmail->setFocus();
        return false;
    }
    return true;
}

bool CUserBasicInfoWidget::CheckAddresses()
{
    const QString sFailure = CheckMacAddresses(m_pUi->wgtMac->GetAddresses(), m_pUi->wgtMac->IsBound());
    if (sFailure.isEmpty())
        return true;
    VxGUI::VxNotification::Show(this, sFailure, VxGUI::NotificationKind::Warning);
    m_pUi->wgtMac->StartInput();
    return false;
}

void CUserBasicInfoWidget::ShowUserNameExists(const QString& sText)
{
    m_pUi->edtUserName->SetErrorHint(sText);
    m_pUi->edtUserName->setFocus();
}

void CUserBasicInfoWidget::ShowPasswordRefused(const QString& sText)
{
    m_pUi->edtPassword->SetErrorHint(sText);
    m_pUi->edtPassword->setFocus();
}

void CUserBasicInfoWidget::StartInput()
{
    (m_mode == Mode::Add ? m_pUi->edtUserName->GetLineEdit() : m_pUi->edtEmail->GetLineEdit())->setFocus();
}

} // namespace PlatformConfigUI

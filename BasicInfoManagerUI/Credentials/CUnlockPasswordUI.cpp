#include "CUnlockPasswordUI.h"

#include "CredentialRules.h"
#include "ui_CUnlockPasswordUI.h"

#include <Trv/QSkin.h>
#include <common/Prompt.h>

#include <QLineEdit>
#include <QShortcut>

namespace BasicInfoManagerUI {

namespace {
struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CUnlockPasswordUI)
};
} // namespace

CUnlockPasswordUI::CUnlockPasswordUI(QWidget* pParent)
    : QWidget(pParent)
    , m_pUi(std::make_unique<Ui::CUnlockPasswordUI>())
{
    m_pUi->setupUi(this);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
    SetUpField(m_pUi->m_pEditAddPassword, m_pUi->m_pBtnAddPassword);
    SetUpField(m_pUi->m_pEditNewPassword, m_pUi->m_pBtnChangePassword);
    m_pUi->m_pBtnEditPassword->setIcon(Trv::GetIcon(QStringLiteral("edit")));
    m_pUi->m_pBtnDeletePassword->setIcon(Trv::GetIcon(QStringLiteral("delete")));
    connect(m_pUi->m_pBtnEditPassword, &QAbstractButton::clicked, this, [this] {
        m_pUi->stackPassword->setCurrentWidget(m_pUi->pageEditPassword);
        m_pUi->m_pEditNewPassword->setFocus();
    });
    connect(m_pUi->m_pBtnKeepPassword, &QAbstractButton::clicked, this, &CUnlockPasswordUI::ShowPage);
    auto* const pEscape = new QShortcut(
        Qt::Key_Escape, m_pUi->m_pEditNewPassword, nullptr, nullptr, Qt::WidgetWithChildrenShortcut);
    connect(pEscape, &QShortcut::activated, this, &CUnlockPasswordUI::ShowPage);
    connect(m_pUi->m_pBtnDeletePassword, &QAbstractButton::clicked, this, &CUnlockPasswordUI::Delete);
    ShowPage();
}

CUnlockPasswordUI::~CUnlockPasswordUI() = default;

void CUnlockPasswordUI::SetUpField(VxGUI::VxLineEdit* pField, QAbstractButton* pConfirm)
{
    QLineEdit* const pEdit = pField->GetLineEdit();
    pField->SetTyped(QRegularExpression(QStringLiteral("[0-9]*")));
    pField->SetLimit(AccessControlLogical::UnlockPassword);
    pEdit->setAttribute(Qt::WA_InputMethodEnabled, false);
    connect(pField, &VxGUI::VxLineEdit::returnPressed, this, [this, pField] { Confirm(pField); });
    connect(pField, &VxGUI::VxLineEdit::textEdited, this, &CUnlockPasswordUI::SignalChanged);
    connect(pConfirm, &QAbstractButton::clicked, this, [this, pField] { Confirm(pField); });
}

void CUnlockPasswordUI::SetPerson(const AccessControlLogical::Person_t& person)
{
    m_bHasPassword = person.bUnlockPassword;
    m_sPassword = QString::fromStdString(person.sUnlockPassword);
    ShowPage();
}

void CUnlockPasswordUI::FillPerson(AccessControlLogical::Person_t& person) const
{
    person.bUnlockPassword = m_bHasPassword;
    person.sUnlockPassword = m_sPassword.toStdString();
}

QString CUnlockPasswordUI::CheckInput()
{
    VxGUI::VxLineEdit* const pField = CurrentField();
    if (m_bReadOnly || !pField || pField->text().isEmpty() || Confirm(pField))
        return {};
    return pField->GetErrorHint();
}

void CUnlockPasswordUI::SetReadOnly(bool bReadOnly)
{
    m_bReadOnly = bReadOnly;
    m_pUi->m_pBtnEditPassword->setVisible(!bReadOnly);
    m_pUi->m_pBtnDeletePassword->setVisible(!bReadOnly);
    ShowPage();
}

VxGUI::VxLineEdit* CUnlockPasswordUI::CurrentField() const
{
    const QWidget* const pPage = m_pUi->stackPassword->currentWidget();
    if (pPage == m_pUi->pageAddPassword)
        return m_pUi->m_pEditAddPassword;
    return pPage == m_pUi->pageEditPassword ? m_pUi->m_pEditNewPassword : nullptr;
}

bool CUnlockPasswordUI::Confirm(VxGUI::VxLineEdit* pField)
{
    const QString sPassword = pField->text();
    const QString sFailure = CredentialRules::CheckPassword(sPassword);
    if (!sFailure.isEmpty()) {
        pField->SetErrorHint(sFailure);
        pField->setFocus();
        return false;
    }
    m_bHasPassword = true;
    m_sPassword = sPassword;
    const bool bFocus = pField->GetLineEdit()->hasFocus();
    ShowPage();
    if (bFocus)
        m_pUi->m_pBtnEditPassword->setFocus();
    Q_EMIT SignalChanged();
    return true;
}

void CUnlockPasswordUI::Delete()
{
    if (!Common::AskPrompt(this, Text::tr("Are you sure to delete the unlock password?")))
        return;
    m_bHasPassword = false;
    m_sPassword.clear();
    ShowPage();
    m_pUi->m_pEditAddPassword->setFocus();
    Q_EMIT SignalChanged();
}

void CUnlockPasswordUI::ShowPage()
{
    for (VxGUI::VxLineEdit* const pField : {m_pUi->m_pEditAddPassword, m_pUi->m_pEditNewPassword}) {
        pField->setText({});
        pField->ClearErrorHint();
    }
    const bool bFinished = m_bHasPassword || m_bReadOnly;
    // Six dots whatever it is: nothing of a stored password is known here.
    m_pUi->lbPasswordSet->setText(m_bHasPassword
            ? QString(AccessControlLogical::UnlockPassword.nMax, QChar(0x2022))
            : Text::tr("No unlock password"));
    m_pUi->lbPasswordSet->setAccessibleName(
        m_bHasPassword ? Text::tr("The unlock password is set.") : QString());
    m_pUi->stackPassword->setCurrentWidget(bFinished ? m_pUi->pagePasswordFinished : m_pUi->pageAddPassword);
}

} // namespace BasicInfoManagerUI

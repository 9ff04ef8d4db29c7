#include <VxGUI/VxLineEdit.h>

#include "EmptyMark.h"
#include "FieldEdit.h"

#include <VxGUI/RequiredMark.h>
#include <VxGUI/TextInput.h>

#include <QLabel>
#include <QStyle>
#include <QVBoxLayout>

namespace VxGUI {

VxLineEdit::VxLineEdit(QWidget* pParent)
    : QWidget(pParent)
    , m_pEdit(new FieldEdit(this))
    , m_pValidator(new FieldValidator(m_pEdit,
          [this](FieldValidator::Refusal refusal) {
              const QString& sMessage = refusal == FieldValidator::Refusal::Limit ? m_sTooLong : m_sNotTyped;
              if (sMessage.isEmpty())
                  return;
              SetErrorHint(sMessage);
              m_bRefused = true;
          }))
    , m_pHint(new QLabel(this))
{
    m_pHint->setObjectName(QStringLiteral("lbHint"));
    m_pHint->setWordWrap(true);
    m_pHint->setTextFormat(Qt::PlainText);
    m_pHint->hide();
    auto* pLayout = new QVBoxLayout(this);
    pLayout->setContentsMargins(0, 0, 0, 0);
    pLayout->setSpacing(2);
    pLayout->addWidget(m_pEdit);
    pLayout->addWidget(m_pHint);
    MarkEmpty(m_pEdit);
    setFocusProxy(m_pEdit);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    // The field tells an edit before the change that it makes: the hint is of the text that stands there.
    connect(m_pEdit, &QLineEdit::textEdited, this, [this](const QString& sText) {
        SetErrorHint(FirstFailure(true));
        Q_EMIT textEdited(sText);
    });
    connect(m_pEdit, &QLineEdit::textChanged, this, [this] {
        if (text() != m_sHintedText)
            ClearErrorHint();
        Q_EMIT textChanged(text());
    });
    // What was refused is not there: nobody has to mend it.
    connect(m_pEdit, &QLineEdit::editingFinished, this, [this] {
        if (m_bRefused)
            ClearErrorHint();
    });
    connect(m_pEdit, &QLineEdit::returnPressed, this, &VxLineEdit::returnPressed);
}

QString VxLineEdit::text() const
{
    return m_pEdit->text();
}

void VxLineEdit::setText(const QString& sText)
{
    m_pValidator->SetText(sText);
}

QString VxLineEdit::placeholderText() const
{
    return m_pEdit->placeholderText();
}

void VxLineEdit::setPlaceholderText(const QString& sText)
{
    m_pEdit->setPlaceholderText(sText);
}

bool VxLineEdit::isPassword() const
{
    return m_pEdit->echoMode() == QLineEdit::Password;
}

void VxLineEdit::setPassword(bool bPassword)
{
    m_pEdit->setEchoMode(bPassword ? QLineEdit::Password : QLineEdit::Normal);
}

void VxLineEdit::setReadOnly(bool bReadOnly)
{
    m_pEdit->setReadOnly(bReadOnly);
    UpdateMark();
}

void VxLineEdit::SetRequired(const QString& sMessage)
{
    m_sRequired = sMessage;
    AddCheck([this](const QString& sText) { return !m_bRequiredNow || !sText.trimmed().isEmpty(); }, sMessage,
        CheckTime::AtTheEnd);
    UpdateMark();
}

void VxLineEdit::SetRequiredNow(bool bRequired)
{
    m_bRequiredNow = bRequired;
    UpdateMark();
}

void VxLineEdit::UpdateMark()
{
    // A field that is only read need not be filled.
    if (!m_sRequired.isEmpty())
        MarkRequired(this, m_bRequiredNow && !m_pEdit->isReadOnly());
}

void VxLineEdit::showEvent(QShowEvent* pEvent)
{
    // By now the field stands beside its label.
    UpdateMark();
    QWidget::showEvent(pEvent);
}

void VxLineEdit::SetRule(
    const UICommonMdl::TextRule& rule, const QString& sLimitMessage, const QString& sForbiddenMessage)
{
    SetLimit(rule, sLimitMessage);
    SetForbidden(rule, sForbiddenMessage);
}

void VxLineEdit::SetLimit(const UICommonMdl::TextRule& rule, const QString& sMessage)
{
    m_sTooLong = sMessage;
    m_sTooLong.replace(QLatin1String("%1"), QString::number(rule.nMax));
    m_pValidator->SetLimit(rule.nMax, rule.lines);
    if (sMessage.isEmpty())
        return;
    AddCheck([nMax = rule.nMax](const QString& sText) { return CountCharacters(sText) <= nMax; }, m_sTooLong);
}

void VxLineEdit::SetForbidden(const UICommonMdl::TextRule& rule, const QString& sMessage)
{
    AddCheck([rule](const QString& sText) { return !HasForbidden(rule, sText.toStdString()); }, sMessage);
}

void VxLineEdit::SetCheck(const std::function<bool(std::string_view)>& holds, const QString& sMessage)
{
    AddCheck(
        [holds](const QString& sText) { return sText.isEmpty() || holds(sText.toStdString()); }, sMessage);
}

void VxLineEdit::SetTyped(const QRegularExpression& pattern, const QString& sMessage)
{
    m_pValidator->SetTyped(pattern);
    m_sNotTyped = sMessage;
}

void VxLineEdit::SetTyped(const UICommonMdl::NumberRule& rule, const QString& sMessage)
{
    m_pValidator->SetTyped(rule);
    m_sNotTyped = sMessage;
}

void VxLineEdit::AddCheck(std::function<bool(const QString&)> holds, const QString& sMessage, CheckTime time)
{
    m_vecChecks.append({std::move(holds), sMessage, time});
}

QString VxLineEdit::FirstFailure(bool bWhileTyping) const
{
    const QString sText = text();
    for (const Check& check : m_vecChecks) {
        if (!(bWhileTyping && check.time == CheckTime::AtTheEnd) && !check.holds(sText))
            return check.sMessage;
    }
    return {};
}

QString VxLineEdit::CheckInput()
{
    QString sFailure = FirstFailure(false);
    if (sFailure.isEmpty())
        ClearErrorHint();
    else
        SetErrorHint(sFailure);
    return sFailure;
}

void VxLineEdit::SetErrorHint(const QString& sMessage)
{
    m_bRefused = false;
    m_sHintedText = sMessage.isEmpty() ? QString() : text();
    m_pHint->setText(sMessage);
    m_pHint->setVisible(!sMessage.isEmpty());
    m_pEdit->setAccessibleDescription(sMessage);
    if (m_pEdit->property("invalid").toBool() == !sMessage.isEmpty())
        return;
    m_pEdit->setProperty("invalid", !sMessage.isEmpty());
    m_pEdit->style()->unpolish(m_pEdit);
    m_pEdit->style()->polish(m_pEdit);
}

void VxLineEdit::ClearErrorHint()
{
    SetErrorHint(QString());
}

QString VxLineEdit::GetErrorHint() const
{
    return m_pHint->text();
}

} // namespace VxGUI

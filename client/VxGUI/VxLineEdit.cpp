#include <VxGUI/VxLineEdit.h>

#include "EmptyMark.h"

#include <QEvent>
#include <QLabel>
#include <QLineEdit>
#include <QStyle>
#include <QVBoxLayout>

namespace VxGUI {

VxLineEdit::VxLineEdit(QWidget* pParent)
    : QWidget(pParent)
    , m_pEdit(new QLineEdit(this))
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
    connect(m_pEdit, &QLineEdit::textEdited, this, &VxLineEdit::OnTextEdited);
    connect(m_pEdit, &QLineEdit::textChanged, this, [this] {
        if (text() != m_sHintedText)
            ClearErrorHint();
        Q_EMIT textChanged(text());
    });
    connect(m_pEdit, &QLineEdit::returnPressed, this, &VxLineEdit::returnPressed);
}

QString VxLineEdit::text() const
{
    return m_pEdit->text();
}

void VxLineEdit::setText(const QString& sText)
{
    m_pEdit->setText(sText);
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
}

void VxLineEdit::SetRequired(const QString& sMessage)
{
    m_vecChecks.append({CheckKind::Required, 0, QRegularExpression(), sMessage});
}

void VxLineEdit::SetMaxLimit(int nMaxLength, const QString& sMessage)
{
    m_vecChecks.append({CheckKind::Limit, nMaxLength, QRegularExpression(), sMessage});
}

void VxLineEdit::SetPattern(const QRegularExpression& pattern, const QString& sMessage)
{
    const QRegularExpression whole(
        QRegularExpression::anchoredPattern(pattern.pattern()), pattern.patternOptions());
    m_vecChecks.append({CheckKind::Pattern, 0, whole, sMessage});
}

QString VxLineEdit::FirstFailure(bool bWhileTyping) const
{
    const QString sText = text();
    for (const Check& check : m_vecChecks) {
        switch (check.kind) {
        case CheckKind::Required:
            // A field that is still being filled is not blamed for being empty.
            if (!bWhileTyping && sText.trimmed().isEmpty())
                return check.sMessage;
            break;
        case CheckKind::Limit:
            if (sText.size() > check.nLimit)
                return check.sMessage;
            break;
        case CheckKind::Pattern:
            if (!sText.isEmpty() && !check.pattern.match(sText).hasMatch())
                return check.sMessage;
            break;
        }
    }
    return {};
}

void VxLineEdit::OnTextEdited(const QString& sText)
{
    for (const Check& check : qAsConst(m_vecChecks)) {
        if (check.kind != CheckKind::Limit || sText.size() <= check.nLimit)
            continue;
        const int nCursor = m_pEdit->cursorPosition();
        m_pEdit->setText(sText.left(check.nLimit));
        m_pEdit->setCursorPosition(qMin(nCursor, check.nLimit));
        SetErrorHint(check.sMessage);
        Q_EMIT textEdited(text());
        return;
    }
    SetErrorHint(FirstFailure(true));
    Q_EMIT textEdited(sText);
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

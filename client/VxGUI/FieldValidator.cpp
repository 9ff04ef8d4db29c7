#include "FieldValidator.h"

#include <VxGUI/TextInput.h>

#include <QLineEdit>
#include <QRegularExpressionValidator>

#include <algorithm>

namespace VxGUI {

namespace {

bool IsControl(QChar c)
{
    return c.unicode() < 0x80 && UICommonMdl::IsControlCharacter(char(c.unicode()));
}

int CountControls(const QString& sText)
{
    return int(std::count_if(sText.begin(), sText.end(), IsControl));
}

/// Breaks and tabs that come along with a text of elsewhere: blanks in it, nothing at its ends.
QString InOneLine(const QString& sText)
{
    const auto itFirst = std::find_if_not(sText.begin(), sText.end(), IsControl);
    const auto itLast = std::find_if_not(sText.rbegin(), sText.rend(), IsControl).base();
    QString sLine;
    for (auto it = itFirst; it < itLast; ++it)
        sLine += IsControl(*it) ? QLatin1Char(' ') : *it;
    return sLine;
}

QValidator::State CheckNumber(const UICommonMdl::NumberRule& rule, const QString& sText)
{
    if (sText.isEmpty())
        return QValidator::Intermediate;
    const bool bDigits = std::all_of(
        sText.begin(), sText.end(), [](QChar c) { return c >= QLatin1Char('0') && c <= QLatin1Char('9'); });
    const bool bLeadingZero = sText.startsWith(QLatin1Char('0')) && (sText.size() > 1 || rule.nMin > 0);
    bool bFits = false;
    const int nValue = sText.toInt(&bFits);
    if (!bDigits || bLeadingZero || !bFits || nValue > rule.nMax)
        return QValidator::Invalid;
    return rule.Allows(nValue) ? QValidator::Acceptable : QValidator::Intermediate;
}

} // namespace

FieldValidator::FieldValidator(QLineEdit* pEdit, std::function<void(Refusal)> onRefused)
    : QValidator(pEdit)
    , m_pEdit(pEdit)
    , m_onRefused(std::move(onRefused))
    , m_sBefore(pEdit->text())
{
    pEdit->setValidator(this);
    connect(pEdit, &QLineEdit::textChanged, this, [this] { m_sBefore = m_pEdit->text(); });
    // The field tells a refusal before it takes the entry back. Entries that come by no event of the field
    // (its menu) are put in order a moment later.
    connect(pEdit, &QLineEdit::inputRejected, this, &FieldValidator::Settle, Qt::QueuedConnection);
}

void FieldValidator::SetLimit(int nMax, UICommonMdl::TextLines lines)
{
    m_nMax = nMax;
    m_lines = lines;
}

void FieldValidator::SetTyped(const QRegularExpression& pattern)
{
    delete m_pPattern;
    m_optNumber.reset();
    m_pPattern = new QRegularExpressionValidator(pattern, this);
}

void FieldValidator::SetTyped(const UICommonMdl::NumberRule& rule)
{
    delete m_pPattern;
    m_optNumber = rule;
}

bool FieldValidator::BreaksLimit(const QString& sText) const
{
    if (m_lines == UICommonMdl::TextLines::One && CountControls(sText) > CountControls(m_sBefore))
        return true;
    const int nCount = CountCharacters(sText);
    return m_nMax >= 0 && nCount > m_nMax && nCount > CountCharacters(m_sBefore);
}

QValidator::State FieldValidator::CheckTyped(QString& sText, int& nCursor) const
{
    if (m_optNumber)
        return CheckNumber(*m_optNumber, sText);
    return m_pPattern ? m_pPattern->validate(sText, nCursor) : Acceptable;
}

QValidator::State FieldValidator::validate(QString& sText, int& nCursor) const
{
    const State state = CheckTyped(sText, nCursor);
    if (state != Invalid && !BreaksLimit(sText))
        return state;
    m_optRefusal = state == Invalid ? Refusal::Typed : Refusal::Limit;
    m_sRefused = sText;
    m_nRefusedEnd = nCursor;
    return Invalid;
}

void FieldValidator::SetText(const QString& sText)
{
    m_sBefore = sText;
    m_pEdit->setText(sText);
}

void FieldValidator::Begin()
{
    if (m_nDepth++ == 0)
        m_sBefore = m_pEdit->text();
}

void FieldValidator::End()
{
    if (--m_nDepth == 0)
        Settle();
}

void FieldValidator::Settle()
{
    if (!m_optRefusal)
        return;
    Refusal refusal = *std::exchange(m_optRefusal, std::nullopt);
    const QString sRefused = std::exchange(m_sRefused, {});
    // A text that a program set stays, whatever it is.
    if (m_pEdit->text() != m_sBefore || m_sBefore == sRefused)
        return;
    if (refusal == Refusal::Limit) {
        const bool bWhole = EnterWhatFits(sRefused, m_nRefusedEnd);
        if (m_optRefusal)
            refusal = *std::exchange(m_optRefusal, std::nullopt);
        else if (bWhole)
            return;
    }
    if (m_onRefused)
        m_onRefused(refusal);
}

bool FieldValidator::EnterWhatFits(const QString& sRefused, int nEnd)
{
    const int nTail = sRefused.size() - nEnd;
    const int nMost = std::min(nEnd, m_sBefore.size() - nTail);
    if (nMost < 0)
        return false;
    const auto [itBefore, itRefused] =
        std::mismatch(m_sBefore.cbegin(), m_sBefore.cbegin() + nMost, sRefused.cbegin());
    int nBegin = int(itBefore - m_sBefore.cbegin());
    // Two pictures can begin with the same half.
    if (nBegin > 0 && m_sBefore.at(nBegin - 1).isHighSurrogate())
        --nBegin;
    const int nReplaced = m_sBefore.size() - nTail - nBegin;
    const QString sKept = m_sBefore.left(nBegin) + m_sBefore.right(nTail);
    QString sEntered = sRefused.mid(nBegin, nEnd - nBegin);
    if (m_lines == UICommonMdl::TextLines::One)
        sEntered = InOneLine(sEntered);
    const QString sFitting =
        m_nMax < 0 ? sEntered : CutText(sEntered, std::max(m_nMax - CountCharacters(sKept), 0));
    if (sFitting.isEmpty())
        return sEntered.isEmpty();
    if (nReplaced > 0)
        m_pEdit->setSelection(nBegin, nReplaced);
    else
        m_pEdit->setCursorPosition(nBegin);
    m_pEdit->insert(sFitting);
    return sFitting == sEntered;
}

} // namespace VxGUI

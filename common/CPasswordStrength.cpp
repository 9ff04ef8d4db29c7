#include "CPasswordStrength.h"

#include <UICommonMdl/CGlobalInfo.h>

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QStyle>

#include <algorithm>

namespace Common {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CPasswordStrength)
};

constexpr int BarCount = 3;
constexpr int ShortLength = 8; ///< anything shorter is weak

/// How many of lower-case letters, upper-case letters, digits and non-word characters there are. Other
/// letters than the Latin ones count as non-word, an underscore as nothing.
int CountKinds(const QString& sPassword)
{
    const auto has = [&](auto test) { return std::any_of(sPassword.begin(), sPassword.end(), test) ? 1 : 0; };
    const auto isLower = [](QChar c) { return c >= QLatin1Char('a') && c <= QLatin1Char('z'); };
    const auto isUpper = [](QChar c) { return c >= QLatin1Char('A') && c <= QLatin1Char('Z'); };
    const auto isDigit = [](QChar c) { return c >= QLatin1Char('0') && c <= QLatin1Char('9'); };
    return has(isLower) + has(isUpper) + has(isDigit)
        + has([&](QChar c) { return !isLower(c) && !isUpper(c) && !isDigit(c) && c != QLatin1Char('_'); });
}

QString GetLevelName(PasswordStrength strength)
{
    switch (strength) {
    case PasswordStrength::None:
        break;
    case PasswordStrength::Weak:
        return QStringLiteral("Weak");
    case PasswordStrength::Medium:
        return QStringLiteral("Medium");
    case PasswordStrength::Strong:
        return QStringLiteral("Strong");
    }
    return QStringLiteral("None");
}

} // namespace

PasswordStrength GetPasswordStrength(const QString& sPassword)
{
    if (sPassword.isEmpty())
        return PasswordStrength::None;
    if (sPassword.size() < ShortLength || UICommonMdl::CGlobalInfo::Instance()->CheckWeakPassword(sPassword))
        return PasswordStrength::Weak;
    const int nKinds = CountKinds(sPassword);
    if (nKinds >= 3)
        return PasswordStrength::Strong;
    return nKinds == 2 ? PasswordStrength::Medium : PasswordStrength::Weak;
}

QString GetPasswordStrengthText(PasswordStrength strength)
{
    switch (strength) {
    case PasswordStrength::None:
        break;
    case PasswordStrength::Weak:
        return Text::tr("Weak");
    case PasswordStrength::Medium:
        return Text::tr("Medium");
    case PasswordStrength::Strong:
        return Text::tr("Strong");
    }
    return {};
}

CPasswordStrength::CPasswordStrength(QWidget* pParent)
    : QWidget(pParent)
    , m_pText(new QLabel(this))
{
    auto* const pLayout = new QHBoxLayout(this);
    pLayout->setContentsMargins(0, 0, 0, 0);
    pLayout->setSpacing(4);
    for (int i = 0; i < BarCount; ++i) {
        auto* const pBar = new QFrame(this);
        pBar->setFixedHeight(4);
        pBar->setProperty("strengthBar", true);
        m_vecBars.append(pBar);
        pLayout->addWidget(pBar, 1);
    }
    m_pText->setObjectName(QStringLiteral("lbStrength"));
    m_pText->setMinimumWidth(m_pText->fontMetrics().horizontalAdvance(Text::tr("Medium")) + 8);
    pLayout->addWidget(m_pText);
    SetPassword({});
}

void CPasswordStrength::SetPassword(const QString& sPassword)
{
    const PasswordStrength strength = GetPasswordStrength(sPassword);
    for (int i = 0; i < m_vecBars.size(); ++i) {
        const bool bFilled = i < static_cast<int>(strength);
        m_vecBars[i]->setProperty("Level", GetLevelName(bFilled ? strength : PasswordStrength::None));
        style()->unpolish(m_vecBars[i]);
        style()->polish(m_vecBars[i]);
    }
    m_pText->setText(GetPasswordStrengthText(strength));
    setAccessibleDescription(m_pText->text());
}

} // namespace Common

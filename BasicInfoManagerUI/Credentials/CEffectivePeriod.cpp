#include "CEffectivePeriod.h"

#include <QCheckBox>
#include <QDateTimeEdit>
#include <QHBoxLayout>
#include <QLabel>
#include <QStyle>

namespace BasicInfoManagerUI {

namespace {
struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CEffectivePeriod)
};
constexpr int FieldWidth = 190;

} // namespace

CEffectivePeriod::CEffectivePeriod(QWidget* pParent)
    : QWidget(pParent)
    , m_pSet(new QCheckBox(Text::tr("Validity Period"), this))
    , m_pFrom(new QDateTimeEdit(this))
    , m_pTo(new QDateTimeEdit(this))
{
    m_pSet->setObjectName(QStringLiteral("m_ckEffective"));
    m_pFrom->setObjectName(QStringLiteral("m_dtEffectiveFrom"));
    m_pTo->setObjectName(QStringLiteral("m_dtEffectiveTo"));
    m_pFrom->setAccessibleName(Text::tr("Valid from"));
    m_pTo->setAccessibleName(Text::tr("Valid to"));
    auto* const pLayout = new QHBoxLayout(this);
    pLayout->setContentsMargins(0, 0, 0, 0);
    pLayout->setSpacing(8);
    pLayout->addWidget(m_pSet);
    pLayout->addWidget(m_pFrom);
    pLayout->addWidget(new QLabel(QString(QChar(0x2013)), this));
    pLayout->addWidget(m_pTo);
    for (QDateTimeEdit* const pEdit : {m_pFrom, m_pTo}) {
        pEdit->setDisplayFormat(QStringLiteral("yyyy-MM-dd HH:mm:ss"));
        pEdit->setCalendarPopup(true);
        pEdit->setMinimumWidth(FieldWidth);
        connect(m_pSet, &QAbstractButton::toggled, pEdit, &QWidget::setEnabled);
        connect(pEdit, &QDateTimeEdit::dateTimeChanged, this, [this] { ShowRed(false); });
    }
    setFocusProxy(m_pSet);
    Reset();
}

void CEffectivePeriod::Reset()
{
    const QDateTime today(QDate::currentDate(), QTime(0, 0));
    m_pFrom->setDateTime(today);
    m_pTo->setDateTime(today.addYears(1).addSecs(-1));
    m_pSet->setChecked(false);
    m_pFrom->setEnabled(false);
    m_pTo->setEnabled(false);
    ShowRed(false);
}

qint64 CEffectivePeriod::GetFrom() const
{
    return m_pSet->isChecked() ? m_pFrom->dateTime().toSecsSinceEpoch() : 0;
}

qint64 CEffectivePeriod::GetTo() const
{
    return m_pSet->isChecked() ? m_pTo->dateTime().toSecsSinceEpoch() : 0;
}

QString CEffectivePeriod::CheckInput()
{
    const bool bBad = m_pSet->isChecked() && GetTo() <= GetFrom();
    ShowRed(bBad);
    if (!bBad)
        return {};
    m_pTo->setFocus();
    return Text::tr("The end of the validity period must be after its start.");
}

void CEffectivePeriod::ShowRed(bool bRed)
{
    m_pTo->setProperty("invalid", bRed);
    m_pTo->style()->unpolish(m_pTo);
    m_pTo->style()->polish(m_pTo);
}

} // namespace BasicInfoManagerUI

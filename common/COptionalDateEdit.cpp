#include "COptionalDateEdit.h"

#include "Wheel.h"

#include <VxGUI/VxSwitchButton.h>

#include <QCheckBox>
#include <QCoreApplication>
#include <QDateTimeEdit>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace Common {

namespace {
struct Text
{
    Q_DECLARE_TR_FUNCTIONS(COptionalDateEdit)
};
} // namespace

COptionalDateEdit::COptionalDateEdit(QWidget* pParent)
    : QWidget(pParent)
    , m_pCheck(new QCheckBox(this))
    , m_pEdit(new QDateTimeEdit(this))
    , m_pOpen(new QLabel(Text::tr("Not set"), this))
    , m_pHint(new QLabel(this))
{
    m_pEdit->setObjectName(QStringLiteral("dtDate"));
    m_pHint->setObjectName(QStringLiteral("lbHint"));
    m_pHint->setWordWrap(true);
    m_pOpen->setObjectName(QStringLiteral("lbDateOpen"));
    m_pOpen->setMinimumHeight(m_pEdit->sizeHint().height());
    m_pHint->hide();
    m_pEdit->setCalendarPopup(true);
    m_pEdit->setMinimumDate(QDate(1900, 1, 1));
    m_pEdit->setMaximumDate(QDate(9999, 12, 31));
    KeepFromWheel(m_pEdit);
    m_pEdit->installEventFilter(this);
    SetPrecision(Precision::Day);
    auto* const pRow = new QHBoxLayout;
    pRow->setSpacing(8);
    pRow->addWidget(m_pCheck);
    pRow->addWidget(m_pEdit, 1);
    pRow->addWidget(m_pOpen, 1);
    auto* const pLayout = new QVBoxLayout(this);
    pLayout->setContentsMargins(0, 0, 0, 0);
    pLayout->setSpacing(2);
    pLayout->addLayout(pRow);
    pLayout->addWidget(m_pHint);
    SetUpToggle();
    connect(m_pEdit, &QDateTimeEdit::dateTimeChanged, this, [this] {
        SetErrorHint({});
        Q_EMIT SignalChanged();
    });
    UpdateEnabled();
}

bool COptionalDateEdit::eventFilter(QObject* pWatched, QEvent* pEvent)
{
    // The date goes on by itself when a part is complete; who types what stands between would skip the next.
    if (pWatched == m_pEdit && pEvent->type() == QEvent::KeyPress) {
        const QString sText = static_cast<QKeyEvent*>(pEvent)->text();
        const auto* const pLine = m_pEdit->findChild<QLineEdit*>();
        if (sText.size() == 1 && QStringLiteral("-:./ ").contains(sText) && pLine && pLine->hasSelectedText())
            return true;
    }
    return QWidget::eventFilter(pWatched, pEvent);
}

void COptionalDateEdit::SetUpToggle()
{
    m_pCheck->setObjectName(QStringLiteral("ckDate"));
    setFocusProxy(m_pCheck);
    connect(m_pCheck, &QAbstractButton::toggled, this, &COptionalDateEdit::OnChecked);
}

void COptionalDateEdit::UseSwitch()
{
    auto* const pSwitch = new VxGUI::VxSwitchButton(this);
    pSwitch->setAccessibleName(m_pCheck->accessibleName());
    delete layout()->replaceWidget(m_pCheck, pSwitch);
    setTabOrder(m_pCheck, pSwitch);
    delete m_pCheck;
    m_pCheck = pSwitch;
    SetUpToggle();
    UpdateEnabled();
}

void COptionalDateEdit::SetCaption(const QString& sCaption)
{
    m_pCheck->setAccessibleName(sCaption);
    m_pEdit->setAccessibleName(sCaption);
}

void COptionalDateEdit::SetPrecision(Precision precision)
{
    const QString sTime =
        precision == Precision::Second ? QStringLiteral(" HH:mm:ss") : QStringLiteral(" HH:mm");
    m_pEdit->setDisplayFormat(
        QStringLiteral("yyyy-MM-dd") + (precision == Precision::Day ? QString() : sTime));
}

void COptionalDateEdit::SetReadOnly(bool bReadOnly)
{
    m_bReadOnly = bReadOnly;
    UpdateEnabled();
}

void COptionalDateEdit::UpdateEnabled()
{
    m_pCheck->setEnabled(!m_bReadOnly);
    m_pEdit->setEnabled(!m_bReadOnly);
    m_pEdit->setVisible(m_pCheck->isChecked());
    m_pOpen->setVisible(!m_pCheck->isChecked());
}

void COptionalDateEdit::Show(const std::optional<QDateTime>& optDate)
{
    const QSignalBlocker checkBlocker(m_pCheck);
    const QSignalBlocker editBlocker(m_pEdit);
    m_pCheck->setChecked(optDate.has_value());
    m_pEdit->setDateTime(optDate.value_or(m_proposal.isValid() ? m_proposal : QDateTime::currentDateTime()));
    SetErrorHint({});
    UpdateEnabled();
}

void COptionalDateEdit::OnChecked(bool bChecked)
{
    SetErrorHint({});
    UpdateEnabled();
    if (bChecked)
        m_pEdit->setFocus();
    Q_EMIT SignalChanged();
}

void COptionalDateEdit::SetDate(const QDate& date)
{
    Show(date.isValid() ? std::optional(date.startOfDay()) : std::nullopt);
}

QDate COptionalDateEdit::GetDate() const
{
    return m_pCheck->isChecked() ? m_pEdit->date() : QDate();
}

void COptionalDateEdit::SetSeconds(std::int64_t nSeconds)
{
    m_nLoaded = nSeconds;
    Show(nSeconds != 0 ? std::optional(QDateTime::fromSecsSinceEpoch(nSeconds)) : std::nullopt);
    m_shown = m_pEdit->dateTime();
}

std::int64_t COptionalDateEdit::GetSeconds() const
{
    if (!m_pCheck->isChecked())
        return 0;
    // An hour that the clocks repeat in autumn reads the same twice.
    if (m_nLoaded != 0 && m_pEdit->dateTime() == m_shown)
        return m_nLoaded;
    return m_pEdit->dateTime().toSecsSinceEpoch();
}

void COptionalDateEdit::FocusDate()
{
    (m_pCheck->isChecked() ? static_cast<QWidget*>(m_pEdit) : m_pCheck)->setFocus();
}

void COptionalDateEdit::SetErrorHint(const QString& sText)
{
    m_pHint->setText(sText);
    m_pHint->setVisible(!sText.isEmpty());
    m_pEdit->setAccessibleDescription(sText);
}

} // namespace Common

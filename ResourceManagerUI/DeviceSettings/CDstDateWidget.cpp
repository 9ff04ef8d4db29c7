#include "CDstDateWidget.h"

#include "TimeZoneRules.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>

namespace ResourceManagerUI {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CDevTimeZone)
};

constexpr int HourCount = 24;

} // namespace

CDstDateWidget::CDstDateWidget(QWidget* pParent)
    : QWidget(pParent)
    , m_pHour(new QComboBox(this))
    , m_pMonth(new QComboBox(this))
    , m_pWeek(new QComboBox(this))
    , m_pWeekday(new QComboBox(this))
    , m_pText(new QLabel(this))
{
    for (int nHour = 0; nHour < HourCount; ++nHour)
        m_pHour->addItem(QString::number(nHour) + QStringLiteral(":00"));
    m_pMonth->addItems(GetMonthTexts());
    m_pWeek->addItems(GetWeekTexts());
    m_pWeekday->addItems(GetWeekdayTexts());
    auto* const pFields = new QHBoxLayout;
    pFields->setSpacing(8);
    for (QComboBox* const pField : {m_pHour, m_pMonth, m_pWeek, m_pWeekday}) {
        pFields->addWidget(pField, 1);
        connect(pField, qOverload<int>(&QComboBox::currentIndexChanged), this, [this] {
            m_pText->setText(GetDstDateText(GetDate()));
            Q_EMIT SignalChanged();
        });
    }
    auto* const pLayout = new QVBoxLayout(this);
    pLayout->setContentsMargins(0, 0, 0, 0);
    pLayout->setSpacing(2);
    pLayout->addLayout(pFields);
    pLayout->addWidget(m_pText);
    m_pText->setProperty("muted", true);
    SetDate({});
}

void CDstDateWidget::SetNames(const QString& sName, const QString& sSpoken)
{
    const std::tuple<QComboBox*, QString, QString> fields[] = {
        {m_pHour, QStringLiteral("Hour"), Text::tr("Hour")},
        {m_pMonth, QStringLiteral("Month"), Text::tr("Month")},
        {m_pWeek, QStringLiteral("Week"), Text::tr("Week")},
        {m_pWeekday, QStringLiteral("Weekday"), Text::tr("Weekday")}};
    for (const auto& [pField, sPart, sPartText] : fields) {
        pField->setObjectName(QStringLiteral("cmb") + sName + sPart);
        pField->setAccessibleName(sSpoken + QLatin1Char(' ') + sPartText);
    }
    m_pText->setObjectName(QStringLiteral("lb") + sName + QStringLiteral("Text"));
}

void CDstDateWidget::SetDate(const RemoteConfigLogical::DstDate_t& date)
{
    m_pHour->setCurrentIndex(date.nHour);
    m_pMonth->setCurrentIndex(date.nMonth - 1);
    m_pWeek->setCurrentIndex(date.nWeek - 1);
    m_pWeekday->setCurrentIndex(date.nWeekday - 1);
}

RemoteConfigLogical::DstDate_t CDstDateWidget::GetDate() const
{
    RemoteConfigLogical::DstDate_t date;
    date.nHour = m_pHour->currentIndex();
    date.nMonth = m_pMonth->currentIndex() + 1;
    date.nWeek = m_pWeek->currentIndex() + 1;
    date.nWeekday = m_pWeekday->currentIndex() + 1;
    return date;
}

} // namespace ResourceManagerUI

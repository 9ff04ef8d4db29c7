#include "CTimeZoneWidget.h"

#include "TimeZoneRules.h"
#include "ui_CTimeZoneWidget.h"

#include <QSignalBlocker>

#include <algorithm>

namespace ResourceManagerUI {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CDevTimeZone)
};

} // namespace

CTimeZoneWidget::CTimeZoneWidget(QWidget* pParent)
    : QWidget(pParent)
    , m_pUi(std::make_unique<Ui::CTimeZoneWidget>())
{
    m_pUi->setupUi(this);
    m_pUi->wgStartTime->SetNames(QStringLiteral("Start"), Text::tr("Start Time"));
    m_pUi->wgEndTime->SetNames(QStringLiteral("End"), Text::tr("End Time"));
    m_pUi->lbHint->hide();
    connect(m_pUi->cmbZoneDisplay, qOverload<int>(&QComboBox::currentIndexChanged), this,
        &CTimeZoneWidget::FillZones);
    connect(m_pUi->cmbZone, qOverload<int>(&QComboBox::currentIndexChanged), this,
        &CTimeZoneWidget::OnZoneChosen);
    connect(m_pUi->chkDst, &QCheckBox::toggled, this, &CTimeZoneWidget::OnRuleChanged);
    connect(m_pUi->wgStartTime, &CDstDateWidget::SignalChanged, this, &CTimeZoneWidget::OnRuleChanged);
    connect(m_pUi->wgEndTime, &CDstDateWidget::SignalChanged, this, &CTimeZoneWidget::OnRuleChanged);
}

CTimeZoneWidget::~CTimeZoneWidget() = default;

void CTimeZoneWidget::SetPlatformTime(const RemoteConfigLogical::PlatformTime_t& time)
{
    m_time = time;
    const auto it = std::find_if(m_time.vecZones.begin(), m_time.vecZones.end(),
        [this](const auto& zone) { return zone.setting.sZone == m_time.setting.sZone; });
    // The platform's zone is offered with the platform's rule.
    if (it != m_time.vecZones.end())
        it->setting = m_time.setting;
    else
        m_time.vecZones.insert(m_time.vecZones.begin(), {m_time.setting.sZone, m_time.setting});
    FillRegions();
}

void CTimeZoneWidget::FillRegions()
{
    QStringList listRegions;
    for (const RemoteConfigLogical::TimeZone_t& zone : m_time.vecZones) {
        const QString sRegion = GetZoneRegion(zone.setting.sZone);
        if (!sRegion.isEmpty() && !listRegions.contains(sRegion))
            listRegions.append(sRegion);
    }
    listRegions.sort();
    {
        const QSignalBlocker blocker(m_pUi->cmbZoneDisplay);
        m_pUi->cmbZoneDisplay->clear();
        m_pUi->cmbZoneDisplay->addItem(Text::tr("All"));
        m_pUi->cmbZoneDisplay->addItems(listRegions);
    }
    {
        const QSignalBlocker blocker(m_pUi->cmbZone);
        m_pUi->cmbZone->clear();
    }
    FillZones();
}

void CTimeZoneWidget::FillZones()
{
    const bool bAll = m_pUi->cmbZoneDisplay->currentIndex() <= 0;
    const QString sRegion = m_pUi->cmbZoneDisplay->currentText();
    const int nBefore = m_pUi->cmbZone->currentIndex() < 0 ? -1 : m_pUi->cmbZone->currentData().toInt();
    int nWanted = nBefore;
    {
        const QSignalBlocker blocker(m_pUi->cmbZone);
        m_pUi->cmbZone->clear();
        for (std::size_t i = 0; i < m_time.vecZones.size(); ++i) {
            const RemoteConfigLogical::TimeZone_t& zone = m_time.vecZones[i];
            if (nWanted < 0 && zone.setting.sZone == m_time.setting.sZone)
                nWanted = static_cast<int>(i);
            if (bAll || GetZoneRegion(zone.setting.sZone) == sRegion)
                m_pUi->cmbZone->addItem(QString::fromStdString(zone.sText), static_cast<int>(i));
        }
        m_pUi->cmbZone->setCurrentIndex(std::max(0, m_pUi->cmbZone->findData(nWanted)));
    }
    // A rule that was edited stays for as long as its zone does.
    if (nBefore < 0 || m_pUi->cmbZone->currentData().toInt() != nBefore)
        OnZoneChosen();
}

void CTimeZoneWidget::OnZoneChosen()
{
    const auto nZone = static_cast<std::size_t>(m_pUi->cmbZone->currentData().toInt());
    if (m_pUi->cmbZone->currentIndex() >= 0 && nZone < m_time.vecZones.size())
        ShowRule(m_time.vecZones[nZone].setting);
}

void CTimeZoneWidget::ShowRule(const RemoteConfigLogical::TimeZoneSetting_t& setting)
{
    m_pUi->chkDst->setChecked(setting.bDst);
    m_pUi->wgStartTime->SetDate(setting.dstStart);
    m_pUi->wgEndTime->SetDate(setting.dstEnd);
    OnRuleChanged();
}

void CTimeZoneWidget::OnRuleChanged()
{
    const bool bDst = m_pUi->chkDst->isChecked();
    m_pUi->wgStartTime->setEnabled(bDst);
    m_pUi->wgEndTime->setEnabled(bDst);
    m_pUi->lbHint->hide();
}

RemoteConfigLogical::TimeZoneSetting_t CTimeZoneWidget::GetSetting() const
{
    RemoteConfigLogical::TimeZoneSetting_t setting = m_time.setting;
    const auto nZone = static_cast<std::size_t>(m_pUi->cmbZone->currentData().toInt());
    if (m_pUi->cmbZone->currentIndex() >= 0 && nZone < m_time.vecZones.size())
        setting = m_time.vecZones[nZone].setting;
    setting.bDst = m_pUi->chkDst->isChecked();
    setting.dstStart = m_pUi->wgStartTime->GetDate();
    setting.dstEnd = m_pUi->wgEndTime->GetDate();
    return setting;
}

QString CTimeZoneWidget::CheckInput()
{
    const RemoteConfigLogical::TimeZoneSetting_t setting = GetSetting();
    const bool bSame = setting.dstStart.nMonth == setting.dstEnd.nMonth
        && setting.dstStart.nWeek == setting.dstEnd.nWeek
        && setting.dstStart.nWeekday == setting.dstEnd.nWeekday;
    if (!setting.bDst || !bSame)
        return {};
    QString sText = Text::tr("Daylight saving cannot start and end on the same day.");
    m_pUi->lbHint->setText(sText);
    m_pUi->lbHint->show();
    return sText;
}

} // namespace ResourceManagerUI

#pragma once

#include <RemoteConfigLogical/RemoteConfigRecords.h>

#include <QWidget>

#include <memory>

namespace Ui {
class CTimeZoneWidget;
}

namespace ResourceManagerUI {

/// A time zone and its daylight-saving rule: preset with those of the platform, both to be changed.
/// User-interface thread.
class CTimeZoneWidget : public QWidget
{
    Q_OBJECT

public:
    explicit CTimeZoneWidget(QWidget* pParent = nullptr);
    ~CTimeZoneWidget() override;

    void SetPlatformTime(const RemoteConfigLogical::PlatformTime_t& time);
    RemoteConfigLogical::TimeZoneSetting_t GetSetting() const;
    /// Shows what is wrong with the rule and answers it; empty: nothing is.
    QString CheckInput();

private:
    void FillRegions();
    void FillZones();
    void OnZoneChosen();
    void ShowRule(const RemoteConfigLogical::TimeZoneSetting_t& setting);
    void OnRuleChanged();

    std::unique_ptr<Ui::CTimeZoneWidget> m_pUi;
    RemoteConfigLogical::PlatformTime_t m_time; ///< the platform's own zone is always in its list
};

} // namespace ResourceManagerUI

#pragma once

#include <RemoteConfigLogical/RemoteConfigRecords.h>

#include <QWidget>

class QComboBox;
class QLabel;

namespace ResourceManagerUI {

/// One end of daylight saving: hour, month, week and weekday to choose, and the whole as a text.
/// User-interface thread.
class CDstDateWidget : public QWidget
{
    Q_OBJECT

public:
    explicit CDstDateWidget(QWidget* pParent = nullptr);

    /// Of the fields inside: object names "cmb<sName>Hour" and so on, and what they are called aloud.
    void SetNames(const QString& sName, const QString& sSpoken);
    void SetDate(const RemoteConfigLogical::DstDate_t& date);
    RemoteConfigLogical::DstDate_t GetDate() const;

Q_SIGNALS:
    void SignalChanged();

private:
    QComboBox* m_pHour;
    QComboBox* m_pMonth;
    QComboBox* m_pWeek;
    QComboBox* m_pWeekday;
    QLabel* m_pText;
};

} // namespace ResourceManagerUI

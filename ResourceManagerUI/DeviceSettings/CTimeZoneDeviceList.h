#pragma once

#include <RemoteConfigLogical/RemoteConfigRecords.h>

#include <QHash>
#include <QPair>
#include <QTreeWidget>
#include <QVector>

class QLabel;

namespace ResourceManagerUI {

/// The devices of the time-zone dialog, each with a mark for what became of it. The mark's style follows its
/// property "Status". For as many devices as can be checked on one page. User-interface thread.
class CTimeZoneDeviceList : public QTreeWidget
{
    Q_OBJECT

public:
    explicit CTimeZoneDeviceList(QWidget* pParent = nullptr);

    /// Device IDs and names; called once.
    void SetDevices(const QVector<QPair<QString, QString>>& vecDevices);
    /// States that no mark stands for, and unknown devices, change nothing.
    void SetResult(const RemoteConfigLogical::TimeZoneResult_t& result);
    /// A RemoteConfigLogical::TimeZoneState.
    int GetState(const QString& sDeviceId) const;
    /// The devices in their order, all or those that are not in that state.
    std::vector<std::string> GetIds() const;
    std::vector<std::string> GetIdsNotIn(int nState) const;
    int CountState(int nState) const;

private:
    struct Device
    {
        QLabel* pMark = nullptr;
        QTreeWidgetItem* pItem = nullptr;
        int nState = RemoteConfigLogical::TimeZoneNormal;
    };
    QWidget* MakeMark(const QString& sDeviceId, Device& device);
    static void ShowMark(const Device& device);

    QStringList m_listIds;
    QHash<QString, Device> m_mapDevices;
};

} // namespace ResourceManagerUI

#pragma once

#include <GroupLogical/GroupRecords.h>
#include <UserLogical/UserRecords.h>

#include <QSet>
#include <QStandardItemModel>
#include <QVector>

namespace Common {

/// A channel of a device.
struct Channel
{
    QString sDeviceId;
    QString sDeviceName;
    int nKind = UserLogical::ChannelVideo; ///< UserLogical::ChannelKind
    int nNumber = 1; ///< within its kind, from 1

    /// Tells it from all others.
    QString GetKey() const;
    /// "Door 2".
    QString GetText() const;
};

/// Devices with their channels below, each with a check box. The channels of a device come when it is
/// unfolded or checked for the first time. User-interface thread.
class CChannelTreeModel : public QStandardItemModel
{
    Q_OBJECT

public:
    /// Of the channels those of these kinds (UserLogical::ChannelKind), in this order.
    explicit CChannelTreeModel(const QVector<int>& vecKinds, QObject* pParent = nullptr);

    void SetDevices(const std::vector<GroupLogical::DeviceInfo_t>& vecDevices);
    /// What came for SignalChannelsWanted.
    void SetChannels(const GroupLogical::DeviceAddInfo_t& device);
    /// They did not come; they are asked for again at the next try.
    void SetChannelsFailed(const QString& sDeviceId);
    /// Checks the boxes of these (Channel::GetKey), and of their devices as far as they are known.
    void ShowChosen(const QSet<QString>& setKeys);

    bool hasChildren(const QModelIndex& parent = QModelIndex()) const override;
    bool canFetchMore(const QModelIndex& parent) const override;
    void fetchMore(const QModelIndex& parent) override;

Q_SIGNALS:
    void SignalChannelsWanted(const QString& sDeviceId);
    /// The user checked or unchecked these; the boxes wait for ShowChosen.
    void SignalToggled(const QVector<Channel>& vecChannels, bool bChecked);

private:
    enum class Load : int
    {
        None,
        Running,
        RunningToCheck, ///< all of them are checked when they come
        Done
    };
    Load GetLoad(const QStandardItem* pDevice) const;
    QStandardItem* FindDevice(const QString& sDeviceId) const;
    QVector<Channel> GetChannels(const QStandardItem* pDevice) const;
    void Want(QStandardItem* pDevice, Load load);
    void OnItemChanged(QStandardItem* pItem);
    Qt::CheckState GetDeviceState(const QStandardItem* pDevice) const;

    QVector<int> m_vecKinds;
    QSet<QString> m_setChosen;
    bool m_bShowing = false; ///< the boxes are not the user's
};

} // namespace Common

Q_DECLARE_METATYPE(Common::Channel)

#pragma once

#include <GroupLogical/GroupRecords.h>
#include <RemoteConfigLogical/RemoteConfigRecords.h>
#include <common/CTableModel.h>

#include <QIcon>

namespace ResourceManagerUI {

enum DeviceColumn : int
{
    ColumnCheck = 0,
    ColumnId, ///< key of every operation, also while it is hidden
    ColumnIp,
    ColumnName,
    ColumnType,
    ColumnModel,
    ColumnOrganization,
    ColumnOnline,
    ColumnOfflineReason,
    ColumnManufacturer,
    ColumnProtocol,
    ColumnOperation,
    ColumnCount
};

/// One page of devices. What is checked outlasts it.
class CDeviceModel : public Common::CTableModel
{
    Q_OBJECT

public:
    explicit CDeviceModel(QObject* pParent = nullptr);

    void SetDevices(const std::vector<GroupLogical::DeviceInfo_t>& vecDevices);
    /// Changes the row of that device; false when it is not on this page.
    bool UpdateState(const RemoteConfigLogical::DeviceState_t& state);
    /// Texts of one device in the order of the columns; check and operation are empty.
    static QStringList GetTexts(const GroupLogical::DeviceInfo_t& device);
    static QString GetOnlineText(int nOnlineState);

    QStringList mimeTypes() const override;
    /// The dragged devices: all that are checked when one of them is dragged, else those of the rows.
    QMimeData* mimeData(const QModelIndexList& listIndexes) const override;
    Qt::DropActions supportedDragActions() const override { return Qt::CopyAction | Qt::MoveAction; }
    bool dropMimeData(const QMimeData*, Qt::DropAction, int, int, const QModelIndex&) override
    {
        return false;
    }

private:
    const QIcon& GetOnlineIcon(int nOnlineState) const;

    QIcon m_onlineIcon;
    QIcon m_offlineIcon;
};

} // namespace ResourceManagerUI

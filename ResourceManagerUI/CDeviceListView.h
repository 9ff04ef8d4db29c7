#pragma once

#include <GroupLogical/GroupRecords.h>
#include <common/CListView.h>

namespace ResourceManagerUI {

class CDeviceModel;
class CDeviceTableHeader;

/// The list of devices: filters in its header, operations of its rows, rows to drag onto an organisation.
/// User-interface thread.
class CDeviceListView : public Common::CListView
{
    Q_OBJECT

public:
    /// What is done with a device.
    enum RowRole : int
    {
        RoleDetails = 1,
        RoleEdit,
        RoleMoveTo,
        RoleDelete,
        RoleAccess ///< in the context menu only
    };

    explicit CDeviceListView(QWidget* pParent = nullptr);

    CDeviceModel* GetDevices() const { return m_pModel; }
    CDeviceTableHeader* GetHeader() const { return m_pHeader; }
    void SetDevices(const std::vector<GroupLogical::DeviceInfo_t>& vecDevices);
    /// Whether the user may see who has access to a device.
    void SetAccessOffered(bool bOffered) { m_bAccessOffered = bOffered; }

protected:
    bool IsInMenu(const QModelIndex& index, int nRole) const override;
    void OpenRow(const QModelIndex& index) override;

private:
    CDeviceModel* m_pModel;
    CDeviceTableHeader* m_pHeader;
    bool m_bAccessOffered = false;
};

} // namespace ResourceManagerUI

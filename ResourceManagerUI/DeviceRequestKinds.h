#pragma once

namespace ResourceManagerUI {

/// What the device page's requests are for.
enum DeviceRequestKind : int
{
    KindOrganizations = 1,
    KindDeviceTypes,
    KindDevicePage,
    KindDeleteOrganization,
    KindMoveOrganization,
    KindMoveDevices,
    KindExport,
    KindAddDevice,
    KindModifyDevice
};

} // namespace ResourceManagerUI

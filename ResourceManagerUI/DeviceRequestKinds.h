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
    KindDeviceForm ///< what the form of a device adds or changes
};

} // namespace ResourceManagerUI

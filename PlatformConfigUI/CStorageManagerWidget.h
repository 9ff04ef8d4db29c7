#pragma once

#include <common/CEntryWidget.h>

namespace PlatformConfigUI {

/// The entry "Storage".
class CStorageManagerWidget : public Common::CEntryWidget
{
    Q_OBJECT

public:
    /// pInterfaceSet is borrowed.
    explicit CStorageManagerWidget(UICommonMdl::CInterfaceSetManager* pInterfaceSet);
};

} // namespace PlatformConfigUI

#pragma once

#include <common/CEntryWidget.h>

namespace SystemConfigUI {

/// The entry "System Deployment".
class CServiceManageWidget : public Common::CEntryWidget
{
    Q_OBJECT

public:
    /// pInterfaceSet is borrowed.
    explicit CServiceManageWidget(UICommonMdl::CInterfaceSetManager* pInterfaceSet);
};

} // namespace SystemConfigUI

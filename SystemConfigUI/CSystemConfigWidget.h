#pragma once

#include <common/CEntryWidget.h>

namespace SystemConfigUI {

/// The entry "System Parameters".
class CSystemConfigWidget : public Common::CEntryWidget
{
    Q_OBJECT

public:
    /// pInterfaceSet is borrowed.
    explicit CSystemConfigWidget(UICommonMdl::CInterfaceSetManager* pInterfaceSet);
};

} // namespace SystemConfigUI

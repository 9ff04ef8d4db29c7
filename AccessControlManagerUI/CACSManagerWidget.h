#pragma once

#include <common/CEntryWidget.h>

namespace AccessControlManagerUI {

/// The entry "Access Control".
class CACSManagerWidget : public Common::CEntryWidget
{
    Q_OBJECT

public:
    /// pInterfaceSet is borrowed.
    explicit CACSManagerWidget(UICommonMdl::CInterfaceSetManager* pInterfaceSet);
};

} // namespace AccessControlManagerUI

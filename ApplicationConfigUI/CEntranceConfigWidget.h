#pragma once

#include <common/CEntryWidget.h>

namespace ApplicationConfigUI {

/// The entry "Entrance and Exit".
class CEntranceConfigWidget : public Common::CEntryWidget
{
    Q_OBJECT

public:
    /// pInterfaceSet is borrowed.
    explicit CEntranceConfigWidget(UICommonMdl::CInterfaceSetManager* pInterfaceSet);
};

} // namespace ApplicationConfigUI

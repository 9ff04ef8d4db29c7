#pragma once

#include <common/CEntryWidget.h>

namespace ApplicationConfigUI {

/// The entry "Map".
class CEmapConfigWidget : public Common::CEntryWidget
{
    Q_OBJECT

public:
    /// pInterfaceSet is borrowed.
    explicit CEmapConfigWidget(UICommonMdl::CInterfaceSetManager* pInterfaceSet);
};

} // namespace ApplicationConfigUI

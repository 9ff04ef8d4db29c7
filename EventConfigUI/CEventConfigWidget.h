#pragma once

#include <common/CEntryWidget.h>

namespace EventConfigUI {

/// The entry "Event".
class CEventConfigWidget : public Common::CEntryWidget
{
    Q_OBJECT

public:
    /// pInterfaceSet is borrowed.
    explicit CEventConfigWidget(UICommonMdl::CInterfaceSetManager* pInterfaceSet);
};

} // namespace EventConfigUI

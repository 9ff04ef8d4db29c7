#pragma once

#include <common/CEntryWidget.h>

namespace ApplicationConfigUI {

/// The entry "Visitor".
class CVisitorParamWidget : public Common::CEntryWidget
{
    Q_OBJECT

public:
    /// pInterfaceSet is borrowed.
    explicit CVisitorParamWidget(UICommonMdl::CInterfaceSetManager* pInterfaceSet);
};

} // namespace ApplicationConfigUI

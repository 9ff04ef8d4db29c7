#pragma once

#include <common/CEntryWidget.h>

namespace ArmLibraryManagerUI {

/// The entry "Watch List".
class CArmLibWidget : public Common::CEntryWidget
{
    Q_OBJECT

public:
    /// pInterfaceSet is borrowed.
    explicit CArmLibWidget(UICommonMdl::CInterfaceSetManager* pInterfaceSet);
};

} // namespace ArmLibraryManagerUI

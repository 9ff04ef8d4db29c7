#pragma once

#include <common/CEntryWidget.h>

namespace VideoIntercomConfigUI {

/// The entry "Video Intercom".
class CVideoIntercomConfigWidget : public Common::CEntryWidget
{
    Q_OBJECT

public:
    /// pInterfaceSet is borrowed.
    explicit CVideoIntercomConfigWidget(UICommonMdl::CInterfaceSetManager* pInterfaceSet);
};

} // namespace VideoIntercomConfigUI

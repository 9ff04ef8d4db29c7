#pragma once

#include <common/CEntryWidget.h>

namespace PlatformConfigUI {

/// The entry "User".
class CUserManagerWidget : public Common::CEntryWidget
{
    Q_OBJECT

public:
    /// pInterfaceSet is borrowed.
    explicit CUserManagerWidget(UICommonMdl::CInterfaceSetManager* pInterfaceSet);

protected:
    QWidget* CreatePage(UICommonMdl::CInterfaceSetManager* pInterfaceSet, QWidget* pParent) override;
};

} // namespace PlatformConfigUI

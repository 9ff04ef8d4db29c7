#pragma once

#include <common/CEntryWidget.h>

namespace ResourceManagerUI {

/// The entry "Device".
class CResourceManagerWidget : public Common::CEntryWidget
{
    Q_OBJECT

public:
    /// pInterfaceSet is borrowed.
    explicit CResourceManagerWidget(UICommonMdl::CInterfaceSetManager* pInterfaceSet);

protected:
    QWidget* CreatePage(UICommonMdl::CInterfaceSetManager* pInterfaceSet, QWidget* pParent) override;
};

} // namespace ResourceManagerUI

#pragma once

#include <common/CEntryWidget.h>

namespace BasicInfoManagerUI {

/// The entry "Person and Vehicle Info".
class CBasicInfoManagerWidget : public Common::CEntryWidget
{
    Q_OBJECT

public:
    /// pInterfaceSet is borrowed.
    explicit CBasicInfoManagerWidget(UICommonMdl::CInterfaceSetManager* pInterfaceSet);

protected:
    QWidget* CreatePage(UICommonMdl::CInterfaceSetManager* pInterfaceSet, QWidget* pParent) override;
};

} // namespace BasicInfoManagerUI

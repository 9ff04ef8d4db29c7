#include "CStorageManagerWidget.h"

namespace PlatformConfigUI {

CStorageManagerWidget::CStorageManagerWidget(UICommonMdl::CInterfaceSetManager* pInterfaceSet)
    : CEntryWidget(pInterfaceSet,
        {"001003", "StorageManagerWidget", QT_TRANSLATE_NOOP("CStorageManagerWidget", "Storage"),
            "CStorageManagerWidget", QStringLiteral("PlatformConfigUI"),
            QStringLiteral("storageconfig_pane.png"), QString()})
{
}

} // namespace PlatformConfigUI

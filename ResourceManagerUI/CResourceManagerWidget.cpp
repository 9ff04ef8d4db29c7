#include "CResourceManagerWidget.h"

namespace ResourceManagerUI {

CResourceManagerWidget::CResourceManagerWidget(UICommonMdl::CInterfaceSetManager* pInterfaceSet)
    : CEntryWidget(pInterfaceSet,
        {"001001", "ResourceManagerWidget", QT_TRANSLATE_NOOP("CResourceManagerWidget", "Device"),
            "CResourceManagerWidget", QStringLiteral("ResourceManagerUI"), QStringLiteral("Resource.png"),
            QStringLiteral("Resource-d.png")})
{
}

} // namespace ResourceManagerUI

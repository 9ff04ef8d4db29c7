#include "CResourceManagerWidget.h"

#include "CResourceManager.h"

namespace ResourceManagerUI {

CResourceManagerWidget::CResourceManagerWidget(UICommonMdl::CInterfaceSetManager* pInterfaceSet)
    : CEntryWidget(pInterfaceSet,
        {"001001", "ResourceManagerWidget", QT_TRANSLATE_NOOP("CResourceManagerWidget", "Device"),
            "CResourceManagerWidget", QStringLiteral("ResourceManagerUI"), QStringLiteral("Resource.png"),
            QStringLiteral("Resource-d.png")})
{
}

QWidget* CResourceManagerWidget::CreatePage(
    UICommonMdl::CInterfaceSetManager* pInterfaceSet, QWidget* pParent)
{
    return new CResourceManager(pInterfaceSet, pParent);
}

} // namespace ResourceManagerUI

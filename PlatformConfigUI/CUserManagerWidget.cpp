#include "CUserManagerWidget.h"

#include "CUserManagerPage.h"

namespace PlatformConfigUI {

CUserManagerWidget::CUserManagerWidget(UICommonMdl::CInterfaceSetManager* pInterfaceSet)
    : CEntryWidget(pInterfaceSet,
        {"001002", "UserManagerWidget", QT_TRANSLATE_NOOP("CUserManagerWidget", "User"), "CUserManagerWidget",
            QStringLiteral("PlatformConfigUI/UserManagerUI"), QStringLiteral("usermanager_pane.png"),
            QStringLiteral("usermanager_pane-d.png")})
{
}

QWidget* CUserManagerWidget::CreatePage(UICommonMdl::CInterfaceSetManager* pInterfaceSet, QWidget* pParent)
{
    return new CUserManagerPage(pInterfaceSet, pParent);
}

} // namespace PlatformConfigUI

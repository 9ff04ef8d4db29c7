#include "CVisitorParamWidget.h"

namespace ApplicationConfigUI {

CVisitorParamWidget::CVisitorParamWidget(UICommonMdl::CInterfaceSetManager* pInterfaceSet)
    : CEntryWidget(pInterfaceSet,
        {"002008", "VisitorParamWidget", QT_TRANSLATE_NOOP("CVisitorParamWidget", "Visitor"),
            "CVisitorParamWidget", QStringLiteral("ApplicationConfigUI/Visitor"),
            QStringLiteral("VisitorManager.png"), QStringLiteral("VisitorManager-d.png")})
{
}

} // namespace ApplicationConfigUI

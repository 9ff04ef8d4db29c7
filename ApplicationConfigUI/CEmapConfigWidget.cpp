#include "CEmapConfigWidget.h"

namespace ApplicationConfigUI {

CEmapConfigWidget::CEmapConfigWidget(UICommonMdl::CInterfaceSetManager* pInterfaceSet)
    : CEntryWidget(pInterfaceSet,
        {"002002", "EmapConfigUI", QT_TRANSLATE_NOOP("CEmapConfigWidget", "Map"), "CEmapConfigWidget",
            QStringLiteral("ApplicationConfigUI/Emap"), QStringLiteral("emap.png"), QString()})
{
}

} // namespace ApplicationConfigUI

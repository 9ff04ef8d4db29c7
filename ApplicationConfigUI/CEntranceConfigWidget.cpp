#include "CEntranceConfigWidget.h"

namespace ApplicationConfigUI {

CEntranceConfigWidget::CEntranceConfigWidget(UICommonMdl::CInterfaceSetManager* pInterfaceSet)
    : CEntryWidget(pInterfaceSet,
        {"002009", "EntranceConfigWidget", QT_TRANSLATE_NOOP("CEntranceConfigWidget", "Entrance and Exit"),
            "CEntranceConfigWidget", QStringLiteral("ApplicationConfigUI/Entrance"),
            QStringLiteral("entrence.png"), QStringLiteral("entrence-d.png")})
{
}

} // namespace ApplicationConfigUI

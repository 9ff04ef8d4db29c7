#include "CEventConfigWidget.h"

namespace EventConfigUI {

CEventConfigWidget::CEventConfigWidget(UICommonMdl::CInterfaceSetManager* pInterfaceSet)
    : CEntryWidget(pInterfaceSet,
        {"002001", "EventConfigWidget", QT_TRANSLATE_NOOP("CEventConfigWidget", "Event"),
            "CEventConfigWidget", QStringLiteral("EventConfigUI"), QStringLiteral("EventConfig.png"),
            QString()})
{
}

} // namespace EventConfigUI

#include "CACSManagerWidget.h"

namespace AccessControlManagerUI {

CACSManagerWidget::CACSManagerWidget(UICommonMdl::CInterfaceSetManager* pInterfaceSet)
    : CEntryWidget(pInterfaceSet,
        {"002005", "ACSManagerWidget", QT_TRANSLATE_NOOP("CACSManagerWidget", "Access Control"),
            "CACSManagerWidget", QStringLiteral("AccessControlManagerUI"), QStringLiteral("ACS.png"),
            QString()})
{
}

} // namespace AccessControlManagerUI

#include "CArmLibWidget.h"

namespace ArmLibraryManagerUI {

CArmLibWidget::CArmLibWidget(UICommonMdl::CInterfaceSetManager* pInterfaceSet)
    : CEntryWidget(pInterfaceSet,
        {"002004", "CArmLibWidget", QT_TRANSLATE_NOOP("CArmLibWidget", "Watch List"), "CArmLibWidget",
            QStringLiteral("ArmLibraryManagerUI"), QStringLiteral("ArmLib.png"), QString()})
{
}

} // namespace ArmLibraryManagerUI

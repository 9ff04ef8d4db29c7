#include "CVideoIntercomConfigWidget.h"

namespace VideoIntercomConfigUI {

CVideoIntercomConfigWidget::CVideoIntercomConfigWidget(UICommonMdl::CInterfaceSetManager* pInterfaceSet)
    : CEntryWidget(pInterfaceSet,
        {"002006", "VideoIntercomConfigWidget",
            QT_TRANSLATE_NOOP("CVideoIntercomConfigWidget", "Video Intercom"), "CVideoIntercomConfigWidget",
            QStringLiteral("VideoIntercomConfigUI"), QStringLiteral("VTO.png"), QString()})
{
}

} // namespace VideoIntercomConfigUI

#include "CSystemConfigWidget.h"

namespace SystemConfigUI {

CSystemConfigWidget::CSystemConfigWidget(UICommonMdl::CInterfaceSetManager* pInterfaceSet)
    : CEntryWidget(pInterfaceSet,
        {"003003", "SystemConfigWidget", QT_TRANSLATE_NOOP("CSystemConfigWidget", "System Parameters"),
            "CSystemConfigWidget", QStringLiteral("SystemConfigUI"), QStringLiteral("SystemConfig.png"),
            QString()})
{
}

} // namespace SystemConfigUI

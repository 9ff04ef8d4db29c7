#include "CServiceManageWidget.h"

namespace SystemConfigUI {

CServiceManageWidget::CServiceManageWidget(UICommonMdl::CInterfaceSetManager* pInterfaceSet)
    : CEntryWidget(pInterfaceSet,
        {"003001", "ServiceManageWidget", QT_TRANSLATE_NOOP("CServiceManageWidget", "System Deployment"),
            "CServiceManageWidget", QStringLiteral("SystemConfigUI"),
            QStringLiteral("ServiceManage/ServiceManage.png"), QString()})
{
}

} // namespace SystemConfigUI

#include "CResourceManagerWidget.h"

#include "CDeviceManagerCtrl.h"

#include <common/CModulePage.h>

namespace ResourceManagerUI {

namespace {

constexpr const char* RightDeviceManager = "001001001";
constexpr const char* RightDeviceConfig = "001001002";

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CResourceManager)
};

} // namespace

CResourceManagerWidget::CResourceManagerWidget(UICommonMdl::CInterfaceSetManager* pInterfaceSet)
    : CEntryWidget(pInterfaceSet,
        {"001001", "ResourceManagerWidget", QT_TRANSLATE_NOOP("CResourceManagerWidget", "Device"),
            "CResourceManagerWidget", QStringLiteral("ResourceManagerUI"), QStringLiteral("Resource.png"),
            QStringLiteral("Resource-d.png")})
{
}

QWidget* CResourceManagerWidget::CreatePage(
    UICommonMdl::CInterfaceSetManager* pInterfaceSet, QWidget* pParent)
{
    using Common::CModulePage;
    const QString sDeviceFolder = QStringLiteral("ResourceManagerUI/DeviceManager");
    return new CModulePage(pInterfaceSet,
        {QStringLiteral("CResourceManager"), sDeviceFolder, GetWidgetTitle(QString(), 0),
            CModulePage::Look::Strip},
        {{RightDeviceManager, Text::tr("Add Device"), QStringLiteral("DeviceManager"),
             &CModulePage::Make<CDeviceManagerCtrl>, sDeviceFolder, QStringLiteral("DeviceManager")},
            {RightDeviceConfig, Text::tr("Device Configuration"), QStringLiteral("DeviceConfig"), nullptr,
                QStringLiteral("ResourceManagerUI/ResourceConfig"), QStringLiteral("DeviceConfig")}},
        pParent);
}

} // namespace ResourceManagerUI

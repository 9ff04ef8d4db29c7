#include "CResourceManagerWidget.h"

#include "CDeviceManagerCtrl.h"

#include <UserLogical/RightCodes.h>
#include <common/CModulePage.h>

namespace ResourceManagerUI {

namespace {

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
        {{UserLogical::RightChangeDevices, Text::tr("Add Device"), QStringLiteral("DeviceManager"),
             &CModulePage::Make<CDeviceManagerCtrl>, sDeviceFolder, QStringLiteral("DeviceManager")},
            {UserLogical::RightConfigureDevices, Text::tr("Device Configuration"),
                QStringLiteral("DeviceConfig"), nullptr, QStringLiteral("ResourceManagerUI/ResourceConfig"),
                QStringLiteral("DeviceConfig")}},
        pParent);
}

} // namespace ResourceManagerUI

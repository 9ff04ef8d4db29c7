#include "EntryFactory.h"

#include <AccessControlManagerUI/CACSManagerWidget.h>
#include <ApplicationConfigUI/CEmapConfigWidget.h>
#include <ApplicationConfigUI/CEntranceConfigWidget.h>
#include <ApplicationConfigUI/CVisitorParamWidget.h>
#include <ArmLibraryManagerUI/CArmLibWidget.h>
#include <AttendanceConfigUI/CAttendanceManagerWidget.h>
#include <BasicInfoManagerUI/CBasicInfoManagerWidget.h>
#include <EventConfigUI/CEventConfigWidget.h>
#include <PlatformConfigUI/CStorageManagerWidget.h>
#include <PlatformConfigUI/CUserManagerWidget.h>
#include <ResourceManagerUI/CResourceManagerWidget.h>
#include <SystemConfigUI/CBackupRestoreWidget.h>
#include <SystemConfigUI/CServiceManageWidget.h>
#include <SystemConfigUI/CSystemConfigWidget.h>
#include <VideoIntercomConfigUI/CVideoIntercomConfigWidget.h>

namespace ConfigManagerPlugin {

namespace {

using Entry = std::unique_ptr<VxPluginAPI::IAbstractWidget>;
using Maker = Entry (*)(UICommonMdl::CInterfaceSetManager*);

template <class EntryClass>
Entry Make(UICommonMdl::CInterfaceSetManager* pInterfaceSet)
{
    return std::make_unique<EntryClass>(pInterfaceSet);
}

const std::map<unsigned int, Maker>& Makers()
{
    static const std::map<unsigned int, Maker> s_makers = {
        {0, &Make<ResourceManagerUI::CResourceManagerWidget>},
        {1, &Make<PlatformConfigUI::CUserManagerWidget>},
        {2, &Make<PlatformConfigUI::CStorageManagerWidget>},
        {4, &Make<SystemConfigUI::CServiceManageWidget>},
        {6, &Make<SystemConfigUI::CSystemConfigWidget>},
        {7, &Make<SystemConfigUI::CBackupRestoreWidget>},
        {9, &Make<EventConfigUI::CEventConfigWidget>},
        {10, &Make<ApplicationConfigUI::CEmapConfigWidget>},
        {11, &Make<BasicInfoManagerUI::CBasicInfoManagerWidget>},
        {12, &Make<ArmLibraryManagerUI::CArmLibWidget>},
        {13, &Make<AccessControlManagerUI::CACSManagerWidget>},
        {14, &Make<VideoIntercomConfigUI::CVideoIntercomConfigWidget>},
        {15, &Make<AttendanceConfigUI::CAttendanceManagerWidget>},
        {16, &Make<ApplicationConfigUI::CVisitorParamWidget>},
        {17, &Make<ApplicationConfigUI::CEntranceConfigWidget>},
    };
    return s_makers;
}

} // namespace

Entry MakeEntry(unsigned int nEntryId, UICommonMdl::CInterfaceSetManager* pInterfaceSet)
{
    const auto it = Makers().find(nEntryId);
    return it == Makers().end() ? nullptr : it->second(pInterfaceSet);
}

} // namespace ConfigManagerPlugin

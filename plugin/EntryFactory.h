#pragma once

#include <memory>

namespace UICommonMdl {
class CInterfaceSetManager;
}
namespace VxPluginAPI {
class IAbstractWidget;
}

namespace ConfigManagerPlugin {

/// The entry object of that number, null when there is none. pInterfaceSet is borrowed.
std::unique_ptr<VxPluginAPI::IAbstractWidget> MakeEntry(
    unsigned int nEntryId, UICommonMdl::CInterfaceSetManager* pInterfaceSet);

} // namespace ConfigManagerPlugin

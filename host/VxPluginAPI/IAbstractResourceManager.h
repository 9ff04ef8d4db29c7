#pragma once

#include <string>

namespace VxPluginAPI {

/// Base of every manager that a resource manager hands out.
class IManager
{
public:
    virtual ~IManager() = default;
};

/// A source of managers. The host adds any number of them to a plug-in's interface set; managers are found by
/// their interface id (the static member InterfaceId of each manager interface), so that new ones only add.
class IAbstractResourceManager
{
public:
    virtual ~IAbstractResourceManager() = default;

    /// The manager of that interface id, null when this source has none. Owned by the source, valid as long
    /// as it. The object is the interface itself: a static_cast to the interface of that id is right.
    virtual IManager* FindManager(const std::string& sInterfaceId) = 0;
};

} // namespace VxPluginAPI

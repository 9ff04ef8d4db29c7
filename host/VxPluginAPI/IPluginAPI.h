#pragma once

#include <QtPlugin>

#include <string>

namespace VxPluginAPI {

class IAbstractResourceManager;
class IAbstractUI;

/// What every plug-in of the client answers. All calls come on the user-interface thread.
class IPluginAPI
{
public:
    virtual ~IPluginAPI() = default;

    /// The plug-in's name, unique among the plug-ins of the client.
    virtual std::string GetPluginName() = 0;
};

/// A plug-in with a user interface. The host finds it on the instance of the Qt plug-in by the interface id
/// below. The order of the operations is part of the binary interface. No operation throws.
class IClientUIPluginAPI : public IPluginAPI
{
public:
    /// The right that guards the plug-in as a whole; empty: none.
    virtual std::string GetPluginRight() { return {}; }
    /// Adds a source of managers (borrowed, must outlive UninitPlugin). False when it cannot be taken.
    virtual bool AddAbstractResourceManager(IAbstractResourceManager* pResourceManager) = 0;
    virtual bool Init() = 0;
    virtual bool Start() = 0;
    virtual void Stop() = 0;
    /// Creates the user-interface object; a second call changes nothing.
    virtual void CreateUI() = 0;
    /// Releases everything that the plug-in created; a second call does nothing.
    virtual void UninitPlugin() = 0;
    /// Owned by the plug-in; null before CreateUI and after UninitPlugin.
    virtual IAbstractUI* GetAbstractUI() = 0;
};

} // namespace VxPluginAPI

Q_DECLARE_INTERFACE(VxPluginAPI::IClientUIPluginAPI, "com.VxPluginAPI.IClientUIPluginAPI(1.0)")

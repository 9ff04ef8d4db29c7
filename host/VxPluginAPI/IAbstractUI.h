#pragma once

#include <string>

namespace VxPluginAPI {

class IAbstractWidget;

/// The factory of a plug-in's widgets. User-interface thread only. The order of the operations is binary
/// interface.
class IAbstractUI
{
public:
    virtual ~IAbstractUI() = default;

    /// The widget of that name, created when it does not exist yet; null when the plug-in has none. Not
    /// owned.
    virtual IAbstractWidget* GetAbstractWidget(const std::string& sName) = 0;
    /// The widget of that name when it exists already, else null. Not owned.
    virtual IAbstractWidget* FindAbstractWidget(const std::string& sName) = 0;
};

} // namespace VxPluginAPI

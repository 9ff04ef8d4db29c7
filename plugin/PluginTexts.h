#pragma once

namespace ConfigManagerPlugin {

/// Name of the plug-in, of its top-level widget and of the skin directory of the home page.
inline constexpr const char* PluginName = "ConfigManagerPlugin";
/// Right that guards the plug-in and its top-level widget.
inline constexpr const char* PluginRight = "Default Right";

} // namespace ConfigManagerPlugin

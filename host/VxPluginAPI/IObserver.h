#pragma once

namespace VxPluginAPI {

/// Base of every observer. Callbacks come on threads of the host, never on the user-interface thread; after
/// the manager's RemoveObserver has returned, no callback runs on that observer any more.
class IObserver
{
public:
    virtual ~IObserver() = default;
};

} // namespace VxPluginAPI

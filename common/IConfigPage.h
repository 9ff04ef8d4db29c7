#pragma once

#include <QVariant>

namespace Common {

/// What a page may implement beside QWidget to hear what its entry object hears. User-interface thread.
class IConfigPage
{
public:
    virtual ~IConfigPage() = default;

    /// A message of the host; true when it was taken.
    virtual bool OnMsg(int nMsg, QVariant* pValue, void* pArgument) = 0;
    /// Called before the plug-in is unloaded: stop work in progress, drop observers.
    virtual void UninitUI() = 0;
};

} // namespace Common

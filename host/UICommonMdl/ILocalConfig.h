#pragma once

#include <VxPluginAPI/IAbstractResourceManager.h>

#include <QString>
#include <QVariant>

namespace UICommonMdl {

/// Settings of this client on this machine, kept in "Localcfg.ini". User-interface thread. Writing never
/// fails loudly: a setting that cannot be kept is lost with the session.
class ILocalConfig : public VxPluginAPI::IManager
{
public:
    static constexpr const char* InterfaceId = "UICommonMdl.ILocalConfig(1.0)";

    /// sKey is "Section/Name".
    virtual QVariant GetValue(const QString& sKey, const QVariant& vDefault = QVariant()) = 0;
    virtual void SetValue(const QString& sKey, const QVariant& vValue) = 0;
};

} // namespace UICommonMdl

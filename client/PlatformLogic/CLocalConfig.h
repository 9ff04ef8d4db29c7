#pragma once

#include <UICommonMdl/ILocalConfig.h>

#include <QSettings>

namespace PlatformLogic {

/// "Localcfg.ini" in the folder that the client gives. User-interface thread.
class CLocalConfig : public UICommonMdl::ILocalConfig
{
public:
    explicit CLocalConfig(const QString& sFolder);

    QVariant GetValue(const QString& sKey, const QVariant& vDefault) override;
    void SetValue(const QString& sKey, const QVariant& vValue) override;

private:
    QSettings m_settings;
};

} // namespace PlatformLogic

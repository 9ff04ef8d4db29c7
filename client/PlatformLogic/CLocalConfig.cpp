#include "CLocalConfig.h"

namespace PlatformLogic {

CLocalConfig::CLocalConfig(const QString& sFolder)
    : m_settings(sFolder + QStringLiteral("/Localcfg.ini"), QSettings::IniFormat)
{
    m_settings.setIniCodec("UTF-8");
}

QVariant CLocalConfig::GetValue(const QString& sKey, const QVariant& vDefault)
{
    return m_settings.value(sKey, vDefault);
}

void CLocalConfig::SetValue(const QString& sKey, const QVariant& vValue)
{
    m_settings.setValue(sKey, vValue);
}

} // namespace PlatformLogic

#include "CPluginHost.h"

#include <VxPluginAPI/IAbstractUI.h>
#include <VxPluginAPI/IAbstractWidget.h>
#include <VxPluginAPI/IPluginAPI.h>

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonObject>

namespace ClientApp {

namespace {
const char* const PluginKey = "ConfigManagerPlugin";
}

CPluginHost::~CPluginHost()
{
    if (m_pPlugin) {
        m_pPlugin->Stop();
        m_pPlugin->UninitPlugin();
    }
    m_loader.unload();
}

QString CPluginHost::DefaultPath()
{
    return QCoreApplication::applicationDirPath()
        + QStringLiteral("/../lib/plugins/libConfigManagerPlugin.so");
}

QString CPluginHost::Load(const QString& sPath, VxPluginAPI::IAbstractResourceManager* pResourceManager)
{
    m_loader.setFileName(sPath);
    const QJsonArray keys = m_loader.metaData()
                                .value(QStringLiteral("MetaData"))
                                .toObject()
                                .value(QStringLiteral("Keys"))
                                .toArray();
    if (!keys.contains(QLatin1String(PluginKey)) && m_loader.load())
        return QStringLiteral("%1 is not the configuration module.").arg(sPath);
    QObject* pInstance = m_loader.instance();
    if (!pInstance)
        return m_loader.errorString();
    m_pPlugin = qobject_cast<VxPluginAPI::IClientUIPluginAPI*>(pInstance);
    if (!m_pPlugin)
        return QStringLiteral("%1 has no plug-in interface of this version.").arg(sPath);
    m_pPlugin->AddAbstractResourceManager(pResourceManager);
    if (!m_pPlugin->Init() || !m_pPlugin->Start())
        return QStringLiteral("%1 could not be started.").arg(sPath);
    m_pPlugin->CreateUI();
    m_pTopLevel = m_pPlugin->GetAbstractUI()->GetAbstractWidget(PluginKey);
    return {};
}

} // namespace ClientApp

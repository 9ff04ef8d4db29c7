#pragma once

#include <QPluginLoader>
#include <QString>

namespace VxPluginAPI {
class IAbstractResourceManager;
class IAbstractWidget;
class IClientUIPluginAPI;
} // namespace VxPluginAPI

namespace ClientApp {

/// Loads the configuration module and drives its life cycle. User-interface thread.
class CPluginHost
{
public:
    CPluginHost() = default;
    /// Uninitialises and unloads the plug-in; every widget of it must be gone by then.
    ~CPluginHost();
    CPluginHost(const CPluginHost&) = delete;
    CPluginHost& operator=(const CPluginHost&) = delete;

    /// Loads the library at sPath and starts the plug-in on that source of managers (borrowed). Answers an
    /// error text, empty on success.
    QString Load(const QString& sPath, VxPluginAPI::IAbstractResourceManager* pResourceManager);

    /// The plug-in's top-level widget, null before Load succeeded. Owned by the plug-in.
    VxPluginAPI::IAbstractWidget* GetTopLevelWidget() const { return m_pTopLevel; }

    /// Where the module lies when nothing else is said.
    static QString DefaultPath();

private:
    QPluginLoader m_loader;
    VxPluginAPI::IClientUIPluginAPI* m_pPlugin = nullptr;
    VxPluginAPI::IAbstractWidget* m_pTopLevel = nullptr;
};

} // namespace ClientApp

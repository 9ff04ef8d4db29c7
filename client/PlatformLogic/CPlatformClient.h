#pragma once

#include "PlatformLogicExport.h"

#include <UserLogical/IUserManager.h>
#include <VxPluginAPI/IAbstractResourceManager.h>

#include <QObject>
#include <QSslConfiguration>
#include <QUrl>

#include <memory>

namespace UICommonMdl {
class ILocalConfig;
}
namespace GroupLogical {
class IGroupManager;
}
namespace RemoteConfigLogical {
class IRemoteConfigManager;
}

namespace PlatformLogic {

/// The client's side of the platform: connects to one server, signs in, and hands out the logic managers. All
/// calls and signals on the user-interface thread. Must be destroyed after the plug-ins that use its
/// managers.
class PLATFORMLOGIC_EXPORT CPlatformClient : public QObject, public VxPluginAPI::IAbstractResourceManager
{
    Q_OBJECT

public:
    /// sConfigFolder holds "Localcfg.ini"; it is created when it does not exist.
    explicit CPlatformClient(const QString& sConfigFolder, QObject* pParent = nullptr);
    ~CPlatformClient() override;

    VxPluginAPI::IManager* FindManager(const std::string& sInterfaceId) override;
    GroupLogical::IGroupManager* GetGroupManager() const;
    RemoteConfigLogical::IRemoteConfigManager* GetRemoteConfigManager() const;
    UserLogical::IUserManager* GetUserManager() const;
    UICommonMdl::ILocalConfig* GetLocalConfig() const;

    /// The server to talk to from now on ("http" or "https"); ends a session that is open.
    void SetServer(const QUrl& url, const QSslConfiguration& tls = QSslConfiguration::defaultConfiguration());
    QUrl GetServer() const;
    /// Time after which a request without traffic ends with ErrorTimeOut, in milliseconds.
    void SetRequestTimeOut(int nMilliseconds);

    /// Each is answered by its signal exactly once.
    void QueryServerState();
    void SetUp(const QString& sPassword);
    /// sNewPassword takes the place of the password from now on, where the server asks for that
    /// (ErrorPasswordChangeNeeded).
    void SignIn(const QString& sUserName, const QString& sPassword, const QString& sNewPassword = QString());
    /// Ends the session on the server as far as it can be reached, and here at once.
    void SignOut();
    bool IsSignedIn() const;
    /// Requests that are not answered yet.
    int GetOpenRequestCount() const;

Q_SIGNALS:
    void SignalServerState(int nErrorCode, bool bSetupNeeded);
    void SignalSetUp(int nErrorCode, const QString& sDetail);
    void SignalSignIn(int nErrorCode, const QString& sDetail);
    /// The rights of the signed-in user are others now.
    void SignalRightsChanged();
    /// The server no longer accepts the session; the managers refuse calls from now on.
    void SignalSessionEnded();
    /// The connection was lost, or is back.
    void SignalConnectionChanged(bool bConnected);

private:
    struct Private;

    std::unique_ptr<Private> m_pPrivate;
};

} // namespace PlatformLogic

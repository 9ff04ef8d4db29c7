#include "CPlatformClient.h"

#include "CAccessControlManager.h"
#include "CEventRouter.h"
#include "CGroupManager.h"
#include "CLocalConfig.h"
#include "CRemoteConfigManager.h"
#include "CServerConnection.h"
#include "CTransferManager.h"
#include "CUserManager.h"
#include "ServerCall.h"

#include <UICommonMdl/CDepartmentModelManager.h>
#include <UICommonMdl/CPhotoManager.h>

#include <QDir>
#include <QNetworkInterface>

namespace PlatformLogic {

namespace {

/// Hardware addresses of this machine's network interfaces, without those of the loopback kind.
std::vector<std::string> OwnMacAddresses()
{
    std::vector<std::string> vecAddresses;
    const QList<QNetworkInterface> listInterfaces = QNetworkInterface::allInterfaces();
    for (const QNetworkInterface& interface : listInterfaces) {
        const QString sAddress = interface.hardwareAddress().toLower();
        if (!sAddress.isEmpty() && !interface.flags().testFlag(QNetworkInterface::IsLoopBack))
            vecAddresses.push_back(sAddress.toStdString());
    }
    return vecAddresses;
}

} // namespace

struct CPlatformClient::Private
{
    Private(CPlatformClient* pOwner, const QString& sConfigFolder);
    ~Private();

    /// Runs the call on the user-interface thread as long as the client lives.
    template <class Call>
    void OnUiThread(Call call)
    {
        QMetaObject::invokeMethod(pClient, std::move(call), Qt::QueuedConnection);
    }

    /// On the network thread.
    void OnState(CServerConnection::State state);

    CPlatformClient* pClient;
    CServerConnection connection;
    CUserManager userManager;
    CLocalConfig localConfig;
    CGroupManager groupManager;
    CRemoteConfigManager remoteConfigManager;
    CAccessControlManager accessControlManager;
    CEventRouter router;
    CTransferManager transferManager;
};

CPlatformClient::Private::Private(CPlatformClient* pOwner, const QString& sConfigFolder)
    : pClient(pOwner)
    , userManager(connection)
    , localConfig(sConfigFolder)
    , groupManager(connection, userManager)
    , remoteConfigManager(connection, userManager)
    , accessControlManager(connection, userManager)
    , router(connection, userManager, groupManager, remoteConfigManager, accessControlManager)
{
    UICommonMdl::CDepartmentModelManager::Instance()->SetAccessControlManager(&accessControlManager);
    UICommonMdl::CGlobalPhotoManager::GetPhotoManager()->SetSource(
        &transferManager, [this] { return QString::fromStdString(userManager.GetToken()); },
        sConfigFolder + QStringLiteral("/photos"));
    connect(&router, &CEventRouter::SignalRightsChanged, pOwner, &CPlatformClient::SignalRightsChanged);
    connect(&router, &CEventRouter::SignalSessionEnded, pOwner, &CPlatformClient::SignalSessionEnded);
    connect(
        &router, &CEventRouter::SignalConnectionChanged, pOwner, &CPlatformClient::SignalConnectionChanged);
    connection.SetEventHandler(
        [this](const auto& sName, const auto& sData) { router.OnEvent(sName, sData); });
    connection.SetStateHandler([this](CServerConnection::State state) { OnState(state); });
}

CPlatformClient::Private::~Private()
{
    UICommonMdl::CGlobalPhotoManager::GetPhotoManager()->SetSource(nullptr, {}, {});
    UICommonMdl::CDepartmentModelManager::Instance()->SetAccessControlManager(nullptr);
    // Open requests are answered while the managers that they belong to still stand.
    connection.Stop();
}

void CPlatformClient::Private::OnState(CServerConnection::State state)
{
    switch (state) {
    case CServerConnection::State::Disconnected:
        break;
    case CServerConnection::State::SessionRefused:
        return router.EndSession();
    case CServerConnection::State::Lost:
        return router.SetConnected(false);
    case CServerConnection::State::Connected:
        return router.SetConnected(true);
    }
}

CPlatformClient::CPlatformClient(const QString& sConfigFolder, QObject* pParent)
    : QObject(pParent)
{
    QDir().mkpath(sConfigFolder);
    m_pPrivate = std::make_unique<Private>(this, sConfigFolder);
}

CPlatformClient::~CPlatformClient() = default;

VxPluginAPI::IManager* CPlatformClient::FindManager(const std::string& sInterfaceId)
{
    if (sInterfaceId == GroupLogical::IGroupManager::InterfaceId)
        return GetGroupManager();
    if (sInterfaceId == RemoteConfigLogical::IRemoteConfigManager::InterfaceId)
        return GetRemoteConfigManager();
    if (sInterfaceId == AccessControlLogical::IAccessControlManager::InterfaceId)
        return &m_pPrivate->accessControlManager;
    if (sInterfaceId == UserLogical::IUserManager::InterfaceId)
        return GetUserManager();
    if (sInterfaceId == UICommonMdl::ILocalConfig::InterfaceId)
        return GetLocalConfig();
    if (sInterfaceId == UICommonMdl::ITransferManager::InterfaceId)
        return static_cast<UICommonMdl::ITransferManager*>(&m_pPrivate->transferManager);
    return nullptr;
}

GroupLogical::IGroupManager* CPlatformClient::GetGroupManager() const
{
    return &m_pPrivate->groupManager;
}

RemoteConfigLogical::IRemoteConfigManager* CPlatformClient::GetRemoteConfigManager() const
{
    return &m_pPrivate->remoteConfigManager;
}

UserLogical::IUserManager* CPlatformClient::GetUserManager() const
{
    return &m_pPrivate->userManager;
}

UICommonMdl::ILocalConfig* CPlatformClient::GetLocalConfig() const
{
    return &m_pPrivate->localConfig;
}

void CPlatformClient::SetServer(const QUrl& url, const QSslConfiguration& tls)
{
    m_pPrivate->userManager.ClearSession();
    m_pPrivate->connection.CloseSession(CServerConnection::OpenRequests::Cancel);
    m_pPrivate->connection.SetServer(url, tls);
    m_pPrivate->transferManager.SetServer(url, tls);
}

QUrl CPlatformClient::GetServer() const
{
    return m_pPrivate->connection.GetServer();
}

void CPlatformClient::SetRequestTimeOut(int nMilliseconds)
{
    m_pPrivate->connection.SetTimeOut(nMilliseconds);
}

bool CPlatformClient::IsSignedIn() const
{
    return m_pPrivate->userManager.GetUserRight() != nullptr;
}

int CPlatformClient::GetOpenRequestCount() const
{
    return m_pPrivate->connection.GetOpenRequestCount();
}

void CPlatformClient::QueryServerState()
{
    Private& p = *m_pPrivate;
    CallServer<wire::GetServerState>(p.connection, {}, [&p](TypedAnswer<wire::ServerState>&& answer) {
        p.OnUiThread([&p, nCode = answer.nErrorCode, bSetup = answer.data.bSetupNeeded] {
            Q_EMIT p.pClient->SignalServerState(nCode, bSetup);
        });
    });
}

void CPlatformClient::SetUp(const QString& sPassword)
{
    Private& p = *m_pPrivate;
    CallServer<wire::SetUp>(
        p.connection, {sPassword.toStdString()}, [&p](TypedAnswer<wire::Nothing>&& answer) {
            p.OnUiThread([&p, nCode = answer.nErrorCode, sDetail = QString::fromStdString(answer.sDetail)] {
                Q_EMIT p.pClient->SignalSetUp(nCode, sDetail);
            });
        });
}

void CPlatformClient::SignIn(const QString& sUserName, const QString& sPassword, const QString& sNewPassword)
{
    Private& p = *m_pPrivate;
    const wire::SignInRequest request{
        sUserName.toStdString(), sPassword.toStdString(), sNewPassword.toStdString(), OwnMacAddresses()};
    CallServer<wire::SignIn>(p.connection, request, [&p](TypedAnswer<wire::Session>&& answer) {
        if (answer.nErrorCode == UICommonMdl::ErrorNone) {
            p.userManager.SetSession(answer.data);
            p.connection.OpenSession(answer.data.sToken);
        }
        p.OnUiThread([&p, nCode = answer.nErrorCode, sDetail = QString::fromStdString(answer.sDetail)] {
            Q_EMIT p.pClient->SignalSignIn(nCode, sDetail);
        });
    });
}

void CPlatformClient::SignOut()
{
    Private& p = *m_pPrivate;
    if (!IsSignedIn())
        return;
    p.userManager.ClearSession();
    CallServer<wire::SignOut>(p.connection, {}, [](TypedAnswer<wire::Nothing>&&) {});
    p.connection.CloseSession(CServerConnection::OpenRequests::Keep);
}

} // namespace PlatformLogic

#include "CEventRouter.h"

#include "CAccessControlManager.h"
#include "CGroupManager.h"
#include "CRemoteConfigManager.h"
#include "CUserManager.h"
#include "ServerCall.h"

namespace PlatformLogic {

using UserLogical::ILoginManagerObserver;

CEventRouter::CEventRouter(IServerConnection& connection, CUserManager& userManager,
    CGroupManager& groupManager, CRemoteConfigManager& remoteConfigManager,
    CAccessControlManager& accessControlManager)
    : m_connection(connection)
    , m_userManager(userManager)
    , m_groupManager(groupManager)
    , m_remoteConfigManager(remoteConfigManager)
    , m_accessControlManager(accessControlManager)
{
}

void CEventRouter::OnEvent(const std::string& sName, const std::string& sData)
{
    using GroupLogical::IGroupManagerObserver;
    using UserLogical::IUserManagerObserve;
    if (sName == wire::event::DeviceStates)
        OnDeviceStates(sData);
    else if (sName == wire::event::DevicesChanged)
        m_groupManager.NotifyPush(IGroupManagerObserver::ResultDevicesChanged);
    else if (sName == wire::event::OrganizationsChanged)
        m_groupManager.NotifyPush(IGroupManagerObserver::ResultOrganizationsChanged);
    else if (sName == wire::event::DepartmentsChanged)
        m_accessControlManager.NotifyDepartmentsChanged();
    else if (sName == wire::event::PersonsChanged)
        m_accessControlManager.NotifyPersonsChanged();
    else if (sName == wire::event::UsersChanged)
        m_userManager.NotifyPush(IUserManagerObserve::ResultUsersChanged);
    else if (sName == wire::event::RolesChanged)
        m_userManager.NotifyPush(IUserManagerObserve::ResultRolesChanged);
    else if (sName == wire::event::RightsChanged)
        RefreshSession();
    else if (sName == wire::event::SessionEnded)
        EndSession();
}

void CEventRouter::OnDeviceStates(const std::string& sData)
{
    try {
        const auto states = nlohmann::json::parse(sData).get<wire::DeviceStates>();
        m_remoteConfigManager.NotifyStates(states.vecStates);
    } catch (const nlohmann::json::exception& error) {
        qWarning("Device states could not be read[%s].", error.what());
    }
}

void CEventRouter::SetConnected(bool bConnected)
{
    if (bConnected) {
        if (m_remoteConfigManager.IsServerConnected())
            return;
        // Rights may have changed while nobody could tell.
        RefreshSession();
    }
    m_remoteConfigManager.SetServerConnected(bConnected);
    if (bConnected)
        m_userManager.NotifyLogin(ILoginManagerObserver::ResultReconnected);
    else
        m_userManager.NotifyLogin(ILoginManagerObserver::ResultDisconnected, UICommonMdl::ErrorDisconnected);
    Q_EMIT SignalConnectionChanged(bConnected);
}

void CEventRouter::RefreshSession()
{
    CallServer<wire::GetSession>(m_connection, {}, [this](TypedAnswer<wire::Session>&& answer) {
        if (answer.nErrorCode != UICommonMdl::ErrorNone || !m_userManager.GetUserRight())
            return;
        if (!m_userManager.SetSession(answer.data))
            return;
        m_userManager.NotifyLogin(ILoginManagerObserver::ResultRightsChanged);
        Q_EMIT SignalRightsChanged();
    });
}

void CEventRouter::EndSession()
{
    if (!m_userManager.GetUserRight())
        return;
    m_userManager.ClearSession();
    m_connection.CloseSession(IServerConnection::OpenRequests::Cancel);
    m_remoteConfigManager.SetServerConnected(false);
    m_userManager.NotifyLogin(ILoginManagerObserver::ResultSessionEnded, UICommonMdl::ErrorNotSignedIn);
    Q_EMIT SignalSessionEnded();
}

} // namespace PlatformLogic

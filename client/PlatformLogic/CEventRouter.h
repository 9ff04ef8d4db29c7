#pragma once

#include "PlatformLogicExport.h"

#include <QObject>

#include <string>

namespace PlatformLogic {

class CAccessControlManager;
class CGroupManager;
class CRemoteConfigManager;
class CUserManager;
class IServerConnection;

/// Brings what the server tells by itself, and what becomes of the connection, to the managers. Called on the
/// network thread, where its signals are emitted too.
class PLATFORMLOGIC_EXPORT CEventRouter : public QObject
{
    Q_OBJECT

public:
    /// All are borrowed and outlive the router's requests.
    CEventRouter(IServerConnection& connection, CUserManager& userManager, CGroupManager& groupManager,
        CRemoteConfigManager& remoteConfigManager, CAccessControlManager& accessControlManager);

    /// sName is one of wire::event, sData its JSON; other names are ignored.
    void OnEvent(const std::string& sName, const std::string& sData);
    void SetConnected(bool bConnected);
    /// Forgets the session, which the server no longer accepts.
    void EndSession();

Q_SIGNALS:
    /// The rights of the signed-in user are others now.
    void SignalRightsChanged();
    void SignalSessionEnded();
    /// The connection was lost, or is back.
    void SignalConnectionChanged(bool bConnected);

private:
    void OnDeviceStates(const std::string& sData);
    void RefreshSession();

    IServerConnection& m_connection;
    CUserManager& m_userManager;
    CGroupManager& m_groupManager;
    CRemoteConfigManager& m_remoteConfigManager;
    CAccessControlManager& m_accessControlManager;
};

} // namespace PlatformLogic

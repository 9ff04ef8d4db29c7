#include "CSession.h"

namespace Common {

using RemoteConfigLogical::ISystemConfigObserver;
using UserLogical::ILoginManagerObserver;

CSession::CSession(const UICommonMdl::CInterfaceSetManager* pInterfaceSet, QObject* pOwner)
    : CPageWork(pOwner)
    , m_login(pInterfaceSet, this)
    , m_system(pInterfaceSet, this)
{
    // A host may tell by way of either manager; the second one changes nothing.
    const auto listen = [this](auto& calls, int nResultCode, bool bConnected) {
        calls.OnPush(nResultCode, [this, bConnected](const auto&) { SetConnected(bConnected); });
    };
    listen(m_login, ILoginManagerObserver::ResultDisconnected, false);
    listen(m_login, ILoginManagerObserver::ResultReconnected, true);
    listen(m_system, ISystemConfigObserver::ResultServerDisconnected, false);
    listen(m_system, ISystemConfigObserver::ResultServerReconnected, true);
    m_login.OnPush(
        ILoginManagerObserver::ResultRightsChanged, [this](const auto&) { Q_EMIT SignalRightsChanged(); });
    if (RemoteConfigLogical::IRemoteConfigManager* const pRemote = m_system.GetManager())
        m_bConnected = pRemote->IsServerConnected();
}

bool CSession::HasRight(const char* pszCode) const
{
    UserLogical::IUserManager* const pUsers = m_login.GetManager();
    UserLogical::IUserRight* const pRight = pUsers ? pUsers->GetUserRight() : nullptr;
    return pRight && pRight->HasRight(pszCode);
}

void CSession::End()
{
    m_login.End();
    m_system.End();
}

void CSession::SetConnected(bool bConnected)
{
    if (m_bConnected == bConnected)
        return;
    m_bConnected = bConnected;
    Q_EMIT SignalConnectionChanged(bConnected);
}

} // namespace Common

#pragma once

#include "CCalls.h"

namespace Common {

/// The signed-in session as a page or dialog has to know it: whether the server is connected, and what the
/// user may do; a member of it. User-interface thread.
class CSession : public CPageWork
{
    Q_OBJECT

public:
    /// pInterfaceSet is borrowed and outlives the owner's work.
    CSession(const UICommonMdl::CInterfaceSetManager* pInterfaceSet, QObject* pOwner);

    /// False while the connection to the server is lost.
    bool IsConnected() const { return m_bConnected; }
    /// Whether the user has the right of that code; nobody has any while nobody is signed in.
    bool HasRight(const char* pszCode) const;

    void End() override;

Q_SIGNALS:
    /// The connection was lost, or is back; told once a change.
    void SignalConnectionChanged(bool bConnected);
    void SignalRightsChanged();

private:
    void SetConnected(bool bConnected);

    CCalls<UserLogical::ILoginManagerObserver> m_login;
    CCalls<RemoteConfigLogical::ISystemConfigObserver> m_system;
    bool m_bConnected = true;
};

} // namespace Common

#pragma once

#include <common/ObserverAdapters.h>

#include <QLabel>

namespace ResourceManagerUI {

/// Says in a dialog that the connection to the server is lost, for as long as it is; hidden otherwise.
/// User-interface thread.
class CConnectionNotice : public QLabel
{
    Q_OBJECT

public:
    explicit CConnectionNotice(QWidget* pParent = nullptr);

    /// Follows the connection from now on; called once. pManager (borrowed) may be null: there is no
    /// connection then.
    void Watch(RemoteConfigLogical::IRemoteConfigManager* pManager);
    bool IsConnected() const { return m_bConnected; }

Q_SIGNALS:
    void SignalConnected(bool bConnected);

private:
    void SetConnected(bool bConnected);

    bool m_bConnected = true;
};

} // namespace ResourceManagerUI

#pragma once

#include <RemoteConfigLogical/RemoteConfigRecords.h>

#include <QWidget>

class QComboBox;

namespace ResourceManagerUI {

/// The choice of the server whose time is shown. User-interface thread.
class CHomeServerSel : public QWidget
{
    Q_OBJECT

public:
    explicit CHomeServerSel(QWidget* pParent = nullptr);

    /// None: the platform as a whole stands there.
    void SetServers(const std::vector<RemoteConfigLogical::VideoServer_t>& vecServers);

Q_SIGNALS:
    /// The user chose another server.
    void SignalServerChosen(const QString& sServerId);

private:
    QComboBox* m_pServers;
};

} // namespace ResourceManagerUI

#include "CConnectionNotice.h"

#include <QCoreApplication>

namespace ResourceManagerUI {

namespace {
struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CConnectionNotice)
};
} // namespace

CConnectionNotice::CConnectionNotice(QWidget* pParent)
    : QLabel(pParent)
{
    setText(Text::tr("The connection to the server is lost. The window works again as soon as the server is "
                     "back."));
    setWordWrap(true);
    hide();
}

void CConnectionNotice::Watch(RemoteConfigLogical::IRemoteConfigManager* pManager)
{
    using Observer = RemoteConfigLogical::ISystemConfigObserver;
    auto* const pAdapter = new Common::CSystemConfigAdapter(pManager, this);
    connect(
        pAdapter, &Common::CSystemConfigAdapter::SignalState, this,
        [this](const Observer::Param& param) {
            if (param.nResultCode == Observer::ResultServerDisconnected)
                SetConnected(false);
            else if (param.nResultCode == Observer::ResultServerReconnected)
                SetConnected(true);
        },
        Qt::QueuedConnection);
    SetConnected(pManager && pManager->IsServerConnected());
}

void CConnectionNotice::SetConnected(bool bConnected)
{
    m_bConnected = bConnected;
    setVisible(!bConnected);
    Q_EMIT SignalConnected(bConnected);
}

} // namespace ResourceManagerUI

#pragma once

#include "CFoundDeviceDlg.h"

#include <RemoteConfigLogical/IRemoteConfigManager.h>
#include <common/CRequests.h>
#include <common/ObserverAdapters.h>

#include <memory>

namespace Ui {
class CDeviceInitialize;
}

namespace ResourceManagerUI {

/// Gives found devices that have none their first password, the same to all. User-interface thread.
class CDeviceInitialize : public CFoundDeviceDlg
{
    Q_OBJECT

public:
    /// pManager (borrowed) may be null: the work is refused then.
    CDeviceInitialize(
        RemoteConfigLogical::IRemoteConfigManager* pManager, Devices vecDevices, QWidget* pParent);
    ~CDeviceInitialize() override;

Q_SIGNALS:
    void SignalInitialized(const QStringList& listKeys);

protected:
    QString GetClosingQuestion() const override;

private:
    using Param = RemoteConfigLogical::IRemoteDeviceObserver::Param;
    bool CheckInput();
    void OnBtnOkClicked();
    void OnReport(const Param& param);

    std::unique_ptr<Ui::CDeviceInitialize> m_pUi;
    RemoteConfigLogical::IRemoteConfigManager* m_pManager;
    Common::CRequests<Param> m_requests;
    Common::CRemoteDeviceAdapter m_adapter;
};

} // namespace ResourceManagerUI

#pragma once

#include "CFoundDeviceDlg.h"

#include <common/CCalls.h>

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
    /// pInterfaceSet is borrowed.
    CDeviceInitialize(
        const UICommonMdl::CInterfaceSetManager* pInterfaceSet, Devices vecDevices, QWidget* pParent);
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
    Common::CCalls<RemoteConfigLogical::IRemoteDeviceObserver> m_calls;
};

} // namespace ResourceManagerUI

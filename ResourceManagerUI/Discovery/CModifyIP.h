#pragma once

#include "CFoundDeviceDlg.h"

#include <RemoteConfigLogical/IRemoteConfigManager.h>
#include <common/CRequests.h>
#include <common/ObserverAdapters.h>

#include <memory>

namespace Ui {
class CModifyIP;
}

namespace ResourceManagerUI {

struct AddressPlan;

/// Gives found devices other addresses: one to one, or counted up from a first one. User-interface thread.
class CModifyIP : public CFoundDeviceDlg
{
    Q_OBJECT

public:
    /// vecFound: all devices of the search, whose addresses are taken. sNewIp, when not empty, is proposed.
    /// pManager (borrowed) may be null: the work is refused then.
    CModifyIP(RemoteConfigLogical::IRemoteConfigManager* pManager, Devices vecDevices,
        const Devices& vecFound, const QString& sNewIp, QWidget* pParent);
    ~CModifyIP() override;

Q_SIGNALS:
    /// sKey: the device as it was known before.
    void SignalAddressModified(const QString& sKey, const QString& sNewIp);

protected:
    QString GetClosingQuestion() const override;

private:
    using Param = RemoteConfigLogical::IRemoteDeviceObserver::Param;
    void SetUpFields(const QString& sNewIp);
    void ShowPlan();
    bool CheckInput(const QVector<int>& vecRows);
    void OnBtnOkClicked();
    void OnReport(const Param& param);

    std::unique_ptr<Ui::CModifyIP> m_pUi;
    RemoteConfigLogical::IRemoteConfigManager* m_pManager;
    QStringList m_listUsed; ///< addresses of the devices that are not in the list
    Common::CRequests<Param> m_requests;
    Common::CRemoteDeviceAdapter m_adapter;
};

} // namespace ResourceManagerUI

#pragma once

#include "CFoundDeviceDlg.h"

#include <common/CCalls.h>

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
    /// pInterfaceSet is borrowed.
    CModifyIP(const UICommonMdl::CInterfaceSetManager* pInterfaceSet, Devices vecDevices,
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
    QStringList m_listUsed; ///< addresses of the devices that are not in the list
    Common::CCalls<RemoteConfigLogical::IRemoteDeviceObserver> m_calls;
};

} // namespace ResourceManagerUI

#pragma once

#include <common/CCalls.h>
#include <common/CSession.h>

#include <QDialog>

#include <memory>

namespace Common {
class CTableModel;
}
namespace Ui {
class CDeviceAccessDlg;
}

namespace ResourceManagerUI {

/// The users who may use a device, and the roles that let them. Deletes itself when it is closed.
/// User-interface thread.
class CDeviceAccessDlg : public QDialog
{
    Q_OBJECT

public:
    /// pInterfaceSet is borrowed.
    CDeviceAccessDlg(const UICommonMdl::CInterfaceSetManager* pInterfaceSet, const QString& sDeviceId,
        const QString& sDeviceName, QWidget* pParent);
    ~CDeviceAccessDlg() override;

    void Start();

private:
    using Param = UserLogical::IUserManagerObserve::Param;
    void Query();
    void OnAnswer(const Param& param);
    void ShowRows();
    void ShowState(int nErrorCode);
    void OnConnectionChanged(bool bConnected);

    std::unique_ptr<Ui::CDeviceAccessDlg> m_pUi;
    QString m_sDeviceId;
    Common::CTableModel* m_pModel;
    std::vector<UserLogical::DeviceAccess_t> m_vecAccess;
    Common::CSession m_session;
    Common::CCalls<UserLogical::IUserManagerObserve> m_calls;
};

} // namespace ResourceManagerUI

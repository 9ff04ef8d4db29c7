#pragma once

#include <UserLogical/IUserManager.h>
#include <common/CRequests.h>
#include <common/ObserverAdapters.h>

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
    /// Whoever sees users may see who has access.
    static bool IsOffered(UserLogical::IUserManager* pManager);

    /// pManager is borrowed; null: the query is refused.
    CDeviceAccessDlg(UserLogical::IUserManager* pManager, const QString& sDeviceId,
        const QString& sDeviceName, QWidget* pParent);
    ~CDeviceAccessDlg() override;

    void Start();
    void SetConnected(bool bConnected);

private:
    using Param = UserLogical::IUserManagerObserve::Param;
    void Query();
    void OnAnswer(const Param& param);
    void ShowRows();
    void ShowState(int nErrorCode);

    std::unique_ptr<Ui::CDeviceAccessDlg> m_pUi;
    UserLogical::IUserManager* m_pManager;
    QString m_sDeviceId;
    Common::CTableModel* m_pModel;
    std::vector<UserLogical::DeviceAccess_t> m_vecAccess;
    bool m_bConnected = true;
    Common::CRequests<Param> m_requests;
    Common::CUserManagerAdapter m_adapter;
};

} // namespace ResourceManagerUI

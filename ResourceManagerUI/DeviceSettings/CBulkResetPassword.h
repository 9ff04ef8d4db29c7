#pragma once

#include <common/CCalls.h>
#include <common/CSession.h>

#include <QDialog>

#include <memory>

namespace Ui {
class CBulkResetPassword;
}

namespace ResourceManagerUI {

/// Changes the login password of several devices, shows how far it is and lists the devices that failed;
/// these can be tried again. Deletes itself when it is closed. User-interface thread.
class CBulkResetPassword : public QDialog
{
    Q_OBJECT

public:
    /// pInterfaceSet is borrowed.
    CBulkResetPassword(const UICommonMdl::CInterfaceSetManager* pInterfaceSet,
        const QStringList& listDeviceIds, QWidget* pParent);
    ~CBulkResetPassword() override;

    /// Sends the change, after the checks of the fields.
    void accept() override;
    /// Closing while passwords are changed asks first.
    void reject() override;

Q_SIGNALS:
    /// How the change ended: the request as a whole failed, or every device is done.
    void SignalShowNotify(const QString& sText);

protected:
    bool eventFilter(QObject* pWatched, QEvent* pEvent) override;

private:
    using Param = RemoteConfigLogical::IRemoteDeviceObserver::Param;
    void SetUpFields();
    bool CheckFields();
    void OnPasswordChanged(const QString& sPassword);
    void OnReport(const Param& param);
    void OnFinished(const Param& param);
    void ShowRunning(bool bRunning);
    void ShowProgress();
    /// Whether any device failed.
    bool ShowFailures();

    std::unique_ptr<Ui::CBulkResetPassword> m_pUi;
    std::vector<std::string> m_vecDeviceIds; ///< the devices that are not done
    RemoteConfigLogical::ModifyDevicePasswordResultInfoVec m_vecResults; ///< of the request under way
    bool m_bRunning = false;
    Common::CSession m_session;
    Common::CCalls<RemoteConfigLogical::IRemoteDeviceObserver> m_calls;
};

} // namespace ResourceManagerUI

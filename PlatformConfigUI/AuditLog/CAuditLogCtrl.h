#pragma once

#include <RemoteConfigLogical/IRemoteConfigManager.h>
#include <UserLogical/IUserManager.h>
#include <common/CRequests.h>
#include <common/IConfigPage.h>
#include <common/ObserverAdapters.h>

#include <QPointer>
#include <QWidget>

#include <memory>

namespace Ui {
class CAuditLogCtrl;
}
namespace UICommonMdl {
class CInterfaceSetManager;
}
namespace VxGUI {
class VxWaitDialog;
}

namespace PlatformConfigUI {

class CAuditExport;
class CAuditModel;

/// The log of who changed what: filters, pages and export. User-interface thread.
class CAuditLogCtrl : public QWidget, public Common::IConfigPage
{
    Q_OBJECT

public:
    /// pInterfaceSet is borrowed and outlives the page.
    explicit CAuditLogCtrl(UICommonMdl::CInterfaceSetManager* pInterfaceSet, QWidget* pParent = nullptr);
    ~CAuditLogCtrl() override;

    bool OnMsg(int nMsg, QVariant* pValue, void* pArgument) override;
    void UninitUI() override;

Q_SIGNALS:
    void SignalDisconnectCms();
    void SignalReconnectCms();

protected:
    /// The log goes on while other pages are shown: it is asked for again.
    void showEvent(QShowEvent* pEvent) override;

private:
    using Param = UserLogical::IUserManagerObserve::Param;
    enum RequestKind : int
    {
        KindAuditPage = 1
    };

    void SetUpFilters();
    void SetUpButtons();
    void SetUpList();
    void SetUpShortcuts();
    void SetUpExport();
    void SetUpObservers();

    void OnPeriodChanged();
    void OnReset();
    void OnSearch();
    bool ReadFilters(UserLogical::AuditRequest_t& request);
    void QueryPage();
    void OnPage(const Param& param);
    void ShowListState(int nErrorCode);
    bool IsFiltered() const;
    void ShowDetails(const QModelIndex& index);

    void OnExport();
    void OnExportFinished(int nErrorCode, const QString& sError, int nWritten, int nFound);
    void EndExport();

    void OnDisconnectCms();
    void OnReconnectCms();
    void SetConnected(bool bConnected);
    void UpdateButtons();

    UserLogical::IUserManager* m_pManager;
    RemoteConfigLogical::IRemoteConfigManager* m_pRemoteManager;
    std::unique_ptr<Ui::CAuditLogCtrl> m_pUi;
    CAuditModel* m_pModel;
    CAuditExport* m_pExport;
    UserLogical::AuditRequest_t m_request; ///< whose entries are shown
    QPointer<VxGUI::VxWaitDialog> m_pWaitDialog;
    bool m_bConnected = true;
    bool m_bReleased = false;
    Common::CRequests<Param> m_requests;
    Common::CUserManagerAdapter m_userAdapter;
    Common::CLoginManagerAdapter m_loginAdapter;
    Common::CSystemConfigAdapter m_systemAdapter;
};

} // namespace PlatformConfigUI

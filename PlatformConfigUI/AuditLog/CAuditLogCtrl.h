#pragma once

#include <common/CPage.h>

#include <QPointer>

#include <memory>

namespace Ui {
class CAuditLogCtrl;
}
namespace VxGUI {
class VxWaitDialog;
}

namespace PlatformConfigUI {

class CAuditExport;
class CAuditModel;

/// The log of who changed what: filters, pages and export. User-interface thread.
class CAuditLogCtrl : public Common::CPage
{
    Q_OBJECT

public:
    /// pInterfaceSet is borrowed and outlives the page.
    explicit CAuditLogCtrl(UICommonMdl::CInterfaceSetManager* pInterfaceSet, QWidget* pParent = nullptr);
    ~CAuditLogCtrl() override;

protected:
    /// The log goes on while other pages are shown: it is asked for again.
    void showEvent(QShowEvent* pEvent) override;

private:
    using Param = UserLogical::IUserManagerObserve::Param;
    void OnConnectionChanged(bool bConnected) override;
    void OnRightsChanged() override;

    void SetUpFilters();
    void SetUpButtons();
    void SetUpList();
    void SetUpShortcuts();
    void SetUpExport();

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

    void UpdateButtons();

    std::unique_ptr<Ui::CAuditLogCtrl> m_pUi;
    CAuditModel* m_pModel;
    CAuditExport* m_pExport;
    UserLogical::AuditRequest_t m_request; ///< whose entries are shown
    QPointer<VxGUI::VxWaitDialog> m_pWaitDialog;
    Common::CCalls<UserLogical::IUserManagerObserve> m_calls;
};

} // namespace PlatformConfigUI

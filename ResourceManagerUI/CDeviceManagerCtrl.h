#pragma once

#include <common/CPage.h>

#include <QFuture>
#include <QPointer>

#include <map>
#include <memory>
#include <set>

class QAbstractButton;
class QMovie;
namespace Ui {
class CDeviceManagerCtrl;
}
namespace UICommonMdl {
class ILocalConfig;
} // namespace UICommonMdl
namespace VxGUI {
class VxWaitDialog;
}
namespace Common {
class CRowButtonDelegate;
}

namespace ResourceManagerUI {

class CAutoSearchOnlineDev;
class CDevAdd;
class CDevImport;
class CDeviceModel;
class CDeviceTableHeader;

/// The device page: organisation tree, paged table of devices with its filters, and the operations on them.
/// User-interface thread.
class CDeviceManagerCtrl : public Common::CPage
{
    Q_OBJECT

public:
    /// What the buttons of a row do.
    enum RowRole : int
    {
        RoleDetails = 1,
        RoleEdit,
        RoleMoveTo,
        RoleDelete,
        RoleAccess ///< in the context menu only
    };
    using GroupParam = GroupLogical::IGroupManagerObserver::Param;
    using GroupAnswer = GroupLogical::IGroupManagerObserver::Answer;
    using RemoteParam = RemoteConfigLogical::IRemoteDeviceObserver::Param;

    /// pInterfaceSet is borrowed and outlives the page. A manager that it lacks leaves its part of the page
    /// in the failed state.
    explicit CDeviceManagerCtrl(UICommonMdl::CInterfaceSetManager* pInterfaceSet, QWidget* pParent = nullptr);
    /// Waits for an export file that is being written.
    ~CDeviceManagerCtrl() override;

Q_SIGNALS:
    void SignalGetDeviceType();
    /// The export file is written; sError is empty on success. Emitted on the writing thread.
    void SignalExportFinished(const QString& sError);

private:
    void OnConnectionChanged(bool bConnected) override;
    void OnRightsChanged() override;

    // Building the page.
    void SetUpTable();
    void SetUpTree();
    void SetUpCategories();
    void SetUpToolBar();
    void SetUpShortcuts();
    void SetUpObservers();
    void SetUpDevices();
    void SetUpDiscovery();
    void RestoreLayout();

    // Pushes.
    void OnDeviceStates(const RemoteParam& param);
    void OnDisconnectCms();
    void OnReconnectCms();
    void OnQueryTimer();

    // Queries.
    void QueryAll();
    void QueryOrganizations();
    void QueryCurrentPage();
    void ShowLoading();
    void QueryLater(bool bOrganizations, bool bDevices);
    void OnGetDevType();
    void OnDevicePage(const GroupParam& param);
    void ShowDevicePage(const GroupParam& param);
    void ShowTableState(int nErrorCode);
    GroupLogical::DevicePageRequest_t MakeRequest() const;

    // Filters, sorting, paging.
    void OnFilterBtnClicked();
    void OnDevTypeFilterChanged(int nCategory);
    void OnStatusTypeClick(int nOnlineState);
    void OnDeviceTableHeaderSort(int nColumn);
    void OnBtnSearchClicked();
    void OnSearchLineEdit(const QString& sText);
    void OnPageFlipQueryCurrentPage(int nPage);
    void OnTreeSelectionChanged(const QModelIndex& index);
    void SetCategory(int nCategory);
    void ShowCategories(const std::vector<int>& vecCategories);
    void QueryFirstPage();

    // The table.
    void OnCheckStateChanged(const QModelIndex& index);
    void OnTableColumnStateChanged(int nColumn, int nShown);
    void OnTableBtnClicked(const QModelIndex& index, int nRole);
    void OnTableContextMenu(const QPoint& pos);
    void OnToggleChecks();
    void UpdateSelectionButtons();
    void UpdateStatus();

    // Operations.
    void OnBtnAddClicked();
    void OnBtnImportClicked();
    void OnBtnResetPwdClicked();
    void OnBtnTimeZoneClicked();
    void OnBtnDeleteClicked();
    void OnBtnExportClicked();
    void OnBtnMoveToClicked();
    void OnBtnRefreshClicked();
    void OnTitleFirstBtnClicked();
    void OnShowNotify(const QString& sText);
    void OnSplitterMoved(int nPos, int nIndex);
    void SetPageEnabled(bool bEnabled);
    void DeleteDevices(const QStringList& listIds);
    void MoveDevices(const QStringList& listIds);
    void OnModifyDeviceOrg(const QVector<QString>& vecIds, const QString& sOrgCode);
    void OnMoveAnswer(const GroupParam& param);
    void WriteExport(const class CDeviceExport& writer);
    void OnExportAnswer(const QString& sPath, const GroupAnswer& pAnswer);
    void OnExportFinished(const QString& sError);
    void EndExport();
    void ShowDetails(const QString& sDeviceId);
    void ShowAccess(const QString& sDeviceId);

    // Adding and editing.
    void ShowForm(QWidget* pPage);
    void EditDevice(const QString& sDeviceId);
    void OnAddDevice(const GroupLogical::DeviceAddInfo_t& device);
    void OnModifyDevice(const GroupLogical::DeviceAddInfo_t& device);
    void OnFormAnswer(const GroupParam& param);
    void OnDeviceEditComplete();
    void OnImportStatueChange(bool bRunning);
    void OnShowOutcome(const QString& sText);

    // The search panel.
    void OnBtnDiscoverClicked();
    void OnExpandClicked();
    void ShowDiscovery(bool bShown);

    // Organisations.
    void OnAddOrg(const QString& sParentCode);
    void OnEditOrg(const QString& sCode, const QString& sName, const QString& sRemark);
    void OnDeleteOrg(const QString& sCode);
    void OnMoveOrg(const QString& sCode, const QString& sNewParentCode);
    void OnAddOrModifyOrgComplete(int nMode, const QString& sCode, const QString& sName);

    UICommonMdl::ILocalConfig* m_pLocalConfig;
    std::unique_ptr<Ui::CDeviceManagerCtrl> m_pUi;
    CDeviceModel* m_pModel;
    CDevAdd* m_pForm = nullptr; ///< adds and edits, in the page of the stack that is about it
    CDevImport* m_pImport = nullptr; ///< made on its first use
    CAutoSearchOnlineDev* m_pDiscovery = nullptr;
    QMovie* m_pImportMovie = nullptr;
    CDeviceTableHeader* m_pHeader = nullptr;
    Common::CRowButtonDelegate* m_pRowButtons = nullptr;
    std::map<int, QAbstractButton*> m_mapCategoryButtons;

    int m_nCategory = 0;
    int m_nOnlineState = GroupLogical::StateAll;
    int m_nSortColumn = 2;
    Qt::SortOrder m_sortOrder = Qt::DescendingOrder;
    QString m_sSearchText;
    QString m_sSelectAfterQuery; ///< organisation to select once the tree shows it

    Common::CCalls<GroupLogical::IGroupManagerObserver> m_calls;
    Common::CCalls<RemoteConfigLogical::IRemoteDeviceObserver> m_deviceCalls;
    QTimer m_queryTimer; ///< gathers pushes into one query
    bool m_bOrganizationsStale = false;
    bool m_bDevicesStale = false;
    QFuture<void> m_exportFuture;
    QPointer<VxGUI::VxWaitDialog> m_pWaitDialog;
};

} // namespace ResourceManagerUI

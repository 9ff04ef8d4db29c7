#pragma once

#include <common/CListPage.h>

class QMovie;
namespace Common {
class CFilterBar;
}
namespace VxGUI {
class VxSearchBox;
}

namespace ResourceManagerUI {

class CAutoSearchOnlineDev;
class CDevAdd;
class CDevImport;
class CDeviceDetailPage;
class CDeviceExporter;
class CDeviceListView;
class CDeviceOperations;
class COrganizationEditPage;
class COrganizationOperations;
class COrganizationTreeCtrl;

/// The device page: organisation tree, paged list of devices with its filters, and what is opened from
/// there. User-interface thread.
class CDeviceManagerCtrl : public Common::CListPage
{
    Q_OBJECT

public:
    using GroupParam = GroupLogical::IGroupManagerObserver::Param;
    using RemoteParam = RemoteConfigLogical::IRemoteDeviceObserver::Param;

    /// pInterfaceSet is borrowed and outlives the page. A manager that it lacks leaves its part of the page
    /// in the failed state.
    explicit CDeviceManagerCtrl(UICommonMdl::CInterfaceSetManager* pInterfaceSet, QWidget* pParent = nullptr);

private:
    void Query() override;
    void QueryAll() override;
    void QueryStale() override;
    bool IsFiltered() const override;
    bool CanClearFilters() const override { return true; }
    void ClearFilters() override;
    void OnConnectionChanged(bool bConnected) override;
    void ApplyRights() override;

    // Building the page.
    void SetUpFrame();
    void SetUpToolBar();
    void SetUpCategories();
    void SetUpList();
    void SetUpTree();
    void SetUpForm();
    void SetUpDiscovery();
    void SetUpPushes();

    // Queries.
    void QueryCategories();
    void OnDevicePage(const GroupParam& param);
    void OnDeviceStates(const RemoteParam& param);
    GroupLogical::DevicePageRequest_t MakeRequest() const;

    // Filters.
    void SetCategory(int nCategory);
    void ShowCategories(const std::vector<int>& vecCategories);
    void OnStatusTypeClick(int nOnlineState);
    void OnBtnSearchClicked();
    void OnTreeSelectionChanged();
    void TellOrganizations();

    // What is opened.
    QStringList GetCheckedIds() const;
    void OnOperation(int nRole, const QString& sDeviceId);
    void ShowDetails(const QString& sDeviceId);
    void ShowForm(QWidget* pPage);
    void OnBtnAddClicked();
    void EditDevice(const QString& sDeviceId);
    void OnDeviceEditComplete();
    void OnBtnImportClicked();
    void OnImportStatueChange(bool bRunning);

    CDeviceListView* m_pList;
    COrganizationTreeCtrl* m_pTree;
    Common::CFilterBar* m_pCategories;
    VxGUI::VxSearchBox* m_pSearch;
    COrganizationEditPage* m_pOrgPage;
    CDeviceDetailPage* m_pDetailPage;
    QWidget* m_pEditPage;
    QWidget* m_pAddPage;
    CDevAdd* m_pForm; ///< adds and edits, in the page that is about it
    CAutoSearchOnlineDev* m_pDiscovery;
    CDevImport* m_pImport = nullptr; ///< made on its first use
    QMovie* m_pImportMovie = nullptr;
    COrganizationOperations* m_pOrganizations;
    CDeviceOperations* m_pOperations;
    CDeviceExporter* m_pExporter;

    int m_nOnlineState = GroupLogical::StateAll;
    QString m_sSearchText;
    bool m_bOrganizationsStale = false;

    Common::CCalls<GroupLogical::IGroupManagerObserver> m_calls;
    Common::CCalls<RemoteConfigLogical::IRemoteDeviceObserver> m_deviceCalls;
};

} // namespace ResourceManagerUI

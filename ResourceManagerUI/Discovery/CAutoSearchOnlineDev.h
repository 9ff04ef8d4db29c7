#pragma once

#include <common/CCalls.h>

#include <QWidget>

#include <memory>

class QSortFilterProxyModel;
namespace Ui {
class CAutoSearchOnlineDev;
}
namespace UICommonMdl {
class ILocalConfig;
} // namespace UICommonMdl

namespace ResourceManagerUI {

class COnlineDeviceModel;

/// The search panel: finds devices between two addresses or on the local network, and hands found ones to
/// their initialisation, a change of address, or into management. User-interface thread.
class CAutoSearchOnlineDev : public QWidget
{
    Q_OBJECT

public:
    /// pInterfaceSet is borrowed and outlives the panel.
    explicit CAutoSearchOnlineDev(
        UICommonMdl::CInterfaceSetManager* pInterfaceSet, QWidget* pParent = nullptr);
    ~CAutoSearchOnlineDev() override;

    /// While the connection is lost the panel is disabled; what was found stays.
    void SetConnected(bool bConnected);
    /// The organisations that found devices can be added to, and the one that is proposed.
    void SetOrganizations(
        const std::vector<GroupLogical::Organization_t>& vecOrganizations, const QString& sSelected);

Q_SIGNALS:
    void SignalShowNotify(QString sText);
    /// Found devices were added, or their adding ended.
    void SignalDevicesAdded();

protected:
    void showEvent(QShowEvent* pEvent) override;

private:
    using Param = RemoteConfigLogical::IRemoteDeviceObserver::Param;

    // Building the panel.
    void SetUpTable();
    void SetUpRange();
    void SetUpButtons();
    void SetLocalNetworkSection();

    // The search.
    void OnBtnSearchClicked();
    void StartSearch();
    void StopSearch();
    void OnSearchReport(const Param& param);
    void ShowState();
    void ShowChecks();

    // What is done with found devices.
    void OnBtnInitializeClicked();
    void OnBtnModifyIpClicked();
    void OnBtnAddClicked();
    void OnOperationClicked(const QModelIndex& index, int nRole);
    void OpenInitialize(const RemoteConfigLogical::SearchDeviceInfoVec& vecDevices);
    void OpenModifyIp(
        const RemoteConfigLogical::SearchDeviceInfoVec& vecDevices, const QString& sNewIp = QString());
    void OpenAdd(const RemoteConfigLogical::SearchDeviceInfoVec& vecDevices);

    std::unique_ptr<Ui::CAutoSearchOnlineDev> m_pUi;
    UICommonMdl::CInterfaceSetManager* m_pInterfaceSet;
    UICommonMdl::ILocalConfig* m_pLocalConfig;
    COnlineDeviceModel* m_pModel;
    QSortFilterProxyModel* m_pSorted;
    std::vector<GroupLogical::Organization_t> m_vecOrganizations;
    QString m_sOrgCode;
    bool m_bShown = false; ///< the panel was on the screen
    bool m_bConnected = true;
    bool m_bSearched = false;
    int m_nSearch = 0; ///< number of the search that runs; 0: none
    bool m_bFailed = false; ///< the last search failed
    int m_nSearchError = 0; ///< UICommonMdl::ErrorCode of that
    Common::CCalls<RemoteConfigLogical::IRemoteDeviceObserver> m_calls;
};

} // namespace ResourceManagerUI

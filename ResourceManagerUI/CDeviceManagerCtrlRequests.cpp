#include "CDeviceManagerCtrl.h"

#include "CDeviceAccessDlg.h"
#include "CDeviceModel.h"
#include "CDeviceTableHeader.h"
#include "DeviceEdit/CDevAdd.h"
#include "DeviceRules.h"
#include "Discovery/CAutoSearchOnlineDev.h"
#include "ui_CDeviceManagerCtrl.h"

#include <UICommonMdl/CErrorCode.h>

#include <QScrollBar>

namespace ResourceManagerUI {

using GroupLogical::IGroupManager;

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CDeviceManagerCtrl)
};

constexpr const char* RightExport = "004002";

} // namespace

void CDeviceManagerCtrl::OnConnectionChanged(bool bConnected)
{
    if (bConnected)
        OnReconnectCms();
    else
        OnDisconnectCms();
}

void CDeviceManagerCtrl::OnRightsChanged()
{
    const bool bMayExport = HasRight(RightExport);
    m_pUi->btnExport->setEnabled(bMayExport);
    m_pUi->btnExport->setToolTip(
        bMayExport ? QString() : Text::tr("You have no permission to export devices."));
    m_pUi->pageDetail->SetAccessOffered(HasRight(CDeviceAccessDlg::RightNeeded));
}

void CDeviceManagerCtrl::OnDeviceStates(const RemoteParam& param)
{
    for (const RemoteConfigLogical::DeviceState_t& state : param.vecStates)
        m_pModel->UpdateState(state);
    // Under a filter of the online state rows come and go with it.
    if (m_nOnlineState != GroupLogical::StateAll)
        QueryLater(false, true);
}

void CDeviceManagerCtrl::OnDisconnectCms()
{
    m_queryTimer.stop();
    SetPageEnabled(false);
    for (QPushButton* pButton : {m_pUi->btnDelete, m_pUi->btnResetPwd, m_pUi->btnMoveTo, m_pUi->btnTimeZone})
        pButton->setEnabled(false);
    if (m_pModel->rowCount() == 0)
        ShowTableState(UICommonMdl::ErrorDisconnected);
}

void CDeviceManagerCtrl::SetPageEnabled(bool bEnabled)
{
    QWidget* const controls[] = {m_pUi->wgtOrgTree, m_pUi->wgtToolBar, m_pUi->wgtFilter, m_pUi->treeDevice,
        m_pUi->editSearch, m_pUi->wgtTableState, m_pUi->wgtTableFlip, m_pUi->pageDetail};
    for (QWidget* pControl : controls)
        pControl->setEnabled(bEnabled);
    m_pForm->SetConnected(bEnabled);
    m_pDiscovery->SetConnected(bEnabled);
}

void CDeviceManagerCtrl::OnReconnectCms()
{
    SetPageEnabled(true);
    UpdateSelectionButtons();
    QueryAll();
}

void CDeviceManagerCtrl::QueryAll()
{
    QueryOrganizations();
    Q_EMIT SignalGetDeviceType();
    // The first page is that of the organisation that the tree selects once it is there.
    if (m_pUi->wgtOrgTree->GetCurrentCode().isEmpty()
        && m_calls.IsPending<&IGroupManager::QueryOrganizations>())
        ShowLoading();
    else
        QueryCurrentPage();
}

void CDeviceManagerCtrl::ShowLoading()
{
    if (m_pModel->rowCount() > 0)
        return;
    m_pUi->wgtTableState->SetState(VxGUI::VxEmptyState::Kind::Loading, Text::tr("Loading devices"));
    m_pUi->stackTable->setCurrentWidget(m_pUi->pageState);
}

void CDeviceManagerCtrl::QueryLater(bool bOrganizations, bool bDevices)
{
    m_bOrganizationsStale = m_bOrganizationsStale || bOrganizations;
    m_bDevicesStale = m_bDevicesStale || bDevices;
    if (IsConnected() && (m_bOrganizationsStale || m_bDevicesStale) && !m_queryTimer.isActive())
        m_queryTimer.start();
}

void CDeviceManagerCtrl::OnQueryTimer()
{
    if (std::exchange(m_bOrganizationsStale, false))
        QueryOrganizations();
    if (std::exchange(m_bDevicesStale, false)) {
        Q_EMIT SignalGetDeviceType();
        QueryCurrentPage();
    }
}

void CDeviceManagerCtrl::QueryOrganizations()
{
    m_calls.Latest<&IGroupManager::QueryOrganizations>([this](const GroupParam& param) {
        if (param.nErrorCode != UICommonMdl::ErrorNone) {
            NotifyFailure(Text::tr("Failed to get organization list"), param.nErrorCode);
        } else {
            m_pUi->wgtOrgTree->SetOrganizations(param.vecOrganizations);
            m_pUi->wgtOrgTree->SelectCode(std::exchange(m_sSelectAfterQuery, QString()));
            m_pDiscovery->SetOrganizations(param.vecOrganizations, m_pUi->wgtOrgTree->GetCurrentCode());
        }
        // Without a selection in the tree nothing else asks for the devices.
        if (m_pUi->wgtOrgTree->GetCurrentCode().isEmpty())
            QueryCurrentPage();
    });
}

void CDeviceManagerCtrl::OnGetDevType()
{
    m_calls.Latest<&IGroupManager::QueryDeviceTypes>([this](const GroupParam& param) {
        if (param.nErrorCode == UICommonMdl::ErrorNone)
            ShowCategories(param.vecDeviceTypes);
    });
}

GroupLogical::DevicePageRequest_t CDeviceManagerCtrl::MakeRequest() const
{
    DeviceQuery query;
    query.nPage = m_pUi->wgtTableFlip->GetCurrentPage();
    query.nPageSize = m_pUi->wgtTableFlip->GetPageSize();
    query.sOrgCode = m_pUi->wgtOrgTree->GetCurrentCode();
    query.nSortColumn = m_nSortColumn;
    query.sortOrder = m_sortOrder;
    query.nOnlineState = m_nOnlineState;
    query.nCategory = m_nCategory;
    query.sSearchText = m_sSearchText;
    return BuildPageRequest(query);
}

void CDeviceManagerCtrl::QueryCurrentPage()
{
    m_calls.Latest<&IGroupManager::QueryDevicePage>(
        MakeRequest(), [this](const GroupParam& param) { OnDevicePage(param); });
    ShowLoading();
}

void CDeviceManagerCtrl::OnDevicePage(const GroupParam& param)
{
    if (param.nErrorCode == UICommonMdl::ErrorNone) {
        ShowDevicePage(param);
        return;
    }
    NotifyFailure(Text::tr("Failed to get device list"), param.nErrorCode);
    // While the connection is lost the rows of before stay, with their checks.
    if (param.nErrorCode == UICommonMdl::ErrorDisconnected && m_pModel->rowCount() > 0)
        return;
    m_pModel->SetDevices({});
    ShowTableState(param.nErrorCode);
    UpdateSelectionButtons();
    UpdateStatus();
}

void CDeviceManagerCtrl::ShowDevicePage(const GroupParam& param)
{
    QTreeView* pTable = m_pUi->treeDevice;
    const QString sCurrent = m_pModel->GetId(pTable->currentIndex().row());
    QStringList listSelected;
    for (const QModelIndex& index : pTable->selectionModel()->selectedRows())
        listSelected.append(m_pModel->GetId(index.row()));
    const int nScroll = pTable->verticalScrollBar()->value();

    m_pModel->SetDevices(param.devicePage.vecDevices);
    QItemSelection selection;
    for (const QString& sId : qAsConst(listSelected)) {
        const QModelIndex index = m_pModel->index(m_pModel->FindRow(sId), 0);
        selection.select(index, index);
    }
    const int nCurrent = m_pModel->FindRow(sCurrent);
    if (nCurrent >= 0) {
        pTable->selectionModel()->setCurrentIndex(
            m_pModel->index(nCurrent, ColumnName), QItemSelectionModel::NoUpdate);
        pTable->verticalScrollBar()->setValue(nScroll);
    }
    if (!selection.isEmpty())
        pTable->selectionModel()->select(selection, QItemSelectionModel::Select | QItemSelectionModel::Rows);

    m_pUi->wgtTableFlip->SetTotalCount(param.devicePage.nTotal);
    m_pUi->wgtTableFlip->SetCurrentPage(param.devicePage.nPage);
    ShowTableState(UICommonMdl::ErrorNone);
    UpdateSelectionButtons();
    UpdateStatus();
}

void CDeviceManagerCtrl::ShowTableState(int nErrorCode)
{
    using Kind = VxGUI::VxEmptyState::Kind;
    VxGUI::VxEmptyState* pState = m_pUi->wgtTableState;
    const QString sRefresh = Text::tr("Refresh");
    if (nErrorCode == UICommonMdl::ErrorNoRight) {
        pState->SetState(Kind::NoPermission, Text::tr("You have no permission to see devices."));
    } else if (nErrorCode != UICommonMdl::ErrorNone) {
        pState->SetState(Kind::Failed, Text::tr("Failed to get device list"),
            UICommonMdl::CErrorCode::GetErroCodeInfor(nErrorCode), sRefresh);
    } else if (m_pModel->rowCount() > 0) {
        m_pUi->stackTable->setCurrentWidget(m_pUi->pageTable);
        return;
    } else if (m_nCategory != 0 || m_nOnlineState != GroupLogical::StateAll || !m_sSearchText.isEmpty()) {
        pState->SetState(Kind::Empty, Text::tr("No device matches the filters."));
    } else {
        pState->SetState(Kind::Empty, Text::tr("There is no device in this organization."));
    }
    m_pUi->stackTable->setCurrentWidget(m_pUi->pageState);
}

} // namespace ResourceManagerUI

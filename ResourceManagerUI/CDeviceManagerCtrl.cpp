#include "CDeviceManagerCtrl.h"

#include "CBatchDeleteDeviceDlg.h"
#include "CDevMove.h"
#include "CDeviceAccessDlg.h"
#include "CDeviceExport.h"
#include "CDeviceModel.h"
#include "CDeviceTableHeader.h"
#include "DeviceRules.h"
#include "Discovery/CAutoSearchOnlineDev.h"
#include "ui_CDeviceManagerCtrl.h"

#include <UICommonMdl/CErrorCode.h>
#include <UICommonMdl/ILocalConfig.h>
#include <VxGUI/VxDialogService.h>
#include <VxGUI/VxWaitDialog.h>
#include <common/CRowButtonDelegate.h>
#include <common/Prompt.h>

#include <QMenu>
#include <QtConcurrent>

namespace ResourceManagerUI {

using GroupLogical::IGroupManager;

namespace {
struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CDeviceManagerCtrl)
};
} // namespace

void CDeviceManagerCtrl::OnFilterBtnClicked()
{
    for (const auto& [nCategory, pButton] : m_mapCategoryButtons) {
        if (pButton == sender()) {
            SetCategory(nCategory);
            return;
        }
    }
}

void CDeviceManagerCtrl::OnDevTypeFilterChanged(int nCategory)
{
    SetCategory(nCategory);
}

void CDeviceManagerCtrl::SetCategory(int nCategory)
{
    m_nCategory = nCategory;
    const auto it = m_mapCategoryButtons.find(nCategory);
    if (it != m_mapCategoryButtons.end()) {
        it->second->setChecked(true);
    } else {
        // A category of the header's list without a button of its own: no button is the chosen one.
        for (const auto& [nOther, pButton] : m_mapCategoryButtons) {
            pButton->setAutoExclusive(false);
            pButton->setChecked(false);
            pButton->setAutoExclusive(true);
        }
    }
    m_pHeader->SetFilterValue(ColumnType, nCategory);
    QueryFirstPage();
}

void CDeviceManagerCtrl::ShowCategories(const std::vector<int>& vecCategories)
{
    for (const auto& [nCategory, pButton] : m_mapCategoryButtons) {
        const bool bReported =
            std::find(vecCategories.begin(), vecCategories.end(), nCategory) != vecCategories.end();
        pButton->setVisible(nCategory == 0 || nCategory == m_nCategory || bReported);
    }
    m_pHeader->SetCategories(vecCategories);
}

void CDeviceManagerCtrl::OnStatusTypeClick(int nOnlineState)
{
    m_nOnlineState = nOnlineState;
    m_pHeader->SetFilterValue(ColumnOnline, nOnlineState);
    QueryFirstPage();
}

void CDeviceManagerCtrl::OnDeviceTableHeaderSort(int nColumn)
{
    if (nColumn != ColumnCheck && nColumn != ColumnOperation) {
        m_nSortColumn = nColumn;
        m_sortOrder = m_pHeader->sortIndicatorOrder();
    }
    m_pHeader->setSortIndicator(m_nSortColumn, m_sortOrder);
    if (nColumn == m_nSortColumn)
        QueryCurrentPage();
}

void CDeviceManagerCtrl::OnBtnSearchClicked()
{
    OnSearchLineEdit(m_pUi->editSearch->text());
}

void CDeviceManagerCtrl::OnSearchLineEdit(const QString& sText)
{
    m_sSearchText = sText.trimmed();
    QueryFirstPage();
}

void CDeviceManagerCtrl::QueryFirstPage()
{
    m_pUi->wgtTableFlip->SetCurrentPage(1);
    QueryCurrentPage();
}

void CDeviceManagerCtrl::OnPageFlipQueryCurrentPage(int nPage)
{
    m_pUi->wgtTableFlip->SetCurrentPage(nPage);
    QueryCurrentPage();
}

void CDeviceManagerCtrl::OnTreeSelectionChanged(const QModelIndex&)
{
    m_pDiscovery->SetOrganizations(
        m_pUi->wgtOrgTree->GetModel()->GetOrganizations(), m_pUi->wgtOrgTree->GetCurrentCode());
    QueryFirstPage();
}

void CDeviceManagerCtrl::OnCheckStateChanged(const QModelIndex&)
{
    UpdateSelectionButtons();
    UpdateStatus();
}

void CDeviceManagerCtrl::UpdateSelectionButtons()
{
    const Qt::CheckState summary = m_pModel->GetCheckSummary();
    m_pHeader->SetCheckState(summary);
    for (QPushButton* pButton : {m_pUi->btnDelete, m_pUi->btnResetPwd, m_pUi->btnMoveTo, m_pUi->btnTimeZone})
        pButton->setEnabled(IsConnected() && summary != Qt::Unchecked);
}

void CDeviceManagerCtrl::UpdateStatus()
{
    m_pUi->lbStatus->setText(Text::tr("Devices: %1, checked: %2")
                                 .arg(m_pUi->wgtTableFlip->GetTotalCount())
                                 .arg(m_pModel->GetCheckedIds().size()));
}

void CDeviceManagerCtrl::OnTableColumnStateChanged(int, int)
{
    if (!m_pLocalConfig)
        return;
    QStringList listHidden;
    for (int nColumn = 0; nColumn < ColumnCount; ++nColumn) {
        if (m_pHeader->isSectionHidden(nColumn))
            listHidden.append(QString::number(nColumn));
    }
    m_pLocalConfig->SetValue(
        QStringLiteral("DeviceManager/HiddenColumns"), listHidden.join(QLatin1Char(',')));
}

void CDeviceManagerCtrl::OnTableBtnClicked(const QModelIndex& index, int nRole)
{
    const QString sId = m_pModel->GetId(index.row());
    if (nRole == RoleDetails)
        ShowDetails(sId);
    else if (nRole == RoleEdit)
        EditDevice(sId);
    else if (nRole == RoleMoveTo)
        MoveDevices({sId});
    else if (nRole == RoleDelete)
        DeleteDevices({sId});
    else if (nRole == RoleAccess)
        ShowAccess(sId);
}

void CDeviceManagerCtrl::OnTableContextMenu(const QPoint& pos)
{
    const QModelIndex index = m_pUi->treeDevice->indexAt(pos);
    if (!index.isValid())
        return;
    auto* pMenu = new QMenu(this);
    pMenu->setObjectName(QStringLiteral("menuDevice"));
    pMenu->setAttribute(Qt::WA_DeleteOnClose);
    QVector<std::pair<int, QString>> vecEntries{{RoleDetails, Text::tr("Details")},
        {RoleEdit, Text::tr("Edit")}, {RoleMoveTo, Text::tr("Move To")}, {RoleDelete, Text::tr("Delete")}};
    if (HasRight(CDeviceAccessDlg::RightNeeded))
        vecEntries.append({RoleAccess, Text::tr("Who Has Access")});
    for (const auto& [nRole, sText] : qAsConst(vecEntries)) {
        QAction* pAction = pMenu->addAction(sText);
        connect(
            pAction, &QAction::triggered, this, [this, nRole = nRole, sId = m_pModel->GetId(index.row())] {
                const int nRow = m_pModel->FindRow(sId);
                if (nRow >= 0)
                    OnTableBtnClicked(m_pModel->index(nRow, ColumnOperation), nRole);
            });
    }
    pMenu->popup(m_pUi->treeDevice->viewport()->mapToGlobal(pos));
}

void CDeviceManagerCtrl::OnToggleChecks()
{
    const QModelIndexList listRows = m_pUi->treeDevice->selectionModel()->selectedRows(ColumnCheck);
    if (listRows.isEmpty())
        return;
    const bool bCheck = listRows.first().data(Qt::CheckStateRole).toInt() != Qt::Checked;
    for (const QModelIndex& index : listRows)
        m_pModel->setData(index, bCheck ? Qt::Checked : Qt::Unchecked, Qt::CheckStateRole);
}

void CDeviceManagerCtrl::OnBtnDeleteClicked()
{
    DeleteDevices(m_pModel->GetCheckedIds());
}

void CDeviceManagerCtrl::DeleteDevices(const QStringList& listIds)
{
    if (listIds.isEmpty()) {
        OnShowNotify(Text::tr("You must select an item at least."));
        return;
    }
    const QString sQuestion = listIds.size() == 1 ? Text::tr("Are you sure to delete the device?")
                                                  : Text::tr("Are you sure to delete these devices?");
    if (!Common::AskPrompt(this, sQuestion))
        return;
    QHash<QString, QString> mapNames;
    for (const QString& sId : listIds)
        mapNames.insert(sId, m_pModel->index(m_pModel->FindRow(sId), ColumnName).data().toString());
    auto* pDialog = new CBatchDeleteDeviceDlg(
        GetInterfaceSet(), GroupLogical::DeleteNormal, listIds.toVector(), mapNames, this);
    connect(pDialog, &QDialog::finished, this, &CDeviceManagerCtrl::QueryCurrentPage);
    pDialog->open();
    pDialog->Start();
}

void CDeviceManagerCtrl::OnBtnMoveToClicked()
{
    MoveDevices(m_pModel->GetCheckedIds());
}

void CDeviceManagerCtrl::MoveDevices(const QStringList& listIds)
{
    auto* pDialog = new CDevMove(m_pUi->wgtOrgTree->GetModel()->GetOrganizations(), listIds, this);
    connect(pDialog, &CDevMove::SignalShowNotify, this, &CDeviceManagerCtrl::OnShowNotify);
    connect(pDialog, &CDevMove::SignalMove, this, &CDeviceManagerCtrl::OnModifyDeviceOrg);
    pDialog->open();
}

void CDeviceManagerCtrl::OnModifyDeviceOrg(const QVector<QString>& vecIds, const QString& sOrgCode)
{
    std::vector<std::string> vecDeviceIds;
    for (const QString& sId : vecIds)
        vecDeviceIds.push_back(sId.toStdString());
    m_calls.Each<&IGroupManager::MoveDevice>(
        vecDeviceIds, sOrgCode.toStdString(), [this](const GroupParam& param) { OnMoveAnswer(param); });
}

void CDeviceManagerCtrl::OnMoveAnswer(const GroupParam& param)
{
    QueryCurrentPage();
    // Last: the page may be gone when the message is closed.
    if (!param.vecFailed.empty()) {
        QStringList listLines;
        for (const GroupLogical::FailedItem_t& item : param.vecFailed)
            listLines.append(QString::fromStdString(item.sName) + QStringLiteral(": ")
                + UICommonMdl::CErrorCode::GetErroCodeInfor(item.nErrorCode));
        WhenShown(
            [this, listLines] { Common::ShowFailures(this, Text::tr("Failed to move device"), listLines); });
    } else if (param.nErrorCode != UICommonMdl::ErrorNone) {
        NotifyFailure(Text::tr("Failed to move device"), param.nErrorCode);
    }
}

void CDeviceManagerCtrl::OnBtnRefreshClicked()
{
    QueryAll();
}

void CDeviceManagerCtrl::OnBtnExportClicked()
{
    QString sPath = VxGUI::VxDialogService::Current()->SaveFile(
        this, Text::tr("Export"), QStringLiteral("devices.xlsx"), QStringLiteral("*.xlsx"));
    if (sPath.isEmpty())
        return;
    if (!sPath.endsWith(QStringLiteral(".xlsx"), Qt::CaseInsensitive))
        sPath += QStringLiteral(".xlsx");
    m_calls.Latest<&IGroupManager::ExportDevice>(
        MakeRequest(), [this, sPath](const GroupAnswer& pAnswer) { OnExportAnswer(sPath, pAnswer); });
    m_pWaitDialog = new VxGUI::VxWaitDialog(Text::tr("Exporting devices"), this);
    m_pWaitDialog->setAttribute(Qt::WA_DeleteOnClose);
    m_pWaitDialog->SetProgress(-1);
    m_pWaitDialog->SetCancellable(false);
    m_pWaitDialog->open();
}

void CDeviceManagerCtrl::OnExportAnswer(const QString& sPath, const GroupAnswer& pAnswer)
{
    if (pAnswer->nErrorCode != UICommonMdl::ErrorNone) {
        EndExport();
        NotifyFailure(Text::tr("Failed to export device info"), pAnswer->nErrorCode);
        return;
    }
    QVector<int> vecColumns;
    QStringList listHeader;
    for (int nColumn = ColumnId; nColumn < ColumnOperation; ++nColumn) {
        if (m_pHeader->isSectionHidden(nColumn))
            continue;
        vecColumns.append(nColumn);
        listHeader.append(m_pModel->GetColumns()[nColumn].sHeader);
    }
    m_exportFuture = QtConcurrent::run(
        this, &CDeviceManagerCtrl::WriteExport, CDeviceExport(sPath, vecColumns, listHeader, pAnswer));
}

void CDeviceManagerCtrl::WriteExport(const CDeviceExport& writer)
{
    Q_EMIT SignalExportFinished(writer.Write());
}

void CDeviceManagerCtrl::OnExportFinished(const QString& sError)
{
    EndExport();
    if (sError.isEmpty())
        Notify(Text::tr("Devices are exported."), VxGUI::NotificationKind::Success);
    else
        Notify(Text::tr("Failed to export device info") + QStringLiteral(": ") + sError,
            VxGUI::NotificationKind::Error);
}

void CDeviceManagerCtrl::EndExport()
{
    if (m_pWaitDialog)
        m_pWaitDialog->accept();
}

void CDeviceManagerCtrl::OnTitleFirstBtnClicked()
{
    m_pUi->stackedWidget->setCurrentWidget(m_pUi->pageDevice);
}

void CDeviceManagerCtrl::OnShowNotify(const QString& sText)
{
    Notify(sText, VxGUI::NotificationKind::Warning);
}

void CDeviceManagerCtrl::OnSplitterMoved(int, int)
{
    if (m_pLocalConfig)
        m_pLocalConfig->SetValue(
            QStringLiteral("DeviceManager/TreeWidth"), m_pUi->splitter->sizes().value(0));
}

void CDeviceManagerCtrl::OnAddOrg(const QString& sParentCode)
{
    const GroupLogical::Organization_t* pParent =
        m_pUi->wgtOrgTree->GetModel()->FindOrganization(sParentCode);
    if (!pParent)
        return;
    m_pUi->stackedWidget->setCurrentWidget(m_pUi->pageOrg);
    m_pUi->pageOrg->BeginAdd(*pParent);
}

void CDeviceManagerCtrl::OnEditOrg(const QString& sCode, const QString&, const QString&)
{
    const Common::COrganizationModel* pModel = m_pUi->wgtOrgTree->GetModel();
    const GroupLogical::Organization_t* pOrganization = pModel->FindOrganization(sCode);
    if (!pOrganization)
        return;
    m_pUi->stackedWidget->setCurrentWidget(m_pUi->pageOrg);
    m_pUi->pageOrg->BeginModify(*pOrganization, pModel->FindCode(sCode).parent().data().toString());
}

void CDeviceManagerCtrl::OnDeleteOrg(const QString& sCode)
{
    const QString sPrefix =
        QCoreApplication::translate("COrganizationTreeCtrl", "Failed to delete the organization ");
    m_calls.Each<&IGroupManager::DeleteOrganization>(
        sCode.toStdString(), [this, sPrefix](const GroupParam& param) {
            if (param.nErrorCode != UICommonMdl::ErrorNone)
                Notify(sPrefix + UICommonMdl::CErrorCode::GetErroCodeInfor(param.nErrorCode),
                    VxGUI::NotificationKind::Error);
            QueryOrganizations();
        });
}

void CDeviceManagerCtrl::OnMoveOrg(const QString& sCode, const QString& sNewParentCode)
{
    m_calls.Each<&IGroupManager::MoveOrganization>(
        sCode.toStdString(), sNewParentCode.toStdString(), [this](const GroupParam& param) {
            if (param.nErrorCode != UICommonMdl::ErrorNone)
                NotifyFailure(Text::tr("Failed to move organization"), param.nErrorCode);
            QueryOrganizations();
        });
}

void CDeviceManagerCtrl::OnAddOrModifyOrgComplete(int nMode, const QString& sCode, const QString&)
{
    OnTitleFirstBtnClicked();
    if (nMode == COrganizationEditPage::ModeAdd)
        m_sSelectAfterQuery = sCode;
    QueryOrganizations();
}

} // namespace ResourceManagerUI

#include "CDeviceManagerCtrl.h"

#include "CDeviceAccessDlg.h"
#include "CDeviceModel.h"
#include "DeviceEdit/CDevAdd.h"
#include "DeviceImport/CDevImport.h"
#include "DeviceSettings/CBulkResetPassword.h"
#include "DeviceSettings/CDevTimeZone.h"
#include "Discovery/CAutoSearchOnlineDev.h"
#include "ui_CDeviceManagerCtrl.h"

#include <Trv/QSkin.h>
#include <UICommonMdl/ILocalConfig.h>

#include <QMovie>

namespace ResourceManagerUI {

namespace {
struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CDeviceManagerCtrl)
};
} // namespace

void CDeviceManagerCtrl::SetUpDevices()
{
    m_pForm = new CDevAdd(GetInterfaceSet(), m_pUi->pageAddDevice);
    m_pUi->layAddDevice->addWidget(m_pForm);
    connect(m_pForm, &CDevAdd::SignalAddDevice, this, &CDeviceManagerCtrl::OnAddDevice);
    connect(m_pForm, &CDevAdd::SignalModifyDevice, this, &CDeviceManagerCtrl::OnModifyDevice);
    connect(m_pForm, &CDevAdd::SignalEditComplete, this, &CDeviceManagerCtrl::OnDeviceEditComplete);
    connect(m_pForm, &CDevAdd::SignalFirstBtnClicked, this, &CDeviceManagerCtrl::OnTitleFirstBtnClicked);
    connect(m_pForm, &CDevAdd::SignalShowNotify, this, &CDeviceManagerCtrl::OnShowNotify);
    connect(m_pUi->btnAdd, &QAbstractButton::clicked, this, &CDeviceManagerCtrl::OnBtnAddClicked);
    connect(m_pUi->btnImport, &QAbstractButton::clicked, this, &CDeviceManagerCtrl::OnBtnImportClicked);
    connect(m_pUi->btnResetPwd, &QAbstractButton::clicked, this, &CDeviceManagerCtrl::OnBtnResetPwdClicked);
    connect(m_pUi->btnTimeZone, &QAbstractButton::clicked, this, &CDeviceManagerCtrl::OnBtnTimeZoneClicked);
}

void CDeviceManagerCtrl::SetUpDiscovery()
{
    m_pDiscovery = new CAutoSearchOnlineDev(GetInterfaceSet(), m_pUi->wgtDiscovery);
    m_pUi->layDiscovery->addWidget(m_pDiscovery);
    connect(m_pDiscovery, &CAutoSearchOnlineDev::SignalShowNotify, this, &CDeviceManagerCtrl::OnShowNotify);
    connect(
        m_pDiscovery, &CAutoSearchOnlineDev::SignalDevicesAdded, this, [this] { QueryLater(false, true); });
    connect(m_pUi->btnDiscover, &QAbstractButton::clicked, this, &CDeviceManagerCtrl::OnBtnDiscoverClicked);
    connect(m_pUi->btnExpand, &QAbstractButton::clicked, this, &CDeviceManagerCtrl::OnExpandClicked);
}

void CDeviceManagerCtrl::ShowDetails(const QString& sDeviceId)
{
    const int nRow = m_pModel->FindRow(sDeviceId);
    m_pUi->pageDetail->ShowDevice(sDeviceId, m_pModel->index(nRow, ColumnOrganization).data().toString());
    m_pUi->stackedWidget->setCurrentWidget(m_pUi->pageDetail);
}

void CDeviceManagerCtrl::ShowAccess(const QString& sDeviceId)
{
    const QString sName = m_pModel->index(m_pModel->FindRow(sDeviceId), ColumnName).data().toString();
    (new CDeviceAccessDlg(GetInterfaceSet(), sDeviceId, sName, this))->Start();
}

void CDeviceManagerCtrl::ShowForm(QWidget* pPage)
{
    // One form serves both pages; the page on the screen holds it.
    pPage->layout()->addWidget(m_pForm);
    m_pUi->stackedWidget->setCurrentWidget(pPage);
}

void CDeviceManagerCtrl::OnBtnAddClicked()
{
    ShowForm(m_pUi->pageAddDevice);
    m_pForm->StartAdd(m_pUi->wgtOrgTree->GetModel()->GetOrganizations(), m_pUi->wgtOrgTree->GetCurrentCode());
}

void CDeviceManagerCtrl::EditDevice(const QString& sDeviceId)
{
    ShowForm(m_pUi->pageEdit);
    m_pForm->StartEdit(sDeviceId, m_pUi->wgtOrgTree->GetModel()->GetOrganizations());
}

void CDeviceManagerCtrl::OnAddDevice(const GroupLogical::DeviceAddInfo_t& device)
{
    m_calls.Latest<&GroupLogical::IGroupManager::AddDevice>(
        device, [this](const GroupParam& param) { OnFormAnswer(param); });
}

void CDeviceManagerCtrl::OnModifyDevice(const GroupLogical::DeviceAddInfo_t& device)
{
    m_calls.Latest<&GroupLogical::IGroupManager::ModifyDevice>(
        device, [this](const GroupParam& param) { OnFormAnswer(param); });
}

void CDeviceManagerCtrl::OnFormAnswer(const GroupParam& param)
{
    m_pForm->SetAnswer(param.nErrorCode, param.sErrorDetail, param.vecFailed);
}

void CDeviceManagerCtrl::OnDeviceEditComplete()
{
    OnTitleFirstBtnClicked();
    QueryAll();
}

void CDeviceManagerCtrl::OnBtnImportClicked()
{
    if (!m_pImport) {
        m_pImport = new CDevImport(GetInterfaceSet(), this);
        connect(m_pImport, &CDevImport::SignalImportStatue, this, &CDeviceManagerCtrl::OnImportStatueChange);
        connect(m_pImport, &CDevImport::SignalShowNotify, this, &CDeviceManagerCtrl::OnShowOutcome);
        connect(m_pImport, &CDevImport::SignalImported, this, [this] { QueryLater(false, true); });
    }
    const QString sOrgCode = m_pUi->wgtOrgTree->GetCurrentCode();
    const GroupLogical::Organization_t* const pOrganization =
        m_pUi->wgtOrgTree->GetModel()->FindOrganization(sOrgCode);
    m_pImport->SetOrganization(
        sOrgCode, pOrganization ? QString::fromStdString(pOrganization->sName) : QString());
    m_pImport->open();
}

void CDeviceManagerCtrl::OnImportStatueChange(bool bRunning)
{
    QPushButton* const pButton = m_pUi->btnImport;
    if (!m_pImportMovie) {
        m_pImportMovie = new QMovie(this);
        m_pImportMovie->setFileName(Trv::GetSkinPath(
            QStringLiteral("import.gif"), QStringLiteral("ResourceManagerUI/DeviceManager")));
        connect(m_pImportMovie, &QMovie::frameChanged, pButton,
            [this, pButton] { pButton->setIcon(QIcon(m_pImportMovie->currentPixmap())); });
    }
    pButton->setProperty("Gif", bRunning ? QStringLiteral("import.gif") : QString());
    if (bRunning) {
        m_pImportMovie->start();
    } else {
        m_pImportMovie->stop();
        pButton->setIcon(Trv::GetIcon(QStringLiteral("import")));
    }
}

void CDeviceManagerCtrl::OnBtnResetPwdClicked()
{
    const QStringList listIds = m_pModel->GetCheckedIds();
    if (listIds.isEmpty()) {
        OnShowNotify(Text::tr("You must select an item at least."));
        return;
    }
    auto* const pDialog = new CBulkResetPassword(GetInterfaceSet(), listIds, this);
    connect(pDialog, &CBulkResetPassword::SignalShowNotify, this, &CDeviceManagerCtrl::OnShowOutcome);
    pDialog->open();
}

void CDeviceManagerCtrl::OnBtnTimeZoneClicked()
{
    CDevTimeZone::Devices vecDevices;
    for (const QString& sId : m_pModel->GetCheckedIds())
        vecDevices.append({sId, m_pModel->index(m_pModel->FindRow(sId), ColumnName).data().toString()});
    if (vecDevices.isEmpty()) {
        OnShowNotify(Text::tr("You must select an item at least."));
        return;
    }
    auto* const pDialog = new CDevTimeZone(GetInterfaceSet(), vecDevices, this);
    connect(pDialog, &CDevTimeZone::SignalShowNotify, this, &CDeviceManagerCtrl::OnShowNotify);
    pDialog->Start();
}

void CDeviceManagerCtrl::OnShowOutcome(const QString& sText)
{
    // Good news or bad: the dialog tells it in words.
    Notify(sText, VxGUI::NotificationKind::Information);
}

void CDeviceManagerCtrl::OnBtnDiscoverClicked()
{
    ShowDiscovery(m_pUi->wgtDiscovery->isHidden());
}

void CDeviceManagerCtrl::OnExpandClicked()
{
    ShowDiscovery(m_pUi->wgtDiscovery->isHidden());
}

void CDeviceManagerCtrl::ShowDiscovery(bool bShown)
{
    m_pUi->wgtDiscovery->setVisible(bShown);
    // The fold button is down while the panel is folded; what the panel would show is always the search.
    m_pUi->btnExpand->setChecked(!bShown);
    m_pUi->btnDiscover->setChecked(true);
    m_pUi->btnExpand->setArrowType(bShown ? Qt::RightArrow : Qt::LeftArrow);
    m_pUi->btnExpand->setToolTip(bShown ? Text::tr("Fold") : Text::tr("Unfold"));
    if (m_pLocalConfig)
        m_pLocalConfig->SetValue(QStringLiteral("DeviceManager/DiscoveryShown"), bShown);
}

} // namespace ResourceManagerUI

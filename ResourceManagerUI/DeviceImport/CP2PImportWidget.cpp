#include "CP2PImportWidget.h"

#include "ImportRules.h"
#include "ui_CP2PImportWidget.h"

#include <UICommonMdl/CErrorCode.h>
#include <VxGUI/RequiredMark.h>
#include <common/CCheckDelegate.h>
#include <common/CTableModel.h>
#include <common/DeviceCategory.h>

namespace ResourceManagerUI {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CDevImport)
};

enum Column : int
{
    ColumnCheck,
    ColumnName,
    ColumnSerialNumber,
    ColumnModel,
    ColumnType
};

} // namespace

CP2PImportWidget::CP2PImportWidget(QWidget* pParent)
    : QWidget(pParent)
    , m_pUi(std::make_unique<Ui::CP2PImportWidget>())
    , m_pModel(new Common::CTableModel(
          {{QString(), true}, {Text::tr("Device Name"), true}, {Text::tr("Serial Number"), true},
              {Text::tr("Device Model"), true}, {Text::tr("Device Type"), true}},
          ColumnSerialNumber, ColumnCheck, this))
{
    m_pUi->setupUi(this);
    SetUpFields();
    SetUpList();
    ShowDevices({});
}

CP2PImportWidget::~CP2PImportWidget() = default;

void CP2PImportWidget::SetUpFields()
{
    const QString sSpecial = Text::tr("Special characters < and > are not allowed.");
    m_pUi->leP2PUser->SetRule(
        RemoteConfigLogical::CloudUserName, Text::tr("The user name cannot exceed %1 characters."), sSpecial);
    m_pUi->leP2PPassword->SetRule(
        RemoteConfigLogical::CloudPassword, Text::tr("The password cannot exceed %1 characters."), sSpecial);
    for (VxGUI::VxLineEdit* const pField : {m_pUi->leP2PUser, m_pUi->leP2PPassword}) {
        VxGUI::MarkRequired(pField);
        connect(pField, &VxGUI::VxLineEdit::returnPressed, this, &CP2PImportWidget::OnQueryClicked);
    }
    connect(m_pUi->btnP2PQuery, &QAbstractButton::clicked, this, &CP2PImportWidget::OnQueryClicked);
    connect(m_pUi->wgtP2PState, &VxGUI::VxEmptyState::SignalAction, this, &CP2PImportWidget::SignalRefresh);
}

void CP2PImportWidget::SetUpList()
{
    QTreeView* const pTree = m_pUi->treeP2P;
    pTree->setModel(m_pModel);
    pTree->setItemDelegateForColumn(ColumnCheck, new Common::CCheckDelegate(pTree));
    pTree->header()->setSectionResizeMode(ColumnCheck, QHeaderView::Fixed);
    pTree->setColumnWidth(ColumnCheck, 36);
    pTree->setColumnWidth(ColumnName, 180);
    pTree->setColumnWidth(ColumnSerialNumber, 160);
    pTree->setColumnWidth(ColumnModel, 120);
    connect(m_pModel, &QAbstractItemModel::dataChanged, this, &CP2PImportWidget::UpdateEnabled);
    connect(m_pUi->chkP2PAll, &QAbstractButton::clicked, this,
        [this] { m_pModel->SetAllChecked(m_pModel->GetCheckSummary() != Qt::Checked); });
    connect(m_pUi->btnP2PImport, &QAbstractButton::clicked, this, &CP2PImportWidget::OnImportClicked);
}

void CP2PImportWidget::SetInterfaceSet(const UICommonMdl::CInterfaceSetManager* pInterfaceSet)
{
    m_pCalls = std::make_unique<Calls>(pInterfaceSet, this);
}

void CP2PImportWidget::ShowLoading()
{
    m_pUi->wgtP2PState->SetState(VxGUI::VxEmptyState::Kind::Loading, Text::tr("Asking the platform"));
    m_pUi->stackP2P->setCurrentWidget(m_pUi->pageP2PState);
}

void CP2PImportWidget::ShowFeatures(const RemoteConfigLogical::Features_t& features, int nErrorCode)
{
    using Kind = VxGUI::VxEmptyState::Kind;
    if (nErrorCode == UICommonMdl::ErrorNone && features.bCloudAccount) {
        m_pUi->lbCloud->setText(Text::tr("From %1").arg(QString::fromStdString(features.sCloudService)));
        m_pUi->stackP2P->setCurrentWidget(m_pUi->pageP2P);
        return;
    }
    if (nErrorCode == UICommonMdl::ErrorNone) {
        m_pUi->wgtP2PState->SetState(
            Kind::Empty, Text::tr("The platform has no cloud account service configured."));
    } else {
        m_pUi->wgtP2PState->SetState(Kind::Failed, Text::tr("Failed to query features."),
            UICommonMdl::CErrorCode::GetErroCodeInfor(nErrorCode), Text::tr("Refresh"));
    }
    m_pUi->stackP2P->setCurrentWidget(m_pUi->pageP2PState);
}

void CP2PImportWidget::SetConnected(bool bConnected)
{
    m_bConnected = bConnected;
    UpdateEnabled();
}

void CP2PImportWidget::Clear()
{
    m_pCalls->ForgetAll();
    m_pUi->leP2PPassword->setText({});
    ShowDevices({});
}

void CP2PImportWidget::OnQueryClicked()
{
    if (!m_pUi->btnP2PQuery->isEnabled())
        return;
    const QString sUser = m_pUi->leP2PUser->text();
    const QString sPassword = m_pUi->leP2PPassword->text();
    if (sUser.isEmpty() || sPassword.isEmpty()) {
        Q_EMIT SignalNotify(Text::tr("Please enter user name and password!"));
        (sUser.isEmpty() ? m_pUi->leP2PUser : m_pUi->leP2PPassword)->setFocus();
        return;
    }
    for (VxGUI::VxLineEdit* const pField : {m_pUi->leP2PUser, m_pUi->leP2PPassword}) {
        if (!pField->CheckInput().isEmpty()) {
            pField->setFocus();
            return;
        }
    }
    ShowDevices({});
    m_pCalls->Latest<&RemoteConfigLogical::IRemoteConfigManager::QueryP2PDeviceList>(
        sUser.toStdString(), sPassword.toStdString(), [this](const Param& param) { OnDeviceList(param); });
    UpdateEnabled();
}

void CP2PImportWidget::OnDeviceList(const Param& param)
{
    ShowDevices(
        param.nErrorCode == UICommonMdl::ErrorNone ? param.vecP2PDevices : decltype(param.vecP2PDevices)());
    if (param.nErrorCode != UICommonMdl::ErrorNone)
        Q_EMIT SignalNotify(GetP2PFailureText(param.nErrorCode, param.nCloudCode));
    else if (param.vecP2PDevices.empty())
        Q_EMIT SignalNotify(Text::tr("Import P2P device list is empty."));
}

void CP2PImportWidget::ShowDevices(const std::vector<RemoteConfigLogical::P2PDevice_t>& vecDevices)
{
    using Model = Common::CTableModel;
    m_vecDevices = vecDevices;
    QVector<Model::Row> vecRows;
    for (const RemoteConfigLogical::P2PDevice_t& device : vecDevices) {
        vecRows.append({Model::MakeItem(), Model::MakeItem(QString::fromStdString(device.sName)),
            Model::MakeItem(QString::fromStdString(device.sSerialNumber)),
            Model::MakeItem(QString::fromStdString(device.sModel)),
            Model::MakeItem(Common::GetCategoryText(device.nCategory))});
    }
    m_pModel->SetRows(vecRows);
    m_pModel->SetAllChecked(true);
    UpdateEnabled();
}

void CP2PImportWidget::OnImportClicked()
{
    std::vector<GroupLogical::ImportRow_t> vecRows;
    const QStringList listChecked = m_pModel->GetCheckedIds();
    for (std::size_t i = 0; i < m_vecDevices.size(); ++i) {
        if (listChecked.contains(QString::fromStdString(m_vecDevices[i].sSerialNumber)))
            vecRows.push_back(MakeP2PRow(m_vecDevices[i], static_cast<int>(i) + 1));
    }
    if (vecRows.empty())
        Q_EMIT SignalNotify(Text::tr("You must select an item at least."));
    else
        Q_EMIT SignalImport(vecRows);
}

void CP2PImportWidget::UpdateEnabled()
{
    const bool bQuerying = m_pCalls && m_pCalls->IsPending();
    const int nChecked = m_pModel->GetCheckedIds().size();
    const bool bAny = m_pModel->rowCount() > 0;
    m_pUi->btnP2PQuery->setEnabled(m_bConnected && !bQuerying);
    m_pUi->btnP2PImport->setEnabled(m_bConnected && bAny);
    m_pUi->chkP2PAll->setEnabled(bAny);
    m_pUi->chkP2PAll->setCheckState(bAny ? m_pModel->GetCheckSummary() : Qt::Unchecked);
    if (bQuerying)
        m_pUi->lbP2PCount->setText(Text::tr("Getting the device list"));
    else
        m_pUi->lbP2PCount->setText(
            bAny ? Text::tr("%1 of %2 selected").arg(nChecked).arg(m_pModel->rowCount()) : QString());
}

} // namespace ResourceManagerUI

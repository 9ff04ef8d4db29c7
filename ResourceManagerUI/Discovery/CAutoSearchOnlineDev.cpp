#include "CAutoSearchOnlineDev.h"

#include "CBatchAddDiscoverDeviceDlg.h"
#include "CDeviceInitialize.h"
#include "CModifyIP.h"
#include "COnlineDeviceDelegates.h"
#include "COnlineDeviceModel.h"
#include "DiscoveryRules.h"
#include "ui_CAutoSearchOnlineDev.h"

#include <DeviceEdit/DeviceFormFields.h>
#include <UICommonMdl/CErrorCode.h>
#include <UICommonMdl/CInterfaceSetManager.h>
#include <UICommonMdl/ILocalConfig.h>
#include <common/CCheckDelegate.h>
#include <common/Prompt.h>
#include <common/StyleSheet.h>

#include <QHeaderView>
#include <QHostAddress>
#include <QLoggingCategory>
#include <QNetworkInterface>
#include <QShortcut>
#include <QSortFilterProxyModel>

namespace ResourceManagerUI {

namespace {

Q_LOGGING_CATEGORY(LogSearch, "resource.search")

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CAutoSearchOnlineDev)
};

const QString StartKey = QStringLiteral("AutoSearchIP/StartIP");
const QString EndKey = QStringLiteral("AutoSearchIP/EndIP");

} // namespace

CAutoSearchOnlineDev::CAutoSearchOnlineDev(UICommonMdl::CInterfaceSetManager* pInterfaceSet, QWidget* pParent)
    : QWidget(pParent)
    , m_pUi(std::make_unique<Ui::CAutoSearchOnlineDev>())
    , m_pInterfaceSet(pInterfaceSet)
    , m_pLocalConfig(pInterfaceSet->GetLocalConfig())
    , m_pModel(new COnlineDeviceModel(this))
    , m_pSorted(new QSortFilterProxyModel(this))
    , m_calls(pInterfaceSet, this)
{
    m_pUi->setupUi(this);
    setObjectName(QStringLiteral("AutoSearchOnlineDev"));
    SetUpTable();
    SetUpRange();
    SetUpButtons();
    connect(&m_calls, &Common::CPageWork::SignalEnding, this, [this] {
        if (m_nSearch > 0)
            m_calls.GetManager()->StopSearch(m_nSearch);
    });
    ShowState();
    Common::LoadStyleSheet(this, QStringLiteral("ResourceManagerUI/DeviceManager"));
}

CAutoSearchOnlineDev::~CAutoSearchOnlineDev() = default;

void CAutoSearchOnlineDev::SetUpTable()
{
    QTreeView* pTable = m_pUi->tabViewOnlineDev;
    m_pSorted->setSourceModel(m_pModel);
    m_pSorted->setSortRole(COnlineDeviceModel::SortRole);
    pTable->setModel(m_pSorted);
    pTable->sortByColumn(OnlineColumnAddress, Qt::AscendingOrder);
    const int widths[] = {150, 116, 120, 60, 136, 92};
    for (int nColumn = 0; nColumn < OnlineColumnCount; ++nColumn)
        pTable->setColumnWidth(nColumn, widths[nColumn]);
    pTable->header()->setStretchLastSection(true);
    pTable->setItemDelegateForColumn(OnlineColumnInit, new Common::CCheckDelegate(pTable));
    pTable->setItemDelegateForColumn(OnlineColumnAddress, new CAddressDelegate(pTable));
    auto* pOperations = new COnlineOperationDelegate(pTable);
    pTable->setItemDelegateForColumn(OnlineColumnOperation, pOperations);
    connect(pOperations, &COnlineOperationDelegate::SignalButtonClicked, this,
        &CAutoSearchOnlineDev::OnOperationClicked);
    connect(
        m_pModel, &COnlineDeviceModel::SignalAddressEdited, this,
        [this](const QString& sKey, const QString& sNewIp) { OpenModifyIp(m_pModel->GetOne(sKey), sNewIp); },
        Qt::QueuedConnection);
    auto* pToggle = new QShortcut(Qt::Key_Space, pTable, nullptr, nullptr, Qt::WidgetShortcut);
    connect(pToggle, &QShortcut::activated, this, [this, pTable] {
        const QModelIndex current = pTable->currentIndex();
        const QModelIndex index = current.sibling(current.row(), OnlineColumnInit);
        const bool bChecked = index.data(Qt::CheckStateRole).toInt() == Qt::Checked;
        m_pSorted->setData(index, bChecked ? Qt::Unchecked : Qt::Checked, Qt::CheckStateRole);
    });
    for (const auto signal : {&QAbstractItemModel::rowsInserted, &QAbstractItemModel::rowsRemoved})
        connect(m_pModel, signal, this, &CAutoSearchOnlineDev::ShowState);
    connect(m_pModel, &QAbstractItemModel::dataChanged, this, &CAutoSearchOnlineDev::ShowChecks);
}

void CAutoSearchOnlineDev::SetUpRange()
{
    for (VxGUI::VxLineEdit* pEdit : {m_pUi->edtNetSectionStart, m_pUi->edtNetSectionEnd}) {
        FormFields::MakeKeyedField(pEdit, GetSectionExpression());
        connect(pEdit, &VxGUI::VxLineEdit::returnPressed, this, [this] {
            if (m_nSearch == 0 && m_bConnected)
                StartSearch();
        });
    }
    const QVariant vStart = m_pLocalConfig ? m_pLocalConfig->GetValue(StartKey) : QVariant();
    const QVariant vEnd = m_pLocalConfig ? m_pLocalConfig->GetValue(EndKey) : QVariant();
    if (!vStart.isValid() && !vEnd.isValid()) {
        SetLocalNetworkSection();
        return;
    }
    m_pUi->edtNetSectionStart->setText(vStart.toString());
    m_pUi->edtNetSectionEnd->setText(vEnd.toString());
}

void CAutoSearchOnlineDev::SetLocalNetworkSection()
{
    QStringList listAddresses;
    const auto listAll = QNetworkInterface::allAddresses();
    for (const QHostAddress& address : listAll) {
        if (address.protocol() == QAbstractSocket::IPv4Protocol)
            listAddresses.append(address.toString());
    }
    const NetworkSection section = GetLocalNetworkSection(listAddresses);
    if (!section.bFound)
        qCInfo(LogSearch, "Search failed, cannot find the local address!");
    m_pUi->edtNetSectionStart->setText(section.sStart);
    m_pUi->edtNetSectionEnd->setText(section.sEnd);
}

void CAutoSearchOnlineDev::SetUpButtons()
{
    connect(m_pUi->btnAutoSearch, &QAbstractButton::clicked, this, &CAutoSearchOnlineDev::OnBtnSearchClicked);
    connect(
        m_pUi->btnInitialize, &QAbstractButton::clicked, this, &CAutoSearchOnlineDev::OnBtnInitializeClicked);
    connect(m_pUi->btnModifyIp, &QAbstractButton::clicked, this, &CAutoSearchOnlineDev::OnBtnModifyIpClicked);
    connect(
        m_pUi->btnAddToManagement, &QAbstractButton::clicked, this, &CAutoSearchOnlineDev::OnBtnAddClicked);
    connect(m_pUi->chkAllOnline, &QAbstractButton::clicked, this,
        [this] { m_pModel->SetAllChecked(m_pModel->GetCheckSummary() != Qt::Checked); });
    connect(
        m_pUi->wgtOnlineState, &VxGUI::VxEmptyState::SignalAction, this, &CAutoSearchOnlineDev::StartSearch);
}

void CAutoSearchOnlineDev::showEvent(QShowEvent* pEvent)
{
    QWidget::showEvent(pEvent);
    m_bShown = true;
    Common::LoadStyleSheet(this, QStringLiteral("ResourceManagerUI/DeviceManager"));
}

void CAutoSearchOnlineDev::SetConnected(bool bConnected)
{
    m_bConnected = bConnected;
    ShowState();
}

void CAutoSearchOnlineDev::SetOrganizations(
    const std::vector<GroupLogical::Organization_t>& vecOrganizations, const QString& sSelected)
{
    m_vecOrganizations = vecOrganizations;
    m_sOrgCode = sSelected;
}

void CAutoSearchOnlineDev::OnBtnSearchClicked()
{
    if (m_nSearch > 0)
        StopSearch();
    else
        StartSearch();
}

void CAutoSearchOnlineDev::StartSearch()
{
    VxGUI::VxLineEdit* pStart = m_pUi->edtNetSectionStart;
    VxGUI::VxLineEdit* pEnd = m_pUi->edtNetSectionEnd;
    const RangeFailure failure = CheckSearchRange(pStart->text(), pEnd->text());
    if (!failure.sMessage.isEmpty()) {
        VxGUI::VxLineEdit* pField = failure.field == RangeFailure::End ? pEnd : pStart;
        if (failure.field == RangeFailure::Both)
            Q_EMIT SignalShowNotify(failure.sMessage);
        else
            pField->SetErrorHint(failure.sMessage);
        pField->setFocus();
        return;
    }
    if (m_pLocalConfig) {
        m_pLocalConfig->SetValue(StartKey, pStart->text());
        m_pLocalConfig->SetValue(EndKey, pEnd->text());
    }
    m_pModel->Clear();
    m_bSearched = true;
    m_nSearchError = UICommonMdl::ErrorNone;
    m_bFailed = false;
    m_calls.Latest<&RemoteConfigLogical::IRemoteConfigManager::SearchOnlineDevice>(
        pStart->text().toStdString(), pEnd->text().toStdString(),
        [this](const Param& param) { OnSearchReport(param); });
    m_nSearch = qMax(0, m_calls.GetLastSequence());
    ShowState();
}

void CAutoSearchOnlineDev::StopSearch()
{
    // What is on its way still comes: the request stays open until its final report.
    m_calls.GetManager()->StopSearch(std::exchange(m_nSearch, 0));
    ShowState();
}

void CAutoSearchOnlineDev::OnSearchReport(const Param& param)
{
    if (!m_bShown) {
        qCInfo(LogSearch, "Result return befor the dialog open!");
        return;
    }
    m_pModel->Add(param.vecFound);
    if (!param.bFinal)
        return;
    m_nSearch = 0;
    if (param.nErrorCode != UICommonMdl::ErrorNone && param.nErrorCode != UICommonMdl::ErrorCancelled) {
        m_bFailed = true;
        m_nSearchError = param.nErrorCode;
        Q_EMIT SignalShowNotify(Common::FailureText(Text::tr("Failed to search device"), param.nErrorCode));
    }
    ShowState();
}

void CAutoSearchOnlineDev::ShowState()
{
    using Kind = VxGUI::VxEmptyState::Kind;
    const bool bSearching = m_nSearch > 0;
    const int nFound = m_pModel->rowCount();
    m_pUi->btnAutoSearch->setText(bSearching ? Text::tr("Stop") : Text::tr("Auto Search"));
    m_pUi->btnAutoSearch->setEnabled(m_bConnected);
    m_pUi->DeviceNetworkSection->setEnabled(m_bConnected);
    for (VxGUI::VxLineEdit* pEdit : {m_pUi->edtNetSectionStart, m_pUi->edtNetSectionEnd})
        pEdit->setEnabled(!bSearching);
    for (QWidget* pControl :
        {static_cast<QWidget*>(m_pUi->btnInitialize), static_cast<QWidget*>(m_pUi->btnModifyIp),
            static_cast<QWidget*>(m_pUi->btnAddToManagement), static_cast<QWidget*>(m_pUi->tabViewOnlineDev)})
        pControl->setEnabled(m_bConnected);
    const QString sCount = Text::tr("%1 devices found").arg(nFound);
    m_pUi->lbOnlineStatus->setText(bSearching ? Text::tr("Searching, %1").arg(sCount)
            : m_bSearched                     ? sCount
                                              : QString());
    VxGUI::VxEmptyState* pState = m_pUi->wgtOnlineState;
    if (bSearching)
        pState->SetState(Kind::Loading, Text::tr("Searching"));
    else if (m_bFailed)
        pState->SetState(Kind::Failed, Text::tr("Failed to search device"),
            UICommonMdl::CErrorCode::GetErroCodeInfor(m_nSearchError),
            m_bConnected ? Text::tr("Auto Search") : QString());
    else if (m_bSearched)
        pState->SetState(Kind::Empty, Text::tr("No device found"),
            Text::tr("Check the range and that the devices are connected to this network."));
    else
        pState->SetState(Kind::Empty, Text::tr("Search the network for devices"),
            Text::tr("Without a range the local network is searched."));
    m_pUi->stackOnline->setCurrentWidget(
        nFound > 0 ? static_cast<QWidget*>(m_pUi->tabViewOnlineDev) : static_cast<QWidget*>(pState));
    ShowChecks();
}

void CAutoSearchOnlineDev::ShowChecks()
{
    const Qt::CheckState state = m_pModel->GetCheckSummary();
    m_pUi->chkAllOnline->setCheckState(state);
    m_pUi->chkAllOnline->setEnabled(m_bConnected && m_pModel->rowCount() > 0);
}

void CAutoSearchOnlineDev::OnBtnInitializeClicked()
{
    RemoteConfigLogical::SearchDeviceInfoVec vecMissing;
    QStringList listDone;
    for (const RemoteConfigLogical::SearchDeviceInfo_t& device : m_pModel->GetChecked()) {
        if (device.nInitState == RemoteConfigLogical::InitMissing)
            vecMissing.push_back(device);
        else if (device.nInitState == RemoteConfigLogical::InitDone)
            listDone.append(GetDeviceTitle(device));
    }
    if (!listDone.isEmpty())
        Q_EMIT SignalShowNotify(
            Text::tr("The device %1 has been Initialized!").arg(listDone.join(QStringLiteral(", "))));
    else if (vecMissing.empty())
        Q_EMIT SignalShowNotify(Text::tr("No uninitialized device selected!"));
    if (!vecMissing.empty())
        OpenInitialize(vecMissing);
}

void CAutoSearchOnlineDev::OnBtnModifyIpClicked()
{
    const auto vecChecked = m_pModel->GetChecked();
    if (vecChecked.empty())
        Q_EMIT SignalShowNotify(Text::tr("No device selected."));
    else
        OpenModifyIp(vecChecked);
}

void CAutoSearchOnlineDev::OnBtnAddClicked()
{
    const auto vecChecked = m_pModel->GetChecked();
    if (vecChecked.empty())
        Q_EMIT SignalShowNotify(Text::tr("No device selected."));
    else
        OpenAdd(vecChecked);
}

void CAutoSearchOnlineDev::OnOperationClicked(const QModelIndex& index, int nRole)
{
    const auto vecDevice = m_pModel->GetOne(index.data(COnlineDeviceModel::KeyRole).toString());
    if (vecDevice.empty())
        return;
    if (nRole == OperationInitialize)
        OpenInitialize(vecDevice);
    else if (nRole == OperationModifyIp)
        OpenModifyIp(vecDevice);
    else
        OpenAdd(vecDevice);
}

void CAutoSearchOnlineDev::OpenInitialize(const RemoteConfigLogical::SearchDeviceInfoVec& vecDevices)
{
    auto* pDialog = new CDeviceInitialize(m_pInterfaceSet, vecDevices, this);
    connect(pDialog, &CDeviceInitialize::SignalInitialized, m_pModel, &COnlineDeviceModel::SetInitialized);
    pDialog->open();
}

void CAutoSearchOnlineDev::OpenModifyIp(
    const RemoteConfigLogical::SearchDeviceInfoVec& vecDevices, const QString& sNewIp)
{
    if (vecDevices.empty())
        return;
    auto* pDialog = new CModifyIP(m_pInterfaceSet, vecDevices, m_pModel->GetAll(), sNewIp, this);
    connect(pDialog, &CModifyIP::SignalAddressModified, m_pModel, &COnlineDeviceModel::SetAddress);
    pDialog->open();
}

void CAutoSearchOnlineDev::OpenAdd(const RemoteConfigLogical::SearchDeviceInfoVec& vecDevices)
{
    auto* pDialog =
        new CBatchAddDiscoverDeviceDlg(m_pInterfaceSet, vecDevices, m_vecOrganizations, m_sOrgCode, this);
    connect(pDialog, &CBatchAddDiscoverDeviceDlg::SignalStateChanged, this,
        [this](const QStringList& listKeys, int nState) {
            m_pModel->SetState(listKeys, static_cast<FoundState>(nState));
        });
    connect(
        pDialog, &CBatchAddDiscoverDeviceDlg::SignalAdded, this, &CAutoSearchOnlineDev::SignalDevicesAdded);
    connect(pDialog, &CBatchAddDiscoverDeviceDlg::SignalShowNotify, this,
        &CAutoSearchOnlineDev::SignalShowNotify);
    pDialog->open();
}

} // namespace ResourceManagerUI

#include "CDeviceManagerCtrl.h"

#include "CDeviceAccessDlg.h"
#include "CDeviceDetailPage.h"
#include "CDeviceExporter.h"
#include "CDeviceListView.h"
#include "CDeviceModel.h"
#include "CDeviceOperations.h"
#include "CDeviceTableHeader.h"
#include "CDiscoveryStrip.h"
#include "COrganizationEditPage.h"
#include "COrganizationOperations.h"
#include "COrganizationTreeCtrl.h"
#include "DeviceEdit/CDevAdd.h"
#include "DeviceImport/CDevImport.h"
#include "DeviceRules.h"
#include "Discovery/CAutoSearchOnlineDev.h"

#include <Trv/QSkin.h>
#include <UICommonMdl/CInterfaceSetManager.h>
#include <UICommonMdl/CNumberPageCtrl.h>
#include <UserLogical/RightCodes.h>
#include <VxGUI/VxSearchBox.h>
#include <common/CFilterBar.h>
#include <common/CListStatus.h>
#include <common/DeviceCategory.h>

#include <QAbstractButton>
#include <QMovie>
#include <QSplitter>
#include <QStackedWidget>
#include <QVBoxLayout>

namespace ResourceManagerUI {

using GroupLogical::IGroupManager;

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CDeviceManagerCtrl)
};

constexpr int MinSearchWidth = 180;
constexpr int MaxSearchWidth = 220;
constexpr int DiscoveryWidth = 460;

/// An empty page that is filled when it is shown.
QWidget* MakePage(const QString& sName)
{
    auto* const pPage = new QWidget;
    pPage->setObjectName(sName);
    auto* const pLayout = new QVBoxLayout(pPage);
    pLayout->setContentsMargins(0, 0, 0, 0);
    return pPage;
}

} // namespace

CDeviceManagerCtrl::CDeviceManagerCtrl(UICommonMdl::CInterfaceSetManager* pInterfaceSet, QWidget* pParent)
    : CListPage(pInterfaceSet, QStringLiteral("ResourceManagerUI/DeviceManager"), pParent)
    , m_pList(new CDeviceListView)
    , m_pTree(new COrganizationTreeCtrl)
    , m_pCategories(new Common::CFilterBar(Text::tr("Device Type")))
    , m_pSearch(new VxGUI::VxSearchBox)
    , m_pOrgPage(new COrganizationEditPage(pInterfaceSet))
    , m_pDetailPage(new CDeviceDetailPage(pInterfaceSet))
    , m_pEditPage(MakePage(QStringLiteral("pageEdit")))
    , m_pAddPage(MakePage(QStringLiteral("pageAddDevice")))
    , m_pForm(new CDevAdd(pInterfaceSet, m_pAddPage))
    , m_pDiscovery(new CAutoSearchOnlineDev(pInterfaceSet))
    , m_pOrganizations(new COrganizationOperations(this, m_pTree, m_pOrgPage))
    , m_pOperations(new CDeviceOperations(this, m_pList->GetDevices(), m_pTree->GetModel()))
    , m_pExporter(new CDeviceExporter(this, m_pList))
    , m_calls(pInterfaceSet, this)
    , m_deviceCalls(pInterfaceSet, this)
{
    setObjectName(QStringLiteral("CDeviceManagerCtrl"));
    SetTexts({Text::tr("Loading devices"), Text::tr("Failed to get device list"),
        Text::tr("You have no permission to see devices."),
        Text::tr("There is no device in this organization."), Text::tr("No device matches the filters.")});
    SetUpFrame();
    SetUpToolBar();
    SetUpCategories();
    SetUpList();
    SetUpTree();
    SetUpForm();
    SetUpDiscovery();
    SetUpPushes();
    GetFrame()->Remember(pInterfaceSet->GetLocalConfig(), QStringLiteral("DeviceManager"));
    Start();
}

void CDeviceManagerCtrl::SetUpFrame()
{
    Common::CListFrame* const pFrame = GetFrame();
    pFrame->setObjectName(QStringLiteral("pageDevice"));
    pFrame->GetState()->setObjectName(QStringLiteral("wgtTableState"));
    pFrame->GetPager()->setObjectName(QStringLiteral("wgtTableFlip"));
    pFrame->GetStatus()->SetTotalText(Text::tr("Devices: %1"));
    pFrame->SetList(m_pList);
    pFrame->SetTree(m_pTree);
    GetPages()->setObjectName(QStringLiteral("stackedWidget"));
    for (QWidget* pPage :
        {static_cast<QWidget*>(m_pOrgPage), static_cast<QWidget*>(m_pDetailPage), m_pEditPage, m_pAddPage})
        AddPage(pPage);
}

void CDeviceManagerCtrl::SetUpToolBar()
{
    const Common::Need connection = GetFrame()->NeedsConnection();
    const Common::Need checked = GetFrame()->NeedsChecked(Text::tr("You must select an item at least."));
    const Common::Need right =
        NeedsRight(UserLogical::RightExportDevices, Text::tr("You have no permission to export devices."));
    Common::CToolBar* const pBar = GetToolBar();
    pBar->AddAction(
        {"btnAdd", "add", Text::tr("Add"), [this] { OnBtnAddClicked(); }, {connection}, QKeySequence::New});
    pBar->AddAction({"btnDelete", "delete", Text::tr("Delete"),
        [this] { m_pOperations->Delete(GetCheckedIds()); }, {connection, checked}});
    pBar->AddAction(
        {"btnImport", "import", Text::tr("Import"), [this] { OnBtnImportClicked(); }, {connection}});
    pBar->AddAction({"btnExport", "export", Text::tr("Export"), [this] { m_pExporter->Start(MakeRequest()); },
        {connection, right}});
    pBar->AddAction({"btnMoveTo", "move", Text::tr("Move To"),
        [this] { m_pOperations->MoveTo(GetCheckedIds()); }, {connection, checked}});
    pBar->AddAction({"btnResetPwd", "password", Text::tr("Modify Password"),
        [this] { m_pOperations->ModifyPasswords(GetCheckedIds()); }, {connection, checked}});
    pBar->AddAction({"btnTimeZone", "clock", Text::tr("Time Zone Settings"),
        [this] { m_pOperations->SetTimeZones(GetCheckedIds()); }, {connection, checked}});
    pBar->AddAction(
        {"btnRefresh", "refresh", Text::tr("Refresh"), [this] { QueryAll(); }, {connection}, Qt::Key_F5});

    m_pSearch->setObjectName(QStringLiteral("editSearch"));
    m_pSearch->setAccessibleName(Text::tr("Device Name/IP"));
    m_pSearch->SetBackgroundText(Text::tr("Device Name/IP"));
    m_pSearch->setMinimumWidth(MinSearchWidth);
    m_pSearch->setMaximumWidth(MaxSearchWidth);
    GetFrame()->SetSearch(m_pSearch);
    connect(m_pSearch, &VxGUI::VxSearchBox::SignalSearch, this, &CDeviceManagerCtrl::OnBtnSearchClicked);
}

void CDeviceManagerCtrl::SetUpCategories()
{
    const auto choice = [](int nCategory, const QString& sText, const char* pszName) {
        return Common::FilterChoice{nCategory, sText, QLatin1String(pszName)};
    };
    m_pCategories->SetChoices({choice(Common::CategoryAll, Text::tr("All"), "btnAllDevice"),
        choice(1, Text::tr("Encoder"), "btnEncodeDevice"), choice(43, Text::tr("Radar"), "btnRaderDevice"),
        choice(4, Text::tr("TV Wall"), "btnVideoWallDevice"),
        choice(34, Text::tr("Emergency"), "btnEmergency"), choice(40, QStringLiteral("POS"), "btnPOSDevice"),
        choice(3, Text::tr("Alarm Controller"), "btnAlarmHostDevice"),
        choice(8, Text::tr("Access Control"), "btnAccessDevice"),
        choice(21, Text::tr("Video Intercom"), "btnVideoTalkDevice"),
        choice(5, Text::tr("ANPR Device"), "btnANPRPicDevice"),
        choice(16, Text::tr("LED Device"), "btnLedDevice"),
        choice(45, Text::tr("Video Wall Control"), "btnVideoWallControlDevice"),
        choice(Common::CategoryLiftController, Text::tr("Lift Controller"), "btnLiftControllerDevice")});
    ShowCategories({});
    GetFrame()->AddRow(m_pCategories);
    connect(m_pCategories, &Common::CFilterBar::SignalChosen, this, &CDeviceManagerCtrl::SetCategory);
}

void CDeviceManagerCtrl::SetUpList()
{
    const CDeviceTableHeader* const pHeader = m_pList->GetHeader();
    connect(pHeader, &CDeviceTableHeader::SignalFilterTypeChanged, this, &CDeviceManagerCtrl::SetCategory);
    connect(pHeader, &CDeviceTableHeader::sgnBtnClicked, this, &CDeviceManagerCtrl::OnStatusTypeClick);
    connect(m_pList, &Common::CListView::SignalSortChanged, this, &CDeviceManagerCtrl::QueryRows);
    connect(m_pList, &CDeviceListView::SignalOperation, this, &CDeviceManagerCtrl::OnOperation);
    connect(m_pOperations, &CDeviceOperations::SignalChanged, this, &CDeviceManagerCtrl::QueryRows);
    connect(m_pDetailPage, &CDeviceDetailPage::SignalBack, this, &CDeviceManagerCtrl::ShowList);
    connect(
        m_pDetailPage, &CDeviceDetailPage::SignalShowAccess, m_pOperations, &CDeviceOperations::ShowAccess);
}

void CDeviceManagerCtrl::SetUpTree()
{
    // Its style sheet goes by the class name.
    m_pTree->setObjectName(QStringLiteral("COrganizationTreeCtrl"));
    connect(m_pTree, &COrganizationTreeCtrl::SignalSelectionChanged, this,
        &CDeviceManagerCtrl::OnTreeSelectionChanged);
    connect(m_pTree, &COrganizationTreeCtrl::SignalModifyDeviceOrg, m_pOperations, &CDeviceOperations::Move);
    connect(
        m_pOrganizations, &COrganizationOperations::SignalOpenEditor, this, [this] { ShowPage(m_pOrgPage); });
    connect(
        m_pOrganizations, &COrganizationOperations::SignalCloseEditor, this, &CDeviceManagerCtrl::ShowList);
    connect(m_pOrganizations, &COrganizationOperations::SignalQueried, this, [this] {
        TellOrganizations();
        // Without a selection in the tree nothing else asks for the devices.
        if (m_pTree->GetCurrentCode().isEmpty())
            QueryRows();
    });
}

void CDeviceManagerCtrl::SetUpForm()
{
    m_pAddPage->layout()->addWidget(m_pForm);
    connect(m_pForm, &CDevAdd::SignalEditComplete, this, &CDeviceManagerCtrl::OnDeviceEditComplete);
    connect(m_pForm, &CDevAdd::SignalBack, this, &CDeviceManagerCtrl::ShowList);
}

void CDeviceManagerCtrl::SetUpDiscovery()
{
    QWidget* const pPanel = MakePage(QStringLiteral("wgtDiscovery"));
    pPanel->layout()->addWidget(m_pDiscovery);
    auto* const pStrip = new CDiscoveryStrip(pPanel, GetInterfaceSet()->GetLocalConfig());
    GetFrame()->AddPanel(pPanel, DiscoveryWidth);
    GetFrame()->AddStrip(pStrip);
    connect(m_pDiscovery, &CAutoSearchOnlineDev::SignalShowNotify, this,
        [this](const QString& sText) { Notify(sText, VxGUI::NotificationKind::Warning); });
    connect(m_pDiscovery, &CAutoSearchOnlineDev::SignalDevicesAdded, this, &CDeviceManagerCtrl::QueryLater);
}

void CDeviceManagerCtrl::SetUpPushes()
{
    using GroupLogical::IGroupManagerObserver;
    m_calls.OnPush(IGroupManagerObserver::ResultOrganizationsChanged, [this](const GroupParam&) {
        m_bOrganizationsStale = true;
        QueryLater();
    });
    m_calls.OnPush(IGroupManagerObserver::ResultDevicesChanged, [this](const GroupParam&) { QueryLater(); });
    m_deviceCalls.OnPush(RemoteConfigLogical::IRemoteDeviceObserver::ResultDeviceState,
        [this](const RemoteParam& param) { OnDeviceStates(param); });
}

void CDeviceManagerCtrl::OnConnectionChanged(bool bConnected)
{
    m_pDetailPage->setEnabled(bConnected);
    m_pDiscovery->SetConnected(bConnected);
    CListPage::OnConnectionChanged(bConnected);
}

void CDeviceManagerCtrl::ApplyRights()
{
    // Whoever sees users may see who has access.
    const bool bAccess = HasRight(UserLogical::RightSeeUsers);
    m_pList->SetAccessOffered(bAccess);
    m_pDetailPage->SetAccessOffered(bAccess);
    CListPage::ApplyRights();
}

void CDeviceManagerCtrl::QueryAll()
{
    m_bOrganizationsStale = false;
    m_pOrganizations->Query();
    QueryCategories();
    QueryRows();
}

void CDeviceManagerCtrl::QueryStale()
{
    if (std::exchange(m_bOrganizationsStale, false))
        m_pOrganizations->Query();
    QueryCategories();
    QueryRows();
}

void CDeviceManagerCtrl::QueryCategories()
{
    m_calls.Latest<&IGroupManager::QueryDeviceTypes>([this](const GroupParam& param) {
        if (param.nErrorCode == UICommonMdl::ErrorNone)
            ShowCategories(param.vecDeviceTypes);
    });
}

void CDeviceManagerCtrl::Query()
{
    // The first page is that of the organisation that the tree selects once it is there.
    if (m_pTree->GetCurrentCode().isEmpty() && m_pOrganizations->IsQuerying())
        return;
    m_calls.Latest<&IGroupManager::QueryDevicePage>(
        MakeRequest(), [this](const GroupParam& param) { OnDevicePage(param); });
}

GroupLogical::DevicePageRequest_t CDeviceManagerCtrl::MakeRequest() const
{
    DeviceQuery query;
    query.nPage = GetFrame()->GetPager()->GetCurrentPage();
    query.nPageSize = GetFrame()->GetPager()->GetPageSize();
    query.sOrgCode = m_pTree->GetCurrentCode();
    query.nSortField = m_pList->GetSortKey();
    query.sortOrder = m_pList->GetSortOrder();
    query.nOnlineState = m_nOnlineState;
    query.nCategory = m_pCategories->GetValue();
    query.sSearchText = m_sSearchText;
    return BuildPageRequest(query);
}

void CDeviceManagerCtrl::OnDevicePage(const GroupParam& param)
{
    ShowAnswer(param.nErrorCode, param.devicePage.nTotal, param.devicePage.nPage,
        [&] { m_pList->SetDevices(param.devicePage.vecDevices); });
}

void CDeviceManagerCtrl::OnDeviceStates(const RemoteParam& param)
{
    for (const RemoteConfigLogical::DeviceState_t& state : param.vecStates)
        m_pList->GetDevices()->UpdateState(state);
    // Under a filter of the online state rows come and go with it.
    if (m_nOnlineState != GroupLogical::StateAll)
        QueryLater();
}

bool CDeviceManagerCtrl::IsFiltered() const
{
    return m_pCategories->GetValue() != Common::CategoryAll || m_nOnlineState != GroupLogical::StateAll
        || !m_sSearchText.isEmpty();
}

void CDeviceManagerCtrl::ClearFilters()
{
    m_pCategories->SetValue(Common::CategoryAll);
    m_pList->GetHeader()->SetFilterValue(ColumnType, Common::CategoryAll);
    m_nOnlineState = GroupLogical::StateAll;
    m_pList->GetHeader()->SetFilterValue(ColumnOnline, GroupLogical::StateAll);
    m_pSearch->clear();
    m_sSearchText.clear();
}

void CDeviceManagerCtrl::SetCategory(int nCategory)
{
    // The header offers more of them than the bar has buttons.
    m_pCategories->SetValue(nCategory);
    m_pList->GetHeader()->SetFilterValue(ColumnType, nCategory);
    QueryFirstPage();
}

void CDeviceManagerCtrl::ShowCategories(const std::vector<int>& vecCategories)
{
    QVector<int> vecOffered{Common::CategoryAll};
    for (const int nCategory : vecCategories)
        vecOffered.append(nCategory);
    m_pCategories->SetOffered(vecOffered);
    m_pList->GetHeader()->SetCategories(vecCategories);
}

void CDeviceManagerCtrl::OnStatusTypeClick(int nOnlineState)
{
    m_nOnlineState = nOnlineState;
    m_pList->GetHeader()->SetFilterValue(ColumnOnline, nOnlineState);
    QueryFirstPage();
}

void CDeviceManagerCtrl::OnBtnSearchClicked()
{
    m_sSearchText = m_pSearch->text().trimmed();
    QueryFirstPage();
}

void CDeviceManagerCtrl::OnTreeSelectionChanged()
{
    TellOrganizations();
    QueryFirstPage();
}

void CDeviceManagerCtrl::TellOrganizations()
{
    m_pDiscovery->SetOrganizations(m_pTree->GetModel()->GetOrganizations(), m_pTree->GetCurrentCode());
}

QStringList CDeviceManagerCtrl::GetCheckedIds() const
{
    return m_pList->GetDevices()->GetCheckedIds();
}

void CDeviceManagerCtrl::OnOperation(int nRole, const QString& sDeviceId)
{
    switch (nRole) {
    case CDeviceListView::RoleDetails:
        ShowDetails(sDeviceId);
        break;
    case CDeviceListView::RoleEdit:
        EditDevice(sDeviceId);
        break;
    case CDeviceListView::RoleMoveTo:
        m_pOperations->MoveTo({sDeviceId});
        break;
    case CDeviceListView::RoleDelete:
        m_pOperations->Delete({sDeviceId});
        break;
    case CDeviceListView::RoleAccess:
        m_pOperations->ShowAccess(sDeviceId);
        break;
    }
}

void CDeviceManagerCtrl::ShowDetails(const QString& sDeviceId)
{
    const CDeviceModel* const pDevices = m_pList->GetDevices();
    const QModelIndex organization = pDevices->index(pDevices->FindRow(sDeviceId), ColumnOrganization);
    ShowPage(m_pDetailPage);
    m_pDetailPage->ShowDevice(sDeviceId, organization.data().toString());
}

void CDeviceManagerCtrl::ShowForm(QWidget* pPage)
{
    // One form serves both pages; the page on the screen holds it.
    pPage->layout()->addWidget(m_pForm);
    ShowPage(pPage);
}

void CDeviceManagerCtrl::OnBtnAddClicked()
{
    ShowForm(m_pAddPage);
    m_pForm->StartAdd(m_pTree->GetModel()->GetOrganizations(), m_pTree->GetCurrentCode());
}

void CDeviceManagerCtrl::EditDevice(const QString& sDeviceId)
{
    ShowForm(m_pEditPage);
    m_pForm->StartEdit(sDeviceId, m_pTree->GetModel()->GetOrganizations());
}

void CDeviceManagerCtrl::OnDeviceEditComplete()
{
    ShowList();
    QueryAll();
}

void CDeviceManagerCtrl::OnBtnImportClicked()
{
    if (!m_pImport) {
        m_pImport = new CDevImport(GetInterfaceSet(), this);
        connect(m_pImport, &CDevImport::SignalImportStatue, this, &CDeviceManagerCtrl::OnImportStatueChange);
        // Good news or bad: the dialog tells it in words.
        connect(m_pImport, &CDevImport::SignalShowNotify, this,
            [this](const QString& sText) { Notify(sText, VxGUI::NotificationKind::Information); });
        connect(m_pImport, &CDevImport::SignalImported, this, &CDeviceManagerCtrl::QueryLater);
    }
    const QString sOrgCode = m_pTree->GetCurrentCode();
    const GroupLogical::Organization_t* const pOrganization = m_pTree->GetModel()->FindOrganization(sOrgCode);
    m_pImport->SetOrganization(
        sOrgCode, pOrganization ? QString::fromStdString(pOrganization->sName) : QString());
    m_pImport->open();
}

void CDeviceManagerCtrl::OnImportStatueChange(bool bRunning)
{
    QAction* const pAction = GetToolBar()->FindAction(QStringLiteral("btnImport"));
    if (!m_pImportMovie) {
        m_pImportMovie = new QMovie(this);
        m_pImportMovie->setFileName(Trv::GetSkinPath(
            QStringLiteral("import.gif"), QStringLiteral("ResourceManagerUI/DeviceManager")));
        connect(m_pImportMovie, &QMovie::frameChanged, pAction,
            [this, pAction] { pAction->setIcon(QIcon(m_pImportMovie->currentPixmap())); });
    }
    GetToolBar()
        ->FindButton(QStringLiteral("btnImport"))
        ->setProperty("Gif", bRunning ? QStringLiteral("import.gif") : QString());
    if (bRunning) {
        m_pImportMovie->start();
    } else {
        m_pImportMovie->stop();
        pAction->setIcon(Trv::GetIcon(QStringLiteral("import")));
    }
}

} // namespace ResourceManagerUI

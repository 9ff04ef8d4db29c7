#include "CDeviceManagerCtrl.h"

#include "CDeviceModel.h"
#include "CDeviceTableHeader.h"
#include "ui_CDeviceManagerCtrl.h"

#include <Trv/QSkin.h>
#include <UICommonMdl/CInterfaceSetManager.h>
#include <UICommonMdl/ILocalConfig.h>
#include <common/CCheckDelegate.h>
#include <common/CFlowLayout.h>
#include <common/CRowButtonDelegate.h>
#include <common/DeviceCategory.h>

#include <QShortcut>

namespace ResourceManagerUI {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CDeviceManagerCtrl)
};

constexpr int PushDelayMs = 200;
constexpr int DefaultTreeWidth = 204;
constexpr int DefaultDiscoveryWidth = 460;

} // namespace

CDeviceManagerCtrl::CDeviceManagerCtrl(UICommonMdl::CInterfaceSetManager* pInterfaceSet, QWidget* pParent)
    : CPage(pInterfaceSet, QStringLiteral("ResourceManagerUI/DeviceManager"), pParent)
    , m_pLocalConfig(pInterfaceSet->GetLocalConfig())
    , m_pUi(std::make_unique<Ui::CDeviceManagerCtrl>())
    , m_pModel(new CDeviceModel(this))
    , m_calls(pInterfaceSet, this)
    , m_deviceCalls(pInterfaceSet, this)
{
    m_pUi->setupUi(this);
    m_pUi->lbConnection->Watch(GetSession());
    m_pUi->stackedWidget->setCurrentWidget(m_pUi->pageDevice);
    SetUpTable();
    SetUpTree();
    SetUpToolBar();
    SetUpCategories();
    SetUpShortcuts();
    SetUpDevices();
    SetUpDiscovery();
    RestoreLayout();
    UpdateSelectionButtons();
    UpdateStatus();
    SetUpObservers();
    OnRightsChanged();
    if (IsConnected())
        QueryAll();
    else
        OnDisconnectCms();
}

CDeviceManagerCtrl::~CDeviceManagerCtrl()
{
    m_exportFuture.waitForFinished();
}

void CDeviceManagerCtrl::SetUpTable()
{
    QTreeView* pTable = m_pUi->treeDevice;
    pTable->setModel(m_pModel);
    m_pHeader = new CDeviceTableHeader(pTable);
    m_pHeader->setObjectName(QStringLiteral("headerDevice"));
    pTable->setHeader(m_pHeader);
    // A view that does not sort by itself takes these away from the header that it gets.
    m_pHeader->setSectionsClickable(true);
    m_pHeader->setSortIndicatorShown(true);
    m_pHeader->setStretchLastSection(true);
    m_pHeader->setSortIndicator(m_nSortColumn, m_sortOrder);
    const int widths[] = {40, 100, 104, 148, 118, 120, 110, 124, 116, 120, 120, 118};
    for (int nColumn = 0; nColumn < ColumnCount; ++nColumn)
        m_pHeader->resizeSection(nColumn, widths[nColumn]);
    m_pHeader->setSectionResizeMode(ColumnCheck, QHeaderView::Fixed);
    m_pHeader->setMinimumSectionSize(40);

    m_pRowButtons = new Common::CRowButtonDelegate(
        {{RoleDetails, Trv::GetIcon(QStringLiteral("details")), Text::tr("Details")},
            {RoleEdit, Trv::GetIcon(QStringLiteral("edit")), Text::tr("Edit")},
            {RoleMoveTo, Trv::GetIcon(QStringLiteral("move")), Text::tr("Move To")},
            {RoleDelete, Trv::GetIcon(QStringLiteral("delete")), Text::tr("Delete")}},
        this);
    m_pRowButtons->setObjectName(QStringLiteral("rowButtons"));
    pTable->setItemDelegateForColumn(ColumnOperation, m_pRowButtons);
    pTable->setItemDelegateForColumn(ColumnCheck, new Common::CCheckDelegate(pTable));

    connect(m_pRowButtons, &Common::CRowButtonDelegate::SignalButtonClicked, this,
        &CDeviceManagerCtrl::OnTableBtnClicked);
    connect(m_pModel, &QAbstractItemModel::dataChanged, this, [this](const QModelIndex& index) {
        if (index.column() == ColumnCheck)
            OnCheckStateChanged(index);
    });
    connect(pTable, &QWidget::customContextMenuRequested, this, &CDeviceManagerCtrl::OnTableContextMenu);
    connect(pTable, &QAbstractItemView::doubleClicked, this, [this](const QModelIndex& index) {
        if (index.column() != ColumnCheck && index.column() != ColumnOperation)
            ShowDetails(m_pModel->GetId(index.row()));
    });
    connect(m_pHeader, &Common::CFilterHeaderView::SignalCheckAll, m_pModel, &CDeviceModel::SetAllChecked);
    connect(m_pHeader, &Common::CFilterHeaderView::SignalColumnStateChanged, this,
        &CDeviceManagerCtrl::OnTableColumnStateChanged);
    connect(m_pHeader, &CDeviceTableHeader::SignalFilterTypeChanged, this,
        &CDeviceManagerCtrl::OnDevTypeFilterChanged);
    connect(m_pHeader, &CDeviceTableHeader::sgnBtnClicked, this, &CDeviceManagerCtrl::OnStatusTypeClick);
    connect(m_pHeader, &QHeaderView::sectionClicked, this, &CDeviceManagerCtrl::OnDeviceTableHeaderSort);
    connect(m_pUi->wgtTableState, &VxGUI::VxEmptyState::SignalAction, this,
        &CDeviceManagerCtrl::OnBtnRefreshClicked);
}

void CDeviceManagerCtrl::SetUpTree()
{
    if (GroupLogical::IGroupManager* const pManager = m_calls.GetManager())
        m_pUi->wgtOrgTree->SetLevelLimit(pManager->GetOrganizationLevelLimit());
    // Its style sheet goes by the class name.
    m_pUi->wgtOrgTree->setObjectName(QStringLiteral("COrganizationTreeCtrl"));
    m_pUi->pageOrg->SetInterfaceSet(GetInterfaceSet());
    m_pUi->pageDetail->SetInterfaceSet(GetInterfaceSet());
    const COrganizationTreeCtrl* pTree = m_pUi->wgtOrgTree;
    connect(pTree, &COrganizationTreeCtrl::SignalSelectionChanged, this,
        &CDeviceManagerCtrl::OnTreeSelectionChanged);
    connect(pTree, &COrganizationTreeCtrl::SignalAddOrg, this, &CDeviceManagerCtrl::OnAddOrg);
    connect(pTree, &COrganizationTreeCtrl::SignalModifyOrg, this, &CDeviceManagerCtrl::OnEditOrg);
    connect(pTree, &COrganizationTreeCtrl::SignalDeleteOrg, this, &CDeviceManagerCtrl::OnDeleteOrg);
    connect(pTree, &COrganizationTreeCtrl::SignalMoveOrg, this, &CDeviceManagerCtrl::OnMoveOrg);
    connect(
        pTree, &COrganizationTreeCtrl::SignalModifyDeviceOrg, this, &CDeviceManagerCtrl::OnModifyDeviceOrg);
    connect(m_pUi->pageOrg, &COrganizationEditPage::SignalAddOrModifyOrgComplete, this,
        &CDeviceManagerCtrl::OnAddOrModifyOrgComplete);
    connect(m_pUi->pageOrg, &COrganizationEditPage::SignalFirstBtnClicked, this,
        &CDeviceManagerCtrl::OnTitleFirstBtnClicked);
    connect(m_pUi->pageDetail, &CDeviceDetailPage::SignalFirstBtnClicked, this,
        &CDeviceManagerCtrl::OnTitleFirstBtnClicked);
    connect(m_pUi->pageDetail, &CDeviceDetailPage::SignalShowAccess, this, &CDeviceManagerCtrl::ShowAccess);
}

void CDeviceManagerCtrl::SetUpToolBar()
{
    const std::pair<QPushButton*, const char*> icons[] = {{m_pUi->btnAdd, "add"},
        {m_pUi->btnDelete, "delete"}, {m_pUi->btnImport, "import"}, {m_pUi->btnExport, "export"},
        {m_pUi->btnMoveTo, "move"}, {m_pUi->btnResetPwd, "password"}, {m_pUi->btnTimeZone, "clock"},
        {m_pUi->btnRefresh, "refresh"}};
    for (const auto& [pButton, pszIcon] : icons)
        pButton->setIcon(Trv::GetIcon(QString::fromLatin1(pszIcon)));
    auto* const pFlow = new Common::CFlowLayout(m_pUi->wgtActions);
    for (QPushButton* pButton : {m_pUi->btnAdd, m_pUi->btnDelete, m_pUi->btnImport, m_pUi->btnExport,
             m_pUi->btnMoveTo, m_pUi->btnResetPwd, m_pUi->btnTimeZone, m_pUi->btnRefresh})
        pFlow->addWidget(pButton);
    m_pUi->editSearch->SetBackgroundText(Text::tr("Device Name/IP"));
    connect(m_pUi->btnDelete, &QAbstractButton::clicked, this, &CDeviceManagerCtrl::OnBtnDeleteClicked);
    connect(m_pUi->btnExport, &QAbstractButton::clicked, this, &CDeviceManagerCtrl::OnBtnExportClicked);
    connect(m_pUi->btnMoveTo, &QAbstractButton::clicked, this, &CDeviceManagerCtrl::OnBtnMoveToClicked);
    connect(m_pUi->btnRefresh, &QAbstractButton::clicked, this, &CDeviceManagerCtrl::OnBtnRefreshClicked);
    connect(
        m_pUi->editSearch, &VxGUI::VxSearchBox::SignalSearch, this, &CDeviceManagerCtrl::OnBtnSearchClicked);
    connect(m_pUi->wgtTableFlip, &UICommonMdl::CNumberPageCtrl::SignalCurrentPageChanged, this,
        &CDeviceManagerCtrl::OnPageFlipQueryCurrentPage);
    connect(m_pUi->wgtTableFlip, &UICommonMdl::CNumberPageCtrl::SignalPageSizeChanged, this,
        [this](int nPageSize) {
            if (m_pLocalConfig)
                m_pLocalConfig->SetValue(QStringLiteral("DeviceManager/PageSize"), nPageSize);
            OnPageFlipQueryCurrentPage(1);
        });
    connect(m_pUi->splitter, &QSplitter::splitterMoved, this, &CDeviceManagerCtrl::OnSplitterMoved);
}

void CDeviceManagerCtrl::SetUpCategories()
{
    m_mapCategoryButtons = {{Common::CategoryAll, m_pUi->btnAllDevice}, {1, m_pUi->btnEncodeDevice},
        {43, m_pUi->btnRaderDevice}, {4, m_pUi->btnVideoWallDevice}, {34, m_pUi->btnEmergency},
        {40, m_pUi->btnPOSDevice}, {3, m_pUi->btnAlarmHostDevice}, {8, m_pUi->btnAccessDevice},
        {21, m_pUi->btnVideoTalkDevice}, {5, m_pUi->btnANPRPicDevice}, {16, m_pUi->btnLedDevice},
        {45, m_pUi->btnVideoWallControlDevice},
        {Common::CategoryLiftController, m_pUi->btnLiftControllerDevice}};
    auto* pFlow = new Common::CFlowLayout(m_pUi->wgtFilter);
    const auto listButtons =
        m_pUi->wgtFilter->findChildren<QPushButton*>(QString(), Qt::FindDirectChildrenOnly);
    for (QPushButton* pButton : listButtons)
        pFlow->addWidget(pButton);
    for (const auto& [nCategory, pButton] : m_mapCategoryButtons) {
        pButton->setCheckable(true);
        connect(pButton, &QAbstractButton::clicked, this, &CDeviceManagerCtrl::OnFilterBtnClicked);
    }
    m_mapCategoryButtons[Common::CategoryAll]->setChecked(true);
    ShowCategories({});
    connect(this, &CDeviceManagerCtrl::SignalGetDeviceType, this, &CDeviceManagerCtrl::OnGetDevType);
}

void CDeviceManagerCtrl::SetUpShortcuts()
{
    const auto onTable = [this](const QKeySequence& keys, auto action) {
        auto* pShortcut = new QShortcut(keys, m_pUi->treeDevice, nullptr, nullptr, Qt::WidgetShortcut);
        connect(pShortcut, &QShortcut::activated, this, action);
    };
    const auto ifCurrent = [this](int nRole) {
        const QModelIndex index = m_pUi->treeDevice->currentIndex();
        if (index.isValid())
            OnTableBtnClicked(index, nRole);
    };
    onTable(Qt::Key_Return, [ifCurrent] { ifCurrent(RoleDetails); });
    onTable(Qt::Key_Enter, [ifCurrent] { ifCurrent(RoleDetails); });
    onTable(Qt::Key_F2, [ifCurrent] { ifCurrent(RoleEdit); });
    onTable(Qt::Key_Delete, [ifCurrent] { ifCurrent(RoleDelete); });
    onTable(Qt::Key_Space, [this] { OnToggleChecks(); });
    m_pUi->btnAdd->setShortcut(QKeySequence::New);
    m_pUi->btnRefresh->setShortcut(Qt::Key_F5);
    auto* pFind = new QShortcut(QKeySequence::Find, this, nullptr, nullptr, Qt::WidgetWithChildrenShortcut);
    connect(pFind, &QShortcut::activated, m_pUi->editSearch, [this] { m_pUi->editSearch->setFocus(); });
}

void CDeviceManagerCtrl::SetUpObservers()
{
    using GroupLogical::IGroupManagerObserver;
    m_calls.OnPush(IGroupManagerObserver::ResultOrganizationsChanged,
        [this](const GroupParam&) { QueryLater(true, true); });
    m_calls.OnPush(
        IGroupManagerObserver::ResultDevicesChanged, [this](const GroupParam&) { QueryLater(false, true); });
    m_deviceCalls.OnPush(RemoteConfigLogical::IRemoteDeviceObserver::ResultDeviceState,
        [this](const RemoteParam& param) { OnDeviceStates(param); });
    connect(this, &CDeviceManagerCtrl::SignalExportFinished, this, &CDeviceManagerCtrl::OnExportFinished,
        Qt::QueuedConnection);
    m_queryTimer.setSingleShot(true);
    m_queryTimer.setInterval(PushDelayMs);
    connect(&m_queryTimer, &QTimer::timeout, this, &CDeviceManagerCtrl::OnQueryTimer);
}

void CDeviceManagerCtrl::RestoreLayout()
{
    QStringList listHidden;
    for (int nColumn = 0; nColumn < ColumnCount; ++nColumn) {
        if (!m_pModel->GetColumns()[nColumn].bShown)
            listHidden.append(QString::number(nColumn));
    }
    int nTreeWidth = DefaultTreeWidth;
    if (m_pLocalConfig) {
        const QVariant vHidden = m_pLocalConfig->GetValue(QStringLiteral("DeviceManager/HiddenColumns"));
        if (vHidden.isValid())
            listHidden = vHidden.toString().split(QLatin1Char(','), Qt::SkipEmptyParts);
        nTreeWidth =
            m_pLocalConfig->GetValue(QStringLiteral("DeviceManager/TreeWidth"), DefaultTreeWidth).toInt();
        const int nPageSize = m_pLocalConfig->GetValue(QStringLiteral("DeviceManager/PageSize")).toInt();
        if (nPageSize > 0)
            m_pUi->wgtTableFlip->SetPageSize(nPageSize);
    }
    for (int nColumn = ColumnId; nColumn < ColumnOperation; ++nColumn)
        m_pHeader->setSectionHidden(nColumn, listHidden.contains(QString::number(nColumn)));
    m_pUi->splitter->setSizes({nTreeWidth, 1000, DefaultDiscoveryWidth});
    m_pUi->splitter->setStretchFactor(0, 0);
    m_pUi->splitter->setStretchFactor(1, 1);
    m_pUi->splitter->setStretchFactor(2, 0);
    ShowDiscovery(m_pLocalConfig
        && m_pLocalConfig->GetValue(QStringLiteral("DeviceManager/DiscoveryShown"), false).toBool());
}

} // namespace ResourceManagerUI

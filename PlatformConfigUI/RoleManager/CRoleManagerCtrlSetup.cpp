#include "CRoleManagerCtrl.h"

#include "CRoleModel.h"
#include "ui_CRoleManagerCtrl.h"

#include <Trv/QSkin.h>
#include <common/CCheckDelegate.h>
#include <common/CFilterHeaderView.h>
#include <common/CRowButtonDelegate.h>

#include <QShortcut>

namespace PlatformConfigUI {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CRoleManagerCtrl)
};

constexpr int PushDelayMs = 200;

} // namespace

CRoleManagerCtrl::CRoleManagerCtrl(UICommonMdl::CInterfaceSetManager* pInterfaceSet, QWidget* pParent)
    : CPage(pInterfaceSet, QStringLiteral("PlatformConfigUI/RoleManager"), pParent)
    , m_pUi(std::make_unique<Ui::CRoleManagerCtrl>())
    , m_pModel(new CRoleModel(this))
    , m_calls(pInterfaceSet, this)
{
    m_pUi->setupUi(this);
    m_pUi->lbConnection->Watch(GetSession());
    SetUpToolBar();
    SetUpList();
    SetUpKeys();
    m_queryTimer.setSingleShot(true);
    m_queryTimer.setInterval(PushDelayMs);
    connect(&m_queryTimer, &QTimer::timeout, this, &CRoleManagerCtrl::QueryRoles);
    m_calls.OnPush(UserLogical::IUserManagerObserve::ResultRolesChanged, [this](const UserParam&) {
        if (IsConnected() && !m_queryTimer.isActive())
            m_queryTimer.start();
    });
    OnRightsChanged();
    if (IsConnected())
        QueryRoles();
    else
        OnConnectionChanged(false);
}

CRoleManagerCtrl::~CRoleManagerCtrl() = default;

void CRoleManagerCtrl::SetUpToolBar()
{
    const std::pair<QPushButton*, const char*> icons[] = {
        {m_pUi->btnAdd, "add"}, {m_pUi->btnDelete, "delete"}, {m_pUi->btnRefresh, "refresh"}};
    for (const auto& [pButton, pszIcon] : icons)
        pButton->setIcon(Trv::GetIcon(QLatin1String(pszIcon)));
    m_pUi->editSearch->SetBackgroundText(Text::tr("Role"));
    connect(m_pUi->btnAdd, &QAbstractButton::clicked, this, &CRoleManagerCtrl::OnBtnAddClicked);
    connect(m_pUi->btnDelete, &QAbstractButton::clicked, this, &CRoleManagerCtrl::OnBtnDeleteClicked);
    connect(m_pUi->btnRefresh, &QAbstractButton::clicked, this, &CRoleManagerCtrl::QueryRoles);
    connect(m_pUi->wgtListState, &VxGUI::VxEmptyState::SignalAction, this, &CRoleManagerCtrl::QueryRoles);
    connect(m_pUi->editSearch, &QLineEdit::textChanged, this, [this](const QString& sText) {
        m_sSearchText = sText.trimmed();
        ShowRoles();
    });
}

void CRoleManagerCtrl::SetUpList()
{
    QTreeView* const pList = m_pUi->treeRole;
    pList->setRootIsDecorated(false);
    pList->setUniformRowHeights(true);
    pList->setMouseTracking(true);
    pList->setAllColumnsShowFocus(true);
    pList->setEditTriggers(QAbstractItemView::NoEditTriggers);
    pList->setSelectionMode(QAbstractItemView::ExtendedSelection);
    pList->setContextMenuPolicy(Qt::CustomContextMenu);
    pList->setModel(m_pModel);
    m_pHeader = new Common::CFilterHeaderView(pList);
    m_pHeader->setObjectName(QStringLiteral("headerRoles"));
    pList->setHeader(m_pHeader);
    m_pHeader->SetCheckSection(RoleColumnCheck);
    m_pHeader->setMinimumSectionSize(40);
    m_pHeader->setStretchLastSection(false);
    m_pHeader->setSectionsClickable(true);
    const int widths[] = {40, 260, 400, 110, 0};
    for (int nColumn = 0; nColumn < RoleColumnId; ++nColumn)
        m_pHeader->resizeSection(nColumn, widths[nColumn]);
    m_pHeader->setSectionResizeMode(RoleColumnCheck, QHeaderView::Fixed);
    m_pHeader->setSectionResizeMode(RoleColumnRemark, QHeaderView::Stretch);
    m_pHeader->hideSection(RoleColumnId);
    m_pRowButtons = new Common::CRowButtonDelegate(
        {{RoleEdit, Trv::GetIcon(QStringLiteral("edit")), Text::tr("Edit")},
            {RoleDelete, Trv::GetIcon(QStringLiteral("delete")), Text::tr("Delete")},
            {RoleDetails, Trv::GetIcon(QStringLiteral("details")), Text::tr("Role Details")}},
        pList);
    m_pRowButtons->setObjectName(QStringLiteral("rowButtons"));
    m_pRowButtons->SetOfferRule([this](const QModelIndex& index, int nRole) {
        // The details stand in for what cannot be had; where the role can be edited the menu has them.
        const QString sId = m_pModel->GetId(index.row());
        return nRole == RoleDetails ? !IsOffered(sId, RoleEdit) : IsOffered(sId, nRole);
    });
    pList->setItemDelegateForColumn(RoleColumnCheck, new Common::CCheckDelegate(pList));
    pList->setItemDelegateForColumn(RoleColumnOperation, m_pRowButtons);

    connect(m_pRowButtons, &Common::CRowButtonDelegate::SignalButtonClicked, this,
        [this](const QModelIndex& index, int nRole) { OnOperation(nRole, m_pModel->GetId(index.row())); });
    connect(pList, &QAbstractItemView::doubleClicked, this, [this](const QModelIndex& index) {
        const QString sId = m_pModel->GetId(index.row());
        if (index.column() != RoleColumnCheck && index.column() != RoleColumnOperation)
            OnOperation(IsOffered(sId, RoleEdit) ? RoleEdit : RoleDetails, sId);
    });
    connect(pList, &QWidget::customContextMenuRequested, this, &CRoleManagerCtrl::OnContextMenu);
    connect(m_pHeader, &Common::CFilterHeaderView::SignalCheckAll, m_pModel, &CRoleModel::SetAllChecked);
    connect(m_pModel, &QAbstractItemModel::dataChanged, this, [this](const QModelIndex& index) {
        if (index.column() == RoleColumnCheck)
            UpdateButtons();
    });
}

void CRoleManagerCtrl::SetUpKeys()
{
    const auto onList = [this](const QKeySequence& keys, auto action) {
        auto* const pShortcut = new QShortcut(keys, m_pUi->treeRole, nullptr, nullptr, Qt::WidgetShortcut);
        connect(pShortcut, &QShortcut::activated, this, action);
    };
    for (const int nKey : {Qt::Key_Return, Qt::Key_Enter})
        onList(nKey, [this] { OnOperation(RoleDetails, GetCurrentId()); });
    onList(Qt::Key_F2, [this] { OnOperation(RoleEdit, GetCurrentId()); });
    onList(Qt::Key_Delete, [this] { OnOperation(RoleDelete, GetCurrentId()); });
    onList(Qt::Key_Space, [this] { OnToggleChecks(); });
    m_pUi->btnAdd->setShortcut(QKeySequence::New);
    m_pUi->btnRefresh->setShortcut(Qt::Key_F5);
    auto* const pFind =
        new QShortcut(QKeySequence::Find, this, nullptr, nullptr, Qt::WidgetWithChildrenShortcut);
    connect(pFind, &QShortcut::activated, m_pUi->editSearch, [this] { m_pUi->editSearch->setFocus(); });
}

} // namespace PlatformConfigUI

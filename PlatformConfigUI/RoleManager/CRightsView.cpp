#include "CRightsView.h"

#include "CAutoRightDelegate.h"
#include "CDeviceRightModel.h"
#include "CFuncRightModel.h"
#include "CFuncRightSortFilterProxyModel.h"
#include "CMenuRightModel.h"
#include "CMenuRightSortFilterProxyModel.h"
#include "RightRules.h"
#include "ui_CRightsView.h"

#include <UICommonMdl/CErrorCode.h>
#include <VxGUI/VxNotification.h>
#include <common/CTreeFilterProxyModel.h>
#include <common/Prompt.h>
#include <common/StyleSheet.h>

#include <QHeaderView>
#include <QMenu>
#include <QShortcut>

namespace PlatformConfigUI {

using Kind = VxGUI::VxEmptyState::Kind;

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CRightsView)
};

constexpr int RoleColumnWidth = 200;
constexpr int AutoColumnWidth = 150;
const QKeySequence AutoKey(Qt::Key_F4);

} // namespace

CRightsView::CRightsView(const UICommonMdl::CInterfaceSetManager* pInterfaceSet, Mode mode, QWidget* pParent)
    : QWidget(pParent)
    , m_mode(mode)
    , m_pUi(std::make_unique<Ui::CRightsView>())
    , m_pDevices(new CDeviceRightModel(pInterfaceSet, mode == Mode::Edit, this))
    , m_pDeviceFilter(new Common::CTreeFilterProxyModel(this))
    , m_session(pInterfaceSet, this)
{
    m_pUi->setupUi(this);
    m_menu = {new CMenuRightModel(pInterfaceSet, mode == Mode::Edit, this),
        new CMenuRightSortFilterProxyModel(this), m_pUi->treeMenu, m_pUi->editSearchMenu, m_pUi->stackMenu,
        m_pUi->wgtStateMenu};
    m_func = {new CFuncRightModel(pInterfaceSet, mode == Mode::Edit, this),
        new CFuncRightSortFilterProxyModel(this), m_pUi->treeFunc, m_pUi->editSearchFunc, m_pUi->stackFunc,
        m_pUi->wgtStateFunc};
    UserLogical::IUserManager* const pUsers = pInterfaceSet->GetUserManager();
    const int nMode = GetRightFilterMode(pUsers ? pUsers->GetUserTypeText() : std::string());
    SetUpRights(m_menu, nMode);
    SetUpRights(m_func, nMode);
    SetUpDevices();
    m_pUi->tabRights->setCurrentIndex(0);
    connect(&m_session, &Common::CSession::SignalConnectionChanged, this, [this](bool bConnected) {
        if (bConnected)
            QueryFailed();
    });
    Common::LoadStyleSheet(this, QStringLiteral("PlatformConfigUI/RoleManager"));
    m_menu.pModel->Query();
    m_func.pModel->Query();
}

CRightsView::~CRightsView() = default;

void CRightsView::SetUpRights(const RightTab& tab, int nMode)
{
    tab.pModel->SetMode(nMode);
    tab.pProxy->SetMode(nMode);
    tab.pProxy->SetGivenOnly(m_mode == Mode::ReadOnly);
    tab.pProxy->setSourceModel(tab.pModel);
    tab.pTree->SetFilterModel(tab.pProxy, CRightTreeView::Folding::Unfolded);
    tab.pTree->header()->resizeSection(CRightModel::ColumnRole, RoleColumnWidth);
    tab.pTree->setColumnHidden(CRightModel::ColumnRole, m_mode == Mode::Edit);
    tab.pTree->setHeaderHidden(m_mode == Mode::Edit);
    connect(tab.pSearch, &QLineEdit::textChanged, this, [this, tab](const QString& sText) {
        const QString sWanted = sText.trimmed();
        tab.pTree->Filter([&] { tab.pProxy->SetText(sWanted); }, !sWanted.isEmpty());
        UpdateRights(tab);
    });
    connect(tab.pModel, &CRightModel::SignalStateChanged, this, [this, tab] { UpdateRights(tab); });
    connect(tab.pModel, &CRightModel::SignalEdited, this, &CRightsView::SignalEdited);
    connect(tab.pState, &VxGUI::VxEmptyState::SignalAction, tab.pModel, &CRightModel::Query);
}

void CRightsView::SetUpDevices()
{
    CRightTreeView* const pTree = m_pUi->treeDevice;
    m_pDeviceFilter->setSourceModel(m_pDevices);
    pTree->SetFilterModel(m_pDeviceFilter, CRightTreeView::Folding::Folded);
    pTree->header()->resizeSection(CDeviceRightModel::ColumnRole, RoleColumnWidth);
    pTree->header()->resizeSection(CDeviceRightModel::ColumnAuto, AutoColumnWidth);
    pTree->setColumnHidden(CDeviceRightModel::ColumnRole, m_mode == Mode::Edit);
    auto* const pSwitches = new CAutoRightDelegate(pTree);
    pTree->setItemDelegateForColumn(CDeviceRightModel::ColumnAuto, pSwitches);
    connect(m_pUi->editSearchDevice, &QLineEdit::textChanged, this, [this, pTree](const QString& sText) {
        const QString sWanted = sText.trimmed();
        pTree->Filter([&] { m_pDeviceFilter->SetText(sWanted); }, !sWanted.isEmpty());
        UpdateDevices();
    });
    connect(pTree, &CRightTreeView::SignalUnfolded, m_pDevices, &CDeviceRightModel::OnItemExpanded);
    connect(m_pDevices, &CDeviceRightModel::SignalBranchFailed, this, &CRightsView::OnBranchFailed);
    // A branch that turns out to be empty loses its arrow.
    connect(
        m_pDevices, &CDeviceRightModel::SignalBranchLoaded, pTree, [this, pTree](const QModelIndex& source) {
            if (!m_pDevices->hasChildren(source))
                pTree->Filter([] {}, !m_pDeviceFilter->GetText().isEmpty());
        });
    connect(m_pDevices, &CDeviceRightModel::SignalStateChanged, this, [this, pTree] {
        UpdateDevices();
        pTree->expand(m_pDeviceFilter->index(0, 0));
    });
    connect(
        m_pUi->wgtStateDevice, &VxGUI::VxEmptyState::SignalAction, m_pDevices, &CDeviceRightModel::QueryRoot);
    connect(m_pDevices, &CDeviceRightModel::SignalEdited, this, &CRightsView::SignalEdited);
    if (m_mode == Mode::Edit) {
        connect(pSwitches, &CAutoRightDelegate::SignalToggled, this, &CRightsView::OnToggleAuto);
        SetUpDeviceKeys();
    }
}

void CRightsView::SetUpDeviceKeys()
{
    CRightTreeView* const pTree = m_pUi->treeDevice;
    auto* const pAuto = new QShortcut(AutoKey, pTree, nullptr, nullptr, Qt::WidgetShortcut);
    connect(pAuto, &QShortcut::activated, this, [this, pTree] { OnToggleAuto(pTree->currentIndex()); });
    pTree->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(pTree, &QWidget::customContextMenuRequested, this, &CRightsView::OnDeviceMenu);
}

void CRightsView::ShowRoles(const std::vector<UserLogical::Role_t>& vecRoles)
{
    for (const RightTab* pTab : {&m_menu, &m_func}) {
        pTab->pModel->ShowRoles(vecRoles);
        UpdateRights(*pTab);
    }
    m_pDevices->ShowRoles(vecRoles);
}

void CRightsView::QueryFailed()
{
    for (const RightTab* pTab : {&m_menu, &m_func}) {
        if (pTab->pModel->GetState() == CRightModel::State::Failed)
            pTab->pModel->Query();
    }
    if (m_pDevices->GetState() == CDeviceRightModel::State::Failed)
        m_pDevices->QueryRoot();
}

std::vector<std::string> CRightsView::GetMenuRights() const
{
    return m_menu.pModel->GetGiven();
}

std::vector<std::string> CRightsView::GetFuncRights() const
{
    return m_func.pModel->GetGiven();
}

std::vector<UserLogical::DeviceRightChange_t> CRightsView::GetDeviceChanges() const
{
    return m_pDevices->GetChanges();
}

QString CRightsView::GetRightName(const QString& sCode) const
{
    const QString sName = m_menu.pModel->GetRightName(sCode);
    return sName.isEmpty() ? m_func.pModel->GetRightName(sCode) : sName;
}

void CRightsView::ShowFailed(VxGUI::VxEmptyState* pState, int nErrorCode)
{
    if (nErrorCode == UICommonMdl::ErrorNoRight)
        pState->SetState(Kind::NoPermission, Text::tr("You have no permission to see rights."));
    else
        pState->SetState(Kind::Failed, Text::tr("Failed to get rights."),
            UICommonMdl::CErrorCode::GetErroCodeInfor(nErrorCode), Text::tr("Refresh"));
}

void CRightsView::UpdateRights(const RightTab& tab)
{
    const CRightModel::State state = tab.pModel->GetState();
    const bool bShown = state == CRightModel::State::Loaded && tab.pProxy->rowCount() > 0;
    if (state == CRightModel::State::Loading)
        tab.pState->SetState(Kind::Loading, Text::tr("Loading rights"));
    else if (state == CRightModel::State::Failed)
        ShowFailed(tab.pState, tab.pModel->GetError());
    else if (!tab.pProxy->GetText().isEmpty())
        tab.pState->SetState(Kind::Empty, Text::tr("No right matches the search."));
    else if (m_mode == Mode::ReadOnly)
        tab.pState->SetState(Kind::Empty, Text::tr("No rights of this kind are given."));
    else
        tab.pState->SetState(Kind::Empty, Text::tr("There are no rights that you can give."));
    tab.pStack->setCurrentWidget(bShown ? static_cast<QWidget*>(tab.pTree) : tab.pState);
}

void CRightsView::UpdateDevices()
{
    VxGUI::VxEmptyState* const pState = m_pUi->wgtStateDevice;
    const CDeviceRightModel::State state = m_pDevices->GetState();
    const bool bShown = state == CDeviceRightModel::State::Loaded && m_pDeviceFilter->rowCount() > 0;
    if (state == CDeviceRightModel::State::Loading)
        pState->SetState(Kind::Loading, Text::tr("Loading organizations and devices"));
    else if (state == CDeviceRightModel::State::Failed)
        ShowFailed(pState, m_pDevices->GetError());
    else if (!m_pDeviceFilter->GetText().isEmpty())
        pState->SetState(Kind::Empty, Text::tr("Nothing matches the search."),
            Text::tr("Only what is unfolded in the tree is searched."));
    else
        pState->SetState(Kind::Empty, Text::tr("No rights of this kind are given."));
    m_pUi->stackDevice->setCurrentWidget(bShown ? static_cast<QWidget*>(m_pUi->treeDevice) : pState);
}

void CRightsView::OnBranchFailed(const QModelIndex& source, int nErrorCode)
{
    // Folded, so that a double click unfolds it again and asks once more.
    m_pUi->treeDevice->collapse(m_pDeviceFilter->mapFromSource(source));
    VxGUI::VxNotification::Show(this,
        Common::FailureText(
            Text::tr("Failed to get organizations or devices. Please double-click organization node again."),
            nErrorCode));
}

void CRightsView::OnToggleAuto(const QModelIndex& index)
{
    const QModelIndex source = m_pDeviceFilter->mapToSource(index);
    if (source.data(CDeviceRightModel::RoleAuto).toInt() == CDeviceRightModel::AutoInherited)
        VxGUI::VxNotification::Show(this,
            Text::tr("Auto Authorization is enabled for an organization above."),
            VxGUI::NotificationKind::Information);
    else
        m_pDevices->ToggleAuto(source);
}

void CRightsView::OnDeviceMenu(const QPoint& pos)
{
    const QPersistentModelIndex index = m_pUi->treeDevice->indexAt(pos);
    const int nAuto = index.data(CDeviceRightModel::RoleAuto).toInt();
    if (nAuto == CDeviceRightModel::AutoNone)
        return;
    auto* const pMenu = new QMenu(this);
    pMenu->setObjectName(QStringLiteral("menuDeviceRights"));
    pMenu->setAttribute(Qt::WA_DeleteOnClose);
    QAction* const pAction = pMenu->addAction(Text::tr("Auto Authorization"));
    pAction->setCheckable(true);
    pAction->setChecked(nAuto != CDeviceRightModel::AutoOff);
    pAction->setEnabled(nAuto != CDeviceRightModel::AutoInherited);
    pAction->setShortcut(AutoKey);
    pAction->setShortcutContext(Qt::WidgetShortcut);
    connect(pAction, &QAction::triggered, this, [this, index] { OnToggleAuto(index); });
    pMenu->popup(m_pUi->treeDevice->viewport()->mapToGlobal(pos));
}

} // namespace PlatformConfigUI

#include "CUserDetailPermission.h"

#include "CRoleCheckButton.h"
#include "UserRules.h"
#include "ui_CUserDetailPermission.h"

#include <RoleManager/CRightsView.h>
#include <Trv/QSkin.h>
#include <UICommonMdl/CErrorCode.h>
#include <VxGUI/RequiredMark.h>
#include <VxGUI/VxNotification.h>
#include <common/CRowButtonDelegate.h>
#include <common/CTableModel.h>
#include <common/Prompt.h>

#include <QShortcut>

namespace PlatformConfigUI {

using UserLogical::IUserManager;
using UserLogical::Role_t;
using Kind = VxGUI::VxEmptyState::Kind;

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CUserDetailPermission)
};

enum Column : int
{
    ColumnRole = 0,
    ColumnOperation,
    ColumnId
};

constexpr int OperationWidth = 48;
constexpr int ButtonDelete = 1;

} // namespace

CUserDetailPermission::CUserDetailPermission(
    const UICommonMdl::CInterfaceSetManager* pInterfaceSet, QWidget* pParent)
    : QWidget(pParent)
    , m_pUi(std::make_unique<Ui::CUserDetailPermission>())
    , m_pModel(new Common::CTableModel(
          {{Text::tr("Role"), true}, {QString(), true}, {QString(), false}}, ColumnId, -1, this))
    , m_pRowButtons(new Common::CRowButtonDelegate(
          {{ButtonDelete, Trv::GetIcon(QStringLiteral("delete")), Text::tr("Delete")}}, this))
    , m_pRights(new CRightsView(pInterfaceSet, CRightsView::Mode::ReadOnly, this))
    , m_session(pInterfaceSet, this)
    , m_calls(pInterfaceSet, this)
{
    m_pUi->setupUi(this);
    m_pRights->setObjectName(QStringLiteral("wgtRights"));
    m_pUi->stackRights->addWidget(m_pRights);
    SetUpList();
    connect(
        m_pUi->btnAddRole, &CRoleCheckButton::SignalChosenChanged, this, &CUserDetailPermission::SetChosen);
    connect(m_pUi->btnAllRoles, &QAbstractButton::clicked, this, [this] {
        m_pUi->listRoles->clearSelection();
        OnRoleClicked(QString());
    });
    connect(m_pUi->wgtRolesState, &VxGUI::VxEmptyState::SignalAction, this, &CUserDetailPermission::Query);
    connect(
        m_pUi->wgtRightsState, &VxGUI::VxEmptyState::SignalAction, this, &CUserDetailPermission::QueryRole);
    connect(&m_session, &Common::CSession::SignalConnectionChanged, this,
        &CUserDetailPermission::OnConnectionChanged);
    m_calls.OnPush(UserLogical::IUserManagerObserve::ResultRolesChanged, [this](const Param&) {
        if (m_session.IsConnected())
            Query();
    });
    ShowChosen();
}

CUserDetailPermission::~CUserDetailPermission() = default;

void CUserDetailPermission::SetUpList()
{
    QTreeView* const pList = m_pUi->listRoles;
    pList->setModel(m_pModel);
    pList->setColumnHidden(ColumnId, true);
    pList->header()->setMinimumSectionSize(OperationWidth);
    pList->header()->setStretchLastSection(false);
    pList->header()->setSectionResizeMode(ColumnRole, QHeaderView::Stretch);
    pList->header()->setSectionResizeMode(ColumnOperation, QHeaderView::Fixed);
    pList->header()->resizeSection(ColumnOperation, OperationWidth);
    m_pRowButtons->setObjectName(QStringLiteral("rowButtonsRole"));
    pList->setItemDelegateForColumn(ColumnOperation, m_pRowButtons);
    const auto remove = [this](const QModelIndex& index) {
        QStringList listIds = m_listChosen;
        listIds.removeAll(m_pModel->GetId(index.row()));
        SetChosen(listIds);
    };
    connect(m_pRowButtons, &Common::CRowButtonDelegate::SignalButtonClicked, this, remove);
    connect(pList->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
        [this](const QModelIndex& current) {
            if (current.isValid())
                OnRoleClicked(m_pModel->GetId(current.row()));
        });
    connect(pList, &QAbstractItemView::clicked, this,
        [this](const QModelIndex& index) { OnRoleClicked(m_pModel->GetId(index.row())); });
    auto* const pDelete = new QShortcut(Qt::Key_Delete, pList, nullptr, nullptr, Qt::WidgetShortcut);
    connect(pDelete, &QShortcut::activated, this, [this, pList, remove] {
        if (!m_bReadOnly && pList->currentIndex().isValid())
            remove(pList->currentIndex());
    });
}

void CUserDetailPermission::StartChoice(const std::vector<std::string>& vecRoleIds)
{
    m_bReadOnly = false;
    m_bLoaded = false;
    m_listChosen = FromNames(vecRoleIds);
    ShowTogether();
    QueryRoles();
}

void CUserDetailPermission::ShowUser(const QString& sUserName)
{
    m_bReadOnly = true;
    m_bLoaded = false;
    m_sUserName = sUserName;
    ShowTogether();
    QueryUserRoles();
}

std::vector<std::string> CUserDetailPermission::GetChosen() const
{
    return ToNames(m_listChosen);
}

QString CUserDetailPermission::GetRoleNames(const std::vector<std::string>& vecRoleIds) const
{
    QStringList listNames;
    for (const std::string& sId : vecRoleIds) {
        const Role_t* const pRole = FindRole(QString::fromStdString(sId));
        listNames.append(QString::fromStdString(pRole ? pRole->sName : sId));
    }
    return listNames.join(QStringLiteral(", "));
}

void CUserDetailPermission::StartInput()
{
    m_pUi->btnAddRole->setFocus();
}

void CUserDetailPermission::OnConnectionChanged(bool bConnected)
{
    m_pUi->wgtRolesState->setEnabled(bConnected);
    m_pUi->wgtRightsState->setEnabled(bConnected);
    if (bConnected)
        Query();
}

void CUserDetailPermission::Query()
{
    if (!m_bReadOnly)
        QueryRoles();
    else if (!m_sUserName.isEmpty())
        QueryUserRoles();
}

void CUserDetailPermission::QueryRoles()
{
    const QString sFailure = Text::tr("Failed to get roles.");
    m_calls.Forget<&IUserManager::QueryUserRole>();
    m_calls.Latest<&IUserManager::QueryRoleList>(
        [this, sFailure](const Param& param) { OnRoles(param, sFailure); });
    ShowChosen();
}

void CUserDetailPermission::QueryUserRoles()
{
    const QString sFailure = Text::tr("Failed to get user role.");
    m_calls.Forget<&IUserManager::QueryRoleList>();
    m_calls.Latest<&IUserManager::QueryUserRole>(
        m_sUserName.toStdString(), [this, sFailure](const Param& param) { OnRoles(param, sFailure); });
    ShowChosen();
}

void CUserDetailPermission::OnRoles(const Param& param, const QString& sFailure)
{
    if (param.nErrorCode != UICommonMdl::ErrorNone) {
        VxGUI::VxNotification::Show(this, Common::FailureText(sFailure, param.nErrorCode));
        ShowRolesState(param.nErrorCode, sFailure);
        return;
    }
    m_vecRoles = param.vecRoles;
    m_bLoaded = true;
    if (m_bReadOnly) {
        m_listChosen.clear();
        for (const Role_t& role : m_vecRoles)
            m_listChosen.append(QString::fromStdString(role.sRoleId));
    } else {
        DropUnknown();
    }
    if (!m_listChosen.contains(m_sCurrent))
        m_sCurrent.clear();
    ShowChosen();
    if (m_sCurrent.isEmpty())
        ShowTogether();
    else
        QueryRole();
}

void CUserDetailPermission::DropUnknown()
{
    const auto itUnknown = std::remove_if(m_listChosen.begin(), m_listChosen.end(),
        [this](const QString& sRoleId) { return FindRole(sRoleId) == nullptr; });
    if (itUnknown == m_listChosen.end())
        return;
    m_listChosen.erase(itUnknown, m_listChosen.end());
    VxGUI::VxNotification::Show(this,
        Text::tr("A chosen role does not exist any more. It was taken off the list."),
        VxGUI::NotificationKind::Warning);
}

const Role_t* CUserDetailPermission::FindRole(const QString& sRoleId) const
{
    const auto it = std::find_if(m_vecRoles.begin(), m_vecRoles.end(),
        [sId = sRoleId.toStdString()](const Role_t& role) { return role.sRoleId == sId; });
    return it == m_vecRoles.end() ? nullptr : &*it;
}

void CUserDetailPermission::SetChosen(const QStringList& listIds)
{
    m_listChosen = listIds;
    if (!m_listChosen.contains(m_sCurrent))
        ShowTogether();
    ShowChosen();
}

void CUserDetailPermission::ShowChosen()
{
    m_pUi->btnAddRole->setVisible(!m_bReadOnly);
    VxGUI::MarkRequired(m_pUi->btnAddRole, !m_bReadOnly);
    m_pUi->btnAddRole->setEnabled(m_bLoaded);
    m_pUi->btnAddRole->SetRoles(m_vecRoles, m_listChosen);
    m_pUi->btnAllRoles->setVisible(m_bReadOnly && m_listChosen.size() > 1);
    m_pUi->listRoles->setColumnHidden(ColumnOperation, m_bReadOnly);
    if (!m_bLoaded) {
        m_pUi->wgtRolesState->SetState(Kind::Loading, Text::tr("Loading roles"));
        m_pUi->stackRoles->setCurrentWidget(m_pUi->wgtRolesState);
        return;
    }
    using Common::CTableModel;
    QVector<CTableModel::Row> vecRows;
    for (const QString& sRoleId : qAsConst(m_listChosen)) {
        const Role_t* const pRole = FindRole(sRoleId);
        vecRows.append({CTableModel::MakeItem(pRole ? QString::fromStdString(pRole->sName) : sRoleId),
            CTableModel::MakeItem(), CTableModel::MakeItem(sRoleId)});
    }
    const QSignalBlocker blocker(m_pUi->listRoles->selectionModel());
    m_pModel->SetRows(vecRows);
    const QModelIndex current = m_pModel->index(m_pModel->FindRow(m_sCurrent), ColumnRole);
    if (current.isValid())
        m_pUi->listRoles->setCurrentIndex(current);
    if (vecRows.isEmpty()) {
        m_pUi->wgtRolesState->SetState(Kind::Empty, Text::tr("No role is chosen."),
            m_bReadOnly ? QString() : Text::tr("Click Add to choose roles."));
        m_pUi->stackRoles->setCurrentWidget(m_pUi->wgtRolesState);
    } else {
        m_pUi->stackRoles->setCurrentWidget(m_pUi->pageRoles);
    }
}

void CUserDetailPermission::ShowRolesState(int nErrorCode, const QString& sFailure)
{
    // Roles that were there before are better than none.
    if (m_bLoaded)
        return;
    if (nErrorCode == UICommonMdl::ErrorNoRight)
        m_pUi->wgtRolesState->SetState(Kind::NoPermission, Text::tr("You have no permission to see roles."));
    else
        m_pUi->wgtRolesState->SetState(Kind::Failed, sFailure,
            UICommonMdl::CErrorCode::GetErroCodeInfor(nErrorCode), Text::tr("Refresh"));
    m_pUi->stackRoles->setCurrentWidget(m_pUi->wgtRolesState);
}

void CUserDetailPermission::OnRoleClicked(const QString& sRoleId)
{
    if (sRoleId.isEmpty()) {
        ShowTogether();
        return;
    }
    if (std::exchange(m_sCurrent, sRoleId) != sRoleId)
        QueryRole();
}

void CUserDetailPermission::QueryRole()
{
    const QString sFailure = Text::tr("Failed to get role info.");
    m_calls.Latest<&IUserManager::QueryRoleInfo>(
        m_sCurrent.toStdString(), [this, sFailure, sRoleId = m_sCurrent](const Param& param) {
            if (sRoleId != m_sCurrent)
                return;
            if (param.nErrorCode == UICommonMdl::ErrorNone) {
                ShowRights(param.vecRoles);
                return;
            }
            VxGUI::VxNotification::Show(this, Common::FailureText(sFailure, param.nErrorCode));
            m_pUi->wgtRightsState->SetState(Kind::Failed, sFailure, QString(), Text::tr("Refresh"));
            m_pUi->stackRights->setCurrentWidget(m_pUi->wgtRightsState);
        });
    m_pUi->wgtRightsState->SetState(Kind::Loading, Text::tr("Loading rights"));
    m_pUi->stackRights->setCurrentWidget(m_pUi->wgtRightsState);
}

void CUserDetailPermission::ShowTogether()
{
    m_sCurrent.clear();
    if (m_bReadOnly && m_bLoaded && !m_vecRoles.empty()) {
        ShowRights(m_vecRoles);
        return;
    }
    m_pUi->wgtRightsState->SetState(Kind::Empty, Text::tr("Click a role to see its rights."));
    m_pUi->stackRights->setCurrentWidget(m_pUi->wgtRightsState);
}

void CUserDetailPermission::ShowRights(const std::vector<Role_t>& vecRoles)
{
    m_pRights->ShowRoles(vecRoles);
    m_pUi->stackRights->setCurrentWidget(m_pRights);
}

} // namespace PlatformConfigUI

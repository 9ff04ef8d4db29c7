#include "CRoleManagerCtrl.h"

#include "CRoleListView.h"
#include "CRoleManagerEditDlg.h"
#include "CRoleModel.h"

#include <UICommonMdl/CErrorCode.h>
#include <UserLogical/RightCodes.h>
#include <VxGUI/VxSearchBox.h>
#include <common/CFailureListDlg.h>
#include <common/CListStatus.h>
#include <common/Prompt.h>

namespace PlatformConfigUI {

using UserLogical::IUserManager;
using UserLogical::Role_t;

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CRoleManagerCtrl)
};

constexpr int SearchLimit = 50;
constexpr int SearchWidth = 260;

} // namespace

CRoleManagerCtrl::CRoleManagerCtrl(UICommonMdl::CInterfaceSetManager* pInterfaceSet, QWidget* pParent)
    : CListPage(pInterfaceSet, QString(), pParent)
    , m_pList(new CRoleListView)
    , m_pSearch(new VxGUI::VxSearchBox)
    , m_calls(pInterfaceSet, this)
{
    setObjectName(QStringLiteral("CRoleManagerCtrl"));
    SetTexts({Text::tr("Loading roles"), Text::tr("Failed to get role list"),
        Text::tr("You have no permission to see roles."), Text::tr("There are no roles yet."),
        Text::tr("No role matches the search.")});
    GetFrame()->SetList(m_pList);
    GetFrame()->SetPaged(false);
    GetFrame()->GetStatus()->SetTotalText(Text::tr("Roles: %1"));
    SetUpToolBar();
    GetFrame()->Remember(pInterfaceSet->GetLocalConfig(), QStringLiteral("RoleManager"));
    connect(m_pList, &CRoleListView::SignalOperation, this, &CRoleManagerCtrl::OnOperation);
    m_calls.OnPush(
        UserLogical::IUserManagerObserve::ResultRolesChanged, [this](const Param&) { QueryLater(); });
    Start();
}

void CRoleManagerCtrl::SetUpToolBar()
{
    const Common::Need connection = GetFrame()->NeedsConnection();
    const Common::Need right = NeedsRight(
        UserLogical::RightChangeRoles, Text::tr("You have no permission to add, change or delete roles."));
    GetToolBar()->AddAction({"btnAdd", "add", Text::tr("Add"), [this] { MakeDialog()->BeginAdd(); },
        {connection, right}, QKeySequence::New});
    GetToolBar()->AddAction(
        {"btnDelete", "delete", Text::tr("Delete"), [this] { OnBtnDeleteClicked(); }, {connection, right}});
    GetToolBar()->AddAction(
        {"btnRefresh", "refresh", Text::tr("Refresh"), [this] { QueryRows(); }, {connection}, Qt::Key_F5});
    m_pSearch->setObjectName(QStringLiteral("editSearch"));
    m_pSearch->setMaximumWidth(SearchWidth);
    m_pSearch->setMaxLength(SearchLimit);
    m_pSearch->SetBackgroundText(Text::tr("Role"));
    GetFrame()->SetSearch(m_pSearch);
    connect(m_pSearch, &QLineEdit::textChanged, this, &CRoleManagerCtrl::ShowRoles);
}

void CRoleManagerCtrl::ApplyRights()
{
    m_pList->SetChangeable(HasRight(UserLogical::RightChangeRoles));
    CListPage::ApplyRights();
}

void CRoleManagerCtrl::Query()
{
    m_calls.Latest<&IUserManager::QueryRoleList>([this](const Param& param) { OnRoleList(param); });
}

bool CRoleManagerCtrl::IsFiltered() const
{
    return !m_pSearch->text().trimmed().isEmpty();
}

void CRoleManagerCtrl::OnRoleList(const Param& param)
{
    ShowAnswer(param.nErrorCode, int(param.vecRoles.size()), 1, [&] {
        m_vecRoles = param.vecRoles;
        ShowRoles();
    });
    if (m_pDialog)
        m_pDialog->SetRoles(m_vecRoles);
}

void CRoleManagerCtrl::ShowRoles()
{
    std::vector<Role_t> vecShown;
    std::copy_if(m_vecRoles.begin(), m_vecRoles.end(), std::back_inserter(vecShown),
        [sText = m_pSearch->text().trimmed()](const Role_t& role) {
            return QString::fromStdString(role.sName).contains(sText, Qt::CaseInsensitive);
        });
    m_pList->SetRoles(vecShown);
    ShowListState(UICommonMdl::ErrorNone);
}

void CRoleManagerCtrl::OnOperation(int nRole, const QString& sId)
{
    if (nRole == CRoleListView::RoleDelete)
        DeleteRoles({sId});
    else if (nRole == CRoleListView::RoleEdit)
        MakeDialog()->BeginModify(sId);
    else
        MakeDialog()->BeginDetails(sId, m_pList->IsAllowed(sId, CRoleListView::RoleEdit));
}

CRoleManagerEditDlg* CRoleManagerCtrl::MakeDialog()
{
    m_pDialog = new CRoleManagerEditDlg(GetInterfaceSet(), this);
    m_pDialog->SetRoles(m_vecRoles);
    connect(m_pDialog, &CRoleManagerEditDlg::SignalSaved, this, &CRoleManagerCtrl::QueryRows);
    m_pDialog->open();
    return m_pDialog;
}

void CRoleManagerCtrl::OnBtnDeleteClicked()
{
    const QStringList listIds = m_pList->GetRoles()->GetCheckedIds();
    if (listIds.isEmpty())
        Notify(Text::tr("Please select one or more roles to be deleted."), VxGUI::NotificationKind::Warning);
    else
        DeleteRoles(listIds);
}

void CRoleManagerCtrl::DeleteRoles(const QStringList& listIds)
{
    QStringList listNames;
    std::vector<std::string> vecIds;
    for (const QString& sId : listIds) {
        listNames.append(m_pList->GetRoles()->GetLabel(sId));
        vecIds.push_back(sId.toStdString());
    }
    if (!Common::AskDelete(this, Text::tr("Are you sure to delete role?"), listNames))
        return;
    m_calls.Each<&IUserManager::DeleteRoles>(
        vecIds, [this, listIds](const Param& param) { OnDeleteAnswer(listIds, param); });
}

void CRoleManagerCtrl::OnDeleteAnswer(const QStringList& listIds, const Param& param)
{
    QVector<Common::Failure> vecFailures;
    for (const UserLogical::UserFailure_t& failure : param.vecFailed)
        vecFailures.append({QString::fromStdString(failure.sUserName),
            UICommonMdl::CErrorCode::GetErroCodeInfor(failure.nErrorCode)});
    if (param.nErrorCode == UICommonMdl::ErrorNone && vecFailures.isEmpty())
        m_pList->GetRoles()->ForgetIds(listIds);
    QueryRows();
    TellFailures(Text::tr("Failed to delete role"), vecFailures, param.nErrorCode);
}

} // namespace PlatformConfigUI

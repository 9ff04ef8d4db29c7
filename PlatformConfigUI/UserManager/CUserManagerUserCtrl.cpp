#include "CUserManagerUserCtrl.h"

#include "CImportDominUserDlg.h"
#include "CSyncDominUserDlg.h"
#include "CUserListHeader.h"
#include "CUserListView.h"
#include "CUserManagerUserEditDlg.h"
#include "CUserModel.h"
#include "UserRules.h"

#include <UICommonMdl/CErrorCode.h>
#include <UICommonMdl/CNumberPageCtrl.h>
#include <UserLogical/RightCodes.h>
#include <VxGUI/VxSearchBox.h>
#include <common/CFailureListDlg.h>
#include <common/CListStatus.h>
#include <common/Prompt.h>

namespace PlatformConfigUI {

using UserLogical::IUserManager;
using VxGUI::NotificationKind;

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CUserManagerUserCtrl)
};

constexpr int SearchWidth = 260;

} // namespace

CUserManagerUserCtrl::CUserManagerUserCtrl(UICommonMdl::CInterfaceSetManager* pInterfaceSet, QWidget* pParent)
    : CListPage(pInterfaceSet, QString(), pParent)
    , m_pList(new CUserListView)
    , m_pSearch(new VxGUI::VxSearchBox)
    , m_calls(pInterfaceSet, this)
    , m_transfer(this, this)
{
    using Observer = UserLogical::IUserManagerObserve;
    setObjectName(QStringLiteral("CUserManagerUserCtrl"));
    SetTexts({Text::tr("Loading users"), Text::tr("Failed to get users."),
        Text::tr("You have no permission to see users."), Text::tr("No user matches the search."),
        Text::tr("No user matches the search.")});
    GetFrame()->SetList(m_pList);
    GetFrame()->GetStatus()->SetTotalText(Text::tr("Users: %1"));
    SetUpToolBar();
    GetFrame()->Remember(pInterfaceSet->GetLocalConfig(), QStringLiteral("UserManager"));
    connect(m_pList, &CUserListView::SignalOperation, this, &CUserManagerUserCtrl::OnOperation);
    connect(m_pList->GetHeader(), &CUserListHeader::SignalFilterChanged, this,
        &CUserManagerUserCtrl::QueryFirstPage);
    for (const int nResultCode : {Observer::ResultUsersChanged, Observer::ResultRolesChanged})
        m_calls.OnPush(nResultCode, [this](const Param&) { QueryLater(); });
    Start();
}

void CUserManagerUserCtrl::SetUpToolBar()
{
    const Common::Need connection = GetFrame()->NeedsConnection();
    const Common::Need right =
        NeedsRight(UserLogical::RightChangeUsers, Text::tr("You have no permission to change users."));
    const Common::Need idle = [this] {
        return m_calls.IsPending<&IUserManager::DeleteUsers>() ? Text::tr("Users are being deleted.")
                                                               : QString();
    };
    const Common::Need rows = [this] {
        return m_pList->GetUsers()->rowCount() > 0 ? QString() : Text::tr("There is no user to delete.");
    };
    Common::CToolBar* const pBar = GetToolBar();
    pBar->AddAction({"btnAdd", "add", Text::tr("Add"), [this] { OpenDialog()->BeginAdd(); },
        {connection, right}, QKeySequence::New});
    pBar->AddAction({"btnDelete", "delete", Text::tr("Delete"), [this] { OnBtnDeleteClicked(); },
        {connection, right, rows, idle}});
    pBar->AddAction({"btnImportDomain", "import-user", Text::tr("Import Domain User"),
        [this] { OnBtnImportClicked(); }, {connection, right}});
    pBar->AddAction({"btnSyncDomain", "sync", Text::tr("Sync Domain User"), [this] { OnBtnSyncClicked(); },
        {connection, right}});
    pBar->AddAction(
        {"btnRefresh", "refresh", Text::tr("Refresh"), [this] { QueryRows(); }, {connection}, Qt::Key_F5});
    m_pSearch->setObjectName(QStringLiteral("edtSearchUser"));
    m_pSearch->setAccessibleName(Text::tr("Search Username"));
    m_pSearch->setMaximumWidth(SearchWidth);
    m_pSearch->setMaxLength(UserLogical::UserName.nMax);
    m_pSearch->SetBackgroundText(Text::tr("Username"));
    GetFrame()->SetSearch(m_pSearch);
    connect(m_pSearch, &VxGUI::VxSearchBox::SignalSearch, this, [this] {
        m_sSearchText = m_pSearch->text().trimmed();
        QueryFirstPage();
    });
}

void CUserManagerUserCtrl::OnConnectionChanged(bool bConnected)
{
    if (!bConnected)
        OnStopWaitImmediately();
    CListPage::OnConnectionChanged(bConnected);
}

void CUserManagerUserCtrl::OnRightsChanged()
{
    CListPage::OnRightsChanged();
    Notify(Text::tr("Your permissions were changed."), NotificationKind::Information);
    if (IsConnected())
        QueryRows();
}

void CUserManagerUserCtrl::ApplyRights()
{
    m_pList->SetChangeable(HasRight(UserLogical::RightChangeUsers));
    CListPage::ApplyRights();
}

void CUserManagerUserCtrl::Query()
{
    UserLogical::UserPageRequest_t request;
    request.sSearchText = m_sSearchText.toStdString();
    request.nUserType = m_pList->GetHeader()->GetTypeFilter();
    request.nOnline = m_pList->GetHeader()->GetOnlineFilter();
    request.nPage = qMax(1, GetFrame()->GetPager()->GetCurrentPage());
    request.nPageSize = GetFrame()->GetPager()->GetPageSize();
    m_calls.Latest<&IUserManager::QueryUserPage>(request, [this](const Param& param) { OnUserPage(param); });
}

bool CUserManagerUserCtrl::IsFiltered() const
{
    // Who sees the page is a user: no row at all is the work of a filter.
    return true;
}

void CUserManagerUserCtrl::ClearFilters()
{
    m_pSearch->clear();
    m_sSearchText.clear();
    m_pList->GetHeader()->ClearFilters();
}

void CUserManagerUserCtrl::OnUserPage(const Param& param)
{
    ShowAnswer(param.nErrorCode, param.userPage.nTotal, param.userPage.nPage,
        [&] { m_pList->SetUsers(param.userPage.vecUsers); });
}

void CUserManagerUserCtrl::OnOperation(int nRole, const QString& sUserName)
{
    switch (nRole) {
    case CUserListView::RoleLock:
        LockUser(sUserName, true);
        break;
    case CUserListView::RoleUnlock:
        LockUser(sUserName, false);
        break;
    case CUserListView::RoleDelete:
        DeleteUsers({sUserName});
        break;
    case CUserListView::RoleEdit:
        OpenDialog()->BeginModify(sUserName);
        break;
    case CUserListView::RoleDetails:
        OpenDialog()->BeginDetails(sUserName);
        break;
    }
}

void CUserManagerUserCtrl::OnBtnDeleteClicked()
{
    const QStringList listNames = m_pList->GetUsers()->GetCheckedIds();
    if (listNames.isEmpty())
        Notify(Text::tr("Please select at least one user."), NotificationKind::Warning);
    else
        DeleteUsers(listNames);
}

void CUserManagerUserCtrl::OnBtnImportClicked()
{
    auto* const pDialog = new CImportDominUserDlg(GetInterfaceSet(), this);
    connect(pDialog, &CImportDominUserDlg::SignalUsersAdded, this, &CUserManagerUserCtrl::QueryRows);
    pDialog->open();
    pDialog->Start();
}

void CUserManagerUserCtrl::OnBtnSyncClicked()
{
    auto* const pDialog = new CSyncDominUserDlg(GetInterfaceSet(), this);
    connect(pDialog, &CSyncDominUserDlg::SignalUsersDeleted, this, &CUserManagerUserCtrl::QueryRows);
    pDialog->open();
    pDialog->Start();
}

void CUserManagerUserCtrl::LockUser(const QString& sUserName, bool bLock)
{
    if (!Common::AskPrompt(this,
            bLock ? Text::tr("Are you sure to lock the user?")
                  : Text::tr("Are you sure to unlock the user?")))
        return;
    const QString sFailure = bLock ? Text::tr("Failed to lock user.") : Text::tr("Failed to unlock user.");
    const auto onAnswer = [this, sFailure](const Param& param) {
        OnStopWaitImmediately();
        if (param.nErrorCode != UICommonMdl::ErrorNone)
            NotifyFailure(sFailure, param.nErrorCode);
        QueryRows();
    };
    WaitFor(bLock ? Text::tr("Locking the user") : Text::tr("Unlocking the user"));
    if (bLock)
        m_calls.Each<&IUserManager::LockUser>(sUserName.toStdString(), onAnswer);
    else
        m_calls.Each<&IUserManager::UnlockUser>(sUserName.toStdString(), onAnswer);
}

void CUserManagerUserCtrl::DeleteUsers(const QStringList& listNames)
{
    if (!Common::AskDelete(this, Text::tr("Are you sure to delete the user?"), listNames))
        return;
    m_calls.Each<&IUserManager::DeleteUsers>(
        ToNames(listNames), [this, listNames](const Param& param) { OnDeleteAnswer(listNames, param); });
    GetToolBar()->UpdateNeeds();
    WaitFor(Text::tr("Deleting users"));
}

void CUserManagerUserCtrl::OnDeleteAnswer(const QStringList& listNames, const Param& param)
{
    OnStopWaitImmediately();
    QVector<Common::Failure> vecFailures;
    QStringList listGone = listNames;
    for (const UserLogical::UserFailure_t& failure : param.vecFailed) {
        const QString sName = QString::fromStdString(failure.sUserName);
        vecFailures.append({sName, UICommonMdl::CErrorCode::GetErroCodeInfor(failure.nErrorCode)});
        listGone.removeAll(sName);
    }
    if (param.nErrorCode == UICommonMdl::ErrorNone || !vecFailures.isEmpty())
        m_pList->GetUsers()->ForgetIds(listGone);
    GetToolBar()->UpdateNeeds();
    QueryRows();
    TellFailures(Text::tr("Failed to delete user."), vecFailures, param.nErrorCode);
}

CUserManagerUserEditDlg* CUserManagerUserCtrl::OpenDialog()
{
    auto* const pDialog = new CUserManagerUserEditDlg(GetInterfaceSet(), this);
    connect(pDialog, &CUserManagerUserEditDlg::SignalSaved, this, &CUserManagerUserCtrl::QueryRows);
    pDialog->open();
    return pDialog;
}

void CUserManagerUserCtrl::WaitFor(const QString& sText)
{
    m_transfer.Start(sText, nullptr, Common::CTransfer::Shown::AfterAMoment);
}

void CUserManagerUserCtrl::OnStopWaitImmediately()
{
    m_transfer.Finish();
}

} // namespace PlatformConfigUI

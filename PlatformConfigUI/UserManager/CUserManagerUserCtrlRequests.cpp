#include "CUserListHeader.h"
#include "CUserListView.h"
#include "CUserManagerUserCtrl.h"
#include "CUserModel.h"
#include "UserRules.h"
#include "ui_CUserManagerUserCtrl.h"

#include <UICommonMdl/CErrorCode.h>

namespace PlatformConfigUI {

using UserLogical::IUserManager;

namespace {
struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CUserManagerUserCtrl)
};
} // namespace

void CUserManagerUserCtrl::OnRightsChanged()
{
    UpdateRights();
    Notify(Text::tr("Your permissions were changed."), VxGUI::NotificationKind::Information);
    if (IsConnected())
        OnQueryCurrentPage();
}

void CUserManagerUserCtrl::OnConnectionChanged(bool bConnected)
{
    for (QWidget* pControl :
        {static_cast<QWidget*>(m_pUi->btnRefresh), static_cast<QWidget*>(m_pUi->edtSearchUser),
            static_cast<QWidget*>(m_pUi->stackList), static_cast<QWidget*>(m_pUi->wgtPager)})
        pControl->setEnabled(bConnected);
    UpdateButtons();
    if (bConnected) {
        OnQueryCurrentPage();
        return;
    }
    m_queryTimer.stop();
    OnStopWaitImmediately();
    if (m_pUi->listUsers->GetUsers()->rowCount() == 0)
        ShowListState(UICommonMdl::ErrorDisconnected);
}

void CUserManagerUserCtrl::UpdateRights()
{
    m_bChangeable = HasRight(RightManageUsers);
    const QString sTip = m_bChangeable ? QString() : Text::tr("You have no permission to change users.");
    for (QWidget* pButton : {m_pUi->btnAdd, m_pUi->btnDelete, m_pUi->btnImportDomain, m_pUi->btnSyncDomain})
        pButton->setToolTip(sTip);
    m_pUi->listUsers->SetChangeable(m_bChangeable);
    UpdateButtons();
}

void CUserManagerUserCtrl::UpdateButtons()
{
    const bool bUsable = IsConnected() && m_bChangeable;
    for (QWidget* pButton : {m_pUi->btnAdd, m_pUi->btnImportDomain, m_pUi->btnSyncDomain})
        pButton->setEnabled(bUsable);
    const CUserModel* const pUsers = m_pUi->listUsers->GetUsers();
    m_pUi->btnDelete->setEnabled(
        bUsable && pUsers->rowCount() > 0 && !m_calls.IsPending<&IUserManager::DeleteUsers>());
    m_pUi->lbStatus->setText(Text::tr("Checked: %1").arg(pUsers->GetCheckedIds().size()));
}

UserLogical::UserPageRequest_t CUserManagerUserCtrl::MakeRequest() const
{
    UserLogical::UserPageRequest_t request;
    request.sSearchText = m_sSearchText.toStdString();
    request.nUserType = m_pUi->listUsers->GetHeader()->GetTypeFilter();
    request.nOnline = m_pUi->listUsers->GetHeader()->GetOnlineFilter();
    request.nPage = qMax(1, m_pUi->wgtPager->GetCurrentPage());
    request.nPageSize = m_pUi->wgtPager->GetPageSize();
    return request;
}

void CUserManagerUserCtrl::QueryFirstPage()
{
    m_pUi->wgtPager->SetCurrentPage(1);
    OnQueryCurrentPage();
}

void CUserManagerUserCtrl::OnQueryCurrentPage()
{
    m_calls.Latest<&IUserManager::QueryUserPage>(
        MakeRequest(), [this](const Param& param) { OnUserPage(param); });
    if (m_pUi->listUsers->GetUsers()->rowCount() > 0)
        return;
    m_pUi->wgtListState->SetState(VxGUI::VxEmptyState::Kind::Loading, Text::tr("Loading users"));
    m_pUi->stackList->setCurrentWidget(m_pUi->wgtListState);
}

void CUserManagerUserCtrl::OnUserPage(const Param& param)
{
    if (param.nErrorCode == UICommonMdl::ErrorNone) {
        m_pUi->listUsers->SetUsers(param.userPage.vecUsers);
        m_pUi->wgtPager->SetTotalCount(param.userPage.nTotal);
        m_pUi->wgtPager->SetCurrentPage(param.userPage.nPage);
        ShowListState(UICommonMdl::ErrorNone);
        UpdateButtons();
        return;
    }
    NotifyFailure(Text::tr("Failed to get users."), param.nErrorCode);
    // While the connection is lost the rows of before stay, with their checks.
    if (param.nErrorCode == UICommonMdl::ErrorDisconnected && m_pUi->listUsers->GetUsers()->rowCount() > 0)
        return;
    m_pUi->listUsers->SetUsers({});
    m_pUi->wgtPager->SetTotalCount(0);
    ShowListState(param.nErrorCode);
    UpdateButtons();
}

void CUserManagerUserCtrl::ShowListState(int nErrorCode)
{
    using Kind = VxGUI::VxEmptyState::Kind;
    VxGUI::VxEmptyState* const pState = m_pUi->wgtListState;
    if (nErrorCode == UICommonMdl::ErrorNoRight) {
        pState->SetState(Kind::NoPermission, Text::tr("You have no permission to see users."));
    } else if (nErrorCode != UICommonMdl::ErrorNone) {
        pState->SetState(Kind::Failed, Text::tr("Failed to get users."),
            UICommonMdl::CErrorCode::GetErroCodeInfor(nErrorCode), Text::tr("Refresh"));
    } else if (m_pUi->listUsers->GetUsers()->rowCount() > 0) {
        m_pUi->stackList->setCurrentWidget(m_pUi->pageList);
        return;
    } else {
        // The filters went with the header of the list: the way back is here.
        pState->SetState(
            Kind::Empty, Text::tr("No user matches the search."), QString(), Text::tr("Show All"));
    }
    m_pUi->stackList->setCurrentWidget(pState);
}

void CUserManagerUserCtrl::OnStateAction()
{
    if (m_pUi->wgtListState->GetKind() == VxGUI::VxEmptyState::Kind::Empty) {
        m_pUi->edtSearchUser->clear();
        m_sSearchText.clear();
        m_pUi->listUsers->GetHeader()->ClearFilters();
    }
    QueryFirstPage();
}

} // namespace PlatformConfigUI

#include "CUserListHeader.h"
#include "CUserListView.h"
#include "CUserManagerUserCtrl.h"
#include "CUserModel.h"
#include "UserRequestKinds.h"
#include "UserRules.h"
#include "ui_CUserManagerUserCtrl.h"

#include <UICommonMdl/CErrorCode.h>
#include <VxGUI/VxNotification.h>
#include <common/Prompt.h>

namespace PlatformConfigUI {

namespace {
struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CUserManagerUserCtrl)
};
} // namespace

void CUserManagerUserCtrl::OnLoginState(const UserLogical::ILoginManagerObserver::Param& param)
{
    using Observer = UserLogical::ILoginManagerObserver;
    switch (param.nResultCode) {
    case Observer::ResultDisconnected:
        Q_EMIT SignalDisconnectCms();
        break;
    case Observer::ResultReconnected:
        Q_EMIT SignalReconnectCms();
        break;
    case Observer::ResultRightsChanged:
        UpdateRights();
        Q_EMIT SignalShowNotify(Text::tr("Your permissions were changed."));
        OnQueryCurrentPage();
        break;
    }
}

void CUserManagerUserCtrl::OnSystemState(const RemoteConfigLogical::ISystemConfigObserver::Param& param)
{
    using Observer = RemoteConfigLogical::ISystemConfigObserver;
    if (param.nResultCode == Observer::ResultServerDisconnected)
        Q_EMIT SignalDisconnectCms();
    else if (param.nResultCode == Observer::ResultServerReconnected)
        Q_EMIT SignalReconnectCms();
}

void CUserManagerUserCtrl::OnNotifyUserManagerState(const Param& param)
{
    using Observer = UserLogical::IUserManagerObserve;
    if (param.nSequence > 0) {
        m_requests.Answer(param);
        return;
    }
    const bool bChanged = param.nResultCode == Observer::ResultUsersChanged
        || param.nResultCode == Observer::ResultRolesChanged;
    if (bChanged && m_bConnected && !m_bReleased && !m_queryTimer.isActive())
        m_queryTimer.start();
}

void CUserManagerUserCtrl::OnDisconnectCms()
{
    // Both observers tell of the same loss.
    if (m_bConnected)
        SetConnected(false);
}

void CUserManagerUserCtrl::OnReconnectCms()
{
    if (!m_bConnected)
        SetConnected(true);
}

void CUserManagerUserCtrl::OnShowNotify(const QString& sText)
{
    VxGUI::VxNotification::Show(this, sText, VxGUI::NotificationKind::Information);
}

void CUserManagerUserCtrl::SetConnected(bool bConnected)
{
    m_bConnected = bConnected;
    m_pUi->lbConnection->setVisible(!bConnected);
    for (QWidget* pControl :
        {static_cast<QWidget*>(m_pUi->btnRefresh), static_cast<QWidget*>(m_pUi->edtSearchUser),
            static_cast<QWidget*>(m_pUi->stackList), static_cast<QWidget*>(m_pUi->wgtPager)})
        pControl->setEnabled(bConnected);
    UpdateButtons();
    Q_EMIT SignalConnected(bConnected);
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
    UserLogical::IUserRight* const pRight = m_pManager ? m_pManager->GetUserRight() : nullptr;
    m_bChangeable = pRight && pRight->HasRight(RightManageUsers);
    const QString sTip = m_bChangeable ? QString() : Text::tr("You have no permission to change users.");
    for (QWidget* pButton : {m_pUi->btnAdd, m_pUi->btnDelete, m_pUi->btnImportDomain, m_pUi->btnSyncDomain})
        pButton->setToolTip(sTip);
    m_pUi->listUsers->SetChangeable(m_bChangeable);
    UpdateButtons();
    Q_EMIT SignalChangeable(m_bChangeable);
}

void CUserManagerUserCtrl::UpdateButtons()
{
    const bool bUsable = m_bConnected && m_bChangeable;
    for (QWidget* pButton : {m_pUi->btnAdd, m_pUi->btnImportDomain, m_pUi->btnSyncDomain})
        pButton->setEnabled(bUsable);
    const CUserModel* const pUsers = m_pUi->listUsers->GetUsers();
    m_pUi->btnDelete->setEnabled(bUsable && pUsers->rowCount() > 0 && !m_requests.HasKind(KindDelete));
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
    if (m_bReleased)
        return;
    const bool bEmpty = m_pUi->listUsers->GetUsers()->rowCount() == 0;
    const int nSequence = m_pManager ? m_pManager->QueryUserPage(MakeRequest()) : 0;
    if (!m_requests.Supersede(nSequence, KindUserPage, [this](const Param& param) { OnUserPage(param); })) {
        ShowFailure(Text::tr("Failed to get users."), UICommonMdl::ErrorNone);
        if (bEmpty)
            ShowListState(UICommonMdl::ErrorInternal);
    } else if (bEmpty) {
        m_pUi->wgtListState->SetState(VxGUI::VxEmptyState::Kind::Loading, Text::tr("Loading users"));
        m_pUi->stackList->setCurrentWidget(m_pUi->wgtListState);
    }
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
    ShowFailure(Text::tr("Failed to get users."), param.nErrorCode);
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

void CUserManagerUserCtrl::ShowFailure(const QString& sPrefix, int nErrorCode)
{
    VxGUI::VxNotification::Show(this, Common::FailureText(sPrefix, nErrorCode));
}

} // namespace PlatformConfigUI

#include "CPersonManagerCtrl.h"

#include "CPersonnelListView.h"
#include "PersonRequestKinds.h"
#include "ui_CPersonManagerCtrl.h"

#include <UICommonMdl/CDepartmentModelManager.h>
#include <UICommonMdl/CErrorCode.h>
#include <VxGUI/VxNotification.h>
#include <common/Prompt.h>

namespace BasicInfoManagerUI {

namespace {
struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CPersonManagerCtrl)
};
} // namespace

void CPersonManagerCtrl::OnNotifyPersonManagerState(const PersonParam& param)
{
    Q_EMIT SignalNotifyPersonManagerState(param);
}

void CPersonManagerCtrl::OnNotifyDepartmentManagerState(const DepartmentParam& param)
{
    Q_EMIT SignalNotifyDepartmentManagerState(param);
}

void CPersonManagerCtrl::OnPersonState(const PersonParam& param)
{
    if (param.nSequence > 0) {
        if (!m_requests.Answer(param))
            m_reissues.Answer(param);
    } else if (param.nResultCode == AccessControlLogical::IPersonManagerObserver::ResultPersonsChanged) {
        QueryLater(false);
    }
}

void CPersonManagerCtrl::OnDepartmentState(const DepartmentParam& param)
{
    if (param.nSequence > 0)
        m_departmentRequests.Answer(param);
    else if (param.nResultCode == AccessControlLogical::IDepartmentManagerObserver::ResultDepartmentsChanged)
        QueryLater(true);
}

void CPersonManagerCtrl::OnSystemState(const RemoteConfigLogical::ISystemConfigObserver::Param& param)
{
    using Observer = RemoteConfigLogical::ISystemConfigObserver;
    if (param.nResultCode == Observer::ResultServerDisconnected)
        SetConnected(false);
    else if (param.nResultCode == Observer::ResultServerReconnected)
        SetConnected(true);
}

void CPersonManagerCtrl::SetConnected(bool bConnected)
{
    m_bConnected = bConnected;
    m_pUi->lbConnection->setVisible(!bConnected);
    for (QWidget* pControl : {m_pUi->wgtGroups, m_pUi->wgtActions, static_cast<QWidget*>(m_pUi->stackList),
             static_cast<QWidget*>(m_pUi->cbContainSub), static_cast<QWidget*>(m_pUi->m_pSearchPerson),
             static_cast<QWidget*>(m_pUi->m_pPageFileCtrl)})
        pControl->setEnabled(bConnected);
    UpdateButtons();
    Q_EMIT SignalConnected(bConnected);
    if (bConnected) {
        QueryAll();
        return;
    }
    m_queryTimer.stop();
    if (m_pDepartments->rowCount() == 0)
        ShowTreeState(UICommonMdl::ErrorDisconnected);
    if (m_pUi->m_pPersonnelListView->GetPersons()->rowCount() == 0)
        ShowListState(UICommonMdl::ErrorDisconnected);
}

void CPersonManagerCtrl::QueryLater(bool bDepartments)
{
    m_bDepartmentsStale = m_bDepartmentsStale || bDepartments;
    if (m_bConnected && !m_queryTimer.isActive())
        m_queryTimer.start();
}

void CPersonManagerCtrl::OnQueryTimer()
{
    if (std::exchange(m_bDepartmentsStale, false))
        QueryDepartments();
    QueryCurrentPage();
}

void CPersonManagerCtrl::OnFirsQueryPersonList()
{
    if (!m_bReleased)
        QueryCurrentPage();
}

void CPersonManagerCtrl::QueryAll()
{
    QueryDepartments();
    QueryCurrentPage();
}

void CPersonManagerCtrl::QueryDepartments()
{
    const int nSequence = m_pManager ? m_pManager->QueryDepartmentTree() : 0;
    const bool bSent =
        m_departmentRequests.Supersede(nSequence, KindDepartmentTree, [this](const DepartmentParam& param) {
            if (param.nErrorCode == UICommonMdl::ErrorNone)
                return;
            ShowFailure(Text::tr("Failed to get person groups"), param.nErrorCode);
            ShowTreeState(param.nErrorCode);
        });
    if (bSent && m_pDepartments->rowCount() == 0) {
        m_pUi->wgtTreeState->SetState(VxGUI::VxEmptyState::Kind::Loading, Text::tr("Loading person groups"));
        m_pUi->stackTree->setCurrentWidget(m_pUi->wgtTreeState);
    } else if (!bSent) {
        ShowFailure(Text::tr("Failed to get person groups"), UICommonMdl::ErrorNone);
        ShowTreeState(UICommonMdl::ErrorInternal);
    } else {
        ShowTreeState(UICommonMdl::ErrorNone);
    }
}

void CPersonManagerCtrl::OnDepartmentModelFinish()
{
    ShowTreeState(UICommonMdl::ErrorNone);
    m_pUi->m_pTreeWnd->Restore();
    if (m_pDepartments->FindCode(m_sSelectAfterQuery).isValid())
        m_pUi->m_pTreeWnd->SelectCode(std::exchange(m_sSelectAfterQuery, QString()));
    OnGroupChanged();
}

void CPersonManagerCtrl::ShowTreeState(int nErrorCode)
{
    using Kind = VxGUI::VxEmptyState::Kind;
    VxGUI::VxEmptyState* const pState = m_pUi->wgtTreeState;
    // Groups that were there before are better than none.
    if (nErrorCode == UICommonMdl::ErrorNone || m_pDepartments->rowCount() > 0) {
        m_pUi->stackTree->setCurrentWidget(m_pUi->pageTree);
        return;
    }
    if (nErrorCode == UICommonMdl::ErrorNoRight)
        pState->SetState(Kind::NoPermission, Text::tr("You have no permission to see person groups."));
    else
        pState->SetState(
            Kind::Failed, Text::tr("Failed to get person groups"), QString(), Text::tr("Refresh"));
    m_pUi->stackTree->setCurrentWidget(pState);
}

AccessControlLogical::PersonPageRequest_t CPersonManagerCtrl::MakeRequest() const
{
    AccessControlLogical::PersonPageRequest_t request;
    request.sGroupCode = GetGroupCode().toStdString();
    request.bSubGroups = m_pUi->cbContainSub->isChecked();
    request.sSearchKey = m_sSearchKey.toStdString();
    request.nPage = qMax(1, m_pUi->m_pPageFileCtrl->GetCurrentPage());
    request.nPageSize = m_pUi->m_pPageFileCtrl->GetPageSize();
    return request;
}

void CPersonManagerCtrl::QueryFirstPage()
{
    m_pUi->m_pPageFileCtrl->SetCurrentPage(1);
    QueryCurrentPage();
}

void CPersonManagerCtrl::QueryCurrentPage()
{
    if (m_bReleased)
        return;
    const int nSequence = m_pManager ? m_pManager->QueryPersonList(MakeRequest()) : 0;
    if (!m_requests.Supersede(
            nSequence, KindPersonList, [this](const PersonParam& param) { OnPersonList(param); })) {
        ShowFailure(Text::tr("Failed to search for people list"), UICommonMdl::ErrorNone);
        if (m_pUi->m_pPersonnelListView->GetPersons()->rowCount() == 0)
            ShowListState(UICommonMdl::ErrorInternal);
        return;
    }
    if (m_pUi->m_pPersonnelListView->GetPersons()->rowCount() > 0)
        return;
    m_pUi->wgtListState->SetState(VxGUI::VxEmptyState::Kind::Loading, Text::tr("Loading persons"));
    m_pUi->stackList->setCurrentWidget(m_pUi->wgtListState);
}

void CPersonManagerCtrl::OnPersonList(const PersonParam& param)
{
    CPersonnelListView* const pList = m_pUi->m_pPersonnelListView;
    if (param.nErrorCode == UICommonMdl::ErrorNone) {
        pList->SetPersons(param.personPage.vecPersons);
        m_pUi->m_pPageFileCtrl->SetTotalCount(param.personPage.nTotal);
        m_pUi->m_pPageFileCtrl->SetCurrentPage(param.personPage.nPage);
        ShowListState(UICommonMdl::ErrorNone);
        UpdateButtons();
        return;
    }
    ShowFailure(Text::tr("Failed to search for people list"), param.nErrorCode);
    // While the connection is lost the rows of before stay, with their checks.
    if (param.nErrorCode == UICommonMdl::ErrorDisconnected && pList->GetPersons()->rowCount() > 0)
        return;
    pList->SetPersons({});
    m_pUi->m_pPageFileCtrl->SetTotalCount(0);
    ShowListState(param.nErrorCode);
    UpdateButtons();
}

void CPersonManagerCtrl::ShowListState(int nErrorCode)
{
    using Kind = VxGUI::VxEmptyState::Kind;
    VxGUI::VxEmptyState* const pState = m_pUi->wgtListState;
    if (nErrorCode == UICommonMdl::ErrorNoRight) {
        pState->SetState(Kind::NoPermission, Text::tr("You have no permission to see persons."));
    } else if (nErrorCode != UICommonMdl::ErrorNone) {
        pState->SetState(Kind::Failed, Text::tr("Failed to search for people list"),
            UICommonMdl::CErrorCode::GetErroCodeInfor(nErrorCode), Text::tr("Refresh"));
    } else if (m_pUi->m_pPersonnelListView->GetPersons()->rowCount() > 0) {
        m_pUi->stackList->setCurrentWidget(m_pUi->pageList);
        return;
    } else if (!m_sSearchKey.isEmpty()) {
        pState->SetState(Kind::Empty, Text::tr("No person matches the search."));
    } else {
        pState->SetState(Kind::Empty, Text::tr("There is no person in this group."));
    }
    m_pUi->stackList->setCurrentWidget(pState);
}

void CPersonManagerCtrl::ShowFailure(const QString& sPrefix, int nErrorCode)
{
    VxGUI::VxNotification::Show(this, Common::FailureText(sPrefix, nErrorCode));
}

} // namespace BasicInfoManagerUI

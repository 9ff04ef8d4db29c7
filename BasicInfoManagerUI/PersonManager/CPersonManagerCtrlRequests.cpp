#include "CPersonManagerCtrl.h"

#include "CPersonnelListView.h"
#include "ui_CPersonManagerCtrl.h"

#include <UICommonMdl/CDepartmentModelManager.h>
#include <UICommonMdl/CErrorCode.h>

namespace BasicInfoManagerUI {

using AccessControlLogical::IAccessControlManager;

namespace {
struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CPersonManagerCtrl)
};
} // namespace

bool CPersonManagerCtrl::MayChange() const
{
    return HasRight("002003001");
}

void CPersonManagerCtrl::OnRightsChanged()
{
    OnGroupChanged();
    UpdateButtons();
}

void CPersonManagerCtrl::OnConnectionChanged(bool bConnected)
{
    for (QWidget* pControl : {m_pUi->wgtGroups, m_pUi->wgtActions, static_cast<QWidget*>(m_pUi->stackList),
             static_cast<QWidget*>(m_pUi->cbContainSub), static_cast<QWidget*>(m_pUi->m_pSearchPerson),
             static_cast<QWidget*>(m_pUi->m_pPageFileCtrl)})
        pControl->setEnabled(bConnected);
    UpdateButtons();
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
    if (IsConnected() && !m_queryTimer.isActive())
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
    QueryCurrentPage();
}

void CPersonManagerCtrl::QueryAll()
{
    QueryDepartments();
    QueryCurrentPage();
}

void CPersonManagerCtrl::QueryDepartments()
{
    m_groupCalls.Latest<&IAccessControlManager::QueryDepartmentTree>([this](const DepartmentParam& param) {
        if (param.nErrorCode == UICommonMdl::ErrorNone)
            return;
        NotifyFailure(Text::tr("Failed to get person groups"), param.nErrorCode);
        ShowTreeState(param.nErrorCode);
    });
    if (m_pDepartments->rowCount() > 0) {
        ShowTreeState(UICommonMdl::ErrorNone);
        return;
    }
    m_pUi->wgtTreeState->SetState(VxGUI::VxEmptyState::Kind::Loading, Text::tr("Loading person groups"));
    m_pUi->stackTree->setCurrentWidget(m_pUi->wgtTreeState);
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
    m_calls.Latest<&IAccessControlManager::QueryPersonList>(
        MakeRequest(), [this](const PersonParam& param) { OnPersonList(param); });
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
    NotifyFailure(Text::tr("Failed to search for people list"), param.nErrorCode);
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

} // namespace BasicInfoManagerUI

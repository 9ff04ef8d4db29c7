#include "COrganizationOperations.h"

#include "COrganizationEditPage.h"
#include "COrganizationTreeCtrl.h"

#include <UICommonMdl/CErrorCode.h>
#include <common/CPage.h>

#include <QCoreApplication>

namespace ResourceManagerUI {

using GroupLogical::IGroupManager;
using GroupLogical::Organization_t;

namespace {
struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CDeviceManagerCtrl)
};
} // namespace

COrganizationOperations::COrganizationOperations(
    Common::CPage* pPage, COrganizationTreeCtrl* pTree, COrganizationEditPage* pEditor)
    : QObject(pPage)
    , m_pPage(pPage)
    , m_pTree(pTree)
    , m_pEditor(pEditor)
    , m_calls(pPage->GetInterfaceSet(), this)
{
    if (IGroupManager* const pManager = m_calls.GetManager())
        pTree->SetLevelLimit(pManager->GetOrganizationLevelLimit());
    connect(pTree, &COrganizationTreeCtrl::SignalAddOrg, this, &COrganizationOperations::OnAddOrg);
    connect(pTree, &COrganizationTreeCtrl::SignalModifyOrg, this, &COrganizationOperations::OnEditOrg);
    connect(pTree, &COrganizationTreeCtrl::SignalDeleteOrg, this, &COrganizationOperations::OnDeleteOrg);
    connect(pTree, &COrganizationTreeCtrl::SignalMoveOrg, this, &COrganizationOperations::OnMoveOrg);
    connect(pEditor, &COrganizationEditPage::SignalAddOrModifyOrgComplete, this,
        &COrganizationOperations::OnAddOrModifyOrgComplete);
    connect(pEditor, &COrganizationEditPage::SignalBack, this, &COrganizationOperations::SignalCloseEditor);
}

void COrganizationOperations::Query()
{
    m_calls.Latest<&IGroupManager::QueryOrganizations>([this](const Param& param) { OnTree(param); });
}

bool COrganizationOperations::IsQuerying() const
{
    return m_calls.IsPending<&IGroupManager::QueryOrganizations>();
}

void COrganizationOperations::OnTree(const Param& param)
{
    if (param.nErrorCode != UICommonMdl::ErrorNone) {
        m_pPage->NotifyFailure(Text::tr("Failed to get organization list"), param.nErrorCode);
    } else {
        m_pTree->SetOrganizations(param.vecOrganizations);
        m_pTree->SelectCode(std::exchange(m_sSelectAfterQuery, QString()));
    }
    Q_EMIT SignalQueried();
}

void COrganizationOperations::OnAddOrg(const QString& sParentCode)
{
    const Organization_t* const pParent = m_pTree->GetModel()->FindOrganization(sParentCode);
    if (!pParent)
        return;
    Q_EMIT SignalOpenEditor();
    m_pEditor->BeginAdd(*pParent);
}

void COrganizationOperations::OnEditOrg(const QString& sCode)
{
    const Common::COrganizationModel* const pModel = m_pTree->GetModel();
    const Organization_t* const pOrganization = pModel->FindOrganization(sCode);
    if (!pOrganization)
        return;
    Q_EMIT SignalOpenEditor();
    m_pEditor->BeginModify(*pOrganization, pModel->FindCode(sCode).parent().data().toString());
}

void COrganizationOperations::OnDeleteOrg(const QString& sCode)
{
    const QString sPrefix =
        QCoreApplication::translate("COrganizationTreeCtrl", "Failed to delete the organization ");
    m_calls.Each<&IGroupManager::DeleteOrganization>(
        sCode.toStdString(), [this, sPrefix](const Param& param) {
            if (param.nErrorCode != UICommonMdl::ErrorNone)
                m_pPage->Notify(sPrefix + UICommonMdl::CErrorCode::GetErroCodeInfor(param.nErrorCode),
                    VxGUI::NotificationKind::Error);
            Query();
        });
}

void COrganizationOperations::OnMoveOrg(const QString& sCode, const QString& sNewParentCode)
{
    m_calls.Each<&IGroupManager::MoveOrganization>(
        sCode.toStdString(), sNewParentCode.toStdString(), [this](const Param& param) {
            if (param.nErrorCode != UICommonMdl::ErrorNone)
                m_pPage->NotifyFailure(Text::tr("Failed to move organization"), param.nErrorCode);
            Query();
        });
}

void COrganizationOperations::OnAddOrModifyOrgComplete(int nMode, const QString& sCode)
{
    Q_EMIT SignalCloseEditor();
    if (nMode == COrganizationEditPage::ModeAdd)
        m_sSelectAfterQuery = sCode;
    Query();
}

} // namespace ResourceManagerUI

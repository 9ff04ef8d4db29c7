#include "CPersonManagerCtrl.h"

#include "CPersonGroupEditUI.h"
#include "ui_CPersonManagerCtrl.h"

#include <PersonEdit/CPersonnelInfoUI.h>
#include <UICommonMdl/CDepartmentModelManager.h>
#include <common/Prompt.h>

namespace BasicInfoManagerUI {

namespace {
struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CPersonManagerCtrl)
};
} // namespace

QString CPersonManagerCtrl::GetGroupCode() const
{
    return m_pUi->m_pTreeWnd->GetCurrentCode();
}

void CPersonManagerCtrl::OnGroupChanged()
{
    const QModelIndex group = m_pDepartments->FindCode(GetGroupCode());
    const QString sName = group.isValid() ? group.data().toString() : Text::tr("All Persons");
    m_pUi->lbPersonGroupName->setText(sName);
    m_pUi->lbPersonGroupName->setToolTip(sName);
    for (QToolButton* pButton : {m_pUi->m_btnAddOrg, m_pUi->m_btnModifyOrg})
        pButton->setEnabled(MayChange());
    m_pUi->m_btnDelOrg->setEnabled(MayChange() && group.isValid() && group.parent().isValid());
}

void CPersonManagerCtrl::ShowSelectGroup()
{
    Notify(Text::tr("Please select a person group."), VxGUI::NotificationKind::Warning);
}

void CPersonManagerCtrl::OnBtnAddOrgClicked()
{
    const QModelIndex group = m_pDepartments->FindCode(GetGroupCode());
    if (!group.isValid()) {
        ShowSelectGroup();
        return;
    }
    if (UICommonMdl::CDepartmentModel::GetLevel(group) >= AccessControlLogical::DepartmentLevelLimit) {
        Notify(Text::tr("Failed to add. Person group level must not exceed %1.")
                   .arg(AccessControlLogical::DepartmentLevelLimit),
            VxGUI::NotificationKind::Warning);
        return;
    }
    auto* pDialog = new CPersonGroupEditUI(GetInterfaceSet(), this);
    pDialog->BeginAdd(GetGroupCode());
    OpenGroupEditor(pDialog);
}

void CPersonManagerCtrl::OnBtnModifyOrgClicked()
{
    const AccessControlLogical::Department_t* const pGroup = m_pDepartments->FindDepartment(GetGroupCode());
    if (!pGroup) {
        ShowSelectGroup();
        return;
    }
    auto* pDialog = new CPersonGroupEditUI(GetInterfaceSet(), this);
    pDialog->BeginModify(*pGroup);
    OpenGroupEditor(pDialog);
}

void CPersonManagerCtrl::OpenGroupEditor(CPersonGroupEditUI* pDialog)
{
    connect(pDialog, &CPersonGroupEditUI::SignalGroupSaved, this, &CPersonManagerCtrl::OnGroupSaved);
    pDialog->open();
}

void CPersonManagerCtrl::OnGroupSaved(const QString& sCode, bool bAddPerson)
{
    m_sSelectAfterQuery = sCode;
    QueryDepartments();
    if (!bAddPerson) {
        // Rows show the names of their groups.
        QueryCurrentPage();
        return;
    }
    m_pEditor->AddPerson(sCode);
    ShowPage(m_pEditor);
}

void CPersonManagerCtrl::OnBtnDelOrgClicked()
{
    const QModelIndex group = m_pDepartments->FindCode(GetGroupCode());
    if (!group.isValid()) {
        ShowSelectGroup();
        return;
    }
    if (!group.parent().isValid()) {
        Notify(Text::tr("The root group cannot be deleted."), VxGUI::NotificationKind::Warning);
        return;
    }
    const QString sCode = GetGroupCode();
    const QString sParentCode = UICommonMdl::CDepartmentModel::GetCode(group.parent());
    if (!Common::AskPrompt(this,
            Text::tr("Are you sure you want to delete the person group? After deletion, the people in this "
                     "group and sub group(s) will be deleted.")))
        return;
    m_groupCalls.Each<&AccessControlLogical::IAccessControlManager::DeleteDepartment>(sCode.toStdString(),
        [this, sParentCode](const DepartmentParam& param) { OnGroupDeleted(sParentCode, param.nErrorCode); });
}

void CPersonManagerCtrl::OnGroupDeleted(const QString& sParentCode, int nErrorCode)
{
    if (nErrorCode == UICommonMdl::ErrorNone) {
        // Another choice that was made in the meantime stays.
        m_sSelectAfterQuery = sParentCode;
    } else {
        NotifyFailure(Text::tr("Failed to delete person group"), nErrorCode);
    }
    QueryAll();
}

} // namespace BasicInfoManagerUI

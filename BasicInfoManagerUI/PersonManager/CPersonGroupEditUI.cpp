#include "CPersonGroupEditUI.h"

#include "PersonRules.h"
#include "ui_CPersonGroupEditUI.h"

#include <UICommonMdl/CDepartmentModelManager.h>
#include <UICommonMdl/CErrorCode.h>
#include <VxGUI/RequiredMark.h>
#include <VxGUI/VxNotification.h>
#include <common/PersonGroups.h>
#include <common/Prompt.h>
#include <common/StyleSheet.h>

#include <QPointer>

namespace BasicInfoManagerUI {

using AccessControlLogical::Department_t;

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CPersonGroupEditUI)
};

UICommonMdl::CDepartmentModel* Groups()
{
    return UICommonMdl::CDepartmentModelManager::Instance()->GetDepartmentModel();
}

} // namespace

CPersonGroupEditUI::CPersonGroupEditUI(
    const UICommonMdl::CInterfaceSetManager* pInterfaceSet, QWidget* pParent)
    : QDialog(pParent)
    , m_pUi(std::make_unique<Ui::CPersonGroupEditUI>())
    , m_session(pInterfaceSet, this)
    , m_calls(pInterfaceSet, this)
{
    m_pUi->setupUi(this);
    setAttribute(Qt::WA_DeleteOnClose);
    setModal(true);
    m_pUi->lbConnection->Watch(m_session);
    SetUpFields();
    connect(m_pUi->m_pBtnAdd, &QAbstractButton::clicked, this, &CPersonGroupEditUI::accept);
    connect(m_pUi->m_pAddAndPerson, &QAbstractButton::clicked, this, [this] { Save(true); });
    connect(m_pUi->m_pBtnCancel, &QAbstractButton::clicked, this, &CPersonGroupEditUI::reject);
    connect(&m_session, &Common::CSession::SignalConnectionChanged, this, &CPersonGroupEditUI::UpdateButtons);
    Common::LoadStyleSheet(this, QStringLiteral("BasicInfoManagerUI/Personnel"));
}

CPersonGroupEditUI::~CPersonGroupEditUI() = default;

void CPersonGroupEditUI::SetUpFields()
{
    m_pUi->m_pEditGroupName->SetRequired(Text::tr("Please enter person group name."));
    m_pUi->m_pEditGroupName->SetRule(AccessControlLogical::DepartmentName,
        Text::tr("The max length of group name is %1!"),
        Text::tr("Special characters < > / are not allowed."));
    m_pUi->m_pEditRemark->SetRule(AccessControlLogical::DepartmentRemark,
        Text::tr("The remark length cannot exceed %1 characters."),
        Text::tr("Special characters < and > are not allowed."));
    Common::ShowPersonGroups(m_pUi->m_pCmbParent);
    VxGUI::MarkRequired(m_pUi->m_pCmbParent);
    m_pUi->m_pCmbParent->SetChoiceRule([this](const QModelIndex& group) {
        return CanBeParent(group, Groups()->FindCode(QString::fromStdString(m_loaded.sCode)));
    });
    m_pUi->lbParentHint->hide();
    connect(m_pUi->m_pCmbParent, &Common::CTreeComboBox::SignalCodeChanged, m_pUi->lbParentHint,
        [this] { m_pUi->lbParentHint->setVisible(false); });
}

void CPersonGroupEditUI::BeginAdd(const QString& sParentCode)
{
    m_loaded = {};
    m_loaded.sParentCode = sParentCode.toStdString();
    ShowRecord();
}

void CPersonGroupEditUI::BeginModify(const Department_t& department)
{
    m_loaded = department;
    ShowRecord();
}

void CPersonGroupEditUI::ShowRecord()
{
    const bool bNew = m_loaded.sCode.empty();
    const bool bRoot = m_loaded.sCode == AccessControlLogical::RootDepartmentCode;
    setWindowTitle(bNew ? Text::tr("Add Person Group") : Text::tr("Edit Person Group"));
    m_pUi->m_pBtnAdd->setText(bNew ? Text::tr("Add") : Text::tr("Save"));
    m_pUi->m_pAddAndPerson->setVisible(bNew);
    m_pUi->lbParent->setVisible(!bRoot);
    m_pUi->m_pCmbParent->setVisible(!bRoot);
    m_pUi->m_pCmbParent->SetCode(QString::fromStdString(m_loaded.sParentCode));
    m_pUi->m_pEditGroupName->setText(QString::fromStdString(m_loaded.sName));
    m_pUi->m_pEditRemark->setText(QString::fromStdString(m_loaded.sRemark));
    m_baseline = GetEdited();
    m_pUi->m_pEditGroupName->GetLineEdit()->setFocus();
    UpdateButtons();
}

bool CPersonGroupEditUI::CheckFields()
{
    const bool bRoot = m_loaded.sCode == AccessControlLogical::RootDepartmentCode;
    if (!bRoot && m_pUi->m_pCmbParent->GetCode().isEmpty()) {
        m_pUi->lbParentHint->setText(Text::tr("Please enter parent group name."));
        m_pUi->lbParentHint->show();
        m_pUi->m_pCmbParent->setFocus();
        return false;
    }
    for (VxGUI::VxLineEdit* pEdit : {m_pUi->m_pEditGroupName, m_pUi->m_pEditRemark}) {
        if (!pEdit->CheckInput().isEmpty()) {
            pEdit->GetLineEdit()->setFocus();
            return false;
        }
    }
    return true;
}

Department_t CPersonGroupEditUI::GetEdited() const
{
    Department_t edited = m_loaded;
    if (edited.sCode != AccessControlLogical::RootDepartmentCode)
        edited.sParentCode = m_pUi->m_pCmbParent->GetCode().toStdString();
    edited.sName = m_pUi->m_pEditGroupName->text().trimmed().toStdString();
    edited.sRemark = m_pUi->m_pEditRemark->text().toStdString();
    return edited;
}

void CPersonGroupEditUI::accept()
{
    Save(false);
}

void CPersonGroupEditUI::reject()
{
    if (Common::AskCancel(this, !(GetEdited() == m_baseline)))
        QDialog::reject();
}

void CPersonGroupEditUI::Save(bool bAddPerson)
{
    if (m_bSaving || !m_session.IsConnected() || !CheckFields())
        return;
    m_bSaving = true;
    const auto onAnswer = [this, bAddPerson](const Param& param) { OnAnswer(param, bAddPerson); };
    if (m_loaded.sCode.empty())
        m_calls.Each<&AccessControlLogical::IAccessControlManager::AddDepartment>(GetEdited(), onAnswer);
    else
        m_calls.Each<&AccessControlLogical::IAccessControlManager::ModifyDepartment>(GetEdited(), onAnswer);
    UpdateButtons();
}

void CPersonGroupEditUI::OnAnswer(const Param& param, bool bAddPerson)
{
    m_bSaving = false;
    UpdateButtons();
    if (param.nErrorCode == UICommonMdl::ErrorNone) {
        const std::string sCode =
            param.vecDepartments.empty() ? m_loaded.sCode : param.vecDepartments.front().sCode;
        Q_EMIT SignalGroupSaved(QString::fromStdString(sCode), bAddPerson);
        QDialog::accept();
        return;
    }
    ShowFailure(param.nErrorCode);
    // The tree shows what the other one made of the group by the time that the dialog is opened again.
    const bool bStale = param.nErrorCode == UICommonMdl::ErrorVersionConflict
        || param.nErrorCode == UICommonMdl::ErrorNotFound;
    if (bStale && m_calls.GetManager())
        m_calls.GetManager()->QueryDepartmentTree();
}

void CPersonGroupEditUI::ShowFailure(int nErrorCode)
{
    if (nErrorCode == UICommonMdl::ErrorNameExists) {
        m_pUi->m_pEditGroupName->SetErrorHint(Text::tr("The person group name already exists."));
        m_pUi->m_pEditGroupName->GetLineEdit()->setFocus();
        return;
    }
    VxGUI::VxNotification::Show(this,
        Common::FailureText(m_loaded.sCode.empty() ? Text::tr("Failed to add person group")
                                                   : Text::tr("Failed to modify person group"),
            nErrorCode));
}

void CPersonGroupEditUI::UpdateButtons()
{
    m_pUi->m_pBtnAdd->setEnabled(m_session.IsConnected() && !m_bSaving);
    m_pUi->m_pAddAndPerson->setEnabled(m_session.IsConnected() && !m_bSaving);
}

} // namespace BasicInfoManagerUI

#include "CPersonGroupEditUI.h"

#include "PersonRules.h"
#include "ui_CPersonGroupEditUI.h"

#include <UICommonMdl/CDepartmentModelManager.h>
#include <UICommonMdl/ErrorCodes.h>
#include <UserLogical/RightCodes.h>
#include <VxGUI/RequiredMark.h>
#include <common/PersonGroups.h>
#include <common/StyleSheet.h>

#include <algorithm>

namespace BasicInfoManagerUI {

using AccessControlLogical::Department_t;
using AccessControlLogical::IAccessControlManager;

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
    , m_editor(m_session, this, *this)
    , m_fields(m_editor.Fields())
{
    m_pUi->setupUi(this);
    setAttribute(Qt::WA_DeleteOnClose);
    setModal(true);
    m_pUi->lbConnection->Watch(m_session);
    SetUpFields();
    SetUpEditor();
    SetUpButtons();
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
        return CanBeParent(group, Groups()->FindCode(QString::fromStdString(m_editor.GetLoaded().sCode)));
    });
    m_pUi->lbParentHint->hide();
    connect(m_pUi->m_pCmbParent, &Common::CTreeComboBox::SignalCodeChanged, m_pUi->lbParentHint,
        [this] { m_pUi->lbParentHint->setVisible(false); });
    m_editor.Fields().Add<std::string>(VxGUI::GetFieldName(m_pUi->m_pCmbParent), &Department_t::sParentCode,
        [this](const std::string& sCode) {
            return m_pUi->m_pCmbParent->GetName(QString::fromStdString(sCode));
        });
    m_fields.Text(&Department_t::sName, m_pUi->m_pEditGroupName);
    m_fields.Text(&Department_t::sRemark, m_pUi->m_pEditRemark);
}

void CPersonGroupEditUI::SetUpEditor()
{
    m_editor.SetForm({.pSave = m_pUi->m_pBtnAdd,
                         .pSaveAndGoOn = m_pUi->m_pAddAndPerson,
                         .vecInput = {m_pUi->m_pCmbParent, m_pUi->m_pEditGroupName, m_pUi->m_pEditRemark}},
        {.sAddTitle = Text::tr("Add Person Group"),
            .sModifyTitle = Text::tr("Edit Person Group"),
            .sAdded = Text::tr("The person group was added."),
            .sModified = Text::tr("The person group was modified."),
            .sAddFailed = Text::tr("Failed to add person group"),
            .sModifyFailed = Text::tr("Failed to modify person group"),
            .sNoRight = Text::tr("You have no permission to change persons.")},
        UserLogical::RightChangePersons);
    m_editor.SetNotice(m_pUi->wgtSaveNotice);
    m_editor.SetClose([this] { QDialog::reject(); });
}

void CPersonGroupEditUI::SetUpButtons()
{
    connect(m_pUi->m_pBtnAdd, &QAbstractButton::clicked, this, &CPersonGroupEditUI::accept);
    connect(m_pUi->m_pAddAndPerson, &QAbstractButton::clicked, this, [this] { Save(true); });
    connect(m_pUi->m_pBtnCancel, &QAbstractButton::clicked, this, &CPersonGroupEditUI::reject);
}

void CPersonGroupEditUI::BeginAdd(const QString& sParentCode)
{
    Department_t record;
    record.sParentCode = sParentCode.toStdString();
    m_editor.BeginNew(record);
}

void CPersonGroupEditUI::BeginModify(const Department_t& department)
{
    m_editor.BeginEdit(department);
}

bool CPersonGroupEditUI::IsRoot() const
{
    return m_editor.GetLoaded().sCode == AccessControlLogical::RootDepartmentCode;
}

void CPersonGroupEditUI::ShowRecord(const Department_t& record)
{
    m_pUi->m_pBtnAdd->setText(m_editor.IsNew() ? Text::tr("Add") : Text::tr("Save"));
    m_pUi->lbParent->setVisible(!IsRoot());
    m_pUi->m_pCmbParent->setVisible(!IsRoot());
    m_pUi->m_pCmbParent->SetCode(QString::fromStdString(record.sParentCode));
    m_fields.Show(record);
    m_pUi->m_pEditGroupName->GetLineEdit()->setFocus();
}

bool CPersonGroupEditUI::CheckInput()
{
    if (!IsRoot() && m_pUi->m_pCmbParent->GetCode().isEmpty()) {
        m_pUi->lbParentHint->setText(Text::tr("Please enter parent group name."));
        m_pUi->lbParentHint->show();
        m_pUi->m_pCmbParent->setFocus();
        return false;
    }
    return m_fields.Check();
}

Department_t CPersonGroupEditUI::GetEdited() const
{
    Department_t edited = m_editor.GetLoaded();
    if (!IsRoot())
        edited.sParentCode = m_pUi->m_pCmbParent->GetCode().toStdString();
    m_fields.Read(edited);
    return edited;
}

void CPersonGroupEditUI::accept()
{
    Save(false);
}

void CPersonGroupEditUI::reject()
{
    m_editor.Leave();
}

void CPersonGroupEditUI::Save(bool bAddPerson)
{
    m_bAddPerson = bAddPerson;
    m_editor.Save();
}

void CPersonGroupEditUI::Send(const Department_t& record, bool bNew)
{
    const auto onAnswer = [this](const Param& param) {
        m_editor.OnAnswer(param.nErrorCode, param.sErrorDetail,
            param.vecDepartments.empty() ? nullptr : &param.vecDepartments.front());
    };
    if (bNew)
        m_calls.Each<&IAccessControlManager::AddDepartment>(record, onAnswer);
    else
        m_calls.Each<&IAccessControlManager::ModifyDepartment>(record, onAnswer);
}

void CPersonGroupEditUI::Fetch(const Department_t& record, bool bNew)
{
    // The tree behind the dialog shows what comes, too.
    m_calls.Latest<&IAccessControlManager::QueryDepartmentTree>([this, record, bNew](const Param& param) {
        const auto& vecAll = param.vecDepartments;
        const auto it = std::find_if(vecAll.begin(), vecAll.end(), [&](const Department_t& other) {
            return bNew ? other.sParentCode == record.sParentCode && other.sName == record.sName
                        : other.sCode == record.sCode;
        });
        m_editor.OnFetched(param.nErrorCode, it == vecAll.end() ? nullptr : &*it);
    });
}

void CPersonGroupEditUI::OnSaved(const Department_t& record)
{
    Q_EMIT SignalGroupSaved(QString::fromStdString(record.sCode), m_bAddPerson);
    QDialog::accept();
}

bool CPersonGroupEditUI::ShowRefusal(int nErrorCode, const std::string&)
{
    if (nErrorCode != UICommonMdl::ErrorNameExists)
        return false;
    m_pUi->m_pEditGroupName->SetErrorHint(Text::tr("The person group name already exists."));
    m_pUi->m_pEditGroupName->GetLineEdit()->setFocus();
    return true;
}

} // namespace BasicInfoManagerUI

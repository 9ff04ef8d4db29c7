#include "CRoleManagerEditDlg.h"

#include "CRightsView.h"
#include "ui_CRoleManagerEditDlg.h"

#include <UICommonMdl/ErrorCodes.h>
#include <UserLogical/RightCodes.h>
#include <VxGUI/VxNotification.h>
#include <common/Prompt.h>
#include <common/StyleSheet.h>
#include <common/TabOrder.h>

#include <algorithm>

namespace PlatformConfigUI {

using UserLogical::IUserManager;
using UserLogical::Role_t;

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CRoleManagerEditDlg)
};

Role_t Sorted(Role_t role)
{
    std::sort(role.vecMenuRights.begin(), role.vecMenuRights.end());
    std::sort(role.vecFuncRights.begin(), role.vecFuncRights.end());
    return role;
}

} // namespace

CRoleManagerEditDlg::CRoleManagerEditDlg(UICommonMdl::CInterfaceSetManager* pInterfaceSet, QWidget* pParent)
    : QDialog(pParent)
    , m_pInterfaceSet(pInterfaceSet)
    , m_pUi(std::make_unique<Ui::CRoleManagerEditDlg>())
    , m_session(pInterfaceSet, this)
    , m_calls(pInterfaceSet, this)
    , m_copyCalls(pInterfaceSet, this)
    , m_editor(m_session, this, *this)
    , m_fields(m_editor.Fields())
{
    m_pUi->setupUi(this);
    setAttribute(Qt::WA_DeleteOnClose);
    setModal(true);
    m_pUi->lbConnection->Watch(m_session);
    SetUpFields();
    SetUpEditor();
    connect(m_pUi->btnOk, &QAbstractButton::clicked, this, &CRoleManagerEditDlg::accept);
    connect(m_pUi->btnCancel, &QAbstractButton::clicked, this, &CRoleManagerEditDlg::reject);
    connect(m_pUi->cmbCopyFrom, QOverload<int>::of(&QComboBox::activated), this,
        &CRoleManagerEditDlg::OnCopyChosen);
    Common::LoadStyleSheet(this, QStringLiteral("PlatformConfigUI/RoleManager"));
}

CRoleManagerEditDlg::~CRoleManagerEditDlg() = default;

void CRoleManagerEditDlg::SetUpFields()
{
    const QString sSpecial = Text::tr("Special characters < and > are not allowed.");
    m_pUi->editRoleName->SetRequired(Text::tr("Role name cannot be empty."));
    m_pUi->editRoleName->SetRule(
        UserLogical::RoleName, Text::tr("Role name cannot exceed %1 characters."), sSpecial);
    m_pUi->editRemark->SetRule(
        UserLogical::RoleRemark, Text::tr("The remark length cannot exceed %1 characters."), sSpecial);
    m_fields.Text(&Role_t::sName, m_pUi->editRoleName);
    m_fields.Text(&Role_t::sRemark, m_pUi->editRemark);
    const auto name = [this](const std::string& sCode) {
        const QString sName = m_pRights->GetRightName(QString::fromStdString(sCode));
        return sName.isEmpty() ? QString::fromStdString(sCode) : sName;
    };
    m_editor.Fields().AddKeys(Text::tr("Menu Rights"), &Role_t::vecMenuRights, name);
    m_editor.Fields().AddKeys(Text::tr("Function Rights"), &Role_t::vecFuncRights, name);
}

void CRoleManagerEditDlg::SetUpEditor()
{
    m_editor.SetForm({.pSave = m_pUi->btnOk, .pEdit = m_pUi->btnEdit, .vecInput = {m_pUi->pageForm}},
        {.sAddTitle = Text::tr("Add Role"),
            .sModifyTitle = Text::tr("Modify Role"),
            .sDetailsTitle = Text::tr("Role Details"),
            .sAdded = Text::tr("The role was added."),
            .sModified = Text::tr("The role was modified."),
            .sAddFailed = Text::tr("Failed to add role"),
            .sModifyFailed = Text::tr("Failed to modify role"),
            .sNoRight = Text::tr("You have no permission to add, change or delete roles.")},
        UserLogical::RightChangeRoles);
    m_editor.SetNotice(m_pUi->wgtSaveNotice);
    m_editor.SetLoadView(m_pUi->stackRole, m_pUi->wgtRoleState, m_pUi->pageForm,
        {Text::tr("Loading role"), Text::tr("Failed to get role info."),
            Text::tr("You have no permission to see roles.")});
    m_editor.SetClose([this] { QDialog::reject(); });
    connect(&m_editor, &Common::CEditorBase::SignalStateChanged, this, &CRoleManagerEditDlg::UpdateButtons);
}

void CRoleManagerEditDlg::SetRoles(const std::vector<Role_t>& vecRoles)
{
    m_vecRoles = vecRoles;
    ShowRoles();
}

void CRoleManagerEditDlg::ShowRoles()
{
    QComboBox* const pCombo = m_pUi->cmbCopyFrom;
    pCombo->clear();
    pCombo->addItem(Text::tr("None"), QString());
    for (const Role_t& role : m_vecRoles) {
        const QString sId = QString::fromStdString(role.sRoleId);
        if (sId != QString::fromStdString(m_editor.GetLoaded().sRoleId))
            pCombo->addItem(QString::fromStdString(role.sName), sId);
    }
    pCombo->setCurrentIndex(std::max(0, pCombo->findData(m_sCopyFrom)));
}

void CRoleManagerEditDlg::BeginAdd()
{
    m_editor.BeginNew({});
}

void CRoleManagerEditDlg::BeginModify(const QString& sRoleId)
{
    Load(Purpose::Modify, sRoleId);
}

void CRoleManagerEditDlg::BeginDetails(const QString& sRoleId, bool bMayEdit)
{
    Load(bMayEdit ? Purpose::Details : Purpose::ReadOnly, sRoleId);
}

void CRoleManagerEditDlg::Load(Purpose purpose, const QString& sRoleId)
{
    Role_t key;
    key.sRoleId = sRoleId.toStdString();
    m_editor.BeginLoad(key, purpose);
    ShowPurpose();
}

void CRoleManagerEditDlg::ShowPurpose()
{
    const bool bReadOnly = m_editor.IsReadOnly();
    m_pUi->editRoleName->setReadOnly(bReadOnly);
    m_pUi->editRemark->setReadOnly(bReadOnly);
    m_pUi->lbCopyFrom->setVisible(!bReadOnly);
    m_pUi->cmbCopyFrom->setVisible(!bReadOnly);
    if (m_pRights && m_bRightsReadOnly == bReadOnly)
        return;
    m_bRightsReadOnly = bReadOnly;
    delete m_pRights;
    m_pRights =
        new CRightsView(m_pInterfaceSet, bReadOnly ? CRightsView::Mode::ReadOnly : CRightsView::Mode::Edit);
    m_pUi->layPermissions->addWidget(m_pRights);
    // It was made last, and the buttons follow it.
    Common::SetTabOrder(
        {Common::GetTabStops(m_pRights).last(), m_pUi->btnEdit, m_pUi->btnOk, m_pUi->btnCancel});
}

void CRoleManagerEditDlg::Fetch(const Role_t& record, bool bNew)
{
    m_copyCalls.ForgetAll();
    if (bNew)
        FindRole(record.sName);
    else
        QueryRole(record.sRoleId);
}

void CRoleManagerEditDlg::QueryRole(const std::string& sRoleId)
{
    m_calls.Latest<&IUserManager::QueryRoleInfo>(sRoleId, [this](const Param& param) {
        const bool bFound = param.nErrorCode == UICommonMdl::ErrorNone && !param.vecRoles.empty();
        const Role_t role = bFound ? Sorted(param.vecRoles.front()) : Role_t{};
        m_editor.OnFetched(param.nErrorCode, bFound ? &role : nullptr);
    });
}

void CRoleManagerEditDlg::FindRole(const std::string& sName)
{
    // The rights are not in the list.
    m_calls.Latest<&IUserManager::QueryRoleList>([this, sName](const Param& param) {
        const auto it = std::find_if(param.vecRoles.begin(), param.vecRoles.end(),
            [&](const Role_t& role) { return role.sName == sName; });
        if (it == param.vecRoles.end())
            m_editor.OnFetched(param.nErrorCode, nullptr);
        else
            QueryRole(it->sRoleId);
    });
}

bool CRoleManagerEditDlg::OnLoadFailed(int nErrorCode)
{
    if (nErrorCode != UICommonMdl::ErrorNotFound)
        return false;
    CloseBecauseGone();
    return true;
}

void CRoleManagerEditDlg::ShowRecord(const Role_t& record)
{
    ShowPurpose();
    m_sCopyFrom.clear();
    ShowRoles();
    m_fields.Show(record);
    m_pRights->ShowRoles({record});
    m_pUi->editRoleName->GetLineEdit()->setFocus();
}

void CRoleManagerEditDlg::OnCopyChosen(int nIndex)
{
    const QString sRoleId = m_pUi->cmbCopyFrom->itemData(nIndex).toString();
    if (sRoleId == m_sCopyFrom && !m_copyCalls.IsPending())
        return;
    if (sRoleId.isEmpty()) {
        m_copyCalls.ForgetAll();
        m_sCopyFrom.clear();
        m_pRights->ShowRoles({m_editor.GetLoaded()});
        UpdateButtons();
        return;
    }
    m_copyCalls.Latest<&IUserManager::QueryRoleInfo>(
        sRoleId.toStdString(), [this, sRoleId](const Param& param) { OnCopyInfo(sRoleId, param); });
    UpdateButtons();
}

void CRoleManagerEditDlg::OnCopyInfo(const QString& sRoleId, const Param& param)
{
    if (param.nErrorCode == UICommonMdl::ErrorNone && !param.vecRoles.empty()) {
        m_sCopyFrom = sRoleId;
        m_pRights->ShowRoles({param.vecRoles.front()});
    } else {
        VxGUI::VxNotification::Show(
            this, Common::FailureText(Text::tr("Failed to get role info."), param.nErrorCode));
        ShowRoles();
    }
    UpdateButtons();
}

bool CRoleManagerEditDlg::CheckInput()
{
    return m_fields.Check();
}

Role_t CRoleManagerEditDlg::GetEdited() const
{
    Role_t edited = m_editor.GetLoaded();
    m_fields.Read(edited);
    edited.vecMenuRights = m_pRights->GetMenuRights();
    edited.vecFuncRights = m_pRights->GetFuncRights();
    return edited;
}

QString CRoleManagerEditDlg::GetOtherChange() const
{
    const bool bChanged = !m_sCopyFrom.isEmpty() || !m_pRights->GetDeviceChanges().empty();
    return bChanged ? Text::tr("Device Rights") : QString();
}

void CRoleManagerEditDlg::accept()
{
    if (m_pUi->btnOk->isEnabled())
        m_editor.Save();
}

void CRoleManagerEditDlg::reject()
{
    m_editor.Leave();
}

void CRoleManagerEditDlg::Send(const Role_t& record, bool bNew)
{
    const UserLogical::RoleEdit_t edit{record, m_sCopyFrom.toStdString(), m_pRights->GetDeviceChanges()};
    const auto onAnswer = [this](const Param& param) {
        m_editor.OnAnswer(param.nErrorCode, param.sErrorDetail, nullptr);
    };
    if (bNew)
        m_calls.Each<&IUserManager::AddRole>(edit, onAnswer);
    else
        m_calls.Each<&IUserManager::ModifyRole>(edit, onAnswer);
}

void CRoleManagerEditDlg::OnSaved(const Role_t&)
{
    Q_EMIT SignalSaved();
    QDialog::accept();
}

bool CRoleManagerEditDlg::ShowRefusal(int nErrorCode, const std::string& sDetail)
{
    if (nErrorCode == UICommonMdl::ErrorNameExists) {
        m_pUi->editRoleName->SetErrorHint(Text::tr("The role name already exists."));
        m_pUi->editRoleName->GetLineEdit()->setFocus();
        return true;
    }
    if (nErrorCode != UICommonMdl::ErrorRightNotOwn)
        return false;
    m_editor.TellFailure(nErrorCode, m_pRights->GetRightName(QString::fromStdString(sDetail)));
    return true;
}

void CRoleManagerEditDlg::CloseBecauseGone()
{
    VxGUI::VxNotification::Show(parentWidget() ? parentWidget() : this,
        Text::tr("The role does not exist any more."), VxGUI::NotificationKind::Warning);
    QDialog::reject();
}

void CRoleManagerEditDlg::UpdateButtons()
{
    // While the rights to copy are on their way the tree still shows others.
    m_pUi->btnOk->setEnabled(m_editor.CanSave() && !m_copyCalls.IsPending());
    m_pUi->cmbCopyFrom->setEnabled(m_editor.CanSave());
}

} // namespace PlatformConfigUI

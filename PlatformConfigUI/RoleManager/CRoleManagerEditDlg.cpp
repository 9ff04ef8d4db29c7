#include "CRoleManagerEditDlg.h"

#include "CRightsView.h"
#include "ui_CRoleManagerEditDlg.h"

#include <UICommonMdl/CErrorCode.h>
#include <VxGUI/VxNotification.h>
#include <common/Prompt.h>
#include <common/StyleSheet.h>

#include <QScopedValueRollback>

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
{
    m_pUi->setupUi(this);
    setAttribute(Qt::WA_DeleteOnClose);
    setModal(true);
    m_pUi->lbConnection->Watch(m_session);
    m_pUi->lbBusy->hide();
    SetUpFields();
    connect(m_pUi->btnEdit, &QAbstractButton::clicked, this, [this] { BeginModify(m_sRoleId); });
    connect(m_pUi->btnOk, &QAbstractButton::clicked, this, &CRoleManagerEditDlg::accept);
    connect(m_pUi->btnCancel, &QAbstractButton::clicked, this, &CRoleManagerEditDlg::reject);
    connect(m_pUi->cmbCopyFrom, QOverload<int>::of(&QComboBox::activated), this,
        &CRoleManagerEditDlg::OnCopyChosen);
    connect(m_pUi->wgtRoleState, &VxGUI::VxEmptyState::SignalAction, this, &CRoleManagerEditDlg::QueryRole);
    connect(&m_session, &Common::CSession::SignalConnectionChanged, this,
        &CRoleManagerEditDlg::OnConnectionChanged);
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
        if (sId != m_sRoleId)
            pCombo->addItem(QString::fromStdString(role.sName), sId);
    }
    pCombo->setCurrentIndex(std::max(0, pCombo->findData(m_sCopyFrom)));
}

void CRoleManagerEditDlg::BeginAdd()
{
    Begin(Purpose::Add, QString());
    m_bLoaded = true;
    ShowRecord();
}

void CRoleManagerEditDlg::BeginModify(const QString& sRoleId)
{
    Begin(Purpose::Modify, sRoleId);
    QueryRole();
}

void CRoleManagerEditDlg::BeginDetails(const QString& sRoleId, bool bMayEdit)
{
    m_bMayEdit = bMayEdit;
    Begin(Purpose::Details, sRoleId);
    QueryRole();
}

void CRoleManagerEditDlg::Begin(Purpose purpose, const QString& sRoleId)
{
    m_purpose = purpose;
    m_sRoleId = sRoleId;
    m_sCopyFrom.clear();
    m_loaded = {};
    m_bLoaded = false;
    const bool bDetails = purpose == Purpose::Details;
    setWindowTitle(bDetails           ? Text::tr("Role Details")
            : purpose == Purpose::Add ? Text::tr("Add Role")
                                      : Text::tr("Modify Role"));
    m_pUi->editRoleName->setReadOnly(bDetails);
    m_pUi->editRemark->setReadOnly(bDetails);
    m_pUi->lbCopyFrom->setVisible(!bDetails);
    m_pUi->cmbCopyFrom->setVisible(!bDetails);
    delete m_pRights;
    m_pRights =
        new CRightsView(m_pInterfaceSet, bDetails ? CRightsView::Mode::ReadOnly : CRightsView::Mode::Edit);
    m_pUi->layPermissions->addWidget(m_pRights);
    setTabOrder(bDetails ? static_cast<QWidget*>(m_pUi->editRemark) : m_pUi->cmbCopyFrom, m_pRights);
    setTabOrder(m_pRights, m_pUi->btnEdit);
    ShowRoles();
    UpdateButtons();
}

void CRoleManagerEditDlg::QueryRole()
{
    m_copyCalls.ForgetAll();
    m_calls.Latest<&IUserManager::QueryRoleInfo>(
        m_sRoleId.toStdString(), [this](const Param& param) { OnRoleInfo(param); });
    m_pUi->wgtRoleState->SetState(VxGUI::VxEmptyState::Kind::Loading, Text::tr("Loading role"));
    m_pUi->stackRole->setCurrentWidget(m_pUi->wgtRoleState);
}

void CRoleManagerEditDlg::OnRoleInfo(const Param& param)
{
    using Kind = VxGUI::VxEmptyState::Kind;
    if (param.nErrorCode == UICommonMdl::ErrorNone && !param.vecRoles.empty()) {
        m_loaded = Sorted(param.vecRoles.front());
        m_bLoaded = true;
        ShowRecord();
        return;
    }
    if (param.nErrorCode == UICommonMdl::ErrorNotFound) {
        CloseBecauseGone();
        return;
    }
    const QString sFailure = Text::tr("Failed to get role info.");
    if (param.nErrorCode == UICommonMdl::ErrorNoRight)
        m_pUi->wgtRoleState->SetState(Kind::NoPermission, Text::tr("You have no permission to see roles."));
    else
        m_pUi->wgtRoleState->SetState(Kind::Failed, sFailure,
            UICommonMdl::CErrorCode::GetErroCodeInfor(param.nErrorCode), Text::tr("Refresh"));
    VxGUI::VxNotification::Show(this, Common::FailureText(sFailure, param.nErrorCode));
}

void CRoleManagerEditDlg::ShowRecord()
{
    m_pUi->editRoleName->setText(QString::fromStdString(m_loaded.sName));
    m_pUi->editRemark->setText(QString::fromStdString(m_loaded.sRemark));
    m_pUi->stackRole->setCurrentWidget(m_pUi->pageForm);
    m_pRights->ShowRoles({m_loaded});
    UpdateButtons();
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
        m_pRights->ShowRoles({m_loaded});
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

bool CRoleManagerEditDlg::CheckFields()
{
    for (VxGUI::VxLineEdit* const pEdit : {m_pUi->editRoleName, m_pUi->editRemark}) {
        pEdit->setText(pEdit->text().trimmed());
        if (!pEdit->CheckInput().isEmpty()) {
            pEdit->GetLineEdit()->setFocus();
            return false;
        }
    }
    return true;
}

UserLogical::RoleEdit_t CRoleManagerEditDlg::GetEdited() const
{
    UserLogical::RoleEdit_t edit{m_loaded, m_sCopyFrom.toStdString(), m_pRights->GetDeviceChanges()};
    edit.role.sName = m_pUi->editRoleName->text().trimmed().toStdString();
    edit.role.sRemark = m_pUi->editRemark->text().trimmed().toStdString();
    edit.role.vecMenuRights = m_pRights->GetMenuRights();
    edit.role.vecFuncRights = m_pRights->GetFuncRights();
    return edit;
}

bool CRoleManagerEditDlg::IsDirty() const
{
    return m_purpose != Purpose::Details && m_bLoaded
        && !(GetEdited() == UserLogical::RoleEdit_t{m_loaded, {}, {}});
}

void CRoleManagerEditDlg::accept()
{
    if (!m_pUi->btnOk->isEnabled() || m_purpose == Purpose::Details || !CheckFields())
        return;
    m_bSaving = true;
    UpdateButtons();
    Q_EMIT SignalSave(GetEdited());
}

void CRoleManagerEditDlg::OnSaved()
{
    m_bSaving = false;
    QDialog::accept();
}

void CRoleManagerEditDlg::OnSaveFailed(int nErrorCode, const QString& sDetail)
{
    m_bSaving = false;
    UpdateButtons();
    if (nErrorCode == UICommonMdl::ErrorNameExists) {
        m_pUi->editRoleName->SetErrorHint(Text::tr("The role name already exists."));
        m_pUi->editRoleName->GetLineEdit()->setFocus();
        return;
    }
    if (nErrorCode == UICommonMdl::ErrorNotFound && m_purpose == Purpose::Modify) {
        CloseBecauseGone();
        return;
    }
    if (nErrorCode == UICommonMdl::ErrorVersionConflict) {
        OfferReload();
        return;
    }
    QString sText = Common::FailureText(
        m_purpose == Purpose::Add ? Text::tr("Failed to add role") : Text::tr("Failed to modify role"),
        nErrorCode);
    const QString sRight = m_pRights->GetRightName(sDetail);
    if (nErrorCode == UICommonMdl::ErrorRightNotOwn && !sRight.isEmpty())
        sText += QStringLiteral(" (%1)").arg(sRight);
    VxGUI::VxNotification::Show(this, sText);
}

void CRoleManagerEditDlg::OfferReload()
{
    if (Common::AskPrompt(this,
            Text::tr(
                "Somebody else changed the role meanwhile. Do you want to load it anew? What you changed "
                "will be lost.")))
        BeginModify(m_sRoleId);
}

void CRoleManagerEditDlg::CloseBecauseGone()
{
    VxGUI::VxNotification::Show(parentWidget() ? parentWidget() : this,
        Text::tr("The role does not exist any more."), VxGUI::NotificationKind::Warning);
    QDialog::reject();
}

void CRoleManagerEditDlg::reject()
{
    if (Common::AskCancel(this, IsDirty()))
        QDialog::reject();
}

void CRoleManagerEditDlg::OnConnectionChanged(bool bConnected)
{
    UpdateButtons();
    if (bConnected && !m_bLoaded && !m_calls.IsPending())
        QueryRole();
}

void CRoleManagerEditDlg::UpdateButtons()
{
    const bool bDetails = m_purpose == Purpose::Details;
    const bool bReady = m_session.IsConnected() && m_bLoaded && !m_bSaving;
    m_pUi->btnEdit->setVisible(bDetails && m_bMayEdit);
    m_pUi->btnEdit->setEnabled(bReady);
    m_pUi->btnOk->setVisible(!bDetails);
    m_pUi->btnOk->setEnabled(bReady && !m_copyCalls.IsPending());
    m_pUi->cmbCopyFrom->setEnabled(bReady);
    m_pUi->lbBusy->setVisible(m_bSaving);
    m_pUi->pageForm->setEnabled(!m_bSaving);
}

} // namespace PlatformConfigUI

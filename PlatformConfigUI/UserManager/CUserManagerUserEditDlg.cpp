#include "CUserManagerUserEditDlg.h"

#include "CUserDetailPermission.h"
#include "UserRules.h"
#include "ui_CUserManagerUserEditDlg.h"

#include <UICommonMdl/CErrorCode.h>
#include <VxGUI/VxNotification.h>
#include <common/Prompt.h>
#include <common/StyleSheet.h>

#include <QStyle>

namespace PlatformConfigUI {

using UserLogical::User_t;

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CUserManagerUserEditDlg)
};

bool IsSuccess(int nErrorCode)
{
    return nErrorCode == UICommonMdl::ErrorNone;
}

} // namespace

CUserManagerUserEditDlg::CUserManagerUserEditDlg(
    const UICommonMdl::CInterfaceSetManager* pInterfaceSet, QWidget* pParent)
    : QDialog(pParent)
    , m_pUi(std::make_unique<Ui::CUserManagerUserEditDlg>())
    , m_pPermission(new CUserDetailPermission(pInterfaceSet))
    , m_session(pInterfaceSet, this)
    , m_calls(pInterfaceSet, this)
{
    m_pUi->setupUi(this);
    setAttribute(Qt::WA_DeleteOnClose);
    setModal(true);
    m_pUi->lbConnection->Watch(m_session);
    m_pUi->tabUser->addTab(m_pPermission, Text::tr("Permissions"));
    connect(m_pUi->btnEdit, &QAbstractButton::clicked, this, &CUserManagerUserEditDlg::OnEditClicked);
    connect(m_pUi->btnOk, &QAbstractButton::clicked, this, &CUserManagerUserEditDlg::Save);
    connect(m_pUi->btnCancel, &QAbstractButton::clicked, this, &CUserManagerUserEditDlg::reject);
    connect(m_pUi->wgtLoadState, &VxGUI::VxEmptyState::SignalAction, this, &CUserManagerUserEditDlg::Load);
    connect(&m_session, &Common::CSession::SignalConnectionChanged, this,
        &CUserManagerUserEditDlg::OnConnectionChanged);
    connect(
        &m_session, &Common::CSession::SignalRightsChanged, this, &CUserManagerUserEditDlg::UpdateButtons);
    Common::LoadStyleSheet(this, QStringLiteral("PlatformConfigUI/UserManagerUI"));
}

CUserManagerUserEditDlg::~CUserManagerUserEditDlg() = default;

void CUserManagerUserEditDlg::BeginAdd()
{
    Begin(Mode::Add, QString());
    m_bLoaded = true;
    ShowRecord();
}

void CUserManagerUserEditDlg::BeginModify(const QString& sUserName)
{
    Begin(Mode::Modify, sUserName);
    Load();
}

void CUserManagerUserEditDlg::BeginDetails(const QString& sUserName)
{
    Begin(Mode::Details, sUserName);
    Load();
}

void CUserManagerUserEditDlg::Begin(Mode mode, const QString& sUserName)
{
    m_mode = mode;
    m_sUserName = sUserName;
    m_loaded = {};
    m_bLoaded = false;
    UpdateButtons();
}

void CUserManagerUserEditDlg::Load()
{
    m_calls.Latest<&UserLogical::IUserManager::QueryUserInfo>(
        m_sUserName.toStdString(), [this](const Param& param) { OnUserInfo(param); });
    m_pUi->wgtLoadState->SetState(VxGUI::VxEmptyState::Kind::Loading, Text::tr("Loading user"));
    m_pUi->stackUser->setCurrentWidget(m_pUi->wgtLoadState);
    UpdateButtons();
}

void CUserManagerUserEditDlg::OnUserInfo(const Param& param)
{
    if (!IsSuccess(param.nErrorCode) || !param.optUser) {
        ShowLoadState(IsSuccess(param.nErrorCode) ? int(UICommonMdl::ErrorBadAnswer) : param.nErrorCode);
        return;
    }
    m_loaded = *param.optUser;
    m_bLoaded = true;
    ShowRecord();
}

void CUserManagerUserEditDlg::ShowLoadState(int nErrorCode)
{
    using Kind = VxGUI::VxEmptyState::Kind;
    m_bLoaded = false;
    if (nErrorCode == UICommonMdl::ErrorNoRight)
        m_pUi->wgtLoadState->SetState(Kind::NoPermission, Text::tr("You have no permission to see users."));
    else
        m_pUi->wgtLoadState->SetState(Kind::Failed, Text::tr("Failed to get user info."),
            UICommonMdl::CErrorCode::GetErroCodeInfor(nErrorCode), Text::tr("Refresh"));
    m_pUi->stackUser->setCurrentWidget(m_pUi->wgtLoadState);
    UpdateButtons();
}

void CUserManagerUserEditDlg::ShowRecord()
{
    using Form = CUserBasicInfoWidget::Mode;
    const bool bDetails = m_mode == Mode::Details;
    setProperty("details", bDetails);
    m_pUi->wgtBasicInfo->ShowUser(m_loaded,
        m_mode == Mode::Add ? Form::Add
            : bDetails      ? Form::Details
                            : Form::Modify);
    if (bDetails)
        m_pPermission->ShowUser(m_sUserName);
    else
        m_pPermission->StartChoice(m_loaded.vecRoleIds);
    // What is below is polished already.
    const QString sSheet = styleSheet();
    setStyleSheet(QString());
    setStyleSheet(sSheet);
    m_pUi->stackUser->setCurrentWidget(m_pUi->tabUser);
    UpdateButtons();
    if (!bDetails)
        m_pUi->wgtBasicInfo->StartInput();
}

User_t CUserManagerUserEditDlg::GetEdited() const
{
    User_t edited = m_pUi->wgtBasicInfo->GetEdited();
    edited.vecRoleIds = m_pPermission->GetChosen();
    return edited;
}

bool CUserManagerUserEditDlg::IsDirty() const
{
    if (!m_bLoaded || m_mode == Mode::Details)
        return false;
    User_t edited = GetEdited();
    User_t loaded = m_loaded;
    // Roles have no order.
    std::sort(edited.vecRoleIds.begin(), edited.vecRoleIds.end());
    std::sort(loaded.vecRoleIds.begin(), loaded.vecRoleIds.end());
    return edited != loaded;
}

bool CUserManagerUserEditDlg::CheckInput()
{
    // A failing field can take the keyboard only on the tab that is in front.
    QWidget* const pBefore = m_pUi->tabUser->currentWidget();
    m_pUi->tabUser->setCurrentWidget(m_pUi->pageBasicInfo);
    if (!m_pUi->wgtBasicInfo->CheckFields())
        return false;
    if (m_pPermission->GetChosen().empty()) {
        m_pUi->tabUser->setCurrentWidget(m_pPermission);
        m_pPermission->StartInput();
        VxGUI::VxNotification::Show(this, Text::tr("Please select role."), VxGUI::NotificationKind::Warning);
        return false;
    }
    if (!m_pUi->wgtBasicInfo->CheckAddresses())
        return false;
    m_pUi->tabUser->setCurrentWidget(pBefore);
    return true;
}

void CUserManagerUserEditDlg::accept()
{
    Save();
}

void CUserManagerUserEditDlg::Save()
{
    if (!m_session.IsConnected() || m_bSaving || !m_bLoaded || m_mode == Mode::Details || !CheckInput())
        return;
    if (m_mode == Mode::Modify && !IsDirty())
        QDialog::accept();
    else
        Q_EMIT SignalSaveUser(GetEdited(), m_mode == Mode::Add);
}

void CUserManagerUserEditDlg::reject()
{
    if (Common::AskCancel(this, IsDirty()))
        QDialog::reject();
}

void CUserManagerUserEditDlg::SetSaving(bool bSaving)
{
    m_bSaving = bSaving;
    UpdateButtons();
}

void CUserManagerUserEditDlg::ShowFailure(int nErrorCode, const QString& sDetail)
{
    const QString sError = UICommonMdl::CErrorCode::GetErroCodeInfor(nErrorCode);
    switch (nErrorCode) {
    case UICommonMdl::ErrorNameExists:
        m_pUi->tabUser->setCurrentWidget(m_pUi->pageBasicInfo);
        m_pUi->wgtBasicInfo->ShowUserNameExists(sError);
        return;
    case UICommonMdl::ErrorPasswordRule:
        m_pUi->tabUser->setCurrentWidget(m_pUi->pageBasicInfo);
        m_pUi->wgtBasicInfo->ShowPasswordRefused(sError);
        return;
    case UICommonMdl::ErrorVersionConflict:
        OnVersionConflict();
        return;
    }
    QString sText = Common::FailureText(
        m_mode == Mode::Add ? Text::tr("Failed to add user.") : Text::tr("Failed to modify user."),
        nErrorCode);
    const bool bNamed =
        nErrorCode == UICommonMdl::ErrorInvalidInput || nErrorCode == UICommonMdl::ErrorRightNotOwn;
    if (bNamed && !sDetail.isEmpty())
        sText += QStringLiteral(" (%1)").arg(sDetail);
    VxGUI::VxNotification::Show(this, sText);
}

void CUserManagerUserEditDlg::OnVersionConflict()
{
    if (Common::AskPrompt(this,
            Text::tr(
                "Somebody else changed the user in the meantime. Load it anew? What you entered is lost.")))
        Load();
}

void CUserManagerUserEditDlg::OnEditClicked()
{
    m_mode = Mode::Modify;
    ShowRecord();
}

void CUserManagerUserEditDlg::OnConnectionChanged(bool bConnected)
{
    m_pUi->wgtLoadState->setEnabled(bConnected);
    UpdateButtons();
    if (bConnected && !m_bLoaded)
        Load();
}

void CUserManagerUserEditDlg::UpdateButtons()
{
    const bool bDetails = m_mode == Mode::Details;
    setWindowTitle(m_mode == Mode::Add ? Text::tr("Add User")
            : bDetails                 ? Text::tr("User Details")
                                       : Text::tr("Modify User"));
    const bool bChangeable = m_session.HasRight(RightManageUsers);
    const QString sNoRight = bChangeable ? QString() : Text::tr("You have no permission to change users.");
    m_pUi->btnEdit->setVisible(bDetails);
    m_pUi->btnOk->setVisible(!bDetails);
    m_pUi->btnEdit->setEnabled(m_bLoaded && m_session.IsConnected() && bChangeable);
    m_pUi->btnOk->setEnabled(m_bLoaded && m_session.IsConnected() && bChangeable && !m_bSaving);
    m_pUi->btnEdit->setToolTip(sNoRight);
    m_pUi->btnOk->setToolTip(sNoRight);
}

} // namespace PlatformConfigUI

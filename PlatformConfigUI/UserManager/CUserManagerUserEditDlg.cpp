#include "CUserManagerUserEditDlg.h"

#include "CUserDetailPermission.h"
#include "UserRules.h"
#include "ui_CUserManagerUserEditDlg.h"

#include <UICommonMdl/CErrorCode.h>
#include <VxGUI/VxNotification.h>
#include <common/Prompt.h>
#include <common/StyleSheet.h>

#include <algorithm>

namespace PlatformConfigUI {

using UserLogical::IUserManager;
using UserLogical::User_t;

namespace {
struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CUserManagerUserEditDlg)
};
} // namespace

CUserManagerUserEditDlg::CUserManagerUserEditDlg(
    const UICommonMdl::CInterfaceSetManager* pInterfaceSet, QWidget* pParent)
    : QDialog(pParent)
    , m_pUi(std::make_unique<Ui::CUserManagerUserEditDlg>())
    , m_pPermission(new CUserDetailPermission(pInterfaceSet))
    , m_session(pInterfaceSet, this)
    , m_calls(pInterfaceSet, this)
    , m_editor(m_session, this, *this)
{
    m_pUi->setupUi(this);
    setAttribute(Qt::WA_DeleteOnClose);
    setModal(true);
    m_pUi->lbConnection->Watch(m_session);
    m_pUi->tabUser->addTab(m_pPermission, Text::tr("Permissions"));
    connect(m_pUi->btnEdit, &QAbstractButton::clicked, this, &CUserManagerUserEditDlg::OnEditClicked);
    connect(m_pUi->btnOk, &QAbstractButton::clicked, this, &CUserManagerUserEditDlg::accept);
    connect(m_pUi->btnCancel, &QAbstractButton::clicked, this, &CUserManagerUserEditDlg::reject);
    SetUpEditor();
    connect(
        &m_session, &Common::CSession::SignalRightsChanged, this, &CUserManagerUserEditDlg::UpdateButtons);
    Common::LoadStyleSheet(this, QStringLiteral("PlatformConfigUI/UserManagerUI"));
}

CUserManagerUserEditDlg::~CUserManagerUserEditDlg() = default;

void CUserManagerUserEditDlg::SetUpEditor()
{
    m_pUi->wgtBasicInfo->Describe(m_editor.Fields());
    m_editor.Fields().AddKeys(Text::tr("Roles"), &User_t::vecRoleIds,
        [this](const std::string& sId) { return m_pPermission->GetRoleNames({sId}); });
    m_editor.SetNotice(m_pUi->wgtSaveNotice);
    m_editor.SetLoadView(m_pUi->stackUser, m_pUi->wgtLoadState, m_pUi->tabUser,
        {Text::tr("Loading user"), Text::tr("Failed to get user info."),
            Text::tr("You have no permission to see users.")});
    m_editor.SetClose([this] { QDialog::reject(); });
    connect(
        &m_editor, &Common::CEditorBase::SignalStateChanged, this, &CUserManagerUserEditDlg::UpdateButtons);
}

void CUserManagerUserEditDlg::BeginAdd()
{
    SetMode(Mode::Add);
    m_editor.BeginNew({});
}

void CUserManagerUserEditDlg::BeginModify(const QString& sUserName)
{
    SetMode(Mode::Modify);
    Load(sUserName);
}

void CUserManagerUserEditDlg::BeginDetails(const QString& sUserName)
{
    SetMode(Mode::Details);
    Load(sUserName);
}

void CUserManagerUserEditDlg::SetMode(Mode mode)
{
    m_mode = mode;
    m_editor.SetReadOnly(mode == Mode::Details);
    UpdateButtons();
}

void CUserManagerUserEditDlg::Load(const QString& sUserName)
{
    User_t key;
    key.sUserName = sUserName.toStdString();
    m_editor.BeginLoad(key);
}

void CUserManagerUserEditDlg::Fetch(const User_t& record, bool)
{
    m_calls.Latest<&IUserManager::QueryUserInfo>(record.sUserName, [this](const Param& param) {
        const int nMissing = param.optUser ? int(UICommonMdl::ErrorNone) : int(UICommonMdl::ErrorBadAnswer);
        m_editor.OnFetched(param.nErrorCode != UICommonMdl::ErrorNone ? param.nErrorCode : nMissing,
            param.optUser ? &*param.optUser : nullptr);
    });
}

void CUserManagerUserEditDlg::ShowRecord(const User_t& record)
{
    using Form = CUserBasicInfoWidget::Mode;
    const bool bDetails = m_mode == Mode::Details;
    setProperty("details", bDetails);
    m_pUi->wgtBasicInfo->ShowUser(record,
        m_mode == Mode::Add ? Form::Add
            : bDetails      ? Form::Details
                            : Form::Modify);
    if (bDetails)
        m_pPermission->ShowUser(QString::fromStdString(record.sUserName));
    else
        m_pPermission->StartChoice(record.vecRoleIds);
    // What is below is polished already.
    const QString sSheet = styleSheet();
    setStyleSheet(QString());
    setStyleSheet(sSheet);
    if (!bDetails)
        m_pUi->wgtBasicInfo->StartInput();
}

User_t CUserManagerUserEditDlg::GetEdited() const
{
    User_t edited = m_pUi->wgtBasicInfo->GetEdited();
    const std::vector<std::string> vecChosen = m_pPermission->GetChosen();
    // Roles have no order: that of the record is as good as that of the list.
    if (!std::is_permutation(
            vecChosen.begin(), vecChosen.end(), edited.vecRoleIds.begin(), edited.vecRoleIds.end()))
        edited.vecRoleIds = vecChosen;
    return edited;
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
    if (m_mode == Mode::Modify && m_editor.CanSave() && !m_editor.IsDirty())
        QDialog::accept();
    else if (m_session.HasRight(RightManageUsers))
        m_editor.Save();
}

void CUserManagerUserEditDlg::reject()
{
    m_editor.Leave();
}

void CUserManagerUserEditDlg::Send(const User_t& record, bool bNew)
{
    const auto onAnswer = [this](const Param& param) {
        m_editor.OnAnswer(param.nErrorCode, param.sErrorDetail, nullptr);
    };
    if (bNew)
        m_calls.Each<&IUserManager::AddUser>(record, onAnswer);
    else
        m_calls.Each<&IUserManager::ModifyUser>(record, onAnswer);
}

void CUserManagerUserEditDlg::OnSaved(const User_t&)
{
    Q_EMIT SignalSaved(m_mode == Mode::Add);
    QDialog::accept();
}

void CUserManagerUserEditDlg::ShowRefusal(int nErrorCode, const std::string& sDetail)
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
    }
    QString sText = Common::FailureText(
        m_mode == Mode::Add ? Text::tr("Failed to add user.") : Text::tr("Failed to modify user."),
        nErrorCode);
    const bool bNamed =
        nErrorCode == UICommonMdl::ErrorInvalidInput || nErrorCode == UICommonMdl::ErrorRightNotOwn;
    if (bNamed && !sDetail.empty())
        sText += QStringLiteral(" (%1)").arg(QString::fromStdString(sDetail));
    VxGUI::VxNotification::Show(this, sText);
}

void CUserManagerUserEditDlg::OnEditClicked()
{
    SetMode(Mode::Modify);
    m_editor.BeginEdit(User_t(m_editor.GetLoaded()));
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
    m_pUi->btnEdit->setEnabled(m_editor.CanSave() && bChangeable);
    m_pUi->btnOk->setEnabled(m_editor.CanSave() && bChangeable);
    m_pUi->tabUser->setEnabled(!m_editor.IsSaving());
    m_pUi->wgtLoadState->setEnabled(m_session.IsConnected());
    m_pUi->btnEdit->setToolTip(sNoRight);
    m_pUi->btnOk->setToolTip(sNoRight);
}

} // namespace PlatformConfigUI

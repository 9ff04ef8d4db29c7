#include "CUserManagerUserEditDlg.h"

#include "CUserDetailPermission.h"
#include "UserRules.h"
#include "ui_CUserManagerUserEditDlg.h"

#include <UICommonMdl/CErrorCode.h>
#include <UserLogical/RightCodes.h>
#include <VxGUI/VxNotification.h>
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
    connect(m_pUi->btnOk, &QAbstractButton::clicked, this, &CUserManagerUserEditDlg::accept);
    connect(m_pUi->btnCancel, &QAbstractButton::clicked, this, &CUserManagerUserEditDlg::reject);
    SetUpEditor();
    Common::LoadStyleSheet(this, QStringLiteral("PlatformConfigUI/UserManagerUI"));
}

CUserManagerUserEditDlg::~CUserManagerUserEditDlg() = default;

void CUserManagerUserEditDlg::SetUpEditor()
{
    m_pUi->wgtBasicInfo->Describe(m_editor.Fields());
    m_editor.Fields().AddKeys(Text::tr("Roles"), &User_t::vecRoleIds,
        [this](const std::string& sId) { return m_pPermission->GetRoleNames({sId}); });
    m_editor.SetForm({.pSave = m_pUi->btnOk, .pEdit = m_pUi->btnEdit, .vecInput = {m_pUi->tabUser}},
        {.sAddTitle = Text::tr("Add User"),
            .sModifyTitle = Text::tr("Modify User"),
            .sDetailsTitle = Text::tr("User Details"),
            .sAdded = Text::tr("The user was added."),
            .sModified = Text::tr("The user was modified."),
            .sAddFailed = Text::tr("Failed to add user."),
            .sModifyFailed = Text::tr("Failed to modify user."),
            .sNoRight = Text::tr("You have no permission to change users.")},
        UserLogical::RightChangeUsers);
    m_editor.SetNotice(m_pUi->wgtSaveNotice);
    m_editor.SetLoadView(m_pUi->stackUser, m_pUi->wgtLoadState, m_pUi->tabUser,
        {Text::tr("Loading user"), Text::tr("Failed to get user info."),
            Text::tr("You have no permission to see users.")});
    m_editor.SetClose([this] { QDialog::reject(); });
}

void CUserManagerUserEditDlg::BeginAdd()
{
    m_editor.BeginNew({});
}

void CUserManagerUserEditDlg::BeginModify(const QString& sUserName)
{
    Load(Common::CEditorBase::Purpose::Modify, sUserName);
}

void CUserManagerUserEditDlg::BeginDetails(const QString& sUserName)
{
    Load(Common::CEditorBase::Purpose::Details, sUserName);
}

void CUserManagerUserEditDlg::Load(Common::CEditorBase::Purpose purpose, const QString& sUserName)
{
    User_t key;
    key.sUserName = sUserName.toStdString();
    m_editor.BeginLoad(key, purpose);
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
    const bool bDetails = m_editor.IsReadOnly();
    setProperty("details", bDetails);
    m_pUi->wgtBasicInfo->ShowUser(record,
        m_editor.IsNew() ? Form::Add
            : bDetails   ? Form::Details
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
    if (!m_editor.IsNew() && m_editor.CanSave() && !m_editor.IsDirty())
        QDialog::accept();
    else
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
    Q_EMIT SignalSaved();
    QDialog::accept();
}

bool CUserManagerUserEditDlg::ShowRefusal(int nErrorCode, const std::string& sDetail)
{
    const QString sError = UICommonMdl::CErrorCode::GetErroCodeInfor(nErrorCode);
    switch (nErrorCode) {
    case UICommonMdl::ErrorNameExists:
        m_pUi->tabUser->setCurrentWidget(m_pUi->pageBasicInfo);
        m_pUi->wgtBasicInfo->ShowUserNameExists(sError);
        return true;
    case UICommonMdl::ErrorPasswordRule:
        m_pUi->tabUser->setCurrentWidget(m_pUi->pageBasicInfo);
        m_pUi->wgtBasicInfo->ShowPasswordRefused(sError);
        return true;
    case UICommonMdl::ErrorInvalidInput:
    case UICommonMdl::ErrorRightNotOwn:
        m_editor.TellFailure(nErrorCode, QString::fromStdString(sDetail));
        return true;
    default:
        return false;
    }
}

} // namespace PlatformConfigUI

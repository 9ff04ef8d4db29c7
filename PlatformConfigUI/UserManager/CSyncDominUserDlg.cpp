#include "CSyncDominUserDlg.h"

#include "UserRules.h"
#include "ui_CSyncDominUserDlg.h"

#include <Trv/QSkin.h>
#include <UICommonMdl/CErrorCode.h>
#include <VxGUI/VxNotification.h>
#include <common/Prompt.h>
#include <common/StyleSheet.h>

namespace PlatformConfigUI {

using UserLogical::IUserManager;

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CSyncDominUserDlg)
};

} // namespace

CSyncDominUserDlg::CSyncDominUserDlg(const UICommonMdl::CInterfaceSetManager* pInterfaceSet, QWidget* pParent)
    : QDialog(pParent)
    , m_pUi(std::make_unique<Ui::CSyncDominUserDlg>())
    , m_session(pInterfaceSet, this)
    , m_calls(pInterfaceSet, this)
{
    m_pUi->setupUi(this);
    setAttribute(Qt::WA_DeleteOnClose);
    setModal(true);
    m_pUi->lbConnection->Watch(m_session);
    m_pUi->btnDelete->setIcon(Trv::GetIcon(QStringLiteral("delete-on-danger")));
    connect(m_pUi->btnDelete, &QAbstractButton::clicked, this, &CSyncDominUserDlg::OnDeleteClicked);
    connect(m_pUi->btnCancel, &QAbstractButton::clicked, this, &CSyncDominUserDlg::reject);
    connect(m_pUi->wgtInvalidState, &VxGUI::VxEmptyState::SignalAction, this, &CSyncDominUserDlg::Query);
    connect(&m_session, &Common::CSession::SignalConnectionChanged, this,
        &CSyncDominUserDlg::OnConnectionChanged);
    Common::LoadStyleSheet(this, QStringLiteral("PlatformConfigUI/UserManagerUI"));
    UpdateButtons();
}

CSyncDominUserDlg::~CSyncDominUserDlg() = default;

void CSyncDominUserDlg::Start()
{
    Query();
    m_pUi->btnCancel->setFocus();
}

void CSyncDominUserDlg::Query()
{
    m_calls.Latest<&IUserManager::QueryInvalidDomainUsers>([this](const Param& param) { OnUsers(param); });
    m_pUi->wgtInvalidState->SetState(
        VxGUI::VxEmptyState::Kind::Loading, Text::tr("Comparing with the directory"));
    m_pUi->stackInvalid->setCurrentWidget(m_pUi->wgtInvalidState);
    UpdateButtons();
}

void CSyncDominUserDlg::OnUsers(const Param& param)
{
    const bool bListed = param.nErrorCode == UICommonMdl::ErrorNone;
    m_pUi->tableInvalid->SetUsers(bListed ? param.vecDomainUsers : std::vector<UserLogical::DomainUser_t>());
    ShowListState(param.nErrorCode);
    UpdateButtons();
}

void CSyncDominUserDlg::ShowListState(int nErrorCode)
{
    using Kind = VxGUI::VxEmptyState::Kind;
    VxGUI::VxEmptyState* const pState = m_pUi->wgtInvalidState;
    const QString sFailed = Text::tr("Failed to compare with the directory.");
    const QString sError = UICommonMdl::CErrorCode::GetErroCodeInfor(nErrorCode);
    m_pUi->lbSyncText->setVisible(m_pUi->tableInvalid->GetCount() > 0);
    switch (nErrorCode) {
    case UICommonMdl::ErrorNone:
        if (m_pUi->tableInvalid->GetCount() > 0) {
            m_pUi->stackInvalid->setCurrentWidget(m_pUi->pageInvalid);
            return;
        }
        pState->SetState(Kind::Empty, Text::tr("No invalid domain user."));
        break;
    case UICommonMdl::ErrorDirectoryNotConfigured:
        pState->SetState(Kind::NotAvailable, sError);
        break;
    case UICommonMdl::ErrorNoRight:
        pState->SetState(Kind::NoPermission, sFailed, sError);
        break;
    default:
        pState->SetState(Kind::Failed, sFailed, sError, Text::tr("Refresh"));
    }
    m_pUi->stackInvalid->setCurrentWidget(pState);
}

void CSyncDominUserDlg::OnDeleteClicked()
{
    m_bDeleting = true;
    m_calls.Each<&IUserManager::DeleteInvalidDomainUsers>(
        ToNames(m_pUi->tableInvalid->GetNames()), [this](const Param& param) { OnDeleteAnswer(param); });
    UpdateButtons();
}

void CSyncDominUserDlg::OnDeleteAnswer(const Param& param)
{
    m_bDeleting = false;
    UpdateButtons();
    const QString sFailure = Text::tr("Failed to delete invalid domain user");
    if (!param.vecFailed.empty()) {
        Q_EMIT SignalUsersDeleted();
        Query();
        // Last: the dialog may be gone when the message is closed.
        Common::ShowFailures(this, sFailure, GetFailures(param.vecFailed));
    } else if (param.nErrorCode != UICommonMdl::ErrorNone) {
        VxGUI::VxNotification::Show(this, Common::FailureText(sFailure, param.nErrorCode));
    } else {
        Q_EMIT SignalUsersDeleted();
        accept();
    }
}

void CSyncDominUserDlg::OnConnectionChanged(bool bConnected)
{
    m_pUi->wgtInvalidState->setEnabled(bConnected);
    UpdateButtons();
    if (bConnected)
        Query();
}

void CSyncDominUserDlg::UpdateButtons()
{
    m_pUi->btnDelete->setEnabled(m_session.IsConnected() && !m_bDeleting
        && !m_calls.IsPending<&IUserManager::QueryInvalidDomainUsers>()
        && m_pUi->tableInvalid->GetCount() > 0);
}

} // namespace PlatformConfigUI

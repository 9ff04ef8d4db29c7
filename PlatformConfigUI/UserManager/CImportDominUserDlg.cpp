#include "CImportDominUserDlg.h"

#include "CUserDetailPermission.h"
#include "UserRules.h"
#include "ui_CImportDominUserDlg.h"

#include <UICommonMdl/CErrorCode.h>
#include <VxGUI/VxDialogService.h>
#include <VxGUI/VxNotification.h>
#include <common/Prompt.h>
#include <common/StyleSheet.h>

#include <QStyle>

namespace PlatformConfigUI {

using UserLogical::IUserManager;

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CImportDominUserDlg)
};

/// The directory's server may take its time.
constexpr std::chrono::minutes AddTimeOut{5};

void MarkStep(QWidget* pStep, bool bCurrent)
{
    pStep->setProperty("current", bCurrent);
    pStep->style()->unpolish(pStep);
    pStep->style()->polish(pStep);
}

} // namespace

CImportDominUserDlg::CImportDominUserDlg(
    const UICommonMdl::CInterfaceSetManager* pInterfaceSet, QWidget* pParent)
    : QDialog(pParent)
    , m_pUi(std::make_unique<Ui::CImportDominUserDlg>())
    , m_pPermission(new CUserDetailPermission(pInterfaceSet))
    , m_session(pInterfaceSet, this)
    , m_calls(pInterfaceSet, this)
{
    m_pUi->setupUi(this);
    setAttribute(Qt::WA_DeleteOnClose);
    setModal(true);
    m_calls.SetLimit(AddTimeOut);
    m_pUi->lbConnection->Watch(m_session);
    m_pUi->lbTruncated->hide();
    m_pUi->edtSearchDomain->SetBackgroundText(Text::tr("Username"));
    m_pUi->tableDomain->SetCheckable();
    m_pUi->stackSteps->addWidget(m_pPermission);
    connect(m_pUi->edtSearchDomain, &VxGUI::VxSearchBox::SignalSearch, this, [this] {
        m_sSearchText = m_pUi->edtSearchDomain->text().trimmed();
        Query();
    });
    connect(m_pUi->wgtDomainState, &VxGUI::VxEmptyState::SignalAction, this, &CImportDominUserDlg::Query);
    connect(
        m_pUi->tableDomain, &CDomainUserView::SignalTickedChanged, this, &CImportDominUserDlg::UpdateTicks);
    // A click on a box that is partly checked checks all.
    connect(m_pUi->chkAllUsers, &QAbstractButton::clicked, this,
        [this] { m_pUi->tableDomain->TickListed(m_pUi->tableDomain->GetListedSummary() != Qt::Checked); });
    connect(m_pUi->btnPrevious, &QAbstractButton::clicked, this, [this] { ShowStep(m_pUi->pageUsers); });
    connect(m_pUi->btnNext, &QAbstractButton::clicked, this, &CImportDominUserDlg::OnNextClicked);
    connect(m_pUi->btnCancel, &QAbstractButton::clicked, this, &CImportDominUserDlg::reject);
    connect(&m_session, &Common::CSession::SignalConnectionChanged, this,
        &CImportDominUserDlg::OnConnectionChanged);
    Common::LoadStyleSheet(this, QStringLiteral("PlatformConfigUI/UserManagerUI"));
    ShowStep(m_pUi->pageUsers);
    UpdateTicks();
}

CImportDominUserDlg::~CImportDominUserDlg() = default;

void CImportDominUserDlg::Start()
{
    m_pPermission->StartChoice({});
    Query();
    m_pUi->edtSearchDomain->setFocus();
}

void CImportDominUserDlg::Query()
{
    m_calls.Latest<&IUserManager::QueryDomainUsers>(
        m_sSearchText.toStdString(), [this](const Param& param) { OnUsers(param); });
    m_pUi->wgtDomainState->SetState(VxGUI::VxEmptyState::Kind::Loading, Text::tr("Reading the directory"));
    m_pUi->stackDomain->setCurrentWidget(m_pUi->wgtDomainState);
    UpdateButtons();
}

void CImportDominUserDlg::OnUsers(const Param& param)
{
    const bool bListed = param.nErrorCode == UICommonMdl::ErrorNone;
    m_pUi->tableDomain->SetUsers(bListed ? param.vecDomainUsers : std::vector<UserLogical::DomainUser_t>());
    m_pUi->lbTruncated->setVisible(bListed && param.bTruncated);
    ShowListState(param.nErrorCode);
    UpdateTicks();
    UpdateButtons();
}

void CImportDominUserDlg::ShowListState(int nErrorCode)
{
    using Kind = VxGUI::VxEmptyState::Kind;
    VxGUI::VxEmptyState* const pState = m_pUi->wgtDomainState;
    const QString sFailed = Text::tr("Failed to get the users of the directory.");
    const QString sError = UICommonMdl::CErrorCode::GetErroCodeInfor(nErrorCode);
    switch (nErrorCode) {
    case UICommonMdl::ErrorNone:
        if (m_pUi->tableDomain->GetCount() > 0) {
            m_pUi->stackDomain->setCurrentWidget(m_pUi->pageDomain);
            return;
        }
        pState->SetState(Kind::Empty,
            m_sSearchText.isEmpty()
                ? Text::tr("Every user of the directory is a user of the platform already.")
                : Text::tr("No user of the directory matches the search."));
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
    m_pUi->stackDomain->setCurrentWidget(pState);
}

void CImportDominUserDlg::ShowStep(QWidget* pPage)
{
    m_pUi->stackSteps->setCurrentWidget(pPage);
    MarkStep(m_pUi->lbStepUsers, pPage == m_pUi->pageUsers);
    MarkStep(m_pUi->lbStepRoles, pPage == m_pPermission);
    m_pUi->btnNext->setText(pPage == m_pPermission ? Text::tr("OK") : Text::tr("Next Step"));
    UpdateButtons();
}

void CImportDominUserDlg::OnNextClicked()
{
    if (m_pUi->stackSteps->currentWidget() == m_pPermission) {
        AddUsers();
    } else if (m_pUi->tableDomain->GetTicked().isEmpty()) {
        VxGUI::VxNotification::Show(
            this, Text::tr("Please select user name."), VxGUI::NotificationKind::Warning);
    } else {
        ShowStep(m_pPermission);
        m_pPermission->StartInput();
    }
}

void CImportDominUserDlg::AddUsers()
{
    const std::vector<std::string> vecRoleIds = m_pPermission->GetChosen();
    if (vecRoleIds.empty()) {
        VxGUI::VxNotification::Show(this, Text::tr("Please select role."), VxGUI::NotificationKind::Warning);
        m_pPermission->StartInput();
        return;
    }
    m_bAdding = true;
    m_calls.Each<&IUserManager::AddDomainUsers>(ToNames(m_pUi->tableDomain->GetTicked()), vecRoleIds,
        [this](const Param& param) { OnAddAnswer(param); });
    UpdateButtons();
}

void CImportDominUserDlg::OnAddAnswer(const Param& param)
{
    m_bAdding = false;
    UpdateButtons();
    if (!param.vecFailed.empty()) {
        Q_EMIT SignalUsersAdded();
        ShowFailed(param.vecFailed);
    } else if (param.nErrorCode != UICommonMdl::ErrorNone) {
        VxGUI::VxNotification::Show(
            this, Common::FailureText(Text::tr("Failed to add domain user."), param.nErrorCode));
    } else {
        Q_EMIT SignalUsersAdded();
        QDialog::accept();
    }
}

void CImportDominUserDlg::ShowFailed(const std::vector<UserLogical::UserFailure_t>& vecFailed)
{
    // Those that are added are the platform's now; the others can be tried again.
    QStringList listNames;
    for (const UserLogical::UserFailure_t& failure : vecFailed)
        listNames.append(QString::fromStdString(failure.sUserName));
    m_pUi->tableDomain->SetTicked(listNames);
    ShowStep(m_pUi->pageUsers);
    Query();
    // Last: the dialog may be gone when the message is closed.
    VxGUI::VxDialogService::Current()->Message(this, Text::tr("Failed to add domain user"),
        Text::tr("Failed to add domain user.") + QLatin1Char('\n')
            + Text::tr("The list of domain users that are failed to add is as follows:"),
        Common::GetLines(GetFailures(vecFailed)));
}

void CImportDominUserDlg::OnConnectionChanged(bool bConnected)
{
    m_pUi->wgtDomainState->setEnabled(bConnected);
    m_pUi->edtSearchDomain->setEnabled(bConnected);
    UpdateButtons();
    if (bConnected)
        Query();
}

void CImportDominUserDlg::UpdateTicks()
{
    m_pUi->chkAllUsers->setCheckState(m_pUi->tableDomain->GetListedSummary());
    m_pUi->lbChosen->setText(Text::tr("Checked: %1").arg(m_pUi->tableDomain->GetTicked().size()));
}

void CImportDominUserDlg::UpdateButtons()
{
    const bool bRoles = m_pUi->stackSteps->currentWidget() == m_pPermission;
    const bool bListed = m_pUi->tableDomain->GetCount() > 0;
    m_pUi->chkAllUsers->setEnabled(bListed);
    m_pUi->btnPrevious->setEnabled(bRoles && !m_bAdding);
    m_pUi->btnNext->setEnabled(m_session.IsConnected() && !m_bAdding
        && (bRoles || bListed || !m_pUi->tableDomain->GetTicked().isEmpty()));
}

} // namespace PlatformConfigUI

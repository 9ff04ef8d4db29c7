#include "CPersonnelBatchAuthorizeUI.h"

#include "PersonFieldRules.h"
#include "ui_CPersonnelBatchAuthorizeUI.h"

#include <Trv/QSkin.h>
#include <UICommonMdl/CErrorCode.h>
#include <UICommonMdl/CInterfaceSetManager.h>
#include <UserLogical/RightCodes.h>
#include <VxGUI/VxMessageBox.h>
#include <VxGUI/VxNotification.h>
#include <common/CPage.h>
#include <common/Prompt.h>
#include <common/StyleSheet.h>

#include <QKeyEvent>
#include <QPointer>
#include <QPushButton>
#include <QSet>

namespace BasicInfoManagerUI {

using namespace AccessControlLogical;

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CPersonnelBatchAuthorizeUI)
};

const QString SkinFolder = QStringLiteral("BasicInfoManagerUI/Personnel");

Common::Failure DescribeFailure(const PersonFailure_t& failure)
{
    const QString sName = QString::fromStdString(failure.sName.empty() ? failure.sPersonId : failure.sName);
    if (failure.nErrorCode == UICommonMdl::ErrorPersonDuplicate)
        return {Text::tr("Failed to authorize some plate number of %1.").arg(sName), {}};
    return {QStringLiteral("%1 (%2)").arg(sName, QString::fromStdString(failure.sPersonId)),
        Common::FailureText(Text::tr("Failed to modify user"), failure.nErrorCode)};
}

} // namespace

CPersonnelBatchAuthorizeUI::CPersonnelBatchAuthorizeUI(
    UICommonMdl::CInterfaceSetManager* pInterfaceSet, QWidget* pParent)
    : QWidget(pParent)
    , m_pUi(std::make_unique<Ui::CPersonnelBatchAuthorizeUI>())
    , m_session(pInterfaceSet, this)
    , m_calls(pInterfaceSet, this)
    , m_guard(this)
{
    m_pUi->setupUi(this);
    setObjectName(QStringLiteral("CPersonnelBatchAuthorizeUI"));
    SetUpControls();
    m_guard.SetDirtyCheck([this] { return IsDirty(); });
    m_guard.SetClose([this] { Close(); });
    m_guard.SetQuestion(Text::tr("Current page data are changed, are you sure to leave?"));
    m_guard.SetBusyCheck([this] { return m_bBusy; },
        Text::tr("The rest of the persons will not be authorized. Are you sure to leave?"));
    connect(&m_session, &Common::CSession::SignalConnectionChanged, this,
        &CPersonnelBatchAuthorizeUI::OnConnectionChanged);
    connect(
        &m_session, &Common::CSession::SignalRightsChanged, this, &CPersonnelBatchAuthorizeUI::UpdateState);
    Common::LoadStyleSheet(this, SkinFolder);
    SetBusy(false);
}

CPersonnelBatchAuthorizeUI::~CPersonnelBatchAuthorizeUI() = default;

QString CPersonnelBatchAuthorizeUI::GetTitle()
{
    return Text::tr("Batch Authorize");
}

void CPersonnelBatchAuthorizeUI::SetUpControls()
{
    m_pUi->lbAuthorizeTitle->setText(GetTitle());
    setWindowTitle(GetTitle());
    m_pUi->btnAuthorizeBack->setIcon(Trv::GetIcon(QStringLiteral("back")));
    m_pUi->frmSelected->setProperty("card", true);
    m_pUi->frmPermissions->setProperty("card", true);
    m_pUi->lbFaceTitle->setText(m_pUi->m_pFaceInfo->GetTitle());
    CPermissionList* const pGroups = m_pUi->m_pAccessGroups;
    pGroups->SetUp({Text::tr("Access Permission Group Name")},
        Text::tr("No access permission groups configured."), Text::tr("Add Access Permission Group"));
    pGroups->GetAddButton()->setObjectName(QStringLiteral("m_pBtnAddAccessGroup"));
    using Page = CPersonnelBatchAuthorizeUI;
    connect(pGroups, &CPermissionList::SignalAdd, this, &Page::SignalAddAccessGroup);
    connect(this, &Page::SignalAddAccessGroup, pGroups, &CPermissionList::OpenAdder);
    CFaceComparisonInfo* const pFace = m_pUi->m_pFaceInfo;
    connect(pFace, &CFaceComparisonInfo::SignalAddFaceLibrary, this, &Page::SignalAddFaceLibrary);
    connect(this, &Page::SignalAddFaceLibrary, pFace, &CFaceComparisonInfo::OpenAdder);
    connect(m_pUi->m_pBtnOk, &QAbstractButton::clicked, this, &Page::OnOkClicked);
    connect(m_pUi->m_pBtnCancel, &QAbstractButton::clicked, this, &Page::Leave);
    connect(m_pUi->btnAuthorizeBack, &QAbstractButton::clicked, this, &Page::Leave);
    connect(m_pUi->btnChoicesAgain, &QAbstractButton::clicked, this, &Page::QueryChoices);
    m_pUi->m_pBtnOk->setShortcut(QKeySequence(QStringLiteral("Ctrl+S")));
}

void CPersonnelBatchAuthorizeUI::SetPersons(const std::vector<PersonInfo_t>& vecPersons)
{
    m_calls.ForgetAll();
    m_bAuthorized = false;
    m_pUi->wgtSelected->SetPersons(vecPersons);
    m_pUi->m_pAccessGroups->SetIds({});
    m_pUi->m_pFaceInfo->SetPerson({});
    SetBusy(false);
    QueryChoices();
    m_pUi->m_pAccessGroups->GetAddButton()->setFocus();
}

void CPersonnelBatchAuthorizeUI::QueryChoices()
{
    SetChoicesFailed(false, UICommonMdl::ErrorNone);
    const auto onAnswer = [this](const Param& param) {
        SetChoicesFailed(param.nErrorCode != UICommonMdl::ErrorNone, param.nErrorCode);
        if (m_bChoicesFailed)
            return;
        m_pUi->m_pAccessGroups->SetChoices(MakeChoiceRows(param.choices.vecAccessGroups));
        m_pUi->m_pFaceInfo->SetChoices(param.choices.vecFaceGroups);
    };
    m_calls.Latest<&IAccessControlManager::QueryPermissionChoices>(onAnswer);
}

void CPersonnelBatchAuthorizeUI::SetChoicesFailed(bool bFailed, int nErrorCode)
{
    m_bChoicesFailed = bFailed;
    m_pUi->lbChoicesFailed->setText(Common::FailureText(Text::tr("Failed to get permissions"), nErrorCode));
    m_pUi->wgtChoicesFailed->setVisible(bFailed);
}

void CPersonnelBatchAuthorizeUI::OnConnectionChanged(bool bConnected)
{
    UpdateState();
    if (bConnected && m_bChoicesFailed && isVisible())
        QueryChoices();
}

Person_t CPersonnelBatchAuthorizeUI::GetPermissions() const
{
    Person_t person;
    person.vecAccessGroups = ToStdList(m_pUi->m_pAccessGroups->GetIds());
    m_pUi->m_pFaceInfo->FillPerson(person);
    return person;
}

bool CPersonnelBatchAuthorizeUI::IsDirty() const
{
    return GetPermissions() != Person_t();
}

void CPersonnelBatchAuthorizeUI::OnOkClicked()
{
    if (m_bBusy)
        return;
    m_vecLeft = m_pUi->wgtSelected->GetPersonIds();
    if (m_vecLeft.empty()) {
        VxGUI::VxNotification::Show(
            this, Text::tr("Please select at least one person."), VxGUI::NotificationKind::Warning);
        return;
    }
    if (!IsDirty()
        && !Common::AskPrompt(this,
            Text::tr("No permissions are chosen: the selected persons will lose theirs. Are you sure?")))
        return;
    m_vecFailed.clear();
    m_vecClashes.clear();
    m_nTotal = int(m_vecLeft.size());
    m_pUi->barAuthorize->setRange(0, m_nTotal);
    SetBusy(true);
    SendNext();
}

void CPersonnelBatchAuthorizeUI::SendNext()
{
    m_pUi->barAuthorize->setValue(m_nTotal - int(m_vecLeft.size()));
    if (m_vecLeft.empty()) {
        Finish(UICommonMdl::ErrorNone);
        return;
    }
    const auto itEnd = m_vecLeft.begin() + std::ptrdiff_t(std::min(m_vecLeft.size(), PersonBatchLimit));
    const std::vector<std::string> vecSent(m_vecLeft.begin(), itEnd);
    m_vecLeft.erase(m_vecLeft.begin(), itEnd);
    const Person_t permissions = GetPermissions();
    m_calls.Each<&IAccessControlManager::AuthorizePersons>(vecSent, permissions.vecAccessGroups,
        permissions.vecFaceGroups, [this, vecSent](const Param& param) { OnAuthorized(param, vecSent); });
}

void CPersonnelBatchAuthorizeUI::OnAuthorized(const Param& param, const std::vector<std::string>& vecSent)
{
    m_vecClashes.insert(m_vecClashes.end(), param.vecClashes.begin(), param.vecClashes.end());
    if (param.nErrorCode != UICommonMdl::ErrorNone) {
        Finish(param.nErrorCode);
        return;
    }
    // Those that are done leave the list: what is tried again is the rest.
    std::vector<std::string> vecDone = vecSent;
    QSet<QString> setFailed;
    for (const PersonFailure_t& failure : param.vecFailed)
        setFailed.insert(QString::fromStdString(failure.sPersonId));
    vecDone.erase(
        std::remove_if(vecDone.begin(), vecDone.end(),
            [&](const std::string& sId) { return setFailed.contains(QString::fromStdString(sId)); }),
        vecDone.end());
    m_bAuthorized = m_bAuthorized || !vecDone.empty();
    m_vecFailed.insert(m_vecFailed.end(), param.vecFailed.begin(), param.vecFailed.end());
    m_pUi->wgtSelected->RemovePersons(vecDone);
    SendNext();
}

void CPersonnelBatchAuthorizeUI::Finish(int nErrorCode)
{
    SetBusy(false);
    if (nErrorCode == UICommonMdl::ErrorNone && m_vecFailed.empty() && m_vecClashes.empty()) {
        VxGUI::VxNotification::Show(
            this, Text::tr("Batch authorize person succeed"), VxGUI::NotificationKind::Success);
        m_pUi->m_pAccessGroups->SetIds({});
        m_pUi->m_pFaceInfo->SetPerson({});
        Q_EMIT SignalBack(true);
        return;
    }
    Common::CPage::WhenShownAt(this, [guard = QPointer<CPersonnelBatchAuthorizeUI>(this), nErrorCode] {
        if (!guard)
            return;
        VxGUI::VxNotification::Show(
            guard, Common::FailureText(Text::tr("Batch authorize person failed"), nErrorCode));
        guard->ShowFailures();
    });
}

void CPersonnelBatchAuthorizeUI::ShowFailures()
{
    std::vector<std::string> vecPlates;
    for (const PersonClash_t& clash : m_vecClashes)
        vecPlates.push_back(clash.sValue);
    const QString sPlates = DescribeClashes(m_vecClashes, vecPlates).sPlates;
    const QPointer<CPersonnelBatchAuthorizeUI> guard(this);
    if (!sPlates.isEmpty())
        VxGUI::VxMessageBox::Message(
            this, Text::tr("Prompt"), Text::tr("License plate number already exists."), sPlates);
    if (!guard || m_vecFailed.empty())
        return;
    QVector<Common::Failure> vecFailures;
    for (const PersonFailure_t& failure : m_vecFailed)
        vecFailures << DescribeFailure(failure);
    Common::ShowFailures(this, Text::tr("Batch authorize person failed"), vecFailures);
}

void CPersonnelBatchAuthorizeUI::Leave()
{
    m_guard.Leave();
}

void CPersonnelBatchAuthorizeUI::Close()
{
    m_calls.ForgetAll();
    m_pUi->m_pAccessGroups->SetIds({});
    m_pUi->m_pFaceInfo->SetPerson({});
    // A request that was given up may have changed permissions.
    const bool bAuthorized = m_bAuthorized || m_bBusy;
    SetBusy(false);
    Q_EMIT SignalBack(bAuthorized);
}

void CPersonnelBatchAuthorizeUI::SetBusy(bool bBusy)
{
    m_bBusy = bBusy;
    m_pUi->wgtSelected->SetReadOnly(bBusy);
    m_pUi->frmPermissions->setEnabled(!bBusy);
    m_pUi->barAuthorize->setVisible(bBusy);
    UpdateState();
}

void CPersonnelBatchAuthorizeUI::UpdateState()
{
    const bool bMayChange = m_session.HasRight(UserLogical::RightChangePersons);
    m_pUi->m_pBtnOk->setEnabled(m_session.IsConnected() && bMayChange && !m_bBusy);
    m_pUi->m_pBtnOk->setToolTip(
        bMayChange ? QString() : Text::tr("You have no permission to change persons."));
    m_pUi->btnChoicesAgain->setEnabled(m_session.IsConnected());
}

void CPersonnelBatchAuthorizeUI::keyPressEvent(QKeyEvent* pEvent)
{
    if (pEvent->key() == Qt::Key_Escape)
        Leave();
    else
        QWidget::keyPressEvent(pEvent);
}

void CPersonnelBatchAuthorizeUI::showEvent(QShowEvent* pEvent)
{
    QWidget::showEvent(pEvent);
    Common::LoadStyleSheet(this, SkinFolder);
}

} // namespace BasicInfoManagerUI

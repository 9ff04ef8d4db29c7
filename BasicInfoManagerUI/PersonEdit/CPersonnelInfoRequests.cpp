// What the person editor asks for, and the answers.

#include "CAccessControlInfo.h"
#include "CCredentialsSection.h"
#include "CExtractPersonDlg.h"
#include "CFaceComparisonInfo.h"
#include "CLiftControlInfo.h"
#include "CPersonBasicInfo.h"
#include "CPersonnelInfoUI.h"
#include "CResidentInfo.h"
#include "PersonFieldRules.h"
#include "ui_CPersonnelInfoUI.h"

#include <UICommonMdl/CDepartmentModelManager.h>
#include <UICommonMdl/CErrorCode.h>
#include <VxGUI/VxMessageBox.h>
#include <VxGUI/VxNotification.h>
#include <common/Prompt.h>

namespace BasicInfoManagerUI {

using namespace AccessControlLogical;

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CPersonnelInfoUI)
};

} // namespace

void CPersonnelInfoUI::Begin(Mode mode)
{
    m_calls.ForgetAll();
    m_bBusy = false;
    delete m_pExtract;
    SetMode(mode);
    QueryChoices();
}

void CPersonnelInfoUI::AddPerson(const QString& sGroupCode)
{
    m_sPersonId.clear();
    Begin(Mode::Add);
    BeginNewPerson(sGroupCode.isEmpty() ? RootDepartmentCode : sGroupCode.toStdString());
}

void CPersonnelInfoUI::BeginNewPerson(const std::string& sGroupCode)
{
    Person person;
    person.sGroupCode = sGroupCode;
    ShowRecord(person);
}

void CPersonnelInfoUI::EditPerson(const QString& sPersonId)
{
    m_sPersonId = sPersonId;
    Begin(Mode::Edit);
    QueryDetail();
}

void CPersonnelInfoUI::ShowPerson(const QString& sPersonId)
{
    m_sPersonId = sPersonId;
    Begin(Mode::Details);
    QueryDetail();
}

void CPersonnelInfoUI::QueryDetail()
{
    m_pUi->wgtPersonState->SetState(VxGUI::VxEmptyState::Kind::Loading, Text::tr("Loading"));
    m_pUi->stackPerson->setCurrentWidget(m_pUi->wgtPersonState);
    UpdateState();
    m_calls.Latest<&IAccessControlManager::QueryPersonDetail>(
        m_sPersonId.toStdString(), [this](const Param& param) { OnDetail(param); });
}

void CPersonnelInfoUI::OnDetail(const Param& param)
{
    if (param.nErrorCode == UICommonMdl::ErrorNone && param.optPerson) {
        ShowRecord(*param.optPerson);
        return;
    }
    const QString sFailed = Text::tr("Failed to search user detail");
    const bool bNoRight = param.nErrorCode == UICommonMdl::ErrorNoRight;
    m_pUi->wgtPersonState->SetState(
        bNoRight ? VxGUI::VxEmptyState::Kind::NoPermission : VxGUI::VxEmptyState::Kind::Failed, sFailed,
        UICommonMdl::CErrorCode::GetErroCodeInfor(param.nErrorCode),
        bNoRight ? QString() : Text::tr("Refresh"));
    VxGUI::VxNotification::Show(this, Common::FailureText(sFailed, param.nErrorCode));
}

void CPersonnelInfoUI::QueryChoices()
{
    IAccessControlManager* const pManager = m_calls.GetManager();
    if (pManager && UICommonMdl::CDepartmentModelManager::Instance()->GetDepartmentModel()->rowCount() == 0)
        pManager->QueryDepartmentTree();
    SetChoicesFailed({}, {});
    QueryPermissionChoices();
    QueryResidence();
}

void CPersonnelInfoUI::QueryPermissionChoices()
{
    const auto onAnswer = [this](const Param& param) {
        if (param.nErrorCode != UICommonMdl::ErrorNone) {
            SetChoicesFailed(Common::FailureText(Text::tr("Failed to get permissions"), param.nErrorCode),
                m_sResidenceFailed);
            return;
        }
        m_pAccess->SetChoices(param.choices.vecAccessGroups);
        m_pLift->SetChoices(param.choices.vecLiftFloors);
        m_pFace->SetChoices(param.choices.vecFaceGroups);
    };
    m_calls.Latest<&IAccessControlManager::QueryPermissionChoices>(onAnswer);
}

void CPersonnelInfoUI::QueryResidence()
{
    const auto showSection = [this](bool bShown) {
        m_pResident->parentWidget()->setVisible(bShown);
        m_pUi->wgtNavPage->SetSectionShown(m_pResident->parentWidget(), bShown);
    };
    const QString sFailed = Text::tr("Failed to get residence scenario");
    const auto onAnswer = [this, showSection, sFailed](const Param& param) {
        showSection(param.nErrorCode == UICommonMdl::ErrorNone && param.residence.bEnabled);
        if (param.nErrorCode == UICommonMdl::ErrorNone)
            m_pResident->SetRooms(param.residence.vecRooms);
        else
            SetChoicesFailed(m_sChoicesFailed, Common::FailureText(sFailed, param.nErrorCode));
    };
    showSection(false);
    m_calls.Latest<&IAccessControlManager::QueryResidenceScenario>(onAnswer);
}

void CPersonnelInfoUI::SetChoicesFailed(const QString& sPermissions, const QString& sResidence)
{
    m_sChoicesFailed = sPermissions;
    m_sResidenceFailed = sResidence;
    QStringList listLines{sPermissions, sResidence};
    listLines.removeAll(QString());
    m_pUi->lbChoicesFailed->setText(listLines.join(QLatin1Char('\n')));
    m_pUi->wgtChoicesFailed->setVisible(!listLines.isEmpty());
}

void CPersonnelInfoUI::OnExtractClicked()
{
    m_pExtract = new CExtractPersonDlg(m_pInterfaceSet, this);
    connect(m_pExtract, &CExtractPersonDlg::SignalPerson, this, [this](const Person& extracted) {
        const Person loaded = m_loaded;
        const Person baseline = m_baseline;
        ShowRecord(MergeExtracted(GetEdited(), extracted, m_mode == Mode::Add));
        // What came from the device is input like what is typed.
        m_loaded = loaded;
        m_baseline = baseline;
        OnChanged();
    });
    m_pExtract->open();
}

void CPersonnelInfoUI::OnOkClicked(bool bContinue)
{
    if (m_bBusy || !CheckInput())
        return;
    const Person edited = GetEdited();
    m_pFocusBefore = focusWidget();
    SetBusy(true);
    const auto onAnswer = [this, edited, bContinue](
                              const Param& param) { OnSaved(param, edited, bContinue); };
    if (m_mode == Mode::Add)
        m_calls.Each<&IAccessControlManager::AddPerson>(edited, onAnswer);
    else
        m_calls.Each<&IAccessControlManager::ModifyPerson>(edited, onAnswer);
}

void CPersonnelInfoUI::OnSaved(const Param& param, const Person& sent, bool bContinue)
{
    SetBusy(false);
    if (param.nErrorCode != UICommonMdl::ErrorNone) {
        ShowRefusal(param, sent);
        return;
    }
    const bool bAdded = m_mode == Mode::Add;
    const QString sId = QString::fromStdString(sent.sPersonId);
    VxGUI::VxNotification::Show(this,
        (bAdded ? Text::tr("Person %1 was added.") : Text::tr("Person %1 was modified.")).arg(sId),
        VxGUI::NotificationKind::Success);
    if (bContinue)
        BeginNewPerson(sent.sGroupCode);
    else
        ShowRecord(param.optPerson.value_or(sent));
    Q_EMIT SignalPersonSaved(sId);
    if (!bContinue)
        Q_EMIT SignalBack();
}

void CPersonnelInfoUI::ShowRefusal(const Param& param, const Person& sent)
{
    if (param.nErrorCode == UICommonMdl::ErrorPersonDuplicate && !param.vecClashes.empty()) {
        ShowClashes(param, sent);
        return;
    }
    // A photo that is refused is told at the photo, whatever the detail says.
    const bool bPhoto = param.nErrorCode == UICommonMdl::ErrorPhoto;
    const QString sText = UICommonMdl::CErrorCode::GetErroCodeInfor(param.nErrorCode);
    for (CPersonSection* const pSection : m_vecSections) {
        if (!pSection->ShowRefusal(bPhoto ? "sPhotoData" : param.sErrorDetail, sText))
            continue;
        m_pUi->wgtNavPage->ShowSection(pSection->parentWidget());
        ScrollToFocus();
        break;
    }
    VxGUI::VxNotification::Show(this, Common::FailureText(FailurePrefix(), param.nErrorCode));
}

void CPersonnelInfoUI::ShowClashes(const Param& param, const Person& sent)
{
    m_pCredentials->ShowClashes(param.vecClashes);
    for (const PersonClash_t& clash : param.vecClashes) {
        if (clash.nKind == ClashPersonId)
            m_pBasic->ShowRefusal("sPersonId", Text::tr("The ID already exists."));
    }
    const ClashTexts texts = DescribeClashes(param.vecClashes, sent.vecPlates);
    ScrollToFocus();
    const QPointer<CPersonnelInfoUI> guard(this);
    if (!texts.sIdsAndCards.isEmpty())
        VxGUI::VxMessageBox::Message(
            this, Text::tr("Prompt"), Text::tr("Person IDor card number is repeated:"), texts.sIdsAndCards);
    if (guard && !texts.sPlates.isEmpty())
        VxGUI::VxMessageBox::Message(
            this, Text::tr("Prompt"), Text::tr("License plate number already exists."), texts.sPlates);
}

void CPersonnelInfoUI::SetBusy(bool bBusy)
{
    m_bBusy = bBusy;
    UpdateState();
    if (!bBusy && m_pFocusBefore)
        m_pFocusBefore->setFocus();
}

} // namespace BasicInfoManagerUI

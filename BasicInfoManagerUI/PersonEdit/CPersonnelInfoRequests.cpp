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

void CPersonnelInfoUI::Begin()
{
    m_calls.ForgetAll();
    delete m_pExtract;
    QueryChoices();
}

void CPersonnelInfoUI::AddPerson(const QString& sGroupCode)
{
    Begin();
    BeginNewPerson(sGroupCode.isEmpty() ? RootDepartmentCode : sGroupCode.toStdString());
}

void CPersonnelInfoUI::BeginNewPerson(const std::string& sGroupCode)
{
    Person person;
    person.sGroupCode = sGroupCode;
    m_editor.BeginNew(person);
}

void CPersonnelInfoUI::EditPerson(const QString& sPersonId)
{
    Begin();
    Load(Common::CEditorBase::Purpose::Modify, sPersonId);
}

void CPersonnelInfoUI::ShowPerson(const QString& sPersonId)
{
    Begin();
    Load(Common::CEditorBase::Purpose::Details, sPersonId);
}

void CPersonnelInfoUI::Load(Common::CEditorBase::Purpose purpose, const QString& sPersonId)
{
    Person key;
    key.sPersonId = sPersonId.toStdString();
    m_editor.BeginLoad(key, purpose);
    ShowPurpose();
}

void CPersonnelInfoUI::Fetch(const Person& record, bool)
{
    m_calls.Latest<&IAccessControlManager::QueryPersonDetail>(record.sPersonId, [this](const Param& param) {
        m_editor.OnFetched(param.nErrorCode, param.optPerson ? &*param.optPerson : nullptr);
    });
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
        // What came from the device is input like what is typed.
        ShowFields(MergeExtracted(GetEdited(), extracted, m_editor.IsNew()));
        OnChanged();
    });
    m_pExtract->open();
}

void CPersonnelInfoUI::OnOkClicked(bool bContinue)
{
    m_bContinue = bContinue;
    m_editor.Save();
}

void CPersonnelInfoUI::Send(const Person& record, bool bNew)
{
    const auto onAnswer = [this](const Param& param) {
        m_vecClashes = param.vecClashes;
        m_editor.OnAnswer(
            param.nErrorCode, param.sErrorDetail, param.optPerson ? &*param.optPerson : nullptr);
    };
    if (bNew)
        m_calls.Each<&IAccessControlManager::AddPerson>(record, onAnswer);
    else
        m_calls.Each<&IAccessControlManager::ModifyPerson>(record, onAnswer);
}

void CPersonnelInfoUI::OnSaved(const Person& record)
{
    const QString sId = QString::fromStdString(record.sPersonId);
    m_editor.TellSaved(
        (m_editor.IsNew() ? Text::tr("Person %1 was added.") : Text::tr("Person %1 was modified.")).arg(sId));
    if (m_bContinue)
        BeginNewPerson(record.sGroupCode);
    Q_EMIT SignalPersonSaved(sId);
    if (!m_bContinue)
        Q_EMIT SignalBack();
}

bool CPersonnelInfoUI::ShowRefusal(int nErrorCode, const std::string& sDetail)
{
    if (nErrorCode == UICommonMdl::ErrorPersonDuplicate && !m_vecClashes.empty()) {
        ShowClashes();
        return true;
    }
    // A photo that is refused is told at the photo, whatever the detail says.
    const bool bPhoto = nErrorCode == UICommonMdl::ErrorPhoto;
    const QString sText = UICommonMdl::CErrorCode::GetErroCodeInfor(nErrorCode);
    for (CPersonSection* const pSection : m_vecSections) {
        if (!pSection->ShowRefusal(bPhoto ? "sPhotoData" : sDetail, sText))
            continue;
        m_pUi->wgtNavPage->ShowSection(pSection->parentWidget());
        ScrollToFocus();
        break;
    }
    return false;
}

std::pair<int, std::string> CPersonnelInfoUI::GetTaken() const
{
    return {UICommonMdl::ErrorPersonDuplicate, "sPersonId"};
}

void CPersonnelInfoUI::ShowClashes()
{
    m_pCredentials->ShowClashes(m_vecClashes);
    for (const PersonClash_t& clash : m_vecClashes) {
        if (clash.nKind == ClashPersonId)
            m_pBasic->ShowRefusal("sPersonId", Text::tr("The ID already exists."));
    }
    const ClashTexts texts = DescribeClashes(m_vecClashes, GetEdited().vecPlates);
    ScrollToFocus();
    const QPointer<CPersonnelInfoUI> guard(this);
    if (!texts.sIdsAndCards.isEmpty())
        VxGUI::VxMessageBox::Message(
            this, Text::tr("Prompt"), Text::tr("Person IDor card number is repeated:"), texts.sIdsAndCards);
    if (guard && !texts.sPlates.isEmpty())
        VxGUI::VxMessageBox::Message(
            this, Text::tr("Prompt"), Text::tr("License plate number already exists."), texts.sPlates);
}

} // namespace BasicInfoManagerUI

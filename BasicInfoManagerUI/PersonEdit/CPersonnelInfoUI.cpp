#include "CPersonnelInfoUI.h"

#include "CAccessControlInfo.h"
#include "CCredentialsSection.h"
#include "CExtractPersonDlg.h"
#include "CFaceComparisonInfo.h"
#include "CLiftControlInfo.h"
#include "CPersonBasicInfo.h"
#include "CPersonDetailInfo.h"
#include "CResidentInfo.h"
#include "CVehicleInfo.h"
#include "PersonRecordFields.h"
#include "ui_CPersonnelInfoUI.h"

#include <Trv/QSkin.h>
#include <UICommonMdl/CInterfaceSetManager.h>
#include <UserLogical/RightCodes.h>
#include <VxGUI/VxNotification.h>
#include <common/StyleSheet.h>

#include <QKeyEvent>
#include <QScrollBar>
#include <QShortcut>

namespace BasicInfoManagerUI {

using namespace AccessControlLogical;

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CPersonnelInfoUI)
};

const QString SkinFolder = QStringLiteral("BasicInfoManagerUI/Personnel");

} // namespace

CPersonnelInfoUI::CPersonnelInfoUI(UICommonMdl::CInterfaceSetManager* pInterfaceSet, QWidget* pParent)
    : QWidget(pParent)
    , m_pUi(std::make_unique<Ui::CPersonnelInfoUI>())
    , m_pInterfaceSet(pInterfaceSet)
    , m_session(pInterfaceSet, this)
    , m_calls(pInterfaceSet, this)
    , m_editor(m_session, this, *this)
{
    m_pUi->setupUi(this);
    setObjectName(QStringLiteral("CPersonnelInfoUI"));
    SetUpSections();
    SetUpButtons();
    SetUpShortcuts();
    SetUpEditor();
    connect(
        &m_session, &Common::CSession::SignalConnectionChanged, this, &CPersonnelInfoUI::OnConnectionChanged);
    Common::LoadStyleSheet(this, SkinFolder);
    for (CPersonSection* const pSection : m_vecSections)
        pSection->SetConnected(m_session.IsConnected());
    ShowPurpose();
}

CPersonnelInfoUI::~CPersonnelInfoUI() = default;

void CPersonnelInfoUI::SetUpSections()
{
    m_pUi->wgtNavPage->SetScrollArea(m_pUi->scrollPerson);
    // Made in their order, which the Tab key follows.
    QWidget* const pParent = m_pUi->wgtSections;
    m_pBasic = new CPersonBasicInfo(pParent);
    auto* const pDetail = new CPersonDetailInfo(pParent);
    m_pCredentials = new CCredentialsSection(m_pInterfaceSet, pParent);
    m_pAccess = new CAccessControlInfo(pParent);
    m_pLift = new CLiftControlInfo(pParent);
    m_pFace = new CFaceComparisonInfo(pParent);
    m_pResident = new CResidentInfo(pParent);
    auto* const pVehicle = new CVehicleInfo(pParent);
    for (CPersonSection* const pSection : std::initializer_list<CPersonSection*>{
             m_pBasic, pDetail, m_pCredentials, m_pAccess, m_pLift, m_pFace, m_pResident, pVehicle})
        AddSection(pSection);
    m_pUi->laySections->addStretch(1);
    QWidget* pBefore = m_pUi->btnChoicesAgain;
    for (QPushButton* const pButton : m_pUi->wgtNavPage->GetButtons()) {
        setTabOrder(pBefore, pButton);
        pBefore = pButton;
    }
    setTabOrder(pVehicle->GetLastField(), m_pUi->m_pBtnOk);
    setTabOrder(m_pUi->m_pBtnOk, m_pUi->m_pAddAndContinue);
    setTabOrder(m_pUi->m_pAddAndContinue, m_pUi->m_pBtnCancel);
    connect(m_pFace, &CFaceComparisonInfo::SignalAddFaceLibrary, m_pFace, &CFaceComparisonInfo::OpenAdder);
}

void CPersonnelInfoUI::AddSection(CPersonSection* pSection)
{
    auto* const pFrame = new QFrame(m_pUi->wgtSections);
    pFrame->setProperty("card", true);
    auto* const pTitle = new QLabel(pSection->GetTitle(), pFrame);
    pTitle->setProperty("cardTitle", true);
    auto* const pLayout = new QVBoxLayout(pFrame);
    pLayout->setContentsMargins(20, 16, 20, 20);
    pLayout->setSpacing(14);
    pLayout->addWidget(pTitle);
    pLayout->addWidget(pSection);
    pSection->setAccessibleName(pSection->GetTitle());
    m_pUi->laySections->addWidget(pFrame);
    m_pUi->wgtNavPage->AddSection(pSection->GetTitle(), pFrame);
    m_vecSections.push_back(pSection);
    connect(pSection, &CPersonSection::SignalChanged, this, &CPersonnelInfoUI::OnChanged);
    connect(pSection, &CPersonSection::SignalSubmit, m_pUi->m_pBtnOk, &QAbstractButton::click);
}

void CPersonnelInfoUI::SetUpButtons()
{
    m_pUi->btnPersonBack->setIcon(Trv::GetIcon(QStringLiteral("back")));
    m_pUi->m_pBtnExtract->setIcon(Trv::GetIcon(QStringLiteral("import")));
    m_pUi->m_pBtnEdit->setIcon(Trv::GetIcon(QStringLiteral("edit")));
    const auto onClick = [this](QAbstractButton* pButton, auto slot) {
        connect(pButton, &QAbstractButton::clicked, this, slot);
    };
    onClick(m_pUi->m_pBtnOk, [this] { OnOkClicked(false); });
    onClick(m_pUi->m_pAddAndContinue, [this] { OnOkClicked(true); });
    onClick(m_pUi->m_pBtnCancel, &CPersonnelInfoUI::Leave);
    onClick(m_pUi->btnPersonBack, &CPersonnelInfoUI::Leave);
    onClick(m_pUi->m_pBtnExtract, &CPersonnelInfoUI::OnExtractClicked);
    onClick(m_pUi->btnChoicesAgain, &CPersonnelInfoUI::QueryChoices);
}

void CPersonnelInfoUI::SetUpEditor()
{
    DescribePerson(m_editor.Fields());
    m_editor.SetForm({.pSave = m_pUi->m_pBtnOk,
                         .pSaveAndGoOn = m_pUi->m_pAddAndContinue,
                         .pEdit = m_pUi->m_pBtnEdit,
                         .pTitle = m_pUi->lbPersonTitle,
                         .vecInput = {m_pUi->wgtSections}},
        {.sAddTitle = Text::tr("Add Person"),
            .sModifyTitle = Text::tr("Edit Person"),
            .sDetailsTitle = Text::tr("Person Details"),
            .sAddFailed = Text::tr("Failed to add person"),
            .sModifyFailed = Text::tr("Failed to modify user"),
            .sNoRight = Text::tr("You have no permission to change persons.")},
        UserLogical::RightChangePersons);
    m_editor.SetNotice(m_pUi->wgtSaveNotice);
    m_editor.SetLoadView(m_pUi->stackPerson, m_pUi->wgtPersonState, m_pUi->pagePersonForm,
        {Text::tr("Loading"), Text::tr("Failed to search user detail"),
            Text::tr("You have no permission to see persons.")});
    m_editor.SetQuestion(Text::tr("Current page data are changed, are you sure to leave?"));
    m_editor.SetClose([this] {
        m_calls.ForgetAll();
        Q_EMIT SignalBack();
    });
    connect(&m_editor, &Common::CEditorBase::SignalStateChanged, this, &CPersonnelInfoUI::UpdateState);
}

void CPersonnelInfoUI::SetUpShortcuts()
{
    const std::pair<QKeySequence, QAbstractButton*> shortcuts[] = {
        {QKeySequence(QStringLiteral("Ctrl+S")), m_pUi->m_pBtnOk},
        {QKeySequence(QStringLiteral("Ctrl+Shift+S")), m_pUi->m_pAddAndContinue},
        {QKeySequence(QStringLiteral("Ctrl+E")), m_pUi->m_pBtnEdit}};
    for (const auto& [keys, pButton] : shortcuts) {
        auto* const pShortcut = new QShortcut(keys, this);
        pShortcut->setContext(Qt::WidgetWithChildrenShortcut);
        connect(pShortcut, &QShortcut::activated, pButton, [pButton = pButton] {
            if (pButton->isVisible())
                pButton->click();
        });
        pButton->setToolTip(keys.toString(QKeySequence::NativeText));
    }
}

void CPersonnelInfoUI::ShowPurpose()
{
    const bool bDetails = m_editor.IsReadOnly();
    for (CPersonSection* const pSection : m_vecSections)
        pSection->SetReadOnly(bDetails);
    m_pBasic->SetIdEditable(m_editor.IsNew());
    m_pUi->lbPersonNote->setVisible(!bDetails);
    if (property("details").toBool() != bDetails) {
        setProperty("details", bDetails);
        setStyleSheet(styleSheet()); // the looks of all fields go by it
    }
}

void CPersonnelInfoUI::ShowFields(const Person& person)
{
    for (CPersonSection* const pSection : m_vecSections)
        pSection->SetPerson(person);
}

void CPersonnelInfoUI::ShowRecord(const Person& record)
{
    ShowPurpose();
    ShowFields(record);
    m_pUi->stackPerson->setCurrentWidget(m_pUi->pagePersonForm);
    m_pUi->scrollPerson->verticalScrollBar()->setValue(0);
    if (!m_editor.IsReadOnly())
        m_pBasic->FocusFirst();
}

CPersonnelInfoUI::Person CPersonnelInfoUI::GetEdited() const
{
    Person edited = m_editor.GetLoaded();
    for (const CPersonSection* const pSection : m_vecSections)
        pSection->FillPerson(edited);
    return edited;
}

void CPersonnelInfoUI::OnChanged()
{
    m_pUi->lbUnsaved->setVisible(m_editor.IsDirty());
}

void CPersonnelInfoUI::UpdateState()
{
    m_pUi->m_pBtnExtract->setVisible(!m_editor.IsReadOnly());
    m_pUi->m_pBtnExtract->setEnabled(m_editor.CanSave());
    m_pUi->btnChoicesAgain->setEnabled(m_session.IsConnected());
    OnChanged();
}

void CPersonnelInfoUI::OnConnectionChanged(bool bConnected)
{
    for (CPersonSection* const pSection : m_vecSections)
        pSection->SetConnected(bConnected);
    if (bConnected && isVisible() && !(m_sChoicesFailed.isEmpty() && m_sResidenceFailed.isEmpty()))
        QueryChoices();
}

bool CPersonnelInfoUI::CheckInput()
{
    for (CPersonSection* const pSection : m_vecSections) {
        const QString sFailure = pSection->CheckInput();
        if (sFailure.isEmpty())
            continue;
        VxGUI::VxNotification::Show(this, sFailure, VxGUI::NotificationKind::Warning);
        m_pUi->wgtNavPage->ShowSection(pSection->parentWidget());
        ScrollToFocus();
        return false;
    }
    return true;
}

void CPersonnelInfoUI::ScrollToFocus()
{
    QWidget* const pFocus = m_pUi->wgtSections->focusWidget();
    if (pFocus && m_pUi->wgtSections->isAncestorOf(pFocus))
        m_pUi->scrollPerson->ensureWidgetVisible(pFocus);
}

void CPersonnelInfoUI::Leave()
{
    m_editor.Leave();
}

void CPersonnelInfoUI::keyPressEvent(QKeyEvent* pEvent)
{
    if (pEvent->key() == Qt::Key_Escape)
        Leave();
    else
        QWidget::keyPressEvent(pEvent);
}

void CPersonnelInfoUI::showEvent(QShowEvent* pEvent)
{
    QWidget::showEvent(pEvent);
    Common::LoadStyleSheet(this, SkinFolder);
}

} // namespace BasicInfoManagerUI

#include "CDevAdd.h"

#include "DeviceFormFields.h"
#include "ui_CDevAdd.h"

#include <Trv/QSkin.h>
#include <UICommonMdl/CErrorCode.h>
#include <UserLogical/RightCodes.h>
#include <VxGUI/RequiredMark.h>
#include <common/CPage.h>
#include <common/Prompt.h>
#include <common/StyleSheet.h>

#include <QKeyEvent>
#include <QPointer>
#include <QStyle>
#include <QToolTip>

namespace ResourceManagerUI {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CDevAdd)
};

const QString SkinFolder = QStringLiteral("ResourceManagerUI/DeviceManager");

void MarkStep(QLabel* pLabel, bool bCurrent)
{
    pLabel->setProperty("current", bCurrent);
    pLabel->style()->unpolish(pLabel);
    pLabel->style()->polish(pLabel);
}

} // namespace

CDevAdd::CDevAdd(UICommonMdl::CInterfaceSetManager* pInterfaceSet, QWidget* pParent)
    : QWidget(pParent)
    , m_pUi(std::make_unique<Ui::CDevAdd>())
    , m_session(pInterfaceSet, this)
    , m_groupCalls(pInterfaceSet, this)
    , m_systemCalls(pInterfaceSet, this)
    , m_editor(m_session, this, *this)
{
    m_pUi->setupUi(this);
    setObjectName(QStringLiteral("CDevAdd"));
    SetUpFields();
    SetUpChoices();
    SetUpButtons();
    SetUpEditor();
    Common::LoadStyleSheet(this, SkinFolder);
}

CDevAdd::~CDevAdd() = default;

void CDevAdd::SetUpFields()
{
    const std::pair<VxGUI::VxLineEdit*, DeviceField> fields[] = {{m_pUi->editTxtDomin, DeviceField::Domain},
        {m_pUi->editTxtRegitId, DeviceField::RegisterId}, {m_pUi->editUserName, DeviceField::UserName},
        {m_pUi->editPassWord, DeviceField::Password}, {m_pUi->editDevName, DeviceField::DeviceName},
        {m_pUi->editMode, DeviceField::Model}, {m_pUi->editSipID, DeviceField::SipId},
        {m_pUi->editSipPassword, DeviceField::SipPassword}};
    for (const auto& [pEdit, field] : fields)
        FormFields::DeclareChecks(pEdit, field);
    for (VxGUI::VxLineEdit* pEdit :
        {m_pUi->editTxtIP, m_pUi->editIPStart, m_pUi->editIPEnd, m_pUi->editDevPort}) {
        FormFields::MakeKeyedField(pEdit);
        VxGUI::MarkRequired(pEdit);
    }
    // An address is never as long as a serial number may be.
    m_pUi->editTxtIP->SetLimit(
        GroupLogical::DeviceSerialNumber, Text::tr("The sn cannot exceed %1 characters."));
    m_pUi->editDevPort->SetTyped(GroupLogical::DevicePort);
    for (QSpinBox* pCount : {m_pUi->spbVideo, m_pUi->spbAlarmInput, m_pUi->spbAlarmOutput, m_pUi->spbAccess,
             m_pUi->spbDecode, m_pUi->spbLift, m_pUi->spbLiftFloor, m_pUi->spbPos}) {
        pCount->setRange(GroupLogical::DeviceCount.nMin, GroupLogical::DeviceCount.nMax);
        // Else 4096 would become 409 in silence.
        connect(pCount->findChild<QLineEdit*>(), &QLineEdit::inputRejected, pCount, [pCount] {
            const QString sLimit = QString::number(pCount->maximum());
            if (pCount->cleanText().size() < sLimit.size() - 1)
                return;
            QToolTip::showText(
                pCount->mapToGlobal(pCount->rect().bottomLeft()), Text::tr("At most %1").arg(sLimit), pCount);
        });
    }
    // A digit that would lead beyond the greatest port is not taken: say why.
    QLineEdit* pPort = m_pUi->editDevPort->GetLineEdit();
    connect(pPort, &QLineEdit::inputRejected, this, [this, pPort] {
        const QString sBeyond = QString::number(GroupLogical::DevicePort.nMax + 1);
        if (pPort->text().size() >= sBeyond.size() - 1)
            m_pUi->editDevPort->SetErrorHint(CheckField(DeviceField::Port, sBeyond));
    });
    for (VxGUI::VxLineEdit* pEdit : findChildren<VxGUI::VxLineEdit*>())
        connect(pEdit, &VxGUI::VxLineEdit::returnPressed, this, &CDevAdd::OnReturnPressed);
    const QString sHint = m_pUi->lbAlarmInputHint->text();
    m_pUi->spbAlarmInput->setToolTip(sHint);
    m_pUi->spbAlarmInput->setAccessibleDescription(sHint);
}

void CDevAdd::SetUpChoices()
{
    using namespace GroupLogical;
    const std::pair<int, QString> types[] = {{LedFreeParking, Text::tr("Free parking screen")},
        {LedGeneral, Text::tr("General screen")}, {LedGuide, Text::tr("Guide screen")},
        {LedCharge, Text::tr("Charge screen")}};
    for (const auto& [nType, sText] : types)
        FormFields::AddChoice(m_pUi->cmbLedSize, sText, nType);
    FillServers();
    FillModes();
    const auto onChange = [this](QComboBox* pCombo, void (CDevAdd::*slot)()) {
        connect(pCombo, qOverload<int>(&QComboBox::currentIndexChanged), this, slot);
    };
    onChange(m_pUi->cmbRegister, &CDevAdd::OnRegisterChanged);
    onChange(m_pUi->cmbProtocal, &CDevAdd::OnProtocalChanged);
    onChange(m_pUi->cmbDevCategory, &CDevAdd::OnCategoryChanged);
    onChange(m_pUi->cmbDeviceType, &CDevAdd::FillSeries);
    ShowModeFields();
    ShowCategoryFields();
}

void CDevAdd::SetUpButtons()
{
    m_pUi->btnDevAddBack->setIcon(Trv::GetIcon(QStringLiteral("back")));
    const auto onClick = [this](QAbstractButton* pButton, auto slot) {
        connect(pButton, &QAbstractButton::clicked, this, slot);
    };
    onClick(m_pUi->btnNext, &CDevAdd::OnNextClicked);
    onClick(m_pUi->btnPrevious, [this] { ShowStep(m_pUi->pageLoginInformation); });
    onClick(m_pUi->btnFinish, &CDevAdd::OnFinishClicked);
    onClick(m_pUi->btnDevAddCancel, [this] { m_editor.Leave(); });
    onClick(m_pUi->btnDevAddBack, [this] { m_editor.Leave(); });
    onClick(m_pUi->btnChoicesAgain, &CDevAdd::QueryChoices);
    ShowStep(m_pUi->pageLoginInformation);
}

void CDevAdd::SetUpEditor()
{
    Describe(m_editor.Fields());
    m_editor.SetForm({.pSave = m_pUi->btnFinish, .pTitle = m_pUi->lbDevAddTitle},
        {.sAddTitle = Text::tr("Add Device"),
            .sModifyTitle = Text::tr("Edit Device"),
            .sAddFailed = Text::tr("Failed to add device"),
            .sModifyFailed = Text::tr("Failed to modify device"),
            .sNoRight = Text::tr("You have no permission to change devices.")},
        UserLogical::RightChangeDevices);
    m_editor.SetNotice(m_pUi->wgtSaveNotice);
    m_editor.SetLoadView(m_pUi->stackDevAdd, m_pUi->wgtDevAddState, m_pUi->pageLoginInformation,
        {Text::tr("Loading"), Text::tr("Failed to get device info"),
            Text::tr("You have no permission to see devices.")});
    m_editor.SetClose([this] {
        m_groupCalls.ForgetAll();
        Q_EMIT SignalBack();
    });
    connect(&m_editor, &Common::CEditorBase::SignalStateChanged, this, &CDevAdd::UpdateState);
    connect(&m_session, &Common::CSession::SignalConnectionChanged, this, [this](bool bConnected) {
        if (bConnected && isVisible() && !m_bDictionary)
            QueryChoices();
    });
}

void CDevAdd::ShowStep(QWidget* pStep)
{
    m_pUi->stackDevAdd->setCurrentWidget(pStep);
    const bool bLogin = pStep == m_pUi->pageLoginInformation;
    const bool bDevice = pStep == m_pUi->pageDeviceInformation;
    MarkStep(m_pUi->lbStepLogin, bLogin);
    MarkStep(m_pUi->lbStepDevice, bDevice);
    m_pUi->wgtSteps->setVisible(bLogin || bDevice);
    m_pUi->btnNext->setVisible(bLogin);
    m_pUi->btnPrevious->setVisible(bDevice);
    m_pUi->btnFinish->setVisible(bDevice);
}

void CDevAdd::OnNextClicked()
{
    if (!CheckLogin())
        return;
    ShowStep(m_pUi->pageDeviceInformation);
    m_pUi->editDevName->setFocus();
}

void CDevAdd::OnFinishClicked()
{
    m_editor.Save();
}

bool CDevAdd::CheckInput()
{
    // The dictionary may have come in between and changed what the first step has.
    if (!CheckLogin()) {
        ShowStep(m_pUi->pageLoginInformation);
        return false;
    }
    return CheckDevice();
}

void CDevAdd::OnReturnPressed()
{
    QPushButton* pButton = m_pUi->btnNext->isVisible() ? m_pUi->btnNext : m_pUi->btnFinish;
    if (pButton->isEnabled())
        pButton->click();
}

void CDevAdd::Tell(VxGUI::VxLineEdit* pEdit, const QString& sMessage, VxGUI::VxLineEdit*& pFirst)
{
    pEdit->SetErrorHint(sMessage);
    if (!sMessage.isEmpty() && !pFirst)
        pFirst = pEdit;
}

QString CDevAdd::CheckAddress() const
{
    const QString sText = m_pUi->editTxtIP->text();
    if (GetModeFields(FormFields::GetCode(m_pUi->cmbRegister)).bSerialNumber)
        return CheckField(DeviceField::SerialNumber, sText);
    // A device that has another kind of address keeps it.
    if (!m_editor.IsNew() && !sText.isEmpty() && sText.toStdString() == m_editor.GetLoaded().sIp)
        return {};
    return CheckField(DeviceField::Ip, sText);
}

bool CDevAdd::CheckLogin()
{
    if (m_pUi->cmbProtocal->currentIndex() < 0 || m_pUi->cmbDevCategory->currentIndex() < 0) {
        QueryChoices();
        return false;
    }
    const ModeFields mode = GetModeFields(FormFields::GetCode(m_pUi->cmbRegister));
    VxGUI::VxLineEdit* pFirst = nullptr;
    if (mode.bIp || mode.bSerialNumber)
        Tell(m_pUi->editTxtIP, CheckAddress(), pFirst);
    if (mode.bSegment) {
        const SegmentFailure failure = CheckSegment(m_pUi->editIPStart->text(), m_pUi->editIPEnd->text());
        Tell(m_pUi->editIPStart, failure.bEnd ? QString() : failure.sMessage, pFirst);
        Tell(m_pUi->editIPEnd, failure.bEnd ? failure.sMessage : QString(), pFirst);
    }
    const auto check = [&](bool bShown, VxGUI::VxLineEdit* pEdit, DeviceField field) {
        if (bShown)
            Tell(pEdit, CheckField(field, pEdit->text()), pFirst);
    };
    check(mode.bDomain, m_pUi->editTxtDomin, DeviceField::Domain);
    check(mode.bRegisterId, m_pUi->editTxtRegitId, DeviceField::RegisterId);
    check(mode.bPort, m_pUi->editDevPort, DeviceField::Port);
    check(true, m_pUi->editUserName, DeviceField::UserName);
    // An empty password leaves that of the device as it is.
    check(m_editor.IsNew() || !m_pUi->editPassWord->text().isEmpty(), m_pUi->editPassWord,
        DeviceField::Password);
    if (pFirst)
        pFirst->setFocus();
    return !pFirst;
}

bool CDevAdd::CheckDevice()
{
    VxGUI::VxLineEdit* pFirst = nullptr;
    QString sName = CheckField(DeviceField::DeviceName, m_pUi->editDevName->text());
    const GroupLogical::DeviceAddInfo_t edited = GetEdited();
    if (sName.isEmpty() && edited.nAddMode == GroupLogical::AddBySegment) {
        const UICommonMdl::TextRule rule = GetSegmentNameRule(m_pUi->editIPEnd->text());
        if (IsTooLong(rule, edited.sName))
            sName = Text::tr("The device name cannot exceed %1 characters.").arg(rule.nMax);
    }
    Tell(m_pUi->editDevName, sName, pFirst);
    Tell(m_pUi->editMode, CheckField(DeviceField::Model, m_pUi->editMode->text()), pFirst);
    if (pFirst)
        pFirst->setFocus();
    return !pFirst;
}

void CDevAdd::OnSaved(const Device&)
{
    const QPointer<CDevAdd> guard(this);
    if (!m_editor.IsNew())
        m_editor.TellSaved(Text::tr("The device was modified."));
    else if (IsSegment())
        TellSegment();
    else
        m_editor.TellSaved(Text::tr("The device was added."));
    if (guard)
        Q_EMIT SignalEditComplete();
}

void CDevAdd::TellSegment()
{
    // Of one that was looked up it is known what is there, but not why the rest is not.
    if (m_nFound > 0 && m_nFound < GetSentSize())
        m_editor.TellSaved(Text::tr("%1 of %2 devices were added.").arg(m_nFound).arg(GetSentSize()));
    else if (m_vecFailed.empty())
        m_editor.TellSaved(Text::tr("The devices were added."));
    else
        ShowSegmentFailures();
}

int CDevAdd::GetSentSize() const
{
    const Device& sent = m_editor.GetSent();
    return GetSegmentSize(QString::fromStdString(sent.sIpStart), QString::fromStdString(sent.sIpEnd));
}

void CDevAdd::ShowSegmentFailures()
{
    QVector<Common::Failure> vecFailures;
    for (const GroupLogical::FailedItem_t& item : m_vecFailed)
        vecFailures.append({QString::fromStdString(item.sId.empty() ? item.sName : item.sId),
            UICommonMdl::CErrorCode::GetErroCodeInfor(item.nErrorCode)});
    const int nAdded = GetSentSize() - int(m_vecFailed.size());
    const QString sText = nAdded > 0 ? Text::tr("%1 of %2 devices were added.").arg(nAdded).arg(GetSentSize())
                                     : Text::tr("Failed to add device");
    Common::CPage::WhenShownAt(this, [guard = QPointer<CDevAdd>(this), sText, vecFailures] {
        if (guard)
            Common::ShowFailures(guard, sText, vecFailures);
    });
}

QWidget* CDevAdd::FindField(const std::string& sErrorDetail) const
{
    const std::pair<const char*, QWidget*> fields[] = {{"sName", m_pUi->editDevName},
        {"sIp", IsSegment() ? m_pUi->editIPStart : m_pUi->editTxtIP}, {"sSerialNumber", m_pUi->editTxtIP},
        {"sIpStart", m_pUi->editIPStart}, {"sIpEnd", m_pUi->editIPEnd}, {"sDomain", m_pUi->editTxtDomin},
        {"sRegisterId", m_pUi->editTxtRegitId}, {"nPort", m_pUi->editDevPort},
        {"sUserName", m_pUi->editUserName}, {"sPassword", m_pUi->editPassWord}, {"sModel", m_pUi->editMode},
        {"sSipId", m_pUi->editSipID}, {"sSipPassword", m_pUi->editSipPassword},
        {"sProtocol", m_pUi->cmbProtocal}, {"sManufacturer", m_pUi->cmbManufacturer},
        {"nCategory", m_pUi->cmbDevCategory}, {"nAddMode", m_pUi->cmbRegister},
        {"sOrgCode", m_pUi->cmbGroupName}, {"sServerId", m_pUi->cmbServer},
        {"sDeviceType", m_pUi->cmbDeviceType}, {"sSeries", m_pUi->cmbSeries}, {"nLedType", m_pUi->cmbLedSize},
        {"nAccessDirection", m_pUi->cmbDirection}};
    for (const auto& [pszDetail, pField] : fields) {
        if (sErrorDetail == pszDetail && !pField->isHidden())
            return pField;
    }
    return nullptr;
}

bool CDevAdd::ShowRefusal(int nErrorCode, const std::string& sDetail)
{
    if (IsSegment() && !m_vecFailed.empty()) {
        ShowSegmentFailures();
        return true;
    }
    QWidget* pField = FindField(sDetail);
    auto* pEdit = qobject_cast<VxGUI::VxLineEdit*>(pField);
    if (pField) {
        ShowStep(m_pUi->pageLoginInformation->isAncestorOf(pField) ? m_pUi->pageLoginInformation
                                                                   : m_pUi->pageDeviceInformation);
        pField->setFocus();
    }
    if (!pEdit)
        return false;
    pEdit->SetErrorHint(UICommonMdl::CErrorCode::GetErroCodeInfor(nErrorCode));
    return true;
}

void CDevAdd::UpdateState()
{
    const bool bConnected = m_session.IsConnected();
    if (!m_editor.IsLoaded() && m_pUi->stackDevAdd->currentWidget() == m_pUi->wgtDevAddState)
        ShowStep(m_pUi->wgtDevAddState);
    const bool bUsable = bConnected && !m_editor.IsUnsettled();
    m_pUi->stackDevAdd->setEnabled(bUsable);
    m_pUi->btnNext->setEnabled(bUsable);
    m_pUi->btnPrevious->setEnabled(bUsable);
    m_pUi->btnChoicesAgain->setEnabled(bConnected);
}

void CDevAdd::keyPressEvent(QKeyEvent* pEvent)
{
    if (pEvent->key() == Qt::Key_Escape)
        m_editor.Leave();
    else
        QWidget::keyPressEvent(pEvent);
}

void CDevAdd::showEvent(QShowEvent* pEvent)
{
    QWidget::showEvent(pEvent);
    Common::LoadStyleSheet(this, SkinFolder);
}

} // namespace ResourceManagerUI

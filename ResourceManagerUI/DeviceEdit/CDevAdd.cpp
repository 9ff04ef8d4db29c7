#include "CDevAdd.h"

#include "DeviceFormFields.h"
#include "DeviceFormLog.h"
#include "ui_CDevAdd.h"

#include <Trv/QSkin.h>
#include <UICommonMdl/CErrorCode.h>
#include <VxGUI/RequiredMark.h>
#include <common/Prompt.h>
#include <common/StyleSheet.h>

#include <QKeyEvent>
#include <QStyle>

namespace ResourceManagerUI {

Q_LOGGING_CATEGORY(LogDeviceForm, "resource.device")

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
    , m_groupCalls(pInterfaceSet, this)
    , m_systemCalls(pInterfaceSet, this)
{
    m_pUi->setupUi(this);
    setObjectName(QStringLiteral("CDevAdd"));
    SetUpFields();
    SetUpChoices();
    SetUpButtons();
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
             m_pUi->spbDecode, m_pUi->spbLift, m_pUi->spbLiftFloor, m_pUi->spbPos})
        pCount->setRange(GroupLogical::DeviceCount.nMin, GroupLogical::DeviceCount.nMax);
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
    onClick(m_pUi->btnDevAddCancel, &CDevAdd::OnCancelClicked);
    onClick(m_pUi->btnDevAddBack, &CDevAdd::OnCancelClicked);
    onClick(m_pUi->btnChoicesAgain, &CDevAdd::QueryChoices);
    connect(m_pUi->wgtDevAddState, &VxGUI::VxEmptyState::SignalAction, this, &CDevAdd::QueryDevice);
    ShowStep(m_pUi->pageLoginInformation);
}

void CDevAdd::SetConnected(bool bConnected)
{
    const bool bBack = bConnected && !m_bConnected;
    m_bConnected = bConnected;
    SetBusy(m_bBusy);
    if (!bBack || !isVisible())
        return;
    if (!m_bDictionary)
        QueryChoices();
    if (!IsFormShown())
        QueryDevice();
}

bool CDevAdd::IsFormShown() const
{
    return m_pUi->stackDevAdd->currentWidget() != m_pUi->wgtDevAddState;
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
    if (m_bBusy)
        return;
    // The dictionary may have come in between and changed what the first step has.
    if (!CheckLogin())
        ShowStep(m_pUi->pageLoginInformation);
    else if (CheckDevice())
        AddOrModifyDevice();
}

void CDevAdd::OnReturnPressed()
{
    QPushButton* pButton = m_pUi->btnNext->isVisible() ? m_pUi->btnNext : m_pUi->btnFinish;
    if (pButton->isEnabled())
        pButton->click();
}

void CDevAdd::OnCancelClicked()
{
    if (!Common::AskCancel(this, IsDirty()))
        return;
    m_groupCalls.ForgetAll();
    SetBusy(false);
    Q_EMIT SignalBack();
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
    if (m_bEdit && !sText.isEmpty() && sText.toStdString() == m_loaded.sIp)
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
    check(!m_bEdit || !m_pUi->editPassWord->text().isEmpty(), m_pUi->editPassWord, DeviceField::Password);
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

void CDevAdd::AddOrModifyDevice()
{
    m_sent = GetEdited();
    const std::string& sAddress =
        m_sent.nAddMode == GroupLogical::AddBySegment ? m_sent.sIpStart : m_sent.sIp;
    qCInfo(LogDeviceForm, "%s AddDevice IP[%s] Port[%d]", "ResourceManagerUI::CDevAdd::AddOrModifyDevice",
        sAddress.c_str(), m_sent.nPort);
    SetBusy(true);
    if (m_bEdit)
        Q_EMIT SignalModifyDevice(m_sent);
    else
        Q_EMIT SignalAddDevice(m_sent);
}

void CDevAdd::SetAnswer(
    int nErrorCode, const std::string& sErrorDetail, const std::vector<GroupLogical::FailedItem_t>& vecFailed)
{
    if (!m_bBusy)
        return;
    SetBusy(false);
    if (m_sent.nAddMode == GroupLogical::AddBySegment && !vecFailed.empty()) {
        if (!ShowSegmentResult(nErrorCode, vecFailed))
            return;
    } else if (nErrorCode != UICommonMdl::ErrorNone) {
        ShowRefusal(nErrorCode, sErrorDetail);
        return;
    }
    m_baseline = GetEdited();
    Q_EMIT SignalEditComplete();
}

bool CDevAdd::ShowSegmentResult(int nErrorCode, const std::vector<GroupLogical::FailedItem_t>& vecFailed)
{
    QStringList listLines;
    for (const GroupLogical::FailedItem_t& item : vecFailed)
        listLines.append(QString::fromStdString(item.sId.empty() ? item.sName : item.sId)
            + QStringLiteral(": ") + UICommonMdl::CErrorCode::GetErroCodeInfor(item.nErrorCode));
    const int nSize =
        GetSegmentSize(QString::fromStdString(m_sent.sIpStart), QString::fromStdString(m_sent.sIpEnd));
    const int nAdded = nErrorCode == UICommonMdl::ErrorNone ? nSize - int(vecFailed.size()) : 0;
    Common::ShowFailures(this,
        nAdded > 0 ? Text::tr("%1 of %2 devices were added.").arg(nAdded).arg(nSize) : FailurePrefix(),
        listLines);
    return nAdded > 0;
}

QWidget* CDevAdd::FindField(const std::string& sErrorDetail) const
{
    const std::pair<const char*, QWidget*> fields[] = {{"sName", m_pUi->editDevName},
        {"sIp", m_sent.nAddMode == GroupLogical::AddBySegment ? m_pUi->editIPStart : m_pUi->editTxtIP},
        {"sSerialNumber", m_pUi->editTxtIP}, {"sIpStart", m_pUi->editIPStart}, {"sIpEnd", m_pUi->editIPEnd},
        {"sDomain", m_pUi->editTxtDomin}, {"sRegisterId", m_pUi->editTxtRegitId},
        {"nPort", m_pUi->editDevPort}, {"sUserName", m_pUi->editUserName}, {"sPassword", m_pUi->editPassWord},
        {"sModel", m_pUi->editMode}, {"sSipId", m_pUi->editSipID}, {"sSipPassword", m_pUi->editSipPassword},
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

void CDevAdd::ShowRefusal(int nErrorCode, const std::string& sErrorDetail)
{
    QWidget* pField = FindField(sErrorDetail);
    auto* pEdit = qobject_cast<VxGUI::VxLineEdit*>(pField);
    if (pField) {
        ShowStep(m_pUi->pageLoginInformation->isAncestorOf(pField) ? m_pUi->pageLoginInformation
                                                                   : m_pUi->pageDeviceInformation);
        pField->setFocus();
    }
    if (pEdit)
        pEdit->SetErrorHint(UICommonMdl::CErrorCode::GetErroCodeInfor(nErrorCode));
    else
        Q_EMIT SignalShowNotify(Common::FailureText(FailurePrefix(), nErrorCode));
}

QString CDevAdd::FailurePrefix() const
{
    return m_bEdit ? Text::tr("Failed to modify device") : Text::tr("Failed to add device");
}

void CDevAdd::SetBusy(bool bBusy)
{
    m_bBusy = bBusy;
    const bool bUsable = m_bConnected && !bBusy;
    m_pUi->stackDevAdd->setEnabled(bUsable);
    m_pUi->wgtDevAddButtons->setEnabled(bUsable);
    m_pUi->btnChoicesAgain->setEnabled(m_bConnected);
}

void CDevAdd::keyPressEvent(QKeyEvent* pEvent)
{
    if (pEvent->key() == Qt::Key_Escape)
        OnCancelClicked();
    else
        QWidget::keyPressEvent(pEvent);
}

void CDevAdd::showEvent(QShowEvent* pEvent)
{
    QWidget::showEvent(pEvent);
    Common::LoadStyleSheet(this, SkinFolder);
}

} // namespace ResourceManagerUI

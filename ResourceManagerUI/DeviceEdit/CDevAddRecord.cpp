// The form and the record that it shows.

#include "CDevAdd.h"

#include "DeviceFormFields.h"
#include "ui_CDevAdd.h"

#include <VxGUI/RequiredMark.h>

#include <QSignalBlocker>

namespace ResourceManagerUI {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CDevAdd)
};

constexpr const char* DefaultUserName = "admin";

std::string Typed(const VxGUI::VxLineEdit* pEdit)
{
    return pEdit->text().trimmed().toStdString();
}

void ShowRow(QWidget* pLabel, QWidget* pField, bool bShown)
{
    pLabel->setVisible(bShown);
    pField->setVisible(bShown);
}

} // namespace

void CDevAdd::StartAdd(
    const std::vector<GroupLogical::Organization_t>& vecOrganizations, const QString& sOrgCode)
{
    Start(vecOrganizations, sOrgCode);
    Device device;
    device.nAddMode = GroupLogical::AddByIp;
    device.sUserName = DefaultUserName;
    device.sOrgCode = m_pUi->cmbGroupName->GetCode().toStdString();
    m_editor.BeginNew(device);
    QueryChoices();
}

void CDevAdd::StartEdit(
    const QString& sDeviceId, const std::vector<GroupLogical::Organization_t>& vecOrganizations)
{
    Start(vecOrganizations, {});
    QueryChoices();
    Device key;
    key.sDeviceId = sDeviceId.toStdString();
    m_editor.BeginLoad(key);
}

void CDevAdd::Start(
    const std::vector<GroupLogical::Organization_t>& vecOrganizations, const QString& sOrgCode)
{
    m_groupCalls.ForgetAll();
    FormFields::FillOrganizations(m_pUi->cmbGroupName, vecOrganizations, sOrgCode);
}

void CDevAdd::ShowPurpose()
{
    // An empty password leaves that of the device as it is.
    m_pUi->editPassWord->SetRequiredNow(m_editor.IsNew());
    const QString sKept = m_editor.IsNew() ? QString() : Text::tr("Leave empty to keep the present one");
    m_pUi->editPassWord->setPlaceholderText(sKept);
    m_pUi->editSipPassword->setPlaceholderText(sKept);
    FillModes();
}

void CDevAdd::ShowRecord(const Device& record)
{
    ShowPurpose();
    QComboBox* const combos[] = {m_pUi->cmbRegister, m_pUi->cmbProtocal, m_pUi->cmbDevCategory,
        m_pUi->cmbDeviceType, m_pUi->cmbSeries};
    for (QComboBox* pCombo : combos)
        pCombo->blockSignals(true);
    FormFields::SelectCode(m_pUi->cmbRegister, record.nAddMode);
    FormFields::SelectKey(m_pUi->cmbProtocal, QString::fromStdString(record.sProtocol));
    FormFields::SelectKey(m_pUi->cmbManufacturer, QString::fromStdString(record.sManufacturer));
    m_pUi->cmbDevCategory->setCurrentIndex(m_pUi->cmbDevCategory->count() > 0 ? 0 : -1);
    SelectCategory(record.nCategory);
    FillTypes();
    FormFields::SelectKey(m_pUi->cmbDeviceType, QString::fromStdString(record.sDeviceType));
    FillSeries();
    FormFields::SelectKey(m_pUi->cmbSeries, QString::fromStdString(record.sSeries));
    FormFields::SelectKey(m_pUi->cmbServer, QString::fromStdString(record.sServerId));
    m_pUi->cmbGroupName->SetCode(QString::fromStdString(record.sOrgCode));
    FillDirections();
    FormFields::SelectCode(m_pUi->cmbDirection, record.nAccessDirection);
    for (QComboBox* pCombo : combos)
        pCombo->blockSignals(false);
    ShowModeFields();
    ShowCategoryFields();
    ShowTexts(record);
    ShowCounts(record);
    if (m_editor.IsNew())
        ResetPort();
    ShowStep(m_pUi->pageLoginInformation);
    m_pUi->cmbProtocal->setFocus();
}

void CDevAdd::ShowTexts(const Device& device)
{
    const bool bSerialNumber = GetModeFields(device.nAddMode).bSerialNumber;
    const std::pair<VxGUI::VxLineEdit*, const std::string*> texts[] = {
        {m_pUi->editTxtIP, bSerialNumber ? &device.sSerialNumber : &device.sIp},
        {m_pUi->editIPStart, &device.sIpStart}, {m_pUi->editIPEnd, &device.sIpEnd},
        {m_pUi->editTxtDomin, &device.sDomain}, {m_pUi->editTxtRegitId, &device.sRegisterId},
        {m_pUi->editUserName, &device.sUserName}, {m_pUi->editPassWord, &device.sPassword},
        {m_pUi->editDevName, &device.sName}, {m_pUi->editMode, &device.sModel},
        {m_pUi->editSipID, &device.sSipId}, {m_pUi->editSipPassword, &device.sSipPassword}};
    for (const auto& [pEdit, pText] : texts) {
        pEdit->setText(QString::fromStdString(*pText));
        pEdit->ClearErrorHint();
    }
    m_pUi->editDevPort->setText(device.nPort > 0 ? QString::number(device.nPort) : QString());
    m_pUi->editDevPort->ClearErrorHint();
}

void CDevAdd::ShowCounts(const Device& device)
{
    m_pUi->spbVideo->setValue(device.nVideoChannels);
    m_pUi->spbAlarmInput->setValue(device.nAlarmInputs);
    m_pUi->spbAlarmOutput->setValue(device.nAlarmOutputs);
    m_pUi->spbAccess->setValue(device.nAccessChannels);
    m_pUi->spbDecode->setValue(device.nDecodeChannels);
    m_pUi->spbLift->setValue(device.nLifts);
    m_pUi->spbLiftFloor->setValue(device.nLiftFloors);
    m_pUi->spbPos->setValue(device.nPosChannels);
    m_pUi->chkCombine->setChecked(device.bCombine);
    if (!FormFields::SelectCode(m_pUi->cmbLedSize, device.nLedType))
        m_pUi->cmbLedSize->setCurrentIndex(0);
}

CDevAdd::Device CDevAdd::GetForm() const
{
    Device form;
    form.nAddMode = FormFields::GetCode(m_pUi->cmbRegister);
    form.sProtocol = FormFields::GetKey(m_pUi->cmbProtocal).toStdString();
    form.sManufacturer = FormFields::GetKey(m_pUi->cmbManufacturer).toStdString();
    form.nCategory = FormFields::GetCode(m_pUi->cmbDevCategory);
    form.sDeviceType = FormFields::GetKey(m_pUi->cmbDeviceType).toStdString();
    form.sSeries = FormFields::GetKey(m_pUi->cmbSeries).toStdString();
    form.sServerId = FormFields::GetKey(m_pUi->cmbServer).toStdString();
    form.sOrgCode = m_pUi->cmbGroupName->GetCode().toStdString();
    form.nAccessDirection = FormFields::GetCode(m_pUi->cmbDirection);
    form.nLedType = FormFields::GetCode(m_pUi->cmbLedSize);
    (GetModeFields(form.nAddMode).bSerialNumber ? form.sSerialNumber : form.sIp) = Typed(m_pUi->editTxtIP);
    form.sIpStart = Typed(m_pUi->editIPStart);
    form.sIpEnd = Typed(m_pUi->editIPEnd);
    form.sDomain = Typed(m_pUi->editTxtDomin);
    form.sRegisterId = Typed(m_pUi->editTxtRegitId);
    form.nPort = m_pUi->editDevPort->text().toInt();
    form.sUserName = Typed(m_pUi->editUserName);
    form.sPassword = m_pUi->editPassWord->text().toStdString();
    form.sName = Typed(m_pUi->editDevName);
    form.sModel = Typed(m_pUi->editMode);
    form.sSipId = Typed(m_pUi->editSipID);
    form.sSipPassword = m_pUi->editSipPassword->text().toStdString();
    form.nVideoChannels = m_pUi->spbVideo->value();
    form.nAlarmInputs = m_pUi->spbAlarmInput->value();
    form.nAlarmOutputs = m_pUi->spbAlarmOutput->value();
    form.nAccessChannels = m_pUi->spbAccess->value();
    form.nDecodeChannels = m_pUi->spbDecode->value();
    form.nLifts = m_pUi->spbLift->value();
    form.nLiftFloors = m_pUi->spbLiftFloor->value();
    form.nPosChannels = m_pUi->spbPos->value();
    form.bCombine = m_pUi->chkCombine->isChecked();
    return form;
}

CDevAdd::Device CDevAdd::GetEdited() const
{
    return BuildRecord(GetForm(), m_editor.GetLoaded());
}

void CDevAdd::OnRegisterChanged()
{
    const ModeFields fields = GetModeFields(FormFields::GetCode(m_pUi->cmbRegister));
    // What was typed as an address is none as a serial number, and the other way round.
    if (fields.bSegment || m_pUi->lbEditTxtIP->text() != GetAddressLabel())
        m_pUi->editTxtIP->setText(QString());
    if (!fields.bSegment) {
        m_pUi->editIPStart->setText(QString());
        m_pUi->editIPEnd->setText(QString());
    }
    if (!fields.bDomain)
        m_pUi->editTxtDomin->setText(QString());
    if (!fields.bRegisterId)
        m_pUi->editTxtRegitId->setText(QString());
    for (VxGUI::VxLineEdit* pEdit : {m_pUi->editTxtIP, m_pUi->editIPStart, m_pUi->editIPEnd,
             m_pUi->editTxtDomin, m_pUi->editTxtRegitId, m_pUi->editDevPort})
        pEdit->ClearErrorHint();
    ShowModeFields();
    m_pUi->editDevPort->setText(fields.bPort ? QString::number(GetDefaultPort(0)) : QString());
}

void CDevAdd::OnProtocalChanged()
{
    ResetPort();
}

void CDevAdd::OnCategoryChanged()
{
    FillTypes();
    FillSeries();
    FillDirections();
    ShowCategoryFields();
}

void CDevAdd::ResetPort()
{
    const bool bPort = GetModeFields(FormFields::GetCode(m_pUi->cmbRegister)).bPort;
    m_pUi->editDevPort->setText(
        bPort ? QString::number(GetDefaultPort(FormFields::GetCode(m_pUi->cmbProtocal))) : QString());
}

QString CDevAdd::GetAddressLabel() const
{
    return GetModeFields(FormFields::GetCode(m_pUi->cmbRegister)).bSerialNumber ? Text::tr("SN:")
                                                                                : Text::tr("IP Address:");
}

void CDevAdd::ShowModeFields()
{
    const ModeFields fields = GetModeFields(FormFields::GetCode(m_pUi->cmbRegister));
    const QString sLabel = GetAddressLabel();
    m_pUi->lbEditTxtIP->setText(sLabel);
    m_pUi->editTxtIP->setAccessibleName(sLabel.chopped(1));
    m_pUi->editTxtIP->SetTyped(
        QRegularExpression(fields.bSerialNumber ? GetSerialNumberExpression() : GetIpExpression()));
    VxGUI::MarkRequired(m_pUi->editTxtIP);
    ShowRow(m_pUi->lbEditTxtIP, m_pUi->editTxtIP, fields.bIp || fields.bSerialNumber);
    ShowRow(m_pUi->lbEditIPStart, m_pUi->editIPStart, fields.bSegment);
    ShowRow(m_pUi->lbEditIPEnd, m_pUi->editIPEnd, fields.bSegment);
    ShowRow(m_pUi->lbEditTxtDomin, m_pUi->editTxtDomin, fields.bDomain);
    ShowRow(m_pUi->lbEditTxtRegitId, m_pUi->editTxtRegitId, fields.bRegisterId);
    ShowRow(m_pUi->lbEditDevPort, m_pUi->editDevPort, fields.bPort);
}

void CDevAdd::ShowCategoryFields()
{
    const CategoryFields fields = GetCategoryFields(FormFields::GetCode(m_pUi->cmbDevCategory));
    m_pUi->lbSpbAlarmInput->setText(fields.bZone ? Text::tr("Zone:") : Text::tr("Alarm Input Channel:"));
    m_pUi->spbAlarmInput->setAccessibleName(m_pUi->lbSpbAlarmInput->text().chopped(1));
    ShowRow(m_pUi->lbSpbVideo, m_pUi->spbVideo, fields.bVideo);
    ShowRow(m_pUi->lbSpbAlarmInput, m_pUi->spbAlarmInput, fields.bAlarmInput);
    m_pUi->lbAlarmInputHint->setVisible(fields.bAlarmInput);
    ShowRow(m_pUi->lbSpbAlarmOutput, m_pUi->spbAlarmOutput, fields.bAlarmOutput);
    ShowRow(m_pUi->lbSpbAccess, m_pUi->spbAccess, fields.bAccess);
    ShowRow(m_pUi->lbSpbDecode, m_pUi->spbDecode, fields.bDecode);
    ShowRow(m_pUi->lbSpbLift, m_pUi->spbLift, fields.bLift);
    ShowRow(m_pUi->lbSpbLiftFloor, m_pUi->spbLiftFloor, fields.bLift);
    ShowRow(m_pUi->lbSpbPos, m_pUi->spbPos, fields.bPos);
    m_pUi->chkCombine->setVisible(fields.bCombine);
    ShowRow(m_pUi->lbEditSipID, m_pUi->editSipID, fields.bSip);
    ShowRow(m_pUi->lbEditSipPassword, m_pUi->editSipPassword, fields.bSip);
    ShowRow(m_pUi->lbCmbLedSize, m_pUi->cmbLedSize, fields.bLed);
    ShowRow(m_pUi->lbCmbDirection, m_pUi->cmbDirection, !fields.vecDirections.isEmpty());
    m_pUi->lbChannelNote->setVisible(fields.HasCounts());
}

} // namespace ResourceManagerUI

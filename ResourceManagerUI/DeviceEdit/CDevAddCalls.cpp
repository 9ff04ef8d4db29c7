// How the device of the form is saved and looked up.

#include "CDevAdd.h"
#include "DeviceFormFields.h"
#include "DeviceFormLog.h"
#include "ui_CDevAdd.h"

#include <VxGUI/RequiredMark.h>
#include <common/DeviceCategory.h>

#include <QUrl>

#include <algorithm>

namespace ResourceManagerUI {

using GroupLogical::IGroupManager;

Q_LOGGING_CATEGORY(LogDeviceForm, "resource.device")

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CDevAdd)
};

/// Rows that a search for a name may bring: names that only contain it are among them.
constexpr int SearchRows = 1000;

} // namespace

void CDevAdd::Describe(Common::RecordFields<Device>& fields) const
{
    const auto add = [&](QWidget* pField, auto pMember) { fields.Add(VxGUI::GetFieldName(pField), pMember); };
    const auto named = [](const QComboBox* pCombo) {
        return [pCombo](const std::string& sKey) { return FormFields::GetText(pCombo, sKey); };
    };
    fields.Add<std::string>(
        VxGUI::GetFieldName(m_pUi->cmbProtocal), &Device::sProtocol, named(m_pUi->cmbProtocal));
    fields.Add<std::string>(
        VxGUI::GetFieldName(m_pUi->cmbManufacturer), &Device::sManufacturer, named(m_pUi->cmbManufacturer));
    fields.Add<int>(VxGUI::GetFieldName(m_pUi->cmbDevCategory), &Device::nCategory,
        [](const int& nCategory) { return Common::GetCategoryFilterText(nCategory); });
    fields.Add<int>(VxGUI::GetFieldName(m_pUi->cmbRegister), &Device::nAddMode,
        [this](const int& nMode) { return FormFields::GetText(m_pUi->cmbRegister, nMode); });
    add(m_pUi->editTxtIP, &Device::sIp);
    fields.Add(Text::tr("SN"), &Device::sSerialNumber);
    add(m_pUi->editTxtDomin, &Device::sDomain);
    add(m_pUi->editTxtRegitId, &Device::sRegisterId);
    add(m_pUi->editDevPort, &Device::nPort);
    add(m_pUi->editUserName, &Device::sUserName);
    fields.AddSecret(VxGUI::GetFieldName(m_pUi->editPassWord), &Device::sPassword);
    fields.Add<std::string>(
        VxGUI::GetFieldName(m_pUi->cmbGroupName), &Device::sOrgCode, [this](const std::string& sCode) {
            return m_pUi->cmbGroupName->GetName(QString::fromStdString(sCode));
        });
    fields.Add<std::string>(
        VxGUI::GetFieldName(m_pUi->cmbServer), &Device::sServerId, named(m_pUi->cmbServer));
    add(m_pUi->editDevName, &Device::sName);
    fields.Add<std::string>(
        VxGUI::GetFieldName(m_pUi->cmbDeviceType), &Device::sDeviceType, named(m_pUi->cmbDeviceType));
    fields.Add<std::string>(VxGUI::GetFieldName(m_pUi->cmbSeries), &Device::sSeries, named(m_pUi->cmbSeries));
    add(m_pUi->editMode, &Device::sModel);
    fields.Add<int>(VxGUI::GetFieldName(m_pUi->cmbLedSize), &Device::nLedType,
        [this](const int& nType) { return FormFields::GetText(m_pUi->cmbLedSize, nType); });
    fields.Add<int>(VxGUI::GetFieldName(m_pUi->cmbDirection), &Device::nAccessDirection,
        [this](const int& nDirection) { return FormFields::GetText(m_pUi->cmbDirection, nDirection); });
    add(m_pUi->editSipID, &Device::sSipId);
    fields.AddSecret(VxGUI::GetFieldName(m_pUi->editSipPassword), &Device::sSipPassword);
    add(m_pUi->spbVideo, &Device::nVideoChannels);
    add(m_pUi->spbAlarmInput, &Device::nAlarmInputs);
    add(m_pUi->spbAlarmOutput, &Device::nAlarmOutputs);
    add(m_pUi->spbAccess, &Device::nAccessChannels);
    add(m_pUi->spbDecode, &Device::nDecodeChannels);
    add(m_pUi->spbLift, &Device::nLifts);
    add(m_pUi->spbLiftFloor, &Device::nLiftFloors);
    add(m_pUi->spbPos, &Device::nPosChannels);
    fields.Add(m_pUi->chkCombine->text(), &Device::bCombine);
}

void CDevAdd::Send(const Device& record, bool bNew)
{
    m_vecFailed.clear();
    m_nFound = 0;
    const std::string& sAddress = IsSegment() ? record.sIpStart : record.sIp;
    qCInfo(LogDeviceForm, "%s AddDevice IP[%s] Port[%d]", "ResourceManagerUI::CDevAdd::AddOrModifyDevice",
        sAddress.c_str(), record.nPort);
    const auto onAnswer = [this](const GroupParam& param) { OnSendAnswer(param); };
    if (bNew)
        m_groupCalls.Latest<&IGroupManager::AddDevice>(record, onAnswer);
    else
        m_groupCalls.Latest<&IGroupManager::ModifyDevice>(record, onAnswer);
}

void CDevAdd::OnSendAnswer(const GroupParam& param)
{
    m_vecFailed = param.vecFailed;
    int nErrorCode = param.nErrorCode;
    // A segment of which nothing was added is refused.
    if (IsSegment() && nErrorCode == UICommonMdl::ErrorNone && !m_vecFailed.empty()
        && int(m_vecFailed.size()) >= GetSentSize())
        nErrorCode = UICommonMdl::ErrorInvalidInput;
    m_editor.OnAnswer(nErrorCode, param.sErrorDetail, nullptr);
}

void CDevAdd::Fetch(const Device& record, bool bNew)
{
    if (bNew)
        FindAdded(record);
    else
        QueryDevice(record.sDeviceId);
}

void CDevAdd::QueryDevice(const std::string& sDeviceId)
{
    m_groupCalls.Latest<&IGroupManager::QueryDeviceDetail>(sDeviceId, [this](const GroupParam& param) {
        m_editor.OnFetched(param.nErrorCode, param.optDevice ? &*param.optDevice : nullptr);
    });
}

void CDevAdd::FindAdded(const Device& record)
{
    GroupLogical::DevicePageRequest_t request;
    request.nPageSize = SearchRows;
    request.sSearchText = QUrl::toPercentEncoding(QString::fromStdString(record.sName)).toStdString();
    m_groupCalls.Latest<&IGroupManager::QueryDevicePage>(request, [this](const GroupParam& param) {
        const auto& vecDevices = param.devicePage.vecDevices;
        const auto isOfSent = [this](const auto& device) { return IsOfSent(device); };
        const auto it = std::find_if(vecDevices.begin(), vecDevices.end(), isOfSent);
        m_nFound = int(std::count_if(it, vecDevices.end(), isOfSent));
        if (it == vecDevices.end())
            m_editor.OnFetched(param.nErrorCode, nullptr);
        else if (IsSegment())
            m_editor.OnFetched(param.nErrorCode, &m_editor.GetSent());
        else
            QueryDevice(it->sDeviceId);
    });
}

bool CDevAdd::IsOfSent(const GroupLogical::DeviceInfo_t& device) const
{
    const Device& sent = m_editor.GetSent();
    if (!IsSegment())
        return device.sName == sent.sName;
    // Each device of a segment has its address appended to the name; some of the addresses may be refused.
    const std::size_t nPrefix = sent.sIpStart.rfind('.') + 1;
    return device.sName == sent.sName + ' ' + device.sIp
        && device.sIp.compare(0, nPrefix, sent.sIpStart, 0, nPrefix) == 0;
}

std::pair<int, std::string> CDevAdd::GetTaken() const
{
    return {UICommonMdl::ErrorNameExists, "sName"};
}

} // namespace ResourceManagerUI

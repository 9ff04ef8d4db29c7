#include "CDeviceInitialize.h"

#include "DiscoveryRules.h"
#include "ui_CDeviceInitialize.h"

#include <VxGUI/RequiredMark.h>
#include <common/CTableModel.h>
#include <common/StyleSheet.h>

namespace ResourceManagerUI {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CDeviceInitialize)
};

} // namespace

CDeviceInitialize::CDeviceInitialize(
    const UICommonMdl::CInterfaceSetManager* pInterfaceSet, Devices vecDevices, QWidget* pParent)
    : CFoundDeviceDlg(std::move(vecDevices), pParent)
    , m_pUi(std::make_unique<Ui::CDeviceInitialize>())
    , m_calls(pInterfaceSet, this)
{
    m_pUi->setupUi(this);
    resize(640, 560);
    SetUp({m_pUi->wgtInitForm, m_pUi->btnInitOk, m_pUi->tableInit, m_pUi->barInit, m_pUi->lbInitResult},
        {{Text::tr("IP Address"), true}, {Text::tr("Device Model"), true}}, {160, 160});
    for (int nRow = 0; nRow < GetModel()->rowCount(); ++nRow) {
        const RemoteConfigLogical::SearchDeviceInfo_t& device = GetDevices()[std::size_t(nRow)];
        GetModel()->item(nRow, 0)->setText(QString::fromStdString(device.sIp));
        GetModel()->item(nRow, 1)->setText(QString::fromStdString(device.sModel));
    }
    const UICommonMdl::TextRule& rule = RemoteConfigLogical::FirstPassword;
    const QString sTooLong = CheckDevicePassword(QString(rule.nMax + 1, QLatin1Char('a')));
    for (VxGUI::VxLineEdit* pEdit : {m_pUi->editInitPassword, m_pUi->editInitConfirm}) {
        pEdit->SetLimit(rule, sTooLong);
        VxGUI::MarkRequired(pEdit);
    }
    m_pUi->editInitContact->SetLimit(
        RemoteConfigLogical::ResetContact, Text::tr("The contact cannot exceed %1 characters."));
    connect(m_pUi->editInitPassword, &VxGUI::VxLineEdit::textChanged, m_pUi->wgtInitStrength,
        &Common::CPasswordStrength::SetPassword);
    connect(m_pUi->btnInitOk, &QAbstractButton::clicked, this, &CDeviceInitialize::OnBtnOkClicked);
    connect(m_pUi->btnInitClose, &QAbstractButton::clicked, this, &CDeviceInitialize::reject);
    m_pUi->btnInitOk->setDefault(true);
    m_pUi->editInitPassword->setFocus();
    Common::LoadStyleSheet(this, QStringLiteral("ResourceManagerUI/DeviceManager"));
}

CDeviceInitialize::~CDeviceInitialize() = default;

QString CDeviceInitialize::GetClosingQuestion() const
{
    return Text::tr("The devices are still being initialized, and this goes on. Are you sure to close it?");
}

bool CDeviceInitialize::CheckInput()
{
    const QString sPassword = m_pUi->editInitPassword->text();
    const bool bSame = sPassword == m_pUi->editInitConfirm->text();
    const std::pair<VxGUI::VxLineEdit*, QString> checks[] = {
        {m_pUi->editInitPassword, CheckDevicePassword(sPassword)},
        {m_pUi->editInitConfirm, bSame ? QString() : Text::tr("The two passwords are not the same.")},
        {m_pUi->editInitContact, CheckContact(m_pUi->editInitContact->text().trimmed())}};
    for (const auto& [pEdit, sMessage] : checks) {
        pEdit->SetErrorHint(sMessage);
        if (!sMessage.isEmpty()) {
            pEdit->setFocus();
            return false;
        }
    }
    return true;
}

void CDeviceInitialize::OnBtnOkClicked()
{
    if (IsBusy() || !CheckInput())
        return;
    const QVector<int> vecRows = GetOpenRows();
    std::vector<RemoteConfigLogical::InitializeDevice_t> vecDevices;
    for (const int nRow : vecRows) {
        const RemoteConfigLogical::SearchDeviceInfo_t& device = GetDevices()[std::size_t(nRow)];
        vecDevices.push_back({device.sIp, device.nPort, device.sProtocol});
    }
    m_calls.Each<&RemoteConfigLogical::IRemoteConfigManager::InitializeDevice>(vecDevices,
        m_pUi->editInitPassword->text().toStdString(), m_pUi->editInitContact->text().trimmed().toStdString(),
        [this](const Param& param) { OnReport(param); });
    BeginWork(vecRows);
}

void CDeviceInitialize::OnReport(const Param& param)
{
    const QStringList listDone = TakeResults(param.vecResults, Text::tr("Initialized"));
    if (!listDone.isEmpty())
        Q_EMIT SignalInitialized(listDone);
    if (param.bFinal)
        EndWork(param.nErrorCode, param.sErrorDetail);
}

} // namespace ResourceManagerUI

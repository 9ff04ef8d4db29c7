#include "CModifyIP.h"

#include "DiscoveryRules.h"
#include "ui_CModifyIP.h"

#include <DeviceEdit/DeviceFormFields.h>
#include <VxGUI/RequiredMark.h>
#include <common/CTableModel.h>
#include <common/StyleSheet.h>

namespace ResourceManagerUI {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CModifyIP)
};

enum Column : int
{
    ColumnCurrent = 0,
    ColumnModel,
    ColumnNew
};

} // namespace

CModifyIP::CModifyIP(const UICommonMdl::CInterfaceSetManager* pInterfaceSet, Devices vecDevices,
    const Devices& vecFound, const QString& sNewIp, QWidget* pParent)
    : CFoundDeviceDlg(std::move(vecDevices), pParent)
    , m_pUi(std::make_unique<Ui::CModifyIP>())
    , m_calls(pInterfaceSet, this)
{
    m_pUi->setupUi(this);
    resize(680, 560);
    SetUp({m_pUi->wgtModifyForm, m_pUi->btnModifyOk, m_pUi->tableModify, m_pUi->barModify,
              m_pUi->lbModifyResult},
        {{Text::tr("IP Address"), true}, {Text::tr("Device Model"), true},
            {Text::tr("New IP Address"), true}},
        {130, 130, 130});
    for (int nRow = 0; nRow < GetModel()->rowCount(); ++nRow) {
        const RemoteConfigLogical::SearchDeviceInfo_t& device = GetDevices()[std::size_t(nRow)];
        GetModel()->item(nRow, ColumnCurrent)->setText(QString::fromStdString(device.sIp));
        GetModel()->item(nRow, ColumnModel)->setText(QString::fromStdString(device.sModel));
    }
    for (const RemoteConfigLogical::SearchDeviceInfo_t& device : vecFound) {
        if (FindRow(GetDeviceKey(device)) < 0)
            m_listUsed.append(QString::fromStdString(device.sIp));
    }
    SetUpFields(sNewIp);
    connect(m_pUi->btnModifyOk, &QAbstractButton::clicked, this, &CModifyIP::OnBtnOkClicked);
    connect(m_pUi->btnModifyClose, &QAbstractButton::clicked, this, &CModifyIP::reject);
    Common::LoadStyleSheet(this, QStringLiteral("ResourceManagerUI/DeviceManager"));
}

CModifyIP::~CModifyIP() = default;

void CModifyIP::SetUpFields(const QString& sNewIp)
{
    for (VxGUI::VxLineEdit* pEdit : {m_pUi->editNewIp, m_pUi->editNewMask, m_pUi->editNewGateway})
        FormFields::MakeKeyedField(pEdit);
    VxGUI::MarkRequired(m_pUi->editNewIp);
    VxGUI::MarkRequired(m_pUi->editNewMask);
    FormFields::DeclareChecks(m_pUi->editModifyUser, DeviceField::UserName);
    FormFields::DeclareChecks(m_pUi->editModifyPassword, DeviceField::Password);
    if (GetDevices().size() > 1) {
        m_pUi->lbNewIp->setText(Text::tr("Start IP:"));
        m_pUi->editNewIp->setAccessibleName(Text::tr("Start IP"));
    }
    connect(m_pUi->editNewIp, &VxGUI::VxLineEdit::textChanged, this, &CModifyIP::ShowPlan);
    m_pUi->editNewIp->setText(sNewIp.isEmpty() ? QString::fromStdString(GetDevices().front().sIp) : sNewIp);
    m_pUi->editNewMask->setText(QStringLiteral("255.255.255.0"));
    m_pUi->editModifyUser->setText(QStringLiteral("admin"));
    m_pUi->btnModifyOk->setDefault(true);
    if (sNewIp.isEmpty())
        m_pUi->editNewIp->GetLineEdit()->selectAll();
    (sNewIp.isEmpty() ? m_pUi->editNewIp : m_pUi->editModifyPassword)->setFocus();
}

QString CModifyIP::GetClosingQuestion() const
{
    return Text::tr("The addresses are still being changed, and this goes on. Are you sure to close it?");
}

void CModifyIP::ShowPlan()
{
    // Rows keep their places, so that trying the failed ones again gives them the same addresses.
    const QStringList listNew = CountAddresses(m_pUi->editNewIp->text(), GetModel()->rowCount());
    for (const int nRow : GetOpenRows())
        GetModel()->item(nRow, ColumnNew)->setText(listNew.value(nRow));
}

bool CModifyIP::CheckInput(const QVector<int>& vecRows)
{
    AddressPlan plan;
    plan.sMask = m_pUi->editNewMask->text();
    plan.sGateway = m_pUi->editNewGateway->text();
    plan.setUsed = QSet<QString>(m_listUsed.cbegin(), m_listUsed.cend());
    for (int nRow = 0; nRow < GetModel()->rowCount(); ++nRow) {
        const QString sNew = GetModel()->item(nRow, ColumnNew)->text();
        if (!vecRows.contains(nRow)) {
            plan.setUsed.insert(sNew);
            continue;
        }
        plan.listAddresses.append(sNew.isEmpty() ? m_pUi->editNewIp->text() : sNew);
        plan.listCurrent.append(GetModel()->item(nRow, ColumnCurrent)->text());
    }
    const PlanFailure failure = CheckAddressPlan(plan);
    VxGUI::VxLineEdit* const fields[] = {m_pUi->editNewIp, m_pUi->editNewMask, m_pUi->editNewGateway};
    for (VxGUI::VxLineEdit* pEdit : fields)
        pEdit->ClearErrorHint();
    if (!failure.sMessage.isEmpty()) {
        fields[failure.field]->SetErrorHint(failure.sMessage);
        fields[failure.field]->setFocus();
        return false;
    }
    for (VxGUI::VxLineEdit* pEdit : {m_pUi->editModifyUser, m_pUi->editModifyPassword}) {
        if (!pEdit->CheckInput().isEmpty()) {
            pEdit->setFocus();
            return false;
        }
    }
    return true;
}

void CModifyIP::OnBtnOkClicked()
{
    const QVector<int> vecRows = GetOpenRows();
    if (IsBusy() || !CheckInput(vecRows))
        return;
    std::vector<RemoteConfigLogical::ModifyAddress_t> vecDevices;
    for (const int nRow : vecRows) {
        const RemoteConfigLogical::SearchDeviceInfo_t& device = GetDevices()[std::size_t(nRow)];
        vecDevices.push_back({device.sIp, device.nPort, device.sProtocol,
            m_pUi->editModifyUser->text().trimmed().toStdString(),
            m_pUi->editModifyPassword->text().toStdString(),
            GetModel()->item(nRow, ColumnNew)->text().toStdString(), m_pUi->editNewMask->text().toStdString(),
            m_pUi->editNewGateway->text().toStdString()});
    }
    m_calls.Each<&RemoteConfigLogical::IRemoteConfigManager::ModifyAddress>(
        vecDevices, [this](const Param& param) { OnReport(param); });
    BeginWork(vecRows);
}

void CModifyIP::OnReport(const Param& param)
{
    for (const QString& sKey : TakeResults(param.vecResults, Text::tr("Modified")))
        Q_EMIT SignalAddressModified(sKey, GetModel()->item(FindRow(sKey), ColumnNew)->text());
    if (param.bFinal)
        EndWork(param.nErrorCode, param.sErrorDetail);
}

} // namespace ResourceManagerUI

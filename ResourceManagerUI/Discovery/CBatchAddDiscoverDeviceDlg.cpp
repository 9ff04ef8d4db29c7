#include "CBatchAddDiscoverDeviceDlg.h"

#include "COnlineDeviceModel.h"
#include "DiscoveryRules.h"
#include "ui_CBatchAddDiscoverDeviceDlg.h"

#include <DeviceEdit/DeviceFormFields.h>
#include <common/CTableModel.h>
#include <common/Prompt.h>
#include <common/StyleSheet.h>

#include <QSignalBlocker>

namespace ResourceManagerUI {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CBatchAddDiscoverDeviceDlg)
};

constexpr int ColumnName = 0;

} // namespace

CBatchAddDiscoverDeviceDlg::CBatchAddDiscoverDeviceDlg(const UICommonMdl::CInterfaceSetManager* pInterfaceSet,
    Devices vecDevices, const std::vector<GroupLogical::Organization_t>& vecOrganizations,
    const QString& sOrgCode, QWidget* pParent)
    : CFoundDeviceDlg(std::move(vecDevices), pParent)
    , m_pUi(std::make_unique<Ui::CBatchAddDiscoverDeviceDlg>())
    , m_calls(pInterfaceSet, this)
{
    m_pUi->setupUi(this);
    resize(760, 520);
    SetUp({m_pUi->wgtBatchForm, m_pUi->btnBatchAdd, m_pUi->tableBatch, m_pUi->barBatch, m_pUi->lbBatchResult},
        {{Text::tr("Device Name"), true}, {Text::tr("IP Address"), true}, {Text::tr("Port"), true},
            {Text::tr("Device Model"), true}},
        {200, 120, 64, 120});
    const QStringList listNames = MakeDeviceNames(GetDevices());
    for (int nRow = 0; nRow < listNames.size(); ++nRow) {
        const RemoteConfigLogical::SearchDeviceInfo_t& device = GetDevices()[std::size_t(nRow)];
        QStandardItem* pName = GetModel()->item(nRow, ColumnName);
        pName->setText(listNames[nRow]);
        pName->setEditable(true);
        GetModel()->item(nRow, 1)->setText(QString::fromStdString(device.sIp));
        GetModel()->item(nRow, 2)->setText(QString::number(device.nPort));
        GetModel()->item(nRow, 3)->setText(QString::fromStdString(device.sModel));
    }
    FormFields::DeclareChecks(m_pUi->editBatchUser, DeviceField::UserName);
    FormFields::DeclareChecks(m_pUi->editBatchPassword, DeviceField::Password);
    m_pUi->editBatchUser->setText(QStringLiteral("admin"));
    FormFields::FillOrganizations(m_pUi->cmbBatchOrg, vecOrganizations, sOrgCode);
    connect(
        m_pUi->btnBatchAdd, &QAbstractButton::clicked, this, &CBatchAddDiscoverDeviceDlg::OnBtnAddClicked);
    connect(m_pUi->btnBatchClose, &QAbstractButton::clicked, this, &CBatchAddDiscoverDeviceDlg::reject);
    m_pUi->btnBatchAdd->setDefault(true);
    m_pUi->editBatchPassword->setFocus();
    Common::LoadStyleSheet(this, QStringLiteral("ResourceManagerUI/DeviceManager"));
}

CBatchAddDiscoverDeviceDlg::~CBatchAddDiscoverDeviceDlg() = default;

QString CBatchAddDiscoverDeviceDlg::GetClosingQuestion() const
{
    return Text::tr("The devices are still being added, and this goes on. Are you sure to close it?");
}

void CBatchAddDiscoverDeviceDlg::ShowBusy(bool bBusy)
{
    CFoundDeviceDlg::ShowBusy(bBusy);
    for (int nRow = 0; nRow < GetModel()->rowCount(); ++nRow)
        GetModel()->item(nRow, ColumnName)->setEditable(!bBusy && GetResult(nRow) != Result::Done);
}

QStringList CBatchAddDiscoverDeviceDlg::GetNames() const
{
    QStringList listNames;
    for (int nRow = 0; nRow < GetModel()->rowCount(); ++nRow)
        listNames.append(GetModel()->item(nRow, ColumnName)->text());
    return listNames;
}

bool CBatchAddDiscoverDeviceDlg::CheckInput()
{
    for (VxGUI::VxLineEdit* pEdit : {m_pUi->editBatchUser, m_pUi->editBatchPassword}) {
        if (!pEdit->CheckInput().isEmpty()) {
            pEdit->setFocus();
            return false;
        }
    }
    const QStringList listMessages = CheckDeviceNames(GetNames());
    int nFirst = -1;
    for (const int nRow : GetOpenRows()) {
        if (listMessages[nRow].isEmpty())
            continue;
        SetResult(nRow, Result::Failed, listMessages[nRow]);
        nFirst = nFirst < 0 ? nRow : nFirst;
    }
    if (nFirst < 0)
        return true;
    m_pUi->tableBatch->setCurrentIndex(GetModel()->index(nFirst, ColumnName));
    m_pUi->tableBatch->setFocus();
    return false;
}

void CBatchAddDiscoverDeviceDlg::OnBtnAddClicked()
{
    if (IsBusy() || !CheckInput())
        return;
    const QVector<int> vecRows = GetOpenRows();
    const QStringList listNames = GetNames();
    GroupLogical::ImportRequest_t request;
    request.sSource = "discovery";
    request.sOrgCode = m_pUi->cmbBatchOrg->GetCode().toStdString();
    QStringList listKeys;
    for (const int nRow : vecRows) {
        request.vecRows.push_back(MakeImportRow(GetDevices()[std::size_t(nRow)], nRow + 1, listNames[nRow],
            m_pUi->editBatchUser->text(), m_pUi->editBatchPassword->text()));
        listKeys.append(GetKey(nRow));
    }
    m_calls.Each<&GroupLogical::IGroupManager::ImportDevice>(
        request, [this, vecRows](const Param& param) { OnImportReport(vecRows, param); });
    BeginWork(vecRows);
    Q_EMIT SignalStateChanged(listKeys, FoundAdding);
}

void CBatchAddDiscoverDeviceDlg::OnImportReport(const QVector<int>& vecRows, const Param& param)
{
    for (const GroupLogical::ImportFailure_t& failure : param.importState.vecFailed) {
        const int nRow = failure.nLine - 1;
        if (!vecRows.contains(nRow) || GetResult(nRow) != Result::Running)
            continue;
        const std::string sField = failure.sField.empty() || failure.sReason.empty()
            ? failure.sField
            : failure.sField + ": " + failure.sReason;
        SetError(nRow, failure.nErrorCode, sField.empty() ? failure.sReason : sField);
    }
    if (!param.bFinal)
        return;
    QStringList listAdded;
    QStringList listOpen;
    for (const int nRow : vecRows) {
        const bool bAdded = param.nErrorCode == UICommonMdl::ErrorNone && GetResult(nRow) == Result::Running;
        if (bAdded)
            SetResult(nRow, Result::Done, Text::tr("Added"));
        (bAdded ? listAdded : listOpen).append(GetKey(nRow));
    }
    EndWork(param.nErrorCode, param.sErrorDetail);
    Q_EMIT SignalStateChanged(listAdded, FoundManaged);
    Q_EMIT SignalStateChanged(listOpen, FoundNew);
    if (!listAdded.isEmpty())
        Q_EMIT SignalAdded();
    if (!isVisible() && !listOpen.isEmpty())
        Q_EMIT SignalShowNotify(Text::tr("Failed to add device"));
}

} // namespace ResourceManagerUI

#include "CFoundDeviceDlg.h"

#include "DiscoveryRules.h"

#include <Trv/QSkin.h>
#include <UICommonMdl/CErrorCode.h>
#include <common/CTableModel.h>
#include <common/Prompt.h>

#include <QAbstractButton>
#include <QCoreApplication>
#include <QHeaderView>
#include <QLabel>
#include <QProgressBar>
#include <QTreeView>

namespace ResourceManagerUI {

namespace {
struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CFoundDeviceDlg)
};
} // namespace

CFoundDeviceDlg::CFoundDeviceDlg(Devices vecDevices, QWidget* pParent)
    : QDialog(pParent)
    , m_vecDevices(std::move(vecDevices))
    , m_vecResults(int(m_vecDevices.size()), Result::None)
{
    setAttribute(Qt::WA_DeleteOnClose);
    setModal(true);
}

CFoundDeviceDlg::~CFoundDeviceDlg() = default;

void CFoundDeviceDlg::SetUp(
    const Controls& controls, const QVector<Common::Column>& vecColumns, const QVector<int>& vecWidths)
{
    m_controls = controls;
    m_nResultColumn = vecColumns.size();
    QVector<Common::Column> vecAll = vecColumns;
    vecAll << Common::Column{Text::tr("Result"), true} << Common::Column{QString(), false};
    m_pModel = new Common::CTableModel(vecAll, vecAll.size() - 1, -1, this);
    QVector<Common::CTableModel::Row> vecRows;
    for (const RemoteConfigLogical::SearchDeviceInfo_t& device : m_vecDevices) {
        Common::CTableModel::Row row;
        for (int nColumn = 0; nColumn + 1 < vecAll.size(); ++nColumn)
            row.append(Common::CTableModel::MakeItem());
        row.append(Common::CTableModel::MakeItem(GetDeviceKey(device)));
        vecRows.append(row);
    }
    m_pModel->SetRows(vecRows);
    m_controls.pTable->setModel(m_pModel);
    m_controls.pTable->setColumnHidden(vecAll.size() - 1, true);
    for (int nColumn = 0; nColumn < vecWidths.size(); ++nColumn)
        m_controls.pTable->setColumnWidth(nColumn, vecWidths[nColumn]);
    m_controls.pTable->header()->setStretchLastSection(true);
    m_controls.pBar->setValue(0);
    m_controls.pBar->hide();
}

int CFoundDeviceDlg::FindRow(const QString& sKey) const
{
    return m_pModel->FindRow(sKey);
}

QString CFoundDeviceDlg::GetKey(int nRow) const
{
    return m_pModel->GetId(nRow);
}

void CFoundDeviceDlg::SetResult(int nRow, Result result, const QString& sText)
{
    m_vecResults[nRow] = result;
    QStandardItem* pItem = m_pModel->item(nRow, m_nResultColumn);
    pItem->setText(sText);
    switch (result) {
    case Result::Done:
        pItem->setIcon(Trv::GetIcon(QStringLiteral("success")));
        break;
    case Result::Failed:
        pItem->setIcon(Trv::GetIcon(QStringLiteral("error")));
        break;
    default:
        pItem->setIcon(QIcon());
    }
    if (m_bBusy)
        ShowProgress();
}

void CFoundDeviceDlg::SetError(int nRow, int nErrorCode, const std::string& sDetail)
{
    QString sText = UICommonMdl::CErrorCode::GetErroCodeInfor(nErrorCode);
    if (sText.isEmpty())
        sText = Text::tr("Failed");
    if (!sDetail.empty())
        sText += QStringLiteral(" (") + QString::fromStdString(sDetail) + QLatin1Char(')');
    SetResult(nRow, Result::Failed, sText);
}

QStringList CFoundDeviceDlg::TakeResults(
    const RemoteConfigLogical::ModifyDevicePasswordResultInfoVec& vecResults, const QString& sDone)
{
    QStringList listDone;
    for (const RemoteConfigLogical::ModifyDevicePasswordResultInfo_t& result : vecResults) {
        const QString sKey = QString::fromStdString(result.sDeviceId);
        const int nRow = FindRow(sKey);
        if (nRow < 0)
            continue;
        if (result.nErrorCode != UICommonMdl::ErrorNone) {
            SetError(nRow, result.nErrorCode, result.sDetail);
            continue;
        }
        SetResult(nRow, Result::Done, sDone);
        listDone.append(sKey);
    }
    return listDone;
}

void CFoundDeviceDlg::ShowBusy(bool bBusy)
{
    const bool bUsable = !bBusy && !GetOpenRows().isEmpty();
    m_controls.pForm->setEnabled(bUsable);
    m_controls.pStart->setEnabled(bUsable);
}

QVector<int> CFoundDeviceDlg::GetOpenRows() const
{
    QVector<int> vecRows;
    for (int nRow = 0; nRow < m_vecResults.size(); ++nRow) {
        if (m_vecResults[nRow] != Result::Done)
            vecRows.append(nRow);
    }
    return vecRows;
}

void CFoundDeviceDlg::BeginWork(const QVector<int>& vecRows)
{
    m_bBusy = true;
    m_vecRunning = vecRows;
    for (const int nRow : vecRows)
        SetResult(nRow, Result::Running, Text::tr("In progress"));
    m_controls.pBar->setRange(0, vecRows.size());
    m_controls.pBar->show();
    ShowBusy(true);
    ShowProgress();
}

void CFoundDeviceDlg::EndWork(int nErrorCode, const std::string& sDetail)
{
    // A row without a result of its own shares that of the whole; the host owes it one.
    for (const int nRow : qAsConst(m_vecRunning)) {
        if (m_vecResults[nRow] == Result::Running)
            SetError(nRow, nErrorCode, sDetail);
    }
    m_bBusy = false;
    m_controls.pBar->hide();
    ShowBusy(false);
    ShowProgress();
    if (m_bClosed)
        deleteLater();
}

void CFoundDeviceDlg::ShowProgress()
{
    const auto count = [this](Result result) {
        return int(std::count_if(m_vecRunning.cbegin(), m_vecRunning.cend(),
            [&](int nRow) { return m_vecResults[nRow] == result; }));
    };
    const int nDone = count(Result::Done);
    const int nFailed = count(Result::Failed);
    m_controls.pBar->setValue(nDone + nFailed);
    m_controls.pSummary->setText(Text::tr("Success: %1  Fail: %2").arg(nDone).arg(nFailed));
}

void CFoundDeviceDlg::reject()
{
    if (!m_bBusy) {
        QDialog::reject();
        return;
    }
    if (!Common::AskPrompt(this, GetClosingQuestion()))
        return;
    // The work may have ended while the question stood.
    if (!m_bBusy) {
        QDialog::reject();
        return;
    }
    m_bClosed = true;
    setAttribute(Qt::WA_DeleteOnClose, false);
    hide();
}

} // namespace ResourceManagerUI

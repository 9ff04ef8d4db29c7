#include "CBatchDeleteDeviceDlg.h"

#include "DeviceRules.h"
#include "ui_CBatchDeleteDeviceDlg.h"

#include <Trv/QSkin.h>
#include <UICommonMdl/CErrorCode.h>
#include <common/CRowButtonDelegate.h>
#include <common/CTableModel.h>
#include <common/Prompt.h>
#include <common/ScreenFit.h>
#include <common/StyleSheet.h>

#include <QShortcut>

namespace ResourceManagerUI {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CBatchDeleteDeviceDlg)
};

enum Column : int
{
    ColumnDeviceName,
    ColumnReason,
    ColumnOperation,
    ColumnDeviceId ///< key, never shown
};

constexpr int RoleForceDelete = 1;
constexpr int MostLines = 5; ///< of refusals above the table

} // namespace

CBatchDeleteDeviceDlg::CBatchDeleteDeviceDlg(const UICommonMdl::CInterfaceSetManager* pInterfaceSet,
    int nMode, const QVector<QString>& vecDeviceIds, const QHash<QString, QString>& mapNames,
    QWidget* pParent)
    : QDialog(pParent)
    , m_pUi(std::make_unique<Ui::CBatchDeleteDeviceDlg>())
    , m_nMode(nMode)
    , m_mapNames(mapNames)
    , m_nTotal(vecDeviceIds.size())
    , m_pModel(new Common::CTableModel({{Text::tr("Device Name"), true}, {Text::tr("Failed Reason"), true},
                                           {Text::tr("Operation"), true}, {QString(), false}},
          ColumnDeviceId, -1, this))
    , m_calls(pInterfaceSet, this)
{
    for (const QString& sId : vecDeviceIds)
        m_vecWaiting.push_back(sId.toStdString());
    m_pUi->setupUi(this);
    setAttribute(Qt::WA_DeleteOnClose);
    setModal(true);
    resize(Common::FitToScreen(this, {640, 560}));
    m_pUi->wgtWait->SetAnimation(
        Trv::GetSkinPath(QStringLiteral("DeleteGif.gif"), QStringLiteral("ResourceManagerUI/DeviceManager")));
    m_pUi->tableFailed->setModel(m_pModel);
    m_pUi->tableFailed->setColumnHidden(ColumnDeviceId, true);
    m_pUi->tableFailed->setColumnWidth(ColumnDeviceName, 160);
    m_pUi->tableFailed->setColumnWidth(ColumnReason, 320);
    m_pUi->listReferences->hide();
    auto* pDelegate =
        new Common::CRowButtonDelegate({{RoleForceDelete, QIcon(), Text::tr("Force Delete")}}, this);
    m_pUi->tableFailed->setItemDelegateForColumn(ColumnOperation, pDelegate);

    connect(pDelegate, &Common::CRowButtonDelegate::SignalButtonClicked, this,
        [this](const QModelIndex& index) { ForceDelete(m_pModel->GetId(index.row())); });
    auto* pEnter = new QShortcut(Qt::Key_Return, m_pUi->tableFailed, nullptr, nullptr, Qt::WidgetShortcut);
    connect(pEnter, &QShortcut::activated, this, [this] {
        const QModelIndex index = m_pUi->tableFailed->currentIndex();
        if (index.isValid())
            ForceDelete(m_pModel->GetId(index.row()));
    });
    connect(m_pUi->tableFailed->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
        [this](const QModelIndex& index) { OnFailureSelected(m_pModel->GetId(index.row())); });
    connect(m_pUi->btnClose, &QAbstractButton::clicked, this, &CBatchDeleteDeviceDlg::reject);
    ShowProgress();
    Common::LoadStyleSheet(this, QStringLiteral("ResourceManagerUI/DeviceManager"));
}

CBatchDeleteDeviceDlg::~CBatchDeleteDeviceDlg() = default;

void CBatchDeleteDeviceDlg::Start()
{
    SendNextBatch();
}

void CBatchDeleteDeviceDlg::SendNextBatch()
{
    if (m_vecWaiting.empty()) {
        OnFinished();
        return;
    }
    const std::vector<std::string> vecBatch = TakeDeleteBatch(m_vecWaiting);
    m_bBatch = true;
    m_calls.Each<&GroupLogical::IGroupManager::DeleteDevice>(
        vecBatch, m_nMode, [this, vecBatch](const Param& param) { OnBatchAnswer(vecBatch, param); });
}

void CBatchDeleteDeviceDlg::OnBatchAnswer(const std::vector<std::string>& vecBatch, const Param& param)
{
    m_bBatch = false;
    m_nDone += int(vecBatch.size());
    if (param.nErrorCode != UICommonMdl::ErrorNone && param.vecFailed.empty())
        AddFailures(vecBatch, param.nErrorCode);
    for (const GroupLogical::FailedItem_t& item : param.vecFailed)
        AddFailure(item);
    RebuildFailures();
    ShowProgress();
    TellGone(vecBatch, param);
    SendNextBatch();
}

void CBatchDeleteDeviceDlg::TellGone(const std::vector<std::string>& vecBatch, const Param& param)
{
    if (param.nErrorCode != UICommonMdl::ErrorNone)
        return;
    QStringList listGone;
    for (const std::string& sId : vecBatch)
        listGone.append(QString::fromStdString(sId));
    for (const GroupLogical::FailedItem_t& item : param.vecFailed) {
        // One that somebody else deleted is gone as well.
        if (item.nErrorCode != UICommonMdl::ErrorNotFound)
            listGone.removeOne(QString::fromStdString(item.sId));
    }
    if (!listGone.isEmpty())
        Q_EMIT SignalGone(listGone);
}

void CBatchDeleteDeviceDlg::AddFailures(const std::vector<std::string>& vecIds, int nErrorCode)
{
    for (const std::string& sId : vecIds)
        AddFailure({sId, {}, nErrorCode, {}});
    RebuildFailures();
}

void CBatchDeleteDeviceDlg::AddFailure(GroupLogical::FailedItem_t item)
{
    if (item.sName.empty())
        item.sName = m_mapNames.value(QString::fromStdString(item.sId)).toStdString();
    m_vecFailed.push_back(std::move(item));
}

void CBatchDeleteDeviceDlg::RebuildFailures()
{
    QVector<Common::CTableModel::Row> vecRows;
    for (const GroupLogical::FailedItem_t& item : m_vecFailed) {
        const QString sReason = GetDeleteFailureText(item);
        Common::CTableModel::Row row{Common::CTableModel::MakeItem(QString::fromStdString(item.sName)),
            Common::CTableModel::MakeItem(sReason), Common::CTableModel::MakeItem(),
            Common::CTableModel::MakeItem(QString::fromStdString(item.sId))};
        row[ColumnReason]->setToolTip(item.sDetail.empty() ? sReason : QString::fromStdString(item.sDetail));
        vecRows.append(row);
    }
    m_pModel->SetRows(vecRows);
}

void CBatchDeleteDeviceDlg::ShowProgress()
{
    const int nPercent = m_nTotal == 0 ? 100 : m_nDone * 100 / m_nTotal;
    m_pUi->barProgress->setValue(nPercent);
    m_pUi->lbProgress->setText(QStringLiteral("%1 %2/%3")
                                   .arg(QString::number(nPercent) + QLatin1Char('%'))
                                   .arg(m_nDone)
                                   .arg(m_nTotal));
}

void CBatchDeleteDeviceDlg::OnFinished()
{
    m_pUi->wgtWait->hide();
    ShowResult();
}

void CBatchDeleteDeviceDlg::ShowResult()
{
    if (m_vecFailed.empty()) {
        m_pUi->lbResult->setText(Text::tr("Delete device complete!"));
        return;
    }
    QStringList listLines;
    for (const GroupLogical::FailedItem_t& item : m_vecFailed) {
        if (IsHeldByConfiguration(item.nErrorCode))
            listLines.append(GetDeleteFailureText(item));
    }
    // The table has them all.
    const int nMore = listLines.size() - MostLines;
    if (nMore > 0)
        listLines = listLines.mid(0, MostLines) << Text::tr("... and %1 more").arg(nMore);
    listLines.prepend(Text::tr("Failed to delete device"));
    m_pUi->lbResult->setText(listLines.join(QLatin1Char('\n')));
}

void CBatchDeleteDeviceDlg::ForceDelete(const QString& sDeviceId)
{
    if (m_bForced
        || !Common::AskPrompt(this,
            Text::tr("Forced deletion also removes the configuration that refers to the device. Are you sure "
                     "to delete the device?")))
        return;
    m_bForced = true;
    m_pUi->tableFailed->setEnabled(false);
    m_calls.Each<&GroupLogical::IGroupManager::DeleteDevice>(
        std::vector<std::string>{sDeviceId.toStdString()}, int(GroupLogical::DeleteForced),
        [this, sDeviceId](const Param& param) { OnForceAnswer(sDeviceId, param); });
}

void CBatchDeleteDeviceDlg::OnForceAnswer(const QString& sDeviceId, const Param& param)
{
    m_bForced = false;
    m_pUi->tableFailed->setEnabled(true);
    TellGone({sDeviceId.toStdString()}, param);
    const auto it = std::find_if(m_vecFailed.begin(), m_vecFailed.end(),
        [sKey = sDeviceId.toStdString()](const auto& item) { return item.sId == sKey; });
    if (it == m_vecFailed.end())
        return;
    if (!param.vecFailed.empty()) {
        it->nErrorCode = param.vecFailed.front().nErrorCode;
        it->sDetail = param.vecFailed.front().sDetail;
    } else if (param.nErrorCode != UICommonMdl::ErrorNone) {
        it->nErrorCode = param.nErrorCode;
        it->sDetail = param.sErrorDetail;
    } else {
        m_vecFailed.erase(it);
    }
    RebuildFailures();
    if (!m_bBatch)
        ShowResult();
}

void CBatchDeleteDeviceDlg::OnFailureSelected(const QString& sDeviceId)
{
    m_pUi->listReferences->clear();
    m_pUi->listReferences->hide();
    m_calls.Forget<&GroupLogical::IGroupManager::QueryDeviceReferences>();
    if (sDeviceId.isEmpty())
        return;
    m_calls.Each<&GroupLogical::IGroupManager::QueryDeviceReferences>(
        sDeviceId.toStdString(), [this](const Param& param) {
            m_pUi->listReferences->clear();
            m_pUi->listReferences->addItems(param.nErrorCode == UICommonMdl::ErrorNone
                    ? GetReferenceLines(param.vecReferences)
                    : QStringList{UICommonMdl::CErrorCode::GetErroCodeInfor(param.nErrorCode)});
            m_pUi->listReferences->setVisible(m_pUi->listReferences->count() > 0);
        });
}

void CBatchDeleteDeviceDlg::reject()
{
    const bool bDeleting = m_bBatch || m_bForced;
    if (bDeleting && !Common::AskPrompt(this, Text::tr("Deleting device. Are you sure to close it?")))
        return;
    // Batches that were not sent yet are not sent any more.
    m_vecWaiting.clear();
    m_calls.ForgetAll();
    QDialog::reject();
}

} // namespace ResourceManagerUI

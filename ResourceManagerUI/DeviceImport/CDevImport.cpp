#include "CDevImport.h"

#include "CFileDownload.h"
#include "CImportResultModel.h"
#include "CImportRun.h"
#include "ui_CDevImport.h"

#include <Trv/QSkin.h>
#include <UICommonMdl/CInterfaceSetManager.h>
#include <VxGUI/VxDialogService.h>
#include <VxGUI/VxNotification.h>
#include <common/Prompt.h>
#include <common/StyleSheet.h>

#include <QFileInfo>
#include <QPointer>

namespace ResourceManagerUI {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CDevImport)
};

enum RequestKind : int
{
    KindFeatures = 1
};

QString SkinFolder()
{
    return QStringLiteral("ResourceManagerUI/DeviceManager");
}

CFileDownload::Request TemplateRequest(const std::string& sUrl, const QString& sProposal)
{
    return {QString::fromStdString(sUrl), sProposal, QStringLiteral(".xlsx"),
        Text::tr("Successfully download template!"), Text::tr("Failed to download template!"),
        Text::tr("Download path does not exist, failed to download template!")};
}

} // namespace

CDevImport::CDevImport(UICommonMdl::CInterfaceSetManager* pInterfaceSet, QWidget* pParent)
    : QDialog(pParent)
    , m_pUi(std::make_unique<Ui::CDevImport>())
    , m_pRun(new CImportRun(pInterfaceSet, this))
    , m_pDownload(new CFileDownload(pInterfaceSet, this))
    , m_pResultModel(new CImportResultModel(this))
    , m_session(pInterfaceSet, this)
    , m_calls(pInterfaceSet, this)
{
    m_pUi->setupUi(this);
    setObjectName(QStringLiteral("CDevImport"));
    m_pUi->wgtP2P->SetInterfaceSet(pInterfaceSet);
    resize(820, 560);
    SetUpChoosing();
    SetUpResult();
    ConnectRun();
    m_pUi->lbConnection->Watch(m_session);
    connect(&m_session, &Common::CSession::SignalConnectionChanged, this, &CDevImport::OnConnected);
    SetOrganization({}, {});
    ShowChoosing();
    Common::LoadStyleSheet(this, SkinFolder());
}

CDevImport::~CDevImport() = default;

void CDevImport::SetUpChoosing()
{
    m_pUi->btnTemplate->setIcon(Trv::GetIcon(QStringLiteral("download")));
    m_pUi->btnIntercomTemplate->setIcon(Trv::GetIcon(QStringLiteral("download")));
    m_pUi->wgtUploadWait->SetAnimation(Trv::GetSkinPath(QStringLiteral("upload.gif"), SkinFolder()));
    m_pUi->wgtImportWait->SetAnimation(Trv::GetSkinPath(QStringLiteral("threePoint.gif"), SkinFolder()));
    m_pUi->lbUploadIcon->setPixmap(
        QIcon(Trv::GetSkinPath(QStringLiteral("uplaod_fail.svg"), QStringLiteral("public"))).pixmap(48));
    connect(m_pUi->btnBrowse, &QAbstractButton::clicked, this, &CDevImport::OnBrowseClicked);
    connect(m_pUi->btnTemplate, &QAbstractButton::clicked, this, [this] {
        m_pDownload->Start(TemplateRequest(m_features.sTemplateUrl, QStringLiteral("device_template.xlsx")));
    });
    connect(m_pUi->btnIntercomTemplate, &QAbstractButton::clicked, this, [this] {
        m_pDownload->Start(
            TemplateRequest(m_features.sIntercomTemplateUrl, QStringLiteral("intercom_template.xlsx")));
    });
    connect(m_pDownload, &CFileDownload::SignalEnded, this, &CDevImport::Notify);
    connect(m_pUi->wgtP2P, &CP2PImportWidget::SignalRefresh, this, &CDevImport::QueryFeatures);
    connect(m_pUi->wgtP2P, &CP2PImportWidget::SignalNotify, this,
        [this](const QString& sText) { Notify(sText, false); });
    connect(m_pUi->wgtP2P, &CP2PImportWidget::SignalImport, this,
        [this](const std::vector<GroupLogical::ImportRow_t>& vecRows) {
            m_pRun->StartRows(
                vecRows, QStringLiteral("p2p"), {m_sOrgCode, m_pUi->rbAllOrNothing->isChecked()});
        });
    connect(m_pUi->btnClose, &QAbstractButton::clicked, this, &CDevImport::reject);
}

void CDevImport::SetUpResult()
{
    QTreeView* const pTable = m_pUi->treeResult;
    pTable->setModel(m_pResultModel);
    const std::pair<int, int> widths[] = {{CImportResultModel::ColumnLine, 56},
        {CImportResultModel::ColumnName, 150}, {CImportResultModel::ColumnAddress, 120},
        {CImportResultModel::ColumnStatus, 76}, {CImportResultModel::ColumnField, 116}};
    for (const auto& [nColumn, nWidth] : widths)
        pTable->setColumnWidth(nColumn, nWidth);
    connect(m_pUi->chkOnlyFailed, &QCheckBox::toggled, m_pResultModel, &CImportResultModel::SetOnlyFailed);
    connect(m_pUi->btnFailList, &QAbstractButton::clicked, this, &CDevImport::OnFailListClicked);
    for (QPushButton* const pAgain : {m_pUi->btnAgain, m_pUi->btnUploadBack}) {
        connect(pAgain, &QAbstractButton::clicked, this, [this] {
            m_pRun->Reset();
            ShowChoosing();
        });
    }
}

void CDevImport::ConnectRun()
{
    connect(m_pRun, &CImportRun::SignalStageChanged, this, &CDevImport::OnStageChanged);
    connect(m_pRun, &CImportRun::SignalRefused, this, [this](const QString& sText) {
        ShowChoosing();
        Notify(sText, false);
    });
    connect(m_pRun, &CImportRun::SignalUploadRate, this, &CDevImport::ShowUploadRate);
    connect(m_pRun, &CImportRun::SignalUploadFailed, this, &CDevImport::OnUploadFailed);
    connect(m_pRun, &CImportRun::SignalUploaded, this, &CDevImport::OnUploaded);
    connect(m_pRun, &CImportRun::SignalProgress, this, &CDevImport::OnProgress);
    connect(m_pRun, &CImportRun::SignalFinished, this, &CDevImport::OnFinished);
}

void CDevImport::SetOrganization(const QString& sOrgCode, const QString& sName)
{
    m_sOrgCode = sOrgCode;
    m_pUi->lbOrgCaption->setVisible(!sName.isEmpty());
    m_pUi->lbOrg->setVisible(!sName.isEmpty());
    m_pUi->lbOrg->setText(sName);
}

void CDevImport::showEvent(QShowEvent* pEvent)
{
    QDialog::showEvent(pEvent);
    if (!pEvent->spontaneous() && !m_bFeaturesKnown)
        QueryFeatures();
}

void CDevImport::done(int nResult)
{
    QDialog::done(nResult);
    if (m_pRun->IsRunning())
        return;
    // The next opening begins anew.
    m_bFeaturesKnown = false;
    m_pUi->wgtP2P->Clear();
    m_pRun->Reset();
    ShowChoosing();
}

void CDevImport::Notify(const QString& sText, bool bGood)
{
    if (!isVisible()) {
        Q_EMIT SignalShowNotify(sText);
        return;
    }
    VxGUI::VxNotification::Show(
        this, sText, bGood ? VxGUI::NotificationKind::Success : VxGUI::NotificationKind::Error);
}

void CDevImport::ShowChoosing()
{
    m_pUi->editFile->clear();
    m_pUi->stackImport->setCurrentWidget(m_pUi->pageChoose);
    UpdateEnabled();
    m_pUi->btnBrowse->setFocus();
}

void CDevImport::UpdateEnabled()
{
    const bool bConnected = m_session.IsConnected();
    m_pUi->btnBrowse->setEnabled(bConnected);
    m_pUi->btnTemplate->setEnabled(bConnected && !m_features.sTemplateUrl.empty());
    m_pUi->btnIntercomTemplate->setEnabled(bConnected && !m_features.sIntercomTemplateUrl.empty());
    m_pUi->btnFailList->setEnabled(bConnected);
    m_pUi->wgtP2P->SetConnected(bConnected);
}

void CDevImport::OnConnected(bool bConnected)
{
    UpdateEnabled();
    if (bConnected && isVisible() && !m_bFeaturesKnown)
        QueryFeatures();
}

void CDevImport::QueryFeatures()
{
    m_calls.Latest<&RemoteConfigLogical::IRemoteConfigManager::QueryFeatures>(
        [this](const SystemParam& param) { OnFeatures(param); });
    m_pUi->wgtP2P->ShowLoading();
}

void CDevImport::OnFeatures(const SystemParam& param)
{
    m_bFeaturesKnown = param.nErrorCode == UICommonMdl::ErrorNone;
    m_features = m_bFeaturesKnown ? param.features : RemoteConfigLogical::Features_t();
    m_pUi->wgtP2P->ShowFeatures(m_features, param.nErrorCode);
    UpdateEnabled();
    if (!m_bFeaturesKnown)
        Notify(Common::FailureText(Text::tr("Failed to query features."), param.nErrorCode), false);
}

void CDevImport::OnBrowseClicked()
{
    // The chooser runs for as long as the user likes; the page may be gone after it.
    const QPointer<CDevImport> guard(this);
    const QString sPath = VxGUI::VxDialogService::Current()->OpenFile(
        this, Text::tr("Select a XML or Excel file"), QString(), Text::tr("Files (*.xml *.xlsx *.xls)"));
    if (guard && !sPath.isEmpty())
        StartFile(sPath);
}

void CDevImport::StartFile(const QString& sPath)
{
    m_pUi->editFile->setText(sPath.section(QLatin1Char('/'), -1));
    switch (GetImportFileKind(sPath)) {
    case ImportFileKind::Unknown:
        Notify(Text::tr("Supported file type: *.xls,*.xml"), false);
        break;
    case ImportFileKind::Xml:
        m_pRun->StartXml(sPath, {m_sOrgCode, m_pUi->rbAllOrNothing->isChecked()});
        break;
    case ImportFileKind::Spreadsheet:
        if (IsSpreadsheetTooLarge(QFileInfo(sPath).size())) {
            Notify(Text::tr("Import file size can not exceed %1K!").arg(MaxSpreadsheetKb), false);
            break;
        }
        m_pRun->StartUpload(QString::fromStdString(m_features.sUploadUrl), sPath,
            {m_sOrgCode, m_pUi->rbAllOrNothing->isChecked()});
        break;
    }
}

void CDevImport::OnStageChanged()
{
    switch (m_pRun->GetStage()) {
    case CImportRun::Stage::Idle:
    case CImportRun::Stage::Uploaded:
    case CImportRun::Stage::Done:
        break;
    case CImportRun::Stage::Uploading:
        ShowUploading(true);
        break;
    case CImportRun::Stage::Reading:
    case CImportRun::Stage::Importing:
        OnProgress();
        m_pUi->stackImport->setCurrentWidget(m_pUi->pageProgress);
        break;
    }
    if (m_bRunning == m_pRun->IsRunning())
        return;
    m_bRunning = m_pRun->IsRunning();
    Q_EMIT SignalImportStatue(m_bRunning);
}

void CDevImport::ShowUploading(bool bRunning)
{
    m_pUi->lbUpload->setText(bRunning ? Text::tr("Uploading") : Text::tr("Failed to upload file"));
    m_pUi->wgtUploadWait->setVisible(bRunning);
    m_pUi->m_pUploadRate->setVisible(bRunning);
    m_pUi->barUpload->setVisible(bRunning);
    m_pUi->lbUploadIcon->setVisible(!bRunning);
    m_pUi->lbUploadReason->setVisible(!bRunning);
    m_pUi->btnUploadBack->setVisible(!bRunning);
    ShowUploadRate(0);
    m_pUi->stackImport->setCurrentWidget(m_pUi->pageUpload);
}

void CDevImport::ShowUploadRate(int nPercent)
{
    m_pUi->barUpload->setValue(nPercent);
    m_pUi->m_pUploadRate->setText(QString::number(nPercent) + QLatin1Char('%'));
}

void CDevImport::OnUploadFailed(const QString& sReason)
{
    m_pUi->lbUploadReason->setText(sReason);
    ShowUploading(false);
    if (isVisible())
        m_pUi->btnUploadBack->setFocus();
    else
        Q_EMIT SignalShowNotify(Text::tr("Failed to upload file"));
}

void CDevImport::OnUploaded()
{
    const UploadedSheet& sheet = m_pRun->GetSheet();
    if (sheet.nRows == 0) {
        const QString sText = sheet.bIntercom
            ? Text::tr("The number of intercom device is 0. Please check Excel content.")
            : CDeviceImportFile::GetStatusText(CDeviceImportFile::Status::Empty);
        m_pRun->Reset();
        ShowChoosing();
        Notify(sText, false);
        return;
    }
    const bool bAsk = sheet.bIntercom && sheet.nExisting > 0;
    const QPointer<CDevImport> guard(this);
    const bool bGoOn = !bAsk || AskOverwrite();
    if (!guard)
        return;
    if (bGoOn) {
        m_pRun->ImportUploaded(bAsk);
    } else {
        m_pRun->Reset();
        ShowChoosing();
    }
}

bool CDevImport::AskOverwrite()
{
    // A question needs its window.
    if (!isVisible())
        open();
    return Common::AskPrompt(this,
        Text::tr("Import intercom device result: %1 devices already exist. Are you sure to overwrite these "
                 "devices?")
            .arg(m_pRun->GetSheet().nExisting));
}

void CDevImport::OnProgress()
{
    const GroupLogical::ImportState_t& state = m_pRun->GetState();
    const int nPercent = GetImportPercent(state);
    m_pUi->barImport->setValue(nPercent);
    m_pUi->lbPercent->setText(QString::number(nPercent) + QLatin1Char('%'));
    m_pUi->lbLiveSuccess->setText(QString::number(GetLiveSuccesses(state, m_pRun->IsAllOrNothing())));
    m_pUi->lbLiveFail->setText(QString::number(state.nFailed));
}

void CDevImport::OnFinished()
{
    ShowOutcome();
    const bool bMayHaveAdded = m_pRun->GetState().nSucceeded > 0 || IsOutcomeUnknown(m_pRun->GetErrorCode());
    if (!isVisible())
        Q_EMIT SignalShowNotify(m_pUi->lbResult->text() + QLatin1Char(' ') + m_pUi->lbResultText->text());
    if (bMayHaveAdded)
        Q_EMIT SignalImported();
}

void CDevImport::ShowOutcome()
{
    const GroupLogical::ImportState_t& state = m_pRun->GetState();
    const ImportSummary summary = GetImportSummary(state, m_pRun->GetErrorCode(), m_pRun->GetErrorDetail());
    m_pUi->lbResultIcon->setPixmap(Trv::GetIcon(summary.sIcon).pixmap(24));
    m_pUi->lbResult->setText(summary.sTitle);
    m_pUi->lbResultText->setText(summary.sText);
    m_pUi->lbResultText->setVisible(!summary.sText.isEmpty());
    m_pUi->lbResultSuccess->setText(QString::number(state.nSucceeded));
    m_pUi->lbResultFail->setText(QString::number(state.nFailed));

    std::vector<ImportResultRow> vecRows = m_pRun->MakeResult();
    const auto nFailed =
        std::count_if(vecRows.begin(), vecRows.end(), [](const ImportResultRow& row) { return row.bFailed; });
    const bool bMixed = nFailed > 0 && nFailed < static_cast<std::ptrdiff_t>(vecRows.size());
    m_pUi->chkOnlyFailed->setVisible(bMixed);
    m_pUi->chkOnlyFailed->setChecked(bMixed);
    m_pUi->treeResult->setEnabled(!vecRows.empty());
    m_pResultModel->SetRows(std::move(vecRows));
    m_pUi->btnFailList->setVisible(!state.sFailListUrl.empty());
    m_pUi->stackImport->setCurrentWidget(m_pUi->pageResult);
    m_pUi->btnClose->setFocus();
}

void CDevImport::OnFailListClicked()
{
    const GroupLogical::ImportState_t& state = m_pRun->GetState();
    const QString sName = QString::fromStdString(state.sFailListName);
    const QString sEnding = QFileInfo(sName).suffix();
    m_pDownload->Start({QString::fromStdString(state.sFailListUrl), sName,
        QLatin1Char('.') + (sEnding.isEmpty() ? QStringLiteral("xlsx") : sEnding),
        Text::tr("The list of failed rows was downloaded."),
        Text::tr("Failed to download the list of failed rows."),
        Text::tr("Download path does not exist, failed to download the list of failed rows!")});
}

} // namespace ResourceManagerUI

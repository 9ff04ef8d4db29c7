#include "CPersonPhoto.h"

#include "CCutPhotoDlg.h"
#include "CSnapshotDlg.h"
#include "ui_CPersonPhoto.h"

#include <Trv/QSkin.h>
#include <UICommonMdl/CPhotoManager.h>
#include <UICommonMdl/ErrorCodes.h>
#include <VxGUI/VxDialogService.h>
#include <VxGUI/VxNotification.h>

#include <QStyle>
#include <QtConcurrent>

namespace BasicInfoManagerUI {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CPersonPhoto)
};

constexpr int PlaceholderSize = 48;

} // namespace

CPersonPhoto::CPersonPhoto(QWidget* pParent)
    : QWidget(pParent)
    , m_pUi(std::make_unique<Ui::CPersonPhoto>())
{
    m_pUi->setupUi(this);
    m_pUi->m_pBtnUpload->setIcon(Trv::GetIcon(QStringLiteral("upload")));
    m_pUi->m_pBtnSnapshot->setIcon(Trv::GetIcon(QStringLiteral("camera")));
    m_pUi->m_pBtnDeletePhoto->setIcon(Trv::GetIcon(QStringLiteral("delete")));
    connect(m_pUi->m_pBtnUpload, &QAbstractButton::clicked, this, &CPersonPhoto::OnUploadClicked);
    connect(m_pUi->m_pBtnSnapshot, &QAbstractButton::clicked, this, &CPersonPhoto::OnSnapshotClicked);
    connect(m_pUi->m_pBtnDeletePhoto, &QAbstractButton::clicked, this, &CPersonPhoto::OnDeleteClicked);
    connect(&m_watcher, &QFutureWatcherBase::finished, this, &CPersonPhoto::OnRead);
    connect(UICommonMdl::CGlobalPhotoManager::GetPhotoManager(),
        &UICommonMdl::CPhotoManager::SignalDownLoadFinish, this,
        [this](int, int nErrorCode, const QString& sUrl) { OnDownloaded(nErrorCode, sUrl); });
    ShowPhoto({});
}

CPersonPhoto::~CPersonPhoto() = default;

void CPersonPhoto::SetPerson(const AccessControlLogical::Person_t& person)
{
    if (m_pDialog)
        delete m_pDialog;
    m_reading = Reading::None;
    m_sUrl = person.sPhotoUrl;
    m_sData = person.sPhotoData;
    ShowPhoto({});
    if (!m_sData.empty())
        ShowPhoto(ReadPhotoData(QByteArray::fromBase64(QByteArray::fromStdString(m_sData))));
    else if (!m_sUrl.empty())
        ReadStored();
}

void CPersonPhoto::FillPerson(AccessControlLogical::Person_t& person) const
{
    person.sPhotoUrl = m_sUrl;
    person.sPhotoData = m_sData;
}

void CPersonPhoto::SetReadOnly(bool bReadOnly)
{
    m_bReadOnly = bReadOnly;
    UpdateButtons();
}

void CPersonPhoto::SetConnected(bool bConnected)
{
    if (bConnected && !m_bShown && !m_sUrl.empty() && m_reading == Reading::None)
        ReadStored();
}

void CPersonPhoto::ReadStored()
{
    UICommonMdl::CPhotoManager* const pPhotos = UICommonMdl::CGlobalPhotoManager::GetPhotoManager();
    const QString sUrl = QString::fromStdString(m_sUrl);
    const QString sPath = pPhotos->GetLocalPathByUrl(sUrl);
    if (!sPath.isEmpty())
        Read(Reading::Stored, sPath);
    else if (pPhotos->DownloadPictureByUrl(sUrl) > 0)
        ShowState(Text::tr("Loading"));
    else
        ShowState(Text::tr("Failed to load picture."), true);
}

void CPersonPhoto::OnDownloaded(int nErrorCode, const QString& sUrl)
{
    if (m_sUrl.empty() || sUrl != QString::fromStdString(m_sUrl) || m_reading != Reading::None)
        return;
    const QString sPath = UICommonMdl::CGlobalPhotoManager::GetPhotoManager()->GetLocalPathByUrl(sUrl);
    if (nErrorCode == UICommonMdl::ErrorNone && !sPath.isEmpty())
        Read(Reading::Stored, sPath);
    else
        ShowState(Text::tr("Failed to load picture."), true);
}

void CPersonPhoto::Read(Reading reading, const QString& sPath)
{
    m_reading = reading;
    ShowState(Text::tr("Loading"));
    m_watcher.setFuture(QtConcurrent::run(&ReadPhotoFile, sPath));
    UpdateButtons();
}

void CPersonPhoto::OnRead()
{
    const Reading reading = std::exchange(m_reading, Reading::None);
    UpdateButtons();
    if (reading == Reading::None)
        return;
    const QImage image = m_watcher.result();
    if (reading == Reading::Stored) {
        ShowPhoto(image);
        if (image.isNull())
            ShowState(Text::tr("Failed to load picture."), true);
        return;
    }
    // What was shown before still is, or was about to be.
    if (!m_bShown && !m_sUrl.empty())
        ReadStored();
    else
        ShowState(m_bShown ? Text::tr("Normal") : QStringLiteral("-"));
    if (image.isNull())
        VxGUI::VxNotification::Show(this, Text::tr("Failed to load picture."));
    else
        Cut(image);
}

void CPersonPhoto::OnUploadClicked()
{
    const QString sPath = VxGUI::VxDialogService::Current()->OpenFile(
        this, Text::tr("Select a picture"), QString(), QStringLiteral("*.jpg"));
    if (!sPath.isEmpty())
        Read(Reading::Chosen, sPath);
}

void CPersonPhoto::OnSnapshotClicked()
{
    auto* const pDialog = new CSnapshotDlg(this);
    m_pDialog = pDialog;
    connect(pDialog, &CSnapshotDlg::SignalPicture, this, &CPersonPhoto::Cut, Qt::QueuedConnection);
    pDialog->open();
}

void CPersonPhoto::Cut(const QImage& image)
{
    auto* const pDialog = new CCutPhotoDlg(image, this);
    m_pDialog = pDialog;
    connect(pDialog, &CCutPhotoDlg::SignalPhoto, this, &CPersonPhoto::SetPhotoData);
    pDialog->open();
}

void CPersonPhoto::SetPhotoData(const QByteArray& baJpeg)
{
    m_reading = Reading::None;
    m_sUrl.clear();
    m_sData = baJpeg.toBase64().toStdString();
    ShowPhoto(ReadPhotoData(baJpeg));
    Q_EMIT SignalChanged();
}

void CPersonPhoto::OnDeleteClicked()
{
    m_reading = Reading::None;
    m_sUrl.clear();
    m_sData.clear();
    ShowPhoto({});
    m_pUi->m_pBtnUpload->setFocus();
    Q_EMIT SignalChanged();
}

void CPersonPhoto::ShowPhoto(const QImage& image)
{
    m_bShown = !image.isNull();
    if (image.isNull()) {
        m_pUi->lbPhoto->setPixmap(
            Trv::GetIcon(QStringLiteral("user")).pixmap(QSize(PlaceholderSize, PlaceholderSize)));
        ShowState(QStringLiteral("-"));
    } else {
        const qreal dRatio = devicePixelRatioF();
        QPixmap pixmap = QPixmap::fromImage(image.scaled(
            m_pUi->lbPhoto->contentsRect().size() * dRatio, Qt::KeepAspectRatio, Qt::SmoothTransformation));
        pixmap.setDevicePixelRatio(dRatio);
        m_pUi->lbPhoto->setPixmap(pixmap);
        ShowState(Text::tr("Normal"));
    }
    UpdateButtons();
}

void CPersonPhoto::ShowFailure(const QString& sText)
{
    ShowState(sText, true);
    m_pUi->m_pBtnUpload->setFocus();
}

void CPersonPhoto::ShowState(const QString& sText, bool bFailed)
{
    m_pUi->lbPhotoStatus->setText(sText);
    m_pUi->lbPhotoStatus->setProperty("failed", bFailed);
    m_pUi->lbPhotoStatus->style()->unpolish(m_pUi->lbPhotoStatus);
    m_pUi->lbPhotoStatus->style()->polish(m_pUi->lbPhotoStatus);
}

void CPersonPhoto::UpdateButtons()
{
    const bool bPhoto = !m_sUrl.empty() || !m_sData.empty();
    m_pUi->wgtPhotoButtons->setVisible(!m_bReadOnly);
    m_pUi->m_pBtnUpload->setEnabled(m_reading != Reading::Chosen);
    m_pUi->m_pBtnSnapshot->setEnabled(m_reading != Reading::Chosen);
    m_pUi->m_pBtnDeletePhoto->setEnabled(bPhoto && m_reading != Reading::Chosen);
}

} // namespace BasicInfoManagerUI

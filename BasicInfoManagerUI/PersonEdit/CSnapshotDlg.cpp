#include "CSnapshotDlg.h"

#include "PersonFields.h"

#include <Trv/QSkin.h>
#include <VxGUI/VxEmptyState.h>

#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QPushButton>
#include <QStackedWidget>
#include <QTimer>
#include <QVBoxLayout>

namespace BasicInfoManagerUI {

namespace {
struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CSnapshotDlg)
};
} // namespace

CSnapshotDlg::CSnapshotDlg(QWidget* pParent)
    : QDialog(pParent)
    , m_pStack(new QStackedWidget(this))
    , m_pState(new VxGUI::VxEmptyState(m_pStack))
    , m_pTake(new QPushButton(Trv::GetIcon(QStringLiteral("camera")), Text::tr("Snaphot"), this))
{
    setObjectName(QStringLiteral("CSnapshotDlg"));
    setAttribute(Qt::WA_DeleteOnClose);
    setModal(true);
    setWindowTitle(Text::tr("Snaphot"));
    m_pStack->setMinimumSize(480, 360);
    m_pStack->addWidget(m_pState);
    m_pTake->setObjectName(QStringLiteral("btnTakePicture"));
    auto* const pButtons = new QDialogButtonBox(QDialogButtonBox::Cancel, this);
    pButtons->addButton(m_pTake, QDialogButtonBox::ActionRole);
    PersonFields::MakePrimary(m_pTake);
    auto* const pLayout = new QVBoxLayout(this);
    pLayout->setContentsMargins(16, 16, 16, 16);
    pLayout->setSpacing(12);
    pLayout->addWidget(m_pStack, 1);
    pLayout->addWidget(pButtons);
    connect(m_pTake, &QPushButton::clicked, this, &CSnapshotDlg::OnTakeClicked);
    connect(pButtons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(m_pState, &VxGUI::VxEmptyState::SignalAction, this, &CSnapshotDlg::StartCamera);
    StartCamera();
}

CSnapshotDlg::~CSnapshotDlg()
{
    // A camera that is being stopped still speaks.
    m_pCamera->disconnect(this);
}

void CSnapshotDlg::StartCamera()
{
    m_pState->SetState(VxGUI::VxEmptyState::Kind::Loading, Text::tr("The camera is being opened."));
    m_pStack->setCurrentWidget(m_pState);
    m_pTake->setEnabled(false);
    m_pCamera = CCameraSource::Create();
    delete m_pViewfinder;
    m_pViewfinder = m_pCamera->MakeViewfinder(m_pStack);
    m_pStack->addWidget(m_pViewfinder);
    connect(m_pCamera.get(), &CCameraSource::SignalReady, this, [this] {
        m_pStack->setCurrentWidget(m_pViewfinder);
        m_pTake->setEnabled(true);
    });
    connect(m_pCamera.get(), &CCameraSource::SignalFailed, this, &CSnapshotDlg::OnFailed);
    connect(m_pCamera.get(), &CCameraSource::SignalPicture, this, [this](const QImage& image) {
        if (image.isNull()) {
            OnFailed(Text::tr("The camera delivered no picture."));
            return;
        }
        Q_EMIT SignalPicture(image);
        accept();
    });
    // The window stands before a slow camera holds it up.
    QTimer::singleShot(0, m_pCamera.get(), [pCamera = m_pCamera.get()] { pCamera->Start(); });
}

void CSnapshotDlg::OnTakeClicked()
{
    m_pTake->setEnabled(false);
    m_pCamera->Take();
}

void CSnapshotDlg::OnFailed(const QString& sText)
{
    m_pTake->setEnabled(false);
    m_pState->SetState(VxGUI::VxEmptyState::Kind::Failed, Text::tr("The camera cannot be used."), sText,
        Text::tr("Try Again"));
    m_pStack->setCurrentWidget(m_pState);
}

} // namespace BasicInfoManagerUI

#include "CDisplayQRcodeDlg.h"

#include <UICommonMdl/CErrorCode.h>
#include <UICommonMdl/CQrCode.h>
#include <VxGUI/VxEmptyState.h>
#include <common/StyleSheet.h>

#include <QCoreApplication>
#include <QDateTime>
#include <QLabel>
#include <QLocale>
#include <QStackedLayout>
#include <QVBoxLayout>

namespace BasicInfoManagerUI {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CDisplayQRcodeDlg)
};

constexpr QSize DialogSize(400, 300);
constexpr int CodeSide = 220;

} // namespace

CDisplayQRcodeDlg::CDisplayQRcodeDlg(
    const UICommonMdl::CInterfaceSetManager* pInterfaceSet, const QString& sPersonId, QWidget* pParent)
    : QDialog(pParent)
    , m_sPersonId(sPersonId)
    , m_pCode(new QLabel)
    , m_pValid(new QLabel)
    , m_pCodePage(new QWidget)
    , m_pState(new VxGUI::VxEmptyState)
    , m_pPages(new QStackedLayout(this))
    , m_timer(this)
    , m_session(pInterfaceSet, this)
    , m_calls(pInterfaceSet, this)
{
    setObjectName(QStringLiteral("CDisplayQRcodeDlg"));
    setWindowTitle(Text::tr("Display QR Code"));
    setAttribute(Qt::WA_DeleteOnClose);
    setModal(true);
    setFixedSize(DialogSize);
    m_pCode->setObjectName(QStringLiteral("lbQrCode"));
    m_pCode->setAlignment(Qt::AlignCenter);
    m_pCode->setAccessibleName(Text::tr("QR code of the person %1").arg(sPersonId));
    m_pValid->setObjectName(QStringLiteral("lbValidTo"));
    m_pValid->setAlignment(Qt::AlignCenter);
    m_pState->setObjectName(QStringLiteral("wgtQrState"));
    auto* pLayout = new QVBoxLayout(m_pCodePage);
    pLayout->addWidget(m_pCode, 1);
    pLayout->addWidget(m_pValid);
    m_pPages->addWidget(m_pState);
    m_pPages->addWidget(m_pCodePage);
    connect(&m_session, &Common::CSession::SignalConnectionChanged, this,
        &CDisplayQRcodeDlg::OnConnectionChanged);
    connect(m_pState, &VxGUI::VxEmptyState::SignalAction, this, &CDisplayQRcodeDlg::Query);
    m_timer.setObjectName(QStringLiteral("timerQrCode"));
    connect(&m_timer, &QTimer::timeout, this, &CDisplayQRcodeDlg::Query);
    Common::LoadStyleSheet(this, QStringLiteral("BasicInfoManagerUI/Personnel"));
}

void CDisplayQRcodeDlg::Start()
{
    m_timer.start(RefreshMs);
    Query();
}

void CDisplayQRcodeDlg::OnConnectionChanged(bool bConnected)
{
    if (bConnected)
        Query();
    else if (m_pPages->currentWidget() != m_pCodePage)
        ShowFailed(UICommonMdl::ErrorDisconnected);
}

void CDisplayQRcodeDlg::Query()
{
    m_calls.Latest<&AccessControlLogical::IAccessControlManager::QueryQrCode>(
        m_sPersonId.toStdString(), [this](const Param& param) { OnAnswer(param); });
    // The code of before serves until the fresh one is there.
    if (m_pPages->currentWidget() == m_pCodePage)
        return;
    m_pState->SetState(VxGUI::VxEmptyState::Kind::Loading, Text::tr("Loading the QR code"));
}

void CDisplayQRcodeDlg::OnAnswer(const Param& param)
{
    if (param.nErrorCode != UICommonMdl::ErrorNone) {
        ShowFailed(param.nErrorCode);
        return;
    }
    const qreal fRatio = devicePixelRatioF();
    QImage image =
        UICommonMdl::CQrCode::Encode(QString::fromStdString(param.qrCode.sText), qRound(CodeSide * fRatio));
    if (image.isNull()) {
        ShowFailed(UICommonMdl::ErrorBadAnswer);
        return;
    }
    image.setDevicePixelRatio(fRatio);
    m_pCode->setPixmap(QPixmap::fromImage(image));
    const QDateTime validTo = QDateTime::fromSecsSinceEpoch(param.qrCode.nValidTo);
    m_pValid->setVisible(param.qrCode.nValidTo > 0);
    m_pValid->setText(
        Text::tr("Valid until %1").arg(validTo.toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"))));
    m_pPages->setCurrentWidget(m_pCodePage);
}

void CDisplayQRcodeDlg::ShowFailed(int nErrorCode)
{
    const bool bNoRight = nErrorCode == UICommonMdl::ErrorNoRight;
    m_pState->SetState(bNoRight ? VxGUI::VxEmptyState::Kind::NoPermission : VxGUI::VxEmptyState::Kind::Failed,
        Text::tr("Failed to get the QR code"), UICommonMdl::CErrorCode::GetErroCodeInfor(nErrorCode),
        bNoRight ? QString() : Text::tr("Refresh"));
    m_pPages->setCurrentWidget(m_pState);
}

} // namespace BasicInfoManagerUI

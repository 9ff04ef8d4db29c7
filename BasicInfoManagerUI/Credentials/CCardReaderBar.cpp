#include "CCardReaderBar.h"

#include "CCardReadManager.h"
#include "CReadCard.h"
#include "CredentialRules.h"
#include "ui_CCardReaderBar.h"

#include <Trv/QSkin.h>
#include <UICommonMdl/ILocalConfig.h>
#include <VxGUI/VxNotification.h>

#include <QStyle>

namespace BasicInfoManagerUI {

namespace {
struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CCardReaderBar)
};
} // namespace

CCardReaderBar::CCardReaderBar(QWidget* pParent)
    : QWidget(pParent)
    , m_pUi(std::make_unique<Ui::CCardReaderBar>())
    , m_nReaderType(CardReader::ReaderTypeNone)
    , m_pReadCard(new CReadCard(this))
{
    m_pUi->setupUi(this);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    // A long name of a reader is cut instead of widening the form.
    m_pUi->lbReaderState->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    m_pUi->m_pBtnReadCard->setIcon(Trv::GetIcon(QStringLiteral("card")));
    connect(m_pUi->m_pBtnReadCard, &QAbstractButton::clicked, this, &CCardReaderBar::OnReadClicked);
    connect(m_pUi->m_pBtnReaderManager, &QAbstractButton::clicked, this, &CCardReaderBar::ChooseReader);
    connect(m_pReadCard, &CReadCard::SignalReaderConnected, this, &CCardReaderBar::OnReaderConnected);
    connect(m_pReadCard, &CReadCard::SignalReadCardNO, this, [this](const QString& sRead) {
        const QString sFailure = CredentialRules::CheckReadCardNo(sRead);
        if (sFailure.isEmpty())
            Q_EMIT SignalCardNo(sRead.toUpper());
        else
            Q_EMIT SignalBadCard(sFailure);
    });
}

CCardReaderBar::~CCardReaderBar() = default;

void CCardReaderBar::OnReadClicked(bool bRead)
{
    if (!bRead) {
        StopReading();
        return;
    }
    if (m_pConfig) {
        m_nReaderType = m_pConfig->GetValue(CCardReadManager::TypeKey, CardReader::ReaderTypeNone).toInt();
        m_sReaderName = m_pConfig->GetValue(CCardReadManager::ReaderKey).toString();
    }
    if (m_nReaderType == CardReader::ReaderTypeNone) {
        m_pUi->m_pBtnReadCard->setChecked(false);
        VxGUI::VxNotification::Show(
            this, Text::tr("Please select a reader."), VxGUI::NotificationKind::Warning);
        m_pUi->m_pBtnReaderManager->setFocus();
        return;
    }
    StartReading();
}

void CCardReaderBar::StartReading()
{
    m_pUi->m_pBtnReadCard->setChecked(true);
    OnReaderConnected(m_pReadCard->Start(m_nReaderType, m_sReaderName));
}

void CCardReaderBar::StopReading()
{
    m_pReadCard->Stop();
    m_pUi->m_pBtnReadCard->setChecked(false);
    ShowState({});
}

void CCardReaderBar::SetPaused(bool bPaused)
{
    m_pReadCard->SetPaused(bPaused);
}

void CCardReaderBar::OnReaderConnected(bool bConnected)
{
    if (bConnected) {
        ShowState(Text::tr("Put a card on the reader."));
        return;
    }
    ShowState(Text::tr("Card Reader Disconnected"), true);
    VxGUI::VxNotification::Show(this, Text::tr("Card Reader Disconnected"));
}

void CCardReaderBar::ShowState(const QString& sText, bool bLost)
{
    QLabel* const pLabel = m_pUi->lbReaderState;
    pLabel->setText(sText);
    pLabel->setToolTip(sText);
    pLabel->setProperty("lost", bLost);
    pLabel->style()->unpolish(pLabel);
    pLabel->style()->polish(pLabel);
}

void CCardReaderBar::ChooseReader()
{
    // Two cannot have one reader open: the dialog looks for the readers that are free.
    const bool bWasReading = m_pReadCard->IsReading();
    StopReading();
    auto* const pDialog = new CCardReadManager(m_pConfig, this);
    connect(pDialog, &CCardReadManager::SignalReaderChosen, this,
        [this](int nReaderType, const QString& sReaderName) {
            m_nReaderType = nReaderType;
            m_sReaderName = sReaderName;
        });
    connect(pDialog, &QDialog::finished, this, [this, bWasReading] {
        if (bWasReading)
            OnReadClicked(true);
    });
    pDialog->open();
}

void CCardReaderBar::hideEvent(QHideEvent* pEvent)
{
    QWidget::hideEvent(pEvent);
    // Another page may want the reader. A minimised window keeps it.
    if (!pEvent->spontaneous())
        StopReading();
}

} // namespace BasicInfoManagerUI

#include "CReadCard.h"

#include "CredentialLog.h"

namespace BasicInfoManagerUI {

namespace {
constexpr int PollInterval = 1000;
} // namespace

CReadCard::CReadCard(QObject* pParent)
    : QObject(pParent)
{
    m_timer.setInterval(PollInterval);
    connect(&m_timer, &QTimer::timeout, this, &CReadCard::OnTimer);
}

bool CReadCard::Start(int nReaderType, const QString& sReaderName)
{
    m_nReaderType = nReaderType;
    m_sReaderName = sReaderName;
    m_bPaused = false;
    m_bConnected = FindAndOpen();
    m_timer.start();
    if (!m_bConnected)
        qCInfo(LogCredentials, "Find Card Reader Device failed");
    return m_bConnected;
}

void CReadCard::Stop()
{
    m_timer.stop();
    m_issuer.StopReadCard();
    m_bConnected = false;
}

bool CReadCard::FindAndOpen()
{
    return m_issuer.FindReadCardDevice(m_nReaderType) && m_issuer.OpenReadCardDevice(m_sReaderName);
}

void CReadCard::OnTimer()
{
    const bool bWasConnected = m_bConnected;
    m_bConnected = m_issuer.IsOpen() || (!bWasConnected && FindAndOpen());
    if (m_bConnected != bWasConnected) {
        if (!m_bConnected)
            qCInfo(LogCredentials, "Card reader lost");
        Q_EMIT SignalReaderConnected(m_bConnected);
    }
    if (!m_bConnected || m_bPaused)
        return;
    const QString sCardNo = m_issuer.ReadIDICCardNo();
    if (sCardNo.isEmpty())
        return;
    m_issuer.SendSuccessPrompt();
    Q_EMIT SignalReadCardNO(sCardNo);
}

} // namespace BasicInfoManagerUI

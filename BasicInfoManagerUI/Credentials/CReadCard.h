#pragma once

#include <CardReader/CardIssuer.h>

#include <QTimer>

namespace BasicInfoManagerUI {

/// Asks a card-issuing reader once a second for the card that was put on it, and finds the reader again after
/// it was lost. User-interface thread.
class CReadCard : public QObject
{
    Q_OBJECT

public:
    explicit CReadCard(QObject* pParent = nullptr);

    /// Reads from now on; false when the reader is not there yet: it is looked for then, each second. An
    /// empty name: the first reader of the type.
    bool Start(int nReaderType, const QString& sReaderName);
    void Stop();
    bool IsReading() const { return m_timer.isActive(); }
    /// While it is paused no card is taken; the reader stays open.
    void SetPaused(bool bPaused) { m_bPaused = bPaused; }

Q_SIGNALS:
    /// What the card said, as the reader delivered it.
    void SignalReadCardNO(const QString& sCardNo);
    /// The reader was lost (false) or found again.
    void SignalReaderConnected(bool bConnected);

private:
    bool FindAndOpen();
    void OnTimer();

    CardReader::CardIssuer m_issuer;
    QTimer m_timer;
    int m_nReaderType = CardReader::ReaderTypeNone;
    QString m_sReaderName;
    bool m_bConnected = false;
    bool m_bPaused = false;
};

} // namespace BasicInfoManagerUI

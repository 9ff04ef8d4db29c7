#pragma once

#include <QProcess>
#include <QTcpSocket>
#include <QTemporaryDir>

#include <memory>

/// The PC/SC service with one virtual reader of its own, reachable by this process only. Ends with the
/// object.
class PcscDaemon
{
public:
    PcscDaemon();
    ~PcscDaemon();
    PcscDaemon(const PcscDaemon&) = delete;
    PcscDaemon& operator=(const PcscDaemon&) = delete;

    /// False when this user may not give it a network of its own.
    static bool CanRun();
    /// False, with a failure of the test, when it does not run.
    bool Start();
    /// Kills it, as when it crashes.
    void Kill();

    /// Puts a card with that UID (digits in hexadecimal) on the reader; the one that is there is taken away.
    void PutCard(const QByteArray& abUid);
    void TakeCard();
    bool HasCard() const { return m_pCard != nullptr; }
    /// The card is taken away when it is asked for its UID.
    void TakeCardWhenRead() { m_bTakeWhenRead = true; }

private:
    class Process;
    void OnReadyRead();
    void Send(const QByteArray& abMessage);

    QTemporaryDir m_folder;
    std::unique_ptr<Process> m_pProcess;
    std::unique_ptr<QTcpSocket> m_pCard;
    QByteArray m_abReceived;
    QByteArray m_abUid;
    bool m_bTakeWhenRead = false;
};

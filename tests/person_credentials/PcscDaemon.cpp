#include "PcscDaemon.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QFile>
#include <QtEndian>

#include <gtest/gtest.h>

#include <arpa/inet.h>
#include <fcntl.h>
#include <net/if.h>
#include <sched.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

constexpr int DeadlineMs = 20000;
constexpr const char* Program = "/usr/sbin/pcscd";
constexpr const char* Driver = "/usr/lib/pcsc/drivers/serial/libifdvpcd.so";
/// The descriptor at which a service finds the socket that was opened for it.
constexpr int FirstPassedSocket = 3;
/// Where the virtual reader waits for its card, in a network of its own.
constexpr quint16 ReaderPort = 35963;
const QByteArray Atr = QByteArray::fromHex("3B8F8001804F0CA000000306030001000000006A");

/// The service of this process. Its client library looks once a process for the name, so that it is said
/// before anything can ask.
const QByteArray SocketPath = [] {
    const QByteArray abPath = "/tmp/pcsc-test-" + QByteArray::number(getpid());
    qputenv("PCSCLITE_CSOCK_NAME", abPath);
    return abPath;
}();

int ListenAt(const QByteArray& abPath)
{
    const int nSocket = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    qstrncpy(address.sun_path, abPath.constData(), sizeof address.sun_path);
    unlink(address.sun_path);
    if (bind(nSocket, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0
        || listen(nSocket, 8) != 0) {
        close(nSocket);
        return -1;
    }
    return nSocket;
}

/// The virtual reader listens on every address of the machine: it gets one of its own, with nothing but
/// loopback. In the child, before the program starts.
void EnterOwnNetwork()
{
    if (unshare(CLONE_NEWNET) != 0)
        _exit(1);
    const int nSocket = socket(AF_INET, SOCK_DGRAM, 0);
    ifreq request{};
    qstrncpy(request.ifr_name, "lo", sizeof request.ifr_name);
    request.ifr_flags = IFF_UP | IFF_RUNNING;
    if (ioctl(nSocket, SIOCSIFFLAGS, &request) != 0)
        _exit(1);
    close(nSocket);
}

/// A socket in the network of that process; -1 when it cannot be made.
int SocketIn(qint64 nProcess)
{
    const int nOwn = open("/proc/thread-self/ns/net", O_RDONLY | O_CLOEXEC);
    const int nOther = open(("/proc/" + std::to_string(nProcess) + "/ns/net").c_str(), O_RDONLY | O_CLOEXEC);
    int nSocket = -1;
    if (nOther >= 0 && setns(nOther, CLONE_NEWNET) == 0) {
        nSocket = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
        EXPECT_EQ(setns(nOwn, CLONE_NEWNET), 0);
    }
    close(nOther);
    close(nOwn);
    return nSocket;
}

} // namespace

/// Hands the socket over as the system's service manager does.
class PcscDaemon::Process : public QProcess
{
public:
    explicit Process(int nSocket)
        : m_nSocket(nSocket)
    {
    }

protected:
    void setupChildProcess() override
    {
        EnterOwnNetwork();
        dup2(m_nSocket, FirstPassedSocket);
        setenv("LISTEN_PID", std::to_string(getpid()).c_str(), 1);
        setenv("LISTEN_FDS", "1", 1);
    }

private:
    int m_nSocket;
};

PcscDaemon::PcscDaemon() = default;

PcscDaemon::~PcscDaemon()
{
    Kill();
}

bool PcscDaemon::CanRun()
{
    return geteuid() == 0;
}

bool PcscDaemon::Start()
{
    const QString sConfig = m_folder.filePath(QStringLiteral("readers"));
    QFile config(sConfig);
    EXPECT_TRUE(config.open(QIODevice::WriteOnly));
    config.write(QStringLiteral(
        "FRIENDLYNAME \"Test Reader\"\nDEVICENAME /dev/null:0x%1\nLIBPATH %2\nCHANNELID 0x%1\n")
                     .arg(QString::number(ReaderPort, 16), QLatin1String(Driver))
                     .toLatin1());
    config.close();
    const int nSocket = ListenAt(SocketPath);
    EXPECT_GE(nSocket, 0);
    m_pProcess = std::make_unique<Process>(nSocket);
    m_pProcess->setProcessChannelMode(QProcess::MergedChannels);
    m_pProcess->start(QLatin1String(Program),
        {QStringLiteral("--foreground"), QStringLiteral("--debug"), QStringLiteral("--config"), sConfig});
    EXPECT_TRUE(m_pProcess->waitForStarted(DeadlineMs));
    close(nSocket);
    QByteArray abLog;
    while (!abLog.contains("daemon ready") && m_pProcess->waitForReadyRead(DeadlineMs))
        abLog += m_pProcess->readAll();
    EXPECT_TRUE(abLog.contains("daemon ready")) << abLog.toStdString();
    return abLog.contains("daemon ready");
}

void PcscDaemon::Kill()
{
    TakeCard();
    if (!m_pProcess)
        return;
    m_pProcess->kill();
    m_pProcess->waitForFinished(DeadlineMs);
    m_pProcess.reset();
    unlink(SocketPath.constData());
}

void PcscDaemon::PutCard(const QByteArray& abUid)
{
    TakeCard();
    m_abUid = abUid;
    m_pCard = std::make_unique<QTcpSocket>();
    QObject::connect(m_pCard.get(), &QTcpSocket::readyRead, m_pCard.get(), [this] { OnReadyRead(); });
    // The reader takes the next card only after it has seen that the one before is gone.
    const QDeadlineTimer deadline(DeadlineMs);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(ReaderPort);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    int nSocket = SocketIn(m_pProcess->processId());
    while (connect(nSocket, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) {
        ASSERT_FALSE(deadline.hasExpired());
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
        close(nSocket);
        nSocket = SocketIn(m_pProcess->processId());
    }
    ASSERT_TRUE(m_pCard->setSocketDescriptor(nSocket));
}

void PcscDaemon::TakeCard()
{
    m_abReceived.clear();
    if (!m_pCard)
        return;
    m_pCard->abort();
    m_pCard.release()->deleteLater();
}

void PcscDaemon::Send(const QByteArray& abMessage)
{
    QByteArray abLength(2, '\0');
    qToBigEndian(quint16(abMessage.size()), abLength.data());
    m_pCard->write(abLength + abMessage);
}

void PcscDaemon::OnReadyRead()
{
    constexpr char CommandAtr = 4;
    static const QByteArray s_abGetUid = QByteArray::fromHex("FFCA000000");
    m_abReceived += m_pCard->readAll();
    while (m_abReceived.size() >= 2) {
        const int nLength = qFromBigEndian<quint16>(m_abReceived.constData());
        if (m_abReceived.size() < 2 + nLength)
            return;
        const QByteArray abMessage = m_abReceived.mid(2, nLength);
        m_abReceived.remove(0, 2 + nLength);
        if (nLength == 1) {
            if (abMessage[0] == CommandAtr)
                Send(Atr);
            continue;
        }
        if (std::exchange(m_bTakeWhenRead, false)) {
            TakeCard();
            return;
        }
        Send(abMessage == s_abGetUid ? QByteArray::fromHex(m_abUid) + QByteArray::fromHex("9000")
                                     : QByteArray::fromHex("6D00"));
    }
}

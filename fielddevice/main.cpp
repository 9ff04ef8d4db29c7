#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <arpa/inet.h>
#include <csignal>
#include <cstdio>
#include <netinet/in.h>
#include <sys/epoll.h>
#include <sys/signalfd.h>
#include <sys/socket.h>
#include <unistd.h>

#include <optional>
#include <vector>

namespace {

struct Address
{
    QByteArray host;
    quint16 nPort = 0;
};

/// The addresses that are to answer; nullopt when the file cannot be read or names an address outside of
/// loopback.
std::optional<std::vector<Address>> ReadDevices(const QString& sPath)
{
    QFile file(sPath);
    if (!file.open(QIODevice::ReadOnly)) {
        std::fprintf(stderr, "%s cannot be read\n", qPrintable(sPath));
        return std::nullopt;
    }
    const QJsonDocument document = QJsonDocument::fromJson(file.readAll());
    if (!document.object().value(QStringLiteral("devices")).isArray()) {
        std::fprintf(stderr, "%s is not a list of devices\n", qPrintable(sPath));
        return std::nullopt;
    }
    std::vector<Address> vecAddresses;
    for (const auto value : document.object().value(QStringLiteral("devices")).toArray()) {
        const QJsonObject device = value.toObject();
        const QByteArray host = device.value(QStringLiteral("address")).toString().toLatin1();
        const int nPort = device.value(QStringLiteral("port")).toInt();
        in_addr address{};
        if (inet_pton(AF_INET, host.constData(), &address) != 1 || ntohl(address.s_addr) >> 24U != 127
            || nPort < 1 || nPort > 65535) {
            std::fprintf(stderr, "%s:%d is not a loopback address\n", host.constData(), nPort);
            return std::nullopt;
        }
        if (device.value(QStringLiteral("listen")).toBool())
            vecAddresses.push_back({host, static_cast<quint16>(nPort)});
    }
    return vecAddresses;
}

/// A listening socket, below 0 when the address is taken.
int Listen(const Address& address)
{
    const int nSocket = socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
    const int nYes = 1;
    setsockopt(nSocket, SOL_SOCKET, SO_REUSEADDR, &nYes, sizeof(nYes));
    sockaddr_in bound{};
    bound.sin_family = AF_INET;
    bound.sin_port = htons(address.nPort);
    inet_pton(AF_INET, address.host.constData(), &bound.sin_addr);
    if (bind(nSocket, reinterpret_cast<sockaddr*>(&bound), sizeof(bound)) == 0
        && listen(nSocket, SOMAXCONN) == 0)
        return nSocket;
    std::fprintf(stderr, "%s:%d cannot be listened on\n", address.host.constData(), address.nPort);
    close(nSocket);
    return -1;
}

void Watch(int nPoll, int nDescriptor)
{
    epoll_event event{};
    event.events = EPOLLIN;
    event.data.fd = nDescriptor;
    epoll_ctl(nPoll, EPOLL_CTL_ADD, nDescriptor, &event);
}

bool IsInputClosed()
{
    char buffer[256];
    return read(STDIN_FILENO, buffer, sizeof(buffer)) <= 0;
}

void TakeConnections(int nListener)
{
    for (int nPeer = accept(nListener, nullptr, nullptr); nPeer >= 0;
         nPeer = accept(nListener, nullptr, nullptr))
        close(nPeer);
}

void Run(int nPoll, int nSignals)
{
    epoll_event events[64];
    for (;;) {
        const int nReady = epoll_wait(nPoll, events, 64, -1);
        for (int i = 0; i < nReady; ++i) {
            const int nDescriptor = events[i].data.fd;
            if (nDescriptor == nSignals || (nDescriptor == STDIN_FILENO && IsInputClosed()))
                return;
            if (nDescriptor != STDIN_FILENO)
                TakeConnections(nDescriptor);
        }
    }
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("fielddevice"));
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Simulated field devices that take connections on loopback addresses."));
    parser.addHelpOption();
    parser.addOption(
        {QStringLiteral("devices"), QStringLiteral("List of the devices."), QStringLiteral("FILE")});
    parser.addOption(
        {QStringLiteral("exit-with-parent"), QStringLiteral("End when the standard input is closed.")});
    parser.process(application);

    const auto optAddresses = ReadDevices(parser.value(QStringLiteral("devices")));
    if (!optAddresses)
        return 2;

    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGTERM);
    sigaddset(&signals, SIGINT);
    sigprocmask(SIG_BLOCK, &signals, nullptr);
    const int nSignals = signalfd(-1, &signals, SFD_CLOEXEC);
    const int nPoll = epoll_create1(EPOLL_CLOEXEC);
    Watch(nPoll, nSignals);
    if (parser.isSet(QStringLiteral("exit-with-parent")))
        Watch(nPoll, STDIN_FILENO);
    int nListening = 0;
    for (const Address& address : *optAddresses) {
        const int nListener = Listen(address);
        if (nListener < 0)
            continue;
        Watch(nPoll, nListener);
        ++nListening;
    }
    std::printf("ready %d\n", nListening);
    std::fflush(stdout);
    Run(nPoll, nSignals);
    return 0;
}

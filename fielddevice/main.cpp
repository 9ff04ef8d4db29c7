#include "Connections.h"
#include "Control.h"
#include "DeviceList.h"
#include "Gates.h"
#include "Responder.h"

#include <server/devices/FieldDeviceDriver.h>
#include <server/devices/OnvifDriver.h>

#include <QCommandLineParser>
#include <QCoreApplication>

#include <csignal>
#include <cstdio>
#include <sys/resource.h>
#include <sys/signalfd.h>
#include <unistd.h>

namespace {

using namespace FieldDevice;

constexpr int ExitUsage = 2;

void AddOptions(QCommandLineParser& parser)
{
    const auto add = [&](const char* szName, const char* szText, const char* szValue = "") {
        parser.addOption({QLatin1String(szName), QLatin1String(szText), QLatin1String(szValue)});
    };
    parser.setApplicationDescription(QStringLiteral("Simulated field devices on loopback addresses."));
    parser.addHelpOption();
    add("devices", "List of the devices.", "FILE");
    add("dozen", "A dozen devices on 127.30.0.1 to 127.30.0.12, user \"admin\", password \"Field-2024\".");
    add("state", "Keeps what is set on the devices over restarts.", "FILE");
    add("control", "Port to change and show devices by, on 127.0.0.1; 0: any.", "PORT");
    add("discovery-port", "UDP port of the devices' own discovery; 0: any.", "PORT");
    add("onvif-discovery-port", "UDP port of the discovery of ONVIF devices; 0: any.", "PORT");
    add("exit-with-parent", "End when the standard input is closed.");
}

/// The value of an option; nDefault when it is not given. Throws std::runtime_error.
int PortOption(const QCommandLineParser& parser, const char* szName, int nDefault)
{
    const QString sValue = parser.value(QLatin1String(szName));
    bool bNumber = true;
    const int nPort = sValue.isEmpty() ? nDefault : sValue.toInt(&bNumber);
    if (!bNumber || nPort < 0 || nPort > 65535)
        throw std::runtime_error(std::string(szName) + " is not a port");
    return nPort;
}

DeviceList ReadDevices(const QCommandLineParser& parser)
{
    DeviceList list;
    if (parser.isSet(QStringLiteral("devices")) || !parser.isSet(QStringLiteral("dozen")))
        list = ReadDeviceList(parser.value(QStringLiteral("devices")).toStdString());
    if (parser.isSet(QStringLiteral("dozen"))) {
        for (DeviceSpec& spec : MakeDozen())
            list.vecSimulated.push_back(std::move(spec));
    }
    return list;
}

/// Every device takes a descriptor.
void RaiseFileLimit()
{
    rlimit limit{};
    if (getrlimit(RLIMIT_NOFILE, &limit) == 0) {
        limit.rlim_cur = limit.rlim_max;
        setrlimit(RLIMIT_NOFILE, &limit);
    }
}

bool IsInputClosed()
{
    char buffer[256];
    return read(STDIN_FILENO, buffer, sizeof(buffer)) <= 0;
}

void WatchForEnd(EventLoop& loop, bool bWithParent)
{
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGTERM);
    sigaddset(&signals, SIGINT);
    sigprocmask(SIG_BLOCK, &signals, nullptr);
    loop.Watch(signalfd(-1, &signals, SFD_CLOEXEC), [&loop] { loop.Stop(); });
    if (bWithParent) {
        loop.Watch(STDIN_FILENO, [&loop] {
            if (IsInputClosed())
                loop.Stop();
        });
    }
}

/// The devices that do nothing but take connections.
std::vector<std::unique_ptr<Listener>> Listen(EventLoop& loop, const std::vector<Address>& vecAddresses)
{
    std::vector<std::unique_ptr<Listener>> vecListeners;
    for (const Address& address : vecAddresses) {
        auto pListener = std::make_unique<Listener>(address);
        if (!pListener->IsOpen()) {
            std::fprintf(stderr, "%s cannot be listened on\n", address.Text().c_str());
            continue;
        }
        loop.Watch(pListener->Descriptor(), [pSocket = pListener.get()] {
            for (int nPeer = pSocket->Accept(); nPeer >= 0; nPeer = pSocket->Accept())
                close(nPeer);
        });
        vecListeners.push_back(std::move(pListener));
    }
    return vecListeners;
}

/// The answers to the probes of one protocol; nothing when no device speaks it.
std::unique_ptr<Responder> Respond(EventLoop& loop, const Fleet& fleet, const char* szProtocol,
    const std::string& sOption, int nPort, const char* szGroup, const Responder::Reply& reply)
{
    const auto& vecDevices = fleet.Devices();
    const bool bAny = std::any_of(vecDevices.begin(), vecDevices.end(),
        [&](const auto& pDevice) { return pDevice->Spec().protocol == szProtocol; });
    if (!bAny)
        return nullptr;
    auto pResponder = std::make_unique<Responder>(loop, fleet, szProtocol, nPort, szGroup, reply);
    if (pResponder->Port() == 0)
        std::fprintf(stderr, "UDP port %d is taken: no discovery of %s devices\n", nPort, szProtocol);
    else if (nPort == 0)
        std::printf("%s %d\n", sOption.c_str(), pResponder->Port());
    return pResponder;
}

int Run(const QCommandLineParser& parser)
{
    const DeviceList list = ReadDevices(parser);
    RaiseFileLimit();
    EventLoop loop;
    WatchForEnd(loop, parser.isSet(QStringLiteral("exit-with-parent")));
    Fleet fleet(loop, list.vecSimulated, parser.value(QStringLiteral("state")).toStdString());
    DigestGate digest;
    TokenGate tokens;
    Connections connections({fleet, digest, tokens});

    const auto vecListeners = Listen(loop, list.vecListening);
    const int nSimulated =
        fleet.Start([&](Device& device, int nSocket) { connections.Serve(device, nSocket); });
    using Platform::FieldDeviceDriver;
    using Platform::OnvifDriver;
    const auto pPrivate = Respond(loop, fleet, ProtocolPrivate, "discovery",
        PortOption(parser, "discovery-port", FieldDeviceDriver::DefaultDiscoveryPort),
        FieldDeviceDriver::Group, PrivateReply);
    const auto pOnvif = Respond(loop, fleet, ProtocolOnvif, "onvif-discovery",
        PortOption(parser, "onvif-discovery-port", OnvifDriver::DefaultDiscoveryPort), OnvifDriver::Group,
        OnvifReply);
    Control control(fleet);
    if (parser.isSet(QStringLiteral("control"))) {
        const int nPort = control.Start(PortOption(parser, "control", 0));
        if (nPort == 0)
            throw std::runtime_error("the control port is taken");
        std::printf("control %d\n", nPort);
    }
    std::printf("ready %d\n", static_cast<int>(vecListeners.size()) + nSimulated);
    std::fflush(stdout);
    loop.Run();
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("fielddevice"));
    QCommandLineParser parser;
    AddOptions(parser);
    parser.process(application);
    try {
        return Run(parser);
    } catch (const nlohmann::json::exception&) {
        std::fprintf(stderr, "a field of a device has the wrong type\n");
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
    }
    return ExitUsage;
}

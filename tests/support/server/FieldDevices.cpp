#include "FieldDevices.h"

#include "DatabaseKinds.h"

#include <QCoreApplication>
#include <QProcess>
#include <QTemporaryFile>
#include <QUdpSocket>

#include <httplib.h>

#include <stdexcept>

namespace TestSupport {

namespace {

constexpr int DeadlineMs = 20000;

int FreeUdpPort()
{
    QUdpSocket socket;
    socket.bind(QHostAddress(QHostAddress::LocalHost), 0);
    return socket.localPort();
}

} // namespace

FieldDevices::FieldDevices(int nCount, const std::vector<nlohmann::json>& vecChanges)
    : m_nDiscoveryPort(FreeUdpPort())
    , m_nOnvifPort(FreeUdpPort())
    , m_pProcess(std::make_unique<QProcess>())
{
    EnsureApplication();
    // Programs of tests that run side by side have addresses of their own.
    const qint64 nPid = QCoreApplication::applicationPid();
    m_sPrefix = "127." + std::to_string(40 + nPid / 200 % 80) + '.' + std::to_string(1 + nPid % 200) + '.';
    nlohmann::json list = nlohmann::json::array();
    for (int n = 0; n < nCount; ++n) {
        const std::string sNumber = std::to_string(n + 1);
        list.push_back({{"simulate", true}, {"address", Address(n)}, {"port", Port}, {"protocol", "Private"},
            {"category", 1}, {"name", "Simulated " + sNumber}, {"model", "SIM-1"}, {"manufacturer", "Other"},
            {"serial", "SIM" + sNumber},
            {"mac", "02:00:5e:00:00:" + std::string(n < 10 ? "0" : "") + std::to_string(n % 100)},
            {"user", "admin"}, {"password", Password}, {"initialized", true},
            {"channels", {{"video", 4}, {"alarm_inputs", 2}, {"alarm_outputs", 1}}}});
        if (n < static_cast<int>(vecChanges.size()))
            list.back().merge_patch(vecChanges[static_cast<std::size_t>(n)]);
    }
    QTemporaryFile file;
    file.open();
    file.write(QByteArray::fromStdString(nlohmann::json{{"devices", list}}.dump()));
    file.flush();
    m_pProcess->setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_pProcess->start(qEnvironmentVariable("PRODUCT_BINARY_DIR") + QStringLiteral("/bin/fielddevice"),
        {QStringLiteral("--devices"), file.fileName(), QStringLiteral("--exit-with-parent"),
            QStringLiteral("--control"), QStringLiteral("0"), QStringLiteral("--discovery-port"),
            QString::number(m_nDiscoveryPort), QStringLiteral("--onvif-discovery-port"),
            QString::number(m_nOnvifPort)});
    QByteArray line;
    while (!line.startsWith("ready")) {
        if (!m_pProcess->canReadLine() && !m_pProcess->waitForReadyRead(DeadlineMs))
            throw std::runtime_error("The field devices did not start");
        line = m_pProcess->readLine();
        if (line.startsWith("control "))
            m_nControlPort = line.mid(8).trimmed().toInt();
    }
}

FieldDevices::~FieldDevices()
{
    m_pProcess->closeWriteChannel();
    if (!m_pProcess->waitForFinished(DeadlineMs))
        m_pProcess->kill();
}

std::string FieldDevices::Address(int nDevice) const
{
    return m_sPrefix + std::to_string(nDevice + 1);
}

nlohmann::json FieldDevices::State(int nDevice, const std::string& sAddress) const
{
    httplib::Client client("127.0.0.1", m_nControlPort);
    const auto result = client.Get("/device?address=" + (sAddress.empty() ? Address(nDevice) : sAddress)
        + "&port=" + std::to_string(Port));
    if (!result || result->status != 200)
        throw std::runtime_error("The field device does not tell its state");
    return nlohmann::json::parse(result->body);
}

void FieldDevices::Change(int nDevice, nlohmann::json change) const
{
    change["address"] = Address(nDevice);
    change["port"] = Port;
    httplib::Client client("127.0.0.1", m_nControlPort);
    const auto result = client.Post("/device", change.dump(), "application/json");
    if (!result || result->status != 200)
        throw std::runtime_error("The field device cannot be changed");
}

} // namespace TestSupport

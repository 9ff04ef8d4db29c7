#include "FieldDeviceProcess.h"

#include <gtest/gtest.h>
#include <httplib.h>

#include <QCoreApplication>
#include <QFile>

namespace DevicesTest {

namespace {

using nlohmann::json;
constexpr int DeadlineMs = 20000;

} // namespace

std::string Loopback(int nHost)
{
    const auto nProcess = static_cast<int>(QCoreApplication::applicationPid());
    return "127." + std::to_string(64 + nProcess / 256 % 128) + '.' + std::to_string(nProcess % 256) + '.'
        + std::to_string(nHost);
}

json Simulated(const std::string& sProtocol, const std::string& sAddress, int nPort)
{
    return {{"simulate", true}, {"protocol", sProtocol}, {"address", sAddress}, {"port", nPort},
        {"model", "VC-2140"}, {"manufacturer", "Acme & Sons"}, {"name", "Gate <1>"}, {"serial", "S-1"},
        {"mac", "02:00:5e:10:00:01"}, {"category", 8}, {"password", "Field-2024"},
        {"channels", {{"video", 3}, {"alarm_inputs", 4}, {"alarm_outputs", 2}}}};
}

FieldDeviceProcess::FieldDeviceProcess(const json& devices, const QStringList& listMore)
{
    QFile file(m_folder.filePath(QStringLiteral("devices.json")));
    file.open(QIODevice::WriteOnly);
    file.write(QByteArray::fromStdString(json{{"devices", devices}}.dump()));
    file.close();
    const QStringList listArguments{QStringLiteral("--devices"), file.fileName(), QStringLiteral("--control"),
        QStringLiteral("0"), QStringLiteral("--discovery-port"), QStringLiteral("0"),
        QStringLiteral("--onvif-discovery-port"), QStringLiteral("0"), QStringLiteral("--exit-with-parent")};
    m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_process.start(qEnvironmentVariable("PRODUCT_BINARY_DIR") + QStringLiteral("/bin/fielddevice"),
        listArguments + listMore);
    while (m_mapPrinted.count("ready") == 0
        && (m_process.canReadLine() || m_process.waitForReadyRead(DeadlineMs))) {
        const QList<QByteArray> line = m_process.readLine().trimmed().split(' ');
        m_mapPrinted[line.first().toStdString()] = line.last().toInt();
    }
}

FieldDeviceProcess::~FieldDeviceProcess()
{
    m_process.kill();
    m_process.waitForFinished(DeadlineMs);
}

int FieldDeviceProcess::Printed(const std::string& sKey) const
{
    const auto it = m_mapPrinted.find(sKey);
    return it == m_mapPrinted.end() ? 0 : it->second;
}

int FieldDeviceProcess::DiscoveryPort(const std::string& sProtocol) const
{
    return Printed(sProtocol == "ONVIF" ? "onvif-discovery" : "discovery");
}

json FieldDeviceProcess::State(const std::string& sAddress, int nPort) const
{
    httplib::Client client("127.0.0.1", Printed("control"));
    const auto result = client.Get("/device?address=" + sAddress + "&port=" + std::to_string(nPort));
    return result && result->status == 200 ? json::parse(result->body) : json();
}

void FieldDeviceProcess::Change(const std::string& sAddress, int nPort, json change) const
{
    change["address"] = sAddress;
    change["port"] = nPort;
    httplib::Client client("127.0.0.1", Printed("control"));
    const auto result = client.Post("/device", change.dump(), "application/json");
    ASSERT_TRUE(result && result->status == 200) << change;
}

int FieldDeviceProcess::Stop()
{
    m_process.closeWriteChannel();
    return ExitCode();
}

int FieldDeviceProcess::ExitCode()
{
    m_process.waitForFinished(DeadlineMs);
    return m_process.exitStatus() == QProcess::NormalExit ? m_process.exitCode() : -1;
}

} // namespace DevicesTest

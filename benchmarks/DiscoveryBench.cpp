// A sweep of 1,024 addresses with 50 devices, against the time it was given.

#include "Bench.h"

#include <server/devices/DiscoverySweep.h>
#include <server/devices/FieldDeviceDriver.h>

#include <QCoreApplication>
#include <QProcess>
#include <QTemporaryFile>

#include <nlohmann/json.hpp>

#include <chrono>
#include <stdexcept>

namespace {

constexpr int Devices = 50;
constexpr int TimeoutMs = 1000;
constexpr int Runs = 3;
constexpr int StartTimeOutMs = 20000;
constexpr int Port = 37777;

/// Simulated devices of their own, spread over 127.60.0.0 to 127.60.3.255; end with the object.
class SimulatedDevices
{
public:
    SimulatedDevices()
    {
        nlohmann::json devices = nlohmann::json::array();
        for (int i = 0; i < Devices; ++i)
            devices.push_back({{"simulate", true}, {"port", Port}, {"password", "Bench-2024"},
                {"address", "127.60." + std::to_string(i % 4) + '.' + std::to_string(5 * i + 1)}});
        m_file.open();
        m_file.write(QByteArray::fromStdString(nlohmann::json{{"devices", devices}}.dump()));
        m_file.flush();
        m_process.start(QCoreApplication::applicationDirPath() + QStringLiteral("/fielddevice"),
            {QStringLiteral("--devices"), m_file.fileName(), QStringLiteral("--discovery-port"),
                QStringLiteral("0"), QStringLiteral("--exit-with-parent")});
        for (QByteArray line; !line.startsWith("ready");) {
            if (!m_process.canReadLine() && !m_process.waitForReadyRead(StartTimeOutMs))
                throw std::runtime_error("fielddevice did not start");
            line = m_process.readLine().trimmed();
            if (line.startsWith("discovery "))
                m_nPort = line.mid(int(qstrlen("discovery "))).toInt();
        }
    }
    ~SimulatedDevices()
    {
        m_process.terminate();
        m_process.waitForFinished();
    }
    SimulatedDevices(const SimulatedDevices&) = delete;
    SimulatedDevices& operator=(const SimulatedDevices&) = delete;

    int DiscoveryPort() const { return m_nPort; }

private:
    QTemporaryFile m_file;
    QProcess m_process;
    int m_nPort = 0;
};

} // namespace

std::vector<BenchResult> BenchDiscovery()
{
    const SimulatedDevices devices;
    Platform::FieldDeviceDriver driver(TimeoutMs, devices.DiscoveryPort());
    const double dSweep = MedianMs(Runs, [&] {
        int nFound = 0;
        Platform::DiscoverySweep(TimeoutMs).Run(
            {&driver}, "127.60.0.0", "127.60.3.255", [&](const auto&) { ++nFound; }, {});
        if (nFound != Devices)
            throw std::runtime_error("a sweep missed devices");
    });
    return {{QStringLiteral("devices: sweep of 1,024 addresses with 50 devices, against its time-out"),
        dSweep, TimeoutMs, QStringLiteral("ms"), 1.5}};
}

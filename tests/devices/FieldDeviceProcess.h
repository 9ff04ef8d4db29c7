#pragma once

#include <nlohmann/json.hpp>

#include <QProcess>
#include <QStringList>
#include <QTemporaryDir>

#include <map>
#include <string>

namespace DevicesTest {

/// "127.a.b.<nHost>": a and b are this process's, so that several test programs can run at once.
std::string Loopback(int nHost);

/// One entry of the list of devices; further fields are set on what it answers.
nlohmann::json Simulated(const std::string& sProtocol, const std::string& sAddress, int nPort);

/// The real "fielddevice" on free discovery ports; ends with the object.
class FieldDeviceProcess
{
public:
    explicit FieldDeviceProcess(const nlohmann::json& devices, const QStringList& listMore = {});
    ~FieldDeviceProcess();
    FieldDeviceProcess(const FieldDeviceProcess&) = delete;
    FieldDeviceProcess& operator=(const FieldDeviceProcess&) = delete;

    /// What it printed: "ready", "control", "discovery", "onvif-discovery"; 0 when it did not.
    int Printed(const std::string& sKey) const;
    int DiscoveryPort(const std::string& sProtocol) const;
    /// Null when there is no such device.
    nlohmann::json State(const std::string& sAddress, int nPort) const;
    void Change(const std::string& sAddress, int nPort, nlohmann::json change) const;
    /// Ends it and answers its exit code.
    int Stop();
    /// Of a program that did not start.
    int ExitCode();

private:
    QTemporaryDir m_folder;
    QProcess m_process;
    std::map<std::string, int> m_mapPrinted;
};

} // namespace DevicesTest

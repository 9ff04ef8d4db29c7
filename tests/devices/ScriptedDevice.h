#pragma once

#include <functional>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace DevicesTest {

/// A TCP connection of a scripted device.
class Connection
{
public:
    explicit Connection(int nSocket)
        : m_nSocket(nSocket)
    {
    }
    /// The whole HTTP request, head and body.
    std::string ReadRequest() const;
    /// False when the peer has gone.
    bool Send(const std::string& sBytes) const;
    /// Waits for the peer to close.
    bool IsClosedWithin(int nMs) const;

private:
    const int m_nSocket;
};

/// Plays a device that answers whatever a test wants, on 127.0.0.1.
class ScriptedDevice
{
public:
    /// Comes on a thread of this object, a connection after the other.
    using Script = std::function<void(const Connection&, const std::string& sRequest)>;

    explicit ScriptedDevice(Script script);
    ~ScriptedDevice();
    ScriptedDevice(const ScriptedDevice&) = delete;
    ScriptedDevice& operator=(const ScriptedDevice&) = delete;

    int Port() const { return m_nPort; }
    std::vector<std::string> Requests() const;

private:
    void Run();

    const Script m_script;
    int m_nListener;
    int m_nPort = 0;
    mutable std::mutex m_mutex;
    std::vector<std::string> m_vecRequests;
    std::thread m_thread;
};

/// An HTTP answer.
std::string Http(int nStatus, const std::string& sBody, const std::string& sHeaders = {});
/// The same with a SOAP message around the body.
std::string Soap(const std::string& sBody, int nStatus = 200);

} // namespace DevicesTest

#include "ScriptedDevice.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>

namespace DevicesTest {

namespace {

std::size_t BodySize(const std::string& sHead)
{
    constexpr std::string_view Header = "Content-Length: ";
    const std::size_t nBegin = sHead.find(Header);
    return nBegin == std::string::npos ? 0 : std::stoul(sHead.substr(nBegin + Header.size()));
}

} // namespace

std::string Connection::ReadRequest() const
{
    std::string sRequest;
    std::array<char, 4096> buffer{};
    for (;;) {
        const std::size_t nHead = sRequest.find("\r\n\r\n");
        if (nHead != std::string::npos && sRequest.size() >= nHead + 4 + BodySize(sRequest.substr(0, nHead)))
            return sRequest;
        const ssize_t nSize = recv(m_nSocket, buffer.data(), buffer.size(), 0);
        if (nSize <= 0)
            return sRequest;
        sRequest.append(buffer.data(), static_cast<std::size_t>(nSize));
    }
}

bool Connection::Send(const std::string& sBytes) const
{
    std::size_t nSent = 0;
    while (nSent < sBytes.size()) {
        const ssize_t nSize = send(m_nSocket, sBytes.data() + nSent, sBytes.size() - nSent, MSG_NOSIGNAL);
        if (nSize <= 0)
            return false;
        nSent += static_cast<std::size_t>(nSize);
    }
    return true;
}

bool Connection::IsClosedWithin(int nMs) const
{
    pollfd polled{m_nSocket, POLLIN, 0};
    char c = 0;
    return poll(&polled, 1, nMs) > 0 && recv(m_nSocket, &c, 1, 0) <= 0;
}

ScriptedDevice::ScriptedDevice(Script script)
    : m_script(std::move(script))
    , m_nListener(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0))
{
    sockaddr_in bound{};
    bound.sin_family = AF_INET;
    bound.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t nSize = sizeof(bound);
    bind(m_nListener, reinterpret_cast<sockaddr*>(&bound), nSize);
    listen(m_nListener, 16);
    getsockname(m_nListener, reinterpret_cast<sockaddr*>(&bound), &nSize);
    m_nPort = ntohs(bound.sin_port);
    m_thread = std::thread([this] { Run(); });
}

ScriptedDevice::~ScriptedDevice()
{
    shutdown(m_nListener, SHUT_RDWR);
    m_thread.join();
    close(m_nListener);
}

void ScriptedDevice::Run()
{
    for (int nPeer = accept(m_nListener, nullptr, nullptr); nPeer >= 0;
         nPeer = accept(m_nListener, nullptr, nullptr)) {
        const Connection connection(nPeer);
        const std::string sRequest = connection.ReadRequest();
        {
            const std::lock_guard lock(m_mutex);
            m_vecRequests.push_back(sRequest);
        }
        m_script(connection, sRequest);
        close(nPeer);
    }
}

std::vector<std::string> ScriptedDevice::Requests() const
{
    const std::lock_guard lock(m_mutex);
    return m_vecRequests;
}

std::string Http(int nStatus, const std::string& sBody, const std::string& sHeaders)
{
    return "HTTP/1.1 " + std::to_string(nStatus) + " X\r\n" + sHeaders
        + "Content-Length: " + std::to_string(sBody.size()) + "\r\n\r\n" + sBody;
}

std::string Soap(const std::string& sBody, int nStatus)
{
    return Http(nStatus,
        R"(<e:Envelope xmlns:e="http://www.w3.org/2003/05/soap-envelope"><e:Body>)" + sBody
            + "</e:Body></e:Envelope>");
}

} // namespace DevicesTest

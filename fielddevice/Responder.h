#pragma once

#include "Fleet.h"

#include <functional>
#include <string>
#include <string_view>

namespace FieldDevice {

/// Answers the probes of one discovery protocol for all devices that speak it. On the loop's thread.
class Responder
{
public:
    /// What a device answers to a probe; empty: it is none, or not for that device.
    using Reply = std::function<std::string(const DeviceSpec&, const DeviceState&, std::string_view probe)>;

    /// nPort 0: any. Listens on loopback only; without a port when it is taken.
    Responder(EventLoop& loop, const Fleet& fleet, std::string sProtocol, int nPort, const char* szGroup,
        Reply reply);
    ~Responder();
    Responder(const Responder&) = delete;
    Responder& operator=(const Responder&) = delete;

    /// 0 when the port was taken.
    int Port() const { return m_nPort; }

private:
    struct Probe;
    bool Receive(Probe& probe) const;
    void AnswerAll() const;
    void AnswerProbe(const Probe& probe) const;

    EventLoop& m_loop;
    const Fleet& m_fleet;
    const std::string m_sProtocol;
    const Reply m_reply;
    const int m_nSocket;
    int m_nPort = 0;
};

/// The replies of the two protocols.
std::string PrivateReply(const DeviceSpec& spec, const DeviceState& state, std::string_view probe);
std::string OnvifReply(const DeviceSpec& spec, const DeviceState& state, std::string_view probe);

} // namespace FieldDevice

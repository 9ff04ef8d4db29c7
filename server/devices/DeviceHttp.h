#pragma once

#include "DeviceDriver.h"

#include <chrono>
#include <string>
#include <string_view>

namespace Platform {

struct HttpQuestion
{
    std::string sMethod = "GET";
    std::string sPath = {};
    std::string sBody = {};
    std::string sContentType = {};
    bool bSignIn = true; ///< answer a digest challenge
};

struct HttpReply
{
    int nStatus = 0;
    std::string sBody;
};

/// HTTP with one device, as long as one call of a driver takes. A connection a request, no redirections: the
/// password of the access never goes anywhere else. Answers above one megabyte are refused.
class DeviceHttp
{
public:
    /// nTimeoutMs is for all requests together.
    DeviceHttp(const DeviceAccess& access, int nTimeoutMs);

    /// Whatever status the device answered; a 401 that is left means that the password is wrong. Throws
    /// DeviceError when there is no answer.
    HttpReply Send(const HttpQuestion& question);

    const DeviceAccess& Access() const { return m_access; }
    /// Talks to another port of the device from now on.
    void SetPort(int nPort) { m_access.nPort = nPort; }

private:
    struct Exchange;
    Exchange SendOnce(const HttpQuestion& question, const std::string& sAuthorization);
    std::string AnswerTo(const Exchange& exchange, const HttpQuestion& question) const;

    DeviceAccess m_access;
    const std::chrono::steady_clock::time_point m_deadline;
};

} // namespace Platform

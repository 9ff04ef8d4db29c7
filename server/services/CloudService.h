#pragma once

#include <wire/Records.h>

#include <string>

namespace Platform {

/// Asks the account service of P2P devices, when the server was given one.
///
/// The service takes POST {url}/devices with {"user","password"} and answers
/// {"code":0,"devices":[{"sn","name", "model","category"}]}, or another code.
class CloudService
{
public:
    /// sUrl is "http://…" or "https://…"; empty: there is no service.
    explicit CloudService(std::string sUrl);

    bool IsConfigured() const { return !m_sUrl.empty(); }
    /// Where the service is, as shown: without path.
    std::string Name() const;
    /// Any thread; blocks for some seconds at most. Throws ServiceError: ErrorCloudNotConfigured,
    /// ErrorCloudUnreachable. A refusal is an answer with its code.
    wire::CloudDevices Query(const wire::CloudLogin& login) const;

private:
    std::string m_sUrl;
};

} // namespace Platform

#pragma once

#include "DeviceHttp.h"
#include "SoapXml.h"

#include <cstdint>
#include <memory>
#include <string>

namespace Platform {

/// The answer element of a call; keeps its document.
struct SoapAnswer
{
    std::unique_ptr<pugi::xml_document> pDocument;
    pugi::xml_node node;
};

/// Where calls go to, and the namespace that they are of.
struct SoapService
{
    std::string sPath;
    const char* szNamespace;
};

/// Web service calls to one device, as long as one call of a driver takes.
class SoapClient
{
public:
    enum class Sign
    {
        No,
        In ///< by UsernameToken, and by HTTP digest where the device asks for that
    };

    SoapClient(const DeviceAccess& access, int nTimeoutMs);

    /// sContent is what the call's element holds. Answers the element that ends in "Response". Throws
    /// DeviceError, for faults too.
    SoapAnswer Call(const SoapService& service, const std::string& sName, const std::string& sContent = {},
        Sign sign = Sign::In);

    /// What the device's clock is ahead of ours; tokens are made by its clock.
    void SetClockOffset(std::int64_t nSeconds) { m_nClockOffset = nSeconds; }
    std::int64_t DeviceTime() const;
    const DeviceAccess& Access() const { return m_http.Access(); }

private:
    DeviceHttp m_http;
    std::int64_t m_nClockOffset = 0;
};

} // namespace Platform

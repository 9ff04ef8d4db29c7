#include "SoapClient.h"

#include "ReplyText.h"
#include "UsernameToken.h"

#include <algorithm>
#include <chrono>

namespace Platform {

namespace {

constexpr int MaxSubcodes = 8;

/// The local names of a fault's code and all its subcodes.
std::vector<std::string> FaultCodes(const pugi::xml_node& fault)
{
    std::vector<std::string> vecCodes{std::string(SoapXml::LocalName(SoapXml::Text(fault, {"faultcode"})))};
    pugi::xml_node code = SoapXml::Child(fault, "Code");
    for (int i = 0; code && i < MaxSubcodes; ++i) {
        vecCodes.emplace_back(SoapXml::LocalName(SoapXml::Text(code, {"Value"})));
        code = SoapXml::Child(code, "Subcode");
    }
    return vecCodes;
}

int ErrorOf(const std::vector<std::string>& vecCodes)
{
    const auto holds = [&](std::initializer_list<std::string_view> names) {
        return std::any_of(vecCodes.begin(), vecCodes.end(), [&](const std::string& sCode) {
            return std::find(names.begin(), names.end(), sCode) != names.end();
        });
    };
    if (holds({"NotAuthorized", "FailedAuthentication", "InvalidSecurityToken"}))
        return UICommonMdl::ErrorDevicePassword;
    if (holds({"ActionNotSupported", "OptionalActionNotImplemented"}))
        return UICommonMdl::ErrorDeviceNotSupported;
    return UICommonMdl::ErrorDeviceRefused;
}

[[noreturn]] void ThrowFault(const pugi::xml_node& fault)
{
    std::string sReason = SoapXml::Text(fault, {"Reason", "Text"});
    if (sReason.empty())
        sReason = SoapXml::Text(fault, {"faultstring"});
    throw DeviceError(ErrorOf(FaultCodes(fault)), ReplyText::Clean(sReason));
}

std::int64_t Now()
{
    return std::chrono::duration_cast<std::chrono::seconds>(
        std::chrono::system_clock::now().time_since_epoch())
        .count();
}

} // namespace

SoapClient::SoapClient(const DeviceAccess& access, int nTimeoutMs)
    : m_http(access, nTimeoutMs)
{
}

std::int64_t SoapClient::DeviceTime() const
{
    return Now() + m_nClockOffset;
}

SoapAnswer SoapClient::Call(
    const SoapService& service, const std::string& sName, const std::string& sContent, Sign sign)
{
    using enum UICommonMdl::ErrorCode;
    const bool bSignIn = sign == Sign::In && !Access().sUserName.empty();
    const std::string sHeader =
        bSignIn ? UsernameToken::Header(Access().sUserName, Access().sPassword, DeviceTime()) : std::string();
    HttpQuestion question;
    question.sMethod = "POST";
    question.sPath = service.sPath;
    const std::string sCall =
        '<' + sName + " xmlns=\"" + service.szNamespace + "\">" + sContent + "</" + sName + '>';
    question.sBody = SoapXml::Envelope(sHeader, sCall);
    question.sContentType = "application/soap+xml; charset=utf-8";
    question.bSignIn = bSignIn;
    const HttpReply reply = m_http.Send(question);

    SoapAnswer answer{SoapXml::Load(reply.sBody), {}};
    const pugi::xml_node body =
        answer.pDocument ? SoapXml::Find(*answer.pDocument, {"Envelope", "Body"}) : pugi::xml_node();
    if (const pugi::xml_node fault = SoapXml::Child(body, "Fault"))
        ThrowFault(fault);
    if (reply.nStatus == 401)
        throw DeviceError(ErrorDevicePassword);
    if (reply.nStatus != 200)
        throw DeviceError(
            ErrorDeviceBadAnswer, "the device answered HTTP status " + std::to_string(reply.nStatus));
    answer.node = SoapXml::Child(body, sName + "Response");
    if (!answer.node)
        throw DeviceError(ErrorDeviceBadAnswer, "the answer is not that of " + sName);
    return answer;
}

} // namespace Platform

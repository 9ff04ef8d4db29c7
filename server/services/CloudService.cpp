#include "CloudService.h"

#include "ServiceError.h"

#include <UICommonMdl/TextRule.h>

#include <httplib.h>

#include <algorithm>

namespace Platform {

namespace {

constexpr int TimeOutSeconds = 10;
constexpr std::size_t DeviceLimit = 10000;
constexpr std::size_t AnswerLimit = std::size_t(8) * 1024 * 1024;
constexpr int TextLimit = 100;

/// Scheme, host and port of an address, and its path.
std::pair<std::string, std::string> Split(const std::string& sUrl)
{
    const std::size_t nHost = sUrl.find("://");
    const std::size_t nPath = sUrl.find('/', nHost == std::string::npos ? 0 : nHost + 3);
    if (nPath == std::string::npos)
        return {sUrl, {}};
    std::string sPath = sUrl.substr(nPath);
    if (sPath.back() == '/')
        sPath.pop_back();
    return {sUrl.substr(0, nPath), sPath};
}

std::string Text(const nlohmann::json& object, const char* szKey)
{
    const auto it = object.find(szKey);
    return it == object.end() || !it->is_string() ? std::string()
                                                  : UICommonMdl::CutText(it->get<std::string>(), TextLimit);
}

wire::CloudDevices Read(const nlohmann::json& answer)
{
    wire::CloudDevices result;
    wire::Read(answer.at("code"), result.nCloudCode);
    if (result.nCloudCode != 0)
        return result;
    for (const nlohmann::json& device : answer.at("devices")) {
        if (result.vecDevices.size() >= DeviceLimit)
            break;
        result.vecDevices.push_back({Text(device, "sn"), Text(device, "name"), Text(device, "model")});
        wire::MergeField(device, "category", result.vecDevices.back().nCategory, 1);
    }
    return result;
}

} // namespace

CloudService::CloudService(std::string sUrl)
    : m_sUrl(std::move(sUrl))
{
}

std::string CloudService::Name() const
{
    const std::string sBase = Split(m_sUrl).first;
    const std::size_t nHost = sBase.find("://");
    return nHost == std::string::npos ? sBase : sBase.substr(nHost + 3);
}

wire::CloudDevices CloudService::Query(const wire::CloudLogin& login) const
{
    if (!IsConfigured())
        throw ServiceError(UICommonMdl::ErrorCloudNotConfigured);
    const auto [sBase, sPath] = Split(m_sUrl);
    httplib::Client client(sBase);
    client.set_connection_timeout(TimeOutSeconds);
    client.set_read_timeout(TimeOutSeconds);
    std::string sAnswer;
    httplib::Request request;
    request.method = "POST";
    request.path = sPath + "/devices";
    request.body = nlohmann::json{{"user", login.sUserName}, {"password", login.sPassword}}.dump();
    request.set_header("Content-Type", "application/json");
    request.content_receiver = [&sAnswer](
                                   const char* pData, std::size_t nSize, std::uint64_t, std::uint64_t) {
        sAnswer.append(pData, nSize);
        return sAnswer.size() <= AnswerLimit;
    };
    const httplib::Result result = client.send(request);
    if (!result)
        throw ServiceError(UICommonMdl::ErrorCloudUnreachable);
    try {
        return Read(nlohmann::json::parse(sAnswer));
    } catch (const nlohmann::json::exception&) {
        throw ServiceError(UICommonMdl::ErrorCloudUnreachable, "The service's answer could not be read");
    }
}

} // namespace Platform

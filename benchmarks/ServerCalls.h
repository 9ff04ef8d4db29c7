#pragma once

#include <wire/Operations.h>

#include <httplib.h>

#include <stdexcept>
#include <string>

/// Operations of a server by hand, without the client.
namespace ServerCalls {

inline httplib::Headers MakeHeaders(const std::string& sToken)
{
    httplib::Headers headers{{wire::ProtocolVersionHeader, std::to_string(wire::ProtocolVersion)}};
    if (!sToken.empty())
        headers.emplace("Authorization", "Bearer " + sToken);
    return headers;
}

/// Throws std::runtime_error when the operation fails.
template <class Op>
typename Op::Answer Call(
    httplib::Client& client, const typename Op::Request& request, const std::string& sToken)
{
    const auto result = client.Post((std::string(wire::OperationPrefix) + std::string(Op::Name)).c_str(),
        MakeHeaders(sToken), nlohmann::json(request).dump(), "application/json");
    if (!result || result->status != 200)
        throw std::runtime_error(std::string(Op::Name) + " failed");
    return nlohmann::json::parse(result->body).at(wire::AnswerData).template get<typename Op::Answer>();
}

} // namespace ServerCalls

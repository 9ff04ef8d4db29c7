#include "DeviceHttp.h"

#include "Crypto.h"
#include "DigestAuth.h"
#include "HttpGuard.h"

#include <httplib.h>

#include <algorithm>

namespace Platform {

namespace {

using SteadyClock = std::chrono::steady_clock;
constexpr std::size_t MaxBody = std::size_t{1024} * 1024;
constexpr std::uint64_t MaxReceived = 2 * MaxBody; ///< with headers and chunk marks
constexpr std::chrono::seconds Margin(1);
constexpr int ClientNonceBytes = 16;
/// A challenge, and one more when the nonce had become too old.
constexpr int MaxSendings = 3;

std::string HostHeader(const DeviceAccess& access)
{
    const bool bIpv6 = access.sAddress.find(':') != std::string::npos;
    return (bIpv6 ? '[' + access.sAddress + ']' : access.sAddress) + ':' + std::to_string(access.nPort);
}

[[noreturn]] void Fail(httplib::Error error, bool bTooMuch, SteadyClock::time_point deadline)
{
    using enum UICommonMdl::ErrorCode;
    if (bTooMuch)
        throw DeviceError(ErrorDeviceBadAnswer, "the answer is too long");
    if (error == httplib::Error::ConnectionTimeout || SteadyClock::now() >= deadline)
        throw DeviceError(ErrorDeviceTimeOut);
    if (error == httplib::Error::Connection)
        throw DeviceError(ErrorDeviceUnreachable);
    throw DeviceError(ErrorDeviceBadAnswer, "the connection ended without an answer");
}

} // namespace

struct DeviceHttp::Exchange
{
    HttpReply reply;
    std::vector<std::string> vecChallenges;
};

DeviceHttp::DeviceHttp(const DeviceAccess& access, int nTimeoutMs)
    : m_access(access)
    , m_deadline(SteadyClock::now() + std::chrono::milliseconds(nTimeoutMs))
{
}

DeviceHttp::Exchange DeviceHttp::SendOnce(const HttpQuestion& question, const std::string& sAuthorization)
{
    const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(m_deadline - SteadyClock::now());
    if (left.count() <= 0)
        throw DeviceError(UICommonMdl::ErrorDeviceTimeOut);
    httplib::Request request;
    request.method = question.sMethod;
    request.path = question.sPath;
    request.body = question.sBody;
    request.set_header("Host", HostHeader(m_access));
    if (!question.sContentType.empty())
        request.set_header("Content-Type", question.sContentType);
    if (!sAuthorization.empty())
        request.set_header("Authorization", sAuthorization);
    std::string sBody;
    bool bTooLong = false;
    request.content_receiver = [&](const char* pData, std::size_t nSize, std::uint64_t, std::uint64_t) {
        bTooLong = bTooLong || sBody.size() + nSize > MaxBody;
        if (!bTooLong)
            sBody.append(pData, nSize);
        return !bTooLong;
    };

    HttpGuard guard(m_deadline, MaxReceived);
    httplib::ClientImpl client(m_access.sAddress, m_access.nPort);
    client.set_connection_timeout(left);
    // The guard ends reading and writing on time; the library's own time-outs are for each piece.
    client.set_read_timeout(left + Margin);
    client.set_write_timeout(left + Margin);
    client.set_socket_options([&guard](int nSocket) {
        httplib::default_socket_options(nSocket);
        guard.Take(nSocket);
    });
    httplib::Response response;
    httplib::Error error = httplib::Error::Success;
    if (!client.send(request, response, error))
        Fail(error, bTooLong || guard.IsTooMuch(), m_deadline);
    Exchange exchange{{response.status, std::move(sBody)}, {}};
    const auto [itFirst, itEnd] = response.headers.equal_range("WWW-Authenticate");
    std::transform(itFirst, itEnd, std::back_inserter(exchange.vecChallenges),
        [](const auto& header) { return header.second; });
    return exchange;
}

std::string DeviceHttp::AnswerTo(const Exchange& exchange, const HttpQuestion& question) const
{
    DigestAuth::Terms terms;
    terms.sUserName = m_access.sUserName;
    terms.sPassword = m_access.sPassword;
    terms.sMethod = question.sMethod;
    terms.sUri = question.sPath;
    terms.sClientNonce = Crypto::Hex(Crypto::Random(ClientNonceBytes));
    for (const std::string& sChallenge : exchange.vecChallenges) {
        if (const auto optAnswer = DigestAuth::Answer(sChallenge, terms))
            return *optAnswer;
    }
    return {};
}

HttpReply DeviceHttp::Send(const HttpQuestion& question)
{
    std::string sAuthorization;
    for (int nSending = 1;; ++nSending) {
        Exchange exchange = SendOnce(question, sAuthorization);
        // A device counts wrong passwords: the same one is not sent twice.
        const bool bAgain = exchange.reply.nStatus == 401 && question.bSignIn && nSending < MaxSendings
            && (sAuthorization.empty()
                || std::any_of(exchange.vecChallenges.begin(), exchange.vecChallenges.end(),
                    [](const std::string& sChallenge) { return DigestAuth::IsStale(sChallenge); }));
        if (bAgain)
            sAuthorization = AnswerTo(exchange, question);
        if (!bAgain || sAuthorization.empty())
            return std::move(exchange.reply);
    }
}

} // namespace Platform

#include "UsernameToken.h"

#include "Crypto.h"
#include "SoapXml.h"

#include <ctime>

namespace Platform::UsernameToken {

namespace {

constexpr std::size_t NonceBytes = 16;

} // namespace

std::string PasswordDigest(std::string_view sNonce, const std::string& sCreated, const std::string& sPassword)
{
    return Crypto::Base64(Crypto::Digest(Crypto::Hash::Sha1, std::string(sNonce) + sCreated + sPassword));
}

std::string Timestamp(std::int64_t nSecondsSinceEpoch)
{
    const std::time_t nTime = nSecondsSinceEpoch;
    std::tm parts{};
    gmtime_r(&nTime, &parts);
    char buffer[32];
    const std::size_t nSize = std::strftime(buffer, sizeof(buffer), "%Y-%m-%dT%H:%M:%SZ", &parts);
    return {buffer, nSize};
}

std::string Header(
    const std::string& sUserName, const std::string& sPassword, std::int64_t nSecondsSinceEpoch)
{
    const std::string sNonce = Crypto::Random(NonceBytes);
    const std::string sCreated = Timestamp(nSecondsSinceEpoch);
    return R"(<wsse:Security s:mustUnderstand="true" xmlns:wsse=)"
           R"("http://docs.oasis-open.org/wss/2004/01/oasis-200401-wss-wssecurity-secext-1.0.xsd" xmlns:wsu=)"
           R"("http://docs.oasis-open.org/wss/2004/01/oasis-200401-wss-wssecurity-utility-1.0.xsd">)"
           "<wsse:UsernameToken><wsse:Username>"
        + SoapXml::Escape(sUserName)
        + R"(</wsse:Username><wsse:Password Type="http://docs.oasis-open.org/wss/2004/01/)"
          R"(oasis-200401-wss-username-token-profile-1.0#PasswordDigest">)"
        + PasswordDigest(sNonce, sCreated, sPassword)
        + R"(</wsse:Password><wsse:Nonce EncodingType="http://docs.oasis-open.org/wss/2004/01/)"
          R"(oasis-200401-wss-soap-message-security-1.0#Base64Binary">)"
        + Crypto::Base64(sNonce) + "</wsse:Nonce><wsu:Created>" + sCreated
        + "</wsu:Created></wsse:UsernameToken></wsse:Security>";
}

} // namespace Platform::UsernameToken

// Signing in, against values that others have computed.

#include <server/devices/Crypto.h>
#include <server/devices/DigestAuth.h>
#include <server/devices/UsernameToken.h>

#include <gtest/gtest.h>

namespace DevicesTest {

namespace DigestAuth = Platform::DigestAuth;
using Platform::UsernameToken::PasswordDigest;

namespace {

DigestAuth::Terms Terms(const std::string& sPassword)
{
    DigestAuth::Terms terms;
    terms.sUserName = "Mufasa";
    terms.sPassword = sPassword;
    terms.sMethod = "GET";
    terms.sUri = "/dir/index.html";
    return terms;
}

constexpr const char* Rfc2617 = R"(Digest realm="testrealm@host.com", qop="auth,auth-int", )"
                                R"(nonce="dcd98b7102dd2f0e8b11d0f600bfb0c093", )"
                                R"(opaque="5ccc069c403ebaf9f0171e9517f40e41")";
constexpr const char* Rfc2069 =
    R"(digest  realm="testrealm@host.com",nonce="dcd98b7102dd2f0e8b11d0f600bfb0c093")";
constexpr const char* Rfc7616 =
    R"(Digest realm="http-auth@example.org", qop="auth, auth-int", algorithm=SHA-256, )"
    R"(nonce="7ypf/xlj9XXwfDPEoM4URrv/xwf94BcCAzFZH4GiTo0v")";

struct Known
{
    const char* szChallenge;
    const char* szPassword;
    const char* szClientNonce;
    const char* szResponse;
};
constexpr Known KnownResponses[] = {
    {Rfc2617, "Circle Of Life", "0a4f113b", "6629fae49393a05397450978507c4ef1"},
    {Rfc2069, "CircleOfLife", "", "1949323746fe6a43ef61f9606e7febea"},
    {Rfc7616, "Circle of Life", "f2/wE4q74E6zIJEtWaHKaf5wv/H5QzzpXusqGemxURZJ",
        "753927fa0e85d155564e2e272a28d1802ca10daf4496794697cf8db5856cb6c1"},
};

} // namespace

TEST(DigestAuth, AnswersAsTheStandardsExamplesDo)
{
    for (const Known& known : KnownResponses) {
        DigestAuth::Terms terms = Terms(known.szPassword);
        terms.sClientNonce = known.szClientNonce;
        const auto optAnswer = DigestAuth::Answer(known.szChallenge, terms);
        ASSERT_TRUE(optAnswer) << known.szChallenge;
        auto optFields = DigestAuth::ReadFields(*optAnswer);
        ASSERT_TRUE(optFields) << *optAnswer;
        EXPECT_EQ((*optFields)["response"], known.szResponse);
        const bool bOldForm = known.szChallenge == Rfc2069;
        EXPECT_EQ((*optFields)["qop"], bOldForm ? "" : "auth");
        EXPECT_EQ(
            (*optFields)["opaque"], known.szChallenge == Rfc2617 ? "5ccc069c403ebaf9f0171e9517f40e41" : "");
    }
}

TEST(DigestAuth, ChallengesThatCannotBeAnsweredAreLeft)
{
    for (const char* const szChallenge : {"", "Basic realm=\"x\"", "Digest", "Digest realm=\"x\"",
             "Digest nonce=\"never closed", "Digest nonce=\"n\", algorithm=SHA-512-256",
             "Digest nonce=\"n\", qop=\"auth-int\"", "Digest nonce=\"n\" =", "Digest ,,,=,"})
        EXPECT_FALSE(DigestAuth::Answer(szChallenge, Terms("x"))) << szChallenge;
}

TEST(DigestAuth, NothingBreaksOutOfTheHeader)
{
    DigestAuth::Terms terms = Terms("x");
    terms.sUserName = "a\"\r\nX-Injected: \\1";
    const auto optAnswer = DigestAuth::Answer(Rfc2617, terms);
    ASSERT_TRUE(optAnswer);
    EXPECT_EQ(optAnswer->find_first_of("\r\n"), std::string::npos);
    EXPECT_EQ((*DigestAuth::ReadFields(*optAnswer))["username"], "a\"X-Injected: \\1");
}

TEST(UsernameToken, DigestsAsTheProgrammersGuideDoes)
{
    const std::string sNonce = Platform::Crypto::FromBase64("LKqI6G/AikKCQrN0zqZFlg==");
    ASSERT_EQ(sNonce.size(), 16U);
    EXPECT_EQ(PasswordDigest(sNonce, "2010-09-16T07:50:45Z", "userpassword"), "tuOSpGlFlIXsozq4HFNeeGeFLEI=");
    EXPECT_EQ(Platform::UsernameToken::Timestamp(1284623445), "2010-09-16T07:50:45Z");
}

} // namespace DevicesTest

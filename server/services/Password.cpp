#include "Password.h"

#include "ServiceError.h"

#include <wire/PasswordRule.h>

#include <sodium.h>

#include <array>
#include <semaphore>

namespace Platform::Password {

namespace {

constexpr int HashesAtATime = 4;
std::counting_semaphore<HashesAtATime> s_places(HashesAtATime);

class Place
{
public:
    Place() { s_places.acquire(); }
    ~Place() { s_places.release(); }
    Place(const Place&) = delete;
    Place& operator=(const Place&) = delete;
};

void Initialize()
{
    static const int s_nResult = sodium_init();
    if (s_nResult < 0)
        throw ServiceError(UICommonMdl::ErrorInternal, "The random source cannot be used");
}

std::string Hexadecimal(const unsigned char* pBytes, std::size_t nBytes)
{
    std::string sText(nBytes * 2 + 1, '\0');
    sodium_bin2hex(sText.data(), sText.size(), pBytes, nBytes);
    sText.pop_back();
    return sText;
}

} // namespace

std::string Hash(const std::string& sPassword)
{
    Initialize();
    const Place place;
    std::array<char, crypto_pwhash_STRBYTES> text{};
    if (crypto_pwhash_str(text.data(), sPassword.data(), sPassword.size(), crypto_pwhash_OPSLIMIT_INTERACTIVE,
            crypto_pwhash_MEMLIMIT_INTERACTIVE)
        != 0)
        throw ServiceError(UICommonMdl::ErrorServerBusy, "Not enough memory to hash a password");
    return text.data();
}

bool Verify(const std::string& sHash, const std::string& sPassword)
{
    static const std::string s_sNobodysHash = Hash(NewToken());
    const Place place;
    const std::string& sUsed = sHash.empty() ? s_sNobodysHash : sHash;
    const bool bMatches = crypto_pwhash_str_verify(sUsed.c_str(), sPassword.data(), sPassword.size()) == 0;
    return bMatches && !sHash.empty();
}

std::string NewToken()
{
    Initialize();
    std::array<unsigned char, 32> bytes{};
    randombytes_buf(bytes.data(), bytes.size());
    return Hexadecimal(bytes.data(), bytes.size());
}

std::string TokenHash(const std::string& sToken)
{
    Initialize();
    std::array<unsigned char, 32> bytes{};
    crypto_generichash(bytes.data(), bytes.size(), reinterpret_cast<const unsigned char*>(sToken.data()),
        sToken.size(), nullptr, 0);
    return Hexadecimal(bytes.data(), bytes.size());
}

void CheckRule(const std::string& sPassword, const std::string& sUserName)
{
    switch (wire::CheckPassword(sPassword, sUserName)) {
    case wire::PasswordFault::None:
        return;
    case wire::PasswordFault::Length:
        throw ServiceError(UICommonMdl::ErrorPasswordRule, "8 to 32 characters");
    case wire::PasswordFault::Classes:
        throw ServiceError(UICommonMdl::ErrorPasswordRule,
            "at least two of lower case letters, upper case letters, digits and others");
    case wire::PasswordFault::Character:
        throw ServiceError(
            UICommonMdl::ErrorPasswordRule, "printable characters other than blanks and ' \" ; : &");
    case wire::PasswordFault::UserName:
        throw ServiceError(UICommonMdl::ErrorPasswordRule, "not the user name, nor the user name backwards");
    }
}

} // namespace Platform::Password

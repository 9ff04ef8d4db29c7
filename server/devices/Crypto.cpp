#include "Crypto.h"

#include <openssl/evp.h>
#include <openssl/rand.h>

#include <stdexcept>

namespace Platform::Crypto {

namespace {

const EVP_MD* Algorithm(Hash hash)
{
    switch (hash) {
    case Hash::Md5:
        return EVP_md5();
    case Hash::Sha1:
        return EVP_sha1();
    case Hash::Sha256:
        break;
    }
    return EVP_sha256();
}

} // namespace

std::string Digest(Hash hash, std::string_view sData)
{
    unsigned char bytes[EVP_MAX_MD_SIZE];
    unsigned int nSize = 0;
    if (EVP_Digest(sData.data(), sData.size(), bytes, &nSize, Algorithm(hash), nullptr) != 1)
        throw std::runtime_error("a digest could not be computed");
    return {reinterpret_cast<const char*>(bytes), nSize};
}

std::string Hex(std::string_view sBytes)
{
    constexpr char Digits[] = "0123456789abcdef";
    std::string sHex;
    for (const char c : sBytes) {
        const auto nByte = static_cast<unsigned char>(c);
        sHex += Digits[nByte >> 4U];
        sHex += Digits[nByte & 15U];
    }
    return sHex;
}

std::string Base64(std::string_view sBytes)
{
    std::string sText((sBytes.size() + 2) / 3 * 4 + 1, '\0');
    const int nSize = EVP_EncodeBlock(reinterpret_cast<unsigned char*>(sText.data()),
        reinterpret_cast<const unsigned char*>(sBytes.data()), static_cast<int>(sBytes.size()));
    sText.resize(static_cast<std::size_t>(nSize));
    return sText;
}

std::string FromBase64(std::string_view sText)
{
    std::string sBytes(sText.size() / 4 * 3 + 3, '\0');
    const int nSize = EVP_DecodeBlock(reinterpret_cast<unsigned char*>(sBytes.data()),
        reinterpret_cast<const unsigned char*>(sText.data()), static_cast<int>(sText.size()));
    if (nSize < 0)
        return {};
    std::size_t nPadding = 0;
    while (nPadding < 2 && nPadding < sText.size() && sText[sText.size() - 1 - nPadding] == '=')
        ++nPadding;
    sBytes.resize(static_cast<std::size_t>(nSize) - std::min<std::size_t>(nPadding, nSize));
    return sBytes;
}

std::string Random(std::size_t nBytes)
{
    std::string sBytes(nBytes, '\0');
    if (RAND_bytes(reinterpret_cast<unsigned char*>(sBytes.data()), static_cast<int>(nBytes)) != 1)
        throw std::runtime_error("the random number generator failed");
    return sBytes;
}

std::string UuidUrn()
{
    std::string sBytes = Random(16);
    sBytes[6] = static_cast<char>((static_cast<unsigned char>(sBytes[6]) & 0x0fU) | 0x40U);
    sBytes[8] = static_cast<char>((static_cast<unsigned char>(sBytes[8]) & 0x3fU) | 0x80U);
    std::string sText = Hex(sBytes);
    for (const std::size_t nDash : {20, 16, 12, 8})
        sText.insert(nDash, 1, '-');
    return "urn:uuid:" + sText;
}

} // namespace Platform::Crypto

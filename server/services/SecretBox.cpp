#include "SecretBox.h"

#include "ServiceError.h"

#include <QFile>
#include <QSaveFile>

#include <sodium.h>

namespace Platform {

namespace {

constexpr int Base64Kind = sodium_base64_VARIANT_ORIGINAL;

std::string ToBase64(const std::string& sBytes)
{
    std::string sText(sodium_base64_ENCODED_LEN(sBytes.size(), Base64Kind), '\0');
    sodium_bin2base64(sText.data(), sText.size(), reinterpret_cast<const unsigned char*>(sBytes.data()),
        sBytes.size(), Base64Kind);
    sText.pop_back();
    return sText;
}

std::optional<std::string> FromBase64(const std::string& sText)
{
    std::string sBytes(sText.size(), '\0');
    std::size_t nSize = 0;
    if (sodium_base642bin(reinterpret_cast<unsigned char*>(sBytes.data()), sBytes.size(), sText.data(),
            sText.size(), nullptr, &nSize, nullptr, Base64Kind)
        != 0)
        return std::nullopt;
    sBytes.resize(nSize);
    return sBytes;
}

} // namespace

SecretBox::SecretBox(const QString& sKeyFile)
{
    static_assert(sizeof(m_key) == crypto_secretbox_KEYBYTES);
    if (sodium_init() < 0)
        throw StartError(ExitDataDir, "The machine gives no random numbers");
    const auto fail = [&sKeyFile](const char* szWhat) {
        throw StartError(ExitDataDir, "The key file " + sKeyFile.toStdString() + szWhat);
    };
    QFile present(sKeyFile);
    if (present.exists()) {
        if (!present.open(QIODevice::ReadOnly)
            || present.read(reinterpret_cast<char*>(m_key.data()), m_key.size())
                != static_cast<qint64>(m_key.size()))
            fail(" cannot be read");
        return;
    }
    crypto_secretbox_keygen(m_key.data());
    QSaveFile file(sKeyFile);
    if (!file.open(QIODevice::WriteOnly) || !file.setPermissions(QFile::ReadOwner | QFile::WriteOwner)
        || file.write(reinterpret_cast<const char*>(m_key.data()), m_key.size())
            != static_cast<qint64>(m_key.size())
        || !file.commit())
        fail(" cannot be written");
}

std::string SecretBox::Seal(const std::string& sSecret) const
{
    if (sSecret.empty())
        return {};
    std::string sSealed(crypto_secretbox_NONCEBYTES + crypto_secretbox_MACBYTES + sSecret.size(), '\0');
    auto* const pNonce = reinterpret_cast<unsigned char*>(sSealed.data());
    randombytes_buf(pNonce, crypto_secretbox_NONCEBYTES);
    crypto_secretbox_easy(pNonce + crypto_secretbox_NONCEBYTES,
        reinterpret_cast<const unsigned char*>(sSecret.data()), sSecret.size(), pNonce, m_key.data());
    return ToBase64(sSealed);
}

std::optional<std::string> SecretBox::Open(const std::string& sSealed) const
{
    if (sSealed.empty())
        return std::string();
    const std::optional<std::string> optBytes = FromBase64(sSealed);
    constexpr std::size_t nHead = crypto_secretbox_NONCEBYTES + crypto_secretbox_MACBYTES;
    if (!optBytes || optBytes->size() < nHead)
        return std::nullopt;
    const auto* const pNonce = reinterpret_cast<const unsigned char*>(optBytes->data());
    std::string sSecret(optBytes->size() - nHead, '\0');
    if (crypto_secretbox_open_easy(reinterpret_cast<unsigned char*>(sSecret.data()),
            pNonce + crypto_secretbox_NONCEBYTES, optBytes->size() - crypto_secretbox_NONCEBYTES, pNonce,
            m_key.data())
        != 0)
        return std::nullopt;
    return sSecret;
}

} // namespace Platform

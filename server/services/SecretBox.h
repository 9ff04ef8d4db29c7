#pragma once

#include <QString>

#include <array>
#include <optional>
#include <string>

namespace Platform {

/// Seals the secrets that the platform has to use again, such as the logins of devices, with a key that lies
/// in the data folder and not in the database: XSalsa20-Poly1305 (libsodium's crypto_secretbox). Any thread.
class SecretBox
{
public:
    /// Reads the key file, or makes one that only its owner can read. Throws StartError.
    explicit SecretBox(const QString& sKeyFile);

    /// Text for the database; empty for an empty secret. Sealing twice gives two texts.
    std::string Seal(const std::string& sSecret) const;
    /// nullopt for a text that this key did not seal; empty for an empty one.
    std::optional<std::string> Open(const std::string& sSealed) const;

private:
    std::array<unsigned char, 32> m_key{};
};

} // namespace Platform

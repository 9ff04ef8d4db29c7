#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace Platform {

/// Where the directory of domain users is and how to read it.
struct DirectoryOptions
{
    std::string sUrl; ///< "ldap://host:389" or "ldaps://…"; empty: there is none
    std::string sBaseDn; ///< where users are looked for, with all that lies below
    std::string sBindDn; ///< the server's own login; empty: anonymous
    std::string sBindPassword;
    std::string sUserFilter = "(objectClass=person)"; ///< which entries are users (RFC 4515)
    std::string sNameAttribute = "uid"; ///< holds the name that users sign in with
    std::string sCaFile; ///< certificates to trust, in PEM; empty: those of the system
    bool bStartTls = false; ///< ldap: encrypt the connection before anything else travels
    int nTimeoutMs = 5000; ///< of each question
};

/// One user of the directory.
struct DirectoryUser
{
    std::string sName;
    std::string sDn; ///< distinguished name

    bool operator==(const DirectoryUser&) const = default;
};

/// Reads an LDAP directory (RFC 4511). Any thread; each call opens a connection of its own. Throws
/// ServiceError with ErrorDirectoryNotConfigured, ErrorDirectoryUnreachable (not there, or not in time) or
/// ErrorDirectoryRefused (the server's own login, or the question).
class Directory
{
public:
    struct Found
    {
        std::vector<DirectoryUser> vecUsers; ///< by name
        bool bTruncated = false; ///< there are more
    };

    explicit Directory(DirectoryOptions options);

    bool IsConfigured() const { return !m_options.sUrl.empty(); }
    /// The users whose name holds sText (all for an empty one), at most nLimit.
    Found Search(const std::string& sText, std::size_t nLimit) const;
    /// The user of exactly that name, whatever its case. Throws ErrorNameExists for a name that several users
    /// have.
    std::optional<DirectoryUser> Find(const std::string& sName) const;
    /// Whether the directory accepts that password for that user. An empty one is never asked about.
    bool CheckPassword(const std::string& sDn, const std::string& sPassword) const;

private:
    void RequireConfigured() const;
    /// Users whose name matches the pattern, as a search filter.
    std::string UserFilter(const std::string& sNamePattern) const;

    DirectoryOptions m_options;
};

} // namespace Platform

#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include <sys/types.h>

namespace TestSupport {

/// A directory server on a free loopback port with data of its own, until the end of the test. Users lie
/// below "ou=people". Throws std::runtime_error when the server does not start or does not do what it is
/// asked.
class Slapd
{
public:
    struct Options
    {
        int nUsers = 0; ///< "user00001" and so on are there from the start, all with UserPassword
        int nSizeLimit = 0; ///< most entries of an answer to the reader; 0: the server's own limit
        bool bTls = false; ///< offers StartTLS and ldaps, with a certificate for its address
    };
    static constexpr const char* UserPassword = "Harbor-31";

    Slapd();
    explicit Slapd(const Options& options);
    ~Slapd();
    Slapd(const Slapd&) = delete;
    Slapd& operator=(const Slapd&) = delete;

    std::string Url() const; ///< "ldap://127.0.0.1:port"
    std::string TlsUrl() const; ///< "ldaps://…", with bTls only
    std::string BaseDn() const { return "dc=example,dc=org"; }
    /// May everything, whatever the limits.
    std::string AdminDn() const { return "cn=admin," + BaseDn(); }
    std::string AdminPassword() const { return "Directory-77"; }
    /// May read the users but not their passwords, within the limits. Nobody reads without a login.
    std::string ReaderDn() const { return "cn=reader," + BaseDn(); }
    std::string ReaderPassword() const { return "Reader-\"52\""; }
    std::string UserDn(const std::string& sName) const;
    /// The certificate to trust, and one that has nothing to do with the server.
    std::string CaFile() const { return (m_folder / "server.pem").string(); }
    std::string OtherCaFile() const { return (m_folder / "other.pem").string(); }

    /// sName as it is signed in with, of any characters.
    void AddUser(const std::string& sName, const std::string& sPassword);
    /// A second user of that name, elsewhere in the directory.
    void AddNamesake(const std::string& sName);
    /// An entry that is a person but has no name to sign in with.
    void AddNameless(const std::string& sCommonName);
    void RemoveUser(const std::string& sName);

    /// Ends the server; it comes back with the same data and address.
    void Stop();
    void Start();

private:
    void MakeCertificate(const std::string& sName) const;
    void WriteConfiguration(const Options& options) const;
    void LoadEntries(int nUsers) const;
    void WaitUntilReady() const;
    void AddEntry(const std::string& sDn, const std::string& sCommonName, const std::string& sName,
        const std::string& sPassword) const;

    std::filesystem::path m_folder;
    int m_nPort = 0;
    int m_nTlsPort = 0;
    pid_t m_nPid = -1;
};

} // namespace TestSupport

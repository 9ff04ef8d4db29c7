#pragma once

#include "Directory.h"

#include <ldap.h>
#include <sys/time.h>

#include <memory>
#include <string>
#include <vector>

namespace Platform {

/// A text as a value of a search filter (RFC 4515).
std::string EscapeFilterValue(const std::string& sValue);

/// One connection to the directory, closed with the object. One thread. What fails throws ServiceError as
/// Directory does.
class LdapConnection
{
public:
    /// Sets the connection up, encrypted when the options say so; nothing is sent before that.
    explicit LdapConnection(const DirectoryOptions& options);
    LdapConnection(const LdapConnection&) = delete;
    LdapConnection& operator=(const LdapConnection&) = delete;

    /// The server's own login.
    void BindAsServer();
    /// Whether the directory accepts the login. Neither text may be empty: the directory would take that for
    /// an anonymous login and accept it.
    bool BindAsUser(const std::string& sDn, const std::string& sPassword);

    struct Entry
    {
        std::string sDn;
        std::vector<std::string> vecNames; ///< values of the name attribute
    };
    struct Page
    {
        std::vector<Entry> vecEntries;
        bool bMore = false; ///< there is another page
        bool bCut = false; ///< the directory gives no more although there is more
    };
    /// The next page of what the filter finds; the first one when none was read before.
    Page SearchPage(const std::string& sFilter, int nPageSize);

private:
    struct Closer
    {
        void operator()(LDAP* pLdap) const { ldap_unbind_ext_s(pLdap, nullptr, nullptr); }
    };

    static int OnConnected(LDAP*, Sockbuf* pSocket, LDAPURLDesc*, sockaddr*, ldap_conncb* pCallback);
    static void OnClosed(LDAP*, Sockbuf*, ldap_conncb*) { }
    void SetOption(int nOption, const void* pValue);
    void SetUpEncryption();
    int Bind(const std::string& sDn, const std::string& sPassword);
    std::vector<Entry> ReadEntries(LDAPMessage* pMessage);
    void ReadCookie(LDAPMessage* pMessage);
    [[noreturn]] void Fail(int nResult);

    DirectoryOptions m_options;
    timeval m_timeOut;
    ldap_conncb m_callback{&OnConnected, &OnClosed, this};
    std::string m_sCookie; ///< where the next page begins; empty: at the beginning
    std::unique_ptr<LDAP, Closer> m_pLdap;
};

} // namespace Platform

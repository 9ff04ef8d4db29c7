#include "LdapConnection.h"

#include "ServiceError.h"
#include "SocketLimit.h"

#include <algorithm>
#include <array>

namespace Platform {

namespace {

struct MessageFree
{
    void operator()(LDAPMessage* pMessage) const { ldap_msgfree(pMessage); }
};
struct ControlFree
{
    void operator()(LDAPControl* pControl) const { ldap_control_free(pControl); }
};
struct ControlsFree
{
    void operator()(LDAPControl** ppControls) const { ldap_controls_free(ppControls); }
};
struct ValuesFree
{
    void operator()(berval** ppValues) const { ldap_value_free_len(ppValues); }
};
struct TextFree
{
    void operator()(char* szText) const { ldap_memfree(szText); }
};
using Message = std::unique_ptr<LDAPMessage, MessageFree>;

/// What a directory answers to a login that it does not take, besides a wrong password: no such user, one
/// without a password, one that is locked or may not sign in.
constexpr std::array RefusedLogins = {LDAP_INVALID_CREDENTIALS, LDAP_INAPPROPRIATE_AUTH, LDAP_NO_SUCH_OBJECT,
    LDAP_INVALID_DN_SYNTAX, LDAP_UNWILLING_TO_PERFORM, LDAP_CONSTRAINT_VIOLATION, LDAP_INSUFFICIENT_ACCESS};

constexpr std::array Unreachable = {LDAP_BUSY, LDAP_UNAVAILABLE, LDAP_TIMELIMIT_EXCEEDED};

template <std::size_t N>
bool Contains(const std::array<int, N>& codes, int nCode)
{
    return std::find(codes.begin(), codes.end(), nCode) != codes.end();
}

/// The library's own codes are negative: the directory has answered nothing.
bool IsUnreachable(int nResult)
{
    return (nResult < 0 && nResult != LDAP_FILTER_ERROR) || Contains(Unreachable, nResult);
}

std::string ToText(const berval& value)
{
    return {value.bv_val, value.bv_len};
}

/// Borrows the text, which the library does not change.
berval ToBerval(const std::string& sText)
{
    return {sText.size(), const_cast<char*>(sText.data())};
}

} // namespace

std::string EscapeFilterValue(const std::string& sValue)
{
    static constexpr char Digits[] = "0123456789abcdef";
    std::string sEscaped;
    for (const char c : sValue) {
        if (c != '*' && c != '(' && c != ')' && c != '\\' && c != '\0') {
            sEscaped += c;
            continue;
        }
        sEscaped += '\\';
        sEscaped += Digits[static_cast<unsigned char>(c) >> 4];
        sEscaped += Digits[static_cast<unsigned char>(c) & 15];
    }
    return sEscaped;
}

LdapConnection::LdapConnection(const DirectoryOptions& options)
    : m_options(options)
    , m_timeOut{options.nTimeoutMs / 1000, options.nTimeoutMs % 1000 * 1000L}
{
    LDAP* pLdap = nullptr;
    const int nResult = ldap_initialize(&pLdap, options.sUrl.c_str());
    m_pLdap.reset(pLdap);
    if (nResult != LDAP_SUCCESS)
        Fail(nResult);
    const int nVersion = LDAP_VERSION3;
    SetOption(LDAP_OPT_PROTOCOL_VERSION, &nVersion);
    SetOption(LDAP_OPT_REFERRALS, LDAP_OPT_OFF);
    SetOption(LDAP_OPT_NETWORK_TIMEOUT, &m_timeOut);
    SetOption(LDAP_OPT_TIMEOUT, &m_timeOut);
    SetOption(LDAP_OPT_CONNECT_CB, &m_callback);
    SetUpEncryption();
}

int LdapConnection::OnConnected(LDAP*, Sockbuf* pSocket, LDAPURLDesc*, sockaddr*, ldap_conncb* pCallback)
{
    LimitWaits(pSocket, static_cast<LdapConnection*>(pCallback->lc_arg)->m_options.nTimeoutMs);
    return 0;
}

void LdapConnection::SetOption(int nOption, const void* pValue)
{
    const int nResult = ldap_set_option(m_pLdap.get(), nOption, pValue);
    if (nResult != LDAP_OPT_SUCCESS)
        Fail(nResult);
}

void LdapConnection::SetUpEncryption()
{
    const int nDemand = LDAP_OPT_X_TLS_DEMAND;
    const int nClient = 0;
    SetOption(LDAP_OPT_X_TLS_REQUIRE_CERT, &nDemand);
    if (!m_options.sCaFile.empty())
        SetOption(LDAP_OPT_X_TLS_CACERTFILE, m_options.sCaFile.c_str());
    // The settings above hold for this connection only from here on.
    SetOption(LDAP_OPT_X_TLS_NEWCTX, &nClient);
    if (!m_options.bStartTls || ldap_tls_inplace(m_pLdap.get()))
        return;
    const int nResult = ldap_start_tls_s(m_pLdap.get(), nullptr, nullptr);
    if (nResult != LDAP_SUCCESS)
        Fail(nResult);
}

int LdapConnection::Bind(const std::string& sDn, const std::string& sPassword)
{
    berval password = ToBerval(sPassword);
    return ldap_sasl_bind_s(
        m_pLdap.get(), sDn.c_str(), LDAP_SASL_SIMPLE, &password, nullptr, nullptr, nullptr);
}

void LdapConnection::BindAsServer()
{
    if (!m_options.sBindDn.empty() && m_options.sBindPassword.empty())
        throw ServiceError(UICommonMdl::ErrorDirectoryRefused, "The server's login has no password");
    const int nResult = Bind(m_options.sBindDn, m_options.sBindPassword);
    if (nResult != LDAP_SUCCESS)
        Fail(nResult);
}

bool LdapConnection::BindAsUser(const std::string& sDn, const std::string& sPassword)
{
    const int nResult = Bind(sDn, sPassword);
    if (nResult == LDAP_SUCCESS)
        return true;
    if (!Contains(RefusedLogins, nResult))
        Fail(nResult);
    return false;
}

LdapConnection::Page LdapConnection::SearchPage(const std::string& sFilter, int nPageSize)
{
    berval cookie = ToBerval(m_sCookie);
    LDAPControl* pPaging = nullptr;
    int nResult = ldap_create_page_control(m_pLdap.get(), nPageSize, &cookie, 0, &pPaging);
    const std::unique_ptr<LDAPControl, ControlFree> paging(pPaging);
    if (nResult != LDAP_SUCCESS)
        Fail(nResult);

    LDAPControl* controls[] = {pPaging, nullptr};
    std::string sAttribute = m_options.sNameAttribute;
    char* attributes[] = {sAttribute.data(), nullptr};
    LDAPMessage* pMessage = nullptr;
    nResult = ldap_search_ext_s(m_pLdap.get(), m_options.sBaseDn.c_str(), LDAP_SCOPE_SUBTREE, sFilter.c_str(),
        attributes, 0, controls, nullptr, &m_timeOut, LDAP_NO_LIMIT, &pMessage);
    const Message message(pMessage);
    m_sCookie.clear();
    // With these the directory has sent what it gives.
    const bool bCut = nResult == LDAP_SIZELIMIT_EXCEEDED || nResult == LDAP_ADMINLIMIT_EXCEEDED;
    if (nResult != LDAP_SUCCESS && !bCut)
        Fail(nResult);

    Page page;
    page.bCut = bCut;
    page.vecEntries = ReadEntries(pMessage);
    if (!bCut)
        ReadCookie(pMessage);
    page.bMore = !m_sCookie.empty();
    return page;
}

std::vector<LdapConnection::Entry> LdapConnection::ReadEntries(LDAPMessage* pMessage)
{
    LDAP* const pLdap = m_pLdap.get();
    std::vector<Entry> vecEntries;
    for (LDAPMessage* pEntry = ldap_first_entry(pLdap, pMessage); pEntry;
         pEntry = ldap_next_entry(pLdap, pEntry)) {
        Entry entry;
        const std::unique_ptr<char, TextFree> dn(ldap_get_dn(pLdap, pEntry));
        const std::unique_ptr<berval*, ValuesFree> values(
            ldap_get_values_len(pLdap, pEntry, m_options.sNameAttribute.c_str()));
        for (berval** ppValue = values.get(); ppValue && *ppValue; ++ppValue)
            entry.vecNames.push_back(ToText(**ppValue));
        if (dn)
            entry.sDn = dn.get();
        vecEntries.push_back(std::move(entry));
    }
    return vecEntries;
}

void LdapConnection::ReadCookie(LDAPMessage* pMessage)
{
    int nCode = LDAP_SUCCESS;
    LDAPControl** ppControls = nullptr;
    const int nResult =
        ldap_parse_result(m_pLdap.get(), pMessage, &nCode, nullptr, nullptr, nullptr, &ppControls, 0);
    const std::unique_ptr<LDAPControl*, ControlsFree> controls(ppControls);
    if (nResult != LDAP_SUCCESS)
        Fail(nResult);
    // A directory that knows no pages has sent everything at once.
    LDAPControl* const pPaging = ldap_control_find(LDAP_CONTROL_PAGEDRESULTS, ppControls, nullptr);
    if (!pPaging)
        return;
    ber_int_t nEstimate = 0;
    berval cookie{0, nullptr};
    if (ldap_parse_pageresponse_control(m_pLdap.get(), pPaging, &nEstimate, &cookie) == LDAP_SUCCESS)
        m_sCookie = cookie.bv_val ? ToText(cookie) : std::string();
    ldap_memfree(cookie.bv_val);
}

void LdapConnection::Fail(int nResult)
{
    std::string sDetail = ldap_err2string(nResult);
    // What went wrong on this side, a certificate for example, is told in more words.
    char* szMessage = nullptr;
    if (nResult < 0 && m_pLdap)
        ldap_get_option(m_pLdap.get(), LDAP_OPT_DIAGNOSTIC_MESSAGE, &szMessage);
    const std::unique_ptr<char, TextFree> message(szMessage);
    if (szMessage && *szMessage != '\0')
        sDetail += ": " + std::string(szMessage);
    throw ServiceError(
        IsUnreachable(nResult) ? UICommonMdl::ErrorDirectoryUnreachable : UICommonMdl::ErrorDirectoryRefused,
        sDetail);
}

} // namespace Platform

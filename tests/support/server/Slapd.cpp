#include "Slapd.h"

#include <arpa/inet.h>
#include <fcntl.h>
#include <ldap.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <csignal>
#include <fstream>
#include <functional>
#include <memory>
#include <stdexcept>
#include <thread>

namespace TestSupport {

namespace {

using Arguments = std::vector<std::string>;

constexpr std::chrono::seconds Deadline{20};

int FreePort()
{
    const int nSocket = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t nSize = sizeof(address);
    const bool bOk = bind(nSocket, reinterpret_cast<sockaddr*>(&address), nSize) == 0
        && getsockname(nSocket, reinterpret_cast<sockaddr*>(&address), &nSize) == 0;
    close(nSocket);
    if (!bOk)
        throw std::runtime_error("There is no free port");
    return ntohs(address.sin_port);
}

/// Starts a program that ends with this one at the latest; what it says goes to sLog.
pid_t Launch(const Arguments& arguments, const std::string& sLog)
{
    std::vector<char*> vecArguments;
    for (const std::string& sArgument : arguments)
        vecArguments.push_back(const_cast<char*>(sArgument.c_str()));
    vecArguments.push_back(nullptr);
    const pid_t nPid = fork();
    if (nPid == 0) {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        const int nLog = open(sLog.c_str(), O_WRONLY | O_CREAT | O_APPEND, 0600);
        dup2(nLog, STDOUT_FILENO);
        dup2(nLog, STDERR_FILENO);
        execvp(vecArguments[0], vecArguments.data());
        _exit(127);
    }
    if (nPid < 0)
        throw std::runtime_error("No process for " + arguments.front());
    return nPid;
}

void Run(const Arguments& arguments, const std::string& sLog)
{
    const pid_t nPid = Launch(arguments, sLog);
    int nStatus = 0;
    waitpid(nPid, &nStatus, 0);
    if (!WIFEXITED(nStatus) || WEXITSTATUS(nStatus) != 0)
        throw std::runtime_error(arguments.front() + " failed");
}

struct Closer
{
    void operator()(LDAP* pLdap) const { ldap_unbind_ext_s(pLdap, nullptr, nullptr); }
};

/// Something done on a connection of the administrator's; answers the result code.
int AsAdmin(const Slapd& slapd, const std::function<int(LDAP*)>& action)
{
    LDAP* pLdap = nullptr;
    if (ldap_initialize(&pLdap, slapd.Url().c_str()) != LDAP_SUCCESS)
        return LDAP_OTHER;
    const std::unique_ptr<LDAP, Closer> connection(pLdap);
    const int nVersion = LDAP_VERSION3;
    ldap_set_option(pLdap, LDAP_OPT_PROTOCOL_VERSION, &nVersion);
    std::string sPassword = slapd.AdminPassword();
    berval password{sPassword.size(), sPassword.data()};
    const int nResult = ldap_sasl_bind_s(
        pLdap, slapd.AdminDn().c_str(), LDAP_SASL_SIMPLE, &password, nullptr, nullptr, nullptr);
    return nResult == LDAP_SUCCESS ? action(pLdap) : nResult;
}

void Require(int nResult, const std::string& sWhat)
{
    if (nResult != LDAP_SUCCESS)
        throw std::runtime_error(sWhat + ": " + ldap_err2string(nResult));
}

std::string EscapeDnValue(const std::string& sValue)
{
    std::string sEscaped;
    for (const char c : sValue) {
        if (std::string("\\,+\"<>;=#").find(c) != std::string::npos)
            sEscaped += '\\';
        sEscaped += c;
    }
    return sEscaped;
}

} // namespace

Slapd::Slapd()
    : Slapd(Options())
{
}

Slapd::Slapd(const Options& options)
    : m_nPort(FreePort())
    , m_nTlsPort(options.bTls ? FreePort() : 0)
{
    std::string sTemplate = (std::filesystem::temp_directory_path() / "slapd-test-XXXXXX").string();
    if (!mkdtemp(sTemplate.data()))
        throw std::runtime_error("No folder for the directory");
    m_folder = sTemplate;
    std::filesystem::create_directory(m_folder / "db");
    if (options.bTls) {
        MakeCertificate("server");
        MakeCertificate("other");
    }
    WriteConfiguration(options);
    LoadEntries(options.nUsers);
    Start();
}

Slapd::~Slapd()
{
    Stop();
    std::error_code ignored;
    std::filesystem::remove_all(m_folder, ignored);
}

std::string Slapd::Url() const
{
    return "ldap://127.0.0.1:" + std::to_string(m_nPort);
}

std::string Slapd::TlsUrl() const
{
    return "ldaps://127.0.0.1:" + std::to_string(m_nTlsPort);
}

std::string Slapd::UserDn(const std::string& sName) const
{
    return "uid=" + EscapeDnValue(sName) + ",ou=people," + BaseDn();
}

void Slapd::MakeCertificate(const std::string& sName) const
{
    Run({"openssl", "req", "-x509", "-newkey", "rsa:2048", "-nodes", "-days", "2", "-subj", "/CN=" + sName,
            "-addext", "subjectAltName=IP:127.0.0.1", "-keyout", (m_folder / (sName + ".key")).string(),
            "-out", (m_folder / (sName + ".pem")).string()},
        (m_folder / "openssl.log").string());
}

void Slapd::WriteConfiguration(const Options& options) const
{
    std::ofstream file(m_folder / "slapd.conf");
    for (const char* szSchema : {"core", "cosine", "inetorgperson"})
        file << "include /etc/ldap/schema/" << szSchema << ".schema\n";
    file << "modulepath /usr/lib/ldap\nmoduleload back_mdb\n";
    if (options.nSizeLimit > 0)
        file << "sizelimit " << options.nSizeLimit << '\n';
    if (options.bTls)
        file << "TLSCertificateFile " << CaFile() << "\nTLSCertificateKeyFile "
             << (m_folder / "server.key").string() << '\n';
    file << "database mdb\nmaxsize 268435456\ndbnosync\nsuffix \"" << BaseDn() << "\"\nrootdn \"" << AdminDn()
         << "\"\nrootpw " << AdminPassword() << "\ndirectory " << (m_folder / "db").string()
         << "\nindex objectClass eq\nindex uid eq,sub\n"
         << "access to attrs=userPassword by anonymous auth by * none\n"
         << "access to * by dn.exact=\"" << ReaderDn() << "\" read by * none\n";
    if (options.nSizeLimit == 0)
        file << "limits dn.exact=\"" << ReaderDn() << "\" size=500 size.prtotal=unlimited\n";
}

void Slapd::LoadEntries(int nUsers) const
{
    const std::filesystem::path ldif = m_folder / "data.ldif";
    {
        std::ofstream file(ldif);
        file << "dn: " << BaseDn() << "\nobjectClass: dcObject\nobjectClass: organization\ndc: example\n"
             << "o: Example\n\n"
             << "dn: " << ReaderDn() << "\nobjectClass: organizationalRole\n"
             << "objectClass: simpleSecurityObject\ncn: reader\nuserPassword: " << ReaderPassword() << "\n\n";
        for (const char* szUnit : {"people", "guests"})
            file << "dn: ou=" << szUnit << ',' << BaseDn()
                 << "\nobjectClass: organizationalUnit\nou: " << szUnit << "\n\n";
        for (int n = 1; n <= nUsers; ++n) {
            const std::string sNumber = std::to_string(n);
            const std::string sName = "user" + std::string(5 - sNumber.size(), '0') + sNumber;
            file << "dn: " << UserDn(sName) << "\nobjectClass: inetOrgPerson\nuid: " << sName
                 << "\ncn: " << sName << "\nsn: " << sName << "\nuserPassword: " << UserPassword << "\n\n";
        }
    }
    Run({"/usr/sbin/slapadd", "-q", "-f", (m_folder / "slapd.conf").string(), "-l", ldif.string()},
        (m_folder / "slapadd.log").string());
}

void Slapd::Start()
{
    if (m_nPid > 0)
        return;
    std::string sUrls = Url() + '/';
    if (m_nTlsPort > 0)
        sUrls += ' ' + TlsUrl() + '/';
    m_nPid = Launch({"/usr/sbin/slapd", "-h", sUrls, "-f", (m_folder / "slapd.conf").string(), "-d", "0"},
        (m_folder / "slapd.log").string());
    WaitUntilReady();
}

void Slapd::WaitUntilReady() const
{
    const auto end = std::chrono::steady_clock::now() + Deadline;
    while (AsAdmin(*this, [](LDAP*) { return LDAP_SUCCESS; }) != LDAP_SUCCESS) {
        if (waitpid(m_nPid, nullptr, WNOHANG) != 0 || std::chrono::steady_clock::now() > end)
            throw std::runtime_error("The directory does not start");
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
}

void Slapd::Stop()
{
    if (m_nPid <= 0)
        return;
    kill(m_nPid, SIGTERM);
    waitpid(m_nPid, nullptr, 0);
    m_nPid = -1;
}

void Slapd::AddEntry(const std::string& sDn, const std::string& sCommonName, const std::string& sName,
    const std::string& sPassword) const
{
    const std::pair<const char*, std::string> attributes[] = {{"objectClass", "inetOrgPerson"},
        {"cn", sCommonName}, {"sn", sCommonName}, {"uid", sName}, {"userPassword", sPassword}};
    std::vector<berval> vecValues;
    for (const auto& [szType, sValue] : attributes)
        vecValues.push_back({sValue.size(), const_cast<char*>(sValue.data())});
    std::vector<std::array<berval*, 2>> vecLists;
    for (berval& value : vecValues)
        vecLists.push_back({&value, nullptr});
    std::vector<LDAPMod> vecChanges;
    for (std::size_t n = 0; n < vecValues.size(); ++n) {
        if (vecValues[n].bv_len == 0)
            continue;
        LDAPMod change{};
        change.mod_op = LDAP_MOD_ADD | LDAP_MOD_BVALUES;
        change.mod_type = const_cast<char*>(attributes[n].first);
        change.mod_bvalues = vecLists[n].data();
        vecChanges.push_back(change);
    }
    std::vector<LDAPMod*> vecPointers;
    for (LDAPMod& change : vecChanges)
        vecPointers.push_back(&change);
    vecPointers.push_back(nullptr);
    Require(AsAdmin(*this,
                [&](LDAP* pLdap) {
                    return ldap_add_ext_s(pLdap, sDn.c_str(), vecPointers.data(), nullptr, nullptr);
                }),
        "The directory does not add " + sDn);
}

void Slapd::AddUser(const std::string& sName, const std::string& sPassword)
{
    AddEntry(UserDn(sName), sName, sName, sPassword);
}

void Slapd::AddNamesake(const std::string& sName)
{
    AddEntry("uid=" + EscapeDnValue(sName) + ",ou=guests," + BaseDn(), sName, sName, UserPassword);
}

void Slapd::AddNameless(const std::string& sCommonName)
{
    AddEntry("cn=" + EscapeDnValue(sCommonName) + ",ou=people," + BaseDn(), sCommonName, {}, UserPassword);
}

void Slapd::RemoveUser(const std::string& sName)
{
    const std::string sDn = UserDn(sName);
    Require(
        AsAdmin(*this, [&](LDAP* pLdap) { return ldap_delete_ext_s(pLdap, sDn.c_str(), nullptr, nullptr); }),
        "The directory does not remove " + sDn);
}

} // namespace TestSupport

#include <ServiceError.h>
#include <Slapd.h>
#include <directory/Directory.h>
#include <directory/LdapConnection.h>

#include <arpa/inet.h>
#include <sys/socket.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <chrono>

using namespace Platform;
using TestSupport::Slapd;
using UICommonMdl::ErrorDirectoryRefused;
using UICommonMdl::ErrorDirectoryUnreachable;

namespace {

DirectoryOptions ReaderOptions(const Slapd& slapd)
{
    DirectoryOptions options;
    options.sUrl = slapd.Url();
    options.sBaseDn = slapd.BaseDn();
    options.sBindDn = slapd.ReaderDn();
    options.sBindPassword = slapd.ReaderPassword();
    return options;
}

std::vector<std::string> Names(const std::vector<DirectoryUser>& vecUsers)
{
    std::vector<std::string> vecNames;
    for (const DirectoryUser& user : vecUsers)
        vecNames.push_back(user.sName);
    return vecNames;
}

/// What a call fails with; no password may be in the text.
int ErrorOf(const std::function<void()>& call)
{
    try {
        call();
    } catch (const ServiceError& error) {
        for (const char* szSecret : {"Reader-", "Harbor-", "Wrong-"})
            EXPECT_EQ(error.Detail().find(szSecret), std::string::npos) << error.Detail();
        return error.Code();
    }
    return UICommonMdl::ErrorNone;
}

/// Takes connections and never says anything.
class SilentServer
{
public:
    SilentServer()
        : m_nSocket(socket(AF_INET, SOCK_STREAM, 0))
    {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t nSize = sizeof(address);
        EXPECT_EQ(bind(m_nSocket, reinterpret_cast<sockaddr*>(&address), nSize), 0);
        EXPECT_EQ(listen(m_nSocket, 8), 0);
        getsockname(m_nSocket, reinterpret_cast<sockaddr*>(&address), &nSize);
        m_nPort = ntohs(address.sin_port);
    }
    ~SilentServer() { close(m_nSocket); }
    std::string Url(const std::string& sScheme) const
    {
        return sScheme + "://127.0.0.1:" + std::to_string(m_nPort);
    }

private:
    int m_nSocket;
    int m_nPort = 0;
};

} // namespace

/// One directory with the users of an office.
class DirectoryTest : public testing::Test
{
protected:
    static void SetUpTestSuite()
    {
        s_pSlapd = std::make_unique<Slapd>();
        for (const char* szName :
            {"carol", "Bob", "alice", "al*ce", "a(b)c", "back\\slash", "Jörg", "smith, j"})
            s_pSlapd->AddUser(szName, Slapd::UserPassword);
        s_pSlapd->AddNameless("Printer Room");
        s_pSlapd->AddUser("twin", Slapd::UserPassword);
        s_pSlapd->AddNamesake("twin");
    }
    static void TearDownTestSuite() { s_pSlapd.reset(); }

    static std::unique_ptr<Slapd> s_pSlapd;
    Directory m_directory{ReaderOptions(*s_pSlapd)};
};
std::unique_ptr<Slapd> DirectoryTest::s_pSlapd;

TEST_F(DirectoryTest, ListsUsersByNameWithoutThoseThatHaveNone)
{
    const Directory::Found found = m_directory.Search("", 100);
    EXPECT_EQ(Names(found.vecUsers),
        (std::vector<std::string>{
            "a(b)c", "al*ce", "alice", "back\\slash", "Bob", "carol", "Jörg", "smith, j", "twin", "twin"}));
    EXPECT_FALSE(found.bTruncated);
    EXPECT_EQ(found.vecUsers[2].sDn, "uid=alice,ou=people,dc=example,dc=org");
}

TEST_F(DirectoryTest, SearchTakesEveryCharacterForItself)
{
    const std::pair<const char*, std::vector<std::string>> cases[] = {{"*", {"al*ce"}}, {"(", {"a(b)c"}},
        {")", {"a(b)c"}}, {"\\", {"back\\slash"}}, {"ö", {"Jörg"}}, {"BO", {"Bob"}}, {", ", {"smith, j"}},
        {"*)(uid=*", {}}, {"nobody", {}}, {"l*c", {"al*ce"}}};
    for (const auto& [szText, vecNames] : cases)
        EXPECT_EQ(Names(m_directory.Search(szText, 100).vecUsers), vecNames) << szText;
    EXPECT_EQ(EscapeFilterValue(std::string("a\0b", 3)), "a\\00b");
}

TEST_F(DirectoryTest, FindsTheOneOfThatName)
{
    for (const char* szName : {"al*ce", "a(b)c", "back\\slash", "Jörg", "smith, j"}) {
        const auto optUser = m_directory.Find(szName);
        ASSERT_TRUE(optUser) << szName;
        EXPECT_EQ(optUser->sName, szName);
        EXPECT_TRUE(m_directory.CheckPassword(optUser->sDn, Slapd::UserPassword)) << szName;
    }
    EXPECT_EQ(m_directory.Find("BOB")->sName, "Bob");
    for (const char* szName : {"ali", "*", "", "bob)(uid=*"})
        EXPECT_FALSE(m_directory.Find(szName)) << szName;
    EXPECT_EQ(ErrorOf([&] { m_directory.Find("twin"); }), UICommonMdl::ErrorNameExists);
}

TEST_F(DirectoryTest, AddedAndRemovedUsersAreSeenAtOnce)
{
    s_pSlapd->AddUser("dave", "Harbor-32");
    const std::string sDn = m_directory.Find("dave").value_or(DirectoryUser{}).sDn;
    EXPECT_TRUE(m_directory.CheckPassword(sDn, "Harbor-32"));
    s_pSlapd->RemoveUser("dave");
    EXPECT_FALSE(m_directory.Find("dave"));
    EXPECT_FALSE(m_directory.CheckPassword(sDn, "Harbor-32"));
}

TEST_F(DirectoryTest, OnlyTheRightPasswordIsAccepted)
{
    const std::string sDn = s_pSlapd->UserDn("alice");
    EXPECT_TRUE(m_directory.CheckPassword(sDn, Slapd::UserPassword));
    const std::string wrong[] = {"", "harbor-31", "Harbor-31 ", std::string("Harbor-31\0", 10),
        std::string(10000, 'x'), "*", "Wrong-\"'ü"};
    for (const std::string& sPassword : wrong)
        EXPECT_FALSE(m_directory.CheckPassword(sDn, sPassword)) << sPassword.substr(0, 20);
    for (const std::string& sOther : {std::string(), std::string("no DN"), s_pSlapd->UserDn("nobody")})
        EXPECT_FALSE(m_directory.CheckPassword(sOther, Slapd::UserPassword)) << sOther;
}

TEST_F(DirectoryTest, TellsARefusalFromAnAbsentServer)
{
    struct Case
    {
        const char* szWhat;
        std::function<void(DirectoryOptions&)> change;
        int nError;
    };
    const Case cases[] = {
        {"wrong password", [](auto& options) { options.sBindPassword = "Wrong-1"; }, ErrorDirectoryRefused},
        {"empty password", [](auto& options) { options.sBindPassword.clear(); }, ErrorDirectoryRefused},
        {"no login", [](auto& options) { options.sBindDn = options.sBindPassword = ""; },
            ErrorDirectoryRefused},
        {"base", [](auto& options) { options.sBaseDn = "dc=elsewhere"; }, ErrorDirectoryRefused},
        {"filter", [](auto& options) { options.sUserFilter = "(objectClass="; }, ErrorDirectoryRefused},
        {"no TLS there", [](auto& options) { options.bStartTls = true; }, ErrorDirectoryRefused},
        {"nobody listens", [](auto& options) { options.sUrl = "ldap://127.0.0.1:1"; },
            ErrorDirectoryUnreachable},
        {"no host", [](auto& options) { options.sUrl = "ldap://directory.invalid"; },
            ErrorDirectoryUnreachable},
        {"no address", [](auto& options) { options.sUrl = "directory"; }, ErrorDirectoryUnreachable},
        {"none", [](auto& options) { options.sUrl.clear(); }, UICommonMdl::ErrorDirectoryNotConfigured},
    };
    for (const Case& test : cases) {
        DirectoryOptions options = ReaderOptions(*s_pSlapd);
        test.change(options);
        EXPECT_EQ(ErrorOf([&] { Directory(options).Search("", 10); }), test.nError) << test.szWhat;
        EXPECT_EQ(ErrorOf([&] { Directory(options).Find("alice"); }), test.nError) << test.szWhat;
    }
}

TEST_F(DirectoryTest, AServerThatNeverAnswersIsGivenUp)
{
    const SilentServer silent;
    for (const auto& [sScheme, bStartTls] : {std::pair("ldap", false), {"ldap", true}, {"ldaps", false}}) {
        DirectoryOptions options = ReaderOptions(*s_pSlapd);
        options.sUrl = silent.Url(sScheme);
        options.bStartTls = bStartTls;
        options.nTimeoutMs = 300;
        const auto start = std::chrono::steady_clock::now();
        EXPECT_EQ(ErrorOf([&] { Directory(options).CheckPassword("uid=alice", "Harbor-31"); }),
            ErrorDirectoryUnreachable)
            << sScheme << bStartTls;
        EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5)) << sScheme << bStartTls;
    }
}

TEST(DirectorySize, ReadsPageByPageUpToTheLimit)
{
    Slapd::Options slapdOptions;
    slapdOptions.nUsers = 1700;
    const Slapd slapd(slapdOptions);
    const Directory directory(ReaderOptions(slapd));
    for (const auto& [nLimit, bTruncated] :
        {std::pair(5000U, false), {1700U, false}, {1699U, true}, {1U, true}}) {
        const Directory::Found found = directory.Search("user", nLimit);
        EXPECT_EQ(found.vecUsers.size(), std::min(nLimit, 1700U));
        EXPECT_EQ(found.bTruncated, bTruncated) << nLimit;
        EXPECT_EQ(found.vecUsers.front().sName, "user00001");
    }
}

TEST(DirectorySize, ASizeLimitOfTheDirectoryCutsTheList)
{
    Slapd::Options slapdOptions;
    slapdOptions.nUsers = 60;
    slapdOptions.nSizeLimit = 40;
    const Slapd slapd(slapdOptions);
    const Directory directory(ReaderOptions(slapd));
    const Directory::Found found = directory.Search("", 1000);
    EXPECT_EQ(found.vecUsers.size(), 40U);
    EXPECT_TRUE(found.bTruncated);
    EXPECT_FALSE(directory.Search("user0000", 1000).bTruncated);
    EXPECT_TRUE(directory.Find("user00060")) << "a single user is within the limit";
}

TEST(DirectoryEncryption, TheCertificateIsChecked)
{
    Slapd::Options slapdOptions;
    slapdOptions.bTls = true;
    slapdOptions.nUsers = 1;
    const Slapd slapd(slapdOptions);
    for (const bool bStartTls : {true, false}) {
        DirectoryOptions options = ReaderOptions(slapd);
        options.bStartTls = bStartTls;
        if (!bStartTls)
            options.sUrl = slapd.TlsUrl();
        const auto search = [&] { EXPECT_EQ(Directory(options).Search("", 10).vecUsers.size(), 1U); };
        options.sCaFile = slapd.CaFile();
        EXPECT_EQ(ErrorOf(search), UICommonMdl::ErrorNone) << bStartTls;
        EXPECT_TRUE(Directory(options).CheckPassword(slapd.UserDn("user00001"), Slapd::UserPassword));
        options.sCaFile = slapd.OtherCaFile();
        EXPECT_EQ(ErrorOf(search), ErrorDirectoryUnreachable) << bStartTls;
        options.sCaFile.clear();
        EXPECT_EQ(ErrorOf(search), ErrorDirectoryUnreachable) << "not known to the system, " << bStartTls;
        options.sCaFile = "/nonexistent.pem";
        EXPECT_EQ(ErrorOf(search), ErrorDirectoryUnreachable) << bStartTls;
    }
}

#include "ServerFixture.h"
#include "Slapd.h"

namespace ServerTest {

using namespace UICommonMdl;
using namespace UserLogical;
using TestSupport::TestServer;

namespace {

const std::string FirstPassword = "Harbour-17";
const std::string NextPassword = "Windmill-23";
constexpr std::int64_t DayMs = std::int64_t(24) * 60 * 60 * 1000;

User_t MakeUser(const std::string& sName, const std::string& sRoleId)
{
    User_t user;
    user.sUserName = sName;
    user.sPassword = FirstPassword;
    user.nPtzLevel = 3;
    user.vecRoleIds = {sRoleId};
    return user;
}

} // namespace

class AccountTest : public ServerFixture
{
protected:
    /// A role with those rights.
    std::string AddRole(const std::string& sName, const std::vector<std::string>& vecRights)
    {
        RoleEdit_t edit;
        edit.role.sName = sName;
        edit.role.vecMenuRights = vecRights;
        return pClient->Get<wire::AddRole>(edit).sRoleId;
    }
    Reply SignIn(const wire::SignInRequest& request)
    {
        return ApiClient(pServer->Url()).Call<wire::SignIn>(request);
    }
    int Code(const std::string& sName, const std::string& sPassword)
    {
        return SignIn({sName, sPassword, {}, {}}).nCode;
    }
};

TEST_P(AccountTest, FieldsAreCheckedAndNothingIsKeptOfARefusedUser)
{
    Start();
    const std::string sRole = AddRole("Guard", {"001001"});
    struct Case
    {
        const char* szName;
        std::function<void(User_t&)> change;
        int nCode;
        std::string sDetail;
    };
    const std::vector<Case> vecCases{
        {"no name", [](User_t& u) { u.sUserName = "  "; }, ErrorInvalidInput, "sUserName"},
        {"long name", [](User_t& u) { u.sUserName = std::string(UserName.nMax + 1, 'x'); }, ErrorInvalidInput,
            "sUserName"},
        {"brackets", [](User_t& u) { u.sUserName = "a<b"; }, ErrorInvalidInput, "sUserName"},
        {"a name that is there in another case", [](User_t& u) { u.sUserName = "SyStem"; }, ErrorNameExists,
            "sUserName"},
        {"remark", [](User_t& u) { u.sRemark = std::string(UserRemark.nMax + 1, 'x'); }, ErrorInvalidInput,
            "sRemark"},
        {"days",
            [](User_t& u) {
                u.bPasswordInterval = true;
                u.nPasswordDays = PasswordDays.nMax + 1;
            },
            ErrorInvalidInput, "nPasswordDays"},
        {"level", [](User_t& u) { u.nPtzLevel = PtzLevel.nMax + 1; }, ErrorInvalidInput, "nPtzLevel"},
        {"e-mail", [](User_t& u) { u.sEmail = "@."; }, ErrorInvalidInput, "sEmail"},
        {"long e-mail", [](User_t& u) { u.sEmail = std::string(UserEmail.nMax, 'x') + "@host.org"; },
            ErrorInvalidInput, "sEmail"},
        {"expired",
            [](User_t& u) {
                u.bExpiry = true;
                u.nExpiry = 1;
            },
            ErrorInvalidInput, "nExpiry"},
        {"bound to nothing", [](User_t& u) { u.bBindMac = true; }, ErrorInvalidInput, "vecMacAddresses"},
        {"six addresses", [](User_t& u) { u.vecMacAddresses.assign(6, "00:11:22:33:44:55"); },
            ErrorInvalidInput, "vecMacAddresses"},
        {"short address", [](User_t& u) { u.vecMacAddresses = {"00:11:22:33:44:5"}; }, ErrorInvalidInput,
            "vecMacAddresses"},
        {"no role", [](User_t& u) { u.vecRoleIds.clear(); }, ErrorInvalidInput, "vecRoleIds"},
        {"a role that is none", [](User_t& u) { u.vecRoleIds = {"77777"}; }, ErrorNotFound, "vecRoleIds"},
        {"no password", [](User_t& u) { u.sPassword.clear(); }, ErrorPasswordRule, ""},
        {"quotes in it", [](User_t& u) { u.sPassword = "Har\"bour'17"; }, ErrorPasswordRule, ""},
        {"unicode in it", [](User_t& u) { u.sPassword = "H\xc3\xa4rbour-17"; }, ErrorPasswordRule, ""},
        {"10,000 characters", [](User_t& u) { u.sPassword = std::string(10000, 'a') + "1"; },
            ErrorPasswordRule, ""},
        {"the name itself", [](User_t& u) { u.sUserName = "Harbour-17"; }, ErrorPasswordRule, ""},
        {"a domain user by hand", [](User_t& u) { u.nUserType = UserTypeDomain; }, ErrorInvalidInput,
            "nUserType"},
    };
    for (const Case& c : vecCases) {
        User_t user = MakeUser("frank", sRole);
        c.change(user);
        const Reply reply = pClient->Call<wire::AddUser>(user);
        EXPECT_EQ(reply.nCode, c.nCode) << c.szName;
        if (!c.sDetail.empty()) {
            EXPECT_EQ(reply.sDetail, c.sDetail) << c.szName;
        }
    }
    EXPECT_EQ(pServer->QuerySql(QStringLiteral("SELECT COUNT(*) FROM account")).toInt(), 1);

    User_t user = MakeUser("  frank ", sRole);
    user.sEmail = "frank@example.org";
    user.bBindMac = true;
    user.vecMacAddresses = {"AA:bb:CC:00:11:22"};
    user.bPasswordInterval = true;
    user.nPasswordDays = 30;
    const auto added = pClient->Get<wire::AddUser>(user);
    EXPECT_EQ(added.sUserName, "frank");
    EXPECT_EQ(added.vecMacAddresses, std::vector<std::string>{"aa:bb:cc:00:11:22"});
    EXPECT_TRUE(added.sPassword.empty());
    pServer->Restart();
    EXPECT_EQ(pClient->Get<wire::QueryUserInfo>({"FRANK"}), added);
}

TEST_P(AccountTest, AListIsFilteredAndPagedWithTheRolesOfEachUser)
{
    Start();
    const std::string sGuard = AddRole("Guard", {"001001"});
    const std::string sNight = AddRole("Night", {});
    for (int n = 0; n < 25; ++n) {
        User_t user = MakeUser("user_" + std::to_string(100 + n), sGuard);
        if (n == 3)
            user.vecRoleIds.push_back(sNight);
        ASSERT_EQ(pClient->Call<wire::AddUser>(user).nCode, 0);
    }
    pServer->RunSql(QStringLiteral("UPDATE account SET user_type = 2 WHERE name = 'user_105'"));
    ApiClient other(pServer->Url());
    ASSERT_EQ(other.SignIn("user_103", FirstPassword).nCode, 0);
    EventReader events(pServer->Url(), other.sToken);
    ASSERT_TRUE(events.WaitFor("hello"));

    UserPageRequest_t request;
    request.nPageSize = 10;
    request.nPage = 9;
    auto page = pClient->Get<wire::QueryUserPage>(request);
    EXPECT_EQ(page.nTotal, 26);
    EXPECT_EQ(page.nPage, 3);
    EXPECT_EQ(page.vecUsers.size(), 6U);
    request.sSearchText = "R_103";
    page = pClient->Get<wire::QueryUserPage>(request);
    ASSERT_EQ(page.vecUsers.size(), 1U);
    EXPECT_EQ(page.vecUsers[0].vecRoleNames, (std::vector<std::string>{"Guard", "Night"}));
    EXPECT_TRUE(page.vecUsers[0].bOnline);
    request = {};
    request.nOnline = OnlineFilterOnline;
    EXPECT_EQ(pClient->Get<wire::QueryUserPage>(request).nTotal, 1);
    request.nOnline = OnlineFilterOffline;
    EXPECT_EQ(pClient->Get<wire::QueryUserPage>(request).nTotal, 25);
    request = {};
    request.nUserType = UserTypeDomain;
    EXPECT_EQ(pClient->Get<wire::QueryUserPage>(request).vecUsers.at(0).sUserName, "user_105");
    request.sSearchText = "%";
    EXPECT_EQ(pClient->Get<wire::QueryUserPage>(request).nTotal, 0) << "no pattern";
}

TEST_P(AccountTest, LockingAndDeletingEndTheSessions)
{
    Start();
    const std::string sRole = AddRole("Guard", {"001001"});
    for (const char* szName : {"frank", "grace"})
        ASSERT_EQ(pClient->Call<wire::AddUser>(MakeUser(szName, sRole)).nCode, 0);
    ApiClient frank(pServer->Url());
    frank.SignIn("frank", FirstPassword);
    EventReader events(pServer->Url(), frank.sToken);
    ASSERT_TRUE(events.WaitFor("hello"));
    ASSERT_EQ(pClient->Call<wire::LockUser>({"frank"}).nCode, 0);
    EXPECT_TRUE(events.WaitFor("session-ended"));
    EXPECT_TRUE(events.WaitForEnd());
    EXPECT_EQ(frank.Call<wire::GetSession>().nCode, ErrorNotSignedIn);
    EXPECT_EQ(Code("frank", FirstPassword), ErrorAccountDisabled);
    EXPECT_EQ(Code("frank", "Wrong-4242"), ErrorWrongPassword)
        << "that it is locked is told to its owner only";
    ASSERT_EQ(pClient->Call<wire::UnlockUser>({"frank"}).nCode, 0);
    EXPECT_EQ(Code("frank", FirstPassword), 0);

    ApiClient grace(pServer->Url());
    grace.SignIn("grace", FirstPassword);
    const auto failed = pClient->Get<wire::DeleteUsers>({{"grace", "nobody", "system"}});
    EXPECT_THAT(failed.vecFailed,
        testing::UnorderedElementsAre(
            UserFailure_t{"nobody", ErrorNotFound}, UserFailure_t{"system", ErrorBuiltInAccount}));
    EXPECT_EQ(grace.Call<wire::GetSession>().nCode, ErrorNotSignedIn);
    EXPECT_EQ(Code("grace", FirstPassword), ErrorWrongPassword);
}

TEST_P(AccountTest, SignInKeepsToWhatTheAccountSays)
{
    Start();
    const std::string sRole = AddRole("Guard", {"001001"});
    User_t user = MakeUser("frank", sRole);
    user.bForceChange = true;
    user.bPasswordInterval = true;
    user.nPasswordDays = 10;
    user.bBindMac = true;
    user.vecMacAddresses = {"aa:bb:cc:00:11:22"};
    user.bExpiry = true;
    user.nExpiry =
        pServer->QuerySql(QStringLiteral("SELECT MAX(at) FROM audit_log")).toLongLong() + 30 * DayMs;
    ASSERT_EQ(pClient->Call<wire::AddUser>(user).nCode, 0);
    const std::vector<std::string> vecOwn{"00:00:00:00:00:01", "AA:BB:CC:00:11:22"};

    EXPECT_EQ(Code("frank", FirstPassword), ErrorMacAddress);
    EXPECT_EQ(SignIn({"frank", FirstPassword, {}, vecOwn}).nCode, ErrorPasswordChangeNeeded);
    for (const std::string sBad : {"short", "Har'bour-17", "frank"})
        EXPECT_EQ(SignIn({"frank", FirstPassword, sBad, vecOwn}).nCode, ErrorPasswordRule) << sBad;
    EXPECT_EQ(SignIn({"frank", FirstPassword, FirstPassword, vecOwn}).nCode, ErrorPasswordRule);
    EXPECT_EQ(SignIn({"frank", "Wrong-4242", NextPassword, vecOwn}).nCode, ErrorWrongPassword);
    EXPECT_EQ(SignIn({"frank", FirstPassword, NextPassword, vecOwn}).nCode, 0);
    EXPECT_EQ(SignIn({"frank", NextPassword, {}, vecOwn}).nCode, 0);
    pServer->AdvanceClock(10 * DayMs);
    EXPECT_EQ(SignIn({"frank", NextPassword, {}, vecOwn}).nCode, ErrorPasswordChangeNeeded);
    EXPECT_EQ(SignIn({"frank", NextPassword, FirstPassword, vecOwn}).nCode, 0);
    pServer->AdvanceClock(20 * DayMs);
    EXPECT_EQ(SignIn({"frank", FirstPassword, {}, vecOwn}).nCode, ErrorAccountExpired);
}

TEST_P(AccountTest, AnAccountForOneClientLeavesTheOtherOne)
{
    Start();
    const std::string sRole = AddRole("Guard", {"001001"});
    for (const bool bMulti : {false, true}) {
        User_t user = MakeUser(bMulti ? "grace" : "frank", sRole);
        user.bMultiLogin = bMulti;
        ASSERT_EQ(pClient->Call<wire::AddUser>(user).nCode, 0);
        ApiClient first(pServer->Url());
        first.SignIn(user.sUserName, FirstPassword);
        EventReader events(pServer->Url(), first.sToken);
        ASSERT_TRUE(events.WaitFor("hello"));
        ApiClient second(pServer->Url());
        ASSERT_EQ(second.SignIn(user.sUserName, FirstPassword).nCode, 0);
        EXPECT_EQ(first.Call<wire::GetSession>().nCode, bMulti ? 0 : ErrorNotSignedIn);
        EXPECT_EQ(second.Call<wire::GetSession>().nCode, 0);
        if (!bMulti) {
            EXPECT_TRUE(events.WaitFor("session-ended"));
        }
    }
}

TEST_P(AccountTest, NobodyReachesAboveHimselfOrLeavesNoManager)
{
    Start();
    const std::string sManager = AddRole("Manager", {"001002001", "001002002", "001001"});
    const std::string sMore = AddRole("More", {"002001"});
    const std::string sGuard = AddRole("Guard", {"001001"});
    for (const auto& [sName, sRole] : std::vector<std::pair<std::string, std::string>>{
             {"mia", sManager}, {"max", sManager}, {"otto", sMore}, {"gus", sGuard}})
        ASSERT_EQ(pClient->Call<wire::AddUser>(MakeUser(sName, sRole)).nCode, 0);
    ApiClient mia(pServer->Url());
    mia.SignIn("mia", FirstPassword);

    EXPECT_EQ(mia.Call<wire::AddUser>(MakeUser("new", sMore)).nCode, ErrorRightNotOwn);
    EXPECT_EQ(mia.Call<wire::AddUser>(MakeUser("new", "1")).nCode, ErrorRightNotOwn);
    EXPECT_EQ(mia.Call<wire::AddUser>(MakeUser("new", sGuard)).nCode, 0);
    User_t otto = mia.Get<wire::QueryUserInfo>({"otto"});
    otto.sPassword = NextPassword;
    EXPECT_EQ(mia.Call<wire::ModifyUser>(otto).nCode, ErrorRightNotOwn)
        << "and so nobody signs in as somebody else";
    EXPECT_EQ(mia.Call<wire::LockUser>({"otto"}).nCode, ErrorRightNotOwn);
    EXPECT_EQ(mia.Get<wire::DeleteUsers>({{"otto"}}).vecFailed.at(0).nErrorCode, ErrorRightNotOwn);
    EXPECT_EQ(mia.Call<wire::LockUser>({"mia"}).nCode, ErrorOwnAccount);
    EXPECT_EQ(mia.Get<wire::DeleteUsers>({{"mia"}}).vecFailed.at(0).nErrorCode, ErrorOwnAccount);
    EXPECT_EQ(mia.Call<wire::LockUser>({"system"}).nCode, ErrorBuiltInAccount);
    RoleEdit_t edit;
    edit.role.sName = "Escape";
    edit.role.vecMenuRights = {"003004"};
    EXPECT_EQ(mia.Call<wire::AddRole>(edit).nCode, ErrorRightNotOwn);

    // Without the built-in account somebody else has to stay.
    pServer->RunSql(QStringLiteral("UPDATE account SET lock_state = 2 WHERE id = 1"));
    EXPECT_EQ(mia.Call<wire::LockUser>({"max"}).nCode, 0);
    ASSERT_EQ(mia.Call<wire::UnlockUser>({"max"}).nCode, 0);
    ApiClient max(pServer->Url());
    max.SignIn("max", FirstPassword);
    ASSERT_EQ(max.Call<wire::LockUser>({"mia"}).nCode, 0);
    User_t own = max.Get<wire::QueryUserInfo>({"max"});
    own.vecRoleIds = {sGuard};
    EXPECT_EQ(max.Call<wire::ModifyUser>(own).nCode, ErrorLastManager);
    own.vecRoleIds = {sManager};
    own.bExpiry = true;
    own.nExpiry = std::numeric_limits<std::int64_t>::max();
    EXPECT_EQ(max.Call<wire::ModifyUser>(own).nCode, ErrorLastManager);
    edit.role = max.Get<wire::QueryRoleInfo>({sManager});
    std::erase(edit.role.vecMenuRights, "001002001");
    EXPECT_EQ(max.Call<wire::ModifyRole>(edit).nCode, ErrorLastManager);
    EXPECT_EQ(max.Get<wire::QueryUserInfo>({"max"}).vecRoleIds, std::vector<std::string>{sManager});
}

TEST_P(AccountTest, OfTwoOperatorsTheSecondIsTold)
{
    Start();
    const std::string sRole = AddRole("Guard", {"001001"});
    User_t first = pClient->Get<wire::AddUser>(MakeUser("frank", sRole));
    User_t second = first;
    first.sEmail = "first@example.org";
    second.sEmail = "second@example.org";
    EXPECT_EQ(pClient->Call<wire::ModifyUser>(first).nCode, 0);
    EXPECT_EQ(pClient->Call<wire::ModifyUser>(second).nCode, ErrorVersionConflict);
    EXPECT_EQ(pClient->Get<wire::QueryUserInfo>({"frank"}).sEmail, "first@example.org");
    RoleEdit_t edit;
    edit.role = pClient->Get<wire::QueryRoleInfo>({sRole});
    RoleEdit_t late = edit;
    edit.role.sRemark = "first";
    EXPECT_EQ(pClient->Call<wire::ModifyRole>(edit).nCode, 0);
    EXPECT_EQ(pClient->Call<wire::ModifyRole>(late).nCode, ErrorVersionConflict);
    late.role.sRoleId.clear();
    late.role.sName = "GUARD";
    EXPECT_EQ(pClient->Call<wire::AddRole>(late).nCode, ErrorNameExists);
    EXPECT_EQ(pClient->Get<wire::DeleteRoles>({{sRole}}).vecFailed.at(0),
        (UserFailure_t{"Guard", ErrorReferenced}));
}

TEST_P(AccountTest, TheLogTellsWhoDidWhatAndNoSecret)
{
    Start();
    const std::string sRole = AddRole("Guard", {"001001"});
    User_t user = pClient->Get<wire::AddUser>(MakeUser("frank", sRole));
    user.sPassword = NextPassword;
    user.sEmail = "frank@example.org";
    pClient->Get<wire::ModifyUser>(user);
    Code("frank", "Wrong-4242");
    AuditRequest_t request;
    request.sOperation = "user/";
    auto page = pClient->Get<wire::QueryAuditPage>(request);
    ASSERT_EQ(page.nTotal, 2);
    EXPECT_EQ(page.vecEntries[0].sOperation, "user/modify");
    EXPECT_EQ(page.vecEntries[0].sUserName, "system");
    EXPECT_EQ(page.vecEntries[0].sObjectId, "frank");
    const auto after = nlohmann::json::parse(page.vecEntries[0].sAfter);
    EXPECT_EQ(after["sEmail"], "frank@example.org");
    EXPECT_EQ(after["bPasswordChanged"], true);
    request = {};
    request.sUserName = "FRA";
    page = pClient->Get<wire::QueryAuditPage>(request);
    ASSERT_EQ(page.nTotal, 1) << "the sign-in that was refused";
    EXPECT_NE(page.vecEntries[0].sAfter.find("21"), std::string::npos);
    request = {};
    request.nPageSize = 1000;
    for (const AuditEntry_t& entry : pClient->Get<wire::QueryAuditPage>(request).vecEntries)
        for (const std::string& sSecret :
            {FirstPassword, NextPassword, TestServer::AdminPassword(), std::string("$argon2")}) {
            EXPECT_EQ(entry.sBefore.find(sSecret), std::string::npos);
            EXPECT_EQ(entry.sAfter.find(sSecret), std::string::npos);
        }
    request.nBelowId = page.vecEntries[0].nId;
    EXPECT_EQ(pClient->Get<wire::QueryAuditPage>(request).vecEntries.at(0).sOperation, "user/modify");
}

TEST_P(AccountTest, DomainUsersComeFromTheDirectoryAndSignInAgainstIt)
{
    Start();
    EXPECT_EQ(pClient->Call<wire::QueryDomainUsers>().nCode, ErrorDirectoryNotConfigured);
    EXPECT_EQ(pClient->Call<wire::QueryInvalidDomainUsers>().nCode, ErrorDirectoryNotConfigured);

    TestSupport::Slapd directory;
    for (const char* szName : {"nora", "olaf", "system"})
        directory.AddUser(szName, TestSupport::Slapd::UserPassword);
    TestSupport::TestServerOptions options;
    options.directory.sUrl = directory.Url();
    options.directory.sBaseDn = directory.BaseDn();
    options.directory.sBindDn = directory.ReaderDn();
    options.directory.sBindPassword = directory.ReaderPassword();
    Start(options);
    const std::string sRole = AddRole("Guard", {"001001"});
    const auto found = pClient->Get<wire::QueryDomainUsers>();
    ASSERT_EQ(found.vecDomainUsers.size(), 2U) << "who is an account already is left out";
    EXPECT_EQ(found.vecDomainUsers[0], (DomainUser_t{"nora", directory.UserDn("nora")}));
    const auto failed = pClient->Get<wire::AddDomainUsers>({{"nora", "olaf", "system", "paul"}, {sRole}});
    EXPECT_THAT(failed.vecFailed,
        testing::UnorderedElementsAre(
            UserFailure_t{"system", ErrorNameExists}, UserFailure_t{"paul", ErrorNotFound}));
    EXPECT_EQ(pClient->Get<wire::QueryUserInfo>({"nora"}).nUserType, UserTypeDomain);

    EXPECT_EQ(Code("nora", TestSupport::Slapd::UserPassword), 0);
    EXPECT_EQ(Code("nora", ""), ErrorWrongPassword);
    EXPECT_EQ(Code("nora", "Wrong-4242"), ErrorWrongPassword);
    User_t nora = pClient->Get<wire::QueryUserInfo>({"nora"});
    nora.sPassword = NextPassword;
    EXPECT_EQ(pClient->Call<wire::ModifyUser>(nora).nCode, ErrorInvalidInput)
        << "the directory has its password";
    // A directory that is away locks nobody out.
    directory.Stop();
    for (int n = 0; n < 6; ++n)
        EXPECT_EQ(Code("nora", TestSupport::Slapd::UserPassword), ErrorDirectoryUnreachable);
    directory.Start();
    EXPECT_EQ(Code("nora", TestSupport::Slapd::UserPassword), 0);

    EXPECT_TRUE(pClient->Get<wire::QueryInvalidDomainUsers>().vecDomainUsers.empty());
    directory.RemoveUser("olaf");
    EXPECT_EQ(Code("olaf", TestSupport::Slapd::UserPassword), ErrorWrongPassword);
    const auto invalid = pClient->Get<wire::QueryInvalidDomainUsers>();
    ASSERT_EQ(invalid.vecDomainUsers.size(), 1U);
    EXPECT_EQ(invalid.vecDomainUsers[0].sUserName, "olaf");
    const auto kept = pClient->Get<wire::DeleteInvalidDomainUsers>({{"olaf", "nora", "system"}});
    EXPECT_EQ(kept.vecFailed.size(), 2U) << "who is in the directory, or never was of it, stays";
    EXPECT_EQ(pClient->Call<wire::QueryUserInfo>({"olaf"}).nCode, ErrorNotFound);
    EXPECT_EQ(pClient->Call<wire::QueryUserInfo>({"nora"}).nCode, 0);
}

INSTANTIATE_TEST_SUITE_P(
    , AccountTest, testing::ValuesIn(TestSupport::DatabaseKinds()), TestSupport::DatabaseKindName);

} // namespace ServerTest

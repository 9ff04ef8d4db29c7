#include "ServerFixture.h"

#include "ServiceError.h"
#include "services/TextRules.h"
#include "store/DatabasePool.h"
#include "store/Migrations.h"

#include <thread>

namespace ServerTest {

using namespace UICommonMdl;
using Platform::Database;
using TestSupport::DatabaseKind;

class StoreTest : public ServerFixture
{
};

TEST_P(StoreTest, AnInterruptedSchemaStepLeavesTheOneBeforeAndIsMadeUpFor)
{
    const TestSupport::TestDatabase kept(GetParam());
    Database database(kept.Address());
    const auto vecGood = Platform::Migrations(database.IsPostgres());
    auto vecBroken = vecGood;
    vecBroken.back().listStatements << QStringLiteral("CREATE TABLE device (id INTEGER)");
    EXPECT_THROW(Platform::Migrate(database, vecBroken), Platform::ServiceError);
    const auto lastStep = [&database] {
        Platform::Rows rows = database.Run(QStringLiteral("SELECT MAX(number) FROM schema_migration"));
        rows.Next();
        return rows.Int(0);
    };
    EXPECT_EQ(lastStep(), vecGood.back().nNumber - 1);
    EXPECT_THROW(database.Run(QStringLiteral("SELECT role_id FROM role_device")), Platform::ServiceError);
    Platform::Migrate(database, vecGood);
    EXPECT_EQ(lastStep(), vecGood.back().nNumber);
    Platform::Migrate(database, vecGood);

    auto vecOther = vecGood;
    vecOther.front().listStatements.removeLast();
    EXPECT_THROW(Platform::Migrate(database, vecOther), Platform::StartError) << "another program's schema";
    auto vecOlder = vecGood;
    vecOlder.pop_back();
    try {
        Platform::Migrate(database, vecOlder);
        ADD_FAILURE() << "a newer database was taken";
    } catch (const Platform::StartError& error) {
        EXPECT_EQ(error.Exit(), Platform::ExitDatabaseNewer);
    }
}

TEST_P(StoreTest, RolesOfBeforeKeepWhatTheyReached)
{
    const TestSupport::TestDatabase kept(GetParam());
    Database database(kept.Address());
    const auto vecSteps = Platform::Migrations(database.IsPostgres());
    Platform::Migrate(database, {vecSteps.begin(), vecSteps.begin() + 4});
    for (const char* szStatement : {"INSERT INTO role (id, name, name_key) VALUES (7, 'Guard', 'guard')",
             "INSERT INTO role_right (role_id, code) VALUES (7, '001001001'), (7, '001002')",
             "INSERT INTO device (id, name, name_key, address, address_key, port, search_key, category, "
             "model, "
             "org_code, manufacturer, protocol) VALUES (5, 'Gate', 'gate', '', '', 0, '', 1, '', '001', '', "
             "'')"})
        database.Execute(QString::fromLatin1(szStatement));
    Platform::Migrate(database, vecSteps);
    Platform::Rows rows = database.Run(QStringLiteral(
        "SELECT (SELECT COUNT(*) FROM role_device WHERE role_id = 7 AND device_id = 5 AND whole = 1), "
        "(SELECT COUNT(*) FROM role_org WHERE role_id = 7 AND auto_pass = 1), "
        "(SELECT COUNT(*) FROM role_right WHERE role_id = 7 AND code IN ('001', '001002001', '004002'))"));
    ASSERT_TRUE(rows.Next());
    EXPECT_EQ(rows.Int(0), 1);
    EXPECT_EQ(rows.Int(1), 1);
    EXPECT_EQ(rows.Int(2), 3);
}

TEST_P(StoreTest, AWriteThatAnotherProgramHoldsUpFailsAndWorksAfterwards)
{
    Start();
    Database other(pServer->Address());
    {
        Platform::Transaction transaction(other);
        other.Run(QStringLiteral("UPDATE counter SET value = value + 1"));
        GroupLogical::Organization_t organization;
        organization.sParentCode = "001";
        organization.sName = "Held";
        EXPECT_EQ(pClient->Call<wire::AddOrganization>(organization).nCode, ErrorDatabaseBusy);
        EXPECT_EQ(pClient->Call<wire::QueryOrganizations>().nCode, 0) << "reading goes on";
    }
    AddOrganization("001", "Held");
    EXPECT_EQ(pClient->Get<wire::QueryOrganizations>().vecOrganizations.size(), 2U);
}

TEST_P(StoreTest, AFullDatabaseIsToldAndNothingIsHalfWritten)
{
    if (GetParam() != DatabaseKind::Sqlite)
        GTEST_SKIP() << "the size of a PostgreSQL database is not the server's to limit";
    TestSupport::TestServerOptions options;
    options.nMaxPages = 120;
    Start(options);
    int nAdded = 0;
    Reply reply;
    do {
        GroupLogical::Organization_t organization;
        organization.sParentCode = "001";
        organization.sName = "Organization " + std::to_string(nAdded);
        organization.sRemark = std::string(255, 'r');
        reply = pClient->Call<wire::AddOrganization>(organization);
    } while (reply.nCode == 0 && ++nAdded < 2000);
    EXPECT_EQ(reply.nCode, ErrorDatabaseFull);
    EXPECT_EQ(pClient->Get<wire::QueryOrganizations>().vecOrganizations.size(), std::size_t(nAdded) + 1);
    EXPECT_EQ(
        pServer
            ->QuerySql(QStringLiteral("SELECT COUNT(*) FROM audit_log WHERE operation = 'organization/add'"))
            .toInt(),
        nAdded);
}

TEST_P(StoreTest, ALostConnectionIsOpenedAgain)
{
    if (GetParam() != DatabaseKind::Postgres)
        GTEST_SKIP() << "SQLite has no connection to lose";
    Start();
    {
        Database other(pServer->Address());
        other.Execute(QStringLiteral("SELECT pg_terminate_backend(pid) FROM pg_stat_activity "
                                     "WHERE datname = current_database() AND pid <> pg_backend_pid()"));
    }
    // Each of the connections may fail once, then all work.
    int nFailed = 0;
    for (int i = 0; i < 40; ++i)
        nFailed += pClient->Call<wire::QueryOrganizations>().nCode == ErrorDatabaseBusy ? 1 : 0;
    EXPECT_LE(nFailed, 4);
    GroupLogical::Organization_t organization;
    organization.sParentCode = "001";
    organization.sName = "Back";
    pClient->Call<wire::AddOrganization>(organization);
    EXPECT_THAT(pClient->Call<wire::AddOrganization>(organization).nCode, testing::AnyOf(0, ErrorNameExists));
}

TEST(TextRulesTest, AddressesSortByNumberAndThenByName)
{
    const std::vector<std::string> vecSorted{"0.0.0.1", "9.9.9.9", "10.0.0.2", "10.0.0.10", "192.168.1.1",
        "fe80::1", "fe80::10", "alpha.example", "Beta", ""};
    for (std::size_t i = 1; i < vecSorted.size(); ++i)
        EXPECT_LT(Platform::AddressSortKey(vecSorted[i - 1]), Platform::AddressSortKey(vecSorted[i]))
            << vecSorted[i];
    EXPECT_EQ(Platform::AddressSortKey("FE80::1"), Platform::AddressSortKey("fe80:0::1"));
}

INSTANTIATE_TEST_SUITE_P(
    , StoreTest, testing::ValuesIn(TestSupport::DatabaseKinds()), TestSupport::DatabaseKindName);

} // namespace ServerTest

#include "DatabaseKinds.h"

#include <QCoreApplication>
#include <QFile>
#include <QUrl>
#include <QUuid>

#include <atomic>

namespace TestSupport {

namespace {

std::atomic<bool> s_bPostgresWanted{false};
std::atomic<bool> s_bPostgresUsed{false};

QString PostgresUrl()
{
    return qEnvironmentVariable("PRODUCT_TEST_POSTGRES");
}

void OnServer(const QString& sSql)
{
    Platform::Database database({PostgresUrl()});
    database.Execute(sSql);
}

class PostgresUseCheck : public testing::Environment
{
public:
    void TearDown() override
    {
        const auto* const pTest = testing::UnitTest::GetInstance();
        // A run of chosen tests may leave PostgreSQL out.
        if (testing::GTEST_FLAG(filter) != "*" || pTest->test_to_run_count() == 0 || !s_bPostgresWanted)
            return;
        EXPECT_TRUE(s_bPostgresUsed) << "PRODUCT_TEST_POSTGRES is set, but no test ran on PostgreSQL";
    }
};

} // namespace

std::vector<DatabaseKind> DatabaseKinds()
{
    if (PostgresUrl().isEmpty())
        return {DatabaseKind::Sqlite};
    if (!s_bPostgresWanted.exchange(true))
        testing::AddGlobalTestEnvironment(new PostgresUseCheck);
    return {DatabaseKind::Sqlite, DatabaseKind::Postgres};
}

std::string DatabaseKindName(const testing::TestParamInfo<DatabaseKind>& info)
{
    return info.param == DatabaseKind::Sqlite ? "Sqlite" : "Postgres";
}

TestDatabase::TestDatabase(DatabaseKind kind)
{
    EnsureApplication();
    if (kind == DatabaseKind::Sqlite) {
        m_address.sText = m_folder.filePath(QStringLiteral("platform.db"));
        return;
    }
    s_bPostgresUsed = true;
    m_sName = QLatin1String("test_") + QUuid::createUuid().toString(QUuid::Id128);
    OnServer(QLatin1String("CREATE DATABASE ") + m_sName);
    QUrl url(PostgresUrl());
    url.setPath(QLatin1Char('/') + m_sName);
    m_address.sText = url.toString(QUrl::FullyEncoded);
}

TestDatabase::~TestDatabase()
{
    if (!m_sName.isEmpty())
        OnServer(QLatin1String("DROP DATABASE ") + m_sName + QLatin1String(" WITH (FORCE)"));
}

void EnsureApplication()
{
    if (QCoreApplication::instance())
        return;
    static int s_nArguments = 1;
    static char s_szName[] = "test";
    static char* s_arguments[] = {s_szName, nullptr};
    static QCoreApplication s_application(s_nArguments, s_arguments);
}

} // namespace TestSupport

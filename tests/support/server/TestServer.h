#pragma once

#include "DatabaseKinds.h"
#include "PlatformServer.h"

#include <QUrl>

#include <atomic>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>

namespace TestSupport {

struct TestServerOptions
{
    DatabaseKind kind = DatabaseKind::Sqlite;
    bool bSetUp = true; ///< gives the built-in account its password
    bool bSeedDemo = false;
    int nSeedDevices = 0;
    int nSeedPersons = 0;
    int nSeedPersonGroups = 20;
    int nProbeIntervalSeconds = 0;
    int nProbeTimeoutMs = 500;
    int nBusyTimeoutMs = 200;
    int nMaxPages = 0; ///< SQLite only: limit of the database's size
    int nTokenLifetimeMinutes = 720;
    int nHeartbeatMs = 200; ///< short, so that a reader that wants to end gets the occasion
    std::string sCloudUrl; ///< account service of P2P devices
    int nSearchTimeoutMs = 500;
    int nDeviceTimeoutMs = 2000;
    int nDiscoveryPort = 1; ///< of the test's field devices
    int nOnvifDiscoveryPort = 1;
    Platform::DirectoryOptions directory; ///< of domain users
    QString sCertificate; ///< PEM file; with sKey the server speaks HTTPS
    QString sKey;
};

/// A real server in the test's process, on a free loopback port and a database of its own. All calls come on
/// the test's thread unless said otherwise.
class TestServer
{
public:
    explicit TestServer(TestServerOptions options = {});
    ~TestServer();
    TestServer(const TestServer&) = delete;
    TestServer& operator=(const TestServer&) = delete;

    /// Stays the same over restarts.
    QUrl Url() const;
    static std::string AdminName() { return "system"; }
    static std::string AdminPassword() { return "Lantern-42"; }
    QString DataDir() const { return m_database.Folder(); }
    Platform::DatabaseAddress Address() const { return m_database.Address(); }

    /// Gracefully, as by SIGTERM.
    void Stop();
    /// The answers of requests under way are lost, as when the process is killed.
    void Kill();
    /// Starts again on the same port and database.
    void Start();
    void Restart();

    /// Requests of that operation wait before they are worked on; 0: no longer.
    void InjectDelay(const std::string& sOperation, int nMilliseconds);
    /// The next request of that operation fails with that error code and changes nothing.
    void FailNext(const std::string& sOperation, int nErrorCode);
    /// Requests of that operation wait until Release; for tests that do something in the middle of one.
    void Hold(const std::string& sOperation);
    void Release(const std::string& sOperation);
    /// How many requests of that operation have come so far. Any thread.
    int RequestCount(const std::string& sOperation) const;

    /// Runs a statement on the database, and makes the server forget what it knew of the data.
    void RunSql(const QString& sSql, const QVariantList& values = {});
    /// The first column of the first row; invalid when there is none.
    QVariant QuerySql(const QString& sSql, const QVariantList& values = {});
    /// Sends an event to all streams.
    void Publish(const std::string& sName, const std::string& sJson = "{}");
    /// Number of event streams that are open.
    int StreamCount() const;
    /// Moves the server's clock on.
    void AdvanceClock(std::int64_t nMilliseconds);
    /// Gives an account that exists a password, so that tests can sign in by it.
    void SetAccountPassword(const std::string& sName, const std::string& sPassword);
    /// What the role of a new account has of the devices.
    enum class Reach
    {
        Everything, ///< that is there, and what is added later
        Nothing
    };
    /// Adds an account with a role of its own, of the same name, that has those rights; its password is
    /// AdminPassword().
    void AddAccount(
        const std::string& sName, const std::vector<std::string>& vecRights, Reach reach = Reach::Everything);

    Platform::PlatformServer& Server() { return *m_pServer; }

private:
    struct Hooks;

    TestServerOptions m_options;
    TestDatabase m_database;
    std::shared_ptr<Hooks> m_pHooks;
    std::shared_ptr<std::atomic<std::int64_t>> m_pClockOffset;
    int m_nPort = 0;
    QUrl m_url;
    std::unique_ptr<Platform::PlatformServer> m_pServer;
};

} // namespace TestSupport

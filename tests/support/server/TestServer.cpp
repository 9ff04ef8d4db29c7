#include "TestServer.h"

#include "Log.h"
#include "ServiceError.h"
#include "http/Dispatcher.h"
#include "http/EventHub.h"
#include "services/Generations.h"
#include "services/Password.h"
#include "services/SessionService.h"
#include "store/DatabasePool.h"

#include <QDateTime>

#include <condition_variable>
#include <set>
#include <thread>

namespace TestSupport {

struct TestServer::Hooks
{
    mutable std::mutex mutex;
    std::condition_variable changed;
    std::map<std::string, int, std::less<>> mapDelays;
    std::map<std::string, int, std::less<>> mapFailures;
    std::map<std::string, int, std::less<>> mapCounts;
    std::set<std::string, std::less<>> held;

    void OnRequest(std::string_view sOperation)
    {
        int nDelay = 0;
        {
            std::unique_lock lock(mutex);
            ++mapCounts[std::string(sOperation)];
            changed.wait(lock, [&] { return held.find(sOperation) == held.end(); });
            if (const auto it = mapFailures.find(sOperation); it != mapFailures.end()) {
                const int nCode = it->second;
                mapFailures.erase(it);
                throw Platform::ServiceError(nCode);
            }
            if (const auto it = mapDelays.find(sOperation); it != mapDelays.end())
                nDelay = it->second;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(nDelay));
    }

    void ReleaseAll()
    {
        const std::lock_guard lock(mutex);
        held.clear();
        changed.notify_all();
    }
};

TestServer::TestServer(TestServerOptions options)
    : m_options(std::move(options))
    , m_database(m_options.kind)
    , m_pHooks(std::make_shared<Hooks>())
    , m_pClockOffset(std::make_shared<std::atomic<std::int64_t>>(0))
{
    Platform::Log::SetQuiet(true);
    Start();
    if (m_options.bSetUp)
        m_pServer->Sessions().SetPassword(AdminPassword());
}

TestServer::~TestServer()
{
    Stop();
}

void TestServer::Start()
{
    Platform::ServerOptions options;
    options.nListenPort = m_nPort;
    options.sDataDir = m_database.Folder();
    options.database = m_database.Address();
    options.database.nBusyTimeoutMs = m_options.nBusyTimeoutMs;
    options.database.nMaxPages = m_options.nMaxPages;
    options.sCertificate = m_options.sCertificate;
    options.sKey = m_options.sKey;
    // Seeds go into the empty database only, at the first start.
    options.bSeedDemo = m_options.bSeedDemo && m_nPort == 0;
    options.nSeedDevices = m_nPort == 0 ? m_options.nSeedDevices : 0;
    options.nSeedPersons = m_nPort == 0 ? m_options.nSeedPersons : 0;
    options.nSeedPersonGroups = m_options.nSeedPersonGroups;
    options.nProbeIntervalSeconds = m_options.nProbeIntervalSeconds;
    options.nProbeTimeoutMs = m_options.nProbeTimeoutMs;
    options.nTokenLifetimeMinutes = m_options.nTokenLifetimeMinutes;
    options.nHeartbeatMs = m_options.nHeartbeatMs;
    options.sCloudUrl = m_options.sCloudUrl;
    options.directory = m_options.directory;
    options.nSearchTimeoutMs = m_options.nSearchTimeoutMs;
    options.nDeviceTimeoutMs = m_options.nDeviceTimeoutMs;
    options.nDiscoveryPort = m_options.nDiscoveryPort;
    options.nOnvifDiscoveryPort = m_options.nOnvifDiscoveryPort;
    options.clock = [pOffset = m_pClockOffset] {
        return static_cast<std::int64_t>(QDateTime::currentMSecsSinceEpoch()) + *pOffset;
    };
    m_pServer = std::make_unique<Platform::PlatformServer>(std::move(options));
    m_pServer->Open();
    m_pServer->Operations().SetInterceptor(
        [pHooks = m_pHooks](std::string_view sOperation) { pHooks->OnRequest(sOperation); });
    m_pServer->Start();
    m_url = QUrl(QString::fromStdString(m_pServer->Url()));
    m_nPort = m_url.port();
}

QUrl TestServer::Url() const
{
    return m_url;
}

void TestServer::Stop()
{
    m_pHooks->ReleaseAll();
    m_pServer.reset();
}

void TestServer::Kill()
{
    if (!m_pServer)
        return;
    m_pServer->Cut();
    Stop();
}

void TestServer::Restart()
{
    Stop();
    Start();
}

void TestServer::InjectDelay(const std::string& sOperation, int nMilliseconds)
{
    const std::lock_guard lock(m_pHooks->mutex);
    m_pHooks->mapDelays[sOperation] = nMilliseconds;
}

void TestServer::FailNext(const std::string& sOperation, int nErrorCode)
{
    const std::lock_guard lock(m_pHooks->mutex);
    m_pHooks->mapFailures[sOperation] = nErrorCode;
}

void TestServer::Hold(const std::string& sOperation)
{
    const std::lock_guard lock(m_pHooks->mutex);
    m_pHooks->held.insert(sOperation);
}

void TestServer::Release(const std::string& sOperation)
{
    const std::lock_guard lock(m_pHooks->mutex);
    m_pHooks->held.erase(sOperation);
    m_pHooks->changed.notify_all();
}

int TestServer::RequestCount(const std::string& sOperation) const
{
    const std::lock_guard lock(m_pHooks->mutex);
    const auto it = m_pHooks->mapCounts.find(sOperation);
    return it == m_pHooks->mapCounts.end() ? 0 : it->second;
}

void TestServer::RunSql(const QString& sSql, const QVariantList& values)
{
    m_pServer->Pool().Write([&](Platform::Database& database) { database.Run(sSql, values); });
    ++m_pServer->DataGenerations().devices;
    ++m_pServer->DataGenerations().persons;
    ++m_pServer->DataGenerations().states;
    m_pServer->Rights().Reload();
}

QVariant TestServer::QuerySql(const QString& sSql, const QVariantList& values)
{
    return m_pServer->Pool().Read([&](Platform::Database& database) -> QVariant {
        Platform::Rows rows = database.Run(sSql, values);
        return rows.Next() ? QVariant(QString::fromStdString(rows.Text(0))) : QVariant();
    });
}

void TestServer::Publish(const std::string& sName, const std::string& sJson)
{
    m_pServer->Hub().Publish(sName, sJson);
}

int TestServer::StreamCount() const
{
    return m_pServer ? m_pServer->Hub().Count() : 0;
}

void TestServer::AdvanceClock(std::int64_t nMilliseconds)
{
    *m_pClockOffset += nMilliseconds;
}

void TestServer::SetAccountPassword(const std::string& sName, const std::string& sPassword)
{
    RunSql(QStringLiteral("UPDATE account SET password_hash = ? WHERE name = ?"),
        {Platform::TextValue(Platform::Password::Hash(sPassword)), Platform::TextValue(sName)});
}

void TestServer::AddAccount(const std::string& sName, const std::vector<std::string>& vecRights, Reach reach)
{
    const qlonglong nId =
        QuerySql(QStringLiteral("SELECT MAX(a.id) + MAX(r.id) + 1 FROM account a, role r")).toLongLong();
    const QVariant name = Platform::TextValue(sName);
    RunSql(QStringLiteral("INSERT INTO account (id, name, name_key) VALUES (?, ?, ?)"), {nId, name, name});
    RunSql(QStringLiteral("INSERT INTO role (id, name, name_key) VALUES (?, ?, ?)"), {nId, name, name});
    RunSql(QStringLiteral("INSERT INTO account_role (account_id, role_id) VALUES (?, ?)"), {nId, nId});
    SetAccountPassword(sName, AdminPassword());
    for (const std::string& sCode : vecRights)
        RunSql(QStringLiteral("INSERT INTO role_right (role_id, code) VALUES (?, ?)"),
            {nId, Platform::TextValue(sCode)});
    if (reach == Reach::Nothing)
        return;
    RunSql(QStringLiteral("INSERT INTO role_org (role_id, org_code, auto_pass) "
                          "SELECT CAST(? AS BIGINT), code, 1 FROM organization"),
        {nId});
    RunSql(QStringLiteral("INSERT INTO role_device (role_id, device_id, whole) "
                          "SELECT CAST(? AS BIGINT), id, 1 FROM device"),
        {nId});
}

} // namespace TestSupport

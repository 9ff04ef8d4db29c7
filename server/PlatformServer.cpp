#include "PlatformServer.h"

#include "Log.h"
#include "ServiceError.h"
#include "devices/Prober.h"
#include "devices/TcpReachability.h"
#include "http/Dispatcher.h"
#include "http/HttpFront.h"
#include "seed/Seeds.h"
#include "services/Catalog.h"
#include "services/DeviceService.h"
#include "services/OrganizationService.h"
#include "services/RightsService.h"
#include "services/SessionService.h"
#include "store/DatabasePool.h"
#include "store/Migrations.h"

#include <wire/Operations.h>

#include <QDateTime>
#include <QDir>
#include <QFile>

namespace Platform {

struct PlatformServer::Private
{
    explicit Private(ServerOptions serverOptions)
        : options(std::move(serverOptions))
        , hub(StreamLimit)
        , audit(options.clock)
    {
    }

    void PrepareDataDir() const;
    void OpenStore();
    void Register();
    void Close();

    static constexpr int StreamLimit = 256;

    ServerOptions options;
    EventHub hub;
    Generations generations;
    AuditService audit;
    std::unique_ptr<DatabasePool> pPool;
    std::unique_ptr<RightsService> pRights;
    std::unique_ptr<SessionService> pSessions;
    std::unique_ptr<OrganizationService> pOrganizations;
    std::unique_ptr<DeviceService> pDevices;
    std::unique_ptr<Dispatcher> pDispatcher;
    std::unique_ptr<HttpFront> pHttp;
    std::unique_ptr<Prober> pProber;
};

void PlatformServer::Private::PrepareDataDir() const
{
    const QString sProbe = options.sDataDir + QStringLiteral("/.write-check");
    QFile probe(sProbe);
    if (!QDir().mkpath(options.sDataDir) || !probe.open(QIODevice::WriteOnly))
        throw StartError(
            ExitDataDir, "The data folder " + options.sDataDir.toStdString() + " cannot be written to");
    probe.remove();
}

void PlatformServer::Private::OpenStore()
{
    try {
        pPool = std::make_unique<DatabasePool>(options.database, options.nReaders);
        pPool->WriteBare([](Database& database) { Migrate(database, Migrations(database.IsPostgres())); });
        const Seeds seeds(*pPool);
        if (options.bSeedDemo)
            seeds.Demo(options.sDataDir);
        if (options.nSeedDevices > 0)
            seeds.Bulk(options.nSeedDevices);
    } catch (const ServiceError& error) {
        throw StartError(ExitDatabase,
            "The database " + options.database.Display().toStdString() + " cannot be prepared: "
                + (error.Detail().empty() ? "it is locked or full" : error.Detail()));
    }
}

void PlatformServer::Private::Register()
{
    Dispatcher& table = *pDispatcher;
    SessionService& sessions = *pSessions;
    OrganizationService& organizations = *pOrganizations;
    DeviceService& devices = *pDevices;
    using namespace wire;
    using C = Context;

    table.Register<GetServerState>([&](const C&, const auto&) { return sessions.State(); });
    table.Register<SetUp>([&](const C& context, const auto& request) {
        sessions.SetUp(context, request);
        return Nothing{};
    });
    table.Register<SignIn>(
        [&](const C& context, const auto& request) { return sessions.SignIn(context, request); });
    table.Register<SignOut>([&](const C& context, const auto&) {
        sessions.SignOut(context);
        return Nothing{};
    });
    table.Register<GetSession>([&](const C& context, const auto&) { return sessions.Get(context); });
    table.Register<GetDictionary>([](const C&, const auto&) { return Catalog::Dictionary(); });

    table.Register<QueryOrganizations>([&](const C&, const auto&) { return organizations.Query(); });
    table.Register<AddOrganization>(
        [&](const C& context, const auto& request) { return organizations.Add(context, request); });
    table.Register<ModifyOrganization>(
        [&](const C& context, const auto& request) { return organizations.Modify(context, request); });
    table.Register<DeleteOrganization>([&](const C& context, const auto& request) {
        organizations.Delete(context, request);
        return Nothing{};
    });
    table.Register<MoveOrganization>([&](const C& context, const auto& request) {
        organizations.Move(context, request);
        return Nothing{};
    });

    table.Register<QueryDevicePage>(
        [&](const C&, const auto& request) { return devices.QueryPage(request); });
    table.Register<ExportDevice>([&](const C&, const auto& request) { return devices.Export(request); });
    table.Register<QueryDeviceDetail>(
        [&](const C&, const auto& request) { return devices.QueryDetail(request); });
    table.Register<QueryDeviceReferences>(
        [&](const C&, const auto& request) { return devices.QueryReferences(request); });
    table.Register<DeleteDevice>(
        [&](const C& context, const auto& request) { return devices.Delete(context, request); });
    table.Register<MoveDevice>(
        [&](const C& context, const auto& request) { return devices.Move(context, request); });
    table.Register<QueryDeviceTypes>([&](const C&, const auto&) { return devices.QueryTypes(); });
}

void PlatformServer::Private::Close()
{
    // Probing writes through the pool, and so do requests: both end before it.
    pProber.reset();
    pHttp.reset();
    pDispatcher.reset();
    pDevices.reset();
    pOrganizations.reset();
    pSessions.reset();
    pRights.reset();
    pPool.reset();
}

PlatformServer::PlatformServer(ServerOptions options)
{
    if (!options.clock)
        options.clock = [] { return static_cast<std::int64_t>(QDateTime::currentMSecsSinceEpoch()); };
    if (options.database.sText.isEmpty())
        options.database.sText = options.sDataDir + QStringLiteral("/platform.db");
    m_pPrivate = std::make_unique<Private>(std::move(options));
}

PlatformServer::~PlatformServer()
{
    Stop();
}

void PlatformServer::Open()
{
    Private& p = *m_pPrivate;
    p.PrepareDataDir();
    p.OpenStore();
    p.pRights = std::make_unique<RightsService>(*p.pPool, p.hub);
    p.pSessions = std::make_unique<SessionService>(
        *p.pPool, p.hub, *p.pRights, p.audit, p.options.clock, p.options.nTokenLifetimeMinutes);
    p.pOrganizations = std::make_unique<OrganizationService>(*p.pPool, p.hub, p.audit, p.generations);
    p.pDevices = std::make_unique<DeviceService>(*p.pPool, p.hub, p.audit, p.generations);
    p.pDispatcher = std::make_unique<Dispatcher>(
        [pSessions = p.pSessions.get()](const std::string& sToken) { return pSessions->Find(sToken); });
    p.Register();
}

void PlatformServer::Start()
{
    Private& p = *m_pPrivate;
    if (!p.pPool)
        Open();
    HttpOptions http;
    http.sHost = p.options.sListenHost;
    http.nPort = p.options.nListenPort;
    http.sCertificate = p.options.sCertificate;
    http.sKey = p.options.sKey;
    http.nStreamLimit = Private::StreamLimit;
    http.nHeartbeatMs = p.options.nHeartbeatMs;
    p.pHttp = std::make_unique<HttpFront>(http, *p.pDispatcher, p.hub);
    p.pHttp->Start();
    if (p.options.nProbeIntervalSeconds > 0)
        p.pProber = std::make_unique<Prober>(*p.pPool, p.hub, p.generations,
            std::make_unique<TcpReachability>(p.options.nProbeConcurrency, p.options.nProbeTimeoutMs),
            std::chrono::seconds(p.options.nProbeIntervalSeconds));
    Log::Info("server", "Serving",
        {{"address", p.pHttp->Url()}, {"database", p.options.database.Display().toStdString()}});
}

void PlatformServer::Stop()
{
    if (!m_pPrivate->pPool)
        return;
    if (m_pPrivate->pHttp)
        m_pPrivate->pHttp->Stop();
    m_pPrivate->Close();
    Log::Info("server", "Stopped");
}

void PlatformServer::Abort()
{
    if (m_pPrivate->pHttp)
        m_pPrivate->pHttp->Abort();
    Stop();
}

std::string PlatformServer::Url() const
{
    return m_pPrivate->pHttp->Url();
}

SessionService& PlatformServer::Sessions()
{
    return *m_pPrivate->pSessions;
}

RightsService& PlatformServer::Rights()
{
    return *m_pPrivate->pRights;
}

DatabasePool& PlatformServer::Pool()
{
    return *m_pPrivate->pPool;
}

EventHub& PlatformServer::Hub()
{
    return m_pPrivate->hub;
}

Generations& PlatformServer::DataGenerations()
{
    return m_pPrivate->generations;
}

Dispatcher& PlatformServer::Operations()
{
    return *m_pPrivate->pDispatcher;
}

} // namespace Platform

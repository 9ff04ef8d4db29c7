#include "PlatformServerPrivate.h"

#include "Log.h"
#include "ServiceError.h"
#include "devices/FieldDeviceDriver.h"
#include "devices/OnvifDriver.h"
#include "devices/TcpReachability.h"
#include "seed/Seeds.h"
#include "store/Migrations.h"

#include <wire/Operations.h>

#include <QDateTime>
#include <QDir>
#include <QFile>

#include <algorithm>

namespace Platform {

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
        pBox = std::make_unique<SecretBox>(options.sDataDir + QStringLiteral("/secret.key"));
        pPhotos = std::make_unique<PhotoStore>(options.sDataDir + QStringLiteral("/photos"));
        const Seeds seeds(*pPool, *pBox, *pPhotos);
        if (options.bSeedDemo)
            seeds.Demo(options.sDataDir, options.clock());
        if (options.nSeedDevices > 0)
            seeds.Bulk(options.nSeedDevices);
        if (options.nSeedPersons > 0)
            seeds.BulkPersons(options.nSeedPersons, options.nSeedPersonGroups);
    } catch (const ServiceError& error) {
        throw StartError(ExitDatabase,
            "The database " + options.database.Display().toStdString() + " cannot be prepared: "
                + (error.Detail().empty() ? "it is locked or full" : error.Detail()));
    }
}

void PlatformServer::Private::MakeServices()
{
    drivers = Drivers();
    drivers.Add(std::make_unique<FieldDeviceDriver>(options.nDeviceTimeoutMs, options.nDiscoveryPort));
    drivers.Add(std::make_unique<OnvifDriver>(options.nDeviceTimeoutMs, options.nOnvifDiscoveryPort));
    pRoles = std::make_unique<RoleService>(*pPool, hub, audit, generations, *pRights);
    pUsers =
        std::make_unique<UserService>(*pPool, hub, audit, *pRights, *pSessions, directory, options.clock);
    pAuditLog = std::make_unique<AuditLog>(*pPool);
    pOrganizations = std::make_unique<OrganizationService>(*pPool, hub, audit, generations);
    pDevices = std::make_unique<DeviceService>(*pPool, hub, audit, generations, *pBox,
        [this](const std::vector<std::string>& vecIds) { AddressesChanged(vecIds); });
    pCloud = std::make_unique<CloudService>(options.sCloudUrl);
    pJobs = std::make_unique<JobService>(options.clock);
    pField = std::make_unique<FieldService>(
        *pPool, *pJobs, *pDevices, audit, *pBox, drivers, options.nSearchTimeoutMs);
    pImport = std::make_unique<ImportService>(*pPool, *pJobs, *pDevices, audit, *pBox);
    pChannels = std::make_unique<ChannelReader>(*pPool, *pDevices, *pBox, drivers);
    pAuthorization = std::make_unique<AuthorizationService>(*pPool, hub, *pJobs, *pBox, drivers, *pPhotos);
    pDepartments = std::make_unique<DepartmentService>(*pPool, hub, audit, generations);
    pPersons =
        std::make_unique<PersonService>(*pPool, hub, audit, generations, *pBox, *pPhotos, *pAuthorization);
    pCredentials = std::make_unique<CredentialService>(*pPool, *pJobs, *pBox, drivers, options.clock);
}

void PlatformServer::Private::PublishStates(const wire::DeviceStates& states)
{
    const std::string sAll = nlohmann::json(states).dump();
    hub.PublishEach(wire::event::DeviceStates, [&](std::int64_t nAccountId) {
        const RightsService::Rights pOwn = pRights->RightsOf(nAccountId);
        if (pOwn->scope.IsAll())
            return std::string(sAll);
        std::vector<std::int64_t> vecIds;
        for (const auto& state : states.vecStates)
            vecIds.push_back(std::stoll(state.sDeviceId));
        const std::vector<std::int64_t> vecReached =
            pPool->Read([&](Database& database) { return pOwn->scope.Reached(database, vecIds); });
        wire::DeviceStates own;
        for (const auto& state : states.vecStates)
            if (std::binary_search(vecReached.begin(), vecReached.end(), std::stoll(state.sDeviceId)))
                own.vecStates.push_back(state);
        return own.vecStates.empty() ? std::string() : nlohmann::json(own).dump();
    });
}

void PlatformServer::Private::AddressesChanged(const std::vector<std::string>& vecDeviceIds)
{
    std::vector<std::int64_t> vecIds(vecDeviceIds.size());
    std::transform(vecDeviceIds.begin(), vecDeviceIds.end(), vecIds.begin(),
        [](const std::string& sDeviceId) { return std::stoll(sDeviceId); });
    const std::lock_guard lock(proberMutex);
    if (pProber)
        pProber->ProbeSoon(vecIds);
}

void PlatformServer::Private::Close()
{
    // Probing, reading channels, jobs and requests write through the pool: all end before it.
    std::unique_ptr<Prober> pEnding;
    {
        const std::lock_guard lock(proberMutex);
        pEnding = std::move(pProber);
    }
    pEnding.reset();
    pHttp.reset();
    pFiles.reset();
    pDispatcher.reset();
    pChannels.reset();
    pPhotoSweep.reset();
    pJobs.reset();
    pCredentials.reset();
    pPersons.reset();
    pDepartments.reset();
    pAuthorization.reset();
    pPhotos.reset();
    pImport.reset();
    pField.reset();
    pDevices.reset();
    pOrganizations.reset();
    pAuditLog.reset();
    pUsers.reset();
    pRoles.reset();
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
        *p.pPool, p.hub, *p.pRights, p.audit, p.directory, p.options.clock, p.options.nTokenLifetimeMinutes);
    p.MakeServices();
    p.pDispatcher = std::make_unique<Dispatcher>(
        [pSessions = p.pSessions.get()](const std::string& sToken) { return pSessions->Find(sToken); });
    p.pFiles = std::make_unique<FileRoutes>(*p.pDispatcher);
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
    p.pHttp = std::make_unique<HttpFront>(http, *p.pDispatcher, *p.pFiles, p.hub);
    p.pHttp->Start();
    if (p.options.nProbeIntervalSeconds > 0) {
        const std::lock_guard lock(p.proberMutex);
        p.pProber = std::make_unique<Prober>(
            *p.pPool, p.generations,
            std::make_unique<TcpReachability>(p.options.nProbeConcurrency, p.options.nProbeTimeoutMs),
            std::chrono::seconds(p.options.nProbeIntervalSeconds),
            [&p](const wire::DeviceStates& states) { p.PublishStates(states); },
            [&p](const auto& vecIds) {
                p.pChannels->ReadSoon(vecIds);
                p.pAuthorization->DevicesOnline(vecIds);
            });
    }
    p.pPhotoSweep = std::make_unique<std::jthread>([&p](const std::stop_token& stop) {
        try {
            p.pPhotos->RemoveUnused(*p.pPool, stop);
        } catch (const ServiceError&) {
            // The database is busy: the next start looks again.
        }
    });
    Log::Info("server", "Serving",
        {{"address", p.pHttp->Url()}, {"database", p.options.database.Display().toStdString()}});
}

void PlatformServer::Stop()
{
    if (!m_pPrivate->pPool)
        return;
    // Nobody waits for a job any more; what waits is answered.
    if (m_pPrivate->pJobs)
        m_pPrivate->pJobs->End();
    if (m_pPrivate->pHttp)
        m_pPrivate->pHttp->Stop();
    m_pPrivate->Close();
    Log::Info("server", "Stopped");
}

void PlatformServer::Cut()
{
    if (m_pPrivate->pHttp)
        m_pPrivate->pHttp->Cut();
    if (m_pPrivate->pJobs)
        m_pPrivate->pJobs->End();
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

FileRoutes& PlatformServer::Files()
{
    return *m_pPrivate->pFiles;
}

Dispatcher& PlatformServer::Operations()
{
    return *m_pPrivate->pDispatcher;
}

} // namespace Platform

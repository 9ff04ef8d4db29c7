#include "PlatformServer.h"

#include "Log.h"
#include "ServiceError.h"
#include "accounts/RoleService.h"
#include "accounts/UserService.h"
#include "devices/Drivers.h"
#include "devices/FieldDeviceDriver.h"
#include "devices/OnvifDriver.h"
#include "devices/Prober.h"
#include "devices/TcpReachability.h"
#include "http/Dispatcher.h"
#include "http/FileRoutes.h"
#include "http/HttpFront.h"
#include "import/ImportService.h"
#include "persons/AuthorizationService.h"
#include "persons/CredentialService.h"
#include "persons/DepartmentService.h"
#include "persons/PersonService.h"
#include "persons/PhotoStore.h"
#include "seed/Seeds.h"
#include "services/AuditLog.h"
#include "services/Catalog.h"
#include "services/ChannelReader.h"
#include "services/CloudService.h"
#include "services/DeviceService.h"
#include "services/FieldService.h"
#include "services/JobService.h"
#include "services/OrganizationService.h"
#include "services/RightsService.h"
#include "services/SecretBox.h"
#include "services/SessionService.h"
#include "services/TimeZones.h"
#include "store/DatabasePool.h"
#include "store/Migrations.h"

#include <wire/Operations.h>

#include <QDateTime>
#include <QDir>
#include <QFile>

#include <algorithm>
#include <mutex>
#include <thread>

namespace Platform {

struct PlatformServer::Private
{
    explicit Private(ServerOptions serverOptions)
        : options(std::move(serverOptions))
        , hub(StreamLimit)
        , audit(options.clock)
        , directory(options.directory)
    {
    }

    void PrepareDataDir() const;
    void OpenStore();
    void MakeServices();
    void Register();
    void RegisterDevices();
    void RegisterField();
    void RegisterPersons();
    void RegisterAccounts();
    void RegisterFiles();
    void PublishStates(const wire::DeviceStates& states);
    void AddressesChanged(const std::vector<std::string>& vecDeviceIds);
    void Close();

    static constexpr int StreamLimit = 256;

    ServerOptions options;
    EventHub hub;
    Generations generations;
    AuditService audit;
    std::unique_ptr<DatabasePool> pPool;
    Directory directory;
    std::unique_ptr<RightsService> pRights;
    std::unique_ptr<SessionService> pSessions;
    std::unique_ptr<RoleService> pRoles;
    std::unique_ptr<UserService> pUsers;
    std::unique_ptr<AuditLog> pAuditLog;
    std::unique_ptr<OrganizationService> pOrganizations;
    std::unique_ptr<SecretBox> pBox;
    Drivers drivers;
    std::unique_ptr<DeviceService> pDevices;
    std::unique_ptr<CloudService> pCloud;
    std::unique_ptr<JobService> pJobs;
    std::unique_ptr<FieldService> pField;
    std::unique_ptr<ImportService> pImport;
    std::unique_ptr<ChannelReader> pChannels;
    std::unique_ptr<PhotoStore> pPhotos;
    std::unique_ptr<std::jthread> pPhotoSweep; ///< removes what an earlier stop has left
    std::unique_ptr<AuthorizationService> pAuthorization;
    std::unique_ptr<DepartmentService> pDepartments;
    std::unique_ptr<PersonService> pPersons;
    std::unique_ptr<CredentialService> pCredentials;
    std::unique_ptr<Dispatcher> pDispatcher;
    std::unique_ptr<FileRoutes> pFiles;
    std::unique_ptr<HttpFront> pHttp;
    std::mutex proberMutex; ///< guards pProber while it is made and ended
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

void PlatformServer::Private::Register()
{
    Dispatcher& table = *pDispatcher;
    SessionService& sessions = *pSessions;
    OrganizationService& organizations = *pOrganizations;
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

    table.Register<QueryOrganizations>(
        [&](const C& context, const auto&) { return organizations.Query(context); });
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
    RegisterDevices();
    RegisterField();
    RegisterPersons();
    RegisterAccounts();
    RegisterFiles();
}

void PlatformServer::Private::RegisterDevices()
{
    Dispatcher& table = *pDispatcher;
    DeviceService& devices = *pDevices;
    using namespace wire;
    using C = Context;

    table.Register<QueryDevicePage>(
        [&](const C& context, const auto& request) { return devices.QueryPage(context, request); });
    table.Register<ExportDevice>(
        [&](const C& context, const auto& request) { return devices.Export(context, request); });
    table.Register<QueryDeviceDetail>(
        [&](const C& context, const auto& request) { return devices.QueryDetail(context, request); });
    table.Register<QueryDeviceReferences>(
        [&](const C& context, const auto& request) { return devices.QueryReferences(context, request); });
    table.Register<DeleteDevice>(
        [&](const C& context, const auto& request) { return devices.Delete(context, request); });
    table.Register<MoveDevice>(
        [&](const C& context, const auto& request) { return devices.Move(context, request); });
    table.Register<QueryDeviceTypes>(
        [&](const C& context, const auto&) { return devices.QueryTypes(context); });
    table.Register<AddDevice>(
        [&](const C& context, const auto& request) { return devices.Add(context, request); });
    table.Register<ModifyDevice>(
        [&](const C& context, const auto& request) { return devices.Modify(context, request); });
}

void PlatformServer::Private::RegisterField()
{
    Dispatcher& table = *pDispatcher;
    FieldService& field = *pField;
    JobService& jobs = *pJobs;
    ImportService& imports = *pImport;
    using C = Context;

    table.Register<wire::GetFeatures>([&](const C&, const auto&) {
        RemoteConfigLogical::Features_t features;
        features.bCloudAccount = pCloud->IsConfigured();
        features.sCloudService = pCloud->Name();
        features.sTemplateUrl = std::string(FileRoutes::DownloadPrefix) + "device-template?kind=device";
        features.sIntercomTemplateUrl =
            std::string(FileRoutes::DownloadPrefix) + "device-template?kind=intercom";
        features.sUploadUrl = std::string(FileRoutes::UploadPrefix) + "device-sheet?format=sheet";
        return features;
    });
    table.Register<wire::QueryVideoServers>(
        [](const C&, const auto&) { return wire::VideoServers{Catalog::VideoServers()}; });
    table.Register<wire::GetTimeZone>([](const C&, const auto&) { return TimeZones::Platform(); });
    table.Register<wire::SearchOnlineDevice>(
        [&](const C& context, const auto& request) { return field.Search(context, request); });
    table.Register<wire::InitializeDevice>(
        [&](const C& context, const auto& request) { return field.Initialize(context, request); });
    table.Register<wire::ModifyAddress>(
        [&](const C& context, const auto& request) { return field.ModifyAddress(context, request); });
    table.Register<wire::ModifyDevicePassword>(
        [&](const C& context, const auto& request) { return field.ModifyPassword(context, request); });
    table.Register<wire::SetDeviceTimeZone>(
        [&](const C& context, const auto& request) { return field.SetTimeZone(context, request); });
    table.Register<wire::WaitJob>(
        [&](const C& context, const auto& request) { return jobs.Wait(context, request); });
    table.Register<wire::CancelJob>([&](const C& context, const auto& request) {
        jobs.Cancel(context, request);
        return wire::Nothing{};
    });
    table.Register<wire::BeginImport>(
        [&](const C& context, const auto& request) { return imports.Begin(context, request); });
    table.Register<wire::AddImportRows>([&](const C& context, const auto& request) {
        imports.AddRows(context, request);
        return wire::Nothing{};
    });
    table.Register<wire::RunImport>([&](const C& context, const auto& request) {
        imports.Run(context, request);
        return wire::Nothing{};
    });
    table.Register<wire::QueryCloudDevices>(
        [&](const C&, const auto& request) { return pCloud->Query(request); });
}

void PlatformServer::Private::RegisterPersons()
{
    Dispatcher& table = *pDispatcher;
    DepartmentService& departments = *pDepartments;
    PersonService& persons = *pPersons;
    AuthorizationService& authorization = *pAuthorization;
    CredentialService& credentials = *pCredentials;
    using namespace wire;
    using C = Context;

    table.Register<QueryDepartmentTree>([&](const C&, const auto&) { return departments.Query(); });
    table.Register<AddDepartment>(
        [&](const C& context, const auto& request) { return departments.Add(context, request); });
    table.Register<ModifyDepartment>(
        [&](const C& context, const auto& request) { return departments.Modify(context, request); });
    table.Register<wire::DeleteDepartment>([&](const C& context, const auto& request) {
        persons.DeleteDepartment(context, departments, request);
        return Nothing{};
    });
    table.Register<QueryPersonList>(
        [&](const C&, const auto& request) { return persons.QueryPage(request); });
    table.Register<QueryPersonDetail>(
        [&](const C&, const auto& request) { return persons.QueryDetail(request); });
    table.Register<AddPerson>(
        [&](const C& context, const auto& request) { return persons.Add(context, request); });
    table.Register<ModifyPerson>(
        [&](const C& context, const auto& request) { return persons.Modify(context, request); });
    table.Register<DeletePersons>(
        [&](const C& context, const auto& request) { return persons.Delete(context, request); });
    table.Register<DeleteAllPersons>([&](const C& context, const auto& request) {
        persons.DeleteAll(context, request);
        return Nothing{};
    });
    table.Register<MovePersons>(
        [&](const C& context, const auto& request) { return persons.Move(context, request); });
    table.Register<IssueCards>([&](const C& context, const auto& request) {
        persons.IssueCards(context, request);
        return Nothing{};
    });
    table.Register<AuthorizePersons>(
        [&](const C& context, const auto& request) { return persons.Authorize(context, request); });
    table.Register<ReissuePersonRight>(
        [&](const C& context, const auto& request) { return authorization.Reissue(context, request); });
    table.Register<QueryAuthorizeException>(
        [&](const C& context, const auto& request) { return authorization.Exceptions(context, request); });
    table.Register<QueryPermissionChoices>(
        [&](const C& context, const auto&) { return persons.QueryChoices(context); });
    table.Register<QueryResidenceScenario>([&](const C&, const auto&) { return persons.QueryResidence(); });
    table.Register<QueryQrCode>([&](const C&, const auto& request) { return credentials.QrCode(request); });
    table.Register<CaptureFingerprint>(
        [&](const C& context, const auto& request) { return credentials.Capture(context, request); });
    table.Register<ExtractPersons>(
        [&](const C& context, const auto& request) { return credentials.Extract(context, request); });
    table.Register<QueryRecordTotal>(
        [&](const C& context, const auto& request) { return credentials.CountRecords(context, request); });
    table.Register<QueryRecords>(
        [&](const C& context, const auto& request) { return credentials.QueryRecords(context, request); });
}

void PlatformServer::Private::RegisterAccounts()
{
    Dispatcher& table = *pDispatcher;
    UserService& users = *pUsers;
    RoleService& roles = *pRoles;
    AuditLog& log = *pAuditLog;
    using namespace wire;
    using C = Context;

    table.Register<QueryUserPage>([&](const C&, const auto& request) { return users.QueryPage(request); });
    table.Register<QueryUserInfo>([&](const C&, const auto& request) { return users.Info(request); });
    table.Register<QueryUserRole>([&](const C&, const auto& request) { return users.RolesOf(request); });
    table.Register<wire::AddUser>(
        [&](const C& context, const auto& request) { return users.Add(context, request); });
    table.Register<ModifyUser>(
        [&](const C& context, const auto& request) { return users.Modify(context, request); });
    table.Register<LockUser>([&](const C& context, const auto& request) {
        users.Lock(context, request);
        return Nothing{};
    });
    table.Register<UnlockUser>([&](const C& context, const auto& request) {
        users.Unlock(context, request);
        return Nothing{};
    });
    table.Register<DeleteUsers>(
        [&](const C& context, const auto& request) { return users.Delete(context, request); });
    table.Register<QueryDomainUsers>(
        [&](const C&, const auto& request) { return users.QueryDomainUsers(request); });
    table.Register<AddDomainUsers>(
        [&](const C& context, const auto& request) { return users.AddDomainUsers(context, request); });
    table.Register<QueryInvalidDomainUsers>(
        [&](const C&, const auto&) { return users.QueryInvalidDomainUsers(); });
    table.Register<DeleteInvalidDomainUsers>([&](const C& context, const auto& request) {
        return users.DeleteInvalidDomainUsers(context, request);
    });
    table.Register<QueryRoleList>([&](const C&, const auto&) { return roles.List(); });
    table.Register<QueryRoleInfo>([&](const C&, const auto& request) { return roles.Info(request); });
    table.Register<AddRole>(
        [&](const C& context, const auto& request) { return roles.Add(context, request); });
    table.Register<ModifyRole>(
        [&](const C& context, const auto& request) { return roles.Modify(context, request); });
    table.Register<DeleteRoles>(
        [&](const C& context, const auto& request) { return roles.Delete(context, request); });
    table.Register<QueryMenuRightList>([&](const C&, const auto&) { return roles.MenuRights(); });
    table.Register<QueryFuncRightList>([&](const C&, const auto&) { return roles.FuncRights(); });
    table.Register<QueryDeviceRights>(
        [&](const C& context, const auto& request) { return roles.DeviceRights(context, request); });
    table.Register<QueryDeviceAccess>(
        [&](const C& context, const auto& request) { return roles.DeviceAccess(context, request); });
    table.Register<QueryAuditPage>(
        [&](const C& context, const auto& request) { return log.Query(context, request); });
    table.Register<ExportAudit>(
        [&](const C& context, const auto& request) { return log.Query(context, request); });
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

void PlatformServer::Private::RegisterFiles()
{
    FileRoutes& files = *pFiles;
    ImportService& imports = *pImport;
    const std::string sRight(wire::BeginImport::Right);
    const auto valueOf = [](const FileRoutes::Query& mapQuery, const char* szKey) {
        const auto it = mapQuery.find(szKey);
        return it == mapQuery.end() ? std::string() : it->second;
    };
    const auto asResponse = [](const ImportService::File& file) {
        return FileResponse{200, file.baContent.toStdString(), file.sType, file.sName};
    };
    files.AddDownload("device-template", sRight, [=](const Context&, const auto& mapQuery) {
        return asResponse(ImportService::Template(valueOf(mapQuery, "kind")));
    });
    files.AddDownload("import-failures", sRight, [=, &imports](const Context& context, const auto& mapQuery) {
        return asResponse(imports.FailureList(context, valueOf(mapQuery, "job")));
    });
    files.AddDownload("person-photo", std::string(wire::QueryPersonList::Right),
        [=, &persons = *pPersons](const Context&, const auto& mapQuery) {
            return FileResponse{200,
                persons.Photo(valueOf(mapQuery, "person"), valueOf(mapQuery, "photo")).toStdString(),
                "image/jpeg", {}};
        });
    files.AddUpload("device-sheet", sRight,
        [=, &imports](const Context& context, const auto& mapQuery, const std::string& sBody) {
            return nlohmann::json(
                imports.Upload(context, QByteArray::fromStdString(sBody), valueOf(mapQuery, "org")));
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

void PlatformServer::Abort()
{
    if (m_pPrivate->pJobs)
        m_pPrivate->pJobs->End();
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

FileRoutes& PlatformServer::Files()
{
    return *m_pPrivate->pFiles;
}

Dispatcher& PlatformServer::Operations()
{
    return *m_pPrivate->pDispatcher;
}

} // namespace Platform

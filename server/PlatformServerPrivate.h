#pragma once

#include "PlatformServer.h"

#include "accounts/RoleService.h"
#include "accounts/UserService.h"
#include "devices/Drivers.h"
#include "devices/Prober.h"
#include "http/Dispatcher.h"
#include "http/FileRoutes.h"
#include "http/HttpFront.h"
#include "import/ImportService.h"
#include "persons/AuthorizationService.h"
#include "persons/CredentialService.h"
#include "persons/DepartmentService.h"
#include "persons/PersonService.h"
#include "persons/PhotoStore.h"
#include "services/AuditLog.h"
#include "services/ChannelReader.h"
#include "services/CloudService.h"
#include "services/DeviceService.h"
#include "services/FieldService.h"
#include "services/JobService.h"
#include "services/OrganizationService.h"
#include "services/RightsService.h"
#include "services/SecretBox.h"
#include "services/SessionService.h"
#include "store/DatabasePool.h"

#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace Platform {

/// The parts of the server. PlatformServer.cpp makes and ends them, PlatformOperations.cpp says which
/// operation goes where.
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

} // namespace Platform

#include "PlatformServerPrivate.h"

#include "services/Catalog.h"
#include "services/TimeZones.h"

#include <wire/Operations.h>

namespace Platform {

void PlatformServer::Private::Register()
{
    Dispatcher& table = *pDispatcher;
    SessionService& sessions = *pSessions;
    OrganizationService& organizations = *pOrganizations;
    using namespace wire;
    using C = Context;

    table.Bind<GetServerState>(sessions, &SessionService::State);
    table.Bind<SetUp>(sessions, &SessionService::SetUp);
    table.Bind<SignIn>(sessions, &SessionService::SignIn);
    table.Bind<SignOut>(sessions, &SessionService::SignOut);
    table.Bind<GetSession>(sessions, &SessionService::Get);
    table.Register<GetDictionary>([](const C&, const auto&) { return Catalog::Dictionary(); });

    table.Bind<QueryOrganizations>(organizations, &OrganizationService::Query);
    table.Bind<AddOrganization>(organizations, &OrganizationService::Add);
    table.Bind<ModifyOrganization>(organizations, &OrganizationService::Modify);
    table.Bind<DeleteOrganization>(organizations, &OrganizationService::Delete);
    table.Bind<MoveOrganization>(organizations, &OrganizationService::Move);
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

    table.Bind<QueryDevicePage>(devices, &DeviceService::QueryPage);
    table.Bind<ExportDevice>(devices, &DeviceService::Export);
    table.Bind<QueryDeviceDetail>(devices, &DeviceService::QueryDetail);
    table.Bind<QueryDeviceReferences>(devices, &DeviceService::QueryReferences);
    table.Bind<DeleteDevice>(devices, &DeviceService::Delete);
    table.Bind<MoveDevice>(devices, &DeviceService::Move);
    table.Bind<QueryDeviceTypes>(devices, &DeviceService::QueryTypes);
    table.Bind<AddDevice>(devices, &DeviceService::Add);
    table.Bind<ModifyDevice>(devices, &DeviceService::Modify);
}

void PlatformServer::Private::RegisterField()
{
    Dispatcher& table = *pDispatcher;
    FieldService& field = *pField;
    JobService& jobs = *pJobs;
    ImportService& imports = *pImport;
    using namespace wire;
    using C = Context;

    table.Register<GetFeatures>([&](const C&, const auto&) {
        RemoteConfigLogical::Features_t features;
        features.bCloudAccount = pCloud->IsConfigured();
        features.sCloudService = pCloud->Name();
        features.sTemplateUrl = std::string(FileRoutes::DownloadPrefix) + "device-template?kind=device";
        features.sIntercomTemplateUrl =
            std::string(FileRoutes::DownloadPrefix) + "device-template?kind=intercom";
        features.sUploadUrl = std::string(FileRoutes::UploadPrefix) + "device-sheet?format=sheet";
        return features;
    });
    table.Register<QueryVideoServers>(
        [](const C&, const auto&) { return VideoServers{Catalog::VideoServers()}; });
    table.Register<GetTimeZone>([](const C&, const auto&) { return TimeZones::Platform(); });
    table.Bind<SearchOnlineDevice>(field, &FieldService::Search);
    table.Bind<InitializeDevice>(field, &FieldService::Initialize);
    table.Bind<ModifyAddress>(field, &FieldService::ModifyAddress);
    table.Bind<ModifyDevicePassword>(field, &FieldService::ModifyPassword);
    table.Bind<SetDeviceTimeZone>(field, &FieldService::SetTimeZone);
    table.Bind<WaitJob>(jobs, &JobService::Wait);
    table.Bind<CancelJob>(jobs, &JobService::Cancel);
    table.Bind<BeginImport>(imports, &ImportService::Begin);
    table.Bind<AddImportRows>(imports, &ImportService::AddRows);
    table.Bind<RunImport>(imports, &ImportService::Run);
    table.Bind<QueryCloudDevices>(*pCloud, &CloudService::Query);
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

    table.Bind<QueryDepartmentTree>(departments, &DepartmentService::Query);
    table.Bind<AddDepartment>(departments, &DepartmentService::Add);
    table.Bind<ModifyDepartment>(departments, &DepartmentService::Modify);
    table.Register<DeleteDepartment>([&](const C& context, const auto& request) {
        persons.DeleteDepartment(context, departments, request);
        return Nothing{};
    });
    table.Bind<QueryPersonList>(persons, &PersonService::QueryPage);
    table.Bind<QueryPersonDetail>(persons, &PersonService::QueryDetail);
    table.Bind<AddPerson>(persons, &PersonService::Add);
    table.Bind<ModifyPerson>(persons, &PersonService::Modify);
    table.Bind<DeletePersons>(persons, &PersonService::Delete);
    table.Bind<DeleteAllPersons>(persons, &PersonService::DeleteAll);
    table.Bind<MovePersons>(persons, &PersonService::Move);
    table.Bind<IssueCards>(persons, &PersonService::IssueCards);
    table.Bind<AuthorizePersons>(persons, &PersonService::Authorize);
    table.Bind<ReissuePersonRight>(authorization, &AuthorizationService::Reissue);
    table.Bind<QueryAuthorizeException>(authorization, &AuthorizationService::Exceptions);
    table.Bind<QueryPermissionChoices>(persons, &PersonService::QueryChoices);
    table.Bind<QueryResidenceScenario>(persons, &PersonService::QueryResidence);
    table.Bind<QueryQrCode>(credentials, &CredentialService::QrCode);
    table.Bind<CaptureFingerprint>(credentials, &CredentialService::Capture);
    table.Bind<ExtractPersons>(credentials, &CredentialService::Extract);
    table.Bind<QueryRecordTotal>(credentials, &CredentialService::CountRecords);
    table.Bind<QueryRecords>(credentials, &CredentialService::QueryRecords);
}

void PlatformServer::Private::RegisterAccounts()
{
    Dispatcher& table = *pDispatcher;
    UserService& users = *pUsers;
    RoleService& roles = *pRoles;
    AuditLog& log = *pAuditLog;
    using namespace wire;

    table.Bind<QueryUserPage>(users, &UserService::QueryPage);
    table.Bind<QueryUserInfo>(users, &UserService::Info);
    table.Bind<QueryUserRole>(users, &UserService::RolesOf);
    table.Bind<AddUser>(users, &UserService::Add);
    table.Bind<ModifyUser>(users, &UserService::Modify);
    table.Bind<LockUser>(users, &UserService::Lock);
    table.Bind<UnlockUser>(users, &UserService::Unlock);
    table.Bind<DeleteUsers>(users, &UserService::Delete);
    table.Bind<QueryDomainUsers>(users, &UserService::QueryDomainUsers);
    table.Bind<AddDomainUsers>(users, &UserService::AddDomainUsers);
    table.Bind<QueryInvalidDomainUsers>(users, &UserService::QueryInvalidDomainUsers);
    table.Bind<DeleteInvalidDomainUsers>(users, &UserService::DeleteInvalidDomainUsers);
    table.Bind<QueryRoleList>(roles, &RoleService::List);
    table.Bind<QueryRoleInfo>(roles, &RoleService::Info);
    table.Bind<AddRole>(roles, &RoleService::Add);
    table.Bind<ModifyRole>(roles, &RoleService::Modify);
    table.Bind<DeleteRoles>(roles, &RoleService::Delete);
    table.Bind<QueryMenuRightList>(roles, &RoleService::MenuRights);
    table.Bind<QueryFuncRightList>(roles, &RoleService::FuncRights);
    table.Bind<QueryDeviceRights>(roles, &RoleService::DeviceRights);
    table.Bind<QueryDeviceAccess>(roles, &RoleService::DeviceAccess);
    table.Bind<QueryAuditPage>(log, &AuditLog::Query);
    table.Bind<ExportAudit>(log, &AuditLog::Query);
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

} // namespace Platform

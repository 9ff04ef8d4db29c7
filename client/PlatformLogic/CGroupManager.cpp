#include "CGroupManager.h"

#include "CImportSender.h"
#include "CUserManager.h"
#include "ServerCall.h"

namespace PlatformLogic {

using GroupLogical::IGroupManagerObserver;

namespace {

constexpr auto TakeOrganization = [](IGroupManagerObserver::Param& param,
                                      GroupLogical::Organization_t&& organization) {
    param.vecOrganizations.push_back(std::move(organization));
};
constexpr auto TakeDevice = [](IGroupManagerObserver::Param& param, GroupLogical::DeviceAddInfo_t&& device) {
    if (param.nErrorCode == UICommonMdl::ErrorNone)
        param.optDevice = std::move(device);
};
constexpr auto TakePage = [](IGroupManagerObserver::Param& param, GroupLogical::DevicePage_t&& page) {
    param.devicePage = std::move(page);
};
constexpr auto TakeFailedDevices = [](IGroupManagerObserver::Param& param, wire::BatchAnswer&& answer) {
    param.vecFailed = std::move(answer.vecFailed);
};

} // namespace

CGroupManager::CGroupManager(IServerConnection& connection, CUserManager& userManager)
    : m_connection(connection)
    , m_userManager(userManager)
{
}

template <class Op, class Take>
int CGroupManager::Call(int nResultCode, const typename Op::Request& request, Take take)
{
    if (!m_userManager.GetUserRight())
        return 0;
    return CallServer<Op>(
        m_connection, request, [this, nResultCode, take](TypedAnswer<typename Op::Answer>&& answer) {
            Param param;
            param.nResultCode = nResultCode;
            param.nSequence = answer.nSequence;
            param.nErrorCode = answer.nErrorCode;
            param.sErrorDetail = std::move(answer.sDetail);
            take(param, std::move(answer.data));
            Notify(std::move(param));
        });
}

void CGroupManager::Notify(Param&& param)
{
    const auto pAnswer = std::make_shared<const Param>(std::move(param));
    m_observers.ForEach(
        [&](IGroupManagerObserver& observer) { observer.OnNotifyGroupManagerState(pAnswer); });
}

void CGroupManager::NotifyPush(int nResultCode)
{
    Param param;
    param.nResultCode = nResultCode;
    Notify(std::move(param));
}

void CGroupManager::AddObserver(IGroupManagerObserver* pObserver)
{
    m_observers.Add(pObserver);
}

void CGroupManager::RemoveObserver(IGroupManagerObserver* pObserver)
{
    m_observers.Remove(pObserver);
}

int CGroupManager::GetOrganizationLevelLimit()
{
    return m_userManager.GetOrganizationLevelLimit();
}

int CGroupManager::QueryOrganizations()
{
    return Call<wire::QueryOrganizations>(
        IGroupManagerObserver::ResultQueryOrganizations, {}, [](Param& param, wire::Organizations&& data) {
            param.vecOrganizations = std::move(data.vecOrganizations);
        });
}

int CGroupManager::AddOrganization(const GroupLogical::Organization_t& organization)
{
    return Call<wire::AddOrganization>(
        IGroupManagerObserver::ResultAddOrganization, organization, TakeOrganization);
}

int CGroupManager::ModifyOrganization(const GroupLogical::Organization_t& organization)
{
    return Call<wire::ModifyOrganization>(
        IGroupManagerObserver::ResultModifyOrganization, organization, TakeOrganization);
}

int CGroupManager::DeleteOrganization(const std::string& sCode)
{
    return Call<wire::DeleteOrganization>(
        IGroupManagerObserver::ResultDeleteOrganization, {sCode}, TakeNothing);
}

int CGroupManager::MoveOrganization(const std::string& sCode, const std::string& sNewParentCode)
{
    return Call<wire::MoveOrganization>(
        IGroupManagerObserver::ResultMoveOrganization, {sCode, sNewParentCode}, TakeNothing);
}

int CGroupManager::QueryDevicePage(const GroupLogical::DevicePageRequest_t& request)
{
    return Call<wire::QueryDevicePage>(IGroupManagerObserver::ResultQueryDevicePage, request, TakePage);
}

int CGroupManager::ExportDevice(const GroupLogical::DevicePageRequest_t& request)
{
    return Call<wire::ExportDevice>(IGroupManagerObserver::ResultExportDevice, request, TakePage);
}

int CGroupManager::QueryDeviceDetail(const std::string& sDeviceId)
{
    return Call<wire::QueryDeviceDetail>(
        IGroupManagerObserver::ResultQueryDeviceDetail, {sDeviceId}, TakeDevice);
}

int CGroupManager::QueryDeviceReferences(const std::string& sDeviceId)
{
    return Call<wire::QueryDeviceReferences>(IGroupManagerObserver::ResultQueryDeviceReferences, {sDeviceId},
        [](Param& param, wire::DeviceReferences&& data) {
            param.vecReferences = std::move(data.vecReferences);
        });
}

int CGroupManager::DeleteDevice(const std::vector<std::string>& vecDeviceIds, int nMode)
{
    return Call<wire::DeleteDevice>(
        IGroupManagerObserver::ResultDeleteDevice, {vecDeviceIds, nMode}, TakeFailedDevices);
}

int CGroupManager::MoveDevice(const std::vector<std::string>& vecDeviceIds, const std::string& sOrgCode)
{
    return Call<wire::MoveDevice>(
        IGroupManagerObserver::ResultMoveDevice, {vecDeviceIds, sOrgCode}, TakeFailedDevices);
}

int CGroupManager::QueryDeviceTypes()
{
    return Call<wire::QueryDeviceTypes>(IGroupManagerObserver::ResultQueryDeviceTypes, {},
        [](Param& param, wire::DeviceTypes&& data) { param.vecDeviceTypes = std::move(data.vecTypes); });
}

int CGroupManager::AddDevice(const GroupLogical::DeviceAddInfo_t& device)
{
    return Call<wire::AddDevice>(
        IGroupManagerObserver::ResultAddDevice, device, [](Param& param, wire::DeviceAddAnswer&& answer) {
            param.vecAddedIds = std::move(answer.vecAddedIds);
            param.vecFailed = std::move(answer.vecFailed);
        });
}

int CGroupManager::ModifyDevice(const GroupLogical::DeviceAddInfo_t& device)
{
    return Call<wire::ModifyDevice>(IGroupManagerObserver::ResultModifyDevice, device, TakeDevice);
}

int CGroupManager::ImportDevice(const GroupLogical::ImportRequest_t& request)
{
    if (!m_userManager.GetUserRight() || request.vecRows.empty())
        return 0;
    return std::make_shared<CImportSender>(m_connection, request, [this](const JobReport& report) {
        NotifyImport(report);
    })->Start();
}

int CGroupManager::ImportUploaded(const std::string& sJob, bool bAllOrNothing, bool bOverwrite)
{
    if (!m_userManager.GetUserRight())
        return 0;
    return CImportSender::StartUploaded(m_connection, {sJob, bAllOrNothing, bOverwrite},
        [this](const JobReport& report) { NotifyImport(report); });
}

void CGroupManager::NotifyImport(const JobReport& report)
{
    Param param;
    param.nResultCode = IGroupManagerObserver::ResultImportDevice;
    param.nSequence = report.nSequence;
    param.nErrorCode = report.nErrorCode;
    param.sErrorDetail = report.sDetail;
    param.bFinal = report.bFinal;
    if (report.bFinal) {
        try {
            report.state.summary.get_to(param.importState);
        } catch (const nlohmann::json::exception&) {
            param.nErrorCode = UICommonMdl::ErrorBadAnswer;
        }
    } else {
        param.importState.nTotal = report.state.nTotal;
        param.importState.nDone = report.state.nDone;
        // Each item is a row that failed.
        param.importState.nFailed = report.nItems;
    }
    param.importState.vecFailed = ItemsOf<GroupLogical::ImportFailure_t>(report);
    Notify(std::move(param));
}

} // namespace PlatformLogic

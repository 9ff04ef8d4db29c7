#include "FakeGroupManager.h"

FakeGroupManager::FakeGroupManager()
    : FakeManager(&Observer::OnNotifyGroupManagerState)
{
}

int FakeGroupManager::QueryOrganizations()
{
    return Call("QueryOrganizations", Observer::ResultQueryOrganizations);
}

int FakeGroupManager::AddOrganization(const GroupLogical::Organization_t& organization)
{
    return Call("AddOrganization", Observer::ResultAddOrganization, organization);
}

int FakeGroupManager::ModifyOrganization(const GroupLogical::Organization_t& organization)
{
    return Call("ModifyOrganization", Observer::ResultModifyOrganization, organization);
}

int FakeGroupManager::DeleteOrganization(const std::string& sCode)
{
    return Call("DeleteOrganization", Observer::ResultDeleteOrganization, sCode);
}

int FakeGroupManager::MoveOrganization(const std::string& sCode, const std::string& sNewParentCode)
{
    return Call("MoveOrganization", Observer::ResultMoveOrganization, std::pair(sCode, sNewParentCode));
}

int FakeGroupManager::QueryDevicePage(const GroupLogical::DevicePageRequest_t& request)
{
    return Call("QueryDevicePage", Observer::ResultQueryDevicePage, request);
}

int FakeGroupManager::ExportDevice(const GroupLogical::DevicePageRequest_t& request)
{
    return Call("ExportDevice", Observer::ResultExportDevice, request);
}

int FakeGroupManager::QueryDeviceDetail(const std::string& sDeviceId)
{
    return Call("QueryDeviceDetail", Observer::ResultQueryDeviceDetail, sDeviceId);
}

int FakeGroupManager::QueryDeviceReferences(const std::string& sDeviceId)
{
    return Call("QueryDeviceReferences", Observer::ResultQueryDeviceReferences, sDeviceId);
}

int FakeGroupManager::DeleteDevice(const Ids& vecDeviceIds, int nMode)
{
    return Call("DeleteDevice", Observer::ResultDeleteDevice, std::pair(vecDeviceIds, nMode));
}

int FakeGroupManager::MoveDevice(const Ids& vecDeviceIds, const std::string& sOrgCode)
{
    return Call("MoveDevice", Observer::ResultMoveDevice, std::pair(vecDeviceIds, sOrgCode));
}

int FakeGroupManager::QueryDeviceTypes()
{
    return Call("QueryDeviceTypes", Observer::ResultQueryDeviceTypes);
}

int FakeGroupManager::AddDevice(const GroupLogical::DeviceAddInfo_t& device)
{
    return Call("AddDevice", Observer::ResultAddDevice, device);
}

int FakeGroupManager::ModifyDevice(const GroupLogical::DeviceAddInfo_t& device)
{
    return Call("ModifyDevice", Observer::ResultModifyDevice, device);
}

int FakeGroupManager::ImportDevice(const GroupLogical::ImportRequest_t& request)
{
    return Call("ImportDevice", Observer::ResultImportDevice, request);
}

int FakeGroupManager::ImportUploaded(const std::string& sJob, bool bAllOrNothing, bool bOverwrite)
{
    return Call("ImportUploaded", Observer::ResultImportDevice, std::tuple(sJob, bAllOrNothing, bOverwrite));
}

void FakeGroupManager::ServeSite()
{
    vecOrganizations = {{"001", "", "Site", "", 0, 1}, {"001001", "001", "North", "gate", 0, 4},
        {"001002", "001", "South", "", 1, 1}, {"001001001", "001001", "Tower", "", 0, 1}};
    for (int n = 1; n <= 12; ++n) {
        GroupLogical::DeviceInfo_t device;
        device.sDeviceId = std::to_string(1000 + n);
        device.sName = "Camera " + std::to_string(n);
        device.sIp = "10.0.0." + std::to_string(n);
        device.nCategory = n % 2 ? 1 : 8;
        device.sOrgCode = "001";
        device.sOrgName = "Site";
        device.nOnlineState = n % 3 ? GroupLogical::StateOnline : GroupLogical::StateOffline;
        device.nOfflineReason = n % 3 ? GroupLogical::ReasonNone : GroupLogical::ReasonRefused;
        vecDevices.push_back(device);
    }
    AnswerAlways("QueryOrganizations",
        [this](const FakeCall&, Param& param) { param.vecOrganizations = vecOrganizations; });
    AnswerAlways("QueryDeviceTypes", [](const FakeCall&, Param& param) {
        param.vecDeviceTypes = {1, 8, 50};
    });
    const auto servePage = [this](const FakeCall& call, Param& param) {
        const auto request = std::any_cast<GroupLogical::DevicePageRequest_t>(call.argument);
        param.devicePage = {vecDevices, 60, request.nPage};
    };
    AnswerAlways("QueryDevicePage", servePage);
    AnswerAlways("ExportDevice", servePage);
}

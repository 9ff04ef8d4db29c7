#pragma once

#include "ObserverList.h"
#include "PlatformLogicExport.h"

#include <GroupLogical/IGroupManager.h>

namespace PlatformLogic {

class CUserManager;
class IServerConnection;

/// Organisations and devices of the server.
class PLATFORMLOGIC_EXPORT CGroupManager : public GroupLogical::IGroupManager
{
public:
    /// Both are borrowed and outlive the manager.
    CGroupManager(IServerConnection& connection, CUserManager& userManager);

    void AddObserver(GroupLogical::IGroupManagerObserver* pObserver) override;
    void RemoveObserver(GroupLogical::IGroupManagerObserver* pObserver) override;
    int GetOrganizationLevelLimit() override;
    int QueryOrganizations() override;
    int AddOrganization(const GroupLogical::Organization_t& organization) override;
    int ModifyOrganization(const GroupLogical::Organization_t& organization) override;
    int DeleteOrganization(const std::string& sCode) override;
    int MoveOrganization(const std::string& sCode, const std::string& sNewParentCode) override;
    int QueryDevicePage(const GroupLogical::DevicePageRequest_t& request) override;
    int ExportDevice(const GroupLogical::DevicePageRequest_t& request) override;
    int QueryDeviceDetail(const std::string& sDeviceId) override;
    int QueryDeviceReferences(const std::string& sDeviceId) override;
    int DeleteDevice(const std::vector<std::string>& vecDeviceIds, int nMode) override;
    int MoveDevice(const std::vector<std::string>& vecDeviceIds, const std::string& sOrgCode) override;
    int QueryDeviceTypes() override;
    int AddDevice(const GroupLogical::DeviceAddInfo_t& device) override;
    int ModifyDevice(const GroupLogical::DeviceAddInfo_t& device) override;
    int ImportDevice(const GroupLogical::ImportRequest_t& request) override;
    int ImportUploaded(const std::string& sJob, bool bAllOrNothing, bool bOverwrite) override;

    /// Tells the observers of something that the server pushed.
    void NotifyPush(int nResultCode);

private:
    using Param = GroupLogical::IGroupManagerObserver::Param;

    /// Sends the operation; take(param, data) moves the answer's data into the observers' record.
    template <class Op, class Take>
    int Call(int nResultCode, const typename Op::Request& request, Take take);
    void Notify(Param&& param);
    void NotifyImport(const struct JobReport& report);

    IServerConnection& m_connection;
    CUserManager& m_userManager;
    ObserverList<GroupLogical::IGroupManagerObserver> m_observers;
};

} // namespace PlatformLogic

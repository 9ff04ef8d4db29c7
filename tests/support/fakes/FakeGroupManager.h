#pragma once

#include "FakeManager.h"

#include <GroupLogical/IGroupManager.h>

/// Records calls under the operations' names; the argument is what the operation took (for operations with
/// two arguments a pair).
class FakeGroupManager
    : public GroupLogical::IGroupManager,
      public FakeManager<GroupLogical::IGroupManagerObserver, GroupLogical::IGroupManagerObserver::Param>
{
public:
    using Observer = GroupLogical::IGroupManagerObserver;
    using Param = Observer::Param;
    using Ids = std::vector<std::string>;

    FakeGroupManager();
    void AddObserver(Observer* pObserver) override { Add(pObserver); }
    void RemoveObserver(Observer* pObserver) override { Remove(pObserver); }
    int GetOrganizationLevelLimit() override { return nLevelLimit; }
    int QueryOrganizations() override;
    int AddOrganization(const GroupLogical::Organization_t& organization) override;
    int ModifyOrganization(const GroupLogical::Organization_t& organization) override;
    int DeleteOrganization(const std::string& sCode) override;
    int MoveOrganization(const std::string& sCode, const std::string& sNewParentCode) override;
    int QueryDevicePage(const GroupLogical::DevicePageRequest_t& request) override;
    int ExportDevice(const GroupLogical::DevicePageRequest_t& request) override;
    int QueryDeviceDetail(const std::string& sDeviceId) override;
    int QueryDeviceReferences(const std::string& sDeviceId) override;
    int DeleteDevice(const Ids& vecDeviceIds, int nMode) override;
    int MoveDevice(const Ids& vecDeviceIds, const std::string& sOrgCode) override;
    int QueryDeviceTypes() override;
    int AddDevice(const GroupLogical::DeviceAddInfo_t& device) override;
    int ModifyDevice(const GroupLogical::DeviceAddInfo_t& device) override;
    int ImportDevice(const GroupLogical::ImportRequest_t& request) override;
    /// The argument is a tuple of the three.
    int ImportUploaded(const std::string& sJob, bool bAllOrNothing, bool bOverwrite) override;

    /// Answers the three queries of a page at once: a small tree, the devices below, their categories.
    void ServeSite();

    int nLevelLimit = 10;
    std::vector<GroupLogical::Organization_t> vecOrganizations;
    std::vector<GroupLogical::DeviceInfo_t> vecDevices;
};

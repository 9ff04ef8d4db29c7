#pragma once

#include <GroupLogical/GroupRecords.h>
#include <VxPluginAPI/IAbstractResourceManager.h>
#include <VxPluginAPI/IObserver.h>

#include <memory>
#include <optional>

namespace GroupLogical {

class IGroupManagerObserver : public VxPluginAPI::IObserver
{
public:
    /// Which operation an answer belongs to.
    enum ResultCode : int
    {
        ResultQueryOrganizations = 1,
        ResultAddOrganization,
        ResultModifyOrganization,
        ResultDeleteOrganization,
        ResultMoveOrganization,
        ResultQueryDevicePage,
        ResultQueryDeviceDetail,
        ResultQueryDeviceReferences,
        ResultDeleteDevice,
        ResultMoveDevice,
        ResultExportDevice,
        ResultQueryDeviceTypes,
        ResultAddDevice,
        ResultModifyDevice,
        ResultImportDevice,

        ResultOrganizationsChanged = 100, ///< pushed: somebody changed the organisation tree
        ResultDevicesChanged, ///< pushed: somebody added, changed, moved or deleted devices
    };

    /// One answer, or one push (nSequence 0). Fields that the operation does not fill are empty.
    struct Param
    {
        int nResultCode = 0; ///< ResultCode
        int nSequence = 0; ///< the number that the call returned; 0: pushed by the server
        int nErrorCode = 0; ///< UICommonMdl::ErrorCode
        std::string sErrorDetail; ///< the server's own words on the error, may be empty
        std::vector<Organization_t> vecOrganizations; ///< all (query), or the one added or changed
        DevicePage_t devicePage; ///< page, or all rows of an export
        std::optional<DeviceAddInfo_t> optDevice; ///< detail
        std::vector<DeviceReference_t> vecReferences;
        std::vector<FailedItem_t> vecFailed; ///< delete, move, add (segment): what was refused
        std::vector<int> vecDeviceTypes; ///< category codes that exist on the platform, ascending
        std::vector<std::string> vecAddedIds; ///< add: the IDs of the devices that were added
        ImportState_t importState;
        /// False for a report on a request that goes on: more with its number follow.
        bool bFinal = true;
    };
    /// Shared by all who hear it and never changed.
    using Answer = std::shared_ptr<const Param>;

    /// Comes on a thread of the host: keep the pointer or leave it, and return.
    virtual void OnNotifyGroupManagerState(const Answer& pAnswer) = 0;
};

/// Organisations and devices.
///
/// Calls are made on the user-interface thread, return at once and never throw. A number above 0 is the
/// request's number: exactly one answer with it follows (success, an error code or a time-out code). 0 or
/// less: the call was refused, nothing was sent and no answer follows.
class IGroupManager : public VxPluginAPI::IManager
{
public:
    static constexpr const char* InterfaceId = "GroupLogical.IGroupManager(1.0)";

    /// Observers are borrowed. After RemoveObserver has returned no callback runs on that observer.
    virtual void AddObserver(IGroupManagerObserver* pObserver) = 0;
    virtual void RemoveObserver(IGroupManagerObserver* pObserver) = 0;

    /// Levels that the organisation tree may have, the root being level 1.
    virtual int GetOrganizationLevelLimit() = 0;

    /// All organisations that the user may see, parents before children.
    virtual int QueryOrganizations() = 0;
    /// sParentCode, sName and sRemark are read; the answer carries the record with its code.
    virtual int AddOrganization(const Organization_t& organization) = 0;
    /// Name and remark of the organisation with that code and version.
    virtual int ModifyOrganization(const Organization_t& organization) = 0;
    virtual int DeleteOrganization(const std::string& sCode) = 0;
    virtual int MoveOrganization(const std::string& sCode, const std::string& sNewParentCode) = 0;

    virtual int QueryDevicePage(const DevicePageRequest_t& request) = 0;
    /// All rows that the request selects; its page and page size are not read.
    virtual int ExportDevice(const DevicePageRequest_t& request) = 0;
    virtual int QueryDeviceDetail(const std::string& sDeviceId) = 0;
    /// Configuration that refers to the device.
    virtual int QueryDeviceReferences(const std::string& sDeviceId) = 0;
    /// nMode is a DeleteMode. Each device is deleted wholly or listed as failed.
    virtual int DeleteDevice(const std::vector<std::string>& vecDeviceIds, int nMode) = 0;
    /// Devices that cannot be moved are listed as failed; the others are moved.
    virtual int MoveDevice(const std::vector<std::string>& vecDeviceIds, const std::string& sOrgCode) = 0;
    /// The categories of the devices that exist.
    virtual int QueryDeviceTypes() = 0;
    /// A refusal names the field in its detail: "sName" (ErrorNameExists), "sIp" (ErrorAddressExists),
    /// "sSerialNumber", "sRegisterId" or, for ErrorInvalidInput, any other. The addresses of a segment are
    /// added one by one; those that are refused are listed as failed, their sId being the address.
    virtual int AddDevice(const DeviceAddInfo_t& device) = 0;
    /// The device with that ID and version; refusals as AddDevice, and ErrorVersionConflict. The answer's
    /// optDevice is the device as it is now.
    virtual int ModifyDevice(const DeviceAddInfo_t& device) = 0;
    /// Adds the devices of a list. Reports (bFinal false) say how far it is; the last one is final. An import
    /// that has reached the server goes on there when the client ends.
    virtual int ImportDevice(const ImportRequest_t& request) = 0;
    /// Imports the sheet that the upload manager has brought to the server, sJob being its answer. Reports as
    /// ImportDevice. bOverwrite: rows of devices that exist change those.
    virtual int ImportUploaded(const std::string& sJob, bool bAllOrNothing, bool bOverwrite) = 0;
};

} // namespace GroupLogical

#pragma once

#include "AuditService.h"
#include "Context.h"
#include "DevicePages.h"
#include "Generations.h"
#include "SecretBox.h"
#include "http/EventHub.h"
#include "store/DatabasePool.h"

#include <wire/Records.h>

namespace Platform {

/// Work of the platform on a device, during which it cannot be deleted.
enum DeviceTask : int
{
    TaskExtractingLogs = 1,
    TaskExtractingPersons = 2,
    TaskGettingRecordings = 3,
    TaskUpdating = 4,
};

/// Devices. Any thread; faults are ServiceError.
class DeviceService
{
public:
    static constexpr std::size_t BatchLimit = 1000;

    /// Told the IDs of devices that were added or may be reached elsewhere now. Any thread.
    using AddressChanged = std::function<void(const std::vector<std::string>& vecDeviceIds)>;

    DeviceService(DatabasePool& pool, EventHub& hub, const AuditService& audit, Generations& generations,
        const SecretBox& box, AddressChanged addressChanged);

    GroupLogical::DevicePage_t QueryPage(
        const Context& context, const GroupLogical::DevicePageRequest_t& request);
    GroupLogical::DevicePage_t Export(
        const Context& context, const GroupLogical::DevicePageRequest_t& request);
    GroupLogical::DeviceAddInfo_t QueryDetail(const Context& context, const wire::DeviceId& id);
    wire::DeviceReferences QueryReferences(const Context& context, const wire::DeviceId& id);
    wire::DeviceTypes QueryTypes(const Context& context);
    /// Each device is deleted wholly or listed; all in one transaction.
    wire::BatchAnswer Delete(const Context& context, const wire::DeleteDeviceRequest& request);
    wire::BatchAnswer Move(const Context& context, const wire::MoveDeviceRequest& request);
    wire::DeviceAddAnswer Add(const Context& context, const GroupLogical::DeviceAddInfo_t& device);
    GroupLogical::DeviceAddInfo_t Modify(const Context& context, const GroupLogical::DeviceAddInfo_t& device);

    /// Throws ServiceError when another device has the record's name, address, register ID or serial number;
    /// the detail is the field.
    static void CheckUnique(Database& database, const GroupLogical::DeviceAddInfo_t& device);
    /// Tells the clients that the list of devices is another one.
    void Changed();
    /// As Changed, for devices that may be reached elsewhere now: they are looked at soon.
    void AddressesChanged(const std::vector<std::string>& vecDeviceIds);

private:
    std::string AddOne(Database& database, const Context& context, GroupLogical::DeviceAddInfo_t device);
    wire::DeviceAddAnswer AddSegment(
        Database& database, const Context& context, const GroupLogical::DeviceAddInfo_t& device);

    DatabasePool& m_pool;
    EventHub& m_hub;
    const AuditService& m_audit;
    Generations& m_generations;
    const SecretBox& m_box;
    const AddressChanged m_addressChanged;
    DevicePages m_pages;
};

} // namespace Platform

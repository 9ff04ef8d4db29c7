#pragma once

#include "AuditService.h"
#include "Context.h"
#include "DevicePages.h"
#include "Generations.h"
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

    DeviceService(DatabasePool& pool, EventHub& hub, const AuditService& audit, Generations& generations);

    GroupLogical::DevicePage_t QueryPage(const GroupLogical::DevicePageRequest_t& request);
    GroupLogical::DevicePage_t Export(const GroupLogical::DevicePageRequest_t& request);
    GroupLogical::DeviceAddInfo_t QueryDetail(const wire::DeviceId& id);
    wire::DeviceReferences QueryReferences(const wire::DeviceId& id);
    wire::DeviceTypes QueryTypes();
    /// Each device is deleted wholly or listed; all in one transaction.
    wire::BatchAnswer Delete(const Context& context, const wire::DeleteDeviceRequest& request);
    wire::BatchAnswer Move(const Context& context, const wire::MoveDeviceRequest& request);

private:
    void Changed();

    DatabasePool& m_pool;
    EventHub& m_hub;
    const AuditService& m_audit;
    Generations& m_generations;
    DevicePages m_pages;
};

} // namespace Platform

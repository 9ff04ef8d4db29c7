#pragma once

#include "AuditService.h"
#include "Context.h"
#include "DeviceService.h"
#include "JobService.h"
#include "SecretBox.h"
#include "devices/DiscoverySweep.h"
#include "devices/Drivers.h"
#include "store/DatabasePool.h"

#include <wire/Records.h>

namespace Platform {

/// What is done on the devices themselves, as jobs: discovery, first passwords, addresses, passwords, time
/// zones. Devices of a batch are worked on side by side, and each fails alone. Any thread; faults are
/// ServiceError.
class FieldService
{
public:
    static constexpr std::size_t BatchLimit = 10000;
    static constexpr std::uint32_t AddressLimit = 65536;

    /// All are borrowed.
    FieldService(DatabasePool& pool, JobService& jobs, DeviceService& devices, const AuditService& audit,
        const SecretBox& box, const Drivers& drivers, int nSearchTimeoutMs);

    /// Items: RemoteConfigLogical::SearchDeviceInfo_t.
    wire::Job Search(const Context& context, const wire::SearchRequest& request);
    /// Items of these three: RemoteConfigLogical::ModifyDevicePasswordResultInfo_t.
    wire::Job Initialize(const Context& context, const wire::InitializeRequest& request);
    wire::Job ModifyAddress(const Context& context, const wire::ModifyAddressRequest& request);
    wire::Job ModifyPassword(const Context& context, const wire::ModifyPasswordRequest& request);
    /// Items: RemoteConfigLogical::TimeZoneResult_t.
    wire::Job SetTimeZone(const Context& context, const wire::SetTimeZoneRequest& request);

private:
    using Result = RemoteConfigLogical::ModifyDevicePasswordResultInfo_t;

    DeviceDriver& DriverOf(const std::string& sProtocol) const;
    void ChangePassword(const Context& context, const wire::ModifyPasswordRequest& request, Result& result);
    void ChangeAddress(const Context& context, const RemoteConfigLogical::ModifyAddress_t& change);
    void KeepAddress(const Context& context, const RemoteConfigLogical::ModifyAddress_t& change);
    RemoteConfigLogical::TimeZoneResult_t PushTimeZone(const Context& context, const std::string& sDeviceId,
        const RemoteConfigLogical::TimeZoneSetting_t& setting);

    DatabasePool& m_pool;
    JobService& m_jobs;
    DeviceService& m_devices;
    const AuditService& m_audit;
    const SecretBox& m_box;
    const Drivers& m_drivers;
    const int m_nSearchTimeoutMs;
};

} // namespace Platform

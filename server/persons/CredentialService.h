#pragma once

#include "devices/Drivers.h"
#include "services/Context.h"
#include "services/JobService.h"
#include "services/SecretBox.h"
#include "store/DatabasePool.h"

#include <wire/Records.h>

namespace Platform {

/// What stands around the credentials of persons: fingers on the readers of devices, persons that devices
/// hold, QR codes, and the records of who came to which door. Any thread; faults are ServiceError.
class CredentialService
{
public:
    static constexpr std::int64_t QrCodeSeconds = 150;
    static constexpr int CaptureSeconds = 30;

    /// All are borrowed. nPollMs: how often a device is asked for the finger that it waits for.
    CredentialService(DatabasePool& pool, JobService& jobs, const SecretBox& box, const Drivers& drivers,
        Clock clock, int nPollMs = 300);

    /// A job whose summary is wire::CapturedFingerprint.
    wire::Job Capture(const Context& context, const wire::DeviceId& device);
    /// A job whose summary is wire::DevicePersons.
    wire::Job Extract(const Context& context, const wire::DeviceId& device);

    /// A sealed text that only this platform reads, for a few minutes.
    AccessControlLogical::PersonQrCode_t QrCode(const wire::PersonId& id);
    /// The person that such a text is for; empty for any other text and once its time is over.
    std::string PersonOf(const std::string& sQrText) const;

    wire::RecordTotal CountRecords(
        const Context& context, const AccessControlLogical::AccessRecordRequest_t& request);
    wire::AccessRecords QueryRecords(
        const Context& context, const AccessControlLogical::AccessRecordRequest_t& request);

private:
    struct Reached
    {
        DeviceDriver* pDriver;
        DeviceAccess access;
    };
    Reached Reach(const Context& context, const std::string& sDeviceId);

    DatabasePool& m_pool;
    JobService& m_jobs;
    const SecretBox& m_box;
    const Drivers& m_drivers;
    const Clock m_clock;
    const int m_nPollMs;
};

} // namespace Platform

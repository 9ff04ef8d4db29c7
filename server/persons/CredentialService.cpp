#include "CredentialService.h"

#include "PersonRecords.h"
#include "PersonRules.h"
#include "ServiceError.h"
#include "services/DeviceRecords.h"

namespace Platform {

using namespace AccessControlLogical;

namespace {

constexpr const char* QrPrefix = "P1:";
constexpr std::size_t ExtractLimit = 1000;

/// Runs what talks to a device; its faults become the job's.
template <class Work>
auto OfDevice(const Work& work)
{
    try {
        return work();
    } catch (const DeviceError& error) {
        throw ServiceError(error.Code(), error.what());
    }
}

qlonglong PersonOfRequest(const AccessRecordRequest_t& request)
{
    return PersonRules::NumberOf(request.sPersonId).value_or(0);
}

} // namespace

CredentialService::CredentialService(DatabasePool& pool, JobService& jobs, const SecretBox& box,
    const Drivers& drivers, Clock clock, int nPollMs)
    : m_pool(pool)
    , m_jobs(jobs)
    , m_box(box)
    , m_drivers(drivers)
    , m_clock(std::move(clock))
    , m_nPollMs(nPollMs)
{
}

CredentialService::Reached CredentialService::Reach(const Context& context, const std::string& sDeviceId)
{
    const auto optLogin = m_pool.Read([&](Database& database) {
        context.Scope().CheckDevice(database, sDeviceId);
        return DeviceRecords::FindLogin(database, m_box, sDeviceId);
    });
    if (!optLogin)
        throw ServiceError(UICommonMdl::ErrorNotFound);
    DeviceDriver* const pDriver = m_drivers.Find(optLogin->sProtocol);
    if (!pDriver)
        throw ServiceError(UICommonMdl::ErrorDeviceNotSupported);
    return {pDriver, optLogin->access};
}

wire::Job CredentialService::Capture(const Context& context, const wire::DeviceId& device)
{
    const Reached reached = Reach(context, device.sDeviceId);
    return m_jobs.Run(context, [this, reached](Job& job) {
        OfDevice([&] {
            reached.pDriver->StartFingerprint(reached.access);
            const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(CaptureSeconds);
            while (std::chrono::steady_clock::now() < end && !job.StopToken().stop_requested()) {
                if (const auto optTemplate = reached.pDriver->ReadFingerprint(reached.access)) {
                    job.SetSummary(wire::CapturedFingerprint{*optTemplate});
                    return;
                }
                std::this_thread::sleep_for(std::chrono::milliseconds(m_nPollMs));
            }
            throw DeviceError(UICommonMdl::ErrorDeviceTimeOut);
        });
    });
}

wire::Job CredentialService::Extract(const Context& context, const wire::DeviceId& device)
{
    const Reached reached = Reach(context, device.sDeviceId);
    return m_jobs.Run(context, [reached](Job& job) {
        OfDevice([&] {
            job.SetSummary(wire::DevicePersons{reached.pDriver->Persons(reached.access, ExtractLimit)});
        });
    });
}

PersonQrCode_t CredentialService::QrCode(const wire::PersonId& id)
{
    const bool bKnown = m_pool.Read(
        [&](Database& database) { return PersonRecords::Find(database, id.sPersonId).has_value(); });
    if (!bKnown)
        throw ServiceError(UICommonMdl::ErrorNotFound);
    const std::int64_t nValidTo = m_clock() / 1000 + QrCodeSeconds;
    return {QrPrefix + m_box.Seal(id.sPersonId + ' ' + std::to_string(nValidTo)), nValidTo};
}

std::string CredentialService::PersonOf(const std::string& sQrText) const
{
    const std::string sPrefix = QrPrefix;
    if (sQrText.compare(0, sPrefix.size(), sPrefix) != 0)
        return {};
    const std::string sOpened = m_box.Open(sQrText.substr(sPrefix.size())).value_or("");
    const auto nBlank = sOpened.find(' ');
    if (nBlank == std::string::npos || std::stoll(sOpened.substr(nBlank)) < m_clock() / 1000)
        return {};
    return sOpened.substr(0, nBlank);
}

wire::RecordTotal CredentialService::CountRecords(
    const Context& context, const AccessRecordRequest_t& request)
{
    return m_pool.Read([&](Database& database) {
        QVariantList values{PersonOfRequest(request), static_cast<qlonglong>(request.nFrom),
            static_cast<qlonglong>(request.nTo)};
        const QString sReached = context.Scope().AndDevice(QStringLiteral("access_record.device_id"), values);
        Rows rows = database.Run(
            QLatin1String("SELECT COUNT(*) FROM access_record WHERE person_id = ? AND at >= ? AND at <= ?")
                + sReached,
            values);
        rows.Next();
        return wire::RecordTotal{rows.Int(0)};
    });
}

wire::AccessRecords CredentialService::QueryRecords(
    const Context& context, const AccessRecordRequest_t& request)
{
    CheckPage(request.nPage, request.nPageSize);
    wire::AccessRecords answer;
    answer.nTotal = CountRecords(context, request).nTotal;
    m_pool.Read([&](Database& database) {
        QVariantList values{PersonOfRequest(request), static_cast<qlonglong>(request.nFrom),
            static_cast<qlonglong>(request.nTo)};
        const QString sReached = context.Scope().AndDevice(QStringLiteral("access_record.device_id"), values);
        values << request.nPageSize << static_cast<qlonglong>(request.nPage - 1) * request.nPageSize;
        Rows rows = database.Run(
            QLatin1String("SELECT at, device_name, channel_name, credential, card_no, entry, opened "
                          "FROM access_record WHERE person_id = ? AND at >= ? AND at <= ?")
                + sReached + QLatin1String(" ORDER BY at DESC, id DESC LIMIT ? OFFSET ?"),
            values);
        while (rows.Next())
            answer.vecRecords.push_back({rows.Big(0), rows.Text(1), rows.Text(2), rows.Int(3), rows.Text(4),
                rows.Int(5) != 0, rows.Int(6) != 0});
    });
    return answer;
}

} // namespace Platform

#include "FieldService.h"

#include "DeviceRecords.h"
#include "DeviceRules.h"
#include "Parallel.h"
#include "ServiceError.h"
#include "TextRules.h"

#include <wire/Operations.h>

#include <arpa/inet.h>

namespace Platform {

using RemoteConfigLogical::ModifyAddress_t;
using RemoteConfigLogical::SearchDeviceInfo_t;
using RemoteConfigLogical::TimeZoneResult_t;

namespace {

constexpr const char* FirstUserName = "admin";

void CheckBatch(std::size_t nCount, const char* szField)
{
    if (nCount == 0 || nCount > FieldService::BatchLimit)
        throw ServiceError(UICommonMdl::ErrorInvalidInput, szField);
}

std::uint32_t Number(const std::string& sAddress)
{
    in_addr bytes{};
    inet_pton(AF_INET, sAddress.c_str(), &bytes);
    return ntohl(bytes.s_addr);
}

std::string Place(const std::string& sAddress, int nPort)
{
    return sAddress + ':' + std::to_string(nPort);
}

bool IsDate(const RemoteConfigLogical::DstDate_t& date)
{
    return date.nMonth >= 1 && date.nMonth <= 12 && date.nWeek >= 1 && date.nWeek <= 5 && date.nWeekday >= 1
        && date.nWeekday <= 7 && date.nHour >= 0 && date.nHour <= 23;
}

/// Runs work and writes what it throws into a result's code and detail.
template <class Work>
void Attempt(int& nErrorCode, std::string& sDetail, Work work)
{
    try {
        work();
    } catch (const DeviceError& error) {
        nErrorCode = error.Code();
        sDetail = error.what();
    } catch (const ServiceError& error) {
        nErrorCode = error.Code();
        sDetail = error.Detail();
    }
}

} // namespace

FieldService::FieldService(DatabasePool& pool, JobService& jobs, DeviceService& devices,
    const AuditService& audit, const SecretBox& box, const Drivers& drivers, int nSearchTimeoutMs)
    : m_pool(pool)
    , m_jobs(jobs)
    , m_devices(devices)
    , m_audit(audit)
    , m_box(box)
    , m_drivers(drivers)
    , m_nSearchTimeoutMs(nSearchTimeoutMs)
{
}

DeviceDriver& FieldService::DriverOf(const std::string& sProtocol) const
{
    DeviceDriver* const pDriver = m_drivers.Find(sProtocol);
    if (!pDriver)
        throw DeviceError(UICommonMdl::ErrorDeviceNotSupported);
    return *pDriver;
}

wire::Job FieldService::Search(const Context& context, const wire::SearchRequest& request)
{
    if (request.sStartIp.empty() != request.sEndIp.empty())
        throw ServiceError(UICommonMdl::ErrorInvalidInput, "sEndIp");
    if (!request.sStartIp.empty()) {
        if (!UICommonMdl::IsIpv4(request.sStartIp))
            throw ServiceError(UICommonMdl::ErrorInvalidInput, "sStartIp");
        if (!UICommonMdl::IsIpv4(request.sEndIp) || Number(request.sStartIp) > Number(request.sEndIp)
            || Number(request.sEndIp) - Number(request.sStartIp) >= AddressLimit)
            throw ServiceError(UICommonMdl::ErrorInvalidInput, "sEndIp");
    }
    return m_jobs.Run(context, [this, context, request](Job& job) {
        const DiscoverySweep sweep(m_nSearchTimeoutMs);
        sweep.Run(
            m_drivers.List(), request.sStartIp, request.sEndIp,
            [this, &context, &job](SearchDeviceInfo_t found) {
                found.sDeviceId = m_pool.Read([&](Database& database) {
                    std::string sId = DeviceRecords::FindByAddress(database, found.sIp, found.nPort);
                    // That the platform has it is no secret, which one it is is.
                    const bool bReached = sId.empty()
                        || context.Scope().HoldsDevice(database, DeviceRecords::NumberOf(sId).value_or(0));
                    return bReached ? sId : std::string("0");
                });
                job.AddDone(found);
            },
            job.StopToken());
    });
}

wire::Job FieldService::Initialize(const Context& context, const wire::InitializeRequest& request)
{
    CheckBatch(request.vecDevices.size(), "vecDevices");
    if (!Holds(RemoteConfigLogical::FirstPassword, request.sPassword))
        throw ServiceError(UICommonMdl::ErrorInvalidInput, "sPassword");
    if (!request.sContact.empty()
        && (!Holds(RemoteConfigLogical::ResetContact, request.sContact)
            || !UICommonMdl::IsMailAddress(request.sContact)))
        throw ServiceError(UICommonMdl::ErrorInvalidInput, "sContact");
    return m_jobs.Run(context, [this, context, request](Job& job) {
        job.SetTotal(static_cast<int>(request.vecDevices.size()));
        ForEachInParallel(request.vecDevices, job.StopToken(), [&](const auto& device) {
            Result result{Place(device.sIp, device.nPort), device.sIp, 0, {}};
            Attempt(result.nErrorCode, result.sDetail, [&] {
                DriverOf(device.sProtocol)
                    .Initialize(
                        {device.sIp, device.nPort, FirstUserName, request.sPassword}, request.sContact);
                m_pool.Write([&](Database& database) {
                    m_audit.Write(database, context, wire::InitializeDevice::Name, result.sDeviceId, nullptr,
                        {{"sIp", device.sIp}, {"nPort", device.nPort}, {"sContact", request.sContact}});
                });
            });
            job.AddDone(result);
        });
    });
}

wire::Job FieldService::ModifyAddress(const Context& context, const wire::ModifyAddressRequest& request)
{
    CheckBatch(request.vecDevices.size(), "vecDevices");
    for (const ModifyAddress_t& change : request.vecDevices)
        if (!UICommonMdl::IsIpv4(change.sNewIp) || !UICommonMdl::IsIpv4(change.sMask)
            || (!change.sGateway.empty() && !UICommonMdl::IsIpv4(change.sGateway)))
            throw ServiceError(UICommonMdl::ErrorInvalidInput, "sNewIp");
    return m_jobs.Run(context, [this, context, request](Job& job) {
        job.SetTotal(static_cast<int>(request.vecDevices.size()));
        ForEachInParallel(request.vecDevices, job.StopToken(), [&](const ModifyAddress_t& change) {
            Result result{Place(change.sIp, change.nPort), change.sIp, 0, {}};
            Attempt(result.nErrorCode, result.sDetail, [&] { ChangeAddress(context, change); });
            job.AddDone(result);
        });
    });
}

void FieldService::ChangeAddress(const Context& context, const ModifyAddress_t& change)
{
    const std::string sTaken = m_pool.Read([&](Database& database) {
        // A device that the account does not reach is not touched in the first place.
        if (const std::string sOwn = DeviceRecords::FindByAddress(database, change.sIp, change.nPort);
            !sOwn.empty())
            context.Scope().CheckDevice(database, sOwn);
        return DeviceRecords::FindByAddress(database, change.sNewIp, change.nPort);
    });
    if (!sTaken.empty() && change.sNewIp != change.sIp)
        throw ServiceError(UICommonMdl::ErrorAddressExists, "sNewIp");
    DriverOf(change.sProtocol)
        .SetAddress({change.sIp, change.nPort, change.sUserName, change.sPassword},
            {change.sNewIp, change.sMask, change.sGateway});
    KeepAddress(context, change);
}

// A device that is managed is looked for at its new address from now on.
void FieldService::KeepAddress(const Context& context, const ModifyAddress_t& change)
{
    const std::string sDeviceId = m_pool.Write([&](Database& database) {
        std::string sId = DeviceRecords::FindByAddress(database, change.sIp, change.nPort);
        if (!sId.empty())
            context.Scope().CheckDevice(database, sId);
        nlohmann::json before{{"sIp", change.sIp}};
        nlohmann::json after{{"sIp", change.sNewIp}};
        if (!sId.empty()) {
            GroupLogical::DeviceAddInfo_t device = DeviceRecords::Find(database, sId).value();
            before = device;
            device.sIp = change.sNewIp;
            device.nAddMode = GroupLogical::AddByIp;
            ++device.nVersion;
            DeviceRecords::Update(database, device, {});
            after = device;
        }
        m_audit.Write(database, context, wire::ModifyAddress::Name,
            sId.empty() ? Place(change.sIp, change.nPort) : sId, before, after);
        return sId;
    });
    if (!sDeviceId.empty())
        m_devices.AddressesChanged({sDeviceId});
}

wire::Job FieldService::ModifyPassword(const Context& context, const wire::ModifyPasswordRequest& request)
{
    CheckBatch(request.vecDeviceIds.size(), "vecDeviceIds");
    if (!Holds(RemoteConfigLogical::NewPassword, request.sNewPassword))
        throw ServiceError(UICommonMdl::ErrorInvalidInput, "sNewPassword");
    if (request.sOldPassword.empty())
        throw ServiceError(UICommonMdl::ErrorInvalidInput, "sOldPassword");
    return m_jobs.Run(context, [this, context, request](Job& job) {
        job.SetTotal(static_cast<int>(request.vecDeviceIds.size()));
        ForEachInParallel(request.vecDeviceIds, job.StopToken(), [&](const std::string& sDeviceId) {
            Result result{sDeviceId, {}, 0, {}};
            Attempt(result.nErrorCode, result.sDetail, [&] { ChangePassword(context, request, result); });
            job.AddDone(result);
        });
    });
}

void FieldService::ChangePassword(
    const Context& context, const wire::ModifyPasswordRequest& request, Result& result)
{
    auto optLogin = m_pool.Read([&](Database& database) {
        context.Scope().CheckDevice(database, result.sDeviceId);
        return DeviceRecords::FindLogin(database, m_box, result.sDeviceId);
    });
    if (!optLogin)
        throw ServiceError(UICommonMdl::ErrorNotFound);
    result.sDeviceName = optLogin->sName;
    optLogin->access.sPassword = request.sOldPassword;
    DriverOf(optLogin->sProtocol).SetPassword(optLogin->access, request.sNewPassword);
    try {
        m_pool.Write([&](Database& database) {
            DeviceRecords::SetPassword(database, result.sDeviceId, m_box.Seal(request.sNewPassword));
            m_audit.Write(
                database, context, wire::ModifyDevicePassword::Name, result.sDeviceId, nullptr, nullptr);
        });
    } catch (const ServiceError& error) {
        throw ServiceError(
            error.Code(), "The device has its new password, but the platform could not keep it");
    }
}

wire::Job FieldService::SetTimeZone(const Context& context, const wire::SetTimeZoneRequest& request)
{
    CheckBatch(request.vecDeviceIds.size(), "vecDeviceIds");
    const auto& setting = request.setting;
    if (setting.sZone.empty() || setting.nOffsetMinutes < -12 * 60 || setting.nOffsetMinutes > 14 * 60
        || (setting.bDst && (!IsDate(setting.dstStart) || !IsDate(setting.dstEnd))))
        throw ServiceError(UICommonMdl::ErrorInvalidInput, "setting");
    return m_jobs.Run(context, [this, context, request](Job& job) {
        job.SetTotal(static_cast<int>(request.vecDeviceIds.size()));
        ForEachInParallel(request.vecDeviceIds, job.StopToken(), [&](const std::string& sDeviceId) {
            job.AddDone(PushTimeZone(context, sDeviceId, request.setting));
        });
    });
}

TimeZoneResult_t FieldService::PushTimeZone(const Context& context, const std::string& sDeviceId,
    const RemoteConfigLogical::TimeZoneSetting_t& setting)
{
    TimeZoneResult_t result{sDeviceId, RemoteConfigLogical::TimeZoneFailed, 0};
    std::string sDetail;
    Attempt(result.nErrorCode, sDetail, [&] {
        const auto optLogin = m_pool.Read([&](Database& database) {
            context.Scope().CheckDevice(database, sDeviceId);
            return DeviceRecords::FindLogin(database, m_box, sDeviceId);
        });
        if (!optLogin)
            throw ServiceError(UICommonMdl::ErrorNotFound);
        DriverOf(optLogin->sProtocol).SetTimeZone(optLogin->access, setting);
        m_pool.Write([&](Database& database) {
            m_audit.Write(database, context, wire::SetDeviceTimeZone::Name, sDeviceId, nullptr, setting);
        });
    });
    if (result.nErrorCode == UICommonMdl::ErrorNone)
        result.nState = RemoteConfigLogical::TimeZoneDone;
    else if (result.nErrorCode == UICommonMdl::ErrorDeviceNotSupported)
        result.nState = RemoteConfigLogical::TimeZoneNotSupported;
    return result;
}

} // namespace Platform
